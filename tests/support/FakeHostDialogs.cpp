#include "tests/support/FakeHostPrivate.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>

QString FakeHost::Translator::translate(const char *context, const char *sourceText, const char *,
                                        int) const {
    if (qstrcmp(context, "CTranslateGraphic") != 0)
        return QString();
    const QString id = QString::fromLatin1(sourceText);
    const auto own = m_host->translations.constFind(id);
    if (own != m_host->translations.constEnd())
        return *own;
    return m_host->texts.value(id);
}

FakeHost::DialogWatcher::DialogWatcher(FakeHost *host) : m_host(host) {
    qApp->installEventFilter(this);
}

FakeHost::DialogWatcher::~DialogWatcher() {
    qApp->removeEventFilter(this);
}

bool FakeHost::DialogWatcher::eventFilter(QObject *object, QEvent *event) {
    if (event->type() == QEvent::Show) {
        if (auto *dialog = qobject_cast<QDialog *>(object)) {
            const QPointer<QDialog> shown(dialog);
            QTimer::singleShot(0, this, [this, shown] {
                if (shown)
                    handle(shown);
            });
        }
    }
    return false;
}

void FakeHost::DialogWatcher::handle(QDialog *dialog) {
    if (const auto *box = qobject_cast<QMessageBox *>(dialog))
        m_host->dialogTexts.append(box->windowTitle() + "|" + box->text());
    if (!work.empty()) {
        const auto next = work.front();
        work.pop_front();
        next(dialog);
    } else if (qstrcmp(dialog->metaObject()->className(), "CChooseLayerDialog") == 0) {
        dialog->accept();
    } else if (dialog->isModal()) {
        dialog->reject();
    }
}

void FakeHost::onDialog(std::function<void(QDialog *)> work) {
    m_watcher->work.push_back(std::move(work));
}
