#include "dialogs/SelectPrimitiveWidget.h"
#include "chart/GraphWidget.h"
#include "module/HostCalls.h"
#include "module/Module.h"
#include "objects/Indicator.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>

namespace {

bool isEnter(const QKeyEvent *event) {
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

// The series of the strategy tester go by the names of their outputs.
bool isTesterName(const QString &name) {
    for (const char *sign :
         {"Deal long", "Deal short", "Order long", "Order short", "Close long", "Close short"})
        if (name == QLatin1String(sign))
            return true;
    return false;
}

QString titleOf(CRPrimitive *primitive) {
    if (primitive->m_sysTester && isTesterName(primitive->m_name))
        return primitive->m_name;
    const QString alias = primitive->GetAlias();
    return primitive->IsInstrumentType() && !alias.isEmpty() ? alias : primitive->GetMenuItemName();
}

bool isSameSeries(const coreNameInstrument &a, const coreNameInstrument &b) {
    return fieldText(a.m_szNameSymbol) == fieldText(b.m_szNameSymbol) &&
           fieldText(a.m_szType) == fieldText(b.m_szType) && a.m_periods.period == b.m_periods.period &&
           a.m_periods.lenPeriod == b.m_periods.lenPeriod;
}

} // namespace

gui::ButtonHelp::ButtonHelp(const QString &text, CSelectPrimitiveWidget *owner)
    : Button(text, owner), m_owner(owner) {}

void gui::ButtonHelp::keyPressEvent(QKeyEvent *event) {
    if (isEnter(event))
        m_owner->OnHelp();
    else
        Button::keyPressEvent(event);
}

gui::ButtonCancel::ButtonCancel(const QString &text, CSelectPrimitiveWidget *owner)
    : Button(text, owner), m_owner(owner) {}

void gui::ButtonCancel::keyPressEvent(QKeyEvent *event) {
    if (isEnter(event))
        m_owner->Cancel();
    else
        Button::keyPressEvent(event);
}

CSelectPrimitiveWidget::CSelectPrimitiveWidget(CRGraphWidget *widget, const QString &title,
                                               const QString &name, bool templateMode)
    : QDialog(widget), m_widget(widget), m_templateMode(templateMode), m_combo(new QComboBox(this)) {
    const CModule *module = GetModule();
    setWindowTitle(title);
    setWindowIcon(QIcon(":/graphlogo.png"));
    auto *label = new QLabel(name, this);
    label->setVisible(!name.isEmpty());
    m_combo->setMinimumWidth(220);
    auto *ok = new gui::Button(module->tr("C0049Ok"), this);
    auto *cancel = new gui::ButtonCancel(module->tr("C0007Cancel"), this);
    auto *help = new gui::ButtonHelp("?", this);
    ok->setDefault(true);
    cancel->setAutoDefault(false);
    help->setAutoDefault(false);
    auto *row = new QHBoxLayout;
    row->addWidget(help);
    row->addStretch();
    row->addWidget(ok);
    row->addWidget(cancel);
    auto *column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(m_combo);
    column->addLayout(row);
    connect(ok, &QPushButton::clicked, this, &CSelectPrimitiveWidget::OnOK);
    connect(cancel, &QPushButton::clicked, this, &CSelectPrimitiveWidget::Cancel);
    connect(help, &QPushButton::clicked, this, &CSelectPrimitiveWidget::OnHelp);
}

// The titles come from the host, which can change the chart meanwhile, or take it and this picker away.
void CSelectPrimitiveWidget::FillListBox(const coreNameInstrument *preset) {
    const bool hasPreset = preset != nullptr;
    const coreNameInstrument wanted = hasPreset ? *preset : zeroRecord<coreNameInstrument>();
    m_combo->clear();
    m_primitives.clear();
    std::vector<CRPrimitive *> found;
    m_widget->GetAllPrimitives(&found, 0);
    int current = 0;
    const QPointer<CSelectPrimitiveWidget> guard(this);
    for (const QPointer<CRPrimitive> &primitive : std::vector<QPointer<CRPrimitive>>(found.begin(), found.end())) {
        const QString title = primitive ? titleOf(primitive) : QString();
        if (!guard)
            return;
        if (!primitive)
            continue;
        const mvDataPointArray *array = primitive->GetArray();
        if (hasPreset && array && isSameSeries(array->identity, wanted))
            current = m_combo->count();
        m_combo->addItem(title);
        m_primitives.push_back(primitive);
    }
    m_combo->setCurrentIndex(m_primitives.empty() ? -1 : current);
}

void CSelectPrimitiveWidget::SelectPrimitiveInCombo(CRPrimitive *primitive) {
    const auto it = std::find(m_primitives.begin(), m_primitives.end(), primitive);
    if (it != m_primitives.end())
        m_combo->setCurrentIndex(static_cast<int>(it - m_primitives.begin()));
}

CRPrimitive *CSelectPrimitiveWidget::GetCurrentPrimitive() const {
    const int index = m_combo->currentIndex();
    return index < 0 || index >= static_cast<int>(m_primitives.size())
               ? nullptr
               : m_primitives[static_cast<size_t>(index)];
}

void CSelectPrimitiveWidget::OnOK() {
    if (m_templateMode)
        m_widget->OnApplyTemplate();
    else
        m_widget->OnSelectPrimitive();
}

void CSelectPrimitiveWidget::Cancel() {
    m_widget->OnCancelSelectPrimitive();
}

void CSelectPrimitiveWidget::OnHelp() {
    HostCalls::openHelp("gr_win1.htm");
}

void CSelectPrimitiveWidget::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape)
        Cancel();
    else if (isEnter(event))
        OnOK();
    else
        QDialog::keyPressEvent(event);
}

void CSelectPrimitiveWidget::closeEvent(QCloseEvent *event) {
    event->accept();
    if (m_widget->SourcePicker() == this)
        Cancel();
}

void CSelectPrimitiveWidget::paintEvent(QPaintEvent *event) {
    QDialog::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Qt4CompatiblePainting);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
