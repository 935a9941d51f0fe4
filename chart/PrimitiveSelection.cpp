#include "chart/Primitive.h"

#include "chart/GraphArea.h"
#include "chart/GraphEvents.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "module/HostCalls.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

void clearSelection(CRGraphWidget *widget) {
    widget->SelectAllPrimitives(false);
    widget->SelectAllLS(false);
}

} // namespace

void CRPrimitive::SetSelected(bool on) {
    m_bSelected = on ? 1 : 0;
}

// Selects this series alone.
void CRPrimitive::OnSelect() {
    CRGraphWidget *widget = GetWidget();
    if (!widget)
        return;
    clearSelection(widget);
    SetSelected(true);
    widget->update();
}

void CRPrimitive::OnSelectChange() {
    CRGraphWidget *widget = GetWidget();
    if (!widget)
        return;
    const bool selected = !IsSelected();
    clearSelection(widget);
    SetSelected(selected);
    widget->update();
}

void CRPrimitive::OnChangeSelected() {
    const QPointer<CRPrimitive> alive(this);
    OnSelectChange();
    HostCalls::interfaceOfObject(m_hDpa);
    if (alive)
        OnShowProperty();
}

void CRPrimitive::OnShowProperty() {
    CRGraphWidget *widget = GetWidget();
    if (m_sysTester || !widget)
        return;
    clearSelection(widget);
    SetSelected(true);
    widget->update();
    void *handle = m_hDpa; // the first of the two messages may take this series away
    HostCalls::raisePanel(widget->ComponentHandle(), HostCalls::propertyPanel);
    HostCalls::showObjectProperties(handle);
}

// Put off: the menu that asks for it still holds this series.
void CRPrimitive::OnDeletePrimitive() {
    if (CRGraphWidget *widget = GetWidget())
        QCoreApplication::postEvent(widget, new CGraphEvent(CGraphEvent::DeletePrimitive, this));
}

void CRPrimitive::OnChangeLayer() {
    CRGraphArea *area = GetArea();
    if (!area)
        return;
    const QPointer<CRPrimitive> alive(this);
    CRGraphLayer *source = m_pLayer;
    CRGraphLayer *target = area->GetLayer(source->GetIndex(), QString());
    if (!target || !alive) // the question to the user runs an event loop
        return;
    if (m_pLayer)
        m_pLayer->m_bPrimitivesDirty = true;
    m_pLayer = target;
    target->m_bPrimitivesDirty = true;
    if (CRGraphWidget *widget = GetWidget()) {
        widget->UpdatePrimitiveCountState();
        widget->UpdateScaleWidth();
    }
}
