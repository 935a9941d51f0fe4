#pragma once
#include "host/core/Service.h"
#include <functional>

namespace desk {

// Which chart window follows which object (3013, 3014), and the end of a window (3150).
class SubscriptionService : public Service {
public:
    explicit SubscriptionService(Host &host);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    // Called with a window that is about to be deleted, after its subscriptions are gone.
    std::function<void(Handle window)> windowGone;

private:
    void tellMaker(Handle object, bool subscribed);
};

} // namespace desk
