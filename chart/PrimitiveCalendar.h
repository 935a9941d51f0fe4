#pragma once

#include "chart/Primitive.h"

// Steps of a series' interval from a time in seconds, UTC. Minutes, days and weeks have a fixed length;
// months and years are walked one by one, each as long as the month or year that is being left.

// Moves `timeSec` by `steps` units, backward for a negative number. An unknown unit, and ticks, give 0; a
// negative time, and one past the range of a time, give -1.
long addIntervals(long timeSec, eDateType type, int steps);

long long fixedSeconds(eDateType type); // 0 for a unit without a fixed length
