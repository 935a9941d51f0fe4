#include "support/TimeZone.h"
#include "module/HostRecords.h"

#include <cstdlib>
#include <cstring>

bool CheckTimeZone() {
    const char *zone = std::getenv("TZ");
    return zone && std::strcmp(zone, "GST0") == 0;
}

int DayOff::TimeInterval(const coreNameInstrument &instrument, int &length) {
    int kind = 0;
    switch (instrument.m_periods.period) {
    case 'I':
        kind = 2;
        length = instrument.m_periods.lenPeriod;
        break;
    case 'D':
        kind = 3;
        break;
    case 'W':
        kind = 4;
        break;
    case 'M':
        kind = 5;
        break;
    case 'Y':
        kind = 6;
        break;
    default:
        break;
    }
    if (length == 0)
        length = 1;
    return kind;
}
