#pragma once
#include "host/core/Service.h"

namespace desk {

class WindowFront;

// "STATUSBAR": the labels that a chart writes time and price into (7000, 7001).
class StatusBarService : public Service {
public:
    StatusBarService(Host &host, WindowFront &front);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

private:
    WindowFront &m_front;
};

} // namespace desk
