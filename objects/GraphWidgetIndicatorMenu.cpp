// The catalogue of indicators, its menus, and the choice of a data source.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "dialogs/SelectPrimitiveWidget.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/Indicator.h"

#include <QMenu>
#include <QPointer>

namespace {

enum Category : unsigned { otherIndicators = 0, trend = 1, oscillators = 2, volatility = 3, ostrel = 4 };

struct CategoryMenu {
    unsigned category;
    const char *titleId;
    void (CRGraphWidget::*handler)(QAction *);
};

// In the order of the menu.
constexpr CategoryMenu categoryMenus[] = {
    {trend, "M0247", &CRGraphWidget::OnMenuIndicatorAddTrend},
    {oscillators, "M0248", &CRGraphWidget::OnMenuIndicatorAddOsci},
    {volatility, "M0249", &CRGraphWidget::OnMenuIndicatorAddVol},
    {otherIndicators, "M0246", &CRGraphWidget::OnMenuIndicatorAddUnk},
    {ostrel, "M0250", &CRGraphWidget::OnMenuIndicatorAddRul},
};

} // namespace

void CRGraphWidget::CreateGlobalIndicatorsList() {
    QPointer<CRGraphWidget> guard(this);
    m_globalIndicators.clear();
    // Collected apart: the host can ask for the same list while it answers.
    indListIndicators found;
    for (void *iface : HostCalls::findInterfaces("MVINDICATORS")) {
        if (!iface)
            continue;
        const int count = HostCalls::indicatorCount(iface);
        for (const INDICATOR_DESCRIPTION &description : HostCalls::indicatorList(iface, count)) {
            indListEntry entry;
            entry.interfaceHandle = iface;
            entry.description = description;
            entry.category = description.category;
            found.push_back(entry);
        }
    }
    if (guard)
        m_globalIndicators.swap(found);
}

// The submenu of indicators, when there is something to build them on.
void CRGraphWidget::AddIndicatorMenu(QMenu *menu) {
    QPointer<QMenu> parent(menu);
    QPointer<CRGraphWidget> guard(this);
    CreateGlobalIndicatorsList();
    if (!guard || !parent || m_nPrimitiveCount == 0 || m_globalIndicators.empty())
        return;
    QMenu *indicators = menu->addMenu(m_module->tr("M0037", 0));
    for (const CategoryMenu &row : categoryMenus) {
        QMenu *submenu = indicators->addMenu(m_module->tr(row.titleId, 0));
        for (indListEntry &entry : m_globalIndicators)
            if (entry.category == row.category)
                entry.action = submenu->addAction(fieldText(entry.description.displayName));
        connect(submenu, &QMenu::triggered, this, row.handler);
    }
}

void CRGraphWidget::AddFromCatalogue(unsigned category, QAction *action) {
    for (const indListEntry &entry : m_globalIndicators)
        if (action && entry.category == category && entry.action == action) {
            CreateIndicatorFromMenu(fieldText(entry.description.name.m_szNameSymbol), entry.interfaceHandle);
            return;
        }
}

void CRGraphWidget::OnMenuIndicatorAddUnk(QAction *action) {
    AddFromCatalogue(otherIndicators, action);
}

void CRGraphWidget::OnMenuIndicatorAddTrend(QAction *action) {
    AddFromCatalogue(trend, action);
}

void CRGraphWidget::OnMenuIndicatorAddOsci(QAction *action) {
    AddFromCatalogue(oscillators, action);
}

void CRGraphWidget::OnMenuIndicatorAddVol(QAction *action) {
    AddFromCatalogue(volatility, action);
}

void CRGraphWidget::OnMenuIndicatorAddRul(QAction *action) {
    AddFromCatalogue(ostrel, action);
}

// Null when the user is asked for the source first.
void *CRGraphWidget::CreateIndicatorFromMenu(const QString &name, void *iface) {
    QPointer<CRGraphWidget> guard(this);
    UpdatePrimitiveCount();
    if (!guard)
        return nullptr;
    if (m_nPrimitiveCount == 1)
        return AddSecondaryPrimitive(name.utf16(), iface, GetAnyPrimitive(), nullptr);
    if (m_nPrimitiveCount > 1)
        RouteToSource(name, iface);
    return nullptr;
}

void *CRGraphWidget::AddVelmarIndicator(const char *name) {
    QPointer<CRGraphWidget> guard(this);
    m_chooseLayerOnAdd = false;
    void *iface = m_module->GetInterfaceByName("MVINDICATORS", "VELMAR", nullptr);
    if (!iface || !guard)
        return nullptr;
    const QString text = QString::fromLatin1(name);
    const bool needsSource = HostCalls::indicatorNeedsSource(iface, text.utf16());
    if (!guard)
        return nullptr;
    return needsSource ? CreateIndicatorFromMenu(text, iface)
                       : AddSecondaryPrimitive(text.utf16(), iface, nullptr, nullptr);
}

// ---- the source picker ----

// Opens the picker; the first series of the selected pane is preset.
void CRGraphWidget::RouteToSource(const QString &name, void *iface) {
    const CRGraphArea *area = m_nSelectedArea >= 0 ? GetArea(m_nSelectedArea) : nullptr;
    const CRGraphLayer *layer = area && !area->m_layers.empty() ? area->m_layers.front() : nullptr;
    const CRPrimitive *preset = layer && !layer->m_primitives.empty() ? layer->m_primitives.front() : nullptr;
    const mvDataPointArray *array = preset ? preset->GetArray() : nullptr;
    SelectPrimitive(m_module->tr("G0056", 0), name, iface, array ? lineName(preset) : QString(),
                    array ? &array->identity : nullptr);
}

// `name` and `iface` are of the indicator that will be added on the user's choice.
void CRGraphWidget::SelectPrimitive(const QString &title, const QString &name, void *iface, const QString &,
                                    const coreNameInstrument *preset) {
    if (m_selectPrimitive)
        return;
    m_pickName = name;
    m_pickInterface = iface;
    setCursor(QCursor(LoadModulePixmap(QStringLiteral("graphcusor.png")), 0, 0));
    QPointer<CSelectPrimitiveWidget> picker = new CSelectPrimitiveWidget(this, title, name);
    m_selectPrimitive = picker;
    picker->FillListBox(preset); // asks the host for names
    if (picker)
        picker->show();
}

void CRGraphWidget::OnSelectPrimitive() {
    if (!m_selectPrimitive)
        return;
    QPointer<CRGraphWidget> guard(this);
    setCursor(Qt::ArrowCursor);
    CRPrimitive *primitive = m_selectPrimitive->GetCurrentPrimitive();
    const QString name = m_pickName; // the next choice may begin inside the addition
    if (primitive && FindWidgetPrimitive(primitive))
        AddSecondaryPrimitive(name.utf16(), m_pickInterface, primitive, nullptr);
    if (guard)
        ClosePicker();
}

void CRGraphWidget::OnCancelSelectPrimitive() {
    if (!m_selectPrimitive)
        return;
    setCursor(Qt::ArrowCursor);
    ClosePicker();
}

void CRGraphWidget::ClosePicker() {
    CSelectPrimitiveWidget *picker = m_selectPrimitive;
    m_selectPrimitive = nullptr;
    if (!picker)
        return;
    picker->hide();
    picker->deleteLater();
}
