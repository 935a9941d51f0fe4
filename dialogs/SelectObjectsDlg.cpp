#include "dialogs/SelectObjectsDlg.h"
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "dialogs/OkCancelButtons.h"
#include "module/Module.h"
#include "support/Log.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QIcon>
#include <QPointer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int scopeRole = Qt::UserRole;
const QEvent::Type finishEvent = static_cast<QEvent::Type>(1001);

QString numbered(const char *id, int number) {
    return GetModule()->tr(id) + QString::asprintf(" %d", number);
}

Qt::CheckState stateOf(const QTreeWidgetItem *item) {
    return static_cast<Qt::CheckState>(item->data(0, Qt::CheckStateRole).toInt());
}

void setState(QTreeWidgetItem *item, Qt::CheckState state) {
    item->setData(0, Qt::CheckStateRole, static_cast<int>(state));
}

} // namespace

CSelectObjectsDlg::CSelectObjectsDlg(const char *titleId, const char *logTag, QWidget *parent)
    : QDialog(parent), m_objectTree(new QTreeWidget(this)), m_typeTree(new QTreeWidget(this)),
      m_logTag(logTag) {
    const CModule *module = GetModule();
    setModal(true);
    setWindowTitle(module->tr(titleId));
    setWindowIcon(QIcon(":/graphlogo.png"));
    m_objectTree->setColumnCount(2);
    m_objectTree->headerItem()->setText(0, module->tr("G0154"));
    m_objectTree->headerItem()->setText(1, module->tr("G0155"));
    m_objectTree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_typeTree->setColumnCount(1);
    m_typeTree->headerItem()->setText(0, module->tr("G0156"));
    m_typeTree->setRootIsDecorated(false);
    QDialogButtonBox *buttons = makeOkCancelButtons(this);
    auto *trees = new QHBoxLayout;
    trees->addWidget(m_objectTree, 3);
    trees->addWidget(m_typeTree, 2);
    auto *column = new QVBoxLayout(this);
    column->addLayout(trees);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &CSelectObjectsDlg::OnOK);
    resize(560, 360);
}

bool CSelectObjectsDlg::Create(void *data) {
    const QPointer<CSelectObjectsDlg> guard(this);
    try {
        if (!data)
            throw std::invalid_argument("no chart window");
        fill(static_cast<CRGraphWidget *>(data));
        if (!guard)
            return false;
        connect(m_typeTree, &QTreeWidget::itemChanged, this, &CSelectObjectsDlg::OnCheckItem,
                Qt::UniqueConnection);
        QCoreApplication::postEvent(this, new QEvent(finishEvent));
        return true;
    } catch (const std::exception &error) {
        logLine(logMsgModule, logError,
                windowTitle() + ": the list of objects cannot be made: " + error.what(), m_logTag);
        return false;
    }
}

// Collecting asks the host, which can change the chart: panes and layers are looked up anew at each step.
// It can also take the chart away, and this dialog with it.
void CSelectObjectsDlg::fill(CRGraphWidget *widget) {
    const QPointer<CSelectObjectsDlg> guard(this);
    m_updating = true;
    m_objectTree->clear();
    m_typeTree->clear();
    m_scopes.clear();
    const auto addItem = [this](QTreeWidgetItem *parent, const QString &text, const SelectScope &scope) {
        auto *item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(m_objectTree);
        item->setText(0, text);
        item->setData(0, scopeRole, static_cast<int>(m_scopes.size()));
        m_scopes.push_back(scope);
        return item;
    };
    QStringList types;
    QStringList chartTexts;
    QTreeWidgetItem *root =
        addItem(nullptr, GetModule()->tr("G0019"), SelectScope{SelectScope::chart, nullptr, nullptr});
    for (int i = 0; i < widget->GetAreaCount(); ++i) {
        CRGraphArea *area = widget->GetArea(i);
        QStringList areaTexts;
        QTreeWidgetItem *areaItem =
            addItem(root, numbered("G0017", i + 1), SelectScope{SelectScope::area, area, nullptr});
        for (size_t j = 0; widget->FindArea(area) >= 0 && j < area->m_layers.size(); ++j) {
            CRGraphLayer *layer = area->m_layers[j];
            QTreeWidgetItem *layerItem = addItem(areaItem, numbered("G0034", static_cast<int>(j) + 1),
                                                 SelectScope{SelectScope::layer, area, layer});
            QStringList layerTexts;
            collect(widget, layer, layerTexts, types);
            if (!guard)
                return;
            layerItem->setText(1, layerTexts.join(", "));
            areaTexts += layerTexts;
        }
        areaTexts.removeDuplicates();
        areaItem->setText(1, areaTexts.join(", "));
        chartTexts += areaTexts;
    }
    chartTexts.removeDuplicates();
    root->setText(1, chartTexts.join(", "));
    types.removeDuplicates();
    types.removeAll(QString()); // an object that the host does not name has no type to choose
    for (const QString &type : QStringList{"All"} + types) {
        auto *item = new QTreeWidgetItem(m_typeTree);
        item->setText(0, type);
        setState(item, Qt::Unchecked);
    }
    m_updating = false;
}

// What needs the dialog's own event queue: sizes and the first choice.
void CSelectObjectsDlg::finishFilling() {
    m_objectTree->expandAll();
    m_objectTree->resizeColumnToContents(0);
    if (m_objectTree->topLevelItemCount() > 0 && m_objectTree->selectedItems().isEmpty())
        m_objectTree->setCurrentItem(m_objectTree->topLevelItem(0));
}

void CSelectObjectsDlg::OnCheckItem(QTreeWidgetItem *item, int) {
    if (m_updating || !item)
        return;
    m_updating = true;
    QTreeWidgetItem *all = m_typeTree->topLevelItem(0);
    const int count = m_typeTree->topLevelItemCount();
    if (item == all) {
        for (int i = 1; i < count; ++i)
            setState(m_typeTree->topLevelItem(i), stateOf(all));
    } else {
        bool anyUnchecked = false;
        bool allChecked = true;
        for (int i = 1; i < count; ++i) {
            const Qt::CheckState state = stateOf(m_typeTree->topLevelItem(i));
            anyUnchecked = anyUnchecked || state == Qt::Unchecked;
            allChecked = allChecked && state == Qt::Checked;
        }
        if (anyUnchecked)
            setState(all, Qt::Unchecked);
        else if (allChecked)
            setState(all, Qt::Checked);
    }
    m_updating = false;
}

void CSelectObjectsDlg::OnOK() {
    m_result = Result();
    for (QTreeWidgetItemIterator it(m_objectTree); *it; ++it)
        if ((*it)->isSelected())
            m_result.ids.push_back(m_scopes[static_cast<size_t>((*it)->data(0, scopeRole).toInt())]);
    for (int i = 1; i < m_typeTree->topLevelItemCount(); ++i)
        if (stateOf(m_typeTree->topLevelItem(i)) == Qt::Checked)
            m_result.types.push_back(m_typeTree->topLevelItem(i)->text(0));
    accept();
}

bool CSelectObjectsDlg::event(QEvent *event) {
    return QDialog::event(event);
}

void CSelectObjectsDlg::customEvent(QEvent *event) {
    if (event->type() == finishEvent)
        finishFilling();
    QDialog::customEvent(event);
}
