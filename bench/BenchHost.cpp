#include "bench/BenchHost.h"

#include "bench/Exposed.h"

#include "module/HostMessages.h"

#include <QApplication>
#include <QLocale>
#include <QDateTime>
#include <QHash>
#include <QTranslator>
#include <cstdio>
#include <dlfcn.h>

namespace {

const Word coreHandle = 0x10, componentHandle = 0x20, moduleHandle = 0x30, mainWindow = 0x40, candle = 0x50,
           indicators = 0x60;

void formatDate(const QDateTime &time, const QString &format, QString &result) {
    result = QLocale::c().toString(time.toUTC(), format);
}

void formatTime(long time, const QString &format, bool, QString &result) {
    result = QLocale::c().toString(QDateTime::fromSecsSinceEpoch(time, Qt::UTC), format);
}

int writeLog(const void *) {
    return 0;
}

} // namespace

// What the module handed over with 3019, by context and id.
class BenchHost::Texts : public QTranslator {
public:
    void insert(const char *record) { m_texts[QByteArray(record) + '/' + (record + 1024)] = QString(record + 2048); }
    bool isEmpty() const override { return m_texts.isEmpty(); }
    QString translate(const char *context, const char *text, const char *, int) const override {
        return m_texts.value(QByteArray(context) + '/' + text);
    }

private:
    QHash<QByteArray, QString> m_texts;
};

BenchHost::~BenchHost() = default;

BenchHost &BenchHost::instance() {
    static BenchHost host;
    return host;
}

BenchHost::BenchHost() {
    m_slider.setRange(-60, 0);
    m_texts = std::make_unique<Texts>();
    QCoreApplication::installTranslator(m_texts.get());
    void *library = dlopen(VELMAR_LIBRARY, RTLD_NOW);
    if (!library) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(2);
    }
    using Initialize = void (*)(HostFunction, HostFunction, void *, void *);
    m_receiveMessage =
        reinterpret_cast<int (*)(void *, unsigned, int, int)>(dlsym(library, "ReceiveMessage"));
    reinterpret_cast<Initialize>(dlsym(library, "Initialize"))(
        receive, receive, fromWord<void>(coreHandle), fromWord<void>(componentHandle));
}

int BenchHost::send(unsigned message, int wParam, int lParam) {
    return m_receiveMessage(nullptr, message, wParam, lParam);
}

int BenchHost::receive(void *target, unsigned message, int wParam, int lParam) {
    return instance().answer(target, message, wParam, lParam);
}

void BenchHost::create(coreDemandsIndicator *record) {
    auto series = std::make_unique<Series>();
    clearRecord(series->array);
    const auto field = [&](DATA_POINT_TYPES type, const char *name) {
        coreFieldDescriptor descriptor;
        clearRecord(descriptor);
        descriptor.type = type;
        std::strcpy(descriptor.name, name);
        series->fields.push_back(descriptor);
    };
    mvDataPointArray &array = series->array;
    array.identity = record->sNameInstrument;
    const int handle = ++m_lastHandle;
    array.owner = fromWord<void>(handle);
    array.typeShow.firstColor = 0x2e8b57;
    array.typeShow.secondColor = 0xc0392b;
    array.typeShow.penType = eCoreTypeShowPenSolid;
    array.typeShow.weightPen = 1;
    array.precision = 5;
    field(DPT_LONG, "TIME");
    if (m_nextValues) {
        series->values = *m_nextValues;
        array.typeShow.drawKind = 4;
        field(DPT_FLOAT, "VALUE");
        array.recordSize = sizeof(ValuePoint);
        array.data = reinterpret_cast<unsigned char *>(series->values.data());
        array.count = static_cast<int>(series->values.size());
        array.identity.m_periods.period = 'I';
        array.identity.m_periods.lenPeriod = 1;
    } else {
        series->isBase = true;
        series->bars = *m_nextBars;
        series->bars.reserve(series->bars.size() + 100000);
        array.typeShow.drawKind = 1;
        for (const char *name : {"OPEN", "HIGH", "LOW", "CLOSE", "VOLUME"})
            field(DPT_FLOAT, name);
        array.recordSize = sizeof(corePointCandle);
        array.data = reinterpret_cast<unsigned char *>(series->bars.data());
        array.count = static_cast<int>(series->bars.size());
    }
    array.fields = series->fields.data();
    array.fieldCount = static_cast<int>(series->fields.size());
    record->handle = fromWord<void>(handle);
    m_series[handle] = std::move(series);
}

int BenchHost::answer(void *, unsigned message, int wParam, int lParam) {
    ++m_calls;
    const auto found = m_series.find(static_cast<Word>(wParam));
    Series *series = found == m_series.end() ? nullptr : found->second.get();
    switch (message) {
    case 3000:
        fromWord<coreNameInterfaceRequest>(wParam)->result = moduleHandle;
        break;
    case 3001: {
        auto *request = fromWord<coreNameInterfaceRequest>(wParam);
        const std::string name(request->names.nameIntreface);
        const Word handle = name == "MAINWINDOW" ? mainWindow : name == "CANDLE" ? candle
                            : name == "MVINDICATORS" ? indicators : 0;
        if (handle && request->result)
            *fromWord<Word>(request->result) = handle;
        break;
    }
    case 3008:
        create(fromWord<coreDemandsIndicator>(wParam));
        break;
    case 3012:
        std::strcpy(fromWord<coreNameInterface>(lParam)->nameProvider, "VELMAR");
        break;
    case 3013:
        ++m_subscriptions;
        break;
    case 3019:
        m_texts->insert(fromWord<char>(wParam));
        break;
    case 3042:
        if (series) {
            auto *list = fromWord<coreListCreateData>(lParam);
            if (list->count > 0)
                list->arrays[0] = &series->array;
            list->count = 1;
        }
        break;
    case 3043:
        *fromWord<Word>(lParam) = 1;
        break;
    case 3045:
        *fromWord<Word>(lParam) = series && series->isBase ? 0 : 1;
        break;
    case 3055:
        if (series) {
            auto *identity = fromWord<coreIndicatorIdentity>(lParam);
            identity->sNameInstrument = series->array.identity;
        }
        break;
    case 3093:
        if (series && !series->isBase)
            *fromWord<Word>(lParam) = static_cast<Word>(wParam);
        break;
    case 3119:
        if (series)
            *fromWord<namePeriod>(lParam) = series->array.identity.m_periods;
        break;
    case 3135:
        if (series && series->isBase) {
            auto *names = fromWord<Unit16>(lParam);
            fillText(names + 255, 255, "EUR");
            fillText(names + 510, 255, "USD");
            fillText(names + 765, 255, "EUR/USD");
        }
        break;
    case 3205:
        *fromWord<void *>(wParam) = reinterpret_cast<void *>(writeLog);
        break;
    case 3207: {
        auto **formats = fromWord<void *>(wParam);
        formats[0] = reinterpret_cast<void *>(formatDate);
        formats[1] = reinterpret_cast<void *>(formatTime);
        break;
    }
    case 3552:
        if (wParam == 1 && lParam)
            *fromWord<QSlider *>(lParam) = &m_slider;
        break;
    case 3555:
        if (wParam == 1)
            m_cross = *fromWord<Word>(lParam);
        else
            *fromWord<Word>(lParam) = m_cross;
        break;
    case 6502:
        *fromWord<Word>(lParam) = 1;
        break;
    default:
        break;
    }
    return 0;
}

BenchHost::Chart::~Chart() {
    instance().send(5004, toWord(window), 0);
    instance().m_series.clear(); // one chart at a time
    instance().m_subscriptions = 0;
}

std::unique_ptr<BenchHost::Chart> BenchHost::makeChart(const std::vector<corePointCandle> &bars, int visible) {
    static bool started = false;
    if (!started) {
        started = true;
        Word zero = 0;
        send(3007, 0, 0);
        send(3004, 0, 0);
        send(3062, toWord(&zero), 0);
    }
    auto chart = std::make_unique<Chart>();
    chart->frame = std::make_unique<QWidget>();
    chart->frame->resize(1280, 720);
    chart->inner = new QWidget(chart->frame.get());
    chart->inner->resize(1280, 720);
    showExposed(*chart->frame);
    mvwcCreateData create;
    clearRecord(create);
    const Word id = static_cast<Word>(chart->inner->winId());
    std::memcpy(&create, &id, 4);
    std::memcpy(reinterpret_cast<char *>(&create) + 4, &id, 4);
    send(5003, toWord(&create), 0);
    Word window = 0;
    std::memcpy(&window, reinterpret_cast<char *>(&create) + 8, 4);
    // The handle is the chart's address; its widget is the only chart child of the inner widget.
    chart->window = fromWord<QWidget>(window);
    send(5005, static_cast<int>(window), 0);
    send(5009, static_cast<int>(window), 0);

    m_nextBars = &bars;
    m_nextValues = nullptr;
    mvwcDpaItem item;
    clearRecord(item);
    auto *bytes = reinterpret_cast<char *>(&item);
    std::memcpy(bytes, &candle, 4);
    auto *name = reinterpret_cast<coreNameInstrument *>(bytes + 514);
    fillField(name->m_szNameSymbol, QStringLiteral("EURUSD"));
    fillField(name->m_szType, "Bid");
    name->m_periods.period = 'I';
    name->m_periods.lenPeriod = 1;
    struct {
        int count;
        void *items;
    } list{1, &item};
    send(5007, static_cast<int>(window), toWord(&list));
    chart->object = fromWord<void>(m_lastHandle);
    tick();
    setVisible(visible);
    tick();
    return chart;
}

void BenchHost::addAverage(Chart &chart, const std::vector<ValuePoint> &points, const std::function<void()> &pick) {
    m_nextValues = &points;
    mvwcDpaItem item;
    clearRecord(item);
    auto *bytes = reinterpret_cast<char *>(&item);
    std::memcpy(bytes, &indicators, 4);
    fillField(reinterpret_cast<coreNameInstrument *>(bytes + 514)->m_szNameSymbol, QStringLiteral("MA"));
    struct {
        int count;
        void *items;
    } list{1, &item};
    send(5006, toWord(chart.window), toWord(&list));
    pick();
    m_nextValues = nullptr;
}

void BenchHost::setVisible(int positions) {
    send(3552, 0, -positions);
}

void BenchHost::quote(Chart &chart, int kind) {
    coreCoreUpdateDpaData data;
    clearRecord(data);
    auto *bytes = reinterpret_cast<char *>(&data);
    std::memcpy(bytes + 774, &chart.object, 4);
    std::memcpy(bytes + 782, &chart.window, 4);
    std::memcpy(bytes + 786, &kind, 4);
    send(3009, toWord(&data), 0);
}

void BenchHost::appendBar(Chart &chart) {
    Series &series = *m_series.at(static_cast<Word>(toWord(chart.object)));
    corePointCandle bar = series.bars.back();
    bar.time += 60;
    series.bars.push_back(bar);
    series.array.data = reinterpret_cast<unsigned char *>(series.bars.data());
    series.array.count = static_cast<int>(series.bars.size());
}

void BenchHost::tick() {
    // The module's only timer runs on a plain QObject without a parent; a second of waiting is what it takes.
    const qint64 end = QDateTime::currentMSecsSinceEpoch() + 1100;
    while (QDateTime::currentMSecsSinceEpoch() < end)
        QApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
}

void BenchHost::setCross(bool on) {
    m_cross = on ? 1 : 0;
    send(3555, 1, toWord(&m_cross));
}
