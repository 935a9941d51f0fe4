// The position model of a chart window: one time axis for all series, and the widths of the scales.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/PrimitiveTypes.h"
#include "chart/TimeAxis.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "support/FontMetrics.h"
#include "support/Log.h"
#include "support/LogTag.h"
#include "support/Numbers.h"

#include <algorithm>
#include <climits>

namespace {

constexpr int noPeriod = INT_MAX;
constexpr int secondsPerDay = 86400;

TimeRun timesOf(const CRPrimitive *primitive) {
    const mvDataPointArray *array = primitive->GetArray();
    TimeRun run;
    run.first = primitive->FirstOf(CRMDataLine::TIME);
    run.stride = array ? static_cast<int>(array->recordSize) : 0;
    run.count = array && array->data ? primitive->GetDataPointCount() : 0;
    return run;
}

/// The first of the series with the smallest period, and that period in minutes. A letter that is no period
/// counts as that of the series before.
const CRPrimitive *finestOf(const std::vector<CRPrimitive *> &list, int &smallest) {
    const CRPrimitive *finest = nullptr;
    int minutes = noPeriod;
    for (const CRPrimitive *primitive : list) {
        const namePeriod &period = primitive->GetArray()->identity.m_periods;
        minutes = periodMinutes(period.period, period.lenPeriod, minutes);
        if (!finest || minutes < smallest) {
            smallest = minutes;
            finest = primitive;
        }
    }
    return finest;
}

} // namespace

void CRGraphWidget::UpdatePrimitivePositions(const ScreenDataPointsUpdate &, bool force) {
    RebuildPositions(force);
}

void CRGraphWidget::UpdatePrimitivePositions(const ScreenDataPointsNotUpdate &, bool force) {
    RebuildPositions(force);
}

void CRGraphWidget::RebuildPositions(bool force) {
    if (m_loading)
        return;
    trace("CRGraphWidget::UpdatePrimitivePositions started", LOG_TAG("GraphWidget"));
    ++m_nUpdateCount;
    UpdatePrimitiveCount();
    m_pTimeScale->Clear();
    if (m_nPrimitiveCount == 0)
        return;
    for (CRIndicator *indicator : m_indicators) {
        if (!indicator->IsInvisible())
            indicator->Reset();
    }
    if (m_indicators.empty())
        return;

    std::vector<CRPrimitive *> visible; // with data
    std::vector<CRPrimitive *> all;     // with data, hidden ones too
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (timesOf(primitive).count <= 0)
                continue;
            all.push_back(primitive);
            if (primitive->m_bVisible)
                visible.push_back(primitive);
        }
    }
    int smallest = noPeriod;
    const CRPrimitive *base = finestOf(visible, smallest);
    if (!base)
        return;
    const long long seconds = smallest == noPeriod ? secondsPerDay : smallest * 60LL;
    m_nMinPeriodSeconds = static_cast<int>(qBound<long long>(INT_MIN, seconds, INT_MAX));

    std::vector<TimeRun> runs;
    runs.reserve(visible.size());
    for (const CRPrimitive *primitive : visible)
        runs.push_back(timesOf(primitive));
    mergeTimes(runs, m_pTimeScale->m_times);
    for (std::size_t i = 0; i < visible.size(); ++i)
        visible[i]->m_nNextPos = runs[i].next;
    AddFreePositions(base);

    const bool alone = visible.size() == 1;
    for (CRPrimitive *primitive : all) {
        if (alone && primitive == base) {
            // The axis starts with this very run.
            placeAll(runs[0].count, primitive->m_pos);
        } else {
            mapPositions(timesOf(primitive), m_pTimeScale->m_times, primitive->m_pos);
        }
    }
    trace(QLatin1String("pos count = ") + QString::number(m_pTimeScale->GetTimeCount()), LOG_TAG("GraphWidget"));

    const QPointer<CRGraphWidget> alive(this);
    SetScrollbarValues(false, force);
    if (!alive)
        return;
    UpdateScaleWidth();
    if (!alive)
        return;
    m_bUpdatePrimitivePositions = false;
    MoveGraphics2Autopos();
    if (alive)
        m_bDrawn = false;
}

/// The positions right of the last candle have real times, one interval of `base` after the other.
void CRGraphWidget::AddFreePositions(const CRPrimitive *base) {
    std::vector<long> &times = m_pTimeScale->m_times;
    if (times.empty())
        return;
    int count = 0;
    const eDateType type = base->GetTimeInterval(count);
    long time = times.back();
    for (int i = 0; i < m_nFreeSpacePositions; ++i) {
        time = nextFreeTime(time, type, count, m_nMinPeriodSeconds);
        if (time < 0)
            break;
        m_pTimeScale->AddTime(time);
    }
}

/// The largest value of a series, kept between calls so that a quote does not walk the whole history.
double CRGraphWidget::LargestValue(CRPrimitive *primitive) {
    const PrimitiveTypeRow *row = primitiveTypeRow(primitive->m_type);
    const mvDataPointArray *array = primitive->GetArray();
    const QString field = QLatin1String(row ? row->highField : "");
    if (primitive->GetFieldType(field) != DPT_FLOAT)
        return primitive->GetMaxOnInterval(0, array->count - 1);
    const unsigned char *first = primitive->GetDataPoint(0) + primitive->GetFieldOffset(field);
    return m_maxima[primitive].Update(first, static_cast<int>(array->recordSize), array->count);
}

/// Right edge less left edge of a value's text, in the font of the first pane.
int CRGraphWidget::ScaleTextMeasure(CRPrimitive *primitive, double value, bool bold) const {
    QFont font = m_areas.empty() ? QFont(m_areaFont) : m_areas.front()->m_properties.font;
    if (bold)
        font.setWeight(QFont::Bold);
    const QRect rect = textRect(font, QString::asprintf("%0.*f", decimalsOf(primitive->m_fPoint), value));
    return rect.right() - rect.left();
}

/// The scales are as wide as the widest text of all data asks, so that they do not jump in scrolling.
void CRGraphWidget::UpdateScaleWidth() {
    if (m_loading)
        return;
    int right = 0;
    std::map<const CRPrimitive *, RunningMaximum> kept;
    for (const CRIndicator *indicator : m_indicators) {
        CRPrimitive *primitive = (*indicator)[0];
        if (!primitive || !primitive->GetDataPoint(0) || primitive->IsPosEmpty())
            continue;
        widenScale(right, ScaleTextMeasure(primitive, LargestValue(primitive), true));
        if (auto entry = m_maxima.extract(primitive))
            kept.insert(std::move(entry));
    }
    m_maxima.swap(kept);
    const int left = m_indicators.empty() ? 0 : right;
    int lastPrice = 0;
    if (m_bLastCandleIndicator && !m_areas.empty()) {
        for (const CRIndicator *indicator : m_indicators) {
            CRPrimitive *primitive = (*indicator)[0];
            if (indicator->m_isInstrument && primitive)
                widenScale(lastPrice, ScaleTextMeasure(primitive, primitive->GetOpen(0), false));
        }
    }
    const ScaleWidths widths =
        decideScaleWidths(m_bLeftScale, m_bRightScale, m_bLastCandleIndicator, left, right, lastPrice);
    m_nLeftScaleWidth = widths.left;
    m_nRightScaleWidth = widths.right;
}

/// The host is asked for half a screen more of history on the left; it answers with new arrays later.
void CRGraphWidget::RequestLastData() {
    if (m_loading || !m_pScrollBar || !GetAnyPrimitiveLayer())
        return;
    std::vector<CRPrimitive *> primitives;
    GetAllPrimitives(&primitives, 1);
    long earliest = LONG_MAX;
    for (const CRPrimitive *primitive : primitives) {
        if (primitive->GetDataPointCount() > 0)
            earliest = std::min(earliest, primitive->GetTime(0));
    }
    const int half = std::min(m_pScrollBar->m_nScreenDataPoints / 2, m_pTimeScale->GetTimeCount() - 1);
    if (earliest == LONG_MAX || half < 0)
        return;
    const long halfScreen = m_pTimeScale->GetPosTime(half) - m_pTimeScale->GetPosTime(0);
    const QPointer<CRGraphWidget> alive(this);
    for (CRPrimitive *primitive : primitives) {
        // Each request can change what is on the chart.
        const mvDataPointArray *array =
            alive && FindWidgetPrimitive(primitive) ? primitive->GetArray() : nullptr;
        if (!array)
            continue;
        void *owner = array->owner;
        const long first = array->count > 0 ? primitive->GetTime(0) : earliest;
        if (void *interfaceHandle = HostCalls::interfaceOfObject(owner))
            HostCalls::requestOlderData(interfaceHandle, owner, static_cast<int>(halfScreen + first - earliest));
    }
}
