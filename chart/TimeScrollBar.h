#pragma once

#include <QCursor>
#include <QScrollBar>

class CRGraphWidget;
class QToolButton;

// How many positions are visible, and which one stands at the right edge.
class CTimeScrollBar : public QScrollBar {
    Q_OBJECT

public:
    explicit CTimeScrollBar(CRGraphWidget *widget);
    ~CTimeScrollBar() override;

    void Create();
    void OnResize();
    void SetScrollBarValue(int value); // the position just right of the right edge
    void SetValue(int value);          // the same, and the slider follows
    int GetScrollValue() const { return m_nValue; }
    void SetAutoScroll(bool on);       // enables or disables the lock button
    void SetRBtnState(bool on);        // shows the lock closed or open

    int m_nScreenDataPoints = 60;
    int m_nValue = 0;
    CRGraphWidget *m_pWidget = nullptr;
    QToolButton *m_pLeftButton = nullptr;
    QToolButton *m_pRightButton = nullptr;
    QCursor *m_pSavedCursor = nullptr;
    int m_nExtent = 16;
    long m_nRightEdgeTime = -1;

public slots:
    void OnValueChanged(int value);
    void OnBnLeftLeftClicked();
    void OnBnRightClicked();

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
};
