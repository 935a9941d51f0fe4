// From a quote to the positions on the axis.
#include "tests/support/WindowView.h"

#include <QScrollBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

constexpr int start = 1388534400; // 2014-01-01
constexpr int hour = 3600;
constexpr int freePositions = 30;

struct WindowPositions : testing::Test {
    FakeHost host;
    Chart chart = host.createChart();

    QScrollBar *bar() { return qobject_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar")); }
    int axisSize() { return bar()->maximum(); }
    FakeObject *add(const QString &symbol, const std::vector<Bar> &bars, char letter = 'I', int length = 60) {
        host.setHistory(symbol, bars);
        return host.addInstrument(chart, symbol, letter, length);
    }
    int rebuilds() const {
        int found = 0;
        for (const LogLine &line : host.log)
            found += line.text.startsWith("CRGraphWidget::UpdatePrimitivePositions started");
        return found;
    }
    int frames() const {
        int found = 0;
        for (const LogLine &line : host.log)
            found += line.text.startsWith("DrawAll continue");
        return found;
    }
    int positionsLogged() const {
        for (auto line = host.log.rbegin(); line != host.log.rend(); ++line) {
            if (line->text.startsWith("pos count = "))
                return line->text.mid(12).section('|', 0, 0).toInt();
        }
        return -1;
    }
    Bar next(FakeObject *object) {
        Bar bar = object->array().bar(object->array().count() - 1);
        bar.time += hour;
        return bar;
    }
};

TEST_F(WindowPositions, AxisHoldsTheBarsAndTheFreeSpace) {
    ASSERT_NE(add("EUR", makeBars(200, start, hour)), nullptr);
    EXPECT_EQ(axisSize(), 200 + freePositions);
    EXPECT_EQ(positionsLogged(), 200 + freePositions);
}

TEST_F(WindowPositions, SeriesOfDifferentPeriodsMerge) {
    add("EUR", makeBars(100, start, hour));
    add("GBP", makeBars(200, start, hour / 2), 'I', 30);
    EXPECT_EQ(axisSize(), 200 + freePositions);
}

TEST_F(WindowPositions, SeriesBesideEachOtherInTimeShareNoPosition) {
    add("EUR", makeBars(100, start, hour));
    add("GBP", makeBars(100, start + 1000 * hour, hour));
    EXPECT_EQ(axisSize(), 200 + freePositions);
}

TEST_F(WindowPositions, SeriesWithoutDataKeepsAnEmptyAxis) {
    ASSERT_NE(add("EUR", {}), nullptr);
    EXPECT_EQ(bar()->maximum(), bar()->minimum()); // nothing to scroll
    EXPECT_EQ(positionsLogged(), -1);
    EXPECT_FALSE(host.grab(chart).isNull());
}

TEST_F(WindowPositions, QuotesAreServedOnceASecond) {
    FakeObject *euro = add("EUR", makeBars(200, start, hour));
    host.settle();
    host.log.clear();
    for (int i = 0; i < 10; ++i) {
        host.appendBar(euro, next(euro));
        host.update(euro, 0);
    }
    EXPECT_EQ(rebuilds(), 0);
    EXPECT_EQ(axisSize(), 200 + freePositions);
    host.tick();
    EXPECT_EQ(rebuilds(), 1);
    EXPECT_EQ(axisSize(), 210 + freePositions);
    host.tick();
    EXPECT_EQ(rebuilds(), 1); // nothing is due any more
}

TEST_F(WindowPositions, ReplacedArraysAreServedAtOnce) {
    FakeObject *euro = add("EUR", makeBars(200, start, hour));
    host.log.clear();
    host.appendBar(euro, next(euro));
    host.update(euro, 1);
    EXPECT_GE(rebuilds(), 1);
    EXPECT_EQ(axisSize(), 201 + freePositions);
}

TEST_F(WindowPositions, ViewStaysOnItsCandleWhenHistoryGrows) {
    FakeObject *euro = add("EUR", makeBars(200, start, hour));
    bar()->setValue(150);
    std::vector<Bar> longer = makeBars(100, start - 100 * hour, hour);
    for (int i = 0; i < 200; ++i)
        longer.push_back(euro->array().bar(i));
    euro->array().setCandles(longer);
    host.update(euro, 1);
    EXPECT_EQ(axisSize(), 300 + freePositions);
    EXPECT_EQ(bar()->value(), 250);
}

TEST_F(WindowPositions, HiddenWindowIsServedWhenItShows) {
    FakeObject *euro = add("EUR", makeBars(200, start, hour));
    host.settle();
    chart.widget->hide();
    host.appendBar(euro, next(euro));
    host.update(euro, 0);
    host.log.clear();
    host.tick();
    EXPECT_EQ(rebuilds(), 0);
    EXPECT_EQ(axisSize(), 200 + freePositions);
    chart.widget->show();
    host.send(ToModule::Show, chart.handle);
    host.tick();
    EXPECT_EQ(rebuilds(), 1);
    EXPECT_EQ(axisSize(), 201 + freePositions);
}

TEST_F(WindowPositions, TickPaintsOneFrame) {
    FakeObject *euro = add("EUR", makeBars(200, start, hour));
    host.settle();
    host.tick();
    host.settle();
    host.log.clear();
    host.changeLastBar(euro, {start + 199 * hour, 1.3f, 1.4f, 1.2f, 1.35f, 1});
    host.update(euro, 0);
    host.settle();
    EXPECT_EQ(frames(), 1); // the message asks for it
    host.tick();
    host.settle();
    EXPECT_EQ(frames(), 2); // the tick brings the rebuilt positions
    host.tick();
    host.settle();
    EXPECT_EQ(frames(), 2);
}

TEST_F(WindowPositions, RebuildClearsOnlyWithSeries) {
    add("EUR", makeBars(200, start, hour));
    host.log.clear();
    host.tick();
    EXPECT_EQ(rebuilds(), 0);
}

TEST_F(WindowPositions, OlderDataAreAskedForHalfAScreen) {
    FakeObject *euro = add("EUR", makeBars(200, start, hour));
    ASSERT_NE(euro, nullptr);
    QToolButton *left = nullptr;
    for (QWidget *button : chart.widget->findChildren<QToolButton *>()) {
        if (button->toolTip() == "Extend chart left edge")
            left = qobject_cast<QToolButton *>(button);
    }
    ASSERT_NE(left, nullptr);
    host.clearTraffic();
    left->click();
    const auto calls = host.callsOf(ToHost::OlderData);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].target, fromWord<void>(host.interfaceOf("CANDLE")));
    EXPECT_EQ(static_cast<Word>(calls[0].wParam), euro->handle);
    EXPECT_EQ(calls[0].lParam, 30 * hour); // 60 positions on the screen
    EXPECT_EQ(host.callsOf(ToHost::InterfaceOfObject).size(), 1u);
}

TEST_F(WindowPositions, LaterSeriesAsksForMore) {
    add("EUR", makeBars(200, start, hour));
    add("GBP", makeBars(100, start + 100 * hour, hour));
    QToolButton *left = nullptr;
    for (QToolButton *button : chart.widget->findChildren<QToolButton *>()) {
        if (button->toolTip() == "Extend chart left edge")
            left = button;
    }
    ASSERT_NE(left, nullptr);
    host.clearTraffic();
    left->click();
    const auto calls = host.callsOf(ToHost::OlderData);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[1].lParam - calls[0].lParam, 100 * hour);
}

TEST_F(WindowPositions, EmptyWindowAsksForNothing) {
    for (QToolButton *button : chart.widget->findChildren<QToolButton *>()) {
        if (button->toolTip() == "Extend chart left edge")
            button->click();
    }
    EXPECT_EQ(host.count(ToHost::OlderData), 0);
}

} // namespace
