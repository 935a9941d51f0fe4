#include "host/core/DateService.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QDateTime>
#include <QLocale>

namespace desk {

namespace {

QLocale &dateLocale() {
    static QLocale locale(QLocale::English, QLocale::UnitedKingdom);
    return locale;
}

} // namespace

DateService::DateService(Host &host) : Service(host) {
    take(coreHandle(), {ToHost::DateFormatters});
}

bool DateService::handle(Handle, unsigned, int wParam, int, int &result) {
    if (!wParam)
        return false;
    auto &formatters = *fromWord<coreDateFormatters>(wParam);
    formatters.dateTime = &DateService::formatDateTime;
    formatters.time = &DateService::formatTime;
    result = 0;
    return true;
}

void DateService::setLocale(const QLocale &locale) {
    dateLocale() = locale;
}

void DateService::formatDateTime(const QDateTime &time, const QString &format, QString &result) {
    result = dateLocale().toString(time, format);
}

void DateService::formatTime(long time, const QString &format, bool local, QString &result) {
    const QDateTime moment = QDateTime::fromSecsSinceEpoch(time, local ? Qt::LocalTime : Qt::UTC);
    result = dateLocale().toString(moment, format);
}

} // namespace desk
