#include "module/GraphModule.h"

#include "chart/GraphWidget.h"
#include "chart/TextStatusBar.h"
#include "module/DateTime.h"
#include "module/HostCalls.h"
#include "module/HostMessages.h"
#include "module/TranslateManager.h"
#include "support/Files.h"
#include "support/Log.h"
#include "support/Skin.h"
#include "support/Texts.h"

#include <algorithm>

CRGraphModule::CRGraphModule()
    : CModule("Velmar.Graph module", 2, 1, 12, "CRGraphModule", "CTranslateGraphic"), m_tradeModule(this),
      m_graphLog(new Log), m_core(this), m_ls(this), m_timer(this),
      m_findDateData(new GraphModule::CFindDateData) {
    fillField(m_info.description, "Chart analysis");
    m_info.category = 124;
}

CRGraphModule::~CRGraphModule() {
    m_textStatusBar.reset();
}

// ---- windows ----

int CRGraphModule::GetGraphWidgetIndex(const CRGraphWidget *widget) const {
    const auto found = std::find(m_widgets.begin(), m_widgets.end(), widget);
    return found == m_widgets.end() ? -1 : static_cast<int>(found - m_widgets.begin());
}

CRGraphWidget *CRGraphModule::KnownWidget(int word) const {
    CRGraphWidget *widget = fromWord<CRGraphWidget>(word);
    return GetGraphWidgetIndex(widget) < 0 ? nullptr : widget;
}

CRGraphWidget *CRGraphModule::GetCurrentWidget() const {
    for (CRGraphWidget *widget : m_widgets) {
        if (widget->m_bCurrent && widget->isVisible())
            return widget;
    }
    return nullptr;
}

void CRGraphModule::DeleteFromWidgetList(void *widget) {
    const auto found = std::find(m_widgets.begin(), m_widgets.end(), widget);
    if (found != m_widgets.end())
        m_widgets.erase(found);
}

// In the middle of a frame a window can only be hidden; it goes when the painting has ended.
void CRGraphModule::DiscardWidget(CRGraphWidget *widget) {
    if (!widget->IsPainting()) {
        delete widget;
        return;
    }
    m_going.erase(std::remove(m_going.begin(), m_going.end(), nullptr), m_going.end());
    m_going.emplace_back(widget);
    widget->GoLater();
}

void CRGraphModule::DeselectAllPrimitives() {
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        CRGraphWidget *widget = m_widgets[i];
        widget->SelectAllPrimitives(false);
        if (GetGraphWidgetIndex(widget) >= 0)
            widget->SelectAllLS(false);
    }
}

// The list is read anew at each step: what a window does can open and close windows.
void CRGraphModule::OnTimerEvent() {
    trace("CRGraphModule::timerEvent start", "|GraphModule|194");
    m_timerStarted = true;
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        CRGraphWidget *widget = m_widgets[i];
        if (widget->m_bHidden)
            continue;
        *GetLog() << logMsgModule << logTrace
                  << "m_bUpdatePrimitivePositions = " << static_cast<int>(widget->m_bUpdatePrimitivePositions)
                  << "|GraphModule|203" << eLogEndLine;
        if (widget->m_bUpdatePrimitivePositions)
            widget->UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
        if (GetGraphWidgetIndex(widget) < 0)
            continue;
        if (widget->m_bNeedUpdate) {
            widget->update();
            widget->m_bNeedUpdate = false;
        }
    }
}

void CRGraphModule::UpdateAllScreenBuffer() {
    trace("CRGraphModule::UpdateAllScreenBuffer start", "|GraphModule|233");
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        if (m_widgets[i]->m_bHidden)
            continue;
        trace("update", "|GraphModule|240");
        m_widgets[i]->update();
    }
    trace("CRGraphModule::UpdateAllScreenBuffer finish", "|GraphModule|243");
}

void CRGraphModule::UpdateAllTradeData() {
    trace("CRGraphModule::UpdateAllTradeData start", "|GraphModule|248");
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        m_widgets[i]->UpdateAllTradeData();
        trace("update", "|GraphModule|254");
        m_widgets[i]->update();
    }
    trace("CRGraphModule::UpdateAllTradeData finish", "|GraphModule|257");
}

void CRGraphModule::UpdateScreenFromTrade() {
    for (std::size_t i = 0; i < m_widgets.size(); ++i) {
        trace("update", "|GraphModule|766");
        m_widgets[i]->update();
    }
}

// ---- host interfaces ----

void *CRGraphModule::GetLSInterface() {
    if (!m_lsInterface)
        m_lsInterface = GetInterfaceByName("LineStudies", "VELMAR", "mvLineStudies");
    return m_lsInterface;
}

void *CRGraphModule::GetTransportInterface() {
    if (!m_transportInterface)
        m_transportInterface = GetInterfaceByName("CANDLE", "VELMAR", "CANDLE_VELMAR");
    return m_transportInterface;
}

void *CRGraphModule::GetIndicatorInterface() {
    return GetInterfaceByName("MVINDICATORS", "VELMAR", "BinIndicators");
}

void *CRGraphModule::GetAutoChartistInterface() {
    return GetInterfaceByName("AUTOCHARTIST", "VELMAR", "AutoChartistPattern");
}

void *CRGraphModule::GetOstrelIndicatorInterface(void *handle) {
    return handle ? GetInterfaceByHandle(handle) : GetInterfaceByName("OSTREL", "VELMAR", "OstrelVelmar");
}

void *CRGraphModule::GetInterfaceByName(const coreNameInterface *names) const {
    return m_core.GetInterface(*names);
}

void *CRGraphModule::GetInterfaceByName(const char *interfaceName, const char *provider,
                                        const char *objectName) const {
    return m_core.GetInterface(interfaceName, provider, objectName);
}

void *CRGraphModule::GetInterfaceByHandle(void *handle) const {
    return HostCalls::interfaceOfObject(handle);
}

QString CRGraphModule::GetUserPath() {
    void *mainWindow = m_tradeModule.GetMainGUIInterface();
    if (HostCalls::hasWorkFolder(mainWindow))
        return GetWorkFolderFromMain(this, mainWindow) + "/";
    return GetPathByFolderType(this, folderUserImages);
}

QString CRGraphModule::GetTemplatePath() {
    void *mainWindow = m_tradeModule.GetMainGUIInterface();
    if (HostCalls::hasWorkFolder(mainWindow))
        return GetWorkFolderFromMain(this, mainWindow) + "/templates";
    return GetPathByFolderType(this, folderTemplates);
}

// ---- events and texts ----

void CRGraphModule::GetEvents() {
    coreEventCreation record = zeroRecord<coreEventCreation>();
    fillField(record.name, "TemplateEventName");
    SendCore(ToHost::CreateEvent, &record, 0);
    m_templateEventId = record.id;
}

void CRGraphModule::SubscribeEvents(const char *name) {
    SubscribeEvent(name);
}

void CRGraphModule::InitDefaultStrings() {
    for (const DefaultText &text : graphDefaultTexts())
        GetTranslateManager()->InsertTranslate(text.id, text.text);
}

// ---- settings of the process ----

void CRGraphModule::SetCrossCursorMode(bool on) {
    HostCalls::storeCrossCursor(m_tradeModule.GetMainGUIInterface(), on ? 1 : 0);
    m_crossCursor = on ? 1 : 0;
    for (std::size_t i = 0; i < m_widgets.size(); ++i)
        m_widgets[i]->ResetCursor();
}

bool CRGraphModule::GetCrossCursorMode() {
    m_crossCursor = HostCalls::readCrossCursor(m_tradeModule.GetMainGUIInterface(), m_crossCursor);
    return m_crossCursor != 0;
}

void CRGraphModule::SetFindDateData(const GraphModule::CFindDateData &data) {
    if (data.IsSaveDateTime())
        *m_findDateData = data;
}

// ---- bid, ask, middle ----

namespace {

bool anyPrimitive(const std::vector<CRGraphWidget *> &widgets) {
    return std::any_of(widgets.begin(), widgets.end(),
                       [](const CRGraphWidget *widget) { return widget->TotalPrimitiveCount() > 0; });
}

int countByType(const std::vector<CRGraphWidget *> &widgets, const char *type) {
    int count = 0;
    for (const CRGraphWidget *widget : widgets)
        count += widget->CountDpaByType(type);
    return count;
}

} // namespace

bool CRGraphModule::NeedToSwitchToMid() const {
    return anyPrimitive(m_widgets) && countByType(m_widgets, "Middle") == 0;
}

bool CRGraphModule::NeedToSwitchToBid() const {
    return anyPrimitive(m_widgets) && countByType(m_widgets, "Ask") + countByType(m_widgets, "Bid") == 0;
}

void CRGraphModule::SwitchToType(const QString &type) {
    // The host can close a window inside: the others still get theirs.
    for (CRGraphWidget *widget : std::vector<CRGraphWidget *>(m_widgets))
        if (GetGraphWidgetIndex(widget) >= 0)
            widget->ResetType(type);
}
