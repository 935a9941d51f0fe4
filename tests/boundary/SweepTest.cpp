// A whole scenario again and again: with each call to the host refused or garbled in turn, and with
// the host calling back in the middle of each message.
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>

namespace {

// Start, window, instrument, quote, rebuild, zoom, end.
void scenario(FakeHost &host, bool withEnd = true) {
    host.initialize();
    host.send(ToModule::CreateInterface);
    host.send(ToModule::Start);
    host.send(ToModule::MainWindowIsLoading);
    Chart chart = host.createChart(QSize(400, 300));
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    host.addIndicator(chart, "Bollinger");
    host.tick();
    host.grab(chart);
    if (euro) {
        const Bar last = euro->array().bar(euro->array().count() - 1);
        host.appendBar(euro, {last.time + 3600, last.close, last.close, last.close, last.close, 1});
        host.update(euro, 0);
        host.tick();
        host.update(euro, 1);
        host.update(euro, 2);
    }
    FakeObject *bands = host.lastObject();
    if (bands && !bands->instrument && bands->outputs.size() == 3) {
        mvDataPointArray *arrays[] = {bands->array(0).header(), bands->array(2).header()};
        coreRebuildDpa record{fromWord<void>(bands->handle), 0, 2, arrays};
        host.send(ToModule::RebuildOutputs, chart.handle, &record);
    }
    host.send(ToModule::ZoomIn);
    host.send(ToModule::ZoomOut);
    host.send(ToModule::ZoomChange, 0, -30);
    host.tick();
    host.grab(chart);
    if (withEnd) {
        host.deleteChart(chart);
        host.send(ToModule::Stop);
    }
}

int callsOfScenario() {
    FakeHost host(FakeHost::Loaded);
    scenario(host);
    return host.hostCalls();
}

// The texts of the start are all alike; the sweeps go through a few of them only.
bool worthwhile(int n) {
    return n <= 4 || n >= 230;
}

void sweep(FakeHost::Trouble trouble, int result) {
    const int total = callsOfScenario();
    ASSERT_GT(total, 250);
    for (int n = 1; n <= total; ++n) {
        if (!worthwhile(n))
            continue;
        SCOPED_TRACE(n);
        FakeHost host(FakeHost::Loaded);
        host.setRecording(false);
        host.troubleAt(n, trouble, result);
        scenario(host);
        // The next chart works as ever.
        host.clearTrouble();
        Chart chart = host.createChart(QSize(300, 200));
        ASSERT_TRUE(chart.widget);
    }
}

TEST(Sweep, EachCallRefused) {
    sweep(FakeHost::Refuse, 0);
}

TEST(Sweep, EachCallRefusedWithAnError) {
    sweep(FakeHost::Refuse, 1);
}

TEST(Sweep, EachCallGarbled) {
    sweep(FakeHost::Garble, 0);
}

TEST(Sweep, EachKindOfMessageRefusedThroughout) {
    std::set<unsigned> kinds;
    {
        FakeHost host(FakeHost::Loaded);
        scenario(host);
        for (const Call &call : host.calls()) {
            if (call.toHost)
                kinds.insert(call.message);
        }
    }
    for (const unsigned kind : kinds) {
        for (const auto trouble : {FakeHost::Refuse, FakeHost::Garble}) {
            SCOPED_TRACE(kind);
            FakeHost host(FakeHost::Loaded);
            host.setRecording(false);
            host.troubleMessage(kind, trouble, 0);
            scenario(host);
        }
    }
}

bool painting(FakeHost &host) {
    for (const Chart &chart : host.charts()) {
        if (chart.widget && chart.widget->testAttribute(Qt::WA_WState_InPaintEvent))
            return true;
    }
    return false;
}

// What the host does in the middle of the n-th call.
void interrupted(const std::function<void(FakeHost &, const Call &)> &work,
                 FakeHost::Moment moment = FakeHost::BeforeAnswer) {
    const int total = callsOfScenario();
    for (int n = 1; n <= total; ++n) {
        if (!worthwhile(n))
            continue;
        SCOPED_TRACE(n);
        FakeHost host(FakeHost::Loaded);
        host.setRecording(false);
        int seen = 0;
        host.setInterruption(
            [&](const Call &call) {
                if (++seen == n)
                    work(host, call);
            },
            moment);
        scenario(host);
    }
}

TEST(Reentrance, ATickInEachMessage) {
    interrupted([](FakeHost &host, const Call &) { host.tick(); });
}

// After the answer: records of the window itself are gone with it.
TEST(Reentrance, TheWindowsEndInEachMessage) {
    interrupted(
        [](FakeHost &host, const Call &) {
            if (host.charts().empty() || !host.charts().front().widget || painting(host))
                return;
            host.send(ToModule::DeleteWindow, host.charts().front().handle);
        },
        FakeHost::AfterAnswer);
}

TEST(Reentrance, AQuoteInEachMessage) {
    interrupted([](FakeHost &host, const Call &) {
        for (FakeObject *object : host.objects()) {
            host.update(object, 0);
            host.update(object, 1);
        }
    });
}

TEST(Reentrance, APaintInEachMessage) {
    interrupted([](FakeHost &host, const Call &) {
        if (painting(host))
            return; // no host paints from within a paint
        for (const Chart &chart : host.charts()) {
            if (chart.widget)
                chart.widget->update();
        }
        host.settle();
    });
}

TEST(Reentrance, ASecondWindowInEachMessage) {
    interrupted([](FakeHost &host, const Call &) {
        if (host.moduleInterface() == 0)
            return;
        Chart chart = host.createBareChart(QSize(200, 150));
        host.addInstrument(chart, "GBPUSD");
        host.deleteChart(chart);
    });
}

TEST(Reentrance, AnotherInstrumentInEachMessage) {
    interrupted([](FakeHost &host, const Call &) {
        // Adding may ask the user, which no host does from within a paint.
        if (!host.charts().empty() && host.charts().front().widget && !painting(host))
            host.addInstrument(host.charts().front(), "USDJPY");
    });
}

} // namespace
