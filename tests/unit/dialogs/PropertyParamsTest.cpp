#include "dialogs/PropertyHead.h"
#include "tests/unit/support/UnitHost.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <gtest/gtest.h>
#include <memory>

namespace {

enum Item { intItem, doubleItem, textItem, colorItem, fontItem, listItem, dateItem, boolItem, widgetItem };

const QDateTime someTime = QDateTime::fromTime_t(1500000000);

// One group with an item of each type, in the order of the type numbers.
class PropertyParamsTest : public testing::Test {
protected:
    PropertyParamsTest() {
        testApplication();
        page.CreatePropertyGroup("General");
        page.AddPropertyIntItem(0, QString("int"), QString("d"), 5, 0, 10);
        page.AddPropertyDoubleItem(0, QString("double"), QString("d"), 1.5, true, 4);
        page.AddPropertyTextItem(0, QString("text"), QString("d"), QString("hello"));
        page.AddPropertyColorItem(0, QString("color"), QString("d"), QColor(1, 2, 3));
        QFont font("DejaVu Sans", 9, 75, true);
        page.AddPropertyFontItem(0, QString("font"), QString("d"), font);
        page.AddPropertyListItem(0, QString("list"), QString("d"), QStringList{"left", "right", "top"}, 1);
        page.AddPropertyDateTimeItem(0, QString("date"), QString("d"), someTime);
        page.AddPropertyBoolItem(0, QString("bool"), QString("d"), true);
        page.AddPropertyWidget(0, QString("widget"), QString("d"), 201, 70);
    }
    std::string errorOf(int index, const QVariant &value) {
        try {
            page.SetProperty(0, index, value);
        } catch (const PropertyException &error) {
            return error.what();
        }
        return "";
    }

    CPropertyHead page;
};

TEST_F(PropertyParamsTest, ValuesComeBackAsTheirQtTypes) {
    EXPECT_EQ(page.GetPropertyItem(0, intItem), QVariant(5));
    EXPECT_EQ(page.GetPropertyItem(0, doubleItem), QVariant(1.5));
    EXPECT_EQ(page.GetPropertyItem(0, textItem), QVariant("hello"));
    EXPECT_EQ(page.GetPropertyItem(0, colorItem).value<QColor>(), QColor(1, 2, 3));
    const auto font = page.GetPropertyItem(0, fontItem).value<QFont>();
    EXPECT_EQ(font.family(), "DejaVu Sans");
    EXPECT_EQ(font.pointSize(), 9);
    EXPECT_EQ(font.weight(), 75);
    EXPECT_TRUE(font.italic());
    EXPECT_EQ(page.GetPropertyItem(0, listItem), QVariant(1));
    EXPECT_EQ(page.GetPropertyItem(0, dateItem).toDateTime(), someTime);
    EXPECT_EQ(page.GetPropertyItem(0, boolItem), QVariant(true));
    EXPECT_EQ(page.GetPropertyItem(0, widgetItem).toUInt(), 0u);
}

TEST_F(PropertyParamsTest, ChangesAndBack) {
    const struct {
        int index;
        QVariant value;
    } rows[] = {{intItem, 7},
                {doubleItem, -2.25},
                {textItem, QString("world")},
                {colorItem, QColor(9, 8, 7)},
                {fontItem, QFont("DejaVu Serif", 12)},
                {listItem, 2},
                {dateItem, QDateTime::fromTime_t(1)},
                {boolItem, false}};
    for (const auto &row : rows) {
        EXPECT_EQ(page.SetProperty(0, row.index, row.value), page.getPropertyItem(0, row.index));
        EXPECT_EQ(page.GetPropertyItem(0, row.index).toString(), row.value.toString()) << row.index;
    }
    EXPECT_EQ(page.GetPropertyItem(0, colorItem).value<QColor>(), QColor(9, 8, 7));
    EXPECT_EQ(page.GetPropertyItem(0, fontItem).value<QFont>().pointSize(), 12);
}

TEST_F(PropertyParamsTest, AListTakesAnIndexOrATextThatItHas) {
    page.SetProperty(0, listItem, QVariant(2));
    EXPECT_EQ(page.GetPropertyItem(0, listItem), QVariant(2));
    page.SetProperty(0, listItem, QVariant("left"));
    EXPECT_EQ(page.GetPropertyItem(0, listItem), QVariant(0));
    for (const QVariant &value : {QVariant(3), QVariant(-1), QVariant("bottom")}) {
        EXPECT_EQ(errorOf(listItem, value), "");
        EXPECT_EQ(page.GetPropertyItem(0, listItem), QVariant(0));
    }
}

TEST_F(PropertyParamsTest, AVariantOfTheWrongTypeIsRefused) {
    const struct {
        int index;
        QVariant value;
        const char *text;
    } rows[] = {{intItem, "5", "Error param in CPropertyParamInt"},
                {intItem, 5.0, "Error param in CPropertyParamInt"},
                {doubleItem, 5, "Error param in CPropertyParamDouble"},
                {colorItem, 5, "Error param in CPropertyParamColor"},
                {textItem, 5, "Error param in CPropertyParamString"},
                {fontItem, "Arial", "Error param in CPropertyParamFont"},
                {boolItem, 1, "CPropertyParamBoolean type in GetPropertyItem"},
                {listItem, 1.0, "CPropertyParamList type in GetPropertyItem"},
                {dateItem, 5, "CPropertyParamDouble error in CPropertyParamDateTime"},
                {intItem, QVariant(), "Error param in CPropertyParamInt"}};
    for (const auto &row : rows)
        EXPECT_EQ(errorOf(row.index, row.value), row.text);
    EXPECT_EQ(page.GetPropertyItem(0, intItem), QVariant(5));
}

TEST_F(PropertyParamsTest, AnItemWithoutAValueRecordIsRefused) {
    const struct {
        int index;
        QVariant value;
        const char *text;
    } rows[] = {{intItem, 5, "Error memo in CPropertyParamInt"},
                {doubleItem, 5.0, "Error memo in CPropertyParamDouble"},
                {colorItem, QColor(), "Error memo in CPropertyParamColor"},
                {textItem, "x", "Error memo in CPropertyParamString"},
                {fontItem, QFont(), "Error memo in CPropertyParamFont"},
                {boolItem, true, "CPropertyParamBoolean error in GetPropertyItem"},
                {listItem, 1, "CPropertyParamList error in GetPropertyItem"},
                {dateItem, QDateTime(), "CPropertyParamDouble error in SetProperty"}};
    for (const auto &row : rows) {
        PROPERTY *item = page.getPropertyItem(0, row.index);
        void *value = item->value;
        item->value = nullptr;
        EXPECT_EQ(errorOf(row.index, row.value), row.text);
        EXPECT_FALSE(page.GetPropertyItem(0, row.index).isValid());
        item->value = value;
    }
}

TEST_F(PropertyParamsTest, AParamOfAnotherTypeThanItsItemIsRefused) {
    const auto errorOfMaking = [](auto make) -> std::string {
        try {
            make();
        } catch (const PropertyException &error) {
            return error.what();
        }
        return "";
    };
    PROPERTY *wrong = page.getPropertyItem(0, widgetItem);
    for (bool deep : {false, true}) {
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamInt param(wrong, deep); }), "Error in CPropertyParamInt");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamDouble param(wrong, deep); }),
                  "Error in CPropertyParamDouble");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamString param(wrong, deep); }),
                  "Error in CPropertyParamString");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamColor param(wrong, deep); }),
                  "Error in CPropertyParamColor");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamFont param(wrong, deep); }),
                  "Error in CPropertyParamFont");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamList param(wrong, deep); }),
                  "Error in CPropertyParamList");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamDateTime param(wrong, deep); }),
                  "Error in CPropertyParamDateTime");
        EXPECT_EQ(errorOfMaking([&] { CPropertyParamBoolean param(wrong, deep); }),
                  "Error in CPropertyParamBoolean");
    }
}

TEST_F(PropertyParamsTest, EveryTypeHasItsClassAndWidth) {
    const int widths[] = {12, 36, 2048, 4, 2060, 12, 4, 1, 12};
    for (int i = 0; i < 9; ++i) {
        const std::unique_ptr<CPropertyParamItem> param(createData(page.getPropertyItem(0, i), false));
        ASSERT_NE(param, nullptr) << i;
        EXPECT_EQ(param->GetLenItems(), widths[i]) << i;
    }
    EXPECT_EQ(createData(nullptr, false), nullptr);
    auto item = zeroRecord<PROPERTY>();
    item.type = 9;
    EXPECT_EQ(createData(&item, true), nullptr);
    EXPECT_EQ(sizeof(CPropertyParamInt), 16u);
    EXPECT_EQ(sizeof(CPropertyParamWidget), 16u);
}

TEST_F(PropertyParamsTest, ADeepParamLeavesTheItemAlone) {
    for (int index : {int(intItem), int(listItem)}) {
        const std::unique_ptr<CPropertyParamItem> param(createData(page.getPropertyItem(0, index), true));
        QVariant value(index == intItem ? 9 : 2);
        param->SetProperty(value);
        EXPECT_EQ(param->GetPropertyItem(), value);
        EXPECT_NE(page.GetPropertyItem(0, index), value);
    }
}

TEST_F(PropertyParamsTest, ALongTextFillsItsField) {
    page.SetProperty(0, textItem, QString(2000, 'x'));
    EXPECT_EQ(page.GetPropertyItem(0, textItem).toString(), QString(1024, 'x'));
}

} // namespace
