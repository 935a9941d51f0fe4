#include "chart/Primitive.h"

#include "chart/PrimitiveCalendar.h"

#include <algorithm>
#include <climits>

namespace {

// The middle of a search whose ends are just outside of what is searched.
int middle(int low, int high) {
    return low + static_cast<int>((high - low) * 0.5 + 0.5);
}

constexpr int farAway = 1000000; // steps past the data after which nobody asks any more

} // namespace

int CRPrimitive::GetTimeStep() const {
    const mvDataPointArray *array = GetArray();
    if (!array)
        return 1;
    switch (array->identity.m_periods.period) {
    case 'I':
        return static_cast<int>(std::clamp<long long>(array->identity.m_periods.lenPeriod * 60LL, 1, INT_MAX));
    case 'D':
        return 86400;
    case 'W':
        return 604800;
    case 'M':
        return 2592000;
    case 'Y':
        return 31536000;
    default:
        return 1;
    }
}

// A length of 0 counts as 1, so ticks pass for minutes.
eDateType CRPrimitive::GetTimeInterval(int &count) const {
    const mvDataPointArray *array = GetArray();
    count = array ? array->identity.m_periods.lenPeriod : 0;
    if (count == 0)
        count = 1;
    switch (array ? array->identity.m_periods.period : 0) {
    case 'I':
        return DT_MINUTE;
    case 'D':
        return DT_DAY;
    case 'W':
        return DT_WEEK;
    case 'M':
        return DT_MONTH;
    case 'Y':
        return DT_YEAR;
    default:
        return DT_UNKNOWN;
    }
}

// The first index whose time is at or after `timeSec`; the count when there is none.
int CRPrimitive::LowerBound(long timeSec) const {
    int low = -1;
    int high = GetDataPointCount();
    while (high - low > 1) {
        const int index = middle(low, high);
        if (GetTime(index) < timeSec)
            low = index;
        else
            high = index;
    }
    return std::max(high, 0);
}

// The first index at or after the time, else the last one; 0 with no data.
int CRPrimitive::GetTimeNearestIndex(long timeSec) const {
    return std::max(std::min(LowerBound(timeSec), GetDataPointCount() - 1), 0);
}

// The index that covers the time: one whose time it is, or the one before it. A time that is exactly the
// next index' can give the one before, when the search meets that first.
int CRPrimitive::GetTimeIndex(long timeSec) const {
    const int count = GetDataPointCount();
    if (count <= 0 || timeSec < GetTime(0))
        return -1;
    if (timeSec > static_cast<long long>(GetTime(count - 1)) + GetTimeStep())
        return -1;
    int low = -1;
    int high = count;
    while (high - low > 1) {
        const int index = middle(low, high);
        const long time = GetTime(index);
        if (time == timeSec)
            return index;
        if (time > timeSec) {
            high = index;
            continue;
        }
        if (index == count - 1 || timeSec <= GetTime(index + 1))
            return index;
        low = index;
    }
    return -1;
}

// Like GetTimeNearestIndex, but past the last point the count goes on, one for each interval.
int CRPrimitive::GetTimeVirtualIndex(long timeSec) const {
    const int nearest = GetTimeNearestIndex(timeSec);
    const int count = GetDataPointCount();
    if (count <= 0 || timeSec <= GetTime(count - 1))
        return nearest;
    int units = 1;
    const eDateType type = GetTimeInterval(units);
    long time = GetTime(count - 1);
    if (const long long step = fixedSeconds(type) * units) {
        if (step < 0)
            return nearest;
        return static_cast<int>(count - 1 + (static_cast<long long>(timeSec) - time + step - 1) / step);
    }
    int index = count - 1;
    for (int steps = 0; time > 0 && time < timeSec && steps < farAway; ++steps) {
        time = addIntervals(time, type, units);
        ++index;
    }
    return time > 0 ? index : nearest;
}

// Outside of the data the times go on by the series' interval. An unknown interval gives 0, a negative
// time to start from -1.
long CRPrimitive::GetIndexVirtualTime(int index) const {
    const int count = GetDataPointCount();
    if (index >= 0 && index < count)
        return GetTime(index);
    if (count <= 0)
        return 0;
    int units = 1;
    const eDateType type = GetTimeInterval(units);
    const long long steps = (index < 0 ? index : static_cast<long long>(index) - count + 1) * units;
    return addIntervals(GetTime(index < 0 ? 0 : count - 1), type,
                        static_cast<int>(std::clamp<long long>(steps, -INT_MAX, INT_MAX)));
}

int CRPrimitive::GetIndexDiffByTime(long a, long b) const {
    return static_cast<int>((static_cast<long long>(b) - a) / GetTimeStep());
}

int CRPrimitive::GetIndexDiffByIndex(int a, int b) const {
    return GetIndexDiffByTime(GetIndexVirtualTime(a), GetIndexVirtualTime(b));
}
