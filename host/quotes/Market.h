#pragma once
#include "host/quotes/PriceWalk.h"
#include "host/quotes/Quote.h"
#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

namespace desk {

class QuoteBook;

// The built-in market: sample quotes of four pairs, so that a first start shows something alive. They are
// made, not real; a symbol with quotes of its own is left alone.
class Market : public QObject {
    Q_OBJECT

public:
    using Now = std::function<qint64()>; // milliseconds since 1970, UTC

    explicit Market(QuoteBook &book, quint32 seed = 1, Now now = {}, QObject *parent = nullptr);

    // Makes the symbols and their history up to now. At a weekend the market's clock stands whole days back,
    // so that there is trade to be seen.
    void open();
    void start(); // quotes from now on
    qint64 time() const;
    // Gives the quotes between the last call (or `open`) and this time.
    void quoteUntil(qint64 timeMs);

    static bool isOpen(qint64 timeMs); // Sunday 22:00 to Friday 22:00, UTC

private:
    void makeHistory(PriceWalk &walk, qint64 untilMs);

    QuoteBook &m_book;
    quint32 m_seed;
    Now m_now;
    qint64 m_shiftMs = 0;
    qint64 m_quotedMs = 0;
    std::vector<PriceWalk> m_walks;
    QTimer m_timer;
};

} // namespace desk
