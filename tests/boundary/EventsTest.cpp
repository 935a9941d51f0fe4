// Named events: modes of the terminal, the skin, the day-off table.
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>

namespace {

MVEvent eventFor(const FakeHost &host, void *subscriber, Word code) {
    MVEvent event = zeroRecord<MVEvent>();
    bytes::put<Word>(&event, 0, host.moduleInterface());
    bytes::put<void *>(&event, 4, subscriber);
    bytes::put<Word>(&event, 530, code);
    return event;
}

TEST(Events, ForAnotherModuleAreRefused) {
    FakeHost host;
    MVEvent event = eventFor(host, host.moduleObject, 1001);
    bytes::put<Word>(&event, 0, host.moduleInterface() + 1);
    EXPECT_EQ(host.send(3114u, &event), 1);
    EXPECT_EQ(host.send(3114u), 1);
}

TEST(Events, AreLogged) {
    FakeHost host;
    host.log.clear();
    host.send(3114u);
    ASSERT_FALSE(host.log.empty());
    EXPECT_EQ(host.log.front().text, "CORE_RECIVE_EVENT|GraphModule|1170");
}

TEST(Events, OfOtherSubscribersAndCodesAnswerZero) {
    FakeHost host;
    MVEvent event = eventFor(host, &host, 1001);
    EXPECT_EQ(host.send(3114u, &event), 0);
    event = eventFor(host, host.moduleObject, 4711);
    EXPECT_EQ(host.send(3114u, &event), 0);
}

TEST(Events, ModesAnswerZeroAndRepaint) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.tick();
    const QImage before = host.grab(chart);
    for (const Word code : {1001u, 1002u, 2001u, 2002u}) {
        MVEvent event = eventFor(host, host.moduleObject, code);
        EXPECT_EQ(host.send(3114u, &event), 0) << code;
    }
    EXPECT_EQ(host.grab(chart).size(), before.size());
}

TEST(Events, SkinWithoutNameIsRefused) {
    FakeHost host;
    MVEvent event = eventFor(host, host.moduleObject, 3521);
    EXPECT_EQ(host.send(3114u, &event), 1);
}

TEST(Events, SkinWithNameReloadsEveryWindow) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.tick();
    std::vector<unsigned short> name{'o', 'w', 'n', 0};
    host.emitEvent("SkinEventData", 3521, name.data(), static_cast<int>(name.size() * 2));
    EXPECT_EQ(host.callsOf(3114, false).back().result, 0);
    EXPECT_FALSE(host.grab(chart).isNull());
}

mvdDayOff dayOffRecord(const char *symbol, Word flag) {
    mvdDayOff record = zeroRecord<mvdDayOff>();
    bytes::putText8(&record, 0, 19, symbol);
    bytes::put<Word>(&record, 19, flag);
    return record;
}

TEST(DayOff, IsFetchedForTheAccountOfTheEvent) {
    FakeHost host;
    const Word dealing = host.interfaceOf("DEALING");
    host.dayOff[77] = {dayOffRecord("EURUSD", 1), dayOffRecord("GBPUSD", 0)};
    bytes::Record account(300);
    bytes::put<Word>(account.data(), 0, dealing);
    bytes::put<Word>(account.data(), 4, 77);
    host.clearTraffic();
    host.emitEvent("DealingEvent", 16048, account.data(), 300);
    ASSERT_EQ(host.count(16026), 1);
    ASSERT_EQ(host.count(16027), 1);
    const Call count = host.callsOf(16026).front();
    EXPECT_EQ(toWord(count.target), static_cast<int>(dealing));
    EXPECT_EQ(count.wParam, 77);
    EXPECT_EQ(bytes::i32(count.lRecord.constData(), 0), 0);
    EXPECT_EQ(bytes::u32(count.lRecord.constData(), 4), 0u);
    EXPECT_EQ(bytes::i32(host.callsOf(16027).front().lRecord.constData(), 0), 2);
}

TEST(DayOff, IsFetchedForAccountsThatComeAndGo) {
    FakeHost host;
    const Word dealing = host.interfaceOf("DEALING");
    bytes::Record account(300);
    bytes::put<Word>(account.data(), 0, dealing);
    bytes::put<Word>(account.data(), 4, 78);
    const std::pair<Word, int> fetched[] = {{16002, 1}, {16003, 1}, {16048, 1}, {16008, 0}, {16016, 0}};
    for (const auto &[code, count] : fetched) {
        host.clearTraffic();
        host.emitEvent("DealingEvent", code, account.data(), 300);
        EXPECT_EQ(host.count(16026), count) << code;
        EXPECT_EQ(host.callsOf(3114, false).back().result, 0) << code;
        if (count > 0) {
            EXPECT_EQ(toWord(host.callsOf(16026).front().target), static_cast<int>(dealing)) << code;
            EXPECT_EQ(host.callsOf(16026).front().wParam, 78) << code;
        }
        host.clearTraffic();
        host.emitEvent("DealingEvent", code, nullptr, 300);
        host.emitEvent("DealingEvent", code, account.data(), 0);
        EXPECT_EQ(host.count(16026), 0) << code;
    }
}

TEST(Events, OfTheDealingSideRenewTheTradeData) {
    FakeHost host;
    Chart chart = host.createChart();
    bytes::Record account(300);
    for (const Word code : {16002u, 16003u, 16010u, 16048u}) {
        host.log.clear();
        host.emitEvent("DealingEvent", code, account.data(), 300);
        QStringList lines;
        for (const LogLine &line : host.log) {
            if (line.text.contains("|GraphModule|"))
                lines += line.text.section('|', -1);
        }
        EXPECT_EQ(lines, QStringList({"1170", "248", "254", "257"})) << code;
    }
    host.log.clear();
    host.emitEvent("DealingEvent", 16002);
    for (const LogLine &line : host.log)
        EXPECT_FALSE(line.text.endsWith("|GraphModule|248"));
}

TEST(DayOff, NeedsAccountDataAndTheTradeModule) {
    FakeHost host;
    bytes::Record account(300);
    host.clearTraffic();
    host.emitEvent("DealingEvent", 16048, nullptr, 300);
    host.emitEvent("DealingEvent", 16048, account.data(), 0);
    MVEvent event = eventFor(host, host.moduleObject, 16048);
    bytes::put<int>(&event, 534, 300);
    bytes::put<void *>(&event, 538, account.data());
    EXPECT_EQ(host.send(3114u, &event), 0);
    EXPECT_EQ(host.count(16026), 0);
}

TEST(DayOff, StopsWithoutSymbols) {
    FakeHost host;
    bytes::Record account(300);
    host.clearTraffic();
    host.emitEvent("DealingEvent", 16048, account.data(), 300);
    EXPECT_EQ(host.count(16026), 1);
    EXPECT_EQ(host.count(16027), 0);
}

TEST(DayOff, TooManySymbolsFailWithOne) {
    FakeHost host;
    host.answer(16026, [](void *, int, int lParam) {
        bytes::put<int>(fromWord<void>(lParam), 0, 69206017);
        return 0;
    });
    bytes::Record account(300);
    host.emitEvent("DealingEvent", 16048, account.data(), 300);
    EXPECT_EQ(host.callsOf(3114, false).back().result, 1);
    EXPECT_EQ(host.count(16027), 0);
}

} // namespace
