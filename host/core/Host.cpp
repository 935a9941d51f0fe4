#include "host/core/Host.h"
#include "host/core/CalculatedObject.h"
#include "host/core/Front.h"
#include "host/core/Service.h"
#include "host/core/Trace.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>
#include <dlfcn.h>

namespace desk {

namespace {

Host *currentHost = nullptr;

// Messages at the core whose wParam is an object's handle and that its maker answers.
constexpr unsigned makerMessages[] = {ToHost::LoadObject,  ToHost::SaveObject,  ToHost::OutputArrays,
                                      ToHost::OutputCount, ToHost::SourceCount, ToHost::HandOverSources,
                                      ToHost::ChangeArray, ToHost::ReloadArray, ToHost::ConfirmObject};

bool isMakerMessage(unsigned message) {
    return std::find(std::begin(makerMessages), std::end(makerMessages), message) != std::end(makerMessages);
}

} // namespace

Host::Host()
    : m_objects(m_handles), m_trace(std::make_unique<Trace>(*this)), m_noFront(std::make_unique<Front>()),
      m_front(m_noFront.get()), m_coreHandle(m_handles.next()), m_componentHandle(m_handles.next()) {
    currentHost = this;
}

Host::~Host() {
    unload();
    while (!m_services.empty())
        m_services.pop_back();
    if (currentHost == this)
        currentHost = nullptr;
}

void Host::setFront(Front *front) {
    m_front = front ? front : m_noFront.get();
}

QString Host::load(const QString &libraryFile) {
    const QFileInfo file(libraryFile);
    if (!file.exists())
        return QCoreApplication::translate("desk", "The chart library %1 does not exist.").arg(libraryFile);
    if (!file.isFile())
        return QCoreApplication::translate("desk", "The chart library %1 is not a file.").arg(libraryFile);
    void *library = dlopen(QFile::encodeName(file.absoluteFilePath()).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
        return QCoreApplication::translate("desk", "The chart library %1 cannot be loaded: %2.")
            .arg(libraryFile, QString::fromLocal8Bit(dlerror()));
    const auto info = reinterpret_cast<InfoFunction>(dlsym(library, "GetModuleInfo"));
    const auto initialize = reinterpret_cast<InitializeFunction>(dlsym(library, "Initialize"));
    const auto receive = reinterpret_cast<ReceiveFunction>(dlsym(library, "ReceiveMessage"));
    const char *missing = !info         ? "GetModuleInfo"
                          : !initialize ? "Initialize"
                          : !receive    ? "ReceiveMessage"
                                        : nullptr;
    if (missing) {
        dlclose(library);
        return QCoreApplication::translate("desk",
                                           "The library %1 is not a chart module: it has no function %2.")
            .arg(libraryFile, QString::fromLatin1(missing));
    }
    m_library = library;
    m_info = info;
    m_initialize = initialize;
    m_receive = receive;
    return QString();
}

void Host::unload() {
    m_receive = nullptr;
    m_initialize = nullptr;
    m_info = nullptr;
    if (m_library)
        dlclose(m_library);
    m_library = nullptr;
}

QByteArray Host::moduleInfo() const {
    QByteArray record(int(sizeof(MODULE_INFO)), '\0');
    if (m_info)
        m_info(record.data());
    return record;
}

void Host::initializeModule() {
    if (m_initialize)
        m_initialize(&Host::send, &Host::send, fromWord<void>(m_coreHandle),
                     fromWord<void>(m_componentHandle));
}

int Host::sendToModule(unsigned message, int wParam, int lParam) {
    if (!m_receive)
        return 0;
    const Trace::Scope scope(*m_trace, Trace::ToModule, 0, message, wParam, lParam);
    const int result = m_receive(this, message, wParam, lParam);
    scope.end(result, true);
    return result;
}

int Host::send(void *target, unsigned int message, int wParam, int lParam) {
    return currentHost ? currentHost->receive(Handle(toWord(target)), message, wParam, lParam) : 0;
}

int Host::receive(Handle target, unsigned message, int wParam, int lParam) {
    const Trace::Scope scope(*m_trace, Trace::ToHost, target, message, wParam, lParam);
    bool known = false;
    const int result = dispatch(target, message, wParam, lParam, known);
    scope.end(result, known);
    m_previousMessage = message;
    return result;
}

int Host::dispatch(Handle target, unsigned message, int wParam, int lParam, bool &known) {
    Service *service = serviceFor(target, message, wParam);
    if (service && message == ToHost::CreateObject)
        m_lastMaker = service;
    int result = 0;
    known = service && service->handle(target, message, wParam, lParam, result);
    if (known)
        return result;
    if (m_unknown.insert({target, message}).second)
        m_front->tell(Level::Warning, QCoreApplication::translate("desk", "Message %1 at %2 is not answered.")
                                          .arg(message)
                                          .arg(m_trace->targetName(target)));
    return 0;
}

Service *Host::serviceFor(Handle target, unsigned message, int wParam) {
    if (Service *service = m_routes.find(target, message))
        return service;
    if (target != m_coreHandle)
        return nullptr;
    if (message == ToHost::CreateObject) {
        if (!wParam)
            return nullptr;
        const InterfaceEntry *entry = m_interfaces.find(fromWord<coreDemandsIndicator>(wParam)->parameter);
        if (!entry || !entry->service)
            entry = m_interfaces.find("CANDLE", QByteArray(), QByteArray());
        return entry ? entry->service : nullptr;
    }
    if (message == ToHost::CreationAbandoned)
        return m_lastMaker;
    if (isMakerMessage(message)) {
        const std::shared_ptr<CalculatedObject> object = m_objects.find(Handle(wParam));
        return object ? &object->maker() : nullptr;
    }
    return nullptr;
}

void Host::notifyUpdate(Handle object, int kind) {
    for (const Handle window : m_subscriptions.windows(object)) {
        const std::shared_ptr<CalculatedObject> owner = m_objects.find(object);
        if (!owner)
            return;
        auto record = zeroRecord<coreCoreUpdateDpaData>();
        const std::vector<mvDataPointArray *> outputs = owner->outputs();
        record.identity = outputs.empty() ? owner->identity() : outputs.front()->identity;
        record.owner = fromWord<void>(object);
        record.widget = fromWord<CRGraphWidget>(window);
        record.updateKind = kind;
        sendToModule(ToModule::UpdateData, toWord(&record));
    }
}

void Host::notifyRebuild(Handle object) {
    for (const Handle window : m_subscriptions.windows(object)) {
        const std::shared_ptr<CalculatedObject> owner = m_objects.find(object);
        if (!owner)
            return;
        std::vector<mvDataPointArray *> outputs = owner->outputs();
        auto record = zeroRecord<coreRebuildDpa>();
        record.handle = fromWord<void>(object);
        record.count = int(outputs.size());
        record.arrays = outputs.data();
        sendToModule(ToModule::RebuildOutputs, int(window), toWord(&record));
    }
}

void Host::notifyRename(Handle object) {
    for (const Handle window : m_subscriptions.windows(object)) {
        const std::shared_ptr<CalculatedObject> owner = m_objects.find(object);
        if (!owner)
            return;
        auto record = zeroRecord<coreRenameDpa>();
        record.handle = fromWord<void>(object);
        record.identity = owner->identity();
        sendToModule(ToModule::Rename, int(window), toWord(&record));
    }
}

} // namespace desk
