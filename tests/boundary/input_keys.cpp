// The keys of a chart window, one by one.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

#include <gtest/gtest.h>

namespace {

class Keys : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart();
        series = host.addInstrument(chart, "EURUSD");
        host.tick();
        host.settle();
        bar = scrollBarOf(chart);
        turnAutoScrollOff();
        bar->setValue(503);
        host.clearTraffic();
        host.milestones.clear();
    }
    // With auto scroll on the rebuild behind each key would take the view back to the last candle.
    void turnAutoScrollOff() {
        for (QWidget *button : childrenOfClass(chart.widget, "QToolButton")) {
            if (static_cast<QAbstractButton *>(button)->toolTip() == "Auto scroll")
                static_cast<QAbstractButton *>(button)->click();
        }
    }

    FakeHost host;
    Chart chart;
    FakeObject *series = nullptr;
    QScrollBar *bar = nullptr;
};

} // namespace

TEST_F(Keys, StartWithSixtyPositionsAndTheFreeSpace) {
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->pageStep(), 60);
    EXPECT_EQ(bar->minimum(), 60);
    EXPECT_EQ(bar->maximum(), 530); // 30 free positions
    Chart fresh = host.createChart();
    host.addInstrument(fresh, "EURUSD");
    host.tick();
    EXPECT_EQ(scrollBarOf(fresh)->value(), 530); // an added instrument shows its end
}

TEST_F(Keys, PlusAndEqualZoomIn) {
    pressKey(chart, Qt::Key_Plus);
    EXPECT_EQ(bar->pageStep(), 46);
    pressKey(chart, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(bar->pageStep(), 35);
    EXPECT_EQ(host.milestones.count("Zoom in"), 2);
    EXPECT_EQ(host.slider->value(), -35);
}

TEST_F(Keys, MinusZoomsOut) {
    pressKey(chart, Qt::Key_Minus);
    EXPECT_EQ(bar->pageStep(), 78);
    EXPECT_EQ(host.milestones.count("Zoom out"), 1);
}

TEST_F(Keys, ZoomInEndsAtTen) {
    for (int i = 0; i < 12; ++i)
        pressKey(chart, Qt::Key_Plus);
    EXPECT_EQ(bar->pageStep(), 10);
    EXPECT_EQ(bar->minimum(), 10);
}

TEST_F(Keys, ZoomOutEndsAtAllPositions) {
    for (int i = 0; i < 20; ++i)
        pressKey(chart, Qt::Key_Minus);
    EXPECT_EQ(bar->pageStep(), 530);
    EXPECT_EQ(bar->value(), 530);
}

TEST_F(Keys, ScrollKeys) {
    const int start = bar->value();
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
        int value;
    } steps[] = {
        {Qt::Key_Left, Qt::NoModifier, start - 1},
        {Qt::Key_Left, Qt::AltModifier, start - 11},
        {Qt::Key_Right, Qt::NoModifier, start - 10},
        {Qt::Key_Right, Qt::AltModifier, start},
        {Qt::Key_PageDown, Qt::NoModifier, start - 60},
        {Qt::Key_PageUp, Qt::NoModifier, start},
        {Qt::Key_Left, Qt::ControlModifier, 60},
        {Qt::Key_Left, Qt::NoModifier, 60}, // no further than that
        {Qt::Key_Right, Qt::ControlModifier, 530},
        {Qt::Key_Right, Qt::NoModifier, 530},
        {Qt::Key_Home, Qt::NoModifier, 60},
        {Qt::Key_End, Qt::NoModifier, 530},
    };
    for (const auto &step : steps) {
        pressKey(chart, step.key, step.modifiers);
        EXPECT_EQ(bar->value(), step.value) << step.key << ' ' << int(step.modifiers);
    }
}

TEST_F(Keys, AScrollStepIsOneMilestone) {
    pressKey(chart, Qt::Key_Left);
    EXPECT_EQ(host.milestones, QStringList("Scroll"));
}

TEST_F(Keys, NAddsAnArea) {
    pressKey(chart, Qt::Key_N);
    EXPECT_TRUE(host.milestones.contains("Create area"));
    // A window with two panes has a close box in each: a click on the second one's takes it away.
    Mouse mouse(chart);
    host.grab(chart);
    host.milestones.clear();
    const int chartHeight = chart.widget->height() - bar->height() - 26;
    mouse.click(QPoint(chart.widget->width() - 5, chartHeight / 2 + 6));
    EXPECT_EQ(host.milestones, QStringList("")); // the desktop changed
}

TEST_F(Keys, ControlASelectsAndDeleteRemoves) {
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(series->subscribers.count(chart.handle), 1u);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_EQ(series->subscribers.count(chart.handle), 0u);
    EXPECT_TRUE(host.milestones.contains("keyPressEvent"));
}

TEST_F(Keys, DeleteWithoutASelectionDoesNothing) {
    pressKey(chart, Qt::Key_Delete);
    EXPECT_EQ(series->subscribers.count(chart.handle), 1u);
    EXPECT_FALSE(host.milestones.contains("keyPressEvent"));
}

TEST_F(Keys, PlainASelectsNothing) {
    pressKey(chart, Qt::Key_A);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_EQ(series->subscribers.count(chart.handle), 1u);
}

TEST_F(Keys, ControlXActsAsDelete) {
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    pressKey(chart, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(series->subscribers.count(chart.handle), 0u);
}

TEST_F(Keys, EscapeClearsAnArmedTool) {
    pressKey(chart, Qt::Key_Escape);
    EXPECT_EQ(host.count(3501), 0);
    host.toolState.armed = 1;
    pressKey(chart, Qt::Key_Escape);
    EXPECT_EQ(host.count(3501), 1);
}

TEST_F(Keys, EscapeLeavesTheCrossCursorOn) {
    Mouse(chart).press(QPoint(200, 200), Qt::MiddleButton);
    ASSERT_EQ(host.crossCursor, 1u);
    host.clearTraffic();
    pressKey(chart, Qt::Key_Escape);
    EXPECT_EQ(host.crossCursor, 1u);
    EXPECT_EQ(host.count(3555), 1); // told once more
    Mouse(chart).press(QPoint(200, 200), Qt::MiddleButton);
    EXPECT_EQ(host.crossCursor, 0u);
}

TEST_F(Keys, TheBraceRefreshesEveryWindow) {
    host.log.clear();
    pressKey(chart, Qt::Key_BraceLeft, Qt::ShiftModifier);
    bool refreshed = false;
    for (const LogLine &line : host.log)
        refreshed |= line.text.contains("UpdateAllScreenBuffer");
    EXPECT_TRUE(refreshed);
}

TEST_F(Keys, AnUnknownKeyChangesNothing) {
    const int value = bar->value();
    pressKey(chart, Qt::Key_B);
    EXPECT_EQ(bar->value(), value);
    EXPECT_TRUE(host.milestones.isEmpty());
}

TEST_F(Keys, EveryKeyRebuildsThePositionsOnce) {
    for (const int key : {Qt::Key_B, Qt::Key_A, Qt::Key_Escape, Qt::Key_Home, Qt::Key_Delete, Qt::Key_F5}) {
        const int before = chart.handle->m_nUpdateCount;
        pressKey(chart, key);
        EXPECT_EQ(chart.handle->m_nUpdateCount, before + 1) << key;
    }
}

TEST_F(Keys, AKeyWithoutASelectionSaysThereIsOne) {
    chart.handle->m_pressHadSelection = false;
    pressKey(chart, Qt::Key_A);
    EXPECT_TRUE(chart.handle->m_pressHadSelection);
    EXPECT_FALSE(viewOf(chart).series[0].selected);
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(viewOf(chart).series[0].selected);
}

TEST_F(Keys, NothingIsTakenWhileAWorkspaceLoads) {
    chart.handle->m_loading = true;
    const int value = bar->value();
    host.clearTraffic();
    Mouse mouse(chart);
    pressKey(chart, Qt::Key_Plus);
    pressKey(chart, Qt::Key_Home);
    pressKey(chart, Qt::Key_N);
    mouse.doubleClick(QPoint(400, 300));
    mouse.press(QPoint(400, 300), Qt::MiddleButton);
    mouse.wheel(120);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(chart.widget, &enter);
    mouse.leave();
    EXPECT_EQ(host.hostCalls(), 0);
    EXPECT_EQ(bar->value(), value);
    EXPECT_EQ(bar->pageStep(), 60);
    chart.handle->m_loading = false;
}

TEST_F(Keys, WithAutoScrollOnTheViewComesBack) {
    turnAutoScrollOff(); // a second click: on again
    pressKey(chart, Qt::Key_Home);
    EXPECT_EQ(bar->value(), 503);
}

TEST_F(Keys, WheelScrollsAndZooms) {
    Mouse mouse(chart);
    const int start = bar->value();
    mouse.wheel(120);
    EXPECT_EQ(bar->value(), start - 1);
    mouse.wheel(-360);
    EXPECT_EQ(bar->value(), start + 2);
    mouse.wheel(119);
    EXPECT_EQ(bar->value(), start + 2);
    mouse.wheel(-119);
    EXPECT_EQ(bar->value(), start + 2);
    mouse.wheel(120, Qt::AltModifier);
    EXPECT_EQ(bar->value(), start - 8);
    mouse.wheel(120, Qt::ControlModifier);
    EXPECT_EQ(host.slider->value(), -59);
    EXPECT_EQ(bar->value(), start - 8);
}

TEST_F(Keys, WithoutASliderControlWheelScrolls) {
    host.hasWidgets = false;
    const int start = bar->value();
    Mouse(chart).wheel(120, Qt::ControlModifier);
    EXPECT_EQ(bar->value(), start - 1);
}

TEST_F(Keys, TheWindowGoesInTheMiddleOfAWheel) {
    host.setInterruption([&](const Call &call) {
        if (call.message == 3552 && chart.handle)
            host.deleteChart(chart);
    });
    Mouse(chart).wheel(120, Qt::ControlModifier);
    host.setInterruption(nullptr);
    EXPECT_FALSE(chart.widget);
    EXPECT_EQ(host.slider->value(), -60);
}

TEST_F(Keys, AHostThatDeletesTheWindowAtAnyCall) {
    for (const int key : {Qt::Key_Plus, Qt::Key_Left, Qt::Key_Escape, Qt::Key_Delete, Qt::Key_N}) {
        for (int nth = 1; nth <= 6; ++nth) {
            Chart other = host.createChart();
            host.addInstrument(other, "EURUSD");
            pressKey(other, Qt::Key_A, Qt::ControlModifier);
            int left = nth;
            host.setInterruption([&](const Call &call) {
                if (isInputCall(call.message) && other.handle && --left == 0)
                    host.deleteChart(other);
            });
            pressKey(other, key);
            host.setInterruption(nullptr);
            if (other.handle)
                host.deleteChart(other);
        }
    }
    SUCCEED();
}
