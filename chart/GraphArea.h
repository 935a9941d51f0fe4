#pragma once

#include <QFont>
#include <QObject>
#include <QRect>
#include <QRgb>
#include <QString>
#include <vector>

class CPropertyHead;
class CRGraphLayer;
class CRGraphModule;
class CRGraphWidget;
class CRPrimitive;
class QKeyEvent;
class QMenu;
class QMouseEvent;
class QPainter;
struct mwiLocatorMessageItem;

// One pane of a chart window: layers over each other, a title band, a close box and a splitter on top.
class CRGraphArea : public QObject {
    Q_OBJECT

public:
    struct Properties {
        explicit Properties(const CRGraphModule *module); // factory values
        explicit Properties(const CRGraphWidget *widget); // the window's present values
        QRgb backgroundColor;
        QRgb gridColor;
        QRgb fontColor;
        QFont font;
    };

    // `height` is the share of the chart's height. Makes its first layer, except while the window loads.
    CRGraphArea(CRGraphWidget *widget, float height, const QString &name);
    ~CRGraphArea() override;

    // ---- paint (chart/GraphAreaPaint.cpp, chart/GraphAreaTitles.cpp) ----
    void Draw(QPainter &painter, bool lastOnly);

    // ---- layers (chart/GraphArea.cpp) ----
    // The layer for a new object; asks the user where there is a choice. Null: cancelled.
    CRGraphLayer *GetLayer(int index, const QString &name);
    void AddGraphLayer(CRGraphLayer *layer);
    void InsertGraphLayer(int index, CRGraphLayer *layer);
    void DeleteGraphLayer(int index, bool refresh);
    void DeleteGraphLayer(CRGraphLayer *layer);
    void DeleteUnusedLayers();
    void BringLayerToFront(int index);
    void SendLayerToBack(int index);
    void UpdateData(); // on every layer

    int GetIndex() const;
    int GetPrimitiveCount() const;
    bool HasPoints() const;
    CRPrimitive *GetBasePrimitive() const;
    int GetLastSignedTimePos(const unsigned short *name) const;
    void ApplyPropertyPage(const CPropertyHead *page);

    // ---- read-outs ----
    void DrawLocator(QPainter &painter, const QRect &rect, int &x) const;
    void FormLocatorMessage(std::vector<mwiLocatorMessageItem> *items, const QPoint &cursor) const;
    QString GetToolTipInfo(const QPoint &point) const;

    // ---- input (objects/GraphAreaInput.cpp) ----
    void mousePressEvent(QMouseEvent *event);
    void mouseMoveEvent(QMouseEvent *event);
    void mouseDoubleClickEvent(QMouseEvent *event);
    void keyPressEvent(QKeyEvent *event);
    void OnLMouseRelease(QMouseEvent *event);

    std::vector<CRGraphLayer *> m_layers; // back to front; owned
    CRGraphWidget *m_pWidget = nullptr;
    Properties m_properties;
    float m_heightShare = 0;
    QRect m_rect{QPoint(0, 0), QPoint(-1, -1)}; // widget pixels; narrowed by the scales during a frame
    QRect m_closeRect{QPoint(0, 0), QPoint(-1, -1)};
    int m_resizing = 0;
    QString m_title;
    QString m_symbolName;

public slots:
    void OnDeleteArea();

protected:
    void customEvent(QEvent *event) override;

private:
    void SelectUnder(QMouseEvent *event);
    void UnselectDuplicates();
    void ShapeCursor(const QPoint &point);
    void ReadCross(CRGraphLayer *layer, const QPoint &point);
    void DrawPrompt(QPainter &painter, const QRect &pane);
    void DrawWatermark(QPainter &painter);
    void DrawSymbolImage(QPainter &painter);
    void DrawLastCandleIndicator(QPainter &painter);
    void DrawTopStrip(QPainter &painter, const QRect &pane);
    void DrawTitles(QPainter &painter, const QRect &pane);
    void DrawCloseBox(QPainter &painter, const QRect &pane);
    void DrawBorder(QPainter &painter);
};
