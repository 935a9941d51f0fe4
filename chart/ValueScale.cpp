#include "chart/ValueScale.h"

#include "support/Numbers.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double edgeShare = 0.02; // of the range, at each end, that carries no labels
constexpr int labelGap = 5;        // pixels between two texts
constexpr int fullHeight = 100;    // of a plot that needs no spare room
constexpr int mostLabels = 10000;  // no screen has as many rows

double truncated(double value) {
    return std::trunc(value);
}

float perUnit(double pixels, const ValueRange &range) {
    const double span = static_cast<double>(range.max) - range.min;
    return span > 0 && std::isfinite(span) ? static_cast<float>(pixels / span) : 0.0f;
}

} // namespace

void ValueRange::Widen(float high, float low) {
    if (high > max)
        max = high;
    if (low < min)
        min = low;
}

// A value so large that ten ticks vanish in it is moved by more of them.
void separateEqualEnds(ValueRange &range, float tick) {
    for (double distance = 10.0 * tick; range.max == range.min && distance > 0 && distance < FLT_MAX;
         distance *= 10) {
        range.max = static_cast<float>(range.max + distance);
        range.min = static_cast<float>(range.min - distance);
    }
}

void addMargins(ValueRange &range, double share) {
    range.max = static_cast<float>(range.max + (range.max - range.min) * share);
    range.min = static_cast<float>(range.min - (range.max - range.min) * share);
}

float pixelsPerUnit(const ValueRange &range, int height) {
    if (height >= fullHeight)
        return perUnit(height, range);
    return perUnit(std::min(height * 0.2 / fullHeight + 0.8, 1.0) * height, range);
}

float pixelsPerUnitOfFrozen(const ValueRange &range, int height) {
    return perUnit(height, range);
}

double gridStep(double raw, double tick) {
    if (!(raw > tick))
        return tick;
    // Truncated towards zero: below 1 the power lies above the distance, and is the step.
    const double power = std::pow(10.0, truncated(std::log10(raw)));
    if (!(raw > power))
        return power;
    const double next = 10 * power;
    return 0.5 * next > raw ? 0.5 * next : next;
}

ValueGrid valueGrid(const ValueRange &range, int paneHeight, int textHeight, float tick) {
    ValueGrid grid;
    const int labels = paneHeight / std::max(textHeight + labelGap, 1);
    if (!range.HasBoth() || labels <= 0)
        return grid;
    const double span = static_cast<double>(range.max) - range.min;
    const double low = range.min + span * edgeShare;
    const double high = range.max - span * edgeShare;
    grid.step = gridStep((high - low) / labels, tick);
    if (!(grid.step > 0) || !std::isfinite(grid.step) || !std::isfinite(span))
        return grid;
    grid.multiple = truncated(low / grid.step + (low >= 0 ? 1.0 : -0.5)) - 1;
    const double end = truncated(high / grid.step - (high >= 0 ? 1.0 : 2.0)) + 1;
    grid.count = static_cast<int>(std::clamp(end - grid.multiple + 0.2, 0.0, double(mostLabels)));
    return grid;
}

bool isRoundValue(double value, double tick) {
    const double hundred = 100 * tick;
    const double multiple = truncated(std::fabs(value) / hundred + 0.5);
    return 0.9 * tick > std::fabs(hundred * multiple - std::fabs(value));
}

std::vector<ValueLabel> valueLabels(const ValueRange &range, const LayerMapping &mapping, int textHeight,
                                    float tick) {
    std::vector<ValueLabel> labels;
    const ValueGrid grid = valueGrid(range, mapping.rect.height(), textHeight, tick);
    const int decimals = decimalsOf(tick);
    for (int i = 0; i < grid.count; ++i) {
        const double value = grid.At(i);
        const int y = mapping.Y(static_cast<float>(value));
        if (y >= mapping.rect.bottom() + 1 || y <= mapping.rect.top())
            continue;
        labels.push_back({y, isRoundValue(value, tick), QString::asprintf("%0.*f", decimals, value)});
    }
    return labels;
}
