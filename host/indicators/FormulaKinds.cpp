#include "host/indicators/Formulas.h"
#include <algorithm>

namespace desk {

const std::vector<FormulaKind> &formulaKinds() {
    static const std::vector<FormulaKind> kinds = {
        {"MA", QT_TRANSLATE_NOOP("desk", "Moving Average"), Category::Trend, true, makeMovingAverage},
        {"Ichimoku", QT_TRANSLATE_NOOP("desk", "Ichimoku"), Category::Trend, true, makeIchimoku},
        {"SAR", QT_TRANSLATE_NOOP("desk", "Parabolic SAR"), Category::Trend, true, makeParabolicSar},
        {"MACD", QT_TRANSLATE_NOOP("desk", "MACD"), Category::Oscillator, true, makeMacd},
        {"RSI", QT_TRANSLATE_NOOP("desk", "Relative Strength Index"), Category::Oscillator, true, makeRsi},
        {"Stochastic", QT_TRANSLATE_NOOP("desk", "Stochastic Oscillator"), Category::Oscillator, true,
         makeStochastic},
        {"CCI", QT_TRANSLATE_NOOP("desk", "Commodity Channel Index"), Category::Oscillator, true,
         makeCommodityChannel},
        {"Momentum", QT_TRANSLATE_NOOP("desk", "Momentum"), Category::Oscillator, true, makeMomentum},
        {"Bollinger", QT_TRANSLATE_NOOP("desk", "Bollinger Bands"), Category::Volatility, true,
         makeBollinger},
        {"ATR", QT_TRANSLATE_NOOP("desk", "Average True Range"), Category::Volatility, true,
         makeAverageTrueRange},
        {"Fractals", QT_TRANSLATE_NOOP("desk", "Fractals"), Category::Other, true, makeFractals},
        {"Volume", QT_TRANSLATE_NOOP("desk", "Volume"), Category::Other, true, makeVolume},
        {"CHF+EUR", QT_TRANSLATE_NOOP("desk", "Franc and Euro in Dollars"), Category::Other, false,
         makePairSum},
        {"OstrelChannel", QT_TRANSLATE_NOOP("desk", "Ostrel Channel"), Category::Ostrel, true,
         makeOstrelChannel},
    };
    return kinds;
}

const FormulaKind *findFormulaKind(const QString &name) {
    const QString word = name.section(QLatin1Char(' '), 0, 0);
    for (const FormulaKind &kind : formulaKinds()) {
        if (name == QLatin1String(kind.name) || name == QLatin1String(kind.displayName) ||
            word == QLatin1String(kind.name))
            return &kind;
    }
    return nullptr;
}

} // namespace desk
