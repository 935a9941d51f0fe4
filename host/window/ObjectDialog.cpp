#include "host/window/ObjectDialog.h"
#include "host/core/CalculatedObject.h"
#include "host/pages/Page.h"
#include "host/pages/PageView.h"
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace desk {

ObjectDialog::ObjectDialog(CalculatedObject &object, QWidget *parent)
    : QDialog(parent), m_object(object), m_view(new PageView(this)), m_refusal(new QLabel(this)) {
    setObjectName(QStringLiteral("objectDialog"));
    auto *layout = new QVBoxLayout(this);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_refusal->setProperty("role", QStringLiteral("refusal"));
    m_refusal->setWordWrap(true);
    m_refusal->hide();
    layout->addWidget(m_view, 1);
    layout->addWidget(m_refusal);
    layout->addWidget(buttons);
    if (const std::unique_ptr<Page> page = object.page()) {
        setWindowTitle(page->title);
        m_view->setPage(*page);
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &ObjectDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(360, qBound(180, m_view->widget() ? m_view->widget()->sizeHint().height() + 90 : 180, 560));
}

void ObjectDialog::accept() {
    if (m_view->isChanged()) {
        const QString refusal = m_object.applyPage(m_view->page());
        m_refusal->setText(refusal);
        m_refusal->setVisible(!refusal.isEmpty());
        if (!refusal.isEmpty())
            return;
    }
    QDialog::accept();
}

} // namespace desk
