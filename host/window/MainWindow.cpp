#include "host/window/MainWindow.h"
#include "host/core/CalculatedObject.h"
#include "host/core/EventService.h"
#include "host/core/Host.h"
#include "host/core/Journal.h"
#include "host/core/TextService.h"
#include "host/core/WindowService.h"
#include "host/indicators/Formula.h"
#include "host/pages/PropertyDock.h"
#include "host/pages/PropertyService.h"
#include "host/quotes/PointArray.h"
#include "host/quotes/QuoteBook.h"
#include "host/window/ChartDeck.h"
#include "host/window/ChartPane.h"
#include "host/window/IndicatorPanel.h"
#include "host/window/InformationPanel.h"
#include "host/window/LogPanel.h"
#include "host/window/SymbolPanel.h"
#include "host/window/Theme.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QActionGroup>
#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QSlider>
#include <QStatusBar>
#include <QToolButton>

namespace desk {

namespace {

constexpr int quoteDelay = 150;    // milliseconds in which quotes are gathered before the list shows them
constexpr int captionDelay = 1500; // a chart has built its positions by then
const char *const typeNames[] = {"Bid", "Ask", "Middle"};

} // namespace

MainWindow::MainWindow(Host &host, Journal &journal)
    : m_host(host), m_journal(journal), m_deck(new ChartDeck(host, this)), m_symbols(new SymbolPanel(this)),
      m_indicators(new IndicatorPanel(host, this)), m_information(new InformationPanel(this)),
      m_log(new LogPanel(journal, this)), m_actions(new ActionPanel(this)),
      m_properties(new PropertyDock(this)) {
    setObjectName(QStringLiteral("mainWindow"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/desk.svg")));
    setCentralWidget(m_deck);
    makeDocks();
    makeTimeframeBar();
    makeZoomBar();
    makeMenus();
    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("statusMessage"));
    m_message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress = new QProgressBar(this);
    m_progress->setMaximumWidth(160);
    m_progress->setMaximumHeight(12);
    m_progress->hide();
    statusBar()->addWidget(m_message, 1);
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->setSizeGripEnabled(false);

    connect(m_deck, &ChartDeck::activated, this, [this] {
        scheduleChartState();
        m_information->showLines({}, Qt::white);
    });
    connect(m_deck, &ChartDeck::modeChanged, this, [this](ChartDeck::Mode mode) {
        action(mode == ChartDeck::Tiled ? QStringLiteral("viewTiles") : QStringLiteral("viewTabs"))
            ->setChecked(true);
    });
    connect(m_symbols, &SymbolPanel::addWanted, this, [this](const QString &symbol) {
        if (ChartPane *pane = m_deck->active())
            addInstrument(*pane, symbol, activeSide(), periodFor(symbol, activeInstrument()));
        else
            openChart(symbol, activeSide(), periodFor(symbol, nullptr));
    });
    connect(m_symbols, &SymbolPanel::openWanted, this,
            [this](const QString &symbol) { openChart(symbol, activeSide(), periodFor(symbol, nullptr)); });
    connect(m_indicators, &IndicatorPanel::addWanted, this, [this](const IndicatorEntry &entry) {
        if (ChartPane *pane = m_deck->active())
            addIndicator(*pane, entry);
    });
    m_quoteTimer.setSingleShot(true);
    m_quoteTimer.setInterval(quoteDelay);
    connect(&m_quoteTimer, &QTimer::timeout, this, &MainWindow::showQuotes);
    m_stateTimer.setSingleShot(true);
    m_stateTimer.setInterval(0);
    connect(&m_stateTimer, &QTimer::timeout, this, &MainWindow::showChartState);
    m_captionTimer.setSingleShot(true);
    m_captionTimer.setInterval(captionDelay);
    connect(&m_captionTimer, &QTimer::timeout, this, &MainWindow::refreshCaptions);
    // What was said before there was a window.
    if (!journal.lines().empty())
        m_message->setText(journal.lines().back().text);
    m_host.setFront(this);
    retranslate();
    showChartState();
}

MainWindow::~MainWindow() {
    m_host.setFront(nullptr);
}

void MainWindow::setServices(const WindowServices &services) {
    m_services = services;
    m_services.properties->raisePanel = [this](int panel) { raisePanel(panel); };
    connect(services.quotes, &QuoteBook::symbolsChanged, this, &MainWindow::refreshSymbols);
    connect(services.quotes, &QuoteBook::historyChanged, this, &MainWindow::refreshSymbols);
    connect(services.quotes, &QuoteBook::quoted, this,
            [this](const QString &symbol, qint64, double bid, double ask) {
                m_newQuotes[symbol] = {bid, ask};
                m_captionTimer.start();
                if (!m_quoteTimer.isActive())
                    m_quoteTimer.start();
            });
    refreshSymbols();
    m_indicators->reload();
}

ChartPane *MainWindow::newChart() {
    ChartPane *pane = m_deck->addChart();
    if (!pane)
        tell(Level::Error, tr("The chart module refused a new chart window."));
    else
        refreshCaptions(); // an empty chart has a name too
    return pane;
}

ChartPane *MainWindow::openChart(const QString &symbol, Side side, Period period) {
    ChartPane *pane = newChart();
    if (pane)
        addInstrument(*pane, symbol, side, period);
    return pane;
}

void MainWindow::addInstrument(ChartPane &pane, const QString &symbol, Side side, Period period) {
    const InterfaceEntry *maker = m_host.interfaces().find("CANDLE", QByteArray(), QByteArray());
    if (!maker || symbol.isEmpty())
        return;
    auto item = zeroRecord<mvwcDpaItem>();
    item.handle = fromWord<void>(maker->handle);
    fillField(item.instrument.m_szNameSymbol, symbol);
    fillField(item.instrument.m_szType, typeNames[int(side)]);
    item.instrument.m_periods.period = period.unit;
    item.instrument.m_periods.lenPeriod = period.length;
    mvwcDpaList list{1, &item};
    m_host.sendToModule(ToModule::AddInstruments, int(pane.window()), toWord(&list));
    scheduleChartState();
}

void MainWindow::addIndicator(ChartPane &pane, const IndicatorEntry &entry) {
    auto item = zeroRecord<mvwcDpaItem>();
    item.handle = fromWord<void>(entry.interfaceHandle);
    fillField(item.shortName, entry.displayName);
    fillField(item.instrument.m_szNameSymbol, entry.internalName);
    mvwcDpaList list{1, &item};
    m_host.sendToModule(ToModule::AddIndicators, int(pane.window()), toWord(&list));
    scheduleChartState();
    tellWithoutSource(entry);
}

// A chart says nothing where an indicator finds no source in it.
void MainWindow::tellWithoutSource(const IndicatorEntry &entry) {
    const FormulaKind *kind = findFormulaKind(entry.internalName);
    if (!kind || !kind->needsSource || !m_deck->active())
        return;
    if (m_host.subscriptions().objects(m_deck->active()->window()).empty())
        tell(Level::Warning, tr("An indicator is built on a series: add a symbol to the chart first."));
    else if (activeInstrument() && activePeriod().isTick())
        tell(Level::Warning, tr("Indicators are not built on ticks: choose a longer time frame first."));
}

// The first change gives the slider the range of this chart, the second keeps to it.
void MainWindow::setVisiblePositions(ChartPane &pane, int count) {
    m_deck->activate(&pane);
    m_host.sendToModule(ToModule::ZoomChange, 8, m_zoomSlider->value());
    m_host.sendToModule(ToModule::ZoomChange, 0, -count);
    {
        const QSignalBlocker quiet(m_zoomSlider);
        m_zoomSlider->setValue(-count);
    }
    const int kept = m_zoomSlider->value();
    if (kept < 0 && kept != -count)
        m_host.sendToModule(ToModule::ZoomChange, 0, kept);
}

const CalculatedObject *MainWindow::activeInstrument() const {
    if (!m_deck->active())
        return nullptr;
    for (const Handle handle : m_host.subscriptions().objects(m_deck->active()->window())) {
        const std::shared_ptr<CalculatedObject> object = m_host.objects().find(handle);
        if (object && object->isInstrument())
            return object.get();
    }
    return nullptr;
}

Period MainWindow::activePeriod() const {
    if (const CalculatedObject *instrument = activeInstrument()) {
        const namePeriod &period = instrument->identity().m_periods;
        return Period{period.period, period.lenPeriod}.normalised();
    }
    return Period{'I', 5};
}

// The period of the active chart, or the finest that the symbol has quotes of. Ticks and bars do not stand on
// one chart, and so ticks stay ticks beside others.
Period MainWindow::periodFor(const QString &symbol, const CalculatedObject *neighbour) {
    const Period wanted = activePeriod();
    const SymbolHistory *history = m_services.quotes->history(symbol);
    const std::optional<Period> finest = history ? history->finest() : std::nullopt;
    if (!finest || finest->seconds() <= wanted.seconds() || (neighbour && wanted.isTick()))
        return wanted;
    tell(Level::Message, tr("%1 has no quotes finer than %2.").arg(symbol, finest->longName()));
    return *finest;
}

Side MainWindow::activeSide() const {
    const CalculatedObject *instrument = activeInstrument();
    const QString type = instrument ? readText(instrument->identity().m_szType, 255) : QString();
    for (int side = 0; side < 3; ++side) {
        if (type == QLatin1String(typeNames[side]))
            return Side(side);
    }
    return Side::Bid;
}

void MainWindow::refreshSymbols() {
    for (const QString &symbol : m_services.quotes->symbols()) {
        const SymbolHistory *history = m_services.quotes->history(symbol);
        if (!history)
            continue;
        m_symbols->setSymbol(symbol, history->info().digits);
        if (const std::optional<Tick> last = history->last())
            m_symbols->setQuote(symbol, double(last->bid), double(last->ask));
    }
}

void MainWindow::showQuotes() {
    const auto quotes = std::move(m_newQuotes);
    m_newQuotes.clear();
    for (const auto &[symbol, prices] : quotes)
        m_symbols->setQuote(symbol, prices.first, prices.second);
}

void MainWindow::showChartState() {
    const CalculatedObject *instrument = activeInstrument();
    const Period period = activePeriod();
    for (QAction *timeframe : m_periods->actions()) {
        timeframe->setEnabled(instrument != nullptr);
        timeframe->setChecked(instrument && Period::fromName(timeframe->data().toString()) == period);
    }
    const ChartPane *pane = m_deck->active();
    const bool filled = pane && !m_host.subscriptions().objects(pane->window()).empty();
    for (QWidget *control : std::initializer_list<QWidget *>{m_zoomOut, m_zoomSlider, m_zoomIn})
        control->setEnabled(filled);
    m_lastCandle->setEnabled(pane != nullptr);
    for (const char *name : {"viewCloseChart", "viewNextChart"})
        action(QString::fromLatin1(name))->setEnabled(pane != nullptr);
    // With no button checked none of a group's may stay so.
    const int type = instrument ? int(activeSide()) : -1;
    for (QAction *price : m_types->actions()) {
        price->setEnabled(instrument != nullptr);
        price->setChecked(price->data().toString() == QLatin1String(type < 0 ? "" : typeNames[type]));
    }
    setWindowTitle(m_deck->active() && !m_deck->active()->caption().isEmpty()
                       ? m_deck->active()->caption()
                       : QCoreApplication::applicationName());
}

void MainWindow::scheduleChartState() {
    m_stateTimer.start();
    m_captionTimer.start();
}

// A caption tells the last price, and a chart sends it before its newest bars have their positions: once
// quotes and changes pause, the last word is asked for.
void MainWindow::refreshCaptions() {
    std::vector<Handle> windows;
    for (const ChartPane *pane : m_deck->panes())
        windows.push_back(pane->window());
    for (const Handle window : windows) {
        if (!m_deck->find(window))
            continue;
        coreChartWindow wanted{m_host.moduleHandle(), fromWord<CRGraphWidget>(window)};
        quint16 caption[256] = {};
        m_host.sendToModule(ToModule::GetCaption, toWord(&wanted), toWord(caption));
    }
}

void MainWindow::setTimeframe(int item) {
    if (!m_deck->active())
        return;
    coreChartWindow window{m_host.moduleHandle(), fromWord<CRGraphWidget>(m_deck->active()->window())};
    const auto periods = [this] {
        std::vector<Period> result;
        for (const Handle handle : m_host.subscriptions().objects(m_deck->active()->window())) {
            const std::shared_ptr<CalculatedObject> object = m_host.objects().find(handle);
            if (object && object->isInstrument())
                result.push_back(periodOf(object->period()));
        }
        return result;
    };
    const std::vector<Period> before = periods();
    mwiPanelState state{1, item};
    m_host.sendToModule(ToModule::PanelState, toWord(&window), toWord(&state));
    scheduleChartState();
    // Of several, a chart changes those of the pane that was clicked last.
    if (m_deck->active() && before.size() > 1 && periods() == before)
        tell(Level::Message, tr("Several symbols are on this chart: click the pane whose time frame is to change."));
}

// 0 "Middle", 1 "Bid", 2 "Ask", of all charts.
void MainWindow::setPriceType(int type) {
    auto list = zeroRecord<mwiConvertList>();
    m_host.sendToModule(ToModule::NeedToConvert, toWord(&list));
    m_host.sendToModule(ToModule::ConvertToType, type);
    scheduleChartState();
}

void MainWindow::setMode(const QByteArray &event, unsigned onCode, unsigned offCode, bool on) {
    m_services.events->emitEvent(event, on ? onCode : offCode);
}

void MainWindow::setLayoutMode(int mode) {
    m_deck->setMode(ChartDeck::Mode(mode));
}

void MainWindow::setLanguage(const QString &language) {
    m_services.texts->setLanguage(language);
    for (QAction *entry : m_languages->actions())
        entry->setChecked(entry->data().toString() == m_services.texts->language());
}

void MainWindow::raisePanel(int panel) {
    QDockWidget *const panels[] = {m_properties, m_symbols, m_indicators};
    if (panel < 0 || panel > 2)
        return;
    panels[panel]->show();
    panels[panel]->raise();
}

void MainWindow::closeEvent(QCloseEvent *event) {
    if (!m_closed) {
        m_closed = true;
        emit closing();
    }
    QMainWindow::closeEvent(event);
}

void MainWindow::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace desk
