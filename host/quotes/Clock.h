#pragma once
#include <QString>
#include <QTimeZone>
#include <optional>

namespace desk {

// The clock by which a file or feed writes its times: UTC, a fixed offset, an offset with summer time, or a
// named zone.
class Clock {
public:
    Clock() = default;
    // "UTC", "+02:00", "-5", "+02:00/eu" and "+02:00/us" (one hour more in that continent's summer time),
    // "Europe/Berlin".
    static std::optional<Clock> fromText(const QString &text);

    bool isUtc() const { return m_offset == 0 && m_summer == None && !m_zone.isValid(); }
    // Seconds in UTC of a clock reading. A reading that comes twice in the autumn is the first of the two.
    qint64 toUtc(qint64 reading) const;
    // The second of the two, or `toUtc` when the reading comes once.
    qint64 toUtcLater(qint64 reading) const;
    QString name() const; // "UTC", "UTC+02:00, summer time of Europe"

private:
    enum Summer { None, Europe, America };

    bool isSummer(qint64 utc) const;
    qint64 offsetAt(qint64 utc) const;

    int m_offset = 0; // winter, seconds east of UTC
    Summer m_summer = None;
    QTimeZone m_zone;
    mutable qint64 m_yearFrom = 0; // bounds of the year whose summer is known
    mutable qint64 m_yearTo = 0;
    mutable qint64 m_summerFrom = 0;
    mutable qint64 m_summerTo = 0;
    mutable qint64 m_zoneQuarter = -1; // quarter of an hour whose offset is known
    mutable int m_zoneOffset = 0;
};

} // namespace desk
