#pragma once

#include <QLine>
#include <QRect>

// Shapes of the draw types in pixels. `x` is the centre of a column, `step` the pixels of a position. The
// painting and the hit test share them.

// A candle's body. Outline and fill are as QPainter::drawRect takes them: the outline covers one more
// column and row than the width and the height say.
struct CandleWidth {
    double full;   // in fractions of a pixel
    int body;      // width of the outline
    int half;      // from the left edge to the centre
    bool isMerged; // too narrow: several candles become one vertical line
};
CandleWidth candleWidth(double step);

// A bar has ticks of half a step on both sides; below one pixel a step bars merge like candles.
int barTick(double step);
bool isBarMerged(double step);

// A dot is a point, or an ellipse in a square.
struct DotSize {
    int diameter;
    int radius; // from the centre to the left and the upper edge
    bool IsPoint() const { return diameter == 0 || radius == 0; }
    QRect At(int x, int y) const { return {x - radius, y - radius, diameter, diameter}; }
};
DotSize dotSize(double step);

// The line of a histogram from the value to the base. A pen wider than a pixel is shortened at both ends,
// as far as its square cap reaches. False: there is nothing to draw.
bool histogramLine(int x, int y, int yBase, int penWidth, QLine &line);

// The two strokes of an arrow over the higher of a mark's rows, and of its mirror image under the lower.
struct Arrow {
    QLine left;
    QLine right;
};
Arrow arrowAbove(int x, int y, double step);
Arrow arrowBelow(int x, int y, double step);
bool hasArrowAbove(int markKind);
bool hasArrowBelow(int markKind);
