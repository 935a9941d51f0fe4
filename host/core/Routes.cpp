#include "host/core/Routes.h"

namespace desk {

namespace {

template <class Map>
void removeValue(Map &map, const Service *service) {
    for (auto place = map.begin(); place != map.end();) {
        if (place->second == service)
            place = map.erase(place);
        else
            ++place;
    }
}

} // namespace

void Routes::remove(const Service *service) {
    removeValue(m_routes, service);
    removeValue(m_targets, service);
}

Service *Routes::find(Handle target, unsigned message) const {
    const auto route = m_routes.find({target, message});
    if (route != m_routes.end())
        return route->second;
    const auto all = m_targets.find(target);
    return all != m_targets.end() ? all->second : nullptr;
}

} // namespace desk
