#include "dialogs/TimeFrameForm.h"
#include "module/Module.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

TimeFrameForm::TimeFrameForm(QWidget *parent)
    : QDialog(parent), m_label(new QLabel(this)), m_combo(new QComboBox(this)), m_ok(new QPushButton(this)),
      m_cancel(new QPushButton(this)) {
    const CModule *module = GetModule();
    setModal(true);
    setWindowTitle(module->tr("G0198"));
    setWindowIcon(QIcon(":/graphlogo.png"));
    m_label->setText(module->tr("G0197"));
    m_ok->setText(module->tr("C0049Ok"));
    m_cancel->setText(module->tr("C0007Cancel"));
    m_ok->setDefault(true);
    auto *row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_ok);
    row->addWidget(m_cancel);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_label);
    column->addWidget(m_combo);
    column->addLayout(row);
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void TimeFrameForm::SetItems(const QStringList &items, int current) {
    m_combo->clear();
    m_combo->addItems(items);
    m_combo->setCurrentIndex(current);
}

int TimeFrameForm::CurrentIndex() const {
    return m_combo->currentIndex();
}
