#pragma once
#include "host/core/Handle.h"
#include <QByteArray>
#include <initializer_list>

namespace desk {

class Host;

// One service of the host: it registers its interfaces (name triples), names the messages that it takes, and
// answers them. The routing knows only handles and numbers.
//
// Messages that name an object in wParam (3042, 3043, 3045, 3046, 3130, 3131, 3152 ...) go to the service
// that made the object, and 3008 to the interface in the record's first word (or to "CANDLE"), without any
// call of `take`; 3137 goes to the service that took the last 3008.
class Service {
public:
    explicit Service(Host &host) : m_host(host) {}
    virtual ~Service();
    Service(const Service &) = delete;
    Service &operator=(const Service &) = delete;

    // Answers one message. False: not a message of this service; it is logged as unknown and answered with 0.
    virtual bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) = 0;
    // A chart window subscribed to (true) or left (false) an object of this service.
    virtual void subscriptionChanged(Handle, bool) {}

protected:
    Host &host() const { return m_host; }
    // Registers a triple that answers through this service and gives its handle.
    Handle registerInterface(const QByteArray &kind, const QByteArray &provider, const QByteArray &object);
    // Routes these messages at `target` (an interface handle, or coreHandle()) to this service.
    void take(Handle target, std::initializer_list<unsigned> messages);
    // Routes every message at `target` to this service.
    void takeAll(Handle target);
    Handle coreHandle() const;

private:
    Host &m_host;
};

} // namespace desk
