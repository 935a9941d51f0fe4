#pragma once

#include "chart/GraphLayerMapping.h"

#include <QString>
#include <cfloat>
#include <vector>

// Arithmetic of a value scale: the range of what is visible, the grid values, and their labels.

struct ValueRange {
    float max = -FLT_MAX;
    float min = FLT_MAX;

    bool HasBoth() const { return max != -FLT_MAX && min != FLT_MAX; }
    bool IsUntouched() const { return max == -FLT_MAX && min == FLT_MAX; }
    void Widen(float high, float low);
};

// Equal ends move apart by ten ticks each.
void separateEqualEnds(ValueRange &range, float tick);

// Adds `share` of the range above, then the same share of the grown range below.
void addMargins(ValueRange &range, double share);

// Pixels a value unit in a plot of this height. A plot below 100 pixels keeps some room above the data.
float pixelsPerUnit(const ValueRange &range, int height);
float pixelsPerUnitOfFrozen(const ValueRange &range, int height);

// The distance of two grid values; `raw` is the distance that the texts leave room for.
double gridStep(double raw, double tick);

// Grid values lie one, two, ... , `count` steps above the start, which is a multiple of the step.
struct ValueGrid {
    double multiple = 0; // the start in steps
    double step = 0;
    int count = 0;
    double At(int index) const { return (multiple + 1 + index) * step; }
};
ValueGrid valueGrid(const ValueRange &range, int paneHeight, int textHeight, float tick);

// Within 0.9 ticks of a multiple of 100 ticks.
bool isRoundValue(double value, double tick);

struct ValueLabel {
    int y;
    bool round;
    QString text;
};

// The labels that lie on the plot of `mapping`, from the lowest value to the highest.
std::vector<ValueLabel> valueLabels(const ValueRange &range, const LayerMapping &mapping, int textHeight,
                                    float tick);
