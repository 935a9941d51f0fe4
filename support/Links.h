#pragma once
#include <QString>

class QUrl;

// The desktop's handler first, then the known browsers in turn; true when one took the link.
bool OpenUrl(const QUrl &url);
bool OpenBrowser(const QString &link);
bool OpenEmail(const QString &address);
