#include "host/dealing/DealingHistoryService.h"
#include "host/core/Host.h"
#include "host/dealing/DealReport.h"
#include "host/quotes/QuoteBook.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

DealingHistoryService::DealingHistoryService(Host &host, CandleService &candles, QuoteBook &book)
    : ObjectService(host), m_candles(candles), m_book(book),
      m_interface(registerInterface("MvDealingHistory", "VELMAR", "Practice")) {
    take(m_interface, {ToHost::ReportSymbols});
    m_candles.addWatcher(*this);
}

DealingHistoryService::~DealingHistoryService() {
    m_candles.removeWatcher(*this);
}

// The practice account deals at the close of a bar: while one moves, the report stays.
std::vector<Handle> DealingHistoryService::sourceChanged(Handle source, int first) {
    std::vector<Handle> updated;
    for (const std::weak_ptr<DealReport> &known : m_reports) {
        const std::shared_ptr<DealReport> report = known.lock();
        if (report && report->isBuiltOn(source) && host().subscriptions().hasSubscriber(report->handle()) &&
            report->follow(first == 0))
            updated.push_back(report->handle());
    }
    return updated;
}

// What nobody looked at did not follow.
void DealingHistoryService::subscriptionChanged(Handle object, bool subscribed) {
    const std::shared_ptr<DealReport> report = own<DealReport>(object);
    if (report && subscribed && host().objects().find(report->base()))
        report->follow(true);
}

bool DealingHistoryService::openReport(Handle window) {
    auto demand = zeroRecord<coreDemandsIndicator>();
    demand.parameter = m_interface;
    fillField(demand.sNameInstrument.m_szNameSymbol, QStringLiteral("Deals"));
    fillField(demand.sNameInstrument.m_szType, "Bid");
    return host().sendToModule(ToModule::OpenReport, int(window), toWord(&demand)) == 0;
}

bool DealingHistoryService::handle(Handle target, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    switch (message) {
    case ToHost::SourceCount:
        answer(lParam, ownObject(Handle(wParam)) ? 1 : 0);
        return true;
    case ToHost::ReportSymbols:
        result = reportSymbols(Handle(wParam), lParam);
        return true;
    case ToHost::HandOverSources:
        result = bind(Handle(wParam), lParam);
        return true;
    case ToHost::ConfirmObject:
        answer(lParam, 1);
        m_inMaking = 0;
        return true;
    case ToHost::CreationAbandoned:
        host().subscriptions().dropObject(m_inMaking);
        host().objects().remove(m_inMaking);
        m_inMaking = 0;
        return true;
    case ToHost::ChangeArray:
    case ToHost::ReloadArray:
        return true; // a report follows its series
    default:
        return ObjectService::handle(target, message, wParam, lParam, result);
    }
}

void DealingHistoryService::create(coreDemandsIndicator &demand) {
    demand.handle = nullptr;
    QString symbol = m_symbol;
    for (const QString &known : m_book.symbols()) {
        const SymbolHistory *history = m_book.history(known);
        if (symbol.isEmpty() && history && !history->isEmpty())
            symbol = known;
    }
    if (!m_book.history(symbol))
        return;
    const auto report = std::make_shared<DealReport>(*this, m_interface, demand.sNameInstrument, symbol);
    m_inMaking = host().objects().add(report);
    report->ownArrays();
    m_reports.erase(std::remove_if(m_reports.begin(), m_reports.end(),
                                   [](const auto &known) { return known.expired(); }),
                    m_reports.end());
    m_reports.push_back(report);
    demand.handle = fromWord<void>(m_inMaking);
}

int DealingHistoryService::reportSymbols(Handle object, int lParam) const {
    const std::shared_ptr<DealReport> report = own<DealReport>(object);
    if (!report || !lParam)
        return 1;
    auto &list = *fromWord<coreReportSymbolList>(lParam);
    if (list.count < 1 || !list.symbols)
        return 1;
    list.symbols[0] = zeroRecord<coreReportSymbol>();
    fillField(list.symbols[0].symbol, report->symbol());
    list.count = 1;
    return 0;
}

// Every series of the window is handed over; the report takes its symbol's.
int DealingHistoryService::bind(Handle object, int lParam) {
    const std::shared_ptr<DealReport> report = own<DealReport>(object);
    if (!report || !lParam)
        return 1;
    const auto &list = *fromWord<coreListCreateData>(lParam);
    for (int i = 0; list.arrays && i < list.count; ++i) {
        const mvDataPointArray *array = list.arrays[i];
        if (array && readText(array->identity.m_szNameSymbol, 255) == report->symbol()) {
            report->setBase(Handle(toWord(array->owner)), array);
            return 0;
        }
    }
    report->setBase(0, nullptr);
    return 0;
}

} // namespace desk
