#include "bench/Bars.h"

#include <algorithm>
#include <random>

std::vector<corePointCandle> makeBars(int count) {
    std::mt19937 random(7);
    std::normal_distribution<float> step(0.0f, 0.0008f);
    std::vector<corePointCandle> bars;
    bars.reserve(count);
    int time = 0;
    float price = 1.2f;
    while (static_cast<int>(bars.size()) < count) {
        time += 60;
        const int day = (time / 86400 + 4) % 7;
        if (day == 6 || day == 0)
            continue;
        const float open = price;
        price = std::max(0.5f, open + step(random));
        const float high = std::max(open, price) + std::abs(step(random)) * 0.5f;
        const float low = std::min(open, price) - std::abs(step(random)) * 0.5f;
        bars.push_back({time, open, high, low, price, 100});
    }
    return bars;
}

std::vector<ValuePoint> makeAverage(const std::vector<corePointCandle> &bars, int length) {
    std::vector<ValuePoint> points;
    points.reserve(bars.size());
    double sum = 0;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        sum += bars[i].close;
        if (i >= static_cast<std::size_t>(length))
            sum -= bars[i - length].close;
        if (i + 1 >= static_cast<std::size_t>(length))
            points.push_back({bars[i].time, static_cast<float>(sum / length)});
    }
    return points;
}
