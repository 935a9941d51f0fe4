#include "host/pages/PropertyService.h"
#include "host/core/CalculatedObject.h"
#include "host/core/Host.h"
#include "host/pages/PageCodec.h"
#include "host/pages/PageView.h"
#include "host/pages/PropertyDock.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"

namespace desk {

namespace {

PageKey keyOf(const PROPERTY_PAGE &page) {
    return {PageKey::Module, page.pageId};
}

PageKey keyOf(const CalculatedObject &object) {
    return {PageKey::Object, object.handle()};
}

} // namespace

PropertyService::PropertyService(Host &host, PropertyDock &dock) : Service(host), m_dock(dock) {}

PropertyService::~PropertyService() = default;

void PropertyService::takeWindow(Handle window) {
    take(window, {ToHost::RaisePanel, ToHost::ShowNewPage, ToHost::ShowKnownPage, ToHost::PageItemChanged,
                  ToHost::ClosePage, ToHost::IsPageKnown});
}

bool PropertyService::handle(Handle, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    if (message == ToHost::RaisePanel) {
        if (raisePanel)
            raisePanel(wParam);
        return true;
    }
    if (!wParam) {
        result = 1;
        return true;
    }
    auto &page = *fromWord<PROPERTY_PAGE>(wParam);
    switch (message) {
    case ToHost::ShowNewPage:
    case ToHost::ShowKnownPage:
        showModulePage(page);
        return true;
    case ToHost::PageItemChanged:
        itemChanged(page, lParam);
        return true;
    case ToHost::ClosePage:
        m_dock.closePage(keyOf(page));
        return true;
    case ToHost::IsPageKnown:
        if (lParam)
            *fromWord<Word>(lParam) = m_dock.shows(keyOf(page)) ? 1 : 0;
        return true;
    default:
        return false;
    }
}

void PropertyService::showModulePage(PROPERTY_PAGE &record) {
    const auto copy = std::make_shared<PageCopy>(record);
    m_copy = copy;
    const Page page = decodePage(record);
    m_dock.showPage(keyOf(record), page, [this, copy](const Page &edited) {
        copy->setValues(edited);
        auto change = zeroRecord<PROPERTY_CHANGE>();
        change.interfaceHandle = copy->record().system.m_if;
        change.owner = fromWord<void>(copy->record().system.m_object);
        change.page = &copy->record();
        const int refused = host().sendToModule(ToModule::PageChanged, toWord(&change));
        return refused ? PropertyDock::tr("The chart did not take these values.") : QString();
    });
    for (const PageGroup &group : page.groups) {
        for (const PageItem &item : group.items) {
            if (item.kind == PageItem::Widget)
                setWindowId(record, item.group, item.index, m_dock.view().windowId(item.group, item.index));
        }
    }
}

void PropertyService::windowGone(Handle window) {
    if (m_copy && m_copy->record().system.m_object == window)
        m_dock.closePage(keyOf(m_copy->record()));
}

void PropertyService::itemChanged(const PROPERTY_PAGE &record, int lParam) {
    if (!m_dock.shows(keyOf(record)) || !lParam)
        return;
    const auto &property = *fromWord<PROPERTY>(lParam);
    const Page page = decodePage(record);
    const PageItem *item = page.find(int(property.group), int(property.index));
    if (item && item->kind != PageItem::Widget)
        m_dock.view().setItemValue(item->group, item->index, item->value);
}

void PropertyService::showObject(CalculatedObject &object) {
    const std::unique_ptr<Page> page = object.page();
    if (!page)
        return;
    const Handle handle = object.handle();
    m_dock.showPage(keyOf(object), *page, [this, handle](const Page &edited) {
        const std::shared_ptr<CalculatedObject> current = host().objects().find(handle);
        return current ? current->applyPage(edited) : PropertyDock::tr("This object is not there any more.");
    });
}

void PropertyService::refreshObject(CalculatedObject &object) {
    if (!m_dock.shows(keyOf(object)))
        return;
    if (host().objects().find(object.handle()))
        showObject(object);
    else
        m_dock.closePage(keyOf(object));
}

} // namespace desk
