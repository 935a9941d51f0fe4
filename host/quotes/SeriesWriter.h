#pragma once
#include "host/quotes/BarBuilder.h"
#include "host/quotes/FileForm.h"
#include "host/quotes/LineParser.h"
#include "host/quotes/QuoteStore.h"
#include <optional>

namespace desk {

// Takes the quotes of one source in order of time and writes them to the store in blocks; ticks bring their
// bars of one minute with them.
class SeriesWriter {
public:
    SeriesWriter(QuoteStore &store, qint64 file, const FileForm &form);

    bool add(const QuoteLine &quote); // false when the store refused a block
    bool finish();
    qint64 points() const { return m_points; }
    bool tradesAtWeekends() const { return m_saturdays * 4 > m_wednesdays; }

private:
    // The blocks of one series of bars; finer bars than the series' own are put together.
    struct BarSeries {
        StoredSeries series;
        BarBuilder builder;
        bool builds = false;
    };

    BarSeries &barSeries(std::optional<BarSeries> &place, Side side, Period period, bool derived);
    bool addBar(BarSeries &to, const Bar &bar);
    bool flush(BarSeries &series, bool all);
    bool flushTicks();

    QuoteStore &m_store;
    qint64 m_file;
    const FileForm &m_form;
    std::optional<BarSeries> m_first; // bid, or the only side
    std::optional<BarSeries> m_ask;
    std::optional<StoredSeries> m_tickSeries;
    std::vector<Tick> m_ticks;
    qint64 m_points = 0;
    qint64 m_saturdays = 0;
    qint64 m_wednesdays = 0;
    bool m_failed = false;
};

} // namespace desk
