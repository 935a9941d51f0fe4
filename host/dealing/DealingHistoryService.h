#pragma once
#include "host/core/ObjectService.h"
#include <QString>
#include <memory>

namespace desk {

class DealReport;
class QuoteBook;

// "MvDealingHistory": reports of the deals that the practice account has closed.
class DealingHistoryService : public ObjectService {
public:
    DealingHistoryService(Host &host, QuoteBook &book);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    // The symbol of the next report; empty: the first one that has quotes.
    void setSymbol(const QString &symbol) { m_symbol = symbol; }
    // Opens a report in a chart window; false when the chart refused it.
    bool openReport(Handle window);

private:
    void create(coreDemandsIndicator &demand) override;
    int reportSymbols(Handle object, int lParam) const;
    int bind(Handle object, int lParam);

    QuoteBook &m_book;
    Handle m_interface;
    QString m_symbol;
    Handle m_inMaking = 0;
};

} // namespace desk
