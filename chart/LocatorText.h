#pragma once

#include "chart/Primitive.h"

#include <vector>

// What the locator says of one point of a series.

// Places in the array's field list: of the field that gives the name, and of the one that gives the value.
struct LocatorField {
    int name;
    int value;
};

std::vector<LocatorField> locatorFields(PRIMITIVE_TYPES type);

// The series' name and its fields, each on a line of its own.
QString locatorText(const CRPrimitive &primitive, int dataIndex);
