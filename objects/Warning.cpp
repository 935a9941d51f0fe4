#include "objects/Warning.h"

#include "dialogs/MvMessageBox.h"
#include "module/Module.h"
#include "support/Log.h"

void showWarning(QWidget *parent, const QString &title, const QString &text) {
    CMvMessageBox::warning(parent, title, text, QMessageBox::Ok);
}

void warnUser(QWidget *parent, const QString &text, const char *tag) {
    showWarning(parent, GetModule()->tr("C0071Warn", 0), text);
    logLine(logMsgSystem, logError, text, tag);
}
