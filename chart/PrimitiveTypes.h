#pragma once

#include "chart/Primitive.h"

// What tells the draw types apart beside their painting, one row for each.

enum class ValueSource { FirstField, Close, High }; // what a title prints and a line runs through

struct PrimitiveTypeRow {
    const char *highField; // the fields that the range of the scale follows
    const char *lowField;
    ValueSource value;
    bool instrument; // candle-like: on an instrument's own prices
};

const PrimitiveTypeRow *primitiveTypeRow(int type); // null outside of 0 to 10

// The draw type that an array asks for; `current` when it names none.
PRIMITIVE_TYPES drawTypeOf(const mvDataPointArray &array, PRIMITIVE_TYPES current);
