#include "host/quotes/LineParser.h"
#include <algorithm>
#include <cmath>
#include <cstring>

namespace desk {

namespace {

constexpr int mostColumns = 64;

QString textOf(Piece field) {
    return QString::fromUtf8(field.begin, std::min(field.size(), 40));
}

// Days begin at midnight of the trading day: an evening hour of the day before counts for it.
qint64 tradingDay(qint64 readingMs) {
    constexpr qint64 day = 86400000;
    constexpr qint64 evening = 7 * 3600000;
    return (readingMs + evening) / day * day;
}

} // namespace

LineParser::LineParser(const FileForm &form) : m_form(form) {
    for (int i = 0; i < form.digits; ++i)
        m_scale *= 10;
    m_places.fill(-1);
    for (int i = 0; i < int(form.columns.size()); ++i) {
        int &place = m_places[size_t(form.columns[size_t(i)])];
        if (place < 0)
            place = i;
    }
}

int LineParser::columnOf(Column what) const {
    return m_places[size_t(what)];
}

QString LineParser::readTimes(const Piece *fields, QuoteLine &quote) {
    const int clockColumn = columnOf(Column::TimeOfDay);
    const Piece field = fields[clockColumn >= 0 ? columnOf(Column::Date) : columnOf(Column::Time)];
    TimeReading reading;
    if (!readTime(field, m_form.timeForm, reading))
        return QStringLiteral("\"%1\" is no time").arg(textOf(field));
    if (clockColumn >= 0) {
        qint64 timeOfDay = 0;
        if (!readTimeOfDay(fields[clockColumn], timeOfDay))
            return QStringLiteral("\"%1\" is no time").arg(textOf(fields[clockColumn]));
        reading.ms += timeOfDay;
    }
    if (m_form.timeForm == TimeForm::MillisecondsOfDay)
        reading.ms += m_form.dayMs;
    if (!m_form.ticks && !m_form.period.isIntraday()) {
        quote.timeMs = tradingDay(reading.ms);
    } else if (reading.hasZone) {
        quote.timeMs = reading.ms - reading.zoneSeconds * 1000LL;
    } else {
        const qint64 seconds = reading.ms / 1000;
        const qint64 thousandths = reading.ms % 1000;
        quote.timeMs = m_form.clock.toUtc(seconds) * 1000 + thousandths;
        if (m_lastMs >= 0 && quote.timeMs <= m_lastMs && !m_form.newestFirst && !m_form.clock.isUtc()) {
            const qint64 later = m_form.clock.toUtcLater(seconds) * 1000 + thousandths;
            if (later > m_lastMs)
                quote.timeMs = later;
        }
    }
    if (quote.timeMs < 0 || quote.timeMs / 1000 > 2147483647)
        return QStringLiteral("the time \"%1\" is out of range").arg(textOf(field));
    return QString();
}

QString LineParser::readPrice(Piece field, const char *name, double &value) const {
    if (!readNumber(field, m_form.decimalComma, value))
        return QStringLiteral("%1 \"%2\" is no number").arg(QLatin1String(name), textOf(field));
    if (!(value > 0))
        return QStringLiteral("%1 %2 is not above zero").arg(QLatin1String(name), textOf(field));
    if (m_form.points)
        value = std::round(value) / m_scale;
    return QString();
}

bool LineParser::readVolume(const Piece *fields, int column, float &volume) const {
    double value = 0;
    if (column >= 0 && !fields[column].isEmpty() &&
        (!readNumber(fields[column], m_form.decimalComma, value) || value < 0))
        return false;
    volume = float(value);
    return true;
}

QString LineParser::readBar(const Piece *fields, Column first, int volumeColumn, Bar &bar) {
    static const char *const names[] = {"open", "high", "low", "close"};
    double prices[4];
    for (int i = 0; i < 4; ++i) {
        const QString reason = readPrice(fields[columnOf(Column(int(first) + i))], names[i], prices[i]);
        if (!reason.isEmpty())
            return reason;
    }
    const auto [open, high, low, close] = prices;
    if (high < low)
        return QStringLiteral("high %1 is below low %2").arg(high).arg(low);
    // The fields are compared as they will be held: a difference behind a float's last digit is none.
    bar.open = float(open);
    bar.high = float(high);
    bar.low = float(low);
    bar.close = float(close);
    if (std::max(bar.open, bar.close) > bar.high || std::min(bar.open, bar.close) < bar.low)
        return QStringLiteral("open %1 or close %2 is outside of high %3 and low %4")
            .arg(open)
            .arg(close)
            .arg(high)
            .arg(low);
    if (!readVolume(fields, volumeColumn, bar.volume))
        return QStringLiteral("volume \"%1\" is no number").arg(textOf(fields[volumeColumn]));
    return QString();
}

QString LineParser::parse(Piece line, QuoteLine &quote) {
    Piece fields[mostColumns];
    const int count = splitLine(line, m_form.separator, fields, mostColumns);
    const int expected = int(m_form.columns.size());
    if (count != expected)
        return QStringLiteral("%1 %2 instead of %3")
            .arg(count)
            .arg(QLatin1String(count == 1 ? "column" : "columns"))
            .arg(expected);
    if (const int column = columnOf(Column::Symbol); column >= 0 && !m_form.symbolText.isEmpty()) {
        const Piece symbol = fields[column];
        if (symbol.size() != m_form.symbolText.size() ||
            std::memcmp(symbol.begin, m_form.symbolText.constData(), size_t(symbol.size())) != 0)
            return QStringLiteral("symbol \"%1\" instead of \"%2\"")
                .arg(textOf(symbol), QString::fromUtf8(m_form.symbolText));
    }
    if (QString reason = readTimes(fields, quote); !reason.isEmpty())
        return reason;
    if (!m_form.ticks) {
        QString reason = readBar(fields, Column::Open, columnOf(Column::Volume), quote.bar);
        if (!reason.isEmpty())
            return reason;
        quote.bar.time = qint32(quote.timeMs / 1000);
        if (!m_form.hasAskBars())
            return QString();
        quote.ask.time = quote.bar.time;
        return readBar(fields, Column::AskOpen, columnOf(Column::AskVolume), quote.ask);
    }
    double bid = 0;
    double ask = 0;
    QString reason;
    if (m_form.has(Column::Price)) {
        reason = readPrice(fields[columnOf(Column::Price)], "price", bid);
        ask = bid;
    } else {
        reason = readPrice(fields[columnOf(Column::Bid)], "bid", bid);
        if (reason.isEmpty())
            reason = readPrice(fields[columnOf(Column::Ask)], "ask", ask);
    }
    if (!reason.isEmpty())
        return reason;
    quote.tick = {quote.timeMs, float(bid), float(ask), 1}; // without a volume the quotes are counted
    const int volumeColumn = columnOf(Column::Volume);
    if (volumeColumn >= 0 && !readVolume(fields, volumeColumn, quote.tick.volume))
        return QStringLiteral("volume \"%1\" is no number").arg(textOf(fields[volumeColumn]));
    return QString();
}

} // namespace desk
