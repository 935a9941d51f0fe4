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

// The place in the host's list, -1 for none.
int placeOf(const ArrayList &list, const mvDataPointArray *array) {
    const auto place = std::find(list.begin(), list.end(), array);
    return array && place != list.end() ? static_cast<int>(place - list.begin()) : -1;
}

// The array of the line in the host's list. One that is not in the list may be freed already, so that the
// line is looked for by the name that its array had.
mvDataPointArray *listedArray(const ArrayList &list, const CRPrimitive &line) {
    if (placeOf(list, line.GetArray()) >= 0)
        return line.GetArray();
    const QString name = line.AttachedName();
    for (mvDataPointArray *array : list)
        if (array && fieldText(array->identity.m_szNameSymbol) == name)
            return array;
    return nullptr;
}

// Every series of the object takes its array and its number from the list, ahead of all that reads them.
void attachLines(const CRGraphWidget &window, void *handle, const ArrayList &current) {
    for (const CRIndicator *indicator : window.m_indicators) {
        if (indicator->GetHandle() != handle)
            continue;
        for (CRPrimitive *primitive : indicator->m_primitives) {
            mvDataPointArray *array = listedArray(current, *primitive);
            if (!array)
                continue;
            primitive->CRMDataLine::Create(array);
            primitive->m_nLineIndex = placeOf(current, array);
        }
    }
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
        if (placeOf(current, primitive->GetArray()) < 0)
            visible->DeletePrimitive(primitive);
        if (!guard)
            return false;
        if (!window->HasIndicator(visible))
            break;
    }
    return true;
}

// The lines that stay are shown, the others are hidden. The lowest of them gives the place.
void showListedLines(CRIndicator &indicator, const ArrayList &current, LinePlace *place) {
    const CRPrimitive *lowest = nullptr;
    for (CRPrimitive *primitive : indicator.m_primitives) {
        const bool listed = placeOf(current, primitive->GetArray()) >= 0;
        primitive->m_bVisible = listed;
        if (listed && shownLayer(primitive) && (!lowest || primitive->m_nIndex < lowest->m_nIndex))
            lowest = primitive;
    }
    if (lowest)
        place->Note(lowest->m_pLayer);
}

// The host may free from now on what it does not list any more.
void detachUnlisted(const CRGraphWidget &window, void *handle, const ArrayList &current) {
    for (const CRIndicator *indicator : window.m_indicators) {
        if (indicator->GetHandle() != handle)
            continue;
        for (CRPrimitive *primitive : indicator->m_primitives)
            if (placeOf(current, primitive->GetArray()) < 0)
                primitive->Detach();
    }
}

// The line of the array, visible again; null when the object has none of that name yet.
CRPrimitive *restoreLine(CRIndicator &indicator, const mvDataPointArray *array) {
    for (int i = 0; i < indicator.GetPrimitiveCount(); ++i) {
        if (indicator[i]->GetArray() != array)
            continue;
        indicator.RestorePrimitive(i);
        return indicator[i];
    }
    return indicator.RestorePrimitive(array->identity.m_szNameSymbol);
}

} // namespace

// The outputs of an object have changed, with its parameters.
void CRGraphWidget::ReBuildIndicator(coreRebuildDpa *record) {
    if (!record)
        return;
    QPointer<CRGraphWidget> guard(this);
    void *const handle = record->handle;
    const int outputs = HostCalls::outputCount(handle);
    const ArrayList current = HostCalls::outputArrays(handle, outputs);
    if (!guard)
        return;
    m_maxima.clear(); // all values may be other ones
    attachLines(*this, handle, current);
    LinePlace place;
    if (!dropLines(this, handle, current, &place))
        return;
    CRIndicator *indicator = FindIndicator(handle);
    if (indicator)
        showListedLines(*indicator, current, &place);
    detachUnlisted(*this, handle, current);
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
        // Lines are numbered as the object lists them.
        const int place = placeOf(current, array);
        const int line = place < 0 ? static_cast<int>(i) : place;
        CRPrimitive *primitive = restoreLine(*indicator, array);
        if (primitive) {
            leaveLayer(primitive);
            primitive->m_pLayer = target;
            target->m_primitives.push_back(primitive);
            target->m_bPrimitivesDirty = true;
            primitive->CRMDataLine::Create(array);
            primitive->m_nLineIndex = line;
        } else {
            primitive = indicator->AddPrimitive(target, 0, line, outputDrawType(*array));
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
