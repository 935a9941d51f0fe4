#include "chart/GraphWidget.h"

#include "chart/Primitive.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "chart/ZoomModel.h"
#include "module/GraphModule.h"
#include "objects/Indicator.h"
#include "support/Log.h"
#include "support/LogTag.h"

#include <QDateTime>
#include <QPointer>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>

namespace {

// Series that auto scroll follows.
bool leadsAutoScroll(const CRPrimitive &primitive) {
    return primitive.m_type == PT_CLOSE_DOTS ||
           (primitive.m_type >= PT_CLOSE_LINE && primitive.m_type <= PT_WIDE_CANDLE);
}

} // namespace

void CRGraphWidget::CreateScrollBar() {
    try {
        m_pScrollBar = new CTimeScrollBar(this);
        m_pScrollBar->Create();
        m_pScrollBar->SetRBtnState(m_pTimeScale && m_pTimeScale->m_bAutoScroll);
    } catch (...) {
        logLine(logMsgModule, logError, "CRGraphWidget::CreateScrollBar: Can't create ScrollBar",
                LOG_TAG("GraphWidget"));
        m_pScrollBar = nullptr;
        Terminate();
    }
}

bool CRGraphWidget::CanZoom() {
    if (m_nPrimitiveCount < 1 || !isVisible() || !m_bCurrent)
        return false;
    if (!m_pScrollBar)
        CreateScrollBar();
    return m_pScrollBar != nullptr;
}

// The range of the scroll bar for a number of visible positions. The value may be pushed by the new ends;
// that is no scrolling of the user's, so nothing is announced.
void CRGraphWidget::SetScreenPoints(int points) {
    const QSignalBlocker quiet(m_pScrollBar);
    m_pScrollBar->m_nScreenDataPoints = points;
    m_pScrollBar->setRange(points, std::max(points, m_pTimeScale->GetTimeCount()));
    m_pScrollBar->setPageStep(points);
    m_pScrollBar->SetScrollBarValue(m_pScrollBar->value());
}

// A change of the slider by ourselves comes back: that is no wish of the user's.
void CRGraphWidget::ExpectSliderEcho(int sliderValue) {
    m_bZoomEcho = false;
    m_nSliderEcho = sliderValue;
}

// An end of the slider's range can push its value.
void CRGraphWidget::SetSliderMinimum(QSlider *slider, int minimum) {
    if (minimum > slider->value())
        ExpectSliderEcho(minimum);
    slider->setMinimum(minimum);
}

void CRGraphWidget::SetSliderMaximum(QSlider *slider, int maximum) {
    if (maximum < slider->value())
        ExpectSliderEcho(maximum);
    slider->setMaximum(maximum);
}

// Moves the host's slider, as far as its range goes.
void CRGraphWidget::SetZoomSlider(int points) {
    const QPointer<CRGraphWidget> self(this);
    QSlider *slider = GetZoomSlider();
    if (!self || !slider || !isVisible() || !m_bCurrent)
        return;
    ExpectSliderEcho(qBound(slider->minimum(), -points, slider->maximum()));
    slider->setValue(-points);
}

void CRGraphWidget::ZoomIn(bool) {
    if (CanZoom())
        ZoomTo(zoomedIn(m_pScrollBar->m_nScreenDataPoints, m_pTimeScale->GetTimeCount()), "C0046ZoomIN");
}

void CRGraphWidget::ZoomOut(bool) {
    if (CanZoom())
        ZoomTo(zoomedOut(m_pScrollBar->m_nScreenDataPoints, m_pTimeScale->GetTimeCount()), "C0047ZoomOut");
}

void CRGraphWidget::ZoomTo(int points, const char *milestone) {
    const QPointer<CRGraphWidget> self(this);
    SetScreenPoints(points);
    m_bAutoZoomOut = false;
    SetZoomSlider(points);
    if (self)
        UndoMilestone(GetModule()->tr(milestone));
    if (self)
        update();
}

// The host's slider was moved, by the user or by ourselves.
void CRGraphWidget::OnChangeZoom(int value) {
    if (m_bSkipZoomEcho) {
        m_bSkipZoomEcho = false;
        return;
    }
    const bool own = !m_bZoomEcho && value == m_nSliderEcho;
    if (m_bZoomEcho)
        m_bAutoZoomOut = false;
    m_bZoomEcho = true;
    // A slider asks for no fewer than ten: where fewer positions fill the window our own change stands.
    if (own && m_pScrollBar && m_pScrollBar->m_nScreenDataPoints < leastScreenPoints)
        return;
    ChangeZoom(value);
}

void CRGraphWidget::OnZoomSliderPressed() {
    m_bZoomEcho = true; // what follows is the user's
}

void CRGraphWidget::ChangeZoom(int value) {
    if (m_loading || !CanZoom())
        return;
    const int count = m_pTimeScale->GetTimeCount();
    SetScreenPoints(wantedPoints(value, count));
    const QPointer<CRGraphWidget> self(this);
    const int most = m_pScrollBar->maximum();
    const QPointer<QSlider> slider(GetZoomSlider());
    if (slider) {
        const bool wasEmpty = slider->minimum() == 0;
        slider->setMinimum(-most);
        if (!slider)
            return;
        if (most != leastScreenPoints) {
            slider->setMaximum(-leastScreenPoints);
        } else if (wasEmpty) {
            slider->setMaximum(1);
            slider->setValue(1);
        } else {
            slider->setMaximum(0);
        }
    }
    if (self)
        UndoMilestone(GetModule()->tr("Change zoom"));
    if (self)
        update();
}

// After each rebuild of the positions.
void CRGraphWidget::SetScrollbarValues(bool toEnd, bool force) {
    if (!m_pScrollBar)
        CreateScrollBar();
    if (!m_pScrollBar)
        return;
    const bool first = m_bFirstScrollSetup || force;
    m_bFirstScrollSetup = 0;
    const int before = m_pScrollBar->GetScrollValue();
    const int points =
        pointsAfterRebuild(m_pScrollBar->m_nScreenDataPoints, first, m_nFreeSpacePositions, m_bAutoZoomOut);
    SetScreenPoints(points);

    const QPointer<CRGraphWidget> self(this);
    const int count = m_pTimeScale->GetTimeCount();
    QSlider *slider = GetZoomSlider();
    if (self && slider && isVisible() && m_bCurrent) {
        if (points > count)
            SetSliderMaximum(slider, -points);
        else
            SetSliderMinimum(slider, -count);
    }
    if (!self)
        return;
    {
        const QSignalBlocker quiet(m_pScrollBar);
        m_pScrollBar->SetValue(toEnd ? m_pScrollBar->maximum() : m_pScrollBar->value());
    }
    SetZoomSlider(points);
    if (self && m_pScrollBar->GetScrollValue() != before)
        update();
}

void CRGraphWidget::Scroll(int value) {
    if (m_pScrollBar)
        m_pScrollBar->SetValue(value);
}

// Auto scroll: keeps the last candle the set number of positions left of the right edge.
void CRGraphWidget::MoveGraphics2Autopos() const {
    if (!m_pTimeScale || !m_pTimeScale->m_bAutoScroll || !m_pScrollBar)
        return;
    if (m_sysTesterChart) {
        m_pTimeScale->m_bAutoScroll = false;
        return;
    }
    const int value = m_pScrollBar->GetScrollValue();
    if (value == m_pScrollBar->maximum())
        return;
    for (const CRIndicator *indicator : m_indicators) {
        for (const CRPrimitive *primitive : indicator->m_primitives) {
            if (!primitive->m_bVisible || !leadsAutoScroll(*primitive))
                continue;
            const int last = primitive->GetLastSignedTimePos();
            if (last >= value - m_pTimeScale->m_nAutoScrollPositions)
                m_pScrollBar->SetValue(last + m_pTimeScale->m_nAutoScrollPositions + 1);
            return;
        }
    }
}

// The time, one day later for every unit, and `count` units more for weeks, months and years.
long CRGraphWidget::IncDate(int count, int dateType, long timeSec) const {
    QDateTime time = QDateTime::fromSecsSinceEpoch(timeSec, Qt::UTC).addDays(1);
    if (dateType == DT_WEEK)
        time = time.addDays(count);
    else if (dateType == DT_MONTH)
        time = time.addMonths(count);
    else if (dateType == DT_YEAR)
        time = time.addYears(count);
    return static_cast<long>(time.toSecsSinceEpoch());
}

bool CRGraphWidget::IsLastCandleOnScreen() const {
    if (!m_pScrollBar)
        return false;
    const int value = m_pScrollBar->GetScrollValue();
    for (const CRIndicator *indicator : m_indicators) {
        for (const CRPrimitive *primitive : indicator->m_primitives) {
            if (!primitive->m_bVisible || !leadsAutoScroll(*primitive))
                continue;
            const int last = primitive->GetLastSignedTimePos();
            if (last >= 0 && last >= value - m_pScrollBar->m_nScreenDataPoints && last < value)
                return true;
        }
    }
    return false;
}

// The last time of all candle series; 0 when there is none.
long CRGraphWidget::GetCandlesLastTime() const {
    long latest = 0;
    for (const CRIndicator *indicator : m_indicators) {
        for (const CRPrimitive *primitive : indicator->m_primitives) {
            if (leadsAutoScroll(*primitive))
                latest = std::max(latest, primitive->GetTime(primitive->GetDataPointCount() - 1));
        }
    }
    return latest;
}

void CRGraphWidget::OnBnClickedZoomIn() {
    ZoomIn(true);
}

void CRGraphWidget::OnBnClickedZoomOut() {
    ZoomOut(true);
}
