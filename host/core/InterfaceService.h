#pragma once
#include "host/core/Service.h"

struct coreNameInterface;
struct coreNameInterfaceRequest;

namespace desk {

// Interfaces by name and handle: 3000 registers the module's own, 3001 and 3002 find and count, 3012 names
// one.
class InterfaceService : public Service {
public:
    explicit InterfaceService(Host &host);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

private:
    void registerModule(coreNameInterfaceRequest &request);
    void find(const coreNameInterfaceRequest &request);
};

} // namespace desk
