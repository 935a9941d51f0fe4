#include "chart/PaneLayout.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct SplitterCase {
    const char *what;
    float wanted, above, below, expected;
};

void PrintTo(const SplitterCase &row, std::ostream *out) {
    *out << row.what;
}

class Splitter : public testing::TestWithParam<SplitterCase> {};

TEST_P(Splitter, SharesTheSum) {
    const SplitterCase &row = GetParam();
    EXPECT_FLOAT_EQ(splitterShare(row.wanted, row.above, row.below), row.expected) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    PaneLayout, Splitter,
    testing::Values(SplitterCase{"within both", 0.3f, 0.5f, 0.5f, 0.3f},
                    SplitterCase{"under the least share", 0.001f, 0.5f, 0.5f, 0.03f},
                    SplitterCase{"below zero", -2.0f, 0.5f, 0.5f, 0.03f},
                    SplitterCase{"no number, from a pane without rows", std::nanf(""), 0.5f, 0.5f, 0.03f},
                    SplitterCase{"the pane above keeps its least share", 0.99f, 0.5f, 0.5f, 0.97f},
                    SplitterCase{"exactly the cap", 0.97f, 0.5f, 0.5f, 0.97f},
                    SplitterCase{"a sum too small for both: the pane above wins", 0.03f, 0.02f, 0.02f, 0.01f}));

TEST(PaneLayout, PanesStandUnderEachOtherWithoutGap) {
    const QRect chart(QPoint(0, 0), QPoint(799, 556));
    const QRect first = paneRect(chart, chart.width(), chart.top(), 0.5f);
    const QRect second = paneRect(chart, chart.width(), first.bottom() + 1, 0.25f);
    const QRect third = paneRect(chart, chart.width(), second.bottom() + 1, 0.25f);
    EXPECT_EQ(first.top(), 0);
    EXPECT_EQ(first.height(), 279); // 278.5 rounded
    EXPECT_EQ(second.top(), 279);
    EXPECT_EQ(second.height(), 139); // 139.25
    EXPECT_EQ(third.bottom(), 279 + 139 + 139 - 1);
}

TEST(PaneLayout, PaneEndsOneColumnPastTheChart) {
    const QRect pane = paneRect(QRect(0, 0, 800, 500), 800, 0, 1.0f);
    EXPECT_EQ(pane.left(), 0);
    EXPECT_EQ(pane.right(), 800);
    // So a scale of 50 pixels, from the narrowed right edge on, ends on the last column of the window.
    EXPECT_EQ(pane.right() - 50 + 50 - 1, 799);
}

TEST(PaneLayout, PaneWithoutHeightIsEmpty) {
    EXPECT_EQ(paneRect(QRect(0, 0, 800, 10), 800, 4, 0.03f).height(), 0);
    EXPECT_EQ(paneRect(QRect(QPoint(0, 0), QPoint(-1, -1)), 0, 0, 1.0f).height(), 0);
}

TEST(PaneLayout, SharedRectangleEndsAboveTimeScaleAndScrollBar) {
    const QRect rect = sharedPaneRect(800, 600, 16, 26);
    EXPECT_EQ(rect, QRect(QPoint(0, 0), QPoint(799, 557)));
    EXPECT_TRUE(sharedPaneRect(0, 0, 16, 26).isEmpty());
}

} // namespace
