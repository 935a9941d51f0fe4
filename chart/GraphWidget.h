#pragma once

#include "chart/FrameCache.h"
#include "chart/ScaleWidth.h"
#include "chart/SimpleGuiWidget.h"
#include "data/ScreenDataPoints.h"
#include "module/HostRecords.h"
#include "objects/IndicatorCatalogue.h"
#include "support/Fonts.h"

#include <QColor>
#include <QPoint>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <map>
#include <set>
#include <vector>

template <class Widget>
class CMvLocator;
class CPrimitiveLink;
class CRGraphArea;
class CRGraphLayer;
class CRGraphModule;
class CRIndicator;
class CRLineStudy;
class CRPrimitive;
class CRTimeScale;
enum class KeyCommand;
class CSelectPrimitiveWidget;
class CTimeScrollBar;
class CToolButton;
class CTradeOrder;
class QAbstractButton;
class QAction;
class QMenu;
class QSlider;
class QToolButton;

// A chart window could not be made.
class CRGraphWidgetExeption : public std::exception {
public:
    explicit CRGraphWidgetExeption(std::string text) : m_text(std::move(text)) {}
    const char *what() const noexcept override { return m_text.c_str(); }

private:
    std::string m_text;
};

// One chart window: a stack of panes over one time scale and scroll bar, and the series in them.
class CRGraphWidget : public CSimpleGUIWidget {
    Q_OBJECT

public:
    // ---- life (chart/GraphWidget.cpp) ----
    CRGraphWidget(CRGraphModule *module, void *handle, QWidget *parent, QWidget *toolBarParent, const char *name,
                  Qt::WindowFlags flags);
    ~CRGraphWidget() override;
    CRGraphModule *Module() const { return m_module; }
    void LoadSkinData();
    void OnLoaded();
    void Terminate();
    void ChangeDesktop();                      // tells the host that the workspace changed
    void UndoMilestone(const QString &text);   // names a user's action to the host
    QString UpdateTitle();                     // the caption, which is also sent to the host
    void TuneUpGraphToolBar();
    void UpdatePrimitiveCount();
    void UpdatePrimitiveCountState();
    void SetAutoScroll(bool on);
    void SwitchToGameMode(bool on);
    void OnPaneleStatusChanged(int kind, int item);
    int SendMessageCore(unsigned message, int a, int b);
    int SendMessageWindow(unsigned message, int a, int b); // to the host's main window

    // ---- host widgets, each null when the host has none ----
    QSlider *GetZoomSlider();
    QToolButton *GetToolButton(int id);
    QToolButton *GetZoomInButton();
    QToolButton *GetZoomOutButton();
    QToolButton *GetLastCandleIndicatorButton();
    QToolButton *GetInformationBoxButton();

    // ---- property page (chart/GraphWidgetProperties.cpp) ----
    int ShowPropertyPage() override;
    int ApplyPropertyPage(PROPERTY_CHANGE *change) override;
    void UpdatePropertyPage(); // the members' values into the page

    // ---- panes and layers (chart/GraphWidgetAreas.cpp) ----
    CRGraphArea *CreateFirstArea(CRGraphWidget *widget);
    int CreateArea(int index);
    int CreateLayer(int area);
    void AddGraphArea(CRGraphArea *area, int index); // -1 appends; takes ownership
    void DeleteGraphArea(int index);
    void ResizeArea(CRGraphArea *area, float height); // height is a share of the chart's height
    void ClearAll();
    void DeleteUnusedLayers();
    void DeleteLayerPrimitives(CRGraphLayer *layer);
    void SetAreasRects(const QRect &rect);
    int GetAreaCount() const { return static_cast<int>(m_areas.size()); }
    CRGraphArea *GetArea(int index) const; // null out of range
    int FindArea(const CRGraphArea *area) const;
    CRGraphLayer *GetPrimitiveLayer(const CRPrimitive *primitive) const;
    CRGraphArea *GetPrimitiveArea(const CRPrimitive *primitive) const;
    CRGraphLayer *GetAnyPrimitiveLayer() const;
    CRPrimitive *GetAnyPrimitive() const;
    void GetLayerPrimitives(const CRGraphLayer *layer, std::vector<CRPrimitive *> *out) const;
    void GetLayerPrimitiveLinks(const CRGraphLayer *layer, std::vector<CPrimitiveLink> *out) const;
    void GetAllPrimitives(std::vector<CRPrimitive *> *out, int kind = 0) const;
    void GetSelectedPrimitives(std::vector<CRPrimitive *> *out) const;
    bool FindWidgetPrimitive(const CRPrimitive *primitive) const;

    // ---- going while a frame is under way ----
    bool IsPainting() const { return m_nPainting > 0; }
    void GoLater(); // out of sight at once, deleted when its caller has returned

    // ---- update and paint (chart/GraphWidgetFrame.cpp, chart/GraphWidgetPositions.cpp) ----
    void UpdatePrimitivePositions(const ScreenDataPointsUpdate &, bool force);
    void UpdatePrimitivePositions(const ScreenDataPointsNotUpdate &, bool force);
    void UpdateScaleWidth();
    void UpdateIndicatorPrimitives(coreCoreUpdateDpaData *data);
    void RequestLastData();
    void Draw(QPainter &painter, bool forced);
    void DrawAll(QPainter &painter, bool forced);
    void DrawLast(QPainter &painter);
    void DrawZoomChange(QPainter &painter);
    void DrawMovingLS();
    void RecomputeChartRect(); // m_chartRect from the sizes of widget, scroll bar and time scale
    int FrameCount() const { return m_nFrameCount; }

    // ---- overlay (chart/GraphWidgetOverlay.cpp): the frame is painted apart from what follows the mouse ----
    void PaintWindow(QPainter &painter); // the frame, or the kept picture of it, and the overlay over it
    void DrawOverlay(QPainter &painter); // cross, rubber band; the last steps of a frame
    bool HasOverlay() const;
    QRegion OverlayRegion() const; // the pixels that the overlay takes as it is now
    void RepaintOverlay(); // repaint() where nothing but the overlay has changed
    void HoldFrame();      // the frame as it is now stays under a scale drag
    CRGraphLayer *ScaleDragLayer() const;

    // ---- zoom and scroll (chart/GraphWidgetZoom.cpp) ----
    void CreateScrollBar();
    void SetScrollbarValues(bool toEnd, bool force);
    void ZoomIn(bool undo);
    void ZoomOut(bool undo);
    void ChangeZoom(int value);
    void OnChangeZoom(int value); // value is minus the wanted number of positions
    void OnZoomSliderPressed();
    void Scroll(int value);
    void MoveGraphics2Autopos() const;
    long IncDate(int count, int dateType, long timeSec) const;
    bool IsLastCandleOnScreen() const;
    long GetCandlesLastTime() const;

    // ---- input (objects/GraphWidgetInput.cpp and neighbours) ----
    QPoint CursorPos() const; // the mouse in widget pixels, also between its events
    void RefreshPropertyPage(); // the members' values into the page, which is shown anew when it is open
    void ResetCursor();
    void SelectAllPrimitives(bool on);
    void SelectAllLS(bool) {} // there is nothing to select before a chart can hold line studies
    void RemoveMultipleSelect(void *except);
    void RemoveMultipleAreasSelect(CRGraphArea *area, bool keepExtended);
    void CancelCreatingLS();
    bool IsMouseModeActive() const; // any mode of the mouse, the rubber band included
    bool IsMovingOrCreatingLS() const { return m_movingLS || m_creatingLS; }
    int IndexUnderCursor(int x) const; // position on the time axis
    bool IsArmed(mwiStateLsButton *state = nullptr) const; // asks the host; never cached

    // ---- read-outs (chart/Locator.cpp, chart/CrossCursor.cpp, chart/HitTest.cpp) ----
    void FormLocatorMessage();
    void ShowLocator(); // the locator's lines to the host, when the cursor is over the chart
    void UpdateCrossCursor();
    void DrawCrossCursor(QPainter &painter);
    QString GetToolTipInfo(const QPoint &point);

    // ---- instruments (objects/GraphWidgetInstruments.cpp and neighbours) ----
    void *AddPrimaryPrimitive(unsigned short *symbol, char *dataType, namePeriod period, char *provider, int p5,
                              void *handle);
    void *CreateInstrument(void *iface, CRGraphLayer *layer, const unsigned short *symbol, const char *dataType,
                           namePeriod period, int p6, coreSzNode *node, void *handle);
    void *AddSecondaryPrimitive(const unsigned short *name, void *iface, CRPrimitive *base, void *handle);
    CRIndicator *AddIndicator(void *handle);
    CRIndicator *AddIndicator(CRIndicator &indicator); // appends a copy
    bool HasIndicator(const CRIndicator *indicator) const;
    int TotalPrimitiveCount() const; // of all indicators, hidden lines too
    void GetCurrentInstrumentList(std::vector<CRPrimitive *> *list);
    int FindSimilarPrimitives(const CRPrimitive *primitive, std::vector<CRPrimitive *> *out);
    int CountDpaByType(const QString &type) const;
    void ResetType(const QString &type);
    void ResetPeriods();
    void RemovePrimitive(mvDataPointArray *array);
    void RemovePrimitive(CRPrimitive *primitive);
    void DeleteObjects();
    void GetSingleInstrumentName(mvwcNameDataComponent *out) const;
    bool GetBaseData(QMenu *menu);
    void SelectPrimitive(const QString &title, const QString &name, void *iface, const QString &baseName,
                         const coreNameInstrument *preset);
    CSelectPrimitiveWidget *SourcePicker() const { return m_selectPrimitive; }
    void UpdateAllTradeData();

    // ---- indicators (objects/GraphWidgetIndicators.cpp and neighbours) ----
    void *CreateIndicator(void *iface, const unsigned short *name, const CRPrimitive *base, long mask,
                          coreSzNode *node, void *handle, bool cleanLayers);
    void *CreateIndicatorPasteFromUndo(void *iface, const unsigned short *name, const CRPrimitive *base, long mask,
                                       coreSzNode *node, void *handle, bool cleanLayers);
    void *CreateIndicatorFromMenu(const QString &name, void *iface);
    void *AddVelmarIndicator(const char *name);
    void *CreateDealingIndicator(coreDemandsIndicator *record);
    void ReBuildIndicator(coreRebuildDpa *record);
    void RenameIndicator(void *record); // first word: the handle; the new identity follows
    void CreateGlobalIndicatorsList();
    void AddIndicatorMenu(QMenu *menu); // the five category menus
    CRIndicator *FindIndicator(void *handle) const;
    CRPrimitive *FindIndicatorPrimitive(void *handle, int lineIndex) const;
    void SelectIndicator(CRPrimitive *primitive, bool on);
    void SelectIndicatorOnly(CRPrimitive *primitive, bool on);
    void RemoveIndicator(int index);
    void RemoveIndicator(CRIndicator *indicator);
    void RemoveIndicatorFromList(int index);
    void RemoveIndicatorFromList(CRIndicator *indicator);
    void SubscribeIndicator(void *handle);
    void UnsubscribeIndicator(void *handle);
    void CheckUnsubscribeIndicatorPrimitive(CRPrimitive *primitive);

public slots:
    void update();  // as QWidget's; the kept picture of the frame is stale from here on
    void repaint();
    void OnBnClickedAddGraphMenu();
    void OnBnClickedSelectMenu();
    void OnBnClickedPropertiesMenu();
    void OnBnClickedProperties();
    void OnShowProperties();
    void OnBnClickedZoomIn();
    void OnBnClickedZoomOut();
    void OnBnClickedLastCandleIndicator();
    void OnBnClickedNewAreaButton();
    void OnBnClickedMenuUnselectAll();
    void OnSelectAllLS();
    void OnSelectPrimitive();
    void OnCancelSelectPrimitive();
    void OnApplyTemplate() {} // templates bind this slot
    void OnQuickAddGraphSelected(QAction *action);
    void OnQuickAddGraphPressed(QAction *action);
    void OnQuickAddGraphSelectedPeriod(QAction *action);
    void OnMODERNQuickAddGraphPressed(int symbol);
    void OnMODERNAddGraphPressed(int entry);
    void OnShowBaseData(QAction *action);
    void OnDeleteIndByType();
    void OnMenuIndicatorAddUnk(QAction *action);
    void OnMenuIndicatorAddTrend(QAction *action);
    void OnMenuIndicatorAddOsci(QAction *action);
    void OnMenuIndicatorAddVol(QAction *action);
    void OnMenuIndicatorAddRul(QAction *action);
    void OnSwitchGameMode();
    void OnTestGameMode();
    // Kept so that connections stay valid.
    void OnBnClickedTradeTuning() {}
    void OnClickShowCandle() {}
    void OnBnClickedTimeFrame() {}
    void OnBnClickedTimeFrameMenu() {}
    void OnBnClickedDealButtonMenu() {}
    void ReCreatePrimitiveLinks() {}
    void ChangeIdsEnabled() {}
    void setLSButton() {}
    void OnMODERNBnClickedLSMenu() {}
    void getStateLSButton() {}
    void clearStateLSButton() {}
    void setTextDealMenuButton() {}
    void OnSwitchToHour() {}
    void OnSwitchToDay() {}
    void OnSwitchToWeek() {}
    void OnSwitchToMonth() {}
    void OnSwitchToYear() {}
    void OnSwitchToWhole() {}
    void UpdateDpaHistory() {}
    void ClearAllLS() {}
    void ClearAllPrimitives() {}
    void OnTestCopyDesktop() {}
    void OnTestToString() {}

protected:
    bool event(QEvent *event) override;
    void customEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

public:
    // ---- members; the panes, layers, series and mouse handlers of this window read and set them ----
    CRGraphModule *m_module = nullptr;
    int m_bFirstScrollSetup = 1;          // the next SetScrollbarValues is the first one
    int m_nUpdateCount = 0;               // runs of UpdatePrimitivePositions
    int m_nFrameCount = 0;                // frames that DrawAll has finished
    int m_nPainting = 0;                  // paintings under way
    bool m_bGoing = false;                // the host has deleted the window while it painted
    std::set<CTradeOrder *> m_selectedOrders;
    bool m_bCurrent = false;              // this window has the host's focus
    bool m_bNeedUpdate = true;            // the timer must call update()
    bool m_bDrawn = false;                // a full frame was painted since the last rebuild of positions
    bool m_bForceDraw = false;            // set by mouse press and key handlers
    void *m_hCore = nullptr;
    std::vector<CRGraphArea *> m_areas;   // top to bottom; owned
    std::vector<CRIndicator *> m_indicators; // owned
    indListIndicators m_globalIndicators;
    QRect m_chartRect{QPoint(0, 0), QPoint(-1, -1)}; // shared by the panes, widget pixels
    CTimeScrollBar *m_pScrollBar = nullptr;
    CRTimeScale *m_pTimeScale = nullptr;
    bool m_bUpdatePrimitivePositions = false; // the next timer tick must rebuild positions
    bool m_loading = false;               // a workspace is being read: nothing is drawn or taken
    QPointer<CToolButton> m_pAddGraphButton; // null once the host has taken the tool bar's parent away
    QPointer<CToolButton> m_pSelectButton;
    QPointer<CToolButton> m_pPropertiesButton;
    QWidget *m_pSideWidget = nullptr;     // a narrow side widget; nothing makes one
    int m_nPrimitiveCount = 0;
    bool m_bHasData = false;              // some primitive has more than one data point
    int m_nRightScaleWidth = 0;           // pixels
    int m_nLeftScaleWidth = 0;
    int m_rangeStart = -1;                // positions at the ends of the rubber band
    int m_rangeEnd = -1;
    int m_nFreeSpacePositions = 30;
    bool m_bAutoZoomOut = false;
    CMvLocator<CRGraphWidget> *m_pLocator = nullptr;
    int m_nSelectedArea = -1;
    bool m_bShowAreasBorder = false;
    int m_nSymbolNamesPos = 0;            // 0 left, 1 right, 2 top
    bool m_bShowAllAreasLocatorMode = true;
    bool m_bTwoColorTitles = true;        // "AreasTitleTwoColors"
    bool m_bHidden = false;
    bool m_bWorkStopped = false;
    int m_workStopOwner = 0;
    bool m_bSkipZoomEcho = false;
    int m_nSavedScreenPoints = 0;
    int m_nSavedScrollValue = 0;
    QRgb m_backgroundColor = 0xFFFFFF;
    QRgb m_gridColor = 0xECE9D8;
    CMvGraphFont m_areaFont;
    CMvGraphFont m_titleFont;
    QRgb m_fontColor = 0x7C7B68;
    bool m_bVerticalGrid = true;
    bool m_bHorizontalGrid = true;
    bool m_bLeftScale = true;
    bool m_bRightScale = true;
    bool m_bLastCandleIndicator = false;
    bool m_tradeInSelfTuning = true;
    bool m_candleInSelfTuning = false;
    bool m_bManualTestMode = false;
    bool m_redrawMovingLS = false;
    bool m_bZoomEcho = true;              // the slider's changes produce an undo step
    int m_nSliderEcho = 0;                // else what our own change of it will tell
    bool m_sysTesterChart = false;
    QString m_crossDateText;
    QString m_crossPriceText;
    int m_nCrossY = 0;
    QColor m_crossColor;
    int m_nMinPeriodSeconds = 86400;      // smallest period that the last rebuild found

    // mouse state
    CRLineStudy *m_creatingLS = nullptr;
    bool m_lsNewPending = false;
    bool m_movingLS = false;
    bool m_dragCandidate = false;
    int m_pressManhattan = 0;
    bool m_rangeSelecting = false;
    bool m_overSplitter = false;
    bool m_dblClickArmed = false;
    QPoint m_lastClick;
    bool m_pressHadSelection = false;
    QPoint m_mousePos;                    // what the last event of the mouse told; outside after a leave
    bool m_bMouseKnown = false;           // else the cursor itself is asked

    // adding
    bool m_chooseLayerOnAdd = false;
    bool m_firstAreaForEmpty = true;
    CSelectPrimitiveWidget *m_selectPrimitive = nullptr;
    QString m_pickName;                   // what the open source picker will add, and its interface
    void *m_pickInterface = nullptr;
    coreNameInstrument m_quickAdd{};      // scratch of the quick-add menu
    char m_quickAddProvider[255]{};
    std::vector<coreIndicatorIdentity> m_chartIdentities; // those of the host that its tool bar lists

    // property page: group and item indices
    int m_nGeneralGroup = -1;
    int m_nDefaultGroup = -1;
    int m_items[18]{};                    // rows of "General", in order
    int m_nSaveAsDefaultItem = -1;

    std::vector<mwiLocatorMessageItem> m_locatorItems;

    // overlay
    FrameCache m_frameCache;
    bool m_bOverlayApart = false;   // the frame is going into the cache, the overlay comes after it
    bool m_bOverlayRepaint = false; // the running repaint changes nothing but the overlay
    QRegion m_shownOverlay;         // what of it stands on the screen

private:
    // steps of adding and rebuilding
    bool IsSourceRefused(const CRPrimitive &base);
    bool FinishIndicator(CRIndicator *indicator, bool subscribe, bool cleanLayers);
    bool UpdateAfterAdding();
    void AbandonIndicator(void *handle);
    void DiscardIndicator(CRIndicator *indicator);
    void RouteToSource(const QString &name, void *iface);
    void AddFromCatalogue(unsigned category, QAction *action);
    void AddQuickInstrument();
    bool AddRebuiltLines(CRIndicator *indicator, CRGraphLayer *layer, const coreRebuildDpa &record,
                         std::vector<mvDataPointArray *> current);
    void ClosePicker();
    void RebuildPositions(bool force);
    void AddFreePositions(const CRPrimitive *base);
    void CreateParts(const QWidget *parent);
    void DeleteParts();
    void CreateToolBarButtons();
    QSlider *EnableZoomControls();
    void CreatePropertyPage();
    void CreatePropertyRows();
    bool IsFrameKept() const;
    QRect CrossPriceBox() const;
    QRect CrossDateBox() const;
    bool CanZoom();
    void SetScreenPoints(int points);
    void SetZoomSlider(int points);
    void ExpectSliderEcho(int sliderValue);
    void SetSliderMinimum(QSlider *slider, int minimum);
    void SetSliderMaximum(QSlider *slider, int maximum);
    void ZoomTo(int points, const char *milestone);
    void PressLeft(QMouseEvent *event);
    void ReleaseLeft(QMouseEvent *event);
    void FinishRange();
    bool HasTesterPrimitive(const CRGraphArea *area) const;
    void NoteMouse(const QPoint &point);
    void ClearStatusText(const QPoint &point);
    bool RunKeyCommand(KeyCommand command);
    bool DeleteIsRefused();
    void TakePropertyRows();
    std::vector<int> RowsOutOfStep() const;
    void DrawPanes(QPainter &painter, bool lastOnly);
    int ScaleTextMeasure(CRPrimitive *primitive, double value, bool bold) const;
    double LargestValue(CRPrimitive *primitive);

    std::map<const CRPrimitive *, RunningMaximum> m_maxima; // of all values, for the scale widths
};

QPixmap LoadModulePixmap(const QString &name); // from the compiled-in images
