// The start of a run: what goes to the host, in which order, and in which records.
#include "tests/support/FakeHost.h"

#include <QLabel>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

std::vector<unsigned> numbers(const FakeHost &host) {
    std::vector<unsigned> result;
    for (const Call &call : host.calls()) {
        if (call.toHost)
            result.push_back(call.message);
    }
    return result;
}

bool logged(const FakeHost &host, const QString &text) {
    for (const LogLine &line : host.log) {
        if (line.text == text)
            return true;
    }
    return false;
}

TEST(CreateInterface, RegistersTheModuleThenItsTexts) {
    FakeHost host(FakeHost::Initialized);
    EXPECT_EQ(host.send(3007u), 0);
    ASSERT_EQ(host.calls().size(), 1u + 1u + 196u + 40u); // its own message, 3000, the texts
    const Call &call = host.calls()[1];
    EXPECT_EQ(call.message, 3000u);
    EXPECT_EQ(toWord(call.target), static_cast<int>(host.coreHandle()));
    const char *record = call.wRecord.constData();
    EXPECT_EQ(bytes::text8(record, 0, 255), "Windowcomponent");
    EXPECT_EQ(bytes::text8(record, 255, 255), "VELMAR");
    EXPECT_EQ(bytes::text8(record, 510, 255), "Graphics Unique Name");
    EXPECT_EQ(bytes::u32(record, 765), host.componentHandle());
    EXPECT_EQ(bytes::u32(record, 769), static_cast<Word>(toWord(host.moduleObject)));
    EXPECT_EQ(call.lParam, 0);
}

TEST(CreateInterface, TextsComeInTheOrderOfTheTables) {
    FakeHost host(FakeHost::Initialized);
    host.send(3007u);
    const std::vector<Call> texts = host.callsOf(3019);
    ASSERT_EQ(texts.size(), 236u);
    const auto id = [&](std::size_t i) { return bytes::text8(texts[i].wRecord.constData(), 1024, 1024); };
    const auto text = [&](std::size_t i) { return bytes::text8(texts[i].wRecord.constData(), 2048, 1024); };
    EXPECT_EQ(id(0), "#");
    EXPECT_EQ(text(0), "#");
    EXPECT_EQ(id(1), "C0004BckGrndColor");
    EXPECT_EQ(id(195), "G0ddMMyyyyhhmmss");
    EXPECT_EQ(text(195), "M/d/yyyy h:mm:ss");
    EXPECT_EQ(id(196), "C0068StandBy");
    EXPECT_EQ(text(196), "Pending");
    EXPECT_EQ(id(235), "Tr0144OrdrLimit");
    EXPECT_EQ(text(235), "Limit");
    for (const Call &call : texts)
        EXPECT_EQ(bytes::text8(call.wRecord.constData(), 0, 1024), "CTranslateGraphic");
    EXPECT_EQ(host.texts.value("G0144"), "The layer could not be deleted because it contains objects\n"
                                         "which were created in System Tester.");
}

TEST(Start, AsksInItsOrder) {
    FakeHost host(FakeHost::Created);
    host.clearTraffic();
    EXPECT_EQ(host.send(3004u), 0);
    EXPECT_EQ(numbers(host), (std::vector<unsigned>{3116, 3117, 3207, 3205, 3002, 3001, 3001, 3110, 3110,
                                                    3110, 3110, 3112}));
}

TEST(Start, SubscribesTradeModuleAndModule) {
    FakeHost host(FakeHost::Created);
    host.clearTraffic();
    host.send(3004u);
    const std::vector<Call> calls = host.callsOf(3110);
    ASSERT_EQ(calls.size(), 4u);
    const char *names[] = {"DealingEvent", "SkinEventData", "Velmar Game Mode", "Velmar Competition Mode"};
    for (std::size_t i = 0; i < 4; ++i) {
        const char *record = calls[i].wRecord.constData();
        EXPECT_EQ(bytes::text8(record, 0, 255), names[i]);
        EXPECT_EQ(bytes::u32(record, 255), 0u);
        EXPECT_EQ(bytes::u32(record, 259), host.moduleInterface());
        EXPECT_EQ(bytes::i32(record, 267), -1);
        const Word subscriber = bytes::u32(record, 263);
        if (i == 0)
            EXPECT_NE(subscriber, static_cast<Word>(toWord(host.moduleObject)));
        else
            EXPECT_EQ(subscriber, static_cast<Word>(toWord(host.moduleObject)));
    }
    EXPECT_EQ(bytes::text8(host.callsOf(3112).front().wRecord.constData(), 0, 255), "TemplateEventName");
}

TEST(Start, FindsDealingAndMainWindowByName) {
    FakeHost host(FakeHost::Created);
    host.addInterface("DEALING", "OTHER", "Second");
    host.clearTraffic();
    host.send(3004u);
    EXPECT_EQ(bytes::text8(host.callsOf(3002).front().wRecord.constData(), 0, 255), "DEALING");
    const std::vector<Call> finds = host.callsOf(3001);
    ASSERT_EQ(finds.size(), 2u);
    EXPECT_EQ(bytes::text8(finds[0].wRecord.constData(), 0, 255), "DEALING");
    EXPECT_EQ(bytes::u32(finds[0].wRecord.constData(), 765), 2u);
    EXPECT_EQ(bytes::text8(finds[1].wRecord.constData(), 0, 255), "MAINWINDOW");
    EXPECT_EQ(bytes::text8(finds[1].wRecord.constData(), 255, 255), "VELMAR");
    EXPECT_EQ(bytes::u32(finds[1].wRecord.constData(), 765), 1u);
}

TEST(Start, LogsAfterTheLogIsConnected) {
    FakeHost host(FakeHost::Created);
    host.send(3004u);
    ASSERT_FALSE(host.log.empty());
    EXPECT_EQ(host.log.front().text, "Starting Graph module|GraphModule|938");
    EXPECT_EQ(host.log.front().name, "CRGraphModule");
    EXPECT_EQ(host.log.front().type, 1u);
    EXPECT_EQ(host.log.front().level, 0u);
}

// The trade module starts once; the rest of the start comes again.
TEST(Start, TwiceRenewsFontsDatesAndLog) {
    FakeHost host;
    host.clearTraffic();
    EXPECT_EQ(host.send(3004u), 0);
    EXPECT_EQ(numbers(host), (std::vector<unsigned>{3116, 3117, 3207, 3205, 3110, 3110, 3110, 3112}));
}

TEST(Start, SecondFunctionOfTheHostIsNeverCalled) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.tick();
    for (const LogLine &line : host.log)
        EXPECT_NE(line.name, "second function");
}

TEST(Start, RefusedEverywhereStillAnswersZero) {
    FakeHost host(FakeHost::Initialized);
    for (unsigned message = 3000; message < 3300; ++message)
        host.troubleMessage(message);
    EXPECT_EQ(host.send(3007u), 0);
    EXPECT_EQ(host.send(3004u), 0);
    EXPECT_EQ(host.send(3066u), 0);
}

TEST(Languages, NoneMarkedMeansEnglish) {
    for (const auto &languages : {std::vector<std::pair<QString, Word>>{{"Chinese (Simplified)", 0}},
                                  std::vector<std::pair<QString, Word>>{}}) {
        FakeHost host(FakeHost::Created);
        host.languages = languages;
        host.send(3004u);
        EXPECT_EQ(host.count(3117), languages.empty() ? 0 : 1);
    }
}

TEST(Languages, TooManyReachTheHostAsOutOfMemory) {
    FakeHost host;
    host.answer(3116, [](void *, int wParam, int) {
        bytes::put<int>(fromWord<void>(wParam), 0, 5585134);
        return 0;
    });
    EXPECT_THROW(host.send(3004u), std::bad_alloc);
    EXPECT_EQ(host.count(3117), 1); // the one of the first start
}

TEST(Start, AFailureIsLoggedAndReachesTheHost) {
    FakeHost host;
    host.log.clear();
    host.answer(3207, [](void *, int, int) -> int { throw std::runtime_error("no dates"); });
    EXPECT_THROW(host.send(3004u), std::runtime_error);
    ASSERT_FALSE(host.log.empty());
    EXPECT_EQ(host.log.back().text, "Unknown throw in <CRGraphModule>|../Module|93");
    EXPECT_EQ(host.log.back().type, 1u);
    EXPECT_EQ(host.log.back().level, 5u);
    host.answer(3207, nullptr);
    EXPECT_EQ(host.send(3004u), 0);
}

TEST(MainWindow, LoadingMakesTheStatusBar) {
    FakeHost host(FakeHost::Started);
    host.clearTraffic();
    host.log.clear();
    EXPECT_EQ(host.send(3066u), 0);
    EXPECT_EQ(numbers(host), (std::vector<unsigned>{3001, 7000, 7000}));
    const std::vector<Call> panes = host.callsOf(7000);
    EXPECT_EQ(bytes::u32(panes[0].wRecord.constData(), 0), host.coreHandle());
    EXPECT_EQ(bytes::u32(panes[0].wRecord.constData(), 12), 2u);
    EXPECT_EQ(bytes::u32(panes[0].wRecord.constData(), 16), 98u);
    EXPECT_EQ(bytes::u32(panes[0].wRecord.constData(), 20), 120u);
    EXPECT_EQ(bytes::u32(panes[1].wRecord.constData(), 16), 99u);
    EXPECT_EQ(bytes::u32(panes[1].wRecord.constData(), 20), 50u);
    EXPECT_TRUE(logged(host, "CORE_MAINWINDOW_ISLOADING|GraphModule|1140"));
    EXPECT_TRUE(host.timeLabel);
}

TEST(MainWindow, ClosingSendsNothing) {
    FakeHost host;
    host.clearTraffic();
    EXPECT_EQ(host.send(3081u), 0);
    EXPECT_EQ(host.hostCalls(), 0);
}

TEST(SystemIsLoading, IsLoggedForBothValues) {
    FakeHost host;
    host.log.clear();
    Word value = 1;
    EXPECT_EQ(host.send(3062u, &value), 0);
    value = 0;
    EXPECT_EQ(host.send(3062u, &value), 0);
    int lines = 0;
    for (const LogLine &line : host.log)
        lines += line.text == "CORE_SYSTEM_IS_LOADING|GraphModule|1082" ? 1 : 0;
    EXPECT_EQ(lines, 2);
}

TEST(GlobalParameters, LanguageChangeSendsTheTextsAgain) {
    FakeHost host;
    const auto change = [&](int group, int value) {
        int record[2] = {group, value};
        host.clearTraffic();
        const int result = host.send(3115u, record);
        return std::make_pair(result, host.count(3019));
    };
    EXPECT_EQ(change(1, 1), std::make_pair(0, 236));
    EXPECT_EQ(change(1, 0), std::make_pair(0, 0));
    EXPECT_EQ(change(1, 7), std::make_pair(0, 0));
    EXPECT_EQ(change(2, 1), std::make_pair(0, 0));
    EXPECT_EQ(host.send(3115u), 1);
}

TEST(Texts, AnIdWithoutTextShowsAsItself) {
    FakeHost host(FakeHost::Initialized);
    for (const unsigned message : {3019u})
        host.troubleMessage(message);
    host.send(3007u);
    bytes::Record name(1012);
    EXPECT_EQ(host.send(5022u, name.data()), 0);
    EXPECT_EQ(bytes::text16(name.data(), 0, 500), "G0019");
}

} // namespace
