#include "host/pages/PropertyDock.h"
#include "host/pages/PageView.h"
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace desk {

PropertyDock::PropertyDock(QWidget *parent) : QDockWidget(parent) {
    setObjectName(QStringLiteral("propertyDock"));
    auto *body = new QWidget(this);
    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_title = new QLabel(body);
    m_title->setProperty("role", QStringLiteral("title"));
    m_title->setContentsMargins(10, 6, 10, 4);
    m_view = new PageView(body);
    m_refusal = new QLabel(body);
    m_refusal->setProperty("role", QStringLiteral("refusal"));
    m_refusal->setWordWrap(true);
    m_refusal->setContentsMargins(10, 4, 10, 4);
    m_refusal->hide();
    auto *buttons = new QHBoxLayout;
    buttons->setContentsMargins(10, 6, 10, 8);
    m_resetButton = new QPushButton(body);
    m_applyButton = new QPushButton(body);
    m_applyButton->setObjectName(QStringLiteral("applyPage"));
    m_applyButton->setDefault(true);
    m_resetButton->setObjectName(QStringLiteral("resetPage"));
    buttons->addStretch(1);
    buttons->addWidget(m_resetButton);
    buttons->addWidget(m_applyButton);
    layout->addWidget(m_title);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_refusal);
    layout->addLayout(buttons);
    setWidget(body);
    setMinimumWidth(250);
    connect(m_applyButton, &QPushButton::clicked, this, &PropertyDock::apply);
    connect(m_resetButton, &QPushButton::clicked, this, &PropertyDock::reset);
    connect(m_view, &PageView::edited, this, &PropertyDock::showEdited);
    m_applyButton->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
    retranslate();
    showEdited(false);
}

void PropertyDock::showPage(const PageKey &key, const Page &page, Apply apply) {
    m_key = key;
    m_page = page;
    m_apply = std::move(apply);
    m_refusal->hide();
    m_title->setText(page.title);
    m_title->setToolTip(page.text);
    m_view->setPage(page);
}

void PropertyDock::closePage(const PageKey &key) {
    if (shows(key))
        showPage(PageKey(), Page(), nullptr);
}

void PropertyDock::raiseDock() {
    show();
    raise();
}

void PropertyDock::apply() {
    if (!m_apply || !m_view->isChanged())
        return;
    const Page page = m_view->page();
    const PageKey key = m_key;
    // The owner may show the page again, or another one, before it answers.
    const Apply applyPage = m_apply;
    const QPointer<PropertyDock> alive(this);
    m_view->setChanged(false);
    const QString refusal = applyPage(page);
    if (!alive)
        return;
    if (shows(key) && refusal.isEmpty()) {
        m_page = m_view->page();
        m_view->keepHostedValues();
    }
    m_refusal->setText(refusal);
    m_refusal->setVisible(!refusal.isEmpty());
    if (!refusal.isEmpty())
        m_view->setChanged(true);
}

void PropertyDock::reset() {
    if (m_key.owner == PageKey::None)
        return;
    m_refusal->hide();
    for (const PageGroup &group : m_page.groups) {
        for (const PageItem &item : group.items)
            m_view->setItemValue(item.group, item.index, item.value);
    }
    m_view->setChanged(false);
}

void PropertyDock::showEdited(bool changed) {
    m_applyButton->setEnabled(changed && m_apply);
    m_resetButton->setEnabled(changed);
}

void PropertyDock::changeEvent(QEvent *event) {
    QDockWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void PropertyDock::retranslate() {
    setWindowTitle(tr("Properties"));
    m_applyButton->setText(tr("Apply"));
    m_resetButton->setText(tr("Reset"));
}

} // namespace desk
