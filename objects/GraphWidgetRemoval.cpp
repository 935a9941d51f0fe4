// Taking series and indicators off the chart.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"

#include <QPointer>
#include <algorithm>

// Every deletion of a series tells the host the new caption, and the host can come back: the lists are
// looked at again after each.

void CRGraphWidget::RemovePrimitive(mvDataPointArray *array) {
    CRIndicator *indicator = array ? FindIndicator(array->owner) : nullptr;
    if (!indicator)
        return;
    QPointer<CRGraphWidget> guard(this);
    m_bUpdatePrimitivePositions = true;
    for (int i = indicator->GetPrimitiveCount() - 1; i >= 0; --i) {
        CRPrimitive *primitive = (*indicator)[i];
        if (!primitive || primitive->GetArray() != array)
            continue;
        indicator->DeletePrimitive(i);
        if (!guard || !HasIndicator(indicator))
            return;
    }
    if (indicator->IsInvisible())
        RemoveIndicator(indicator);
}

void CRGraphWidget::RemovePrimitive(CRPrimitive *primitive) {
    QPointer<CRGraphWidget> guard(this);
    m_bUpdatePrimitivePositions = true;
    std::vector<CRIndicator *> indicatorsToRemove;
    for (CRIndicator *indicator : std::vector<CRIndicator *>(m_indicators)) {
        if (!HasIndicator(indicator) || !indicator->Contain(primitive))
            continue;
        indicator->DeletePrimitive(primitive);
        if (!guard)
            return;
        if (HasIndicator(indicator) && indicator->IsInvisible())
            indicatorsToRemove.push_back(indicator);
    }
    for (CRIndicator *indicator : indicatorsToRemove) {
        RemoveIndicator(indicator);
        if (!guard)
            return;
    }
    UpdateTitle();
}

// Everything that is selected.
void CRGraphWidget::DeleteObjects() {
    QPointer<CRGraphWidget> guard(this);
    m_selectedOrders.clear();
    for (int areaIndex = 0; areaIndex < GetAreaCount(); ++areaIndex) {
        QPointer<CRGraphArea> area(GetArea(areaIndex));
        const std::vector<QPointer<CRGraphLayer>> layers(area->m_layers.begin(), area->m_layers.end());
        for (const QPointer<CRGraphLayer> &layer : layers) {
            if (!layer || m_movingLS)
                continue;
            layer->UpdatePrimitivesData();
            bool removed = false;
            const std::vector<QPointer<CRPrimitive>> primitives(layer->m_primitives.begin(),
                                                                layer->m_primitives.end());
            for (const QPointer<CRPrimitive> &primitive : primitives) {
                if (!primitive || !primitive->IsSelected())
                    continue;
                RemovePrimitive(primitive);
                if (!guard)
                    return;
                removed = true;
            }
            if (removed && layer) {
                layer->UpdatePrimitivesData();
                layer->UpdatePrimitiveLinksData();
            }
        }
        if (area)
            area->DeleteUnusedLayers();
    }
}

// ---- the list of indicators ----

CRIndicator *CRGraphWidget::FindIndicator(void *handle) const {
    for (CRIndicator *indicator : m_indicators)
        if (indicator->GetHandle() == handle)
            return indicator;
    return nullptr;
}

// `lineIndex` counts from 1, as the host does.
CRPrimitive *CRGraphWidget::FindIndicatorPrimitive(void *handle, int lineIndex) const {
    const CRIndicator *indicator = FindIndicator(handle);
    return indicator ? indicator->FindByLineIndex(lineIndex) : nullptr;
}

void CRGraphWidget::SelectIndicator(CRPrimitive *primitive, bool on) {
    if (primitive && primitive->m_pIndicator)
        primitive->m_pIndicator->SelectAll(on);
}

void CRGraphWidget::SelectIndicatorOnly(CRPrimitive *primitive, bool on) {
    if (primitive && primitive->m_pIndicator)
        primitive->m_pIndicator->Select(on);
}

void CRGraphWidget::RemoveIndicator(int index) {
    if (index < 0 || index >= static_cast<int>(m_indicators.size()))
        return;
    CRIndicator *indicator = m_indicators[static_cast<std::size_t>(index)];
    void *const handle = indicator->GetHandle();
    RemoveIndicatorFromList(index);
    delete indicator;
    m_bUpdatePrimitivePositions = true;
    UnsubscribeIndicator(handle);
}

void CRGraphWidget::RemoveIndicator(CRIndicator *indicator) {
    const auto place = std::find(m_indicators.begin(), m_indicators.end(), indicator);
    if (place != m_indicators.end())
        RemoveIndicator(static_cast<int>(place - m_indicators.begin()));
}

// Only the entry: the caller has the object.
void CRGraphWidget::RemoveIndicatorFromList(int index) {
    if (index >= 0 && index < static_cast<int>(m_indicators.size()))
        m_indicators.erase(m_indicators.begin() + index);
}

void CRGraphWidget::RemoveIndicatorFromList(CRIndicator *indicator) {
    m_indicators.erase(std::remove(m_indicators.begin(), m_indicators.end(), indicator), m_indicators.end());
}

// An object that was being added goes again, and the host is told nothing of it here.
void CRGraphWidget::DiscardIndicator(CRIndicator *indicator) {
    if (!HasIndicator(indicator))
        return;
    RemoveIndicatorFromList(indicator);
    delete indicator;
}

void CRGraphWidget::SubscribeIndicator(void *handle) {
    HostCalls::subscribe(handle, this);
}

void CRGraphWidget::UnsubscribeIndicator(void *handle) {
    HostCalls::unsubscribe(handle, this);
}

// The last series of the whole chart takes its subscription with it.
void CRGraphWidget::CheckUnsubscribeIndicatorPrimitive(CRPrimitive *primitive) {
    if (primitive && TotalPrimitiveCount() == 1 && FindWidgetPrimitive(primitive))
        UnsubscribeIndicator(primitive->m_hDpa);
}
