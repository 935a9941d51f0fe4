#pragma once
// The playing host around the module that is linked into this program: a test sees both sides.
#include "chart/GraphWidget.h"
#include "module/GraphModule.h"
#include "tests/support/FakeHost.h"

extern "C" {
int GetModuleInfo(MODULE_INFO *info);
void Initialize(HostFunction send, HostFunction second, void *coreHandle, void *componentHandle);
int ReceiveMessage(void *sender, unsigned int message, int wParam, int lParam);
}

struct LinkedHost : FakeHost {
    LinkedHost()
        : FakeHost(Entry{&::GetModuleInfo, &::Initialize, &::ReceiveMessage, &module,
                         [] { module.OnTimerEvent(); }}) {
        // The dealing side is looked for once in the life of a module, which here sees many hosts.
        if (!subscriberOf("DealingEvent")) {
            module.GetTradeModule()->SubscribeEvents();
            module.GetTradeModule()->GetInterfacesList();
        }
    }
    // The linked module outlives the windows that a stop leaves.
    ~LinkedHost() {
        close();
        module.m_widgets.clear();
    }
    static CRGraphWidget &window(const Chart &chart) { return *chart.handle; }
    QStringList logTexts() const {
        QStringList texts;
        for (const LogLine &line : log)
            texts.append(line.text);
        return texts;
    }
};
