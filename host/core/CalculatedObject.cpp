#include "host/core/CalculatedObject.h"
#include "host/pages/Page.h"
#include "module/HostRecords.h"

namespace desk {

CalculatedObject::CalculatedObject(Service &maker, Handle interfaceHandle)
    : m_maker(maker), m_interfaceHandle(interfaceHandle) {}

CalculatedObject::~CalculatedObject() = default;

std::vector<coreIndicatorLinks> CalculatedObject::links() const {
    return {};
}

std::unique_ptr<Page> CalculatedObject::page() const {
    return nullptr;
}

} // namespace desk
