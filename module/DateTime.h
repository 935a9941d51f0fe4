#pragma once
#include "module/HostRecords.h"

class CModule;
class QDateTime;

namespace Velmar {

/// The host's formatters of dates. Without them every text is empty.
class DateTime {
public:
    DateTime(CModule *module, void *coreHandle);
    QString toString(const QDateTime &dateTime, const QString &format) const;
    QString toString(long time, const QString &format, bool flag) const; // seconds; flag: local time

private:
    coreDateFormatters m_formatters;
};

} // namespace Velmar
