// The keyboard over a chart window.
#include "objects/KeyboardTable.h"

#include "chart/GraphArea.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "objects/Warning.h"
#include "support/HandlerTrace.h"
#include "support/LogTag.h"

#include <QKeyEvent>
#include <QPointer>

void CRGraphWidget::keyPressEvent(QKeyEvent *event) {
    if (m_loading || m_creatingLS || m_movingLS)
        return;
    const HandlerTrace handler("CRGraphWidget::keyPressEvent", LOG_TAG("GraphWidget"));
    const QPointer<CRGraphWidget> self(this);
    m_bForceDraw = true;
    // Cutting ends as a deletion.
    QKeyEvent deletion(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    if (event->key() == Qt::Key_X && (event->modifiers() & Qt::ControlModifier))
        event = &deletion;

    const KeyCommand command = keyCommand(event->key(), event->modifiers());
    const bool deletes = RunKeyCommand(command);
    if (!self)
        return;
    m_selectedOrders.clear();
    for (int i = 0; self && i < GetAreaCount(); ++i) {
        if (event->key() != Qt::Key_Delete || deletes)
            m_areas[static_cast<std::size_t>(i)]->keyPressEvent(event);
    }
    if (!self)
        return;
    UpdatePrimitiveCountState();
    if (!self)
        return;
    if (command == KeyCommand::ZoomIn || command == KeyCommand::ZoomOut)
        UpdatePrimitivePositions(ScreenDataPointsNotUpdate(), false);
    else
        UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (self)
        update();
}

// True when a Delete may go on to the panes.
bool CRGraphWidget::RunKeyCommand(KeyCommand command) {
    const auto scrollTo = [this](int value) {
        if (m_pScrollBar)
            m_pScrollBar->setValue(value);
    };
    const int value = m_pScrollBar ? m_pScrollBar->value() : 0;
    const int least = m_pScrollBar ? m_pScrollBar->minimum() : 0;
    const int most = m_pScrollBar ? m_pScrollBar->maximum() : 0;
    const int page = m_pScrollBar ? m_pScrollBar->pageStep() : 0;
    const QPointer<CRGraphWidget> self(this);
    switch (command) {
    case KeyCommand::ZoomIn:
        OnBnClickedZoomIn();
        break;
    case KeyCommand::ZoomOut:
        OnBnClickedZoomOut();
        break;
    case KeyCommand::SelectAll:
        SelectAllPrimitives(true);
        m_pressHadSelection = true;
        break;
    case KeyCommand::MarkSelection:
        m_pressHadSelection = true;
        break;
    case KeyCommand::NewArea:
        CreateArea(-1);
        break;
    case KeyCommand::SymbolImages:
        m_module->m_drawSymbolImages = !m_module->m_drawSymbolImages;
        m_module->UpdateAllScreenBuffer();
        break;
    case KeyCommand::Escape:
        if (m_module->IsCrossCursorMode())
            m_module->SetCrossCursorMode(m_module->IsCrossCursorMode());
        if (self && IsArmed() && self) {
            ResetCursor();
            HostCalls::clearToolButton(m_hComponent);
        }
        break;
    case KeyCommand::Delete:
        return !DeleteIsRefused();
    case KeyCommand::ToStart:
    case KeyCommand::LeftToStart:
        scrollTo(least);
        break;
    case KeyCommand::ToEnd:
    case KeyCommand::RightToEnd:
        scrollTo(most);
        break;
    case KeyCommand::Left:
        scrollTo(value - 1);
        break;
    case KeyCommand::LeftTen:
        scrollTo(value - 10);
        break;
    case KeyCommand::Right:
        scrollTo(value + 1);
        break;
    case KeyCommand::RightTen:
        scrollTo(value + 10);
        break;
    case KeyCommand::PageUp:
        scrollTo(value + page);
        break;
    case KeyCommand::PageDown:
        scrollTo(value - page);
        break;
    case KeyCommand::None:
        break;
    }
    if (self && movesReadOut(command))
        UpdateCrossCursor();
    return false;
}

// On a tester chart the objects of the tester stay; what was selected is let go.
bool CRGraphWidget::DeleteIsRefused() {
    if (!m_sysTesterChart)
        return false;
    std::vector<CRPrimitive *> selected;
    GetSelectedPrimitives(&selected);
    bool tester = false;
    for (const CRPrimitive *primitive : selected)
        tester = tester || primitive->m_sysTester;
    if (!tester)
        return false;
    const QPointer<CRGraphWidget> self(this);
    warnUser(this, GetModule()->tr("G0143"), LOG_TAG("GraphWidget"));
    if (self)
        SelectAllPrimitives(false);
    return true;
}
