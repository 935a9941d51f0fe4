#pragma once

#include "chart/Primitive.h"

#include <QPoint>
#include <memory>

// Series that are drawn as lines are tested between the two columns beside the point.
namespace Wrap {
namespace Primitive {

class Base {
public:
    Base(const CRGraphLayer *layer, const CRPrimitive *primitive) : m_layer(layer), m_primitive(primitive) {}
    virtual ~Base() = default;
    // `index` is the data index of the nearer of the two points, set on a hit only.
    virtual bool IsUnderMouse(const QPoint &point, int &index) const = 0;

protected:
    const CRGraphLayer *m_layer;
    const CRPrimitive *m_primitive;
};

template <int Type>
class TDerive;

template <>
class TDerive<3> : public Base {
public:
    using Base::Base;
    bool IsUnderMouse(const QPoint &point, int &index) const override;

private:
    QPoint PointAt(int position) const;
};

// Null for every draw type but 0, 3 and 4.
std::unique_ptr<Base> Create(const CRGraphLayer *layer, const CRPrimitive *primitive, PRIMITIVE_TYPES type);

} // namespace Primitive
} // namespace Wrap
