#include "dialogs/SelectSymDlg.h"
#include "chart/GraphWidget.h"
#include "objects/Indicator.h"

#include <QPointer>

SelectSymDlg::SelectSymDlg(QWidget *parent) : CSelectObjectsDlg("G0157", "|SelectSymDlg|279", parent) {}

void SelectSymDlg::collect(CRGraphWidget *widget, CRGraphLayer *layer, QStringList &texts,
                           QStringList &types) {
    std::vector<CRPrimitive *> found;
    widget->GetLayerPrimitives(layer, &found);
    for (const QPointer<CRPrimitive> &primitive : std::vector<QPointer<CRPrimitive>>(found.begin(), found.end())) {
        if (!primitive)
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
