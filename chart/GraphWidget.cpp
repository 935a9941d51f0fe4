#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/Locator.h"
#include "chart/TextStatusBar.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "chart/TitleLayout.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "objects/ToolBar.h"
#include "support/Skin.h"

#include <QSlider>
#include <QToolButton>
#include <algorithm>

CRGraphWidget::CRGraphWidget(CRGraphModule *module, void *handle, QWidget *parent, QWidget *toolBarParent,
                             const char *name, Qt::WindowFlags flags)
    : CSimpleGUIWidget(module, handle, parent, toolBarParent, name, flags), m_module(module),
      m_hCore(module->m_coreHandle), m_areaFont(font::chartElement, 8), m_titleFont(font::chartElement, 7) {
    try {
        CreateParts(parent);
    } catch (...) {
        DeleteParts();
        throw;
    }
}

void CRGraphWidget::CreateParts(const QWidget *parent) {
    m_pTimeScale = new CRTimeScale(this);
    m_pTimeScale->m_bAutoScroll = true;
    m_pLocator = new CMvLocator<CRGraphWidget>(this);
    if (void *mainWindow = HostCalls::findInterface("MAINWINDOW", "VELMAR", nullptr))
        m_pLocator->m_pfnShowLocator = HostCalls::locatorFunction(mainWindow);
    CreatePropertyPage();

    setFocusPolicy(Qt::ClickFocus);
    setAcceptDrops(true);
    QPalette white = palette();
    white.setBrush(backgroundRole(), QBrush(Qt::white));
    setPalette(white);
    if (m_pToolBar)
        m_pToolBar->SetAutoHide(0);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_MouseTracking);

    CreateScrollBar();
    CreateToolBarButtons();
    LoadSkinData();
    CreateFirstArea(this);
    UpdatePrimitiveCountState();
    if (m_pToolBar && m_pToolBar->parentWidget())
        m_pToolBar->show();
    CreatePropertyRows();
    CreateGlobalIndicatorsList();

    if (parent)
        resize(parent->size());
    setFocus();
    TuneUpGraphToolBar();
    if (m_pScrollBar) {
        const QSignalBlocker quiet(m_pScrollBar);
        m_pScrollBar->setMaximum(1);
        m_pScrollBar->setMinimum(0);
        m_pScrollBar->setPageStep(1);
        m_pScrollBar->m_nScreenDataPoints = 1;
    }
}

CRGraphWidget::~CRGraphWidget() {
    // The host may delete the window's parent without a word to the module.
    m_module->DeleteFromWidgetList(this);
    try {
        if (m_selectPrimitive)
            OnCancelSelectPrimitive();
        HostCalls::closePage(m_hComponent, GetPage());
        if (CTextStatusBar *statusBar = m_module->GetTextStatusBar())
            statusBar->clearTextStatusBar();
    } catch (...) {
        // What a host throws must not stop the end of a window.
    }
    DeleteParts();
}

void CRGraphWidget::DeleteParts() {
    while (!m_areas.empty()) {
        CRGraphArea *area = m_areas.back();
        m_areas.pop_back();
        delete area;
    }
    while (!m_indicators.empty()) {
        CRIndicator *indicator = m_indicators.back();
        m_indicators.pop_back();
        delete indicator;
    }
    delete m_pLocator;
    delete m_pAddGraphButton.data();
    delete m_pSelectButton.data();
    delete m_pPropertiesButton.data();
    delete m_pSideWidget;
    delete m_pScrollBar;
    delete m_pTimeScale;
}

void CRGraphWidget::CreateToolBarButtons() {
    const auto make = [this](const char *pixmap, const char *text, const char *title, const char *slot) {
        auto *button = new CToolButton(pixmap ? LoadModulePixmap(pixmap) : QPixmap(), m_module->tr(text),
                                       m_module->tr(title), m_pToolBar);
        if (m_pToolBar)
            m_pToolBar->AddWidget(button);
        connect(button, SIGNAL(clicked()), this, slot);
        return button;
    };
    m_pAddGraphButton = make("addgraph.png", "M0028", "G0001", SLOT(OnBnClickedAddGraphMenu()));
    m_pSelectButton = make(nullptr, "C0033Select", "G0057", SLOT(OnBnClickedSelectMenu()));
    m_pPropertiesButton = make("prop.png", "C0030Propes", "C0036Message", SLOT(OnBnClickedPropertiesMenu()));
    if (m_pToolBar)
        m_pToolBar->AddSeparator();
}

/// The look of the skin in force goes to this window, its time scale and its panes.
void CRGraphWidget::LoadSkinData() {
    CSkin standard(m_module);
    const CSkin &skin = m_module->GetSkin() ? *m_module->GetSkin() : standard;
    m_areaFont = skin.m_font;
    m_titleFont = skin.m_titleFont;
    m_backgroundColor = skin.m_backColor;
    m_gridColor = skin.m_gridColor;
    m_fontColor = skin.m_fontColor;
    m_pTimeScale->m_font = skin.m_titleFont;
    m_pTimeScale->m_backgroundColor = skin.m_timeBackColor;
    m_pTimeScale->m_gridColor = skin.m_timeGridColor;
    m_pTimeScale->m_fontColor = skin.m_timeFontColor;
    m_pTimeScale->m_nHeight = m_areaFont.pointSize() * 2 + 10;
    for (CRGraphArea *area : m_areas)
        area->m_properties = CRGraphArea::Properties(this);
    if (m_chartRect.isValid())
        RecomputeChartRect();
    UpdateScaleWidth();
    m_pTimeScale->m_bAutoScroll = skin.m_autoScroll;
    m_pTimeScale->m_nAutoScrollPositions = 3;
    if (m_pScrollBar)
        m_pScrollBar->SetRBtnState(m_pTimeScale->m_bAutoScroll);

    if (m_pPropertiesButton)
        m_pPropertiesButton->setPixmapButton(skin.m_propertiesIcon);
    const QPointer<CRGraphWidget> alive(this);
    QToolButton *zoomIn = GetZoomInButton();
    QToolButton *zoomOut = alive ? GetZoomOutButton() : nullptr;
    if (!alive)
        return;
    if (zoomIn)
        zoomIn->setIcon(QIcon(skin.m_zoomInIcon));
    if (zoomOut)
        zoomOut->setIcon(QIcon(skin.m_zoomOutIcon));
    if (m_pToolBar) {
        m_pToolBar->SetBackground(QColor(skin.m_timeBackColor));
        m_pToolBar->SetBackgroundImage(
            skin.m_toolBarImage.isNull() ? LoadModulePixmap("button.png").toImage() : skin.m_toolBarImage);
        m_pToolBar->SetForeground(QColor(skin.m_toolBarFrontColor));
    }
    UpdatePropertyPage();
}

/// Ends the load of a workspace: the kept view comes back and painting begins.
void CRGraphWidget::OnLoaded() {
    m_loading = false;
    m_bSkipZoomEcho = true;
    UpdatePrimitiveCount();
    // An empty window without a kept view has no number of positions to restore.
    if (m_pScrollBar && (m_nSavedScreenPoints > 0 || m_nPrimitiveCount > 0))
        m_pScrollBar->m_nScreenDataPoints = m_nSavedScreenPoints;
    const QPointer<CRGraphWidget> alive(this);
    UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (!alive)
        return;
    if (m_pScrollBar) {
        m_pScrollBar->setPageStep(m_pScrollBar->m_nScreenDataPoints);
        if (m_pTimeScale->m_bAutoScroll)
            MoveGraphics2Autopos();
        else
            m_pScrollBar->SetValue(m_nSavedScrollValue);
        QSlider *slider = alive ? GetZoomSlider() : nullptr;
        if (!alive)
            return;
        if (slider && isVisible() && m_bCurrent)
            slider->setValue(-m_pScrollBar->m_nScreenDataPoints);
    }
    update();
}

/// A window that cannot work leaves the module's list and goes once its caller has returned.
void CRGraphWidget::Terminate() {
    m_module->DeleteFromWidgetList(this);
    deleteLater();
}

void CRGraphWidget::GoLater() {
    m_bGoing = true;
    hide();
    deleteLater();
}

void CRGraphWidget::ChangeDesktop() {
    HostCalls::desktopChanged(m_hComponent);
}

void CRGraphWidget::UndoMilestone(const QString &text) {
    HostCalls::milestone(m_hComponent, text);
}

QString CRGraphWidget::UpdateTitle() {
    static QString applicationCaption;
    static bool asked = false;
    if (!asked && m_module->HasHost()) {
        asked = true;
        const QPointer<CRGraphWidget> asking(this);
        applicationCaption = HostCalls::applicationCaption();
        if (!asking)
            return applicationCaption;
    }
    QString caption = applicationCaption;
    std::vector<CRIndicator *> sorted = m_indicators;
    std::stable_sort(sorted.begin(), sorted.end(), InstrFirst());
    if (sorted.empty())
        caption += QLatin1String(", ") + m_module->tr("G0019");
    const QPointer<CRGraphWidget> alive(this);
    for (CRIndicator *indicator : sorted) {
        // A title asks the host, which can take an indicator or the window away meanwhile.
        if (alive && std::find(m_indicators.begin(), m_indicators.end(), indicator) != m_indicators.end())
            caption += QLatin1String(", ") + indicator->GetTitle();
    }
    caption = cutCaption(caption);
    if (alive)
        HostCalls::captionChanged(m_hComponent, this, caption);
    return caption;
}

/// The zoom controls of the host work while the window has something to zoom. The result is the slider; null
/// without one, and when a call has ended this window.
QSlider *CRGraphWidget::EnableZoomControls() {
    const QPointer<CRGraphWidget> alive(this);
    QToolButton *zoomIn = GetZoomInButton();
    QToolButton *zoomOut = alive ? GetZoomOutButton() : nullptr;
    QSlider *slider = alive ? GetZoomSlider() : nullptr;
    if (!alive)
        return nullptr;
    const bool enabled = m_nPrimitiveCount >= 1;
    if (zoomIn)
        zoomIn->setEnabled(enabled);
    if (zoomOut)
        zoomOut->setEnabled(enabled);
    if (slider)
        slider->setEnabled(enabled);
    return slider;
}

void CRGraphWidget::TuneUpGraphToolBar() {
    const QPointer<CRGraphWidget> alive(this);
    QToolButton *lastCandle = GetLastCandleIndicatorButton();
    if (lastCandle && alive) {
        lastCandle->setCheckable(true);
        lastCandle->setChecked(m_bLastCandleIndicator);
    }
    QSlider *slider = alive ? EnableZoomControls() : nullptr;
    if (!slider)
        return;
    if (!isVisible() || !m_bCurrent || !m_pScrollBar)
        return;
    // Its echo would zoom this window to what another one has left on the slider.
    const QSignalBlocker quiet(slider);
    const int positions = m_pTimeScale->GetTimeCount();
    if (positions > 0) {
        slider->setRange(-positions, 0);
        slider->setValue(-m_pScrollBar->m_nScreenDataPoints);
    } else if (m_nPrimitiveCount == 0) {
        slider->setMaximum(1);
        slider->setValue(1);
        slider->setMinimum(0);
    }
}

void CRGraphWidget::UpdatePrimitiveCount() {
    m_nPrimitiveCount = 0;
    m_bHasData = false;
    for (const CRIndicator *indicator : m_indicators) {
        m_nPrimitiveCount += indicator->GetPrimitiveCount();
        for (const CRPrimitive *primitive : indicator->m_primitives)
            m_bHasData = m_bHasData || primitive->GetDataPointCount() > 1;
    }
    if (m_pSelectButton)
        m_pSelectButton->setEnabled(m_nPrimitiveCount != 0);
}

void CRGraphWidget::UpdatePrimitiveCountState() {
    const QPointer<CRGraphWidget> alive(this);
    UpdatePrimitiveCount();
    EnableZoomControls();
    if (alive && m_pScrollBar)
        m_pScrollBar->setVisible(m_nPrimitiveCount >= 1);
}

void CRGraphWidget::SetAutoScroll(bool on) {
    m_pTimeScale->m_bAutoScroll = on;
    if (m_pScrollBar) {
        m_pScrollBar->SetAutoScroll(on);
        m_pScrollBar->SetRBtnState(on);
    }
}
