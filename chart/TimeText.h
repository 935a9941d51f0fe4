#pragma once

#include <QString>

// Times of the chart as text, in UTC and through the host's formatter. `format` is the id of a translated
// format, or a format itself.
QString timeText(long timeSec, const char *format);

// A time that stands for a place on the axis: neither 0 nor -1.
inline bool isAxisTime(long timeSec) {
    return static_cast<unsigned long>(timeSec) + 1 >= 2;
}
