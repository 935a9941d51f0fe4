// Changing instruments: the timeframe panel, the data type, base data, the quick-add menu.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

int panel(FakeHost &host, const Chart &chart, int kind, int item) {
    bytes::Record window(8);
    bytes::put<Word>(window.data(), 4, static_cast<Word>(toWord(chart.handle)));
    bytes::Record state(8);
    bytes::put<int>(state.data(), 0, kind);
    bytes::put<int>(state.data(), 4, item);
    return host.send(ToModule::PanelState, window.data(), state.data());
}

struct PanelCase {
    int item;
    char unit;
    int length;
};

void PrintTo(const PanelCase &row, std::ostream *out) {
    *out << "row " << row.item;
}

class TimeframePanel : public testing::TestWithParam<PanelCase> {};

TEST_P(TimeframePanel, SendsThePeriodOfItsRow) {
    FakeHost host;
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD", 'W', 2);
    host.clearTraffic();
    EXPECT_EQ(panel(host, chart, 1, GetParam().item), 0);
    const std::vector<Call> calls = host.callsOf(ToHost::ChangeArray);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(static_cast<Word>(calls[0].wParam), object->handle);
    const char *record = calls[0].lRecord.constData();
    ASSERT_EQ(calls[0].lRecord.size(), 774);
    EXPECT_EQ(bytes::text16(record, 0, 255), "EURUSD");
    EXPECT_EQ(bytes::text8(record, 510, 255), "Bid");
    EXPECT_EQ(bytes::u8(record, 765), GetParam().unit);
    EXPECT_EQ(bytes::i32(record, 766), GetParam().length);
    EXPECT_TRUE(logged(host, "Timeframe changed\n", 0));
}

INSTANTIATE_TEST_SUITE_P(Rows, TimeframePanel,
                         testing::Values(PanelCase{0, 'I', 1}, PanelCase{1, 'I', 5}, PanelCase{2, 'I', 10},
                                         PanelCase{3, 'I', 60}, PanelCase{4, 'I', 180}, PanelCase{5, 'D', 1},
                                         PanelCase{6, 'M', 1}, PanelCase{7, 'Y', 1}, PanelCase{8, 'I', 0},
                                         PanelCase{9, 'W', 2}, PanelCase{1000, 'W', 2},
                                         PanelCase{-1, 'W', 2}));

TEST(TimeframePanel, OfKindZeroAsksAgain) {
    FakeHost host;
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    panel(host, chart, 0, 6);
    const std::vector<Call> calls = host.callsOf(ToHost::ReloadArray);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(static_cast<Word>(calls[0].wParam), object->handle);
    EXPECT_EQ(calls[0].lParam, 6);
    EXPECT_EQ(host.count(ToHost::ChangeArray), 0);
}

TEST(TimeframePanel, OfAnotherKindOnlyRefreshes) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    const int rebuilds = chart.handle->m_nUpdateCount;
    panel(host, chart, 2, 3);
    EXPECT_EQ(host.count(ToHost::ChangeArray) + host.count(ToHost::ReloadArray), 0);
    EXPECT_EQ(chart.handle->m_nUpdateCount, rebuilds + 1);
}

TEST(TimeframePanel, ShowsTheNewPeriod) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    panel(host, chart, 1, 5);
    EXPECT_TRUE(host.caption(chart).contains("EUR/USD Day Bid")) << qPrintable(host.caption(chart));
    panel(host, chart, 1, 8);
    EXPECT_EQ(viewOf(chart).series[0].type, 4);
}

// ---- which instruments are meant ----

/// The symbols that a change of the period goes to.
QStringList changed(FakeHost &host, const Chart &chart) {
    host.clearTraffic();
    panel(host, chart, 1, 1);
    QStringList symbols;
    for (const Call &call : host.callsOf(ToHost::ChangeArray))
        symbols += bytes::text16(call.lRecord.constData(), 0, 255);
    return symbols;
}

TEST(CurrentInstruments, IsTheOnlyOneWithoutASelectedPane) {
    FakeHost host;
    const Chart chart = host.createChart();
    EXPECT_EQ(changed(host, chart), QStringList());
    host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3));
    host.addIndicator(chart, "IND");
    EXPECT_EQ(chart.handle->m_nSelectedArea, -1);
    EXPECT_EQ(changed(host, chart), QStringList("EURUSD"));
    chart.handle->m_nSelectedArea = 1; // where there is none
    EXPECT_EQ(changed(host, chart), QStringList("EURUSD"));
}

TEST(CurrentInstruments, OfSeveralNeedASelectedPane) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addInstrument(chart, "GBPUSD");
    EXPECT_EQ(changed(host, chart), QStringList());
    chart.handle->m_nSelectedArea = 1;
    EXPECT_EQ(changed(host, chart), QStringList("GBPUSD"));
    chart.handle->m_nSelectedArea = 0;
    EXPECT_EQ(changed(host, chart), QStringList("EURUSD"));
}

TEST(CurrentInstruments, AreThoseOfThePaneThatTheUserClicksOn) {
    FakeHost host;
    const Chart chart = host.createChart(QSize(600, 400));
    host.addInstrument(chart, "EURUSD");
    host.addInstrument(chart, "GBPUSD");
    host.grab(chart);
    for (const int pane : {1, 0}) {
        const QRect rect = chart.handle->m_areas[static_cast<std::size_t>(pane)]->m_rect;
        Mouse(chart).click(QPoint(rect.center().x(), rect.top() + 20)); // beside the candles
        EXPECT_EQ(changed(host, chart), QStringList(pane ? "GBPUSD" : "EURUSD"));
    }
}

TEST(CurrentInstruments, OfOnePaneAreTheMarkedOnes) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    acceptLayer(host);
    host.addInstrument(chart, "EURUSD", 'I', 5);
    chart.handle->m_nSelectedArea = 0;
    EXPECT_EQ(changed(host, chart).size(), 2);
    chart.handle->m_indicators[1]->m_primitives[0]->m_bSelected = 1;
    EXPECT_EQ(changed(host, chart).size(), 1);
}

// ---- bid, ask, middle ----

std::pair<Word, Word> needToConvert(FakeHost &host) {
    bytes::Record list(12);
    EXPECT_EQ(host.send(ToModule::NeedToConvert, list.data()), 0);
    EXPECT_EQ(bytes::u32(list.data(), 0), 1u);
    return {bytes::u32(list.data(), 4), bytes::u32(list.data(), 8)};
}

TEST(PriceType, IsAskedForByWhatIsShown) {
    FakeHost host;
    using Answer = std::pair<Word, Word>;
    EXPECT_EQ(needToConvert(host), Answer(0, 3));
    const Chart chart = host.createChart();
    EXPECT_EQ(needToConvert(host), Answer(0, 3));
    host.addInstrument(chart, "EURUSD", 'I', 60, "Bid");
    EXPECT_EQ(needToConvert(host), Answer(1, 0)); // no middle price anywhere
    host.addInstrument(chart, "GBPUSD", 'I', 60, "Middle");
    EXPECT_EQ(needToConvert(host), Answer(0, 3));
    host.send(ToModule::ConvertToType, 0);
    EXPECT_EQ(needToConvert(host), Answer(1, 1));
    host.send(ToModule::ConvertToType, 7);
    EXPECT_EQ(needToConvert(host), Answer(1, 0));
}

// The list goes from one module to the next.
TEST(PriceType, AnswersBehindTheAnswersOfOthers) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    bytes::Record list(4 + 4 * 8);
    std::memset(list.data(), 0x5A, 4 + 4 * 8);
    bytes::put<Word>(list.data(), 0, 2);
    EXPECT_EQ(host.send(ToModule::NeedToConvert, list.data()), 0);
    EXPECT_EQ(bytes::u32(list.data(), 0), 3u);
    for (const int offset : {4, 8, 12, 16, 28, 32})
        EXPECT_EQ(bytes::u32(list.data(), offset), 0x5A5A5A5Au) << offset;
    EXPECT_EQ(bytes::u32(list.data(), 20), 1u);
    EXPECT_EQ(bytes::u32(list.data(), 24), 0u);
}

TEST(PriceType, ChangesEveryInstrumentOfEveryChart) {
    const std::pair<int, const char *> types[] = {{0, "Middle"}, {1, "Bid"}, {2, "Ask"}, {-1, "Ask"}};
    for (const auto &type : types) {
        FakeHost host;
        const Chart first = host.createChart();
        const Chart second = host.createChart();
        host.addInstrument(first, "EURUSD");
        host.addInstrument(first, "GBPUSD");
        host.addInstrument(second, "USDJPY");
        host.addIndicatorKind(indicatorKind("IND", 3));
        host.addIndicator(second, "IND");
        host.clearTraffic();
        EXPECT_EQ(host.send(ToModule::ConvertToType, type.first), 0);
        QStringList symbols;
        for (const Call &call : host.callsOf(ToHost::ChangeArray)) {
            symbols += bytes::text16(call.lRecord.constData(), 0, 255);
            EXPECT_EQ(bytes::text8(call.lRecord.constData(), 510, 255), type.second);
        }
        EXPECT_EQ(symbols, QStringList({"EURUSD", "GBPUSD", "USDJPY"}));
    }
}

TEST(PriceType, ReachesTheOtherWindowsWhenOneGoesMeanwhile) {
    FakeHost host;
    Chart first = host.createChart();
    Chart second = host.createChart();
    host.addInstrument(first, "EURUSD");
    host.addInstrument(first, "GBPUSD");
    FakeObject *left = host.addInstrument(second, "USDJPY");
    host.clearTraffic();
    bool done = false;
    host.setInterruption([&](const Call &call) {
        if (call.message == ToHost::ChangeArray && !done) {
            done = true;
            host.send(ToModule::DeleteWindow, first.handle);
        }
    });
    host.send(ToModule::ConvertToType, 0);
    host.setInterruption(nullptr);
    EXPECT_TRUE(done);
    EXPECT_EQ(viewOf(second).series.size(), 1u);
    const std::vector<Call> calls = host.callsOf(ToHost::ChangeArray);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(static_cast<Word>(calls[1].wParam), left->handle);
}

TEST(GameMode, AsksForTicks) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    host.emitEvent("Velmar Game Mode", EventCode::GameModeOn);
    const std::vector<Call> calls = host.callsOf(ToHost::ChangeArray);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(bytes::u8(calls[0].lRecord.constData(), 765), 'I');
    EXPECT_EQ(bytes::i32(calls[0].lRecord.constData(), 766), 0);
    host.clearTraffic();
    host.emitEvent("Velmar Game Mode", EventCode::GameModeOff);
    EXPECT_EQ(host.count(ToHost::ChangeArray), 0);
}

// ---- base data ----

QAction *baseAction(QObject *parent, Word handle) {
    auto *action = new QAction(parent);
    action->setData(handle);
    return action;
}

TEST(BaseData, OfAnInstrumentOnTheChartSelectsIt) {
    FakeHost host;
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    QMetaObject::invokeMethod(chart.widget, "OnShowBaseData",
                              Q_ARG(QAction *, baseAction(chart.frame, object->handle)));
    EXPECT_TRUE(viewOf(chart).series[0].selected);
    EXPECT_EQ(viewOf(chart).layers.size(), 1u);
    EXPECT_EQ(host.count(ToHost::OutputArrays), 0);
}

TEST(BaseData, OfAnotherObjectShowsItInAPaneOfItsOwn) {
    FakeHost host;
    const Chart other = host.createChart();
    FakeObject *object = host.addInstrument(other, "EURUSD");
    const Chart chart = host.createChart();
    host.addInstrument(chart, "GBPUSD");
    host.clearTraffic();
    QMetaObject::invokeMethod(chart.widget, "OnShowBaseData",
                              Q_ARG(QAction *, baseAction(chart.frame, object->handle)));
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
    const ChartView view = viewOf(chart);
    ASSERT_TRUE(view.line("EURUSD"));
    EXPECT_EQ(view.line("EURUSD")->area, 1);
    EXPECT_TRUE(view.line("EURUSD")->selected);
    EXPECT_FALSE(view.line("GBPUSD")->selected);
    EXPECT_TRUE(chart.handle->m_firstAreaForEmpty);
    EXPECT_EQ(object->subscribers.count(chart.handle), 1u);
}

TEST(BaseData, WithoutAHandleDoesNothing) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.clearTraffic();
    QMetaObject::invokeMethod(chart.widget, "OnShowBaseData", Q_ARG(QAction *, nullptr));
    QMetaObject::invokeMethod(chart.widget, "OnShowBaseData", Q_ARG(QAction *, new QAction(chart.frame)));
    QMetaObject::invokeMethod(chart.widget, "OnShowBaseData", Q_ARG(QAction *, baseAction(chart.frame, 0)));
    EXPECT_EQ(host.hostCalls(), 0);
    EXPECT_EQ(viewOf(chart).layers.size(), 1u);
}

// ---- quick add ----

QMenu *openQuickMenu(const Chart &chart) {
    QMetaObject::invokeMethod(chart.widget, "OnBnClickedAddGraphMenu");
    for (QMenu *menu : chart.widget->findChildren<QMenu *>())
        if (menu->parentWidget() == chart.widget && menu->isVisible())
            return menu;
    return nullptr;
}

TEST(QuickAdd, ShowsFourSymbolsAndFourIndicators) {
    FakeHost host;
    const Chart chart = host.createChart();
    chart.handle->m_nSelectedArea = 0;
    QMenu *menu = openQuickMenu(chart);
    ASSERT_TRUE(menu);
    EXPECT_EQ(chart.handle->m_nSelectedArea, -1);
    QStringList texts, states;
    for (const QAction *action : menu->actions()) {
        texts += action->isSeparator() ? QString("-") : action->text();
        states += action->data().toString() + (action->isEnabled() ? "" : "!");
    }
    EXPECT_EQ(texts, QStringList({"USD/CHF", "EUR/USD", "GBP/USD", "USD/JPY", "Instruments...", "-",
                                  "Moving Average", "MACD", "Ichimoku", "Bollinger", "Indicators..."}));
    EXPECT_EQ(states, QStringList({"CHF", "EUR", "GBP", "JPY", "4", "", "5!", "8!", "10!", "11!", "12!"}));
    QStringList periods, rows;
    for (const QAction *action : menu->actions()[1]->menu()->actions()) {
        periods += action->text();
        rows += action->data().toString();
    }
    EXPECT_EQ(periods, QStringList({"1 hour", "3 hours", "Day", "Month", "Year"}));
    EXPECT_EQ(rows, QStringList({"0", "1", "2", "3", "4"}));
    menu->close();
    host.settle();
    host.addInstrument(chart, "EURUSD");
    menu = openQuickMenu(chart);
    EXPECT_TRUE(menu->actions()[6]->isEnabled());
    menu->close();
}

class QuickAddPeriod : public testing::TestWithParam<PanelCase> {};

TEST_P(QuickAddPeriod, AsksForTheBidSeries) {
    FakeHost host;
    const Chart chart = host.createChart();
    QMenu *menu = openQuickMenu(chart);
    ASSERT_TRUE(menu);
    host.clearTraffic();
    menu->actions()[2]->menu()->actions()[GetParam().item]->trigger();
    menu->close();
    const std::vector<Call> calls = host.callsOf(ToHost::CreateObject);
    ASSERT_EQ(calls.size(), 1u);
    const char *record = calls[0].wRecord.constData();
    EXPECT_EQ(bytes::text16(record, 4, 255), "GBP");
    EXPECT_EQ(bytes::text8(record, 514, 255), "Bid");
    EXPECT_EQ(bytes::u8(record, 769), GetParam().unit);
    EXPECT_EQ(bytes::i32(record, 770), GetParam().length);
    EXPECT_EQ(host.count(ToHost::RaisePanel), 0);
    const std::vector<Call> finds = host.callsOf(ToHost::FindInterface);
    EXPECT_EQ(bytes::text8(finds[0].wRecord.constData(), 0, 255), "CANDLE");
    EXPECT_EQ(bytes::text8(finds[0].wRecord.constData(), 255, 255), "VELMAR");
}

INSTANTIATE_TEST_SUITE_P(Rows, QuickAddPeriod,
                         testing::Values(PanelCase{0, 'I', 60}, PanelCase{1, 'I', 180}, PanelCase{2, 'D', 0},
                                         PanelCase{3, 'M', 0}, PanelCase{4, 'Y', 0}));

TEST(QuickAdd, RaisesTheHostsPickers) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    QMenu *menu = openQuickMenu(chart);
    host.clearTraffic();
    menu->actions()[4]->trigger();
    menu->actions()[10]->trigger();
    menu->close();
    const std::vector<Call> calls = host.callsOf(ToHost::RaisePanel);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].wParam, 1);
    EXPECT_EQ(calls[1].wParam, 2);
    EXPECT_EQ(static_cast<Word>(toWord(calls[0].target)), host.interfaceOf("MAINWINDOW"));
}

TEST(QuickAdd, AddsItsIndicators) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    QMenu *menu = openQuickMenu(chart);
    host.clearTraffic();
    menu->actions()[7]->trigger(); // MACD has a pane of its own
    menu->close();
    EXPECT_EQ(host.count(ToHost::IndicatorNeedsSource), 1);
    EXPECT_TRUE(viewOf(chart).line("MACD"));
    EXPECT_TRUE(viewOf(chart).line("Signal"));
}

TEST(QuickAdd, OfTheToolBarAsksForTicksOfTheMiddlePrice) {
    const char *symbols[] = {"CHF", "EUR", "GBP", "JPY"};
    for (int i = -1; i < 5; ++i) {
        FakeHost host;
        const Chart chart = host.createChart();
        QMetaObject::invokeMethod(chart.widget, "OnMODERNQuickAddGraphPressed", Q_ARG(int, i));
        const std::vector<Call> calls = host.callsOf(ToHost::CreateObject);
        ASSERT_EQ(calls.size(), i < 0 || i > 3 ? 0u : 1u) << i;
        if (calls.empty())
            continue;
        const char *record = calls[0].wRecord.constData();
        EXPECT_EQ(bytes::text16(record, 4, 255), symbols[i]);
        EXPECT_EQ(bytes::text8(record, 514, 255), "Middle");
        EXPECT_EQ(bytes::u8(record, 769), 'I');
        EXPECT_EQ(bytes::i32(record, 770), 0);
    }
}

TEST(QuickAdd, OfAChartIdentityOpensThePickerOnItsName) {
    FakeHost host;
    const Chart chart = host.createChart();
    std::vector<coreIndicatorIdentity> identities(2, zeroRecord<coreIndicatorIdentity>());
    fillField(identities[1].sNameInstrument.m_szNameSymbol, QString("EUR"));
    fillField(identities[1].sNameInstrument.m_szType, "USD");
    chart.handle->m_chartIdentities = identities;
    std::vector<QString> names;
    Word target = 0;
    host.answer(ToHost::OpenChartIdentity, [&](void *to, int wParam, int) {
        target = static_cast<Word>(toWord(to));
        names.push_back(readEndedText(fromWord<const unsigned short>(wParam)));
        return 0;
    });
    for (int entry : {-1, 1, 2})
        QMetaObject::invokeMethod(chart.widget, "OnMODERNAddGraphPressed", Q_ARG(int, entry));
    EXPECT_EQ(names, std::vector<QString>{"EUR/USD"});
    EXPECT_EQ(target, host.interfaceOf("MAINWINDOW"));
}

} // namespace
