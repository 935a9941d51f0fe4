// Averages, clouds, dots and channels over the price.
#include "host/indicators/Average.h"
#include "host/indicators/Formulas.h"
#include <algorithm>
#include <cmath>
#include <limits>

namespace desk {

namespace {

const double none = std::numeric_limits<double>::quiet_NaN();

double highest(const SourceView &source, int index, int length) {
    double value = source.high(index);
    for (int i = 1; i < length; ++i)
        value = std::max(value, source.high(index - i));
    return value;
}

double lowest(const SourceView &source, int index, int length) {
    double value = source.low(index);
    for (int i = 1; i < length; ++i)
        value = std::min(value, source.low(index - i));
    return value;
}

double middle(const SourceView &source, int index, int length) {
    return index < length - 1 ? none : (highest(source, index, length) + lowest(source, index, length)) / 2;
}

class MovingAverage : public Formula {
public:
    MovingAverage() {
        m_length = addInt(QObject::tr("Length"), 14, 1, 1000);
        m_method = addList(QObject::tr("Method"),
                           {QObject::tr("Simple"), QObject::tr("Exponential"), QObject::tr("Smoothed"),
                            QObject::tr("Weighted")},
                           0);
        m_shift = addInt(QObject::tr("Shift"), 0, -100, 100, false);
        m_price = addPrice();
        MovingAverage::reset();
    }
    std::vector<LineLook> lines() const override {
        LineLook line;
        line.name = QStringLiteral("MA (%1)").arg(arguments());
        line.colour = 0xffe08a00;
        line.shift = intOf(m_shift);
        return {line};
    }
    void reset() override { m_average = Average(AverageMethod(intOf(m_method)), intOf(m_length)); }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        m_average.truncate(from);
        for (int i = from; i < sources[0].count(); ++i)
            lines[0]->add(m_average.add(sources[0].price(i, Price(intOf(m_price)))));
    }

private:
    int m_length, m_method, m_shift, m_price;
    Average m_average;
};

class Ichimoku : public Formula {
public:
    Ichimoku() {
        m_tenkan = addInt(QObject::tr("Tenkan-sen"), 9, 1, 500);
        m_kijun = addInt(QObject::tr("Kijun-sen"), 26, 1, 500);
        m_senkou = addInt(QObject::tr("Senkou span B"), 52, 1, 500);
        m_chikou = addSwitch(QObject::tr("Chikou span"), true);
    }
    std::vector<LineLook> lines() const override {
        std::vector<LineLook> lines(5);
        const char *const names[] = {"Tenkan-sen", "Kijun-sen", "Senkou span A", "Senkou span B",
                                     "Chikou span"};
        const quint32 colours[] = {0xffc03030, 0xff3050b0, 0xffb5dcbd, 0xfff0cdb2, 0xff808080};
        for (size_t i = 0; i < lines.size(); ++i) {
            lines[i].name = QStringLiteral("Ichimoku ") + QLatin1String(names[i]);
            lines[i].colour = colours[i];
        }
        lines[2].shift = lines[3].shift = intOf(m_kijun);
        lines[4].shift = -intOf(m_kijun);
        lines[4].present = switchOf(m_chikou);
        return lines;
    }
    void reset() override {}
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        for (int i = from; i < source.count(); ++i) {
            const double tenkan = middle(source, i, intOf(m_tenkan));
            const double kijun = middle(source, i, intOf(m_kijun));
            lines[0]->add(tenkan);
            lines[1]->add(kijun);
            lines[2]->add((tenkan + kijun) / 2);
            lines[3]->add(middle(source, i, intOf(m_senkou)));
            lines[4]->add(source.close(i));
        }
    }
    std::vector<LineJoin> joins() const override { return {{2, 3, true, 2}}; }

private:
    int m_tenkan, m_kijun, m_senkou, m_chikou;
};

class ParabolicSar : public Formula {
public:
    ParabolicSar() {
        m_step = addDouble(QObject::tr("Step"), 0.02, 0.001, 1, 3);
        m_limit = addDouble(QObject::tr("Limit"), 0.2, 0.01, 1, 2);
    }
    std::vector<LineLook> lines() const override {
        LineLook line;
        line.name = QStringLiteral("SAR (%1)").arg(arguments());
        line.style = LineStyle::Dots;
        line.colour = 0xff8a4fc0;
        return {line};
    }
    void reset() override { m_states.clear(); }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        m_states.resize(std::min(m_states.size(), size_t(from)));
        for (int i = from; i < source.count(); ++i) {
            m_states.push_back(i < 2 ? begin(source, i) : next(source, i));
            lines[0]->add(i < 1 ? none : double(m_states.back().stop));
        }
    }

private:
    struct State {
        float stop = 0;
        float extreme = 0; // highest high, or lowest low, of the present move
        float speed = 0;
        bool rising = true;
    };

    State begin(const SourceView &source, int i) const {
        State state;
        if (i == 0)
            return state;
        state.rising = source.high(1) + source.low(1) >= source.high(0) + source.low(0);
        state.stop = float(state.rising ? source.low(0) : source.high(0));
        state.extreme = float(state.rising ? highest(source, 1, 2) : lowest(source, 1, 2));
        state.speed = float(doubleOf(m_step));
        return state;
    }

    State next(const SourceView &source, int i) const {
        State state = m_states.back();
        const double stop =
            double(state.stop) + double(state.speed) * (double(state.extreme) - double(state.stop));
        // The stop keeps out of the two bars before.
        state.stop = float(state.rising ? std::min(stop, lowest(source, i - 1, 2))
                                        : std::max(stop, highest(source, i - 1, 2)));
        const bool broken =
            state.rising ? source.low(i) < double(state.stop) : source.high(i) > double(state.stop);
        if (broken) {
            state.rising = !state.rising;
            state.stop = state.extreme;
            state.extreme = float(state.rising ? source.high(i) : source.low(i));
            state.speed = float(doubleOf(m_step));
            return state;
        }
        const double extreme = state.rising ? source.high(i) : source.low(i);
        if (state.rising ? extreme > double(state.extreme) : extreme < double(state.extreme)) {
            state.extreme = float(extreme);
            state.speed = float(std::min(double(state.speed) + doubleOf(m_step), doubleOf(m_limit)));
        }
        return state;
    }

    int m_step, m_limit;
    std::vector<State> m_states;
};

class Bollinger : public Formula {
public:
    Bollinger() {
        m_length = addInt(QObject::tr("Length"), 20, 2, 1000);
        m_width = addDouble(QObject::tr("Deviations"), 2, 0.1, 10, 1);
        m_price = addPrice();
        m_middle = addSwitch(QObject::tr("Middle line"), true);
    }
    std::vector<LineLook> lines() const override {
        std::vector<LineLook> lines(3);
        const char *const names[] = {"Middle", "Upper", "Lower"};
        for (size_t i = 0; i < lines.size(); ++i) {
            lines[i].name = QStringLiteral("Bollinger %1 (%2)").arg(QLatin1String(names[i]), arguments());
            // The first line also colours the title; the others are pale, as the area between them is filled.
            lines[i].colour = i == 0 ? 0xff2f7f9f : 0xffbfdce6;
        }
        lines[0].present = switchOf(m_middle);
        return lines;
    }
    void reset() override {}
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        const Price price = Price(intOf(m_price));
        const int length = intOf(m_length);
        for (int i = from; i < source.count(); ++i) {
            if (i < length - 1) {
                for (OutputLine *line : lines)
                    line->add(none);
                continue;
            }
            double sum = 0;
            for (int back = 0; back < length; ++back)
                sum += source.price(i - back, price);
            const double mean = sum / length;
            double squares = 0;
            for (int back = 0; back < length; ++back) {
                const double away = source.price(i - back, price) - mean;
                squares += away * away;
            }
            const double width = doubleOf(m_width) * std::sqrt(squares / length);
            lines[0]->add(mean);
            lines[1]->add(mean + width);
            lines[2]->add(mean - width);
        }
    }
    std::vector<LineJoin> joins() const override { return {{1, 2, true, 0}}; }

private:
    int m_length, m_width, m_price, m_middle;
};

class OstrelChannel : public Formula {
public:
    OstrelChannel() {
        m_length = addInt(QObject::tr("Length"), 20, 1, 1000);
        m_middle = addSwitch(QObject::tr("Middle line"), true);
    }
    std::vector<LineLook> lines() const override {
        std::vector<LineLook> lines(3);
        const char *const names[] = {"High", "Middle", "Low"};
        const quint32 colours[] = {0xff2f9f6f, 0xff9f9f9f, 0xffc0503f};
        for (size_t i = 0; i < lines.size(); ++i) {
            lines[i].name = QStringLiteral("OstrelChannel %1 (%2)").arg(QLatin1String(names[i]), arguments());
            lines[i].colour = colours[i];
        }
        lines[1].present = switchOf(m_middle);
        lines[1].penType = 3;
        return lines;
    }
    void reset() override {}
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        const int length = intOf(m_length);
        for (int i = from; i < source.count(); ++i) {
            const bool known = i >= length - 1;
            const double high = known ? highest(source, i, length) : none;
            const double low = known ? lowest(source, i, length) : none;
            lines[0]->add(high);
            lines[1]->add((high + low) / 2);
            lines[2]->add(low);
        }
    }

private:
    int m_length, m_middle;
};

// A bar whose high stands above the two before it and is not reached by the two behind it, or whose low does
// so downwards. Of equal bars in a row the first one counts.
class Fractals : public Formula {
public:
    std::vector<LineLook> lines() const override {
        LineLook line;
        line.name = QStringLiteral("Fractals");
        line.style = LineStyle::Marks;
        line.colour = topColour;
        line.downColour = bottomColour;
        line.weight = 2;
        return {line};
    }
    void reset() override {}
    int reach() const override { return wing; }
    void compute(const Sources &sources, int from, const Lines &lines) override {
        const SourceView &source = sources[0];
        for (int i = std::max(wing, from); i + wing < source.count(); ++i) {
            bool top = true;
            bool bottom = true;
            for (int away = 1; away <= wing; ++away) {
                top =
                    top && source.high(i) > source.high(i - away) && source.high(i) >= source.high(i + away);
                bottom =
                    bottom && source.low(i) < source.low(i - away) && source.low(i) <= source.low(i + away);
            }
            if (top || bottom)
                lines[0]->addMark(i, float(source.high(i)), float(source.low(i)),
                                  static_cast<unsigned char>((top ? 1 : 0) + (bottom ? 2 : 0)),
                                  top ? topColour : bottomColour);
        }
    }

private:
    static constexpr int wing = 2;
    static constexpr quint32 topColour = 0xff2f7f4f;
    static constexpr quint32 bottomColour = 0xffb0403f;
};

} // namespace

std::unique_ptr<Formula> makeMovingAverage() {
    return std::make_unique<MovingAverage>();
}

std::unique_ptr<Formula> makeIchimoku() {
    return std::make_unique<Ichimoku>();
}

std::unique_ptr<Formula> makeParabolicSar() {
    return std::make_unique<ParabolicSar>();
}

std::unique_ptr<Formula> makeBollinger() {
    return std::make_unique<Bollinger>();
}

std::unique_ptr<Formula> makeOstrelChannel() {
    return std::make_unique<OstrelChannel>();
}

std::unique_ptr<Formula> makeFractals() {
    return std::make_unique<Fractals>();
}

} // namespace desk
