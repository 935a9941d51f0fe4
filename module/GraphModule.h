#pragma once
// The chart module: owns all chart windows, takes every host message, and runs the one timer.
#include "module/FindDateData.h"
#include "module/Interfaces.h"
#include "module/Module.h"
#include "trade/TradeModule.h"

#include <QObject>
#include <QPointer>
#include <map>
#include <memory>
#include <vector>

class CRGraphModule;
class CRGraphWidget;
class CSkin;
class CTextStatusBar;

/// Ticks once a second from the moment the library is loaded.
class CGraphTimer : public QObject {
    Q_OBJECT

public:
    explicit CGraphTimer(CRGraphModule *module);
    void EnsureStarted(); // for a library that was loaded ahead of the application

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    CRGraphModule *m_module;
    int m_timerId = 0;
};

class CRGraphModule : public CModule {
public:
    using Handler = int (CRGraphModule::*)(int wParam, int lParam);
    struct Row {
        unsigned number;
        Handler handler; // null: answered like an unknown message
    };
    struct RowTable {
        const Row *rows;
        int count;
    };

    CRGraphModule();
    ~CRGraphModule() override;

    int ReceiveMessageWrap(void *sender, unsigned int message, int wParam, int lParam) override;
    static RowTable Rows(); // the message table

    // ---- windows ----
    int GetGraphWidgetIndex(const CRGraphWidget *widget) const; // -1 for an unknown one
    CRGraphWidget *GetCurrentWidget() const;
    void DeleteFromWidgetList(void *widget);
    void DiscardWidget(CRGraphWidget *widget); // deletes what is out of the list, at once or when it can go
    void DeselectAllPrimitives();
    const std::vector<CRGraphWidget *> &Widgets() const { return m_widgets; }
    void OnTimerEvent();
    void UpdateAllScreenBuffer();
    void UpdateAllTradeData();
    void UpdateScreenFromTrade();

    // ---- host interfaces ----
    void *GetLSInterface();
    void *GetTransportInterface();
    void *GetIndicatorInterface();
    void *GetAutoChartistInterface();
    void *GetOstrelIndicatorInterface(void *handle);
    void *GetInterfaceByName(const coreNameInterface *names) const;
    void *GetInterfaceByName(const char *interfaceName, const char *provider, const char *objectName) const;
    void *GetInterfaceByHandle(void *handle) const;
    QString GetUserPath();
    QString GetTemplatePath(); // the folder of templates
    Interface::Core &GetCore() { return m_core; }
    Interface::Ls &GetLs() { return m_ls; }

    // ---- events ----
    void GetEvents();
    void SubscribeEvents(const char *name);
    void InitDefaultStrings();

    // ---- settings of the process ----
    bool IsGameMode() const { return m_gameMode; }
    bool IsCompetitionMode() const { return m_competitionMode; }
    bool IsCrossCursorMode() const { return m_crossCursor != 0; } // as stored, without asking the host
    void SetCrossCursorMode(bool on);
    bool GetCrossCursorMode(); // asks the host
    void SetFindDateData(const GraphModule::CFindDateData &data);
    const GraphModule::CFindDateData &GetFindDateData() const { return *m_findDateData; }
    CSkin *GetSkin() const { return m_skin.get(); }
    CTradeModule *GetTradeModule() { return &m_tradeModule; }
    CTextStatusBar *GetTextStatusBar() const { return m_textStatusBar.get(); }

    // ---- bid, ask, middle; day-off table ----
    bool NeedToSwitchToMid() const;
    bool NeedToSwitchToBid() const;
    void SwitchToType(const QString &type);
    bool IsDayOff(const QString &symbol) const;
    void UpdateDayOffStatusForDealing(void *target, void *account, bool clear);
    void UpdateDayoffStatus(MVEvent *event);
    void UpdateDayoffStatusForAccount(mvdDealAccount *account, bool clear);

    // ---- handlers: core (module/GraphModuleCore.cpp) ----
    int CoreStartModule(int wParam, int lParam);
    int CoreStopModule(int wParam, int lParam);
    int CoreCreateInterface(int wParam, int lParam);
    int CoreUpdateDpa(int wParam, int lParam);
    int CoreStopWork(int wParam, int lParam);
    int CoreStartWork(int wParam, int lParam);
    int CoreSystemIsLoading(int wParam, int lParam);
    int CoreMainwindowIsLoading(int wParam, int lParam);
    int CoreMainwindowIsClose(int wParam, int lParam);
    int CoreReceiveEvent(int wParam, int lParam);
    int CoreChangeGlobalParameters(int wParam, int lParam);
    int CoreRebuildDpa(int wParam, int lParam);
    int CoreRenameDpa(int wParam, int lParam);

    // ---- handlers: main window (module/GraphModuleMainWindow.cpp) ----
    int MwiChangePanelStatus(int wParam, int lParam);
    int MwiConvertToType(int wParam, int lParam);
    int MwiNeedToConvert(int wParam, int lParam);
    int MwiZoomIn(int wParam, int lParam);
    int MwiZoomOut(int wParam, int lParam);
    int MwiZoomChange(int wParam, int lParam);
    int MwiShowLastCandleIndicator(int wParam, int lParam);
    int MwiShowCrossCursor(int wParam, int lParam);

    // ---- handlers: window component (module/GraphModuleComponent.cpp) ----
    int MvWindowComponentGetName(int wParam, int lParam);
    int MvWindowComponentCreate(int wParam, int lParam);
    int MvWindowComponentDelete(int wParam, int lParam);
    int MvWindowComponentResize(int wParam, int lParam);
    int MvWindowComponentAddDpa(int wParam, int lParam);
    int MvWindowComponentAddMdpa(int wParam, int lParam);
    int MvWindowComponentTakeFocus(int wParam, int lParam);
    int MvWindowComponentShow(int wParam, int lParam);
    int MvWindowComponentGetuname(int wParam, int lParam);
    int MvWindowComponentGetUnameData(int wParam, int lParam);
    int MvWindowComponentSelectObj(int wParam, int lParam);
    int MvWindowComponentGetOwnerForObj(int wParam, int lParam);
    int MvWindowComponentGetCaption(int wParam, int lParam);
    int PropertyChangeData(int wParam, int lParam);
    int DhOpenReport(int wParam, int lParam);

    void *m_transportInterface = nullptr;
    void *m_lsInterface = nullptr;
    Word m_templateEventId = 0;
    std::vector<CRGraphWidget *> m_widgets; // in order of creation; owned
    std::vector<QPointer<CRGraphWidget>> m_going; // out of the list, and about to be deleted
    bool m_hasTradeData = false;
    bool m_drawSymbolImages = false; // the pane shows a picture named after its symbol
    bool m_timerStarted = false;
    bool m_gameMode = false;
    bool m_competitionMode = false;
    Word m_crossCursor = 0;
    bool m_mainWindowLoaded = false;
    std::unique_ptr<CTextStatusBar> m_textStatusBar;
    std::unique_ptr<CSkin> m_skin;
    CTradeModule m_tradeModule;
    std::unique_ptr<Log> m_graphLog;
    Interface::Core m_core;
    Interface::Ls m_ls;
    bool m_switchToCandle = true;
    bool m_showHistory = true;
    CGraphTimer m_timer;
    std::unique_ptr<GraphModule::CFindDateData> m_findDateData;
    std::map<QString, bool> m_dayOff;

private:
    int Dispatch(unsigned int message, int wParam, int lParam);
    int ChangeSkin(const unsigned short *name);
    void SwitchMode(bool game, bool competition);
    bool ApplyTemplate(CRGraphWidget *widget, const mvwcDpaItem &item);
    bool AddIndicatorItem(CRGraphWidget *widget, mvwcDpaItem &item);
    CRGraphWidget *KnownWidget(int word) const; // null for an unknown one
};

extern __attribute__((visibility("default"))) CRGraphModule module;
