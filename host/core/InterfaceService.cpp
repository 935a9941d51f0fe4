#include "host/core/InterfaceService.h"
#include "host/core/Host.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

InterfaceService::InterfaceService(Host &host) : Service(host) {
    take(coreHandle(),
         {ToHost::RegisterInterface, ToHost::FindInterface, ToHost::CountInterfaces, ToHost::InterfaceNames});
}

bool InterfaceService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    if (message == ToHost::InterfaceNames) {
        const InterfaceEntry *entry = host().interfaces().find(Handle(wParam));
        if (!entry || !lParam) {
            result = 1;
            return true;
        }
        auto &names = *fromWord<coreNameInterface>(lParam);
        fillField(names.nameIntreface, entry->kind);
        fillField(names.nameProvider, entry->provider);
        fillField(names.nameObject, entry->object);
        return true;
    }
    if (!wParam)
        return false;
    auto &request = *fromWord<coreNameInterfaceRequest>(wParam);
    if (message == ToHost::RegisterInterface) {
        registerModule(request);
    } else if (message == ToHost::FindInterface) {
        find(request);
    } else if (request.result) {
        *fromWord<Word>(request.result) =
            Word(host()
                     .interfaces()
                     .findAll(fieldBytes(request.names.nameIntreface), QByteArray(), QByteArray())
                     .size());
    }
    return true;
}

void InterfaceService::registerModule(coreNameInterfaceRequest &request) {
    InterfaceEntry entry;
    entry.kind = fieldBytes(request.names.nameIntreface);
    entry.provider = fieldBytes(request.names.nameProvider);
    entry.object = fieldBytes(request.names.nameObject);
    entry.handle = host().handles().next();
    host().interfaces().add(entry);
    host().setModuleHandle(entry.handle);
    request.result = entry.handle;
}

// The mode word is the room in handles behind the result word's address.
void InterfaceService::find(const coreNameInterfaceRequest &request) {
    if (!request.result)
        return;
    const std::vector<Handle> found = host().interfaces().findAll(fieldBytes(request.names.nameIntreface),
                                                                  fieldBytes(request.names.nameProvider),
                                                                  fieldBytes(request.names.nameObject));
    const std::size_t room = std::max(Word(1), Word(request.mode));
    std::copy_n(found.begin(), std::min(room, found.size()), fromWord<Word>(request.result));
}

} // namespace desk
