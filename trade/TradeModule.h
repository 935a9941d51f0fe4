#pragma once
// The chart's side of the trading overlay: the dealing interfaces of the host and their events.
#include "dialogs/PropertyHead.h"
#include "module/HostRecords.h"

#include <vector>

class CRGraphModule;

class CTradeModule : public CPropertyHead {
public:
    explicit CTradeModule(CRGraphModule *module);
    ~CTradeModule() override;

    int Create();
    void Start(); // once: interfaces, the subscription of "DealingEvent"
    void InitStrings();
    void InitDefaultStrings();

    void *GetMainGUIInterface();
    void GetDealingInterface();
    void GetInterfacesList();
    void SubscribeEvents();
    bool Update(MVEvent *event);    // an event of the dealing side; whether there are accounts
    bool GetTradeData(bool notify); // whether there are accounts
    const std::vector<void *> &Interfaces() const { return m_interfaces; }

private:
    CRGraphModule *m_module;
    void *m_mainInterface = nullptr;
    bool m_started = false;
    std::vector<void *> m_interfaces;
};
