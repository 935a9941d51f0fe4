// Adding, rebuilding and removing again and again: with each call to the host refused or garbled in turn,
// and with the host coming back in the middle of each.
#include "tests/boundary/instruments_view.h"

#include <QAction>
#include <QApplication>
#include <QPushButton>

namespace {

// Says yes to whatever comes up; a list of types gets all of them.
void agree(QDialog *dialog) {
    if (!dialog->isModal())
        return; // the source picker stays open
    for (QTreeWidget *tree : dialog->findChildren<QTreeWidget *>())
        if (tree->columnCount() == 1 && tree->topLevelItemCount() > 0)
            tree->topLevelItem(0)->setCheckState(0, Qt::Checked);
    for (QPushButton *button : dialog->findChildren<QPushButton *>())
        if (button->text() == "OK" && button->isVisible()) {
            button->click();
            return;
        }
    dialog->accept();
}

struct Play {
    explicit Play(FakeHost &fake) : host(fake) {
        FakeIndicator two = indicatorKind("TWO", 1, 2, {"A", "B", "C"});
        two.links = {{0, 1, 1, 3, 2}};
        host.addIndicatorKind(two);
        host.reportSymbols = {"USDCHF"};
        for (int i = 0; i < 60; ++i)
            host.onDialog(agree);
        chart = host.createChart(QSize(320, 240));
    }
    bool shown() const { return chart.widget; }

    void slot(const char *name) {
        if (shown())
            QMetaObject::invokeMethod(chart.widget, name);
    }
    void add(const QString &name) {
        if (shown())
            host.addIndicator(chart, name);
        host.settle();
        slot("OnSelectPrimitive");
    }
    // Leaves only the given outputs, by their place.
    void rebuild(FakeObject *object, const std::vector<int> &kept) {
        if (!shown() || !object || object->instrument)
            return;
        std::vector<mvDataPointArray *> headers;
        for (int place : kept)
            if (place < static_cast<int>(object->outputs.size()))
                headers.push_back(object->array(place).header());
        coreRebuildDpa record{fromWord<void>(object->handle), 0, static_cast<int>(headers.size()),
                              headers.data()};
        host.answer(ToHost::OutputCount, [this, object, headers](void *target, int wParam, int lParam) {
            if (static_cast<Word>(wParam) != object->handle)
                return host.defaultAnswer(target, ToHost::OutputCount, wParam, lParam);
            bytes::put<int>(fromWord<void>(lParam), 0, static_cast<int>(headers.size()));
            return 0;
        });
        host.answer(ToHost::OutputArrays, [this, object, headers](void *target, int wParam, int lParam) {
            if (static_cast<Word>(wParam) != object->handle)
                return host.defaultAnswer(target, ToHost::OutputArrays, wParam, lParam);
            auto *list = fromWord<coreListCreateData>(lParam);
            for (int i = 0; i < list->count && i < static_cast<int>(headers.size()); ++i)
                list->arrays[i] = headers[static_cast<std::size_t>(i)];
            list->count = static_cast<int>(headers.size());
            return 0;
        });
        host.send(ToModule::RebuildOutputs, chart.handle, &record);
        host.answer(ToHost::OutputCount, nullptr);
        host.answer(ToHost::OutputArrays, nullptr);
    }

    void play() {
        if (shown())
            host.addInstrument(chart, "EURUSD");
        add("TWO"); // beside the series, on a layer of its own
        FakeObject *two = host.lastObject();
        if (shown())
            host.addInstrument(chart, "GBPUSD");
        add("MACD"); // through the source picker
        add("CHF+EUR");
        rebuild(two, {0, 2});
        rebuild(two, {2, 1, 0});
        for (int kind : {0, 1, 2, 9})
            if (shown() && two)
                host.update(two, chart, kind);
        if (shown() && two) {
            bytes::Record record(778);
            bytes::put<Word>(record.data(), 0, two->handle);
            host.send(ToModule::Rename, chart.handle, record.data());
        }
        host.send(ToModule::ConvertToType, 2);
        if (shown()) {
            bytes::Record record(806);
            bytes::putText16(record.data(), 4, 255, "Balance");
            host.send(ToModule::OpenReport, chart.handle, record.data());
        }
        if (shown()) {
            QAction action(nullptr);
            action.setData(two ? two->handle : 0);
            QMetaObject::invokeMethod(chart.widget, "OnShowBaseData", Q_ARG(QAction *, &action));
        }
        slot("OnDeleteIndByType");
        host.tick();
        host.settle();
        if (shown())
            host.grab(chart);
    }

    FakeHost &host;
    Chart chart;
};

int callsOfRun() {
    FakeHost host;
    Play run(host);
    host.clearTraffic();
    run.play();
    return host.hostCalls();
}

// Every entry of the lists of the chart must be whole, and a further add must work.
void expectHealthy(Play &run) {
    run.host.clearTrouble();
    run.host.setInterruption(nullptr);
    for (const Chart &chart : run.host.charts()) {
        if (!chart.widget)
            continue;
        for (const SeriesView &entry : viewOf(chart).series)
            ASSERT_GE(entry.area, 0) << qPrintable(entry.line);
    }
    const Chart next = run.host.createChart(QSize(200, 150));
    ASSERT_TRUE(run.host.addInstrument(next, "USDJPY"));
    run.host.grab(next);
}

void sweep(FakeHost::Trouble trouble, int result) {
    const int total = callsOfRun();
    ASSERT_GT(total, 150);
    for (int n = 1; n <= total; ++n) {
        SCOPED_TRACE(n);
        FakeHost host;
        host.setRecording(false);
        Play run(host);
        host.troubleAt(n, trouble, result);
        run.play();
        expectHealthy(run);
        if (testing::Test::HasFatalFailure())
            return;
    }
}

TEST(IndicatorSweep, EachCallRefused) {
    sweep(FakeHost::Refuse, 0);
}

TEST(IndicatorSweep, EachCallRefusedWithAnError) {
    sweep(FakeHost::Refuse, 1);
}

TEST(IndicatorSweep, EachCallGarbled) {
    sweep(FakeHost::Garble, 0);
}

// The host's tool buttons are asked for with each step, and all alike.
bool isToolButton(const Call &call) {
    return call.message >= ToHost::ZoomInButton && call.message <= ToHost::InformationBoxButton;
}

void interrupted(const std::function<void(Play &)> &work) {
    bool reached = true;
    for (int n = 1; reached; ++n) {
        SCOPED_TRACE(n);
        FakeHost host;
        host.setRecording(false);
        Play run(host);
        int seen = 0;
        reached = false;
        host.setInterruption([&](const Call &call) {
            if (isToolButton(call) || ++seen != n)
                return;
            reached = true;
            // No host does such work while a window paints.
            if (run.shown() && !run.chart.widget->testAttribute(Qt::WA_WState_InPaintEvent))
                work(run);
        });
        run.play();
        expectHealthy(run);
        if (testing::Test::HasFatalFailure())
            return;
    }
}

TEST(IndicatorReentrance, TheWindowGoesInEachCall) {
    interrupted([](Play &run) { run.host.send(ToModule::DeleteWindow, run.chart.handle); });
}

TEST(IndicatorReentrance, EveryObjectIsUpdatedInEachCall) {
    interrupted([](Play &run) {
        for (FakeObject *object : run.host.objects())
            for (int kind : {0, 1, 2})
                if (run.shown())
                    run.host.update(object, run.chart, kind);
    });
}

TEST(IndicatorReentrance, EveryIndicatorLosesItsOutputsInEachCall) {
    interrupted([](Play &run) {
        for (FakeObject *object : run.host.objects())
            run.rebuild(object, {});
    });
}

TEST(IndicatorReentrance, EveryIndicatorChangesItsOutputsInEachCall) {
    interrupted([](Play &run) {
        for (FakeObject *object : run.host.objects())
            run.rebuild(object, {1});
    });
}

TEST(IndicatorReentrance, EveryObjectIsRenamedInEachCall) {
    interrupted([](Play &run) {
        for (FakeObject *object : run.host.objects()) {
            for (auto &output : object->outputs)
                fillField(output->header()->identity.m_szNameSymbol, QString("Renamed"));
            bytes::Record record(778);
            bytes::put<Word>(record.data(), 0, object->handle);
            if (run.shown())
                run.host.send(ToModule::Rename, run.chart.handle, record.data());
        }
    });
}

TEST(IndicatorReentrance, AnotherIndicatorComesInEachCall) {
    interrupted([](Play &run) { run.host.addIndicator(run.chart, "CHF+EUR"); });
}

TEST(IndicatorReentrance, AnotherInstrumentComesInEachCall) {
    interrupted([](Play &run) { run.host.addInstrument(run.chart, "USDJPY"); });
}

TEST(IndicatorReentrance, EveryPaneGoesInEachCall) {
    interrupted([](Play &run) {
        for (std::size_t i = run.chart.handle->m_areas.size(); run.shown() && i-- > 1;)
            if (i < run.chart.handle->m_areas.size())
                QMetaObject::invokeMethod(run.chart.handle->m_areas[i], "OnDeleteArea");
        if (run.shown())
            QCoreApplication::sendPostedEvents(run.chart.widget, 0);
    });
}

TEST(IndicatorReentrance, ATickComesInEachCall) {
    interrupted([](Play &run) { run.host.tick(); });
}

} // namespace
