// Values of every indicator against a plain computation of its definition, and against themselves point by
// point.
#include "host/pages/Page.h"
#include "quotes_desk.h"
#include <QElapsedTimer>
#include <cmath>

using namespace desk;

namespace {

using Values = std::vector<double>;
const double none = std::nan("");

// ---- plain definitions, whole series at once ----

Values column(const std::vector<Bar> &bars, float Bar::*field) {
    Values values;
    for (const Bar &bar : bars)
        values.push_back(double(bar.*field));
    return values;
}

Values simple(const Values &x, int n) {
    Values result(x.size(), none);
    for (int i = n - 1; i < int(x.size()); ++i) {
        double sum = 0;
        for (int k = i - n + 1; k <= i; ++k)
            sum += x[size_t(k)];
        result[size_t(i)] = sum / n;
    }
    return result;
}

Values weighted(const Values &x, int n) {
    Values result(x.size(), none);
    for (int i = n - 1; i < int(x.size()); ++i) {
        double sum = 0;
        double weights = 0;
        for (int k = 0; k < n; ++k) {
            sum += (n - k) * x[size_t(i - k)];
            weights += n - k;
        }
        result[size_t(i)] = sum / weights;
    }
    return result;
}

// From the first number on: the mean of the first n, then previous * (1 - share) + x * share.
Values chained(const Values &x, int n, double share) {
    Values result(x.size(), none);
    size_t first = 0;
    while (first < x.size() && std::isnan(x[first]))
        ++first;
    double sum = 0;
    for (size_t i = first; i < x.size(); ++i) {
        const int count = int(i - first) + 1;
        if (count <= n) {
            sum += x[i];
            if (count == n)
                result[i] = sum / n;
        } else {
            result[i] = result[i - 1] * (1 - share) + x[i] * share;
        }
    }
    return result;
}

Values exponential(const Values &x, int n) {
    return chained(x, n, 2.0 / (n + 1));
}

Values smoothed(const Values &x, int n) {
    return chained(x, n, 1.0 / n);
}

Values difference(const Values &a, const Values &b) {
    Values result;
    for (size_t i = 0; i < a.size(); ++i)
        result.push_back(a[i] - b[i]);
    return result;
}

double extreme(const std::vector<Bar> &bars, int last, int n, bool high) {
    double value = high ? -1e9 : 1e9;
    for (int i = last - n + 1; i <= last; ++i)
        value = high ? std::max(value, double(bars[size_t(i)].high))
                     : std::min(value, double(bars[size_t(i)].low));
    return value;
}

Values halfway(const std::vector<Bar> &bars, int n) {
    Values result(bars.size(), none);
    for (int i = n - 1; i < int(bars.size()); ++i)
        result[size_t(i)] = (extreme(bars, i, n, true) + extreme(bars, i, n, false)) / 2;
    return result;
}

class IndicatorValues : public QuoteDesk {
protected:
    IndicatorValues() : bars(walk(400, 11)) {
        give("EUR/USD", bars);
        base = instrument("EUR/USD", "Bid", {'I', 5});
        subscribe(base);
    }

    // The line's points are the numbers of `expected`, at the times of the bars `shift` places on.
    void expectLine(Handle object, int line, const Values &expected, double tolerance = 2e-7, int shift = 0) {
        const std::vector<corePointValue> held = points<corePointValue>(arrays(object)[size_t(line - 1)]);
        std::vector<std::pair<qint32, double>> wanted;
        BarCutter cutter({'I', 5});
        std::vector<qint32> times;
        for (const Bar &bar : bars)
            times.push_back(bar.time);
        for (int i = 0; i < shift; ++i)
            times.push_back(cutter.next(times.back()));
        for (int i = 0; i < int(expected.size()); ++i) {
            if (!std::isnan(expected[size_t(i)]) && i + shift >= 0)
                wanted.emplace_back(times[size_t(i + shift)], expected[size_t(i)]);
        }
        ASSERT_EQ(held.size(), wanted.size());
        for (size_t i = 0; i < held.size(); ++i) {
            ASSERT_EQ(held[i].time, wanted[i].first) << i;
            ASSERT_NEAR(held[i].value, wanted[i].second,
                        tolerance * std::max(1.0, std::fabs(wanted[i].second)))
                << i;
        }
    }
    void set(Handle handle, const char *name, const QVariant &value) {
        std::unique_ptr<Page> page = object(handle)->page();
        for (PageGroup &group : page->groups) {
            for (PageItem &item : group.items) {
                if (item.name == QString::fromLatin1(name))
                    item.value = value;
            }
        }
        EXPECT_EQ(object(handle)->applyPage(*page), QString());
    }
    Values closes() const { return column(bars, &Bar::close); }

    std::vector<Bar> bars;
    Handle base = 0;
};

TEST_F(IndicatorValues, MovingAverages) {
    const Handle ma = indicator("MA", base);
    ASSERT_NE(ma, 0u);
    expectLine(ma, 1, simple(closes(), 14));
    set(ma, "Method", 1);
    expectLine(ma, 1, exponential(closes(), 14));
    set(ma, "Method", 2);
    expectLine(ma, 1, smoothed(closes(), 14));
    set(ma, "Method", 3);
    expectLine(ma, 1, weighted(closes(), 14));
    set(ma, "Length", 50);
    set(ma, "Method", 0);
    set(ma, "Price", 2);
    expectLine(ma, 1, simple(column(bars, &Bar::high), 50));
    set(ma, "Length", 1);
    expectLine(ma, 1, column(bars, &Bar::high));
    set(ma, "Length", 1000);
    EXPECT_EQ(+arrays(ma)[0]->count, 0) << "longer than the series";
}

TEST_F(IndicatorValues, ShiftedAverageReachesIntoTheFuture) {
    const Handle ma = indicator("MA", base);
    set(ma, "Shift", 5);
    expectLine(ma, 1, simple(closes(), 14), 2e-7, 5);
    set(ma, "Shift", -20);
    expectLine(ma, 1, simple(closes(), 14), 2e-7, -20);
}

TEST_F(IndicatorValues, BollingerBands) {
    const Handle bands = indicator("Bollinger", base);
    const Values mean = simple(closes(), 20);
    Values upper(bars.size(), none);
    Values lower(bars.size(), none);
    for (size_t i = 19; i < bars.size(); ++i) {
        double variance = 0;
        for (size_t k = i - 19; k <= i; ++k)
            variance += std::pow(double(bars[k].close) - mean[i], 2) / 20;
        upper[i] = mean[i] + 2 * std::sqrt(variance);
        lower[i] = mean[i] - 2 * std::sqrt(variance);
    }
    expectLine(bands, 1, mean);
    expectLine(bands, 2, upper);
    expectLine(bands, 3, lower);
}

TEST_F(IndicatorValues, Macd) {
    const Handle macd = indicator("MACD", base);
    const Values main = difference(exponential(closes(), 12), exponential(closes(), 26));
    const Values signal = exponential(main, 9);
    expectLine(macd, 1, main);
    expectLine(macd, 2, signal);
    expectLine(macd, 3, difference(main, signal));
}

TEST_F(IndicatorValues, Ichimoku) {
    const Handle cloud = indicator("Ichimoku", base);
    const Values tenkan = halfway(bars, 9);
    const Values kijun = halfway(bars, 26);
    Values first(bars.size(), none);
    for (size_t i = 0; i < bars.size(); ++i)
        first[i] = (tenkan[i] + kijun[i]) / 2;
    expectLine(cloud, 1, tenkan);
    expectLine(cloud, 2, kijun);
    expectLine(cloud, 3, first, 2e-7, 26);
    expectLine(cloud, 4, halfway(bars, 52), 2e-7, 26);
    expectLine(cloud, 5, closes(), 2e-7, -26);
}

TEST_F(IndicatorValues, RelativeStrength) {
    Values up{none};
    Values down{none};
    for (size_t i = 1; i < bars.size(); ++i) {
        const double change = double(bars[i].close) - double(bars[i - 1].close);
        up.push_back(change > 0 ? change : 0);
        down.push_back(change < 0 ? -change : 0);
    }
    const Values gain = smoothed(up, 14);
    const Values loss = smoothed(down, 14);
    Values expected;
    for (size_t i = 0; i < bars.size(); ++i)
        expected.push_back(100 - 100 / (1 + gain[i] / loss[i]));
    expectLine(indicator("RSI", base), 1, expected, 1e-6);
}

// The worked example that goes with the definition of the index: closes of a stock, length 14.
TEST_F(IndicatorValues, RelativeStrengthOfAKnownSeries) {
    const float closes[] = {44.34f, 44.09f, 44.15f, 43.61f, 44.33f, 44.83f, 45.10f,
                            45.42f, 45.84f, 46.08f, 45.89f, 46.03f, 45.61f, 46.28f,
                            46.28f, 46.00f, 46.03f, 46.41f, 46.22f, 45.64f, 46.21f};
    std::vector<Bar> series;
    for (const float close : closes)
        series.push_back(
            {utc("2012-01-30 00:00:00") + int(series.size()) * 300, close, close, close, close, 1});
    give("STOCK", series, {'I', 5}, Side::Bid, 2);
    const Handle rsi = indicator("RSI", instrument("STOCK", "Bid", {'I', 5}));
    const std::vector<corePointValue> held = points<corePointValue>(arrays(rsi)[0]);
    const double published[] = {70.46, 66.25, 66.48, 69.35, 66.29, 57.92, 62.88};
    ASSERT_EQ(held.size(), std::size(published));
    for (size_t i = 0; i < held.size(); ++i)
        EXPECT_NEAR(held[i].value, published[i], 0.01) << i;
}

TEST_F(IndicatorValues, Stochastic) {
    Values raw(bars.size(), none);
    for (int i = 13; i < int(bars.size()); ++i) {
        const double high = extreme(bars, i, 14, true);
        const double low = extreme(bars, i, 14, false);
        raw[size_t(i)] = 100 * (double(bars[size_t(i)].close) - low) / (high - low);
    }
    const Values tail(raw.begin() + 13, raw.end());
    Values main = simple(tail, 3);
    const Values mainTail(main.begin() + 2, main.end());
    Values signal = simple(mainTail, 3);
    main.insert(main.begin(), 13, none);
    signal.insert(signal.begin(), 15, none);
    const Handle stochastic = indicator("Stochastic", base);
    expectLine(stochastic, 1, main, 1e-6);
    expectLine(stochastic, 2, signal, 1e-6);
}

TEST_F(IndicatorValues, AverageTrueRange) {
    Values range;
    for (size_t i = 0; i < bars.size(); ++i) {
        const double before = i > 0 ? double(bars[i - 1].close) : double(bars[i].low);
        const double top = i > 0 ? std::max(double(bars[i].high), before) : double(bars[i].high);
        const double bottom = i > 0 ? std::min(double(bars[i].low), before) : double(bars[i].low);
        range.push_back(top - bottom);
    }
    expectLine(indicator("ATR", base), 1, smoothed(range, 14));
}

TEST_F(IndicatorValues, CommodityChannel) {
    Values typical;
    for (const Bar &bar : bars)
        typical.push_back((double(bar.high) + double(bar.low) + double(bar.close)) / 3);
    const Values mean = simple(typical, 14);
    Values expected(bars.size(), none);
    for (size_t i = 13; i < bars.size(); ++i) {
        double away = 0;
        for (size_t k = i - 13; k <= i; ++k)
            away += std::fabs(typical[k] - mean[i]) / 14;
        expected[i] = (typical[i] - mean[i]) / 0.015 / away;
    }
    expectLine(indicator("CCI", base), 1, expected, 1e-5);
}

TEST_F(IndicatorValues, MomentumAndVolume) {
    Values expected(bars.size(), none);
    for (size_t i = 14; i < bars.size(); ++i)
        expected[i] = double(bars[i].close) / double(bars[i - 14].close) * 100;
    expectLine(indicator("Momentum", base), 1, expected);
    expectLine(indicator("Volume", base), 1, column(bars, &Bar::volume));
}

// The stop as a machine of two sides, in doubles.
TEST_F(IndicatorValues, ParabolicStop) {
    Values expected(bars.size(), none);
    const auto high = [this](size_t i) { return double(bars[i].high); };
    const auto low = [this](size_t i) { return double(bars[i].low); };
    bool rising = high(1) + low(1) >= high(0) + low(0);
    double stop = rising ? low(0) : high(0);
    double best = rising ? std::max(high(0), high(1)) : std::min(low(0), low(1));
    double speed = 0.02;
    expected[1] = stop;
    for (size_t i = 2; i < bars.size(); ++i) {
        stop += speed * (best - stop);
        if (rising)
            stop = std::min({stop, low(i - 1), low(i - 2)});
        else
            stop = std::max({stop, high(i - 1), high(i - 2)});
        if (rising && low(i) < stop) {
            rising = false, stop = best, best = low(i), speed = 0.02;
        } else if (!rising && high(i) > stop) {
            rising = true, stop = best, best = high(i), speed = 0.02;
        } else if (rising && high(i) > best) {
            best = high(i), speed = std::min(0.2, speed + 0.02);
        } else if (!rising && low(i) < best) {
            best = low(i), speed = std::min(0.2, speed + 0.02);
        }
        expected[i] = stop;
    }
    expectLine(indicator("SAR", base), 1, expected, 1e-6);
}

TEST_F(IndicatorValues, OstrelChannel) {
    Values high(bars.size(), none);
    Values low(bars.size(), none);
    Values middle(bars.size(), none);
    for (int i = 19; i < int(bars.size()); ++i) {
        high[size_t(i)] = extreme(bars, i, 20, true);
        low[size_t(i)] = extreme(bars, i, 20, false);
        middle[size_t(i)] = (high[size_t(i)] + low[size_t(i)]) / 2;
    }
    const Handle channel = indicator("OstrelChannel", base);
    expectLine(channel, 1, high);
    expectLine(channel, 2, middle);
    expectLine(channel, 3, low);
}

TEST_F(IndicatorValues, Fractals) {
    const Handle fractals = indicator("Fractals", base);
    const std::vector<corePointMark> held = points<corePointMark>(arrays(fractals)[0]);
    size_t place = 0;
    for (size_t i = 2; i + 2 < bars.size(); ++i) {
        const float high = bars[i].high;
        const float low = bars[i].low;
        const bool top = bars[i - 2].high < high && bars[i - 1].high < high && bars[i + 1].high <= high &&
                         bars[i + 2].high <= high;
        const bool bottom = bars[i - 2].low > low && bars[i - 1].low > low && bars[i + 1].low >= low &&
                            bars[i + 2].low >= low;
        if (!top && !bottom)
            continue;
        ASSERT_LT(place, held.size());
        const corePointMark mark = held[place++];
        EXPECT_EQ(int(mark.time), bars[i].time);
        EXPECT_EQ(float(mark.high), bars[i].high);
        EXPECT_EQ(float(mark.low), bars[i].low);
        EXPECT_EQ(int(mark.sign), top && bottom ? 3 : top ? 1 : 2);
    }
    EXPECT_EQ(place, held.size());
    EXPECT_GT(place, 20u);
}

TEST_F(IndicatorValues, SumOfFrancAndEuroInDollars) {
    std::vector<Bar> francs = walk(400, 12);
    francs.erase(francs.begin() + 100, francs.begin() + 110); // a gap keeps the last price
    francs.erase(francs.begin());
    give("USD/CHF", francs);
    const Handle sum = indicator("CHF+EUR", 0);
    ASSERT_NE(sum, 0u);
    const std::vector<corePointValue> held = points<corePointValue>(arrays(sum)[0]);
    ASSERT_EQ(+arrays(sum)[0]->identity.m_periods.lenPeriod, 5) << "it stands beside a chart of five minutes";
    ASSERT_EQ(held.size(), bars.size() - 1);
    for (size_t i = 0; i < held.size(); ++i) {
        ASSERT_EQ(held[i].time, bars[i + 1].time);
        double franc = 0;
        for (const Bar &bar : francs) {
            if (bar.time <= held[i].time)
                franc = double(bar.close);
        }
        ASSERT_NEAR(held[i].value, double(bars[i + 1].close) + 1 / franc, 2e-6) << i;
    }
}

TEST_F(IndicatorValues, SumWithoutItsQuotesIsRefused) {
    EXPECT_EQ(demandIndicator("CHF+EUR"), 0u);
    EXPECT_TRUE(front.sentences.last().contains(QStringLiteral("USD/CHF")));
}

TEST_F(IndicatorValues, AverageOfAnIndicator) {
    const Handle macd = indicator("MACD", base);
    const Handle ma = indicator("MA", macd, 2);
    const Values signal = exponential(difference(exponential(closes(), 12), exponential(closes(), 26)), 9);
    const Values tail(signal.begin() + 33, signal.end());
    Values expected = simple(tail, 14);
    expected.insert(expected.begin(), 33, none);
    expectLine(ma, 1, expected, 2e-7);
    EXPECT_EQ(word(ToHost::OwnerLineNumber, ma), 2u);
    EXPECT_EQ(word(ToHost::BaseObject, ma), base);
}

// ---- quote by quote equals all at once ----

class EveryIndicator : public IndicatorValues, public testing::WithParamInterface<const char *> {};

bool sameBytes(const mvDataPointArray *a, const mvDataPointArray *b) {
    return a->count == b->count &&
           (a->count == 0 || std::memcmp(a->data, b->data, size_t(a->count) * a->recordSize) == 0);
}

TEST_P(EveryIndicator, QuoteByQuoteEqualsAllAtOnce) {
    give("USD/CHF", walk(400, 12));
    const Handle living = indicator(GetParam(), base);
    ASSERT_NE(living, 0u);
    const Handle above =
        arrays(living)[0]->recordSize == sizeof(corePointValue) ? indicator("MA", living) : 0;
    std::mt19937 random(3);
    qint32 time = bars.back().time;
    float price = bars.back().close;
    for (int i = 0; i < 300; ++i) {
        time += qint32(random() % 200);
        price += float(int(random() % 201) - 100) * 2e-5f;
        ASSERT_TRUE(quote("EUR/USD", time, price));
        quote("USD/CHF", time + qint32(random() % 3), 2.2f - price);
        // A twin that is computed anew must not differ.
        if (i % 50 != 49)
            continue;
        const Handle twin = indicator(GetParam(), base);
        for (size_t line = 0; line < arrays(living).size(); ++line)
            ASSERT_TRUE(sameBytes(arrays(living)[line], arrays(twin)[line]))
                << GetParam() << " line " << line << " after " << i;
        if (above != 0) {
            const Handle twinAbove = indicator("MA", twin);
            ASSERT_TRUE(sameBytes(arrays(above)[0], arrays(twinAbove)[0]))
                << "average of " << GetParam() << " after " << i;
        }
    }
}

std::vector<const char *> everyName() {
    std::vector<const char *> names;
    for (const FormulaKind &kind : formulaKinds())
        names.push_back(kind.name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, EveryIndicator, testing::ValuesIn(everyName()), [](const auto &info) {
    std::string name = info.param;
    name.erase(std::remove(name.begin(), name.end(), '+'), name.end());
    return name;
});

// A quote on ten indicators of a long series costs what it costs on a short one.
TEST_F(IndicatorValues, QuoteCostsTheSameOnALongSeries) {
    const auto nanoseconds = [this](const char *symbol, int count) {
        const std::vector<Bar> series = walk(count);
        give(symbol, series);
        const Handle instrumentHandle = instrument(symbol, "Bid", {'I', 5});
        sendTo(candles->interfaceHandle(), ToHost::OlderData, int(instrumentHandle), 2000000000);
        EXPECT_EQ(+arrays(instrumentHandle)[0]->count, count);
        for (const char *name :
             {"MA", "Bollinger", "MACD", "Ichimoku", "RSI", "Stochastic", "ATR", "CCI", "SAR", "Fractals"})
            EXPECT_NE(indicator(name, instrumentHandle), 0u);
        std::vector<qint64> rounds;
        for (int i = 0; i < 200; ++i) {
            QElapsedTimer clock;
            clock.start();
            quote(symbol, series.back().time + i, 1.3f);
            rounds.push_back(clock.nsecsElapsed());
        }
        std::nth_element(rounds.begin(), rounds.begin() + 100, rounds.end());
        return rounds[100];
    };
    const qint64 shortSeries = nanoseconds("AUD/USD", 1000);
    const qint64 longSeries = nanoseconds("GBP/USD", 200000);
    EXPECT_LT(longSeries, shortSeries * 5 + 50000) << "short " << shortSeries << " long " << longSeries;
}

} // namespace
