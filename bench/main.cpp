// Frames, quotes and rebuilds of the module beside a bare painter and two plotting libraries.
#include "bench/BenchHost.h"
#include "bench/Contenders.h"
#include "bench/Engine.h"
#include "bench/Report.h"
#include "bench/TextMeasurements.h"

#include <QApplication>
#include <QDialog>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTimer>
#include <cstdio>
#include <malloc.h>

namespace {

using Chart = BenchHost::Chart;

// One whole frame: the window is told that it is stale, and paints at once.
void frame(Chart &chart) {
    BenchHost::instance().send(5011, toWord(chart.window), 0);
    chart.window->repaint();
}

void moveMouse(Chart &chart, int step) {
    const QPoint at(300 + step % 500, 200 + step % 200);
    QMouseEvent event(QEvent::MouseMove, at, chart.window->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(chart.window, &event);
}

void hover(Chart &chart, int step) {
    const QPoint at(100 + step * 7 % 1000, 40 + step * 3 % 600);
    QHelpEvent event(QEvent::ToolTip, at, chart.window->mapToGlobal(at));
    QCoreApplication::sendEvent(chart.window, &event);
}

// With more than one series a picker asks for the source, then the layer is asked for: both are answered
// with what they offer first.
void acceptModal() {
    if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
        dialog->accept();
}

void addAverage(Chart &chart, const std::vector<ValuePoint> &points) {
    QTimer modal;
    QObject::connect(&modal, &QTimer::timeout, acceptModal);
    modal.start(1);
    BenchHost::instance().addAverage(chart, points, [] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && !widget->isModal() && qobject_cast<QDialog *>(widget)) {
                QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
                QCoreApplication::sendEvent(widget, &enter);
            }
        }
    });
}

struct Averages {
    explicit Averages(const std::vector<corePointCandle> &bars, int count) {
        for (int i = 0; i < count; ++i)
            lines.push_back(makeAverage(bars, 5 + 4 * i));
    }
    std::vector<std::vector<ValuePoint>> lines;
};

void addAverages(Chart &chart, const Averages &averages) {
    for (const auto &line : averages.lines)
        addAverage(chart, line);
    BenchHost::instance().tick();
}

// The chart of a case serves all its repetitions, for setting one up waits for the module's timer.
class SharedChart {
public:
    void begin(const std::string &name) {
        if (m_case != name)
            m_chart.reset(); // the host serves one chart at a time
        m_case = name;
    }
    void end() { m_chart.reset(); }

    template <class SetUp>
    Chart &get(const std::vector<corePointCandle> &bars, int visible, SetUp setUp) {
        if (!m_chart) {
            m_chart = BenchHost::instance().makeChart(bars, visible);
            setUp(*m_chart);
            frame(*m_chart);
        }
        return *m_chart;
    }
    Chart &get(const std::vector<corePointCandle> &bars, int visible) {
        return get(bars, visible, [](Chart &) {});
    }

private:
    std::string m_case;
    std::unique_ptr<Chart> m_chart;
} shared;

template <class Body>
void add(const std::string &name, int repetitions, Body body) {
    const auto run = [name, body](benchmark::State &state) {
        shared.begin(name);
        body(state);
    };
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Repetitions(repetitions)
        ->MinTime(0.05)
        ->Unit(benchmark::kMillisecond);
}

void registerFrames() {
    static const std::vector<corePointCandle> few = makeBars(10000), many = makeBars(1000000);
    for (const auto *bars : {&few, &many}) {
        for (int visible : {60, 500, 5000}) {
            const std::string group = "frame of " + std::to_string(visible) + " candles out of " +
                                      (bars == &few ? "10 thousand" : "1 million");
            add(group + "/floor", 7, [=](benchmark::State &state) {
                const auto contender = makeFloor(*bars, visible);
                for (auto _ : state)
                    contender->frame();
            });
            add(group + "/velmar", 7, [=](benchmark::State &state) {
                Chart &chart = shared.get(*bars, visible);
                for (auto _ : state)
                    frame(chart);
            });
            add(group + "/qcustomplot", 7, [=](benchmark::State &state) {
                const auto contender = makeQCustomPlot(*bars, visible);
                for (auto _ : state)
                    contender->frame();
            });
            add(group + "/qwt", 7, [=](benchmark::State &state) {
                const auto contender = makeQwt(*bars, visible);
                for (auto _ : state)
                    contender->frame();
            });
        }
    }

    static const Averages ten(few, 10);
    const std::string lines = "frame of 500 candles and 10 indicators";
    add(lines + "/floor", 7, [](benchmark::State &state) {
        const auto contender = makeFloor(few, 500, ten.lines);
        for (auto _ : state)
            contender->frame();
    });
    add(lines + "/velmar", 7, [](benchmark::State &state) {
        Chart &chart = shared.get(few, 500, [](Chart &made) { addAverages(made, ten); });
        if (BenchHost::instance().seriesCount() != 11)
            state.SkipWithError("the chart does not hold ten indicators");
        if (qEnvironmentVariableIsSet("VELMAR_BENCH_PICTURE"))
            chart.window->grab().save(qEnvironmentVariable("VELMAR_BENCH_PICTURE"));
        for (auto _ : state)
            frame(chart);
    });
    add(lines + "/qcustomplot", 7, [](benchmark::State &state) {
        const auto contender = makeQCustomPlot(few, 500, ten.lines);
        for (auto _ : state)
            contender->frame();
    });
    add(lines + "/qwt", 7, [](benchmark::State &state) {
        const auto contender = makeQwt(few, 500, ten.lines);
        for (auto _ : state)
            contender->frame();
    });

    static const Averages three(few, 3);
    const std::string mouse = "mouse move with the cross over 5000 candles and 3 indicators";
    const auto crossed = [](benchmark::State &state, bool move) {
        BenchHost &host = BenchHost::instance();
        Chart &chart = shared.get(few, 5000, [](Chart &made) { addAverages(made, three); });
        host.setCross(true);
        frame(chart);
        int step = 0;
        for (auto _ : state) {
            if (move)
                moveMouse(chart, ++step);
            else
                frame(chart);
        }
        host.setCross(false);
    };
    add(mouse + "/whole frame", 7, [=](benchmark::State &state) { crossed(state, false); });
    add(mouse + "/move", 7, [=](benchmark::State &state) { crossed(state, true); });
}

void registerData() {
    static const std::vector<corePointCandle> few = makeBars(10000), many = makeBars(1000000);
    add("quote of an existing bar/of 10 thousand", 5, [](benchmark::State &state) {
        Chart &chart = shared.get(few, 500);
        for (auto _ : state)
            BenchHost::instance().quote(chart, 0);
    });
    add("quote of an existing bar/of 1 million", 5, [](benchmark::State &state) {
        Chart &chart = shared.get(many, 500);
        for (auto _ : state)
            BenchHost::instance().quote(chart, 0);
    });
    const auto quoteOfTen = [](benchmark::State &state, const std::vector<corePointCandle> &bars) {
        Chart &chart = shared.get(bars, 500, [&](Chart &made) { addAverages(made, Averages(bars, 10)); });
        for (auto _ : state)
            BenchHost::instance().quote(chart, 0);
    };
    add("quote of a bar under 10 indicators/of 10 thousand", 5,
        [=](benchmark::State &state) { quoteOfTen(state, few); });
    add("quote of a bar under 10 indicators/of 1 million", 5,
        [=](benchmark::State &state) { quoteOfTen(state, many); });

    const auto engine = [](benchmark::State &state, const std::vector<corePointCandle> &bars) {
        Engine ten(bars);
        for (auto _ : state)
            ten.quote();
    };
    add("quote through 10 indicators of the engine/of 10 thousand", 5,
        [=](benchmark::State &state) { engine(state, few); });
    add("quote through 10 indicators of the engine/of 1 million", 5,
        [=](benchmark::State &state) { engine(state, many); });

    // The tool tip asks every series whether it lies under the mouse.
    const auto hitTest = [](benchmark::State &state, const std::vector<corePointCandle> &bars) {
        Chart &chart = shared.get(bars, 500, [&](Chart &made) { addAverages(made, Averages(bars, 19)); });
        if (BenchHost::instance().seriesCount() != 20)
            state.SkipWithError("the chart does not hold 20 series");
        int step = 0;
        for (auto _ : state)
            hover(chart, ++step);
    };
    add("hit test over 20 series/of 10 thousand", 5, [=](benchmark::State &state) { hitTest(state, few); });
    add("hit test over 20 series/of 1 million", 5, [=](benchmark::State &state) { hitTest(state, many); });

    // Kind 1 rebuilds the axis at once.
    add("rebuild of a million positions/floor", 5, [](benchmark::State &state) {
        std::vector<long> axis;
        std::vector<int> positions;
        for (auto _ : state) {
            axis.clear();
            positions.clear();
            for (std::size_t i = 0; i < many.size(); ++i) {
                axis.push_back(many[i].time);
                positions.push_back(static_cast<int>(i));
            }
            benchmark::DoNotOptimize(axis.data());
            benchmark::DoNotOptimize(positions.data());
        }
    });
    add("rebuild of a million positions/velmar", 5, [](benchmark::State &state) {
        Chart &chart = shared.get(many, 500);
        for (auto _ : state)
            BenchHost::instance().quote(chart, 1);
    });
}

void printCounts() {
    const std::vector<corePointCandle> bars = makeBars(10000);
    {
        const auto chart = BenchHost::instance().makeChart(bars, 500);
        frame(*chart);
        const long calls = BenchHost::instance().calls(), texts = textMeasurements();
        frame(*chart);
        std::printf("# one frame of 500 candles: %ld host calls, %ld text measurements (%ld in the run before)\n",
                    BenchHost::instance().calls() - calls, textMeasurements() - texts, texts);
    }
    const auto held = [](int count) {
        const std::vector<corePointCandle> many = makeBars(count);
        const auto chart = BenchHost::instance().makeChart(many, 500);
        frame(*chart);
        // The host's own copy of the bars is not the module's.
        const struct mallinfo2 info = mallinfo2();
        return double(info.uordblks) + double(info.hblkhd) -
               2.0 * sizeof(corePointCandle) * (many.capacity() + 50000);
    };
    const int low = 200000, high = 1000000;
    const double small = held(low), large = held(high);
    std::printf("# bytes the module holds for a loaded bar: %.2f\n", (large - small) / (high - low));
}

} // namespace

int main(int argc, char **argv) {
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    registerFrames();
    registerData();
    Report report;
    benchmark::RunSpecifiedBenchmarks(&report);
    shared.end();
    printCounts();
    return 0;
}
