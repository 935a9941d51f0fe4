#include "host/quotes/PriceWalk.h"
#include <algorithm>
#include <cmath>

namespace desk {

namespace {

constexpr qint64 daySeconds = 86400;
constexpr qint64 burstSeconds = 600;

// How fast the market's clock runs in each hour of the day, UTC: the night in Asia, Europe, America.
constexpr double activity[24] = {0.5, 0.6, 0.6, 0.5, 0.5, 0.6, 0.9, 1.5, 1.7, 1.5, 1.3, 1.2,
                                 1.4, 1.8, 2.0, 1.8, 1.5, 1.1, 0.9, 0.8, 0.6, 0.3, 0.4, 0.5};

double activityBefore(int hour) {
    double sum = 0;
    for (int i = 0; i < hour; ++i)
        sum += activity[i];
    return sum;
}

quint64 mixed(quint64 value) { // the finishing steps of a well-known hash
    value ^= value >> 33;
    value *= 0xff51afd7ed558ccdULL;
    value ^= value >> 33;
    value *= 0xc4ceb9fe1a85ec53ULL;
    value ^= value >> 33;
    return value;
}

quint64 hashOf(quint32 seed, quint32 kind, qint64 place) {
    return mixed(mixed((quint64(seed) << 32) | kind) ^ quint64(place));
}

double unit(quint64 hash) { // 0 to 1
    return double(hash >> 11) / 9007199254740992.0;
}

double rounded(double price, int digits) {
    const double scale = std::pow(10.0, digits);
    return std::round(price * scale) / scale;
}

} // namespace

PriceWalk::PriceWalk(const PairData &pair, quint32 seed) : m_pair(pair), m_seed(seed) {
    double length = 4;
    for (Wave &wave : m_waves) {
        wave.length = length;
        // A walk's spread grows with the root of time, up to what keeps a price plausible over the years.
        wave.height = std::min(0.05, pair.dailyShare * 0.6 * std::sqrt(length / double(daySeconds)));
        length *= 2;
    }
}

// Seconds of trade since 1970, counted fast in busy hours. The market rests from Friday 22:00 to Sunday 22:00.
double PriceWalk::busyTime(qint64 timeMs) {
    static const double daySum = activityBefore(24);
    // Weeks are counted from a Sunday at 22:00: 1970-01-04.
    const double second = double(timeMs) / 1000 - double(3 * daySeconds + 22 * 3600);
    const double week = std::floor(second / double(7 * daySeconds));
    const double inWeek = std::min(second - week * double(7 * daySeconds), double(5 * daySeconds));
    const double day = std::floor(inWeek / double(daySeconds));
    const double inDay = inWeek - day * double(daySeconds);
    const int hour = std::min(23, int(inDay / 3600));
    double sum = (week * 5 + day) * daySum;
    for (int i = 0; i < hour; ++i)
        sum += activity[(22 + i) % 24];
    sum += activity[(22 + hour) % 24] * (inDay / 3600 - hour);
    return sum * 3600;
}

double PriceWalk::noise(quint32 wave, qint64 node) const {
    return unit(hashOf(m_seed, wave, node)) * 2 - 1;
}

bool PriceWalk::isBurst(qint64 timeMs) const {
    return unit(hashOf(m_seed, 1001, timeMs / 1000 / burstSeconds)) < 0.06;
}

double PriceWalk::price(qint64 timeMs) {
    const double time = busyTime(timeMs);
    double burst = 1;
    if (isBurst(timeMs)) { // swells and ebbs within its ten minutes
        const double share = double(timeMs / 1000 % burstSeconds) / double(burstSeconds);
        burst = 1 + 3 * std::sin(share * 3.14159265358979);
    }
    double sum = 0;
    for (quint32 i = 0; i < waves; ++i) {
        Wave &wave = m_waves[i];
        const double place = time / wave.length;
        const double floor = std::floor(place);
        const qint64 node = qint64(floor);
        if (node != wave.node) {
            wave.node = node;
            wave.left = noise(i, node);
            wave.right = noise(i, node + 1);
        }
        const double share = place - floor;
        const double smooth = share * share * (3 - 2 * share);
        sum += wave.height * (wave.length <= 256 ? burst : 1) * (wave.left + (wave.right - wave.left) * smooth);
    }
    return m_pair.price * std::exp(sum);
}

double PriceWalk::spread(qint64 timeMs) const {
    const double share = unit(hashOf(m_seed, 1002, timeMs / 5000));
    const int hour = int(timeMs / 3600000 % 24);
    const double quiet = hour == 21 || hour == 22 ? 2.5 : 1; // around the day's change nobody likes to trade
    return rounded(m_pair.spread * quiet * (0.7 + 0.6 * share) * (isBurst(timeMs) ? 1.6 : 1), m_pair.digits);
}

Tick PriceWalk::quote(qint64 timeMs) {
    const double bid = rounded(price(timeMs), m_pair.digits);
    return {timeMs, float(bid), float(bid + spread(timeMs)), 1};
}

std::optional<Tick> PriceWalk::quoteIn(qint64 quarter) {
    const qint64 timeMs = quarter * 250;
    const double rate = 0.22 * activity[timeMs / 3600000 % 24] * (isBurst(timeMs) ? 2.5 : 1);
    if (unit(hashOf(m_seed, 1003, quarter)) >= rate)
        return std::nullopt;
    return quote(timeMs + qint64(unit(hashOf(m_seed, 1004, quarter)) * 250));
}

Bar PriceWalk::bar(qint32 time, qint32 seconds, int samples) {
    const auto at = [this, time, seconds, samples](int i) {
        const qint64 ms = qint64(time) * 1000 + qint64(seconds) * 1000 * i / samples - (i == samples ? 1 : 0);
        return float(rounded(price(ms), m_pair.digits));
    };
    Bar bar{time, at(0), 0, 0, at(samples), 0};
    bar.high = std::max(bar.open, bar.close);
    bar.low = std::min(bar.open, bar.close);
    for (int i = 1; i < samples; ++i) {
        const float price = at(i);
        bar.high = std::max(bar.high, price);
        bar.low = std::min(bar.low, price);
    }
    const double busy = busyTime(qint64(time + seconds) * 1000) - busyTime(qint64(time) * 1000);
    bar.volume = float(std::round(busy * (0.7 + 0.6 * unit(hashOf(m_seed, 1005, time)))));
    return bar;
}

} // namespace desk
