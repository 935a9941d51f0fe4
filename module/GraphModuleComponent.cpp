// Messages of the window component family: the life of a chart window and what is put on it.
#include "module/GraphModule.h"

#include "chart/GraphArea.h"
#include "chart/GraphLayer.h"
#include "chart/GraphWidget.h"
#include "module/FindObject.h"
#include "module/HostCalls.h"
#include "objects/Warning.h"
#include "support/Log.h"
#include "support/Skin.h"

#include <QBuffer>
#include <QPointer>

namespace {

QByteArray iconPng() {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    LoadModulePixmap("graphlogo.png").save(&buffer, "PNG");
    return png;
}

// Text fields with a terminator behind them, as the window's operations take them.
struct EndedSymbol {
    explicit EndedSymbol(const Unit16 (&field)[255]) { std::memcpy(text, field, sizeof field); }
    unsigned short text[256] = {};
};

struct EndedType {
    explicit EndedType(const char (&field)[255]) { std::memcpy(text, field, sizeof field); }
    char text[256] = {};
};

} // namespace

// ---- life ----

int CRGraphModule::MvWindowComponentCreate(int wParam, int) {
    trace("creating window component", "|GraphModule|1380");
    mvwcCreateData *data = fromWord<mvwcCreateData>(wParam);
    if (!data)
        return 1;
    data->widget = nullptr;
    const bool tester = data->kind == 1;
    std::unique_ptr<CRGraphWidget> created;
    try {
        created.reset(new CRGraphWidget(this, m_interfaceHandle, QWidget::find(data->parent),
                                        QWidget::find(data->toolBarParent), nullptr, Qt::WindowFlags()));
    } catch (...) {
        return 1;
    }
    created->m_sysTesterChart = tester;
    created->SetAutoScroll(!tester);
    CRGraphWidget *widget = created.get();
    data->widget = widget;
    widget->setVisible(true);
    m_widgets.push_back(created.release());
    m_tradeModule.Start();
    m_hasTradeData = m_tradeModule.GetTradeData(false);
    return 0;
}

int CRGraphModule::MvWindowComponentDelete(int wParam, int) {
    trace("deleting window component", "|GraphModule|1431");
    CRGraphWidget *widget = KnownWidget(wParam);
    if (!widget)
        return 1;
    HostCalls::windowGoesAway(widget);
    if (GetGraphWidgetIndex(widget) < 0)
        return 0;
    DeleteFromWidgetList(widget);
    DiscardWidget(widget);
    return 0;
}

int CRGraphModule::MvWindowComponentResize(int wParam, int) {
    CRGraphWidget *widget = KnownWidget(wParam);
    if (!widget)
        return 1;
    const QWidget *parent = widget->parentWidget();
    if (parent && parent->parentWidget())
        widget->resize(parent->parentWidget()->geometry().size());
    return 0;
}

int CRGraphModule::MvWindowComponentShow(int wParam, int) {
    CRGraphWidget *widget = KnownWidget(wParam);
    if (!widget)
        return 1;
    if (widget->m_loading)
        return 0;
    widget->m_bHidden = false;
    trace("update", "|GraphModule|1456");
    widget->update();
    return 0;
}

int CRGraphModule::MvWindowComponentTakeFocus(int wParam, int) {
    CRGraphWidget *widget = KnownWidget(wParam);
    if (!widget)
        return 1;
    if (widget->m_loading)
        return 0;
    for (CRGraphWidget *other : m_widgets)
        other->m_bCurrent = false;
    widget->m_bCurrent = true;
    widget->setFocus(Qt::OtherFocusReason);
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->TuneUpGraphToolBar();
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->ShowPropertyPage();
    return 0;
}

// ---- instruments and indicators ----

int CRGraphModule::MvWindowComponentAddMdpa(int wParam, int lParam) {
    CRGraphWidget *widget = KnownWidget(wParam);
    const mvwcDpaList *list = fromWord<const mvwcDpaList>(lParam);
    if (!widget || !list)
        return 1;
    widget->setFocus(Qt::OtherFocusReason);
    for (int i = 0; i < list->count && list->items; ++i) {
        const mvwcDpaItem item = list->items[i];
        const QByteArray provider = HostCalls::providerName(item.handle).toLocal8Bit();
        if (GetGraphWidgetIndex(widget) < 0)
            return 0;
        char providerText[256] = {};
        fillField(providerText, provider.left(255));
        EndedSymbol symbol(item.instrument.m_szNameSymbol);
        EndedType type(item.instrument.m_szType);
        widget->m_chooseLayerOnAdd = false;
        widget->AddPrimaryPrimitive(symbol.text, type.text, item.instrument.m_periods, providerText,
                                    item.parameter, nullptr);
        if (GetGraphWidgetIndex(widget) < 0)
            return 0;
    }
    widget->UpdateTitle();
    if (GetGraphWidgetIndex(widget) < 0)
        return 0;
    widget->ChangeDesktop();
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->m_bNeedUpdate = true;
    return 0;
}

int CRGraphModule::MvWindowComponentAddDpa(int wParam, int lParam) {
    CRGraphWidget *widget = KnownWidget(wParam);
    const mvwcDpaList *list = fromWord<const mvwcDpaList>(lParam);
    if (!widget || !list)
        return 1;
    widget->setFocus(Qt::OtherFocusReason);
    if (list->count > 0 && list->items) {
        if (list->items[0].kind == mvwcTemplateItem) {
            if (!ApplyTemplate(widget, list->items[0]))
                return 1;
        } else {
            for (int i = 0; i < list->count; ++i) {
                mvwcDpaItem item = list->items[i];
                if (!AddIndicatorItem(widget, item))
                    break;
            }
        }
    }
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->UpdateTitle();
    if (GetGraphWidgetIndex(widget) >= 0)
        widget->ChangeDesktop();
    return 0;
}

// No template can be opened: every one ends as a file that is not there.
bool CRGraphModule::ApplyTemplate(CRGraphWidget *widget, const mvwcDpaItem &item) {
    if (widget->m_indicators.empty()) {
        const QString text = tr("G0185");
        showWarning(widget, tr("C0071Warn"), text);
        logLine(logMsgSystem, logWarning, text, nullptr);
        return false;
    }
    const QPointer<CRGraphWidget> alive(widget);
    QString path = fieldText(item.instrument.m_szNameSymbol);
    if (path.isEmpty())
        path = GetTemplatePath() + "/" + fieldText(item.shortName) + ".tpl";
    if (!alive)
        return false;
    const QString title = tr("G0204");
    showWarning(widget, title, tr("G0203").arg(path));
    logLine(logMsgSystem, logWarning, title, nullptr);
    return false;
}

// False ends the list: an indicator needs a source and the chart has none.
bool CRGraphModule::AddIndicatorItem(CRGraphWidget *widget, mvwcDpaItem &item) {
    const EndedSymbol name(item.instrument.m_szNameSymbol);
    const bool needsSource = HostCalls::indicatorNeedsSource(item.handle, name.text);
    if (GetGraphWidgetIndex(widget) < 0)
        return false;
    widget->m_chooseLayerOnAdd = false;
    if (!needsSource) {
        widget->AddSecondaryPrimitive(name.text, item.handle, nullptr, nullptr);
        return GetGraphWidgetIndex(widget) >= 0;
    }
    widget->UpdatePrimitiveCount();
    if (GetGraphWidgetIndex(widget) < 0)
        return false;
    widget->m_nSelectedArea = -1;
    if (widget->m_nPrimitiveCount < 1)
        return false;
    if (widget->m_nPrimitiveCount == 1)
        widget->AddSecondaryPrimitive(name.text, item.handle, widget->GetAnyPrimitive(), nullptr);
    else
        widget->SelectPrimitive(tr("G0056"), fieldText(item.instrument.m_szNameSymbol), item.handle, "",
                                nullptr);
    return GetGraphWidgetIndex(widget) >= 0;
}

int CRGraphModule::DhOpenReport(int wParam, int lParam) {
    CRGraphWidget *widget = KnownWidget(wParam);
    coreDemandsIndicator *record = fromWord<coreDemandsIndicator>(lParam);
    if (!widget || !record)
        return 1;
    return widget->CreateDealingIndicator(record) ? 0 : 1;
}

// ---- selection and ownership ----

// Only a line study is ever found here.
int CRGraphModule::MvWindowComponentSelectObj(int, int lParam) {
    mvwcSelectObj *record = fromWord<mvwcSelectObj>(lParam);
    if (!record)
        return 1;
    record->result = 0;
    return 0;
}

int CRGraphModule::MvWindowComponentGetOwnerForObj(int wParam, int) {
    mvwcGetOwnerForObj *record = fromWord<mvwcGetOwnerForObj>(wParam);
    if (!record)
        return 1;
    FindObject search(record->object);
    for (CRGraphWidget *widget : m_widgets) {
        if (widget != record->object && !search.Search(widget))
            continue;
        record->interfaceHandle = static_cast<Word>(toWord(m_interfaceHandle));
        record->widget = widget;
        return 0;
    }
    return 1;
}

// ---- names ----

int CRGraphModule::MvWindowComponentGetName(int wParam, int) {
    mvwcNameDataComponent *record = fromWord<mvwcNameDataComponent>(wParam);
    if (!record)
        return 1;
    fillField(record->name, tr("G0019"));
    record->end = 0;
    const QByteArray png = iconPng();
    if (record->icon)
        std::memcpy(record->icon, png.constData(), static_cast<std::size_t>(png.size()));
    record->iconSize = static_cast<Word>(png.size());
    return 0;
}

int CRGraphModule::MvWindowComponentGetuname(int wParam, int) {
    mvwcUNameDataComponent *record = fromWord<mvwcUNameDataComponent>(wParam);
    if (!record)
        return 1;
    fillField(record->name, tr("G0019"));
    record->end = 0;
    const QByteArray png = iconPng();
    if (record->icon && record->iconSize >= png.size()) {
        std::memcpy(record->icon, png.constData(), static_cast<std::size_t>(png.size()));
        record->iconSize = png.size();
    }
    return 0;
}

int CRGraphModule::MvWindowComponentGetUnameData(int, int) {
    return 0;
}

int CRGraphModule::MvWindowComponentGetCaption(int wParam, int lParam) {
    const coreChartWindow *window = fromWord<const coreChartWindow>(wParam);
    Unit16 *text = fromWord<Unit16>(lParam);
    if (!window || !text)
        return 1;
    CRGraphWidget *widget = window->widget;
    if (GetGraphWidgetIndex(widget) < 0)
        return 1;
    const QString caption = widget->UpdateTitle();
    std::memcpy(text, caption.utf16(), (static_cast<std::size_t>(caption.size()) + 1) * 2);
    return 0;
}

// ---- properties ----

int CRGraphModule::PropertyChangeData(int wParam, int) {
    PROPERTY_CHANGE *change = fromWord<PROPERTY_CHANGE>(wParam);
    if (!change || !change->owner)
        return 1;
    if (change->owner == &m_tradeModule)
        return 0;
    for (CRGraphWidget *widget : m_widgets) {
        if (widget == change->owner) {
            widget->ApplyPropertyPage(change);
            return 0;
        }
    }
    return 1;
}
