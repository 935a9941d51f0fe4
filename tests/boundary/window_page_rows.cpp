// Every row of a window's page through a change and back, as a host sends it: in a copy of its own.
#include "tests/support/FakeHost.h"

#include <QCheckBox>
#include <QFont>
#include <QLabel>
#include <QSpinBox>
#include <gtest/gtest.h>

namespace {

enum Group { General, TimeScale, Defaults };
enum Row {
    Background, Grid, Font, FontColor, FreeSpace, Border, AllAreas, TitlePlace, TitleFont, TwoColors,
    VerticalGrid, HorizontalGrid, LeftScale, RightScale, LastCandle, Trade, Candles, ManualTest
};

int widthOfValue(Word type) {
    const int widths[] = {12, 36, 2048, 4, 2060, 12, 4, 1, 12};
    return widths[type];
}

QByteArray bytesOf(const PROPERTY &item) {
    QByteArray value(static_cast<const char *>(item.value), widthOfValue(item.type));
    if (item.type == PropertyTypeList)
        value.truncate(8); // the entries are elsewhere in each copy
    return value;
}

/// A host's own copy of a page, with its own groups, items and values.
struct CopiedPage {
    explicit CopiedPage(const PROPERTY_PAGE &source) : page(source) {
        groups.assign(source.groups, source.groups + source.groupCount);
        pointers.resize(source.groupCount);
        for (Word g = 0; g < source.groupCount; ++g) {
            for (Word i = 0; i < groups[g].count; ++i) {
                items.push_back(*groups[g].items[i]);
                const auto *value = static_cast<const char *>(items.back().value);
                values.emplace_back(value, value + widthOfValue(items.back().type));
                items.back().value = values.back().data();
                if (items.back().type == PropertyTypeList) {
                    auto &list = *static_cast<propertyList *>(items.back().value);
                    entries.emplace_back(list.entries, list.entries + list.count);
                    list.entries = entries.back().data();
                }
                pointers[g].push_back(&items.back());
            }
            groups[g].items = pointers[g].data();
        }
        page.groups = groups.data();
    }
    template <class T>
    T &value(int row, Group group = General) {
        return *static_cast<T *>(pointers[static_cast<std::size_t>(group)][static_cast<std::size_t>(row)]->value);
    }

    PROPERTY_PAGE page;
    std::vector<PROPERTY_GROUP> groups;
    std::deque<PROPERTY> items;
    std::deque<std::vector<char>> values;
    std::deque<std::vector<propertyListEntry>> entries;
    std::vector<std::vector<PROPERTY *>> pointers;
};

struct WindowPageRows : testing::Test {
    FakeHost host;
    Chart chart = host.createChart();
    PROPERTY_PAGE *page = host.pages.begin()->second;

    const PROPERTY &item(int row, Group group = General) const { return *page->groups[group].items[row]; }
    void apply(CopiedPage &copy) {
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, &copy.page};
        EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
    }
    void showAgain() { host.send(ToModule::TakeFocus, chart.handle); }
    QWidget *container() const {
        return QWidget::find(static_cast<const propertyWidget *>(item(2, TimeScale).value)->windowId);
    }
};

// A host may copy the page's record alone: its groups are then still the window's own.
TEST_F(WindowPageRows, ARecordThatSharesTheWindowsGroupsChangesNothing) {
    const CopiedPage before(*page);
    PROPERTY_PAGE shared = *page;
    PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, &shared};
    EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
    showAgain();
    for (int row = 0; row < 18; ++row)
        EXPECT_EQ(bytesOf(item(row)), bytesOf(*before.pointers[General][static_cast<std::size_t>(row)])) << row;
}

TEST_F(WindowPageRows, EveryChangedValueIsShownByTheNextPage) {
    CopiedPage copy(*page);
    const auto setFont = [&](int row, const char *family, int size, int weight, int italic) {
        auto &font = copy.value<propertyFont>(row);
        fillField(font.family, QString(family));
        font.pointSize = size;
        font.weight = weight;
        font.italic = italic;
    };
    copy.value<propertyColor>(Background).rgb = 0xFF102030;
    copy.value<propertyColor>(Grid).rgb = 0xFF405060;
    setFont(Font, "Courier New", 11, QFont::Bold, 1);
    copy.value<propertyColor>(FontColor).rgb = 0xFF708090;
    copy.value<propertyInt>(FreeSpace).value = 77;
    copy.value<propertyList>(TitlePlace).selected = 2;
    setFont(TitleFont, "Tahoma", 13, QFont::Bold, 1);
    for (int row : {Border, AllAreas, TwoColors, VerticalGrid, HorizontalGrid, LeftScale, RightScale, LastCandle,
                    Trade, Candles, ManualTest})
        copy.value<propertyBoolean>(row).value ^= 1;
    copy.value<propertyColor>(0, TimeScale).rgb = 0xFFA0B0C0;
    copy.value<propertyColor>(1, TimeScale).rgb = 0xFFD0E0F0;
    const CopiedPage before(*page);
    apply(copy);
    showAgain();
    for (Group group : {General, TimeScale}) {
        for (int row = 0; row < (group == General ? 18 : 2); ++row) {
            const auto g = static_cast<std::size_t>(group);
            const auto i = static_cast<std::size_t>(row);
            EXPECT_EQ(bytesOf(item(row, group)), bytesOf(*copy.pointers[g][i])) << g << " " << i;
            EXPECT_NE(bytesOf(item(row, group)), bytesOf(*before.pointers[g][i])) << g << " " << i;
        }
    }
    CopiedPage back(before.page);
    apply(back);
    showAgain();
    for (int row = 0; row < 18; ++row)
        EXPECT_EQ(bytesOf(item(row)), bytesOf(*before.pointers[0][static_cast<std::size_t>(row)])) << row;
}

TEST_F(WindowPageRows, WhatTheWindowBringsBackIsTold) {
    CopiedPage copy(*page);
    copy.value<propertyInt>(FreeSpace).value = 1001;
    copy.value<propertyList>(TitlePlace).selected = 3;
    host.clearTraffic();
    apply(copy);
    const auto changed = host.callsOf(ToHost::PageItemChanged);
    ASSERT_EQ(changed.size(), 2u);
    for (const Call &call : changed)
        EXPECT_EQ(fromWord<PROPERTY_PAGE>(call.wParam), page);
    EXPECT_EQ(fromWord<PROPERTY>(changed[0].lParam), &item(FreeSpace));
    EXPECT_EQ(static_cast<const propertyInt *>(item(FreeSpace).value)->value, 1000);
    EXPECT_EQ(fromWord<PROPERTY>(changed[1].lParam), &item(TitlePlace));
    EXPECT_EQ(static_cast<const propertyList *>(item(TitlePlace).value)->selected, 0);
}

TEST_F(WindowPageRows, TheAutoScrollEditorStandsInTheHostsRoom) {
    ASSERT_TRUE(container());
    EXPECT_EQ(container()->minimumHeight(), 0);
    EXPECT_EQ(container()->maximumHeight(), 16777215);
    const auto *box = container()->findChild<QCheckBox *>();
    const auto *label = container()->findChild<QLabel *>();
    const auto *number = container()->findChild<QSpinBox *>();
    ASSERT_TRUE(box && label && number);
    EXPECT_EQ(box->text(), "Auto scroll");
    EXPECT_EQ(box->toolTip(), "Last candle auto scroll from right scale");
    EXPECT_EQ(label->text(), "Auto scroll positions");
    EXPECT_EQ(number->toolTip(), "Sets the number of free positions after the last candle with auto scroll on");
    EXPECT_STREQ(box->parentWidget()->metaObject()->className(), "CMvAutoscrollProperty");
}

TEST_F(WindowPageRows, ASecondRoomTakesTheEditorOver) {
    QPointer<QWidget> first = container();
    showAgain();
    ASSERT_NE(container(), first);
    EXPECT_EQ(first->findChild<QCheckBox *>(), nullptr);
    EXPECT_NE(container()->findChild<QCheckBox *>(), nullptr);
}

} // namespace
