#pragma once
#include "host/core/Service.h"
#include <QByteArray>
#include <map>
#include <vector>

struct MVEvent;

namespace desk {

// Named events: subscription (3110, 3111), creation (3112), emission (3113), delivery to the module (3114).
class EventService : public Service {
public:
    explicit EventService(Host &host);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

    // The id of a name, the same for the whole run and never 0.
    Handle eventId(const QByteArray &name);
    // Sends an event to every subscriber of the name; answers how many there were.
    int emitEvent(const QByteArray &name, unsigned code, const void *data = nullptr, int size = 0);
    bool hasSubscriber(const QByteArray &name) const;

private:
    struct Subscriber {
        QByteArray name;
        Handle interfaceHandle;
        void *pointer;
    };
    int deliver(const QByteArray &name, MVEvent event);

    std::map<QByteArray, Handle> m_ids;
    std::vector<Subscriber> m_subscribers;
};

} // namespace desk
