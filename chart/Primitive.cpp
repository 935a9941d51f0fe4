#include "chart/Primitive.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/PrimitiveTypes.h"
#include "chart/TimeScale.h"
#include "objects/Indicator.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t reservedPositions = 1024;
constexpr int nearby = 64; // positions that are looked at one by one before the times are searched

} // namespace

CRPrimitive::CRPrimitive(int index, CRGraphLayer *layer, int lineIndex)
    : m_nLineIndex(lineIndex), m_pLayer(layer), m_nIndex(index) {
    m_pos.reserve(reservedPositions);
}

// The studies stay with the original, which owns them.
CRPrimitive::CRPrimitive(const CRPrimitive &other)
    : QObject(), CRMDataLine(other), m_nLineIndex(other.m_nLineIndex), m_pLayer(other.m_pLayer),
      m_nIndex(other.m_nIndex), m_name(other.m_name), m_type(other.m_type), m_nNextPos(other.m_nNextPos),
      m_fPoint(other.m_fPoint), m_fullName(other.m_fullName), m_alias(other.m_alias),
      m_pIndicator(other.m_pIndicator), m_pos(other.m_pos), m_bSelected(other.m_bSelected),
      m_bVisible(other.m_bVisible), m_hDpa(other.m_hDpa), m_lineColor(other.m_lineColor),
      m_riseColor(other.m_riseColor), m_nPenWidth(other.m_nPenWidth), m_nPenStyle(other.m_nPenStyle),
      m_levelColor(other.m_levelColor), m_nHoverIndex(other.m_nHoverIndex), m_nHoverTime(other.m_nHoverTime),
      m_linePen(other.m_linePen), m_risePen(other.m_risePen), m_levels(other.m_levels),
      m_bRebindLS(other.m_bRebindLS), m_sysTester(other.m_sysTester), m_nOrder(other.m_nOrder) {
    std::copy(&other.m_exName[0][0], &other.m_exName[0][0] + 4 * 255, &m_exName[0][0]);
}

CRPrimitive::~CRPrimitive() {
    SafeDeleteLS();
}

// ---- positions ----

// The highest position with a point. Without one the last entry's value, which is -1.
int CRPrimitive::GetLastSignedTimePos() const {
    for (int position = GetPosSize() - 1; position >= 0; --position)
        if (m_pos[static_cast<std::size_t>(position)] >= 0)
            return position;
    return -1;
}

// The data index at the position. Where there is none the nearest position below, counted from one place
// above, and as a position: the callers expect that.
int CRPrimitive::GetNearestLowPosition(int position) const {
    if (position < 0)
        return 0;
    if (position >= GetPosSize())
        return GetDataPointCount() - 1;
    const int index = GetPos(position);
    if (index >= 0 || position == 0)
        return std::max(index, 0);
    for (int candidate = position + 1; candidate >= 0; --candidate)
        if (GetPos(candidate) >= 0)
            return candidate;
    return 0;
}

int CRPrimitive::GetNearestHiPosition(int position) const {
    if (position < 0)
        return 0;
    const int count = GetDataPointCount();
    if (position >= GetPosSize())
        return count - 1;
    const int index = GetPos(position);
    if (index >= 0 || position == 0)
        return std::max(index, 0);
    for (int candidate = position - 1; candidate < count; ++candidate)
        if (GetPos(candidate) >= 0)
            return candidate;
    return count - 1;
}

// Far from any point the position is found through the times, so that the cost of a look at an empty
// stretch of the axis does not grow with it.
int CRPrimitive::NextSignedPos(int from) const {
    const int size = GetPosSize();
    int position = std::max(from, 0);
    for (int tries = 0; position < size && tries < nearby; ++position, ++tries)
        if (m_pos[static_cast<std::size_t>(position)] >= 0)
            return position;
    if (position >= size)
        return -1;
    if (const std::vector<long> *axis = Axis(position)) {
        const int index = LowerBound((*axis)[static_cast<std::size_t>(position)]);
        const int found = PosOfIndex(*axis, index);
        if (found >= position)
            return found;
    }
    for (; position < size; ++position)
        if (m_pos[static_cast<std::size_t>(position)] >= 0)
            return position;
    return -1;
}

int CRPrimitive::PreviousSignedPos(int from) const {
    int position = std::min(from, GetPosSize() - 1);
    for (int tries = 0; position >= 0 && tries < nearby; --position, ++tries)
        if (m_pos[static_cast<std::size_t>(position)] >= 0)
            return position;
    if (position < 0)
        return -1;
    if (const std::vector<long> *axis = Axis(position)) {
        const int index = LowerBound((*axis)[static_cast<std::size_t>(position)] + 1) - 1;
        if (index < 0)
            return -1;
        const int found = PosOfIndex(*axis, index);
        if (found >= 0 && found <= position)
            return found;
    }
    for (; position >= 0; --position)
        if (m_pos[static_cast<std::size_t>(position)] >= 0)
            return position;
    return -1;
}

// The window's times, when they reach up to `position`.
const std::vector<long> *CRPrimitive::Axis(int position) const {
    const CRGraphWidget *widget = GetWidget();
    if (!widget || !widget->m_pTimeScale || position >= widget->m_pTimeScale->GetTimeCount())
        return nullptr;
    return &widget->m_pTimeScale->m_times;
}

// -1 for an index whose time is not on the axis.
int CRPrimitive::PosOfIndex(const std::vector<long> &axis, int index) const {
    if (index < 0 || index >= GetDataPointCount())
        return -1;
    const auto place = std::lower_bound(axis.begin(), axis.end(), GetTime(index));
    const int position = static_cast<int>(place - axis.begin());
    return GetPos(position) == index ? position : -1;
}

// ---- values ----

float CRPrimitive::GetMaxOnInterval(long first, long last) const {
    const PrimitiveTypeRow *row = primitiveTypeRow(m_type);
    return row ? static_cast<float>(FindMaxElement(QLatin1String(row->highField), first, last)) : -FLT_MAX;
}

float CRPrimitive::GetMinOnInterval(long first, long last) const {
    const PrimitiveTypeRow *row = primitiveTypeRow(m_type);
    return row ? static_cast<float>(FindMinElement(QLatin1String(row->lowField), first, last)) : FLT_MAX;
}

double CRPrimitive::TitleValue(int dataIndex, bool *has) const {
    const PrimitiveTypeRow *row = primitiveTypeRow(m_type);
    const bool known = row && GetDataPoint(dataIndex);
    if (has)
        *has = known;
    if (!known)
        return 0.0;
    switch (row->value) {
    case ValueSource::Close:
        return GetClose(dataIndex);
    case ValueSource::High:
        return GetHigh(dataIndex);
    case ValueSource::FirstField:
        break;
    }
    return FirstValue(dataIndex);
}

// The value behind the time, whatever its name.
double CRPrimitive::FirstValue(int dataIndex) const {
    const unsigned char *point = GetDataPoint(dataIndex);
    float value = 0;
    if (point && GetArray()->recordSize >= sizeof(corePointValue))
        std::memcpy(&value, point + offsetof(corePointValue, value), sizeof value);
    return value;
}

bool CRPrimitive::IsTickSeries() const {
    const mvDataPointArray *array = GetArray();
    return array && array->identity.m_periods.period == 'I' && array->identity.m_periods.lenPeriod == 0;
}

bool CRPrimitive::IsInstrumentType() const {
    const PrimitiveTypeRow *row = primitiveTypeRow(m_type);
    return row && row->instrument;
}

// ---- place on the chart ----

int CRPrimitive::GetIndex() const {
    if (!m_pLayer)
        return 0;
    const auto &list = m_pLayer->m_primitives;
    const auto place = std::find(list.begin(), list.end(), this);
    if (place == list.end())
        return 0;
    m_pLayer->m_nSearchCursor = static_cast<int>(place - list.begin());
    return m_pLayer->m_nSearchCursor;
}

int CRPrimitive::GetIndicatorPos() const {
    if (!m_pIndicator)
        return -1;
    const auto &list = m_pIndicator->m_primitives;
    const auto place = std::find(list.begin(), list.end(), this);
    return place == list.end() ? -1 : static_cast<int>(place - list.begin());
}

CRGraphArea *CRPrimitive::GetArea() const {
    return m_pLayer ? m_pLayer->m_pArea : nullptr;
}

CRGraphWidget *CRPrimitive::GetWidget() const {
    const CRGraphArea *area = GetArea();
    return area ? area->m_pWidget : nullptr;
}

// Bytes of a field in an array.
int CRPrimitive::GetViewSize(DATA_POINT_TYPES type) const {
    constexpr int sizes[] = {1, 2, 4, 8, 4, 8, 255};
    const auto index = static_cast<std::size_t>(type);
    return index < sizeof sizes / sizeof sizes[0] ? sizes[index] : sizes[DPT_NONE];
}

// ---- studies ----

void CRPrimitive::AddLineStudy(CRLineStudy *study, int index) {
    const auto place = index < 0 || index >= static_cast<int>(m_lineStudies.size())
                           ? m_lineStudies.end()
                           : m_lineStudies.begin() + index;
    m_lineStudies.insert(place, study);
}

void CRPrimitive::DeleteLineStudy(int index) {
    if (index < 0 || index >= static_cast<int>(m_lineStudies.size()))
        return;
    DeleteLineStudyFromList(index);
    if (CRGraphWidget *widget = GetWidget())
        widget->m_bDrawn = false;
}

void CRPrimitive::DeleteLineStudy(const CRLineStudy *study) {
    const auto place = std::find(m_lineStudies.begin(), m_lineStudies.end(), study);
    if (place != m_lineStudies.end())
        DeleteLineStudy(static_cast<int>(place - m_lineStudies.begin()));
}

void CRPrimitive::DeleteLineStudyFromList(int index) {
    if (index >= 0 && index < static_cast<int>(m_lineStudies.size()))
        m_lineStudies.erase(m_lineStudies.begin() + index);
}

void CRPrimitive::SafeDeleteLS() {
    while (!m_lineStudies.empty())
        m_lineStudies.pop_back();
}
