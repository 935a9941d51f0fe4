// The calls that go to the main window, the status bar and the property window.
#include "module/HostCalls.h"

#include "module/HostMessages.h"
#include "module/Module.h"

#include <QApplication>
#include <QSlider>
#include <QToolButton>

namespace HostCalls {

namespace {

// A host widget comes back in the out word, or as the result, which may also be a plain code.
QWidget *hostWidget(void *component, unsigned message) {
    Word address = 0;
    const int result = GetModule()->Send(component, message, 1, &address);
    if (address != 0 || result == 0)
        return fromWord<QWidget>(address);
    for (QWidget *widget : QApplication::allWidgets()) {
        if (toWord(widget) == result)
            return widget;
    }
    return nullptr;
}

} // namespace

bool toolButtonState(void *component, mwiStateLsButton &state) {
    clearRecord(state);
    return GetModule()->Send(component, ToHost::ToolButtonState, &state, 0) != 0;
}

void clearToolButton(void *component) {
    GetModule()->Send(component, ToHost::ClearToolButton, 0, 0);
}

bool hasWorkFolder(void *component) {
    Word answer = 0;
    GetModule()->Send(component, ToHost::HasWorkFolder, &answer, 0);
    return answer == 1;
}

void openChartIdentity(void *component, const QString &name) {
    unsigned short buffer[1024];
    fillField(buffer, name.left(1023));
    GetModule()->Send(component, ToHost::OpenChartIdentity, buffer, 0);
}

QToolButton *toolButton(void *component, unsigned message) {
    return static_cast<QToolButton *>(hostWidget(component, message));
}

QSlider *zoomSlider(void *component) {
    return static_cast<QSlider *>(hostWidget(component, ToHost::ZoomSlider));
}

void storeCrossCursor(void *component, Word mode) {
    GetModule()->Send(component, ToHost::CrossCursor, 1, &mode);
}

Word readCrossCursor(void *component, Word start) {
    Word mode = start;
    GetModule()->Send(component, ToHost::CrossCursor, 0, &mode);
    return mode;
}

mwiLocatorFunction locatorFunction(void *component) {
    mwiLocatorFunction function = nullptr;
    const int refused = GetModule()->Send(component, ToHost::LocatorFunction, &function, 0, 1);
    return refused ? nullptr : function;
}

void milestone(void *component, const QString &text) {
    coreUndoMilestone record = zeroRecord<coreUndoMilestone>();
    fillField(record.text, text);
    GetModule()->Send(component, ToHost::Milestone, &record, 0);
}

void desktopChanged(void *component) {
    coreUndoMilestone record = zeroRecord<coreUndoMilestone>();
    GetModule()->Send(component, ToHost::Milestone, &record, 0);
}

void captionChanged(void *component, CRGraphWidget *widget, const QString &caption) {
    coreChartWindow record{static_cast<Word>(toWord(GetModule()->m_interfaceHandle)), widget};
    unsigned short text[255];
    fillField(text, caption.left(254));
    GetModule()->Send(component, ToHost::CaptionChanged, &record, text);
}

Word statusPane(void *statusBar, unsigned message, void *statusObject, int paneId, int width) {
    mwiStatusPane record = zeroRecord<mwiStatusPane>();
    record.coreHandle = static_cast<Word>(toWord(GetModule()->m_coreHandle));
    record.statusObject = statusObject;
    record.kind = 2;
    record.paneId = static_cast<Word>(paneId);
    record.width = static_cast<Word>(width);
    GetModule()->Send(statusBar, message, &record, 0);
    return record.windowId;
}

// ---- property pages ----

void raisePanel(void *component, Panel panel) {
    GetModule()->Send(component, ToHost::RaisePanel, static_cast<int>(panel), 0);
}

bool isPageKnown(void *component, PROPERTY_PAGE *page) {
    Word known = 0;
    GetModule()->Send(component, ToHost::IsPageKnown, page, &known);
    return known != 0;
}

void showPage(void *component, PROPERTY_PAGE *page, bool known) {
    GetModule()->Send(component, known ? ToHost::ShowKnownPage : ToHost::ShowNewPage, page, 0);
}

void pageItemChanged(void *component, PROPERTY_PAGE *page, PROPERTY *item) {
    GetModule()->Send(component, ToHost::PageItemChanged, page, item);
}

void closePage(void *component, PROPERTY_PAGE *page) {
    GetModule()->Send(component, ToHost::ClosePage, page, 0);
}

} // namespace HostCalls
