// What a broken host may send, and a host that throws: no message ends the process.
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

const unsigned everyMessage[] = {3004, 3005, 3007, 3009, 3010, 3011, 3020,  3021, 3062, 3066, 3073,
                                 3076, 3081, 3114, 3115, 3130, 3140, 3184,  3185, 3518, 3521, 3545,
                                 3546, 3550, 3551, 3552, 3553, 3555, 5001,  5003, 5004, 5005, 5006,
                                 5007, 5009, 5011, 5012, 5014, 5022, 5023,  5024, 5025, 5026, 5027,
                                 5028, 5029, 5030, 5031, 5032, 5034, 10054, 12001};

void sendNothings(FakeHost &host, Chart *chart) {
    for (const unsigned message : everyMessage) {
        if (message == 3005 || message == 5004)
            continue; // they end the window
        SCOPED_TRACE(message);
        host.send(message);
        if (chart && message != 5003 && message != 5001 && message != 5022 && message != 3114 &&
            message != 3115 && message != 3062 && message != 3009 && message != 3518 && message != 5025 &&
            message != 5034 && message != 10054 && message != 3546)
            host.send(message, chart->handle, 0); // where the first word is a record, it must be one
    }
}

TEST(BadInput, NullRecordsInARunningModule) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    sendNothings(host, &chart);
    EXPECT_TRUE(chart.widget);
    host.tick();
    EXPECT_FALSE(host.grab(chart).isNull());
    EXPECT_TRUE(host.addInstrument(host.createChart(), "GBPUSD"));
}

TEST(BadInput, NullRecordsAtEveryStage) {
    for (const auto stage : {FakeHost::Loaded, FakeHost::Initialized, FakeHost::Created, FakeHost::Started}) {
        SCOPED_TRACE(stage);
        FakeHost host(stage);
        sendNothings(host, nullptr);
        host.initialize();
        host.send(3007u);
        host.send(3004u);
        host.send(3066u);
        Chart chart = host.createChart();
        ASSERT_TRUE(chart.widget);
        EXPECT_TRUE(host.addInstrument(chart, "EURUSD"));
    }
}

TEST(BadInput, AHostWithoutFunctions) {
    FakeHost host(FakeHost::Loaded);
    host.initialize(false);
    host.send(3007u);
    host.send(3004u);
    host.send(3066u);
    Chart chart = host.createChart();
    ASSERT_TRUE(chart.widget);
    sendNothings(host, &chart);
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    mvwcDpaList list{1, &item};
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 0);
    EXPECT_EQ(host.send(5007u, chart.handle, &list), 0);
    EXPECT_FALSE(host.grab(chart).isNull());
    EXPECT_EQ(host.hostCalls(), 0);
}

// A record that names nothing: what takes a window refuses, what takes a list has nothing to do.
TEST(BadInput, RecordsOfZeros) {
    struct Row {
        unsigned message;
        bool window; // the first word is the window, the second the record; else the first is the record
        int result;
    };
    const Row rows[] = {
        {3009, false, 1}, {3010, true, 0},   {3011, true, 0},   {3062, false, 0}, {3076, true, 0},
        {3114, false, 1}, {3115, false, 0},  {3130, true, 0},   {3518, false, 1}, {3546, false, 0},
        {5001, false, 0}, {5004, false, 1},  {5005, true, 0},   {5006, true, 0},  {5007, true, 0},
        {5009, true, 0},  {5011, true, 0},   {5022, false, 0},  {5024, true, 0},  {5025, false, 1},
        {5034, false, 1}, {10054, false, 1}, {12001, true, 1},  {3010, false, 1}, {3011, false, 1},
        {3076, false, 1}, {3130, false, 1},  {5005, false, 1},  {5006, false, 1}, {5007, false, 1},
        {5009, false, 1}, {5011, false, 1},  {12001, false, 1},
    };
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    for (const Row &row : rows) {
        SCOPED_TRACE(row.message);
        bytes::Record zeros(8192);
        const void *first = row.window ? static_cast<const void *>(chart.handle) : zeros.data();
        const void *second = zeros.data() + 4096;
        EXPECT_EQ(host.send(row.message, first, second), row.result);
        ASSERT_TRUE(chart.widget);
    }
    EXPECT_TRUE(host.dialogTexts.isEmpty());
    host.tick();
    EXPECT_FALSE(host.grab(chart).isNull());
}

TEST(BadInput, ListsWithoutItemsOrWithNegativeCounts) {
    FakeHost host;
    Chart chart = host.createChart();
    for (const int count : {0, -1, -2147483647, 1, 2147483647}) {
        mvwcDpaList list{count, nullptr};
        for (const unsigned message : {5006u, 5007u}) {
            host.clearTraffic();
            EXPECT_EQ(host.send(message, chart.handle, &list), 0) << count;
            EXPECT_EQ(host.count(3008), 0) << count;
            EXPECT_EQ(host.milestones.last(), "") << count;
        }
    }
    for (const int count : {0, -1, 5}) {
        bytes::Record rebuild(16);
        bytes::put<int>(rebuild.data(), 8, count);
        EXPECT_EQ(host.send(3076u, chart.handle, rebuild.data()), 0) << count;
    }
}

TEST(BadInput, AnInterfaceThatIsGoneSwitchesItsFeatureOff) {
    for (const char *gone : {"MAINWINDOW", "CANDLE", "MVINDICATORS", "DEALING", "STATUSBAR", "LineStudies"}) {
        SCOPED_TRACE(gone);
        FakeHost host(FakeHost::Initialized);
        host.removeInterface(gone);
        host.send(3007u);
        EXPECT_EQ(host.send(3004u), 0);
        EXPECT_EQ(host.send(3066u), 0);
        Chart chart = host.createChart();
        ASSERT_TRUE(chart.widget);
        FakeObject *euro = host.addInstrument(chart, "EURUSD");
        EXPECT_EQ(euro != nullptr, qstrcmp(gone, "CANDLE") != 0);
        host.tick();
        EXPECT_FALSE(host.grab(chart).isNull());
        EXPECT_EQ(host.send(3550u, 0), 0);
        EXPECT_EQ(host.count(7000), qstrcmp(gone, "STATUSBAR") == 0 ? 0 : 2);
        EXPECT_EQ(host.count(3560), qstrcmp(gone, "MAINWINDOW") == 0 ? 0 : 1);
    }
}

// ---- a host that throws ----

void throwAt(FakeHost &host, int n) {
    int seen = 0;
    host.setInterruption([seen, n](const Call &) mutable {
        if (++seen == n)
            throw std::runtime_error("the host's own");
    });
}

TEST(ThrowingHost, ANewWindowIsRefusedAndLeavesNothing) {
    std::vector<bool> isOfScrollBar;
    {
        FakeHost host;
        host.clearTraffic();
        host.createBareChart();
        for (const Call &call : host.calls()) {
            if (call.toHost)
                isOfScrollBar.push_back(call.message == 5008);
        }
    }
    const int total = static_cast<int>(isOfScrollBar.size());
    for (int n = 1; n <= total; ++n) {
        SCOPED_TRACE(n);
        if (isOfScrollBar[static_cast<std::size_t>(n - 1)])
            continue; // a window without its scroll bar ends by itself
        FakeHost host;
        throwAt(host, n);
        bytes::Record data(16);
        bytes::put<Word>(data.data(), 8, 0x1234);
        QWidget parent;
        bytes::put<Word>(data.data(), 0, static_cast<Word>(parent.winId()));
        EXPECT_EQ(host.send(5003u, data.data()), 1);
        EXPECT_EQ(bytes::u32(data.data(), 8), 0u);
        EXPECT_TRUE(parent.findChildren<QWidget *>().isEmpty());
        host.setInterruption(nullptr);
        host.tick();
        EXPECT_TRUE(host.createChart().widget);
    }
}

void eachCallThrows(const std::function<void(FakeHost &, Chart &)> &work) {
    int total = 0;
    {
        FakeHost host;
        Chart chart = host.createChart(QSize(300, 200));
        host.addInstrument(chart, "EURUSD");
        host.addIndicator(chart, "Bollinger");
        host.settle();
        host.clearTraffic();
        work(host, chart);
        total = host.hostCalls();
    }
    EXPECT_GT(total, 0);
    for (int n = 1; n <= total; ++n) {
        SCOPED_TRACE(n);
        FakeHost host;
        host.setRecording(false);
        Chart chart = host.createChart(QSize(300, 200));
        host.addInstrument(chart, "EURUSD");
        host.addIndicator(chart, "Bollinger");
        host.settle();
        throwAt(host, n);
        work(host, chart);
        host.setInterruption(nullptr);
        Chart next = host.createChart(QSize(200, 150));
        ASSERT_TRUE(next.widget);
        EXPECT_TRUE(host.addInstrument(next, "GBPUSD"));
    }
}

TEST(ThrowingHost, TheEndOfAWindow) {
    eachCallThrows([](FakeHost &host, Chart &chart) { host.send(5004u, chart.handle); });
}

TEST(ThrowingHost, TheStop) {
    eachCallThrows([](FakeHost &host, Chart &) { host.send(3005u); });
}

TEST(ThrowingHost, TheFocus) {
    eachCallThrows([](FakeHost &host, Chart &chart) { host.send(5009u, chart.handle); });
}

TEST(ThrowingHost, AQuoteAndARebuiltSeries) {
    eachCallThrows([](FakeHost &host, Chart &) {
        for (FakeObject *object : host.objects()) {
            host.update(object, 0);
            host.update(object, 1);
        }
    });
}

TEST(ThrowingHost, AnAddition) {
    eachCallThrows([](FakeHost &host, Chart &chart) {
        host.addInstrument(chart, "USDJPY"); // of its own pane, as is the indicator
        host.addIndicator(chart, "CHF+EUR");
    });
}

TEST(ThrowingHost, ChangesOfWhatIsOnTheChart) {
    eachCallThrows([](FakeHost &host, Chart &chart) {
        bytes::Record window(8);
        bytes::put<Word>(window.data(), 4, static_cast<Word>(toWord(chart.handle)));
        for (const int kind : {0, 1}) {
            bytes::Record state(8);
            bytes::put<int>(state.data(), 0, kind);
            host.send(3518u, window.data(), state.data());
        }
        host.send(3545u, 0);
        bytes::Record list(12);
        host.send(3546u, list.data());
        FakeObject *indicator = host.objects().back();
        mvDataPointArray *last = indicator->array(static_cast<int>(indicator->outputs.size()) - 1).header();
        bytes::Record rebuild(16);
        bytes::put<Word>(rebuild.data(), 0, indicator->handle);
        bytes::put<int>(rebuild.data(), 8, 1);
        bytes::put<Word>(rebuild.data(), 12, static_cast<Word>(toWord(&last)));
        host.send(3076u, chart.handle, rebuild.data());
        bytes::Record rename(778);
        bytes::put<Word>(rename.data(), 0, indicator->handle);
        host.send(3130u, chart.handle, rename.data());
    });
}

TEST(ThrowingHost, ModesAndSkins) {
    eachCallThrows([](FakeHost &host, Chart &) {
        host.emitEvent("Velmar Game Mode", 1001);
        host.emitEvent("Velmar Game Mode", 1002);
        unsigned short name[] = {'o', 'w', 'n', 0};
        host.emitEvent("SkinEventData", 3521, name, sizeof name);
    });
}

// ---- windows that end in the middle of an event ----

TEST(Reentrance, TheWindowsEndInEachCallOfAnEvent) {
    const auto work = [](FakeHost &host) {
        host.emitEvent("Velmar Game Mode", 1001);
        host.emitEvent("Velmar Competition Mode", 2002);
        unsigned short name[] = {'o', 'w', 'n', 0};
        host.emitEvent("SkinEventData", 3521, name, sizeof name);
        host.send(3545u, 2);
        Word done = 0;
        host.send(3062u, &done);
    };
    const auto fill = [](FakeHost &host) {
        for (const char *symbol : {"EURUSD", "GBPUSD"}) {
            Chart chart = host.createChart(QSize(300, 200));
            host.addInstrument(chart, symbol);
        }
        host.settle();
        host.clearTraffic();
    };
    int total = 0;
    {
        FakeHost host;
        fill(host);
        work(host);
        total = host.hostCalls();
    }
    ASSERT_GT(total, 10);
    for (int n = 1; n <= total; ++n) {
        for (std::size_t which = 0; which < 2; ++which) {
            SCOPED_TRACE(n);
            FakeHost host;
            host.setRecording(false);
            fill(host);
            int seen = 0;
            host.setInterruption(
                [&](const Call &) {
                    const Chart &chart = host.charts()[which];
                    if (++seen == n && chart.widget &&
                        !chart.widget->testAttribute(Qt::WA_WState_InPaintEvent))
                        host.send(5004u, chart.handle);
                },
                FakeHost::AfterAnswer);
            work(host);
        }
    }
}

} // namespace
