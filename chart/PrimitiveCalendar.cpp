#include "chart/PrimitiveCalendar.h"

#include <QDate>
#include <climits>
#include <cstdlib>

namespace {

constexpr long long secondsPerDay = 86400;
constexpr long long unixEpochDay = 2440588; // as a Julian day

QDate dateOf(long long timeSec) {
    return QDate::fromJulianDay(unixEpochDay + timeSec / secondsPerDay);
}

// From whatever day of the month to the first of the next: a series of months stands on firsts. Backward
// the same length is taken from the date being left.
long long monthStep(long long timeSec) {
    const QDate date = dateOf(timeSec);
    return (date.daysInMonth() - date.day() + 1) * secondsPerDay;
}

long long yearStep(long long timeSec) {
    return dateOf(timeSec).daysInYear() * secondsPerDay;
}

long long walk(long long timeSec, int steps, long long (*stepOf)(long long)) {
    const int direction = steps < 0 ? -1 : 1;
    for (int left = std::abs(steps); left > 0 && timeSec >= 0 && timeSec <= LONG_MAX; --left)
        timeSec += direction * stepOf(timeSec);
    return timeSec;
}

} // namespace

long long fixedSeconds(eDateType type) {
    switch (type) {
    case DT_MINUTE:
        return 60;
    case DT_DAY:
        return secondsPerDay;
    case DT_WEEK:
        return 7 * secondsPerDay;
    default:
        return 0;
    }
}

long addIntervals(long timeSec, eDateType type, int steps) {
    if (timeSec < 0)
        return -1;
    long long result = 0;
    if (const long long unit = fixedSeconds(type))
        result = timeSec + unit * steps;
    else if (type == DT_MONTH)
        result = walk(timeSec, steps, monthStep);
    else if (type == DT_YEAR)
        result = walk(timeSec, steps, yearStep);
    return result < 0 || result > LONG_MAX ? -1 : static_cast<long>(result);
}
