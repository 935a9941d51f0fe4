#include "chart/TimeText.h"

#include "module/DateTime.h"
#include "module/GraphModule.h"

#include <QDateTime>
#include <cstring>

QString timeText(long timeSec, const char *format) {
    const CModule *owner = GetModule();
    if (!owner || !owner->GetDateTime())
        return QString();
    const QString pattern =
        std::strncmp(format, "G0", 2) == 0 ? owner->tr(format) : QString::fromLatin1(format);
    return owner->GetDateTime()->toString(QDateTime::fromSecsSinceEpoch(timeSec, Qt::UTC), pattern);
}
