#include "host/core/RefusalService.h"
#include "module/HostMessages.h"

namespace desk {

RefusalService::RefusalService(Host &host) : Service(host) {
    take(coreHandle(),
         {ToHost::AttachLineStudy, ToHost::CountLineStudies, ToHost::ListLineStudies, ToHost::RemoveLineStudy,
          ToHost::DetachLineStudy, ToHost::SaveState,        ToHost::PasteState,      ToHost::UndoOpen,
          ToHost::UndoClose,       ToHost::UndoDone,         ToHost::UndoRefresh,     ToHost::UndoWanted,
          ToHost::UndoSaveState,   ToHost::UndoRestoreState, ToHost::TreeOpen,        ToHost::TreeClose,
          ToHost::TreeClearNode,   ToHost::TreeChild,        ToHost::TreeFetch,       ToHost::TreeStore,
          ToHost::TreeLengths,     ToHost::TreeCount,        ToHost::TreeFromBytes,   ToHost::TreeSize,
          ToHost::TreeToBytes});
}

bool RefusalService::handle(Handle, unsigned, int, int, int &result) {
    result = 1;
    return true;
}

} // namespace desk
