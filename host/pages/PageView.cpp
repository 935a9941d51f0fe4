#include "host/pages/PageView.h"
#include <QFormLayout>
#include <QLabel>

namespace desk {

PageView::PageView(QWidget *parent) : QScrollArea(parent) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void PageView::setPage(const Page &page) {
    m_page = page;
    m_rows.clear();
    auto *body = new QWidget;
    body->setObjectName(QStringLiteral("pageBody"));
    // One form for all groups keeps the editors in one column.
    auto *form = new QFormLayout(body);
    form->setContentsMargins(10, 6, 10, 10);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(5);
    for (const PageGroup &group : page.groups)
        addGroup(group, form, body);
    // A page can be replaced from inside a call that one of its editors made.
    if (QWidget *old = takeWidget()) {
        old->hide();
        old->deleteLater();
    }
    setWidget(body);
    setChanged(false);
}

void PageView::addGroup(const PageGroup &group, QFormLayout *form, QWidget *body) {
    if (!group.name.isEmpty()) {
        auto *headline = new QLabel(group.name, body);
        headline->setProperty("role", QStringLiteral("headline"));
        form->addRow(headline);
    }
    for (const PageItem &item : group.items) {
        const PageEditor editor = makePageEditor(item, body, [this] { setChanged(true); });
        m_rows.push_back({item.group, item.index, editor});
        if (item.kind == PageItem::Widget) {
            form->addRow(editor.widget);
            continue;
        }
        auto *label = new QLabel(item.name, body);
        label->setToolTip(item.description);
        label->setBuddy(editor.widget);
        label->setWordWrap(true);
        form->addRow(label, editor.widget);
    }
}

const PageView::Row *PageView::row(int group, int index) const {
    for (const Row &candidate : m_rows) {
        if (candidate.group == group && candidate.index == index)
            return &candidate;
    }
    return nullptr;
}

Page PageView::page() const {
    Page result = m_page;
    for (const Row &candidate : m_rows) {
        if (PageItem *item = result.find(candidate.group, candidate.index))
            item->value = candidate.editor.value();
    }
    return result;
}

void PageView::setChanged(bool changed) {
    m_changed = changed;
    emit edited(changed);
}

quint32 PageView::windowId(int group, int index) const {
    const Row *found = row(group, index);
    const PageItem *item = m_page.find(group, index);
    return found && item && item->kind == PageItem::Widget ? found->editor.value().toUInt() : 0;
}

void PageView::keepHostedValues() {
    for (const Row &candidate : m_rows) {
        if (candidate.editor.keep)
            candidate.editor.keep();
    }
}

void PageView::setItemValue(int group, int index, const QVariant &value) {
    if (PageItem *item = m_page.find(group, index))
        item->value = value;
    if (const Row *found = row(group, index))
        found->editor.setValue(value);
}

QWidget *PageView::editor(int group, int index) const {
    const Row *found = row(group, index);
    return found ? found->editor.widget : nullptr;
}

} // namespace desk
