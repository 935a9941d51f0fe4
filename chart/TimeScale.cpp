#include "chart/TimeScale.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/TimeLookup.h"

#include <QPoint>

CRTimeScale::CRTimeScale(CRGraphWidget *widget)
    : m_pWidget(widget), m_backgroundColor(widget->m_backgroundColor), m_gridColor(widget->m_gridColor),
      m_fontColor(widget->m_fontColor), m_font(font::chartElement, 7) {}

void CRTimeScale::DelTime(int position) {
    if (position >= 0 && position < GetTimeCount())
        m_times.erase(m_times.begin() + position);
}

void CRTimeScale::Clear() {
    m_times.clear();
    m_freeTimes.clear();
    m_markTimes.clear();
}

long CRTimeScale::GetPosTime(int position) const {
    return position < 0 || position >= GetTimeCount() ? -1 : m_times[static_cast<std::size_t>(position)];
}

// The position at a column, counted as the candles are drawn.
int CRTimeScale::PointPos(const QPoint &point, const CRGraphLayer *layer) const {
    const int width = layer->m_rect.width();
    if (width <= 0)
        return layer->m_nFirstPos;
    const double fromCentre = point.x() - layer->m_rect.left() - 0.5 * layer->m_candleStep;
    return static_cast<int>(0.5 + fromCentre * layer->m_nScreenPoints / width) + layer->m_nFirstPos;
}

long CRTimeScale::GetPointTime(const QPoint &point) const {
    const CRGraphLayer *layer = m_pWidget->GetAnyPrimitiveLayer();
    return layer ? GetPosTime(PointPos(point, layer)) : 0;
}

long CRTimeScale::GetVirtualPointTime(const QPoint &point, eDateType type) const {
    const CRGraphLayer *layer = m_pWidget->GetAnyPrimitiveLayer();
    return layer ? GetVirtualPosTime(PointPos(point, layer), type) : 0;
}

long CRTimeScale::GetVirtualPosTime(int position, eDateType type) const {
    return timeOfPosition(m_times, position, type);
}

int CRTimeScale::GetTimePos(long timeSec, eDateType) const {
    return positionOfTime(m_times, timeSec);
}

int CRTimeScale::GetVirtualTimePos(long timeSec, eDateType type, int) const {
    return m_times.empty() || timeSec < 0 ? 0 : GetTimePos(timeSec, type);
}

bool CRTimeScale::ChangeAutoScrollStatus() {
    const bool on = !m_bAutoScroll;
    SetAutoScrollState(on, m_nAutoScrollPositions);
    if (on && !m_pWidget->m_loading) {
        const QPointer<CRGraphWidget> widget(m_pWidget); // scrolling tells the host
        widget->MoveGraphics2Autopos();
        if (!widget)
            return on;
        widget->update();
    }
    return m_bAutoScroll;
}
