// Adding instruments: traffic, panes and layers, refusals.
#include "tests/boundary/instruments_view.h"

#include <QAbstractSlider>
#include <climits>

namespace {

const QString tickRefusal =
    "It is not possible to add instrument with tick timeframe on chart that has instuments "
    "with other timeframes and vice versa";

TEST(InstrumentAdding, SendsItsMessagesInOrder) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD"); // the transport's handle is known from here on
    host.clearTraffic();
    ASSERT_TRUE(host.addInstrument(chart, "GBPUSD"));
    std::vector<unsigned> numbers = traffic(host);
    const auto subscribed = std::find(numbers.begin(), numbers.end(), unsigned(ToHost::Subscribe));
    ASSERT_NE(subscribed, numbers.end());
    numbers.erase(subscribed + 1, numbers.end());
    EXPECT_EQ(numbers,
              std::vector<unsigned>({ToHost::InterfaceNames, ToHost::FindInterface, ToHost::SymbolDisplayName,
                                     ToHost::Milestone, ToHost::CreateObject, ToHost::FullPath,
                                     ToHost::OutputArrays, ToHost::DisplayNames, ToHost::Subscribe}));
    EXPECT_EQ(host.milestones.count("Add primary primitive"), 2);
}

TEST(InstrumentAdding, AsksForTheSeriesInAZeroedRecord) {
    FakeHost host;
    const Chart chart = host.createChart();
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    item.handle = fromWord<void>(host.interfaceOf("CANDLE"));
    item.instrument = makeName("EURUSD", "Ask", makePeriod('I', 5, 77));
    item.parameter = 42;
    mvwcDpaList list{1, &item};
    host.send(ToModule::AddInstruments, chart.handle, &list);
    const std::vector<Call> calls = host.callsOf(ToHost::CreateObject);
    ASSERT_EQ(calls.size(), 1u);
    const char *record = calls[0].wRecord.constData();
    ASSERT_EQ(calls[0].wRecord.size(), 806);
    EXPECT_EQ(bytes::i32(record, 0), 42);
    EXPECT_EQ(bytes::text16(record, 4, 255), "EURUSD");
    EXPECT_EQ(bytes::text8(record, 514, 255), "Ask");
    EXPECT_EQ(bytes::u8(record, 769), 'I');
    EXPECT_EQ(bytes::i32(record, 770), 5);
    EXPECT_EQ(bytes::i32(record, 774), 77);
    for (int offset = 778; offset < 806; ++offset)
        EXPECT_EQ(bytes::u8(record, offset), 0) << offset;
}

TEST(InstrumentAdding, AsksTheTransportForTheNameOfTheSymbol) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.removeInterface("CANDLE");
    host.addInterface("CANDLE", "OTHER", "Series");
    const Word transport = host.addInterface("CANDLE", "VELMAR", "CANDLE_VELMAR");
    host.addInstrument(chart, "EURUSD"); // of the other provider
    const std::vector<Call> calls = host.callsOf(ToHost::SymbolDisplayName);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(static_cast<Word>(toWord(calls[0].target)), transport);
    EXPECT_EQ(calls[0].lParam, 0);
    ASSERT_EQ(calls[0].wRecord.size(), 2040);
    EXPECT_EQ(bytes::text16(calls[0].wRecord.constData(), 0, 255), "EURUSD");
    for (int offset = 12; offset < 2040; ++offset)
        EXPECT_EQ(bytes::u8(calls[0].wRecord.constData(), offset), 0) << offset;
    EXPECT_TRUE(logged(host, "Indicator EUR/USD created successfully|GraphWidget|", 0));
}

TEST(InstrumentAdding, OfASymbolWithoutADisplayNameIsNamedByTheSymbol) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.troubleMessage(ToHost::SymbolDisplayName);
    ASSERT_TRUE(host.addInstrument(chart, "EURUSD"));
    EXPECT_TRUE(logged(host, "Indicator EURUSD created successfully|GraphWidget|", 0));
    acceptLayer(host, 1);
    ASSERT_TRUE(host.addInstrument(chart, "EURUSD", 'W', 1));
    EXPECT_EQ(chart.handle->m_areas[0]->m_layers[1]->m_name, "EURUSD Week Bid");
}

TEST(InstrumentAdding, LooksForTheServiceOfTheItemsProvider) {
    struct Case {
        const char *kind, *provider; // of the host's answer to 3012
        const char *wanted;
    };
    // Without a provider the start of the answer counts: that is all that some hosts write.
    for (const Case &names :
         {Case{"CANDLE", "OTHER", "OTHER"}, Case{"SHORT", "", "SHORT"}, Case{"", "", ""}}) {
        FakeHost host;
        const Chart chart = host.createChart();
        host.answer(ToHost::InterfaceNames, [&](void *, int, int lParam) {
            bytes::putText8(fromWord<void>(lParam), 0, 255, names.kind);
            bytes::putText8(fromWord<void>(lParam), 255, 255, names.provider);
            return 0;
        });
        host.clearTraffic();
        host.addInstrument(chart, "EURUSD");
        const Call asked = host.callsOf(ToHost::InterfaceNames).front();
        EXPECT_EQ(static_cast<Word>(asked.wParam), host.interfaceOf("CANDLE"));
        const Call found = host.callsOf(ToHost::FindInterface).front();
        EXPECT_EQ(bytes::text8(found.wRecord.constData(), 0, 255), "CANDLE");
        EXPECT_EQ(bytes::text8(found.wRecord.constData(), 255, 255), names.wanted);
        EXPECT_EQ(bytes::text8(found.wRecord.constData(), 510, 255), "");
    }
}

TEST(InstrumentAdding, NeedsTheInterfaceOfItsProvider) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.removeInterface("CANDLE");
    host.clearTraffic();
    EXPECT_FALSE(host.addInstrument(chart, "EURUSD"));
    EXPECT_EQ(host.count(ToHost::SymbolDisplayName), 0);
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
    EXPECT_EQ(viewOf(chart).indicators, 0);
}

TEST(InstrumentAdding, PutsEachSymbolIntoAPaneOfItsOwn) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addInstrument(chart, "GBPUSD");
    host.addInstrument(chart, "USDJPY");
    const ChartView view = viewOf(chart);
    EXPECT_EQ(view.layers, std::vector<int>({1, 1, 1}));
    EXPECT_EQ(view.line("EURUSD")->area, 0);
    EXPECT_EQ(view.line("GBPUSD")->area, 1);
    EXPECT_EQ(view.line("USDJPY")->area, 2);
    EXPECT_TRUE(view.line("USDJPY")->instrument);
}

TEST(InstrumentAdding, TakesAnEmptyPaneAheadOfANewOne) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    QMetaObject::invokeMethod(chart.widget, "OnBnClickedNewAreaButton");
    host.addInstrument(chart, "GBPUSD");
    EXPECT_EQ(viewOf(chart).layers, std::vector<int>({1, 1}));
    EXPECT_EQ(viewOf(chart).line("GBPUSD")->area, 1);
}

TEST(InstrumentAdding, OnAnEmptySelectedPaneUsesTheFirstPane) {
    FakeHost host;
    const Chart chart = host.createChart();
    QMetaObject::invokeMethod(chart.widget, "OnBnClickedNewAreaButton");
    QMetaObject::invokeMethod(chart.widget, "OnBnClickedNewAreaButton");
    chart.handle->m_nSelectedArea = 2;
    host.addInstrument(chart, "EURUSD");
    EXPECT_EQ(viewOf(chart).line("EURUSD")->area, 0);
    EXPECT_EQ(chart.handle->m_nSelectedArea, -1);
    chart.handle->m_nSelectedArea = 2;
    chart.handle->m_firstAreaForEmpty = false;
    host.addInstrument(chart, "GBPUSD");
    EXPECT_EQ(viewOf(chart).line("GBPUSD")->area, 2);
}

TEST(InstrumentAdding, OnAPaneThatIsGoneUsesTheFirstPane) {
    for (const int selected : {1, 7, -2, INT_MAX}) {
        FakeHost host;
        const Chart chart = host.createChart();
        chart.handle->m_nSelectedArea = selected;
        ASSERT_TRUE(host.addInstrument(chart, "EURUSD"));
        EXPECT_EQ(viewOf(chart).layers, std::vector<int>({1})) << selected;
        EXPECT_EQ(viewOf(chart).line("EURUSD")->area, 0) << selected;
    }
}

// Whatever comes of the addition, the view goes to the end.
TEST(InstrumentAdding, ScrollsToTheEndEvenWhenItIsRefused) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    auto *bar = qobject_cast<QAbstractSlider *>(childOfClass(chart.widget, "CTimeScrollBar"));
    ASSERT_TRUE(bar);
    bar->setValue(bar->minimum());
    ASSERT_LT(bar->value(), bar->maximum());
    chart.handle->m_nSelectedArea = 0;
    EXPECT_FALSE(host.addInstrument(chart, "GBPUSD", 'I', 0));
    EXPECT_EQ(bar->value(), bar->maximum());
    EXPECT_EQ(chart.handle->m_nSelectedArea, 0); // only an addition that succeeds takes it back
}

TEST(InstrumentAdding, KeepsTheSelectedPaneUntilItIsAnnounced) {
    FakeHost host;
    const Chart chart = host.createChart();
    chart.handle->m_nSelectedArea = 0;
    int selected = -2;
    host.setInterruption([&](const Call &call) {
        if (call.message == ToHost::Milestone &&
            bytes::text8(call.wRecord.constData(), 4, 255) == QByteArray("Add primary primitive"))
            selected = chart.handle->m_nSelectedArea;
    });
    host.addInstrument(chart, "EURUSD");
    EXPECT_EQ(selected, 0);
    EXPECT_EQ(chart.handle->m_nSelectedArea, -1);
}

TEST(InstrumentAdding, OfASymbolThatIsThereOffersItsLayer) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "GBPUSD");
    host.addInstrument(chart, "EURUSD");
    QString offered, title;
    int rows = 0;
    host.onDialog([&](QDialog *dialog) {
        EXPECT_EQ(dialog->windowTitle(), host.texts.value("G0059"));
        QTreeWidget *tree = treeOf(dialog);
        ASSERT_TRUE(tree);
        rows = tree->topLevelItemCount();
        offered = tree->currentItem()->text(0);
        const QTreeWidgetItem *last = tree->topLevelItem(rows - 1);
        for (int column = 0; column < tree->columnCount(); ++column)
            title += last->text(column) + "|";
        dialog->accept();
    });
    ASSERT_TRUE(host.addInstrument(chart, "EURUSD", 'I', 90));
    EXPECT_EQ(rows, 2);
    EXPECT_EQ(offered, "1");
    // Hours are whole hours.
    EXPECT_TRUE(title.contains("EUR/USD 1 Hour Bid|")) << qPrintable(title);
    const ChartView view = viewOf(chart);
    ASSERT_EQ(view.series.size(), 3u);
    EXPECT_EQ(view.series[2].area, 1);
    EXPECT_EQ(view.series[2].layer, 0);
}

TEST(InstrumentAdding, OnANewLayerNamesItByTheSeries) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    acceptLayer(host, 1);
    host.addInstrument(chart, "EURUSD", 'D', 1);
    const ChartView view = viewOf(chart);
    EXPECT_EQ(view.layers, std::vector<int>({2}));
    EXPECT_EQ(view.series[1].layer, 1);
    EXPECT_EQ(chart.handle->m_areas[0]->m_layers[1]->m_name, "EUR/USD Day Bid");
}

TEST(InstrumentAdding, EndsWhenTheLayerDialogIsCancelled) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    rejectDialog(host);
    host.clearTraffic();
    EXPECT_FALSE(host.addInstrument(chart, "EURUSD", 'I', 5));
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
    EXPECT_EQ(viewOf(chart).indicators, 1);
    EXPECT_TRUE(logged(host, "CRGraphWidget::AddPrimaryPrimitive: invalid Layer. return", 0));
}

TEST(InstrumentAdding, RefusesTicksBesideBarsAndBarsBesideTicks) {
    for (bool ticksFirst : {false, true}) {
        FakeHost host;
        const Chart chart = host.createChart();
        ASSERT_TRUE(host.addInstrument(chart, "EURUSD", 'I', ticksFirst ? 0 : 1));
        EXPECT_FALSE(host.addInstrument(chart, "GBPUSD", 'I', ticksFirst ? 1 : 0));
        EXPECT_EQ(host.dialogTexts, QStringList("Warning|" + tickRefusal));
        EXPECT_TRUE(logged(host, tickRefusal, 4));
        const ChartView view = viewOf(chart);
        EXPECT_EQ(view.series.size(), 1u);
        EXPECT_EQ(view.indicators, 2); // the refused one stays, without series
        EXPECT_EQ(host.lastObject()->subscribers.size(), 0u);
        EXPECT_EQ(host.milestones.count("Add primary primitive"), 1);
    }
}

TEST(InstrumentAdding, TakesTicksBesideTicks) {
    FakeHost host;
    const Chart chart = host.createChart();
    EXPECT_TRUE(host.addInstrument(chart, "EURUSD", 'I', 0));
    EXPECT_TRUE(host.addInstrument(chart, "GBPUSD", 'I', 0));
    EXPECT_EQ(viewOf(chart).series[1].type, 4);
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

TEST(InstrumentAdding, OfASecondCandleOnATesterChartIsRefused) {
    FakeHost host;
    const Chart chart = host.createChart(QSize(800, 600), 1);
    ASSERT_TRUE(host.addInstrument(chart, "EURUSD"));
    host.clearTraffic();
    EXPECT_FALSE(host.addInstrument(chart, "GBPUSD"));
    EXPECT_EQ(host.dialogTexts, QStringList("Warning|You can not add new candle."));
    EXPECT_TRUE(logged(host, "You can not add new candle.", 4));
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
}

TEST(InstrumentAdding, OnATesterChartWithoutCandlesIsTaken) {
    FakeHost host;
    const Chart chart = host.createChart(QSize(800, 600), 1);
    host.setDrawKind(3);
    EXPECT_TRUE(host.addInstrument(chart, "EURUSD"));
    EXPECT_TRUE(host.addInstrument(chart, "GBPUSD"));
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

class InstrumentDrawKind : public testing::TestWithParam<std::pair<Word, int>> {};

TEST_P(InstrumentDrawKind, DecidesHowItIsDrawn) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.setDrawKind(GetParam().first);
    const bool added = host.addInstrument(chart, "EURUSD");
    const ChartView view = viewOf(chart);
    EXPECT_EQ(added, GetParam().second >= 0);
    if (GetParam().second >= 0) {
        ASSERT_EQ(view.series.size(), 1u);
        EXPECT_EQ(view.series[0].type, GetParam().second);
    } else {
        EXPECT_EQ(view.indicators, 0);
        EXPECT_EQ(host.count(ToHost::Subscribe), 0);
        EXPECT_FALSE(host.milestones.contains("Add primary primitive"));
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, InstrumentDrawKind,
                         testing::Values(std::pair<Word, int>(0, -1), std::pair<Word, int>(1, 5),
                                         std::pair<Word, int>(2, 6), std::pair<Word, int>(3, 3),
                                         std::pair<Word, int>(4, -1), std::pair<Word, int>(5, 7),
                                         std::pair<Word, int>(6, -1), std::pair<Word, int>(7, 1),
                                         std::pair<Word, int>(8, 9), std::pair<Word, int>(9, -1),
                                         std::pair<Word, int>(10, 10), std::pair<Word, int>(11, -1)));

TEST(InstrumentAdding, EndsQuietlyWhenTheHostMakesNoObject) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.troubleMessage(ToHost::CreateObject);
    EXPECT_FALSE(host.addInstrument(chart, "EURUSD"));
    EXPECT_EQ(viewOf(chart).indicators, 0);
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

TEST(InstrumentAdding, EndsQuietlyWithoutAnArray) {
    for (const auto trouble : {FakeHost::Refuse, FakeHost::Garble}) {
        FakeHost host;
        const Chart chart = host.createChart();
        host.troubleMessage(ToHost::OutputArrays, trouble);
        EXPECT_FALSE(host.addInstrument(chart, "EURUSD"));
        EXPECT_EQ(viewOf(chart).indicators, 0);
        host.clearTrouble();
        EXPECT_TRUE(host.addInstrument(chart, "EURUSD"));
    }
}

TEST(InstrumentAdding, TakesANameThatFillsItsField) {
    FakeHost host;
    const Chart chart = host.createChart();
    const QString symbol(255, QLatin1Char('S'));
    ASSERT_TRUE(host.addInstrument(chart, symbol));
    EXPECT_EQ(viewOf(chart).series[0].line, symbol);
}

TEST(InstrumentAdding, OfAnUnknownUnitHasNoPeriodInItsTitle) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    acceptLayer(host, 1);
    ASSERT_TRUE(host.addInstrument(chart, "EURUSD", 'Q', 3));
    EXPECT_EQ(chart.handle->m_areas[0]->m_layers[1]->m_name, "EUR/USD  Bid");
}

TEST(InstrumentAdding, UnselectsWhatWasSelected) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    chart.handle->m_indicators[0]->m_primitives[0]->m_bSelected = 1;
    host.addInstrument(chart, "GBPUSD");
    EXPECT_FALSE(viewOf(chart).series[0].selected);
}

TEST(InstrumentAdding, ShowsTheLastCandles) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    EXPECT_EQ(chart.handle->m_nPrimitiveCount, 1);
    EXPECT_GT(chart.handle->m_nUpdateCount, 0);
    EXPECT_TRUE(host.caption(chart).startsWith("Terminal, EUR/USD 1 Hour Bid ("))
        << qPrintable(host.caption(chart));
}

TEST(InstrumentAdding, StandsAheadOfTheIndicatorsInTheCaption) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.setDrawKind(8); // dots on values are no instrument of the caption
    host.addInstrument(chart, "USDJPY");
    host.setDrawKind(1);
    host.addIndicator(chart, "CHF+EUR");
    host.addInstrument(chart, "GBPUSD");
    host.addInstrument(chart, "EURUSD");
    const QString caption = host.caption(chart);
    EXPECT_TRUE(caption.startsWith("Terminal, GBP/USD 1 Hour Bid (")) << qPrintable(caption);
    const int second = caption.indexOf(", EUR/USD 1 Hour Bid (");
    EXPECT_GT(second, 0) << qPrintable(caption);
    EXPECT_GT(caption.indexOf(", USD", second), second) << qPrintable(caption);
}

TEST(InstrumentAdding, SurvivesTheWindowsEndInItsDialogs) {
    for (bool ticks : {false, true}) {
        FakeHost host;
        Chart chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        const CRGraphWidget *window = chart.handle;
        host.onDialog([&](QDialog *) { host.send(ToModule::DeleteWindow, window); });
        EXPECT_FALSE(host.addInstrument(chart, ticks ? "GBPUSD" : "EURUSD", 'I', ticks ? 0 : 5));
        EXPECT_FALSE(chart.widget);
        EXPECT_EQ(host.send(ToModule::Show, window), 1);
    }
}

} // namespace
