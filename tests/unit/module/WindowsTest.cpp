// The module and its windows, seen from inside.
#include "chart/Primitive.h"
#include "objects/Indicator.h"
#include "tests/unit/module/LinkedHost.h"

#include <QEvent>
#include <gtest/gtest.h>

namespace {

TEST(WorkStop, TheFirstStopperWins) {
    LinkedHost host;
    Chart chart = host.createChart();
    CRGraphWidget &window = host.window(chart);
    host.send(3010u, &window, 5);
    EXPECT_TRUE(window.m_bWorkStopped);
    EXPECT_EQ(window.m_workStopOwner, 5);
    host.send(3010u, &window, 6);
    EXPECT_EQ(window.m_workStopOwner, 5);
    host.send(3011u, &window, 6);
    EXPECT_TRUE(window.m_bWorkStopped);
    host.send(3011u, &window, 5);
    EXPECT_FALSE(window.m_bWorkStopped);
    EXPECT_EQ(window.m_workStopOwner, 0);
}

TEST(Modes, ExcludeEachOther) {
    LinkedHost host;
    host.emitEvent("Velmar Game Mode", 1001);
    EXPECT_TRUE(module.IsGameMode());
    EXPECT_FALSE(module.IsCompetitionMode());
    host.emitEvent("Velmar Competition Mode", 2001);
    EXPECT_FALSE(module.IsGameMode());
    EXPECT_TRUE(module.IsCompetitionMode());
    host.emitEvent("Velmar Competition Mode", 2002);
    EXPECT_FALSE(module.IsCompetitionMode());
    host.emitEvent("Velmar Game Mode", 1001);
    host.emitEvent("Velmar Game Mode", 1002);
    EXPECT_FALSE(module.IsGameMode());
}

// One dealing side that tells nothing keeps no account of another in the game.
TEST(Modes, EveryAccountLeavesTheGame) {
    LinkedHost host;
    const Word second = host.addInterface("DEALING", "VELMAR", "second");
    module.GetTradeModule()->GetInterfacesList();
    ASSERT_EQ(module.GetTradeModule()->Interfaces().size(), 2u);
    host.answer(ToHost::AccountCount, [second](void *target, int wParam, int) {
        if (target != fromWord<void>(second))
            return 1;
        *fromWord<Word>(wParam) = 3;
        return 0;
    });
    host.answer(ToHost::Accounts, [](void *, int wParam, int) {
        auto *accounts = static_cast<mvdDealAccount *>(fromWord<mvdList>(wParam)->records);
        fromWord<mvdList>(wParam)->count = 2; // one has gone since they were counted
        accounts[0].account = 71;
        accounts[1].account = 72;
        return 0;
    });
    Chart chart = host.createChart();
    for (int turn = 0; turn < 2; ++turn) { // into the game and out of it, or the other way round
        host.clearTraffic();
        host.window(chart).OnSwitchGameMode();
        const auto leaving = host.callsOf(ToHost::AccountLeavesGame);
        if (host.count(ToHost::GameModeOn) == 1) {
            EXPECT_TRUE(leaving.empty());
            continue;
        }
        ASSERT_EQ(leaving.size(), 2u);
        EXPECT_EQ(leaving[0].target, fromWord<void>(second));
        EXPECT_EQ(leaving[0].wParam, 71);
        EXPECT_EQ(leaving[1].wParam, 72);
        EXPECT_EQ(host.calls().back().message, static_cast<unsigned>(ToHost::GameModeOff));
    }
}

// With the last account its symbols trade again, whatever its table says.
TEST(DayOff, GoesWithTheLastAccount) {
    LinkedHost host;
    mvdDayOff closed = zeroRecord<mvdDayOff>();
    fillField(closed.symbol, "AUDCAD");
    closed.dayOff = 1;
    host.dayOff[79] = {closed};
    mvdDealAccount account = zeroRecord<mvdDealAccount>();
    account.interfaceHandle = host.interfaceOf("DEALING");
    account.account = 79;
    MVEvent event = zeroRecord<MVEvent>();
    event.interfaceHandle = host.moduleInterface();
    event.subscriber = module.GetTradeModule();
    event.size = sizeof account;
    event.data = &account;
    const std::pair<Word, bool> steps[] = {{16002, true}, {16003, false}, {16048, true}};
    for (const auto &[code, dayOff] : steps) {
        event.code = code;
        EXPECT_EQ(host.send(3114u, &event), 0) << code;
        EXPECT_EQ(module.IsDayOff("AUDCAD"), dayOff) << code;
    }
    module.m_dayOff.clear();
}

TEST(CrossCursor, IsStoredByTheHostsMessage) {
    LinkedHost host;
    module.m_crossCursor = 0;
    Word mode = 1;
    host.send(3555u, 0, &mode);
    EXPECT_FALSE(module.IsCrossCursorMode());
    host.send(3555u, 1, &mode);
    EXPECT_TRUE(module.IsCrossCursorMode());
    mode = 0;
    host.send(3555u, 1, &mode);
    EXPECT_FALSE(module.IsCrossCursorMode());
}

TEST(CrossCursor, IsSentAndAskedForAtTheMainWindow) {
    LinkedHost host;
    module.m_tradeModule.GetMainGUIInterface();
    module.SetCrossCursorMode(true);
    EXPECT_EQ(host.crossCursor, 1u);
    EXPECT_TRUE(module.IsCrossCursorMode());
    host.crossCursor = 0;
    EXPECT_FALSE(module.GetCrossCursorMode());
    EXPECT_FALSE(module.IsCrossCursorMode());
    host.troubleMessage(3555);
    module.m_crossCursor = 1;
    EXPECT_TRUE(module.GetCrossCursorMode()); // without an answer the stored value stays
    module.m_crossCursor = 0;
}

TEST(CurrentWindow, IsTheVisibleOneWithTheFocus) {
    LinkedHost host;
    EXPECT_EQ(module.GetCurrentWidget(), nullptr);
    Chart first = host.createChart();
    Chart second = host.createChart();
    EXPECT_EQ(module.GetCurrentWidget(), second.handle);
    host.send(5009u, first.handle);
    EXPECT_EQ(module.GetCurrentWidget(), first.handle);
    EXPECT_FALSE(host.window(second).m_bCurrent);
    first.outer->hide();
    EXPECT_EQ(module.GetCurrentWidget(), nullptr);
}

TEST(WindowList, KeepsTheOrderOfCreation) {
    LinkedHost host;
    Chart first = host.createBareChart();
    Chart second = host.createBareChart();
    EXPECT_EQ(module.GetGraphWidgetIndex(first.handle), 0);
    EXPECT_EQ(module.GetGraphWidgetIndex(second.handle), 1);
    EXPECT_EQ(module.GetGraphWidgetIndex(nullptr), -1);
    host.deleteChart(first);
    EXPECT_EQ(module.GetGraphWidgetIndex(second.handle), 0);
}

TEST(CreateWindow, TesterChartsDoNotScrollByThemselves) {
    LinkedHost host;
    Chart plain = host.createBareChart();
    Chart tester = host.createBareChart(QSize(400, 300), 1);
    EXPECT_FALSE(host.window(plain).m_sysTesterChart);
    EXPECT_TRUE(host.window(tester).m_sysTesterChart);
}

TEST(Loading, FocusAndShowDoNothing) {
    LinkedHost host;
    Chart chart = host.createBareChart();
    CRGraphWidget &window = host.window(chart);
    window.m_loading = true;
    window.m_bHidden = true;
    host.clearTraffic();
    host.log.clear();
    EXPECT_EQ(host.send(5009u, &window), 0);
    EXPECT_EQ(host.send(5011u, &window), 0);
    EXPECT_EQ(host.send(5012u, &window), 0);
    EXPECT_FALSE(window.m_bCurrent);
    EXPECT_TRUE(window.m_bHidden);
    EXPECT_EQ(host.hostCalls(), 0);
    EXPECT_TRUE(host.log.empty());
    Word still = 1;
    host.send(3062u, &still);
    EXPECT_TRUE(window.m_loading);
    Word done = 0;
    host.send(3062u, &done);
    EXPECT_FALSE(window.m_loading);
    EXPECT_EQ(host.send(5011u, &window), 0);
    EXPECT_FALSE(window.m_bHidden);
}

TEST(MainWindow, FlagFollowsTheTwoMessages) {
    LinkedHost host;
    EXPECT_TRUE(module.m_mainWindowLoaded);
    host.send(3081u);
    EXPECT_FALSE(module.m_mainWindowLoaded);
    host.send(3066u);
    EXPECT_TRUE(module.m_mainWindowLoaded);
}

TEST(Tick, FlushesWhatIsFlaggedAndSkipsHiddenWindows) {
    LinkedHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    CRGraphWidget &window = host.window(chart);
    window.m_bUpdatePrimitivePositions = true;
    window.m_bNeedUpdate = true;
    window.m_bHidden = true;
    int rebuilds = window.m_nUpdateCount;
    host.tick();
    EXPECT_TRUE(module.m_timerStarted);
    EXPECT_EQ(window.m_nUpdateCount, rebuilds);
    EXPECT_TRUE(window.m_bNeedUpdate);
    window.m_bHidden = false;
    host.tick();
    EXPECT_EQ(window.m_nUpdateCount, rebuilds + 1);
    EXPECT_FALSE(window.m_bUpdatePrimitivePositions);
    EXPECT_FALSE(window.m_bNeedUpdate);
    rebuilds = window.m_nUpdateCount;
    host.tick();
    EXPECT_EQ(window.m_nUpdateCount, rebuilds);
}

// However many quotes arrive, the positions are rebuilt once a second.
TEST(Tick, ManyQuotesMakeOneRebuild) {
    LinkedHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    host.tick();
    CRGraphWidget &window = host.window(chart);
    const int rebuilds = window.m_nUpdateCount;
    for (int i = 0; i < 50; ++i)
        host.update(euro, 0);
    EXPECT_EQ(window.m_nUpdateCount, rebuilds);
    host.tick();
    EXPECT_EQ(window.m_nUpdateCount, rebuilds + 1);
    host.update(euro, 1); // rebuilt arrays are worked off at once
    EXPECT_GT(window.m_nUpdateCount, rebuilds + 1);
}

TEST(Refresh, LogsItsSteps) {
    LinkedHost host;
    Chart first = host.createChart();
    Chart second = host.createChart();
    host.window(second).m_bHidden = true;
    host.log.clear();
    module.UpdateAllScreenBuffer();
    EXPECT_EQ(
        host.logTexts().filter("|GraphModule|"),
        (QStringList{"CRGraphModule::UpdateAllScreenBuffer start|GraphModule|233", "update|GraphModule|240",
                     "CRGraphModule::UpdateAllScreenBuffer finish|GraphModule|243"}));
    host.log.clear();
    module.UpdateAllTradeData();
    EXPECT_EQ(
        host.logTexts().filter("|GraphModule|"),
        (QStringList{"CRGraphModule::UpdateAllTradeData start|GraphModule|248", "update|GraphModule|254",
                     "update|GraphModule|254", "CRGraphModule::UpdateAllTradeData finish|GraphModule|257"}));
    host.log.clear();
    module.UpdateScreenFromTrade();
    EXPECT_EQ(host.logTexts().filter("|GraphModule|"),
              (QStringList{"update|GraphModule|766", "update|GraphModule|766"}));
}

TEST(UserPath, IsTheWorkFolderOrTheFolderOfImages) {
    LinkedHost host;
    host.workFolder = "/somewhere";
    EXPECT_EQ(module.GetUserPath(), "/somewhere/");
    host.workFolder.clear();
    host.answer(3128, [](void *, int wParam, int) {
        EXPECT_EQ(bytes::u32(fromWord<void>(wParam), 0), 152u);
        bytes::putText16(fromWord<void>(wParam), 4, 1024, "/images");
        return 0;
    });
    EXPECT_EQ(module.GetUserPath(), "/images");
}

TEST(TemplatePath, LiesInTheWorkFolderOrIsTheFolderOfTemplates) {
    LinkedHost host;
    host.workFolder = "/somewhere";
    EXPECT_EQ(module.GetTemplatePath(), "/somewhere/templates");
    host.workFolder.clear();
    host.answer(3128, [](void *, int wParam, int) {
        EXPECT_EQ(bytes::u32(fromWord<void>(wParam), 0), 154u);
        bytes::putText16(fromWord<void>(wParam), 4, 1024, "/templates");
        return 0;
    });
    EXPECT_EQ(module.GetTemplatePath(), "/templates");
}

TEST(Deselect, ReachesEveryWindow) {
    LinkedHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.window(chart).SelectAllPrimitives(true);
    std::vector<CRPrimitive *> selected;
    host.window(chart).GetSelectedPrimitives(&selected);
    EXPECT_EQ(selected.size(), 1u);
    module.DeselectAllPrimitives();
    selected.clear();
    host.window(chart).GetSelectedPrimitives(&selected);
    EXPECT_TRUE(selected.empty());
}

TEST(PriceType, LooksAtTheSeriesOfEveryWindow) {
    LinkedHost host;
    Chart first = host.createChart();
    EXPECT_FALSE(module.NeedToSwitchToBid());
    EXPECT_FALSE(module.NeedToSwitchToMid());
    host.addInstrument(first, "EURUSD", 'I', 60, "Bid");
    EXPECT_FALSE(module.NeedToSwitchToBid());
    EXPECT_TRUE(module.NeedToSwitchToMid());
    Chart second = host.createChart();
    host.addInstrument(second, "EURUSD", 'I', 60, "Middle");
    EXPECT_FALSE(module.NeedToSwitchToBid());
    EXPECT_FALSE(module.NeedToSwitchToMid());
    host.deleteChart(first);
    EXPECT_TRUE(module.NeedToSwitchToBid());
}

// A series that is hidden stands on its chart all the same.
TEST(PriceType, CountsHiddenSeries) {
    LinkedHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD", 'I', 60, "Bid");
    ASSERT_EQ(host.window(chart).m_indicators.size(), 1u);
    host.window(chart).m_indicators.front()->m_primitives.front()->m_bVisible = 0;
    EXPECT_FALSE(module.NeedToSwitchToBid());
    EXPECT_TRUE(module.NeedToSwitchToMid());
}

} // namespace
