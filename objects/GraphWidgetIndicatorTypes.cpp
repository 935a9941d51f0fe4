// "Delete indicators by type".
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphEvents.h"
#include "chart/GraphLayer.h"
#include "dialogs/SelectSymDlg.h"
#include "objects/Indicator.h"

#include <QCoreApplication>
#include <QPointer>
#include <algorithm>
#include <set>

namespace {

bool isWithin(const CRPrimitive *primitive, const SelectScope &scope) {
    const CRGraphLayer *layer = shownLayer(primitive);
    switch (scope.kind) {
    case SelectScope::chart:
        return layer != nullptr;
    case SelectScope::area:
        return layer && layer->m_pArea == scope.areaObject;
    case SelectScope::layer:
        return layer && layer == scope.layerObject;
    default:
        return false;
    }
}

} // namespace

void CRGraphWidget::OnDeleteIndByType() {
    QPointer<CRGraphWidget> guard(this);
    QCoreApplication::postEvent(this, new CGraphEvent(CGraphEvent::Refresh));
    QPointer<SelectSymDlg> dialog = new SelectSymDlg(this);
    const bool accepted = dialog->Create(this) && dialog && dialog->exec() == QDialog::Accepted && dialog;
    const SelectResult chosen = accepted ? dialog->GetResult() : SelectResult();
    delete dialog.data();
    if (!guard || chosen.ids.empty() || chosen.types.empty())
        return;

    std::set<CRPrimitive *> inScope;
    for (const SelectScope &scope : chosen.ids)
        for (const CRIndicator *indicator : m_indicators)
            for (CRPrimitive *primitive : indicator->m_primitives)
                if (primitive->m_bVisible && isWithin(primitive, scope))
                    inScope.insert(primitive);
    // Names come from the host, which can change the chart while it is asked.
    std::vector<QPointer<CRPrimitive>> doomed;
    for (const QPointer<CRPrimitive> &primitive :
         std::vector<QPointer<CRPrimitive>>(inScope.begin(), inScope.end())) {
        const QString name =
            primitive && primitive->m_pIndicator ? primitive->m_pIndicator->GetName() : QString();
        if (primitive && std::find(chosen.types.begin(), chosen.types.end(), name) != chosen.types.end())
            doomed.push_back(primitive);
    }
    for (const QPointer<CRPrimitive> &primitive : doomed) {
        if (primitive)
            RemovePrimitive(primitive);
        if (!guard)
            return;
    }
    if (!guard)
        return;
    for (CRGraphArea *area : m_areas)
        area->UpdateData();
    UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (guard)
        DeleteUnusedLayers();
}
