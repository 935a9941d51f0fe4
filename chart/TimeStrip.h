#pragma once

#include <QString>
#include <functional>
#include <vector>

// What the time strip prints: ticks and labels of its two rows. Plain geometry, no widget and no painter.

// Units that a row can be divided by.
enum class StripUnit { None, Minutes, Hours, Day, Month, Year };

// A row: its unit, how often a boundary comes, and the formats of its labels (ids of texts or formats).
struct StripRow {
    StripUnit unit = StripUnit::None;
    int every = 1;                   // minutes or hours between boundaries
    const char *format = nullptr;    // the long form
    const char *shortForm = nullptr; // taken where the long one does not fit; null: the label is dropped
    const char *centred = nullptr;   // taken when the whole range lies in one unit; null: never
    int margin = 0;                  // pixels of the gap that a label must leave
    bool solid = false;              // ticks are solid, else dotted
};

struct StripRows {
    StripRow lower;
    StripRow upper;
};

// The rows for a range of times, in seconds.
StripRows stripRows(long first, long last);

struct StripTick {
    int x;
    bool lower; // through the whole strip, else its upper half
    bool solid;
};

struct StripLabel {
    int x;
    bool lower;
    QString text;
};

struct StripLayout {
    std::vector<StripTick> ticks;
    std::vector<StripLabel> labels;
};

// What the strip is laid out from. The times are those of the positions from the left edge on.
struct StripInput {
    const long *times = nullptr;
    int count = 0; // positions on screen that have a time
    int left = 0;  // span of the labels, both ends inside
    int right = -1;
    std::function<int(int)> columnOf; // centre of a relative position
    std::function<QString(long time, const char *format)> textOf;
    std::function<int(const QString &)> widthOf;
};

StripLayout layOutStrip(const StripInput &input);

// The number that changes at every boundary of a unit: days since 1970, months since year 0 and so on.
long stripUnitNumber(StripUnit unit, long timeSec);
