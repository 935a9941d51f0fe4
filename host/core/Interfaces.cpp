#include "host/core/Interfaces.h"
#include <algorithm>

namespace desk {

void Interfaces::remove(const Service *service) {
    m_entries.erase(
        std::remove_if(m_entries.begin(), m_entries.end(),
                       [service](const InterfaceEntry &entry) { return entry.service == service; }),
        m_entries.end());
}

const InterfaceEntry *Interfaces::find(Handle handle) const {
    for (const InterfaceEntry &entry : m_entries) {
        if (entry.handle == handle)
            return &entry;
    }
    return nullptr;
}

const InterfaceEntry *Interfaces::find(const QByteArray &kind, const QByteArray &provider,
                                       const QByteArray &object) const {
    for (const InterfaceEntry &entry : m_entries) {
        if (matches(entry, kind, provider, object))
            return &entry;
    }
    return nullptr;
}

std::vector<Handle> Interfaces::findAll(const QByteArray &kind, const QByteArray &provider,
                                        const QByteArray &object) const {
    std::vector<Handle> result;
    for (const InterfaceEntry &entry : m_entries) {
        if (matches(entry, kind, provider, object))
            result.push_back(entry.handle);
    }
    return result;
}

bool Interfaces::matches(const InterfaceEntry &entry, const QByteArray &kind, const QByteArray &provider,
                         const QByteArray &object) {
    return (kind.isEmpty() || kind == entry.kind) && (provider.isEmpty() || provider == entry.provider) &&
           (object.isEmpty() || object == entry.object);
}

} // namespace desk
