// Indicators with a scale of their own, below the price.
#include "host/indicators/Average.h"
#include "host/indicators/Formulas.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace desk {

namespace {

const double none = std::numeric_limits<double>::quiet_NaN();

// Everything here stands in a pane of its own.
class PaneFormula : public Formula {
public:
    Placement placement() const override { return Placement::OwnPane; }
    void reset() override {}

protected:
    static LevelLine levelsOf(int line, std::vector<float> levels) {
        return {line, 0xff909090, std::move(levels)};
    }
    static LineLook line(const QString &name, quint32 colour, int precision = -1) {
        LineLook look;
        look.name = name;
        look.colour = colour;
        look.precision = precision;
        return look;
    }
};

class Macd : public PaneFormula {
public:
    Macd() {
        m_fast = addInt(QObject::tr("Fast length"), 12, 1, 500);
        m_slow = addInt(QObject::tr("Slow length"), 26, 1, 500);
        m_signal = addInt(QObject::tr("Signal length"), 9, 1, 500);
        m_price = addPrice();
        m_histogram = addSwitch(QObject::tr("Histogram"), true);
        Macd::reset();
    }
    std::vector<LineLook> lines() const override {
        std::vector<LineLook> lines = {line(QStringLiteral("MACD (%1)").arg(arguments()), 0xff2f6fd0),
                                       line(QStringLiteral("MACD Signal"), 0xffd07a2f),
                                       line(QStringLiteral("MACD Histogram"), 0xff8fa8b8)};
        lines[2].style = LineStyle::Histogram;
        lines[2].weight = 2;
        lines[2].present = switchOf(m_histogram);
        return lines;
    }
    void reset() override {
        m_fastAverage = Average(AverageMethod::Exponential, intOf(m_fast));
        m_slowAverage = Average(AverageMethod::Exponential, intOf(m_slow));
        m_signalAverage = Average(AverageMethod::Exponential, intOf(m_signal));
    }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const int begin = std::max(intOf(m_fast), intOf(m_slow)) - 1; // first point with a difference
        m_fastAverage.truncate(from);
        m_slowAverage.truncate(from);
        m_signalAverage.truncate(std::max(0, from - begin));
        for (int i = from; i < sources[0].count(); ++i) {
            const double price = sources[0].price(i, Price(intOf(m_price)));
            const double fast = m_fastAverage.add(price);
            const double slow = m_slowAverage.add(price);
            const double difference = fast - slow;
            const double signal = i < begin ? none : m_signalAverage.add(difference);
            lines[0]->add(difference);
            lines[1]->add(signal);
            lines[2]->add(difference - signal);
        }
    }
    LevelLine levels() const override { return levelsOf(1, {0}); }

private:
    int m_fast, m_slow, m_signal, m_price, m_histogram;
    Average m_fastAverage, m_slowAverage, m_signalAverage;
};

class Rsi : public PaneFormula {
public:
    Rsi() {
        m_length = addInt(QObject::tr("Length"), 14, 1, 500);
        m_price = addPrice();
        Rsi::reset();
    }
    std::vector<LineLook> lines() const override {
        return {line(QStringLiteral("RSI (%1)").arg(arguments()), 0xff7f4fc0, 2)};
    }
    void reset() override {
        m_gains = Average(AverageMethod::Smoothed, intOf(m_length));
        m_losses = Average(AverageMethod::Smoothed, intOf(m_length));
    }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const Price price = Price(intOf(m_price));
        m_gains.truncate(std::max(0, from - 1)); // changes begin with the second point
        m_losses.truncate(std::max(0, from - 1));
        for (int i = from; i < sources[0].count(); ++i) {
            if (i == 0) {
                lines[0]->add(none);
                continue;
            }
            const double change = sources[0].price(i, price) - sources[0].price(i - 1, price);
            const double gain = m_gains.add(std::max(0.0, change));
            const double loss = m_losses.add(std::max(0.0, -change));
            lines[0]->add(gain + loss == 0 ? 50 : 100 * gain / (gain + loss));
        }
    }
    LevelLine levels() const override { return levelsOf(1, {30, 70}); }

private:
    int m_length, m_price;
    Average m_gains, m_losses;
};

class Stochastic : public PaneFormula {
public:
    Stochastic() {
        m_length = addInt(QObject::tr("%K length"), 14, 1, 500);
        m_slowing = addInt(QObject::tr("Slowing"), 3, 1, 100);
        m_signal = addInt(QObject::tr("%D length"), 3, 1, 100);
        Stochastic::reset();
    }
    std::vector<LineLook> lines() const override {
        return {line(QStringLiteral("Stochastic %K (%1)").arg(arguments()), 0xff2f6fd0, 2),
                line(QStringLiteral("Stochastic %D"), 0xffd0453f, 2)};
    }
    void reset() override {
        m_main = Average(AverageMethod::Simple, intOf(m_slowing));
        m_average = Average(AverageMethod::Simple, intOf(m_signal));
    }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        const int length = intOf(m_length);
        const int begin = length - 1;
        const int smooth = begin + intOf(m_slowing) - 1;
        m_main.truncate(std::max(0, from - begin));
        m_average.truncate(std::max(0, from - smooth));
        for (int i = from; i < source.count(); ++i) {
            double main = none;
            if (i >= begin) {
                double high = source.high(i);
                double low = source.low(i);
                for (int back = 1; back < length; ++back) {
                    high = std::max(high, source.high(i - back));
                    low = std::min(low, source.low(i - back));
                }
                main = m_main.add(high > low ? 100 * (source.close(i) - low) / (high - low) : 50);
            }
            lines[0]->add(main);
            lines[1]->add(i >= smooth ? m_average.add(main) : none);
        }
    }
    LevelLine levels() const override { return levelsOf(1, {20, 80}); }

private:
    int m_length, m_slowing, m_signal;
    Average m_main, m_average;
};

class AverageTrueRange : public PaneFormula {
public:
    AverageTrueRange() {
        m_length = addInt(QObject::tr("Length"), 14, 1, 500);
        AverageTrueRange::reset();
    }
    std::vector<LineLook> lines() const override {
        return {line(QStringLiteral("ATR (%1)").arg(arguments()), 0xff2f8f8f)};
    }
    void reset() override { m_average = Average(AverageMethod::Smoothed, intOf(m_length)); }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        m_average.truncate(from);
        for (int i = from; i < source.count(); ++i) {
            double range = source.high(i) - source.low(i);
            if (i > 0) {
                const double before = source.close(i - 1);
                range =
                    std::max({range, std::fabs(source.high(i) - before), std::fabs(source.low(i) - before)});
            }
            lines[0]->add(m_average.add(range));
        }
    }

private:
    int m_length;
    Average m_average;
};

class CommodityChannel : public PaneFormula {
public:
    CommodityChannel() { m_length = addInt(QObject::tr("Length"), 14, 2, 500); }
    std::vector<LineLook> lines() const override {
        return {line(QStringLiteral("CCI (%1)").arg(arguments()), 0xffb0782f, 1)};
    }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        const int length = intOf(m_length);
        for (int i = from; i < source.count(); ++i) {
            if (i < length - 1) {
                lines[0]->add(none);
                continue;
            }
            double sum = 0;
            for (int back = 0; back < length; ++back)
                sum += source.price(i - back, Price::Typical);
            const double mean = sum / length;
            double away = 0;
            for (int back = 0; back < length; ++back)
                away += std::fabs(source.price(i - back, Price::Typical) - mean);
            away /= length;
            lines[0]->add(away > 0 ? (source.price(i, Price::Typical) - mean) / (0.015 * away) : 0);
        }
    }
    LevelLine levels() const override { return levelsOf(1, {-100, 100}); }

private:
    int m_length;
};

class Momentum : public PaneFormula {
public:
    Momentum() {
        m_length = addInt(QObject::tr("Length"), 14, 1, 500);
        m_price = addPrice();
    }
    std::vector<LineLook> lines() const override {
        return {line(QStringLiteral("Momentum (%1)").arg(arguments()), 0xff4f7fb0, 3)};
    }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const Price price = Price(intOf(m_price));
        const int length = intOf(m_length);
        for (int i = from; i < sources[0].count(); ++i)
            lines[0]->add(
                i < length ? none : 100 * sources[0].price(i, price) / sources[0].price(i - length, price));
    }
    LevelLine levels() const override { return levelsOf(1, {100}); }

private:
    int m_length, m_price;
};

class Volume : public PaneFormula {
public:
    std::vector<LineLook> lines() const override {
        LineLook look = line(QStringLiteral("Volume"), 0xff6f8fa8, 0);
        look.style = LineStyle::Histogram;
        look.weight = 2;
        return {look};
    }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        for (int i = from; i < sources[0].count(); ++i)
            lines[0]->add(sources[0].volume(i));
    }
};

// What one franc and one euro cost together, in dollars.
class PairSum : public PaneFormula {
public:
    std::vector<LineLook> lines() const override { return {line(QStringLiteral("CHF+EUR"), 0xff9f5f2f, 5)}; }
    QStringList symbols() const override { return {QStringLiteral("EUR/USD"), QStringLiteral("USD/CHF")}; }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &euro = sources[0];
        const SourceView &franc = sources[1];
        int other = from < euro.count() ? franc.indexOf(euro.time(from)) : 0;
        for (int i = from; i < euro.count(); ++i) {
            while (other < franc.count() && franc.time(other) <= euro.time(i))
                ++other;
            lines[0]->add(other == 0 ? none : euro.close(i) + 1 / franc.close(other - 1));
        }
    }
};

} // namespace

std::unique_ptr<Formula> makeMacd() {
    return std::make_unique<Macd>();
}

std::unique_ptr<Formula> makeRsi() {
    return std::make_unique<Rsi>();
}

std::unique_ptr<Formula> makeStochastic() {
    return std::make_unique<Stochastic>();
}

std::unique_ptr<Formula> makeAverageTrueRange() {
    return std::make_unique<AverageTrueRange>();
}

std::unique_ptr<Formula> makeCommodityChannel() {
    return std::make_unique<CommodityChannel>();
}

std::unique_ptr<Formula> makeMomentum() {
    return std::make_unique<Momentum>();
}

std::unique_ptr<Formula> makeVolume() {
    return std::make_unique<Volume>();
}

std::unique_ptr<Formula> makePairSum() {
    return std::make_unique<PairSum>();
}

} // namespace desk
