// The mouse and the keyboard over one pane.
#include "chart/GraphArea.h"

#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/TextStatusBar.h"
#include "chart/TimeScale.h"
#include "chart/TimeText.h"
#include "module/GraphModule.h"
#include "objects/Indicator.h"
#include "support/HandlerTrace.h"
#include "support/LogTag.h"
#include "support/Numbers.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPointer>
#include <algorithm>

namespace {

constexpr int splitterRows = 4; // below the top edge of a pane

struct Placed {
    CRPrimitive *primitive;
    int layer;
};

// The lines of one indicator belong together, whatever the host calls them.
bool sameSeries(const CRPrimitive &a, const CRPrimitive &b) {
    if (a.m_pIndicator == b.m_pIndicator)
        return false;
    const mvDataPointArray *first = a.GetArray();
    const mvDataPointArray *second = b.GetArray();
    if (!first || !second)
        return false;
    const coreNameInstrument &x = first->identity;
    const coreNameInstrument &y = second->identity;
    return fieldText(x.m_szNameSymbol) == fieldText(y.m_szNameSymbol) &&
           fieldBytes(x.m_szType) == fieldBytes(y.m_szType) && x.m_periods.period == y.m_periods.period &&
           x.m_periods.lenPeriod == y.m_periods.lenPeriod;
}

// What is under the mouse, front to back, wide candles behind all others.
std::vector<CRPrimitive *> primitivesUnder(const std::vector<CRGraphLayer *> &layers, const QPoint &point) {
    std::vector<CRPrimitive *> found;
    for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
        for (auto primitive = (*layer)->m_primitives.rbegin(); primitive != (*layer)->m_primitives.rend();
             ++primitive) {
            if ((*layer)->IsPrimitiveUnderMouse(*primitive, point))
                found.push_back(*primitive);
        }
        (*layer)->m_toolTip.clear();
    }
    for (std::size_t i = 0; i + 1 < found.size(); ++i) {
        if (found[i]->m_type != PT_WIDE_CANDLE)
            continue;
        for (std::size_t other = found.size() - 1; other > i; --other) {
            if (found[other]->m_type != PT_WIDE_CANDLE) {
                std::swap(found[i], found[other]);
                break;
            }
        }
    }
    return found;
}

CRGraphLayer *firstLayerWithPrimitives(const std::vector<CRGraphLayer *> &layers) {
    const auto found = std::find_if(layers.begin(), layers.end(),
                                    [](const CRGraphLayer *layer) { return !layer->m_primitives.empty(); });
    return found == layers.end() ? nullptr : *found;
}

} // namespace

// ---- press ----

void CRGraphArea::mousePressEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphArea::mousePressEvent", LOG_TAG("GraphArea"));
    const QPointer<CRGraphArea> self(this);
    if (m_rect.contains(event->pos())) {
        m_pWidget->m_nSelectedArea = GetIndex();
        m_pWidget->IsArmed();
        if (!self)
            return;
        SelectUnder(event);
        m_pWidget->RemoveMultipleAreasSelect(this, false);
        if ((event->buttons() & Qt::LeftButton) && event->y() <= m_rect.top() + splitterRows)
            m_resizing = true;
    }
    for (std::size_t i = 0; self && i < m_layers.size(); ++i)
        m_layers[i]->mousePressEvent(event);
}

void CRGraphArea::SelectUnder(QMouseEvent *event) {
    const std::vector<CRPrimitive *> under = primitivesUnder(m_layers, event->pos());
    if (!under.empty() && m_pWidget->cursor().shape() != Qt::SplitVCursor) {
        CRPrimitive *hit = under.front();
        if ((event->modifiers() & Qt::AltModifier) || !hit->m_pIndicator)
            hit->SetSelected(true);
        else
            hit->m_pIndicator->Select(true);
    }
    UnselectDuplicates();
}

// Of two selected series of the same data the one further back is let go; in one layer the later one.
void CRGraphArea::UnselectDuplicates() {
    std::vector<Placed> selected;
    for (std::size_t layer = 0; layer < m_layers.size(); ++layer) {
        for (CRPrimitive *primitive : m_layers[layer]->m_primitives) {
            if (primitive->IsSelected())
                selected.push_back({primitive, static_cast<int>(layer)});
        }
    }
    for (std::size_t i = 0; i < selected.size(); ++i) {
        for (std::size_t later = i + 1; later < selected.size(); ++later) {
            const Placed &first = selected[i];
            const Placed &second = selected[later];
            if (!first.primitive->IsSelected() || !second.primitive->IsSelected() ||
                !sameSeries(*first.primitive, *second.primitive))
                continue;
            (first.layer < second.layer ? first : second).primitive->SetSelected(false);
        }
    }
}

// ---- move ----

void CRGraphArea::mouseMoveEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphArea::mouseMoveEvent", LOG_TAG("GraphArea"));
    const QPointer<CRGraphArea> self(this);
    if (m_resizing) {
        const float height = static_cast<float>(m_rect.height());
        const float wanted =
            (static_cast<float>(m_rect.top()) + (height - static_cast<float>(event->y()))) / height;
        m_pWidget->ResizeArea(this, wanted * m_heightShare);
        trace("repaint", LOG_TAG("GraphArea"));
        m_pWidget->repaint();
        if (!self)
            return;
    }
    const QRect wide = m_rect.adjusted(-m_pWidget->m_nLeftScaleWidth, 0, m_pWidget->m_nRightScaleWidth, 0);
    if (!wide.contains(event->pos()))
        return;
    if (m_pWidget->cursor().shape() == Qt::SplitHCursor && !m_resizing &&
        (event->x() <= m_rect.left() + 1 || event->x() >= m_rect.right() - 1))
        m_pWidget->ResetCursor();
    for (std::size_t i = 0; self && i < m_layers.size(); ++i)
        m_layers[i]->mouseMoveEvent(event);
    if (!self || !m_rect.contains(event->pos()))
        return;
    ShapeCursor(event->pos());
    if (!self)
        return;
    CRGraphLayer *layer = firstLayerWithPrimitives(m_layers);
    if (CTextStatusBar *statusBar = m_pWidget->m_module->GetTextStatusBar()) {
        if (layer)
            statusBar->setTextStatusBar(m_pWidget, layer, event->pos());
        else
            statusBar->clearTextStatusBar();
    }
    if (self && m_pWidget->m_module->IsCrossCursorMode())
        ReadCross(layer, event->pos());
}

// The split cursor on the top edge, or the shape of the armed tool.
void CRGraphArea::ShapeCursor(const QPoint &point) {
    const QPointer<CRGraphArea> self(this);
    const bool armed = m_pWidget->IsArmed();
    if (!self)
        return;
    if (armed) {
        const bool placeable = std::any_of(m_layers.begin(), m_layers.end(), [](const CRGraphLayer *layer) {
            return std::any_of(
                layer->m_primitives.begin(), layer->m_primitives.end(),
                [](const CRPrimitive *primitive) { return primitive->GetDataPointCount() > 1; });
        });
        if (placeable)
            m_pWidget->setCursor(QCursor(LoadModulePixmap("graphcusor.png"), 0, 0));
        else
            m_pWidget->setCursor(Qt::ForbiddenCursor);
        return;
    }
    const bool onSplitter = GetIndex() != 0 && point.y() <= m_rect.top() + splitterRows &&
                            point.x() > m_rect.left() + 2 && point.x() < m_rect.right() - 2;
    if (onSplitter && !m_pWidget->SourcePicker()) {
        m_pWidget->setCursor(Qt::SplitVCursor);
        m_pWidget->m_overSplitter = true;
        if (m_pWidget->m_rangeSelecting) {
            m_pWidget->m_rangeSelecting = false;
            m_pWidget->update();
        }
    } else if (m_pWidget->m_overSplitter) {
        m_pWidget->m_overSplitter = false;
        m_pWidget->ResetCursor();
    }
}

// What the cross cursor's labels say at a point.
void CRGraphArea::ReadCross(CRGraphLayer *layer, const QPoint &point) {
    if (!layer) {
        m_pWidget->m_crossPriceText.clear();
        m_pWidget->m_crossDateText.clear();
        m_pWidget->m_crossColor = Qt::black;
        return;
    }
    const CRPrimitive *primitive = layer->m_primitives.front();
    const double price = layer->CalcPrice(point.y());
    const long time = m_pWidget->m_pTimeScale->GetPointTime(point);
    m_pWidget->m_crossPriceText = QString::asprintf("%0.*f", decimalsOf(primitive->m_fPoint), price);
    m_pWidget->m_crossDateText = isAxisTime(time) ? timeText(time, "G0ddMMyyyyhhmmss") : QString();
    m_pWidget->m_nCrossY = layer->CalcY(static_cast<float>(price));
    const bool instrument = primitive->m_pIndicator && primitive->m_pIndicator->m_isInstrument;
    m_pWidget->m_crossColor = instrument ? primitive->m_riseColor : primitive->m_lineColor;
}

// ---- release, double click, keys ----

void CRGraphArea::OnLMouseRelease(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphArea::OnLMouseRelease", LOG_TAG("GraphArea"));
    const QPointer<CRGraphArea> self(this);
    m_resizing = false;
    for (std::size_t i = 0; self && i < m_layers.size(); ++i)
        m_layers[i]->OnLMouseRelease(event);
}

void CRGraphArea::mouseDoubleClickEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphArea::mouseDoubleClickEvent", LOG_TAG("GraphArea"));
    const QPointer<CRGraphArea> self(this);
    for (std::size_t i = 0; self && i < m_layers.size(); ++i)
        m_layers[i]->mouseDoubleClickEvent(event);
}

void CRGraphArea::keyPressEvent(QKeyEvent *event) {
    const HandlerTrace handler("CRGraphArea::keyPressEvent", LOG_TAG("GraphArea"));
    const QPointer<CRGraphArea> self(this);
    for (std::size_t i = 0; self && i < m_layers.size(); ++i)
        m_layers[i]->keyPressEvent(event);
    if (self && event->key() == Qt::Key_Delete)
        DeleteUnusedLayers();
}
