#pragma once
#include "host/core/Service.h"
#include <QtGlobal>
#include <memory>

struct coreDemandsIndicator;

namespace desk {

class CalculatedObject;

// A service that makes calculated objects: it answers what every maker answers alike, which outputs there are
// and that stored state is taken without a word.
class ObjectService : public Service {
public:
    using Service::Service;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

protected:
    // Leaves the handle of the new object in the record, or 0.
    virtual void create(coreDemandsIndicator &demand) = 0;
    virtual void outputsFetched(Handle) {}
    // The object of a handle if this service made it, else null.
    std::shared_ptr<CalculatedObject> ownObject(Handle object) const;
    template <class Object>
    std::shared_ptr<Object> own(Handle object) const {
        return std::static_pointer_cast<Object>(ownObject(object));
    }
    // Writes a word where the question left room for one.
    static void answer(int room, quint32 value);

private:
    int outputs(Handle object, int lParam);
};

} // namespace desk
