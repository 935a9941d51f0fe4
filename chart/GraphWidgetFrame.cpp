// A frame of a chart window, and the events that lead to one.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/PaintGuard.h"
#include "chart/PaneLayout.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
#include "support/Log.h"
#include "support/LogTag.h"
#include "support/Skin.h"

#include <QDragEnterEvent>
#include <QPainter>
#include <QRegion>

namespace {

constexpr QRgb scrollStripColor = 0xFAFAF7;
constexpr QRgb bandColor = 0x999999;
constexpr int sideWidgetWidth = 19;

} // namespace

void CRGraphWidget::RecomputeChartRect() {
    const int scrollBarHeight = m_pScrollBar ? m_pScrollBar->height() : 0;
    m_chartRect = sharedPaneRect(width(), height(), scrollBarHeight, m_pTimeScale->height());
    if (m_pSideWidget)
        m_pSideWidget->setGeometry(width() - sideWidgetWidth + 1, 0, sideWidgetWidth, m_chartRect.height());
}

void CRGraphWidget::Draw(QPainter &painter, bool forced) {
    DrawAll(painter, forced);
}

void CRGraphWidget::DrawAll(QPainter &painter, bool forced) {
    trace("DrawAll start", LOG_TAG("GraphWidget"));
    if (m_loading)
        return;
    if (!forced) {
        if (m_bDrawn && (!m_bForceDraw || m_bHidden))
            return;
        if ((!m_bDrawn && m_bHidden) || IsMouseModeActive())
            return;
    }
    if (ScaleDragLayer())
        return; // the last picture stays until the drag ends
    trace("DrawAll continue", LOG_TAG("GraphWidget"));
    const PaintGuard painting(m_nPainting);

    SetAreasRects(m_chartRect);
    const int scrollBarHeight = m_pScrollBar ? m_pScrollBar->height() : 0;
    const QRect scrollStrip(QPoint(0, height() - scrollBarHeight), QPoint(width() - 1, height() - 1));
    const QRect timeStrip(QPoint(0, scrollStrip.top() - m_pTimeScale->height()),
                          QPoint(width() - 1, scrollStrip.top() - 1));
    // Only what no later step covers needs erasing.
    QRegion bare(rect());
    bare -= scrollStrip;
    bare -= timeStrip;
    for (const CRGraphArea *area : m_areas)
        bare -= area->m_rect;
    for (const QRect &part : bare)
        painter.eraseRect(part);
    // A skin's back image never gets as far as the screen: each frame starts by dropping it.
    if (CSkin *skin = m_module->GetSkin())
        skin->m_backImage = QImage();
    for (const CRGraphArea *area : m_areas)
        painter.fillRect(area->m_rect, QColor(area->m_properties.backgroundColor));
    m_pTimeScale->Draw(painter);
    DrawPanes(painter, false);
    painter.fillRect(scrollStrip, QColor(scrollStripColor));
    ShowLocator();
    DrawOverlay(painter);
    m_bDrawn = true;
    ++m_nFrameCount;
    trace("DrawAll stop", LOG_TAG("GraphWidget"));
}

/// The short way for a repaint without scales.
void CRGraphWidget::DrawLast(QPainter &painter) {
    trace("DrawLast start", LOG_TAG("GraphWidget"));
    trace("DrawLast continue", LOG_TAG("GraphWidget"));
    SetAreasRects(m_chartRect);
    DrawPanes(painter, true);
    ShowLocator();
    DrawOverlay(painter);
}

// A pane's titles talk to the host, so the list is read anew at each step.
void CRGraphWidget::DrawPanes(QPainter &painter, bool lastOnly) {
    for (int i = 0; !m_bGoing && i < GetAreaCount(); ++i)
        m_areas[static_cast<std::size_t>(i)]->Draw(painter, lastOnly);
}

/// The two ends of a time range that is being selected, visible on any background.
void CRGraphWidget::DrawZoomChange(QPainter &painter) {
    if (!m_rangeSelecting || m_movingLS || m_creatingLS || ScaleDragLayer() || m_rangeStart == m_rangeEnd)
        return;
    for (const CRGraphArea *area : m_areas) {
        if (area->m_resizing)
            return;
    }
    const CRGraphLayer *layer = GetAnyPrimitiveLayer();
    if (!layer)
        return;
    const QPainter::CompositionMode mode = painter.compositionMode();
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter.setPen(QColor(bandColor));
    for (int position : {m_rangeStart, m_rangeEnd}) {
        const int x = layer->CenterX(position - layer->m_nFirstPos);
        painter.drawLine(x, 0, x, height() - 1);
    }
    painter.setCompositionMode(mode);
}

void CRGraphWidget::paintEvent(QPaintEvent *) {
    if (m_loading || m_bHidden || m_bGoing)
        return;
    const PaintGuard painting(m_nPainting);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
    PaintWindow(painter);
}

void CRGraphWidget::resizeEvent(QResizeEvent *event) {
    trace("CRGraphWidget::resizeEvent", LOG_TAG("GraphWidget"));
    CSimpleGUIWidget::resizeEvent(event);
    if (m_pScrollBar)
        m_pScrollBar->OnResize();
    RecomputeChartRect();
    if (!m_loading)
        update();
}

void CRGraphWidget::showEvent(QShowEvent *event) {
    if (m_loading)
        return;
    CSimpleGUIWidget::showEvent(event);
    m_bHidden = false;
}

void CRGraphWidget::hideEvent(QHideEvent *event) {
    if (m_loading)
        return;
    CSimpleGUIWidget::hideEvent(event);
    m_bHidden = true;
}

// These three swallow what a widget does by itself.
void CRGraphWidget::focusInEvent(QFocusEvent *) {}

void CRGraphWidget::contextMenuEvent(QContextMenuEvent *) {}

void CRGraphWidget::dragLeaveEvent(QDragLeaveEvent *) {}

void CRGraphWidget::dragEnterEvent(QDragEnterEvent *event) {
    event->ignore();
}

void CRGraphWidget::dragMoveEvent(QDragMoveEvent *event) {
    event->ignore();
}

void CRGraphWidget::dropEvent(QDropEvent *event) {
    event->ignore();
}
