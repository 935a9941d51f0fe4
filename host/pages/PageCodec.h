#pragma once
#include "host/pages/Page.h"
#include <QByteArray>
#include <deque>
#include <memory>
#include <vector>

struct PROPERTY;
struct PROPERTY_GROUP;
struct PROPERTY_PAGE;

namespace desk {

// A page record of the module as the dock shows it. Groups and items are numbered by their places; items of
// an unknown type or without a value are left out.
Page decodePage(const PROPERTY_PAGE &record);

// A deep copy of a page record, which takes new values and goes back to the module.
class PageCopy {
public:
    explicit PageCopy(const PROPERTY_PAGE &record);
    ~PageCopy();
    PageCopy(const PageCopy &) = delete;
    PageCopy &operator=(const PageCopy &) = delete;

    void setValues(const Page &page);
    PROPERTY_PAGE &record() { return *m_record; }

private:
    void copyItem(const PROPERTY &item, std::vector<PROPERTY *> &items);
    void setValue(PROPERTY &item, const PageItem &value);
    QByteArray &keep(const QByteArray &bytes);

    std::unique_ptr<PROPERTY_PAGE> m_record;
    std::vector<PROPERTY_GROUP> m_groups;
    std::deque<std::vector<PROPERTY *>> m_lists;
    std::deque<PROPERTY> m_items;
    std::deque<QByteArray> m_values;
};

// Writes the window id of a hosted item into the module's own record.
void setWindowId(PROPERTY_PAGE &record, int group, int index, quint32 windowId);

} // namespace desk
