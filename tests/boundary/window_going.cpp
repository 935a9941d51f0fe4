// A chart window that the host deletes while it paints.
#include "tests/boundary/InputDriver.h"

#include <gtest/gtest.h>

namespace {

class WindowGoing : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(200));
        FakeIndicator two; // each line has a title that asks the host
        two.name = two.displayName = "TWO";
        two.outputs.resize(2);
        for (FakeOutput &output : two.outputs)
            output.placement = 3; // a pane of its own
        two.outputs[0].name = "upper";
        two.outputs[1].name = "lower";
        host.addIndicatorKind(two);
    }

    Chart makeChart() {
        Chart chart = host.createChart();
        series = host.addInstrument(chart, "EURUSD");
        host.addIndicator(chart, "TWO");
        host.tick();
        host.settle();
        host.clearTraffic();
        return chart;
    }
    /// The window goes at the nth call from now on; false when there were fewer.
    bool deleteAtCall(Chart &chart, int nth, const std::function<void()> &work) {
        int left = nth;
        int result = -1;
        host.setInterruption([&](const Call &) {
            if (chart.handle && --left == 0) {
                result = host.send(ToModule::DeleteWindow, chart.handle);
                chart.handle = nullptr;
            }
        });
        work();
        host.setInterruption(nullptr);
        EXPECT_EQ(result, chart.handle ? -1 : 0);
        return result == 0;
    }
    void expectGone(const Chart &chart, const void *handle) {
        EXPECT_EQ(host.send(ToModule::Show, handle), 1); // unknown from now on
        host.settle();
        EXPECT_FALSE(chart.widget);
        EXPECT_EQ(host.count(3150), 1);
        EXPECT_EQ(host.count(10055), 1);
        EXPECT_EQ(series->subscribers.size(), 0u);
    }

    FakeHost host;
    FakeObject *series = nullptr;
};

} // namespace

TEST_F(WindowGoing, AtEachCallOfAFrame) {
    bool deleted = true;
    int calls = 0;
    for (int nth = 1; deleted && nth < 40; ++nth) {
        Chart chart = makeChart();
        const void *handle = chart.handle;
        deleted = deleteAtCall(chart, nth, [&] { chart.widget->grab(); });
        if (deleted)
            expectGone(chart, handle);
        calls += deleted;
        host.deleteChart(chart);
    }
    EXPECT_GT(calls, 1);
    EXPECT_FALSE(deleted);
}

TEST_F(WindowGoing, AtEachCallOfAFrameOnTheScreen) {
    bool deleted = true;
    for (int nth = 1; deleted && nth < 40; ++nth) {
        Chart chart = makeChart();
        const void *handle = chart.handle;
        deleted = deleteAtCall(chart, nth, [&] { chart.widget->repaint(); });
        if (deleted)
            expectGone(chart, handle);
        EXPECT_TRUE(deleted || nth > 1);
        host.deleteChart(chart);
    }
}

TEST_F(WindowGoing, WhileAFrameIsKeptUnderTheCrossOrUnderAScaleDrag) {
    for (int nth = 1; nth <= 6; ++nth) {
        for (const bool scale : {false, true}) {
            Chart chart = makeChart();
            Mouse mouse(chart);
            deleteAtCall(chart, nth, [&] {
                if (scale) {
                    mouse.press(QPoint(790, 100));
                    mouse.move(QPoint(790, 140));
                } else {
                    mouse.press(QPoint(200, 200), Qt::MiddleButton);
                    mouse.move(QPoint(210, 210));
                }
            });
            host.settle();
            EXPECT_EQ(chart.widget.isNull(), chart.handle == nullptr);
            host.deleteChart(chart);
        }
    }
    host.crossCursor = 0;
}

TEST_F(WindowGoing, NoFrameIsPaintedOfAWindowThatGoes) {
    Chart chart = makeChart();
    QWidget *widget = chart.widget;
    ASSERT_TRUE(deleteAtCall(chart, 1, [&] { chart.widget->repaint(); }));
    ASSERT_EQ(chart.widget, widget);
    EXPECT_FALSE(widget->isVisible());
    host.clearTraffic();
    host.tick();
    widget->repaint();
    EXPECT_EQ(host.hostCalls(), 0);
    host.settle();
    host.deleteChart(chart);
}

TEST_F(WindowGoing, TheRunEndsBeforeTheWindowIsGone) {
    Chart chart = makeChart();
    ASSERT_TRUE(deleteAtCall(chart, 1, [&] { chart.widget->repaint(); }));
    host.send(ToModule::Stop);
    EXPECT_FALSE(chart.widget);
    EXPECT_EQ(host.count(10055), 1);
    host.deleteChart(chart);
}

TEST_F(WindowGoing, TheRunEndsWhileAWindowPaints) {
    Chart chart = makeChart();
    bool stopped = false;
    host.setInterruption([&](const Call &) {
        if (!stopped)
            host.send(ToModule::Stop);
        stopped = true;
    });
    chart.widget->repaint();
    host.setInterruption(nullptr);
    EXPECT_TRUE(stopped);
    EXPECT_EQ(host.send(ToModule::Show, chart.handle), 1);
    host.settle();
    EXPECT_FALSE(chart.widget);
    chart.handle = nullptr;
    host.deleteChart(chart);
}
