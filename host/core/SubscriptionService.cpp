#include "host/core/SubscriptionService.h"
#include "host/core/CalculatedObject.h"
#include "host/core/Host.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"

namespace desk {

SubscriptionService::SubscriptionService(Host &host) : Service(host) {
    take(coreHandle(), {ToHost::Subscribe, ToHost::Unsubscribe, ToHost::WindowGoesAway});
}

bool SubscriptionService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    if (message == ToHost::WindowGoesAway) {
        if (!wParam)
            return false;
        const Handle window = Handle(toWord(fromWord<coreChartWindow>(wParam)->widget));
        for (const Handle object : host().subscriptions().dropWindow(window))
            tellMaker(object, false);
        if (windowGone)
            windowGone(window);
        return true;
    }
    if (!lParam || !host().objects().find(Handle(wParam))) {
        result = 1;
        return true;
    }
    const Handle window = Handle(toWord(fromWord<coreChartWindow>(lParam)->widget));
    if (message == ToHost::Subscribe) {
        if (host().subscriptions().add(Handle(wParam), window))
            tellMaker(Handle(wParam), true);
    } else if (host().subscriptions().remove(Handle(wParam), window)) {
        tellMaker(Handle(wParam), false);
    }
    return true;
}

void SubscriptionService::tellMaker(Handle object, bool subscribed) {
    if (const auto found = host().objects().find(object))
        found->maker().subscriptionChanged(object, subscribed);
}

} // namespace desk
