#include "host/window/GuideWindow.h"
#include <QEvent>
#include <QFile>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace desk {

GuideWindow::GuideWindow(QWidget *parent) : QDialog(parent) {
    setObjectName(QStringLiteral("guideWindow"));
    auto *text = new QTextBrowser(this);
    text->setObjectName(QStringLiteral("guideText"));
    text->setFrameShape(QFrame::NoFrame);
    text->document()->setDocumentMargin(14);
    QFile file(QStringLiteral(":/user-guide.md"));
    if (file.open(QIODevice::ReadOnly))
        text->setMarkdown(QString::fromUtf8(file.readAll()));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(text);
    setWindowTitle(tr("Using the charts"));
    resize(620, 700);
}

void GuideWindow::changeEvent(QEvent *event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setWindowTitle(tr("Using the charts"));
}

} // namespace desk
