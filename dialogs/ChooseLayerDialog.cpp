#include "dialogs/ChooseLayerDialog.h"
#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "dialogs/OkCancelButtons.h"
#include "module/Module.h"
#include "objects/Indicator.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { numberColumn, nameColumn, scaleColumn, dataColumn, columnCount };

// The first layer of a pane draws the right scale and the second one the left; the others have none.
QString scaleSide(int layer) {
    if (layer == 0)
        return GetModule()->tr("C0032Right");
    return layer == 1 ? GetModule()->tr("C0023Left") : QString();
}

QString dataOn(CRGraphWidget *widget, const CRGraphLayer *layer) {
    std::vector<CRPrimitive *> primitives;
    if (widget)
        widget->GetLayerPrimitives(layer, &primitives);
    QStringList names;
    for (const CRPrimitive *primitive : primitives)
        if (primitive->m_bVisible)
            names += primitive->GetAlias().isEmpty() ? primitive->m_name : primitive->GetAlias();
    return names.join(", ");
}

} // namespace

CChooseLayerDialog::CChooseLayerDialog(const CRGraphArea *area, int current, QString name)
    : QDialog(area ? area->m_pWidget : nullptr), m_current(current), m_tree(new QTreeWidget(this)) {
    const CModule *module = GetModule();
    setModal(true);
    setWindowTitle(module->tr("G0059"));
    setWindowIcon(QIcon(":/graphlogo.png"));
    m_tree->setColumnCount(columnCount);
    m_tree->setHeaderLabels(
        {module->tr("G0034"), module->tr("C0028Name"), module->tr("G0055"), module->tr("G0050")});
    m_tree->setRootIsDecorated(false);
    m_tree->setAllColumnsShowFocus(true);
    const int count = area ? static_cast<int>(area->m_layers.size()) : 0;
    for (int i = 0; i < count; ++i) {
        const CRGraphLayer *layer = area->m_layers[static_cast<size_t>(i)];
        new QTreeWidgetItem(
            m_tree, {QString::number(i + 1), layer->m_name, scaleSide(i), dataOn(area->m_pWidget, layer)});
    }
    new QTreeWidgetItem(m_tree, {QString::number(count + 1), module->tr("G0047"), scaleSide(count), name});
    // Until the user chooses, the layer offered stands: the object's own, else a new one.
    m_layer = current >= 0 && current < count ? current : count;
    m_tree->setCurrentItem(m_tree->topLevelItem(m_layer));
    for (int i = 0; i < columnCount; ++i)
        m_tree->resizeColumnToContents(i);

    QDialogButtonBox *buttons = makeOkCancelButtons(this);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_tree);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_tree, &QTreeWidget::itemClicked, this, &CChooseLayerDialog::OnSelectionChanged);
    connect(m_tree, &QTreeWidget::itemDoubleClicked, this, &CChooseLayerDialog::OnDoubleClicked);
    connect(m_tree, &QTreeWidget::itemSelectionChanged, this,
            [this] { OnSelectionChanged(m_tree->selectedItems().value(0), numberColumn); });
    resize(460, 240);
}

// The object's own layer is no choice.
void CChooseLayerDialog::OnSelectionChanged(QTreeWidgetItem *item, int) {
    m_layer = item ? item->text(numberColumn).toInt() - 1 : -1;
    if (m_layer == m_current)
        m_layer = -1;
}

void CChooseLayerDialog::OnDoubleClicked(QTreeWidgetItem *item, int column) {
    OnSelectionChanged(item, column);
    if (m_layer != -1)
        accept();
}
