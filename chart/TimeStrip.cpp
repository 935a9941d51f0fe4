#include "chart/TimeStrip.h"

#include <QDate>

namespace {

constexpr long secondsPerDay = 86400;
constexpr long secondsPerHour = 3600;
constexpr qint64 julianDay1970 = 2440588;

long floorDivide(long value, long by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

QDate dateOf(long timeSec) {
    return QDate::fromJulianDay(julianDay1970 + floorDivide(timeSec, secondsPerDay));
}

StripRow dayRow() {
    return {StripUnit::Day, 1, "G0ddMMM", "dd", "G0ddMMMyyyy", 2, true};
}

StripRow monthRow() {
    return {StripUnit::Month, 1, "G0MMMyyyy", "MMM", "G0MMMMyyyy", 2, false};
}

StripRow yearRow(bool mayBeCentred) {
    return {StripUnit::Year, 1, "yyyy", nullptr, mayBeCentred ? "yyyy" : nullptr, 3, false};
}

StripRow upperRow(StripUnit unit, const char *format) {
    return {unit, 1, format, nullptr, nullptr, 0, false};
}

StripRow hoursRow(long seconds) {
    struct Step {
        long above;
        StripUnit unit;
        int every;
    };
    static const Step steps[] = {
        {259200, StripUnit::Hours, 12}, {129600, StripUnit::Hours, 6},   {43200, StripUnit::Hours, 3},
        {21600, StripUnit::Hours, 1},   {10800, StripUnit::Minutes, 30}, {3600, StripUnit::Minutes, 10},
        {1800, StripUnit::Minutes, 5},
    };
    StripRow row{StripUnit::Minutes, 1, "G0hhmm", nullptr, nullptr, 3, false};
    for (const Step &step : steps) {
        if (seconds > step.above) {
            row.unit = step.unit;
            row.every = step.every;
            break;
        }
    }
    return row;
}

// Does a row have a boundary at a number of its unit?
bool isBoundary(const StripRow &row, long number) {
    return row.every <= 1 || number % row.every == 0;
}

// Walks one row. Days decide about months and years, so that a date is taken apart once a day.
class RowWalk {
public:
    RowWalk(const StripInput &input, const StripRow &row, bool lower, StripLayout *out)
        : m_input(input), m_row(row), m_lower(lower), m_out(out), m_boundaryX(input.left),
          m_boundaryTime(input.times[0]), m_number(NumberOf(input.times[0])) {}

    // Boundaries that share a column have one tick there.
    void Visit(int relative) {
        const long number = NumberOf(m_input.times[relative]);
        if (number == m_number || !isBoundary(m_row, number))
            return;
        const int x = m_input.columnOf(relative);
        if (!m_hasTick || x != m_boundaryX)
            m_out->ticks.push_back({x, m_lower, m_row.solid});
        m_hasTick = true;
        PutLabel(x);
        m_boundaryX = x;
        m_boundaryTime = m_input.times[relative];
        m_number = number;
    }

    // The label of the last boundary, up to the end of the span.
    void Finish() { PutLabel(m_input.right); }

private:
    long NumberOf(long timeSec) {
        if (m_row.unit != StripUnit::Month && m_row.unit != StripUnit::Year)
            return stripUnitNumber(m_row.unit, timeSec);
        const long day = floorDivide(timeSec, secondsPerDay);
        if (!m_dayKnown || day != m_day) {
            m_dayKnown = true;
            m_day = day;
            m_dayNumber = stripUnitNumber(m_row.unit, timeSec);
        }
        return m_dayNumber;
    }

    void PutLabel(int nextX) {
        const int gap = nextX - m_boundaryX;
        if (!PutText(m_row.format, gap - m_row.margin))
            PutText(m_row.shortForm, gap - 3);
    }

    // False: it does not fit. Where no text can fit none is asked for: the host writes them.
    bool PutText(const char *format, int room) {
        if (!format || room <= 0)
            return false;
        const QString text = m_input.textOf(m_boundaryTime, format);
        if (room <= m_input.widthOf(text))
            return false;
        if (!text.isEmpty())
            m_out->labels.push_back({m_boundaryX + 3, m_lower, text});
        return true;
    }

    const StripInput &m_input;
    const StripRow &m_row;
    bool m_lower;
    StripLayout *m_out;
    bool m_dayKnown = false;
    long m_day = 0;
    long m_dayNumber = 0;
    int m_boundaryX;
    long m_boundaryTime;
    long m_number;
    bool m_hasTick = false; // at m_boundaryX; the first unit begins without one
};

} // namespace

long stripUnitNumber(StripUnit unit, long timeSec) {
    switch (unit) {
    case StripUnit::Minutes:
        return floorDivide(timeSec, 60);
    case StripUnit::Hours:
        return floorDivide(timeSec, secondsPerHour);
    case StripUnit::Day:
        return floorDivide(timeSec, secondsPerDay);
    case StripUnit::Month: {
        const QDate date = dateOf(timeSec);
        return date.year() * 12L + date.month() - 1;
    }
    case StripUnit::Year:
        return dateOf(timeSec).year();
    case StripUnit::None:
        break;
    }
    return 0;
}

StripRows stripRows(long first, long last) {
    const long long seconds = static_cast<long long>(last) - first;
    const long long days = seconds / secondsPerDay;
    if (days >= 700)
        return {yearRow(true), {}};
    if (days >= 200)
        return {yearRow(true), upperRow(StripUnit::Month, "MMM")};
    if (days >= 70)
        return {monthRow(), {}};
    if (days >= 40)
        return {monthRow(), upperRow(StripUnit::Day, "dd")};
    if (days >= 15)
        return {monthRow(), upperRow(StripUnit::Day, "G0ddMM")};
    return {dayRow(), hoursRow(static_cast<long>(seconds))};
}

StripLayout layOutStrip(const StripInput &input) {
    StripLayout layout;
    if (input.count <= 0)
        return layout;
    const long first = input.times[0];
    const long last = input.times[input.count - 1];
    const StripRows rows = stripRows(first, last);

    const bool oneUnit = stripUnitNumber(rows.lower.unit, first) == stripUnitNumber(rows.lower.unit, last);
    if (oneUnit && rows.lower.centred) {
        const QString text = input.textOf(first, rows.lower.centred);
        if (!text.isEmpty())
            layout.labels.push_back(
                {input.left + (input.right - input.left + 1 - input.widthOf(text)) / 2, true, text});
    } else {
        RowWalk walk(input, rows.lower, true, &layout);
        for (int relative = 1; relative < input.count; ++relative)
            walk.Visit(relative);
        walk.Finish();
    }
    if (rows.upper.unit != StripUnit::None) {
        RowWalk walk(input, rows.upper, false, &layout);
        for (int relative = 1; relative < input.count; ++relative)
            walk.Visit(relative);
        walk.Finish();
    }
    return layout;
}
