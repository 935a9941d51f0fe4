#include "host/quotes/Period.h"
#include <QRegularExpression>
#include <algorithm>

namespace desk {

namespace {

constexpr qint32 daySeconds = 86400;

// 1970-01-01 was a Thursday; 0 is Monday.
int weekday(qint32 day) {
    return int(((qint64(day) + 3) % 7 + 7) % 7);
}

qint32 floorDiv(qint32 value, qint32 by) {
    return value >= 0 ? value / by : -((-value + by - 1) / by);
}

struct Date {
    int year;
    int month; // 1 to 12
};

// Civil date of a day number (days since 1970-01-01), by the usual era arithmetic.
Date civil(qint32 day) {
    const int shifted = day + 719468;
    const int era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
    const unsigned dayOfEra = unsigned(shifted - era * 146097);
    const unsigned yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const unsigned dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const unsigned monthIndex = (5 * dayOfYear + 2) / 153;
    const int month = int(monthIndex < 10 ? monthIndex + 3 : monthIndex - 9);
    return {int(yearOfEra) + era * 400 + (month <= 2 ? 1 : 0), month};
}

qint32 firstDayOf(int year, int month) {
    const int shifted = year - (month <= 2 ? 1 : 0);
    const int era = (shifted >= 0 ? shifted : shifted - 399) / 400;
    const unsigned yearOfEra = unsigned(shifted - era * 400);
    const unsigned dayOfYear = unsigned((153 * (month + (month > 2 ? -3 : 9)) + 2) / 5);
    const unsigned dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + int(dayOfEra) - 719468;
}

// The time of a midnight; the last one that 32 bits hold for all later ones.
qint32 midnight(qint32 day) {
    return qint32(std::min<qint64>(qint64(day) * daySeconds, 2147483647));
}

QString counted(int count, const char *one, const char *many) {
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

} // namespace

bool Period::isValid() const {
    return length >= 0 && (unit == 'I' || unit == 'D' || unit == 'W' || unit == 'M' || unit == 'Y');
}

Period Period::normalised() const {
    return {unit, unit != 'I' && length == 0 ? 1 : length};
}

qint64 Period::seconds() const {
    const qint64 count = normalised().length;
    switch (unit) {
    case 'I':
        return count * 60;
    case 'D':
        return count * daySeconds;
    case 'W':
        return count * 7 * daySeconds;
    case 'M':
        return count * 30 * daySeconds;
    case 'Y':
        return count * 365 * daySeconds;
    }
    return 0;
}

QString Period::name() const {
    const Period whole = normalised();
    if (isTick())
        return QStringLiteral("tick");
    switch (unit) {
    case 'I':
        return length % 60 == 0 ? QStringLiteral("H%1").arg(length / 60) : QStringLiteral("M%1").arg(length);
    case 'M':
        return QStringLiteral("MN%1").arg(whole.length);
    default:
        return QLatin1Char(unit) + QString::number(whole.length);
    }
}

QString Period::longName() const {
    const int count = normalised().length;
    if (isTick())
        return QStringLiteral("ticks");
    switch (unit) {
    case 'I':
        return count % 60 == 0 ? counted(count / 60, "hour", "hours") : counted(count, "minute", "minutes");
    case 'D':
        return counted(count, "day", "days");
    case 'W':
        return counted(count, "week", "weeks");
    case 'M':
        return counted(count, "month", "months");
    default:
        return counted(count, "year", "years");
    }
}

std::optional<Period> Period::fromName(const QString &name) {
    const QString text = name.trimmed().toUpper();
    if (text == QLatin1String("TICK") || text == QLatin1String("TICKS"))
        return Period{'I', 0};
    static const QRegularExpression pattern(QStringLiteral("^(MN|M|H|D|W|Y)([1-9][0-9]{0,3})$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString unit = match.captured(1);
    const int count = match.captured(2).toInt();
    if (unit == QLatin1String("M"))
        return Period{'I', count};
    if (unit == QLatin1String("H"))
        return Period{'I', count * 60};
    return Period{unit == QLatin1String("MN") ? 'M' : char(unit.at(0).toLatin1()), count};
}

BarCutter::BarCutter(Period period, bool tradesAtWeekends)
    : m_period(period.normalised()), m_weekends(tradesAtWeekends) {}

qint32 BarCutter::fromDay(qint32 day) const {
    const int count = std::max(1, m_period.length);
    switch (m_period.unit) {
    case 'D':
        return count == 1 ? day : floorDiv(day, count) * count;
    case 'W':
        return floorDiv(floorDiv(day + 3, 7), count) * count * 7 - 3; // weeks begin on Monday
    case 'M': {
        const Date date = civil(day);
        const int month = floorDiv(date.year * 12 + date.month - 1, count) * count;
        return firstDayOf(floorDiv(month, 12), month - floorDiv(month, 12) * 12 + 1);
    }
    default:
        return firstDayOf(floorDiv(civil(day).year, count) * count, 1);
    }
}

qint32 BarCutter::start(qint32 time) const {
    if (m_period.isTick())
        return time;
    qint32 day = floorDiv(time, daySeconds);
    if (m_period.unit == 'I') {
        const qint32 step = m_period.length * 60;
        if (step >= daySeconds)
            return floorDiv(time, step) * step;
        return day * daySeconds + (time - day * daySeconds) / step * step;
    }
    if (!m_weekends) {
        const int place = weekday(day);
        day += place == 5 ? -1 : place == 6 ? 1 : 0;
    }
    return midnight(fromDay(day));
}

qint32 BarCutter::next(qint32 time) const {
    if (m_period.isTick())
        return time + 1;
    const qint32 from = start(time);
    if (m_period.unit == 'I') {
        const qint32 step = m_period.length * 60;
        qint32 after = qint32(std::min<qint64>(qint64(from) + step, 2147483647));
        if (step < daySeconds)
            after = std::min(after, midnight(floorDiv(from, daySeconds) + 1));
        const qint32 day = floorDiv(after, daySeconds);
        return !m_weekends && weekday(day) == 5 ? midnight(day + 2) : after;
    }
    const qint32 count = std::max(1, m_period.length);
    const qint32 day = floorDiv(from, daySeconds);
    switch (m_period.unit) {
    case 'D': {
        qint32 after = day + count;
        while (!m_weekends && weekday(after) >= 5)
            ++after;
        return midnight(after);
    }
    case 'W':
        return midnight(day + 7 * count);
    case 'M': {
        const Date date = civil(day);
        const int month = date.year * 12 + date.month - 1 + count;
        return midnight(firstDayOf(month / 12, month % 12 + 1));
    }
    default:
        return midnight(firstDayOf(civil(day).year + count, 1));
    }
}

qint32 BarCutter::firstMoment(qint32 start) const {
    if (m_period.unit == 'I' || m_weekends)
        return start;
    const int place = weekday(floorDiv(start, daySeconds));
    return start + (place == 0 ? -daySeconds : place == 5 ? daySeconds : 0);
}

bool canBuild(Period base, Period target) {
    base = base.normalised();
    target = target.normalised();
    if (base == target)
        return true;
    if (target.isTick() || base.isTick())
        return base.isTick();
    if (base.unit == 'I') {
        if (target.unit != 'I')
            return base.length <= 1440 && 1440 % base.length == 0;
        return target.length % base.length == 0;
    }
    if (base.length != 1)
        return base.unit == target.unit && target.length % base.length == 0;
    switch (base.unit) {
    case 'D':
        return target.unit != 'I';
    case 'W':
        return target.unit == 'W';
    case 'M':
        return target.unit == 'M' || target.unit == 'Y';
    default:
        return target.unit == 'Y';
    }
}

} // namespace desk
