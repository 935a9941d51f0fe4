#include "dialogs/TimeFrameForm.h"
#include "dialogs/OkCancelButtons.h"
#include "module/Module.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

TimeFrameForm::TimeFrameForm(QWidget *parent)
    : QDialog(parent), m_combo(new QComboBox(this)) {
    const CModule *module = GetModule();
    setModal(true);
    setWindowTitle(module->tr("G0198"));
    setWindowIcon(QIcon(":/graphlogo.png"));
    QDialogButtonBox *buttons = makeOkCancelButtons(this);
    auto *column = new QVBoxLayout(this);
    column->addWidget(new QLabel(module->tr("G0197"), this));
    column->addWidget(m_combo);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
}

void TimeFrameForm::SetItems(const QStringList &items, int current) {
    m_combo->clear();
    m_combo->addItems(items);
    m_combo->setCurrentIndex(current);
}

int TimeFrameForm::CurrentIndex() const {
    return m_combo->currentIndex();
}
