#pragma once
#include "host/core/Host.h"
#include "host/core/Journal.h"
#include "host/quotes/QuoteBook.h"
#include "host/window/MainWindow.h"
#include "host/window/Options.h"
#include <QHash>
#include <QObject>
#include <functional>
#include <memory>

namespace desk {

class CandleService;
class FolderService;
class LineFeed;
class Market;
class Replay;

// One run of the desk, in the order that the module expects: library, services, start, main window, charts;
// and at the end charts, main window, stop, library.
class Session : public QObject {
    Q_OBJECT

public:
    explicit Session(const Options &options, QObject *parent = nullptr);
    ~Session() override;

    // Brings everything up to the shown charts. Empty, or a sentence: then nothing can be shown.
    QString start();
    // The same with a module that is linked into this program.
    QString startWith(Host::ReceiveFunction receive);
    void stop();
    // Nobody is there to answer dialogs, and warnings go to standard error.
    void setUnattended();

    Host &host() { return *m_host; }
    MainWindow &window() { return *m_window; }
    QuoteBook &book() { return *m_book; }
    Journal &journal() { return *m_journal; }
    TextService &texts() { return *m_texts; }
    EventService &events() { return *m_events; }
    WindowService &windows() { return *m_windows; }
    CandleService &candles() { return *m_candles; }
    DealingService &dealing() { return *m_dealing; }
    // Writes the picture of the window once its charts have settled, then calls `done` with an empty text or
    // a sentence.
    void takePicture(const QString &fileName, const std::function<void(const QString &)> &done);
    static QString dataFolder(const Options &options);

private:
    void makeServices();
    QString readQuotes();
    QString openSources();
    QString bringUp();
    QString openCharts();
    void openChart(const QString &symbol);
    void echo(Level level, const QString &sentence);
    void echoProgress(const QString &what, int percent);
    void zoomNewCharts(); // to the number of positions that was asked for
    void openArrived();   // charts of symbols that a feed brought
    void restoreLook();
    void saveLook();

    Options m_options;
    bool m_unattended = false;
    bool m_started = false;
    bool m_showsArrivals = false; // charts open as a feed brings their symbols
    QStringList m_importedSymbols;
    QHash<QString, Period> m_periods; // at which a symbol's chart opens: that of its file
    std::vector<Handle> m_unzoomed;   // charts that have their own number of positions still
    QStringList m_refusals;           // of quote files
    std::unique_ptr<Journal> m_journal;
    std::unique_ptr<QuoteBook> m_book;
    std::unique_ptr<Market> m_market;
    std::unique_ptr<LineFeed> m_feed;
    std::unique_ptr<Replay> m_replay;
    std::unique_ptr<Host> m_host;
    std::unique_ptr<MainWindow> m_window;
    TextService *m_texts = nullptr;
    EventService *m_events = nullptr;
    WindowService *m_windows = nullptr;
    CandleService *m_candles = nullptr;
    DealingService *m_dealing = nullptr;
    FolderService *m_folders = nullptr;
    PropertyService *m_properties = nullptr;
};

} // namespace desk
