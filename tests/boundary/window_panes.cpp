// Panes of a chart window: made, resized, deleted.
#include "tests/support/WindowView.h"

#include <gtest/gtest.h>

namespace {

struct WindowPanes : testing::Test {
    FakeHost host;
    Chart chart = host.createChart(QSize(900, 600));

    WindowView view() { return WindowView(host, chart); }
    void addPane() { QTest::keyClick(chart.widget, Qt::Key_N); }
    void closePane(int top) { clickAt(chart, QPoint(900 - 6, top + 7)); }
    void dragSplitter(int from, int to) {
        press(chart, QPoint(450, from + 2));
        drag(chart, QPoint(450, to));
        release(chart, QPoint(450, to));
    }
    std::vector<int> tops() { return view().paneTops(); }
    int chartHeight() { return view().chartHeight(); }
    int rows(double share) { return static_cast<int>(chartHeight() * share + 0.5); }
};

TEST_F(WindowPanes, StartsWithOne) {
    EXPECT_EQ(tops(), std::vector<int>{0});
}

TEST_F(WindowPanes, NewOneTakesHalfOfTheLast) {
    host.milestones.clear();
    addPane();
    EXPECT_EQ(tops(), (std::vector<int>{0, rows(0.5)}));
    EXPECT_TRUE(host.milestones.contains("Create area"));
    addPane();
    EXPECT_EQ(tops(), (std::vector<int>{0, rows(0.5), rows(0.5) + rows(0.25)}));
}

TEST_F(WindowPanes, CloseBoxShowsWithMoreThanOne) {
    const QRect box(900 - 11, 2, 10, 10);
    const QRgb fontColor = 0xFF7C7B68;
    EXPECT_EQ(view().countColor(box, fontColor), 0);
    addPane();
    EXPECT_GT(view().countColor(box, fontColor), 20);
}

TEST_F(WindowPanes, OnlyPaneHasACloseBoxThatDoesNothing) {
    view();
    closePane(0);
    EXPECT_EQ(tops(), std::vector<int>{0});
}

TEST_F(WindowPanes, ClosedPaneLeavesItsHeightToTheOneAbove) {
    addPane();
    addPane(); // 0.5, 0.25, 0.25
    const std::vector<int> before = tops();
    ASSERT_EQ(before.size(), 3u);
    host.milestones.clear();
    closePane(before[1]);
    EXPECT_EQ(tops(), (std::vector<int>{0, rows(0.75)}));
    EXPECT_TRUE(host.milestones.contains(QString())); // the desktop changed
}

TEST_F(WindowPanes, ClosedFirstPaneLeavesItsHeightToTheOneBelow) {
    addPane();
    addPane();
    ASSERT_EQ(tops().size(), 3u);
    closePane(0); // 0.75, 0.25
    EXPECT_EQ(tops(), (std::vector<int>{0, rows(0.75)}));
}

TEST_F(WindowPanes, ClosedPaneTakesItsSeriesAlong) {
    FakeObject *euro = host.addInstrument(chart, "EUR");
    addPane();
    FakeObject *pound = host.addInstrument(chart, "GBP");
    ASSERT_TRUE(euro && pound);
    const std::vector<int> before = tops();
    host.clearTraffic();
    closePane(before[1]);
    EXPECT_TRUE(pound->subscribers.empty());
    EXPECT_FALSE(euro->subscribers.empty());
    EXPECT_FALSE(host.caption(chart).contains("GBP"));
    EXPECT_GE(host.count(ToHost::CaptionChanged), 1);
}

TEST_F(WindowPanes, SplitterFollowsTheMouse) {
    addPane();
    const int top = tops()[1];
    for (int y : {200, 400, 120, 300}) {
        dragSplitter(tops()[1], y);
        EXPECT_NEAR(tops()[1], y, 1);
    }
    EXPECT_NE(tops()[1], top);
}

TEST_F(WindowPanes, NeitherPaneGetsBelowTheLeastShare) {
    addPane();
    dragSplitter(tops()[1], 1);
    EXPECT_EQ(tops()[1], rows(0.03));
    dragSplitter(tops()[1], chartHeight() + 20);
    EXPECT_NEAR(tops()[1], rows(0.97), 1);
}

TEST_F(WindowPanes, SplitterMovesOnlyItsTwoPanes) {
    addPane();
    addPane(); // 0.5, 0.25, 0.25
    const std::vector<int> before = tops();
    dragSplitter(before[1], 150);
    const std::vector<int> after = tops();
    ASSERT_EQ(after.size(), 3u);
    EXPECT_NEAR(after[1], 150, 1);
    EXPECT_NEAR(after[2], before[2], 1);
}

TEST_F(WindowPanes, FirstPaneHasNoSplitter) {
    addPane();
    const std::vector<int> before = tops();
    dragSplitter(0, 100);
    EXPECT_EQ(tops(), before);
}

TEST_F(WindowPanes, SelectedPaneHasItsCloseBoxInTheGridColor) {
    addPane();
    const int top = tops()[1];
    const QRect box(900 - 10, top + 3, 7, 7);
    EXPECT_EQ(view().countColor(box, 0xFFECE9D8), 0);
    clickAt(chart, QPoint(450, top + 60));
    EXPECT_GT(view().countColor(box, 0xFFECE9D8), 10);
}

TEST_F(WindowPanes, ManyPanesStandWithoutGap) {
    for (int i = 0; i < 4; ++i)
        addPane();
    const WindowView picture = view();
    EXPECT_EQ(picture.paneTops().size(), 5u);
    EXPECT_EQ(picture.countColor(QRect(0, 0, 900, picture.chartHeight()), 0xFF000000), 0);
}

} // namespace
