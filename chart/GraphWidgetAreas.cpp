// The stack of panes of a chart window, and what stands on their layers.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphEvents.h"
#include "chart/GraphLayer.h"
#include "chart/PaneLayout.h"
#include "module/GraphModule.h"
#include "objects/Indicator.h"

#include <algorithm>

CRGraphArea *CRGraphWidget::CreateFirstArea(CRGraphWidget *widget) {
    auto *area = new CRGraphArea(this, 1.0f, m_module->tr("G0017") + QLatin1String(" 1"));
    area->m_properties = CRGraphArea::Properties(widget);
    AddGraphArea(area, -1);
    return area;
}

/// A new pane takes half of the pane at `index`, -1 for the last one, and stands under it.
int CRGraphWidget::CreateArea(int index) {
    const int count = GetAreaCount();
    if (index < 0 || index >= count)
        index = count - 1;
    float height = 1.0f;
    if (CRGraphArea *halved = GetArea(index)) {
        height = halved->m_heightShare / 2;
        halved->m_heightShare -= height;
    }
    auto *area = new CRGraphArea(this, height, QString(m_module->tr("G0017") + QLatin1String(" %1")).arg(count + 1));
    area->m_properties = CRGraphArea::Properties(this);
    AddGraphArea(area, index + 1);
    update();
    const QPointer<CRGraphWidget> guard(this);
    UndoMilestone(m_module->tr("Create area"));
    return guard ? FindArea(area) : -1;
}

int CRGraphWidget::CreateLayer(int area) {
    CRGraphArea *owner = GetArea(area);
    if (!owner)
        return -1;
    const int count = static_cast<int>(owner->m_layers.size());
    owner->AddGraphLayer(
        new CRGraphLayer(owner, QString(m_module->tr("G0034") + QLatin1String(" %1")).arg(count + 1)));
    return count;
}

void CRGraphWidget::AddGraphArea(CRGraphArea *area, int index) {
    if (index < 0 || index > GetAreaCount())
        index = GetAreaCount();
    m_areas.insert(m_areas.begin() + index, area);
}

void CRGraphWidget::DeleteGraphArea(int index) {
    CRGraphArea *area = GetArea(index);
    if (!area)
        return;
    std::vector<CRPrimitive *> primitives;
    for (const CRGraphLayer *layer : area->m_layers)
        GetLayerPrimitives(layer, &primitives);
    const std::vector<CRGraphLayer *> layers = area->m_layers;
    const QPointer<CRGraphWidget> alive(this);
    for (CRGraphLayer *layer : layers) {
        DeleteLayerPrimitives(layer);
        if (!alive)
            return;
    }
    // The removal talks to the host, so the pane is looked up again.
    index = FindArea(area);
    if (index < 0)
        return;
    if (GetAreaCount() > 1)
        GetArea(index > 0 ? index - 1 : 1)->m_heightShare += area->m_heightShare;
    m_areas.erase(m_areas.begin() + index);
    delete area;
    m_nSelectedArea = -1;
    if (!primitives.empty()) {
        UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
        if (alive)
            UpdateTitle();
    }
    if (alive)
        ChangeDesktop();
    if (alive)
        update();
}

/// Moves the splitter above `area`: it and the pane above share their sum anew.
void CRGraphWidget::ResizeArea(CRGraphArea *area, float height) {
    const int index = FindArea(area);
    if (m_loading || index < 1)
        return;
    CRGraphArea *above = m_areas[static_cast<std::size_t>(index - 1)];
    const float sum = above->m_heightShare + area->m_heightShare;
    area->m_heightShare = splitterShare(height, above->m_heightShare, area->m_heightShare);
    above->m_heightShare = sum - area->m_heightShare;
}

void CRGraphWidget::ClearAll() {
    const QPointer<CRGraphWidget> alive(this);
    for (int i = GetAreaCount() - 1; i >= 0; --i) {
        DeleteGraphArea(i);
        if (!alive)
            return;
    }
    CreateFirstArea(this);
    UpdatePrimitiveCountState();
}

void CRGraphWidget::DeleteUnusedLayers() {
    for (CRGraphArea *area : m_areas)
        area->DeleteUnusedLayers();
}

/// Removes the series that stand on the layer. Hidden ones wait for their host's next rebuild, without it.
void CRGraphWidget::DeleteLayerPrimitives(CRGraphLayer *layer) {
    std::vector<CRPrimitive *> doomed;
    GetLayerPrimitives(layer, &doomed);
    const QPointer<CRGraphWidget> alive(this);
    for (CRPrimitive *primitive : doomed) {
        if (alive && FindWidgetPrimitive(primitive))
            RemovePrimitive(primitive);
    }
    if (!alive)
        return;
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->m_pLayer == layer)
                primitive->m_pLayer = nullptr;
        }
    }
}

void CRGraphWidget::SetAreasRects(const QRect &rect) {
    int top = rect.top();
    for (CRGraphArea *area : m_areas) {
        area->m_rect = paneRect(rect, m_chartRect.width(), top, area->m_heightShare);
        top = area->m_rect.bottom() + 1;
    }
}

CRGraphArea *CRGraphWidget::GetArea(int index) const {
    return index < 0 || index >= GetAreaCount() ? nullptr : m_areas[static_cast<std::size_t>(index)];
}

int CRGraphWidget::FindArea(const CRGraphArea *area) const {
    const auto place = std::find(m_areas.begin(), m_areas.end(), area);
    return place == m_areas.end() ? -1 : static_cast<int>(place - m_areas.begin());
}

CRGraphLayer *CRGraphWidget::GetPrimitiveLayer(const CRPrimitive *primitive) const {
    if (!primitive)
        return nullptr;
    for (const CRGraphArea *area : m_areas) {
        for (CRGraphLayer *layer : area->m_layers) {
            if (layer == primitive->m_pLayer)
                return layer;
        }
    }
    return nullptr;
}

CRGraphArea *CRGraphWidget::GetPrimitiveArea(const CRPrimitive *primitive) const {
    const CRGraphLayer *layer = GetPrimitiveLayer(primitive);
    return layer ? layer->m_pArea : nullptr;
}

/// The layer that times are turned into columns with.
CRGraphLayer *CRGraphWidget::GetAnyPrimitiveLayer() const {
    for (const CRIndicator *indicator : m_indicators) {
        if (indicator->m_primitives.empty() || indicator->IsInvisible())
            continue;
        const CRPrimitive *first = indicator->m_primitives.front();
        if (first->m_bVisible)
            return GetPrimitiveLayer(first);
    }
    return nullptr;
}

CRPrimitive *CRGraphWidget::GetAnyPrimitive() const {
    for (const CRIndicator *indicator : m_indicators) {
        if (CRPrimitive *primitive = indicator->GetAnyVisible())
            return primitive;
    }
    return nullptr;
}

void CRGraphWidget::GetLayerPrimitives(const CRGraphLayer *layer, std::vector<CRPrimitive *> *out) const {
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->m_pLayer == layer && primitive->m_bVisible)
                out->push_back(primitive);
        }
    }
}

void CRGraphWidget::GetLayerPrimitiveLinks(const CRGraphLayer *layer, std::vector<CPrimitiveLink> *out) const {
    for (const CRIndicator *indicator : m_indicators)
        indicator->GetPrimitiveLinks(layer, out);
}

/// The series of the window in the order of their indicators; a `kind` other than 0 takes hidden ones too.
void CRGraphWidget::GetAllPrimitives(std::vector<CRPrimitive *> *out, int kind) const {
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (kind != 0 || primitive->m_bVisible)
                out->push_back(primitive);
        }
    }
}

void CRGraphWidget::GetSelectedPrimitives(std::vector<CRPrimitive *> *out) const {
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->m_bVisible && primitive->IsSelected())
                out->push_back(primitive);
        }
    }
}

bool CRGraphWidget::FindWidgetPrimitive(const CRPrimitive *primitive) const {
    for (const CRIndicator *indicator : m_indicators) {
        const auto &list = indicator->m_primitives;
        if (std::find(list.begin(), list.end(), primitive) != list.end())
            return true;
    }
    return false;
}

void CRGraphWidget::UpdateAllTradeData() {
    for (CRGraphArea *area : m_areas) {
        for (CRGraphLayer *layer : area->m_layers)
            layer->UpdateTradeData();
    }
}

void CRGraphWidget::OnBnClickedNewAreaButton() {
    CreateArea(-1);
}

/// What a handler has put off: it has returned by now.
void CRGraphWidget::customEvent(QEvent *event) {
    const QPointer<CRGraphWidget> alive(this);
    switch (static_cast<int>(event->type())) {
    case CGraphEvent::Refresh:
        update();
        break;
    case CGraphEvent::DeleteArea:
        DeleteGraphArea(static_cast<CGraphEvent *>(event)->m_index);
        if (alive) {
            UpdateScaleWidth();
            update();
        }
        break;
    case CGraphEvent::DeletePrimitive: {
        CRPrimitive *primitive = static_cast<CGraphEvent *>(event)->m_primitive;
        if (!FindWidgetPrimitive(primitive))
            break;
        RemovePrimitive(primitive);
        if (alive)
            DeleteUnusedLayers();
        if (alive)
            UpdatePrimitiveCountState();
        if (alive) {
            UpdateScaleWidth();
            UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
        }
        if (alive)
            update();
        break;
    }
    default:
        QWidget::customEvent(event);
    }
}
