#include "host/core/ObjectService.h"
#include "host/core/CalculatedObject.h"
#include "host/core/Host.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

bool ObjectService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    switch (message) {
    case ToHost::CreateObject:
        if (!wParam)
            return false;
        create(*fromWord<coreDemandsIndicator>(wParam));
        return true;
    case ToHost::OutputCount:
        if (const auto object = ownObject(Handle(wParam)))
            answer(lParam, Word(object->outputs().size()));
        return true;
    case ToHost::OutputArrays:
        result = outputs(Handle(wParam), lParam);
        return true;
    case ToHost::LoadObject:
    case ToHost::SaveObject:
        return true;
    default:
        return false;
    }
}

std::shared_ptr<CalculatedObject> ObjectService::ownObject(Handle object) const {
    const std::shared_ptr<CalculatedObject> found = host().objects().find(object);
    return found && &found->maker() == this ? found : nullptr;
}

void ObjectService::answer(int room, quint32 value) {
    if (room)
        *fromWord<Word>(room) = value;
}

// As many arrays as there is room for; the count tells how many there are.
int ObjectService::outputs(Handle handle, int lParam) {
    const std::shared_ptr<CalculatedObject> object = ownObject(handle);
    if (!object || !lParam)
        return 1;
    auto &list = *fromWord<coreListCreateData>(lParam);
    const std::vector<mvDataPointArray *> arrays = object->outputs();
    if (list.arrays)
        std::copy_n(arrays.begin(), std::min(std::max(0, int(list.count)), int(arrays.size())), list.arrays);
    list.count = int(arrays.size());
    outputsFetched(handle);
    return 0;
}

} // namespace desk
