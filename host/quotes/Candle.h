#pragma once
#include "host/core/CalculatedObject.h"
#include "host/quotes/PointArray.h"
#include "host/quotes/Quote.h"
#include "host/quotes/SymbolHistory.h"

namespace desk {

class CandleService;
class QuoteBook;

QString typeName(Side side);
std::optional<Side> sideOf(const QString &type); // "Bid", "Ask", "Middle"

// What a quote did to a series.
enum class QuoteEffect { None, LastChanged, Appended };

// One price series: a symbol at a period, of one data type. It holds a window of the newest history that
// grows to the left on request.
class Candle : public CalculatedObject {
public:
    static constexpr size_t firstWindow = 5000;

    Candle(CandleService &maker, QuoteBook &book, const QString &symbol, Side side, Period period);

    // What a 3008 asked for; the same question gets the same object.
    bool isOf(const QString &symbol, Side side, Period period) const;
    const QString &symbol() const { return m_symbol; }
    Side side() const { return m_side; }
    void change(Side side, Period period); // the arrays are rebuilt under the same header
    void reload();
    void loadOlder(qint64 seconds);
    QuoteEffect quote(const Tick &tick);
    size_t count() const { return m_period.isTick() ? m_ticks.size() : m_bars.size(); }
    void ownArray(); // writes the object's handle into its array

    bool isInstrument() const override { return true; }
    const coreNameInstrument &identity() const override;
    std::vector<mvDataPointArray *> outputs() const override;
    namePeriod period() const override { return recordOf(m_period); }
    DisplayNames displayNames() const override;
    QString menuText() const override;
    std::unique_ptr<Page> page() const override;
    QString applyPage(const Page &page) override;

private:
    void name();
    void load(const HistoryWindow &window);
    void publish();
    QuoteEffect addTick(const Tick &tick);
    QuoteEffect addToBar(const Tick &tick);

    CandleService &m_service;
    QuoteBook &m_book;
    QString m_symbol;
    Side m_side;
    Period m_period;
    HistoryWindow m_window;
    // One header for bars and ticks: charts keep its address over a change of the period.
    ArrayHeader m_header;
    std::vector<Bar> m_bars;
    std::vector<corePointTick> m_ticks;
};

} // namespace desk
