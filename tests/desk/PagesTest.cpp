// Property pages in the dock: each kind of item through its editor and back, and records that are broken.
#include "host/core/Host.h"
#include "host/pages/PageCodec.h"
#include "host/pages/PageView.h"
#include "host/pages/PropertyDock.h"
#include "host/pages/PropertyService.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QFontDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <gtest/gtest.h>

using namespace desk;

namespace {

std::function<int(PROPERTY_CHANGE &)> onChange;

int receiveMessage(void *, unsigned int message, int wParam, int) {
    return message == ToModule::PageChanged && onChange ? onChange(*fromWord<PROPERTY_CHANGE>(wParam)) : 0;
}

// A page with one item of each type, as the module keeps it.
struct SamplePage {
    SamplePage() {
        fillField(record.title, QStringLiteral("Sample"));
        record.pageId = 7;
        record.system = {11, 22};
        fillField(group.name, QStringLiteral("General"));
        add(PropertyTypeInt, &integer);
        add(PropertyTypeDouble, &real);
        add(PropertyTypeString, &text);
        add(PropertyTypeColor, &colour);
        add(PropertyTypeFont, &font);
        add(PropertyTypeList, &list);
        add(PropertyTypeDateTime, &time);
        add(PropertyTypeBoolean, &flag);
        add(PropertyTypeWidget, &room);
        fillField(text.text, QStringLiteral("old"));
        fillField(font.family, QStringLiteral("DejaVu Sans"));
        fillField(entries[0].text, QStringLiteral("left"));
        fillField(entries[1].text, QStringLiteral("right"));
        group.count = Word(pointers.size());
        group.items = pointers.data();
        record.groupCount = 1;
        record.groups = &group;
    }
    void add(PropertyType type, void *value) {
        const int index = int(pointers.size());
        items[index] = zeroRecord<PROPERTY>();
        items[index].type = type;
        items[index].value = value;
        items[index].index = Word(index);
        fillField(items[index].name, QStringLiteral("Item %1").arg(index));
        pointers.push_back(&items[index]);
    }

    PROPERTY_PAGE record = zeroRecord<PROPERTY_PAGE>();
    PROPERTY_GROUP group = zeroRecord<PROPERTY_GROUP>();
    PROPERTY items[9];
    std::vector<PROPERTY *> pointers;
    propertyInt integer{5, 0, 1000};
    propertyDouble real{1.5, 0.0001, -1e11, 1e11, 4};
    propertyString text = zeroRecord<propertyString>();
    propertyColor colour{0xff102030};
    propertyFont font = [] {
        auto record = zeroRecord<propertyFont>();
        record.pointSize = 8;
        record.weight = 50;
        return record;
    }();
    propertyListEntry entries[2] = {};
    propertyList list{2, 0, entries};
    propertyDateTime time{1399248000};
    propertyBoolean flag{0};
    propertyWidget room{0, 201, 70};
};

class PagesTest : public testing::Test {
protected:
    PagesTest() {
        host.attachModule(&receiveMessage);
        service = &host.addService<PropertyService>(dock);
        service->takeWindow(target);
        dock.show();
    }
    ~PagesTest() override { onChange = nullptr; }
    int send(unsigned message, const void *wParam, const void *lParam = nullptr) {
        return Host::send(fromWord<void>(target), message, toWord(wParam), toWord(lParam));
    }
    template <class T>
    T *editor(int index) {
        T *found = qobject_cast<T *>(dock.view().editor(0, index));
        EXPECT_TRUE(found) << index;
        return found;
    }
    void apply() { QTest::mouseClick(dock.findChild<QPushButton *>("applyPage"), Qt::LeftButton); }

    PropertyDock dock;
    Host host;
    PropertyService *service = nullptr;
    const Handle target = 0x500;
    SamplePage sample;
};

TEST_F(PagesTest, EachKindOfItemGoesThroughItsEditorAndBack) {
    EXPECT_EQ(send(ToHost::ShowNewPage, &sample.record), 0);
    QTest::keyClick(editor<QSpinBox>(0), Qt::Key_Up);
    editor<QDoubleSpinBox>(1)->setValue(2.25);
    QTest::keyClicks(editor<QLineEdit>(2), "er");
    editor<ColourButton>(3)->setColour(QColor(1, 2, 3));
    QFont bold(QStringLiteral("DejaVu Sans"), 12, QFont::Bold, true);
    editor<FontButton>(4)->setChosenFont(bold);
    QTest::keyClick(editor<QComboBox>(5), Qt::Key_Down);
    editor<QDateTimeEdit>(6)->setDateTime(QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5), Qt::UTC));
    QTest::keyClick(editor<QCheckBox>(7), Qt::Key_Space);

    int changes = 0;
    onChange = [&](PROPERTY_CHANGE &change) {
        ++changes;
        EXPECT_EQ(+change.interfaceHandle, 11u);
        EXPECT_EQ(Word(toWord(change.owner)), 22u);
        EXPECT_NE(+change.page, &sample.record);
        EXPECT_EQ(+change.page->pageId, 7u);
        PROPERTY **items = change.page->groups[0].items;
        EXPECT_NE(items[0], sample.pointers[0]);
        EXPECT_EQ(+static_cast<propertyInt *>(items[0]->value)->value, 6);
        EXPECT_EQ(+static_cast<propertyInt *>(items[0]->value)->maximum, 1000);
        EXPECT_EQ(+static_cast<propertyDouble *>(items[1]->value)->value, 2.25);
        EXPECT_EQ(fieldText(static_cast<propertyString *>(items[2]->value)->text), "older");
        EXPECT_EQ(+static_cast<propertyColor *>(items[3]->value)->rgb, QColor(1, 2, 3).rgb());
        const auto *font = static_cast<propertyFont *>(items[4]->value);
        EXPECT_EQ(fieldText(font->family), "DejaVu Sans");
        EXPECT_EQ(+font->pointSize, 12);
        EXPECT_EQ(+font->weight, 75);
        EXPECT_EQ(+font->italic, 1);
        const auto *list = static_cast<propertyList *>(items[5]->value);
        EXPECT_EQ(+list->selected, 1);
        EXPECT_NE(+list->entries, sample.entries);
        EXPECT_EQ(fieldText(list->entries[1].text), "right");
        EXPECT_EQ(+static_cast<propertyDateTime *>(items[6]->value)->time, 1577934245u);
        EXPECT_EQ(+static_cast<propertyBoolean *>(items[7]->value)->value, 1);
        EXPECT_NE(+static_cast<propertyWidget *>(items[8]->value)->windowId, 0u);
        return 0;
    };
    apply();
    EXPECT_EQ(changes, 1);
    // The module's own page is not written, but for the window id.
    EXPECT_EQ(+sample.integer.value, 5);
    EXPECT_EQ(+sample.flag.value, 0);
    apply();
    EXPECT_EQ(changes, 1); // nothing more to apply
}

TEST_F(PagesTest, AHostedItemGetsAWindowOfItsSize) {
    send(ToHost::ShowKnownPage, &sample.record);
    QWidget *room = QWidget::find(WId(sample.room.windowId));
    ASSERT_TRUE(room);
    EXPECT_EQ(room, dock.view().editor(0, 8));
    EXPECT_GE(room->minimumHeight(), 70);
    EXPECT_GE(room->minimumWidth(), 201);
}

TEST_F(PagesTest, TheDockKnowsThePageThatItShows) {
    Word known = 0;
    send(ToHost::IsPageKnown, &sample.record, &known);
    EXPECT_EQ(known, 0u);
    send(ToHost::ShowNewPage, &sample.record);
    send(ToHost::IsPageKnown, &sample.record, &known);
    EXPECT_EQ(known, 1u);
    SamplePage other;
    other.record.pageId = 8;
    send(ToHost::ShowNewPage, &other.record);
    send(ToHost::IsPageKnown, &sample.record, &known);
    EXPECT_EQ(known, 0u);
    send(ToHost::ClosePage, &sample.record); // another page's end leaves the dock alone
    EXPECT_EQ(dock.key().id, 8u);
    send(ToHost::ClosePage, &other.record);
    EXPECT_EQ(dock.key().owner, PageKey::None);
    EXPECT_TRUE(dock.view().page().groups.isEmpty());
}

TEST_F(PagesTest, AnItemThatTheModuleChangesIsShownAtOnce) {
    send(ToHost::ShowNewPage, &sample.record);
    sample.flag.value = 1;
    send(ToHost::PageItemChanged, &sample.record, &sample.items[7]);
    EXPECT_TRUE(editor<QCheckBox>(7)->isChecked());
    EXPECT_FALSE(dock.view().isChanged());
}

TEST_F(PagesTest, ARefusedPageStaysEditedWithASentence) {
    send(ToHost::ShowNewPage, &sample.record);
    onChange = [](PROPERTY_CHANGE &) { return 1; };
    QTest::keyClick(editor<QSpinBox>(0), Qt::Key_Up);
    apply();
    EXPECT_TRUE(dock.view().isChanged());
    QTest::mouseClick(dock.findChild<QPushButton *>("resetPage"), Qt::LeftButton);
    EXPECT_FALSE(dock.view().isChanged());
    EXPECT_EQ(editor<QSpinBox>(0)->value(), 5);
}

TEST_F(PagesTest, AnOwnerThatShowsItsPageAgainWhileItTakesItDoesNotHarm) {
    send(ToHost::ShowNewPage, &sample.record);
    onChange = [this](PROPERTY_CHANGE &change) {
        sample.integer.value = static_cast<propertyInt *>(change.page->groups[0].items[0]->value)->value;
        send(ToHost::ShowKnownPage, &sample.record);
        QApplication::processEvents();
        return 0;
    };
    QTest::keyClick(editor<QSpinBox>(0), Qt::Key_Up);
    apply();
    EXPECT_EQ(editor<QSpinBox>(0)->value(), 6);
    EXPECT_FALSE(dock.view().isChanged());
}

TEST_F(PagesTest, BrokenRecordsLeaveOutWhatCannotBeRead) {
    sample.items[0].type = 99;
    sample.items[1].value = nullptr;
    sample.pointers[2] = nullptr;
    sample.list.count = -3;
    sample.list.selected = 40;
    EXPECT_EQ(send(ToHost::ShowNewPage, &sample.record), 0);
    const Page page = dock.view().page();
    ASSERT_EQ(page.groups.size(), 1);
    EXPECT_EQ(page.groups[0].items.size(), 6);
    EXPECT_TRUE(page.find(0, 5)->choices.isEmpty());
    QTest::keyClick(editor<QCheckBox>(7), Qt::Key_Space);
    apply();

    sample.record.groups = nullptr;
    EXPECT_EQ(send(ToHost::ShowNewPage, &sample.record), 0);
    EXPECT_TRUE(dock.view().page().groups.isEmpty());
    EXPECT_EQ(send(ToHost::ShowNewPage, nullptr), 1);
    EXPECT_EQ(send(ToHost::ClosePage, nullptr), 1);
}

TEST_F(PagesTest, ATextOfFullWidthHasNoEndAndIsReadToItsWidth) {
    std::fill(std::begin(sample.text.text), std::end(sample.text.text), static_cast<unsigned short>('x'));
    send(ToHost::ShowNewPage, &sample.record);
    EXPECT_EQ(dock.view().page().find(0, 2)->value.toString().size(), 1023); // what an editor takes
}

TEST_F(PagesTest, ADialogOfAnEditorCanBeLeftByAKey) {
    send(ToHost::ShowNewPage, &sample.record);
    QTimer::singleShot(200, [] {
        if (QWidget *dialog = QApplication::activeModalWidget())
            QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::keyClick(editor<FontButton>(4), Qt::Key_Space);
    EXPECT_FALSE(dock.view().isChanged());
}

TEST_F(PagesTest, TheEditorsOfAllGroupsStandInOneColumn) {
    PROPERTY flag = sample.items[7];
    fillField(flag.name, QStringLiteral("A name that is a good deal longer than the others"));
    PROPERTY *others[] = {&flag};
    PROPERTY_GROUP groups[2] = {sample.group, zeroRecord<PROPERTY_GROUP>()};
    groups[1].index = 1;
    groups[1].count = 1;
    groups[1].items = others;
    flag.group = 1;
    flag.index = 0;
    sample.record.groupCount = 2;
    sample.record.groups = groups;
    send(ToHost::ShowNewPage, &sample.record);
    dock.resize(420, 600);
    QTest::qWait(20);
    ASSERT_TRUE(dock.view().editor(1, 0));
    EXPECT_EQ(dock.view().editor(1, 0)->x(), dock.view().editor(0, 0)->x());
    EXPECT_EQ(dock.view().editor(0, 5)->x(), dock.view().editor(0, 0)->x());
}

TEST_F(PagesTest, AWheelThatScrollsThePageChangesNoValue) {
    send(ToHost::ShowNewPage, &sample.record);
    const auto turn = [](QWidget *widget) {
        QWheelEvent event(QPointF(3, 3), widget->mapToGlobal(QPointF(3, 3).toPoint()), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &event);
    };
    QApplication::setActiveWindow(&dock);
    dock.findChild<QPushButton *>("applyPage")->setFocus();
    for (const int item : {0, 1, 5, 6})
        turn(dock.view().editor(0, item));
    EXPECT_FALSE(dock.view().isChanged());
    EXPECT_EQ(editor<QSpinBox>(0)->value(), 5);
    // What the user has chosen takes the wheel.
    editor<QSpinBox>(0)->setFocus();
    turn(editor<QSpinBox>(0));
    EXPECT_EQ(editor<QSpinBox>(0)->value(), 4);
}

TEST_F(PagesTest, ThePanelsAreRaisedByTheirNumbers) {
    std::vector<int> raised;
    service->raisePanel = [&raised](int panel) { raised.push_back(panel); };
    for (const int panel : {0, 1, 2})
        Host::send(fromWord<void>(target), ToHost::RaisePanel, panel, 0);
    EXPECT_EQ(raised, (std::vector<int>{0, 1, 2}));
}

} // namespace
