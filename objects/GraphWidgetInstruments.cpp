// Adding instruments: the place of a new one, and its series.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/DrawTypes.h"
#include "objects/Indicator.h"
#include "objects/Warning.h"
#include "support/Log.h"
#include "support/LogTag.h"
#include "support/PeriodText.h"

#include <QPointer>
#include <algorithm>
#include <new>

namespace {

constexpr int nameWidth = 255;
constexpr char addFunction[] = "CRGraphWidget::AddPrimaryPrimitive: ";

QString addLine(const char *what) {
    return QLatin1String(addFunction) + QLatin1String(what);
}

bool holdsCandles(const CRGraphWidget &window) {
    for (const CRIndicator *indicator : window.m_indicators)
        for (const CRPrimitive *primitive : indicator->m_primitives)
            if (primitive->m_type == PT_CANDLE && primitive->m_bVisible && shownLayer(primitive))
                return true;
    return false;
}

// What the series on a chart say about ticks.
struct ExistingTimeFrames {
    bool any = false;
    bool ticks = false;
};

ExistingTimeFrames existingTimeFrames(const CRGraphWidget &window) {
    ExistingTimeFrames found;
    for (const CRIndicator *indicator : window.m_indicators)
        for (const CRPrimitive *primitive : indicator->m_primitives) {
            found.any = true;
            if (const mvDataPointArray *array = primitive->GetArray())
                found.ticks = found.ticks || isTickPeriod(array->identity.m_periods);
        }
    return found;
}

CRGraphLayer *firstLayer(CRGraphArea *area) {
    return area && !area->m_layers.empty() ? area->m_layers.front() : nullptr;
}

// The first layer of an empty pane; a pane without layers gets one.
CRGraphLayer *layerOfEmptyArea(CRGraphArea *area) {
    if (!area || !area->m_layers.empty())
        return firstLayer(area);
    const QPointer<CRGraphArea> alive(area); // the host hears of a new layer
    try {
        area->AddGraphLayer(new CRGraphLayer(area, QString()));
    } catch (const std::bad_alloc &) {
        logLine(logMsgModule, logError, addLine("Can't create Layer"), LOG_TAG("GraphWidget"));
        return nullptr;
    }
    return firstLayer(alive);
}

// The layer of an instrument that is on the chart already, or a further one that the user asks for in
// its pane. `found` says whether there is such an instrument.
CRGraphLayer *layerBesideSame(CRGraphWidget &window, const QString &symbol, const QString &title,
                              bool *found) {
    *found = false;
    for (const CRIndicator *indicator : window.m_indicators) {
        const CRPrimitive *primitive = indicator->FindByName(symbol);
        CRGraphLayer *layer = primitive ? shownLayer(primitive) : nullptr;
        if (!layer)
            continue;
        *found = true;
        return layer->m_pArea->GetLayer(layer->GetIndex(), title);
    }
    return nullptr;
}

CRGraphLayer *layerOfFreeArea(const CRGraphWidget &window) {
    for (CRGraphArea *area : window.m_areas)
        if (area->GetPrimitiveCount() == 0 && firstLayer(area))
            return firstLayer(area);
    return nullptr;
}

CRGraphLayer *layerOfNewArea(CRGraphWidget &window) {
    QPointer<CRGraphWidget> guard(&window);
    const int index = window.CreateArea(-1);
    if (!guard)
        return nullptr;
    CRGraphArea *area = window.GetArea(index);
    if (!area)
        trace(addLine("invalid Area. return"), LOG_TAG("GraphWidget"));
    else if (area->m_layers.empty())
        trace(addLine("empty Area. return"), LOG_TAG("GraphWidget"));
    return firstLayer(area);
}

// Null: there is no layer, or the user was asked and chose none.
CRGraphLayer *instrumentLayer(CRGraphWidget &window, const QString &symbol, const QString &title) {
    QPointer<CRGraphWidget> guard(&window);
    const int selected = window.m_nSelectedArea;
    CRGraphArea *candidate =
        window.GetArea(selected == -1 || selected >= window.GetAreaCount() ? 0 : selected);
    if (candidate && window.m_chooseLayerOnAdd) {
        CRGraphLayer *layer = candidate->GetLayer(-1, title);
        if (!layer)
            trace(addLine("invalid Layer. return"), LOG_TAG("GraphWidget"));
        return layer;
    }
    if (candidate && candidate->GetPrimitiveCount() == 0)
        return layerOfEmptyArea(window.m_firstAreaForEmpty ? window.GetArea(0) : candidate);
    bool found = false;
    QPointer<CRGraphLayer> layer = layerBesideSame(window, symbol, title, &found);
    if (!guard || (found && !layer)) {
        trace(addLine("invalid Layer. return"), LOG_TAG("GraphWidget"));
        return nullptr;
    }
    if (layer && layer->GetIndex() != -1)
        return layer;
    if (CRGraphLayer *free = layerOfFreeArea(window))
        return free;
    return layerOfNewArea(window);
}

} // namespace

void *CRGraphWidget::AddPrimaryPrimitive(unsigned short *symbol, char *dataType, namePeriod period,
                                         char *provider, int p5, void *handle) {
    QPointer<CRGraphWidget> guard(this);
    void *iface = m_module->GetInterfaceByName("CANDLE", provider, nullptr);
    if (!iface || !guard)
        return nullptr;
    if (m_sysTesterChart && holdsCandles(*this)) {
        warnUser(this, m_module->tr("G0150", 0), LOG_TAG("GraphWidget"));
        return nullptr;
    }
    SelectAllPrimitives(false);

    const QString symbolText = readText(symbol, nameWidth);
    const QString label = periodText(period.period, period.lenPeriod);
    auto names = zeroRecord<coreDisplayNames>();
    fillField(names.symbol, symbolText);
    HostCalls::displayNamesOfSymbol(m_module->GetTransportInterface(), names);
    if (!guard)
        return nullptr;
    const QString alias = fieldText(names.alias);
    const QString name = alias.isEmpty() ? symbolText : alias;
    const QString title = QStringLiteral("%1 %2 %3").arg(name, label, readText(dataType, nameWidth));

    CRGraphLayer *layer = instrumentLayer(*this, symbolText, title);
    if (!layer || !guard)
        return nullptr;
    void *created = CreateInstrument(iface, layer, symbol, dataType, period, p5, nullptr, handle);
    if (!guard)
        return nullptr;

    if (m_pScrollBar) {
        m_pScrollBar->SetScrollBarValue(m_pScrollBar->maximum());
        m_pScrollBar->setValue(m_pScrollBar->maximum());
        if (!guard)
            return nullptr;
    }
    UpdatePrimitiveCountState();
    if (guard)
        UpdatePrimitivePositions(ScreenDataPointsUpdate(), m_indicators.size() == 1);
    if (guard && m_nPrimitiveCount == 1)
        SetScrollbarValues(true, false);
    if (!guard || !created)
        return nullptr;
    update();
    UndoMilestone(QStringLiteral("Add primary primitive"));
    if (!guard)
        return nullptr;
    m_nSelectedArea = -1;
    trace(QStringLiteral("Indicator ") + name + QStringLiteral(" created successfully"),
          LOG_TAG("GraphWidget"));
    return created;
}

// The maker of an instrument is found by the host; the first word of the request is the caller's own.
void *CRGraphWidget::CreateInstrument(void *, CRGraphLayer *layer, const unsigned short *symbol,
                                      const char *dataType, namePeriod period, int p6, coreSzNode *node,
                                      void *handle) {
    QPointer<CRGraphWidget> guard(this);
    QPointer<CRGraphLayer> target(layer);
    if (!handle) {
        auto record = zeroRecord<coreDemandsIndicator>();
        record.parameter = static_cast<Word>(p6);
        fillField(record.sNameInstrument.m_szNameSymbol, readText(symbol, nameWidth));
        fillField(record.sNameInstrument.m_szType, dataType);
        record.sNameInstrument.m_periods = period;
        if (node)
            record.node = *node;
        handle = HostCalls::createObject(record);
        if (!handle || !guard)
            return nullptr;
    }
    CRIndicator *indicator = AddIndicator(handle);
    if (!indicator)
        return nullptr;
    indicator->m_isInstrument = true;
    const std::vector<mvDataPointArray *> arrays = HostCalls::outputArrays(handle, 1);
    if (!guard || !HasIndicator(indicator))
        return nullptr;
    mvDataPointArray *array = arrays.empty() ? nullptr : arrays.front();
    if (array) {
        const ExistingTimeFrames existing = existingTimeFrames(*this);
        if (existing.any && existing.ticks != isTickPeriod(array->identity.m_periods)) {
            warnUser(this, m_module->tr("G0183", 0), LOG_TAG("GraphWidget"));
            if (guard)
                DeleteUnusedLayers();
            return nullptr;
        }
    }
    const int type = array ? instrumentDrawType(*array) : -1;
    CRPrimitive *added = nullptr;
    if (type >= 0 && target)
        added = indicator->AddPrimitive(target, TotalPrimitiveCount(), 0, static_cast<PRIMITIVE_TYPES>(type));
    if (!added) {
        DiscardIndicator(indicator);
        return nullptr;
    }
    QPointer<CRPrimitive> primitive(added);
    bindLine(primitive, handle, array);
    primitive->RequestExNames();
    if (primitive)
        primitive->SyncInternalData();
    if (!guard || !primitive)
        return nullptr;
    SubscribeIndicator(handle);
    return handle;
}

// Null when the window went away while the host was asked what the handle is.
CRIndicator *CRGraphWidget::AddIndicator(void *handle) {
    QPointer<CRGraphWidget> guard(this);
    auto *indicator = new CRIndicator(this, handle);
    if (!guard) {
        delete indicator;
        return nullptr;
    }
    m_indicators.push_back(indicator);
    return indicator;
}

CRIndicator *CRGraphWidget::AddIndicator(CRIndicator &indicator) {
    auto *copy = new CRIndicator(indicator);
    m_indicators.push_back(copy);
    return copy;
}

bool CRGraphWidget::HasIndicator(const CRIndicator *indicator) const {
    return std::find(m_indicators.begin(), m_indicators.end(), indicator) != m_indicators.end();
}

int CRGraphWidget::TotalPrimitiveCount() const {
    int count = 0;
    for (const CRIndicator *indicator : m_indicators)
        count += indicator->GetPrimitiveCount();
    return count;
}
