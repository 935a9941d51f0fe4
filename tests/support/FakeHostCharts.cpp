// Chart windows and the host's widgets around them.
#include "tests/support/FakeHost.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimerEvent>

Chart FakeHost::createBareChart(QSize size, Word kind) {
    Chart chart;
    chart.outer = new QWidget;
    chart.outer->resize(size);
    chart.frame = new QWidget(chart.outer);
    chart.frame->resize(size);
    chart.toolBar = new QWidget(chart.outer);
    chart.outer->show();
    bytes::Record data(16);
    bytes::put<Word>(data.data(), 0, static_cast<Word>(chart.frame->winId()));
    bytes::put<Word>(data.data(), 4, static_cast<Word>(chart.toolBar->winId()));
    bytes::put<Word>(data.data(), 12, kind);
    send(ToModule::CreateWindow, data.data());
    chart.handle = fromWord<CRGraphWidget>(bytes::u32(data.data(), 8));
    for (QWidget *widget : QApplication::allWidgets()) {
        if (chart.handle && static_cast<void *>(widget) == static_cast<void *>(chart.handle))
            chart.widget = widget;
    }
    m_charts.push_back(chart);
    return chart;
}

Chart FakeHost::createChart(QSize size, Word kind) {
    const Chart chart = createBareChart(size, kind);
    send(ToModule::Resize, chart.handle);
    send(ToModule::TakeFocus, chart.handle);
    send(ToModule::Show, chart.handle);
    settle();
    return chart;
}

void FakeHost::deleteChart(Chart &chart) {
    const CRGraphWidget *handle = chart.handle;
    if (handle)
        send(ToModule::DeleteWindow, handle);
    delete chart.outer.data();
    for (std::size_t i = 0; i < m_charts.size(); ++i) {
        if (m_charts[i].handle == handle && !m_charts[i].outer) {
            m_charts.erase(m_charts.begin() + static_cast<std::ptrdiff_t>(i));
            break;
        }
    }
    chart = Chart();
}

FakeObject *FakeHost::addInstrument(const Chart &chart, const QString &symbol, char letter, int length,
                                    const char *type) {
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    item.handle = fromWord<void>(interfaceOf("CANDLE"));
    item.instrument = makeName(symbol, type, makePeriod(letter, length));
    mvwcDpaList list{1, &item};
    send(ToModule::AddInstruments, chart.handle, &list);
    for (const auto &entry : m_objects) {
        FakeObject *object = entry.second.get();
        if (object->instrument && object->subscribers.count(chart.handle) &&
            std::memcmp(&object->name, &item.instrument, sizeof object->name) == 0)
            return object;
    }
    return nullptr;
}

int FakeHost::addIndicator(const Chart &chart, const QString &name) {
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    item.handle = fromWord<void>(interfaceOf("MVINDICATORS"));
    fillField(item.instrument.m_szNameSymbol, name);
    mvwcDpaList list{1, &item};
    return send(ToModule::AddIndicators, chart.handle, &list);
}

QString FakeHost::caption(const Chart &chart) {
    bytes::Record window(8);
    bytes::put<Word>(window.data(), 0, moduleInterface());
    bytes::put<Word>(window.data(), 4, static_cast<Word>(toWord(chart.handle)));
    bytes::Record text(2 * 256);
    send(ToModule::GetCaption, window.data(), text.data());
    return bytes::text16(text.data(), 0, 255);
}

void FakeHost::tick() {
    if (m_linkedTick)
        m_linkedTick();
    if (!m_timer)
        return;
    QTimerEvent event(m_timerId);
    QCoreApplication::sendEvent(m_timer, &event);
}

void FakeHost::settle() {
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

QImage FakeHost::grab(const Chart &chart) {
    settle();
    return chart.widget ? chart.widget->grab().toImage().convertToFormat(QImage::Format_ARGB32) : QImage();
}

QList<QWidget *> childrenOfClass(const QWidget *parent, const char *className) {
    QList<QWidget *> result;
    for (QWidget *child : parent->findChildren<QWidget *>()) {
        if (qstrcmp(child->metaObject()->className(), className) == 0)
            result.append(child);
    }
    return result;
}

QWidget *childOfClass(const QWidget *parent, const char *className) {
    return childrenOfClass(parent, className).value(0, nullptr);
}
