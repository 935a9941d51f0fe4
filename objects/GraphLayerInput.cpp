// The mouse and the keyboard over one layer: its value scale is stretched, and its series are deleted.
#include "chart/GraphLayer.h"

#include "chart/GraphArea.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/ScaleDrag.h"
#include "dialogs/SelectPrimitiveWidget.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "module/HostMessages.h"
#include "objects/Indicator.h"
#include "support/HandlerTrace.h"
#include "support/LogTag.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>

namespace {

constexpr QRgb dragColor = 0x999999;

} // namespace

QRect CRGraphLayer::ScaleStrip(SCALE_TYPE type) const {
    const CRGraphWidget *widget = GetWidget();
    return type == RIGHT_SCALE ? rightScaleStrip(m_rect, widget->m_nRightScaleWidth)
                               : leftScaleStrip(m_rect, widget->m_nLeftScaleWidth);
}

// The layer whose scale stands on a side of this layer's pane.
CRGraphLayer *CRGraphLayer::ScaleOwner(SCALE_TYPE type) const {
    const std::vector<CRGraphLayer *> &layers = m_pArea->m_layers;
    if (layers.empty())
        return nullptr;
    return type == LEFT_SCALE && layers.size() > 1 ? layers[1] : layers[0];
}

// The options that a stretch took from the window come back.
void CRGraphLayer::FreeScaleEnds() {
    if (!m_freeScale)
        return;
    CRGraphWidget *widget = GetWidget();
    widget->m_tradeInSelfTuning = m_savedTradeInSelfTuning;
    widget->m_candleInSelfTuning = m_savedCandleInSelfTuning;
    m_freeScale = false;
    widget->RefreshPropertyPage();
}

void CRGraphLayer::mousePressEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphLayer::mousePressEvent", LOG_TAG("GraphLayer"));
    CRGraphWidget *widget = GetWidget();
    if (widget->IsMovingOrCreatingLS())
        return;
    const QPoint point = event->pos();
    const QRect rightStrip = ScaleStrip(RIGHT_SCALE);
    const QRect leftStrip = ScaleStrip(LEFT_SCALE);
    // The buttons are those of the layers that own the scales; the other layers of the pane take no press
    // there either.
    const bool onRightButton = rightStrip.contains(point) && !m_noScaleDrag &&
                               ScaleOwner(RIGHT_SCALE)->m_rightAutoRect.contains(point);
    const bool onLeftButton =
        leftStrip.contains(point) && ScaleOwner(LEFT_SCALE)->m_leftAutoRect.contains(point);
    if (onRightButton || onLeftButton) {
        ScaleOwner(onRightButton ? RIGHT_SCALE : LEFT_SCALE)->SetDataScaleSelfTuning(true);
        const QPointer<CRGraphWidget> window(widget);
        FreeScaleEnds();
        if (window)
            window->update();
        return;
    }
    const int mode = scaleDragMode(rightStrip, leftStrip, point);
    if (mode != noScaleDrag)
        widget->HoldFrame();
    m_scaleDrag = mode;
    m_scalePress = m_scaleCurrent = point;
}

void CRGraphLayer::mouseMoveEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphLayer::mouseMoveEvent", LOG_TAG("GraphLayer"));
    CRGraphWidget *widget = GetWidget();
    if (CSelectPrimitiveWidget *picker = widget->SourcePicker()) {
        for (CRPrimitive *primitive : m_primitives) {
            if (IsPrimitiveUnderMouse(primitive, event->pos())) {
                picker->SelectPrimitiveInCombo(primitive);
                break;
            }
        }
        m_toolTip.clear();
    }
    if (m_scaleDrag == noScaleDrag)
        return;
    if (ScaleOwner(isRightScale(m_scaleDrag) ? RIGHT_SCALE : LEFT_SCALE) == this)
        SetDataScaleSelfTuning(false);
    m_scaleCurrent = event->pos();
    widget->RepaintOverlay();
}

// A line where the scale was gripped, one where it is drawn to, and one that joins them.
void CRGraphLayer::DrawScaleDrag(QPainter &painter) const {
    if (m_scaleCurrent.y() == m_scalePress.y())
        return;
    const QRect strip = ScaleStrip(isRightScale(m_scaleDrag) ? RIGHT_SCALE : LEFT_SCALE);
    const int middle = strip.left() + strip.width() / 2;
    painter.setPen(QPen(QColor(dragColor), 1));
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter.drawLine(strip.left(), m_scalePress.y(), strip.right(), m_scalePress.y());
    painter.drawLine(strip.left(), m_scaleCurrent.y(), strip.right(), m_scaleCurrent.y());
    painter.drawLine(middle, m_scalePress.y(), middle, m_scaleCurrent.y());
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void CRGraphLayer::OnLMouseRelease(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphLayer::OnLMouseRelease", LOG_TAG("GraphLayer"));
    const int mode = m_scaleDrag;
    m_scaleDrag = noScaleDrag;
    if (mode == noScaleDrag || ScaleOwner(isRightScale(mode) ? RIGHT_SCALE : LEFT_SCALE) != this)
        return;
    ValueRange stretched;
    if (stretchedRange(mode, m_rect, m_scalePress.y(), event->y(), {m_min, m_max}, &stretched)) {
        m_max = static_cast<float>(stretched.max);
        m_min = static_cast<float>(stretched.min);
    }
    if (m_freeScale)
        return;
    CRGraphWidget *widget = GetWidget();
    m_savedTradeInSelfTuning = widget->m_tradeInSelfTuning;
    m_savedCandleInSelfTuning = widget->m_candleInSelfTuning;
    widget->m_tradeInSelfTuning = false;
    widget->m_candleInSelfTuning = false;
    m_freeScale = true;
    widget->RefreshPropertyPage();
}

void CRGraphLayer::mouseDoubleClickEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphLayer::mouseDoubleClickEvent", LOG_TAG("GraphLayer"));
    CRGraphWidget *widget = GetWidget();
    m_scaleDrag = noScaleDrag;
    if (widget->IsMovingOrCreatingLS())
        return;
    const QPointer<CRGraphLayer> self(this);
    const bool onRight = ScaleStrip(RIGHT_SCALE).contains(event->pos());
    const bool onLeft = ScaleStrip(LEFT_SCALE).contains(event->pos());
    if (onRight || onLeft) {
        ScaleOwner(onRight ? RIGHT_SCALE : LEFT_SCALE)->SetDataScaleSelfTuning(true);
        FreeScaleEnds();
        if (!self)
            return;
        widget->update();
    }
    if (widget->m_sysTesterChart)
        return;
    std::vector<void *> owners;
    for (const CRPrimitive *primitive : m_primitives) {
        if (primitive->IsSelected() && primitive->m_pIndicator)
            owners.push_back(primitive->m_pIndicator->GetHandle());
    }
    for (std::size_t i = 0; self && i < owners.size(); ++i) {
        widget->SendMessageWindow(ToHost::RaisePanel, 0, 0);
        HostCalls::showObjectProperties(owners[i]);
    }
}

// Delete: the selected series of this layer leave the chart.
void CRGraphLayer::keyPressEvent(QKeyEvent *event) {
    const HandlerTrace handler("CRGraphLayer::keyPressEvent", LOG_TAG("GraphLayer"));
    CRGraphWidget *widget = GetWidget();
    if (event->key() != Qt::Key_Delete || widget->m_creatingLS)
        return;
    const QPointer<CRGraphLayer> self(this);
    UpdatePrimitivesData();
    // Removing one can take others with it: the list is read anew each time.
    std::vector<const CRPrimitive *> tried;
    bool removed = false;
    for (;;) {
        const auto next =
            std::find_if(m_primitives.begin(), m_primitives.end(), [&](const CRPrimitive *primitive) {
                return primitive->IsSelected() &&
                       std::find(tried.begin(), tried.end(), primitive) == tried.end();
            });
        if (next == m_primitives.end())
            break;
        tried.push_back(*next);
        widget->RemovePrimitive(*next);
        if (!self)
            return;
        UpdatePrimitivesData();
        removed = true;
    }
    if (!removed)
        return;
    UpdatePrimitivesData();
    UpdatePrimitiveLinksData();
    widget->UndoMilestone(QStringLiteral("keyPressEvent"));
}
