#pragma once
#include "host/core/Service.h"
#include <QString>

struct mwiLocatorMessage;

namespace desk {

class WindowFront;

// "MAINWINDOW": captions, milestones, tool buttons and slider, cross cursor, information box, and what a
// chart asks the main window to open. Drawing tools have no tool bar here, so none is ever armed.
class WindowService : public Service {
public:
    WindowService(Host &host, WindowFront &front, const QString &applicationName);
    ~WindowService() override;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;

    Handle interfaceHandle() const { return m_interface; }
    // The module's own interface answers the window messages too, once it is registered.
    void takeModuleInterface(Handle moduleInterface);
    bool isCrossCursor() const { return m_crossCursor != 0; }
    void setCrossCursor(bool on); // by the user: the module is told

private:
    static void showLocator(const mwiLocatorMessage *message);
    bool handleControl(unsigned message, int wParam, int lParam);
    bool handleRequest(Handle target, unsigned message, int wParam, int lParam, int &result);
    void crossCursor(int wParam, int lParam);

    WindowFront &m_front;
    QString m_applicationName;
    Handle m_interface;
    quint32 m_crossCursor = 0;
};

} // namespace desk
