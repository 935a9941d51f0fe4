// What a chart window does while the mouse works on it.
#include "tests/boundary/InputDriver.h"

#include <gtest/gtest.h>

namespace {

struct WindowStates : testing::Test {
    FakeHost host;
    Chart chart = host.createChart(QSize(800, 600));
    FakeObject *series = host.addInstrument(chart, "EURUSD");
    Mouse mouse{chart};

    void SetUp() override {
        host.tick();
        host.grab(chart);
    }
    int lines(const QString &text) const {
        int found = 0;
        for (const LogLine &line : host.log)
            found += line.text.startsWith(text);
        return found;
    }
    void setPanel(int kind, int item) {
        coreChartWindow window{0, chart.handle};
        const int state[2] = {kind, item};
        EXPECT_EQ(host.send(ToModule::PanelState, &window, state), 0);
    }
    QPoint onScale() const { return QPoint(800 - 10, 200); }
};

TEST_F(WindowStates, AFrameUnderAScaleDragEndsBeforeItBegins) {
    mouse.press(onScale());
    host.log.clear();
    chart.widget->repaint();
    EXPECT_EQ(lines("DrawAll start"), 1);
    EXPECT_EQ(lines("DrawAll continue"), 0);
    EXPECT_EQ(lines("DrawAll stop"), 0);
    mouse.release(onScale());
    host.settle();
    host.log.clear();
    chart.widget->repaint();
    EXPECT_EQ(lines("DrawAll start"), 1);
    EXPECT_EQ(lines("DrawAll continue"), 1);
    EXPECT_EQ(lines("DrawAll stop"), 1);
}

TEST_F(WindowStates, ThePeriodPanelWaitsForTheMouse) {
    const auto changes = [&](const QPoint &press) {
        mouse.press(press);
        host.clearTraffic();
        host.log.clear();
        setPanel(1, 5);
        setPanel(0, 5);
        const int during = host.count(ToHost::ChangeArray) + host.count(ToHost::ReloadArray) +
                           lines("CRGraphWidget::UpdatePrimitivePositions started");
        mouse.release(press);
        return during;
    };
    EXPECT_EQ(changes(QPoint(400, 40)), 0); // a rubber band
    EXPECT_EQ(changes(onScale()), 0);
    EXPECT_EQ(changes(QPoint(400, 3)), 0); // the top of the pane
    host.clearTraffic();
    setPanel(1, 5);
    EXPECT_EQ(host.count(ToHost::ChangeArray), 1);
    setPanel(0, 5);
    EXPECT_EQ(host.count(ToHost::ReloadArray), 1);
}

} // namespace
