#pragma once
#include <QString>
#include <optional>

namespace desk {

// Length of a series' bars. Units: 'I' minutes (length 0 = ticks), 'D' days, 'W' weeks, 'M' months, 'Y'
// years.
struct Period {
    char unit = 'I';
    int length = 0;

    bool isTick() const { return unit == 'I' && length == 0; }
    bool isIntraday() const { return unit == 'I'; }
    bool operator==(const Period &other) const { return unit == other.unit && length == other.length; }
    bool operator!=(const Period &other) const { return !(*this == other); }

    // False for an unknown unit or a negative length.
    bool isValid() const;
    // A length of 0 outside minutes stands for 1.
    Period normalised() const;
    // Nominal seconds of one bar: 30 days a month, 365 a year; 0 for ticks.
    qint64 seconds() const;
    QString name() const;     // "tick", "M5", "H3", "D1", "W1", "MN1", "Y1"
    QString longName() const; // "5 minutes"
    static std::optional<Period> fromName(const QString &name);
};

// Cuts time into the bars of a period. In a market that rests at weekends the few quotes around them belong
// to the trading days beside: Saturday's to Friday, Sunday's to Monday. So a weekend makes no daily bar.
class BarCutter {
public:
    explicit BarCutter(Period period, bool tradesAtWeekends = false);

    // Time at which the bar of this moment opens (seconds, UTC).
    qint32 start(qint32 time) const;
    // Opening time of the bar behind the one of this moment, weekends of daily bars and shorter skipped.
    qint32 next(qint32 time) const;
    // First moment whose quotes belong to the bar that opens at `start`: of a Monday, its Sunday's.
    qint32 firstMoment(qint32 start) const;

private:
    qint32 fromDay(qint32 day) const;

    Period m_period;
    bool m_weekends;
};

// Can bars of `base` be put together to bars of `target`?
bool canBuild(Period base, Period target);

} // namespace desk
