#pragma once

#include "chart/GraphLayerMapping.h"

#include <QRgb>

class CRPrimitive;

// A point of a series of marks.
struct Mark {
    double first;
    double second;
    int kind; // 1 arrow above, 2 arrow below, 3 both
    QRgb color;
};

constexpr int markBoth = 3;

// Fields by their names, or by their places in a point that is large enough; 0 for what is missing.
Mark markAt(const CRPrimitive &primitive, int dataIndex);

bool areMarksJoined(const CRPrimitive &primitive); // by a stroke between the two values

// The row that a histogram stands on.
int histogramBase(const CRPrimitive &primitive, const LayerMapping &mapping);
