#pragma once
#include "host/core/Handle.h"
#include <utility>
#include <vector>

namespace desk {

// Pairs of a calculated object and the chart window that follows it. A window follows an object once, however
// many of its series it shows, and leaves it with one message.
class Subscriptions {
public:
    bool add(Handle object, Handle window); // false when the pair was there already
    bool remove(Handle object, Handle window);
    std::vector<Handle> dropWindow(Handle window); // answers the objects that lost their pair
    void dropObject(Handle object);
    std::vector<Handle> windows(Handle object) const; // in order of subscription
    std::vector<Handle> objects(Handle window) const;
    bool hasSubscriber(Handle object) const { return !windows(object).empty(); }

private:
    std::vector<std::pair<Handle, Handle>> m_pairs; // object, window
};

} // namespace desk
