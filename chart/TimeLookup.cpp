#include "chart/TimeLookup.h"

#include "chart/PrimitiveCalendar.h"

int positionOfTime(const std::vector<long> &times, long timeSec) {
    int low = -1;
    int high = static_cast<int>(times.size());
    while (high - low > 1) {
        const int middle = low + static_cast<int>((high - low) * 0.5 + 0.5);
        const long time = times[static_cast<std::size_t>(middle)];
        if (middle == 0 || time == timeSec)
            return middle;
        if (time < timeSec)
            low = middle;
        else if (times[static_cast<std::size_t>(middle) - 1] <= timeSec)
            return middle - 1;
        else
            high = middle;
    }
    return low < 0 ? 0 : low;
}

long timeOfPosition(const std::vector<long> &times, int position, eDateType type) {
    if (times.empty())
        return 0;
    if (position >= static_cast<int>(times.size()))
        return addIntervals(times.back(), type, position);
    return position < 0 ? addIntervals(times.front(), type, position) : times[static_cast<std::size_t>(position)];
}
