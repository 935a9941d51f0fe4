#pragma once

#include "chart/Primitive.h"

#include <vector>

// Building the common time axis out of the times of several series. Times are in seconds.

// The times of one series, read in place; `first` may be null, then every time is 0.
struct TimeRun {
    const unsigned char *first = nullptr;
    int stride = 0;
    int count = 0;
    int next = 0; // how many were merged
    long At(int index) const;
};

// Appends the union of all runs to `axis`: again and again the smallest of the runs' next times. A time
// that several runs have at the same turn becomes one position.
void mergeTimes(std::vector<TimeRun> &runs, std::vector<long> &axis);

// The data index of every position of the axis, -1 where the run has no point. Ends where the run ends.
void mapPositions(const TimeRun &run, const std::vector<long> &axis, std::vector<int> &positions);

// The positions of a run that is alone on its axis: one after the other.
void placeAll(int count, std::vector<int> &positions);

// The time one free position after `timeSec`. An unknown unit steps by `fallbackSeconds`, a unit that
// cannot be stepped gives 0. Past the range of a time it is negative.
long nextFreeTime(long timeSec, eDateType type, int count, int fallbackSeconds);

// Minutes of a period; `previous` for a letter that has none.
int periodMinutes(char period, int lenPeriod, int previous);
