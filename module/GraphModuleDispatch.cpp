// The message table, and the one place where a failure of a handler ends.
#include "module/GraphModule.h"

#include "module/HostMessages.h"

#include <exception>

namespace {

using M = CRGraphModule;

// Every message that the host may send. Without a handler it is answered like an unknown one.
constexpr M::Row rows[] = {
    {ToModule::Start, &M::CoreStartModule},
    {ToModule::Stop, &M::CoreStopModule},
    {ToModule::CreateInterface, &M::CoreCreateInterface},
    {ToModule::UpdateData, &M::CoreUpdateDpa},
    {ToModule::StopWork, &M::CoreStopWork},
    {ToModule::StartWork, &M::CoreStartWork},
    {ToModule::Load, nullptr},
    {ToModule::Save, nullptr},
    {ToModule::SystemIsLoading, &M::CoreSystemIsLoading},
    {ToModule::MainWindowIsLoading, &M::CoreMainwindowIsLoading},
    {ToModule::UpdateLineStudy, nullptr},
    {ToModule::RebuildOutputs, &M::CoreRebuildDpa},
    {ToModule::MainWindowCloses, &M::CoreMainwindowIsClose},
    {ToModule::ReceiveEvent, &M::CoreReceiveEvent},
    {ToModule::GlobalParameters, &M::CoreChangeGlobalParameters},
    {ToModule::Rename, &M::CoreRenameDpa},
    {ToModule::Undo, nullptr},
    {ToModule::TesterCopy, nullptr},
    {ToModule::TesterPaste, nullptr},
    {ToModule::PanelState, &M::MwiChangePanelStatus},
    {ToModule::SkinName, nullptr},
    {ToModule::ConvertToType, &M::MwiConvertToType},
    {ToModule::NeedToConvert, &M::MwiNeedToConvert},
    {ToModule::ZoomIn, &M::MwiZoomIn},
    {ToModule::ZoomOut, &M::MwiZoomOut},
    {ToModule::ZoomChange, &M::MwiZoomChange},
    {ToModule::LastCandle, &M::MwiShowLastCandleIndicator},
    {ToModule::ShowCrossCursor, &M::MwiShowCrossCursor},
    {ToModule::GetName, &M::MvWindowComponentGetName},
    {ToModule::CreateWindow, &M::MvWindowComponentCreate},
    {ToModule::DeleteWindow, &M::MvWindowComponentDelete},
    {ToModule::Resize, &M::MvWindowComponentResize},
    {ToModule::AddIndicators, &M::MvWindowComponentAddDpa},
    {ToModule::AddInstruments, &M::MvWindowComponentAddMdpa},
    {ToModule::TakeFocus, &M::MvWindowComponentTakeFocus},
    {ToModule::Show, &M::MvWindowComponentShow},
    {ToModule::Print, nullptr},
    {ToModule::DropAccepted, nullptr},
    {ToModule::GetUName, &M::MvWindowComponentGetuname},
    {ToModule::GetUNameData, &M::MvWindowComponentGetUnameData},
    {ToModule::SelectObject, &M::MvWindowComponentSelectObj},
    {ToModule::OwnerOfObject, &M::MvWindowComponentGetOwnerForObj},
    {ToModule::TesterAddSymbol, nullptr},
    {ToModule::TesterAddIndicator, nullptr},
    {ToModule::TesterRemove, nullptr},
    {ToModule::EventLine, nullptr},
    {ToModule::DealLine, nullptr},
    {ToModule::ClearLine, nullptr},
    {ToModule::TesterPicture, nullptr},
    {ToModule::GetCaption, &M::MvWindowComponentGetCaption},
    {ToModule::PageChanged, &M::PropertyChangeData},
    {ToModule::OpenReport, &M::DhOpenReport},
};

} // namespace

CRGraphModule::RowTable CRGraphModule::Rows() {
    return {rows, static_cast<int>(sizeof rows / sizeof rows[0])};
}

int CRGraphModule::Dispatch(unsigned int message, int wParam, int lParam) {
    for (const Row &row : rows) {
        if (row.number == message)
            return row.handler ? (this->*row.handler)(wParam, lParam) : 0;
    }
    return 0;
}

// The base class stands outside: a failure of its start-up reaches the host.
int CRGraphModule::ReceiveMessageWrap(void *sender, unsigned int message, int wParam, int lParam) {
    m_timer.EnsureStarted();
    CModule::ReceiveMessageWrap(sender, message, wParam, lParam);
    try {
        return Dispatch(message, wParam, lParam);
    } catch (const std::exception &) {
        return 1;
    } catch (...) {
        return 1;
    }
}
