// The one global object, and the plain functions through which the host reaches it.
#include "module/GraphModule.h"

CRGraphModule module;

CModule *GetModule() {
    return &module;
}

#define VELMAR_EXPORT extern "C" __attribute__((visibility("default")))

VELMAR_EXPORT int GetModuleInfo(MODULE_INFO *info) {
    return module.GetModuleInfoWrap(info);
}

VELMAR_EXPORT void Initialize(HostFunction send, HostFunction second, void *coreHandle,
                              void *componentHandle) {
    module.InitializeWrap(send, second, coreHandle, componentHandle);
}

VELMAR_EXPORT int ReceiveMessage(void *sender, unsigned int message, int wParam, int lParam) {
    return module.ReceiveMessageWrap(sender, message, wParam, lParam);
}
