#include "host/core/Subscriptions.h"
#include <algorithm>

namespace desk {

std::vector<Subscriptions::Pair>::iterator Subscriptions::find(Handle object, Handle window) {
    return std::find_if(m_pairs.begin(), m_pairs.end(), [object, window](const Pair &pair) {
        return pair.object == object && pair.window == window;
    });
}

bool Subscriptions::add(Handle object, Handle window) {
    const auto place = find(object, window);
    if (place != m_pairs.end()) {
        ++place->times;
        return false;
    }
    m_pairs.push_back({object, window, 1});
    return true;
}

bool Subscriptions::remove(Handle object, Handle window) {
    const auto place = find(object, window);
    if (place == m_pairs.end() || --place->times > 0)
        return false;
    m_pairs.erase(place);
    return true;
}

std::vector<Handle> Subscriptions::dropWindow(Handle window) {
    const std::vector<Handle> lost = objects(window);
    m_pairs.erase(std::remove_if(m_pairs.begin(), m_pairs.end(),
                                 [window](const auto &pair) { return pair.window == window; }),
                  m_pairs.end());
    return lost;
}

void Subscriptions::dropObject(Handle object) {
    m_pairs.erase(std::remove_if(m_pairs.begin(), m_pairs.end(),
                                 [object](const auto &pair) { return pair.object == object; }),
                  m_pairs.end());
}

std::vector<Handle> Subscriptions::windows(Handle object) const {
    std::vector<Handle> result;
    for (const Pair &pair : m_pairs) {
        if (pair.object == object)
            result.push_back(pair.window);
    }
    return result;
}

std::vector<Handle> Subscriptions::objects(Handle window) const {
    std::vector<Handle> result;
    for (const Pair &pair : m_pairs) {
        if (pair.window == window)
            result.push_back(pair.object);
    }
    return result;
}

} // namespace desk
