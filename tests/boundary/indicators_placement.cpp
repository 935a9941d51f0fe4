// Adding indicators: traffic, where their outputs land, and what ends an add.
#include "tests/boundary/instruments_view.h"

#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <climits>

namespace {

/// Opens the next layer dialogs and keeps what they offered: the preselected row, "-" without one.
class LayerDialogs {
public:
    LayerDialogs(FakeHost &host, int expected) {
        for (int i = 0; i < expected; ++i)
            host.onDialog([this](QDialog *dialog) {
                QTreeWidget *tree = treeOf(dialog);
                offered += tree && tree->currentItem() ? tree->currentItem()->text(0) : QString("-");
                dialog->accept();
            });
    }
    QStringList offered;
};

TEST(IndicatorAdding, SendsItsMessagesInOrder) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B"}));
    host.clearTraffic();
    EXPECT_EQ(host.addIndicator(chart, "IND"), 0);
    std::vector<unsigned> numbers = traffic(host);
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(),
                                 [](unsigned number) { return number >= 3500 && number < 4000; }),
                  numbers.end());
    const std::vector<unsigned> expected = {ToHost::IndicatorNeedsSource,
                                            ToHost::CreateObject,
                                            ToHost::Subscribe,
                                            ToHost::SourceCount,
                                            ToHost::HandOverSources,
                                            ToHost::ConfirmObject,
                                            ToHost::OutputCount,
                                            ToHost::OutputArrays,
                                            ToHost::FullPath,
                                            ToHost::Milestone,
                                            ToHost::DisplayNames,
                                            ToHost::DisplayNames,
                                            ToHost::HorizontalLevels,
                                            ToHost::LinkCount,
                                            ToHost::Links,
                                            ToHost::Milestone};
    ASSERT_GE(numbers.size(), expected.size());
    numbers.resize(expected.size());
    EXPECT_EQ(numbers, expected);
    EXPECT_EQ(host.milestones.last(), ""); // the desktop has changed
    EXPECT_EQ(host.milestones.count("Add indicator"), 1);
}

TEST(IndicatorAdding, AsksForTheIndicatorByItsName) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    acceptLayer(host);
    host.clearTraffic();
    host.addIndicator(chart, "MA");
    const std::vector<Call> calls = host.callsOf(ToHost::CreateObject);
    ASSERT_EQ(calls.size(), 1u);
    const char *record = calls[0].wRecord.constData();
    EXPECT_EQ(bytes::u32(record, 0), host.interfaceOf("MVINDICATORS"));
    EXPECT_EQ(bytes::text16(record, 4, 255), "MA");
    for (int offset = 514; offset < 806; ++offset)
        EXPECT_EQ(bytes::u8(record, offset), 0) << offset;
}

TEST(IndicatorAdding, HandsOverItsSourceAheadOfEmptyPlaces) {
    FakeHost host;
    const Chart chart = host.createChart();
    FakeObject *source = host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("TWO", 3, 2));
    std::vector<Word> handed;
    host.answer(ToHost::HandOverSources, [&](void *target, int wParam, int lParam) {
        const auto *list = fromWord<const coreListCreateData>(lParam);
        for (int i = 0; i < list->count; ++i)
            handed.push_back(static_cast<Word>(toWord(list->arrays[i])));
        return host.defaultAnswer(target, ToHost::HandOverSources, wParam, lParam);
    });
    host.addIndicator(chart, "TWO");
    EXPECT_EQ(handed, std::vector<Word>({static_cast<Word>(toWord(source->array().header())), 0}));
}

struct PlaceCase {
    int code;
    int panes;       // afterwards
    QString offered; // by the layer dialog, empty: it was not opened
    int area, layer; // of the outputs
};

void PrintTo(const PlaceCase &row, std::ostream *out) {
    *out << "code " << row.code;
}

class IndicatorPlace : public testing::TestWithParam<PlaceCase> {};

TEST_P(IndicatorPlace, FollowsTheCodeOfTheFirstOutput) {
    const PlaceCase &expected = GetParam();
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    FakeIndicator kind = indicatorKind("IND", expected.code, 1, {"A", "B"});
    kind.outputs[1].placement = 3; // of no effect
    host.addIndicatorKind(kind);
    LayerDialogs dialogs(host, 1);
    host.addIndicator(chart, "IND");
    EXPECT_EQ(dialogs.offered.join(","), expected.offered);
    const ChartView view = viewOf(chart);
    EXPECT_EQ(static_cast<int>(view.layers.size()), expected.panes);
    for (const char *line : {"A", "B"}) {
        ASSERT_TRUE(view.line(line));
        EXPECT_EQ(view.line(line)->area, expected.area);
        EXPECT_EQ(view.line(line)->layer, expected.layer);
        EXPECT_FALSE(view.line(line)->instrument);
    }
}

INSTANTIATE_TEST_SUITE_P(Codes, IndicatorPlace,
                         testing::Values(PlaceCase{0, 1, "1", 0, 0}, PlaceCase{1, 1, "2", 0, 1},
                                         PlaceCase{2, 1, "2", 0, 1}, PlaceCase{3, 2, "", 1, 0},
                                         PlaceCase{-1, 2, "", 1, 0}, PlaceCase{77, 2, "", 1, 0}));

TEST(IndicatorPlacement, KeepsTheSelectedPaneOverTheHostsDialog) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3));
    // The host's dialog runs an event loop in which the user clicks on another pane.
    host.answer(ToHost::ConfirmObject, [&](void *, int, int lParam) {
        chart.handle->m_nSelectedArea = 0;
        bytes::put<Word>(fromWord<void>(lParam), 0, 1);
        return 0;
    });
    host.addIndicator(chart, "IND");
    EXPECT_EQ(viewOf(chart).line("Out")->area, 1); // the selection of before the dialog counts
}

TEST(IndicatorPlacement, WithoutASourceTakesTheFirstPane) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addIndicatorKind(indicatorKind("FREE", 3, 0));
    host.addIndicator(chart, "FREE");
    ASSERT_TRUE(viewOf(chart).line("Out"));
    EXPECT_EQ(viewOf(chart).layers, std::vector<int>({1}));
    EXPECT_EQ(host.count(ToHost::SourceCount), 0);
    EXPECT_EQ(host.count(ToHost::HandOverSources), 0);
}

TEST(IndicatorPlacement, OfTheCurrencySumFollowsItsCode) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addIndicator(chart, "CHF+EUR"); // needs no source, code 3
    EXPECT_EQ(viewOf(chart).layers, std::vector<int>({1, 1}));
    EXPECT_EQ(viewOf(chart).line("Sum")->area, 1);
}

// A base that is given and not taken: the code of the output no longer counts.
TEST(IndicatorPlacement, OfAnIndicatorThatTakesNoSourceIsBesideTheSeries) {
    for (const int sources : {0, -7, INT_MAX}) {
        for (const char *name : {"IND", "CHF+EUR"}) {
            FakeHost host;
            const Chart chart = host.createChart();
            host.addInstrument(chart, "EURUSD");
            host.addIndicatorKind(indicatorKind(name, 3));
            host.answer(ToHost::SourceCount, [sources](void *, int, int lParam) {
                bytes::put<int>(fromWord<void>(lParam), 0, sources);
                return 0;
            });
            LayerDialogs dialogs(host, 1);
            host.addIndicator(chart, name);
            EXPECT_EQ(dialogs.offered, QStringList("1")) << name << sources;
            EXPECT_EQ(host.count(ToHost::HandOverSources), 0);
            ASSERT_TRUE(viewOf(chart).line("Out"));
            EXPECT_EQ(viewOf(chart).layers, std::vector<int>({1}));
        }
    }
}

// The quick menu leaves the pane that the user has clicked on in force.
TEST(IndicatorPlacement, OnASelectedPaneAsksForALayerOfIt) {
    struct Case {
        int code;
        const char *offered; // by the dialog; the base stands in the first pane
    };
    for (const int selected : {0, 1}) {
        for (const Case &expected : {Case{0, selected ? "2" : "1"}, Case{1, "2"}, Case{3, "2"}}) {
            FakeHost host;
            const Chart chart = host.createChart();
            host.addInstrument(chart, "EURUSD");
            host.addIndicatorKind(indicatorKind("BELOW", 3));
            host.addIndicator(chart, "BELOW");
            host.addIndicatorKind(indicatorKind("MACD", expected.code));
            chart.handle->m_nSelectedArea = selected;
            host.onDialog([](QDialog *) {}); // the source picker stays open
            LayerDialogs dialogs(host, 1);
            QAction action(nullptr);
            action.setData(8);
            QMetaObject::invokeMethod(chart.widget, "OnQuickAddGraphPressed", Q_ARG(QAction *, &action));
            host.settle();
            for (QComboBox *combo : chart.widget->findChildren<QComboBox *>())
                combo->setCurrentIndex(0);
            QMetaObject::invokeMethod(chart.widget, "OnSelectPrimitive");
            EXPECT_EQ(dialogs.offered, QStringList(expected.offered)) << expected.code;
            const ChartView view = viewOf(chart);
            ASSERT_EQ(view.series.size(), 3u);
            EXPECT_EQ(view.layers.size(), 2u);
            EXPECT_EQ(view.series[2].area, selected);
            EXPECT_EQ(view.series[2].layer, QString(expected.offered).toInt() - 1);
            EXPECT_EQ(chart.handle->m_nSelectedArea, selected);
        }
    }
}

class OutputStyle : public testing::TestWithParam<std::pair<int, int>> {};

// The draw kind of the refresh is one that leaves the type alone.
TEST_P(OutputStyle, DecidesHowAnOutputIsDrawn) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    FakeIndicator kind = indicatorKind("IND", 3);
    kind.outputs[0].style = GetParam().first;
    kind.outputs[0].drawKind = 0;
    host.addIndicatorKind(kind);
    host.addIndicator(chart, "IND");
    EXPECT_EQ(viewOf(chart).line("Out")->type, GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(Styles, OutputStyle,
                         testing::Values(std::pair<int, int>(0, 0), std::pair<int, int>(1, 2),
                                         std::pair<int, int>(2, 1), std::pair<int, int>(3, 8),
                                         std::pair<int, int>(4, 8), std::pair<int, int>(5, 0)));

TEST(IndicatorAdding, OnTicksDoesNothing) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD", 'I', 0);
    host.clearTraffic();
    EXPECT_EQ(host.addIndicator(chart, "MA"), 0);
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

TEST(IndicatorAdding, OfAListThatNeedsSourcesEndsOnAnEmptyChart) {
    FakeHost host;
    const Chart chart = host.createChart();
    std::vector<mvwcDpaItem> items(3, zeroRecord<mvwcDpaItem>());
    for (mvwcDpaItem &item : items) {
        item.handle = fromWord<void>(host.interfaceOf("MVINDICATORS"));
        fillField(item.instrument.m_szNameSymbol, QString("MA"));
    }
    mvwcDpaList list{3, items.data()};
    host.clearTraffic();
    EXPECT_EQ(host.send(ToModule::AddIndicators, chart.handle, &list), 0);
    EXPECT_EQ(host.count(ToHost::IndicatorNeedsSource), 1);
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
}

TEST(IndicatorAdding, IsAbandonedWhenTheHostDoesNotConfirm) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.answer(ToHost::ConfirmObject, [](void *, int, int lParam) {
        bytes::put<Word>(fromWord<void>(lParam), 0, 0);
        return 0;
    });
    host.clearTraffic();
    host.addIndicator(chart, "MA");
    std::vector<unsigned> numbers = traffic(host);
    const auto confirm = std::find(numbers.begin(), numbers.end(), unsigned(ToHost::ConfirmObject));
    ASSERT_GE(numbers.end() - confirm, 3);
    EXPECT_EQ(confirm[1], unsigned(ToHost::Unsubscribe));
    EXPECT_EQ(confirm[2], unsigned(ToHost::CreationAbandoned));
    EXPECT_EQ(host.count(ToHost::OutputCount), 0);
    EXPECT_EQ(viewOf(chart).indicators, 1);
    EXPECT_TRUE(host.lastObject()->subscribers.empty());
}

TEST(IndicatorAdding, IsAbandonedWhenNoLayerIsChosen) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    rejectDialog(host);
    host.clearTraffic();
    host.addIndicator(chart, "Bollinger");
    EXPECT_EQ(host.count(ToHost::Unsubscribe), 1);
    EXPECT_EQ(host.count(ToHost::CreationAbandoned), 1);
    EXPECT_EQ(viewOf(chart).indicators, 1);
    EXPECT_EQ(viewOf(chart).series.size(), 1u);
    EXPECT_FALSE(host.milestones.contains("Add indicator"));
}

TEST(IndicatorAdding, WithoutOutputsAddsNothing) {
    for (int count : {0, -5, 0x7FFFFFFF}) {
        FakeHost host;
        const Chart chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.answer(ToHost::OutputCount, [count](void *, int, int lParam) {
            bytes::put<int>(fromWord<void>(lParam), 0, count);
            return 0;
        });
        host.addIndicator(chart, "MA");
        EXPECT_EQ(viewOf(chart).indicators, 1);
        EXPECT_EQ(host.count(ToHost::OutputArrays), 1); // that of the instrument
    }
}

TEST(IndicatorAdding, WithoutArraysAddsNothing) {
    for (const int count : {0, -5, 3, 1 << 20}) {
        FakeHost host;
        const Chart chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.answer(ToHost::OutputArrays, [count](void *, int, int lParam) {
            fromWord<coreListCreateData>(lParam)->count = count;
            return 0;
        });
        EXPECT_EQ(host.addIndicator(chart, "Bollinger"), 0);
        EXPECT_EQ(viewOf(chart).indicators, 1);
        EXPECT_EQ(viewOf(chart).layers, std::vector<int>({1}));
        EXPECT_FALSE(host.milestones.contains("Add indicator"));
    }
}

// Room for one pointer more than the outputs that were told, and nothing of it read.
TEST(IndicatorAdding, TakesNoMoreArraysThanItMadeRoomFor) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B"}));
    host.answer(ToHost::OutputArrays, [&](void *target, int wParam, int lParam) {
        auto *list = fromWord<coreListCreateData>(lParam);
        EXPECT_EQ(int(list->count), 2);
        const int result = host.defaultAnswer(target, ToHost::OutputArrays, wParam, lParam);
        list->arrays[2] = list->arrays[1];
        list->count = 3;
        return result;
    });
    host.addIndicator(chart, "IND");
    EXPECT_EQ(viewOf(chart).series.size(), 3u);
}

TEST(IndicatorAdding, LeavesOutNullOutputs) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    acceptLayer(host);
    host.answer(ToHost::OutputArrays, [&](void *target, int wParam, int lParam) {
        const int result = host.defaultAnswer(target, ToHost::OutputArrays, wParam, lParam);
        fromWord<coreListCreateData>(lParam)->arrays[0] = nullptr;
        return result;
    });
    host.addIndicator(chart, "Bollinger");
    const ChartView view = viewOf(chart);
    EXPECT_FALSE(view.line("Upper"));
    ASSERT_TRUE(view.line("Middle"));
    ASSERT_TRUE(view.line("Lower"));
    EXPECT_EQ(chart.handle->m_indicators[1]->GetPrimitiveCount(), 2);
    EXPECT_EQ(chart.handle->m_indicators[1]->m_primitives[0]->m_nLineIndex, 1);
}

TEST(IndicatorAdding, TakesLevelsAndLinks) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    FakeIndicator kind = indicatorKind("IND", 3, 1, {"A", "B"});
    kind.links = {{0, 1, 1, 2, 2}, {0, 0, 7, 9, 0}};
    kind.levels.line = 2;
    kind.levels.count = 2;
    kind.levels.levels[0] = 30;
    kind.levels.levels[1] = 70;
    host.addIndicatorKind(kind);
    host.addIndicator(chart, "IND");
    const ChartView view = viewOf(chart);
    EXPECT_EQ(view.line("B")->levels, std::vector<float>({30, 70}));
    EXPECT_TRUE(view.line("A")->levels.empty());
    EXPECT_EQ(view.links, 2);
    host.tick();
    host.grab(chart); // draws only what names lines that exist
    EXPECT_EQ(chart.handle->m_areas[1]->m_layers[0]->m_links.size(), 1u);
}

TEST(IndicatorAdding, LeavesNothingSelected) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    chart.handle->m_indicators[0]->m_primitives[0]->m_bSelected = 1;
    host.addIndicatorKind(indicatorKind("IND", 3));
    host.addIndicator(chart, "IND");
    for (const SeriesView &entry : viewOf(chart).series)
        EXPECT_FALSE(entry.selected);
}

TEST(IndicatorAdding, OnATesterChartTakesTheChartsOwnSeries) {
    FakeHost host;
    const Chart tester = host.createChart(QSize(800, 600), 1);
    host.addInstrument(tester, "EURUSD");
    acceptLayer(host);
    host.addIndicator(tester, "MA");
    EXPECT_TRUE(viewOf(tester).line("MA"));
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

// ---- the source picker ----

struct PickerChart {
    PickerChart() : chart(host.createChart()) {
        host.addInstrument(chart, "EURUSD");
        host.addInstrument(chart, "GBPUSD");
        host.addIndicatorKind(indicatorKind("IND", 3));
    }
    QDialog *picker() {
        for (QDialog *dialog : chart.widget->findChildren<QDialog *>())
            if (!qstrcmp(dialog->metaObject()->className(), "CSelectPrimitiveWidget") && dialog->isVisible())
                return dialog;
        return nullptr;
    }
    FakeHost host;
    Chart chart;
};

TEST(SourcePicker, OpensWithMoreThanOneSeries) {
    PickerChart open;
    EXPECT_EQ(open.host.addIndicator(open.chart, "IND"), 0);
    QDialog *picker = open.picker();
    ASSERT_TRUE(picker);
    EXPECT_FALSE(picker->isModal());
    EXPECT_EQ(picker->windowTitle(), "Select data source");
    EXPECT_EQ(open.host.callsOf(ToHost::CreateObject).size(), 2u);
    auto *combo = picker->findChild<QComboBox *>();
    ASSERT_EQ(combo->count(), 2);
    combo->setCurrentIndex(1);
    QMetaObject::invokeMethod(open.chart.widget, "OnSelectPrimitive");
    EXPECT_FALSE(open.picker());
    EXPECT_EQ(open.chart.widget->cursor().shape(), Qt::ArrowCursor);
    const FakeObject *made = open.host.lastObject();
    ASSERT_EQ(made->sources.size(), 1u);
    EXPECT_EQ(fieldText(made->sources[0]->identity.m_szNameSymbol), "GBPUSD");
    EXPECT_EQ(viewOf(open.chart).line("Out")->area, 2);
}

TEST(SourcePicker, IsOneAtATime) {
    PickerChart open;
    open.host.addIndicator(open.chart, "IND");
    open.host.addIndicator(open.chart, "MA");
    int pickers = 0;
    for (QDialog *dialog : open.chart.widget->findChildren<QDialog *>())
        pickers += !qstrcmp(dialog->metaObject()->className(), "CSelectPrimitiveWidget");
    EXPECT_EQ(pickers, 1);
    QMetaObject::invokeMethod(open.chart.widget, "OnSelectPrimitive");
    EXPECT_TRUE(viewOf(open.chart).line("Out"));
    EXPECT_FALSE(viewOf(open.chart).line("MA"));
}

TEST(SourcePicker, CancelledAddsNothing) {
    PickerChart open;
    open.host.addIndicator(open.chart, "IND");
    ASSERT_TRUE(open.picker());
    QMetaObject::invokeMethod(open.chart.widget, "OnCancelSelectPrimitive");
    EXPECT_FALSE(open.picker());
    EXPECT_EQ(viewOf(open.chart).series.size(), 2u);
    open.host.addIndicator(open.chart, "IND"); // opens again
    EXPECT_TRUE(open.picker());
}

TEST(SourcePicker, ForgetsASeriesThatIsGone) {
    PickerChart open;
    open.host.addIndicator(open.chart, "IND");
    ASSERT_TRUE(open.picker());
    open.picker()->findChild<QComboBox *>()->setCurrentIndex(1);
    coreRebuildDpa record{fromWord<void>(open.host.objects().back()->handle), 0, 0, nullptr};
    open.host.answer(ToHost::OutputCount, [](void *, int, int) { return 1; });
    open.host.send(ToModule::RebuildOutputs, open.chart.handle,
                   &record); // drops the second instrument's line
    ASSERT_EQ(viewOf(open.chart).series.size(), 1u);
    QMetaObject::invokeMethod(open.chart.widget, "OnSelectPrimitive");
    EXPECT_FALSE(viewOf(open.chart).line("Out"));
}

TEST(SourcePicker, GoesWithItsWindow) {
    PickerChart open;
    open.host.addIndicator(open.chart, "IND");
    ASSERT_TRUE(open.picker());
    open.host.deleteChart(open.chart);
    open.host.settle();
}

} // namespace
