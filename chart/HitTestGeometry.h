#pragma once

#include <QPoint>
#include <QRect>

// Whether a point lies on a drawn line, in pixels.
namespace Util {
namespace Point {

// `line` is a segment from its left top to its right bottom corner, each one pixel further than the
// rectangle says: right and bottom of a rectangle are inclusive. Exactly `tolerance` away is no hit.
bool InLine(const QRect &line, const QPoint &point, int tolerance);
bool InLine(const QPoint &a, const QPoint &b, const QPoint &point, int tolerance);

} // namespace Point
} // namespace Util
