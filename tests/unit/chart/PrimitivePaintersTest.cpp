// The painters change pens, gather lines and fill cells where that is cheaper. Here each of them is held
// against plain calls of QPainter in the order of the columns: not one pixel may differ.
#include "tests/unit/chart/PlainPainters.h"

#include <cmath>

namespace {

// ---- Qt itself: shapes land where they always did ----

TEST(QtPainting, OutlineCoversOneMoreColumnAndRow) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setPen(QPen(Qt::red, 1));
    painter.drawRect(10, 20, 5, 7);
    painter.end();
    for (int y = 18; y <= 30; ++y)
        for (int x = 8; x <= 18; ++x) {
            const bool onEdge =
                x >= 10 && x <= 15 && y >= 20 && y <= 27 && (x == 10 || x == 15 || y == 20 || y == 27);
            ASSERT_EQ(isInk(image, x, y), onEdge) << x << ',' << y;
        }
}

TEST(QtPainting, LinesIncludeBothEnds) {
    QImage image = canvas();
    QPainter painter(&image);
    prepare(painter);
    painter.setPen(QPen(Qt::red, 1));
    painter.drawLine(10, 20, 10, 25);
    painter.drawLine(20, 25, 20, 20);
    painter.drawLine(30, 20, 35, 20);
    painter.drawLine(40, 20, 44, 24);
    painter.drawLine(50, 20, 50, 20);
    painter.end();
    int inked = 0;
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 60; ++x)
            inked += isInk(image, x, y);
    EXPECT_EQ(inked, 6 + 6 + 6 + 5 + 1);
    for (const QPoint &end : {QPoint(10, 20), QPoint(10, 25), QPoint(20, 20), QPoint(20, 25), QPoint(30, 20),
                              QPoint(35, 20), QPoint(40, 20), QPoint(44, 24), QPoint(50, 20)})
        EXPECT_TRUE(isInk(image, end.x(), end.y())) << end.x() << ',' << end.y();
}

// ---- one series ----

struct PaintCase {
    PRIMITIVE_TYPES type;
    int points;
    Look look;
    int phase;
};

class OneSeries : public testing::TestWithParam<PaintCase> {};

TEST_P(OneSeries, LandsOnThePixelsOfPlainCalls) {
    View view;
    view.points = GetParam().points;
    view.firstPos = 700;
    view.phase = GetParam().phase;
    const auto series = makeSeries(GetParam().type, GetParam().look, 700 + GetParam().points + 600);
    const QImage actual = painted(view, {series.get()});
    EXPECT_TRUE(samePixels(actual, reference(view, {series.get()})));
    EXPECT_GT(inkCount(actual), 50);
}

std::vector<PaintCase> paintCases() {
    std::vector<PaintCase> cases;
    const Look looks[] = {{1, Qt::SolidLine, false},
                          {3, Qt::SolidLine, false},
                          {1, Qt::DashLine, false},
                          {1, Qt::SolidLine, true},
                          {2, Qt::SolidLine, true}};
    for (int type = PT_LINE; type <= PT_DOTS; ++type) {
        if (type == PT_WIDE_CANDLE)
            continue;
        for (int points : {10, 60, 171, 177, 250, 400, 530, 600, 1100, 5000})
            for (const Look &look : looks)
                cases.push_back({static_cast<PRIMITIVE_TYPES>(type), points, look, points % 2});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Painters, OneSeries, testing::ValuesIn(paintCases()));

// ---- several series ----

class SeveralSeries : public testing::TestWithParam<int> {};

TEST_P(SeveralSeries, AdvanceTogetherColumnByColumn) {
    View view;
    view.points = GetParam();
    view.firstPos = 40;
    const int count = 40 + GetParam() + 20;
    const auto candles = makeSeries(PT_CANDLE, {}, count);
    const auto wideLine = makeSeries(PT_LINE, {5, Qt::SolidLine, false}, count, 0xFF0000C0);
    const auto bars = makeSeries(PT_BAR, {}, count, 0xFFFF8000, 0xFF00C0C0);
    const auto histogram = makeSeries(PT_HISTOGRAM, {}, count, 0xFF808080);
    const auto thin = makeSeries(PT_CLOSE_LINE, {}, count, 0xFFC000C0);
    const auto dots = makeSeries(PT_DOTS, {}, count, 0xFF404000);
    const std::vector<Series *> all{candles.get(),   wideLine.get(), bars.get(),
                                    histogram.get(), thin.get(),     dots.get()};
    EXPECT_TRUE(samePixels(painted(view, all), reference(view, all)));
    const std::vector<Series *> reversed(all.rbegin(), all.rend());
    EXPECT_TRUE(samePixels(painted(view, reversed), reference(view, reversed)));
}

INSTANTIATE_TEST_SUITE_P(Painters, SeveralSeries, testing::Values(20, 60, 200, 500, 2000));

// ---- gaps, ends, hidden series ----

TEST(Painters, LineGoesOverGapsAndEntersFromOutside) {
    const auto series = makeSeries(PT_LINE, {}, 8);
    series->place({3, 90, 110, 111, 140, 159, 300, 900});
    View view;
    view.firstPos = 100;
    view.points = 60; // to position 159
    const QImage actual = painted(view, {series.get()});
    EXPECT_TRUE(samePixels(actual, reference(view, {series.get()})));
    EXPECT_TRUE(isInk(actual, plot.left(), 0) ||
                inkCount(actual.copy(plot.left(), 0, 1, 340)) > 0); // from 90
    EXPECT_GT(inkCount(actual.copy(plot.right(), 0, 1, 340)), 0);   // to 300
}

TEST(Painters, LineToAPointFiveHundredPlacesOutIsLost) {
    const auto series = makeSeries(PT_LINE, {}, 2);
    View view;
    view.points = 60;
    series->place({50, 559});
    EXPECT_GT(inkCount(painted(view, {series.get()})), 0);
    series->place({50, 560});
    EXPECT_EQ(inkCount(painted(view, {series.get()})), 0);
}

TEST(Painters, FirstPositionOfTheAxisHasNoSegment) {
    const auto series = makeSeries(PT_LINE, {}, 1);
    EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0);
}

TEST(Painters, ASingleTickIsAPoint) {
    const auto series = makeSeries(PT_TICK_LINE, {}, 1);
    series->array.header()->identity.m_periods = makePeriod('I', 0);
    EXPECT_EQ(inkCount(painted(View(), {series.get()})), 1);
}

TEST(Painters, HiddenAndEmptySeriesPaintNothing) {
    for (int type = PT_LINE; type <= PT_PATTERN; ++type) {
        const auto series = makeSeries(static_cast<PRIMITIVE_TYPES>(type), {}, 70);
        series->primitive.m_nPenWidth = 0;
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->primitive.m_nPenWidth = 1;
        series->primitive.ClearPos();
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->place();
        series->array.header()->count = 0; // the host took its points away since the axis was built
        EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0) << type;
        series->array.header()->count = 70;
    }
}

// A pen of style 0 strokes nothing. What is filled stays, and so does what a selection strokes with a pen
// of its own.
struct NoPenCase {
    PRIMITIVE_TYPES type;
    bool fills, strokesSelected;
};

class NoPen : public testing::TestWithParam<NoPenCase> {};

TEST_P(NoPen, StrokesNothing) {
    for (int points : {20, 60}) {
        View view;
        view.points = points;
        for (bool selected : {false, true}) {
            const auto series = makeSeries(GetParam().type, {1, Qt::NoPen, selected}, points + 10);
            const QImage actual = painted(view, {series.get()});
            EXPECT_EQ(inkCount(actual) > 0,
                      selected ? GetParam().strokesSelected || GetParam().fills : GetParam().fills)
                << points << ' ' << selected;
            if (GetParam().type != PT_WIDE_CANDLE) {
                EXPECT_TRUE(samePixels(actual, reference(view, {series.get()})));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Painters, NoPen,
                         testing::Values(NoPenCase{PT_LINE, false, false},
                                         NoPenCase{PT_CLOSE_LINE, false, false},
                                         NoPenCase{PT_TICK_LINE, false, false},
                                         NoPenCase{PT_HISTOGRAM, false, true},
                                         NoPenCase{PT_CANDLE, true, true}, NoPenCase{PT_BAR, false, true},
                                         NoPenCase{PT_WIDE_CANDLE, true, true},
                                         NoPenCase{PT_MARKS, false, true}, NoPenCase{PT_DOTS, true, true},
                                         NoPenCase{PT_CLOSE_DOTS, true, true},
                                         NoPenCase{PT_PATTERN, false, false}));

TEST(Painters, MergedColumnsOfASelectedLineWithoutAPenAreStroked) {
    View view;
    view.points = 3000;
    for (bool selected : {false, true}) {
        const auto series = makeSeries(PT_LINE, {1, Qt::NoPen, selected}, 3000);
        const QImage actual = painted(view, {series.get()});
        EXPECT_EQ(inkCount(actual) > 0, selected);
        EXPECT_TRUE(samePixels(actual, reference(view, {series.get()})));
    }
}

TEST(Painters, PatternPaintsNothing) {
    const auto series = makeSeries(PT_PATTERN, {}, 70);
    EXPECT_EQ(inkCount(painted(View(), {series.get()})), 0);
}

struct EdgeCase {
    PRIMITIVE_TYPES type;
    bool ends; // at the right edge, in a manual test
};

class ManualTest : public testing::TestWithParam<EdgeCase> {};

TEST_P(ManualTest, OutputsEndAtTheRightEdge) {
    View view;
    view.points = 20;
    const auto all = makeSeries(GetParam().type, {}, 40);
    const QImage plain = painted(view, {all.get()});
    view.manualTest = true;
    const QImage manual = painted(view, {all.get()});
    EXPECT_EQ(plain == manual, !GetParam().ends);
}

// Only a line reaches into the window from behind its edge; marks and dots of the next column are too far.
INSTANTIATE_TEST_SUITE_P(Painters, ManualTest,
                         testing::Values(EdgeCase{PT_LINE, true}, EdgeCase{PT_TICK_LINE, true},
                                         EdgeCase{PT_CLOSE_LINE, false}, EdgeCase{PT_CANDLE, false}));

// ---- meaning ----

TEST(Painters, CandleIsRiseColouredBetweenOpenAndClose) {
    Series series(PT_CANDLE, {});
    series.candles({{0, 1.29f, 1.32f, 1.28f, 1.31f, 1}, {60, 1.31f, 1.32f, 1.28f, 1.29f, 1}});
    series.place();
    View view;
    view.points = 10;
    const QImage image = painted(view, {&series});
    const LayerMapping map = view.mapping();
    const int half = static_cast<int>(0.9 * map.candleStep * 0.5);
    const int top = map.Y(1.31f), bottom = map.Y(1.29f);
    for (int y = map.Y(1.32f); y <= map.Y(1.28f); ++y) {
        const bool wick = y <= top || y >= bottom;
        EXPECT_EQ(isInk(image, map.CenterX(0), y), wick) << y; // hollow
        EXPECT_EQ(image.pixel(map.CenterX(1), y), 0xFFC00000u) << y;
        if (y >= top && y <= bottom) {
            EXPECT_EQ(image.pixel(map.CenterX(0) - half, y), 0xFF008000u) << y;
            EXPECT_EQ(image.pixel(map.CenterX(1) - half, y), 0xFFC00000u) << y;
        }
    }
    EXPECT_FALSE(isInk(image, map.CenterX(0), map.Y(1.32f) - 1));
    EXPECT_FALSE(isInk(image, map.CenterX(0), map.Y(1.28f) + 1));
}

TEST(Painters, EqualOpenAndCloseRises) {
    Series series(PT_CANDLE, {});
    series.candles({{0, 1.3f, 1.31f, 1.29f, 1.3f, 1}});
    series.place();
    View view;
    view.points = 10;
    const QImage image = painted(view, {&series});
    EXPECT_EQ(image.pixel(view.mapping().CenterX(0) - 5, view.mapping().Y(1.3f)), 0xFF008000u);
}

TEST(Painters, WideCandleReachesToTheNextPoint) {
    Series series(PT_WIDE_CANDLE, {});
    series.candles({{0, 1.29f, 1.32f, 1.28f, 1.31f, 1}, {60, 1.31f, 1.32f, 1.28f, 1.29f, 1}});
    series.place({2, 6});
    View view;
    view.points = 10;
    const LayerMapping map = view.mapping();
    const QImage image = painted(view, {&series});
    const int middle = map.Y(1.3f);
    for (int x = map.LeftX(2, false) + 1; x < map.LeftX(6, false); ++x)
        ASSERT_EQ(image.pixel(x, middle), 0xFF008000u) << x;
    for (int x = map.LeftX(6, false) + 1; x <= plot.right(); ++x) // to the last of the axis
        ASSERT_EQ(image.pixel(x, middle), 0xFFC00000u) << x;
    EXPECT_EQ(image.pixel(map.LeftX(4, false), map.Y(1.32f)), 0xFF008000u); // the outline around high and low
    EXPECT_EQ(image.pixel(map.LeftX(4, false), map.Y(1.28f)), 0xFF008000u);
    EXPECT_FALSE(isInk(image, map.LeftX(4, false), map.Y(1.315f)));
    EXPECT_FALSE(isInk(image, map.LeftX(2, false) - 1, middle));
}

TEST(Painters, SelectedWideCandleIsDenseAndHasNoOutline) {
    Series series(PT_WIDE_CANDLE, {1, Qt::SolidLine, true});
    series.candles({{0, 1.29f, 1.32f, 1.28f, 1.31f, 1}, {60, 1.31f, 1.32f, 1.28f, 1.29f, 1}});
    series.place({2, 6});
    View view;
    view.points = 10;
    const LayerMapping map = view.mapping();
    const QImage image = painted(view, {&series});
    const QRect body(QPoint(map.LeftX(2, false), map.Y(1.31f)),
                     QPoint(map.LeftX(6, false) - 1, map.Y(1.29f)));
    const int inked = inkCount(image.copy(body));
    EXPECT_GT(inked, body.width() * body.height() / 2);
    EXPECT_LT(inked, body.width() * body.height());
    EXPECT_FALSE(isInk(image, map.LeftX(4, false), map.Y(1.32f)));
}

TEST(Painters, WideCandlesInOnePixelColumnBecomeOneStroke) {
    const auto series = makeSeries(PT_WIDE_CANDLE, {}, 3000);
    View view;
    view.points = 2400; // four to a pixel column
    const QImage image = painted(view, {series.get()});
    for (int x = plot.left() + 1; x < plot.right(); ++x)
        ASSERT_GT(inkCount(image.copy(x, 0, 1, 340)), 0) << x;
    series->primitive.SetSelected(true);
    const QImage selected = painted(view, {series.get()});
    int highlighted = 0;
    for (int y = plot.top(); y < plot.bottom(); ++y)
        highlighted += selected.pixel(300, y) == 0xFFFFC78Fu;
    EXPECT_GT(highlighted, 0);
}

TEST(Painters, EndlessAndImpossibleValuesDoNoHarm) {
    Series series(PT_CANDLE, {});
    const float endless = std::numeric_limits<float>::infinity();
    const float none = std::numeric_limits<float>::quiet_NaN();
    series.candles({{0, 1.3f, endless, -endless, 1.31f, 1},
                    {60, none, none, none, none, 1},
                    {120, 1e38f, 1e38f, -1e38f, 1.3f, 1}});
    for (int type : {PT_CLOSE_DOTS, PT_CLOSE_LINE, PT_CANDLE, PT_BAR, PT_WIDE_CANDLE}) {
        series.primitive.m_type = static_cast<PRIMITIVE_TYPES>(type);
        series.place();
        EXPECT_FALSE(painted(View(), {&series}).isNull());
    }
}

struct PenCase {
    int width, style, drawnWidth;
    Qt::PenStyle drawnStyle;
};

class SeriesPen : public testing::TestWithParam<PenCase> {};

TEST_P(SeriesPen, CanBeDrawnWhateverTheHostSays) {
    CRPrimitive primitive(0, nullptr, 0);
    primitive.m_nPenWidth = GetParam().width;
    primitive.m_nPenStyle = GetParam().style;
    const QPen pen = seriesPen(primitive, Qt::red, 2);
    EXPECT_EQ(pen.width(), GetParam().drawnWidth + 2);
    EXPECT_EQ(pen.style(), GetParam().drawnStyle);
    EXPECT_EQ(highlightPen(primitive, 0).style(), Qt::SolidLine);
}

INSTANTIATE_TEST_SUITE_P(Painters, SeriesPen,
                         testing::Values(PenCase{1, 1, 1, Qt::SolidLine},
                                         PenCase{3, 5, 3, Qt::DashDotDotLine}, PenCase{1, 0, 1, Qt::NoPen},
                                         PenCase{-4, 6, 0, Qt::SolidLine},
                                         PenCase{2000000000, -1, 255, Qt::SolidLine},
                                         PenCase{1, 99, 1, Qt::SolidLine}));

// A frozen scale throws points far out; a wide dashed pen must neither hang nor lose its way.
TEST(Painters, LineToFarValuesKeepsItsDirection) {
    Series series(PT_LINE, {2, Qt::DotLine, false});
    series.values({{0, 1.3f}, {1, 1.3f + 40000}, {2, 1.3f}, {3, 1.3f - 40000}, {4, 1.3f}});
    series.place();
    View view;
    view.points = 10;
    const LayerMapping map = view.mapping();
    const QImage image = painted(view, {&series});
    const int above = inkCount(image.copy(map.CenterX(0) - 3, plot.top(), 7, map.Y(1.3f) - plot.top()));
    EXPECT_GT(above, 30); // straight up from the first point
    EXPECT_EQ(inkCount(image.copy(map.CenterX(0) + 10, plot.top(), 30, plot.height())), 0);
    EXPECT_GT(inkCount(image.copy(map.CenterX(2) - 3, plot.top(), 7, plot.height())), 60);
}

} // namespace
