// Indicators made from stored data and from menus, and what the host tells about existing ones.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
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

// The layer of a rebuilt indicator's first output. The user is never asked.
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
    if (isListCount(sources)) {
        std::vector<mvDataPointArray *> list(static_cast<std::size_t>(sources), nullptr);
        list.front() = source->GetArray();
        HostCalls::handOverSources(handle, list);
    }
    const std::vector<mvDataPointArray *> outputs = fetchOutputs(handle);
    if (outputs.empty() || !guard || hasBase != !source.isNull())
        return nullptr;
    CRIndicator *indicator = AddIndicator(handle);
    if (!indicator)
        return nullptr;
    indicator->m_isInstrument = false;

    const IndicatorPlacement placement =
        hasBase ? placementByCode(placementCode(outputs)) : IndicatorPlacement{true, true};
    QPointer<CRGraphLayer> layer;
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const bool chosen = mask == 0 || (i < 32 && (static_cast<unsigned long>(mask) >> i & 1));
        if (!chosen || !outputs[i])
            continue;
        if (!layer)
            layer = storedPlace(*this, source, placement);
        if (!guard || !HasIndicator(indicator))
            return nullptr;
        if (!layer) {
            RemoveIndicatorFromList(indicator);
            delete indicator;
            return nullptr;
        }
        addOutput(*indicator, layer, static_cast<int>(i), outputs[i], false);
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

// The outputs of an object have changed, with its parameters.
void CRGraphWidget::ReBuildIndicator(coreRebuildDpa *record) {
    if (!record)
        return;
    QPointer<CRGraphWidget> guard(this);
    void *const handle = record->handle;
    const int outputs = HostCalls::outputCount(handle);
    std::vector<mvDataPointArray *> current = HostCalls::outputArrays(handle, outputs);
    current.erase(std::remove(current.begin(), current.end(), nullptr), current.end());
    if (!guard)
        return;
    const auto arrayNamed = [&current](const QString &name) -> mvDataPointArray * {
        for (mvDataPointArray *array : current)
            if (fieldText(array->identity.m_szNameSymbol) == name)
                return array;
        return nullptr;
    };

    // The lines on the chart that the object has no more.
    QPointer<CRGraphArea> area;
    QPointer<CRGraphLayer> layer;
    const auto shown =
        std::find_if(m_indicators.begin(), m_indicators.end(), [handle](const CRIndicator *entry) {
            return entry->GetHandle() == handle && !entry->IsInvisible();
        });
    if (shown != m_indicators.end()) {
        CRIndicator *visible = *shown;
        for (CRPrimitive *primitive : std::vector<CRPrimitive *>(visible->m_primitives)) {
            if (!visible->Contain(primitive))
                continue;
            if (CRGraphLayer *stands = shownLayer(primitive)) {
                layer = stands;
                area = stands->m_pArea;
            }
            if (!arrayNamed(lineName(primitive)))
                visible->DeletePrimitive(primitive);
            if (!guard)
                return;
            if (!HasIndicator(visible))
                break;
        }
    }

    // The lines that stay.
    CRIndicator *indicator = FindIndicator(handle);
    if (indicator) {
        const CRPrimitive *lowest = nullptr;
        for (CRPrimitive *primitive : indicator->m_primitives) {
            mvDataPointArray *array = arrayNamed(lineName(primitive));
            primitive->m_bVisible = array != nullptr;
            if (!array) {
                primitive->CRMDataLine::operator=(
                    CRMDataLine()); // the host may free the old array from now on
                continue;
            }
            primitive->CRMDataLine::Create(array);
            if (shownLayer(primitive) && (!lowest || primitive->m_nIndex < lowest->m_nIndex))
                lowest = primitive;
        }
        if (lowest) {
            layer = lowest->m_pLayer;
            area = layer->m_pArea;
        }
    }
    for (CRGraphArea *each : m_areas)
        each->UpdateData();

    if (indicator) {
        if (!area)
            area = GetArea(0);
        if (!layer && area) {
            const int created = CreateLayer(0);
            if (guard && area)
                layer = area->GetLayer(created, QString());
        }
        if (!guard || !layer || !HasIndicator(indicator))
            return;
        if (!AddRebuiltLines(indicator, layer, *record, current))
            return;
    }
    DeleteUnusedLayers();
    UpdateScaleWidth();
    if (guard)
        UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (!guard)
        return;
    update();
    m_nSelectedArea = -1;
}

// False when the host took the window or the object away meanwhile.
bool CRGraphWidget::AddRebuiltLines(CRIndicator *indicator, CRGraphLayer *layer, const coreRebuildDpa &record,
                                    std::vector<mvDataPointArray *> current) {
    QPointer<CRGraphWidget> guard(this);
    QPointer<CRGraphLayer> target(layer);
    const auto present = [&] { return guard && HasIndicator(indicator); };
    std::vector<mvDataPointArray *> arrays;
    if (record.arrays && isListCount(record.count))
        arrays.assign(record.arrays, record.arrays + record.count);
    for (std::size_t i = 0; i < arrays.size(); ++i) {
        mvDataPointArray *array = arrays[i];
        if (!array)
            continue;
        if (!target)
            return false;
        CRPrimitive *primitive = indicator->RestorePrimitive(array->identity.m_szNameSymbol);
        if (primitive) {
            leaveLayer(primitive);
            primitive->m_pLayer = target;
            target->m_primitives.push_back(primitive);
            target->m_bPrimitivesDirty = true;
            primitive->CRMDataLine::Create(array);
        } else {
            // Lines are numbered as the object lists them.
            const auto place = std::find(current.begin(), current.end(), array);
            const auto line =
                place == current.end() ? static_cast<std::ptrdiff_t>(i) : place - current.begin();
            primitive = indicator->AddPrimitive(target, 0, static_cast<int>(line), outputDrawType(*array));
            if (!primitive)
                continue;
            bindLine(primitive, indicator->GetHandle(), array);
        }
        primitive->SyncInternalData();
        if (!present())
            return false;
    }
    indicator->SortPrimitives({static_cast<int>(current.size()), current.data()});
    indicator->RequestHLines();
    if (present())
        indicator->RequestLinks();
    return present();
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
            primitive->RequestExNames();
        if (primitive)
            primitive->SyncInternalData();
    }
    if (guard)
        UpdateTitle();
}
