#include "support/Links.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

bool OpenUrl(const QUrl &url) {
    if (QDesktopServices::openUrl(url))
        return true;
    for (const char *browser :
         {"netscape", "mozilla", "firefox", "chromium", "konqueror", "rekonq", "opera", "safari"})
        if (QProcess::startDetached(QLatin1String(browser), {url.toString()}))
            return true;
    return false;
}

bool OpenBrowser(const QString &link) {
    return OpenUrl(QUrl(link));
}

bool OpenEmail(const QString &address) {
    return OpenUrl(QUrl("mailto:" + address));
}
