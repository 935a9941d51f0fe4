#include "chart/HitTestGeometry.h"

#include "chart/GraphLayerMapping.h"

#include <cmath>
#include <cstdlib>

namespace {

// Between two ends that may stand either way round, widened by the tolerance.
bool isBetween(int value, int a, int b, int tolerance) {
    return (value >= a - tolerance && value <= b + tolerance) ||
           (value >= b - tolerance && value <= a + tolerance);
}

} // namespace

bool Util::Point::InLine(const QRect &line, const QPoint &point, int tolerance) {
    const int x1 = line.left();
    const int y1 = line.top();
    const int x2 = line.right() + 1;
    const int y2 = line.bottom() + 1;
    if (!isBetween(point.x(), x1, x2, tolerance))
        return false;
    if (y2 == y1)
        return tolerance > std::abs(y2 - point.y());
    if (!isBetween(point.y(), y1, y2, tolerance))
        return false;
    const double dx = x1 - x2;
    const double dy = y1 - y2;
    if (dx == 0) // upright: the distance across the line is that in x, which is within the tolerance
        return tolerance > 0;
    const double length = std::sqrt(dx * dx + dy * dy);
    const int lineY = toPixel(dy * (point.x() - x2) / dx + y2 + 0.5);
    return tolerance > std::fabs(dx * (point.y() - lineY) / length);
}

bool Util::Point::InLine(const QPoint &a, const QPoint &b, const QPoint &point, int tolerance) {
    return InLine(QRect(a, b), point, tolerance);
}
