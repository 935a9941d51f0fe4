// Hosts that keep the protocol in another way than the usual one: other results where results mean nothing,
// other handles, answers left out where a start value holds.
#include "tests/support/FakeHost.h"

#include <QSlider>
#include <climits>
#include <gtest/gtest.h>

namespace {

// The calls to the host as numbers, without what names this run's addresses.
std::vector<unsigned> numbers(const FakeHost &host) {
    std::vector<unsigned> result;
    for (const Call &call : host.calls()) {
        if (call.toHost)
            result.push_back(call.message);
    }
    return result;
}

// A life of a chart, to its end.
void life(FakeHost &host) {
    host.initialize();
    host.send(3007u);
    host.send(3004u);
    host.send(3066u);
    Chart chart = host.createChart(QSize(400, 300));
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    EXPECT_EQ(host.addIndicator(chart, "Bollinger"), 0);
    EXPECT_EQ(host.lastObject()->subscribers.count(chart.handle), 1u);
    host.tick();
    EXPECT_FALSE(host.grab(chart).isNull());
    EXPECT_EQ(host.update(euro, 1), 0);
    EXPECT_EQ(host.send(3550u), 0);
    EXPECT_EQ(host.send(3552u, 0, -20), 0);
    EXPECT_EQ(host.send(3553u), 0);
    EXPECT_EQ(host.send(3545u, 2), 0);
    EXPECT_EQ(host.send(5009u, chart.handle), 0);
    EXPECT_FALSE(host.caption(chart).isEmpty());
    EXPECT_EQ(host.send(5004u, chart.handle), 0);
}

// What these return is part of their answer.
bool resultMatters(unsigned message) {
    static const std::set<unsigned> own{3128, 3207, 3500, 3503, 3560, 16000, 16001};
    return own.count(message) > 0;
}

TEST(OtherHosts, ResultsThatMeanNothingAreNotLookedAt) {
    std::vector<unsigned> usual;
    {
        FakeHost host(FakeHost::Loaded);
        life(host);
        usual = numbers(host);
    }
    const std::set<unsigned> kinds(usual.begin(), usual.end());
    for (const int result : {-1, 1, 70000, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(result);
        FakeHost host(FakeHost::Loaded);
        for (const unsigned kind : kinds) {
            if (resultMatters(kind))
                continue;
            host.answer(kind, [&host, kind, result](void *target, int wParam, int lParam) {
                host.defaultAnswer(target, kind, wParam, lParam);
                return result;
            });
        }
        life(host);
        EXPECT_EQ(numbers(host), usual);
    }
}

// A host that knows none of the widgets may say so with any code.
TEST(OtherHosts, AResultThatNamesNoWidgetIsNoWidget) {
    for (const int result : {-1, 1, 70000, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(result);
        FakeHost host(FakeHost::Loaded);
        for (const unsigned message : {3550u, 3551u, 3552u, 3553u, 3554u})
            host.answer(message, [result](void *, int, int) { return result; });
        life(host);
    }
}

TEST(OtherHosts, HandlesMayHaveTheHighestBit) {
    std::vector<unsigned> usual;
    {
        FakeHost host(FakeHost::Loaded);
        life(host);
        usual = numbers(host);
    }
    FakeHost host(FakeHost::Loaded, QString(), 0xF1000001u);
    life(host);
    EXPECT_EQ(numbers(host), usual);
    EXPECT_GT(host.moduleInterface(), 0xF0000000u);
}

// The request goes out with the module's address as its result: a host that leaves it names the module so.
TEST(OtherHosts, WithoutAnAnswerTheModuleIsNamedByItsAddress) {
    FakeHost host(FakeHost::Initialized);
    host.answer(3000, [](void *, int, int) { return 0; });
    host.send(3007u);
    host.send(3004u);
    const Word address = static_cast<Word>(toWord(host.moduleObject));
    for (const Call &call : host.callsOf(3110))
        EXPECT_EQ(bytes::u32(call.wRecord.constData(), 259), address);
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    EXPECT_EQ(bytes::u32(host.callsOf(3013).front().lRecord.constData(), 0), address);
    bytes::Record event(542);
    bytes::put<Word>(event.data(), 0, address);
    EXPECT_EQ(host.send(3114u, event.data()), 0);
    bytes::Record owner(16);
    bytes::put<Word>(owner.data(), 4, static_cast<Word>(toWord(chart.handle)));
    EXPECT_EQ(host.send(5025u, owner.data()), 0);
    EXPECT_EQ(bytes::u32(owner.data(), 8), address);
    host.send(5004u, chart.handle);
    EXPECT_EQ(bytes::u32(host.callsOf(3150).front().wRecord.constData(), 0), address);
}

} // namespace
