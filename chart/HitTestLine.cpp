#include "chart/HitTestLine.h"

#include "chart/GraphLayer.h"
#include "chart/HitTestGeometry.h"

#include <cstdlib>

namespace {

constexpr int tolerance = 5;
constexpr double rounding = 1.0; // half a position more than the other draw types

} // namespace

std::unique_ptr<Wrap::Primitive::Base>
Wrap::Primitive::Create(const CRGraphLayer *layer, const CRPrimitive *primitive, PRIMITIVE_TYPES type) {
    if (type != PT_LINE && type != PT_CLOSE_LINE && type != PT_TICK_LINE)
        return nullptr;
    return std::make_unique<TDerive<3>>(layer, primitive);
}

QPoint Wrap::Primitive::TDerive<3>::PointAt(int position) const {
    const int index = m_primitive->GetPos(position);
    const double value =
        m_primitive->m_type == PT_CLOSE_LINE ? m_primitive->GetClose(index) : m_primitive->FirstValue(index);
    return {m_layer->CenterX(position - m_layer->m_nFirstPos), m_layer->CalcY(static_cast<float>(value))};
}

bool Wrap::Primitive::TDerive<3>::IsUnderMouse(const QPoint &point, int &index) const {
    const int position = m_layer->Mapping().RelativePos(point.x(), rounding) + m_layer->m_nFirstPos;
    const int next = m_primitive->NextSignedPos(position);
    const int previous = m_primitive->PreviousSignedPos(position - 1);
    if (next < 0 || previous < 0)
        return false;
    const QPoint to = PointAt(next);
    const QPoint from = PointAt(previous);
    if (!Util::Point::InLine(from, to, point, tolerance))
        return false;
    const bool nextIsNearer = std::abs(to.x() - point.x()) < std::abs(point.x() - from.x());
    index = m_primitive->GetPos(nextIsNearer ? next : previous);
    return true;
}
