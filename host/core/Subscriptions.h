#pragma once
#include "host/core/Handle.h"
#include <vector>

namespace desk {

// Pairs of a calculated object and the chart window that follows it. One pair may be taken several times, by
// several series of one object, and ends with the last of them.
class Subscriptions {
public:
    void add(Handle object, Handle window);
    void remove(Handle object, Handle window);
    std::vector<Handle> dropWindow(Handle window); // answers the objects that lost their pair
    void dropObject(Handle object);
    std::vector<Handle> windows(Handle object) const; // each once, in order of subscription
    std::vector<Handle> objects(Handle window) const;
    bool hasSubscriber(Handle object) const;

private:
    struct Pair {
        Handle object;
        Handle window;
        int count;
    };
    std::vector<Pair> m_pairs;
};

} // namespace desk
