#pragma once
#include "host/core/Service.h"
#include <functional>
#include <memory>

struct PROPERTY_PAGE;

namespace desk {

class CalculatedObject;
class PageCopy;
class PropertyDock;

// The module's property pages (10041 to 10057), and the pages of calculated objects, in the property dock.
class PropertyService : public Service {
public:
    PropertyService(Host &host, PropertyDock &dock);
    ~PropertyService() override;
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    void takeWindow(Handle window); // the main window's handle, and the module's
    void showObject(CalculatedObject &object);
    void refreshObject(CalculatedObject &object);
    void windowGone(Handle window); // its page leaves the dock with it
    // Brings a panel forward: 0 the properties, 1 the instruments, 2 the indicators.
    std::function<void(int panel)> raisePanel;

private:
    void showModulePage(PROPERTY_PAGE &page);
    void itemChanged(const PROPERTY_PAGE &page, int lParam);

    PropertyDock &m_dock;
    std::shared_ptr<PageCopy> m_copy; // of the module's page that is shown
};

} // namespace desk
