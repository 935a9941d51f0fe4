#include "host/quotes/SeriesWriter.h"

namespace desk {

SeriesWriter::SeriesWriter(QuoteStore &store, qint64 file, const FileForm &form)
    : m_store(store), m_file(file), m_form(form) {}

SeriesWriter::BarSeries &SeriesWriter::barSeries(std::optional<BarSeries> &place, Side side, Period period,
                                                 bool derived) {
    if (!place) {
        StoredSeries series{0, m_file, m_form.symbol, side, period, derived};
        if (!m_store.addSeries(series))
            m_failed = true;
        const bool builds = derived || (m_form.barSeconds > 0 && m_form.barSeconds != period.seconds() &&
                                        period.isIntraday());
        place.emplace(BarSeries{series, BarBuilder(period, true), builds});
    }
    return *place;
}

bool SeriesWriter::addBar(BarSeries &to, const Bar &bar) {
    if (to.builds)
        to.builder.add(bar);
    else
        to.builder.bars().push_back(bar);
    return flush(to, false);
}

// Writes full blocks; the last bar of a series that is put together may still grow.
bool SeriesWriter::flush(BarSeries &series, bool all) {
    std::vector<Bar> &bars = series.builder.bars();
    const size_t block = size_t(QuoteStore::chunkPoints);
    if (!all && bars.size() <= block)
        return true;
    size_t from = 0;
    while (bars.size() - from > block || (all && from < bars.size())) {
        const size_t count = std::min(block, bars.size() - from);
        if (!m_store.addBars(series.series.id, bars.data() + from, int(count)))
            return false;
        from += count;
    }
    bars.erase(bars.begin(), bars.begin() + std::ptrdiff_t(from));
    return true;
}

bool SeriesWriter::flushTicks() {
    if (m_ticks.empty())
        return true;
    const bool done = m_store.addTicks(m_tickSeries->id, m_ticks.data(), int(m_ticks.size()));
    m_ticks.clear();
    return done;
}

bool SeriesWriter::add(const QuoteLine &quote) {
    ++m_points;
    const qint64 day = quote.timeMs / 86400000;
    const qint64 hour = quote.timeMs / 3600000 % 24;
    if (m_form.period.unit == 'D' ? !m_form.ticks : hour >= 6 && hour < 18) {
        m_saturdays += day % 7 == 2 ? 1 : 0; // 1970-01-01 was a Thursday
        m_wednesdays += day % 7 == 6 ? 1 : 0;
    }
    bool done = true;
    if (m_form.ticks) {
        if (!m_tickSeries) {
            m_tickSeries = StoredSeries{0, m_file, m_form.symbol, Side::Bid, Period{'I', 0}, false};
            m_failed = m_failed || !m_store.addSeries(*m_tickSeries);
        }
        m_ticks.push_back(quote.tick);
        if (m_ticks.size() == size_t(QuoteStore::chunkPoints))
            done = flushTicks();
        const Tick &tick = quote.tick;
        const qint32 time = tick.timeSec();
        const Period minute{'I', 1};
        const Bar bid{time, tick.bid, tick.bid, tick.bid, tick.bid, tick.volume};
        done = addBar(barSeries(m_first, Side::Bid, minute, true), bid) && done;
        if (m_form.has(Column::Price))
            return done && !m_failed;
        const Bar ask{time, tick.ask, tick.ask, tick.ask, tick.ask, tick.volume};
        done = addBar(barSeries(m_ask, Side::Ask, minute, true), ask) && done;
        return done && !m_failed;
    }
    done = addBar(barSeries(m_first, m_form.side.value_or(Side::Bid), m_form.period, false), quote.bar);
    if (m_form.hasAskBars())
        done = addBar(barSeries(m_ask, Side::Ask, m_form.period, false), quote.ask) && done;
    return done && !m_failed;
}

bool SeriesWriter::finish() {
    bool done = flushTicks();
    if (m_first)
        done = flush(*m_first, true) && done;
    if (m_ask)
        done = flush(*m_ask, true) && done;
    return done && !m_failed;
}

} // namespace desk
