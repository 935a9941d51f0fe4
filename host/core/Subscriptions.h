#pragma once
#include "host/core/Handle.h"
#include <vector>

namespace desk {

// Pairs of a calculated object and the chart window that follows it. A window that shows an object twice
// follows it twice, is told of news once, and still follows it when one of the two has gone.
class Subscriptions {
public:
    bool add(Handle object, Handle window);    // false when the pair was there already
    bool remove(Handle object, Handle window); // true when the pair has gone
    std::vector<Handle> dropWindow(Handle window); // answers the objects that lost their pair
    void dropObject(Handle object);
    std::vector<Handle> windows(Handle object) const; // in order of subscription
    std::vector<Handle> objects(Handle window) const;
    bool hasSubscriber(Handle object) const { return !windows(object).empty(); }

private:
    struct Pair {
        Handle object;
        Handle window;
        int times; // that the window follows the object
    };
    std::vector<Pair>::iterator find(Handle object, Handle window);

    std::vector<Pair> m_pairs;
};

} // namespace desk
