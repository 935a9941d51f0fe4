#pragma once
#include <QString>

// "Day", "Week", "Month", "Year", "Tick", "5 Min", "1 Hour"; empty for an unknown unit letter.
// Hours are whole hours: 90 minutes are "1 Hour".
QString periodText(char period, int lenPeriod);
