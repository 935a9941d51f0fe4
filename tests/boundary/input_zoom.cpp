// Zoom, scroll and auto scroll through the host's slider, the scroll bar and its buttons.
#include "tests/boundary/InputDriver.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QSlider>
#include <gtest/gtest.h>

namespace {

class ZoomAndScroll : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart();
    }
    void addSeries() {
        series = host.addInstrument(chart, "EURUSD");
        host.tick();
        host.settle();
        bar = scrollBarOf(chart);
        host.clearTraffic();
        host.milestones.clear();
    }
    QAbstractButton *button(const QString &toolTip) const {
        for (QWidget *widget : childrenOfClass(chart.widget, "QToolButton")) {
            auto *found = static_cast<QAbstractButton *>(widget);
            if (found->toolTip() == toolTip && found->parentWidget() == chart.widget)
                return found;
        }
        return nullptr;
    }
    int framesLogged() const {
        int count = 0;
        for (const LogLine &line : host.log)
            count += line.text.startsWith("DrawAll continue");
        return count;
    }

    FakeHost host;
    Chart chart;
    FakeObject *series = nullptr;
    QScrollBar *bar = nullptr;
};

} // namespace

TEST_F(ZoomAndScroll, ANewWindowTogglesAutoScrollTwice) {
    host.milestones.clear();
    host.createChart();
    EXPECT_EQ(host.milestones.count("Auto scroll positions"), 2);
}

TEST_F(ZoomAndScroll, TheBarLiesInTheLastRows) {
    addSeries();
    const int extent = bar->height();
    EXPECT_EQ(bar->geometry(), QRect(extent + 2, 600 - extent, 800 - 2 * extent - 3, extent));
    ASSERT_NE(button("Extend chart left edge"), nullptr);
    EXPECT_EQ(button("Extend chart left edge")->geometry(), QRect(0, 600 - extent, extent, extent));
    EXPECT_EQ(button("Auto scroll")->geometry(), QRect(800 - extent, 600 - extent, extent, extent));
    chart.widget->resize(500, 400);
    host.settle();
    EXPECT_EQ(bar->geometry(), QRect(extent + 2, 400 - extent, 500 - 2 * extent - 3, extent));
}

TEST_F(ZoomAndScroll, OverTheBarTheCursorIsAnArrow) {
    addSeries();
    Mouse mouse(chart);
    mouse.press(QPoint(200, 200), Qt::MiddleButton); // the cross has a blank cursor
    mouse.release(QPoint(200, 200), Qt::MiddleButton);
    ASSERT_EQ(chart.widget->cursor().shape(), Qt::BlankCursor);
    QEvent enter(QEvent::Enter), leave(QEvent::Leave);
    QCoreApplication::sendEvent(bar, &enter);
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::ArrowCursor);
    QCoreApplication::sendEvent(bar, &leave);
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::BlankCursor);
    QCoreApplication::sendEvent(bar, &leave); // a second one finds nothing to put back
    EXPECT_EQ(chart.widget->cursor().shape(), Qt::BlankCursor);
    mouse.press(QPoint(200, 200), Qt::MiddleButton);
}

TEST_F(ZoomAndScroll, AHiddenWindowDoesNotZoom) {
    addSeries();
    chart.outer->hide();
    host.send(3550u);
    host.send(3552u, 0, -100);
    chart.outer->show();
    EXPECT_EQ(bar->pageStep(), 60);
    EXPECT_EQ(host.milestones, QStringList());
    host.send(3550u);
    EXPECT_EQ(bar->pageStep(), 46);
    EXPECT_TRUE(host.milestones.contains("Zoom in"));
    host.send(3551u);
    EXPECT_TRUE(host.milestones.contains("Zoom out"));
}

TEST_F(ZoomAndScroll, TheSliderFollowsThePositions) {
    addSeries();
    EXPECT_EQ(host.slider->minimum(), -530);
    EXPECT_EQ(host.slider->value(), -60);
}

TEST_F(ZoomAndScroll, TheSliderZooms) {
    addSeries();
    host.slider->setValue(-100);
    EXPECT_EQ(bar->pageStep(), 100);
    EXPECT_EQ(bar->minimum(), 100);
    EXPECT_EQ(bar->maximum(), 530);
    EXPECT_EQ(host.slider->maximum(), -10);
    EXPECT_EQ(host.milestones, QStringList("Change zoom"));
}

TEST_F(ZoomAndScroll, FewerThanTenAreTen) {
    addSeries();
    host.send(3552u, 0, -3);
    EXPECT_EQ(bar->pageStep(), 10);
    host.send(3552u, 0, 25);
    EXPECT_EQ(bar->pageStep(), 10);
}

TEST_F(ZoomAndScroll, MoreThanThePositionsWidensTheRange) {
    addSeries();
    host.send(3552u, 0, -700);
    EXPECT_EQ(bar->pageStep(), 700);
    EXPECT_EQ(bar->maximum(), 700);
    EXPECT_EQ(bar->value(), 700);
    EXPECT_EQ(host.slider->minimum(), -700);
    host.grab(chart);
}

TEST_F(ZoomAndScroll, ZoomMessagesActOnTheCurrentWindow) {
    addSeries();
    EXPECT_EQ(host.send(3550u, 0, 0), 0);
    EXPECT_EQ(bar->pageStep(), 46);
    EXPECT_EQ(host.send(3551u, 0, 0), 0);
    EXPECT_EQ(bar->pageStep(), 59);
    EXPECT_EQ(host.send(3550u, 1, 0), 0);
    EXPECT_EQ(bar->pageStep(), 59);
    Chart other = host.createChart();
    host.send(3550u, 0, 0); // the other one has the focus, and nothing to zoom
    EXPECT_EQ(bar->pageStep(), 59);
}

TEST_F(ZoomAndScroll, AWindowWithoutSeriesDoesNotZoom) {
    host.milestones.clear();
    host.send(3550u, 0, 0);
    host.send(3552u, 0, -100);
    EXPECT_TRUE(host.milestones.isEmpty());
}

TEST_F(ZoomAndScroll, SixPositionsAreFewerThanTen) {
    host.setHistory("GBPUSD", makeBars(6));
    host.addInstrument(chart, "GBPUSD");
    host.tick();
    bar = scrollBarOf(chart);
    EXPECT_EQ(bar->maximum(), 60); // 36 positions of 60
    host.send(3550u, 0, 0);
    EXPECT_EQ(bar->pageStep(), 36);
}

TEST_F(ZoomAndScroll, AScrollStepIsOneFrame) {
    addSeries();
    button("Auto scroll")->click();
    host.settle();
    host.log.clear();
    host.milestones.clear();
    bar->setValue(400);
    EXPECT_EQ(framesLogged(), 1);
    EXPECT_EQ(host.milestones, QStringList("Scroll"));
    host.settle();
    EXPECT_EQ(framesLogged(), 1);
}

TEST_F(ZoomAndScroll, AutoScrollFollowsNewCandles) {
    addSeries();
    bar->setValue(503);
    Bar next = series->array().bar(499);
    for (int i = 1; i <= 3; ++i) {
        next.time += 3600;
        host.appendBar(series, next);
        host.update(series);
        host.tick();
        EXPECT_EQ(bar->value(), 503 + i);
    }
    EXPECT_EQ(bar->maximum(), 533);
}

TEST_F(ZoomAndScroll, WithAutoScrollOffTheViewStays) {
    addSeries();
    button("Auto scroll")->click();
    bar->setValue(503);
    Bar next = series->array().bar(499);
    next.time += 3600;
    host.appendBar(series, next);
    host.update(series);
    host.tick();
    EXPECT_EQ(bar->value(), 503);
}

TEST_F(ZoomAndScroll, AViewFarRightOfTheLastCandleStays) {
    addSeries();
    bar->setValue(520); // 20 right of the last candle
    Bar next = series->array().bar(499);
    next.time += 3600;
    host.appendBar(series, next);
    host.update(series);
    host.tick();
    EXPECT_EQ(bar->value(), 520);
}

TEST_F(ZoomAndScroll, OlderDataLeaveTheViewOnItsCandle) {
    addSeries();
    button("Auto scroll")->click();
    bar->setValue(300);
    std::vector<Bar> longer = makeBars(100, 1388534400 - 100 * 3600);
    const std::vector<Bar> own = makeBars(500);
    longer.insert(longer.end(), own.begin(), own.end());
    series->array().setCandles(longer);
    host.update(series, 1);
    EXPECT_EQ(bar->maximum(), 630);
    EXPECT_EQ(bar->value(), 400);
}

TEST_F(ZoomAndScroll, TheLeftButtonAsksForOlderData) {
    addSeries();
    button("Extend chart left edge")->click();
    EXPECT_EQ(host.count(3048), 1);
    EXPECT_EQ(host.count(3061), 1);
}

TEST_F(ZoomAndScroll, AutoScrollOnBringsTheLastCandleBack) {
    addSeries();
    button("Auto scroll")->click(); // off
    bar->setValue(100);
    host.milestones.clear();
    button("Auto scroll")->click();
    EXPECT_EQ(bar->value(), 503);
    EXPECT_TRUE(host.milestones.contains("Auto scroll positions"));
}

TEST_F(ZoomAndScroll, AMoveOfTheCrossCostsNoFrame) {
    addSeries();
    Mouse mouse(chart);
    mouse.press(QPoint(200, 200), Qt::MiddleButton);
    mouse.release(QPoint(200, 200), Qt::MiddleButton);
    mouse.move(QPoint(210, 200));
    host.settle();
    host.log.clear();
    host.clearTraffic();
    for (int x = 220; x < 320; x += 10)
        mouse.move(QPoint(x, 240));
    host.settle();
    EXPECT_EQ(framesLogged(), 0);
    EXPECT_EQ(host.count(3119), 0); // no title was formed
    // A quote makes the next picture a new one.
    host.update(series);
    mouse.move(QPoint(330, 240));
    EXPECT_EQ(framesLogged(), 1);
}

// Under the tool bar, which the host puts over the chart's first rows.
static QImage lowerPart(const QImage &picture) {
    return picture.copy(0, 40, picture.width(), picture.height() - 40).convertToFormat(QImage::Format_RGB32);
}

// What stands on the screen, as it was painted last.
static QImage screenOf(const Chart &chart) {
    const QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(chart.outer->winId());
    return shot.toImage().convertToFormat(QImage::Format_RGB32);
}

TEST_F(ZoomAndScroll, TheCrossOfAMoveIsThatOfAFullFrame) {
    addSeries();
    Mouse mouse(chart);
    const QImage without = host.grab(chart).convertToFormat(QImage::Format_RGB32);
    mouse.press(QPoint(200, 200), Qt::MiddleButton);
    mouse.release(QPoint(200, 200), Qt::MiddleButton);
    for (int x = 210; x <= 400; x += 19)
        mouse.move(QPoint(x, x + 11));
    const QImage moved = screenOf(chart); // the last move to 400, 411
    ASSERT_EQ(moved.size(), without.size());
    EXPECT_EQ(lowerPart(moved), lowerPart(host.grab(chart)));
    int row = 0, column = 0, trail = 0;
    for (int x = 60; x < 740; ++x) {
        row += moved.pixel(x, 411) != without.pixel(x, 411);
        trail += moved.pixel(x, 392) != without.pixel(x, 392);
    }
    for (int y = 2; y < 550; ++y)
        column += moved.pixel(400, y) != without.pixel(400, y);
    EXPECT_EQ(row, 679); // all but where the lines meet
    EXPECT_EQ(column, 547);
    EXPECT_EQ(trail, 1); // the vertical line alone
    EXPECT_EQ(moved.pixel(100, 411) ^ without.pixel(100, 411), 0x999999u);
    mouse.press(QPoint(400, 411), Qt::MiddleButton); // off again
    EXPECT_EQ(host.grab(chart).convertToFormat(QImage::Format_RGB32), without);
}

TEST_F(ZoomAndScroll, TheCrossGoesWithTheMouse) {
    addSeries();
    Mouse mouse(chart);
    const QImage without = host.grab(chart);
    mouse.press(QPoint(200, 200), Qt::MiddleButton);
    mouse.release(QPoint(200, 200), Qt::MiddleButton);
    mouse.move(QPoint(300, 300));
    EXPECT_NE(host.grab(chart), without);
    host.locatorCalls = 0;
    mouse.leave(); // whatever place the toolkit still tells
    host.settle();
    EXPECT_EQ(lowerPart(screenOf(chart)), lowerPart(without));
    EXPECT_EQ(host.grab(chart), without);
    EXPECT_EQ(host.locatorCalls, 0);
    const QPointF place(310, 300);
    QEnterEvent back(place, place, chart.widget->mapToGlobal(place.toPoint()));
    QCoreApplication::sendEvent(chart.widget, &back);
    EXPECT_NE(host.grab(chart), without);
    mouse.press(QPoint(310, 300), Qt::MiddleButton);
}

TEST_F(ZoomAndScroll, NoMoveLeavesATrail) {
    addSeries();
    pressKey(chart, Qt::Key_N);
    Mouse mouse(chart);
    mouse.press(QPoint(200, 200), Qt::MiddleButton);
    mouse.release(QPoint(200, 200), Qt::MiddleButton);
    unsigned step = 12345;
    for (int i = 0; i < 60; ++i) {
        step = step * 1103515245u + 12345u;
        mouse.move(QPoint(static_cast<int>(step >> 8) % 800, static_cast<int>(step >> 4) % 600));
        if (i % 7 == 3)
            mouse.leave();
        host.settle();
        ASSERT_EQ(lowerPart(screenOf(chart)), lowerPart(host.grab(chart))) << i;
    }
}

TEST_F(ZoomAndScroll, TheBandOfAMoveIsThatOfAFullFrame) {
    addSeries();
    Mouse mouse(chart);
    mouse.press(QPoint(200, 557));
    for (int x = 210; x <= 400; x += 19)
        mouse.move(QPoint(x, 557));
    mouse.move(QPoint(300, 557));
    const QImage moved = screenOf(chart);
    EXPECT_EQ(lowerPart(moved), lowerPart(host.grab(chart)));
    mouse.leave();
    mouse.release(QPoint(210, 557));
}

// ---- hosts whose slider is another one ----

namespace {

// A host gives its slider in the out word or as the result, and takes its changes back at once, later or
// never.
enum class Echo { AtOnce, Later, Never };

class ZoomSliders : public testing::TestWithParam<Echo> {
protected:
    ZoomSliders() {
        QObject::connect(&slider, &QSlider::valueChanged, [this](int value) {
            if (GetParam() == Echo::AtOnce)
                host.send(3552u, 0, value);
            else if (GetParam() == Echo::Later)
                queue.push_back(value);
        });
        host.answer(3552, [this](void *, int, int lParam) {
            bytes::put<QSlider *>(fromWord<void>(lParam), 0, &slider);
            return 0;
        });
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.tick();
        bar = scrollBarOf(chart);
        workOff();
    }
    void workOff() {
        while (!queue.empty()) {
            const int value = queue.front();
            queue.erase(queue.begin());
            host.send(3552u, 0, value);
        }
        host.settle();
    }

    std::vector<int> queue;
    QSlider slider; // with the range of a new slider, 0 to 99
    FakeHost host;
    Chart chart;
    QScrollBar *bar = nullptr;
};

} // namespace

TEST_P(ZoomSliders, ShowTheWindowAndLeaveItsZoomAlone) {
    EXPECT_EQ(slider.minimum(), -530);
    EXPECT_EQ(slider.value(), -60);
    EXPECT_EQ(bar->pageStep(), 60);
    const int expected[] = {46, 35, 26, 20, 15, 11, 10, 10};
    for (const int points : expected) {
        host.send(3550u);
        workOff();
        EXPECT_EQ(bar->pageStep(), points);
        EXPECT_EQ(slider.value(), -points);
    }
    host.send(3551u);
    workOff();
    EXPECT_EQ(bar->pageStep(), 13);
    EXPECT_EQ(slider.value(), -13);
    host.tick();
    workOff();
    EXPECT_EQ(bar->pageStep(), 13);
}

TEST_P(ZoomSliders, AUsersDragZooms) {
    host.send(3552u, 8, slider.value());
    slider.setValue(-200);
    if (GetParam() == Echo::Never)
        host.send(3552u, 0, -200);
    workOff();
    EXPECT_EQ(bar->pageStep(), 200);
    EXPECT_EQ(slider.value(), -200);
    EXPECT_EQ(slider.minimum(), -530);
    EXPECT_EQ(slider.maximum(), -10);
}

TEST_P(ZoomSliders, AnotherWindowInFrontShowsItsOwnZoom) {
    host.setHistory("GBPUSD", makeBars(100));
    Chart other = host.createChart();
    host.addInstrument(other, "GBPUSD");
    host.tick();
    workOff();
    host.send(3552u, 0, -30);
    workOff();
    EXPECT_EQ(scrollBarOf(other)->pageStep(), 30);
    host.send(5009u, chart.handle);
    workOff();
    EXPECT_EQ(slider.minimum(), -530);
    EXPECT_EQ(slider.value(), -60);
    host.send(3552u, 0, -300);
    workOff();
    host.send(5009u, other.handle);
    workOff();
    EXPECT_EQ(slider.value(), -30);
    EXPECT_EQ(scrollBarOf(other)->pageStep(), 30);
    EXPECT_EQ(bar->pageStep(), 300);
}

TEST_P(ZoomSliders, SixPositionsStaySix) {
    host.setHistory("GBPUSD", makeBars(6));
    Chart small = host.createChart();
    host.addInstrument(small, "GBPUSD");
    PROPERTY_PAGE *page = host.pages.rbegin()->second;
    static_cast<propertyInt *>(page->groups[0].items[4]->value)->value = 0; // free space positions
    PROPERTY_CHANGE change{host.moduleInterface(), small.handle, page};
    host.send(10054u, &change);
    host.tick();
    workOff();
    QScrollBar *smallBar = scrollBarOf(small);
    ASSERT_EQ(smallBar->maximum(), smallBar->pageStep());
    host.send(3550u);
    workOff();
    EXPECT_EQ(smallBar->pageStep(), 6);
    EXPECT_EQ(smallBar->maximum(), 6);
    host.update(host.lastObject());
    host.tick();
    workOff();
    EXPECT_EQ(smallBar->pageStep(), 6);
    host.send(5009u, chart.handle);
    host.send(5009u, small.handle);
    workOff();
    EXPECT_EQ(smallBar->pageStep(), 6);
    host.send(3550u);
    workOff();
    EXPECT_EQ(smallBar->pageStep(), 6);
}

INSTANTIATE_TEST_SUITE_P(OfOtherHosts, ZoomSliders, testing::Values(Echo::AtOnce, Echo::Later, Echo::Never));

TEST_F(ZoomAndScroll, AHostMayChangeItsSlider) {
    addSeries();
    auto second = std::make_unique<QSlider>();
    host.answer(3552, [&second](void *, int, int lParam) {
        bytes::put<QSlider *>(fromWord<void>(lParam), 0, second.get());
        return 0;
    });
    host.send(5009u, chart.handle);
    EXPECT_EQ(second->minimum(), -530);
    EXPECT_EQ(second->value(), -60);
    host.send(3550u);
    EXPECT_EQ(second->value(), -46);
    EXPECT_EQ(host.slider->value(), -60);
    second = std::make_unique<QSlider>();
    host.send(3550u);
    EXPECT_EQ(bar->pageStep(), 35);
}

TEST_F(ZoomAndScroll, WithoutASliderTheWindowZooms) {
    addSeries();
    host.hasWidgets = false;
    host.send(3550u);
    EXPECT_EQ(bar->pageStep(), 46);
    host.send(3552u, 0, -90);
    EXPECT_EQ(bar->pageStep(), 90);
    host.tick();
    Mouse(chart).wheel(120, Qt::ControlModifier); // no slider: it scrolls
    EXPECT_EQ(bar->pageStep(), 90);
    EXPECT_EQ(host.slider->value(), -60);
}
