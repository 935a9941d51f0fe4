#pragma once

#include "module/HostRecords.h"

#include <vector>

// A seeded random walk of hourly bars that leaves out the weekends.
std::vector<corePointCandle> makeBars(int count);

// A simple moving average over the closes: TIME, VALUE.
struct ValuePoint {
    int time;
    float value;
};
std::vector<ValuePoint> makeAverage(const std::vector<corePointCandle> &bars, int length);
