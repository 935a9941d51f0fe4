#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/PaintGuard.h"
#include "chart/ScaleDrag.h"
#include "module/GraphModule.h"

#include <QPainter>
#include <algorithm>

void CRGraphWidget::update() {
    m_frameCache.Invalidate();
    QWidget::update();
}

// The host can scroll a chart from within a frame. There is no frame within a frame: it follows.
void CRGraphWidget::repaint() {
    m_frameCache.Invalidate();
    const auto &windows = m_module->m_widgets;
    const bool painting = std::any_of(windows.begin(), windows.end(), [](const CRGraphWidget *window) {
        return window->testAttribute(Qt::WA_WState_InPaintEvent);
    });
    if (painting)
        QWidget::update();
    else
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

// The kept picture still is what a new frame would show.
bool CRGraphWidget::IsFrameKept() const {
    return m_bDrawn && m_frameCache.IsCurrent(size(), devicePixelRatioF());
}

// Without an overlay the frame goes straight to the window. With one it goes into the cache first, so that
// the next move of the mouse costs a few lines.
void CRGraphWidget::PaintWindow(QPainter &painter) {
    if (const CRGraphLayer *layer = ScaleDragLayer()) {
        Draw(painter, true); // which lets the last picture stand
        painter.eraseRect(rect());
        painter.drawImage(0, 0, m_frameCache.Picture());
        layer->DrawScaleDrag(painter);
    } else if (HasOverlay()) {
        if (!m_bOverlayRepaint || !IsFrameKept())
            HoldFrame();
        painter.drawImage(0, 0, m_frameCache.Picture());
        DrawOverlay(painter);
    } else {
        m_frameCache.Release();
        Draw(painter, true);
    }
    m_shownOverlay = OverlayRegion();
}

void CRGraphWidget::HoldFrame() {
    if (ScaleDragLayer())
        return;
    const PaintGuard painting(m_nPainting);
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

QRegion CRGraphWidget::OverlayRegion() const {
    if (const CRGraphLayer *layer = ScaleDragLayer())
        return layer->ScaleStrip(layer->m_scaleDrag <= rightLower ? CRGraphLayer::RIGHT_SCALE
                                                                  : CRGraphLayer::LEFT_SCALE);
    QRegion region;
    const CRGraphLayer *layer = GetAnyPrimitiveLayer();
    if (m_rangeSelecting && layer) {
        for (const int position : {m_rangeStart, m_rangeEnd})
            region += QRect(layer->CenterX(position - layer->m_nFirstPos), 0, 1, height());
    } else if (m_module && m_module->IsCrossCursorMode()) {
        const QPoint cursor = CursorPos();
        region += QRect(0, cursor.y(), width(), 1);
        region += QRect(cursor.x(), 0, 1, height());
        region += CrossPriceBox();
        region += CrossDateBox();
    }
    return region;
}

// Where the frame itself is kept, only the pixels that the overlay leaves and those that it takes.
void CRGraphWidget::RepaintOverlay() {
    m_bOverlayRepaint = true;
    if (ScaleDragLayer() || IsFrameKept())
        QWidget::repaint(m_shownOverlay + OverlayRegion());
    else
        QWidget::repaint();
    m_bOverlayRepaint = false;
}

// While a line study is dragged the frame follows the mouse at once.
void CRGraphWidget::DrawMovingLS() {
    if (!m_areas.empty() && m_redrawMovingLS)
        repaint();
}
