#include "dialogs/DateTimeDlg.h"
#include "dialogs/MvMessageBox.h"
#include "dialogs/PropertyEditors.h"
#include "dialogs/TimeFrameForm.h"
#include "module/FindDateData.h"
#include "objects/Warning.h"
#include "support/FontMetrics.h"
#include "tests/unit/support/UnitHost.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QTimeEdit>
#include <QTimer>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

class DialogTest : public testing::Test {
protected:
    DialogTest() { testApplication(); }

    // Runs `action` in the message box that opens next.
    static void inNextBox(std::function<void(QMessageBox *)> action) {
        QTimer::singleShot(0, [action] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            action(box);
        });
    }
    static void press(QMessageBox *box, const QString &text) {
        for (QAbstractButton *button : box->buttons())
            if (button->text() == text)
                return button->click();
        FAIL() << "no button " << qPrintable(text);
    }
};

TEST_F(DialogTest, TheAutoScrollEditorForwardsToItsControls) {
    CMvAutoscrollProperty editor("Auto scroll", "hint", "Positions", "number hint", 0, 1000, 7);
    auto *check = editor.findChild<QCheckBox *>();
    auto *spin = editor.findChild<QSpinBox *>();
    auto *label = editor.findChild<QLabel *>();
    ASSERT_TRUE(check && spin && label);
    EXPECT_EQ(check->text(), "Auto scroll");
    EXPECT_EQ(check->toolTip(), "hint");
    EXPECT_EQ(label->text(), "Positions");
    EXPECT_EQ(spin->minimum(), 0);
    EXPECT_EQ(spin->maximum(), 1000);
    EXPECT_EQ(editor.Value(), 7);
    EXPECT_FALSE(editor.IsChecked());
    EXPECT_FALSE(spin->isEnabled());
    editor.SetChecked(true);
    EXPECT_TRUE(check->isChecked());
    EXPECT_TRUE(spin->isEnabled());
    editor.SetValue(2000);
    EXPECT_EQ(editor.Value(), 1000);
    EXPECT_EQ(editor.layout()->spacing(), 0);
    EXPECT_EQ(editor.layout()->contentsMargins(), QMargins());
}

TEST_F(DialogTest, EditorsAreFoundByTheirClass) {
    QWidget page;
    new CMvPropertyComboBox(&page);
    new CMvPropertySpinBox(&page);
    new CMvPropertyDateEdit(QDate(2014, 5, 6), &page);
    new CMvPropertyTimeEdit(QTime(7, 8), &page);
    EXPECT_NE(page.findChild<CMvPropertyComboBox *>(), nullptr);
    EXPECT_NE(page.findChild<CMvPropertySpinBox *>(), nullptr);
    EXPECT_EQ(page.findChild<CMvPropertyDateEdit *>()->date(), QDate(2014, 5, 6));
    EXPECT_EQ(page.findChild<CMvPropertyTimeEdit *>()->time(), QTime(7, 8));
}

TEST_F(DialogTest, TheDateDialogShowsAndReturnsTheSavedDateInUtc) {
    GraphModule::CFindDateData data;
    data.SetSaveDateTime(true);
    data.SetSavedDateTime(QDateTime(QDate(2014, 5, 6), QTime(7, 8, 9), Qt::UTC));
    DateTimeDlg dialog;
    EXPECT_EQ(dialog.windowTitle(), "G0142"); // texts without a host are their ids
    dialog.SetData(data, true);
    EXPECT_EQ(dialog.Date(), QDate(2014, 5, 6));
    EXPECT_EQ(dialog.Time(), QTime(7, 8, 9));
    EXPECT_TRUE(dialog.IsChecked());
    EXPECT_TRUE(dialog.findChild<QTimeEdit *>("", Qt::FindDirectChildrenOnly)->isEnabled());
    dialog.SetDate(QDate(2015, 1, 2));
    dialog.SetTime(QTime(3, 4));
    dialog.SetChecked(false);
    const GraphModule::CFindDateData &result = dialog.GetData();
    EXPECT_FALSE(result.IsSaveDateTime());
    EXPECT_EQ(result.GetSavedDateTime(), QDateTime(QDate(2015, 1, 2), QTime(3, 4), Qt::UTC));
}

TEST_F(DialogTest, WithoutATimeTheTimeEditStaysDisabled) {
    DateTimeDlg dialog;
    dialog.SetData(GraphModule::CFindDateData(), false);
    bool enabled = true;
    for (const QTimeEdit *edit : dialog.findChildren<QTimeEdit *>())
        enabled = edit->isEnabled();
    EXPECT_FALSE(enabled);
    EXPECT_FALSE(dialog.IsChecked());
    EXPECT_EQ(dialog.Date(), QDate(1970, 1, 1));
    dialog.SetTimeEnable(true);
    for (const QTimeEdit *edit : dialog.findChildren<QTimeEdit *>())
        EXPECT_TRUE(edit->isEnabled());
}

TEST_F(DialogTest, TheTimeFrameFormGivesTheChosenRow) {
    TimeFrameForm form;
    form.SetItems({"a", "b", "c", "d"}, 3);
    EXPECT_EQ(form.CurrentIndex(), 3);
    form.SetItems({"a", "b"}, 0);
    EXPECT_EQ(form.CurrentIndex(), 0);
    EXPECT_EQ(form.windowTitle(), "G0198");
    EXPECT_EQ(form.findChild<QLabel *>()->text(), "G0197");
}

TEST_F(DialogTest, AnOkAndCancelFootEndsItsDialog) {
    TimeFrameForm form;
    DateTimeDlg date;
    for (QDialog *dialog : {static_cast<QDialog *>(&form), static_cast<QDialog *>(&date)}) {
        EXPECT_TRUE(dialog->isModal());
        const auto buttons = dialog->findChildren<QPushButton *>();
        ASSERT_EQ(buttons.size(), 2);
        for (QPushButton *button : buttons) {
            const bool ok = button->text() == "C0049Ok";
            EXPECT_EQ(button->text(), ok ? "C0049Ok" : "C0007Cancel");
            EXPECT_EQ(button->isDefault(), ok);
            dialog->show();
            button->click();
            EXPECT_FALSE(dialog->isVisible());
            EXPECT_EQ(dialog->result(), ok ? QDialog::Accepted : QDialog::Rejected);
        }
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            dialog->show();
            QTest::keyClick(dialog, key);
            EXPECT_FALSE(dialog->isVisible());
            EXPECT_EQ(dialog->result(), key == Qt::Key_Escape ? QDialog::Rejected : QDialog::Accepted);
        }
        EXPECT_FALSE(dialog->windowIcon().pixmap(16).isNull());
    }
}

TEST_F(DialogTest, ABoxIsAsWideAsItsWidestLine) {
    const struct {
        const char *text;
        const char *widest;
    } rows[] = {{"short<br>a much longer second line", "a much longer second line"},
                {"a much longer first line\nshort", "a much longer first line"},
                {"one line", "one line"},
                {"", ""}};
    for (const auto &row : rows) {
        QMessageBox box;
        box.setText(row.text);
        CMvMessageBox::ResizeWidgets(box);
        const auto *label = box.findChild<QLabel *>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->minimumWidth(), CMvFontMetrics(label->font()).width(row.widest)) << row.text;
        // Nothing of that width is lost for the text.
        EXPECT_EQ(label->contentsMargins(), QMargins()) << row.text;
        EXPECT_EQ(label->indent(), 0) << row.text;
    }
    QMessageBox bare;
    bare.findChild<QLabel *>("qt_msgbox_label")->setObjectName("other");
    CMvMessageBox::ResizeWidgets(bare); // nothing to do
}

TEST_F(DialogTest, AWarningKeepsTheLinesOfItsText) {
    int width = -1;
    inNextBox([&width](QMessageBox *box) {
        const auto *label = box->findChild<QLabel *>("qt_msgbox_label");
        width = label->minimumWidth() - CMvFontMetrics(label->font()).width("the longer one of the two");
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->standardButtons(), QMessageBox::Ok);
        box->button(QMessageBox::Ok)->click();
    });
    showWarning(nullptr, "title", "short\nthe longer one of the two");
    EXPECT_EQ(width, 0);
}

TEST_F(DialogTest, ABoxMayGoWithItsParent) {
    for (int form = 0; form < 3; ++form) {
        auto *parent = new QWidget;
        QTimer::singleShot(0, [parent] { delete parent; });
        int answer = -1;
        if (form == 0)
            answer = CMvMessageBox::warning(parent, "title", "text", QMessageBox::Ok);
        else if (form == 1)
            answer = CMvMessageBox::warning(parent, "title", "text", int(QMessageBox::Ok));
        else
            answer = CMvMessageBox::warning(parent, "title", "text", QString("only"));
        EXPECT_EQ(answer, int(QDialog::Rejected)) << form;
    }
}

TEST_F(DialogTest, StandardButtonsAnswerTheirCode) {
    inNextBox([](QMessageBox *box) {
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->text(), "text");
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
        box->button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(
        CMvMessageBox::warning(nullptr, "title", "text", QMessageBox::Yes | QMessageBox::No, QMessageBox::No),
        QMessageBox::Yes);
}

TEST_F(DialogTest, ButtonTextsAnswerTheirIndex) {
    inNextBox([](QMessageBox *box) {
        EXPECT_EQ(box->icon(), QMessageBox::Question);
        EXPECT_EQ(box->buttons().size(), 2);
        for (QAbstractButton *button : box->buttons())
            EXPECT_EQ(box->buttonRole(button), QMessageBox::ActionRole);
        EXPECT_EQ(box->escapeButton()->text(), "first");
        press(box, "second");
    });
    EXPECT_EQ(CMvMessageBox::question(nullptr, "title", "text", "first", "second", QString(), 1, 0), 1);
}

TEST_F(DialogTest, NumberedButtonsAnswerTheirNumber) {
    inNextBox([](QMessageBox *box) {
        EXPECT_EQ(box->icon(), QMessageBox::Information);
        box->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(
        CMvMessageBox::information(nullptr, "title", "text", int(QMessageBox::Ok), int(QMessageBox::Cancel)),
        QMessageBox::Ok);
    inNextBox([](QMessageBox *box) {
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        box->button(QMessageBox::Cancel)->click();
    });
    EXPECT_EQ(
        CMvMessageBox::critical(nullptr, "title", "text", int(QMessageBox::Ok), int(QMessageBox::Cancel)),
        QMessageBox::Cancel);
}

} // namespace
