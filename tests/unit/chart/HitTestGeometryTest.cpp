#include "chart/HitTestGeometry.h"
#include "chart/GraphLayer.h"

#include <gtest/gtest.h>

namespace {

struct LineCase {
    const char *what;
    QPoint a, b, point;
    int tolerance;
    bool hit;
};

class PtInLine : public testing::TestWithParam<LineCase> {};

TEST_P(PtInLine, OfTwoPoints) {
    const LineCase &row = GetParam();
    EXPECT_EQ(CRGraphLayer::PtInLine(row.a, row.b, row.point, row.tolerance), row.hit) << row.what;
    EXPECT_EQ(Util::Point::InLine(row.a, row.b, row.point, row.tolerance), row.hit) << row.what;
    EXPECT_EQ(CRGraphLayer::PtInLine(QRect(row.a, row.b), row.point, row.tolerance), row.hit) << row.what;
}

const QPoint origin(100, 100);

INSTANTIATE_TEST_SUITE_P(
    Level, PtInLine, // the line runs from row 100 to one pixel past its end, row 101
    testing::Values(LineCase{"in the middle", origin, {200, 100}, {150, 100}, 5, true},
                    LineCase{"on the first end", origin, {200, 100}, {100, 100}, 5, true},
                    LineCase{"4 pixels before the first end", origin, {200, 100}, {96, 100}, 5, true},
                    LineCase{"5 pixels before the first end", origin, {200, 100}, {95, 100}, 5, true},
                    LineCase{"6 pixels before the first end", origin, {200, 100}, {94, 100}, 5, false},
                    LineCase{"4 pixels past the last end", origin, {200, 100}, {204, 100}, 5, true},
                    LineCase{"the end is one pixel further", origin, {200, 100}, {206, 100}, 5, true},
                    LineCase{"past that", origin, {200, 100}, {207, 100}, 5, false},
                    LineCase{"4 pixels above the middle", origin, {200, 100}, {150, 96}, 5, true},
                    LineCase{"4 pixels above the last end", origin, {200, 100}, {200, 96}, 5, true},
                    LineCase{"5 rows off are a trace less across", origin, {200, 100}, {100, 95}, 5, true},
                    LineCase{"on either side", origin, {200, 100}, {150, 105}, 5, true},
                    LineCase{"6 pixels above the first end", origin, {200, 100}, {100, 94}, 5, false},
                    LineCase{"6 pixels across the middle", origin, {200, 100}, {150, 106}, 5, false},
                    LineCase{"from right to left", {200, 100}, origin, {150, 100}, 5, true},
                    LineCase{"no tolerance, no hit", origin, {200, 100}, {150, 100}, 0, false}));

INSTANTIATE_TEST_SUITE_P(
    StoredBottomAboveTop, PtInLine, // the end of the line is level with its start
    testing::Values(LineCase{"on it", {100, 101}, {200, 100}, {150, 101}, 5, true},
                    LineCase{"4 pixels off", {100, 101}, {200, 100}, {150, 105}, 5, true},
                    LineCase{"5 pixels off", {100, 101}, {200, 100}, {150, 106}, 5, false},
                    LineCase{"5 pixels above", {100, 101}, {200, 100}, {150, 96}, 5, false},
                    LineCase{"only within the columns", {100, 101}, {200, 100}, {207, 101}, 5, false}));

INSTANTIATE_TEST_SUITE_P(
    Upright, PtInLine,
    testing::Values(
        LineCase{"on it", origin, {100, 200}, {100, 150}, 5, true},
        LineCase{"4 pixels beside", origin, {100, 200}, {104, 150}, 5, true},
        LineCase{"6 pixels beside", origin, {100, 200}, {107, 150}, 5, false},
        LineCase{"4 pixels above", origin, {100, 200}, {100, 96}, 5, true},
        LineCase{"7 pixels below", origin, {100, 200}, {100, 207}, 5, false},
        LineCase{"stored right before left: truly upright", {101, 100}, {100, 200}, {105, 150}, 5, true},
        LineCase{"and no further than the tolerance", {101, 100}, {100, 200}, {107, 150}, 5, false}));

INSTANTIATE_TEST_SUITE_P(
    Slanted, PtInLine, // from 100,100 to 201,201
    testing::Values(LineCase{"on it", origin, {200, 200}, {150, 150}, 5, true},
                    LineCase{"6 rows off are 4 across", origin, {200, 200}, {150, 156}, 5, true},
                    LineCase{"8 rows off are more than 5 across", origin, {200, 200}, {150, 158}, 5, false},
                    LineCase{"7 rows off are less than 5 across", origin, {109, 109}, {105, 112}, 5, true},
                    LineCase{"13 rows off are exactly 5 across", origin, {104, 111}, {100, 113}, 5, false},
                    LineCase{"and 12 are less", origin, {104, 111}, {100, 112}, 5, true},
                    LineCase{"the other way", {200, 100}, {100, 200}, {150, 150}, 5, true},
                    LineCase{"far off", {200, 100}, {100, 200}, {110, 110}, 5, false}));

struct RectCase {
    QRect rect;
    QPoint point;
    bool inside;
};

class PtInRect : public testing::TestWithParam<RectCase> {};

TEST_P(PtInRect, IgnoresTheTolerance) {
    for (int tolerance : {0, 5, 50})
        EXPECT_EQ(CRGraphLayer::PtInRect(GetParam().rect, GetParam().point, tolerance), GetParam().inside);
}

INSTANTIATE_TEST_SUITE_P(
    Rect, PtInRect,
    testing::Values(RectCase{{10, 10, 20, 20}, {10, 10}, true}, RectCase{{10, 10, 20, 20}, {29, 29}, true},
                    RectCase{{10, 10, 20, 20}, {30, 29}, false}, RectCase{{10, 10, 20, 20}, {9, 10}, false},
                    RectCase{QRect(QPoint(20, 30), QPoint(10, 10)), {15, 20}, true}, // normalised
                    RectCase{QRect(QPoint(20, 30), QPoint(10, 10)), {25, 20}, false}));

} // namespace
