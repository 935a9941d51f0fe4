#pragma once
#include "host/quotes/Quote.h"
#include <QString>
#include <array>
#include <optional>
#include <vector>

namespace desk {

struct PairData {
    const char *symbol;
    double price;      // about which it walks
    double dailyShare; // of its price that a usual day moves it
    double spread;
    int digits;
};

// The price of one made pair as a function of time alone: noise of many wave lengths over a clock that runs
// fast in busy hours, slowly in quiet ones and not at all at weekends. The same seed and time always give the
// same price, so that history and the quotes of the day belong together at every start.
class PriceWalk {
public:
    PriceWalk(const PairData &pair, quint32 seed);

    const PairData &pair() const { return m_pair; }
    double price(qint64 timeMs);        // bid, not rounded
    double spread(qint64 timeMs) const; // rounded to points
    Tick quote(qint64 timeMs);
    // The quote that comes in this quarter of a second, if one does.
    std::optional<Tick> quoteIn(qint64 quarter);
    // A bid bar of this many seconds from the price at `samples` moments in it.
    Bar bar(qint32 time, qint32 seconds, int samples);

private:
    static constexpr int waves = 16;

    struct Wave {
        double length = 0; // seconds of the busy clock
        double share = 0;  // 1 / length
        double height = 0;
        int node = -1; // left node of the stretch whose two values are known
        double left = 0;
        double step = 0; // from the left value to the right one
    };

    static double busyTime(qint64 timeMs);
    double noise(quint32 wave, int node) const;
    double rounded(double price) const;
    bool isBurst(qint64 timeMs) const;

    PairData m_pair;
    quint32 m_seed;
    double m_scale = 1; // points of a unit of price
    std::array<Wave, waves> m_waves;
};

} // namespace desk
