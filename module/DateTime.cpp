#include "module/DateTime.h"

#include "module/HostMessages.h"
#include "module/Module.h"

namespace Velmar {

DateTime::DateTime(CModule *module, void *coreHandle) : m_formatters(zeroRecord<coreDateFormatters>()) {
    coreDateFormatters answer = zeroRecord<coreDateFormatters>();
    if (module->Send(coreHandle, ToHost::DateFormatters, &answer, 0, 1) == 0)
        m_formatters = answer;
}

QString DateTime::toString(const QDateTime &dateTime, const QString &format) const {
    QString result;
    if (m_formatters.dateTime)
        m_formatters.dateTime(dateTime, format, result);
    return result;
}

QString DateTime::toString(long time, const QString &format, bool flag) const {
    QString result;
    if (m_formatters.time)
        m_formatters.time(time, format, flag, result);
    return result;
}

} // namespace Velmar
