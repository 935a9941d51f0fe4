#pragma once
#include "host/core/Handle.h"
#include <map>
#include <memory>
#include <vector>

struct mvDataPointArray;

namespace desk {

class CalculatedObject;
class HandleSource;

// All calculated objects of the run, whoever made them.
class Objects {
public:
    explicit Objects(HandleSource &handles) : m_handles(handles) {}
    ~Objects();

    // Gives the object its handle, system number and (if it has none yet) unique number.
    Handle add(const std::shared_ptr<CalculatedObject> &object);
    void remove(Handle handle);
    std::shared_ptr<CalculatedObject> find(Handle handle) const;
    std::shared_ptr<CalculatedObject> findUnique(quint32 uniqueNumber) const;
    std::shared_ptr<CalculatedObject> findSystem(quint32 systemNumber) const;
    // The object whose output the array is; null for an unknown address.
    std::shared_ptr<CalculatedObject> findArray(const mvDataPointArray *array) const;
    // Objects that have `handle` among their nearest sources.
    std::vector<std::shared_ptr<CalculatedObject>> dependents(Handle handle) const;
    std::vector<std::shared_ptr<CalculatedObject>> all() const;
    // Topmost source of an object: the instrument under a chain of indicators; 0 when it has no source.
    Handle base(Handle handle) const;
    // Sources from the topmost to the nearest along first sources; the object itself is not among them.
    std::vector<Handle> path(Handle handle) const;
    // 0 for an instrument, 1 for an indicator on it (or without a source), 2 for one on that, and so on.
    int level(Handle handle) const;

private:
    HandleSource &m_handles;
    std::map<Handle, std::shared_ptr<CalculatedObject>> m_objects;
    quint32 m_lastSystemNumber = 0;
    quint32 m_lastUniqueNumber = 0;
};

} // namespace desk
