#include "chart/GraphLayer.h"

#include "chart/GraphArea.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "module/GraphModule.h"
#include "objects/Indicator.h"

#include <QColor>
#include <algorithm>
#include <cstdlib>

CRGraphLayer::CRGraphLayer(CRGraphArea *area, const QString &name) : m_pArea(area), m_name(name) {
    if (const CRGraphWidget *widget = GetWidget()) {
        m_tradeInSelfTuning = widget->m_tradeInSelfTuning;
        m_candleInSelfTuning = widget->m_candleInSelfTuning;
    }
}

CRGraphLayer::~CRGraphLayer() = default;

CRGraphWidget *CRGraphLayer::GetWidget() const {
    return m_pArea ? m_pArea->m_pWidget : nullptr;
}

int CRGraphLayer::GetIndex() const {
    if (!m_pArea)
        return -1;
    const auto &layers = m_pArea->m_layers;
    const auto place = std::find(layers.begin(), layers.end(), this);
    return place == layers.end() ? -1 : static_cast<int>(place - layers.begin());
}

int CRGraphLayer::GetPrimitiveCount() const {
    return static_cast<int>(m_primitives.size());
}

bool CRGraphLayer::ContainInstrument(const unsigned short *symbol) const {
    return std::any_of(m_primitives.begin(), m_primitives.end(), [symbol](const CRPrimitive *primitive) {
        return primitive->m_pIndicator && primitive->m_pIndicator->m_isInstrument &&
               primitive->NameIs(symbol);
    });
}

// ---- what stands on the layer ----

void CRGraphLayer::UpdateData() {
    UpdatePrimitivesData();
    UpdatePrimitiveLinksData();
    UpdateTradeData();
}

void CRGraphLayer::Update() {
    if (m_bPrimitivesDirty) {
        UpdatePrimitivesData();
        UpdatePrimitiveLinksData();
    }
    const auto *graphModule = GetModule<CRGraphModule>();
    if (graphModule && graphModule->m_hasTradeData)
        UpdateTradeData();
}

void CRGraphLayer::UpdatePrimitivesData() {
    m_primitives.clear();
    if (const CRGraphWidget *widget = GetWidget())
        widget->GetLayerPrimitives(this, &m_primitives);
    std::sort(m_primitives.begin(), m_primitives.end(),
              [](const CRPrimitive *a, const CRPrimitive *b) { return a->m_nOrder < b->m_nOrder; });
    m_bPrimitivesDirty = false;
}

void CRGraphLayer::UpdatePrimitiveLinksData() {
    m_links.clear();
    if (const CRGraphWidget *widget = GetWidget())
        widget->GetLayerPrimitiveLinks(this, &m_links);
    m_bPrimitivesDirty = false;
}

void CRGraphLayer::UpdateTradeData() {
    m_positions.clear();
    m_orders.clear();
}

// ---- self-tuning ----

void CRGraphLayer::SetDataScaleSelfTuning(bool on) {
    m_bDataScaleSelfTuning = on;
}

void CRGraphLayer::OnSetAutoScalling() {
    SetDataScaleSelfTuning(true);
    if (CRGraphWidget *widget = GetWidget())
        widget->update();
}

void CRGraphLayer::StoreMinMax() {
    m_savedMax = m_max;
    m_savedMin = m_min;
    m_bMinMaxStored = true;
}

void CRGraphLayer::RestoreMinMax() {
    if (!m_bMinMaxStored)
        return;
    m_max = m_savedMax;
    m_min = m_savedMin;
    m_bMinMaxStored = false;
}

void CRGraphLayer::InverseColor(QColor *color) const {
    int hue = 0, saturation = 0, value = 0;
    color->getHsv(&hue, &saturation, &value);
    color->setHsv(std::abs(hue - 360), saturation, value, 255);
}

void CRGraphLayer::customEvent(QEvent *event) {
    QObject::customEvent(event);
}
