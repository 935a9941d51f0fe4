#pragma once
#include <QMessageBox>

// Message boxes that keep the lines of a text as its author broke them.
class CMvMessageBox {
public:
    using Buttons = QMessageBox::StandardButtons;
    using Button = QMessageBox::StandardButton;

    static int critical(QWidget *parent, const QString &title, const QString &text, Buttons buttons,
                        Button defaultButton = QMessageBox::NoButton);
    static int critical(QWidget *parent, const QString &title, const QString &text, int button0,
                        int button1 = 0, int button2 = 0);
    static int critical(QWidget *parent, const QString &title, const QString &text,
                        const QString &button0Text, const QString &button1Text = QString(),
                        const QString &button2Text = QString(), int defaultButton = 0, int escapeButton = -1);
    static int information(QWidget *parent, const QString &title, const QString &text, Buttons buttons,
                           Button defaultButton = QMessageBox::NoButton);
    static int information(QWidget *parent, const QString &title, const QString &text, int button0,
                           int button1 = 0, int button2 = 0);
    static int information(QWidget *parent, const QString &title, const QString &text,
                           const QString &button0Text, const QString &button1Text = QString(),
                           const QString &button2Text = QString(), int defaultButton = 0,
                           int escapeButton = -1);
    static int question(QWidget *parent, const QString &title, const QString &text, Buttons buttons,
                        Button defaultButton = QMessageBox::NoButton);
    static int question(QWidget *parent, const QString &title, const QString &text, int button0,
                        int button1 = 0, int button2 = 0);
    static int question(QWidget *parent, const QString &title, const QString &text,
                        const QString &button0Text, const QString &button1Text = QString(),
                        const QString &button2Text = QString(), int defaultButton = 0, int escapeButton = -1);
    static int warning(QWidget *parent, const QString &title, const QString &text, Buttons buttons,
                       Button defaultButton = QMessageBox::NoButton);
    static int warning(QWidget *parent, const QString &title, const QString &text, int button0,
                       int button1 = 0, int button2 = 0);
    static int warning(QWidget *parent, const QString &title, const QString &text, const QString &button0Text,
                       const QString &button1Text = QString(), const QString &button2Text = QString(),
                       int defaultButton = 0, int escapeButton = -1);

    // Gives the text label the width of its widest line.
    static void ResizeWidgets(QMessageBox &box);

private:
    static int ShowMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
                           Buttons buttons, Button defaultButton);
    static int ShowMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
                           int button0, int button1, int button2);
    static int ShowMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
                           const QStringList &buttonTexts, int defaultButton, int escapeButton);
};
