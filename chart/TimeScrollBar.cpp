#include "chart/TimeScrollBar.h"

#include "chart/GraphWidget.h"
#include "chart/TimeScale.h"
#include "module/GraphModule.h"

#include <QIcon>
#include <QPointer>
#include <QStyle>
#include <QToolButton>

CTimeScrollBar::CTimeScrollBar(CRGraphWidget *widget)
    : QScrollBar(Qt::Horizontal, widget), m_pWidget(widget) {
    m_nExtent = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

CTimeScrollBar::~CTimeScrollBar() {
    delete m_pLeftButton;
    delete m_pRightButton;
    delete m_pSavedCursor;
}

void CTimeScrollBar::Create() {
    m_pLeftButton = new QToolButton(m_pWidget);
    m_pLeftButton->setIcon(QIcon(LoadModulePixmap("leftleft.png")));
    m_pLeftButton->setToolTip(GetModule()->tr("G0011"));
    m_pRightButton = new QToolButton(m_pWidget);
    m_pRightButton->setToolTip(GetModule()->tr("G0086"));
    for (QToolButton *button : {m_pLeftButton, m_pRightButton}) {
        button->setFocusPolicy(Qt::NoFocus);
        button->setCursor(Qt::ArrowCursor);
    }
    setFocusPolicy(Qt::NoFocus);

    connect(this, &QScrollBar::valueChanged, this, &CTimeScrollBar::OnValueChanged);
    connect(m_pLeftButton, &QToolButton::clicked, this, &CTimeScrollBar::OnBnLeftLeftClicked);
    connect(m_pRightButton, &QToolButton::clicked, this, &CTimeScrollBar::OnBnRightClicked);
    // Twice, so that the icon is set and the state ends as it was.
    OnBnRightClicked();
    OnBnRightClicked();
    OnResize();
}

void CTimeScrollBar::OnResize() {
    const int top = m_pWidget->height() - m_nExtent;
    const int barWidth = m_pWidget->width() - 2 * m_nExtent - 3;
    setGeometry(m_nExtent + 2, top, barWidth > 0 ? barWidth : 0, m_nExtent);
    if (m_pLeftButton)
        m_pLeftButton->setGeometry(0, top, m_nExtent, m_nExtent);
    if (m_pRightButton)
        m_pRightButton->setGeometry(m_pWidget->width() - m_nExtent, top, m_nExtent, m_nExtent);
}

void CTimeScrollBar::SetScrollBarValue(int value) {
    m_nValue = value;
    m_nRightEdgeTime = m_pWidget->m_pTimeScale ? m_pWidget->m_pTimeScale->GetPosTime(value - 1) : -1;
}

void CTimeScrollBar::SetValue(int value) {
    SetScrollBarValue(qBound(minimum(), value, maximum()));
    setValue(value);
}

void CTimeScrollBar::SetAutoScroll(bool on) {
    if (m_pRightButton)
        m_pRightButton->setEnabled(on);
}

void CTimeScrollBar::SetRBtnState(bool on) {
    if (m_pRightButton)
        m_pRightButton->setIcon(QIcon(LoadModulePixmap(on ? "lock2.png" : "unlock2.png")));
}

void CTimeScrollBar::OnValueChanged(int value) {
    const QPointer<CTimeScrollBar> self(this);
    SetScrollBarValue(value);
    m_pWidget->repaint();
    if (self)
        m_pWidget->UndoMilestone(GetModule()->tr("Scroll"));
}

void CTimeScrollBar::OnBnLeftLeftClicked() {
    m_pWidget->RequestLastData();
}

void CTimeScrollBar::OnBnRightClicked() {
    if (!m_pWidget->m_pTimeScale)
        return;
    const QPointer<CTimeScrollBar> self(this);
    const bool on = m_pWidget->m_pTimeScale->ChangeAutoScrollStatus();
    if (!self)
        return;
    SetRBtnState(on);
    m_pWidget->UndoMilestone(GetModule()->tr("G0085"));
}

void CTimeScrollBar::enterEvent(QEvent *event) {
    m_pWidget->m_bMouseKnown = false;
    delete m_pSavedCursor;
    m_pSavedCursor = new QCursor(m_pWidget->cursor());
    m_pWidget->setCursor(Qt::ArrowCursor);
    QScrollBar::enterEvent(event);
}

void CTimeScrollBar::leaveEvent(QEvent *event) {
    if (m_pSavedCursor) {
        m_pWidget->setCursor(*m_pSavedCursor);
        delete m_pSavedCursor;
        m_pSavedCursor = nullptr;
    }
    QScrollBar::leaveEvent(event);
}
