// Events of input in any order, with quotes, additions and deletions between them and inside the host's answers.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

#include <QHelpEvent>
#include <random>

namespace {

class Storm {
public:
    Storm(FakeHost &fakeHost, unsigned seed) : host(fakeHost), dice(seed) {
        host.addIndicatorKind(indicatorKind("LINES", 3, 1, {"A", "B"}));
        open();
    }
    void open() {
        chart = host.createChart(QSize(600, 400));
        host.addInstrument(chart, "EURUSD");
        host.addIndicator(chart, "LINES");
        host.tick();
        host.grab(chart);
    }
    void step() {
        ensureOpen();
        if (!chart.widget)
            return; // taken away again while it was being opened
        static constexpr QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseButtonPress,
                                                 QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                                                 QEvent::MouseMove, QEvent::MouseMove, QEvent::MouseMove};
        static constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::LeftButton,
                                                      Qt::MiddleButton, Qt::RightButton};
        static constexpr Qt::KeyboardModifier modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                             Qt::ControlModifier, Qt::AltModifier};
        const QPoint point(roll(640) - 20, roll(440) - 20);
        const Qt::KeyboardModifiers keys = modifiers[roll(5)];
        switch (roll(12)) {
        case 0:
            pressKey(chart, QList<int>{Qt::Key_Plus, Qt::Key_Minus, Qt::Key_A, Qt::Key_N, Qt::Key_Escape,
                                       Qt::Key_Home, Qt::Key_Left, Qt::Key_PageUp, Qt::Key_BraceLeft}
                                .at(roll(9)), keys);
            break;
        case 1:
            if (roll(3) == 0)
                pressKey(chart, roll(2) ? Qt::Key_Delete : Qt::Key_X, Qt::ControlModifier);
            break;
        case 2:
            Mouse(chart).leave();
            break;
        case 3:
            Mouse(chart).wheel(roll(5) * 120 - 240, keys);
            break;
        case 4:
            disturb();
            break;
        case 5: {
            QHelpEvent tip(QEvent::ToolTip, point, chart.widget->mapToGlobal(point));
            QCoreApplication::sendEvent(chart.widget, &tip);
            break;
        }
        default: {
            const QEvent::Type type = types[roll(7)];
            const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : buttons[roll(5)];
            const QPoint snapped = roll(3) ? point : onEdge();
            QMouseEvent event(type, snapped, chart.widget->mapToGlobal(snapped), button,
                              roll(2) ? Qt::LeftButton : Qt::NoButton, keys);
            QCoreApplication::sendEvent(chart.widget, &event);
        }
        }
    }
    void ensureOpen() {
        if (!chart.widget)
            open();
    }
    // What a host may do at any time.
    void disturb() {
        if (!chart.handle)
            return;
        switch (roll(6)) {
        case 0:
            for (FakeObject *object : host.objects()) {
                if (object->subscribers.count(chart.handle))
                    host.update(object, chart, roll(3));
            }
            break;
        case 1:
            host.tick();
            break;
        case 2:
            if (chart.handle->m_indicators.size() < 4)
                host.addInstrument(chart, roll(2) ? "GBPUSD" : "USDJPY");
            break;
        case 3:
            if (chart.handle->m_indicators.size() < 6)
                host.addIndicator(chart, "LINES");
            break;
        case 4:
            host.toolState.armed = static_cast<Word>(roll(2));
            break;
        default:
            if (roll(8) == 0) {
                Chart doomed = chart;
                chart = Chart(); // a host deletes a window once
                host.deleteChart(doomed);
            }
        }
    }
    int roll(int sides) { return static_cast<int>(dice() % static_cast<unsigned>(sides)); }

    Chart chart;

private:
    // Where borders, scales and close boxes are.
    QPoint onEdge() {
        const auto &areas = chart.handle->m_areas;
        if (areas.empty())
            return QPoint();
        const CRGraphArea *area = areas[static_cast<std::size_t>(roll(static_cast<int>(areas.size())))];
        const QPoint places[] = {QPoint(300, area->m_rect.top() + 2), area->m_closeRect.center(),
                                 QPoint(area->m_rect.right() + 5, area->m_rect.center().y()),
                                 QPoint(area->m_rect.left() - 5, area->m_rect.center().y())};
        return places[roll(4)];
    }

    FakeHost &host;
    std::mt19937 dice;
};

// A dialog that nobody answers is closed by the host.
TEST(InputStorm, EventsInAnyOrder) {
    FakeHost host;
    Storm storm(host, 1);
    for (int i = 0; i < 1500; ++i)
        storm.step();
    storm.ensureOpen();
    QMouseEvent release(QEvent::MouseButtonRelease, QPoint(-5, -5), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(storm.chart.widget, &release);
    EXPECT_FALSE(storm.chart.handle->m_rangeSelecting);
    EXPECT_FALSE(storm.chart.handle->m_dragCandidate);
    for (const CRGraphArea *area : storm.chart.handle->m_areas)
        EXPECT_FALSE(area->m_resizing);
    EXPECT_FALSE(host.grab(storm.chart).isNull());
}

TEST(InputStorm, TheHostActsInsideItsAnswers) {
    FakeHost host;
    Storm storm(host, 2);
    const auto act = [&](const Call &call) {
        if (isInputCall(call.message) && storm.roll(15) == 0)
            storm.disturb();
    };
    host.setInterruption(act, FakeHost::AfterAnswer);
    for (int i = 0; i < 1500; ++i)
        storm.step();
    host.setInterruption(nullptr);
    storm.ensureOpen();
    EXPECT_FALSE(host.grab(storm.chart).isNull());
}

} // namespace
