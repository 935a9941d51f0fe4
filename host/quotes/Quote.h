#pragma once
#include <QtGlobal>

namespace desk {

// Which price of a quote a series shows.
enum class Side { Bid, Ask, Middle };

// One bar as the chart arrays hold it: times in seconds since 1970 (UTC), the time at which the bar opens.
struct Bar {
    qint32 time = 0;
    float open = 0;
    float high = 0;
    float low = 0;
    float close = 0;
    float volume = 0;
};
static_assert(sizeof(Bar) == 24);

// One quote. A price without sides has the same bid and ask.
struct Tick {
    qint64 timeMs = 0;
    float bid = 0;
    float ask = 0;
    float volume = 0;

    qint32 timeSec() const { return qint32(timeMs / 1000); }
    float price(Side side) const {
        return side == Side::Bid ? bid : side == Side::Ask ? ask : float((double(bid) + double(ask)) / 2);
    }
};

static_assert(sizeof(Tick) == 20);

} // namespace desk
