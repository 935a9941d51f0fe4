#include "chart/LocatorText.h"

#include "support/Numbers.h"

std::vector<LocatorField> locatorFields(PRIMITIVE_TYPES type) {
    switch (type) {
    case PT_CANDLE:
    case PT_BAR:
    case PT_WIDE_CANDLE:
        return {{1, 1}, {2, 2}, {3, 3}, {4, 4}};
    case PT_CLOSE_DOTS:
    case PT_CLOSE_LINE:
        return {{4, 4}};
    case PT_LINE:
    case PT_HISTOGRAM:
    case PT_TICK_LINE:
    case PT_DOTS:
        return {{1, 1}};
    case PT_MARKS:
        return {{0, 1}, {1, 2}}; // labelled one field lower than the others
    default:
        return {};
    }
}

QString locatorText(const CRPrimitive &primitive, int dataIndex) {
    QString text = primitive.m_name;
    const mvDataPointArray *array = primitive.GetArray();
    if (!array || !array->fields)
        return text;
    const int decimals = decimalsOf(primitive.m_fPoint);
    const char *separator = ":\n ";
    for (const LocatorField &field : locatorFields(primitive.m_type)) {
        if (field.name >= array->fieldCount || field.value >= array->fieldCount)
            break;
        const double value = primitive.ValueByName(fieldText(array->fields[field.value].name), dataIndex);
        text += QLatin1String(separator) + fieldText(array->fields[field.name].name) + QLatin1Char('=') +
                QString::asprintf("%0.*f", decimals, value);
        separator = "\n ";
    }
    return text;
}
