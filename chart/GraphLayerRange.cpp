#include "chart/GraphLayer.h"

#include "chart/GraphArea.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "chart/ValueScale.h"

#include <algorithm>

namespace {

constexpr double margin = 0.02;
constexpr double marksMargin = 0.1; // for the arrows above and below

// Data indices of the first and the last point that the window may show.
struct IndexSpan {
    int first;
    int last;
};

IndexSpan visibleIndices(const CRPrimitive &primitive, const CRTimeScale &axis, int firstPos, int lastPos) {
    return {primitive.GetTimeNearestIndex(axis.GetPosTime(firstPos)),
            primitive.GetTimeNearestIndex(axis.GetPosTime(lastPos))};
}

// The nearest index of a series that starts behind the window is 0 at both ends, too.
bool isNothingFound(const CRPrimitive &primitive, const IndexSpan &span, long firstTime, long lastTime) {
    if (span.first != 0 || span.last != 0)
        return false;
    const long time = primitive.GetTime(0);
    return primitive.GetDataPointCount() <= 0 || time > lastTime || time < firstTime;
}

} // namespace

LayerMapping CRGraphLayer::Mapping() const {
    return {m_rect, m_nFirstPos, m_nScreenPoints, m_candleStep, m_yScale, m_min};
}

int CRGraphLayer::CalcY(float value) const {
    return Mapping().Y(value);
}

double CRGraphLayer::CalcPrice(int y) const {
    return m_yScale == 0 ? 0.0 : Mapping().Value(y);
}

double CRGraphLayer::GetValueByPoint(const QPoint &point) const {
    return m_rect.contains(point) ? CalcPrice(point.y()) : 0.0;
}

int CRGraphLayer::CenterX(int relativePos) const {
    return Mapping().CenterX(relativePos);
}

int CRGraphLayer::LeftX(int relativePos, bool tick) const {
    return Mapping().LeftX(relativePos, tick);
}

int CRGraphLayer::RelativePos(int x) const {
    return Mapping().RelativePos(x);
}

void CRGraphLayer::UpdatePaintProperties(const QRect &rect) {
    const CRGraphWidget *widget = GetWidget();
    if (!widget || widget->m_loading)
        return;
    if (const CTimeScrollBar *scrollBar = widget->m_pScrollBar) {
        m_nScreenPoints = scrollBar->m_nScreenDataPoints;
        m_nFirstPos = scrollBar->m_nValue - m_nScreenPoints;
    }
    UpdateData();
    m_rect = rect;
    if (!m_primitives.empty()) {
        m_tick = -FLT_MAX;
        for (const CRPrimitive *primitive : m_primitives)
            m_tick = std::max(m_tick, primitive->m_fPoint);
    }

    const float step = m_nScreenPoints ? static_cast<float>(rect.width()) / m_nScreenPoints : 0.0f;
    if (!m_bDataScaleSelfTuning && HasRange()) {
        m_candleStep = step;
        m_yScale = pixelsPerUnitOfFrozen({m_max, m_min}, rect.height());
        return;
    }
    CollectRange();
    ValueRange range{m_max, m_min};
    if (range.IsUntouched()) {
        m_max = m_lastMax;
        m_min = m_lastMin;
        return;
    }
    separateEqualEnds(range, m_tick);
    addMargins(range, margin);
    if (std::any_of(m_primitives.begin(), m_primitives.end(),
                    [](const CRPrimitive *primitive) { return primitive->m_type == PT_MARKS; }))
        addMargins(range, marksMargin);
    m_candleStep = step;
    m_yScale = pixelsPerUnit(range, rect.height());
    m_max = m_lastMax = range.max;
    m_min = m_lastMin = range.min;
}

// The lowest and the highest visible value, of the series that take part in the self-tuning.
void CRGraphLayer::CollectRange() {
    const CRGraphWidget *widget = GetWidget();
    ValueRange range;
    const bool candlesOnly =
        widget->m_candleInSelfTuning &&
        std::any_of(m_primitives.begin(), m_primitives.end(),
                    [](const CRPrimitive *primitive) { return primitive->IsCandleLike(); });
    const CRTimeScale *axis = widget->m_pTimeScale;
    const int lastPos = axis ? std::min(m_nFirstPos + m_nScreenPoints, axis->GetTimeCount()) - 1 : -1;
    for (const CRPrimitive *primitive : m_primitives) {
        if (primitive->m_nPenStyle == Qt::NoPen || (candlesOnly && !primitive->IsCandleLike()))
            continue;
        if (!axis || primitive->GetDataPointCount() <= 0)
            continue;
        const IndexSpan span = visibleIndices(*primitive, *axis, m_nFirstPos, lastPos);
        if (isNothingFound(*primitive, span, axis->GetPosTime(m_nFirstPos), axis->GetPosTime(lastPos)))
            continue;
        range.Widen(primitive->GetMaxOnInterval(span.first, span.last),
                    primitive->GetMinOnInterval(span.first, span.last));
    }
    m_max = range.max;
    m_min = range.min;
}
