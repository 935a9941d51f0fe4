#include "dialogs/SelectLsDlg.h"
#include "chart/GraphWidget.h"
#include "module/GraphModule.h"

SelectLsDlg::SelectLsDlg(QWidget *parent) : CSelectObjectsDlg("G0153", "|SelectLsDlg|345", parent) {}

// The studies of a series are those that the host lists for its array.
void SelectLsDlg::collect(CRGraphWidget *widget, CRGraphLayer *layer, QStringList &texts,
                          QStringList &types) {
    auto *module = GetModule<CRGraphModule>();
    std::vector<CRPrimitive *> primitives;
    widget->GetLayerPrimitives(layer, &primitives);
    for (CRPrimitive *primitive : primitives) {
        if (!widget->FindWidgetPrimitive(primitive))
            continue;
        const int count = module->GetCore().GetCountLs(primitive);
        if (count < 1 || !widget->FindWidgetPrimitive(primitive))
            continue;
        const auto *list = module->GetCore().GetListLs(primitive, static_cast<unsigned int>(count));
        std::vector<CORE_OBJECT_SYSTEM> studies; // the list is overwritten by the next call
        if (list && list->list)
            studies.assign(list->list, list->list + list->count);
        for (const CORE_OBJECT_SYSTEM &study : studies) {
            char ascii[256] = {};
            QString title;
            if (!study.m_object || module->GetLs().GetName(fromWord<void>(study.m_if),
                                                           fromWord<void>(study.m_object), ascii, title) != 0)
                continue;
            ascii[255] = 0;
            // All pictures are one type, whatever they show.
            const QString name = QString::fromLocal8Bit(ascii);
            types += name.startsWith("Symbol") ? QStringLiteral("Symbol") : name;
            texts += title.isEmpty() ? name : title;
        }
    }
}
