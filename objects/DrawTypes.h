#pragma once

#include "chart/Primitive.h"

// How a new series is drawn, from what its array says. A refresh by the array's draw kind follows.

// Instruments: -1 when the array cannot be shown as one.
int instrumentDrawType(const mvDataPointArray &array);

// Outputs of an indicator.
PRIMITIVE_TYPES outputDrawType(const mvDataPointArray &array);

// Candles, bars and the series on their closes; these lead the window's title.
bool isInstrumentType(PRIMITIVE_TYPES type);

// A series of ticks: unit "I" of length 0.
bool isTickPeriod(const namePeriod &period);

bool samePeriod(const namePeriod &a, const namePeriod &b); // unit and length
