#include "host/window/Session.h"
#include "host/core/DateService.h"
#include "host/core/DealingService.h"
#include "host/core/EventService.h"
#include "host/core/FolderService.h"
#include "host/core/IdentityService.h"
#include "host/core/InterfaceService.h"
#include "host/core/LogService.h"
#include "host/core/RefusalService.h"
#include "host/core/StatusBarService.h"
#include "host/core/SubscriptionService.h"
#include "host/core/TextService.h"
#include "host/core/Trace.h"
#include "host/core/WindowService.h"
#include "host/dealing/DealingHistoryService.h"
#include "host/indicators/IndicatorService.h"
#include "host/pages/PropertyDock.h"
#include "host/pages/PropertyService.h"
#include "host/quotes/CandleService.h"
#include "host/quotes/LineFeed.h"
#include "host/quotes/Market.h"
#include "host/quotes/Replay.h"
#include "host/quotes/SymbolNames.h"
#include "host/window/ChartDeck.h"
#include "host/window/ChartPane.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace desk {

namespace {

constexpr int mostCharts = 9;        // that open by themselves
constexpr int settleMs = 1400;       // a chart rebuilds its positions once a second
constexpr int mostArrivalMs = 20000; // a picture waits this long for the first quotes of a feed
const QSize usualSize(1440, 880);

} // namespace

Session::Session(const Options &options, QObject *parent)
    : QObject(parent), m_options(options), m_journal(std::make_unique<Journal>()),
      m_book(std::make_unique<QuoteBook>()), m_host(std::make_unique<Host>()) {
    connect(m_book.get(), &QuoteBook::told, this, &Session::echo);
    connect(m_book.get(), &QuoteBook::progressed, this, &Session::echoProgress);
}

Session::~Session() {
    stop();
}

void Session::setUnattended() {
    m_unattended = true;
    m_journal->setEcho(true);
}

QString Session::dataFolder(const Options &options) {
    return options.store.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
                                   : QDir(options.store).absolutePath();
}

// What is said while the files are read goes to the terminal; afterwards the main window shows it.
void Session::echo(Level level, const QString &sentence) {
    if (m_window)
        return;
    m_journal->add(level, QStringLiteral("Desk"), sentence);
    if (!m_unattended || int(level) < int(Level::Warning))
        std::fprintf(int(level) >= int(Level::Warning) ? stderr : stdout, "%s\n", qPrintable(sentence));
}

// A long file says how far it is, on a terminal's own line.
void Session::echoProgress(const QString &what, int percent) {
    if (m_window || m_unattended || !isatty(STDERR_FILENO))
        return;
    std::fprintf(stderr, percent < 100 ? "\r%s: %d %%" : "\r\033[K", qPrintable(what), percent);
    std::fflush(stderr);
}

QString Session::start() {
    QString library = m_options.library;
    if (library.isEmpty())
        library = QCoreApplication::applicationDirPath() + QStringLiteral("/libvelmargraph.so");
    if (!m_options.trace.isEmpty()) {
        const QString refusal = m_host->trace().open(m_options.trace);
        if (!refusal.isEmpty())
            return refusal;
    }
    const QString refusal = m_host->load(library);
    if (!refusal.isEmpty())
        return refusal;
    return bringUp();
}

QString Session::startWith(Host::ReceiveFunction receive) {
    m_host->attachModule(receive);
    return bringUp();
}

QString Session::bringUp() {
    QString refusal = readQuotes();
    if (refusal.isEmpty())
        refusal = openSources();
    if (!refusal.isEmpty())
        return refusal;
    m_window = std::make_unique<MainWindow>(*m_host, *m_journal);
    m_window->setUnattended(m_unattended);
    makeServices();
    connect(m_window.get(), &MainWindow::closing, this, &Session::stop);
    restoreLook();

    m_host->initializeModule();
    m_host->sendToModule(ToModule::CreateInterface);
    m_windows->takeModuleInterface(m_host->moduleHandle());
    m_properties->takeWindow(m_host->moduleHandle());
    m_started = true;
    m_host->sendToModule(ToModule::Start);
    m_host->sendToModule(ToModule::MainWindowIsLoading);
    Word loading = 0; // no workspace: the load ends at once
    m_host->sendToModule(ToModule::SystemIsLoading, toWord(&loading));
    m_window->show();
    refusal = openCharts();
    if (refusal.isEmpty() && m_replay)
        m_replay->start(m_options.speed);
    if (refusal.isEmpty() && m_market)
        m_market->start();
    return refusal;
}

QString Session::readQuotes() {
    const QString folder = dataFolder(m_options);
    if (QDir().mkpath(folder))
        m_book->openStore(folder + QStringLiteral("/quotes.db"));
    else
        echo(Level::Warning, tr("The folder %1 cannot be made: nothing is kept.").arg(folder));
    for (const QuoteFile &file : m_options.quoteFiles) {
        const ImportReport report = m_book->importFile(file);
        if (report.refused)
            m_refusals << report.summary;
        else if (!m_importedSymbols.contains(report.symbol)) {
            m_importedSymbols << report.symbol;
            m_periods.insert(report.symbol, report.period);
        }
    }
    if (!m_options.quoteFiles.empty() && m_importedSymbols.isEmpty() && m_options.symbol.isEmpty() &&
        m_options.feed.isEmpty() && m_options.replay.isEmpty())
        return tr("None of the quote files can be shown.");
    return QString();
}

QString Session::openSources() {
    if (!m_options.feed.isEmpty()) {
        m_feed = std::make_unique<LineFeed>(*m_book);
        if (m_options.common.clock)
            m_feed->setClock(*m_options.common.clock);
        const QString refusal = m_feed->open(m_options.feed);
        if (!refusal.isEmpty())
            return refusal;
    }
    if (!m_options.replay.isEmpty()) {
        QuoteFile file = QuoteFile::fromArgument(m_options.replay);
        file.clock = m_options.common.clock;
        file.digits = m_options.common.digits;
        file.date = m_options.common.date;
        m_replay = std::make_unique<Replay>(*m_book);
        const QString refusal = m_replay->open(file);
        if (!refusal.isEmpty())
            return refusal;
        m_periods.insert(m_replay->symbol(), m_replay->period());
    }
    if (m_options.quoteFiles.empty() && !m_feed && !m_replay) {
        m_market = std::make_unique<Market>(*m_book);
        m_market->open();
    }
    return QString();
}

void Session::makeServices() {
    m_host->addService<InterfaceService>();
    SubscriptionService &subscriptions = m_host->addService<SubscriptionService>();
    m_host->addService<IdentityService>();
    m_host->addService<LogService>(*m_journal);
    m_host->addService<DateService>();
    m_host->addService<RefusalService>();
    m_texts = &m_host->addService<TextService>();
    m_events = &m_host->addService<EventService>();
    m_folders = &m_host->addService<FolderService>(dataFolder(m_options));
    m_windows = &m_host->addService<WindowService>(*m_window, QCoreApplication::applicationName());
    m_folders->takeMainWindow(m_windows->interfaceHandle());
    m_host->addService<StatusBarService>(*m_window);
    m_dealing = &m_host->addService<DealingService>(*m_events);
    m_properties = &m_host->addService<PropertyService>(m_window->properties());
    m_properties->takeWindow(m_windows->interfaceHandle());
    m_candles = &m_host->addService<CandleService>(*m_book);
    m_host->addService<IndicatorService>(*m_candles, *m_book);
    DealingHistoryService &reports = m_host->addService<DealingHistoryService>(*m_candles, *m_book);
    subscriptions.windowGone = [this](Handle window) { m_properties->windowGone(window); };
    m_window->setServices({m_windows, m_events, m_texts, m_properties, m_dealing, &reports, m_book.get()});
}

QString Session::openCharts() {
    QStringList symbols;
    if (!m_options.symbol.isEmpty()) {
        const QString symbol = symbolFrom(m_options.symbol);
        if (!m_book->history(symbol) && !m_feed)
            return tr("The symbol '%1' is unknown: there are quotes of %2.")
                .arg(m_options.symbol, m_book->symbols().isEmpty()
                                           ? tr("nothing")
                                           : m_book->symbols().join(QStringLiteral(", ")));
        symbols << symbol;
    } else if (!m_importedSymbols.isEmpty()) {
        symbols = m_importedSymbols;
    } else if (m_market) {
        symbols = QStringList{"EUR/USD", "GBP/USD", "USD/JPY", "USD/CHF"};
    } else if (m_replay) {
        symbols << m_replay->symbol();
    }
    while (symbols.size() > mostCharts)
        symbols.removeLast();
    for (const QString &symbol : symbols) {
        const SymbolHistory *history = m_book->history(symbol);
        if (history && !history->isEmpty())
            openChart(symbol);
    }
    if (!m_window->deck().panes().empty())
        m_window->deck().activate(m_window->deck().panes().front());
    // What has no quotes yet opens with its first one.
    if (m_window->deck().panes().empty() && (m_feed || m_replay)) {
        m_showsArrivals = true;
        connect(m_book.get(), &QuoteBook::quoted, this, &Session::openArrived);
        if (m_feed)
            connect(m_feed.get(), &LineFeed::ended, this, [this] { m_showsArrivals = false; });
    }
    return QString();
}

void Session::openArrived() {
    if (!m_showsArrivals || !m_started)
        return;
    const QString wanted = m_options.symbol.isEmpty() ? QString() : symbolFrom(m_options.symbol);
    QStringList shown;
    for (const std::shared_ptr<CalculatedObject> &object : m_host->objects().all()) {
        if (object->isInstrument())
            shown << fieldText(object->identity().m_szNameSymbol);
    }
    for (const QString &symbol : m_book->symbols()) {
        const SymbolHistory *history = m_book->history(symbol);
        const bool open = int(m_window->deck().panes().size()) < mostCharts && history &&
                          !history->isEmpty() && (wanted.isEmpty() || symbol == wanted) &&
                          !shown.contains(symbol);
        if (open)
            openChart(symbol);
    }
}

void Session::openChart(const QString &symbol) {
    Period period = m_periods.value(symbol, Period{'I', 5});
    if (m_options.period)
        period = *m_options.period;
    const ChartPane *pane = m_window->openChart(symbol, m_options.side, period);
    if (!pane || m_options.bars <= 0)
        return;
    m_unzoomed.push_back(pane->window());
    QTimer::singleShot(settleMs, this, &Session::zoomNewCharts);
}

// A chart can zoom once it has its positions.
void Session::zoomNewCharts() {
    if (!m_started)
        return;
    const std::vector<Handle> windows = std::exchange(m_unzoomed, {});
    const Handle active = m_window->deck().active() ? m_window->deck().active()->window() : 0;
    for (const Handle window : windows) {
        if (ChartPane *pane = m_window->deck().find(window))
            m_window->setVisiblePositions(*pane, m_options.bars);
    }
    m_window->deck().activate(m_window->deck().find(active));
}

void Session::stop() {
    if (!m_started)
        return;
    m_started = false;
    m_showsArrivals = false;
    if (m_market)
        disconnect(m_market.get(), nullptr, nullptr, nullptr);
    m_feed.reset();
    m_replay.reset();
    m_market.reset();
    if (m_window)
        saveLook();
    m_window->deck().closeAll();
    m_host->sendToModule(ToModule::MainWindowCloses);
    m_host->sendToModule(ToModule::Stop);
    // Widgets that the module built into a page must be gone before its code is.
    m_window->properties().showPage(PageKey(), Page(), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_host->unload();
}

void Session::takePicture(const QString &fileName, const std::function<void(const QString &)> &done) {
    const auto waited = std::make_shared<int>(0);
    const auto take = [this, fileName, done] {
        if (m_window->savePicture(fileName))
            done(QString());
        else
            done(tr("The picture %1 cannot be written.").arg(fileName));
    };
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer, waited, take, done] {
        *waited += timer->interval();
        if (m_window->deck().panes().empty() && m_showsArrivals && *waited < mostArrivalMs)
            return;
        timer->stop();
        timer->deleteLater();
        if (m_window->deck().panes().empty()) {
            done(tr("There is nothing to show: no quotes came in."));
            return;
        }
        if (m_options.bars <= 0) {
            take();
            return;
        }
        zoomNewCharts();
        QTimer::singleShot(settleMs, this, take);
    });
    timer->start(settleMs);
}

void Session::restoreLook() {
    const QSize size = m_options.size.isEmpty() ? usualSize : m_options.size;
    m_window->resize(size);
    if (m_unattended)
        return;
    QSettings settings(dataFolder(m_options) + QStringLiteral("/desk.ini"), QSettings::IniFormat);
    if (m_options.size.isEmpty() && settings.contains("window/geometry"))
        m_window->restoreGeometry(settings.value("window/geometry").toByteArray());
    m_window->restoreState(settings.value("window/state").toByteArray());
    if (settings.value("charts/tabs").toBool())
        m_window->deck().setMode(ChartDeck::Tabs);
    const QString language = settings.value("language").toString();
    if (!language.isEmpty())
        m_window->setLanguage(language);
}

void Session::saveLook() {
    if (m_unattended)
        return;
    QSettings settings(dataFolder(m_options) + QStringLiteral("/desk.ini"), QSettings::IniFormat);
    settings.setValue("window/geometry", m_window->saveGeometry());
    settings.setValue("window/state", m_window->saveState());
    settings.setValue("charts/tabs", m_window->deck().mode() == ChartDeck::Tabs);
    settings.setValue("language", m_texts->language());
}

} // namespace desk
