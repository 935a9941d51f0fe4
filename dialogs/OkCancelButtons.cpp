#include "dialogs/OkCancelButtons.h"
#include "module/Module.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

QDialogButtonBox *makeOkCancelButtons(QDialog *dialog) {
    auto *buttons = new QDialogButtonBox(dialog);
    buttons->addButton(GetModule()->tr("C0049Ok"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(GetModule()->tr("C0007Cancel"), QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}
