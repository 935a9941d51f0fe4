#include "host/quotes/Clock.h"
#include <QDateTime>
#include <QRegularExpression>

namespace desk {

namespace {

qint64 utcSeconds(const QDate &date, int hour) {
    return QDateTime(date, QTime(hour, 0), Qt::UTC).toSecsSinceEpoch();
}

// The n-th Sunday of a month, or its last one for 0.
QDate sunday(int year, int month, int n) {
    if (n == 0) {
        const QDate last(year, month, QDate(year, month, 1).daysInMonth());
        return last.addDays(-(last.dayOfWeek() % 7));
    }
    const QDate first(year, month, 1);
    return first.addDays((7 - first.dayOfWeek()) % 7 + 7 * (n - 1));
}

} // namespace

std::optional<Clock> Clock::fromText(const QString &text) {
    Clock clock;
    const QString given = text.trimmed();
    if (given.compare(QLatin1String("UTC"), Qt::CaseInsensitive) == 0 || given == QLatin1String("Z"))
        return clock;
    static const QRegularExpression pattern(
        QStringLiteral("^(?:UTC|GMT)?([+-])(\\d{1,2}):?([0-5]\\d)?(?:[/ ,]+(eu|us))?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = pattern.match(given);
    if (match.hasMatch()) {
        const int seconds = match.captured(2).toInt() * 3600 + match.captured(3).toInt() * 60;
        if (seconds > 14 * 3600)
            return std::nullopt;
        clock.m_offset = match.captured(1) == QLatin1String("-") ? -seconds : seconds;
        const QString summer = match.captured(4).toLower();
        clock.m_summer = summer == QLatin1String("eu")   ? Europe
                         : summer == QLatin1String("us") ? America
                                                         : None;
        return clock;
    }
    if (!given.contains(QLatin1Char('/')))
        return std::nullopt;
    clock.m_zone = QTimeZone(given.toLatin1());
    if (!clock.m_zone.isValid())
        return std::nullopt;
    return clock;
}

bool Clock::isSummer(qint64 utc) const {
    if (utc < m_yearFrom || utc >= m_yearTo) {
        const int year = QDateTime::fromSecsSinceEpoch(utc, Qt::UTC).date().year();
        m_yearFrom = utcSeconds(QDate(year, 1, 1), 0);
        m_yearTo = utcSeconds(QDate(year + 1, 1, 1), 0);
        if (m_summer == Europe) {
            m_summerFrom = utcSeconds(sunday(year, 3, 0), 1);
            m_summerTo = utcSeconds(sunday(year, 10, 0), 1);
        } else { // by the clocks of New York
            m_summerFrom = utcSeconds(sunday(year, 3, 2), 7);
            m_summerTo = utcSeconds(sunday(year, 11, 1), 6);
        }
    }
    return utc >= m_summerFrom && utc < m_summerTo;
}

qint64 Clock::offsetAt(qint64 utc) const {
    if (m_zone.isValid()) {
        const qint64 quarter = utc / 900;
        if (quarter != m_zoneQuarter) {
            m_zoneQuarter = quarter;
            m_zoneOffset = m_zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(utc, Qt::UTC));
        }
        return m_zoneOffset;
    }
    return m_offset + (m_summer != None && isSummer(utc) ? 3600 : 0);
}

// Offsets of some hours before and behind a reading are the two that can hold at it; one that explains the
// reading is right. In the hour that the spring leaves out none does, and the earlier one counts on.
qint64 Clock::toUtc(qint64 reading) const {
    if (m_summer == None && !m_zone.isValid())
        return reading - m_offset;
    const qint64 about = reading - offsetAt(reading);
    const qint64 earlier = offsetAt(about - 10800);
    if (offsetAt(reading - earlier) == earlier)
        return reading - earlier;
    const qint64 later = offsetAt(about + 10800);
    return reading - (offsetAt(reading - later) == later ? later : earlier);
}

qint64 Clock::toUtcLater(qint64 reading) const {
    if (m_summer == None && !m_zone.isValid())
        return reading - m_offset;
    const qint64 later = offsetAt(reading - offsetAt(reading) + 10800);
    return offsetAt(reading - later) == later ? reading - later : toUtc(reading);
}

QString Clock::name() const {
    if (m_zone.isValid())
        return QString::fromLatin1(m_zone.id());
    if (m_offset == 0 && m_summer == None)
        return QStringLiteral("UTC");
    const int minutes = qAbs(m_offset) / 60;
    QString text = QStringLiteral("UTC%1%2:%3")
                       .arg(QLatin1Char(m_offset < 0 ? '-' : '+'))
                       .arg(minutes / 60, 2, 10, QLatin1Char('0'))
                       .arg(minutes % 60, 2, 10, QLatin1Char('0'));
    if (m_summer != None)
        text += m_summer == Europe ? QStringLiteral(", summer time of Europe")
                                   : QStringLiteral(", summer time of America");
    return text;
}

} // namespace desk
