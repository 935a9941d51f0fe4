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

// Not through the other form: the rows may be shared with a copy of the page, and part from it here.
PageItem *Page::find(int group, int index) {
    for (PageGroup &candidate : groups) {
        for (PageItem &item : candidate.items) {
            if (item.group == group && item.index == index)
                return &item;
        }
    }
    return nullptr;
}

} // namespace desk
