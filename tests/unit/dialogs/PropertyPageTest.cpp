#include "dialogs/PropertyHead.h"
#include "tests/unit/support/UnitHost.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <gtest/gtest.h>

namespace {

const CORE_OBJECT_SYSTEM someSystem{11, 22};

TEST(PropertyPageTest, IdsRiseByOne) {
    const CPropertyHead first;
    const CPropertyHead second;
    const CPropertyHead copy(first);
    EXPECT_EQ(second.GetPageId(), first.GetPageId() + 1);
    EXPECT_EQ(copy.GetPageId(), first.GetPageId() + 2);
    EXPECT_EQ(CPropertyHead(*first.GetPage()).GetPageId(), first.GetPageId() + 3);
}

TEST(PropertyPageTest, AnEmptyPageHasNoItems) {
    CPropertyHead page;
    EXPECT_EQ(page.getPropertyGroup(0), nullptr);
    EXPECT_EQ(page.getPropertyItem(0, 0), nullptr);
    EXPECT_EQ(page.getCountPropertyInGroup(0), 0);
    EXPECT_EQ(page.SetProperty(0, 0, QVariant(5)), nullptr);
    EXPECT_FALSE(page.GetPropertyItem(0, 0).isValid());
    EXPECT_EQ(page.ChangePropertyListItem(0, 0, {"a"}, 0), -1);
    EXPECT_EQ(page.AddPropertyIntItem(0, QString("a"), QString("b"), 1, 0, 2), -1);
    EXPECT_EQ(page.AddPropertyIntItem(-1, QString("a"), QString("b"), 1, 0, 2), -1);
}

TEST(PropertyPageTest, StartingAPageKeepsItsId) {
    CPropertyHead page;
    const unsigned int id = page.GetPageId();
    page.CreatePropertyGroup("old");
    page.ReInicDatePage(QString(300, 't'), QString(2000, 'a'), "second", someSystem);
    EXPECT_EQ(page.GetPageId(), id);
    EXPECT_EQ(page.getPropertyGroup(0), nullptr);
    EXPECT_EQ(fieldText(page.GetPage()->title), QString(255, 't'));
    EXPECT_EQ(fieldText(page.GetPage()->firstText), QString(1024, 'a'));
    EXPECT_EQ(fieldText(page.GetPage()->secondText), "second");
    CORE_OBJECT_SYSTEM system{};
    page.getInterface(system);
    EXPECT_EQ(system.m_if, 11u);
    EXPECT_EQ(system.m_object, 22u);
    page.ReNameDatePage("new");
    EXPECT_EQ(fieldText(page.GetPage()->title), "new");
    EXPECT_EQ(fieldText(page.GetPage()->secondText), "second");
    page.ReInicDatePage("again", "", "", page.GetPage()->system);
    EXPECT_EQ(+page.GetPage()->system.m_object, 22u);
}

TEST(PropertyPageTest, TheConstructorTakesItsTexts) {
    const QString title("title"), first("first"), second("second");
    const CPropertyHead page(title.utf16(), first.utf16(), second.utf16(), someSystem);
    EXPECT_EQ(fieldText(page.GetPage()->title), "title");
    EXPECT_EQ(fieldText(page.GetPage()->firstText), "first");
    EXPECT_EQ(fieldText(page.GetPage()->secondText), "second");
    EXPECT_EQ(+page.GetPage()->system.m_if, 11u);
}

TEST(PropertyPageTest, GroupsAndItemsKnowTheirPlaces) {
    CPropertyHead page;
    EXPECT_EQ(page.CreatePropertyGroup("General"), 0);
    EXPECT_EQ(page.CreatePropertyGroup("Time scale"), 1);
    EXPECT_EQ(page.AddPropertyIntItem(1, QString("a"), QString("x"), 1, 0, 2), 0);
    EXPECT_EQ(page.AddPropertyBoolItem(1, QString("b"), QString("y"), true), 1);
    EXPECT_EQ(page.AddPropertyBoolItem(2, QString("b"), QString("y"), true), -1);
    const PROPERTY_GROUP *group = page.getPropertyGroup(1);
    EXPECT_EQ(fieldText(group->name), "Time scale");
    EXPECT_EQ(Word(group->index), 1u);
    EXPECT_EQ(Word(group->count), 2u);
    EXPECT_EQ(Word(group->created), 1u);
    const PROPERTY *item = page.getPropertyItem(1, 1);
    EXPECT_EQ(Word(item->group), 1u);
    EXPECT_EQ(Word(item->index), 1u);
    EXPECT_EQ(fieldText(item->name), "b");
    EXPECT_EQ(fieldText(item->description), "y");
    EXPECT_EQ(page.getCountPropertyInGroup(1), 2);
    EXPECT_EQ(page.getCountPropertyInGroup(2), 0);
    EXPECT_EQ(page.getPropertyItem(1, 2), nullptr);
    EXPECT_EQ(page.getPropertyItem(1, -1), nullptr);
}

TEST(PropertyPageTest, ValueRecordsOfNumbers) {
    CPropertyHead page;
    page.CreatePropertyGroup("g");
    page.AddPropertyIntItem(0, QString("i"), QString(), 5, -1, 9, true);
    page.AddPropertyDoubleItem(0, QString("d"), QString(), 1.25, false, 3, true);
    page.AddPropertyWidget(0, QString("w"), QString(), 205, 430);
    const auto *number = static_cast<const propertyInt *>(page.getPropertyItem(0, 0)->value);
    EXPECT_EQ(int(number->value), 5);
    EXPECT_EQ(int(number->minimum), -1);
    EXPECT_EQ(int(number->maximum), 9);
    EXPECT_EQ(page.getPropertyItem(0, 0)->readOnly, 1);
    const auto *real = static_cast<const propertyDouble *>(page.getPropertyItem(0, 1)->value);
    EXPECT_EQ(double(real->value), 1.25);
    EXPECT_EQ(double(real->step), 0.0001);
    EXPECT_EQ(double(real->minimum), -1e11);
    EXPECT_EQ(double(real->maximum), 1e11);
    EXPECT_EQ(int(real->digits), 3);
    const auto *widget = static_cast<const propertyWidget *>(page.getPropertyItem(0, 2)->value);
    EXPECT_EQ(Word(widget->windowId), 0u);
    EXPECT_EQ(int(widget->width), 205);
    EXPECT_EQ(int(widget->height), 430);
    EXPECT_EQ(page.getPropertyItem(0, 2)->readOnly, 0);
}

TEST(PropertyPageTest, NamesAndDescriptionsAreCutTo255Characters) {
    CPropertyHead page;
    page.CreatePropertyGroup(QString(400, 'g'));
    page.AddPropertyBoolItem(0, QString(400, 'n'), QString(400, 'd'), true);
    EXPECT_EQ(fieldText(page.getPropertyGroup(0)->name), QString(255, 'g'));
    EXPECT_EQ(Word(page.getPropertyGroup(0)->reserved), 0u);
    EXPECT_EQ(fieldText(page.getPropertyItem(0, 0)->name), QString(255, 'n'));
    EXPECT_EQ(fieldText(page.getPropertyItem(0, 0)->description), QString(255, 'd'));
}

TEST(PropertyPageTest, UnicodeFormsAddTheSameItems) {
    testApplication();
    const QString name("name"), description("description"), text("text");
    CPropertyHead page;
    page.CreatePropertyGroup("g");
    const unsigned short *n = name.utf16();
    const unsigned short *d = description.utf16();
    EXPECT_EQ(page.AddPropertyIntItem(0, n, d, 1, 0, 2), 0);
    EXPECT_EQ(page.AddPropertyDoubleItem(0, n, d, 1.0, true, 2), 1);
    EXPECT_EQ(page.AddPropertyTextItem(0, n, d, text.utf16()), 2);
    EXPECT_EQ(page.AddPropertyColorItem(0, n, d, QColor(Qt::red)), 3);
    EXPECT_EQ(page.AddPropertyFontItem(0, n, d, QFont("Arial", 8)), 4);
    EXPECT_EQ(page.AddPropertyListItem(0, n, d, QStringList{"a"}, 0), 5);
    EXPECT_EQ(page.AddPropertyDateTimeItem(0, n, d, QDateTime::fromTime_t(60)), 6);
    EXPECT_EQ(page.AddPropertyBoolItem(0, n, d, true), 7);
    EXPECT_EQ(page.AddPropertyWidget(0, n, d, 1, 2), 8);
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(Word(page.getPropertyItem(0, i)->type), Word(i));
        EXPECT_EQ(fieldText(page.getPropertyItem(0, i)->name), "name");
        EXPECT_EQ(fieldText(page.getPropertyItem(0, i)->description), "description");
    }
    EXPECT_EQ(page.GetPropertyItem(0, 2).toString(), "text");
}

class PageCopyTest : public testing::Test {
protected:
    PageCopyTest() {
        page.ReInicDatePage("title", "first", "second", someSystem);
        page.CreatePropertyGroup("empty");
        page.CreatePropertyGroup("full");
        page.AddPropertyListItem(1, QString("list"), QString(), QStringList{"a", "b"}, 1);
        page.AddPropertyTextItem(1, QString("text"), QString(), QString("value"));
        page.AddPropertyWidget(1, QString("widget"), QString(), 10, 20);
    }
    CPropertyHead page;
};

TEST_F(PageCopyTest, ACopyIsDeep) {
    CPropertyHead copy(page);
    EXPECT_EQ(fieldText(copy.GetPage()->title), "title");
    EXPECT_EQ(fieldText(copy.GetPage()->firstText), "first");
    EXPECT_EQ(fieldText(copy.GetPage()->secondText), "second");
    EXPECT_EQ(+copy.GetPage()->system.m_object, 22u);
    EXPECT_EQ(copy.getCountPropertyInGroup(0), 0);
    EXPECT_EQ(copy.getCountPropertyInGroup(1), 3);
    copy.SetProperty(1, 0, QVariant("a"));
    copy.SetProperty(1, 1, QVariant("other"));
    EXPECT_EQ(page.GetPropertyItem(1, 0), QVariant(1));
    EXPECT_EQ(page.GetPropertyItem(1, 1), QVariant("value"));
    page.ChangePropertyListItem(1, 0, {"c"}, 0);
    EXPECT_EQ(copy.GetPropertyItem(1, 0), QVariant(0));
    copy.SetProperty(1, 0, QVariant("b"));
    EXPECT_EQ(copy.GetPropertyItem(1, 0), QVariant(1));
}

TEST_F(PageCopyTest, CopyingIntoAPageLeavesItsIdAndDropsItsGroups) {
    CPropertyHead target;
    const unsigned int id = target.GetPageId();
    for (int i = 0; i < 5; ++i)
        target.CreatePropertyGroup("old");
    target = *page.GetPage();
    EXPECT_EQ(target.GetPageId(), id);
    EXPECT_EQ(Word(target.GetPage()->groupCount), 2u);
    EXPECT_EQ(fieldText(target.getPropertyGroup(1)->name), "full");
    target = page;
    EXPECT_EQ(Word(target.GetPage()->groupCount), 2u);
    target.CopyPage(*target.GetPage());
    EXPECT_EQ(target.getCountPropertyInGroup(1), 3);
}

TEST_F(PageCopyTest, APageTakesACopyOfItsOwnGroup) {
    for (int i = 2; i < 20; ++i)
        EXPECT_EQ(page.addGroup(*page.getPropertyGroup(1)), i);
    EXPECT_EQ(page.getCountPropertyInGroup(19), 3);
    EXPECT_EQ(page.GetPropertyItem(19, 1), QVariant("value"));
    EXPECT_EQ(Word(page.getPropertyItem(19, 1)->group), 19u);
}

TEST_F(PageCopyTest, OnlyWidgetValuesAreTaken) {
    CPropertyHead changed(page);
    changed.SetProperty(1, 1, QVariant("other"));
    changed.SetProperty(1, 2, QVariant(77u));
    page.CopyWidgetParam(*changed.GetPage());
    EXPECT_EQ(page.GetPropertyItem(1, 1), QVariant("value"));
    EXPECT_EQ(page.GetPropertyItem(1, 2).toUInt(), 77u);
    const CPropertyHead empty;
    page.CopyWidgetParam(*empty.GetPage());
    EXPECT_EQ(page.GetPropertyItem(1, 2).toUInt(), 77u);
}

TEST_F(PageCopyTest, AListTakesNewEntries) {
    EXPECT_EQ(page.ChangePropertyListItem(1, 0, {"x", "y", "z"}, 2), 0);
    EXPECT_EQ(page.GetPropertyItem(1, 0), QVariant(2));
    page.SetProperty(1, 0, QVariant("y"));
    EXPECT_EQ(page.GetPropertyItem(1, 0), QVariant(1));
    EXPECT_EQ(page.ChangePropertyListItem(1, 0, {}, 0), 0);
    EXPECT_EQ(page.ChangePropertyListItem(1, 1, {"x"}, 0), -1); // no list
    EXPECT_EQ(page.ChangePropertyListItem(1, 9, {"x"}, 0), -1);
}

TEST_F(PageCopyTest, AGarbledPageOfTheHostIsCopiedWithoutHarm) {
    CPropertyHead garbled(page);
    PROPERTY_GROUP *group = garbled.getPropertyGroup(1);
    PROPERTY *list = group->items[0];
    PROPERTY *text = group->items[1];
    void *value = text->value;
    auto *record = static_cast<propertyList *>(list->value);
    record->count = -5;
    text->value = nullptr;
    std::fill_n(text->name, 255, 'x');
    CPropertyHead copy(*garbled.GetPage());
    EXPECT_EQ(copy.getCountPropertyInGroup(1), 3);
    EXPECT_FALSE(copy.GetPropertyItem(1, 1).isValid());
    EXPECT_EQ(fieldText(copy.getPropertyItem(1, 1)->name), QString(255, 'x'));
    copy.SetProperty(1, 0, QVariant("a"));
    text->value = value;
    record->count = 2;
    list->type = 77;
    const CPropertyHead unknown(*garbled.GetPage());
    EXPECT_EQ(unknown.getCountPropertyInGroup(1), 3);
    EXPECT_FALSE(unknown.GetPropertyItem(1, 0).isValid());
    list->type = PropertyTypeList;
    auto bare = zeroRecord<PROPERTY_PAGE>();
    bare.groupCount = 9; // and no groups
    copy.CopyPage(bare);
    EXPECT_EQ(copy.getPropertyGroup(0), nullptr);
}

TEST_F(PageCopyTest, ACopiedItemOwnsItsValue) {
    auto item = zeroRecord<PROPERTY>();
    int index;
    {
        propertyInt value{3, 0, 9};
        item.type = PropertyTypeInt;
        item.value = &value;
        index = page.addProperty(0, item);
        value.value = 8;
    }
    EXPECT_EQ(index, 0);
    EXPECT_EQ(page.GetPropertyItem(0, 0), QVariant(3));
}

} // namespace
