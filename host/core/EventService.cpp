#include "host/core/EventService.h"
#include "host/core/Host.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <algorithm>

namespace desk {

EventService::EventService(Host &host) : Service(host) {
    take(coreHandle(), {ToHost::SubscribeEvent, ToHost::UnsubscribeEvent, ToHost::CreateEvent,
                        ToHost::EmitEvent, ToHost::GameModeOn, ToHost::GameModeOff});
}

Handle EventService::eventId(const QByteArray &name) {
    Handle &id = m_ids[name];
    if (id == 0)
        id = host().handles().next();
    return id;
}

bool EventService::hasSubscriber(const QByteArray &name) const {
    return std::any_of(m_subscribers.begin(), m_subscribers.end(),
                       [&name](const Subscriber &subscriber) { return subscriber.name == name; });
}

bool EventService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    switch (message) {
    case ToHost::SubscribeEvent: {
        if (!wParam)
            return false;
        auto &record = *fromWord<coreEventSubscription>(wParam);
        const QByteArray name = fieldBytes(record.name);
        eventId(name);
        const auto same = [&](const Subscriber &other) {
            return other.name == name && other.pointer == record.subscriber &&
                   other.interfaceHandle == record.interfaceHandle;
        };
        if (std::none_of(m_subscribers.begin(), m_subscribers.end(), same))
            m_subscribers.push_back({name, record.interfaceHandle, record.subscriber});
        return true;
    }
    case ToHost::UnsubscribeEvent: {
        if (!wParam)
            return false;
        const coreSubscriber record = *fromWord<coreSubscriber>(wParam);
        m_subscribers.erase(std::remove_if(m_subscribers.begin(), m_subscribers.end(),
                                           [&record](const Subscriber &other) {
                                               return other.interfaceHandle == record.interfaceHandle &&
                                                      other.pointer == record.subscriber;
                                           }),
                            m_subscribers.end());
        return true;
    }
    case ToHost::CreateEvent: {
        if (!wParam)
            return false;
        auto &record = *fromWord<coreEventCreation>(wParam);
        record.id = eventId(fieldBytes(record.name));
        return true;
    }
    case ToHost::EmitEvent: {
        if (!lParam)
            return false;
        const Handle id = Handle(wParam);
        for (const auto &[name, known] : m_ids) {
            if (known == id) {
                deliver(QByteArray(name), *fromWord<MVEvent>(lParam));
                return true;
            }
        }
        result = 1;
        return true;
    }
    case ToHost::GameModeOn:
        emitEvent("Velmar Game Mode", EventCode::GameModeOn);
        return true;
    case ToHost::GameModeOff:
        emitEvent("Velmar Game Mode", EventCode::GameModeOff);
        return true;
    default:
        return false;
    }
}

int EventService::emitEvent(const QByteArray &name, unsigned code, const void *data, int size) {
    auto event = zeroRecord<MVEvent>();
    event.code = code;
    event.size = size;
    event.data = const_cast<void *>(data);
    return deliver(name, event);
}

int EventService::deliver(const QByteArray &name, MVEvent event) {
    // A receiver may subscribe or leave while it works, so the list is copied.
    const std::vector<Subscriber> subscribers = m_subscribers;
    int count = 0;
    for (const Subscriber &subscriber : subscribers) {
        if (subscriber.name != name)
            continue;
        MVEvent copy = event;
        copy.interfaceHandle = subscriber.interfaceHandle;
        copy.subscriber = subscriber.pointer;
        copy.eventId = eventId(name);
        fillField(copy.name, name);
        host().sendToModule(ToModule::ReceiveEvent, toWord(&copy));
        ++count;
    }
    return count;
}

} // namespace desk
