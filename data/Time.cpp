#include "data/Time.h"

#include <ctime>

char CRMTime::szTemp[100];

const char *CRMTime::Format(long timeSec, const char *format) {
    const std::time_t time = timeSec;
    std::tm parts;
    szTemp[0] = 0;
    if (timeSec < 0 || !gmtime_r(&time, &parts) || std::strftime(szTemp, 99, format, &parts) == 0)
        szTemp[0] = 0;
    return szTemp;
}
