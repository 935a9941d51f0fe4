#pragma once
#include "host/core/Service.h"

namespace desk {

// Answers for what this desk does not keep: host trees, undo steps, line studies on arrays and the states of
// objects. Every out field is left alone, which the caller reads as a refusal.
class RefusalService : public Service {
public:
    explicit RefusalService(Host &host);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
};

} // namespace desk
