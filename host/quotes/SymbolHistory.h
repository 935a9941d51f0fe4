#pragma once
#include "host/quotes/BarBuilder.h"
#include "host/quotes/QuoteStore.h"
#include <climits>
#include <memory>
#include <optional>
#include <vector>

namespace desk {

// A stretch of history up to now: at least the newest `count` points, and all from `from` on.
struct HistoryWindow {
    size_t count = 5000;
    qint32 from = INT_MAX;
};

// All quotes of one symbol: those of the store, those that a market made, and those of this run. Bars are
// put together from what is there: the coarsest bars that fit, finer ones and ticks where they have none.
class SymbolHistory {
public:
    SymbolHistory(const QuoteStore &store, const SymbolInfo &info);

    const SymbolInfo &info() const { return m_info; }
    std::vector<Bar> bars(Side side, Period period, const HistoryWindow &window) const;
    std::vector<Tick> ticks(const HistoryWindow &window) const;
    bool isEmpty() const { return m_sources.empty() && m_live.empty(); }
    // The finest bars of files and market; ticks when there are ticks; nothing when there is no history.
    std::optional<Period> finest() const;
    // The newest quote, made of a bar's close when there are no ticks.
    std::optional<Tick> last() const { return m_last; }

    // Takes a quote of this run; false when its time goes back.
    bool add(const Tick &tick);
    const std::vector<Tick> &liveTicks() const { return m_live; }
    // The quotes of this run are in the store from now on.
    void liveStored();
    // Bars that are not in the store.
    void addMade(Side side, Period period, std::vector<Bar> bars);
    // Hides what lies at or behind this time: a replay goes on from there.
    void endAt(qint32 time);
    // Reads again what the store has of the symbol.
    void reload();

private:
    struct Source {
        StoredSeries series;
        std::vector<StoredChunk> chunks;
        std::shared_ptr<const std::vector<Bar>> made; // instead of the store's chunks
    };
    using Group = std::vector<const Source *>; // of one period, in order of preference

    std::vector<Bar> sideBars(Side side, Period period, const HistoryWindow &window) const;
    std::vector<Bar> groupBars(const Group &group, Period period, const HistoryWindow &window) const;
    std::vector<Bar> bothBars(Side side, Period period, const HistoryWindow &window) const;
    std::vector<Bar> rangeOf(const Source &source, qint32 from, qint32 to) const;
    void findLast();
    void addLive(Side side, Period period, std::vector<Bar> &bars) const;

    const QuoteStore &m_store;
    SymbolInfo m_info;
    std::vector<Source> m_sources;
    std::vector<Tick> m_live;
    BarBuilder m_liveBid; // of one minute, of the quotes of this run
    BarBuilder m_liveAsk;
    BarBuilder m_liveMiddle;
    std::optional<Tick> m_last;
    qint32 m_end = INT_MAX;
};

} // namespace desk
