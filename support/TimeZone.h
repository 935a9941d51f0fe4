#pragma once

struct coreNameInstrument;

// Whether the process runs on the clock of the host's data (see CModule::SetTimeTz).
bool CheckTimeZone();

namespace DayOff {
// The day-off table's kind of interval for a series, 0 for an unknown unit; `length` is its length there.
int TimeInterval(const coreNameInstrument &instrument, int &length);
} // namespace DayOff
