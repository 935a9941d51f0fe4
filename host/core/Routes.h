#pragma once
#include "host/core/Handle.h"
#include <map>
#include <utility>

namespace desk {

class Service;

// Which service takes which message at which target.
class Routes {
public:
    void add(Handle target, unsigned message, Service *service) { m_routes[{target, message}] = service; }
    void addAll(Handle target, Service *service) { m_targets[target] = service; }
    void remove(const Service *service);
    Service *find(Handle target, unsigned message) const;

private:
    std::map<std::pair<Handle, unsigned>, Service *> m_routes;
    std::map<Handle, Service *> m_targets; // targets whose every message goes to one service
};

} // namespace desk
