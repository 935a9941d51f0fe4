#include "chart/ScaleDrag.h"

#include <cfloat>
#include <cmath>

QRect rightScaleStrip(const QRect &plot, int scaleWidth) {
    return QRect(plot.right(), plot.top(), scaleWidth, plot.height());
}

QRect leftScaleStrip(const QRect &plot, int scaleWidth) {
    return QRect(plot.left() - scaleWidth, plot.top(), scaleWidth, plot.height());
}

int scaleDragMode(const QRect &rightStrip, const QRect &leftStrip, const QPoint &point) {
    const QRect *strips[] = {&rightStrip, &leftStrip};
    const int upperModes[] = {rightUpper, leftUpper};
    for (int side = 0; side < 2; ++side) {
        if (!strips[side]->contains(point))
            continue;
        const int half = (strips[side]->height() + 1) / 2;
        return point.y() < strips[side]->top() + half ? upperModes[side] : upperModes[side] + 1;
    }
    return noScaleDrag;
}

bool stretchedRange(int mode, const QRect &plot, int press, int current, const ValueRange &range,
                    ValueRange *out) {
    const double span = range.max - range.min;
    *out = range;
    if (mode == rightUpper || mode == leftUpper) {
        const double bottom = plot.bottom();
        out->max = range.min + (press - bottom) * span / (current - bottom);
    } else {
        const double top = plot.top();
        out->min = range.max - (top - press) * span / (top - current);
    }
    return std::isfinite(out->max) && std::isfinite(out->min) && out->max > out->min && out->max < FLT_MAX &&
           out->min > -FLT_MAX;
}
