#include "chart/TitleLayout.h"

#include <gtest/gtest.h>

namespace {

constexpr int left = 50, right = 749, top = 100; // a pane 700 wide between its scales

TEST(TitleLayout, LeftTitlesGoDown) {
    TitleAnchors anchors(titlesLeft, left, right, top);
    EXPECT_EQ(anchors.Place(120, 11), QRect(53, 101, 120, 11));
    anchors.Advance(120, 11, 0);
    EXPECT_EQ(anchors.Place(80, 11), QRect(53, 112, 80, 11));
    EXPECT_FALSE(anchors.IsOut());
}

TEST(TitleLayout, RightTitlesEndBeforeTheScale) {
    TitleAnchors anchors(titlesRight, left, right, top);
    EXPECT_EQ(anchors.Place(120, 11), QRect(749 + 1 - 120 - 6, 101, 120, 11));
    anchors.Advance(120, 11, 0);
    EXPECT_EQ(anchors.Place(80, 11), QRect(749 + 1 - 80 - 6, 112, 80, 11));
}

TEST(TitleLayout, TopTitlesShareARow) {
    TitleAnchors anchors(titlesTop, left, right, top);
    EXPECT_EQ(anchors.Place(120, 11), QRect(50, 101, 120, 11));
    anchors.Advance(120, 11, 0);
    EXPECT_EQ(anchors.Place(80, 11), QRect(170, 101, 80, 11));
    anchors.Advance(80, 11, 30); // with a remark
    EXPECT_EQ(anchors.Place(80, 11).left(), 280);
}

TEST(TitleLayout, TopTitlePastThePaneIsOut) {
    TitleAnchors anchors(titlesTop, left, right, top);
    anchors.Advance(650, 11, 0); // x 700: as wide as the pane
    EXPECT_FALSE(anchors.IsOut());
    anchors.Advance(1, 11, 0);
    EXPECT_TRUE(anchors.IsOut());
}

TEST(TitleLayout, RemarkStandsBesideItsTitle) {
    const QRect title(200, 101, 120, 11);
    EXPECT_EQ(TitleAnchors(titlesLeft, left, right, top).PlaceRemark(title, 60), QRect(320, 101, 60, 11));
    EXPECT_EQ(TitleAnchors(titlesRight, left, right, top).PlaceRemark(title, 60), QRect(130, 101, 60, 11));
    EXPECT_EQ(TitleAnchors(titlesTop, left, right, top).PlaceRemark(title, 60), QRect(320, 101, 60, 11));
}

TEST(TitleLayout, CaptionOf254StaysWhole) {
    const QString whole(254, 'a');
    EXPECT_EQ(cutCaption(whole), whole);
    EXPECT_EQ(cutCaption(QString()), QString());
}

TEST(TitleLayout, CaptionOf255IsCut) {
    const QString cut = cutCaption(QString(255, 'a'));
    EXPECT_EQ(cut.size(), 254);
    EXPECT_EQ(cut, QString(251, 'a') + "...");
}

TEST(TitleLayout, ValueHasItsDecimals) {
    EXPECT_EQ(titleValue(1.23456, 5), " (1.23456) ");
    EXPECT_EQ(titleValue(1.23456, 2), " (1.23) ");
    EXPECT_EQ(titleValue(-107.0, 0), " (-107) ");
}

} // namespace
