// Taking indicators off the chart, by type and one by one; the report chart.
#include "tests/boundary/instruments_view.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace {

/// Two panes with an instrument and indicators: IND in pane 1, MA and a further IND in pane 0.
struct FullChart {
    FullChart() : chart(host.createChart()) {
        host.addInstrument(chart, "EURUSD");
        host.addIndicatorKind(indicatorKind("IND", 3, 1, {"A", "B"}));
        host.addIndicator(chart, "IND");
        pick("MA");
        host.clearTraffic();
    }
    // Builds on the first series; the layer offered is taken.
    void pick(const QString &name) {
        host.onDialog([](QDialog *) {}); // the picker stays open
        host.addIndicator(chart, name);
        acceptLayer(host);
        host.settle();
        QMetaObject::invokeMethod(chart.widget, "OnSelectPrimitive");
        host.settle();
    }
    QStringList lines() const {
        QStringList names;
        for (const SeriesView &entry : viewOf(chart).series)
            names += entry.line;
        return names;
    }
    FakeHost host;
    Chart chart;
};

QTreeWidget *tree(QDialog *dialog, int columns) {
    for (QTreeWidget *candidate : dialog->findChildren<QTreeWidget *>())
        if (candidate->columnCount() == columns)
            return candidate;
    return nullptr;
}

void check(QDialog *dialog, const QString &type) {
    QTreeWidget *types = tree(dialog, 1);
    for (int i = 0; i < types->topLevelItemCount(); ++i)
        if (types->topLevelItem(i)->text(0) == type)
            types->topLevelItem(i)->setCheckState(0, Qt::Checked);
}

void pressOk(QDialog *dialog) {
    for (QPushButton *button : dialog->findChildren<QPushButton *>())
        if (button->text() == "OK")
            button->click();
}

TEST(DeleteByType, ListsTheTypesOfTheIndicators) {
    FullChart on;
    QStringList types;
    on.host.onDialog([&](QDialog *dialog) {
        EXPECT_EQ(dialog->windowTitle(), "Delete indicators by type");
        QTreeWidget *list = tree(dialog, 1);
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            types += list->topLevelItem(i)->text(0);
        dialog->reject();
    });
    QMetaObject::invokeMethod(on.chart.widget, "OnDeleteIndByType");
    EXPECT_EQ(types, QStringList({"All", "MA", "IND"}));
    EXPECT_EQ(on.lines(), QStringList({"EURUSD", "A", "B", "MA"}));
}

TEST(DeleteByType, RemovesTheChosenTypesFromTheWholeChart) {
    FullChart on;
    on.host.onDialog([](QDialog *dialog) {
        QTreeWidget *parts = tree(dialog, 2);
        parts->setCurrentItem(parts->topLevelItem(0));
        check(dialog, "IND");
        pressOk(dialog);
    });
    QMetaObject::invokeMethod(on.chart.widget, "OnDeleteIndByType");
    EXPECT_EQ(on.lines(), QStringList({"EURUSD", "MA"}));
    EXPECT_EQ(on.host.count(ToHost::Unsubscribe), 1);
    EXPECT_EQ(viewOf(on.chart).indicators, 2);
}

TEST(DeleteByType, RemovesOnlyFromTheChosenPane) {
    FullChart on;
    on.host.onDialog([](QDialog *dialog) {
        QTreeWidget *parts = tree(dialog, 2);
        parts->clearSelection();
        parts->setCurrentItem(parts->topLevelItem(0)->child(0)); // the first pane holds MA alone
        check(dialog, "IND");
        check(dialog, "MA");
        pressOk(dialog);
    });
    QMetaObject::invokeMethod(on.chart.widget, "OnDeleteIndByType");
    EXPECT_EQ(on.lines(), QStringList({"EURUSD", "A", "B"}));
}

TEST(DeleteByType, WithoutATypeRemovesNothing) {
    FullChart on;
    on.host.onDialog([](QDialog *dialog) { pressOk(dialog); });
    QMetaObject::invokeMethod(on.chart.widget, "OnDeleteIndByType");
    EXPECT_EQ(on.lines().size(), 4);
}

TEST(DeleteByType, SurvivesTheWindowsEnd) {
    FullChart on;
    const CRGraphWidget *window = on.chart.handle;
    on.host.onDialog([&](QDialog *) { on.host.send(ToModule::DeleteWindow, window); });
    QMetaObject::invokeMethod(on.chart.widget, "OnDeleteIndByType");
    EXPECT_FALSE(on.chart.widget);
}

TEST(Removal, OfTheLastLineUnsubscribesAndWaitsForTheTick) {
    FullChart on;
    on.host.tick();
    on.host.onDialog([](QDialog *dialog) {
        check(dialog, "MA");
        pressOk(dialog);
    });
    QMetaObject::invokeMethod(on.chart.widget, "OnDeleteIndByType");
    const std::vector<Call> calls = on.host.callsOf(ToHost::Unsubscribe);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(bytes::u32(calls[0].lRecord.constData(), 0), on.host.moduleInterface());
    EXPECT_EQ(bytes::u32(calls[0].lRecord.constData(), 4), static_cast<Word>(toWord(on.chart.handle)));
    on.host.grab(on.chart);
}

// ---- the report chart ----

struct ReportRequest {
    explicit ReportRequest(FakeHost &host) : record(806) {
        bytes::putText16(record.data(), 4, 255, "Balance");
        host.reportSymbols = {"EURUSD", "GBPUSD"};
    }
    int open(FakeHost &host, const Chart &chart) {
        return host.send(ToModule::OpenReport, chart.handle, record.data());
    }
    bytes::Record record;
};

TEST(Report, AsksForATimeFrameAndShowsItsSymbols) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    QStringList items;
    int preset = -1;
    host.onDialog([&](QDialog *dialog) {
        EXPECT_EQ(dialog->windowTitle(), "report");
        EXPECT_TRUE(dialog->findChild<QLabel *>()->text() == "Choose time frame for report graph:");
        auto *combo = dialog->findChild<QComboBox *>();
        for (int i = 0; i < combo->count(); ++i)
            items += combo->itemText(i);
        preset = combo->currentIndex();
        combo->setCurrentIndex(5);
        dialog->accept();
    });
    host.clearTraffic();
    EXPECT_EQ(request.open(host, chart), 0);
    EXPECT_EQ(items, QStringList({"1 minute", "5 minutes", "10 minutes", "1 hour", "3 hours", "Day", "Month",
                                  "Year", "Tick"}));
    EXPECT_EQ(preset, 3);
    const Call made = host.callsOf(ToHost::CreateObject).front();
    EXPECT_EQ(bytes::u32(made.wRecord.constData(), 0), host.interfaceOf("MvDealingHistory"));
    EXPECT_EQ(bytes::text16(made.wRecord.constData(), 4, 255), "Balance");
    EXPECT_EQ(bytes::u8(made.wRecord.constData(), 769), 'D');
    EXPECT_EQ(bytes::i32(made.wRecord.constData(), 770), 1);
    const std::vector<Call> symbols = host.callsOf(ToHost::CreateObject);
    ASSERT_EQ(symbols.size(), 3u);
    EXPECT_EQ(bytes::i32(symbols[1].wRecord.constData(), 0), 1);
    EXPECT_EQ(bytes::text8(symbols[1].wRecord.constData(), 514, 255), "Bid");
    const ChartView view = viewOf(chart);
    ASSERT_TRUE(view.line("Report"));
    EXPECT_EQ(view.line("EURUSD")->area, 0);
    EXPECT_EQ(view.line("GBPUSD")->area, 1);
    EXPECT_EQ(view.line("Report")->area, 0); // output i stands in pane i
    EXPECT_FALSE(view.line("Report")->instrument);
    EXPECT_EQ(view.layers.size(), 3u);
    EXPECT_EQ(host.object(static_cast<Word>(bytes::u32(request.record.data(), 778)))->sources.size(), 2u);
    EXPECT_EQ(host.milestones.count("Added dealing indicator"), 1);
}

TEST(Report, SendsItsMessagesInOrder) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    host.onDialog([&host](QDialog *dialog) {
        EXPECT_EQ(host.count(ToHost::FindInterface), 1);
        EXPECT_EQ(host.count(ToHost::CreateObject), 0);
        dialog->accept();
    });
    host.clearTraffic();
    ASSERT_EQ(request.open(host, chart), 0);
    const int report = bytes::i32(request.record.data(), 778);
    std::vector<unsigned> numbers;
    for (const Call &call : host.calls())
        if (call.toHost && call.wParam == report && call.message != ToHost::DisplayNames &&
            call.message != ToHost::Identity)
            numbers.push_back(call.message);
    EXPECT_EQ(numbers, std::vector<unsigned>({ToHost::Subscribe, ToHost::SourceCount, ToHost::ReportSymbols,
                                              ToHost::HandOverSources, ToHost::ConfirmObject,
                                              ToHost::OutputCount, ToHost::OutputArrays, ToHost::FullPath}));
    const Call symbols = host.callsOf(ToHost::ReportSymbols).front();
    EXPECT_EQ(static_cast<Word>(toWord(symbols.target)), host.interfaceOf("MvDealingHistory"));
    EXPECT_EQ(bytes::i32(symbols.lRecord.constData(), 0), 2);
    EXPECT_EQ(host.milestones.last(), "Added dealing indicator");
}

TEST(Report, WithoutItsMakerAsksNothing) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    host.removeInterface("MvDealingHistory");
    bool asked = false;
    host.onDialog([&asked](QDialog *dialog) {
        asked = true;
        dialog->accept();
    });
    EXPECT_EQ(request.open(host, chart), 1);
    EXPECT_FALSE(asked);
}

TEST(Report, EndsWithoutAnAnswer) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    rejectDialog(host);
    host.clearTraffic();
    EXPECT_EQ(request.open(host, chart), 1);
    EXPECT_EQ(host.count(ToHost::CreateObject), 0);
}

TEST(Report, EndsWithoutSymbols) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    host.reportSymbols.clear();
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    EXPECT_EQ(request.open(host, chart), 1);
    EXPECT_EQ(host.count(ToHost::ReportSymbols), 0);
    EXPECT_EQ(viewOf(chart).indicators, 0);
}

TEST(Report, IsAbandonedWhenTheHostDoesNotConfirm) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    host.answer(ToHost::ConfirmObject, [](void *, int, int lParam) {
        bytes::put<Word>(fromWord<void>(lParam), 0, 0);
        return 0;
    });
    EXPECT_EQ(request.open(host, chart), 1);
    EXPECT_EQ(host.count(ToHost::Unsubscribe), 1);
    EXPECT_EQ(host.count(ToHost::CreationAbandoned), 1);
    EXPECT_FALSE(viewOf(chart).line("Report"));
}

TEST(Report, SurvivesTheWindowsEndInItsForm) {
    FakeHost host;
    const Chart chart = host.createChart();
    ReportRequest request(host);
    const CRGraphWidget *window = chart.handle;
    host.onDialog([&](QDialog *) { host.send(ToModule::DeleteWindow, window); });
    EXPECT_EQ(request.open(host, chart), 1);
    EXPECT_FALSE(chart.widget);
}

} // namespace
