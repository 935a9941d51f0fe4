#pragma once

class QDialog;
class QDialogButtonBox;

// The foot of a dialog: OK, the default button, emits accepted(); Cancel rejects the dialog.
QDialogButtonBox *makeOkCancelButtons(QDialog *dialog);
