#include "objects/IndicatorPlacement.h"

#include <QString>

IndicatorPlacement placementByCode(int code) {
    switch (code) {
    case 0:
        return {true, true};
    case 1:
    case 2:
        return {true, false};
    default:
        return {false, false};
    }
}

IndicatorPlacement placementOf(const PlacementCase &what) {
    const bool byCode = what.hasBase ? what.hasSources : what.isCurrencySum;
    return byCode ? placementByCode(what.code) : IndicatorPlacement{true, true};
}

bool isCurrencySumName(const QString &name) {
    return name == QLatin1String("CHF+EUR");
}
