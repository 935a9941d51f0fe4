#include "host/pages/Page.h"

namespace desk {

const PageItem *Page::find(int group, int index) const {
    for (const PageGroup &candidate : groups) {
        for (const PageItem &item : candidate.items) {
            if (item.group == group && item.index == index)
                return &item;
        }
    }
    return nullptr;
}

PageItem *Page::find(int group, int index) {
    return const_cast<PageItem *>(const_cast<const Page *>(this)->find(group, index));
}

} // namespace desk
