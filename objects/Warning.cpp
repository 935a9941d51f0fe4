#include "objects/Warning.h"

#include "module/Module.h"
#include "support/Log.h"

#include <QMessageBox>
#include <QPointer>

void showWarning(QWidget *parent, const QString &title, const QString &text) {
    // On the heap: the box dies with its parent when that is deleted in the box's own event loop.
    QPointer<QMessageBox> box = new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box->exec();
    delete box.data();
}

void warnUser(QWidget *parent, const QString &text, const char *tag) {
    showWarning(parent, GetModule()->tr("C0071Warn", 0), text);
    logLine(logMsgSystem, logError, text, tag);
}
