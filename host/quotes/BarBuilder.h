#pragma once
#include "host/quotes/Period.h"
#include "host/quotes/Quote.h"
#include <vector>

namespace desk {

// Puts finer bars or quotes, in order of time, together to bars of a period. What comes before the last bar's
// opening is left out.
class BarBuilder {
public:
    BarBuilder(Period period, bool tradesAtWeekends) : m_cutter(period, tradesAtWeekends) {}

    void add(const Bar &bar);
    void add(qint32 time, float price, float volume) { add({time, price, price, price, price, volume}); }

    std::vector<Bar> &bars() { return m_bars; }
    const std::vector<Bar> &bars() const { return m_bars; }
    const BarCutter &cutter() const { return m_cutter; }

private:
    BarCutter m_cutter;
    std::vector<Bar> m_bars;
    qint32 m_next = 0; // quotes before this time belong to the last bar
};

// Widens a bar by a later one of the same stretch of time.
void extend(Bar &bar, const Bar &later);
// Bars of both times, in order; where both have one, `first`'s stands.
std::vector<Bar> merged(const std::vector<Bar> &first, const std::vector<Bar> &second);
// The middle of bid and ask bars; where only one side has a bar, that bar.
std::vector<Bar> middleOf(const std::vector<Bar> &bid, const std::vector<Bar> &ask);

} // namespace desk
