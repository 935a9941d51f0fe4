#include "host/quotes/BarBuilder.h"
#include <algorithm>

namespace desk {

void extend(Bar &bar, const Bar &later) {
    bar.high = std::max(bar.high, later.high);
    bar.low = std::min(bar.low, later.low);
    bar.close = later.close;
    bar.volume += later.volume;
}

void BarBuilder::add(const Bar &bar) {
    if (!m_bars.empty() && bar.time < m_next && bar.time >= m_bars.back().time) {
        extend(m_bars.back(), bar);
        return;
    }
    const qint32 start = m_cutter.start(bar.time);
    if (!m_bars.empty() && start <= m_bars.back().time) {
        // A weekend's quotes fold into the trading day beside, ahead of or behind its own hours.
        if (start == m_bars.back().time)
            extend(m_bars.back(), bar);
        return;
    }
    m_bars.push_back(bar);
    m_bars.back().time = start;
    m_next = m_cutter.next(start);
    if (m_cutter.start(m_next - 1) != start) // the stretch ends before the next bar's opening
        m_next = start;
}

namespace {

template <class Both>
std::vector<Bar> zipped(const std::vector<Bar> &first, const std::vector<Bar> &second, Both both) {
    std::vector<Bar> result;
    result.reserve(std::max(first.size(), second.size()));
    auto a = first.begin();
    auto b = second.begin();
    while (a != first.end() || b != second.end()) {
        if (b == second.end() || (a != first.end() && a->time < b->time))
            result.push_back(*a++);
        else if (a == first.end() || b->time < a->time)
            result.push_back(*b++);
        else
            result.push_back(both(*a++, *b++));
    }
    return result;
}

float middle(float a, float b) {
    return float((double(a) + double(b)) / 2);
}

} // namespace

std::vector<Bar> merged(const std::vector<Bar> &first, const std::vector<Bar> &second) {
    if (second.empty())
        return first;
    if (first.empty())
        return second;
    return zipped(first, second, [](const Bar &a, const Bar &) { return a; });
}

std::vector<Bar> middleOf(const std::vector<Bar> &bid, const std::vector<Bar> &ask) {
    return zipped(bid, ask, [](const Bar &a, const Bar &b) {
        return Bar{a.time,
                   middle(a.open, b.open),
                   middle(a.high, b.high),
                   middle(a.low, b.low),
                   middle(a.close, b.close),
                   std::max(a.volume, b.volume)};
    });
}

} // namespace desk
