#include "host/core/DealingService.h"
#include "host/core/EventService.h"
#include "host/core/Host.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

DealingService::DealingService(Host &host, EventService &events)
    : Service(host), m_events(events), m_interface(registerInterface("DEALING", "VELMAR", "Practice")),
      m_account(host.handles().next()), m_dayOff{{"USD/CHF", false}} {
    take(m_interface,
         {ToHost::AccountCount, ToHost::Accounts, ToHost::PositionCount, ToHost::OrderCount,
          ToHost::Positions, ToHost::Orders, ToHost::ChangeOrder, ToHost::ChangePosition,
          ToHost::AccountLeavesGame, ToHost::DayOffCount, ToHost::DayOffSymbols, ToHost::AccountSettings});
}

bool DealingService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    if (message == ToHost::AccountCount || message == ToHost::Accounts) {
        if (!wParam)
            return false;
        if (message == ToHost::AccountCount)
            *fromWord<Word>(wParam) = 1;
        else
            answerAccounts(*fromWord<mvdList>(wParam));
        return true;
    }
    if (message == ToHost::AccountLeavesGame)
        return true;
    if (message == ToHost::ChangeOrder || message == ToHost::ChangePosition) {
        result = 1; // there is nothing to change
        return true;
    }
    if (Handle(wParam) != m_account || !lParam) {
        result = 1;
        return true;
    }
    switch (message) {
    case ToHost::PositionCount:
    case ToHost::OrderCount:
        *fromWord<Word>(lParam) = 0;
        return true;
    case ToHost::Positions:
    case ToHost::Orders:
        fromWord<mvdList>(lParam)->count = 0;
        return true;
    case ToHost::DayOffCount:
        fromWord<mvdList>(lParam)->count = int(m_dayOff.size());
        return true;
    case ToHost::DayOffSymbols:
        answerDayOff(*fromWord<mvdList>(lParam));
        return true;
    case ToHost::AccountSettings: {
        auto &settings = *fromWord<mvdAccountProperty>(lParam);
        settings = zeroRecord<mvdAccountProperty>();
        settings.showInLots = 1;
        settings.lotSize = 100000;
        return true;
    }
    default:
        return false;
    }
}

mvdDealAccount DealingService::account() const {
    auto record = zeroRecord<mvdDealAccount>();
    record.interfaceHandle = m_interface;
    record.account = m_account;
    fillField(record.name, QByteArray("Practice"));
    return record;
}

void DealingService::answerAccounts(mvdList &list) const {
    const int count = std::min(1, int(list.count));
    if (count == 1 && list.records) {
        const mvdDealAccount record = account();
        std::memcpy(list.records, &record, sizeof record);
    }
    list.count = std::max(0, count);
}

void DealingService::answerDayOff(mvdList &list) const {
    const int count = std::min(std::max(0, int(list.count)), int(m_dayOff.size()));
    auto *records = static_cast<mvdDayOff *>(list.records);
    for (int i = 0; records && i < count; ++i) {
        records[i] = zeroRecord<mvdDayOff>();
        fillText(records[i].symbol, int(sizeof records[i].symbol) - 1, m_dayOff[i].symbol.constData(),
                 m_dayOff[i].symbol.size());
        records[i].dayOff = m_dayOff[i].dayOff ? 1 : 0;
    }
    list.count = count;
}

bool DealingService::isDayOff(const QByteArray &symbol) const {
    return std::any_of(m_dayOff.begin(), m_dayOff.end(),
                       [&symbol](const DayOff &row) { return row.symbol == symbol && row.dayOff; });
}

void DealingService::setDayOff(const QByteArray &symbol, bool dayOff) {
    const auto row = std::find_if(m_dayOff.begin(), m_dayOff.end(),
                                  [&symbol](const DayOff &candidate) { return candidate.symbol == symbol; });
    if (row != m_dayOff.end())
        row->dayOff = dayOff;
    else
        m_dayOff.push_back({symbol, dayOff});
    const mvdDealAccount record = account();
    m_events.emitEvent("DealingEvent", EventCode::DayOffChanged, &record, sizeof record);
}

} // namespace desk
