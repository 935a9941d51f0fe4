#include "chart/TimeScale.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/PrimitiveCalendar.h"

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

// Past the end the whole position counts as steps from the last time, not only what lies beyond the list.
long CRTimeScale::GetVirtualPosTime(int position, eDateType type) const {
    if (m_times.empty())
        return 0;
    if (position >= GetTimeCount())
        return addIntervals(m_times.back(), type, position);
    return position < 0 ? addIntervals(m_times.front(), type, position) : m_times[static_cast<std::size_t>(position)];
}

int CRTimeScale::GetTimePos(long timeSec, eDateType) const {
    int low = -1;
    int high = GetTimeCount();
    while (high - low > 1) {
        const int middle = low + static_cast<int>((high - low) * 0.5 + 0.5);
        const long time = m_times[static_cast<std::size_t>(middle)];
        if (middle == 0 || time == timeSec)
            return middle;
        if (time < timeSec)
            low = middle;
        else if (m_times[static_cast<std::size_t>(middle) - 1] <= timeSec)
            return middle - 1;
        else
            high = middle;
    }
    return low < 0 ? 0 : low;
}

int CRTimeScale::GetVirtualTimePos(long timeSec, eDateType type, int) const {
    return m_times.empty() || timeSec < 0 ? 0 : GetTimePos(timeSec, type);
}

bool CRTimeScale::ChangeAutoScrollStatus() {
    SetAutoScrollState(!m_bAutoScroll, m_nAutoScrollPositions);
    if (m_bAutoScroll && !m_pWidget->m_loading) {
        m_pWidget->MoveGraphics2Autopos();
        m_pWidget->update();
    }
    return m_bAutoScroll;
}
