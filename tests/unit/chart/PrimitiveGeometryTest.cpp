#include "chart/PrimitiveGeometry.h"

#include <gtest/gtest.h>

namespace {

struct CandleCase {
    double step;
    bool merged;
    int body, half;
};

class Candle : public testing::TestWithParam<CandleCase> {};

TEST_P(Candle, WidthFollowsTheStep) {
    const CandleWidth width = candleWidth(GetParam().step);
    EXPECT_EQ(width.isMerged, GetParam().merged);
    EXPECT_EQ(width.body, GetParam().body);
    EXPECT_EQ(width.half, GetParam().half);
}

INSTANTIATE_TEST_SUITE_P(Geometry, Candle,
                         testing::Values(CandleCase{1.0, true, 0, 0},  // 0.9
                                         CandleCase{1.2, false, 1, 0}, // 1.08
                                         CandleCase{3.4, false, 3, 1}, // 3.06
                                         CandleCase{3.5, false, 2, 1}, // 3.15: one pixel to the neighbour
                                         CandleCase{10, false, 8, 4},  // 9
                                         CandleCase{20, false, 17, 9}, // 18
                                         CandleCase{100, false, 89, 45}));

TEST(Geometry, BarsMergeBelowOnePixel) {
    EXPECT_TRUE(isBarMerged(0.99));
    EXPECT_FALSE(isBarMerged(1.0));
    EXPECT_EQ(barTick(1.9), 0);
    EXPECT_EQ(barTick(9.9), 4);
}

struct DotCase {
    double step;
    int diameter, radius;
    bool point;
};

class Dot : public testing::TestWithParam<DotCase> {};

TEST_P(Dot, SizeFollowsTheStep) {
    const DotSize size = dotSize(GetParam().step);
    EXPECT_EQ(size.diameter, GetParam().diameter);
    EXPECT_EQ(size.radius, GetParam().radius);
    EXPECT_EQ(size.IsPoint(), GetParam().point);
    EXPECT_EQ(size.At(100, 50), QRect(100 - size.radius, 50 - size.radius, size.diameter, size.diameter));
}

INSTANTIATE_TEST_SUITE_P(Geometry, Dot,
                         testing::Values(DotCase{0.5, 0, 0, true}, DotCase{3.9, 2, 0, true},
                                         DotCase{4.0, 2, 1, false}, DotCase{10.0, 5, 2, false},
                                         DotCase{21.0, 11, 5, false}));

struct HistogramCase {
    const char *what;
    int y, base, penWidth;
    bool drawn;
    int y1, y2;
};

class Histogram : public testing::TestWithParam<HistogramCase> {};

TEST_P(Histogram, LineStaysWithinValueAndBase) {
    QLine line;
    ASSERT_EQ(histogramLine(7, GetParam().y, GetParam().base, GetParam().penWidth, line), GetParam().drawn)
        << GetParam().what;
    if (GetParam().drawn) {
        EXPECT_EQ(line, QLine(7, GetParam().y1, 7, GetParam().y2)) << GetParam().what;
    }
}

INSTANTIATE_TEST_SUITE_P(Geometry, Histogram,
                         testing::Values(HistogramCase{"a value above the base", 10, 20, 1, true, 10, 20},
                                         HistogramCase{"a value below the base", 30, 20, 1, true, 30, 20},
                                         HistogramCase{"on the base", 20, 20, 1, false, 0, 0},
                                         HistogramCase{"a wide pen is shortened", 10, 20, 3, true, 11, 19},
                                         HistogramCase{"also downward", 30, 20, 3, true, 29, 21},
                                         HistogramCase{"an even width", 10, 20, 4, true, 12, 18},
                                         HistogramCase{"a wide pen on the base", 20, 20, 3, false, 0, 0},
                                         HistogramCase{"just the caps fit", 18, 20, 3, true, 19, 19},
                                         HistogramCase{"the caps do not fit", 19, 20, 3, false, 0, 0}));

TEST(Geometry, ArrowsPointAwayFromTheMark) {
    const Arrow above = arrowAbove(100, 50, 10);
    EXPECT_EQ(above.left, QLine(95, 42, 100, 40));
    EXPECT_EQ(above.right, QLine(105, 42, 99, 40));
    const Arrow below = arrowBelow(100, 50, 10);
    EXPECT_EQ(below.left, QLine(95, 58, 100, 60));
    EXPECT_EQ(below.right, QLine(105, 58, 99, 60));
}

TEST(Geometry, KindOfMarkNamesItsArrows) {
    const bool above[] = {false, true, false, true, false};
    const bool below[] = {false, false, true, true, false};
    for (int kind = 0; kind < 5; ++kind) {
        EXPECT_EQ(hasArrowAbove(kind), above[kind]) << kind;
        EXPECT_EQ(hasArrowBelow(kind), below[kind]) << kind;
    }
}

} // namespace
