// Every row of a window's page through a change and back, as a host sends it: in a copy of its own.
#include "tests/support/FakeHost.h"

#include <QCheckBox>
#include <QFont>
#include <QLabel>
#include <QSpinBox>
#include <climits>
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

// The record of a change may point at the page or hold it behind the owner.
TEST_F(WindowPageRows, ARecordMayHoldThePageItself) {
    CopiedPage copy(*page);
    copy.value<propertyInt>(FreeSpace).value = 77;
    QByteArray record(8, 0);
    bytes::put<Word>(record.data(), 4, static_cast<Word>(toWord(chart.handle)));
    record.append(reinterpret_cast<const char *>(&copy.page), sizeof copy.page);
    EXPECT_EQ(host.send(ToModule::PageChanged, record.constData()), 0);
    EXPECT_EQ(static_cast<const propertyInt *>(item(FreeSpace).value)->value, 77);
}

// How the entries of a list lie is the window's own affair: a copy may come without them.
TEST_F(WindowPageRows, AListWithoutItsEntriesBringsTheChoiceAlone) {
    CopiedPage copy(*page);
    auto &list = copy.value<propertyList>(TitlePlace);
    list.selected = 2;
    list.entries = nullptr;
    apply(copy);
    const auto &shown = *static_cast<const propertyList *>(item(TitlePlace).value);
    EXPECT_EQ(+shown.selected, 2);
    ASSERT_EQ(+shown.count, 3);
    EXPECT_EQ(fieldText(shown.entries[2].text), "top");
}

TEST_F(WindowPageRows, AListOfImpossibleLengthChangesNothing) {
    for (const int count : {4, INT_MAX}) {
        CopiedPage copy(*page);
        copy.value<propertyInt>(FreeSpace).value = 77;
        copy.value<propertyList>(TitlePlace).count = count;
        apply(copy);
        EXPECT_EQ(static_cast<const propertyInt *>(item(FreeSpace).value)->value, 30) << count;
        EXPECT_EQ(static_cast<const propertyList *>(item(TitlePlace).value)->count, 3) << count;
    }
}

TEST_F(WindowPageRows, FontsOfAnySizeAreBorne) {
    host.addInstrument(chart, "EURUSD");
    const struct {
        int asked, shown;
    } sizes[] = {{0, 12}, {-3, 12}, {1000, 1000}, {100000, 100000}, {INT_MAX, 100000}};
    for (const auto &size : sizes) {
        for (const int row : {Font, TitleFont}) {
            CopiedPage copy(*page);
            auto &font = copy.value<propertyFont>(row);
            std::fill_n(font.family, std::size(font.family), 'x');
            font.pointSize = font.weight = font.italic = size.asked;
            apply(copy);
            host.tick();
            EXPECT_FALSE(host.grab(chart).isNull());
            EXPECT_EQ(static_cast<const propertyFont *>(item(row).value)->pointSize, size.shown) << size.asked;
        }
    }
}

// A host with one room for the editors of all its windows sees that of the window shown last.
TEST_F(WindowPageRows, OneRoomShowsOneEditor) {
    QWidget room;
    for (const unsigned message : {10051u, 10052u}) {
        host.answer(message, [this, &room, message](void *target, int wParam, int lParam) {
            const int result = host.defaultAnswer(target, message, wParam, lParam);
            auto *shown = fromWord<PROPERTY_PAGE>(wParam);
            static_cast<propertyWidget *>(shown->groups[TimeScale].items[2]->value)->windowId =
                static_cast<Word>(room.winId());
            return result;
        });
    }
    showAgain();
    const auto editors = [&room] { return childrenOfClass(&room, "CMvAutoscrollProperty").size(); };
    ASSERT_EQ(editors(), 1);
    const QPointer<QWidget> first = childOfClass(&room, "CMvAutoscrollProperty");
    Chart other = host.createChart();
    EXPECT_EQ(editors(), 1);
    EXPECT_FALSE(first);
    showAgain();
    EXPECT_EQ(editors(), 1);
    host.deleteChart(other);
    EXPECT_EQ(editors(), 1);
    host.deleteChart(chart);
    EXPECT_EQ(editors(), 0);
}

// Each of these calls of a page that is shown or applied may be the window's last.
TEST(WindowPageCalls, TheWindowMayGoInEachOfThem) {
    for (const unsigned last : {10057u, 10051u, 10052u, 10053u, 3553u, 5008u}) {
        for (const bool applied : {false, true}) {
            FakeHost host;
            Chart chart = host.createChart();
            host.addInstrument(chart, "EURUSD");
            PROPERTY_PAGE *page = host.pages.begin()->second;
            CopiedPage copy(*page);
            copy.value<propertyInt>(FreeSpace).value = 1001;
            copy.value<propertyBoolean>(0, Defaults).value = 1;
            if (last == 10051)
                host.pages.clear(); // shown as new again
            PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, &copy.page};
            host.answer(last, [&](void *, int, int) {
                return chart.widget ? host.send(ToModule::DeleteWindow, chart.handle) : 0;
            });
            if (applied)
                EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
            else
                EXPECT_EQ(host.send(ToModule::TakeFocus, chart.handle), 0);
            host.answer(last, nullptr);
            const bool asked = last == 3553 || applied == (last == 10053 || last == 5008);
            EXPECT_EQ(!chart.widget, asked) << last << " " << applied;
        }
    }
}

TEST_F(WindowPageRows, AHostMayApplyThePageWhileItIsShown) {
    host.answer(10052, [this](void *target, int wParam, int lParam) {
        const int result = host.defaultAnswer(target, 10052, wParam, lParam);
        CopiedPage copy(*page);
        copy.value<propertyInt>(FreeSpace).value = 77;
        apply(copy);
        return result;
    });
    showAgain();
    EXPECT_EQ(static_cast<const propertyInt *>(item(FreeSpace).value)->value, 77);
    ASSERT_TRUE(container());
    EXPECT_NE(childOfClass(container(), "CMvAutoscrollProperty"), nullptr);
}

TEST(WindowPageFonts, FollowTheLanguageAndDoNotGrowWithEachChange) {
    FakeHost host(FakeHost::Created);
    host.languages = {{"English", 0}, {"Chinese (Simplified)", 1}};
    host.send(3004u);
    host.send(3066u);
    const Chart chart = host.createChart();
    const PROPERTY_PAGE *page = host.pages.begin()->second;
    for (int i = 0; i < 3; ++i) {
        const auto font = [page](int row) {
            return static_cast<const propertyFont *>(page->groups[0].items[row]->value);
        };
        EXPECT_EQ(fieldText(font(Font)->family), "SimSun");
        EXPECT_EQ(font(Font)->pointSize, 10);
        EXPECT_EQ(fieldText(font(TitleFont)->family), "SimSun");
        EXPECT_EQ(font(TitleFont)->pointSize, 9);
        CopiedPage copy(*page);
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, &copy.page};
        EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
    }
}

} // namespace
