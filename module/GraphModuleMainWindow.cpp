// Messages of the main window: panels, price type, zoom, last candle, cross cursor.
#include "module/GraphModule.h"

#include "chart/GraphWidget.h"
#include "support/Log.h"

int CRGraphModule::MwiChangePanelStatus(int wParam, int lParam) {
    const coreChartWindow *window = fromWord<const coreChartWindow>(wParam);
    if (!window)
        return 1;
    CRGraphWidget *widget = window->widget;
    if (GetGraphWidgetIndex(widget) < 0) {
        logLine(logMsgModule, logError, "MWI_SET_PANEL_STATE: wParam is not a GraphWidget",
                "|GraphModule|1751");
        return 1;
    }
    const mwiPanelState *state = fromWord<const mwiPanelState>(lParam);
    if (!state)
        return 1;
    widget->OnPaneleStatusChanged(state->kind, state->item);
    return 0;
}

int CRGraphModule::MwiConvertToType(int wParam, int) {
    SwitchToType(wParam == 0 ? "Middle" : wParam == 1 ? "Bid" : "Ask");
    return 0;
}

int CRGraphModule::MwiNeedToConvert(int wParam, int) {
    mwiConvertList *list = fromWord<mwiConvertList>(wParam);
    m_tradeModule.GetTradeData(false);
    if (!list)
        return 1;
    mwiConvert answer{0, 3};
    if (NeedToSwitchToBid())
        answer = {1, 1};
    else if (NeedToSwitchToMid())
        answer = {1, 0};
    // The list is longer than its declaration: the host keeps room behind the answers that it has.
    mwiConvert *answers = list->answers;
    answers[list->count] = answer;
    ++list->count;
    return 0;
}

int CRGraphModule::MwiZoomIn(int wParam, int) {
    if (CRGraphWidget *widget = wParam == 0 ? GetCurrentWidget() : nullptr)
        widget->ZoomIn(true);
    return 0;
}

int CRGraphModule::MwiZoomOut(int wParam, int) {
    if (CRGraphWidget *widget = wParam == 0 ? GetCurrentWidget() : nullptr)
        widget->ZoomOut(true);
    return 0;
}

int CRGraphModule::MwiZoomChange(int wParam, int lParam) {
    if (wParam != 0 && wParam != 8)
        return 0;
    if (CRGraphWidget *widget = GetCurrentWidget()) {
        if (wParam == 0)
            widget->OnChangeZoom(lParam);
        else
            widget->OnZoomSliderPressed();
    }
    return 0;
}

int CRGraphModule::MwiShowLastCandleIndicator(int wParam, int) {
    if (CRGraphWidget *widget = wParam == 0 ? GetCurrentWidget() : nullptr)
        widget->OnBnClickedLastCandleIndicator();
    return 0;
}

int CRGraphModule::MwiShowCrossCursor(int wParam, int lParam) {
    const Word *mode = fromWord<const Word>(lParam);
    if (wParam == 1 && mode)
        m_crossCursor = *mode;
    return 0;
}
