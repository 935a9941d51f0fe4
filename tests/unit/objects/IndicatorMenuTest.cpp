// What has no message of its own: the menu of indicators, base data, indicators from stored data.
#include "objects/Indicator.h"
#include "tests/boundary/instruments_view.h"
#include "tests/unit/module/LinkedHost.h"

#include <QMenu>

namespace {

QStringList textsOf(const QMenu *menu) {
    QStringList texts;
    for (const QAction *action : menu->actions())
        texts += action->text();
    return texts;
}

TEST(IndicatorCatalogue, HoldsEveryDescriptionOfEveryInterface) {
    LinkedHost host;
    host.addInterface("MVINDICATORS", "OTHER", "More");
    const Chart chart = host.createChart();
    chart.handle->CreateGlobalIndicatorsList();
    EXPECT_EQ(chart.handle->m_globalIndicators.size(), 8u); // four kinds, told by each of the two
    chart.handle->CreateGlobalIndicatorsList();
    EXPECT_EQ(chart.handle->m_globalIndicators.size(), 8u);
}

TEST(IndicatorCatalogue, IsEmptyWithoutAnAnswer) {
    for (const unsigned message : {ToHost::CountInterfaces, ToHost::IndicatorCount, ToHost::IndicatorList}) {
        for (const auto trouble : {FakeHost::Refuse, FakeHost::Garble}) {
            LinkedHost host;
            const Chart chart = host.createChart();
            host.troubleMessage(message, trouble);
            chart.handle->CreateGlobalIndicatorsList();
            // A host that takes the list and fills nothing in leaves entries without a name.
            const bool unfilled = message == ToHost::IndicatorList && trouble == FakeHost::Refuse;
            EXPECT_EQ(chart.handle->m_globalIndicators.empty(), !unfilled) << message;
        }
    }
}

TEST(IndicatorMenu, HoldsTheCategoriesInTheirOrder) {
    LinkedHost host;
    const Chart chart = host.createChart();
    FakeIndicator odd = indicatorKind("ODD", 0);
    odd.category = 7;
    host.addIndicatorKind(odd);
    QMenu empty;
    chart.handle->AddIndicatorMenu(&empty);
    EXPECT_TRUE(empty.actions().isEmpty()); // nothing to build on
    host.addInstrument(chart, "EURUSD");
    QMenu menu;
    chart.handle->AddIndicatorMenu(&menu);
    ASSERT_EQ(textsOf(&menu), QStringList("Indicators"));
    const QMenu *indicators = menu.actions()[0]->menu();
    EXPECT_EQ(textsOf(indicators), QStringList({"Trend indicators", "Oscillators", "Volatility indicators",
                                                "Other indicators", "Ostrel indicators"}));
    EXPECT_EQ(textsOf(indicators->actions()[0]->menu()), QStringList("Moving Average (3)"));
    EXPECT_EQ(textsOf(indicators->actions()[1]->menu()), QStringList("MACD (1, 2)"));
    EXPECT_EQ(textsOf(indicators->actions()[2]->menu()), QStringList("Bollinger (3)"));
    EXPECT_EQ(textsOf(indicators->actions()[3]->menu()), QStringList("CHF+EUR"));
    EXPECT_TRUE(indicators->actions()[4]->menu()->actions().isEmpty()); // a category 7 is in no menu
}

TEST(IndicatorMenu, AddsWithoutAskingForTheNeedOfASource) {
    LinkedHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    QMenu menu;
    chart.handle->AddIndicatorMenu(&menu);
    host.clearTraffic();
    menu.actions()[0]->menu()->actions()[1]->menu()->actions()[0]->trigger();
    EXPECT_EQ(host.count(ToHost::IndicatorNeedsSource), 0);
    EXPECT_TRUE(viewOf(chart).line("MACD"));
}

TEST(IndicatorMenu, OpensThePickerOverSeveralSeries) {
    LinkedHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addInstrument(chart, "GBPUSD");
    EXPECT_EQ(chart.handle->CreateIndicatorFromMenu("MACD", fromWord<void>(host.interfaceOf("MVINDICATORS"))),
              nullptr);
    EXPECT_TRUE(chart.handle->SourcePicker());
}

// ---- base data ----

TEST(BaseDataMenu, ListsEachBaseOnce) {
    LinkedHost host;
    const Chart chart = host.createChart();
    QMenu none;
    EXPECT_FALSE(chart.handle->GetBaseData(&none));
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    EXPECT_FALSE(chart.handle->GetBaseData(&none));
    host.addIndicatorKind(indicatorKind("IND", 3));
    host.addIndicator(chart, "IND");
    chart.handle->AddSecondaryPrimitive(QString("MACD").utf16(),
                                        fromWord<void>(host.interfaceOf("MVINDICATORS")),
                                        chart.handle->GetAnyPrimitive(), nullptr);
    QMenu menu;
    EXPECT_TRUE(chart.handle->GetBaseData(&menu));
    ASSERT_EQ(menu.actions().size(), 1);
    EXPECT_EQ(menu.actions()[0]->text(), "EUR/USD");
    EXPECT_EQ(menu.actions()[0]->data().toUInt(), euro->handle);
    menu.actions()[0]->trigger();
    EXPECT_TRUE(viewOf(chart).series[0].selected);
}

TEST(BaseDataMenu, WithoutADisplayNameShowsSymbolAndType) {
    LinkedHost host;
    const Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3));
    host.addIndicator(chart, "IND");
    euro->alias.clear();
    QMenu menu;
    chart.handle->GetBaseData(&menu);
    EXPECT_EQ(textsOf(&menu), QStringList("EURUSD/Bid"));
}

// ---- from stored data ----

struct StoredChart {
    StoredChart() : chart(host.createChart()) {
        host.addInstrument(chart, "EURUSD");
        host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B", "C"}));
        host.addIndicatorKind(indicatorKind("SAME", 0, 1, {"A", "B"}));
        host.addIndicatorKind(indicatorKind("LAYER", 1, 1, {"A", "B"}));
        host.addIndicatorKind(indicatorKind("FREE", 3, 0, {"A"}));
        host.clearTraffic();
    }
    void *create(const char *name, bool withBase = true, long mask = 0, void *handle = nullptr,
                 coreSzNode *node = nullptr) {
        return chart.handle->CreateIndicator(
            fromWord<void>(host.interfaceOf("MVINDICATORS")), QString(name).utf16(),
            withBase ? chart.handle->GetAnyPrimitive() : nullptr, mask, node, handle, true);
    }
    LinkedHost host;
    Chart chart;
};

TEST(StoredIndicator, SendsItsMessagesInOrder) {
    StoredChart on;
    ASSERT_TRUE(on.create("SAME"));
    std::vector<unsigned> numbers = traffic(on.host);
    numbers.resize(9);
    EXPECT_EQ(numbers,
              std::vector<unsigned>({ToHost::CreateObject, ToHost::SourceCount, ToHost::HandOverSources,
                                     ToHost::OutputCount, ToHost::OutputArrays, ToHost::FullPath,
                                     ToHost::HorizontalLevels, ToHost::Subscribe, ToHost::LinkCount}));
    EXPECT_EQ(on.host.milestones.last(), "Add indicator");
    EXPECT_EQ(on.host.count(ToHost::ConfirmObject), 0);
}

TEST(StoredIndicator, IsPlacedWithoutADialog) {
    struct Case {
        const char *name;
        int panes, layers, area, layer;
    };
    for (const Case &expected :
         {Case{"IND", 2, 1, 1, 0}, Case{"SAME", 1, 1, 0, 0}, Case{"LAYER", 1, 2, 0, 1}}) {
        StoredChart on;
        ASSERT_TRUE(on.create(expected.name));
        const ChartView view = viewOf(on.chart);
        EXPECT_EQ(static_cast<int>(view.layers.size()), expected.panes);
        EXPECT_EQ(view.layers[0], expected.layers);
        for (const char *line : {"A", "B"}) {
            EXPECT_EQ(view.line(line)->area, expected.area) << expected.name;
            EXPECT_EQ(view.line(line)->layer, expected.layer) << expected.name;
        }
        EXPECT_TRUE(on.host.dialogTexts.isEmpty());
    }
}

TEST(StoredIndicator, OfCodeThreeTakesALayerOfTheSelectedPane) {
    StoredChart on;
    on.chart.handle->m_nSelectedArea = 0;
    ASSERT_TRUE(on.create("IND"));
    EXPECT_EQ(viewOf(on.chart).layers, std::vector<int>({2}));
    EXPECT_EQ(on.chart.handle->GetArea(0)->m_layers[1]->m_name, "");
}

TEST(StoredIndicator, TakesTheOutputsOfItsMask) {
    StoredChart on;
    ASSERT_TRUE(on.create("IND", true, 5));
    const ChartView view = viewOf(on.chart);
    ASSERT_EQ(view.series.size(), 3u);
    EXPECT_EQ(view.series[1].line, "A");
    EXPECT_EQ(view.series[2].line, "C");
    EXPECT_EQ(view.series[2].area, view.series[1].area);
    EXPECT_EQ(view.series[2].layer, view.series[1].layer);
    EXPECT_EQ(
        on.chart.handle->FindIndicator(on.chart.handle->m_indicators[1]->GetHandle())->GetPrimitiveMask(), 5);
}

TEST(StoredIndicator, WithInputsNeedsABase) {
    StoredChart on;
    EXPECT_FALSE(on.create("IND", false));
    EXPECT_EQ(viewOf(on.chart).indicators, 1);
    EXPECT_TRUE(on.create("FREE", false));
    EXPECT_EQ(viewOf(on.chart).line("A")->area, 0);
}

TEST(StoredIndicator, CarriesItsNodeAndTakesAHandle) {
    StoredChart on;
    coreSzNode node{0x1234, 0x5678};
    ASSERT_TRUE(on.create("IND", true, 0, nullptr, &node));
    const char *record = on.host.callsOf(ToHost::CreateObject).front().wRecord.constData();
    EXPECT_EQ(bytes::u32(record, 794), 0x1234u);
    EXPECT_EQ(bytes::u32(record, 798), 0x5678u);
    EXPECT_EQ(bytes::u32(record, 802), 0u);
    FakeObject *made = on.host.lastObject();
    on.host.clearTraffic();
    EXPECT_EQ(on.create("IND", true, 0, fromWord<void>(made->handle)), fromWord<void>(made->handle));
    EXPECT_EQ(on.host.count(ToHost::CreateObject), 0);
}

TEST(StoredIndicator, OnTicksIsRefused) {
    LinkedHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD", 'I', 0);
    host.clearTraffic();
    EXPECT_FALSE(chart.handle->CreateIndicator(nullptr, QString("MA").utf16(),
                                               chart.handle->GetAnyPrimitive(), 0, nullptr, nullptr, true));
    EXPECT_EQ(host.hostCalls(), 0);
}

// ---- small questions ----

TEST(SimilarSeries, ShareThePeriodAndThePane) {
    StoredChart on;
    on.create("SAME");
    on.create("IND");
    std::vector<CRPrimitive *> similar;
    const CRPrimitive *instrument = on.chart.handle->GetAnyPrimitive();
    EXPECT_EQ(on.chart.handle->FindSimilarPrimitives(instrument, &similar), 2);
    similar.front()->m_bVisible = 0;
    EXPECT_EQ(on.chart.handle->FindSimilarPrimitives(instrument, &similar), 1);
    similar.front()->GetArray()->identity.m_periods.lenPeriod = 5;
    EXPECT_EQ(on.chart.handle->FindSimilarPrimitives(instrument, &similar), 0);
}

TEST(DataTypes, AreCountedByTheirText) {
    LinkedHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD", 'I', 60, "Ask");
    host.addInstrument(chart, "GBPUSD");
    host.addIndicatorKind(indicatorKind("IND", 3));
    EXPECT_EQ(chart.handle->CountDpaByType("Ask"), 1);
    EXPECT_EQ(chart.handle->CountDpaByType("Bid"), 1);
    EXPECT_EQ(chart.handle->CountDpaByType("Middle"), 0);
    EXPECT_EQ(chart.handle->CountDpaByType("bid"), 0);
}

TEST(LastSeries, TakesItsSubscriptionAlong) {
    LinkedHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addInstrument(chart, "GBPUSD");
    host.clearTraffic();
    chart.handle->CheckUnsubscribeIndicatorPrimitive(chart.handle->GetAnyPrimitive());
    EXPECT_EQ(host.count(ToHost::Unsubscribe), 0);
    chart.handle->RemovePrimitive(chart.handle->GetAnyPrimitive());
    EXPECT_EQ(host.count(ToHost::Unsubscribe), 1);
    chart.handle->CheckUnsubscribeIndicatorPrimitive(chart.handle->GetAnyPrimitive());
    EXPECT_EQ(host.count(ToHost::Unsubscribe), 2);
    chart.handle->CheckUnsubscribeIndicatorPrimitive(nullptr);
    EXPECT_EQ(host.count(ToHost::Unsubscribe), 2);
}

TEST(Removal, OfAnArrayTakesItsLines) {
    StoredChart on;
    on.create("IND");
    CRIndicator *indicator = on.chart.handle->m_indicators[1];
    on.chart.handle->m_bUpdatePrimitivePositions = false;
    on.chart.handle->RemovePrimitive((*indicator)[1]->GetArray());
    EXPECT_EQ(indicator->GetPrimitiveCount(), 2);
    EXPECT_TRUE(on.chart.handle->m_bUpdatePrimitivePositions);
    on.chart.handle->RemovePrimitive((*indicator)[0]->GetArray());
    on.chart.handle->RemovePrimitive((*indicator)[0]->GetArray());
    EXPECT_EQ(viewOf(on.chart).indicators, 1);
    EXPECT_EQ(on.host.count(ToHost::Unsubscribe), 1);
    on.chart.handle->RemovePrimitive(static_cast<mvDataPointArray *>(nullptr));
    EXPECT_EQ(viewOf(on.chart).indicators, 1);
}

TEST(Removal, OfSelectedObjects) {
    StoredChart on;
    on.create("IND");
    on.create("SAME");
    on.chart.handle->SelectIndicator((*on.chart.handle->m_indicators[1])[0], true);
    on.chart.handle->DeleteObjects();
    EXPECT_EQ(viewOf(on.chart).indicators, 2);
    EXPECT_EQ(viewOf(on.chart).series.size(), 3u);
    (*on.chart.handle->m_indicators[1])[0]->SetSelected(true);
    on.chart.handle->m_movingLS = true;
    on.chart.handle->DeleteObjects();
    EXPECT_EQ(viewOf(on.chart).series.size(), 3u);
    on.chart.handle->m_movingLS = false;
    on.chart.handle->DeleteObjects();
    EXPECT_EQ(viewOf(on.chart).series.size(), 2u);
}

TEST(SingleInstrument, TellsItsName) {
    LinkedHost host;
    const Chart chart = host.createChart();
    mvwcNameDataComponent record = zeroRecord<mvwcNameDataComponent>();
    std::memset(record.name, 'x', sizeof record.name);
    chart.handle->GetSingleInstrumentName(&record);
    EXPECT_EQ(fieldText(record.name), "");
    host.addInstrument(chart, "EURUSD");
    chart.handle->GetSingleInstrumentName(&record);
    EXPECT_EQ(fieldText(record.name), "EUR/USD 1 Hour Bid");
}

} // namespace
