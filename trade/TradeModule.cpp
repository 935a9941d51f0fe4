#include "trade/TradeModule.h"

#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "module/HostMessages.h"
#include "module/TranslateManager.h"
#include "support/Texts.h"

CTradeModule::CTradeModule(CRGraphModule *module) : m_module(module) {}

CTradeModule::~CTradeModule() = default;

// An empty page that names its owner.
int CTradeModule::Create() {
    CORE_OBJECT_SYSTEM system = zeroRecord<CORE_OBJECT_SYSTEM>();
    system.m_if = static_cast<Word>(toWord(m_module->m_interfaceHandle));
    system.m_object = static_cast<Word>(toWord(this));
    ReInicDatePage(QString(), QString(), QString(), system);
    return 0;
}

void CTradeModule::Start() {
    if (m_started)
        return;
    GetDealingInterface();
    GetMainGUIInterface();
    SubscribeEvents();
    InitStrings();
    m_started = true;
}

void CTradeModule::InitStrings() {
    ReNameDatePage(m_module->tr("G0089"));
}

void CTradeModule::InitDefaultStrings() {
    for (const DefaultText &text : tradeDefaultTexts())
        m_module->GetTranslateManager()->InsertTranslate(text.id, text.text);
}

void *CTradeModule::GetMainGUIInterface() {
    if (!m_mainInterface)
        m_mainInterface = m_module->GetInterfaceByName("MAINWINDOW", "VELMAR", nullptr);
    return m_mainInterface;
}

void CTradeModule::GetDealingInterface() {
    GetInterfacesList();
}

void CTradeModule::GetInterfacesList() {
    m_interfaces.clear();
    m_interfaces = HostCalls::findInterfaces("DEALING");
}

void CTradeModule::SubscribeEvents() {
    coreEventSubscription record = zeroRecord<coreEventSubscription>();
    fillField(record.name, "DealingEvent");
    record.interfaceHandle = static_cast<Word>(toWord(m_module->m_interfaceHandle));
    record.subscriber = this;
    record.filter = -1;
    m_module->SendCore(ToHost::SubscribeEvent, &record, 0);
}

// An account that comes or goes brings its day-off table along; without its record it is ignored.
bool CTradeModule::Update(MVEvent *event) {
    const bool connected = event->code == EventCode::AccountsConnected;
    bool accounts = m_module->m_hasTradeData;
    if (connected || event->code == EventCode::AccountsDisconnected) {
        if (event->size <= 0 || !event->data)
            return accounts;
        accounts = GetTradeData(connected);
        m_module->UpdateDayoffStatusForAccount(static_cast<mvdDealAccount *>(event->data),
                                               !connected && !accounts);
    }
    m_module->UpdateAllTradeData();
    return accounts;
}

// No accounts are kept, so there is never anything to draw.
bool CTradeModule::GetTradeData(bool) {
    return false;
}
