#pragma once

#include <QRect>

// Arithmetic of the panes of a chart window: shares of its height, and rectangles in its pixels.

constexpr float minPaneShare = 0.03f;

// The share that the pane under a splitter gets when it wants `wanted`; both keep the least share as
// far as their sum allows, and the pane above takes the rest of the sum.
float splitterShare(float wanted, float above, float below);

// The rectangle of a pane of `share`, whose first row is `top`, in the chart rectangle `chart`. Its last
// column is one past the last of the chart, so that a right scale of n pixels ends on the window's edge.
// `width` is the width of the rectangle that the panes share.
QRect paneRect(const QRect &chart, int width, int top, float share);

// The rectangle that all panes share, above the time scale and the scroll bar.
QRect sharedPaneRect(int width, int height, int scrollBarHeight, int timeScaleHeight);
