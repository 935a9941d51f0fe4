#include "dialogs/PropertyEditors.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

CMvAutoscrollProperty::CMvAutoscrollProperty(const QString &checkText, const QString &checkHint,
                                             const QString &numberText, const QString &numberHint,
                                             int minimum, int maximum, int value, QWidget *parent)
    : QWidget(parent), m_check(new QCheckBox(checkText, this)), m_label(new QLabel(numberText, this)),
      m_spin(new QSpinBox(this)) {
    m_check->setToolTip(checkHint);
    m_label->setToolTip(numberHint);
    m_spin->setToolTip(numberHint);
    m_spin->setRange(minimum, maximum);
    m_spin->setValue(value);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_label);
    row->addWidget(m_spin);
    column->addWidget(m_check);
    column->addLayout(row);
    connect(m_check, &QCheckBox::stateChanged, this, &CMvAutoscrollProperty::OnStateChanged);
    OnStateChanged(m_check->checkState());
}

void CMvAutoscrollProperty::SetChecked(bool on) {
    m_check->setChecked(on);
}

bool CMvAutoscrollProperty::IsChecked() const {
    return m_check->isChecked();
}

void CMvAutoscrollProperty::SetValue(int value) {
    m_spin->setValue(value);
}

int CMvAutoscrollProperty::Value() const {
    return m_spin->value();
}

// The number has a meaning only with auto scroll on.
void CMvAutoscrollProperty::OnStateChanged(int state) {
    m_label->setEnabled(state != Qt::Unchecked);
    m_spin->setEnabled(state != Qt::Unchecked);
}
