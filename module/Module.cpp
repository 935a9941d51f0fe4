#include "module/Module.h"

#include "module/DateTime.h"
#include "module/HostMessages.h"
#include "module/TranslateManager.h"
#include "support/Log.h"

#include <cstdlib>
#include <ctime>
#include <new>

namespace {

// A list whose elements would not fit into the address space.
constexpr int maxLanguages = 5585133;

// What one text of a request may take: the length of another, at most the width of its field.
QByteArray cutTo(const QString &text, int length) {
    return text.toLocal8Bit().left(length);
}

} // namespace

CModule::CModule(const char *name, unsigned int number1, unsigned int number2, unsigned int number3,
                 const std::string &logName, const QString &translateContext)
    : m_log(new Log), m_logName(logName), m_translateManager(new CTranslateManager(translateContext)) {
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    clearRecord(m_info);
    if (name) {
        fillField(m_info.name, name);
        m_info.name[sizeof m_info.name - 1] = 0;
        fillField(m_info.description, "Noname module");
    }
    m_info.number1 = number1;
    m_info.number2 = number2;
    m_info.number3 = number3;
    m_info.kind = 8;
    fillField(m_info.translateContext, translateContext);
    m_info.category = 20;
}

CModule::~CModule() = default;

void CModule::InitializeWrap(HostFunction send, HostFunction second, void *coreHandle,
                             void *componentHandle) {
    m_sendMessage = send;
    m_hostFunction2 = second;
    m_coreHandle = coreHandle;
    m_componentHandle = componentHandle;
}

int CModule::GetModuleInfoWrap(MODULE_INFO *info) const {
    if (info)
        std::memcpy(info, &m_info, sizeof m_info);
    return 0;
}

int CModule::ReceiveMessageWrap(void *, unsigned int message, int, int) {
    if (message != ToModule::Start)
        return 0;
    try {
        initFonts();
        m_dateTime.reset(new Velmar::DateTime(this, m_coreHandle));
        if (m_sendMessage)
            m_log->Create(QString::fromStdString(m_logName), m_sendMessage, m_coreHandle);
    } catch (...) {
        logLine(logMsgModule, logCritical, ("Unknown throw in <" + m_logName + ">").c_str(), "|../Module|93");
        throw;
    }
    return 0;
}

int CModule::Send(void *target, unsigned int message, MessageWord wParam, MessageWord lParam,
                  int neutral) const {
    return m_sendMessage ? m_sendMessage(target, message, wParam.value, lParam.value) : neutral;
}

int CModule::SendCore(unsigned int message, MessageWord wParam, MessageWord lParam, int neutral) const {
    return Send(m_coreHandle, message, wParam, lParam, neutral);
}

// ---- texts and fonts ----

int CModule::InsertTranslate(const char *context, const char *id, const char *text) {
    return m_translateManager->InsertTranslate(context, id, text);
}

QString CModule::tr(const char *id, const char *comment) const {
    return m_translateManager->Translate(id, comment);
}

QString CModule::tr(const QString &id, const QString &comment) const {
    return tr(id.toLocal8Bit().constData(), comment.toLocal8Bit().constData());
}

QString CModule::getFont(font::elementCode code) const {
    return font::familyInForce(this, code);
}

int CModule::getFontSize(int size) const {
    return font::sizeInForce(this, size);
}

void CModule::initFonts() {
    QString language = "English";
    coreLanguageList list = zeroRecord<coreLanguageList>();
    SendCore(ToHost::LanguageCount, &list, 0);
    const int count = list.count;
    if (count > maxLanguages)
        throw std::bad_alloc();
    if (count >= 1) {
        const std::unique_ptr<coreLanguage[]> languages(new coreLanguage[static_cast<std::size_t>(count)]());
        list.languages = languages.get();
        SendCore(ToHost::Languages, &list, 0);
        for (int i = 0; i < count; ++i) {
            if (languages[i].current == 1) {
                language = fieldText(languages[i].name);
                break;
            }
        }
    }
    m_fontManager.reset(font::CreateManager(language));
}

void CModule::SetTimeTz() {
    static char zone[] = "TZ=GST0";
    putenv(zone);
    tzset();
}

// ---- interfaces and named events ----

void *CModule::getInterface(const QString &a, const QString &b, const QString &c) {
    Word handle = 0;
    coreNameInterfaceRequest request = zeroRecord<coreNameInterfaceRequest>();
    const int length = std::min(a.toLocal8Bit().size(), static_cast<int>(sizeof request.names.nameIntreface));
    // The host's callers know this order and this cut.
    fillField(request.names.nameIntreface, a);
    fillField(request.names.nameProvider, cutTo(c, length));
    fillField(request.names.nameObject, cutTo(b, length));
    request.mode = 1;
    request.result = static_cast<Word>(toWord(&handle));
    SendCore(ToHost::FindInterface, &request, 0);
    return fromWord<void>(handle);
}

Word CModule::CreateEvent(const QString &name) {
    coreEventCreation record = zeroRecord<coreEventCreation>();
    fillField(record.name, name);
    SendCore(ToHost::CreateEvent, &record, 0);
    m_events.emplace(name, Word(record.id)); // a copy: the packed field may lie at an odd address
    return record.id;
}

int CModule::EmitEvent(const QString &name, MVEvent &event) {
    const auto found = m_events.find(name);
    if (found == m_events.end()) {
        LogHelper::ShowLogInfo(logMsgModule, logError,
                               QString("Can't emit event with name \"%1\"").arg(name));
        return 1;
    }
    const Word id = found->second;
    fillField(event.name, name);
    event.eventId = id;
    SendCore(ToHost::EmitEvent, id, &event);
    return 0;
}

void CModule::SubscribeEvent(const QString &name) {
    coreEventSubscription record = zeroRecord<coreEventSubscription>();
    fillField(record.name, name);
    record.interfaceHandle = static_cast<Word>(toWord(m_interfaceHandle));
    record.subscriber = this;
    record.filter = -1;
    SendCore(ToHost::SubscribeEvent, &record, 0);
}

void CModule::UnSubscribeEvent() {
    coreSubscriber record = zeroRecord<coreSubscriber>();
    record.interfaceHandle = static_cast<Word>(toWord(m_interfaceHandle));
    record.subscriber = this;
    SendCore(ToHost::UnsubscribeEvent, &record, 0);
}
