#pragma once

#include <QPoint>
#include <QRect>

// Stretching a value scale with the mouse.

// Which half of which scale was gripped.
enum ScaleDragMode { noScaleDrag = 0, rightUpper = 1, rightLower = 2, leftUpper = 3, leftLower = 4 };

inline bool isRightScale(int mode) {
    return mode == rightUpper || mode == rightLower;
}

// The strip of a scale beside a plot; empty where the scale has no width.
QRect rightScaleStrip(const QRect &plot, int scaleWidth);
QRect leftScaleStrip(const QRect &plot, int scaleWidth);

// The mode for a press at a point.
int scaleDragMode(const QRect &rightStrip, const QRect &leftStrip, const QPoint &point);

struct ValueRange {
    double min;
    double max;
};

// The range after the row `press` was drawn to the row `current`: the value at the far end of the plot stays.
// False where no range comes out.
bool stretchedRange(int mode, const QRect &plot, int press, int current, const ValueRange &range,
                    ValueRange *out);
