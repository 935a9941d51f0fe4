#pragma once

#include "module/HostRecords.h"

class QString;

// The rows of the host's timeframe panel, which are also the time frames of a report.
constexpr int panelPeriodCount = 9;
constexpr int panelPeriodHour = 3;

// Writes unit and length of a row; false and nothing written for any other number.
bool setPanelPeriod(int row, namePeriod *period);

QString panelPeriodText(int row); // in the user's language; empty for any other number
