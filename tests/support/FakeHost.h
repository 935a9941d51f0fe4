#pragma once
// Plays the host in a test. It loads the built library, answers every message that a working host
// answers, keeps the traffic of both directions, and can refuse, garble or interrupt any call.
//
//     FakeHost host;                        // library loaded, Initialize, 3007, 3004, 3066 done
//     Chart chart = host.createChart();     // 5003 with two widgets, 5005, 5009, 5011
//     FakeObject *eur = host.addInstrument(chart, "EURUSD", 'I', 60);   // 5007
//     host.tick();                          // one pass of the module's timer
//     QImage picture = host.grab(chart);
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include "tests/support/Bytes.h"
#include "tests/support/Series.h"

#include <QImage>
#include <QMap>
#include <QPointer>
#include <QStringList>
#include <QTranslator>
#include <QWidget>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

class CRGraphWidget;
class QDialog;
class QLabel;
class QSlider;
class QToolButton;

/// One message that went over the boundary.
struct Call {
    bool toHost = true;
    void *target = nullptr;
    unsigned message = 0;
    int wParam = 0;
    int lParam = 0;
    int result = 0;
    QByteArray wRecord; // what wParam and lParam pointed at when the call came in, where the size is known
    QByteArray lRecord;
    int depth = 0; // calls under way in either direction when it came in
};

/// A chart window and the widgets of the host around it.
struct Chart {
    CRGraphWidget *handle = nullptr;
    QPointer<QWidget> widget;  // the chart itself
    QPointer<QWidget> frame;   // its parent
    QPointer<QWidget> outer;   // the frame's parent, which gives the chart its size at 5005
    QPointer<QWidget> toolBar; // parent of the chart's tool bar
};

/// One output of an indicator; computed from the closes of the first source.
struct FakeOutput {
    QString name;
    Word drawKind = 4;
    int style = 0;
    int placement = 0;
    std::function<float(const std::vector<float> &closes, int index)> value; // null: the close itself
};

/// An entry of the catalogue of "MVINDICATORS".
struct FakeIndicator {
    QString name; // internal
    QString displayName;
    Word category = 1;
    int inputs = 1;
    std::vector<FakeOutput> outputs;
    std::vector<coreIndicatorLinks> links;
    coreHorizontLine levels{};
};

/// A calculated object: an instrument's series or an indicator.
struct FakeObject {
    Word handle = 0;
    Word maker = 0; // interface handle
    bool instrument = true;
    coreNameInstrument name;
    QString displayName, suffix, alias;
    int inputs = 0;
    std::vector<std::unique_ptr<FakeArray>> outputs;
    std::vector<mvDataPointArray *> sources;
    std::vector<coreIndicatorLinks> links;
    coreHorizontLine levels{};
    Word confirm = 1;
    Word number = 0;
    FakeIndicator kind; // of an indicator
    std::multiset<CRGraphWidget *> subscribers;
    FakeArray &array(int index = 0) { return *outputs.at(static_cast<std::size_t>(index)); }
};

struct LogLine {
    QString name;
    Word type = 0;
    Word level = 0;
    QString text;
};

struct LocatorItem {
    QString text;
    Word color = 0;
    Word fontSize = 0;
};

class FakeHost {
public:
    enum Stage { Loaded, Initialized, Created, Started, Running }; // what the constructor does, up to
    explicit FakeHost(Stage stage = Running, const QString &library = QString(),
                      Word firstHandle = 0x01000001);
    // A module that is linked into the test program; it outlives the host and is not unloaded.
    struct Entry {
        int (*getModuleInfo)(MODULE_INFO *);
        void (*initialize)(HostFunction, HostFunction, void *, void *);
        int (*receiveMessage)(void *, unsigned, int, int);
        void *module;
        std::function<void()> tick;
    };
    explicit FakeHost(const Entry &entry, Stage stage = Running);
    ~FakeHost(); // deletes the charts, stops the module, unloads the library

    // ---- the library ----
    int (*GetModuleInfo)(MODULE_INFO *) = nullptr;
    void (*Initialize)(HostFunction, HostFunction, void *, void *) = nullptr;
    int (*ReceiveMessage)(void *, unsigned, int, int) = nullptr;
    void *moduleObject = nullptr; // address of the exported object
    void initialize(bool withFunction = true);
    void close();                                         // the end of a run; the destructor does it too
    void setLiveTimer(bool on);                           // by default only tick() ticks
    int timerInterval() const { return m_timerInterval; } // of the module's clock, in milliseconds

    // ---- messages to the module ----
    int send(unsigned message, int wParam = 0, int lParam = 0);
    int send(unsigned message, const void *wParam, int lParam = 0);
    int send(unsigned message, const void *wParam, const void *lParam);
    int send(unsigned message, int wParam, const void *lParam);

    // ---- charts ----
    Chart createChart(QSize size = QSize(800, 600), Word kind = 0);     // 5003, 5005, 5009, 5011
    Chart createBareChart(QSize size = QSize(800, 600), Word kind = 0); // 5003 alone
    void deleteChart(Chart &chart);                                     // 5004 and the frame
    std::vector<Chart> &charts() { return m_charts; }
    FakeObject *addInstrument(const Chart &chart, const QString &symbol, char letter = 'I', int length = 60,
                              const char *type = "Bid");       // 5007; the object, null when none was made
    int addIndicator(const Chart &chart, const QString &name); // 5006; its result
    QString caption(const Chart &chart);                       // 5034
    void tick();                                               // one pass of the module's timer
    QImage grab(const Chart &chart);
    void settle(); // works off posted events

    // ---- objects ----
    // History that a symbol has from now on; without it a symbol gets 200 bars of a fixed walk.
    void setHistory(const QString &symbol, const std::vector<Bar> &bars);
    void setTickHistory(const QString &symbol, const std::vector<Tick> &ticks);
    void setPrecision(int digits) { m_precision = digits; }
    void setDrawKind(Word kind) { m_drawKind = kind; } // of instruments made from now on
    void addIndicatorKind(const FakeIndicator &indicator);
    FakeObject *object(Word handle);
    FakeObject *lastObject(); // the one made last
    std::vector<FakeObject *> objects();
    void appendBar(FakeObject *object, const Bar &bar); // and recomputes what is built on it
    void changeLastBar(FakeObject *object, const Bar &bar);
    int update(FakeObject *object, int kind = 0); // 3009 to every subscriber; the last result
    int update(FakeObject *object, const Chart &chart, int kind);
    void recompute(FakeObject *object);

    // ---- what the host shows ----
    QSlider *slider = nullptr; // 3552
    QToolButton *zoomInButton = nullptr;
    QToolButton *zoomOutButton = nullptr;
    QToolButton *lastCandleButton = nullptr;
    QToolButton *informationButton = nullptr;
    QLabel *timeLabel = nullptr; // the panes of the status bar
    QLabel *priceLabel = nullptr;
    std::vector<LogLine> log;
    QStringList milestones;                // texts of 5008; an empty text is "desktop changed"
    QStringList captions;                  // texts of 5033
    std::vector<LocatorItem> locatorItems; // as shown last
    Word locatorBackground = 0;
    int locatorCalls = 0;
    std::map<Word, PROPERTY_PAGE *> pages; // shown pages by id; the records are the module's
    QMap<QString, QString> texts;          // by id, as registered with 3019
    QMap<QString, QString> translations;   // the host's own texts by id, which win over the registered

    // ---- what the host answers; set before the call ----
    Word crossCursor = 0;
    bool hasLocator = true;
    bool hasWidgets = true; // slider and buttons
    bool hasFormatters = true;
    mwiStateLsButton toolState{};
    std::vector<std::pair<QString, Word>> languages{{"English", 1}, {"Chinese (Simplified)", 0}};
    QString workFolder;
    QString applicationCaption = "Terminal";
    std::map<Word, std::vector<mvdDayOff>> dayOff; // by account
    std::vector<QString> reportSymbols;

    // ---- interfaces ----
    Word coreHandle() const { return 0x00C0E001; }
    Word componentHandle() const { return 0x00C0E002; }
    Word moduleInterface() const { return m_moduleInterface; } // as given out at 3000
    Word addInterface(const char *name, const char *provider, const char *object);
    void removeInterface(const char *name);   // every one of that kind
    Word interfaceOf(const char *name) const; // the first of that kind, 0 without one

    // ---- events ----
    void emitEvent(const QString &name, Word code, void *data = nullptr, int size = 0); // to each subscriber
    void *subscriberOf(const QString &name) const;

    // ---- traffic ----
    const std::vector<Call> &calls() const { return m_calls; }
    std::vector<Call> callsOf(unsigned message, bool toHost = true) const;
    int count(unsigned message, bool toHost = true) const; // since the last clearTraffic()
    int hostCalls() const { return m_hostCalls; }          // to the host, since the last clearTraffic()
    void clearTraffic();
    void setRecording(bool on) { m_recording = on; } // counts go on either way

    // ---- trouble ----
    // A refused call gets `result` and no answer. A garbled one gets counts below zero, null arrays,
    // texts without terminator and handles that name nothing.
    enum Trouble { Refuse, Garble };
    void troubleAt(int nth, Trouble trouble = Refuse, int result = 0); // counts from 1, from now on
    void troubleMessage(unsigned message, Trouble trouble = Refuse, int result = 0);
    void clearTrouble();
    bool troubleHappened() const { return m_troubleHappened; }
    // Takes the place of the host's own answer to one message, until it is reset with null.
    using Answer = std::function<int(void *target, int wParam, int lParam)>;
    void answer(unsigned message, Answer answer);
    int defaultAnswer(void *target, unsigned message, int wParam, int lParam);
    // Runs before or after the answer of every call to the host (not inside itself).
    enum Moment { BeforeAnswer, AfterAnswer };
    void setInterruption(std::function<void(const Call &)> interruption, Moment moment = BeforeAnswer);

    // ---- dialogs ----
    // Works on the next dialogs in the order given; each must close its dialog.
    void onDialog(std::function<void(QDialog *)> work);
    QStringList dialogTexts; // "title|text" of the message boxes that came up
    // A dialog that nobody expects is closed, so that no test hangs; one that asks for a layer with the
    // layer that it offers.

    static FakeHost *current();

private:
    struct NamedInterface {
        Word handle;
        QString name, provider, object;
    };
    struct Subscription {
        QString name;
        Word interfaceHandle;
        void *subscriber;
    };
    class Translator;
    class DialogWatcher;

    static int receive(void *target, unsigned message, int wParam, int lParam);
    static int receiveSecond(void *target, unsigned message, int wParam, int lParam);
    void interrupt(const Call &call, Moment moment);
    int take(void *target, unsigned message, int wParam, int lParam);
    void garble(unsigned message, int wParam, int lParam);
    void registerDefaults();
    int answerCore(unsigned message, int wParam, int lParam, bool *known);
    int answerObject(unsigned message, int wParam, int lParam, bool *known);
    int answerIdentity(unsigned message, int wParam, int lParam, bool *known);
    int answerWindow(unsigned message, int wParam, int lParam, bool *known);
    int answerEngine(void *target, unsigned message, int wParam, int lParam, bool *known);
    bool matches(const NamedInterface &item, const coreNameInterface &names) const;
    FakeObject *make(const coreDemandsIndicator &record);
    FakeObject *makeInstrument(const coreNameInstrument &name);
    FakeObject *makeIndicator(const FakeIndicator &kind, const coreNameInstrument &name, Word maker);
    void fillInstrument(FakeObject *object);
    void changeArray(Word handle, const coreNameInstrument &name);
    void setUp();
    void advance(Stage stage);
    void load(const QString &library);

    void *m_library = nullptr;
    bool m_open = false;
    std::function<void()> m_linkedTick;
    QObject *m_timer = nullptr;
    int m_timerId = 0;
    int m_timerInterval = 0;
    Word m_nextHandle = 0x01000001;
    Word m_moduleInterface = 0;
    std::vector<NamedInterface> m_interfaces;
    std::vector<Subscription> m_subscriptions;
    std::map<QString, Word> m_eventIds;
    std::map<Word, std::unique_ptr<FakeObject>> m_objects;
    FakeObject *m_last = nullptr;
    std::map<QString, std::vector<Bar>> m_history;
    std::map<QString, std::vector<Tick>> m_tickHistory;
    std::vector<FakeIndicator> m_kinds;
    int m_precision = 5;
    Word m_drawKind = 1;
    std::vector<Chart> m_charts;
    std::vector<Call> m_calls;
    std::map<unsigned, int> m_toHost, m_toModule;
    int m_hostCalls = 0;
    bool m_recording = true;
    int m_depth = 0;
    int m_troubleAt = 0;
    Trouble m_trouble = Refuse;
    int m_troubleResult = 0;
    std::map<unsigned, std::pair<Trouble, int>> m_troubleMessages;
    bool m_troubleHappened = false;
    std::map<unsigned, Answer> m_answers;
    std::function<void(const Call &)> m_interruption;
    Moment m_moment = BeforeAnswer;
    bool m_interrupting = false;
    std::unique_ptr<QWidget> m_shelf; // holds the host's own widgets
    std::vector<std::unique_ptr<QWidget>> m_pageWidgets;
    std::unique_ptr<Translator> m_translator;
    std::unique_ptr<DialogWatcher> m_watcher;
};

/// The first child widget of a class, by the class's name ("CTimeScrollBar", "CToolButton").
QWidget *childOfClass(const QWidget *parent, const char *className);
QList<QWidget *> childrenOfClass(const QWidget *parent, const char *className);
