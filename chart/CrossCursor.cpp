#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/TimeScale.h"
#include "chart/TimeText.h"
#include "module/GraphModule.h"
#include "support/FontMetrics.h"
#include "support/Numbers.h"

#include <QCursor>
#include <QPainter>

namespace {

constexpr QRgb crossColor = 0x999999;
constexpr int textGap = 4;

// The layer whose plot holds a point: the first with something on it.
CRGraphLayer *findLayerByPoint(const std::vector<CRGraphArea *> &areas, const QPoint &point) {
    for (const CRGraphArea *area : areas) {
        if (!area->m_rect.contains(point))
            continue;
        for (CRGraphLayer *layer : area->m_layers) {
            if (!layer->m_primitives.empty() && layer->m_rect.contains(point))
                return layer;
        }
    }
    return nullptr;
}

} // namespace

// The position that the last event of the mouse told; before any, where the cursor is.
QPoint CRGraphWidget::CursorPos() const {
    return m_bMouseKnown ? m_mousePos : mapFromGlobal(QCursor::pos());
}

// Keys can move the chart under a resting mouse: the read-out follows. A zoom is painted later than this, so
// the layers take the new view first.
void CRGraphWidget::UpdateCrossCursor() {
    if (!m_module->IsCrossCursorMode() || m_overSplitter || !m_pTimeScale)
        return;
    const QPoint cursor = CursorPos();
    CRGraphLayer *layer = findLayerByPoint(m_areas, cursor);
    for (CRGraphLayer *read : {GetAnyPrimitiveLayer(), layer})
        if (read)
            read->UpdatePaintProperties(QRect(read->m_rect));
    const long time = m_pTimeScale->GetPointTime(cursor);
    m_crossDateText = isAxisTime(time) ? timeText(time, "G0ddMMyyyyhhmmss") : QString();
    m_crossPriceText =
        layer ? QString::asprintf("%0.*f", decimalsOf(layer->m_tick), layer->CalcPrice(cursor.y()))
              : QString();
}

// The box on the right scale, or on the left one where the right has no width; as tall as the text asks.
QRect CRGraphWidget::CrossPriceBox() const {
    if (m_areas.empty() || m_crossPriceText.isEmpty())
        return QRect();
    const int height = textHeight(m_areas.front()->m_properties.font);
    const int top = m_nCrossY - height / 2 - 1;
    return m_nRightScaleWidth > 0
               ? QRect(m_chartRect.right() - m_nRightScaleWidth + 1, top, m_nRightScaleWidth, height + 3)
               : QRect(m_chartRect.left(), top, m_nLeftScaleWidth, height + 3);
}

// The box under the cross, at the bottom of the time strip.
QRect CRGraphWidget::CrossDateBox() const {
    if (m_areas.empty() || m_crossDateText.isEmpty() || !m_pTimeScale)
        return QRect();
    const QFont &font = m_areas.front()->m_properties.font;
    const int height = textHeight(font) + 3;
    const int width = textWidth(font, m_crossDateText) + 2 * textGap;
    return QRect(CursorPos().x() - width / 2, m_pTimeScale->m_rect.bottom() - height + 1, width, height);
}

void CRGraphWidget::DrawCrossCursor(QPainter &painter) {
    if (m_areas.empty()) {
        setCursor(Qt::ArrowCursor);
        return;
    }
    const QRect plot = m_chartRect.adjusted(m_nLeftScaleWidth, 0, -m_nRightScaleWidth, 0);
    const QPoint cursor = CursorPos();
    if (!plot.contains(cursor)) {
        setCursor(Qt::ArrowCursor);
        return;
    }
    ResetCursor();
    const CRGraphArea::Properties &look = m_areas.front()->m_properties;
    painter.setFont(look.font);
    painter.setPen(QPen(QColor(crossColor), 1));
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter.drawLine(m_nLeftScaleWidth, cursor.y(), width() - m_nRightScaleWidth, cursor.y());
    painter.drawLine(cursor.x(), m_chartRect.top(), cursor.x(), m_chartRect.bottom());
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setClipRect(rect());

    painter.setPen(QColor(look.backgroundColor));
    const QRect priceBox = CrossPriceBox();
    if (priceBox.isValid()) {
        painter.fillRect(priceBox, m_crossColor);
        const int left = m_nRightScaleWidth > 0 ? plot.right() : priceBox.left();
        painter.drawText(left + textGap, m_nCrossY + textHeight(look.font) / 2 - 2, m_crossPriceText);
    }
    const QRect dateBox = CrossDateBox();
    if (dateBox.isValid()) {
        painter.fillRect(dateBox, m_crossColor);
        painter.drawText(dateBox, Qt::AlignCenter, m_crossDateText);
    }
}
