// Indicators as a user puts them on a chart: from the list, through the dialog, into the property dock.
#include "host/pages/PageView.h"
#include "host/pages/PropertyDock.h"
#include "host/window/IndicatorPanel.h"
#include "host/window/ObjectDialog.h"
#include "module/HostRecords.h"
#include "tests/desk/DeskFixture.h"
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QTreeWidget>

using namespace desk;
using desk::test::DeskTest;

namespace {

class IndicatorGestures : public DeskTest {
protected:
    // Double-clicks an entry of the list; the desk's dialog is handed to `answer`, and the question for a
    // layer that follows takes what it proposes.
    void add(const QString &name, const std::function<void(ObjectDialog &)> &answer) {
        QTreeWidget *list = window().indicators().view();
        const QList<QTreeWidgetItem *> found = list->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        list->scrollToItem(found.first());
        const QPoint place = list->visualItemRect(found.first()).center();
        bool answered = false;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, [&answered, answer] {
            QWidget *modal = QApplication::activeModalWidget();
            if (auto *dialog = qobject_cast<ObjectDialog *>(modal)) {
                if (!answered)
                    answer(*dialog);
                answered = true;
            } else if (modal) {
                QTest::keyClick(modal, Qt::Key_Return);
            }
        });
        user.start(50);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_TRUE(answered) << "the desk did not ask";
    }
    static void accept(ObjectDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }
    static void reject(ObjectDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }
    std::vector<std::shared_ptr<CalculatedObject>> shown() {
        std::vector<std::shared_ptr<CalculatedObject>> result;
        for (const Handle handle : session().host().subscriptions().objects(deck().active()->window())) {
            const auto object = session().host().objects().find(handle);
            if (object && !object->isInstrument())
                result.push_back(object);
        }
        return result;
    }
};

TEST_F(IndicatorGestures, ADoubleClickAndReturnPutOneOnTheChart) {
    startWithOneChart();
    const QImage before = chart()->grab().toImage();
    add("Moving Average", &accept);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_EQ(+shown()[0]->outputs().front()->owner, fromWord<void>(shown()[0]->handle()));
    EXPECT_EQ(session().host().objects().base(shown()[0]->handle()), instrument()->handle());
    settle();
    EXPECT_NE(chart()->grab().toImage(), before);
    EXPECT_TRUE(deck().active()->caption().contains("MA")) << deck().active()->caption().toStdString();
}

TEST_F(IndicatorGestures, ARefusedDialogLeavesNothing) {
    startWithOneChart();
    add("Moving Average", &reject);
    EXPECT_TRUE(shown().empty());
    EXPECT_TRUE(traced().contains("3137 creation abandoned"));
    EXPECT_EQ(session().host().objects().all().size(), 1u);
}

TEST_F(IndicatorGestures, TheDialogsValuesAreTaken) {
    startWithOneChart();
    add("Moving Average", [](ObjectDialog &dialog) {
        const Page page = dialog.view().page();
        for (const PageGroup &group : page.groups) {
            for (const PageItem &item : group.items) {
                if (item.name != "Length")
                    continue;
                auto *box = qobject_cast<QSpinBox *>(dialog.view().editor(item.group, item.index));
                ASSERT_TRUE(box);
                box->selectAll();
                QTest::keyClicks(box, "33");
            }
        }
        accept(dialog);
    });
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_TRUE(shown()[0]->menuText().contains("33")) << shown()[0]->menuText().toStdString();
}

TEST_F(IndicatorGestures, ASettingInTheDockReachesTheChart) {
    startWithOneChart();
    add("Moving Average", &accept);
    ASSERT_EQ(shown().size(), 1u);
    settle();
    const QImage before = chart()->grab().toImage();
    window().properties().raiseDock();
    Host::send(fromWord<void>(session().host().coreHandle()), 3092, int(shown()[0]->handle()), 0);
    PropertyDock &dock = window().properties();
    ASSERT_EQ(dock.key().owner, PageKey::Object);
    const Page page = dock.view().page();
    for (const PageGroup &group : page.groups) {
        for (const PageItem &item : group.items) {
            if (item.name == "Length") {
                auto *box = qobject_cast<QSpinBox *>(dock.view().editor(item.group, item.index));
                box->setFocus();
                box->selectAll();
                QTest::keyClicks(box, "3");
                QTest::keyClick(box, Qt::Key_Tab);
            }
        }
    }
    QTest::mouseClick(dock.findChild<QPushButton *>("applyPage"), Qt::LeftButton);
    EXPECT_TRUE(shown()[0]->menuText().contains("3"));
    settle();
    EXPECT_NE(chart()->grab().toImage(), before);
}

TEST_F(IndicatorGestures, OneWithAPaneOfItsOwnSplitsTheChart) {
    startWithOneChart();
    add("MACD", &accept);
    ASSERT_EQ(shown().size(), 1u);
    EXPECT_TRUE(traced().contains("\"Create area\""));
}

} // namespace
