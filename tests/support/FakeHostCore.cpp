// Interfaces, events, texts, log and formatters.
#include "tests/support/FakeHostPrivate.h"

#include <QDateTime>
#include <QLocale>

namespace {

int writeLog(const coreLogRecord *record) {
    FakeHost *host = FakeHost::current();
    if (!host)
        return 1;
    host->log.push_back(
        {readEndedText(record->name), record->type, record->level, readEndedText(record->text)});
    return 0;
}

void formatDateTime(const QDateTime &dateTime, const QString &format, QString &result) {
    result = QLocale::c().toString(dateTime.toUTC(), format);
}

void formatTime(long time, const QString &format, bool local, QString &result) {
    const QDateTime dateTime = QDateTime::fromSecsSinceEpoch(time, Qt::UTC);
    result = QLocale::c().toString(local ? dateTime.toLocalTime() : dateTime, format);
}

} // namespace

void FakeHost::registerDefaults() {
    addInterface("MAINWINDOW", "VELMAR", "");
    addInterface("CANDLE", "VELMAR", "CANDLE_VELMAR");
    addInterface("MVINDICATORS", "VELMAR", "BinIndicators");
    addInterface("LineStudies", "VELMAR", "mvLineStudies");
    addInterface("DEALING", "VELMAR", "Dealing");
    addInterface("STATUSBAR", "VELMAR", "velmarStatusBar");
    addInterface("MvDealingHistory", "VELMAR", "History");

    FakeIndicator average;
    average.name = "MA";
    average.displayName = "Moving Average (3)";
    average.outputs = {{"MA", 4, 0, 0, [](const std::vector<float> &closes, int i) {
                            float sum = 0;
                            int n = 0;
                            for (int k = i; k >= 0 && k > i - 3; --k, ++n)
                                sum += closes[static_cast<std::size_t>(k)];
                            return sum / static_cast<float>(n);
                        }}};
    addIndicatorKind(average);

    FakeIndicator bands;
    bands.name = "Bollinger";
    bands.displayName = "Bollinger (3)";
    bands.category = 3;
    const auto shifted = [](float by) {
        return [by](const std::vector<float> &closes, int i) {
            return closes[static_cast<std::size_t>(i)] * by;
        };
    };
    bands.outputs = {{"Upper", 4, 0, 0, shifted(1.002f)},
                     {"Middle", 4, 0, 0, shifted(1.0f)},
                     {"Lower", 4, 0, 0, shifted(0.998f)}};
    bands.links = {{0, 1, 1, 3, 2}};
    addIndicatorKind(bands);

    FakeIndicator macd;
    macd.name = "MACD";
    macd.displayName = "MACD (1, 2)";
    macd.category = 2;
    const auto step = [](const std::vector<float> &closes, int i) {
        return i == 0 ? 0.0f : closes[static_cast<std::size_t>(i)] - closes[static_cast<std::size_t>(i) - 1];
    };
    macd.outputs = {{"MACD", 4, 1, 3, step}, {"Signal", 4, 0, 3, step}};
    macd.levels.line = 1;
    macd.levels.count = 1;
    macd.levels.color = 0xFF808080;
    addIndicatorKind(macd);

    FakeIndicator sum;
    sum.name = "CHF+EUR";
    sum.displayName = "CHF+EUR";
    sum.category = 0;
    sum.inputs = 0;
    sum.outputs = {{"Sum", 4, 0, 3, nullptr}};
    addIndicatorKind(sum);
}

Word FakeHost::addInterface(const char *name, const char *provider, const char *object) {
    const Word handle = m_nextHandle;
    m_nextHandle += 0x10;
    m_interfaces.push_back({handle, name, provider, object});
    return handle;
}

void FakeHost::removeInterface(const char *name) {
    for (std::size_t i = m_interfaces.size(); i-- > 0;) {
        if (m_interfaces[i].name == name)
            m_interfaces.erase(m_interfaces.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

Word FakeHost::interfaceOf(const char *name) const {
    for (const NamedInterface &item : m_interfaces) {
        if (item.name == name)
            return item.handle;
    }
    return 0;
}

bool FakeHost::matches(const NamedInterface &item, const coreNameInterface &names) const {
    const auto part = [](const QString &have, const QString &want) { return want.isEmpty() || have == want; };
    return part(item.name, fieldText(names.nameIntreface)) &&
           part(item.provider, fieldText(names.nameProvider)) &&
           part(item.object, fieldText(names.nameObject));
}

void FakeHost::emitEvent(const QString &name, Word code, void *data, int size) {
    const std::vector<Subscription> subscriptions = m_subscriptions;
    for (const Subscription &subscription : subscriptions) {
        if (subscription.name != name)
            continue;
        MVEvent event = zeroRecord<MVEvent>();
        event.interfaceHandle = subscription.interfaceHandle;
        event.subscriber = subscription.subscriber;
        event.eventId = m_eventIds[name];
        fillField(event.name, name);
        event.code = code;
        event.size = size;
        event.data = data;
        send(ToModule::ReceiveEvent, &event);
    }
}

void *FakeHost::subscriberOf(const QString &name) const {
    for (const Subscription &subscription : m_subscriptions) {
        if (subscription.name == name)
            return subscription.subscriber;
    }
    return nullptr;
}

int FakeHost::answerCore(unsigned message, int wParam, int lParam, bool *known) {
    switch (message) {
    case ToHost::RegisterInterface: {
        auto *request = fromWord<coreNameInterfaceRequest>(wParam);
        m_moduleInterface = addInterface(fieldBytes(request->names.nameIntreface).constData(),
                                         fieldBytes(request->names.nameProvider).constData(),
                                         fieldBytes(request->names.nameObject).constData());
        request->result = m_moduleInterface;
        return 0;
    }
    case ToHost::FindInterface: {
        const auto *request = fromWord<const coreNameInterfaceRequest>(wParam);
        char *out = fromWord<char>(static_cast<Word>(request->result));
        Word written = 0;
        for (const NamedInterface &item : m_interfaces) {
            if (written < request->mode && matches(item, request->names))
                bytes::put<Word>(out, static_cast<int>(4 * written++), item.handle);
        }
        return 0;
    }
    case ToHost::CountInterfaces: {
        const auto *request = fromWord<const coreNameInterfaceRequest>(wParam);
        Word count = 0;
        for (const NamedInterface &item : m_interfaces)
            count += matches(item, request->names) ? 1 : 0;
        bytes::put<Word>(fromWord<void>(static_cast<Word>(request->result)), 0, count);
        return 0;
    }
    case ToHost::InterfaceNames:
        for (const NamedInterface &item : m_interfaces) {
            if (item.handle == static_cast<Word>(wParam)) {
                bytes::putText8(fromWord<void>(lParam), 0, 255, item.name);
                bytes::putText8(fromWord<void>(lParam), 255, 255, item.provider);
                bytes::putText8(fromWord<void>(lParam), 510, 255, item.object);
                return 0;
            }
        }
        return 1;
    case ToHost::WindowGoesAway: {
        auto *widget = fromWord<CRGraphWidget>(bytes::u32(fromWord<void>(wParam), 4));
        for (auto &object : m_objects)
            object.second->subscribers.erase(widget);
        return 0;
    }
    case ToHost::SubscribeEvent: {
        const void *record = fromWord<void>(wParam);
        m_subscriptions.push_back(
            {bytes::text8(record, 0, 255), bytes::u32(record, 259), fromWord<void>(bytes::u32(record, 263))});
        return 0;
    }
    case ToHost::UnsubscribeEvent: {
        void *subscriber = fromWord<void>(bytes::u32(fromWord<void>(wParam), 4));
        for (std::size_t i = m_subscriptions.size(); i-- > 0;) {
            if (m_subscriptions[i].subscriber == subscriber)
                m_subscriptions.erase(m_subscriptions.begin() + static_cast<std::ptrdiff_t>(i));
        }
        return 0;
    }
    case ToHost::CreateEvent: {
        const QString name = bytes::text8(fromWord<void>(wParam), 0, 255);
        if (!m_eventIds.count(name))
            m_eventIds[name] = static_cast<Word>(m_eventIds.size()) + 501;
        bytes::put<Word>(fromWord<void>(wParam), 255, m_eventIds[name]);
        return 0;
    }
    case ToHost::EmitEvent: {
        const auto *event = fromWord<const MVEvent>(lParam);
        emitEvent(fieldText(event->name), event->code, event->data, event->size);
        return 0;
    }
    case ToHost::InsertText:
        texts[bytes::text8(fromWord<void>(wParam), 1024, 1024)] =
            bytes::text8(fromWord<void>(wParam), 2048, 1024);
        return 0;
    case ToHost::LanguageCount:
        bytes::put<int>(fromWord<void>(wParam), 0, static_cast<int>(languages.size()));
        return 0;
    case ToHost::Languages: {
        char *out = fromWord<char>(bytes::u32(fromWord<void>(wParam), 4));
        for (std::size_t i = 0; i < languages.size(); ++i) {
            bytes::putText8(out + 769 * i, 0, 765, languages[i].first);
            bytes::put<Word>(out + 769 * i, 765, languages[i].second);
        }
        return 0;
    }
    case ToHost::ApplicationCaption:
        bytes::putText16(fromWord<void>(wParam), 0, 1024, applicationCaption);
        return 0;
    case ToHost::FolderPath:
        if (workFolder.isEmpty())
            return 1;
        bytes::putText16(fromWord<void>(wParam), 4, 1024, workFolder);
        return 0;
    case ToHost::LogWriter:
        bytes::put<coreLogWriter>(fromWord<void>(wParam), 0, &writeLog);
        return 0;
    case ToHost::DateFormatters:
        if (!hasFormatters)
            return 1;
        bytes::put<coreDateTimeFormatter>(fromWord<void>(wParam), 0, &formatDateTime);
        bytes::put<coreTimeFormatter>(fromWord<void>(wParam), 4, &formatTime);
        return 0;
    default:
        *known = false;
        return 0;
    }
}
