#include "chart/GraphLayerMapping.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

LayerMapping makeMapping(int left, int width, int points) {
    LayerMapping mapping;
    mapping.rect = QRect(left, 20, width, 300);
    mapping.screenPoints = points;
    mapping.candleStep = static_cast<float>(width) / points;
    mapping.min = 1.0f;
    mapping.yScale = 100.0f;
    return mapping;
}

struct ColumnCase {
    int left, width, points, relativePos, center, leftEdge;
};

class Columns : public testing::TestWithParam<ColumnCase> {};

TEST_P(Columns, CenterAndLeftEdge) {
    const ColumnCase &row = GetParam();
    const LayerMapping mapping = makeMapping(row.left, row.width, row.points);
    EXPECT_EQ(mapping.CenterX(row.relativePos), row.center);
    EXPECT_EQ(mapping.LeftX(row.relativePos, false), row.leftEdge);
}

INSTANTIATE_TEST_SUITE_P(Mapping, Columns,
                         testing::Values(ColumnCase{0, 600, 60, 0, 5, 0},
                                         ColumnCase{0, 600, 60, 59, 595, 590},
                                         ColumnCase{40, 600, 60, 1, 55, 50},
                                         ColumnCase{0, 605, 60, 1, 15, 10},
                                         ColumnCase{0, 605, 60, 59, 599, 594}, // 594.9 by integer division
                                         ColumnCase{0, 600, 60, -3, -25, -30}, //
                                         ColumnCase{0, 605, 60, -1, -4, -10},  // truncated towards zero
                                         ColumnCase{0, 1200, 5000, 4999, 1199, 1199},
                                         ColumnCase{0, 2560, 2000000, 1999999, 2559, 2559})); // past an int

TEST(Mapping, LeftEdgeOfTicksIsOneStepFurther) {
    const LayerMapping mapping = makeMapping(10, 605, 60);
    EXPECT_EQ(mapping.LeftX(0, true), 20);
    EXPECT_EQ(mapping.LeftX(1, true), 30);
}

struct WalkCase {
    int width, points, from, to;
};

class Walk : public testing::TestWithParam<WalkCase> {};

TEST_P(Walk, MeetsEveryCenter) {
    const LayerMapping mapping = makeMapping(37, GetParam().width, GetParam().points);
    ColumnWalk walk(mapping, GetParam().from);
    for (int relativePos = GetParam().from; relativePos < GetParam().to; ++relativePos, walk.Next()) {
        ASSERT_EQ(walk.RelativePos(), relativePos);
        ASSERT_EQ(walk.CenterX(), mapping.CenterX(relativePos)) << relativePos;
    }
}

INSTANTIATE_TEST_SUITE_P(Mapping, Walk,
                         testing::Values(WalkCase{600, 60, -500, 600}, WalkCase{605, 61, -500, 600},
                                         WalkCase{1201, 5000, -500, 5500}, WalkCase{17, 1000, -20, 1500},
                                         WalkCase{1199, 10, -30, 60}, WalkCase{1277, 300000, -5, 300500}));

// The column of a position is found back from its centre.
TEST(Mapping, CenterAndRelativePosRoundTrip) {
    for (int points : {10, 11, 60, 97, 333, 500}) {
        const LayerMapping mapping = makeMapping(63, 1151, points);
        for (int relativePos = 0; relativePos < points; ++relativePos)
            ASSERT_EQ(mapping.RelativePos(mapping.CenterX(relativePos)), relativePos) << points;
    }
}

TEST(Mapping, RoundingDecidesBetweenTwoColumns) {
    const LayerMapping mapping = makeMapping(0, 600, 60);
    EXPECT_EQ(mapping.RelativePos(9), 0);
    EXPECT_EQ(mapping.RelativePos(10), 1);
    EXPECT_EQ(mapping.RelativePos(5, 1.0), 1);
    EXPECT_EQ(mapping.RelativePos(4, 1.0), 0);
}

struct RowCase {
    float value;
    int y;
};

class Rows : public testing::TestWithParam<RowCase> {};

// The lower edge is row 319, one below it is the row of the minimum.
TEST_P(Rows, OfValues) {
    EXPECT_EQ(makeMapping(0, 600, 60).Y(GetParam().value), GetParam().y);
}

INSTANTIATE_TEST_SUITE_P(Mapping, Rows,
                         testing::Values(RowCase{1.0f, 320}, RowCase{1.01f, 319}, RowCase{4.0f, 20},
                                         RowCase{1.004f, 320}, RowCase{1.006f, 319}, RowCase{0.98f, 321},
                                         RowCase{0.99f, 320})); // truncation towards zero

TEST(Mapping, RowsOfNoNumberAndOfEndlessValuesStayInReach) {
    const LayerMapping mapping = makeMapping(0, 600, 60);
    EXPECT_LT(mapping.Y(INFINITY), -1000000);
    EXPECT_GT(mapping.Y(-INFINITY), 1000000);
    EXPECT_GT(std::abs(mapping.Y(NAN)), 1000000);
    EXPECT_LT(mapping.Y(3e38f), -1000000);
}

TEST(Mapping, ValueOfARowRoundTrips) {
    const LayerMapping mapping = makeMapping(0, 600, 60);
    EXPECT_DOUBLE_EQ(mapping.Value(320), 1.0);
    EXPECT_DOUBLE_EQ(mapping.Value(220), 2.0);
    for (int y = 20; y <= 320; ++y)
        ASSERT_EQ(mapping.Y(static_cast<float>(mapping.Value(y))), y);
}

TEST(Mapping, WithoutPositionsNothingIsDivided) {
    LayerMapping mapping;
    EXPECT_EQ(mapping.CenterX(5), 0);
    EXPECT_EQ(mapping.LeftX(5, false), 0);
    EXPECT_EQ(mapping.RelativePos(5), 0);
}

} // namespace
