#include "host/core/Service.h"
#include "host/core/Host.h"

namespace desk {

Service::~Service() {
    m_host.routes().remove(this);
    m_host.interfaces().remove(this);
}

Handle Service::registerInterface(const QByteArray &kind, const QByteArray &provider,
                                  const QByteArray &object) {
    const Handle handle = m_host.handles().next();
    m_host.interfaces().add({kind, provider, object, handle, this});
    return handle;
}

void Service::take(Handle target, std::initializer_list<unsigned> messages) {
    for (const unsigned message : messages)
        m_host.routes().add(target, message, this);
}

void Service::takeAll(Handle target) {
    m_host.routes().addAll(target, this);
}

Handle Service::coreHandle() const {
    return m_host.coreHandle();
}

} // namespace desk
