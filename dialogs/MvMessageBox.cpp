#include "dialogs/MvMessageBox.h"
#include "support/FontMetrics.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRegExp>
#include <algorithm>

namespace {

// The box lies on the heap: it goes with its parent when that is deleted in the box's own event loop.
int run(QMessageBox *box) {
    const QPointer<QMessageBox> guard(box);
    CMvMessageBox::ResizeWidgets(*box);
    const int answer = box->exec();
    delete guard.data();
    return answer;
}

} // namespace

int CMvMessageBox::ShowMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                               const QString &text, Buttons buttons, Button defaultButton) {
    auto *box = new QMessageBox(icon, title, text, buttons, parent);
    box->setDefaultButton(defaultButton);
    return run(box);
}

// Buttons by their old numbers, each with the marks of the default and the escape button.
int CMvMessageBox::ShowMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                               const QString &text, int button0, int button1, int button2) {
    return run(new QMessageBox(title, text, icon, button0, button1, button2, parent));
}

int CMvMessageBox::ShowMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                               const QString &text, const QStringList &buttonTexts, int defaultButton,
                               int escapeButton) {
    auto *box = new QMessageBox(icon, title, text, QMessageBox::NoButton, parent);
    for (int i = 0; i < buttonTexts.size(); ++i) {
        if (buttonTexts[i].isEmpty())
            continue;
        QPushButton *button = box->addButton(buttonTexts[i], QMessageBox::ActionRole);
        if (i == defaultButton)
            box->setDefaultButton(button);
        if (i == escapeButton)
            box->setEscapeButton(button);
    }
    return run(box);
}

void CMvMessageBox::ResizeWidgets(QMessageBox &box) {
    auto *label = box.findChild<QLabel *>("qt_msgbox_label");
    if (!label)
        return;
    const CMvFontMetrics metrics(label->font());
    int widest = 0;
    for (const QString &line : label->text().split(QRegExp("(\n)|(<br>)")))
        widest = std::max(widest, metrics.width(line));
    // All of that width is for the text: an indent or a margin would break its widest line again.
    label->setIndent(0);
    label->setContentsMargins(0, 0, 0, 0);
    label->setMinimumWidth(widest);
}

// The three forms of each kind of box.
#define VELMAR_MESSAGE_BOX(name, icon)                                                                       \
    int CMvMessageBox::name(QWidget *parent, const QString &title, const QString &text, Buttons buttons,     \
                            Button defaultButton) {                                                          \
        return ShowMessage(icon, parent, title, text, buttons, defaultButton);                               \
    }                                                                                                        \
    int CMvMessageBox::name(QWidget *parent, const QString &title, const QString &text, int button0,         \
                            int button1, int button2) {                                                      \
        return ShowMessage(icon, parent, title, text, button0, button1, button2);                            \
    }                                                                                                        \
    int CMvMessageBox::name(QWidget *parent, const QString &title, const QString &text,                      \
                            const QString &button0Text, const QString &button1Text,                          \
                            const QString &button2Text, int defaultButton, int escapeButton) {               \
        return ShowMessage(icon, parent, title, text, QStringList{button0Text, button1Text, button2Text},    \
                           defaultButton, escapeButton);                                                     \
    }

VELMAR_MESSAGE_BOX(critical, QMessageBox::Critical)
VELMAR_MESSAGE_BOX(information, QMessageBox::Information)
VELMAR_MESSAGE_BOX(question, QMessageBox::Question)
VELMAR_MESSAGE_BOX(warning, QMessageBox::Warning)
