#include "host/dealing/DealingHistoryService.h"
#include "host/core/Host.h"
#include "host/dealing/DealReport.h"
#include "host/quotes/QuoteBook.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

DealingHistoryService::DealingHistoryService(Host &host, QuoteBook &book)
    : Service(host), m_book(book), m_interface(registerInterface("MvDealingHistory", "VELMAR", "Practice")) {
    take(m_interface, {ToHost::ReportSymbols});
}

bool DealingHistoryService::openReport(Handle window) {
    auto demand = zeroRecord<coreDemandsIndicator>();
    demand.parameter = m_interface;
    fillField(demand.sNameInstrument.m_szNameSymbol, QStringLiteral("Deals"));
    fillField(demand.sNameInstrument.m_szType, "Bid");
    return host().sendToModule(ToModule::OpenReport, int(window), toWord(&demand)) == 0;
}

bool DealingHistoryService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    switch (message) {
    case ToHost::CreateObject:
        if (!wParam)
            return false;
        create(*fromWord<coreDemandsIndicator>(wParam));
        return true;
    case ToHost::SourceCount:
        if (lParam)
            *fromWord<Word>(lParam) = find(Handle(wParam)) ? 1 : 0;
        return true;
    case ToHost::ReportSymbols:
        result = reportSymbols(Handle(wParam), lParam);
        return true;
    case ToHost::HandOverSources:
        result = bind(Handle(wParam), lParam);
        return true;
    case ToHost::OutputCount:
        if (lParam && find(Handle(wParam)))
            *fromWord<Word>(lParam) = Word(find(Handle(wParam))->outputs().size());
        return true;
    case ToHost::OutputArrays:
        result = outputs(Handle(wParam), lParam);
        return true;
    case ToHost::ConfirmObject:
        if (lParam)
            *fromWord<Word>(lParam) = 1;
        m_inMaking = 0;
        return true;
    case ToHost::CreationAbandoned:
        host().subscriptions().dropObject(m_inMaking);
        host().objects().remove(m_inMaking);
        m_inMaking = 0;
        return true;
    case ToHost::ChangeArray:
    case ToHost::ReloadArray:
    case ToHost::LoadObject:
    case ToHost::SaveObject:
        return true; // a report stays as it was made
    default:
        return false;
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
    demand.handle = fromWord<void>(m_inMaking);
}

std::shared_ptr<DealReport> DealingHistoryService::find(Handle object) const {
    return std::dynamic_pointer_cast<DealReport>(host().objects().find(object));
}

int DealingHistoryService::reportSymbols(Handle object, int lParam) const {
    const std::shared_ptr<DealReport> report = find(object);
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
    const std::shared_ptr<DealReport> report = find(object);
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

int DealingHistoryService::outputs(Handle object, int lParam) const {
    const std::shared_ptr<DealReport> report = find(object);
    if (!report || !lParam)
        return 1;
    auto &list = *fromWord<coreListCreateData>(lParam);
    const std::vector<mvDataPointArray *> arrays = report->outputs();
    if (list.arrays)
        std::copy_n(arrays.begin(), std::min(std::max(0, int(list.count)), int(arrays.size())), list.arrays);
    list.count = int(arrays.size());
    return 0;
}

} // namespace desk
