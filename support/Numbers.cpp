#include "support/Numbers.h"

#include <cmath>
#include <limits>

double roundFloat(double value, int digits) {
    const double multiple = std::pow(10.0, digits);
    const double half = 5 * std::pow(10.0, -static_cast<double>(digits) - 1);
    const double scaled = (value >= 0 ? value + half : value - half) * multiple;
    constexpr double limit = 9223372036854775808.0;
    if (!(std::fabs(scaled) < limit)) // NaN too: nothing to round
        return value;
    return static_cast<double>(static_cast<long long>(scaled)) / multiple;
}

double round_eps(double value, double step) {
    return step * std::floor(value / step + 0.5);
}

double round_nth(double value, int digits) {
    return round_eps(value, std::pow(10.0, digits));
}

int GetLotPower(long long value) {
    int power = 0;
    for (; value >= 10; value /= 10)
        ++power;
    return power;
}

// Point sizes are kept as floats. The logarithm is that of a float too: as a double, 0.001f would be
// a little above its power of ten and lose a decimal.
int decimalsOf(double pointSize) {
    const float logarithm = std::log10(static_cast<float>(pointSize));
    return std::isfinite(logarithm) ? std::abs(static_cast<int>(logarithm)) : 0;
}
