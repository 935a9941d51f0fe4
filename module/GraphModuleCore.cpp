// Messages of the core: start and stop, data, work stop, events, global parameters.
#include "module/GraphModule.h"

#include "chart/GraphWidget.h"
#include "chart/TextStatusBar.h"
#include "module/HostMessages.h"
#include "support/Log.h"
#include "support/Skin.h"

#include <new>

namespace {

// A list whose elements would not fit into the address space.
constexpr int maxDayOffRecords = 69206016;

coreNameInterfaceRequest ownInterface() {
    coreNameInterfaceRequest request = zeroRecord<coreNameInterfaceRequest>();
    fillField(request.names.nameIntreface, "Windowcomponent");
    fillField(request.names.nameProvider, "VELMAR");
    fillField(request.names.nameObject, "Graphics Unique Name");
    return request;
}

} // namespace

// ---- start and stop ----

int CRGraphModule::CoreCreateInterface(int, int) {
    coreNameInterfaceRequest request = ownInterface();
    request.mode = static_cast<Word>(toWord(m_componentHandle));
    request.result = static_cast<Word>(toWord(static_cast<CModule *>(this)));
    SendCore(ToHost::RegisterInterface, &request, 0);
    m_interfaceHandle = fromWord<void>(static_cast<Word>(request.result));
    InitDefaultStrings();
    m_tradeModule.Create();
    m_tradeModule.InitDefaultStrings();
    return 0;
}

int CRGraphModule::CoreStartModule(int, int) {
    trace("Starting Graph module", "|GraphModule|938");
    m_tradeModule.Start();
    SubscribeEvents("SkinEventData");
    SubscribeEvents("Velmar Game Mode");
    SubscribeEvents("Velmar Competition Mode");
    GetEvents();
    m_skin.reset(new CSkin(this));
    return 0;
}

// The list shrinks under the index, so every second window stays: that is what hosts rely on.
int CRGraphModule::CoreStopModule(int, int) {
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        CRGraphWidget *widget = m_widgets[i];
        m_widgets.erase(m_widgets.begin() + static_cast<std::ptrdiff_t>(i));
        DiscardWidget(widget);
    }
    // The library may be unloaded before the event loop gets to those that are on their way.
    for (const QPointer<CRGraphWidget> &widget : std::vector<QPointer<CRGraphWidget>>(m_going)) {
        if (widget && !widget->IsPainting())
            delete widget.data();
    }
    return 0;
}

int CRGraphModule::CoreSystemIsLoading(int wParam, int) {
    trace("CORE_SYSTEM_IS_LOADING", "|GraphModule|1082");
    const Word *loading = fromWord<const Word>(wParam);
    if (!loading)
        return 1;
    if (*loading != 0)
        return 0;
    for (std::size_t i = 0; i < m_widgets.size(); ++i)
        m_widgets[i]->OnLoaded();
    return 0;
}

int CRGraphModule::CoreMainwindowIsLoading(int, int) {
    m_mainWindowLoaded = true;
    trace("CORE_MAINWINDOW_ISLOADING", "|GraphModule|1140");
    m_textStatusBar.reset(new CTextStatusBar(this));
    return 0;
}

int CRGraphModule::CoreMainwindowIsClose(int, int) {
    m_mainWindowLoaded = false;
    return 0;
}

// ---- data ----

int CRGraphModule::CoreUpdateDpa(int wParam, int) {
    trace("CRGraphModule::CoreUpdateDpa start", "|GraphModule|988");
    coreCoreUpdateDpaData *data = fromWord<coreCoreUpdateDpaData>(wParam);
    if (!data)
        return 1;
    CRGraphWidget *widget = data->widget;
    if (GetGraphWidgetIndex(widget) < 0)
        return 1;
    widget->UpdateIndicatorPrimitives(data);
    if (GetGraphWidgetIndex(widget) < 0)
        return 0;
    widget->UpdateTitle();
    if (GetGraphWidgetIndex(widget) < 0)
        return 0;
    widget->m_bNeedUpdate = true;
    widget->update();
    return 0;
}

int CRGraphModule::CoreRebuildDpa(int wParam, int lParam) {
    trace("CRGraphModule::CoreRebuildDpa start", "|GraphModule|1114");
    CRGraphWidget *widget = KnownWidget(wParam);
    coreRebuildDpa *record = fromWord<coreRebuildDpa>(lParam);
    if (!widget || !record)
        return 1;
    widget->ReBuildIndicator(record);
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->UpdateTitle();
    trace("CRGraphModule::CoreRebuildDpa finish", "|GraphModule|1121");
    return 0;
}

int CRGraphModule::CoreRenameDpa(int wParam, int lParam) {
    trace("CRGraphModule::CoreRenameDpa start", "|GraphModule|1127");
    CRGraphWidget *widget = KnownWidget(wParam);
    void *record = fromWord<void>(lParam);
    if (!widget || !record)
        return 1;
    widget->RenameIndicator(record);
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->UpdateTitle();
    trace("CRGraphModule::CoreRenameDpa finish", "|GraphModule|1133");
    return 0;
}

// ---- work stop: only the one who stopped a window can start it again ----

int CRGraphModule::CoreStopWork(int wParam, int lParam) {
    CRGraphWidget *widget = KnownWidget(wParam);
    if (!widget)
        return 1;
    if (widget->m_workStopOwner == 0) {
        widget->m_bWorkStopped = true;
        widget->m_workStopOwner = lParam;
    }
    return 0;
}

int CRGraphModule::CoreStartWork(int wParam, int lParam) {
    CRGraphWidget *widget = KnownWidget(wParam);
    if (!widget)
        return 1;
    if (widget->m_workStopOwner == lParam) {
        widget->m_bWorkStopped = false;
        widget->m_workStopOwner = 0;
    }
    return 0;
}

// ---- events ----

int CRGraphModule::CoreReceiveEvent(int wParam, int) {
    trace("CORE_RECIVE_EVENT", "|GraphModule|1170");
    MVEvent *event = fromWord<MVEvent>(wParam);
    if (!event || event->interfaceHandle != static_cast<Word>(toWord(m_interfaceHandle)))
        return 1;
    if (event->subscriber == &m_tradeModule) {
        m_hasTradeData = m_tradeModule.Update(event);
        for (std::size_t i = 0; i < m_widgets.size(); ++i) {
            if (!m_widgets[i]->m_bHidden)
                m_widgets[i]->UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
        }
    }
    if (event->code == EventCode::DayOffChanged)
        UpdateDayoffStatus(event);
    if (event->subscriber != static_cast<CModule *>(this))
        return 0;
    switch (event->code) {
    case EventCode::GameModeOn:
        SwitchMode(true, false);
        return 0;
    case EventCode::CompetitionModeOn:
        SwitchMode(false, true);
        return 0;
    case EventCode::GameModeOff:
    case EventCode::CompetitionModeOff:
        SwitchMode(false, false);
        return 0;
    case EventCode::SkinChanged:
        return ChangeSkin(static_cast<const unsigned short *>(event->data));
    default:
        return 0;
    }
}

void CRGraphModule::SwitchMode(bool game, bool competition) {
    m_gameMode = game;
    m_competitionMode = competition;
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        CRGraphWidget *widget = m_widgets[i];
        widget->SwitchToGameMode(game || competition);
        if (GetGraphWidgetIndex(widget) >= 0 && !widget->m_bWorkStopped)
            widget->update();
    }
}

// A failure leaves the new skin in place as far as it was read.
int CRGraphModule::ChangeSkin(const unsigned short *name) {
    if (!name)
        return 1;
    try {
        m_skin.reset(new CSkin(this));
        m_skin->LoadSkin(readEndedText(name));
        for (std::size_t i = 0; i < m_widgets.size(); ++i) {
            CRGraphWidget *widget = m_widgets[i];
            widget->LoadSkinData();
            if (GetGraphWidgetIndex(widget) >= 0)
                widget->UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
            if (GetGraphWidgetIndex(widget) >= 0)
                widget->update();
        }
    } catch (...) {
        return 1;
    }
    return 0;
}

int CRGraphModule::CoreChangeGlobalParameters(int wParam, int) {
    const coreGlobalParameters *parameters = fromWord<const coreGlobalParameters>(wParam);
    if (!parameters)
        return 1;
    const int change = parameters->change;
    if (parameters->group != 1)
        return 0;
    if (change == 1) {
        InitDefaultStrings();
        m_tradeModule.InitDefaultStrings();
    }
    if (change == 0 || change == 1)
        m_tradeModule.InitStrings();
    return 0;
}

// ---- day-off table ----

bool CRGraphModule::IsDayOff(const QString &symbol) const {
    const auto found = m_dayOff.find(symbol);
    return found != m_dayOff.end() && found->second;
}

void CRGraphModule::UpdateDayOffStatusForDealing(void *target, void *account, bool clear) {
    mvdList list = zeroRecord<mvdList>();
    Send(target, ToHost::DayOffCount, account, &list);
    const int count = list.count;
    if (count < 1)
        return;
    if (count > maxDayOffRecords)
        throw std::bad_alloc();
    std::vector<mvdDayOff> records(static_cast<std::size_t>(count), zeroRecord<mvdDayOff>());
    list.records = records.data();
    Send(target, ToHost::DayOffSymbols, account, &list);
    for (mvdDayOff &record : records) {
        if (clear)
            record.dayOff = 0;
        m_dayOff[fieldText(record.symbol)] = record.dayOff != 0;
    }
    for (std::size_t i = 0; i < m_widgets.size(); ++i)
        m_widgets[i]->update();
}

void CRGraphModule::UpdateDayoffStatus(MVEvent *event) {
    if (event->interfaceHandle != static_cast<Word>(toWord(m_interfaceHandle)) ||
        event->subscriber != &m_tradeModule || event->size <= 0 || !event->data)
        return;
    UpdateDayoffStatusForAccount(static_cast<mvdDealAccount *>(event->data), false);
}

void CRGraphModule::UpdateDayoffStatusForAccount(mvdDealAccount *account, bool clear) {
    if (account)
        UpdateDayOffStatusForDealing(fromWord<void>(static_cast<Word>(account->interfaceHandle)),
                                     fromWord<void>(static_cast<Word>(account->account)), clear);
}
