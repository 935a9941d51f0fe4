// Selection in a chart window, the cursor's shape, and the commands that work on what is selected.
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"
#include "objects/ToolBar.h"
#include "support/HandlerTrace.h"
#include "support/LogTag.h"

#include <QCursor>
#include <QHelpEvent>
#include <QMenu>
#include <QPointer>
#include <QToolTip>

bool CRGraphWidget::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip)
        return CSimpleGUIWidget::event(event);
    const HandlerTrace handler("CRGraphWidget::event", LOG_TAG("GraphWidget"));
    const auto *help = static_cast<QHelpEvent *>(event);
    const QString text = GetToolTipInfo(mapFromGlobal(help->globalPos()));
    if (text.isEmpty()) {
        QToolTip::hideText();
        event->ignore();
    } else {
        QToolTip::showText(help->globalPos(), text, this);
    }
    return true;
}

void CRGraphWidget::ResetCursor() {
    if (m_module->IsCrossCursorMode())
        setCursor(Qt::BlankCursor);
    else if (m_lsNewPending)
        setCursor(QCursor(LoadModulePixmap("graphcusor.png"), 0, 0));
    else
        setCursor(Qt::ArrowCursor);
}

void CRGraphWidget::SelectAllPrimitives(bool on) {
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->m_bVisible)
                primitive->SetSelected(on);
        }
    }
}

void CRGraphWidget::RemoveMultipleSelect(void *except) {
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->IsSelected() && primitive != except)
                primitive->SetSelected(false);
        }
    }
}

void CRGraphWidget::RemoveMultipleAreasSelect(CRGraphArea *area, bool) {
    for (const CRIndicator *indicator : m_indicators) {
        for (CRPrimitive *primitive : indicator->m_primitives) {
            if (primitive->IsSelected() && primitive->GetArea() != area)
                primitive->SetSelected(false);
        }
    }
}

void CRGraphWidget::OnSelectAllLS() {
    SelectAllPrimitives(false);
    SelectAllLS(true);
    update();
}

void CRGraphWidget::OnBnClickedMenuUnselectAll() {
    SelectAllPrimitives(false);
    SelectAllLS(false);
    update();
}

// Every series of the window, and the way to select none, below the button.
void CRGraphWidget::OnBnClickedSelectMenu() {
    if (m_nPrimitiveCount < 1 || !m_pSelectButton)
        return;
    const QPointer<CRGraphWidget> self(this);
    QPointer<QMenu> menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const CRGraphArea *area : m_areas) {
        for (const CRGraphLayer *layer : area->m_layers) {
            for (CRPrimitive *primitive : layer->m_primitives) {
                const bool instrument = primitive->m_pIndicator && primitive->m_pIndicator->m_isInstrument;
                QAction *action =
                    menu->addAction(instrument ? primitive->GetAlias() : primitive->GetMenuItemName());
                action->setCheckable(true);
                action->setChecked(primitive->IsSelected());
                connect(action, &QAction::triggered, primitive, &CRPrimitive::OnChangeSelected);
            }
        }
    }
    menu->addSeparator();
    menu->addAction(GetModule()->tr("C0042SelectOff"), this, &CRGraphWidget::OnBnClickedMenuUnselectAll);
    menu->popup(m_pSelectButton->mapToGlobal(m_pSelectButton->rect().bottomLeft()));
}

// The page of each series under the last double click or selected; of the window where there is none.
void CRGraphWidget::OnBnClickedProperties() {
    const QPointer<CRGraphWidget> self(this);
    HostCalls::raisePanel(m_hComponent, HostCalls::propertyPanel);
    if (!self)
        return;
    std::vector<void *> owners;
    for (const CRGraphArea *area : m_areas) {
        for (CRGraphLayer *layer : area->m_layers) {
            for (CRPrimitive *primitive : layer->m_primitives) {
                const bool under = layer->IsPrimitiveUnderMouse(primitive, m_lastClick);
                if ((under || primitive->IsSelected()) && primitive->m_pIndicator)
                    owners.push_back(primitive->m_pIndicator->GetHandle());
            }
            layer->m_toolTip.clear();
        }
    }
    for (void *owner : owners)
        HostCalls::interfaceOfObject(owner);
    if (self && owners.empty())
        ShowPropertyPage();
}

// A page that the host shows is shown anew with what the members are now.
void CRGraphWidget::RefreshPropertyPage() {
    const QPointer<CRGraphWidget> self(this);
    UpdatePropertyPage();
    if (HostCalls::isPageKnown(m_hComponent, GetPage()) && self)
        ShowPropertyPage();
}
