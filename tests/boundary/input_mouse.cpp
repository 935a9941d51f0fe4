// Gestures of the mouse on a chart window.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

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

TEST_F(Gestures, ADoubleClickSendsItsMessagesInOrder) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    for (const bool tester : {false, true}) {
        Mouse mouse(chart);
        mouse.click(candle);
        chart.handle->m_sysTesterChart = tester;
        host.clearTraffic();
        QMouseEvent twice(QEvent::MouseButtonDblClick, candle, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(chart.widget, &twice);
        EXPECT_EQ(traffic(host), tester ? (std::vector<unsigned>{10041, 3048})
                                        : (std::vector<unsigned>{10041, 3092, 10041, 3048}));
        for (const Call &call : host.callsOf(10041)) {
            EXPECT_EQ(call.wParam, 0);
            EXPECT_EQ(call.lParam, 0);
        }
        for (const unsigned message : {3048u, 3092u}) {
            for (const Call &call : host.callsOf(message))
                EXPECT_EQ(static_cast<Word>(call.wParam), series->handle);
        }
        mouse.release(candle);
    }
    chart.handle->m_sysTesterChart = false;
}

TEST_F(Gestures, APressThatSelectsSendsItsMessagesInOrder) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    Mouse mouse(chart);
    host.clearTraffic();
    mouse.press(candle);
    EXPECT_EQ(traffic(host), (std::vector<unsigned>{3500, 3500, 3092}));
    EXPECT_EQ(host.callsOf(3500)[0].wRecord.size(), 264);
    EXPECT_TRUE(chart.handle->m_pressHadSelection);
    EXPECT_TRUE(chart.handle->m_dragCandidate);
    EXPECT_FALSE(chart.handle->m_rangeSelecting);
    mouse.release(candle);
    EXPECT_FALSE(chart.handle->m_dragCandidate);
    mouse.press(beside(400));
    EXPECT_FALSE(chart.handle->m_dragCandidate);
    EXPECT_TRUE(chart.handle->m_rangeSelecting);
}

TEST_F(Gestures, ADragCandidateEndsAfterSixPixels) {
    const QPoint candle = onCandle();
    ASSERT_FALSE(candle.isNull());
    Mouse mouse(chart);
    mouse.press(candle);
    mouse.move(candle + QPoint(2, 3));
    EXPECT_TRUE(chart.handle->m_dragCandidate);
    mouse.move(candle + QPoint(3, 3));
    EXPECT_FALSE(chart.handle->m_dragCandidate);
    mouse.release(candle);
}

TEST_F(Gestures, TheSeriesGoesInTheMiddleOfABand) {
    Mouse mouse(chart);
    mouse.press(beside(600));
    mouse.move(beside(500));
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    pressKey(chart, Qt::Key_Delete);
    ASSERT_TRUE(chart.handle->m_indicators.empty());
    mouse.move(beside(400));
    mouse.release(beside(400));
    EXPECT_FALSE(chart.handle->m_rangeSelecting);
    EXPECT_EQ(bar->pageStep(), 60);
    host.addInstrument(chart, "EURUSD");
    host.tick();
    EXPECT_EQ(bar->pageStep(), 60);
}

TEST_F(Gestures, TheIndexUnderTheCursor) {
    const CRGraphLayer *layer = chart.handle->m_areas[0]->m_layers[0];
    const QRect plot = layer->m_rect;
    Mouse mouse(chart);
    for (int x = plot.left() - 20; x <= plot.right() + 20; ++x) {
        mouse.press(beside(x));
        const double n = layer->m_nScreenPoints;
        const int raw = static_cast<int>(n * (x - plot.left() + 0.5 * layer->m_candleStep) /
                                         (plot.right() - plot.left() + 1));
        EXPECT_EQ(chart.handle->m_rangeStart, qBound(0, raw, 60) + layer->m_nFirstPos) << x;
        EXPECT_EQ(chart.handle->m_rangeEnd, chart.handle->m_rangeStart);
        mouse.release(beside(x));
    }
}

TEST_F(Gestures, ABandShowsExactlyItsPositions) {
    Mouse mouse(chart);
    mouse.press(beside(200));
    mouse.move(beside(420));
    const int start = chart.handle->m_rangeStart, end = chart.handle->m_rangeEnd;
    ASSERT_GT(end - start, 8);
    mouse.release(beside(420));
    EXPECT_EQ(bar->pageStep(), end - start + 1);
    EXPECT_EQ(bar->value(), end + 1);
    EXPECT_EQ(chart.handle->m_areas[0]->m_layers[0]->m_nScreenPoints, end - start + 1);
}

TEST_F(Gestures, EightIsNoZoomAndNineIs) {
    for (const int spread : {8, 9}) {
        Mouse mouse(chart);
        int x = 300;
        mouse.press(beside(x));
        while (chart.handle->m_rangeEnd - chart.handle->m_rangeStart < spread)
            mouse.move(beside(++x));
        mouse.release(beside(x));
        EXPECT_EQ(bar->pageStep(), spread == 8 ? 60 : 10);
    }
}

TEST_F(Gestures, TheTopRowsOfTheFirstPaneGripItsBorder) {
    const struct {
        int row;
        bool grips;
    } cases[] = {{4, true}, {5, false}};
    for (const auto &step : cases) {
        Mouse mouse(chart);
        mouse.press(QPoint(400, step.row));
        EXPECT_EQ(bool(chart.handle->m_areas[0]->m_resizing), step.grips) << step.row;
        EXPECT_NE(chart.widget->cursor().shape(), Qt::SplitVCursor);
        mouse.move(QPoint(400, 200));
        mouse.release(QPoint(400, 200));
        EXPECT_FALSE(chart.handle->m_areas[0]->m_resizing);
    }
    EXPECT_EQ(chart.handle->m_areas[0]->m_heightShare, 1.0f);
}

TEST_F(Gestures, TheSplitCursorStandsOnFourRowsOnly) {
    pressKey(chart, Qt::Key_N);
    host.grab(chart);
    const QRect lower = chart.handle->m_areas[1]->m_rect;
    const struct {
        QPoint point;
        bool split;
    } cases[] = {{QPoint(400, lower.top() - 1), false},
                 {QPoint(400, lower.top()), true},
                 {QPoint(400, lower.top() + 4), true},
                 {QPoint(400, lower.top() + 5), false},
                 {QPoint(lower.left() + 3, lower.top() + 2), true},
                 {QPoint(lower.left() + 2, lower.top() + 2), false},
                 {QPoint(lower.right() - 3, lower.top() + 2), true},
                 {QPoint(lower.right() - 2, lower.top() + 2), false}};
    Mouse mouse(chart);
    for (const auto &step : cases) {
        mouse.move(step.point);
        EXPECT_EQ(chart.widget->cursor().shape() == Qt::SplitVCursor, step.split)
            << step.point.x() << ' ' << step.point.y();
        EXPECT_EQ(chart.handle->m_overSplitter, step.split);
    }
    mouse.press(QPoint(400, lower.top() + 2)); // without a move before: a band and the border together
    EXPECT_TRUE(chart.handle->m_areas[1]->m_resizing);
    mouse.release(QPoint(400, lower.top() + 2));
}

TEST_F(Gestures, AnArmedToolShapesTheCursorInEachPane) {
    pressKey(chart, Qt::Key_N); // an empty pane
    host.grab(chart);
    host.toolState.armed = 1;
    Mouse mouse(chart);
    mouse.move(QPoint(400, 100));
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(chart.widget->cursor().hotSpot(), QPoint(0, 0));
    mouse.move(QPoint(400, chart.handle->m_areas[1]->m_rect.top() + 2));
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::ForbiddenCursor);
    EXPECT_FALSE(chart.handle->m_overSplitter);
    host.toolState.armed = 0;
}

TEST_F(Gestures, AToolIsArmedByTheAnswerAndTheRecordTogether) {
    const struct {
        Word armed;
        int result;
        bool keeps;
    } cases[] = {{0, 1, false}, {1, 0, false}, {1, 1, true}, {7, -1, true}};
    const QPoint candle = onCandle();
    for (const auto &step : cases) {
        Mouse(chart).click(candle);
        host.answer(3500, [&step](void *, int wParam, int) {
            fromWord<mwiStateLsButton>(wParam)->armed = step.armed;
            return step.result;
        });
        // An armed press lets the selection stand, any other one lets it go.
        Mouse(chart).click(beside(400));
        EXPECT_EQ(viewOf(chart).series[0].selected, step.keeps) << step.armed << ' ' << step.result;
        host.answer(3500, nullptr);
    }
}

TEST_F(Gestures, TheCrossCursorBlanksEveryChart) {
    Chart other = host.createChart();
    Mouse mouse(chart);
    mouse.press(beside(300), Qt::MiddleButton);
    const Call told = host.callsOf(3555).at(0);
    EXPECT_EQ(told.wParam, 1);
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::BlankCursor);
    EXPECT_EQ(other.widget->cursor().shape(), Qt::BlankCursor);
    mouse.release(beside(300), Qt::MiddleButton);
    mouse.press(beside(300), Qt::MiddleButton);
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(other.widget->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(host.count(3555), 2);
}

TEST_F(Gestures, ARightPressChoosesThePane) {
    pressKey(chart, Qt::Key_N);
    host.grab(chart);
    for (int pane = 0; pane < 2; ++pane) {
        host.clearTraffic();
        const QPoint point = chart.handle->m_areas[static_cast<std::size_t>(pane)]->m_rect.center();
        Mouse mouse(chart);
        mouse.press(point, Qt::RightButton);
        EXPECT_EQ(chart.handle->m_nSelectedArea, pane);
        mouse.release(point, Qt::RightButton);
        EXPECT_EQ(host.count(3500), 0);
    }
    Mouse(chart).press(QPoint(1, 100), Qt::RightButton); // on the scale: as it was
    EXPECT_EQ(chart.handle->m_nSelectedArea, 1);
}

TEST_F(Gestures, TheStatusBarIsEmptyBesideThePlots) {
    ASSERT_NE(host.timeLabel, nullptr);
    const int left = chart.handle->m_nLeftScaleWidth;
    const int right = chart.widget->width() - chart.handle->m_nRightScaleWidth;
    const int height = chart.widget->height();
    const struct {
        QPoint point;
        bool empty;
    } cases[] = {{QPoint(left, 100), false},  {QPoint(left - 1, 100), true},     {QPoint(right, 100), false},
                 {QPoint(right + 1, 100), true}, {QPoint(400, 15), false},       {QPoint(400, 14), true},
                 {QPoint(400, height - 39), true}};
    Mouse mouse(chart);
    for (const auto &step : cases) {
        mouse.move(QPoint(400, 300));
        ASSERT_FALSE(host.timeLabel->text().isEmpty());
        mouse.move(step.point);
        EXPECT_EQ(host.timeLabel->text().isEmpty(), step.empty) << step.point.x() << ' ' << step.point.y();
    }
}
