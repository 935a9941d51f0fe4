#include "data/DataPointView.h"
#include "tests/support/Series.h"

#include <gtest/gtest.h>

namespace {

TEST(DataPointViewTest, OffsetsByNameAndIndex) {
    FakeArray array;
    array.setCandles(makeBars(3));
    const CDataPointView view(array.header());
    const struct {
        const char *name;
        int index, offset;
    } rows[] = {{"TIME", 0, 0},   {"CLOSE", 0, 16},  {"CLOSE", 2, 64},
                {"CLOSE", 3, -1}, {"CLOSE", -1, -1}, {"NONE", 0, -1}};
    for (const auto &row : rows)
        EXPECT_EQ(view.Offset(row.name, row.index), row.offset) << row.name << row.index;
    EXPECT_EQ(view.TypeByName("CLOSE"), DPT_FLOAT);
    EXPECT_EQ(view.TypeByName("TIME"), DPT_LONG);
    EXPECT_EQ(view.TypeByName("NONE"), DPT_NONE);
}

TEST(DataPointViewTest, WidthsAreNotThoseOfALine) {
    FakeArray array;
    array.setFields({{DPT_BYTE, "B"},
                     {DPT_NONE, "N"},
                     {DPT_SHORT, "S"},
                     {DPT_LONG, "L"},
                     {DPT_INT64, "I"},
                     {DPT_FLOAT, "F"},
                     {DPT_DOUBLE, "D"},
                     {DPT_LONG, "END"}});
    const std::vector<unsigned char> record(100);
    array.append(record.data());
    const CDataPointView view(array.header());
    const struct {
        const char *name;
        int offset;
    } rows[] = {{"B", 0}, {"N", 1}, {"S", 2}, {"L", 4}, {"I", 8}, {"F", 12}, {"D", 16}, {"END", 20}};
    for (const auto &row : rows)
        EXPECT_EQ(view.Offset(row.name, 0), row.offset) << row.name;
}

TEST(DataPointViewTest, MovesTheFieldListBehindItsLastDescriptor) {
    FakeArray array;
    array.setCandles(makeBars(1));
    const coreFieldDescriptor *fields = array.header()->fields;
    const CDataPointView view(array.header());
    EXPECT_EQ(+array.header()->fields, fields + 6);
}

TEST(DataPointViewTest, EmptyViews) {
    const CDataPointView none;
    EXPECT_EQ(none.Offset("CLOSE", 0), -1);
    EXPECT_EQ(none.TypeByName("CLOSE"), DPT_NONE);
    FakeArray array;
    array.setCandles(makeBars(3));
    array.header()->fieldCount = 0;
    const CDataPointView view(array.header());
    EXPECT_EQ(view.Offset("CLOSE", 0), -1);
    EXPECT_EQ(CDataPointView(nullptr).Offset("CLOSE", 0), -1);
}

TEST(DataPointViewTest, TheFirstOfTwoFieldsOfANameWins) {
    FakeArray array;
    array.setFields({{DPT_LONG, "VALUE"}, {DPT_FLOAT, "VALUE"}});
    const double record = 0;
    array.append(&record);
    const CDataPointView view(array.header());
    EXPECT_EQ(view.Offset("VALUE", 0), 0);
    EXPECT_EQ(view.TypeByName("VALUE"), DPT_LONG);
}

} // namespace
