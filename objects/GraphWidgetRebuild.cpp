// The rebuild of an indicator whose outputs have changed.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "objects/Indicator.h"
#include "objects/OutputSeries.h"

#include <QPointer>
#include <algorithm>

namespace {

using ArrayList = std::vector<mvDataPointArray *>;

mvDataPointArray *arrayNamed(const ArrayList &list, const QString &name) {
    for (mvDataPointArray *array : list)
        if (fieldText(array->identity.m_szNameSymbol) == name)
            return array;
    return nullptr;
}

// Where the lines of an object stand, and its new ones go.
struct LinePlace {
    void Note(CRGraphLayer *stands) {
        layer = stands;
        area = stands->m_pArea;
    }
    QPointer<CRGraphArea> area;
    QPointer<CRGraphLayer> layer;
};

// The lines on the chart that the object has no more go; false when the window goes with them.
bool dropLines(CRGraphWidget *window, void *handle, const ArrayList &current, LinePlace *place) {
    const QPointer<CRGraphWidget> guard(window);
    const auto shown = std::find_if(
        window->m_indicators.begin(), window->m_indicators.end(),
        [handle](const CRIndicator *entry) { return entry->GetHandle() == handle && !entry->IsInvisible(); });
    if (shown == window->m_indicators.end())
        return true;
    CRIndicator *visible = *shown;
    for (CRPrimitive *primitive : std::vector<CRPrimitive *>(visible->m_primitives)) {
        if (!visible->Contain(primitive))
            continue;
        if (CRGraphLayer *stands = shownLayer(primitive))
            place->Note(stands);
        if (!arrayNamed(current, lineName(primitive)))
            visible->DeletePrimitive(primitive);
        if (!guard)
            return false;
        if (!window->HasIndicator(visible))
            break;
    }
    return true;
}

// The lines that stay take their arrays, the others are hidden. The lowest of them gives the place.
void renewLines(CRIndicator &indicator, const ArrayList &current, LinePlace *place) {
    const CRPrimitive *lowest = nullptr;
    for (CRPrimitive *primitive : indicator.m_primitives) {
        mvDataPointArray *array = arrayNamed(current, lineName(primitive));
        primitive->m_bVisible = array != nullptr;
        if (!array) {
            primitive->CRMDataLine::operator=(CRMDataLine()); // the host may free the old array from now on
            continue;
        }
        primitive->CRMDataLine::Create(array);
        if (shownLayer(primitive) && (!lowest || primitive->m_nIndex < lowest->m_nIndex))
            lowest = primitive;
    }
    if (lowest)
        place->Note(lowest->m_pLayer);
}

} // namespace

// The outputs of an object have changed, with its parameters.
void CRGraphWidget::ReBuildIndicator(coreRebuildDpa *record) {
    if (!record)
        return;
    QPointer<CRGraphWidget> guard(this);
    void *const handle = record->handle;
    const int outputs = HostCalls::outputCount(handle);
    ArrayList current = HostCalls::outputArrays(handle, outputs);
    current.erase(std::remove(current.begin(), current.end(), nullptr), current.end());
    LinePlace place;
    if (!guard || !dropLines(this, handle, current, &place))
        return;
    CRIndicator *indicator = FindIndicator(handle);
    if (indicator)
        renewLines(*indicator, current, &place);
    for (CRGraphArea *each : m_areas)
        each->UpdateData();

    if (indicator) {
        if (!place.area)
            place.area = GetArea(0);
        if (!place.layer && place.area) {
            const int created = CreateLayer(0);
            if (guard && place.area)
                place.layer = place.area->GetLayer(created, QString());
        }
        if (!guard || !place.layer || !HasIndicator(indicator))
            return;
        if (!AddRebuiltLines(indicator, place.layer, *record, current))
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
