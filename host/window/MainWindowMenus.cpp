// Docks, tool bars and menus of the main window, and their texts.
#include "host/core/CalculatedObject.h"
#include "host/core/DealingService.h"
#include "host/core/Host.h"
#include "host/core/TextService.h"
#include "host/core/WindowService.h"
#include "host/dealing/DealingHistoryService.h"
#include "host/pages/PropertyDock.h"
#include "host/quotes/QuoteBook.h"
#include "host/window/ChartDeck.h"
#include "host/window/ChartPane.h"
#include "host/window/GuideWindow.h"
#include "host/window/IndicatorPanel.h"
#include "host/window/InformationPanel.h"
#include "host/window/LogPanel.h"
#include "host/window/MainWindow.h"
#include "host/window/SymbolPanel.h"
#include "host/window/Theme.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QActionGroup>
#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QSlider>
#include <QToolBar>
#include <QToolButton>

namespace desk {

namespace {

// The timeframe panel: the period's name and its item number for the charts.
struct Timeframe {
    const char *name;
    int item;
};
constexpr Timeframe timeframes[] = {{"tick", 8}, {"M1", 0}, {"M5", 1},  {"M10", 2}, {"H1", 3},
                                    {"H3", 4},   {"D1", 5}, {"MN1", 6}, {"Y1", 7}};

// The types of prices and their numbers for the charts.
struct PriceType {
    const char *name;
    int number;
};
constexpr PriceType priceTypes[] = {{"Bid", 1}, {"Ask", 2}, {"Middle", 0}};

} // namespace

void MainWindow::makeDocks() {
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    addDockWidget(Qt::LeftDockWidgetArea, m_symbols);
    addDockWidget(Qt::LeftDockWidgetArea, m_indicators);
    addDockWidget(Qt::RightDockWidgetArea, m_properties);
    addDockWidget(Qt::RightDockWidgetArea, m_information);
    addDockWidget(Qt::BottomDockWidgetArea, m_log);
    addDockWidget(Qt::BottomDockWidgetArea, m_actions);
    tabifyDockWidget(m_log, m_actions);
    for (QDockWidget *dock : findChildren<QDockWidget *>())
        dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    for (QDockWidget *hidden :
         {static_cast<QDockWidget *>(m_properties), static_cast<QDockWidget *>(m_information),
          static_cast<QDockWidget *>(m_log), static_cast<QDockWidget *>(m_actions)})
        hidden->hide();
    resizeDocks({m_symbols, m_properties}, {290, 320}, Qt::Horizontal);
    resizeDocks({m_symbols, m_indicators}, {240, 420}, Qt::Vertical);
    resizeDocks({m_log}, {150}, Qt::Vertical);
    // The page needs the room: a dock that comes into view beside another would get what is left.
    for (QDockWidget *dock : {static_cast<QDockWidget *>(m_properties), static_cast<QDockWidget *>(m_information)})
        connect(dock, &QDockWidget::visibilityChanged, this, [this](bool visible) {
            if (visible && !m_properties->isHidden() && !m_information->isHidden())
                resizeDocks({m_properties, m_information}, {300, 100}, Qt::Vertical);
        });
}

QToolButton *MainWindow::makeButton(const QString &name, const QString &icon) {
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setIcon(theme::icon(icon));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

void MainWindow::makeTimeframeBar() {
    m_periodBar = addToolBar(QString());
    m_periodBar->setObjectName(QStringLiteral("periodBar"));
    m_periodBar->setMovable(false);
    m_periods = new QActionGroup(this);
    m_periods->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const Timeframe &timeframe : timeframes) {
        QAction *entry = m_periodBar->addAction(QString::fromLatin1(timeframe.name));
        entry->setObjectName(QStringLiteral("period_%1").arg(QLatin1String(timeframe.name)));
        entry->setData(QString::fromLatin1(timeframe.name));
        entry->setCheckable(true);
        m_periods->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, item = timeframe.item] { setTimeframe(item); });
    }
    m_periodBar->addSeparator();
    m_types = new QActionGroup(this);
    m_types->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (const PriceType &type : priceTypes) {
        QAction *entry =
            addAction(m_periodBar, QStringLiteral("type_%1").arg(QLatin1String(type.name)), type.name);
        entry->setData(QString::fromLatin1(type.name));
        entry->setCheckable(true);
        m_types->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, number = type.number] { setPriceType(number); });
    }
    m_periodBar->addSeparator();
}

void MainWindow::makeZoomBar() {
    m_zoomBar = addToolBar(QString());
    m_zoomBar->setObjectName(QStringLiteral("zoomBar"));
    m_zoomBar->setMovable(false);
    m_zoomBar->setIconSize(QSize(18, 18));
    m_zoomOut = makeButton(QStringLiteral("zoomOut"), QStringLiteral("zoom-out"));
    m_zoomIn = makeButton(QStringLiteral("zoomIn"), QStringLiteral("zoom-in"));
    m_lastCandle = makeButton(QStringLiteral("lastCandle"), QStringLiteral("last-candle"));
    m_informationButton = makeButton(QStringLiteral("informationBox"), QStringLiteral("information"));
    m_cross = makeButton(QStringLiteral("crossCursor"), QStringLiteral("cross"));
    for (QToolButton *button : {m_lastCandle, m_informationButton, m_cross})
        button->setCheckable(true);
    m_zoomSlider = new QSlider(Qt::Horizontal, this);
    m_zoomSlider->setObjectName(QStringLiteral("zoomSlider"));
    m_zoomSlider->setRange(0, 0);
    m_zoomSlider->setFixedWidth(140);
    m_zoomSlider->setFocusPolicy(Qt::NoFocus);
    for (QWidget *control : {static_cast<QWidget *>(m_zoomOut), static_cast<QWidget *>(m_zoomSlider),
                             static_cast<QWidget *>(m_zoomIn), static_cast<QWidget *>(m_lastCandle),
                             static_cast<QWidget *>(m_cross), static_cast<QWidget *>(m_informationButton)})
        m_zoomBar->addWidget(control);

    connect(m_zoomIn, &QToolButton::clicked, this, [this] { m_host.sendToModule(ToModule::ZoomIn); });
    connect(m_zoomOut, &QToolButton::clicked, this, [this] { m_host.sendToModule(ToModule::ZoomOut); });
    connect(m_lastCandle, &QToolButton::clicked, this, [this] { m_host.sendToModule(ToModule::LastCandle); });
    connect(m_zoomSlider, &QSlider::sliderPressed, this,
            [this] { m_host.sendToModule(ToModule::ZoomChange, 8, m_zoomSlider->value()); });
    connect(m_zoomSlider, &QSlider::valueChanged, this,
            [this](int value) { m_host.sendToModule(ToModule::ZoomChange, 0, value); });
    connect(m_informationButton, &QToolButton::clicked, m_information, &QWidget::setVisible);
    connect(m_information, &QDockWidget::visibilityChanged, this,
            [this] { m_informationButton->setChecked(!m_information->isHidden()); });
    connect(m_cross, &QToolButton::clicked, this, [this](bool on) {
        if (m_services.window)
            m_services.window->setCrossCursor(on);
    });
}

QAction *MainWindow::addAction(QWidget *menu, const QString &name, const char *text,
                               const QKeySequence &keys) {
    auto *entry = new QAction(this);
    entry->setObjectName(name);
    entry->setShortcut(keys);
    menu->addAction(entry);
    m_captions.push_back({entry, text});
    return entry;
}

QAction *MainWindow::action(const QString &name) const {
    return findChild<QAction *>(name);
}

void MainWindow::makeMenus() {
    const auto menu = [this](const char *text) {
        QMenu *made = menuBar()->addMenu(QString());
        m_menus.push_back({made, text});
        return made;
    };
    QMenu *file = menu(QT_TR_NOOP("&File"));
    QAction *open = addAction(file, "fileOpen", QT_TR_NOOP("&Open quotes..."), QKeySequence::Open);
    QAction *picture = addAction(file, "filePicture", QT_TR_NOOP("Save &picture..."), QKeySequence::Save);
    file->addSeparator();
    QAction *quit = addAction(file, "fileQuit", QT_TR_NOOP("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q));
    connect(open, &QAction::triggered, this, &MainWindow::askForQuoteFile);
    connect(picture, &QAction::triggered, this, &MainWindow::askForPicture);
    connect(quit, &QAction::triggered, this, &QWidget::close);

    QMenu *view = menu(QT_TR_NOOP("&View"));
    QAction *chart = addAction(view, "viewNewChart", QT_TR_NOOP("&New chart"), QKeySequence::New);
    QAction *closeChart =
        addAction(view, "viewCloseChart", QT_TR_NOOP("&Close chart"), QKeySequence(Qt::CTRL | Qt::Key_W));
    QAction *next =
        addAction(view, "viewNextChart", QT_TR_NOOP("Ne&xt chart"), QKeySequence(Qt::CTRL | Qt::Key_Tab));
    view->addSeparator();
    auto *layouts = new QActionGroup(this);
    QAction *tiles =
        addAction(view, "viewTiles", QT_TR_NOOP("&Tile charts"), QKeySequence(Qt::CTRL | Qt::Key_1));
    QAction *tabs =
        addAction(view, "viewTabs", QT_TR_NOOP("Charts in t&abs"), QKeySequence(Qt::CTRL | Qt::Key_2));
    for (QAction *layout : {tiles, tabs}) {
        layout->setCheckable(true);
        layouts->addAction(layout);
    }
    tiles->setChecked(true);
    tiles->setIcon(theme::icon("tile"));
    tabs->setIcon(theme::icon("tabs"));
    chart->setIcon(theme::icon("new-chart"));
    view->addSeparator();
    for (QDockWidget *dock : findChildren<QDockWidget *>())
        view->addAction(dock->toggleViewAction());
    m_zoomBar->addSeparator();
    m_zoomBar->addActions({chart, tiles, tabs});
    connect(chart, &QAction::triggered, this, &MainWindow::newChart);
    connect(closeChart, &QAction::triggered, this, [this] { m_deck->closeChart(m_deck->active()); });
    connect(next, &QAction::triggered, this, [this] { m_deck->activateNext(1); });
    connect(tiles, &QAction::triggered, this, [this] { setLayoutMode(ChartDeck::Tiled); });
    connect(tabs, &QAction::triggered, this, [this] { setLayoutMode(ChartDeck::Tabs); });

    QMenu *modes = menu(QT_TR_NOOP("&Mode"));
    QAction *game = addAction(modes, "modeGame", QT_TR_NOOP("&Game mode"));
    QAction *competition = addAction(modes, "modeCompetition", QT_TR_NOOP("&Competition mode"));
    for (QAction *entry : {game, competition})
        entry->setCheckable(true);
    connect(game, &QAction::triggered, this, [this, competition](bool on) {
        competition->setChecked(false);
        setMode("Velmar Game Mode", EventCode::GameModeOn, EventCode::GameModeOff, on);
    });
    connect(competition, &QAction::triggered, this, [this, game](bool on) {
        game->setChecked(false);
        setMode("Velmar Competition Mode", EventCode::CompetitionModeOn, EventCode::CompetitionModeOff, on);
    });

    QMenu *account = menu(QT_TR_NOOP("&Account"));
    QAction *report = addAction(account, "accountReport", QT_TR_NOOP("&Report of deals"));
    QAction *dayOff = addAction(account, "accountDayOff", QT_TR_NOOP("&Day off of USD/CHF"));
    dayOff->setCheckable(true);
    connect(report, &QAction::triggered, this, &MainWindow::openReport);
    connect(dayOff, &QAction::triggered, this,
            [this](bool on) { m_services.dealing->setDayOff("USD/CHF", on); });

    m_languageMenu = menu(QT_TR_NOOP("&Language"));
    m_languages = new QActionGroup(this);
    for (const QString &language : TextService::languages()) {
        QAction *entry = m_languageMenu->addAction(language);
        entry->setObjectName(QStringLiteral("language_") + language);
        entry->setData(language);
        entry->setCheckable(true);
        entry->setChecked(m_languages->actions().isEmpty());
        m_languages->addAction(entry);
        connect(entry, &QAction::triggered, this, [this, language] { setLanguage(language); });
    }
    QMenu *help = menu(QT_TR_NOOP("&Help"));
    QAction *guide = addAction(help, "helpGuide", QT_TR_NOOP("&Using the charts"), QKeySequence::HelpContents);
    QAction *about = addAction(help, "helpAbout", QT_TR_NOOP("&About"));
    connect(guide, &QAction::triggered, this, &MainWindow::showGuide);
    connect(about, &QAction::triggered, this, &MainWindow::showAbout);
}

void MainWindow::retranslate() {
    for (const Caption &caption : m_captions)
        caption.action->setText(tr(caption.text));
    for (const auto &[menu, text] : m_menus)
        menu->setTitle(tr(text));
    for (QAction *entry : m_languages->actions())
        entry->setText(tr(qPrintable(entry->data().toString())));
    m_periodBar->setWindowTitle(tr("Periods"));
    m_zoomBar->setWindowTitle(tr("Zoom"));
    m_zoomIn->setToolTip(tr("Zoom in"));
    m_zoomOut->setToolTip(tr("Zoom out"));
    m_zoomSlider->setToolTip(tr("Number of visible positions"));
    m_lastCandle->setToolTip(tr("Last candle indicator"));
    m_informationButton->setToolTip(tr("Information box"));
    m_cross->setToolTip(tr("Cross cursor"));
}

// A chart of its own for the deals on the active chart's symbol; it goes again when the user asks for none.
void MainWindow::openReport() {
    const CalculatedObject *instrument = activeInstrument();
    m_services.reports->setSymbol(instrument ? readText(instrument->identity().m_szNameSymbol, 255)
                                             : QString());
    ChartPane *pane = newChart();
    if (!pane)
        return;
    const Handle window = pane->window();
    // The chart asks for the time frame in a dialog, in which it may be closed.
    const bool opened = m_services.reports->openReport(window);
    if (!opened && m_deck->find(window))
        m_deck->closeChart(m_deck->find(window));
    scheduleChartState();
}

void MainWindow::showGuide() {
    if (!m_guide)
        m_guide = new GuideWindow(this);
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

void MainWindow::showAbout() {
    const QByteArray record = m_host.moduleInfo();
    const auto &info = *reinterpret_cast<const MODULE_INFO *>(record.constData());
    auto *box = new QMessageBox(this);
    box->setObjectName(QStringLiteral("aboutBox"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(tr("About"));
    box->setIconPixmap(windowIcon().pixmap(64, 64));
    box->setText(QStringLiteral("<h3>%1</h3>").arg(QCoreApplication::applicationName()));
    box->setInformativeText(tr("Chart module: %1 %2.%3.%4\n%5")
                                .arg(fieldText(info.name))
                                .arg(info.number1)
                                .arg(info.number2)
                                .arg(info.number3)
                                .arg(fieldText(info.description)));
    box->open();
}

void MainWindow::askForQuoteFile() {
    const QStringList files = QFileDialog::getOpenFileNames(this, tr("Open quotes"), QString(),
                                                            tr("Quotes (*.csv *.txt *.prn);;All files (*)"));
    for (const QString &file : files)
        openQuoteFile(file);
}

void MainWindow::openQuoteFile(const QString &fileName) {
    const ImportReport report = m_services.quotes->importFile(QuoteFile::fromArgument(fileName));
    if (report.refused) {
        tell(Level::Error, report.summary);
        if (!m_unattended) {
            auto *box = new QMessageBox(QMessageBox::Warning, tr("Open quotes"), report.summary, QMessageBox::Ok, this);
            box->setObjectName(QStringLiteral("refusedFile"));
            box->setAttribute(Qt::WA_DeleteOnClose);
            box->open();
        }
        return;
    }
    const SymbolHistory *history = m_services.quotes->history(report.symbol);
    if (history)
        openChart(report.symbol, Side::Bid, report.period);
}

void MainWindow::askForPicture() {
    QString file = QFileDialog::getSaveFileName(this, tr("Save picture"), QStringLiteral("chart.png"),
                                                tr("Pictures (*.png)"));
    if (file.isEmpty())
        return;
    if (!file.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
        file += QLatin1String(".png");
    if (!savePicture(file))
        tell(Level::Error, tr("The picture %1 cannot be written.").arg(file));
}

bool MainWindow::savePicture(const QString &fileName) {
    return grab().save(fileName, "PNG");
}

} // namespace desk
