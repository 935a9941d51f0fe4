// The main window, the status bar and the property window.
#include "tests/support/FakeHostPrivate.h"

#include <QLabel>
#include <QSlider>
#include <QToolButton>

namespace {

void showLocator(const mwiLocatorMessage *message) {
    FakeHost *host = FakeHost::current();
    if (!host)
        return;
    ++host->locatorCalls;
    host->locatorItems.clear();
    host->locatorBackground = bytes::u32(message, 8);
    const int count = bytes::i32(message, 0);
    const char *items = fromWord<const char>(bytes::u32(message, 4));
    for (int i = 0; i < count; ++i) {
        const char *item = items + 2056 * i;
        host->locatorItems.push_back(
            {bytes::text16(item, 0, 1024), bytes::u32(item, 2048), bytes::u32(item, 2052)});
    }
}

} // namespace

int FakeHost::answerWindow(unsigned message, int wParam, int lParam, bool *known) {
    const auto giveWidget = [this, lParam](QWidget *widget) {
        if (hasWidgets)
            bytes::put<QWidget *>(fromWord<void>(lParam), 0, widget);
        return 0;
    };
    switch (message) {
    case ToHost::ToolButtonState:
        std::memcpy(fromWord<void>(wParam), &toolState, sizeof toolState);
        return static_cast<int>(toolState.armed);
    case ToHost::ClearToolButton:
        toolState.armed = 0;
        return 0;
    case ToHost::WorkFolder:
        if (workFolder.isEmpty())
            return 1;
        bytes::putText16(fromWord<void>(wParam), 0, 6144, workFolder);
        return 0;
    case ToHost::HasWorkFolder:
        bytes::put<Word>(fromWord<void>(wParam), 0, workFolder.isEmpty() ? 0 : 1);
        return 0;
    case ToHost::ZoomInButton:
        return giveWidget(zoomInButton);
    case ToHost::ZoomOutButton:
        return giveWidget(zoomOutButton);
    case ToHost::ZoomSlider:
        return giveWidget(slider);
    case ToHost::LastCandleButton:
        return giveWidget(lastCandleButton);
    case ToHost::InformationBoxButton:
        return giveWidget(informationButton);
    case ToHost::CrossCursor:
        if (wParam == 1)
            crossCursor = bytes::u32(fromWord<void>(lParam), 0);
        else
            bytes::put<Word>(fromWord<void>(lParam), 0, crossCursor);
        return 0;
    case ToHost::LocatorFunction:
        if (!hasLocator)
            return 1;
        bytes::put<mwiLocatorFunction>(fromWord<void>(wParam), 0, &showLocator);
        return 0;
    case ToHost::Milestone:
        milestones.append(bytes::text8(fromWord<void>(wParam), 4, 255));
        return 0;
    case ToHost::CaptionChanged:
        captions.append(bytes::text16(fromWord<void>(lParam), 0, 255));
        return 0;
    case ToHost::StatusPane:
    case ToHost::StatusPaneAgain: {
        void *record = fromWord<void>(wParam);
        QLabel *&label = bytes::u32(record, 16) == 98 ? timeLabel : priceLabel;
        if (!label)
            label = new QLabel(m_shelf.get());
        bytes::put<Word>(record, 8, static_cast<Word>(label->winId()));
        return 0;
    }
    case ToHost::IsPageKnown:
        if (pages.count(Word(fromWord<PROPERTY_PAGE>(wParam)->pageId)))
            bytes::put<Word>(fromWord<void>(lParam), 0, 1);
        return 0;
    case ToHost::ShowNewPage:
    case ToHost::ShowKnownPage: {
        auto *page = fromWord<PROPERTY_PAGE>(wParam);
        pages[Word(page->pageId)] = page;
        for (Word g = 0; g < page->groupCount; ++g) {
            for (Word i = 0; i < page->groups[g].count; ++i) {
                PROPERTY *item = page->groups[g].items[i];
                if (item->type != PropertyTypeWidget)
                    continue;
                m_pageWidgets.emplace_back(new QWidget);
                static_cast<propertyWidget *>(item->value)->windowId =
                    static_cast<Word>(m_pageWidgets.back()->winId());
            }
        }
        return 0;
    }
    case ToHost::ClosePage:
        pages.erase(Word(fromWord<PROPERTY_PAGE>(wParam)->pageId));
        return 0;
    default:
        *known = false;
        return 0;
    }
}
