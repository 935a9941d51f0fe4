#include "host/core/WindowService.h"
#include "host/core/Host.h"
#include "host/core/WindowFront.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QSlider>
#include <QToolButton>
#include <algorithm>

namespace desk {

namespace {

// The locator function has no context.
WindowFront *locatorFront = nullptr;

constexpr int captionWidth = 255;
constexpr int textWidth = 1024;

} // namespace

WindowService::WindowService(Host &host, WindowFront &front, const QString &applicationName)
    : Service(host), m_front(front), m_applicationName(applicationName),
      m_interface(registerInterface("MAINWINDOW", "VELMAR", "")) {
    locatorFront = &front;
    take(m_interface,
         {ToHost::Milestone, ToHost::CaptionChanged, ToHost::DropTaken, ToHost::ToolButtonState,
          ToHost::ClearToolButton, ToHost::OpenChartIdentity, ToHost::DealingRequest, ToHost::ZoomInButton,
          ToHost::ZoomOutButton, ToHost::ZoomSlider, ToHost::LastCandleButton, ToHost::InformationBoxButton,
          ToHost::CrossCursor, ToHost::LocatorFunction, ToHost::OpenAlert});
    take(coreHandle(), {ToHost::ApplicationCaption, ToHost::OpenHelp, ToHost::OpenAlert});
}

WindowService::~WindowService() {
    if (locatorFront == &m_front)
        locatorFront = nullptr;
}

void WindowService::takeModuleInterface(Handle moduleInterface) {
    take(moduleInterface, {ToHost::Milestone, ToHost::CaptionChanged, ToHost::DropTaken,
                           ToHost::OpenChartIdentity, ToHost::DealingRequest});
}

void WindowService::setCrossCursor(bool on) {
    m_crossCursor = on ? 1 : 0;
    Word mode = m_crossCursor;
    host().sendToModule(ToModule::ShowCrossCursor, 1, toWord(&mode));
}

bool WindowService::handle(Handle target, unsigned message, int wParam, int lParam, int &result) {
    result = 0;
    return handleControl(message, wParam, lParam) || handleRequest(target, message, wParam, lParam, result);
}

bool WindowService::handleControl(unsigned message, int wParam, int lParam) {
    switch (message) {
    case ToHost::ZoomInButton:
    case ToHost::ZoomOutButton:
    case ToHost::LastCandleButton:
    case ToHost::InformationBoxButton:
        if (lParam)
            *fromWord<QToolButton *>(lParam) = m_front.toolButton(message);
        return true;
    case ToHost::ZoomSlider:
        if (lParam)
            *fromWord<QSlider *>(lParam) = m_front.zoomSlider();
        return true;
    case ToHost::CrossCursor:
        crossCursor(wParam, lParam);
        return true;
    default:
        return false;
    }
}

void WindowService::crossCursor(int wParam, int lParam) {
    if (!lParam)
        return;
    if (wParam == 0) {
        *fromWord<Word>(lParam) = m_crossCursor;
        return;
    }
    m_crossCursor = *fromWord<Word>(lParam);
    m_front.crossCursorChanged(m_crossCursor != 0);
}

bool WindowService::handleRequest(Handle, unsigned message, int wParam, int lParam, int &result) {
    switch (message) {
    case ToHost::DropTaken:
        result = host().sendToModule(ToModule::DropAccepted, wParam, lParam);
        return true;
    case ToHost::ClearToolButton:
        return true;
    case ToHost::DealingRequest:
        m_front.askForLogin();
        return true;
    default:
        break;
    }
    if (!wParam)
        return false;
    switch (message) {
    case ToHost::Milestone:
        m_front.milestone(readText(fromWord<const char>(wParam) + 4, 255));
        return true;
    case ToHost::CaptionChanged:
        m_front.captionChanged(Handle(toWord(fromWord<coreChartWindow>(wParam)->widget)),
                               readText(fromWord<Unit16>(lParam), captionWidth));
        return true;
    case ToHost::ToolButtonState:
        // Armed neither in the record nor in the result.
        fromWord<mwiStateLsButton>(wParam)->armed = 0;
        return true;
    case ToHost::OpenChartIdentity:
        m_front.openInstrumentPicker(readText(fromWord<Unit16>(wParam), textWidth));
        return true;
    case ToHost::LocatorFunction:
        *fromWord<mwiLocatorFunction>(wParam) = &WindowService::showLocator;
        return true;
    case ToHost::ApplicationCaption:
        fillText(fromWord<Unit16>(wParam), textWidth, m_applicationName);
        return true;
    case ToHost::OpenHelp:
        m_front.openHelp(readText(fromWord<Unit16>(wParam), textWidth));
        return true;
    case ToHost::OpenAlert:
        m_front.openAlert(readText(fromWord<coreAlertRequest>(wParam)->identity.m_szNameSymbol, 255));
        return true;
    default:
        return false;
    }
}

void WindowService::showLocator(const mwiLocatorMessage *message) {
    if (!message || !locatorFront)
        return;
    std::vector<LocatorLine> lines;
    lines.reserve(std::size_t(std::max(0, int(message->count))));
    for (int i = 0; message->items && i < message->count; ++i) {
        const mwiLocatorMessageItem &item = message->items[i];
        lines.push_back({fieldText(item.text), QColor::fromRgb(item.color), int(item.fontSize)});
    }
    locatorFront->showLocator(lines, QColor::fromRgb(message->background));
}

} // namespace desk
