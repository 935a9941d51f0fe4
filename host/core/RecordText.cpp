#include "host/core/RecordText.h"
#include "module/HostRecords.h"

namespace desk {

QString hexText(quint32 word) {
    return QStringLiteral("0x%1").arg(word, 0, 16);
}

QString quoted(const QString &text) {
    QString shown = text;
    shown.replace(QLatin1Char('\r'), QLatin1String("\\r")).replace(QLatin1Char('\n'), QLatin1String("\\n"));
    return QLatin1Char('"') + shown + QLatin1Char('"');
}

QString periodText(const namePeriod &period) {
    const int length = period.lenPeriod;
    switch (period.period) {
    case 'I':
        if (length == 0)
            return QStringLiteral("tick");
        return length % 60 == 0 ? QStringLiteral("H%1").arg(length / 60) : QStringLiteral("M%1").arg(length);
    case 'D':
        return QStringLiteral("D%1").arg(length);
    case 'W':
        return QStringLiteral("W%1").arg(length);
    case 'M':
        return QStringLiteral("MN%1").arg(length);
    case 'Y':
        return QStringLiteral("Y%1").arg(length);
    default:
        return QStringLiteral("%1:%2").arg(int(period.period)).arg(length);
    }
}

QString instrumentText(const coreNameInstrument &name) {
    return QStringLiteral("%1 %2 %3")
        .arg(quoted(readText(name.m_szNameSymbol, 255)), readText(name.m_szType, 255),
             periodText(name.m_periods));
}

QString interfaceText(const coreNameInterface &name) {
    return quoted(fieldText(name.nameIntreface)) + QLatin1Char('/') + quoted(fieldText(name.nameProvider)) +
           QLatin1Char('/') + quoted(fieldText(name.nameObject));
}

QString arrayText(const mvDataPointArray *array) {
    if (!array)
        return QStringLiteral("null");
    return QStringLiteral("array %1 (%2, %3 points of %4 bytes, draw kind %5)")
        .arg(hexText(quint32(toWord(array))), instrumentText(array->identity))
        .arg(array->count)
        .arg(array->recordSize)
        .arg(array->typeShow.drawKind);
}

} // namespace desk
