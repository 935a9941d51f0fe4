// Indicators made from stored data, and what the host tells about existing ones.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "objects/Indicator.h"
#include "objects/IndicatorPlacement.h"
#include "objects/OutputSeries.h"
#include "support/Log.h"
#include "support/LogTag.h"

#include <QPointer>
#include <algorithm>

namespace {

CRGraphLayer *firstLayer(const CRGraphArea *area) {
    return area && !area->m_layers.empty() ? area->m_layers.front() : nullptr;
}

CRGraphLayer *untitledLayer(CRGraphArea *area) {
    if (!area)
        return nullptr;
    QPointer<CRGraphLayer> layer = new CRGraphLayer(area, QString());
    area->AddGraphLayer(layer);
    return layer;
}

// The layer of the first output of an indicator from stored data. The user is never asked.
CRGraphLayer *storedPlace(CRGraphWidget &window, const CRPrimitive *base, IndicatorPlacement placement) {
    QPointer<CRGraphWidget> guard(&window);
    const int selected = window.m_nSelectedArea;
    CRGraphLayer *baseLayer = base ? shownLayer(base) : nullptr;
    if (!placement.sameArea) {
        if (selected != -1)
            return untitledLayer(window.GetArea(selected));
        const int created = window.CreateArea(-1);
        return guard ? firstLayer(window.GetArea(created)) : nullptr;
    }
    const int index = selected != -1 ? selected : baseLayer ? window.FindArea(baseLayer->m_pArea) : 0;
    CRGraphArea *area = window.GetArea(index);
    if (!placement.sameLayer)
        return untitledLayer(area);
    return baseLayer && baseLayer->GetWidget() == &window ? baseLayer : firstLayer(area);
}

// The outputs that `mask` chooses, all on one layer. False when there is no place, or the host took the
// window or the object away meanwhile.
bool addStoredOutputs(CRGraphWidget &window, CRIndicator *indicator, const CRPrimitive *base, long mask,
                      const std::vector<mvDataPointArray *> &outputs) {
    QPointer<CRGraphWidget> guard(&window);
    const IndicatorPlacement placement =
        base ? placementByCode(placementCode(outputs)) : IndicatorPlacement{true, true};
    QPointer<CRGraphLayer> layer;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const bool chosen = mask == 0 || (i < 32 && (static_cast<unsigned long>(mask) >> i & 1));
        if (!chosen || !outputs[i])
            continue;
        if (!layer)
            layer = storedPlace(window, base, placement);
        if (!guard || !window.HasIndicator(indicator) || !layer)
            return false;
        addOutput(*indicator, layer, static_cast<int>(i), outputs[i], false);
    }
    return true;
}

} // namespace

// Rebuilds an indicator from stored data. `mask` chooses outputs by bit, 0 takes all.
void *CRGraphWidget::CreateIndicator(void *iface, const unsigned short *name, const CRPrimitive *base,
                                     long mask, coreSzNode *node, void *handle, bool cleanLayers) {
    QPointer<CRGraphWidget> guard(this);
    const bool hasBase = base != nullptr;
    QPointer<CRPrimitive> source(const_cast<CRPrimitive *>(base));
    if (hasBase && (!base->GetArray() || isTickPeriod(base->GetArray()->identity.m_periods)))
        return nullptr;
    auto record = zeroRecord<coreDemandsIndicator>();
    record.parameter = static_cast<Word>(toWord(iface));
    fillField(record.sNameInstrument.m_szNameSymbol, readText(name, 255));
    if (node)
        record.node = *node;
    if (!handle)
        handle = HostCalls::createObject(record);
    if (!handle || !guard || hasBase != !source.isNull())
        return nullptr;

    const int sources = HostCalls::sourceCount(handle);
    if (!guard || hasBase != !source.isNull() || (sources != 0 && !source))
        return nullptr;
    if (source)
        handOverSource(handle, sources, source->GetArray());
    const std::vector<mvDataPointArray *> outputs = fetchOutputs(handle);
    if (outputs.empty() || !guard || hasBase != !source.isNull())
        return nullptr;
    CRIndicator *indicator = AddIndicator(handle);
    if (!indicator)
        return nullptr;
    indicator->m_isInstrument = false;
    const bool placed = addStoredOutputs(*this, indicator, source, mask, outputs);
    if (!guard)
        return nullptr;
    if (!placed) {
        DiscardIndicator(indicator);
        return nullptr;
    }
    if (!FinishIndicator(indicator, true, cleanLayers))
        return nullptr;
    UndoMilestone(QStringLiteral("Add indicator"));
    return handle;
}

void *CRGraphWidget::CreateIndicatorPasteFromUndo(void *iface, const unsigned short *name,
                                                  const CRPrimitive *base, long mask, coreSzNode *node,
                                                  void *handle, bool cleanLayers) {
    return CreateIndicator(iface, name, base, mask, node, handle, cleanLayers);
}

// ---- news of the host ----

void CRGraphWidget::UpdateIndicatorPrimitives(coreCoreUpdateDpaData *data) {
    if (m_loading)
        return;
    QPointer<CRGraphWidget> guard(this);
    const int kind = data->updateKind;
    if (kind != coreUpdatePoints)
        m_maxima.clear(); // all values may be other ones
    for (CRIndicator *indicator : std::vector<CRIndicator *>(m_indicators)) {
        if (!HasIndicator(indicator))
            continue;
        if (indicator->GetHandle() == data->owner)
            indicator->UpdateData(data);
        if (!guard)
            return;
        m_bUpdatePrimitivePositions = true;
        trace("m_bUpdatePrimitivePositions = true", LOG_TAG("GraphWidget"));
    }
    if (kind != coreUpdateArrays || !m_pScrollBar || m_pScrollBar->m_nRightEdgeTime == -1)
        return;
    // The same candle stays at the right edge, wherever the rebuild has moved it.
    const long edgeTime = m_pScrollBar->m_nRightEdgeTime;
    UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (!guard || !m_pScrollBar)
        return;
    const CRPrimitive *any = GetAnyPrimitive();
    int count = 1;
    const eDateType interval = any ? any->GetTimeInterval(count) : DT_UNKNOWN;
    const int last = m_pTimeScale->GetTimeCount() - 1;
    const int value = std::min(m_pTimeScale->GetVirtualTimePos(edgeTime, interval, count) + 1, last);
    if (value != m_pScrollBar->GetScrollValue())
        m_pScrollBar->SetValue(value);
}

void CRGraphWidget::RenameIndicator(void *record) {
    if (!record)
        return;
    QPointer<CRGraphWidget> guard(this);
    void *const handle = static_cast<const coreRenameDpa *>(record)->handle;
    std::vector<QPointer<CRPrimitive>> primitives;
    for (const CRIndicator *indicator : m_indicators)
        if (indicator->GetHandle() == handle)
            primitives.insert(primitives.end(), indicator->m_primitives.begin(),
                              indicator->m_primitives.end());
    for (const QPointer<CRPrimitive> &primitive : primitives) {
        if (primitive)
            primitive->CRMDataLine::Create(primitive->GetArray()); // with the name of now
        if (primitive)
            primitive->RequestExNames();
        if (primitive)
            primitive->SyncInternalData();
    }
    if (guard)
        UpdateTitle();
}
