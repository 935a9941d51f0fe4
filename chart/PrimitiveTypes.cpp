#include "chart/PrimitiveTypes.h"

namespace {

constexpr PrimitiveTypeRow rows[] = {
    {"VALUE", "VALUE", ValueSource::FirstField, false}, // line
    {"CLOSE", "CLOSE", ValueSource::Close, true},       // dots on close
    {"VALUE", "VALUE", ValueSource::FirstField, false}, // histogram
    {"CLOSE", "CLOSE", ValueSource::Close, true},       // line through closes
    {"VALUE", "VALUE", ValueSource::FirstField, false}, // tick line
    {"HIGH", "LOW", ValueSource::Close, true},          // candle
    {"HIGH", "LOW", ValueSource::Close, true},          // bar
    {"HIGH", "LOW", ValueSource::Close, true},          // wide candle
    {"HIGH", "LOW", ValueSource::High, false},          // marks
    {"VALUE", "VALUE", ValueSource::FirstField, false}, // dots on values
    {"VALUE", "VALUE", ValueSource::FirstField, false}, // pattern
};

struct KindRow {
    Word drawKind;
    int lineShowType; // -1: any
    PRIMITIVE_TYPES type;
};

constexpr KindRow kinds[] = {
    {1, -1, PT_CANDLE},     {2, -1, PT_BAR},       {3, -1, PT_CLOSE_LINE},  {4, 0, PT_LINE},
    {4, 1, PT_HISTOGRAM},   {4, 2, PT_CLOSE_DOTS}, {5, -1, PT_WIDE_CANDLE}, {6, -1, PT_MARKS},
    {7, -1, PT_CLOSE_DOTS}, {8, -1, PT_DOTS},      {10, -1, PT_PATTERN},
};

} // namespace

const PrimitiveTypeRow *primitiveTypeRow(int type) {
    return type < PT_LINE || type > PT_PATTERN ? nullptr : &rows[type];
}

PRIMITIVE_TYPES drawTypeOf(const mvDataPointArray &array, PRIMITIVE_TYPES current) {
    const namePeriod &period = array.identity.m_periods;
    if (period.period == 'I' && period.lenPeriod == 0)
        return PT_TICK_LINE;
    for (const KindRow &row : kinds)
        if (row.drawKind == array.typeShow.drawKind &&
            (row.lineShowType < 0 || row.lineShowType == array.typeShow.lineShowType))
            return row.type;
    return current;
}
