#include "chart/ZoomModel.h"
#include "chart/ScaleDrag.h"

#include <climits>
#include <gtest/gtest.h>

TEST(ZoomModel, StepsInTruncate) {
    const int steps[] = {60, 46, 35, 26, 20, 15, 11, 10, 10};
    for (std::size_t i = 0; i + 1 < std::size(steps); ++i)
        EXPECT_EQ(zoomedIn(steps[i], 1000), steps[i + 1]);
}

TEST(ZoomModel, StepsOutTruncate) {
    EXPECT_EQ(zoomedOut(60, 1000), 78);
    EXPECT_EQ(zoomedOut(78, 1000), 101);
    EXPECT_EQ(zoomedOut(10, 1000), 13);
}

TEST(ZoomModel, ThePositionsAreTheUpperBoundAndWin) {
    EXPECT_EQ(zoomedIn(60, 6), 6);
    EXPECT_EQ(zoomedOut(60, 6), 6);
    EXPECT_EQ(zoomedOut(90, 100), 100);
    EXPECT_EQ(zoomedIn(10, 10), 10);
}

TEST(ZoomModel, AnEmptyAxisLimitsNothing) {
    EXPECT_EQ(zoomedIn(60, 0), 46);
}

TEST(ZoomModel, TheSliderAsksForMinusItsValue) {
    EXPECT_EQ(wantedPoints(-100, 500), 100);
    EXPECT_EQ(wantedPoints(-10, 500), 10);
    EXPECT_EQ(wantedPoints(-9, 500), 10);
    EXPECT_EQ(wantedPoints(0, 500), 10);
    EXPECT_EQ(wantedPoints(70, 500), 10);
    EXPECT_EQ(wantedPoints(-700, 500), 700);
    EXPECT_EQ(wantedPoints(INT_MIN, 500), 1000000);
}

TEST(ZoomModel, PointsAfterARebuild) {
    const struct {
        int points;
        bool first;
        int freeSpace;
        bool autoZoomOut;
        int expected;
    } cases[] = {
        {1, true, 30, false, 60}, // a new window
        {1, true, 4, false, 8},   // twice the free space, whatever comes out
        {1, true, 0, false, 60},  // which may be nothing
        {1, true, 200, true, 60}, // and may be too much
        {46, true, 30, false, 46},  {0, false, 30, false, 60},   {500, false, 30, false, 500},
        {101, false, 30, true, 60}, {100, false, 30, true, 100}, {101, true, 30, true, 60},
        {9, false, 30, false, 9},
    };
    for (const auto &item : cases)
        EXPECT_EQ(pointsAfterRebuild(item.points, item.first, item.freeSpace, item.autoZoomOut),
                  item.expected)
            << item.points << ' ' << item.first << ' ' << item.freeSpace << ' ' << item.autoZoomOut;
}

TEST(ScaleDrag, StripsBesideThePlot) {
    const QRect plot(QPoint(50, 10), QPoint(449, 210)); // 201 rows
    EXPECT_EQ(rightScaleStrip(plot, 60), QRect(QPoint(449, 10), QPoint(508, 210)));
    EXPECT_EQ(leftScaleStrip(plot, 40), QRect(QPoint(10, 10), QPoint(49, 210)));
    EXPECT_FALSE(rightScaleStrip(plot, 0).contains(449, 20));
}

TEST(ScaleDrag, ModeByHalf) {
    const QRect plot(QPoint(50, 10), QPoint(449, 210));
    const QRect right = rightScaleStrip(plot, 60);
    const QRect left = leftScaleStrip(plot, 40);
    EXPECT_EQ(scaleDragMode(right, left, {470, 10}), rightUpper);
    EXPECT_EQ(scaleDragMode(right, left, {470, 110}), rightUpper); // half of 202 rows
    EXPECT_EQ(scaleDragMode(right, left, {470, 111}), rightLower);
    EXPECT_EQ(scaleDragMode(right, left, {470, 210}), rightLower);
    EXPECT_EQ(scaleDragMode(right, left, {20, 50}), leftUpper);
    EXPECT_EQ(scaleDragMode(right, left, {20, 200}), leftLower);
    EXPECT_EQ(scaleDragMode(right, left, {200, 100}), noScaleDrag);
    EXPECT_EQ(scaleDragMode(right, left, {470, 211}), noScaleDrag);
    EXPECT_EQ(scaleDragMode(right, left, {509, 100}), noScaleDrag);
}

TEST(ScaleDrag, TheFarEndStays) {
    const QRect plot(QPoint(0, 0), QPoint(100, 200));
    ValueRange out;
    // Drawn down by half of the way to the bottom: twice the range.
    ASSERT_TRUE(stretchedRange(rightUpper, plot, 100, 150, {1.0, 2.0}, &out));
    EXPECT_DOUBLE_EQ(out.min, 1.0);
    EXPECT_DOUBLE_EQ(out.max, 3.0);
    ASSERT_TRUE(stretchedRange(leftUpper, plot, 100, 0, {1.0, 2.0}, &out));
    EXPECT_DOUBLE_EQ(out.max, 1.5);
    ASSERT_TRUE(stretchedRange(rightLower, plot, 150, 75, {1.0, 2.0}, &out));
    EXPECT_DOUBLE_EQ(out.max, 2.0);
    EXPECT_DOUBLE_EQ(out.min, 0.0);
    ASSERT_TRUE(stretchedRange(leftLower, plot, 100, 200, {1.0, 2.0}, &out));
    EXPECT_DOUBLE_EQ(out.min, 1.5);
    ASSERT_TRUE(stretchedRange(leftLower, plot, 100, 100, {1.0, 2.0}, &out));
    EXPECT_DOUBLE_EQ(out.min, 1.0);
}

TEST(ScaleDrag, NoRangeComesOutOfTheEdge) {
    const QRect plot(QPoint(0, 0), QPoint(100, 200));
    ValueRange out;
    EXPECT_FALSE(stretchedRange(rightUpper, plot, 100, 200, {1.0, 2.0}, &out)); // on the far end
    EXPECT_FALSE(stretchedRange(rightUpper, plot, 100, 220, {1.0, 2.0}, &out)); // past it
    EXPECT_FALSE(stretchedRange(rightLower, plot, 100, 0, {1.0, 2.0}, &out));
    EXPECT_FALSE(stretchedRange(rightUpper, plot, 100, 150, {3.4e38, -3.4e38}, &out)); // no data yet
}
