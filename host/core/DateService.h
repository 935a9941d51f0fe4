#pragma once
#include "host/core/Service.h"

class QDateTime;
class QLocale;
class QString;

namespace desk {

// The date formatters (3207). Month and day names follow the language of the desk; times are UTC.
class DateService : public Service {
public:
    explicit DateService(Host &host);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    static void setLocale(const QLocale &locale);

private:
    static void formatDateTime(const QDateTime &time, const QString &format, QString &result);
    static void formatTime(long time, const QString &format, bool local, QString &result);
};

} // namespace desk
