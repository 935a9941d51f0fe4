#include "host/quotes/PriceWalk.h"
#include <algorithm>
#include <cmath>

namespace desk {

namespace {

constexpr int daySeconds = 86400;
constexpr quint32 burstSeconds = 600;

// How fast the market's clock runs in each hour of the day, UTC: the night in Asia, Europe, America.
constexpr double activity[24] = {0.5, 0.6, 0.6, 0.5, 0.5, 0.6, 0.9, 1.5, 1.7, 1.5, 1.3, 1.2,
                                 1.4, 1.8, 2.0, 1.8, 1.5, 1.1, 0.9, 0.8, 0.6, 0.3, 0.4, 0.5};

// Hours of the busy clock up to each hour of a market's day, which begins at 22:00.
struct BusyHours {
    BusyHours() {
        for (int hour = 0; hour < 24; ++hour)
            before[hour + 1] = before[hour] + activity[(22 + hour) % 24];
    }
    double before[25] = {};
};

// Whole seconds without the slow division of 64-bit numbers.
quint32 secondsOf(qint64 timeMs) {
    return quint32(double(timeMs) * 0.001);
}

// The finishing steps of a well-known hash.
quint32 mixed(quint32 value) {
    value ^= value >> 16;
    value *= 0x85ebca6bU;
    value ^= value >> 13;
    value *= 0xc2b2ae35U;
    value ^= value >> 16;
    return value;
}

double hashed(quint32 seed, quint32 kind, qint64 place) { // 0 to 1
    const quint32 high = quint32(quint64(place) >> 32);
    return double(mixed(mixed(seed * 0x9e3779b9U + kind) ^ quint32(place) ^ (high * 0x27d4eb2fU))) /
           4294967296.0;
}

} // namespace

PriceWalk::PriceWalk(const PairData &pair, quint32 seed) : m_pair(pair), m_seed(seed) {
    for (int i = 0; i < pair.digits; ++i)
        m_scale *= 10;
    double length = 6;
    for (Wave &wave : m_waves) {
        wave.length = length;
        wave.share = 1 / length;
        // A walk's spread grows with the root of time, up to what keeps a price plausible over the years.
        wave.height = std::min(0.06, pair.dailyShare * 0.8 * std::sqrt(length / double(daySeconds)));
        length *= 3;
    }
}

// Seconds of trade since 1970, counted fast in busy hours. The market rests from Friday 22:00 to Sunday
// 22:00.
double PriceWalk::busyTime(qint64 timeMs) {
    static const BusyHours hours;
    // Weeks are counted from a Sunday at 22:00: 1970-01-04.
    const double second = double(timeMs) * 0.001 - double(3 * daySeconds + 22 * 3600);
    const int week = int(second / double(7 * daySeconds));
    const double inWeek = std::min(second - double(week) * double(7 * daySeconds), double(5 * daySeconds));
    const int day = int(inWeek / double(daySeconds));
    const double hour = (inWeek - day * double(daySeconds)) / 3600;
    const int whole = std::min(23, int(hour));
    const double inDay = hours.before[whole] + activity[(22 + whole) % 24] * (hour - whole);
    return ((week * 5 + day) * hours.before[24] + inDay) * 3600;
}

double PriceWalk::noise(quint32 wave, int node) const {
    return hashed(m_seed, wave, node) * 2 - 1;
}

double PriceWalk::rounded(double price) const {
    return std::floor(price * m_scale + 0.5) / m_scale;
}

bool PriceWalk::isBurst(qint64 timeMs) const {
    return hashed(m_seed, 1001, secondsOf(timeMs) / burstSeconds) < 0.06;
}

double PriceWalk::price(qint64 timeMs) {
    const double time = busyTime(timeMs);
    double burst = 1;
    if (isBurst(timeMs)) { // swells and ebbs within its ten minutes
        const double share = double(secondsOf(timeMs) % burstSeconds) / double(burstSeconds);
        burst = 1 + 1.5 * std::sin(share * 3.14159265358979);
    }
    double sum = 0;
    for (quint32 i = 0; i < quint32(waves); ++i) {
        Wave &wave = m_waves[i];
        const double place = time * wave.share;
        const int node = int(place);
        if (node != wave.node) {
            wave.node = node;
            wave.left = noise(i, node);
            wave.step = noise(i, node + 1) - wave.left;
        }
        const double share = place - node;
        const double smooth = share * share * (3 - 2 * share);
        sum += wave.height * (wave.length <= 200 ? burst : 1) * (wave.left + wave.step * smooth);
    }
    return m_pair.price * std::exp(sum);
}

double PriceWalk::spread(qint64 timeMs) const {
    const double share = hashed(m_seed, 1002, secondsOf(timeMs) / 5);
    const quint32 hour = secondsOf(timeMs) / 3600 % 24;
    const double quiet = hour == 21 || hour == 22 ? 2.5 : 1; // around the day's change nobody likes to trade
    return rounded(m_pair.spread * quiet * (0.7 + 0.6 * share) * (isBurst(timeMs) ? 1.6 : 1));
}

Tick PriceWalk::quote(qint64 timeMs) {
    const double bid = rounded(price(timeMs));
    return {timeMs, float(bid), float(bid + spread(timeMs)), 1};
}

std::optional<Tick> PriceWalk::quoteIn(qint64 quarter) {
    const qint64 timeMs = quarter * 250;
    const double rate = 0.22 * activity[secondsOf(timeMs) / 3600 % 24] * (isBurst(timeMs) ? 2.5 : 1);
    if (hashed(m_seed, 1003, quarter) >= rate)
        return std::nullopt;
    return quote(timeMs + qint64(hashed(m_seed, 1004, quarter) * 250));
}

Bar PriceWalk::bar(qint32 time, qint32 seconds, int samples) {
    const auto at = [this, time, seconds, samples](int i) {
        const qint64 ms =
            qint64(time) * 1000 + qint64(double(seconds) * 1000 * i / samples) - (i == samples ? 1 : 0);
        return float(rounded(price(ms)));
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
    bar.volume = float(std::round(busy * (0.7 + 0.6 * hashed(m_seed, 1005, time))));
    return bar;
}

} // namespace desk
