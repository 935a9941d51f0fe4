#include "support/PeriodText.h"

QString periodText(char period, int lenPeriod) {
    switch (period) {
    case 'D':
        return QStringLiteral("Day");
    case 'W':
        return QStringLiteral("Week");
    case 'M':
        return QStringLiteral("Month");
    case 'Y':
        return QStringLiteral("Year");
    case 'I':
        if (lenPeriod == 0)
            return QStringLiteral("Tick");
        if (lenPeriod >= 1 && lenPeriod <= 59)
            return QString::asprintf("%d Min", lenPeriod);
        return QString::asprintf("%d Hour", lenPeriod / 60);
    default:
        return QString();
    }
}
