#include "host/core/StatusBarService.h"
#include "host/core/WindowFront.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QLabel>

namespace desk {

StatusBarService::StatusBarService(Host &host, WindowFront &front) : Service(host), m_front(front) {
    const Handle bar = registerInterface("STATUSBAR", "VELMAR", "velmarStatusBar");
    take(bar, {ToHost::StatusPane, ToHost::StatusPaneAgain});
}

bool StatusBarService::handle(Handle, unsigned, int wParam, int, int &result) {
    if (!wParam)
        return false;
    auto &record = *fromWord<mwiStatusPane>(wParam);
    QLabel *label = m_front.statusPane(record.paneId, int(record.width));
    record.windowId = label ? Word(label->winId()) : 0;
    result = 0;
    return true;
}

} // namespace desk
