#pragma once

#include "chart/GraphLayerMapping.h"
#include "chart/PrimitiveLink.h"

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>
#include <cfloat>
#include <vector>

class CRGraphArea;
class CRGraphWidget;
class CRPrimitive;
class CTradeOrder;
class CTradePosition;
class QColor;
class QKeyEvent;
class QMouseEvent;
class QPainter;

// One value scale inside a pane: the range, the mapping of values to pixels, and what stands on it.
class CRGraphLayer : public QObject {
    Q_OBJECT

public:
    enum SCALE_TYPE { LEFT_SCALE = 0, RIGHT_SCALE = 1 };

    CRGraphLayer(CRGraphArea *area, const QString &name);
    ~CRGraphLayer() override;

    // ---- range and mapping (chart/GraphLayerRange.cpp) ----
    void UpdatePaintProperties(const QRect &rect);
    LayerMapping Mapping() const;
    int CalcY(float value) const;                      // widget row
    double CalcPrice(int y) const;                     // value at a widget row
    double GetValueByPoint(const QPoint &point) const; // 0.0 outside the plot
    int CenterX(int relativePos) const;                // column centre of a position relative to m_nFirstPos
    int LeftX(int relativePos, bool tick) const;
    int RelativePos(int x) const;
    void SetDataScaleSelfTuning(bool on);
    void StoreMinMax();
    void RestoreMinMax();
    void InverseColor(QColor *color) const;

    // ---- contents (chart/GraphLayer.cpp) ----
    void UpdateData(); // all three refreshes
    void Update();     // only what is stale
    void UpdatePrimitivesData();
    void UpdatePrimitiveLinksData();
    void UpdateTradeData();
    int GetIndex() const;
    int GetPrimitiveCount() const;
    bool ContainInstrument(const unsigned short *symbol) const;
    CRGraphWidget *GetWidget() const;
    CRGraphArea *GetArea() const { return m_pArea; }

    // ---- paint (chart/GraphLayerPaint.cpp, chart/ValueScalePaint.cpp) ----
    void Draw(QPainter &painter, QRect &rect, bool lastOnly);
    void DrawDataScale(SCALE_TYPE type, QPainter &painter);

    // ---- hit test (chart/HitTest.cpp) ----
    static bool PtInLine(const QRect &line, const QPoint &point, int tolerance);
    static bool PtInLine(const QPoint &a, const QPoint &b, const QPoint &point, int tolerance);
    static bool PtInRect(const QRect &rect, const QPoint &point, int tolerance);
    // Sets the series' hover fields; while a tool tip is gathered a hit adds its text.
    bool IsPrimitiveUnderMouse(CRPrimitive *primitive, const QPoint &point);
    QString GetToolTipInfo(const QPoint &point);

    // ---- input (objects/GraphLayerInput.cpp) ----
    void mousePressEvent(QMouseEvent *event);
    void mouseMoveEvent(QMouseEvent *event);
    void mouseDoubleClickEvent(QMouseEvent *event);
    void keyPressEvent(QKeyEvent *event);
    void OnLMouseRelease(QMouseEvent *event);
    void DrawScaleDrag(QPainter &painter) const; // the bracket of a running scale drag
    QRect ScaleStrip(SCALE_TYPE type) const;
    CRGraphLayer *ScaleOwner(SCALE_TYPE type) const; // the layer of the pane whose scale stands on a side
    void FreeScaleEnds();

    CRGraphArea *m_pArea = nullptr;
    QString m_name;
    bool m_bPrimitivesDirty = true;
    int m_nBlinkPhase = 0;
    std::vector<CRPrimitive *> m_primitives; // sorted by m_nOrder; owned by the indicators
    std::vector<CPrimitiveLink> m_links;
    std::vector<CTradePosition *> m_positions;
    std::vector<CTradeOrder *> m_orders;
    float m_max = -FLT_MAX, m_min = FLT_MAX;
    float m_savedMax = -FLT_MAX, m_savedMin = FLT_MAX;
    bool m_bMinMaxStored = false;
    float m_lastMax = -FLT_MAX, m_lastMin = FLT_MAX;
    float m_candleStep = 0; // pixels a position
    float m_yScale = 0;     // pixels a value unit
    float m_tick = 0.0001f;
    int m_nScreenPoints = 60;
    int m_nFirstPos = 0;
    QRect m_rect;
    QRect m_rightAutoRect;
    QRect m_leftAutoRect;
    QString m_toolTip;
    bool m_bDataScaleSelfTuning = true;
    int m_scaleDrag = 0; // 0 none, 1 and 2 right scale upper and lower half, 3 and 4 left
    QPoint m_scalePress;
    QPoint m_scaleCurrent;
    bool m_freeScale = false;
    bool m_noScaleDrag = false;
    bool m_savedTradeInSelfTuning = false;
    bool m_savedCandleInSelfTuning = false;
    bool m_tradeInSelfTuning = true;
    bool m_candleInSelfTuning = false;
    int m_nSearchCursor = 0; // where the last search for a primitive ended

public slots:
    void OnSetAutoScalling();

protected:
    void customEvent(QEvent *event) override;

private:
    bool HasRange() const { return m_max != -FLT_MAX && m_min != FLT_MAX; }
    void CollectRange();
    void DrawScales(QPainter &painter);
    void DrawAutoButton(SCALE_TYPE type, QPainter &painter);
    void DrawWideCandles(struct PaintPass &pass);
    void DrawLinks(struct PaintPass &pass) const;
    void DrawLevels(struct PaintPass &pass, bool zero) const;
    void DrawPrimitives(struct PaintPass &pass);
    bool ShowsScale(SCALE_TYPE type) const;
    void AddToolTip(const CRPrimitive *primitive, int dataIndex);

    bool m_gatherToolTip = false;
};
