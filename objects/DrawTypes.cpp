#include "objects/DrawTypes.h"

namespace {

struct KindRow {
    Word drawKind;
    PRIMITIVE_TYPES type;
};

constexpr KindRow instrumentKinds[] = {
    {1, PT_CANDLE},     {2, PT_BAR},  {3, PT_CLOSE_LINE}, {5, PT_WIDE_CANDLE},
    {7, PT_CLOSE_DOTS}, {8, PT_DOTS}, {10, PT_PATTERN},
};

// By the line show type of the array.
constexpr PRIMITIVE_TYPES outputStyles[] = {PT_LINE, PT_HISTOGRAM, PT_CLOSE_DOTS, PT_MARKS, PT_MARKS};

constexpr Word marksKind = 6;

} // namespace

int instrumentDrawType(const mvDataPointArray &array) {
    if (isTickPeriod(array.identity.m_periods))
        return PT_TICK_LINE;
    for (const KindRow &row : instrumentKinds)
        if (row.drawKind == array.typeShow.drawKind)
            return row.type;
    return -1;
}

PRIMITIVE_TYPES outputDrawType(const mvDataPointArray &array) {
    if (array.typeShow.drawKind == marksKind)
        return PT_MARKS;
    const int style = array.typeShow.lineShowType;
    const int styles = static_cast<int>(sizeof outputStyles / sizeof outputStyles[0]);
    return style >= 0 && style < styles ? outputStyles[style] : PT_LINE;
}

bool isInstrumentType(PRIMITIVE_TYPES type) {
    return type == PT_CLOSE_DOTS || type == PT_CLOSE_LINE || type == PT_CANDLE || type == PT_BAR ||
           type == PT_WIDE_CANDLE;
}

bool isTickPeriod(const namePeriod &period) {
    return period.period == 'I' && period.lenPeriod == 0;
}

bool samePeriod(const namePeriod &a, const namePeriod &b) {
    return a.period == b.period && a.lenPeriod == b.lenPeriod;
}
