#include "dialogs/SelectSymDlg.h"
#include "chart/GraphWidget.h"
#include "objects/Indicator.h"

SelectSymDlg::SelectSymDlg(QWidget *parent) : CSelectObjectsDlg("G0157", "|SelectSymDlg|279", parent) {}

void SelectSymDlg::collect(CRGraphWidget *widget, CRGraphLayer *layer, QStringList &texts,
                           QStringList &types) {
    std::vector<CRPrimitive *> primitives;
    widget->GetLayerPrimitives(layer, &primitives);
    for (CRPrimitive *primitive : primitives) {
        if (!widget->FindWidgetPrimitive(primitive))
            continue;
        const CRIndicator *indicator = primitive->m_pIndicator;
        if (!primitive->m_bVisible || !indicator || indicator->m_isInstrument)
            continue;
        const QString alias = primitive->GetAlias();
        const QString type = indicator->GetName();
        texts += alias.isEmpty() ? type : alias;
        types += type;
    }
}
