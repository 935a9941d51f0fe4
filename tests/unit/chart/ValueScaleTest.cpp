#include "chart/ValueScale.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct StepCase {
    double raw, tick, expected;
};

class GridStep : public testing::TestWithParam<StepCase> {};

TEST_P(GridStep, FollowsTheRoomForTexts) {
    EXPECT_NEAR(gridStep(GetParam().raw, GetParam().tick), GetParam().expected, GetParam().expected * 1e-9);
}

INSTANTIATE_TEST_SUITE_P(ValueScale, GridStep,
                         testing::Values(StepCase{0.00005, 0.0001, 0.0001}, // below a tick
                                         StepCase{0.0001, 0.0001, 0.0001},  // exactly a tick
                                         StepCase{0.0023, 0.0001, 0.01},    // below 1 the power lies above
                                         StepCase{0.23, 0.0001, 1.0},       // and there is no half step
                                         StepCase{0.99, 0.0001, 1.0},       //
                                         StepCase{1.0, 0.0001, 1.0},        // exactly a power
                                         StepCase{2.3, 0.01, 5.0},          // half of the next power
                                         StepCase{5.0, 0.01, 10.0},         // the half must lie above
                                         StepCase{7.5, 0.01, 10.0},         //
                                         StepCase{23.0, 0.01, 50.0},        //
                                         StepCase{60.0, 0.01, 100.0},       //
                                         StepCase{123456.0, 0.01, 500000.0}));

LayerMapping mappingOf(const ValueRange &range, const QRect &rect) {
    LayerMapping mapping;
    mapping.rect = rect;
    mapping.min = range.min;
    mapping.yScale = pixelsPerUnit(range, rect.height());
    return mapping;
}

// 300 rows, 20 rows a text: 15 labels between 10 and 110, so raw is 6.4 and the step 10.
TEST(ValueScale, FirstLabelIsNotTheStart) {
    const ValueRange range{110.0f, 10.0f};
    const ValueGrid grid = valueGrid(range, 300, 15, 0.01f);
    EXPECT_DOUBLE_EQ(grid.step, 10);
    EXPECT_DOUBLE_EQ(grid.multiple, 1); // 12 / 10 + 1, truncated, less 1
    EXPECT_DOUBLE_EQ(grid.At(0), 20);
    EXPECT_EQ(grid.count, 9); // the last one is at (int)(108 / 10 - 1) + 1 = 10 steps
}

TEST(ValueScale, GridReachesBothSidesOfZero) {
    const ValueRange range{50.0f, -50.0f};
    const ValueGrid grid = valueGrid(range, 300, 15, 0.01f);
    EXPECT_DOUBLE_EQ(grid.step, 10);
    EXPECT_DOUBLE_EQ(grid.multiple, -6); // (int)(-4.8 - 0.5) - 1
    EXPECT_DOUBLE_EQ(grid.At(0), -50);
    EXPECT_EQ(grid.At(5), 0.0);
    EXPECT_EQ(grid.count, 10); // to (int)(4.8 - 1) + 1 = 4
}

TEST(ValueScale, NoRoomOrNoRangeGivesNoLabels) {
    EXPECT_EQ(valueGrid({110.0f, 10.0f}, 19, 15, 0.01f).count, 0);
    EXPECT_EQ(valueGrid({-FLT_MAX, 10.0f}, 300, 15, 0.01f).count, 0);
    EXPECT_EQ(valueGrid({110.0f, FLT_MAX}, 300, 15, 0.01f).count, 0);
    EXPECT_EQ(valueGrid({110.0f, 10.0f}, 300, 15, -FLT_MAX).count, 9); // a tick that is none
    EXPECT_EQ(valueGrid({INFINITY, 10.0f}, 300, 15, 0.01f).count, 0);
    EXPECT_EQ(valueGrid({10.0f, 10.0f}, 300, 15, 0.0f).count, 0);
}

TEST(ValueScale, LabelsStandOnThePlotFromLowToHigh) {
    const ValueRange range{1.35f, 1.30f};
    const QRect plot(40, 10, 600, 400);
    const LayerMapping mapping = mappingOf(range, plot);
    const std::vector<ValueLabel> labels = valueLabels(range, mapping, 14, 0.00001f);
    ASSERT_GE(labels.size(), 3u); // by 0.01
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_GT(labels[i].y, plot.top());
        EXPECT_LT(labels[i].y, plot.bottom() + 1);
        EXPECT_EQ(labels[i].y, mapping.Y(labels[i].text.toFloat()));
        EXPECT_EQ(labels[i].text.size(), 7) << labels[i].text.toStdString();
        if (i > 0) {
            EXPECT_LT(labels[i].y, labels[i - 1].y);
        }
    }
}

struct RoundCase {
    double value, tick;
    bool round;
};

class RoundValue : public testing::TestWithParam<RoundCase> {};

TEST_P(RoundValue, IsNearAMultipleOfAHundredTicks) {
    EXPECT_EQ(isRoundValue(GetParam().value, GetParam().tick), GetParam().round);
}

INSTANTIATE_TEST_SUITE_P(ValueScale, RoundValue,
                         testing::Values(RoundCase{1.30, 0.0001, true}, RoundCase{1.305, 0.0001, false},
                                         RoundCase{1.30008, 0.0001, true}, RoundCase{1.3001, 0.0001, false},
                                         RoundCase{-1.30, 0.0001, true}, RoundCase{0.0, 0.0001, true},
                                         RoundCase{1.2999, 0.0001, false}, RoundCase{110.5, 0.001, true},
                                         RoundCase{110.55, 0.001, false}));

struct LabelCase {
    float tick;
    const char *text;
};

class LabelDecimals : public testing::TestWithParam<LabelCase> {};

TEST_P(LabelDecimals, FollowTheTick) {
    const ValueRange range{110.0f, 10.0f};
    const std::vector<ValueLabel> labels =
        valueLabels(range, mappingOf(range, QRect(0, 0, 100, 300)), 15, GetParam().tick);
    ASSERT_FALSE(labels.empty());
    EXPECT_EQ(labels.front().text, QString(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(ValueScale, LabelDecimals,
                         testing::Values(LabelCase{1.0f, "20"}, LabelCase{0.1f, "20.0"},
                                         LabelCase{0.01f, "20.00"}, LabelCase{0.001f, "20.000"},
                                         LabelCase{0.0001f, "20.0000"}, LabelCase{0.00001f, "20.00000"}));

TEST(ValueRangeTest, WidensInBothDirectionsAndIgnoresWhatIsNoNumber) {
    ValueRange range;
    EXPECT_TRUE(range.IsUntouched());
    range.Widen(NAN, NAN);
    range.Widen(-INFINITY, INFINITY); // an empty interval
    EXPECT_TRUE(range.IsUntouched());
    range.Widen(2.0f, 1.0f);
    range.Widen(1.5f, 0.5f);
    EXPECT_FLOAT_EQ(range.max, 2.0f);
    EXPECT_FLOAT_EQ(range.min, 0.5f);
    EXPECT_TRUE(range.HasBoth());
}

TEST(ValueRangeTest, EqualEndsMoveTenTicksApart) {
    ValueRange range{1.3f, 1.3f};
    separateEqualEnds(range, 0.0001f);
    EXPECT_NEAR(range.max, 1.301, 1e-6);
    EXPECT_NEAR(range.min, 1.299, 1e-6);
    ValueRange different{1.3f, 1.2f};
    separateEqualEnds(different, 0.0001f);
    EXPECT_FLOAT_EQ(different.max, 1.3f);
}

TEST(ValueRangeTest, EqualEndsOfALargeValueComeApartAtAll) {
    ValueRange range{2e9f, 2e9f};
    separateEqualEnds(range, 0.0001f);
    EXPECT_GT(range.max, range.min);
}

TEST(ValueRangeTest, LowerMarginIsTakenFromTheGrownRange) {
    ValueRange range{100.0f, 0.0f};
    addMargins(range, 0.02);
    EXPECT_FLOAT_EQ(range.max, 102.0f);
    EXPECT_FLOAT_EQ(range.min, -2.04f);
    addMargins(range, 0.1);
    EXPECT_FLOAT_EQ(range.max, 102.0f + 10.404f);
    EXPECT_FLOAT_EQ(range.min, -2.04f - 11.4444f);
}

struct HeightCase {
    int height;
    float factor;
};

class SpareRoom : public testing::TestWithParam<HeightCase> {};

TEST_P(SpareRoom, IsKeptInSmallPlots) {
    const ValueRange range{10.0f, 0.0f};
    EXPECT_FLOAT_EQ(pixelsPerUnit(range, GetParam().height), GetParam().factor * GetParam().height / 10.0f);
    EXPECT_FLOAT_EQ(pixelsPerUnitOfFrozen(range, GetParam().height), GetParam().height / 10.0f);
}

INSTANTIATE_TEST_SUITE_P(ValueScale, SpareRoom,
                         testing::Values(HeightCase{500, 1.0f}, HeightCase{101, 1.0f}, HeightCase{100, 1.0f},
                                         HeightCase{99, 0.998f}, HeightCase{50, 0.9f},
                                         HeightCase{10, 0.82f}));

TEST(SpareRoomTest, AnImpossibleRangeHasNoScale) {
    EXPECT_EQ(pixelsPerUnit({1.0f, 1.0f}, 300), 0.0f);
    EXPECT_EQ(pixelsPerUnit({INFINITY, 1.0f}, 300), 0.0f);
    EXPECT_EQ(pixelsPerUnitOfFrozen({1.0f, 2.0f}, 300), 0.0f);
}

} // namespace
