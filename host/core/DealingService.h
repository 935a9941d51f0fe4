#pragma once
#include "host/core/Service.h"
#include <QByteArray>
#include <vector>

struct mvdDealAccount;
struct mvdList;

namespace desk {

class EventService;

// "DEALING": one practice account without positions or orders, and its day-off table.
class DealingService : public Service {
public:
    DealingService(Host &host, EventService &events);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

    // Marks a symbol as having its day off (or not) and tells the charts.
    void setDayOff(const QByteArray &symbol, bool dayOff);
    bool isDayOff(const QByteArray &symbol) const;

private:
    struct DayOff {
        QByteArray symbol;
        bool dayOff;
    };
    mvdDealAccount account() const;
    void answerAccounts(mvdList &list) const;
    void answerDayOff(mvdList &list) const;

    EventService &m_events;
    Handle m_interface;
    Handle m_account;
    std::vector<DayOff> m_dayOff;
};

} // namespace desk
