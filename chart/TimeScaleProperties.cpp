#include "chart/TimeScale.h"

#include "chart/GraphWidget.h"
#include "chart/TimeScrollBar.h"
#include "dialogs/PropertyEditors.h"
#include "module/GraphModule.h"

#include <QColor>
#include <QVBoxLayout>
#include <QVariant>
#include <QWidget>

namespace {

constexpr int autoScrollWidth = 201;
constexpr int autoScrollHeight = 70;
constexpr int mostAutoScrollPositions = 1000;

} // namespace

// The host's window may outlive this one, and the module.
CRTimeScale::~CRTimeScale() {
    delete m_pAutoScrollWidget.data();
}

void CRTimeScale::CreatePropertyPage() {
    const CModule &texts = *GetModule();
    m_nPropertyGroup = m_pWidget->CreatePropertyGroup(texts.tr("G0078"));
    m_nBackgroundItem = m_pWidget->AddPropertyColorItem(m_nPropertyGroup, texts.tr("C0004BckGrndColor"),
                                                        texts.tr("G0067Message"), QColor(m_backgroundColor));
    m_nGridItem = m_pWidget->AddPropertyColorItem(m_nPropertyGroup, texts.tr("G0021"),
                                                  texts.tr("G0075Message"), QColor(m_gridColor));
    m_nAutoScrollItem = m_pWidget->AddPropertyWidget(m_nPropertyGroup, texts.tr("G0086"), texts.tr("G0003"),
                                                     autoScrollWidth, autoScrollHeight);
}

void CRTimeScale::UpdatePropertyPage() {
    m_pWidget->SetProperty(m_nPropertyGroup, m_nBackgroundItem, QColor(m_backgroundColor));
    m_pWidget->SetProperty(m_nPropertyGroup, m_nGridItem, QColor(m_gridColor));
    if (CMvAutoscrollProperty *editor = AutoScrollWidget()) {
        editor->SetChecked(m_bAutoScroll);
        editor->SetValue(m_nAutoScrollPositions);
    }
}

// Takes what the page and the hosted widget show.
void CRTimeScale::ApplyPropertyPage() {
    const QVariant background = m_pWidget->GetPropertyItem(m_nPropertyGroup, m_nBackgroundItem);
    if (background.canConvert<QColor>())
        m_backgroundColor = background.value<QColor>().rgb();
    const QVariant grid = m_pWidget->GetPropertyItem(m_nPropertyGroup, m_nGridItem);
    if (grid.canConvert<QColor>())
        m_gridColor = grid.value<QColor>().rgb();
    const CMvAutoscrollProperty *editor = AutoScrollWidget();
    if (!editor)
        return;
    SetAutoScrollState(editor->IsChecked(), editor->Value());
    if (m_pWidget->m_pScrollBar)
        m_pWidget->m_pScrollBar->SetRBtnState(m_bAutoScroll);
    if (m_bAutoScroll && !m_pWidget->m_loading)
        m_pWidget->MoveGraphics2Autopos();
}

// The host has put the id of a window of its own into the item: the editor is built inside it.
void CRTimeScale::ShowAutoScrollWidget() {
    const PROPERTY *item = m_pWidget->getPropertyItem(m_nPropertyGroup, m_nAutoScrollItem);
    if (!item || item->type != PropertyTypeWidget || !item->value)
        return;
    const Word windowId = static_cast<const propertyWidget *>(item->value)->windowId;
    QWidget *container = windowId ? QWidget::find(windowId) : nullptr;
    if (!container)
        return;
    container->setMinimumHeight(0);
    container->setMaximumHeight(QWIDGETSIZE_MAX);
    if (CMvAutoscrollProperty *present = AutoScrollWidget()) {
        if (present->parentWidget() == container) {
            present->SetChecked(m_bAutoScroll);
            present->SetValue(m_nAutoScrollPositions);
            return;
        }
        delete present;
    }
    // A host with one window for all its charts: the editor of the chart shown before makes room.
    qDeleteAll(container->findChildren<CMvAutoscrollProperty *>(QString(), Qt::FindDirectChildrenOnly));
    const CModule &texts = *GetModule();
    auto *editor = new CMvAutoscrollProperty(texts.tr("G0086"), texts.tr("G0003"), texts.tr("G0085"),
                                             texts.tr("G0070Message"), 0, mostAutoScrollPositions,
                                             m_nAutoScrollPositions, container);
    editor->SetChecked(m_bAutoScroll);
    m_pAutoScrollWidget = editor;
    if (!container->layout()) {
        auto *layout = new QVBoxLayout(container);
        layout->setContentsMargins(0, 0, 0, 0);
    }
    container->layout()->addWidget(editor);
    editor->show();
}

CMvAutoscrollProperty *CRTimeScale::AutoScrollWidget() const {
    return static_cast<CMvAutoscrollProperty *>(m_pAutoScrollWidget.data());
}

// The members, and the hosted widget when the host shows it.
void CRTimeScale::SetAutoScrollState(bool on, int positions) {
    m_bAutoScroll = on;
    m_nAutoScrollPositions = positions;
    if (CMvAutoscrollProperty *editor = AutoScrollWidget()) {
        editor->SetChecked(on);
        editor->SetValue(positions);
    }
}
