#include "chart/TimeAxis.h"

#include "chart/PrimitiveCalendar.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <numeric>

namespace {

inline long timeAt(const unsigned char *source) {
    int value;
    std::memcpy(&value, source, sizeof value);
    return value;
}

// Grows by what is needed and a little for the quotes to come: a doubling would waste a chart's worth.
template <class T>
void reserveTight(std::vector<T> &list, std::size_t needed) {
    if (list.capacity() < needed || list.capacity() > 2 * needed + 4096) {
        std::vector<T> tight;
        tight.reserve(needed + needed / 16 + 256);
        list.swap(tight);
    }
}

void mergeOne(TimeRun &run, std::vector<long> &axis) {
    const std::size_t start = axis.size();
    axis.resize(start + static_cast<std::size_t>(run.count - run.next));
    long *out = axis.data() + start;
    if (run.first) {
        const unsigned char *source = run.first + static_cast<long long>(run.next) * run.stride;
        for (int i = run.next; i < run.count; ++i, source += run.stride)
            *out++ = timeAt(source);
    }
    run.next = run.count;
}

} // namespace

long TimeRun::At(int index) const {
    return first ? timeAt(first + static_cast<long long>(index) * stride) : 0;
}

void mergeTimes(std::vector<TimeRun> &runs, std::vector<long> &axis) {
    std::size_t total = axis.size();
    std::size_t longest = 0;
    for (const TimeRun &run : runs) {
        const std::size_t left = static_cast<std::size_t>(std::max(0, run.count - run.next));
        total += left;
        longest = std::max(longest, left);
    }
    if (axis.empty())
        reserveTight(axis, longest);

    // The runs that still have times, with the time each stands at.
    struct Head {
        TimeRun *run;
        long time;
    };
    std::vector<Head> heads;
    for (TimeRun &run : runs) {
        if (run.next < run.count)
            heads.push_back({&run, run.At(run.next)});
    }
    while (heads.size() > 1) {
        long smallest = heads[0].time;
        bool level = true;
        for (std::size_t i = 1; i < heads.size(); ++i) {
            level = level && heads[i].time == smallest;
            smallest = std::min(smallest, heads[i].time);
        }
        if (axis.size() == axis.capacity())
            axis.reserve(std::min(total, axis.size() + axis.size() / 8 + 1024));
        axis.push_back(smallest);
        bool ended = false;
        for (Head &head : heads) {
            if (!level && head.time != smallest)
                continue;
            if (++head.run->next < head.run->count)
                head.time = head.run->At(head.run->next);
            else
                ended = true;
        }
        if (ended) {
            heads.erase(std::remove_if(heads.begin(), heads.end(),
                                       [](const Head &head) { return head.run->next >= head.run->count; }),
                        heads.end());
        }
    }
    if (!heads.empty()) {
        const TimeRun &last = *heads[0].run;
        const std::size_t needed = axis.size() + static_cast<std::size_t>(last.count - last.next);
        if (axis.capacity() < needed)
            axis.reserve(needed + needed / 16 + 256);
        mergeOne(*heads[0].run, axis);
    }
}

void mapPositions(const TimeRun &run, const std::vector<long> &axis, std::vector<int> &positions) {
    positions.clear();
    const std::size_t most = axis.size();
    if (run.count <= 0 || most == 0)
        return;
    reserveTight(positions, most);
    positions.resize(most);
    int *out = positions.data();
    const long *time = axis.data();
    const long *const end = time + most;
    int index = 0;
    const unsigned char *source = run.first;
    while (time != end && index < run.count) {
        const long own = source ? timeAt(source) : 0;
        if (own == *time) {
            *out++ = index++;
            if (source)
                source += run.stride;
        } else {
            *out++ = -1;
        }
        ++time;
    }
    positions.resize(static_cast<std::size_t>(out - positions.data()));
}

void placeAll(int count, std::vector<int> &positions) {
    positions.clear();
    reserveTight(positions, static_cast<std::size_t>(count));
    positions.resize(static_cast<std::size_t>(count));
    std::iota(positions.begin(), positions.end(), 0);
}

long nextFreeTime(long timeSec, eDateType type, int count, int fallbackSeconds) {
    if (type != DT_UNKNOWN)
        return addIntervals(timeSec, type, count);
    const long long time = static_cast<long long>(timeSec) + fallbackSeconds;
    return time > LONG_MAX ? -1 : static_cast<long>(time);
}

int periodMinutes(char period, int lenPeriod, int previous) {
    switch (period) {
    case 'D':
        return 1440;
    case 'W':
        return 10080;
    case 'M':
        return 43200;
    case 'Y':
        return 525600;
    case 'I':
        return lenPeriod == 0 ? 1 : lenPeriod;
    default:
        return previous;
    }
}
