// What the host tells about objects that are on the chart: data, outputs, names.
#include "tests/boundary/instruments_view.h"

#include <QAbstractSlider>

namespace {

/// The messages about links and levels, in their order.
std::vector<unsigned> extrasAsked(const FakeHost &host) {
    std::vector<unsigned> numbers;
    for (unsigned number : traffic(host))
        if (number == ToHost::LinkCount || number == ToHost::Links || number == ToHost::HorizontalLevels)
            numbers.push_back(number);
    return numbers;
}

/// An instrument, and an indicator of the outputs A, B, C in a pane of its own.
struct UpdatedChart {
    UpdatedChart() : chart(host.createChart()), instrument(host.addInstrument(chart, "EURUSD")) {
        host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B", "C"}));
        host.addIndicator(chart, "IND");
        indicator = host.lastObject();
        host.clearTraffic();
    }

    /// The object's outputs are these from now on, and the window hears of it.
    int rebuild(const QStringList &names) {
        FakeIndicator kind = indicator->kind;
        std::vector<std::unique_ptr<FakeArray>> arrays;
        kind.outputs.clear();
        for (const QString &name : names) {
            std::unique_ptr<FakeArray> array;
            for (auto &old : indicator->outputs)
                if (old && fieldText(old->header()->identity.m_szNameSymbol) == name)
                    array = std::move(old);
            if (!array) {
                array.reset(new FakeArray);
                fillField(array->header()->identity.m_szNameSymbol, name);
                array->header()->identity.m_periods = makePeriod('I', 60);
                array->header()->owner = fromWord<void>(indicator->handle);
                array->header()->typeShow.drawKind = 4;
                array->setValues({});
            }
            arrays.push_back(std::move(array));
            kind.outputs.push_back({name, 4, 0, 3, nullptr});
        }
        for (auto &old : indicator->outputs)
            if (old)
                dropped.push_back(std::move(old)); // a host keeps them until the message is through
        indicator->outputs = std::move(arrays);
        indicator->kind = kind;
        host.recompute(indicator);
        std::vector<mvDataPointArray *> headers;
        for (auto &array : indicator->outputs)
            headers.push_back(array->header());
        coreRebuildDpa record{fromWord<void>(indicator->handle), 0xDEADBEEF, static_cast<int>(headers.size()),
                              headers.data()};
        return host.send(ToModule::RebuildOutputs, chart.handle, &record);
    }
    QStringList lines() const {
        QStringList names;
        for (const SeriesView &entry : viewOf(chart).series)
            if (!entry.instrument)
                names += entry.line;
        return names;
    }

    std::vector<std::unique_ptr<FakeArray>> dropped;
    FakeHost host;
    Chart chart;
    FakeObject *instrument;
    FakeObject *indicator;
};

TEST(DataUpdate, OfEachKnownKindAsksForLinksAndLevels) {
    for (int kind : {0, 1, 2}) {
        UpdatedChart on;
        on.host.update(on.indicator, on.chart, kind);
        EXPECT_EQ(extrasAsked(on.host),
                  std::vector<unsigned>({ToHost::LinkCount, ToHost::Links, ToHost::HorizontalLevels}))
            << kind;
        EXPECT_EQ(on.chart.handle->m_indicators[1]->m_updateKind, kind);
    }
}

TEST(DataUpdate, OfAnotherKindDoesNothingToTheLines) {
    for (int kind : {3, -1, 99}) {
        UpdatedChart on;
        on.host.update(on.indicator, on.chart, kind);
        EXPECT_EQ(on.host.count(ToHost::LinkCount), 0);
        EXPECT_EQ(on.host.count(ToHost::HorizontalLevels), 0);
    }
}

TEST(DataUpdate, WaitsForTheTickWithTheRebuild) {
    UpdatedChart on;
    on.host.tick();
    const int rebuilds = on.chart.handle->m_nUpdateCount;
    on.host.appendBar(on.instrument, makeBars(201).back());
    on.host.update(on.instrument, 0);
    on.host.update(on.instrument, 0);
    EXPECT_EQ(on.chart.handle->m_nUpdateCount, rebuilds);
    EXPECT_TRUE(on.chart.handle->m_bUpdatePrimitivePositions);
    on.host.tick();
    EXPECT_EQ(on.chart.handle->m_nUpdateCount, rebuilds + 1);
    on.host.tick();
    EXPECT_EQ(on.chart.handle->m_nUpdateCount, rebuilds + 1);
}

TEST(DataUpdate, OfAStrangeHandleTouchesNoLine) {
    UpdatedChart on;
    FakeObject stranger;
    stranger.handle = 0x0BADF00D;
    on.host.update(&stranger, on.chart, 0);
    EXPECT_EQ(on.host.count(ToHost::LinkCount), 0);
}

// Whoever's data it was: the positions wait for the tick.
TEST(DataUpdate, LogsTheMarkOfThePositionsForEachObject) {
    for (const Word handle : {0x0BADF00Du, 0u}) {
        UpdatedChart on;
        FakeObject stranger;
        stranger.handle = handle;
        on.host.tick();
        on.host.log.clear();
        on.host.update(handle ? &stranger : on.indicator, on.chart, 0);
        int marks = 0;
        for (const LogLine &line : on.host.log)
            marks += line.text.startsWith("m_bUpdatePrimitivePositions = true|GraphWidget|");
        EXPECT_EQ(marks, 2);
        EXPECT_TRUE(on.chart.handle->m_bUpdatePrimitivePositions);
    }
}

TEST(DataUpdate, OfADisplayTakesNewColours) {
    UpdatedChart on;
    on.indicator->array(1).header()->typeShow.secondColor = 0xFF112233;
    on.host.update(on.indicator, on.chart, 2);
    EXPECT_EQ(on.chart.handle->m_indicators[1]->m_primitives[1]->m_lineColor.rgb() & 0xFFFFFF, 0x112233u);
}

TEST(DataUpdate, WithMoreHistoryKeepsTheCandleAtTheEdge) {
    FakeHost host;
    const std::vector<Bar> all = makeBars(400);
    host.setHistory("EURUSD", std::vector<Bar>(all.begin() + 100, all.end()));
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD");
    host.tick();
    auto *bar = qobject_cast<QAbstractSlider *>(childOfClass(chart.widget, "CTimeScrollBar"));
    ASSERT_TRUE(bar);
    bar->setValue(150); // position 149 stands at the edge, which is bar 249 of all
    object->array().setCandles(all);
    host.update(object, 1);
    EXPECT_EQ(bar->value(), 250);
}

TEST(DataUpdate, WithMoreHistoryLeavesTheViewWithinTheLastPosition) {
    FakeHost host;
    const std::vector<Bar> all = makeBars(400);
    host.setHistory("EURUSD", std::vector<Bar>(all.begin() + 100, all.end()));
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD");
    host.tick();
    auto *bar = qobject_cast<QAbstractSlider *>(childOfClass(chart.widget, "CTimeScrollBar"));
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->value(), 330); // the free positions stand at the edge
    object->array().setCandles(all);
    host.update(object, 1);
    EXPECT_EQ(bar->maximum(), 430);
    EXPECT_EQ(bar->value(), 429);
    host.update(object, 1);
    EXPECT_EQ(bar->value(), 429);
}

TEST(DataUpdate, WhileLoadingIsIgnored) {
    UpdatedChart on;
    on.chart.handle->m_loading = true;
    on.host.update(on.indicator, on.chart, 0);
    on.chart.handle->m_loading = false;
    EXPECT_EQ(on.host.count(ToHost::LinkCount), 0);
}

// ---- other outputs ----

TEST(Rebuild, WithFewerOutputsDropsLines) {
    UpdatedChart on;
    EXPECT_EQ(on.rebuild({"A", "C"}), 0);
    EXPECT_EQ(on.lines(), QStringList({"A", "C"}));
    EXPECT_EQ(extrasAsked(on.host),
              std::vector<unsigned>({ToHost::HorizontalLevels, ToHost::LinkCount, ToHost::Links}));
    EXPECT_EQ(on.chart.handle->m_nSelectedArea, -1);
    on.host.tick();
    on.host.grab(on.chart);
}

TEST(Rebuild, WithMoreOutputsAddsLinesWhereTheOthersStand) {
    UpdatedChart on;
    on.rebuild({"A", "B", "C", "D"});
    EXPECT_EQ(on.lines(), QStringList({"A", "B", "C", "D"}));
    const ChartView view = viewOf(on.chart);
    EXPECT_EQ(view.line("D")->area, view.line("A")->area);
    EXPECT_EQ(view.line("D")->layer, view.line("A")->layer);
    EXPECT_EQ(on.chart.handle->m_indicators[1]->m_primitives[3]->m_nLineIndex, 3);
    EXPECT_EQ(view.line("D")->handle, on.indicator->handle);
}

TEST(Rebuild, PutsLinesIntoTheOrderOfTheHost) {
    UpdatedChart on;
    on.rebuild({"C", "D", "A"});
    EXPECT_EQ(on.lines(), QStringList({"C", "D", "A"}));
}

TEST(Rebuild, WithAllOutputsReplacedStaysInItsPane) {
    UpdatedChart on;
    on.rebuild({"X"});
    EXPECT_EQ(on.lines(), QStringList("X"));
    EXPECT_EQ(viewOf(on.chart).line("X")->area, 1);
    on.rebuild({"A", "X"});
    EXPECT_EQ(on.lines(), QStringList({"A", "X"}));
}

TEST(Rebuild, ShowsAHiddenLineAgain) {
    UpdatedChart on;
    on.chart.handle->m_indicators[1]->m_primitives[1]->m_bVisible = 0;
    on.rebuild({"A", "B", "C"});
    EXPECT_TRUE(viewOf(on.chart).line("B")->visible);
}

TEST(Rebuild, OfAHiddenObjectHidesWhatIsGone) {
    UpdatedChart on;
    for (CRPrimitive *primitive : on.chart.handle->m_indicators[1]->m_primitives)
        primitive->m_bVisible = 0;
    on.rebuild({"A"});
    const ChartView view = viewOf(on.chart);
    EXPECT_TRUE(view.line("A")->visible);
    ASSERT_EQ(view.series.size(), 4u); // kept for undo, without the array that is gone
    EXPECT_EQ(view.series[2].line, "");
    EXPECT_FALSE(view.series[2].visible);
    on.dropped.clear();
    on.host.tick();
    on.host.grab(on.chart);
    on.rebuild({"A", "B"});
    ASSERT_TRUE(viewOf(on.chart).line("B"));
    EXPECT_TRUE(viewOf(on.chart).line("B")->visible);
    EXPECT_EQ(on.lines(), QStringList({"A", "B"})); // of a visible object the other is dropped for good
}

TEST(Rebuild, OfAStrangeObjectChangesNothing) {
    UpdatedChart on;
    coreRebuildDpa record{fromWord<void>(0x0BADF00Du), 0, 0, nullptr};
    EXPECT_EQ(on.host.send(ToModule::RebuildOutputs, on.chart.handle, &record), 0);
    EXPECT_EQ(on.lines(), QStringList({"A", "B", "C"}));
}

TEST(Rebuild, TakesNonsenseForNothing) {
    for (int count : {0, -3, 5, 0x7FFFFFFF}) {
        UpdatedChart on;
        coreRebuildDpa record{fromWord<void>(on.indicator->handle), 0, count, nullptr};
        EXPECT_EQ(on.host.send(ToModule::RebuildOutputs, on.chart.handle, &record), 0);
        EXPECT_EQ(on.lines(), QStringList({"A", "B", "C"}));
    }
    UpdatedChart on;
    std::vector<mvDataPointArray *> nulls(3, nullptr);
    coreRebuildDpa record{fromWord<void>(on.indicator->handle), 0, 3, nulls.data()};
    EXPECT_EQ(on.host.send(ToModule::RebuildOutputs, on.chart.handle, &record), 0);
    EXPECT_EQ(on.lines(), QStringList({"A", "B", "C"}));
}

// Without the host's own list nothing is kept, and the lines of the message come anew.
TEST(Rebuild, WithoutTheHostsListTakesTheLinesOfTheMessage) {
    for (const unsigned refused : {ToHost::OutputCount, ToHost::OutputArrays}) {
        for (const auto trouble : {FakeHost::Refuse, FakeHost::Garble}) {
            UpdatedChart on;
            on.host.troubleMessage(refused, trouble);
            const CRPrimitive *before = on.chart.handle->m_indicators[1]->m_primitives[0];
            const QPointer<QObject> gone(const_cast<CRPrimitive *>(before));
            EXPECT_EQ(on.rebuild({"A", "B"}), 0);
            EXPECT_EQ(on.lines(), QStringList({"A", "B"}));
            EXPECT_FALSE(gone);
            EXPECT_EQ(viewOf(on.chart).line("A")->area, 1);
            on.host.clearTrouble();
            EXPECT_EQ(on.rebuild({"A", "B", "C"}), 0);
            EXPECT_EQ(on.lines(), QStringList({"A", "B", "C"}));
        }
    }
}

// The host makes one object for one series: on a chart twice, both are its news.
TEST(DataUpdate, ReachesEverySeriesOfTheObject) {
    FakeHost host;
    const Chart chart = host.createChart();
    FakeObject *object = host.addInstrument(chart, "EURUSD");
    acceptLayer(host);
    ASSERT_EQ(host.addInstrument(chart, "EURUSD"), object);
    ASSERT_EQ(viewOf(chart).indicators, 2);
    object->array().header()->typeShow.secondColor = 0xFF112233;
    host.update(object, chart, 2);
    for (const CRIndicator *indicator : chart.handle->m_indicators)
        EXPECT_EQ(indicator->m_primitives[0]->m_lineColor.rgb() & 0xFFFFFF, 0x112233u);
}

TEST(Rebuild, CountsTheLineThatTheHostLeavesOut) {
    UpdatedChart on;
    on.host.answer(ToHost::OutputCount, [](void *, int, int lParam) {
        bytes::put<int>(fromWord<void>(lParam), 0, 3);
        return 0;
    });
    on.host.answer(ToHost::OutputArrays, [&on](void *, int, int lParam) {
        auto *list = fromWord<coreListCreateData>(lParam);
        list->arrays[0] = on.indicator->array(0).header();
        list->arrays[2] = on.indicator->array(1).header();
        return 0;
    });
    on.rebuild({"A", "D"});
    EXPECT_EQ(on.lines(), QStringList({"A", "D"}));
    EXPECT_EQ(on.chart.handle->m_indicators[1]->m_primitives[1]->m_nLineIndex, 2);
}

// Without a line on the chart the user is asked where the new ones go.
TEST(Rebuild, FromNothingAsksForTheLayer) {
    UpdatedChart on;
    on.rebuild({});
    EXPECT_EQ(on.lines(), QStringList());
    EXPECT_EQ(viewOf(on.chart).indicators, 2);

    on.chart.handle->m_nSelectedArea = 1;
    rejectDialog(on.host);
    on.host.clearTraffic();
    EXPECT_EQ(on.rebuild({"X"}), 0);
    EXPECT_EQ(on.lines(), QStringList());
    EXPECT_TRUE(extrasAsked(on.host).empty());
    EXPECT_EQ(on.chart.handle->m_nSelectedArea, 1);

    acceptLayer(on.host);
    EXPECT_EQ(on.rebuild({"X"}), 0);
    const ChartView view = viewOf(on.chart);
    ASSERT_TRUE(view.line("X"));
    EXPECT_EQ(view.line("X")->area, 0);
    EXPECT_EQ(view.line("X")->layer, 1);
    EXPECT_EQ(view.layers[0], 2); // the one of the refusal was empty
    EXPECT_EQ(on.chart.handle->m_nSelectedArea, -1);
}

// An object that stands on the chart twice may have freed its old arrays behind the message.
TEST(Rebuild, LeavesNoOldArrayWithTheOtherSeriesOfTheObject) {
    for (const bool renamed : {false, true}) {
        FakeHost host;
        const Chart chart = host.createChart();
        FakeObject *object = host.addInstrument(chart, "EURUSD");
        acceptLayer(host);
        ASSERT_EQ(host.addInstrument(chart, "EURUSD"), object);
        const std::unique_ptr<FakeArray> old = std::move(object->outputs[0]);
        auto fresh = std::make_unique<FakeArray>();
        mvDataPointArray *header = fresh->header();
        header->identity = old->header()->identity;
        header->owner = old->header()->owner;
        header->typeShow = old->header()->typeShow;
        fresh->setCandles(makeBars(10));
        if (renamed)
            fillField(header->identity.m_szNameSymbol, QString("OTHER"));
        object->outputs[0] = std::move(fresh);
        coreRebuildDpa record{fromWord<void>(object->handle), 0, 1, &header};
        EXPECT_EQ(host.send(ToModule::RebuildOutputs, chart.handle, &record), 0);
        ASSERT_EQ(chart.handle->m_indicators.size(), 2u);
        for (const CRIndicator *indicator : chart.handle->m_indicators)
            for (const CRPrimitive *primitive : indicator->m_primitives)
                EXPECT_NE(primitive->GetArray(), old->header()) << renamed;
        EXPECT_EQ(chart.handle->m_indicators[1]->m_primitives[0]->GetArray(), renamed ? nullptr : header);
    }
}

// ---- names ----

TEST(Rename, AsksForEachLineOfTheObject) {
    UpdatedChart on;
    const int captions = on.host.captions.size();
    bytes::Record record(778);
    bytes::put<Word>(record.data(), 0, on.indicator->handle);
    EXPECT_EQ(on.host.send(ToModule::Rename, on.chart.handle, record.data()), 0);
    EXPECT_EQ(on.host.count(ToHost::DisplayNames), 3);
    EXPECT_GT(on.host.captions.size(), captions);
}

TEST(Rename, TakesTheNewNames) {
    UpdatedChart on;
    on.instrument->alias = "Euro";
    bytes::Record record(778);
    bytes::put<Word>(record.data(), 0, on.instrument->handle);
    on.host.send(ToModule::Rename, on.chart.handle, record.data());
    EXPECT_EQ(viewOf(on.chart).line("EURUSD")->alias, "Euro");
    EXPECT_TRUE(on.host.captions.last().contains("Euro 1 Hour Bid"));
}

TEST(Title, HasNoValueAndNoBracketsWithoutData) {
    FakeHost host;
    host.setHistory("EURUSD", {});
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.tick();
    EXPECT_EQ(host.caption(chart), "Terminal, EUR/USD 1 Hour Bid");
}

TEST(Title, OfAnotherPeriodThanTheArraysNamesIt) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.answer(ToHost::SourcePeriod, [](void *, int, int lParam) {
        const namePeriod period = makePeriod('D', 1);
        std::memcpy(fromWord<void>(lParam), &period, sizeof period);
        return 0;
    });
    EXPECT_TRUE(host.caption(chart).startsWith("Terminal, Day/EUR/USD ("));
}

TEST(Title, OfMarksShowsTheThirdFieldOfTheirPoint) {
    UpdatedChart on;
    FakeArray &array = on.indicator->array();
    array.setMarks({{1388534400, 2.5f, 1.25f, 1, 0}});
    array.header()->typeShow.drawKind = 6;
    array.header()->precision = 2;
    on.host.update(on.indicator, on.chart, 1);
    on.host.tick();
    auto *bar = qobject_cast<QAbstractSlider *>(childOfClass(on.chart.widget, "CTimeScrollBar"));
    ASSERT_TRUE(bar);
    bar->setValue(bar->minimum());
    const QString caption = on.host.caption(on.chart);
    EXPECT_TRUE(caption.endsWith(", IND (1.25) ")) << qPrintable(caption);
}

TEST(Title, WithTitlesAtTheTopHasNoValue) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    chart.handle->m_nSymbolNamesPos = 2;
    EXPECT_EQ(host.caption(chart), "Terminal, EUR/USD 1 Hour Bid");
}

TEST(Title, OfOneLineInAPaneIsItsAliasAndOfSeveralTheObjectsName) {
    UpdatedChart on;
    EXPECT_TRUE(on.host.caption(on.chart).contains(", IND (")) << qPrintable(on.host.caption(on.chart));
    on.rebuild({"A"});
    on.host.tick();
    EXPECT_TRUE(on.host.caption(on.chart).contains(", A (")) << qPrintable(on.host.caption(on.chart));
}

} // namespace
