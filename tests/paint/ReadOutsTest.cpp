// What the three read-outs say of the place under the mouse: the locator's lines, the labels of the cross
// cursor and the panes of the status bar.
#include "tests/boundary/InputDriver.h"
#include "tests/paint/LayerView.h"

#include "chart/TimeScale.h"

#include <QDateTime>
#include <QFontMetrics>
#include <QLabel>

namespace {

constexpr int start = 1388534400; // 1 January 2014
constexpr int hour = 3600;
constexpr Word fontColor = 0x7C7B68;

std::vector<Bar> waves(int count) { // a falling bar, then a rising one
    std::vector<Bar> bars;
    for (int i = 0; i < count; ++i) {
        const float open = i % 2 ? 1.29f : 1.31f;
        bars.push_back({start + i * hour, open, 1.32f, 1.28f, 2.6f - open, 1});
    }
    return bars;
}

QString timeAt(int position) {
    return QDateTime::fromSecsSinceEpoch(start + position * hour, Qt::UTC).toString("M/d/yyyy h:mm:ss");
}

// The value at a row, with the decimals of the series.
QString priceAt(const CRGraphLayer *layer, int row) {
    const double price =
        static_cast<double>(layer->m_rect.bottom() + 1 - row) / layer->m_yScale + layer->m_min;
    return QString::asprintf("%.5f", price);
}

Word rgbOf(const QColor &color) {
    return color.rgb();
}

// ---- the locator ----

struct LocatorLine {
    const char *what;
    Word drawKind;
    double value; // where the mouse is
    const char *fields;
};

class LocatorLines : public testing::TestWithParam<LocatorLine> {};

TEST_P(LocatorLines, OfAnInstrument) {
    SeriesChart test(waves(10), GetParam().drawKind);
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    Mouse(test.chart).move(QPoint(view.x(4), view.y(GetParam().value)));
    const std::vector<LocatorItem> &items = test.host.locatorItems;
    ASSERT_EQ(items.size(), 3u) << GetParam().what;
    EXPECT_EQ(items[0].text, timeAt(4));
    EXPECT_EQ(items[0].color & 0xFFFFFF, fontColor);
    EXPECT_EQ(items[0].fontSize, 7u);
    EXPECT_EQ(items[1].text, " ");
    EXPECT_EQ(items[1].color, 0xFF000000u);
    EXPECT_EQ(items[1].fontSize, 8u);
    EXPECT_EQ(items[2].text.toStdString(), test.series()->m_name.toStdString() + GetParam().fields);
    EXPECT_EQ(items[2].color, testFall);
    EXPECT_EQ(items[2].fontSize, 8u);
    EXPECT_EQ(test.host.locatorBackground & 0xFFFFFF, 0xFFFFFFu);
}

INSTANTIATE_TEST_SUITE_P(
    Locator, LocatorLines,
    testing::Values(
        LocatorLine{"candle", 1, 1.30, ":\n OPEN=1.31000\n HIGH=1.32000\n LOW=1.28000\n CLOSE=1.29000"},
        LocatorLine{"bar", 2, 1.30, ":\n OPEN=1.31000\n HIGH=1.32000\n LOW=1.28000\n CLOSE=1.29000"},
        LocatorLine{"wide candle", 5, 1.30, ":\n OPEN=1.31000\n HIGH=1.32000\n LOW=1.28000\n CLOSE=1.29000"},
        LocatorLine{"line", 3, 1.29, ":\n CLOSE=1.29000"},
        LocatorLine{"dots", 7, 1.29, ":\n CLOSE=1.29000"}));

struct OutputLine {
    const char *what;
    Word drawKind;
    int style;
    PRIMITIVE_TYPES type;
    double value; // where the mouse is; every point is 0.5, the border line at 0
    const char *fields;
};

class LocatorOutputs : public testing::TestWithParam<OutputLine> {};

TEST_P(LocatorOutputs, OfAnIndicator) {
    SeriesChart test(waves(10));
    test.addOutputs({FakeOutput{"Out", GetParam().drawKind, GetParam().style, 3,
                                [](const std::vector<float> &, int i) { return i == 9 ? 0.25f : 0.5f; }}});
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.series()->m_type, GetParam().type);
    Mouse(test.chart).move(QPoint(view.x(4), view.y(GetParam().value)));
    const std::vector<LocatorItem> &items = test.host.locatorItems;
    ASSERT_GE(items.size(), 3u);
    EXPECT_EQ(items[1].text, " "); // the pane above, where nothing is under the mouse
    EXPECT_EQ(items[2].text, " ");
    if (!GetParam().fields) {
        EXPECT_EQ(items.size(), 3u);
        return;
    }
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[3].text.toStdString(), view.series()->m_name.toStdString() + GetParam().fields);
    EXPECT_EQ(items[3].color, rgbOf(view.series()->m_lineColor));
}

INSTANTIATE_TEST_SUITE_P(Locator, LocatorOutputs,
                         testing::Values(OutputLine{"line", 4, 0, PT_LINE, 0.5, ":\n VALUE=0.50000"},
                                         OutputLine{"histogram", 4, 1, PT_HISTOGRAM, 0.4,
                                                    ":\n VALUE=0.50000"},
                                         OutputLine{"dots", 8, 0, PT_DOTS, 0.5, ":\n VALUE=0.50000"},
                                         OutputLine{"pattern", 10, 0, PT_PATTERN, 0.5, nullptr}));

TEST(Locator, MarksCarryTheNamesOfTheFieldsBefore) {
    SeriesChart test(waves(10));
    FakeObject *object = test.addOutputs({FakeOutput{"H", 6, 0, 3, nullptr}});
    std::vector<corePointMark> marks;
    for (int i = 0; i < 10; ++i)
        marks.push_back({start + i * hour, 0.4f, 0.3f, 1, 0});
    object->array().setMarks(marks);
    test.host.update(object, 1);
    test.host.tick();
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.series()->m_type, PT_MARKS);
    Mouse(test.chart).move(QPoint(view.x(4), view.y(0.35)));
    ASSERT_EQ(test.host.locatorItems.size(), 4u);
    EXPECT_EQ(test.host.locatorItems[3].text, view.series()->m_name + ":\n TIME=0.40000\n HIGH=0.30000");
}

TEST(Locator, PanesAndLayersComeInTheirOrder) {
    SeriesChart test(waves(10));
    test.addOutputs({FakeOutput{"A", 4, 0, 3, [](const std::vector<float> &, int) { return 0.5f; }},
                     FakeOutput{"B", 4, 0, 3, [](const std::vector<float> &, int) { return 0.5f; }}});
    test.showFrom(0, 10);
    test.grab();
    const LayerView lower = test.view(1);
    ASSERT_EQ(lower.layer->m_primitives.size(), 2u);
    Mouse(test.chart).move(QPoint(lower.x(4), lower.y(0.5)));
    const std::vector<LocatorItem> &items = test.host.locatorItems;
    ASSERT_EQ(items.size(), 5u);
    EXPECT_TRUE(items[3].text.startsWith(lower.series(0)->m_name + ":"));
    EXPECT_TRUE(items[4].text.startsWith(lower.series(1)->m_name + ":"));
}

TEST(Locator, IsCalledByAFrameAndByAMove) {
    SeriesChart test(waves(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    Mouse mouse(test.chart);
    test.host.locatorCalls = 0;
    mouse.move(QPoint(view.x(4), view.y(1.30)));
    EXPECT_EQ(test.host.locatorCalls, 1);
    test.grab();
    EXPECT_GT(test.host.locatorCalls, 1);
}

// ---- the labels of the cross cursor ----

class Cross : public testing::Test {
protected:
    void SetUp() override {
        test.showFrom(0, 10);
        test.grab();
    }
    void crossAt(QPoint point) {
        Mouse mouse(test.chart);
        if (!test.host.crossCursor) {
            mouse.press(point, Qt::MiddleButton);
            mouse.release(point, Qt::MiddleButton);
        }
        mouse.move(point);
    }

    SeriesChart test{waves(10)};
};

TEST_F(Cross, ThePriceIsThatOfTheRowAndTheTimeThatOfTheColumn) {
    const LayerView view = test.view();
    for (const double value : {1.285, 1.30, 1.315}) {
        const int row = view.y(value);
        crossAt(QPoint(view.x(3), row));
        const CRGraphWidget *window = test.chart.handle;
        EXPECT_EQ(window->m_crossDateText, timeAt(3));
        EXPECT_EQ(window->m_crossPriceText, priceAt(view.layer, row));
        EXPECT_EQ(window->m_nCrossY, row);
        EXPECT_EQ(window->m_crossColor.rgb(), testRise);
    }
}

TEST_F(Cross, LabelsAreBoxesOnTheScaleAndOnTheTimeStrip) {
    const LayerView view = test.view();
    const QPoint point(view.x(5), view.y(1.30));
    crossAt(point);
    const QImage picture = test.grab();
    const QFontMetrics metrics(test.chart.handle->m_areas.front()->m_properties.font);
    const int height = metrics.height();
    const int top = point.y() - height / 2 - 1;
    const int right = picture.width() - 1;
    EXPECT_TRUE(isColor(picture, right, top, testRise));
    EXPECT_TRUE(isColor(picture, right, top + height + 2, testRise)); // as tall as the text and three rows
    EXPECT_FALSE(isColor(picture, right, top - 1, testRise));
    EXPECT_FALSE(isColor(picture, right, top + height + 3, testRise));
    EXPECT_FALSE(isColor(picture, 1, point.y() + 3, testRise)); // and none on the left
    // The text stands in it, from the fourth pixel past the plot.
    const int edge = view.layer->m_rect.right();
    EXPECT_EQ(colorCount(picture, QRect(edge + 1, top, 3, height + 3), testRise), 3 * (height + 3));
    EXPECT_LT(colorCount(picture, QRect(edge + 4, top, 20, height + 3), testRise), 20 * (height + 3) - 10);

    const QRect strip = test.chart.handle->m_pTimeScale->m_rect;
    int left = point.x(), end = point.x();
    const int row = strip.bottom();
    ASSERT_TRUE(isColor(picture, point.x(), row, testRise));
    while (isColor(picture, left - 1, row, testRise))
        --left;
    while (isColor(picture, end + 1, row, testRise))
        ++end;
    EXPECT_NEAR((left + end) / 2.0, point.x(), 1);
    EXPECT_GT(end - left, metrics.horizontalAdvance(timeAt(5)));
}

TEST_F(Cross, LinesReachFromScaleToScaleAndOverAllPanes) {
    const QImage without = test.grab();
    const LayerView view = test.view();
    const QPoint point(view.x(5) + 7, view.y(1.30));
    crossAt(point);
    const QImage with = test.grab();
    const CRGraphWidget *window = test.chart.handle;
    const auto crossed = [&](int x, int y) { return (with.pixel(x, y) ^ without.pixel(x, y)) == 0x999999u; };
    EXPECT_TRUE(crossed(window->m_nLeftScaleWidth, point.y()));
    EXPECT_FALSE(crossed(window->m_nLeftScaleWidth - 1, point.y()));
    EXPECT_TRUE(crossed(window->width() - window->m_nRightScaleWidth - 1, point.y())); // then the label
    EXPECT_TRUE(crossed(point.x(), window->m_chartRect.top()));
    EXPECT_TRUE(crossed(point.x(), window->m_chartRect.bottom()));
    EXPECT_FALSE(crossed(point.x(), window->m_chartRect.bottom() + 1));
}

TEST_F(Cross, BesideThePlotIsAnArrowAndNoLine) {
    const LayerView view = test.view();
    crossAt(QPoint(view.x(5), view.y(1.30)));
    EXPECT_EQ(test.chart.widget->cursor().shape(), Qt::BlankCursor);
    const QPoint beside(view.layer->m_rect.right() + 10, 100);
    Mouse(test.chart).move(beside);
    const QImage with = test.grab();
    EXPECT_EQ(test.chart.widget->cursor().shape(), Qt::ArrowCursor);
    test.host.crossCursor = 0;
    Mouse mouse(test.chart);
    mouse.press(beside, Qt::MiddleButton);
    mouse.release(beside, Qt::MiddleButton);
    EXPECT_EQ(with, test.grab());
}

TEST_F(Cross, AnIndicatorsLabelHasItsLineColour) {
    test.addOutputs({FakeOutput{"Out", 4, 0, 3, [](const std::vector<float> &, int) { return 0.5f; }}});
    test.showFrom(0, 10);
    test.grab();
    const LayerView lower = test.view(1);
    crossAt(QPoint(lower.x(4), lower.y(0.5)));
    EXPECT_EQ(test.chart.handle->m_crossColor, lower.series()->m_lineColor);
    EXPECT_EQ(test.chart.handle->m_crossDateText, timeAt(4));
}

TEST_F(Cross, APaneWithoutSeriesHasNothingToSay) {
    pressKey(test.chart, Qt::Key_N);
    test.grab();
    const QRect lower = test.chart.handle->m_areas[1]->m_rect;
    crossAt(lower.center());
    EXPECT_TRUE(test.chart.handle->m_crossPriceText.isEmpty());
    EXPECT_TRUE(test.chart.handle->m_crossDateText.isEmpty());
    EXPECT_EQ(test.chart.handle->m_crossColor, QColor(Qt::black));
}

// The time under the cursor on an axis whose first position is told, with so many positions on the plot.
QString timeUnder(const CRGraphLayer *layer, int x, int firstPos, int points) {
    const QRect &plot = layer->m_rect;
    const double step = static_cast<double>(plot.width()) / points;
    return timeAt(firstPos + static_cast<int>(0.5 + (x - plot.left() - 0.5 * step) * points / plot.width()));
}

TEST(CrossAndKeys, TheReadOutFollowsUnderARestingMouse) {
    SeriesChart test(waves(200));
    test.grab();
    test.chart.handle->m_pTimeScale->m_bAutoScroll = false;
    CTimeScrollBar *bar = test.chart.handle->m_pScrollBar;
    bar->setValue(120);
    const LayerView view = test.view();
    const QPoint point(300, view.y(1.30));
    Mouse mouse(test.chart);
    mouse.press(point, Qt::MiddleButton);
    mouse.release(point, Qt::MiddleButton);
    mouse.move(point);
    const auto told = [&] { return test.chart.handle->m_crossDateText; };
    const auto expected = [&] {
        return timeUnder(view.layer, point.x(), bar->value() - bar->pageStep(), bar->pageStep());
    };
    ASSERT_EQ(told(), expected());
    for (const int key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Minus}) {
        const QString before = told();
        pressKey(test.chart, key);
        EXPECT_NE(told(), before) << key;
        EXPECT_EQ(told().toStdString(), expected().toStdString()) << key;
        EXPECT_EQ(test.chart.handle->m_crossPriceText, priceAt(view.layer, point.y())) << key;
    }
    pressKey(test.chart, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(bar->value(), bar->minimum());
    EXPECT_EQ(told().toStdString(), expected().toStdString());
}

// ---- the panes of the status bar ----

TEST(StatusPanes, TimeAndPriceOfThePoint) {
    SeriesChart test(waves(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const int row = view.y(1.30);
    Mouse(test.chart).move(QPoint(view.x(6), row));
    EXPECT_EQ(test.host.timeLabel->text(), timeAt(6));
    EXPECT_EQ(test.host.priceLabel->text(), priceAt(view.layer, row));
}

TEST(StatusPanes, NoScaleIsNoPrice) {
    SeriesChart test(waves(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const QPoint point(view.x(6), view.y(1.30));
    const float scale = view.layer->m_yScale;
    view.layer->m_yScale = 0;
    Mouse(test.chart).move(point);
    EXPECT_EQ(test.host.priceLabel->text(), "0.0");
    view.layer->m_yScale = 1e-40f; // the price is out of a price's range
    Mouse(test.chart).move(point + QPoint(1, 0));
    EXPECT_EQ(test.host.priceLabel->text(), "0.0");
    view.layer->m_yScale = scale;
}

TEST(StatusPanes, AClosingMainWindowHearsNothingMore) {
    SeriesChart test(waves(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    Mouse mouse(test.chart);
    mouse.move(QPoint(view.x(6), view.y(1.30)));
    const QString told = test.host.timeLabel->text();
    test.host.send(3081u);
    mouse.move(QPoint(view.x(2), view.y(1.30)));
    EXPECT_EQ(test.host.timeLabel->text(), told);
}

} // namespace
