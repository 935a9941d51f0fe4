// Adding an indicator: its sources, its place, its series.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "objects/Indicator.h"
#include "objects/IndicatorPlacement.h"
#include "objects/OutputSeries.h"
#include "objects/Warning.h"
#include "support/LogTag.h"

#include <QPointer>

namespace {

constexpr int nameWidth = 255;

// Where the outputs of one new indicator go. Only the first output is placed, the others follow it.
class OutputPlace {
public:
    OutputPlace(CRGraphWidget *window, CRPrimitive *base, IndicatorPlacement placement, const QString &name)
        : m_window(window), m_base(base), m_placement(placement), m_name(name) {}

    // Null: the user was asked and chose none, or there is no layer.
    CRGraphLayer *next() {
        if (!m_decided) {
            m_decided = true;
            m_layer = m_placement.sameArea ? besideSource() : inOwnArea();
        }
        return m_layer;
    }

private:
    int baseArea() const {
        CRGraphLayer *layer = m_base ? shownLayer(m_base) : nullptr;
        return layer ? m_window->FindArea(layer->m_pArea) : -1;
    }

    CRGraphLayer *besideSource() {
        const int ofBase = baseArea();
        int index = m_window->m_nSelectedArea;
        if (index == -1)
            index = ofBase == -1 ? 0 : ofBase;
        CRGraphArea *area = m_window->GetArea(index);
        if (!area)
            return nullptr;
        const bool atBase = m_placement.sameLayer && index == ofBase;
        return area->GetLayer(atBase ? shownLayer(m_base)->GetIndex() : -1, m_name);
    }

    CRGraphLayer *inOwnArea() {
        QPointer<CRGraphWidget> guard(m_window);
        const int selected = m_window->m_nSelectedArea;
        CRGraphArea *area = nullptr;
        if (selected != -1) {
            area = m_window->GetArea(selected);
            return area ? area->GetLayer(-1, m_name) : nullptr;
        }
        const int created = m_window->CreateArea(-1);
        area = guard ? m_window->GetArea(created) : nullptr;
        return area && !area->m_layers.empty() ? area->m_layers.front() : nullptr;
    }

    CRGraphWidget *m_window;
    QPointer<CRPrimitive> m_base;
    IndicatorPlacement m_placement;
    QString m_name;
    bool m_decided = false;
    QPointer<CRGraphLayer> m_layer;
};

// The number of sources that the object asks for; it gets the one.
int askForSources(void *handle, const QPointer<CRGraphWidget> &window, const QPointer<CRPrimitive> &source) {
    const int sources = HostCalls::sourceCount(handle);
    if (window && source)
        handOverSource(handle, sources, source->GetArray());
    return sources;
}

// False when there is no place, or the host took the window or the object away meanwhile.
bool addOutputs(CRGraphWidget *window, CRIndicator *indicator, OutputPlace &place,
                const std::vector<mvDataPointArray *> &outputs) {
    const QPointer<CRGraphWidget> guard(window);
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        CRGraphLayer *layer = place.next();
        if (!layer || !guard || !window->HasIndicator(indicator))
            return false;
        if (outputs[i])
            addOutput(*indicator, layer, static_cast<int>(i), outputs[i], true);
        if (!guard)
            return false;
    }
    return true;
}

} // namespace

// Ticks carry no indicator. A tester's chart takes what is built on itself or on another of its kind.
bool CRGraphWidget::IsSourceRefused(const CRPrimitive &base) {
    const mvDataPointArray *array = base.GetArray();
    if (!array || isTickPeriod(array->identity.m_periods))
        return true;
    const CRGraphWidget *chart = base.GetWidget();
    if (!m_sysTesterChart || base.m_sysTester || !chart || chart->m_sysTesterChart)
        return false;
    warnUser(this, m_module->tr("G0147", 0), LOG_TAG("GraphWidget"));
    return true;
}

// `base` is the series that the indicator is built on, null when it needs none. With `handle` the host
// has made the object already.
void *CRGraphWidget::AddSecondaryPrimitive(const unsigned short *name, void *iface, CRPrimitive *base,
                                           void *handle) {
    const bool hasBase = base != nullptr;
    if (hasBase && IsSourceRefused(*base))
        return nullptr;
    QPointer<CRGraphWidget> guard(this);
    QPointer<CRPrimitive> source(base);
    const QString nameText = readText(name, nameWidth);
    if (!handle) {
        auto record = zeroRecord<coreDemandsIndicator>();
        record.parameter = static_cast<Word>(toWord(iface));
        fillField(record.sNameInstrument.m_szNameSymbol, nameText);
        handle = HostCalls::createObject(record);
        if (!handle || !guard)
            return nullptr;
    }
    SubscribeIndicator(handle);
    const int sources = guard && source ? askForSources(handle, guard, source) : 0;
    if (!guard)
        return nullptr;
    // The host may run a dialog here, in which the user can click on other panes.
    const int selectedArea = m_nSelectedArea;
    const bool confirmed = HostCalls::confirmObject(handle);
    if (!guard)
        return nullptr;
    if (confirmed)
        m_nSelectedArea = selectedArea;
    if (!confirmed || (hasBase && !source)) {
        AbandonIndicator(handle);
        return nullptr;
    }

    const std::vector<mvDataPointArray *> outputs = fetchOutputs(handle);
    CRIndicator *indicator = guard && !outputs.empty() ? AddIndicator(handle) : nullptr;
    if (!indicator)
        return nullptr;
    indicator->m_isInstrument = false;
    const PlacementCase what{hasBase, isListCount(sources), isCurrencySumName(nameText),
                             placementCode(outputs)};
    OutputPlace place(this, source, placementOf(what), nameText);
    const bool placed = addOutputs(this, indicator, place, outputs);
    if (!guard)
        return nullptr;
    if (!placed) {
        DiscardIndicator(indicator);
        AbandonIndicator(handle);
        return nullptr;
    }
    if (!FinishIndicator(indicator, false, true))
        return nullptr;
    SelectAllPrimitives(false);
    SelectAllLS(false);
    UndoMilestone(QStringLiteral("Add indicator"));
    return handle;
}

// Counts, scales and positions after series came; false when the host took the window away meanwhile.
bool CRGraphWidget::UpdateAfterAdding() {
    QPointer<CRGraphWidget> guard(this);
    UpdatePrimitiveCountState();
    if (guard)
        UpdateScaleWidth();
    if (guard)
        UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (guard)
        update();
    return guard;
}

// The host forgets an object that was being made.
void CRGraphWidget::AbandonIndicator(void *handle) {
    QPointer<CRGraphWidget> guard(this);
    UnsubscribeIndicator(handle);
    HostCalls::creationAbandoned();
}

// What follows the series of a new indicator: levels, names, links, and the layout. False when the host
// took the window or the object away meanwhile.
bool CRGraphWidget::FinishIndicator(CRIndicator *indicator, bool subscribe, bool cleanLayers) {
    QPointer<CRGraphWidget> guard(this);
    const auto present = [&] { return guard && HasIndicator(indicator); };
    void *const handle = present() ? indicator->GetHandle() : nullptr;
    if (!handle)
        return false;
    indicator->RequestHLines();
    if (present() && subscribe)
        SubscribeIndicator(handle);
    for (int i = 0; present() && i < indicator->GetPrimitiveCount(); ++i)
        (*indicator)[i]->SyncInternalData();
    if (present())
        indicator->RequestLinks();
    if (!present())
        return false;
    if (cleanLayers)
        DeleteUnusedLayers();
    return UpdateAfterAdding();
}
