#include "chart/ScaleWidth.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(ScaleWidth, LabelNeedsElevenPixelsBesideIt) {
    int width = 0;
    widenScale(width, 40);
    EXPECT_EQ(width, 51);
    widenScale(width, 40); // 50 is below 51
    EXPECT_EQ(width, 51);
    widenScale(width, 41); // 51 is not
    EXPECT_EQ(width, 52);
    widenScale(width, 10);
    EXPECT_EQ(width, 52);
}

struct DecisionCase {
    bool leftOn, rightOn, lastPriceOn;
    int left, right;
};

void PrintTo(const DecisionCase &row, std::ostream *out) {
    *out << (row.leftOn ? "left " : "") << (row.rightOn ? "right " : "") << (row.lastPriceOn ? "last price" : "");
}

class Decision : public testing::TestWithParam<DecisionCase> {};

TEST_P(Decision, FollowsTheSwitches) {
    const DecisionCase &row = GetParam();
    const ScaleWidths widths = decideScaleWidths(row.leftOn, row.rightOn, row.lastPriceOn, 40, 45, 60);
    EXPECT_EQ(widths.left, row.left);
    EXPECT_EQ(widths.right, row.right);
}

INSTANTIATE_TEST_SUITE_P(ScaleWidth, Decision,
                         testing::Values(DecisionCase{true, true, false, 40, 45},
                                         DecisionCase{true, true, true, 40, 60},
                                         DecisionCase{true, false, false, 40, 0},
                                         DecisionCase{true, false, true, 60, 0},
                                         DecisionCase{false, true, false, 0, 45},
                                         DecisionCase{false, true, true, 0, 60},
                                         DecisionCase{false, false, false, 0, 0},
                                         DecisionCase{false, false, true, 0, 0}));

TEST(ScaleWidth, WiderLabelThanLastPriceStays) {
    EXPECT_EQ(decideScaleWidths(true, true, true, 70, 70, 60).right, 70);
    EXPECT_EQ(decideScaleWidths(true, false, true, 70, 70, 60).left, 70);
}

struct Point {
    int time;
    float value;
    int rest;
};

std::vector<Point> points(int count) {
    std::vector<Point> list(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        list[static_cast<std::size_t>(i)] = {i, static_cast<float>(i % 977), 0};
    return list;
}

float update(RunningMaximum &maximum, const std::vector<Point> &list) {
    const auto *first = reinterpret_cast<const unsigned char *>(list.data());
    return maximum.Update(first + offsetof(Point, value), sizeof(Point), static_cast<int>(list.size()));
}

TEST(RunningMaximum, FindsTheLargestOfALongRun) {
    std::vector<Point> list = points(20000);
    list[12345].value = 5000;
    RunningMaximum maximum;
    EXPECT_EQ(update(maximum, list), 5000.0f);
}

TEST(RunningMaximum, FollowsTheLastPointAndNewOnes) {
    std::vector<Point> list = points(10000);
    list.reserve(20000);
    RunningMaximum maximum;
    EXPECT_EQ(update(maximum, list), 976.0f);
    list.back().value = 2000;
    EXPECT_EQ(update(maximum, list), 2000.0f);
    list.back().value = 1; // a correction of the running bar
    EXPECT_EQ(update(maximum, list), 976.0f);
    for (int i = 0; i < 9000; ++i)
        list.push_back({0, 3.0f, 0});
    list[15000].value = 3000;
    EXPECT_EQ(update(maximum, list), 3000.0f);
}

TEST(RunningMaximum, ReadsAMovedOrShorterRunAnew) {
    std::vector<Point> list = points(9000);
    list[10].value = 4000;
    RunningMaximum maximum;
    EXPECT_EQ(update(maximum, list), 4000.0f);
    const std::vector<Point> other = points(9000);
    EXPECT_EQ(update(maximum, other), 976.0f);
    list[10].value = 1;
    EXPECT_EQ(update(maximum, list), 976.0f);
    list[20].value = 7000;
    list.resize(8000);
    EXPECT_EQ(update(maximum, list), 7000.0f);
}

TEST(RunningMaximum, MeetsAChangeInThePastInItsTurn) {
    std::vector<Point> list = points(30000);
    RunningMaximum maximum;
    update(maximum, list);
    list[5].value = 8000;
    float seen = 0;
    for (int call = 0; call < 8; ++call) // as many as there are blocks
        seen = update(maximum, list);
    EXPECT_EQ(seen, 8000.0f);
}

TEST(RunningMaximum, ForgottenRunIsReadAnew) {
    std::vector<Point> list = points(30000);
    RunningMaximum maximum;
    update(maximum, list);
    list[5].value = 8000;
    maximum.Forget();
    EXPECT_EQ(update(maximum, list), 8000.0f);
}

TEST(RunningMaximum, NothingAndNotANumber) {
    RunningMaximum maximum;
    constexpr float none = -std::numeric_limits<float>::infinity();
    EXPECT_EQ(maximum.Update(nullptr, 12, 0), none);
    std::vector<Point> list = points(3);
    list[0].value = list[1].value = list[2].value = std::nanf("");
    EXPECT_EQ(update(maximum, list), none);
    list[1].value = -3;
    EXPECT_EQ(update(maximum, list), -3.0f);
}

} // namespace
