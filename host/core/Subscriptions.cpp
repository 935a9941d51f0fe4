#include "host/core/Subscriptions.h"
#include <algorithm>

namespace desk {

bool Subscriptions::add(Handle object, Handle window) {
    const std::pair<Handle, Handle> pair(object, window);
    if (std::find(m_pairs.begin(), m_pairs.end(), pair) != m_pairs.end())
        return false;
    m_pairs.push_back(pair);
    return true;
}

bool Subscriptions::remove(Handle object, Handle window) {
    const auto place = std::find(m_pairs.begin(), m_pairs.end(), std::make_pair(object, window));
    if (place == m_pairs.end())
        return false;
    m_pairs.erase(place);
    return true;
}

std::vector<Handle> Subscriptions::dropWindow(Handle window) {
    const std::vector<Handle> lost = objects(window);
    m_pairs.erase(std::remove_if(m_pairs.begin(), m_pairs.end(),
                                 [window](const auto &pair) { return pair.second == window; }),
                  m_pairs.end());
    return lost;
}

void Subscriptions::dropObject(Handle object) {
    m_pairs.erase(std::remove_if(m_pairs.begin(), m_pairs.end(),
                                 [object](const auto &pair) { return pair.first == object; }),
                  m_pairs.end());
}

std::vector<Handle> Subscriptions::windows(Handle object) const {
    std::vector<Handle> result;
    for (const auto &[pairObject, window] : m_pairs) {
        if (pairObject == object)
            result.push_back(window);
    }
    return result;
}

std::vector<Handle> Subscriptions::objects(Handle window) const {
    std::vector<Handle> result;
    for (const auto &[object, pairWindow] : m_pairs) {
        if (pairWindow == window)
            result.push_back(object);
    }
    return result;
}

} // namespace desk
