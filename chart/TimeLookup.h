#pragma once

#include "chart/Primitive.h"

#include <vector>

// Looking things up in the times of an axis, ascending, in seconds.

// The position of a time: of the exact entry, or of the one before. Ahead of the axis 0, past it the last.
int positionOfTime(const std::vector<long> &times, long timeSec);

// The time of a position, and beyond the axis what steps of a unit lead to. Past the end the whole position
// counts as steps from the last time, not only what lies beyond it. 0 for an empty axis.
long timeOfPosition(const std::vector<long> &times, int position, eDateType type);
