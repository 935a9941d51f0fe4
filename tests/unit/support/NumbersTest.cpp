#include "support/Numbers.h"
#include "support/PeriodText.h"

#include <cfloat>
#include <cmath>
#include <gtest/gtest.h>

namespace {

TEST(NumbersTest, RoundFloatRoundsHalfAwayFromZero) {
    const struct {
        double value;
        int digits;
        double result;
    } rows[] = {{2.5, 0, 3},        {-2.5, 0, -3},        {0, 2, 0},        {1.0051, 2, 1.01},
                {-1.245, 2, -1.25}, {1.23456, 4, 1.2346}, {99.999, 2, 100}, {1e6 + 0.25, 1, 1000000.3},
                {123, 0, 123},      {0.4, 0, 0}};
    for (const auto &row : rows)
        EXPECT_DOUBLE_EQ(roundFloat(row.value, row.digits), row.result) << row.value << " " << row.digits;
}

TEST(NumbersTest, RoundFloatLeavesWhatNoIntegerHolds) {
    EXPECT_EQ(roundFloat(1e300, 2), 1e300);
    EXPECT_TRUE(std::isnan(roundFloat(NAN, 2)));
    EXPECT_EQ(roundFloat(INFINITY, 2), INFINITY);
}

TEST(NumbersTest, RoundToASteps) {
    EXPECT_DOUBLE_EQ(round_eps(7.4, 5), 5);
    EXPECT_DOUBLE_EQ(round_eps(7.5, 5), 10);
    EXPECT_DOUBLE_EQ(round_eps(-7.5, 5), -5);
    EXPECT_DOUBLE_EQ(round_eps(1.23, 0.25), 1.25);
    EXPECT_DOUBLE_EQ(round_nth(1234, 2), 1200);
    EXPECT_DOUBLE_EQ(round_nth(1.2361, -2), 1.24);
    EXPECT_DOUBLE_EQ(round_nth(1250, 2), 1300);
}

TEST(NumbersTest, LotPower) {
    const struct {
        long long value;
        int power;
    } rows[] = {{0, 0}, {9, 0}, {10, 1}, {99, 1}, {100, 2}, {1000, 3}, {-1000, 0}, {123456789012345678, 17}};
    for (const auto &row : rows)
        EXPECT_EQ(GetLotPower(row.value), row.power) << row.value;
}

TEST(NumbersTest, DecimalsOfAPointSize) {
    const struct {
        double pointSize;
        int decimals;
    } rows[] = {{1, 0},         {0.1, 1},      {0.01, 2},     {0.001, 3},   {0.0001, 4},
                {0.00001, 5},   {10, 1},       {0.001f, 3},   {0.0001f, 4}, {0.00001f, 5},
                {0.000001f, 6}, {0.1f, 1},     {0.5, 0},      {0.02, 1},    {0, 0},
                {-1, 0},        {-FLT_MAX, 0}, {INFINITY, 0}, {NAN, 0}};
    for (const auto &row : rows)
        EXPECT_EQ(decimalsOf(row.pointSize), row.decimals) << row.pointSize;
}

TEST(PeriodTextTest, Texts) {
    const struct {
        char period;
        int length;
        const char *text;
    } rows[] = {{'D', 1, "Day"},     {'D', 0, "Day"},     {'W', 1, "Week"},     {'M', 1, "Month"},
                {'Y', 1, "Year"},    {'I', 0, "Tick"},    {'I', 1, "1 Min"},    {'I', 59, "59 Min"},
                {'I', 60, "1 Hour"}, {'I', 90, "1 Hour"}, {'I', 180, "3 Hour"}, {'X', 5, ""},
                {0, 0, ""}};
    for (const auto &row : rows)
        EXPECT_EQ(periodText(row.period, row.length), row.text) << row.period << row.length;
}

} // namespace
