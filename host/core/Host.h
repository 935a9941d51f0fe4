#pragma once
#include "host/core/HandleSource.h"
#include "host/core/Interfaces.h"
#include "host/core/Objects.h"
#include "host/core/Routes.h"
#include "host/core/Subscriptions.h"
#include <QByteArray>
#include <QString>
#include <memory>
#include <set>
#include <utility>
#include <vector>

struct mvDataPointArray;

namespace desk {

class Front;
class Service;
class Trace;

// The host's core: loads the module, keeps interfaces, objects, routes and subscriptions, and carries
// messages both ways. One host lives in a process at a time, since the module's send function has no context.
class Host {
public:
    using SendFunction = int (*)(void *target, unsigned int message, int wParam, int lParam);
    using ReceiveFunction = int (*)(void *sender, unsigned int message, int wParam, int lParam);
    using InitializeFunction = void (*)(SendFunction, SendFunction, void *, void *);
    using InfoFunction = int (*)(void *);

    Host();
    ~Host();
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;

    // The module. `load` answers an empty text or a sentence that says what is wrong with the library.
    QString load(const QString &libraryFile);
    void unload();
    bool isLoaded() const { return m_receive != nullptr; }
    QByteArray moduleInfo() const; // the record of GetModuleInfo, 2315 bytes
    void initializeModule();       // Initialize with this host's function and handles
    void attachModule(ReceiveFunction receive) { m_receive = receive; } // a module in the same program
    int sendToModule(unsigned message, int wParam = 0, int lParam = 0);
    static int send(void *target, unsigned int message, int wParam, int lParam); // the module's way in

    // One message from the module; also the way for the desk's own tests.
    int receive(Handle target, unsigned message, int wParam, int lParam);

    // The number of the message that the module sent before the present one, at the same depth.
    unsigned previousMessage() const { return m_previousMessage; }

    Handle coreHandle() const { return m_coreHandle; }
    Handle componentHandle() const { return m_componentHandle; }
    Handle moduleHandle() const { return m_moduleHandle; }
    void setModuleHandle(Handle handle) { m_moduleHandle = handle; }

    HandleSource &handles() { return m_handles; }
    Interfaces &interfaces() { return m_interfaces; }
    Routes &routes() { return m_routes; }
    Objects &objects() { return m_objects; }
    Subscriptions &subscriptions() { return m_subscriptions; }
    Trace &trace() { return *m_trace; }

    // Takes ownership of a service; services are deleted in reverse order.
    template <class T, class... Args>
    T &addService(Args &&...args) {
        auto service = std::make_unique<T>(*this, std::forward<Args>(args)...);
        T &reference = *service;
        m_services.push_back(std::move(service));
        return reference;
    }

    // What the desk's windows do for the services; never null (without windows it answers neutrally).
    Front &front() const { return *m_front; }
    void setFront(Front *front);

    // 3009 to each chart window that subscribed to the object. Kind 0: points were added or changed; 1: the
    // arrays were rebuilt (history, period or type); 2: only the display changed.
    void notifyUpdate(Handle object, int kind);
    // 3076 to each subscribed window: the outputs themselves changed in number.
    void notifyRebuild(Handle object);
    // 3130 to each subscribed window: the identity of the object's arrays changed.
    void notifyRename(Handle object);

private:
    int dispatch(Handle target, unsigned message, int wParam, int lParam, bool &known);
    Service *serviceFor(Handle target, unsigned message, int wParam);

    HandleSource m_handles;
    Interfaces m_interfaces;
    Routes m_routes;
    Objects m_objects;
    Subscriptions m_subscriptions;
    std::unique_ptr<Trace> m_trace;
    std::unique_ptr<Front> m_noFront;
    Front *m_front;
    std::vector<std::unique_ptr<Service>> m_services;
    Handle m_coreHandle;
    Handle m_componentHandle;
    Handle m_moduleHandle = 0;
    Service *m_lastMaker = nullptr;                  // took the last 3008
    std::set<std::pair<Handle, unsigned>> m_unknown; // reported once each
    unsigned m_previousMessage = 0;
    void *m_library = nullptr;
    ReceiveFunction m_receive = nullptr;
    InitializeFunction m_initialize = nullptr;
    InfoFunction m_info = nullptr;
};

} // namespace desk
