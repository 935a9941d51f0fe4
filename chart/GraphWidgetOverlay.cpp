#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "module/GraphModule.h"

#include <QPainter>

void CRGraphWidget::update() {
    m_frameCache.Invalidate();
    QWidget::update();
}

void CRGraphWidget::repaint() {
    m_frameCache.Invalidate();
    QWidget::repaint();
}

bool CRGraphWidget::HasOverlay() const {
    return m_rangeSelecting || (m_module && m_module->IsCrossCursorMode()) || ScaleDragLayer();
}

CRGraphLayer *CRGraphWidget::ScaleDragLayer() const {
    for (const CRGraphArea *area : m_areas)
        for (CRGraphLayer *layer : area->m_layers)
            if (layer->m_scaleDrag)
                return layer;
    return nullptr;
}

// Without an overlay the frame goes straight to the window. With one it goes into the cache first, so that
// the next move of the mouse costs a copy and a few lines.
void CRGraphWidget::PaintWindow(QPainter &painter) {
    if (const CRGraphLayer *layer = ScaleDragLayer()) {
        painter.eraseRect(rect());
        painter.drawImage(0, 0, m_frameCache.Picture());
        layer->DrawScaleDrag(painter);
        return;
    }
    if (!HasOverlay()) {
        m_frameCache.Release();
        Draw(painter, true);
        return;
    }
    if (!m_bOverlayRepaint || !m_bDrawn || !m_frameCache.IsCurrent(size(), devicePixelRatioF()))
        HoldFrame();
    painter.drawImage(0, 0, m_frameCache.Picture());
    DrawOverlay(painter);
}

void CRGraphWidget::HoldFrame() {
    if (ScaleDragLayer())
        return;
    QPainter painter(&m_frameCache.Begin(size(), devicePixelRatioF()));
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
    painter.setBackground(palette().brush(backgroundRole()));
    painter.setFont(font());
    m_bOverlayApart = true;
    Draw(painter, true);
    m_bOverlayApart = false;
}

void CRGraphWidget::DrawOverlay(QPainter &painter) {
    if (m_bOverlayApart)
        return;
    if (m_module && m_module->IsCrossCursorMode() && !m_rangeSelecting)
        DrawCrossCursor(painter);
    DrawZoomChange(painter);
}

void CRGraphWidget::RepaintOverlay() {
    m_bOverlayRepaint = true;
    QWidget::repaint();
    m_bOverlayRepaint = false;
}

// While a line study is dragged the frame follows the mouse at once.
void CRGraphWidget::DrawMovingLS() {
    if (!m_areas.empty() && m_redrawMovingLS)
        repaint();
}
