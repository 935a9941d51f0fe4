#pragma once

// Rounds half away from zero to `digits` decimals.
double roundFloat(double value, int digits);
// The multiple of `step` nearest to `value`, halves upward.
double round_eps(double value, double step);
// round_eps to a power of ten.
double round_nth(double value, int digits);

// How many times `value` can be divided by 10 until it is below 10.
int GetLotPower(long long value);

// The decimals that a price with this point size is printed with: the magnitude of its truncated
// decimal logarithm; 0 for what has none.
int decimalsOf(double pointSize);
