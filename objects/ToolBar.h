#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QToolButton>
#include <QWidget>
#include <vector>

class QComboBox;
class QSlider;

// A flat button with an icon and a text.
class CToolButton : public QToolButton {
    Q_OBJECT

public:
    explicit CToolButton(QWidget *parent);
    CToolButton(const QPixmap &pixmap, const QString &text, const QString &title, QWidget *parent);

    int GetWidthByContent() const;
    void setPixmapButton(const QPixmap &pixmap);
    void setTextButton(const QString &text);
    void setForeground(const QColor &color);
    void resizeWidthButton(int width, int height); // a width below 1 is that of the content
    void drawButtonLabel(QPainter *painter);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_pixmap;
    QColor m_foreground = Qt::black;
};

// What a tool bar holds at one place.
struct CChildWidget {
    enum Kind { Button, Combo, Slider, Widget, Separator };
    Kind kind = Widget;
    QWidget *widget = nullptr; // the bar owns it unless it was added from outside
    bool owned = false;
    bool fits = true; // stands in the row, not in the extension
};

// A tool bar that hides itself and moves what does not fit into an extension.
class CToolBar : public QWidget {
    Q_OBJECT

public:
    explicit CToolBar(QWidget *parent);
    ~CToolBar() override;

    // ---- contents; an index of -1 appends ----
    CToolButton *AddButton(const QPixmap &pixmap, const QString &text, const QObject *receiver, const char *slot,
                           int index = -1, bool checkable = false, bool enabled = true);
    QComboBox *AddCombo(int index = -1);
    QSlider *AddSlider(int index = -1);
    void AddWidget(QWidget *widget, int index = -1); // stays its owner's
    void AddSeparator(int index = -1);
    void AddChildWidget(const CChildWidget &child, int index = -1);
    void DeleteChildWidget(int index);
    void DeleteChildWidget(const QWidget *widget);
    int GetChildCount() const { return static_cast<int>(m_children.size()); }
    const CChildWidget &GetChild(int index) const { return m_children[static_cast<std::size_t>(index)]; }

    // ---- look ----
    void SetBackground(const QColor &color);
    void SetBackgroundImage(const QImage &image);
    void SetForeground(const QColor &color);

    // ---- showing ----
    void OnResize();
    void SetAutoHide(int on); // hides at once when set
    void SetShowEnable(bool on) { m_showEnable = on; }
    void ShowMenu();
    bool IsMouseOver() const;

    void mouseMoveEvent(QMouseEvent *event) override;
    QSize sizeHint() const override;

public slots:
    void OnBnClickedExtend();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void TakeBackExtension(); // the children in the open extension become the bar's again
    void StopTimer(int &timer);

    std::vector<CChildWidget> m_children;
    int m_outTimer = 0;
    int m_inTimer = 0;
    bool m_autoHide = false;
    bool m_showEnable = true;
    QImage m_backgroundImage;
    QColor m_background;
    QColor m_foreground = Qt::black;
    QWidget *m_extension = nullptr; // the menu of the children that do not fit
    CToolButton *m_extendButton = nullptr;
};
