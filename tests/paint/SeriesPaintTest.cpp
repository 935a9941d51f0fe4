#include "tests/paint/LayerView.h"

#include <QElapsedTimer>

namespace {

// ---- candles, bars, lines ----

TEST(SeriesPaint, CandlesStandBetweenOpenAndCloseInTheirColours) {
    const std::vector<Bar> bars = makeBars(200);
    SeriesChart test(bars);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    int seen = 0;
    for (int p = std::max(0, view.firstPos()); p < 200; ++p) {
        const Bar &bar = bars[static_cast<std::size_t>(p)];
        const bool rising = bar.open <= bar.close;
        const QRgb color = rising ? testRise : testFall;
        const int edge = view.x(p) - static_cast<int>(0.9 * view.step() * 0.5);
        const int top = view.y(std::max(bar.open, bar.close)), bottom = view.y(std::min(bar.open, bar.close));
        if (p < view.firstPos() + 1 || bottom <= top)
            continue;
        for (int y = top; y <= bottom; ++y)
            ASSERT_TRUE(isColor(picture, edge, y, color)) << "position " << p << " row " << y;
        for (int y = view.y(bar.high); y <= top; ++y)
            ASSERT_TRUE(isColor(picture, view.x(p), y, color)) << "position " << p << " upper wick " << y;
        for (int y = bottom; y <= view.y(bar.low); ++y)
            ASSERT_TRUE(isColor(picture, view.x(p), y, color)) << "position " << p << " lower wick " << y;
        EXPECT_FALSE(isColor(picture, view.x(p), view.y(bar.high) - 1, color));
        EXPECT_FALSE(isColor(picture, view.x(p), view.y(bar.low) + 1, color));
        if (bottom - top > 2 && view.x(p) - edge > 1) {
            EXPECT_EQ(isColor(picture, view.x(p) - 1, (top + bottom) / 2, color), !rising)
                << p; // hollow when rising
        }
        ++seen;
    }
    EXPECT_GT(seen, 20);
}

TEST(SeriesPaint, BarsHaveTicksToBothSides) {
    const std::vector<Bar> bars = makeBars(40);
    SeriesChart test(bars, 2);
    test.showFrom(0, 40);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    const int tick = static_cast<int>(0.5 * view.step());
    for (int p = 1; p < 39; ++p) {
        const Bar &bar = bars[static_cast<std::size_t>(p)];
        const QRgb color = bar.open <= bar.close ? testRise : testFall;
        for (int y = view.y(bar.high); y <= view.y(bar.low) + 1; ++y)
            ASSERT_TRUE(isColor(picture, view.x(p), y, color)) << p;
        EXPECT_TRUE(isColor(picture, view.x(p) - tick + 1, view.y(bar.open), color)) << p;
        EXPECT_TRUE(isColor(picture, view.x(p) + tick - 1, view.y(bar.close), color)) << p;
    }
}

TEST(SeriesPaint, CloseLinePassesThroughEveryClose) {
    const std::vector<Bar> bars = makeBars(40);
    SeriesChart test(bars, 3);
    test.showFrom(0, 40);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    for (int p = 1; p < 40; ++p)
        EXPECT_TRUE(isColor(picture, view.x(p), view.y(bars[static_cast<std::size_t>(p)].close), testFall))
            << p;
}

TEST(SeriesPaint, DotsOnCloseAreFilledInTheLineColour) {
    const std::vector<Bar> bars = makeBars(20);
    SeriesChart test(bars, 7);
    test.showFrom(0, 20);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    const int radius = static_cast<int>(view.step() * 0.25);
    for (int p = 0; p < 20; ++p) {
        const int y = view.y(bars[static_cast<std::size_t>(p)].close);
        EXPECT_TRUE(isColor(picture, view.x(p), y, testFall)) << p;
        EXPECT_TRUE(isColor(picture, view.x(p) - radius + 2, y, testFall)) << p;
        EXPECT_FALSE(isColor(picture, view.x(p) - radius - 1, y, testFall)) << p;
    }
}

TEST(SeriesPaint, WideCandlesReachToTheNextPoint) {
    std::vector<Bar> bars;
    for (int i = 0; i < 10; ++i)
        bars.push_back({1388534400 + i * 3600, 1.30f, 1.32f, 1.28f, i % 2 ? 1.29f : 1.31f, 1});
    SeriesChart test(bars, 5);
    test.showFrom(0, 10);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    for (int p = 0; p < 10; ++p) {
        const int row = (view.y(1.30) + view.y(p % 2 ? 1.29 : 1.31)) / 2;
        for (int x = view.leftX(p) + 1; x < view.leftX(p + 1); ++x)
            ASSERT_TRUE(isColor(picture, x, row, p % 2 ? testFall : testRise)) << p;
    }
}

TEST(SeriesPaint, TicksAreALine) {
    FakeHost host;
    const std::vector<Tick> ticks = makeTicks(50);
    host.setTickHistory("EURUSD", ticks);
    Chart chart = host.createChart(QSize(800, 600));
    host.addInstrument(chart, "EURUSD", 'I', 0);
    host.tick();
    const QImage picture = host.grab(chart).convertToFormat(QImage::Format_RGB32);
    const LayerView view(chart);
    ASSERT_EQ(view.series()->m_type, PT_TICK_LINE);
    for (int p = std::max(1, view.firstPos() + 1); p < 50; ++p)
        EXPECT_TRUE(isColor(picture, view.x(p), view.y(ticks[static_cast<std::size_t>(p)].value), testFall))
            << p;
}

TEST(SeriesPaint, AtManyPositionsCandlesBecomeUprightStrokesFromHighToLow) {
    const std::vector<Bar> bars = makeBars(5000);
    SeriesChart test(bars);
    test.showFrom(0, 5000);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    std::map<int, std::pair<float, float>> columns;
    for (int p = 0; p < 5000; ++p) {
        auto place = columns.emplace(view.x(p), std::make_pair(-1.0f, 9.0f)).first;
        place->second.first = std::max(place->second.first, bars[static_cast<std::size_t>(p)].high);
        place->second.second = std::min(place->second.second, bars[static_cast<std::size_t>(p)].low);
    }
    ASSERT_GT(columns.size(), 500u);
    for (const auto &[x, ends] : columns)
        for (int y = view.y(ends.first); y <= view.y(ends.second); ++y)
            ASSERT_TRUE(isColor(picture, x, y, testFall)) << x << ',' << y;
}

TEST(SeriesPaint, SeriesWithoutPenIsHidden) {
    SeriesChart test(makeBars(60));
    const LayerView view = test.view();
    ASSERT_GT(colorCount(test.grab(), view.layer->m_rect, testFall), 0);
    // The pane's title stands in the same colour above.
    const QRect below = view.layer->m_rect.adjusted(0, 25, 0, 0);
    test.instrument->array().header()->typeShow.weightPen = 0;
    test.host.update(test.instrument, 2);
    EXPECT_EQ(colorCount(test.grab(), below, testFall) + colorCount(test.grab(), below, testRise), 0);
}

TEST(SeriesPaint, APenOfNoStyleLeavesTheBodiesOfFallingCandles) {
    std::vector<Bar> bars;
    for (int i = 0; i < 10; ++i) {
        const float open = i % 2 ? 1.29f : 1.31f;
        bars.push_back({1388534400 + i * 3600, open, 1.32f, 1.28f, 2.6f - open, 1});
    }
    SeriesChart test(bars);
    test.showFrom(0, 10);
    test.grab();
    test.instrument->array().header()->typeShow.penType = eCoreTypeShowPenNone;
    test.host.update(test.instrument, 2);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    EXPECT_EQ(colorCount(picture, view.layer->m_rect.adjusted(0, 25, 0, 0), testRise), 0);
    EXPECT_TRUE(isColor(picture, view.x(4), view.y(1.30), testFall));
    EXPECT_FALSE(isColor(picture, view.x(4), view.y(1.285), testFall)); // no wick
    const int width = static_cast<int>(0.9 * view.step() - 1);
    const int left = view.x(4) - static_cast<int>(0.9 * view.step() * 0.5);
    EXPECT_TRUE(isColor(picture, left + width - 1, view.y(1.30), testFall));
    EXPECT_FALSE(isColor(picture, left + width, view.y(1.30), testFall)); // no outline
    EXPECT_FALSE(isColor(picture, view.x(4), view.y(1.29), testFall));
}

TEST(SeriesPaint, PatternsArePaintedByNothing) {
    SeriesChart test(makeBars(60), 10);
    ASSERT_EQ(test.series()->m_type, PT_PATTERN);
    const QRect below = test.view().layer->m_rect.adjusted(0, 25, 0, 0);
    EXPECT_EQ(colorCount(test.grab(), below, testFall), 0);
}

// ---- selection ----

TEST(SeriesPaint, SelectedLineChangesItsDashesFromFrameToFrame) {
    SeriesChart test(makeBars(40), 3);
    test.showFrom(0, 40);
    const QImage plain = test.grab();
    test.series()->m_bSelected = 1;
    test.view().layer->m_nBlinkPhase = 0;
    const QImage first = test.grab();
    EXPECT_EQ(test.view().layer->m_nBlinkPhase, 1);
    const QImage second = test.grab();
    EXPECT_EQ(test.view().layer->m_nBlinkPhase, 2);
    const QImage third = test.grab();
    EXPECT_NE(first, plain);
    EXPECT_NE(first, second);
    EXPECT_EQ(first, third);
}

TEST(SeriesPaint, SelectedFallingCandleIsDense) {
    std::vector<Bar> bars;
    for (int i = 0; i < 10; ++i)
        bars.push_back({1388534400 + i * 3600, 1.31f, 1.32f, 1.28f, 1.29f, 1});
    SeriesChart test(bars);
    test.showFrom(0, 10);
    test.series()->m_bSelected = 1;
    const QImage picture = test.grab();
    const LayerView view = test.view();
    const int half = static_cast<int>(0.9 * view.step() * 0.5);
    const QRect inside(QPoint(view.x(4) - half + 1, view.y(1.31) + 1),
                       QPoint(view.x(4) - 1, view.y(1.29) - 1));
    const int inked = colorCount(picture, inside, testFall);
    EXPECT_GT(inked, inside.width() * inside.height() / 2);
    EXPECT_LT(inked, inside.width() * inside.height());
}

// ---- outputs of indicators ----

FakeOutput output(const QString &name, Word kind, int style, int placement, std::function<float(int)> value) {
    return {name, kind, style, placement,
            [value](const std::vector<float> &, int index) { return value(index); }};
}

TEST(OutputPaint, LineGoesOverTheCandlesOfItsLayer) {
    SeriesChart test(makeBars(60));
    FakeObject *object = test.addOutputs({output("A", 4, 0, 0, [](int) { return 1.3f; })});
    object->array().header()->typeShow.secondColor = 0xFF0000FF;
    object->array().header()->typeShow.weightPen = 3;
    test.host.update(object, 2);
    test.showFrom(0, 60);
    const QImage picture = test.grab();
    const LayerView view = test.view();
    ASSERT_EQ(view.layer->m_primitives.size(), 2u);
    // Each column's line lies over its candle; the next candle starts right of the line's end.
    for (int p = 2; p < 58; ++p)
        EXPECT_TRUE(isColor(picture, view.x(p) - 2, view.y(1.3), 0xFF0000FF)) << p;
}

TEST(OutputPaint, HistogramStandsOnItsBorderValue) {
    SeriesChart test(makeBars(60));
    FakeObject *object =
        test.addOutputs({output("H", 4, 1, 3, [](int i) { return i % 2 ? 0.002f : -0.001f; })});
    object->array().header()->typeShow.secondColor = 0xFF0000FF;
    object->array().header()->typeShow.borderValue = 0;
    test.host.update(object, 2);
    test.showFrom(0, 60);
    const QImage picture = test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.series()->m_type, PT_HISTOGRAM);
    for (int p = 1; p < 59; ++p) {
        const double value = p % 2 ? 0.002 : -0.001;
        for (int y = std::min(view.y(value), view.y(0)); y <= std::max(view.y(value), view.y(0)); ++y)
            ASSERT_TRUE(isColor(picture, view.x(p), y, 0xFF0000FF)) << p << ' ' << y;
        EXPECT_FALSE(
            isColor(picture, view.x(p), value > 0 ? view.y(value) - 1 : view.y(value) + 1, 0xFF0000FF));
    }
}

TEST(OutputPaint, LevelsLieUnderTheSeriesAndZeroOver) {
    SeriesChart test(makeBars(60));
    coreHorizontLine levels = zeroRecord<coreHorizontLine>();
    levels.line = 1;
    levels.count = 2;
    levels.color = 0xFF123456;
    levels.levels[0] = 0.001f;
    levels.levels[1] = 0.0f;
    FakeObject *object =
        test.addOutputs({output("H", 4, 1, 3, [](int i) { return i % 2 ? 0.002f : -0.002f; })}, {}, &levels);
    object->array().header()->typeShow.secondColor = 0xFF0000FF;
    object->array().header()->typeShow.borderValue = -0.002f;
    test.host.update(object, 2);
    test.showFrom(0, 60);
    const QImage picture = test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.series()->m_levels.size(), 2u);
    EXPECT_TRUE(isColor(picture, view.x(31), view.y(0.001), 0xFF0000FF)); // the series over it
    EXPECT_TRUE(isColor(picture, view.x(31) + 4, view.y(0.001), 0xFF123456));
    EXPECT_TRUE(isColor(picture, view.x(31), view.y(0), 0xFF123456)); // zero over the series
    EXPECT_TRUE(isColor(picture, view.layer->m_rect.left(), view.y(0), 0xFF123456));
    EXPECT_TRUE(isColor(picture, view.layer->m_rect.right(), view.y(0), 0xFF123456));

    view.series()->m_bSelected = 1;
    const QImage selected = test.grab();
    EXPECT_TRUE(isColor(selected, view.layer->m_rect.left(), view.y(0), 0xFFFFC78F));
    EXPECT_TRUE(isColor(selected, view.layer->m_rect.left(), view.y(0) - 1, 0xFFFFC78F)); // two pixels wider
}

TEST(OutputPaint, FilledLinkTakesTheColourOfTheHigherLine) {
    SeriesChart test(makeBars(60));
    FakeObject *object = test.addOutputs({output("A", 4, 0, 3, [](int i) { return i < 30 ? 2.0f : 1.0f; }),
                                          output("B", 4, 0, 3, [](int) { return 1.5f; })},
                                         {coreIndicatorLinks{0, 1, 1, 2, 2}});
    object->array(0).header()->typeShow.secondColor = 0xFF0000FF;
    object->array(1).header()->typeShow.secondColor = 0xFFFF8000;
    test.host.update(object, 2);
    test.showFrom(0, 60);
    const QImage picture = test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.layer->m_links.size(), 1u);
    EXPECT_TRUE(isColor(picture, view.x(10) + 4, view.y(1.75), 0xFF0000FF));
    EXPECT_TRUE(isColor(picture, view.x(50) + 4, view.y(1.25), 0xFFFF8000));
    EXPECT_FALSE(isColor(picture, view.x(10) + 4, view.y(1.25), 0xFF0000FF));
}

TEST(OutputPaint, LinkWithoutFillIsAnUprightStrokeInEveryColumn) {
    SeriesChart test(makeBars(60));
    FakeObject *object = test.addOutputs(
        {output("A", 4, 0, 3, [](int) { return 2.0f; }), output("B", 4, 0, 3, [](int) { return 1.5f; })},
        {coreIndicatorLinks{0, 0, 1, 2, 1}});
    object->array(1).header()->typeShow.secondColor = 0xFFFF8000;
    test.host.update(object, 2);
    test.showFrom(0, 60);
    const QImage picture = test.grab();
    const LayerView view = test.view(1);
    for (int p = 1; p < 59; ++p) {
        EXPECT_TRUE(isColor(picture, view.x(p), view.y(1.75), 0xFFFF8000)) << p;
        EXPECT_FALSE(isColor(picture, view.x(p) + 3, view.y(1.75), 0xFFFF8000)) << p;
    }
}

// ---- odd data ----

TEST(SeriesPaint, TimesThatGoBackAndForthArePaintedInAFrame) {
    std::vector<Bar> bars = makeBars(100000);
    for (std::size_t i = 0; i < bars.size(); ++i)
        bars[i].time = static_cast<int>(2000000000u + static_cast<unsigned>(i) * 1500000007u);
    SeriesChart test(bars);
    test.showFrom(0, 100000);
    test.grab();
    QElapsedTimer clock;
    clock.start();
    test.grab();
    EXPECT_LT(clock.elapsed(), 500);
}

} // namespace
