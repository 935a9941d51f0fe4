#include "dialogs/DateTimeDlg.h"
#include "dialogs/OkCancelButtons.h"
#include "module/FindDateData.h"
#include "module/Module.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIcon>
#include <QTimeEdit>

DateTimeDlg::DateTimeDlg(QWidget *parent)
    : QDialog(parent), m_data(new GraphModule::CFindDateData), m_date(new QDateEdit(this)),
      m_time(new QTimeEdit(this)) {
    const CModule *module = GetModule();
    m_save = new QCheckBox(module->tr("G0190"), this);
    setModal(true);
    setWindowTitle(module->tr("G0142"));
    setWindowIcon(QIcon(":/graphlogo.png"));
    m_date->setCalendarPopup(true);
    m_date->setTimeSpec(Qt::UTC);
    m_time->setTimeSpec(Qt::UTC);
    QDialogButtonBox *buttons = makeOkCancelButtons(this);
    auto *form = new QFormLayout(this);
    form->addRow(module->tr("G0140"), m_date);
    form->addRow(module->tr("G0141"), m_time);
    form->addRow(m_save);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
}

DateTimeDlg::~DateTimeDlg() = default;

void DateTimeDlg::SetChecked(bool on) {
    m_save->setChecked(on);
}

bool DateTimeDlg::IsChecked() const {
    return m_save->isChecked();
}

void DateTimeDlg::SetDate(const QDate &date) {
    m_date->setDate(date);
}

void DateTimeDlg::SetTime(const QTime &time) {
    m_time->setTime(time);
}

QDate DateTimeDlg::Date() const {
    return m_date->date();
}

QTime DateTimeDlg::Time() const {
    return m_time->time();
}

void DateTimeDlg::SetTimeEnable(bool on) {
    m_time->setEnabled(on);
}

void DateTimeDlg::SetData(const GraphModule::CFindDateData &data, bool hasTime) {
    *m_data = data;
    const QDateTime saved = data.GetSavedDateTime();
    if (hasTime)
        SetTime(saved.time());
    SetTimeEnable(hasTime);
    SetDate(saved.date());
    SetChecked(data.IsSaveDateTime());
}

const GraphModule::CFindDateData &DateTimeDlg::GetData() {
    m_data->SetSaveDateTime(IsChecked());
    m_data->SetSavedDateTime(QDateTime(Date(), Time(), Qt::UTC));
    return *m_data;
}
