#include "chart/PrimitiveGeometry.h"

#include <algorithm>

namespace {

constexpr double candleShare = 0.9; // of the step; the rest parts two candles
constexpr double wideCandle = 3.1;  // from here on a candle leaves one pixel more to its neighbour

} // namespace

CandleWidth candleWidth(double step) {
    const double full = candleShare * step;
    const int gap = full >= wideCandle ? 1 : 0;
    return {full, static_cast<int>(full - gap), static_cast<int>(full * 0.5), full <= 1};
}

int barTick(double step) {
    return static_cast<int>(0.5 * step);
}

bool isBarMerged(double step) {
    return step < 1;
}

DotSize dotSize(double step) {
    return {static_cast<int>(0.5 + step * 0.5), static_cast<int>(step * 0.25)};
}

bool histogramLine(int x, int y, int yBase, int penWidth, QLine &line) {
    if (y == yBase)
        return false;
    const int cap = penWidth > 1 ? penWidth / 2 : 0;
    const int top = std::min(y, yBase) + cap;
    const int bottom = std::max(y, yBase) - cap;
    if (top > bottom)
        return false;
    line = y < yBase ? QLine(x, top, x, bottom) : QLine(x, bottom, x, top);
    return true;
}

Arrow arrowAbove(int x, int y, double step) {
    const int foot = static_cast<int>(step / 5 + y - step);
    const int tip = static_cast<int>(y - step);
    const int half = static_cast<int>(0.5 * step);
    return {QLine(x - half, foot, x, tip), QLine(x + half, foot, x - 1, tip)};
}

Arrow arrowBelow(int x, int y, double step) {
    const int foot = static_cast<int>(y + step - step / 5);
    const int tip = static_cast<int>(y + step);
    const int half = static_cast<int>(0.5 * step);
    return {QLine(x - half, foot, x, tip), QLine(x + half, foot, x - 1, tip)};
}

bool hasArrowAbove(int markKind) {
    return markKind == 1 || markKind == 3;
}

bool hasArrowBelow(int markKind) {
    return markKind == 2 || markKind == 3;
}
