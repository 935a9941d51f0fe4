#pragma once
#include "host/core/Handle.h"
#include <QByteArray>
#include <vector>

namespace desk {

class Service;

// One registered interface: its name triple, and who answers for it (null for the module's own).
struct InterfaceEntry {
    QByteArray kind;
    QByteArray provider;
    QByteArray object;
    Handle handle = 0;
    Service *service = nullptr;
};

// The name triples of the run, in order of registration. An empty part of a question matches anything.
class Interfaces {
public:
    void add(const InterfaceEntry &entry) { m_entries.push_back(entry); }
    void remove(const Service *service);
    const InterfaceEntry *find(Handle handle) const;
    const InterfaceEntry *find(const QByteArray &kind, const QByteArray &provider,
                               const QByteArray &object) const;
    std::vector<Handle> findAll(const QByteArray &kind, const QByteArray &provider,
                                const QByteArray &object) const;

private:
    static bool matches(const InterfaceEntry &entry, const QByteArray &kind, const QByteArray &provider,
                        const QByteArray &object);
    std::vector<InterfaceEntry> m_entries;
};

} // namespace desk
