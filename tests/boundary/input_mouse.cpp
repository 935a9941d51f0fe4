// Gestures of the mouse on a chart window.
#include "tests/boundary/InputDriver.h"

#include <QLabel>
#include <QSlider>
#include <gtest/gtest.h>

namespace {

constexpr int strip = 26; // height of the time strip with the usual fonts

class Gestures : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart(QSize(800, 600));
        series = host.addInstrument(chart, "EURUSD");
        host.tick();
        host.grab(chart);
        bar = scrollBarOf(chart);
        bar->setValue(503);
        host.clearTraffic();
        host.milestones.clear();
    }
    int chartHeight() const { return chart.widget->height() - bar->height() - strip; }
    // A point on the body of a falling candle.
    QPoint onCandle() {
        const QImage picture = host.grab(chart);
        for (int x = 300; x < 600; ++x) {
            for (int y = 30; y + 10 < chartHeight(); ++y) {
                if (isInk(picture.pixel(x, y)) && isInk(picture.pixel(x + 4, y + 4)))
                    return QPoint(x + 2, y + 2);
            }
        }
        return QPoint();
    }
    static bool isInk(QRgb pixel) { return qAbs(qRed(pixel) - qGreen(pixel)) > 60; }
    // Under all candles: the range leaves a margin there.
    QPoint beside(int x) const { return QPoint(x, chartHeight() - 2); }

    FakeHost host;
    Chart chart;
    FakeObject *series = nullptr;
    QScrollBar *bar = nullptr;
};

} // namespace

TEST_F(Gestures, APressAsksForTheToolEachTime) {
    Mouse mouse(chart);
    mouse.click(beside(300));
    EXPECT_EQ(host.count(3500), 2); // the window and the pane
    mouse.move(beside(310));
    EXPECT_EQ(host.count(3500), 3);
}

TEST_F(Gestures, ARubberBandOfMoreThanEightZooms) {
    Mouse mouse(chart);
    const int width = chart.widget->width();
    host.milestones.clear();
    mouse.press(beside(100));
    mouse.move(beside(width / 2));
    mouse.release(beside(width / 2));
    EXPECT_LT(bar->pageStep(), 60);
    EXPECT_GT(bar->pageStep(), 8);
    EXPECT_LT(bar->value(), 503);
    EXPECT_EQ(host.slider->value(), -bar->pageStep());
}

TEST_F(Gestures, ABandOfTenPositionsShowsThem) {
    // 60 positions stand on the plot: find two columns ten positions apart by the width of one.
    const QImage picture = host.grab(chart);
    Mouse mouse(chart);
    const int first = bar->value() - 60;
    mouse.press(beside(100));
    int x = 100;
    int spread = 0;
    // Move until the band is nine wide: the release then shows ten.
    while (spread < 9 && x < 700) {
        mouse.move(beside(++x));
        spread = static_cast<int>((x - 100) / ((chart.widget->width() - 90) / 60.0));
    }
    mouse.release(beside(x));
    EXPECT_GE(bar->pageStep(), 10);
    EXPECT_LE(bar->pageStep(), 12);
    EXPECT_GT(bar->value(), first);
}

TEST_F(Gestures, ABandMovesTheSliderWithoutFeedback) {
    Mouse mouse(chart);
    host.milestones.clear();
    mouse.drag(beside(100), beside(400));
    EXPECT_EQ(host.slider->value(), -bar->pageStep());
    EXPECT_EQ(host.milestones, QStringList("Scroll")); // and no zoom of the slider's
    EXPECT_FALSE(host.slider->signalsBlocked());
}

TEST_F(Gestures, ANarrowBandDoesNotZoom) {
    Mouse mouse(chart);
    mouse.drag(beside(300), beside(360)); // about five positions
    EXPECT_EQ(bar->pageStep(), 60);
    EXPECT_EQ(bar->value(), 503);
}

TEST_F(Gestures, ABandDrawnToTheLeftIsTheSame) {
    Mouse mouse(chart);
    mouse.drag(beside(500), beside(200));
    EXPECT_LT(bar->pageStep(), 60);
}

TEST_F(Gestures, AReleaseWithoutAPress) {
    Mouse mouse(chart);
    mouse.release(beside(300));
    mouse.release(QPoint(795, 300));
    EXPECT_EQ(bar->pageStep(), 60);
    EXPECT_TRUE(host.milestones.isEmpty());
}

TEST_F(Gestures, ALeaveInABandAndAReleaseOutside) {
    Mouse mouse(chart);
    mouse.press(beside(100));
    mouse.move(beside(500));
    mouse.leave();
    mouse.move(QPoint(-50, 300)); // outside: ignored
    mouse.release(QPoint(-50, 300));
    EXPECT_LT(bar->pageStep(), 60);
}

TEST_F(Gestures, AQuoteInTheMiddleOfABand) {
    Mouse mouse(chart);
    mouse.press(beside(100));
    mouse.move(beside(400));
    Bar next = series->array().bar(499);
    next.time += 3600;
    host.appendBar(series, next);
    host.update(series);
    host.tick();
    host.settle();
    mouse.move(beside(420));
    mouse.release(beside(420));
    EXPECT_LT(bar->pageStep(), 60);
}

TEST_F(Gestures, TheRightAndOtherButtonsDoNotZoom) {
    Mouse mouse(chart);
    mouse.press(beside(100), Qt::RightButton);
    mouse.move(beside(500));
    mouse.release(beside(500), Qt::RightButton);
    mouse.press(beside(100), Qt::BackButton);
    mouse.release(beside(500), Qt::BackButton);
    EXPECT_EQ(bar->pageStep(), 60);
}

TEST_F(Gestures, ASelectedCandleMakesItsObjectCurrent) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    Mouse mouse(chart);
    host.clearTraffic();
    mouse.press(candle);
    const std::vector<Call> calls = host.callsOf(3092);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(static_cast<Word>(calls[0].wParam), series->handle);
    mouse.release(candle);
    // Selected: Delete removes it. A click beside it lets it go.
    mouse.click(beside(400));
    pressKey(chart, Qt::Key_Delete);
    EXPECT_EQ(series->subscribers.count(chart.handle), 1u);
    mouse.click(candle);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_EQ(series->subscribers.count(chart.handle), 0u);
}

TEST_F(Gestures, ShiftAndControlKeepTheSelection) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    for (const auto key : {Qt::ShiftModifier, Qt::ControlModifier}) {
        Mouse mouse(chart);
        mouse.click(candle);
        host.clearTraffic();
        mouse.click(beside(400), key);
        EXPECT_EQ(host.count(3092), 1);
    }
}

TEST_F(Gestures, ADragOfASelectionIsNoBand) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    Mouse mouse(chart);
    mouse.drag(candle, candle + QPoint(200, 30));
    EXPECT_EQ(bar->pageStep(), 60);
}

TEST_F(Gestures, ADoubleClickOnASeriesRaisesItsPage) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    host.clearTraffic();
    Mouse(chart).doubleClick(candle);
    EXPECT_GE(host.count(10041), 1);
    EXPECT_EQ(host.count(3048), 1);
    EXPECT_GE(host.count(3092), 1);
    EXPECT_EQ(host.count(10051) + host.count(10052), 0);
}

TEST_F(Gestures, ADoubleClickOnNothingShowsTheWindowsPage) {
    host.clearTraffic();
    Mouse(chart).doubleClick(beside(400));
    EXPECT_EQ(host.count(10041), 1);
    EXPECT_EQ(host.count(3048), 0);
    EXPECT_EQ(host.count(10051) + host.count(10052), 1);
}

TEST_F(Gestures, TheSplitterMovesBetweenPanes) {
    pressKey(chart, Qt::Key_N);
    host.grab(chart);
    const int edge = chartHeight() / 2;
    Mouse mouse(chart);
    mouse.move(QPoint(400, edge + 2));
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::SplitVCursor);
    mouse.press(QPoint(400, edge + 2));
    mouse.move(QPoint(400, edge - 100));
    mouse.release(QPoint(400, edge - 100));
    EXPECT_EQ(bar->pageStep(), 60);
    mouse.move(QPoint(400, edge - 150));
    EXPECT_NE(chart.widget->cursor().shape(), Qt::SplitVCursor);
    host.grab(chart);
    mouse.move(QPoint(400, edge - 98)); // where the edge is now
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::SplitVCursor);
}

TEST_F(Gestures, TheFirstPaneHasNoSplitCursor) {
    Mouse mouse(chart);
    mouse.move(QPoint(400, 2));
    EXPECT_NE(chart.widget->cursor().shape(), Qt::SplitVCursor);
}

TEST_F(Gestures, TheCloseBoxTakesTheOneUnderTheMouse) {
    Mouse mouse(chart);
    host.grab(chart);
    mouse.click(QPoint(chart.widget->width() - 5, 6)); // the only pane stays
    EXPECT_EQ(series->subscribers.count(chart.handle), 1u);
    pressKey(chart, Qt::Key_N);
    host.grab(chart);
    mouse.click(QPoint(chart.widget->width() - 5, 6)); // the first of two goes with its series
    EXPECT_EQ(series->subscribers.count(chart.handle), 0u);
}

TEST_F(Gestures, TheScaleStretchesAndComesBackByDoubleClick) {
    const QImage before = host.grab(chart);
    const int x = chart.widget->width() - 10;
    Mouse mouse(chart);
    mouse.press(QPoint(x, 100));
    mouse.move(QPoint(x, 200));
    mouse.release(QPoint(x, 200));
    const QImage stretched = host.grab(chart);
    EXPECT_NE(stretched, before);
    mouse.doubleClick(QPoint(x, 400));
    EXPECT_EQ(host.grab(chart), before);
}

TEST_F(Gestures, TheFrameStandsStillUnderAScaleDragWithOneBracket) {
    const QImage before = host.grab(chart);
    const int x = chart.widget->width() - 10;
    Mouse mouse(chart);
    mouse.press(QPoint(x, 100));
    for (int y = 101; y < 200; y += 7)
        mouse.move(QPoint(x, y));
    mouse.move(QPoint(x, 180));
    Bar last = series->array().bar(499);
    last.close += 0.01f;
    last.high += 0.01f;
    host.changeLastBar(series, last);
    host.update(series);
    host.tick();
    const QImage during = host.grab(chart);
    int changedRows = 0;
    for (int y = 0; y < during.height(); ++y) {
        bool changed = false;
        for (int column = 0; column < during.width(); ++column) {
            if (during.pixel(column, y) != before.pixel(column, y)) {
                changed = true;
                EXPECT_GE(y, 100);
                EXPECT_LE(y, 180);
            }
        }
        changedRows += changed;
    }
    EXPECT_EQ(changedRows, 81); // from the press to where the mouse is
    int lineAtPress = 0, lineAtMouse = 0, trail = 0;
    for (int column = 0; column < during.width(); ++column) {
        lineAtPress += during.pixel(column, 100) != before.pixel(column, 100);
        lineAtMouse += during.pixel(column, 180) != before.pixel(column, 180);
        trail += during.pixel(column, 150) != before.pixel(column, 150);
    }
    EXPECT_GT(lineAtPress, 10);
    EXPECT_EQ(lineAtMouse, lineAtPress);
    EXPECT_EQ(trail, 1);
    mouse.release(QPoint(x, 180));
    EXPECT_NE(host.grab(chart), before);
}

TEST_F(Gestures, TheWindowGoesInTheMiddleOfADrag) {
    for (const int x : {400, 790}) {
        Chart other = host.createChart();
        host.addInstrument(other, "EURUSD");
        host.grab(other);
        Mouse mouse(other);
        mouse.press(QPoint(x, 100));
        mouse.move(QPoint(x - 5, 200));
        host.deleteChart(other);
        mouse.release(QPoint(x, 200));
    }
    SUCCEED();
}

TEST_F(Gestures, AHostThatDeletesTheWindowAtAnyCall) {
    for (int nth = 1; nth <= 12; ++nth) {
        Chart other = host.createChart();
        host.addInstrument(other, "EURUSD");
        host.grab(other);
        Mouse mouse(other);
        pressKey(other, Qt::Key_A, Qt::ControlModifier);
        int left = nth;
        host.setInterruption([&](const Call &call) {
            if (isInputCall(call.message) && other.handle && --left == 0)
                host.deleteChart(other);
        });
        mouse.press(beside(400), Qt::LeftButton, Qt::ControlModifier);
        mouse.move(beside(420));
        mouse.release(beside(420));
        host.setInterruption(nullptr);
        if (other.handle)
            host.deleteChart(other);
    }
    SUCCEED();
}

TEST_F(Gestures, EnterShowsWhatTheToolCanDo) {
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(chart.widget, &enter);
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::ArrowCursor);
    host.toolState.armed = 1;
    QCoreApplication::sendEvent(chart.widget, &enter);
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::BitmapCursor);
    Chart empty = host.createChart();
    QCoreApplication::sendEvent(empty.widget, &enter);
    EXPECT_EQ(empty.widget->cursor().shape(), Qt::ForbiddenCursor);
    host.toolState.armed = 0;
}

TEST_F(Gestures, AnArmedPressEndsTheCrossCursor) {
    Mouse mouse(chart);
    mouse.press(beside(300), Qt::MiddleButton);
    EXPECT_EQ(host.crossCursor, 1u);
    host.toolState.armed = 1;
    mouse.click(beside(300));
    EXPECT_EQ(host.crossCursor, 0u);
}

TEST_F(Gestures, TheStatusBarReadsTimeAndPrice) {
    ASSERT_NE(host.timeLabel, nullptr);
    Mouse mouse(chart);
    mouse.move(beside(400));
    EXPECT_FALSE(host.timeLabel->text().isEmpty());
    EXPECT_GT(host.priceLabel->text().toDouble(), 0.5);
    EXPECT_EQ(host.priceLabel->text().section('.', 1).size(), 5);
    mouse.move(QPoint(400, 10));
    EXPECT_TRUE(host.timeLabel->text().isEmpty());
    EXPECT_TRUE(host.priceLabel->text().isEmpty());
}

TEST_F(Gestures, ALostLabelIsAskedForAgain) {
    delete host.timeLabel;
    host.timeLabel = nullptr;
    host.clearTraffic();
    Mouse(chart).move(QPoint(400, 10));
    EXPECT_EQ(host.count(7001), 1);
    Mouse(chart).move(beside(400));
    EXPECT_FALSE(host.timeLabel->text().isEmpty());
}

TEST_F(Gestures, TheLocatorSpeaksOfWhatIsUnderTheMouse) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    Mouse mouse(chart);
    mouse.move(candle);
    ASSERT_EQ(host.locatorItems.size(), 3u); // time, the pane's blank, the series
    EXPECT_FALSE(host.locatorItems[0].text.isEmpty());
    EXPECT_EQ(host.locatorItems[1].text, " ");
    EXPECT_EQ(host.locatorItems[1].color, 0xFF000000u);
    EXPECT_TRUE(host.locatorItems[2].text.contains(":\n OPEN="));
    EXPECT_TRUE(host.locatorItems[2].text.contains("\n HIGH="));
    EXPECT_TRUE(host.locatorItems[2].text.contains("\n LOW="));
    EXPECT_TRUE(host.locatorItems[2].text.contains("\n CLOSE="));
}

TEST_F(Gestures, OutsideTheChartTheLocatorIsSilent) {
    Mouse mouse(chart);
    mouse.move(QPoint(400, chart.widget->height() - 5));
    host.locatorCalls = 0;
    mouse.move(QPoint(401, chart.widget->height() - 5));
    EXPECT_EQ(host.locatorCalls, 0);
}

TEST_F(Gestures, PastTheAxisTheLocatorHasNoTime) {
    Chart small = host.createChart();
    host.setHistory("GBPUSD", makeBars(5));
    host.addInstrument(small, "GBPUSD");
    host.grab(small);
    Mouse mouse(small);
    mouse.move(beside(700)); // the axis has 35 positions of 60
    ASSERT_FALSE(host.locatorItems.empty());
    EXPECT_EQ(host.locatorItems[0].text, " ");
}

TEST_F(Gestures, AHostWithoutALocator) {
    host.hasLocator = false;
    Chart other = host.createChart();
    host.addInstrument(other, "EURUSD");
    host.locatorCalls = 0;
    Mouse(other).move(beside(400));
    EXPECT_EQ(host.locatorCalls, 0);
}

TEST_F(Gestures, ATesterChartTakesTheFocusAndKeepsNoAutoScroll) {
    Chart tester = host.createChart(QSize(800, 600), 1);
    host.clearTraffic();
    Mouse(tester).click(beside(300));
    EXPECT_EQ(host.count(10051) + host.count(10052), 1); // its page is shown with the focus
    for (QWidget *button : childrenOfClass(tester.widget, "QToolButton")) {
        if (static_cast<QAbstractButton *>(button)->toolTip() == "Auto scroll") {
            EXPECT_FALSE(button->isEnabled());
        }
    }
}
