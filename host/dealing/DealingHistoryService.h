#pragma once
#include "host/core/Service.h"
#include <QString>
#include <memory>

struct coreDemandsIndicator;

namespace desk {

class DealReport;
class QuoteBook;

// "MvDealingHistory": reports of the deals that the practice account has closed.
class DealingHistoryService : public Service {
public:
    DealingHistoryService(Host &host, QuoteBook &book);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    // The symbol of the next report; empty: the first one that has quotes.
    void setSymbol(const QString &symbol) { m_symbol = symbol; }
    // Opens a report in a chart window; false when the chart refused it.
    bool openReport(Handle window);

private:
    void create(coreDemandsIndicator &demand);
    std::shared_ptr<DealReport> find(Handle object) const;
    int reportSymbols(Handle object, int lParam) const;
    int bind(Handle object, int lParam);
    int outputs(Handle object, int lParam) const;

    QuoteBook &m_book;
    Handle m_interface;
    QString m_symbol;
    Handle m_inMaking = 0;
};

} // namespace desk
