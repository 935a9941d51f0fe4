#include "host/quotes/Market.h"
#include "host/quotes/BarBuilder.h"
#include "host/quotes/QuoteBook.h"
#include <QDateTime>
#include <algorithm>

namespace desk {

namespace {

constexpr qint64 dayMs = 86400000;
constexpr qint64 hourMs = 3600000;
constexpr int roundMs = 100;

// Stretches of made history, back from now.
constexpr qint64 tickMs = 30 * 60000LL;
constexpr qint64 minuteDays = 21;
constexpr qint64 hourDays = 400;
constexpr qint64 dayDays = 13 * 365;

constexpr PairData pairs[] = {{"EUR/USD", 1.12, 0.006, 0.00012, 5},
                              {"GBP/USD", 1.31, 0.007, 0.00018, 5},
                              {"USD/CHF", 0.93, 0.006, 0.00018, 5},
                              {"USD/JPY", 128.0, 0.007, 0.015, 3}};

} // namespace

Market::Market(QuoteBook &book, quint32 seed, Now now, QObject *parent)
    : QObject(parent), m_book(book), m_seed(seed),
      m_now(now ? std::move(now) : Now(&QDateTime::currentMSecsSinceEpoch)) {
    m_timer.setInterval(roundMs);
    connect(&m_timer, &QTimer::timeout, this, [this] { quoteUntil(time()); });
}

bool Market::isOpen(qint64 timeMs) {
    constexpr qint64 weekFrom = 3 * dayMs + 22 * hourMs; // a Sunday at 22:00
    return timeMs >= weekFrom && (timeMs - weekFrom) % (7 * dayMs) < 5 * dayMs;
}

qint64 Market::time() const {
    return m_now() - m_shiftMs;
}

void Market::open() {
    // There is to be trade for the next hours too.
    while (!isOpen(time()) || !isOpen(time() + 2 * hourMs))
        m_shiftMs += dayMs;
    m_quotedMs = time();
    quint32 seed = m_seed * 16;
    for (const PairData &pair : pairs) {
        ++seed;
        const QString symbol = QString::fromLatin1(pair.symbol);
        if (m_book.hasStoredQuotes(symbol))
            continue;
        m_book.addSymbol({symbol, pair.digits, false});
        m_walks.emplace_back(pair, seed);
        makeHistory(m_walks.back(), m_quotedMs);
    }
    if (!m_walks.empty())
        emit m_book.told(Level::Message,
                         QStringLiteral("The built-in market makes sample quotes of %1 pairs; they are "
                                        "not real.")
                             .arg(m_walks.size()));
}

void Market::start() {
    if (!m_walks.empty())
        m_timer.start();
}

void Market::makeHistory(PriceWalk &walk, qint64 untilMs) {
    SymbolHistory &history = *m_book.history(QString::fromLatin1(walk.pair().symbol));
    const qint64 ticksFrom = (untilMs - tickMs) / 60000 * 60000;
    const qint64 minutesFrom = (ticksFrom - minuteDays * dayMs) / dayMs * dayMs;
    const qint64 hoursFrom = (ticksFrom - hourDays * dayMs) / dayMs * dayMs;
    const qint64 daysFrom = (ticksFrom - dayDays * dayMs) / dayMs * dayMs;
    const struct {
        Period period;
        qint64 from;
        qint64 to;
        int samples;
    } stretches[] = {{{'D', 1}, daysFrom, hoursFrom, 8},
                     {{'I', 60}, hoursFrom, minutesFrom, 5},
                     {{'I', 1}, minutesFrom, ticksFrom, 4}};
    for (const auto &stretch : stretches) {
        const qint64 seconds = stretch.period.seconds();
        std::vector<Bar> bids;
        std::vector<Bar> asks;
        for (qint64 ms = stretch.from; ms < stretch.to; ms += seconds * 1000) {
            // A day counts by its trading hours; its Sunday evening belongs to Monday.
            const qint64 weekday = (ms / dayMs + 3) % 7;
            if (stretch.period.unit == 'D' ? weekday >= 5 : !isOpen(ms))
                continue;
            const Bar bid = walk.bar(qint32(ms / 1000), qint32(seconds), stretch.samples);
            const float spread = float(walk.spread(ms));
            bids.push_back(bid);
            asks.push_back({bid.time, bid.open + spread, bid.high + spread, bid.low + spread,
                            bid.close + spread, bid.volume});
        }
        history.addMade(Side::Bid, stretch.period, std::move(bids));
        history.addMade(Side::Ask, stretch.period, std::move(asks));
    }
    for (qint64 quarter = ticksFrom / 250; quarter * 250 + 250 <= untilMs; ++quarter) {
        if (const std::optional<Tick> tick = isOpen(quarter * 250) ? walk.quoteIn(quarter) : std::nullopt)
            history.add(*tick);
    }
}

void Market::quoteUntil(qint64 timeMs) {
    const qint64 last = timeMs / 250;
    for (qint64 quarter = m_quotedMs / 250; quarter < last; ++quarter) {
        if (!isOpen(quarter * 250))
            continue;
        for (PriceWalk &walk : m_walks) {
            if (const std::optional<Tick> tick = walk.quoteIn(quarter))
                m_book.quote(QString::fromLatin1(walk.pair().symbol), *tick);
        }
    }
    m_quotedMs = std::max(m_quotedMs, last * 250);
}

} // namespace desk
