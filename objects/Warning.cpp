#include "objects/Warning.h"

#include "module/Module.h"
#include "support/Log.h"

#include <QMessageBox>
#include <QPointer>

void warnUser(QWidget *parent, const QString &text, const char *tag) {
    // On the heap: the box dies with its parent when that is deleted in the box's own event loop.
    QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, GetModule()->tr("C0071Warn", 0), text, QMessageBox::Ok, parent);
    box->exec();
    delete box.data();
    logLine(logMsgSystem, logError, text, tag);
}
