#pragma once
#include "host/core/Front.h"
#include "host/core/WindowFront.h"
#include "host/quotes/Period.h"
#include "host/quotes/Quote.h"
#include <QMainWindow>
#include <QTimer>
#include <map>
#include <memory>

class QAction;
class QActionGroup;
class QLabel;
class QProgressBar;
class QSlider;
class QToolButton;

namespace desk {

class ActionPanel;
class CalculatedObject;
class ChartDeck;
class ChartPane;
class DealingHistoryService;
class DealingService;
class EventService;
class GuideWindow;
class Host;
class IndicatorPanel;
struct IndicatorEntry;
class InformationPanel;
class Journal;
class LogPanel;
class PropertyDock;
class PropertyService;
class QuoteBook;
class SymbolPanel;
class TextService;
class WindowService;

// The services that the window's controls work on.
struct WindowServices {
    WindowService *window = nullptr;
    EventService *events = nullptr;
    TextService *texts = nullptr;
    PropertyService *properties = nullptr;
    DealingService *dealing = nullptr;
    DealingHistoryService *reports = nullptr;
    QuoteBook *quotes = nullptr;
};

// The main window of the desk: charts, lists, panels, tool bars and menus.
class MainWindow : public QMainWindow, public Front, public WindowFront {
    Q_OBJECT

public:
    MainWindow(Host &host, Journal &journal);
    ~MainWindow() override;
    void setServices(const WindowServices &services);
    // Without a user nobody can answer a dialog: every question is answered with yes.
    void setUnattended(bool unattended) { m_unattended = unattended; }

    ChartDeck &deck() { return *m_deck; }
    SymbolPanel &symbols() { return *m_symbols; }
    IndicatorPanel &indicators() { return *m_indicators; }
    InformationPanel &information() { return *m_information; }
    LogPanel &log() { return *m_log; }
    ActionPanel &actions() { return *m_actions; }
    PropertyDock &properties() { return *m_properties; }
    QAction *action(const QString &name) const; // by its object name

    ChartPane *newChart();
    // Opens a chart of the symbol; null when the module refused the window.
    ChartPane *openChart(const QString &symbol, Side side, Period period);
    void addInstrument(ChartPane &pane, const QString &symbol, Side side, Period period);
    void addIndicator(ChartPane &pane, const IndicatorEntry &entry);
    void setVisiblePositions(ChartPane &pane, int count); // or all that the chart has
    void openQuoteFile(const QString &fileName);
    bool savePicture(const QString &fileName);
    void setLanguage(const QString &language);

    // Front
    void tell(Level level, const QString &sentence) override;
    void progress(const QString &what, int percent) override;
    bool confirm(CalculatedObject &object) override;
    void showObject(CalculatedObject &object) override;
    void refreshObject(CalculatedObject &object) override;
    QWidget *dialogParent() override { return this; }

    // WindowFront
    QToolButton *toolButton(unsigned message) override;
    QSlider *zoomSlider() override { return m_zoomSlider; }
    void captionChanged(Handle window, const QString &caption) override;
    void milestone(const QString &text) override;
    void crossCursorChanged(bool on) override;
    void showLocator(const std::vector<LocatorLine> &lines, const QColor &background) override;
    void openInstrumentPicker(const QString &name) override;
    void askForLogin() override;
    void openHelp(const QString &page) override;
    void openAlert(const QString &symbol) override;
    QLabel *statusPane(unsigned id, int width) override;

signals:
    void closing(); // the module must be left before the window is gone

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // One text of a menu or button, and what it is set on.
    struct Caption {
        QAction *action;
        const char *text;
    };

    void makeDocks();
    void makeTimeframeBar();
    void makeZoomBar();
    void makeMenus();
    QAction *addAction(QWidget *menu, const QString &name, const char *text, const QKeySequence &keys = {});
    QToolButton *makeButton(const QString &name, const QString &icon);
    void retranslate();

    void setTimeframe(int item);
    void setPriceType(int type);
    void setMode(const QByteArray &event, unsigned onCode, unsigned offCode, bool on);
    void setLayoutMode(int mode);
    void showChartState(); // the tool bars follow the active chart
    void scheduleChartState();
    void refreshCaptions(); // asks every chart for its caption
    const CalculatedObject *activeInstrument() const;
    Period activePeriod() const;
    Side activeSide() const;
    Period periodFor(const QString &symbol, const CalculatedObject *neighbour);
    void tellWithoutSource(const IndicatorEntry &entry);
    void refreshSymbols();
    void showQuotes();
    void raisePanel(int panel);
    void openReport();
    void showAbout();
    void showGuide();
    void askForQuoteFile();
    void askForPicture();

    Host &m_host;
    Journal &m_journal;
    WindowServices m_services;
    bool m_unattended = false;

    ChartDeck *m_deck;
    SymbolPanel *m_symbols;
    IndicatorPanel *m_indicators;
    InformationPanel *m_information;
    LogPanel *m_log;
    ActionPanel *m_actions;
    PropertyDock *m_properties;

    QToolBar *m_periodBar = nullptr;
    QToolBar *m_zoomBar = nullptr;
    QActionGroup *m_periods = nullptr;
    QActionGroup *m_types = nullptr;
    QActionGroup *m_languages = nullptr;
    QMenu *m_languageMenu = nullptr;
    QToolButton *m_zoomIn = nullptr;
    QToolButton *m_zoomOut = nullptr;
    QToolButton *m_lastCandle = nullptr;
    QToolButton *m_informationButton = nullptr;
    QToolButton *m_cross = nullptr;
    QSlider *m_zoomSlider = nullptr;
    QLabel *m_message = nullptr;
    QProgressBar *m_progress = nullptr;
    GuideWindow *m_guide = nullptr;
    std::map<unsigned, QLabel *> m_statusPanes;
    std::vector<Caption> m_captions;
    std::vector<std::pair<QMenu *, const char *>> m_menus;
    std::map<QString, std::pair<double, double>> m_newQuotes; // bid and ask since the list was last shown
    QTimer m_quoteTimer;
    QTimer m_captionTimer;
    QTimer m_stateTimer;
    bool m_closed = false;
};

} // namespace desk
