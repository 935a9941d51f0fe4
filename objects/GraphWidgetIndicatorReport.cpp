// The report chart of the dealing history.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "dialogs/TimeFrameForm.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "objects/OutputSeries.h"
#include "objects/PanelPeriods.h"

#include <QPointer>

namespace {

// The row of the timeframe panel that the user chose; -1 when none was chosen or the chart went away.
int askTimeFrame(CRGraphWidget *window) {
    QStringList texts;
    for (int row = 0; row < panelPeriodCount; ++row)
        texts += panelPeriodText(row);
    QPointer<TimeFrameForm> form = new TimeFrameForm(window);
    form->SetItems(texts, panelPeriodHour);
    const bool accepted = form->exec() == QDialog::Accepted && form;
    const int row = accepted ? form->CurrentIndex() : -1;
    delete form.data();
    return row;
}

std::vector<mvDataPointArray *> baseArrays(const CRGraphWidget &window) {
    std::vector<mvDataPointArray *> arrays;
    for (const CRIndicator *indicator : window.m_indicators)
        if (!indicator->m_primitives.empty() && indicator->m_primitives.front()->GetArray())
            arrays.push_back(indicator->m_primitives.front()->GetArray());
    return arrays;
}

} // namespace

// `record` names the report; it goes to the host with the maker and the chosen period, and brings back
// the object.
void *CRGraphWidget::CreateDealingIndicator(coreDemandsIndicator *record) {
    QPointer<CRGraphWidget> guard(this);
    void *iface = record ? m_module->GetInterfaceByName("MvDealingHistory", "VELMAR", nullptr) : nullptr;
    if (!iface || !guard)
        return nullptr;
    namePeriod period = record->sNameInstrument.m_periods;
    if (!setPanelPeriod(askTimeFrame(this), &period) || !guard)
        return nullptr;
    record->parameter = static_cast<Word>(toWord(iface));
    record->sNameInstrument.m_periods = period;
    void *handle = HostCalls::createObject(*record);
    if (!handle || !guard)
        return nullptr;
    SubscribeIndicator(handle);
    const int count = guard ? HostCalls::sourceCount(handle) : 0;
    if (!guard || !isListCount(count))
        return nullptr;
    for (coreReportSymbol &symbol : HostCalls::reportSymbols(iface, handle, count)) {
        if (!guard)
            return nullptr;
        char type[] = "Bid";
        char provider[] = "VELMAR";
        unsigned short name[255];
        std::memcpy(name, symbol.symbol, sizeof name);
        AddPrimaryPrimitive(name, type, period, provider, 1, nullptr);
    }
    if (!guard)
        return nullptr;
    HostCalls::handOverSources(handle, baseArrays(*this));
    const bool confirmed = guard && HostCalls::confirmObject(handle);
    if (!guard)
        return nullptr;
    if (!confirmed) {
        AbandonIndicator(handle);
        return nullptr;
    }
    const std::vector<mvDataPointArray *> outputs = fetchOutputs(handle);
    CRIndicator *indicator = guard && !outputs.empty() ? AddIndicator(handle) : nullptr;
    if (!indicator)
        return nullptr;
    indicator->m_isInstrument = false;
    CreateArea(-1);
    for (int i = 0; i < static_cast<int>(outputs.size()); ++i) {
        if (!guard || !HasIndicator(indicator))
            return nullptr;
        const CRGraphArea *area = GetArea(i);
        if (outputs[static_cast<std::size_t>(i)] && area && !area->m_layers.empty())
            addOutput(*indicator, area->m_layers.front(), i, outputs[static_cast<std::size_t>(i)], true);
    }
    if (!guard || !UpdateAfterAdding())
        return nullptr;
    UndoMilestone(QStringLiteral("Added dealing indicator"));
    return handle;
}
