#pragma once
#include <QString>
#include <QtGlobal>

namespace desk {

// How the text of a time is to be read. Calendar forms take "-", "/", "." or nothing between their parts,
// names of months, a time of day with or without colons and fractions, am and pm, and a zone.
enum class TimeForm {
    YearFirst,
    DayFirst,
    MonthFirst,
    EpochSeconds,
    EpochMilliseconds,
    EpochMicroseconds,
    EpochNanoseconds,
    MillisecondsOfDay,
};

struct TimeReading {
    qint64 ms = 0; // since 1970 by the writer's clock, or since midnight
    int zoneSeconds = 0;
    bool hasZone = false;
    bool dateOnly = false;
};

// A piece of a line.
struct Piece {
    const char *begin = nullptr;
    const char *end = nullptr;
    int size() const { return int(end - begin); }
    bool isEmpty() const { return begin == end; }
};

bool readTime(Piece text, TimeForm form, TimeReading &reading);
// "13:05", "13:05:09.250", "130509": milliseconds since midnight.
bool readTimeOfDay(Piece text, qint64 &ms);
// A decimal number; `comma` takes "1,25". False for words, NaN, infinity and anything behind the number.
bool readNumber(Piece text, bool comma, double &value);

qint32 dayNumber(int year, int month, int day);
QString timeFormName(TimeForm form);

} // namespace desk
