#pragma once

class QString;

// Where the outputs of a new indicator go. Same layer only counts within the same area.
struct IndicatorPlacement {
    bool sameArea;
    bool sameLayer;
};

// What is known of a new indicator when its place is decided.
struct PlacementCase {
    bool hasBase;       // a source series was given
    bool hasSources;    // the indicator takes sources, and the base was handed over
    bool isCurrencySum; // the pair sum, which stands on no chart series
    int code;           // scale kind of the first output
};

IndicatorPlacement placementOf(const PlacementCase &what);

// By the scale kind alone: 0 the scale of the source, 1 and 2 its area, else an area of its own.
IndicatorPlacement placementByCode(int code);

bool isCurrencySumName(const QString &name);
