// The library, the life of a run, and the road that every message takes.
#include "tests/support/FakeHost.h"

#include "tests/support/FakeHostPrivate.h"
#include "tests/support/RecordSizes.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QLabel>
#include <QSlider>
#include <QTimerEvent>
#include <QToolButton>
#include <dlfcn.h>
#include <stdexcept>

namespace {

FakeHost *g_current = nullptr;

// The toolkit's own hooks: they show which objects the library makes while it is loaded.
std::set<QObject *> *g_born = nullptr;
constexpr int addObjectHook = 3;
constexpr int removeObjectHook = 4;

void objectBorn(QObject *object) {
    g_born->insert(object);
}

void objectDied(QObject *object) {
    g_born->erase(object);
}

} // namespace

extern Q_CORE_EXPORT quintptr qtHookData[];

FakeHost *FakeHost::current() {
    return g_current;
}

FakeHost::FakeHost(Stage stage, const QString &library, Word firstHandle) : m_nextHandle(firstHandle) {
    setUp();
    load(library);
    advance(stage);
}

FakeHost::FakeHost(const Entry &entry, Stage stage) {
    setUp();
    GetModuleInfo = entry.getModuleInfo;
    Initialize = entry.initialize;
    ReceiveMessage = entry.receiveMessage;
    moduleObject = entry.module;
    m_linkedTick = entry.tick;
    m_open = true;
    advance(stage);
}

void FakeHost::setUp() {
    g_current = this;
    m_shelf.reset(new QWidget);
    slider = new QSlider(Qt::Horizontal, m_shelf.get());
    slider->setRange(-1000, 0);
    QObject::connect(slider, &QSlider::valueChanged, [this](int value) {
        if (m_open)
            send(ToModule::ZoomChange, 0, value);
    });
    QObject::connect(slider, &QSlider::sliderPressed, [this] {
        if (m_open)
            send(ToModule::ZoomChange, 8, slider->value());
    });
    zoomInButton = new QToolButton(m_shelf.get());
    zoomOutButton = new QToolButton(m_shelf.get());
    lastCandleButton = new QToolButton(m_shelf.get());
    informationButton = new QToolButton(m_shelf.get());
    informationButton->setCheckable(true);
    m_translator.reset(new Translator(this));
    QCoreApplication::installTranslator(m_translator.get());
    m_watcher.reset(new DialogWatcher(this));
    registerDefaults();
}

void FakeHost::advance(Stage stage) {
    if (stage >= Initialized)
        initialize();
    if (stage >= Created)
        send(ToModule::CreateInterface);
    if (stage >= Started)
        send(ToModule::Start);
    if (stage >= Running)
        send(ToModule::MainWindowIsLoading);
}

FakeHost::~FakeHost() {
    close();
    QCoreApplication::removeTranslator(m_translator.get());
    if (g_current == this)
        g_current = nullptr;
}

void FakeHost::load(const QString &library) {
    std::set<QObject *> born;
    g_born = &born;
    qtHookData[addObjectHook] = reinterpret_cast<quintptr>(&objectBorn);
    qtHookData[removeObjectHook] = reinterpret_cast<quintptr>(&objectDied);
    const QByteArray path = library.isEmpty() ? QByteArray(VELMAR_LIBRARY) : library.toLocal8Bit();
    m_library = dlopen(path.constData(), RTLD_NOW | RTLD_LOCAL);
    qtHookData[addObjectHook] = 0;
    qtHookData[removeObjectHook] = 0;
    g_born = nullptr;
    if (!m_library)
        throw std::runtime_error(dlerror());
    GetModuleInfo = reinterpret_cast<decltype(GetModuleInfo)>(dlsym(m_library, "GetModuleInfo"));
    Initialize = reinterpret_cast<decltype(Initialize)>(dlsym(m_library, "Initialize"));
    ReceiveMessage = reinterpret_cast<decltype(ReceiveMessage)>(dlsym(m_library, "ReceiveMessage"));
    moduleObject = dlsym(m_library, "module");
    if (!GetModuleInfo || !Initialize || !ReceiveMessage || !moduleObject)
        throw std::runtime_error("an export is missing");
    for (QObject *object : born) {
        if (qstrcmp(object->metaObject()->className(), "CGraphTimer") == 0)
            m_timer = object;
    }
    if (m_timer) {
        const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(m_timer);
        if (!timers.isEmpty()) {
            m_timerId = timers.first().timerId;
            m_timerInterval = timers.first().interval;
        }
    }
    setLiveTimer(false);
    m_open = true;
}

void FakeHost::setLiveTimer(bool on) {
    if (m_timerId == 0)
        return;
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    const bool running = !dispatcher->registeredTimers(m_timer).isEmpty();
    if (on && !running)
        dispatcher->registerTimer(m_timerId, 1000, Qt::CoarseTimer, m_timer);
    else if (!on && running)
        dispatcher->unregisterTimer(m_timerId);
}

void FakeHost::initialize(bool withFunction) {
    Initialize(withFunction ? &FakeHost::receive : nullptr, withFunction ? &FakeHost::receiveSecond : nullptr,
               fromWord<void>(coreHandle()), fromWord<void>(componentHandle()));
}

void FakeHost::close() {
    if (!m_open)
        return;
    m_open = false;
    clearTrouble();
    m_interruption = nullptr;
    m_answers.clear();
    while (!m_charts.empty()) {
        Chart chart = m_charts.back();
        deleteChart(chart);
    }
    pages.clear();
    m_pageWidgets.clear();
    send(ToModule::MainWindowCloses);
    send(ToModule::Stop);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::sendPostedEvents();
    m_timer = nullptr;
    m_timerId = 0;
    if (m_library)
        dlclose(m_library);
    else
        Initialize(nullptr, nullptr, nullptr, nullptr);
    m_library = nullptr;
}

// ---- to the module ----

namespace {

// Calls under way; also when one ends in an exception.
class Depth {
public:
    explicit Depth(int &depth) : m_depth(depth) { ++m_depth; }
    ~Depth() { --m_depth; }

private:
    int &m_depth;
};

} // namespace

int FakeHost::send(unsigned message, int wParam, int lParam) {
    ++m_toModule[message];
    std::size_t place = m_calls.size();
    const bool recorded = m_recording;
    if (recorded) {
        Call call;
        call.toHost = false;
        call.message = message;
        call.wParam = wParam;
        call.lParam = lParam;
        call.depth = m_depth;
        m_calls.push_back(call);
    }
    const Depth depth(m_depth);
    const int result = ReceiveMessage(this, message, wParam, lParam);
    if (recorded && place < m_calls.size() && m_calls[place].message == message)
        m_calls[place].result = result;
    return result;
}

int FakeHost::send(unsigned message, const void *wParam, int lParam) {
    return send(message, toWord(wParam), lParam);
}

int FakeHost::send(unsigned message, const void *wParam, const void *lParam) {
    return send(message, toWord(wParam), toWord(lParam));
}

int FakeHost::send(unsigned message, int wParam, const void *lParam) {
    return send(message, wParam, toWord(lParam));
}

// ---- from the module ----

int FakeHost::receive(void *target, unsigned message, int wParam, int lParam) {
    return g_current ? g_current->take(target, message, wParam, lParam) : 0;
}

// The module keeps this function and must never call it.
int FakeHost::receiveSecond(void *, unsigned message, int, int) {
    if (g_current)
        g_current->log.push_back({"second function", 0, 5, QString::number(message)});
    return 0;
}

void FakeHost::interrupt(const Call &call, Moment moment) {
    if (!m_interruption || m_interrupting || m_moment != moment)
        return;
    m_interrupting = true;
    m_interruption(call);
    m_interrupting = false;
}

int FakeHost::take(void *target, unsigned message, int wParam, int lParam) {
    ++m_toHost[message];
    ++m_hostCalls;
    Call call;
    call.target = target;
    call.message = message;
    call.wParam = wParam;
    call.lParam = lParam;
    call.depth = m_depth;
    const RecordSizes sizes = recordSizes(message);
    if (sizes.w && wParam)
        call.wRecord = QByteArray(fromWord<const char>(wParam), sizes.w);
    if (sizes.l && lParam)
        call.lRecord = QByteArray(fromWord<const char>(lParam), sizes.l);
    const std::size_t place = m_calls.size();
    const bool recorded = m_recording;
    if (recorded)
        m_calls.push_back(call);

    const Depth depth(m_depth);
    interrupt(call, BeforeAnswer);
    bool troubled = m_troubleAt > 0 && --m_troubleAt == 0;
    Trouble trouble = m_trouble;
    int result = m_troubleResult;
    const auto every = m_troubleMessages.find(message);
    if (!troubled && every != m_troubleMessages.end()) {
        troubled = true;
        trouble = every->second.first;
        result = every->second.second;
    }
    if (troubled) {
        m_troubleHappened = true;
        if (trouble == Garble)
            garble(message, wParam, lParam);
    } else {
        const auto own = m_answers.find(message);
        if (own != m_answers.end()) {
            const Answer answer = own->second;
            result = answer(target, wParam, lParam);
        } else {
            result = defaultAnswer(target, message, wParam, lParam);
        }
    }
    interrupt(call, AfterAnswer);
    if (recorded && place < m_calls.size() && m_calls[place].message == message)
        m_calls[place].result = result;
    return result;
}

int FakeHost::defaultAnswer(void *target, unsigned message, int wParam, int lParam) {
    // Each leaves `known` true for a message of its own.
    bool known = true;
    int result = answerCore(message, wParam, lParam, &known);
    if (!known)
        result = answerObject(message, wParam, lParam, &(known = true));
    if (!known)
        result = answerIdentity(message, wParam, lParam, &(known = true));
    if (!known)
        result = answerWindow(message, wParam, lParam, &(known = true));
    if (!known)
        result = answerEngine(target, message, wParam, lParam, &(known = true));
    return known ? result : 0;
}

// ---- traffic ----

std::vector<Call> FakeHost::callsOf(unsigned message, bool toHost) const {
    std::vector<Call> result;
    for (const Call &call : m_calls) {
        if (call.message == message && call.toHost == toHost)
            result.push_back(call);
    }
    return result;
}

int FakeHost::count(unsigned message, bool toHost) const {
    const auto &counts = toHost ? m_toHost : m_toModule;
    const auto found = counts.find(message);
    return found == counts.end() ? 0 : found->second;
}

void FakeHost::clearTraffic() {
    m_calls.clear();
    m_toHost.clear();
    m_toModule.clear();
    m_hostCalls = 0;
}

// ---- trouble ----

void FakeHost::troubleAt(int nth, Trouble trouble, int result) {
    m_troubleAt = nth;
    m_trouble = trouble;
    m_troubleResult = result;
    m_troubleHappened = false;
}

void FakeHost::troubleMessage(unsigned message, Trouble trouble, int result) {
    m_troubleMessages[message] = {trouble, result};
    m_troubleHappened = false;
}

void FakeHost::clearTrouble() {
    m_troubleAt = 0;
    m_troubleMessages.clear();
}

void FakeHost::answer(unsigned message, Answer answer) {
    if (answer)
        m_answers[message] = std::move(answer);
    else
        m_answers.erase(message);
}

void FakeHost::setInterruption(std::function<void(const Call &)> interruption, Moment moment) {
    m_interruption = std::move(interruption);
    m_moment = moment;
}

// Nonsense of the kinds that do not name memory of their own: such a host cannot be survived by anyone.
void FakeHost::garble(unsigned message, int wParam, int lParam) {
    switch (message) {
    case ToHost::OutputCount:
    case ToHost::SourceCount:
    case ToHost::LinkCount:
        bytes::put<int>(fromWord<void>(lParam), 0, -7);
        break;
    case ToHost::OutputArrays:
    case ToHost::Links:
        bytes::put<int>(fromWord<void>(lParam), 0, -7);
        break;
    case ToHost::CreateObject:
        bytes::put<Word>(fromWord<void>(wParam), 778, 0x0BADF00D);
        break;
    case ToHost::InterfaceNames:
        std::memset(fromWord<void>(lParam), 'X', 765);
        break;
    case ToHost::SymbolDisplayName:
        std::memset(fromWord<void>(wParam), 'X', 2040);
        break;
    case ToHost::DisplayNames:
        std::memset(fromWord<void>(lParam), 'X', 2040);
        break;
    case ToHost::Identity:
        std::memset(fromWord<void>(lParam), 'X', 1555);
        break;
    case ToHost::HorizontalLevels:
        bytes::put<int>(fromWord<void>(lParam), 0, 9999);
        bytes::put<int>(fromWord<void>(lParam), 4, 1 << 20);
        break;
    case ToHost::LanguageCount:
    case ToHost::IndicatorCount:
    case ToHost::IndicatorList:
        bytes::put<int>(fromWord<void>(wParam), 0, -7);
        break;
    case ToHost::DayOffCount:
        bytes::put<int>(fromWord<void>(lParam), 0, -7);
        break;
    case ToHost::FindInterface:
    case ToHost::CountInterfaces: {
        const Word out = bytes::u32(fromWord<void>(wParam), 769);
        if (out)
            bytes::put<int>(fromWord<void>(out), 0, message == ToHost::FindInterface ? 0x0BADF00D : -7);
        break;
    }
    case ToHost::SourcePeriod:
        std::memset(fromWord<void>(lParam), '?', 9);
        break;
    case ToHost::ApplicationCaption:
        std::memset(fromWord<void>(wParam), 'X', 2048);
        break;
    case ToHost::ToolButtonState:
        std::memset(fromWord<void>(wParam), 0, 264);
        break;
    default:
        break;
    }
}
