// The mouse over a chart window: what a press, a move and a release do before and after the panes get them.
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/TextStatusBar.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "objects/Warning.h"
#include "support/HandlerTrace.h"
#include "support/LogTag.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr int dragDistance = 6;     // of the cursor's manhattan length
constexpr int leastRangeSpread = 8; // a rubber band must be wider
constexpr int stripHeight = 40;     // time strip and scroll bar, as the mouse sees them
constexpr int titleHeight = 14;
constexpr QPoint mouseAway(-1, -1); // over no pixel of the window

} // namespace

void CRGraphWidget::NoteMouse(const QPoint &point) {
    m_mousePos = point;
    m_bMouseKnown = true;
}

bool CRGraphWidget::IsArmed(mwiStateLsButton *state) const {
    mwiStateLsButton own;
    mwiStateLsButton &answer = state ? *state : own;
    return HostCalls::toolButtonState(m_hComponent, answer) && answer.armed;
}

bool CRGraphWidget::IsMouseModeActive() const {
    if (m_creatingLS || m_movingLS || m_rangeSelecting || m_dragCandidate || ScaleDragLayer())
        return true;
    return std::any_of(m_areas.begin(), m_areas.end(),
                       [](const CRGraphArea *area) { return area->m_resizing; });
}

int CRGraphWidget::IndexUnderCursor(int x) const {
    const CRGraphLayer *layer = GetAnyPrimitiveLayer();
    if (!layer)
        return 0;
    if (layer->m_rect.width() <= 0)
        return layer->m_nFirstPos;
    const int points = layer->m_nScreenPoints;
    const double offset = x - layer->m_rect.left() + 0.5 * layer->m_candleStep;
    return qBound(0, static_cast<int>(points * offset / layer->m_rect.width()), points) + layer->m_nFirstPos;
}

// ---- press ----

void CRGraphWidget::mousePressEvent(QMouseEvent *event) {
    const HandlerTrace handler("CRGraphWidget::mousePressEvent", LOG_TAG("GraphWidget"));
    if (m_loading)
        return;
    NoteMouse(event->pos());
    const QPointer<CRGraphWidget> self(this);
    m_bForceDraw = true;
    if (m_sysTesterChart)
        m_module->MvWindowComponentTakeFocus(toWord(this), 0);
    else
        setFocus();
    if (!self)
        return;
    UpdatePrimitiveCount();
    switch (event->button()) {
    case Qt::RightButton:
        for (int i = 0; i < GetAreaCount(); ++i) {
            if (m_areas[static_cast<std::size_t>(i)]->m_rect.contains(event->pos()))
                m_nSelectedArea = i;
        }
        break;
    case Qt::MiddleButton:
        m_module->SetCrossCursorMode(!m_module->IsCrossCursorMode());
        if (self)
            update();
        break;
    case Qt::LeftButton:
        PressLeft(event);
        break;
    default:
        break;
    }
}

void CRGraphWidget::PressLeft(QMouseEvent *event) {
    const QPointer<CRGraphWidget> self(this);
    const bool armed = IsArmed();
    if (!self)
        return;
    if (!armed && !(event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)))
        SelectAllPrimitives(false);
    if (armed && m_module->IsCrossCursorMode())
        m_module->SetCrossCursorMode(false);

    for (int i = 0; self && i < GetAreaCount(); ++i)
        m_areas[static_cast<std::size_t>(i)]->mousePressEvent(event);
    if (!self)
        return;

    if (m_pScrollBar)
        m_pScrollBar->setEnabled(true);
    std::vector<CRPrimitive *> selected;
    GetSelectedPrimitives(&selected);
    m_pressHadSelection = !selected.empty();
    m_dragCandidate = m_pressHadSelection;
    m_rangeSelecting = false;
    if (m_pressHadSelection) {
        m_pressManhattan = QCursor::pos().manhattanLength();
        std::vector<void *> handles;
        for (const CRIndicator *indicator : m_indicators) {
            if (indicator->IsSomeSelected() && !indicator->HasSysTesterPrimitive())
                handles.push_back(indicator->GetHandle());
        }
        for (std::size_t i = 0; self && i < handles.size(); ++i)
            HostCalls::showObjectProperties(handles[i]);
    } else if (m_nPrimitiveCount > 0 && !m_overSplitter) {
        m_rangeSelecting = true;
        m_rangeStart = m_rangeEnd = IndexUnderCursor(event->x());
    }
    GetModule<CRGraphModule>()->UpdateAllTradeData();
}

// ---- move ----

void CRGraphWidget::mouseMoveEvent(QMouseEvent *event) {
    if (!rect().contains(event->pos()))
        return;
    NoteMouse(event->pos());
    if (m_creatingLS || m_movingLS) {
        const QPoint kept(qBound(m_nLeftScaleWidth, event->x(), width() - m_nRightScaleWidth - 1),
                          qMin(event->y(), height() - stripHeight));
        if (kept != event->pos())
            QCursor::setPos(mapToGlobal(kept));
    }
    if (m_loading)
        return;
    const HandlerTrace handler("CRGraphWidget::mouseMoveEvent", LOG_TAG("GraphWidget"));
    const QPointer<CRGraphWidget> self(this);
    CSimpleGUIWidget::mouseMoveEvent(event);
    if (!m_movingLS && m_dragCandidate &&
        std::abs(QCursor::pos().manhattanLength() - m_pressManhattan) >= dragDistance)
        m_dragCandidate = false;
    if (m_rangeSelecting) {
        const int index = IndexUnderCursor(event->x());
        if (index != m_rangeEnd) {
            m_rangeEnd = index;
            trace("repaint", LOG_TAG("GraphWidget"));
            RepaintOverlay();
        }
    }
    for (int i = 0; self && i < GetAreaCount(); ++i)
        m_areas[static_cast<std::size_t>(i)]->mouseMoveEvent(event);
    if (!self)
        return;
    ShowLocator();
    if (!self)
        return;
    ClearStatusText(event->pos());
    if (m_module->IsCrossCursorMode() && !m_rangeSelecting) {
        trace("update", LOG_TAG("GraphWidget"));
        RepaintOverlay();
    }
    if (self)
        DrawMovingLS();
}

// Beside the plots the status bar shows nothing.
void CRGraphWidget::ClearStatusText(const QPoint &point) {
    CTextStatusBar *statusBar = m_module->GetTextStatusBar();
    if (!statusBar)
        return;
    if (point.x() < m_nLeftScaleWidth || point.x() > width() - m_nRightScaleWidth ||
        point.y() <= titleHeight || point.y() >= height() - stripHeight + 1)
        statusBar->clearTextStatusBar();
}

// ---- release ----

void CRGraphWidget::mouseReleaseEvent(QMouseEvent *event) {
    if (m_loading || m_creatingLS)
        return;
    const HandlerTrace handler("CRGraphWidget::mouseReleaseEvent", LOG_TAG("GraphWidget"));
    if (event->button() == Qt::LeftButton)
        ReleaseLeft(event);
}

void CRGraphWidget::ReleaseLeft(QMouseEvent *event) {
    const QPointer<CRGraphWidget> self(this);
    m_redrawMovingLS = false;
    m_dragCandidate = false;
    if (m_rangeSelecting) {
        m_rangeSelecting = false;
        FinishRange();
        if (!self)
            return;
    }
    for (int i = 0; i < GetAreaCount(); ++i) {
        const QPointer<CRGraphArea> area(m_areas[static_cast<std::size_t>(i)]);
        if (area->m_closeRect.contains(event->pos()) && GetAreaCount() >= 2) {
            if (m_sysTesterChart && HasTesterPrimitive(area)) {
                warnUser(this, GetModule()->tr("G0145"), LOG_TAG("GraphWidget"));
                if (!self)
                    return;
            } else {
                DeleteGraphArea(i);
                if (!self)
                    return;
                UpdateScaleWidth();
                update();
                break;
            }
        }
        if (area)
            area->OnLMouseRelease(event);
        if (!self)
            return;
    }
    update();
}

// A rubber band that is wide enough becomes the view, unless its series have gone meanwhile.
void CRGraphWidget::FinishRange() {
    if (m_rangeStart > m_rangeEnd)
        std::swap(m_rangeStart, m_rangeEnd);
    if (m_rangeEnd - m_rangeStart <= leastRangeSpread || !m_pScrollBar || !GetAnyPrimitiveLayer())
        return;
    const QPointer<CRGraphWidget> self(this);
    const int points = m_rangeEnd - m_rangeStart + 1;
    const int rightEdge = m_rangeEnd + 1;
    m_bAutoZoomOut = false;
    SetScreenPoints(points);
    QSlider *slider = GetZoomSlider();
    if (!self)
        return;
    if (slider && isVisible() && m_bCurrent) {
        const QSignalBlocker quiet(slider);
        slider->setValue(-points);
    }
    m_pScrollBar->SetValue(rightEdge);
    if (!self)
        return;
    // The rebuild must not let auto scroll take the view away from the range.
    const bool autoScroll = m_pTimeScale->m_bAutoScroll;
    m_pTimeScale->m_bAutoScroll = false;
    UpdatePrimitivePositions(ScreenDataPointsNotUpdate(), false);
    if (self)
        m_pTimeScale->m_bAutoScroll = autoScroll;
}

bool CRGraphWidget::HasTesterPrimitive(const CRGraphArea *area) const {
    for (const CRIndicator *indicator : m_indicators) {
        for (const CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->m_sysTester && primitive->GetArea() == area)
                return true;
        }
    }
    return false;
}

// ---- double click, wheel, enter and leave ----

void CRGraphWidget::mouseDoubleClickEvent(QMouseEvent *event) {
    if (m_loading)
        return;
    const HandlerTrace handler("CRGraphWidget::mouseDoubleClickEvent", LOG_TAG("GraphWidget"));
    NoteMouse(event->pos());
    if (m_creatingLS || m_movingLS)
        return;
    const QPointer<CRGraphWidget> self(this);
    m_dblClickArmed = true;
    m_lastClick = event->pos();
    for (int i = 0; self && i < GetAreaCount(); ++i)
        m_areas[static_cast<std::size_t>(i)]->mouseDoubleClickEvent(event);
    if (!self)
        return;
    if (m_pScrollBar)
        m_pScrollBar->setEnabled(!m_creatingLS);
    const QRect plot = m_chartRect.adjusted(m_nLeftScaleWidth, 0, -m_nRightScaleWidth, 0);
    if (m_dblClickArmed && plot.contains(event->pos()))
        OnBnClickedProperties();
}

void CRGraphWidget::wheelEvent(QWheelEvent *event) {
    if (m_loading)
        return;
    const HandlerTrace handler("CRGraphWidget::wheelEvent", LOG_TAG("GraphWidget"));
    // With Alt held the toolkit turns a vertical wheel into a horizontal one.
    const QPoint turned = event->angleDelta();
    int steps = (turned.y() ? turned.y() : turned.x()) / 120;
    if (event->modifiers() & Qt::AltModifier)
        steps *= 10;
    if (event->modifiers() & Qt::ControlModifier) {
        const QPointer<CRGraphWidget> self(this);
        QSlider *slider = GetZoomSlider();
        if (!self)
            return;
        if (slider && isVisible() && m_bCurrent) {
            slider->setValue(slider->value() + steps);
            return;
        }
    }
    if (m_pScrollBar)
        m_pScrollBar->setValue(m_pScrollBar->value() - steps);
}

void CRGraphWidget::enterEvent(QEvent *event) {
    m_bMouseKnown = false;
    if (const auto *enter = dynamic_cast<QEnterEvent *>(event))
        NoteMouse(enter->pos());
    if (m_loading)
        return;
    const HandlerTrace handler("CRGraphWidget::enterEvent", LOG_TAG("GraphWidget"));
    const QPointer<CRGraphWidget> self(this);
    const bool armed = IsArmed();
    if (!self)
        return;
    UpdatePrimitiveCount();
    if (!armed)
        ResetCursor();
    else if (m_nPrimitiveCount > 0 && m_bHasData)
        setCursor(QCursor(LoadModulePixmap("graphcusor.png"), 0, 0));
    else
        setCursor(Qt::ForbiddenCursor);
}

void CRGraphWidget::leaveEvent(QEvent *) {
    NoteMouse(mouseAway);
    if (m_loading)
        return;
    const HandlerTrace handler("CRGraphWidget::leaveEvent", LOG_TAG("GraphWidget"));
    if (m_module->IsCrossCursorMode() && !m_rangeSelecting)
        update();
}
