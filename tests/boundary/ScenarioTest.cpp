// The whole life of a library in a host, twice in one process. Memory checkers run exactly this.
#include "tests/support/FakeHost.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

bool isMapped() {
    QFile maps("/proc/self/maps");
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libvelmargraph");
}

void liveOnce() {
    FakeHost host(FakeHost::Loaded);
    ASSERT_TRUE(isMapped());
    host.initialize();
    EXPECT_EQ(host.send(ToModule::CreateInterface), 0);
    EXPECT_EQ(host.send(ToModule::Start), 0);
    EXPECT_EQ(host.send(ToModule::MainWindowIsLoading), 0);
    Chart chart = host.createChart(QSize(400, 300));
    ASSERT_TRUE(chart.widget);

    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    EXPECT_EQ(host.addIndicator(chart, "Bollinger"), 0);
    FakeObject *bands = host.lastObject();
    ASSERT_NE(bands, euro);
    EXPECT_EQ(bands->subscribers.count(chart.handle), 1u);
    host.tick();
    const QImage first = host.grab(chart);
    ASSERT_FALSE(first.isNull());

    // A quote in the last bar, a new bar, a whole recalculation.
    Bar last = euro->array().bar(euro->array().count() - 1);
    last.high += 0.01f;
    last.close = last.high;
    host.changeLastBar(euro, last);
    host.update(euro, 0);
    host.tick();
    EXPECT_NE(host.grab(chart), first);
    host.appendBar(euro, {last.time + 3600, last.close, last.close, last.close, last.close, 1});
    host.update(euro, 1);
    host.tick();
    host.update(euro, 2);
    host.tick();

    std::vector<mvDataPointArray *> kept = {bands->array(0).header()};
    coreRebuildDpa record{fromWord<void>(bands->handle), 0, 1, kept.data()};
    host.send(ToModule::RebuildOutputs, chart.handle, &record);

    const QImage before = host.grab(chart);
    host.send(ToModule::ZoomIn);
    host.tick();
    EXPECT_NE(host.grab(chart), before);
    host.send(ToModule::ZoomOut);
    host.send(ToModule::ZoomChange, 0, -30);
    host.tick();
    host.grab(chart);

    const QPointer<QWidget> widget = chart.widget;
    host.deleteChart(chart);
    EXPECT_FALSE(widget);
    EXPECT_EQ(host.send(ToModule::Stop), 0);
}

TEST(Scenario, ALibraryLivesAndGoesTwice) {
    liveOnce();
    EXPECT_FALSE(isMapped());
    liveOnce();
    EXPECT_FALSE(isMapped());
}

} // namespace
