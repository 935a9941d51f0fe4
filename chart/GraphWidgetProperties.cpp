// The settings of a chart window as a property page.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/TimeScale.h"
#include "module/GraphModule.h"
#include "module/HostCalls.h"
#include "objects/ToolBar.h"

#include <QCursor>
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace {

constexpr int rowCount = 18;
constexpr int mostFreePositions = 1000;

enum RowKind { ColorRow, FontRow, IntRow, BoolRow, ListRow };

/// One row of "General": its texts, and the member of the window that it shows.
struct SettingsRow {
    RowKind kind;
    const char *caption;
    const char *hint;
    QRgb CRGraphWidget::*color = nullptr;
    CMvGraphFont CRGraphWidget::*font = nullptr;
    int CRGraphWidget::*number = nullptr;
    bool CRGraphWidget::*flag = nullptr;
};

SettingsRow colorRow(const char *caption, const char *hint, QRgb CRGraphWidget::*member) {
    return {ColorRow, caption, hint, member, nullptr, nullptr, nullptr};
}
SettingsRow fontRow(const char *caption, const char *hint, CMvGraphFont CRGraphWidget::*member) {
    return {FontRow, caption, hint, nullptr, member, nullptr, nullptr};
}
SettingsRow numberRow(RowKind kind, const char *caption, const char *hint, int CRGraphWidget::*member) {
    return {kind, caption, hint, nullptr, nullptr, member, nullptr};
}
SettingsRow flagRow(const char *caption, const char *hint, bool CRGraphWidget::*member) {
    return {BoolRow, caption, hint, nullptr, nullptr, nullptr, member};
}

const std::array<SettingsRow, rowCount> &settingsRows() {
    using W = CRGraphWidget;
    static const std::array<SettingsRow, rowCount> rows{{
        colorRow("C0004BckGrndColor", "G0066Message", &W::m_backgroundColor),
        colorRow("G0021", "G0074Message", &W::m_gridColor),
        fontRow("C0017Font", "G0065Message", &W::m_areaFont),
        colorRow("C0018FontColor", "G0064Message", &W::m_fontColor),
        numberRow(IntRow, "G0016", "G0069Message", &W::m_nFreeSpacePositions),
        flagRow("G0113", "G0113Message", &W::m_bShowAreasBorder),
        flagRow("G0060", "G0025Message", &W::m_bShowAllAreasLocatorMode),
        numberRow(ListRow, "G0061", "G0030Message", &W::m_nSymbolNamesPos),
        fontRow("G0186", "G0187", &W::m_titleFont),
        flagRow("G0087", "G0031Message", &W::m_bTwoColorTitles),
        flagRow("G0081", "G0032Message", &W::m_bVerticalGrid),
        flagRow("G0022", "G0026Message", &W::m_bHorizontalGrid),
        flagRow("G0036", "G0027Message", &W::m_bLeftScale),
        flagRow("G0052", "G0029Message", &W::m_bRightScale),
        flagRow("G0033", "G0033", &W::m_bLastCandleIndicator),
        flagRow("G0107", "G0108Message", &W::m_tradeInSelfTuning),
        flagRow("G0188", "G0189", &W::m_candleInSelfTuning),
        flagRow("G0160", "G0160", &W::m_bManualTestMode),
    }};
    return rows;
}

constexpr int lastCandleRow = 14;

/// The entries of a list are the window's: a copy has all of them, or none.
bool fits(const PROPERTY *item, const PROPERTY &own) {
    if (!item || !item->value || item->type != own.type)
        return false;
    if (own.type != PropertyTypeList)
        return true;
    const auto *list = static_cast<const propertyList *>(item->value);
    return !list->entries || list->count == static_cast<const propertyList *>(own.value)->count;
}

/// Same groups, and in each the same items with values of the same types.
bool hasShapeOf(const PROPERTY_PAGE &page, const PROPERTY_PAGE &model) {
    if (page.groupCount != model.groupCount || (page.groupCount && !page.groups))
        return false;
    for (Word group = 0; group < model.groupCount; ++group) {
        const PROPERTY_GROUP &own = model.groups[group];
        const PROPERTY_GROUP &other = page.groups[group];
        if (other.count != own.count || (other.count && !other.items))
            return false;
        for (Word item = 0; item < own.count; ++item) {
            if (!fits(other.items[item], *own.items[item]))
                return false;
        }
    }
    return true;
}

/// A host may hold the changed page in the record itself: its title then stands where the pointer would.
const PROPERTY_PAGE *changedPage(const PROPERTY_CHANGE &change, const PROPERTY_PAGE &own) {
    if (std::memcmp(&change.page, own.title, sizeof change.page) == 0)
        return reinterpret_cast<const PROPERTY_PAGE *>(&change.page);
    return change.page;
}

QStringList titlePlaces() {
    const CModule &texts = *GetModule();
    return {texts.tr("G0118"), texts.tr("G0119"), texts.tr("G0120")};
}

} // namespace

void CRGraphWidget::CreatePropertyPage() {
    const QString title = m_module->tr("G0019");
    const QString description = QLatin1String("<br><b>") + title + QLatin1String("</b><br>") +
                                m_module->tr("G0088Message");
    const CORE_OBJECT_SYSTEM system{static_cast<Word>(toWord(m_module->m_interfaceHandle)),
                                    static_cast<Word>(toWord(this))};
    ReInicDatePage(title, description, description, system);
    m_nGeneralGroup = CreatePropertyGroup(m_module->tr("C0073General"));
}

void CRGraphWidget::CreatePropertyRows() {
    const auto &rows = settingsRows();
    for (int i = 0; i < rowCount; ++i) {
        const SettingsRow &row = rows[static_cast<std::size_t>(i)];
        const QString caption = m_module->tr(row.caption);
        const QString hint = m_module->tr(row.hint);
        switch (row.kind) {
        case ColorRow:
            m_items[i] = AddPropertyColorItem(m_nGeneralGroup, caption, hint, QColor(this->*row.color));
            break;
        case FontRow:
            m_items[i] = AddPropertyFontItem(m_nGeneralGroup, caption, hint, this->*row.font);
            break;
        case IntRow:
            m_items[i] =
                AddPropertyIntItem(m_nGeneralGroup, caption, hint, this->*row.number, 0, mostFreePositions);
            break;
        case ListRow:
            m_items[i] = AddPropertyListItem(m_nGeneralGroup, caption, hint, titlePlaces(), this->*row.number);
            break;
        case BoolRow:
            m_items[i] = AddPropertyBoolItem(m_nGeneralGroup, caption, hint, this->*row.flag);
            break;
        }
    }
    m_pTimeScale->CreatePropertyPage();
    m_nDefaultGroup = CreatePropertyGroup(m_module->tr("C0090"));
    m_nSaveAsDefaultItem = AddPropertyBoolItem(m_nDefaultGroup, m_module->tr("C0035SetAsDef"),
                                               m_module->tr("C0035SetAsDef"), false);
}

void CRGraphWidget::UpdatePropertyPage() {
    if (m_nSaveAsDefaultItem < 0)
        return; // the rows are not made yet
    const auto &rows = settingsRows();
    for (int i = 0; i < rowCount; ++i) {
        const SettingsRow &row = rows[static_cast<std::size_t>(i)];
        switch (row.kind) {
        case ColorRow:
            SetProperty(m_nGeneralGroup, m_items[i], QColor(this->*row.color));
            break;
        case FontRow:
            SetProperty(m_nGeneralGroup, m_items[i], static_cast<const QFont &>(this->*row.font));
            break;
        case IntRow:
        case ListRow:
            SetProperty(m_nGeneralGroup, m_items[i], this->*row.number);
            break;
        case BoolRow:
            SetProperty(m_nGeneralGroup, m_items[i], this->*row.flag);
            break;
        }
    }
    m_pTimeScale->UpdatePropertyPage();
    SetProperty(m_nDefaultGroup, m_nSaveAsDefaultItem, false);
}

int CRGraphWidget::ShowPropertyPage() {
    UpdatePropertyPage();
    const QPointer<CRGraphWidget> alive(this);
    const bool known = HostCalls::isPageKnown(m_hComponent, GetPage());
    if (alive)
        HostCalls::showPage(m_hComponent, GetPage(), known);
    if (alive)
        m_pTimeScale->ShowAutoScrollWidget();
    return 0;
}

/// The rows' values into the members; a value that a row cannot have leaves its member as it is.
void CRGraphWidget::TakePropertyRows() {
    const auto &rows = settingsRows();
    for (int i = 0; i < rowCount; ++i) {
        const SettingsRow &row = rows[static_cast<std::size_t>(i)];
        const QVariant value = GetPropertyItem(m_nGeneralGroup, m_items[i]);
        if (!value.isValid())
            continue;
        switch (row.kind) {
        case ColorRow:
            this->*row.color = value.value<QColor>().rgb();
            break;
        case FontRow:
            if (value.value<QFont>().pointSize() <= QWIDGETSIZE_MAX)
                this->*row.font = value.value<QFont>();
            break;
        case IntRow:
            this->*row.number = std::clamp(value.toInt(), 0, mostFreePositions);
            break;
        case ListRow:
            if (value.toInt() >= 0 && value.toInt() <= 2)
                this->*row.number = value.toInt();
            // The host may have left the entries out of its copy.
            ChangePropertyListItem(m_nGeneralGroup, m_items[i], titlePlaces(), value.toInt());
            break;
        case BoolRow:
            this->*row.flag = value.toBool();
            break;
        }
    }
}

/// The rows whose number the window did not take from the page: it was out of range.
std::vector<int> CRGraphWidget::RowsOutOfStep() const {
    std::vector<int> found;
    const auto &rows = settingsRows();
    for (int i = 0; i < rowCount; ++i) {
        const SettingsRow &row = rows[static_cast<std::size_t>(i)];
        if (row.number && GetPropertyItem(m_nGeneralGroup, m_items[i]).toInt() != this->*row.number)
            found.push_back(i);
    }
    return found;
}

int CRGraphWidget::ApplyPropertyPage(PROPERTY_CHANGE *change) {
    // A page that closes brings no data; a page of another shape is none of ours.
    const PROPERTY_PAGE *page = change ? changedPage(*change, *GetPage()) : nullptr;
    if (!page || !hasShapeOf(*page, *GetPage()))
        return 0;
    if (page != GetPage())
        CopyPage(*page);
    TakePropertyRows();
    m_pTimeScale->ApplyPropertyPage();
    m_pTimeScale->m_nHeight = m_areaFont.pointSize() * 2 + 10;
    for (CRGraphArea *area : m_areas) {
        area->m_properties = CRGraphArea::Properties(this);
        area->ApplyPropertyPage(this);
    }
    const bool saveAsDefault = GetPropertyItem(m_nDefaultGroup, m_nSaveAsDefaultItem).toBool();
    const std::vector<int> broughtBack = RowsOutOfStep();
    UpdatePropertyPage();
    RecomputeChartRect();
    UpdateScaleWidth();
    update();
    const QPointer<CRGraphWidget> alive(this);
    QToolButton *button = GetLastCandleIndicatorButton();
    if (alive && button)
        button->setChecked(m_bLastCandleIndicator);
    for (int row : broughtBack) {
        if (alive)
            HostCalls::pageItemChanged(m_hComponent, GetPage(), getPropertyItem(m_nGeneralGroup, m_items[row]));
    }
    if (alive && saveAsDefault)
        HostCalls::pageItemChanged(m_hComponent, GetPage(),
                                   getPropertyItem(m_nDefaultGroup, m_nSaveAsDefaultItem));
    if (alive)
        UpdatePrimitivePositions(ScreenDataPointsUpdate(), false);
    if (alive)
        UndoMilestone(m_module->tr("C0030Propes"));
    return 0;
}

void CRGraphWidget::OnShowProperties() {
    HostCalls::raisePanel(m_hComponent, HostCalls::propertyPanel);
    ShowPropertyPage();
}

void CRGraphWidget::OnBnClickedPropertiesMenu() {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(m_module->tr("G0019"), this, SLOT(OnShowProperties()));
    menu->popup(m_pPropertiesButton ? m_pPropertiesButton->mapToGlobal(QPoint(0, m_pPropertiesButton->height()))
                                    : QCursor::pos());
}

void CRGraphWidget::OnBnClickedLastCandleIndicator() {
    const QPointer<CRGraphWidget> alive(this);
    QToolButton *button = GetLastCandleIndicatorButton();
    if (!button || !alive)
        return;
    m_bLastCandleIndicator = button->isChecked();
    if (PROPERTY *item = SetProperty(m_nGeneralGroup, m_items[lastCandleRow], m_bLastCandleIndicator))
        HostCalls::pageItemChanged(m_hComponent, GetPage(), item);
    if (!alive)
        return;
    UpdateScaleWidth();
    update();
    UndoMilestone(m_module->tr("G0033"));
}
