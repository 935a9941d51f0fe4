#include "host/quotes/SymbolHistory.h"
#include <algorithm>

namespace desk {

namespace {

constexpr Period minute{'I', 1};
constexpr size_t mostLiveTicks = 500000;

bool overlaps(const StoredChunk &chunk, qint32 from, qint32 to) {
    return chunk.last >= from && chunk.first < to;
}

template <class Point>
void keepNewest(std::vector<Point> &points, const HistoryWindow &window, qint32 (*timeOf)(const Point &)) {
    if (points.size() <= window.count)
        return;
    auto first = points.end() - std::ptrdiff_t(window.count);
    first = std::min(
        first, std::lower_bound(points.begin(), points.end(), window.from,
                                [timeOf](const auto &point, qint32 time) { return timeOf(point) < time; }));
    points.erase(points.begin(), first);
}

qint32 barTime(const Bar &bar) {
    return bar.time;
}

qint32 tickTime(const Tick &tick) {
    return tick.timeSec();
}

} // namespace

SymbolHistory::SymbolHistory(const QuoteStore &store, const SymbolInfo &info)
    : m_store(store), m_info(info), m_liveBid(minute, true), m_liveAsk(minute, true),
      m_liveMiddle(minute, true) {
    reload();
}

void SymbolHistory::reload() {
    m_sources.erase(
        std::remove_if(m_sources.begin(), m_sources.end(), [](const Source &source) { return !source.made; }),
        m_sources.end());
    for (const StoredSeries &series : m_store.series(m_info.name)) {
        Source source{series, m_store.chunks(series.id), nullptr};
        if (!source.chunks.empty())
            m_sources.push_back(std::move(source));
    }
    if (const auto info = m_store.symbol(m_info.name))
        m_info = *info;
    findLast();
}

void SymbolHistory::addMade(Side side, Period period, std::vector<Bar> bars) {
    Source source;
    source.series.symbol = m_info.name;
    source.series.side = side;
    source.series.period = period;
    for (size_t from = 0; from < bars.size(); from += size_t(QuoteStore::chunkPoints)) {
        const size_t count = std::min(size_t(QuoteStore::chunkPoints), bars.size() - from);
        source.chunks.push_back({qint64(from), bars[from].time, bars[from + count - 1].time, int(count)});
    }
    source.made = std::make_shared<const std::vector<Bar>>(std::move(bars));
    if (!source.chunks.empty())
        m_sources.push_back(std::move(source));
    findLast();
}

void SymbolHistory::endAt(qint32 time) {
    m_end = time;
    findLast();
}

std::optional<Period> SymbolHistory::finest() const {
    std::optional<Period> finest;
    for (const Source &source : m_sources) {
        if (!finest || source.series.period.seconds() < finest->seconds())
            finest = source.series.period;
    }
    return finest;
}

void SymbolHistory::findLast() {
    m_last.reset();
    if (!m_live.empty()) {
        m_last = m_live.back();
        return;
    }
    const std::vector<Tick> ticks = this->ticks({1});
    // The finest bars know the last price best.
    const Period *period = nullptr;
    for (const Source &source : m_sources) {
        if (!source.series.period.isTick() && (!period || source.series.period.seconds() < period->seconds()))
            period = &source.series.period;
    }
    if (!ticks.empty())
        m_last = ticks.back();
    if (!period)
        return;
    const std::vector<Bar> bid = sideBars(Side::Bid, *period, {1});
    const std::vector<Bar> ask = sideBars(Side::Ask, *period, {1});
    const std::vector<Bar> &known = bid.empty() ? ask : bid;
    if (known.empty() || (m_last && m_last->timeSec() >= known.back().time))
        return;
    const bool both = !bid.empty() && !ask.empty() && bid.back().time == ask.back().time;
    m_last =
        Tick{known.back().time * 1000LL, known.back().close, both ? ask.back().close : known.back().close, 0};
}

bool SymbolHistory::add(const Tick &tick) {
    if (m_last && tick.timeMs < m_last->timeMs)
        return false;
    if (m_live.size() >= mostLiveTicks)
        m_live.erase(m_live.begin(), m_live.begin() + std::ptrdiff_t(mostLiveTicks / 2));
    m_live.push_back(tick);
    const qint32 time = tick.timeSec();
    m_liveBid.add(time, tick.bid, tick.volume);
    m_liveAsk.add(time, tick.ask, tick.volume);
    m_liveMiddle.add(time, tick.price(Side::Middle), tick.volume);
    m_last = tick;
    return true;
}

void SymbolHistory::liveStored() {
    m_live.clear();
    for (BarBuilder *builder : {&m_liveBid, &m_liveAsk, &m_liveMiddle})
        *builder = BarBuilder(minute, true);
    reload();
}

// The bars of one source from `from` up to `to` (not itself).
std::vector<Bar> SymbolHistory::rangeOf(const Source &source, qint32 from, qint32 to) const {
    std::vector<Bar> bars;
    for (const StoredChunk &chunk : source.chunks) {
        if (!overlaps(chunk, from, to))
            continue;
        const auto take = [&](auto begin, auto end) {
            begin = std::lower_bound(begin, end, from,
                                     [](const Bar &bar, qint32 time) { return bar.time < time; });
            end =
                std::lower_bound(begin, end, to, [](const Bar &bar, qint32 time) { return bar.time < time; });
            bars.insert(bars.end(), begin, end);
        };
        if (source.made) {
            const auto begin = source.made->begin() + std::ptrdiff_t(chunk.id);
            take(begin, begin + chunk.count);
        } else {
            const std::vector<Bar> block = m_store.bars(chunk.id);
            take(block.begin(), block.end());
        }
    }
    return bars;
}

// Walks back over the blocks of the sources, some at a time and always in whole bars of the target, until the
// window is filled.
std::vector<Bar> SymbolHistory::groupBars(const Group &group, Period period,
                                          const HistoryWindow &window) const {
    const BarCutter cutter(period, m_info.tradesAtWeekends);
    std::vector<StoredChunk> chunks;
    for (const Source *source : group)
        chunks.insert(chunks.end(), source->chunks.begin(), source->chunks.end());
    std::sort(chunks.begin(), chunks.end(), [](const auto &a, const auto &b) { return a.first > b.first; });

    std::vector<std::vector<Bar>> parts; // the newest first
    size_t count = 0;
    qint32 to = m_end;
    size_t step = 1;
    for (size_t place = 0; place < chunks.size() && (count < window.count || to > window.from);) {
        place = std::min(chunks.size(), place + step);
        step = std::min<size_t>(step * 2, 64);
        qint32 from = INT_MIN;
        if (place < chunks.size()) {
            from = cutter.firstMoment(cutter.start(chunks[place - 1].first));
            while (place < chunks.size() && chunks[place].first >= from)
                ++place;
        }
        if (from >= to)
            continue;
        std::vector<Bar> base;
        for (const Source *source : group)
            base = merged(base, rangeOf(*source, from, to));
        BarBuilder builder(period, m_info.tradesAtWeekends);
        for (const Bar &bar : base)
            builder.add(bar);
        count += builder.bars().size();
        parts.push_back(std::move(builder.bars()));
        to = from;
    }
    std::vector<Bar> bars;
    bars.reserve(count);
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        bars.insert(bars.end(), part->begin(), part->end());
    return bars;
}

std::vector<Bar> SymbolHistory::sideBars(Side side, Period period, const HistoryWindow &window) const {
    std::vector<const Source *> fitting;
    for (const Source &source : m_sources) {
        const StoredSeries &series = source.series;
        if (series.side == side && !series.period.isTick() && canBuild(series.period, period))
            fitting.push_back(&source);
    }
    // Coarse before fine, bars of files before bars made of ticks; the store has the newest files first.
    std::stable_sort(fitting.begin(), fitting.end(), [](const Source *a, const Source *b) {
        const qint64 aSeconds = a->series.period.seconds();
        const qint64 bSeconds = b->series.period.seconds();
        return aSeconds != bSeconds ? aSeconds > bSeconds : a->series.derived < b->series.derived;
    });
    std::vector<Bar> bars;
    for (auto first = fitting.begin(); first != fitting.end();) {
        const auto end = std::find_if(first, fitting.end(), [first](const Source *source) {
            return source->series.period != (*first)->series.period;
        });
        bars = merged(bars, groupBars(Group(first, end), period, window));
        first = end;
    }
    keepNewest(bars, window, barTime);
    return bars;
}

// Where one side has no bars the other side's stand in: many files have one price only.
std::vector<Bar> SymbolHistory::bothBars(Side side, Period period, const HistoryWindow &window) const {
    const std::vector<Bar> bid = sideBars(Side::Bid, period, window);
    const std::vector<Bar> ask = sideBars(Side::Ask, period, window);
    const std::vector<Bar> middle = sideBars(Side::Middle, period, window);
    switch (side) {
    case Side::Bid:
        return merged(bid, merged(middle, ask));
    case Side::Ask:
        return merged(ask, merged(middle, bid));
    case Side::Middle:
        break;
    }
    return merged(middle, middleOf(bid, ask));
}

void SymbolHistory::addLive(Side side, Period period, std::vector<Bar> &bars) const {
    const BarBuilder &minutes = side == Side::Bid ? m_liveBid : side == Side::Ask ? m_liveAsk : m_liveMiddle;
    if (!canBuild(minute, period))
        return;
    BarBuilder builder(period, m_info.tradesAtWeekends);
    for (const Bar &bar : minutes.bars())
        builder.add(bar);
    for (const Bar &bar : builder.bars()) {
        if (bars.empty() || bar.time > bars.back().time)
            bars.push_back(bar);
        else if (bar.time == bars.back().time)
            extend(bars.back(), bar);
    }
}

std::vector<Bar> SymbolHistory::bars(Side side, Period period, const HistoryWindow &window) const {
    std::vector<Bar> bars = bothBars(side, period, window);
    addLive(side, period, bars);
    keepNewest(bars, window, barTime);
    return bars;
}

std::vector<Tick> SymbolHistory::ticks(const HistoryWindow &window) const {
    std::vector<Tick> ticks;
    size_t wanted = window.count > m_live.size() ? window.count - m_live.size() : 0;
    if (window.from != INT_MAX)
        wanted = std::max<size_t>(wanted, 1);
    for (const Source &source : m_sources) {
        if (!source.series.period.isTick() || wanted == 0)
            continue;
        std::vector<Tick> own;
        for (auto chunk = source.chunks.rbegin(); chunk != source.chunks.rend(); ++chunk) {
            if (own.size() >= wanted && chunk->last < window.from)
                break;
            if (chunk->first >= m_end)
                continue;
            std::vector<Tick> block = m_store.ticks(chunk->id);
            while (!block.empty() && block.back().timeSec() >= m_end)
                block.pop_back();
            own.insert(own.begin(), block.begin(), block.end());
        }
        if (ticks.empty()) {
            ticks = std::move(own);
            continue;
        }
        // Two sources of the same stretch tell it once: outside of what is there already.
        const qint64 from = ticks.front().timeMs;
        const qint64 to = ticks.back().timeMs;
        std::vector<Tick> joined;
        const auto before =
            std::find_if(own.begin(), own.end(), [from](const Tick &tick) { return tick.timeMs >= from; });
        joined.assign(own.begin(), before);
        joined.insert(joined.end(), ticks.begin(), ticks.end());
        const auto after =
            std::find_if(before, own.end(), [to](const Tick &tick) { return tick.timeMs > to; });
        joined.insert(joined.end(), after, own.end());
        ticks = std::move(joined);
    }
    ticks.insert(ticks.end(), m_live.begin(), m_live.end());
    keepNewest(ticks, window, tickTime);
    return ticks;
}

} // namespace desk
