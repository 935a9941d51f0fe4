#include "host/core/Objects.h"
#include "host/core/CalculatedObject.h"
#include "host/core/HandleSource.h"
#include <algorithm>

namespace desk {

namespace {

// A chain of sources longer than this is a loop.
constexpr int longestPath = 64;

} // namespace

Objects::~Objects() = default;

Handle Objects::add(const std::shared_ptr<CalculatedObject> &object) {
    object->m_handle = m_handles.next();
    object->m_systemNumber = ++m_lastSystemNumber;
    if (object->m_uniqueNumber == 0)
        object->m_uniqueNumber = ++m_lastUniqueNumber;
    else
        m_lastUniqueNumber = std::max(m_lastUniqueNumber, object->m_uniqueNumber);
    m_objects[object->m_handle] = object;
    return object->m_handle;
}

void Objects::remove(Handle handle) {
    m_objects.erase(handle);
}

std::shared_ptr<CalculatedObject> Objects::find(Handle handle) const {
    const auto place = m_objects.find(handle);
    return place != m_objects.end() ? place->second : nullptr;
}

std::shared_ptr<CalculatedObject> Objects::findUnique(quint32 uniqueNumber) const {
    for (const auto &[handle, object] : m_objects) {
        if (object->uniqueNumber() == uniqueNumber)
            return object;
    }
    return nullptr;
}

std::shared_ptr<CalculatedObject> Objects::findSystem(quint32 systemNumber) const {
    for (const auto &[handle, object] : m_objects) {
        if (object->systemNumber() == systemNumber)
            return object;
    }
    return nullptr;
}

std::shared_ptr<CalculatedObject> Objects::findArray(const mvDataPointArray *array) const {
    for (const auto &[handle, object] : m_objects) {
        const std::vector<mvDataPointArray *> outputs = object->outputs();
        if (std::find(outputs.begin(), outputs.end(), array) != outputs.end())
            return object;
    }
    return nullptr;
}

std::vector<std::shared_ptr<CalculatedObject>> Objects::dependents(Handle handle) const {
    std::vector<std::shared_ptr<CalculatedObject>> result;
    for (const auto &[other, object] : m_objects) {
        const std::vector<Handle> sources = object->sources();
        if (std::find(sources.begin(), sources.end(), handle) != sources.end())
            result.push_back(object);
    }
    return result;
}

std::vector<std::shared_ptr<CalculatedObject>> Objects::all() const {
    std::vector<std::shared_ptr<CalculatedObject>> result;
    for (const auto &[handle, object] : m_objects)
        result.push_back(object);
    return result;
}

Handle Objects::base(Handle handle) const {
    const std::vector<Handle> chain = path(handle);
    return chain.empty() ? 0 : chain.front();
}

std::vector<Handle> Objects::path(Handle handle) const {
    std::vector<Handle> chain;
    for (std::shared_ptr<CalculatedObject> object = find(handle); object;) {
        const std::vector<Handle> sources = object->sources();
        if (sources.empty() || sources.front() == 0 || int(chain.size()) == longestPath)
            break;
        chain.push_back(sources.front());
        object = find(sources.front());
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

int Objects::level(Handle handle) const {
    const std::shared_ptr<CalculatedObject> object = find(handle);
    if (!object || object->isInstrument())
        return 0;
    return std::max<int>(1, int(path(handle).size()));
}

} // namespace desk
