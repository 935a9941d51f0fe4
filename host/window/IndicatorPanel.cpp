#include "host/window/IndicatorPanel.h"
#include "host/core/Host.h"
#include "host/core/Service.h"
#include "host/window/Theme.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desk {

namespace {

constexpr int entryRole = Qt::UserRole;

// Names of the categories by their numbers; the order is that of the list.
struct Category {
    quint32 number;
    const char *name;
};
constexpr Category categories[] = {{1, QT_TRANSLATE_NOOP("desk::IndicatorPanel", "Trend indicators")},
                                   {2, QT_TRANSLATE_NOOP("desk::IndicatorPanel", "Oscillators")},
                                   {3, QT_TRANSLATE_NOOP("desk::IndicatorPanel", "Volatility indicators")},
                                   {4, QT_TRANSLATE_NOOP("desk::IndicatorPanel", "Ostrel indicators")},
                                   {0, QT_TRANSLATE_NOOP("desk::IndicatorPanel", "Other indicators")}};

} // namespace

IndicatorPanel::IndicatorPanel(Host &host, QWidget *parent) : QDockWidget(parent), m_host(host) {
    setObjectName(QStringLiteral("indicatorPanel"));
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(6, 2, 4, 4);
    layout->setSpacing(4);
    m_filter = new QLineEdit(body);
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(theme::icon(QStringLiteral("search")), QLineEdit::LeadingPosition);
    m_view = new QTreeWidget(body);
    m_view->setObjectName(QStringLiteral("indicatorView"));
    m_view->setHeaderHidden(true);
    m_view->setColumnCount(1);
    m_view->setExpandsOnDoubleClick(false);
    m_view->setContextMenuPolicy(Qt::CustomContextMenu);
    layout->addWidget(m_filter);
    layout->addWidget(m_view, 1);
    setWidget(body);
    connect(m_filter, &QLineEdit::textChanged, this, &IndicatorPanel::filter);
    connect(m_filter, &QLineEdit::returnPressed, this, [this] {
        if (QTreeWidgetItem *item = firstShown())
            activate(item);
    });
    connect(m_view, &QTreeWidget::itemActivated, this, &IndicatorPanel::activate);
    connect(m_view, &QWidget::customContextMenuRequested, this, &IndicatorPanel::showMenu);
    retranslate();
}

void IndicatorPanel::reload() {
    m_entries.clear();
    for (const Handle handle : m_host.interfaces().findAll("MVINDICATORS", QByteArray(), QByteArray())) {
        const InterfaceEntry *entry = m_host.interfaces().find(handle);
        if (!entry || !entry->service)
            continue;
        Word count = 0;
        int result = 0;
        entry->service->handle(handle, ToHost::IndicatorCount, toWord(&count), 0, result);
        std::vector<INDICATOR_DESCRIPTION> descriptions(count, zeroRecord<INDICATOR_DESCRIPTION>());
        coreIndicatorCatalogue catalogue{int(count), descriptions.data()};
        entry->service->handle(handle, ToHost::IndicatorList, toWord(&catalogue), 0, result);
        for (int i = 0; i < std::min(int(catalogue.count), int(count)); ++i) {
            const INDICATOR_DESCRIPTION &description = descriptions[std::size_t(i)];
            m_entries.push_back({handle, fieldText(description.displayName),
                                 readText(description.name.m_szNameSymbol, 255), description.category});
        }
    }
    fill();
}

void IndicatorPanel::fill() {
    m_view->clear();
    for (const Category &category : categories) {
        QTreeWidgetItem *head = nullptr;
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].category != category.number)
                continue;
            if (!head) {
                head = new QTreeWidgetItem(m_view, {tr(category.name)});
                head->setFlags(Qt::ItemIsEnabled);
                QFont font = head->font(0);
                font.setBold(true);
                head->setFont(0, font);
            }
            auto *item = new QTreeWidgetItem(head, {tr(qPrintable(m_entries[i].displayName))});
            item->setData(0, entryRole, int(i));
        }
        if (head)
            head->setExpanded(true);
    }
    filter(m_filter->text());
}

void IndicatorPanel::filter(const QString &text) {
    for (int i = 0; i < m_view->topLevelItemCount(); ++i) {
        QTreeWidgetItem *head = m_view->topLevelItem(i);
        int shown = 0;
        for (int j = 0; j < head->childCount(); ++j) {
            const IndicatorEntry &entry = m_entries[std::size_t(head->child(j)->data(0, entryRole).toInt())];
            const bool hidden = !head->child(j)->text(0).contains(text, Qt::CaseInsensitive) &&
                                !entry.internalName.contains(text, Qt::CaseInsensitive);
            head->child(j)->setHidden(hidden);
            shown += hidden ? 0 : 1;
        }
        head->setHidden(shown == 0);
    }
}

// What the filter leaves: the entry that stands selected, else the first one.
QTreeWidgetItem *IndicatorPanel::firstShown() const {
    QTreeWidgetItem *current = m_view->currentItem();
    if (current && current->parent() && !current->isHidden())
        return current;
    for (int i = 0; i < m_view->topLevelItemCount(); ++i) {
        for (int j = 0; j < m_view->topLevelItem(i)->childCount(); ++j) {
            if (!m_view->topLevelItem(i)->child(j)->isHidden())
                return m_view->topLevelItem(i)->child(j);
        }
    }
    return nullptr;
}

void IndicatorPanel::activate(QTreeWidgetItem *item) {
    if (!item || !item->parent())
        return;
    const std::size_t index = std::size_t(item->data(0, entryRole).toInt());
    if (index < m_entries.size())
        emit addWanted(m_entries[index]);
}

void IndicatorPanel::showMenu(const QPoint &point) {
    QTreeWidgetItem *item = m_view->itemAt(point);
    if (!item || !item->parent())
        return;
    m_view->setCurrentItem(item);
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("indicatorMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Add to the active chart"), this, [this] { activate(m_view->currentItem()); });
    menu->popup(m_view->viewport()->mapToGlobal(point));
}

void IndicatorPanel::changeEvent(QEvent *event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void IndicatorPanel::retranslate() {
    setWindowTitle(tr("Indicators"));
    m_filter->setPlaceholderText(tr("Find an indicator"));
    m_view->setToolTip(tr("Double-click adds an indicator to the active chart"));
    fill();
}

} // namespace desk
