#include "module/FindObject.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "chart/Primitive.h"
#include "objects/Indicator.h"

bool FindObject::Visit(const CRPrimitive *primitive) const {
    return m_object &&
           (primitive == m_object || primitive->m_hDpa == m_object || primitive->GetArray() == m_object ||
            (primitive->m_pIndicator && primitive->m_pIndicator->GetHandle() == m_object));
}

bool FindObject::Search(const CRGraphWidget *widget) const {
    for (const CRGraphArea *area : widget->m_areas) {
        for (const CRGraphLayer *layer : area->m_layers) {
            for (const CRPrimitive *primitive : layer->m_primitives) {
                if (Visit(primitive))
                    return true;
            }
        }
    }
    return false;
}
