#pragma once
#include "host/core/ObjectService.h"
#include "host/quotes/CandleService.h"
#include <QString>
#include <memory>

namespace desk {

class DealReport;
class QuoteBook;

// "MvDealingHistory": reports of the deals that the practice account has closed.
class DealingHistoryService : public ObjectService, public SourceWatcher {
public:
    DealingHistoryService(Host &host, CandleService &candles, QuoteBook &book);
    ~DealingHistoryService() override;
    std::vector<Handle> sourceChanged(Handle source, int first) override;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    void subscriptionChanged(Handle object, bool subscribed) override;
    // The symbol of the next report; empty: the first one that has quotes.
    void setSymbol(const QString &symbol) { m_symbol = symbol; }
    // Opens a report in a chart window; false when the chart refused it.
    bool openReport(Handle window);

private:
    void create(coreDemandsIndicator &demand) override;
    int reportSymbols(Handle object, int lParam) const;
    int bind(Handle object, int lParam);

    CandleService &m_candles;
    QuoteBook &m_book;
    Handle m_interface;
    QString m_symbol;
    Handle m_inMaking = 0;
    std::vector<std::weak_ptr<DealReport>> m_reports;
};

} // namespace desk
