// Changing what is on the chart: data type, period, and the lists of instruments behind it.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "objects/Indicator.h"
#include "objects/PanelPeriods.h"
#include "support/Log.h"
#include "support/LogTag.h"

#include <QPointer>
#include <algorithm>
#include <functional>

namespace {

using PrimitiveList = std::vector<CRPrimitive *>;

void addInstrumentLines(const CRGraphWidget &window, PrimitiveList *list) {
    for (const CRIndicator *indicator : window.m_indicators)
        if (indicator->m_isInstrument)
            list->insert(list->end(), indicator->m_primitives.begin(), indicator->m_primitives.end());
}

// Runs `send` with the array of each series. A series that a call of the host took away is left out.
void forEachArray(const PrimitiveList &list, const std::function<void(const mvDataPointArray &)> &send) {
    const std::vector<QPointer<CRPrimitive>> guarded(list.begin(), list.end());
    for (const QPointer<CRPrimitive> &primitive : guarded)
        if (const mvDataPointArray *array = primitive ? primitive->GetArray() : nullptr)
            send(*array);
}

void sendPeriod(const mvDataPointArray &array, const std::function<void(namePeriod *)> &change) {
    coreNameInstrument identity = array.identity;
    change(&identity.m_periods);
    HostCalls::changeArray(array.owner, identity);
}

} // namespace

// The instruments that a change of the period is for: the only one, or those of the selected pane. Of
// several in that pane the selected ones, when there are any.
void CRGraphWidget::GetCurrentInstrumentList(std::vector<CRPrimitive *> *list) {
    list->clear();
    addInstrumentLines(*this, list);
    if (list->size() < 2)
        return;
    if (m_nSelectedArea == -1) {
        list->clear();
        return;
    }
    const CRGraphArea *area = GetArea(m_nSelectedArea);
    const auto elsewhere = [area](const CRPrimitive *primitive) { return primitive->GetArea() != area; };
    list->erase(std::remove_if(list->begin(), list->end(), elsewhere), list->end());
    const auto marked = [](const CRPrimitive *primitive) { return primitive->IsSelected(); };
    if (list->size() >= 2 && std::any_of(list->begin(), list->end(), marked))
        list->erase(std::remove_if(list->begin(), list->end(), std::not_fn(marked)), list->end());
}

int CRGraphWidget::FindSimilarPrimitives(const CRPrimitive *primitive, std::vector<CRPrimitive *> *out) {
    out->clear();
    const mvDataPointArray *own = primitive->GetArray();
    const CRGraphArea *area = primitive->GetArea();
    for (const CRIndicator *indicator : m_indicators)
        for (CRPrimitive *other : indicator->m_primitives) {
            const mvDataPointArray *array = other->GetArray();
            if (other != primitive && other->m_bVisible && own && array && other->GetArea() == area &&
                samePeriod(array->identity.m_periods, own->identity.m_periods))
                out->push_back(other);
        }
    return static_cast<int>(out->size());
}

int CRGraphWidget::CountDpaByType(const QString &type) const {
    int count = 0;
    for (const CRIndicator *indicator : m_indicators)
        for (const CRPrimitive *primitive : indicator->m_primitives)
            if (const mvDataPointArray *array = primitive->GetArray())
                count += fieldText(array->identity.m_szType) == type;
    return count;
}

void CRGraphWidget::ResetType(const QString &type) {
    if (IsMovingOrCreatingLS())
        return;
    PrimitiveList list;
    addInstrumentLines(*this, &list);
    forEachArray(list, [&type](const mvDataPointArray &array) {
        coreNameInstrument identity = array.identity;
        fillField(identity.m_szType, type);
        HostCalls::changeArray(array.owner, identity);
    });
}

// To ticks.
void CRGraphWidget::ResetPeriods() {
    if (IsMovingOrCreatingLS())
        return;
    PrimitiveList list;
    GetCurrentInstrumentList(&list);
    forEachArray(list, [](const mvDataPointArray &array) {
        sendPeriod(array, [](namePeriod *period) {
            period->period = 'I';
            period->lenPeriod = 0;
        });
    });
}

// The host's timeframe panel: kind 0 asks for the data again, kind 1 sets the period of a row.
void CRGraphWidget::OnPaneleStatusChanged(int kind, int item) {
    if (IsMouseModeActive())
        return;
    QPointer<CRGraphWidget> guard(this);
    PrimitiveList list;
    GetCurrentInstrumentList(&list);
    if (kind == 0) {
        forEachArray(list,
                     [item](const mvDataPointArray &array) { HostCalls::reloadArray(array.owner, item); });
    } else if (kind == 1) {
        forEachArray(list, [item](const mvDataPointArray &array) {
            sendPeriod(array, [item](namePeriod *period) { setPanelPeriod(item, period); });
        });
        if (!guard)
            return;
        UpdateDpaHistory();
        trace("Timeframe changed\n", LOG_TAG("GraphWidget"));
    }
    if (!guard)
        return;
    UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (guard)
        update();
}

void CRGraphWidget::GetSingleInstrumentName(mvwcNameDataComponent *out) const {
    QString name;
    for (const CRIndicator *indicator : m_indicators)
        if (!indicator->m_primitives.empty()) {
            name = indicator->m_primitives.front()->m_name;
            break;
        }
    fillField(out->name, name);
    out->end = 0;
}
