// What the handlers of input write into the log.
#include "tests/boundary/InputDriver.h"

#include <QHelpEvent>
#include <gtest/gtest.h>

namespace {

class InputLog : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.tick();
        host.grab(chart);
    }
    /// Start and end of the handlers that `work` runs, as they come: "CRGraphArea::keyPressEvent: start".
    std::string linesOf(const std::function<void()> &work) {
        host.log.clear();
        work();
        QStringList lines;
        for (const LogLine &line : host.log) {
            const QString words = line.text.section('|', 0, 0);
            if (words.endsWith(": start") || words.endsWith(": finish")) {
                EXPECT_EQ(line.level, 0u) << words.toStdString();
                EXPECT_FALSE(line.text.section('|', 2, 2).isEmpty()) << words.toStdString();
                lines.append(words);
            }
        }
        return text(lines);
    }
    static std::string text(const QStringList &lines) { return lines.join("\n").toStdString(); }
    /// The lines of a handler that goes down through the window's one pane and its one layer.
    static std::string nested(const QString &window, const QString &below) {
        return text({"CRGraphWidget::" + window + ": start", "CRGraphArea::" + below + ": start",
                     "CRGraphLayer::" + below + ": start", "CRGraphLayer::" + below + ": finish",
                     "CRGraphArea::" + below + ": finish", "CRGraphWidget::" + window + ": finish"});
    }
    static std::string single(const QString &name) {
        return text({"CRGraphWidget::" + name + ": start", "CRGraphWidget::" + name + ": finish"});
    }

    FakeHost host;
    Chart chart;
};

} // namespace

TEST_F(InputLog, TheMouseGoesDownToTheLayers) {
    Mouse mouse(chart);
    const QPoint point(300, 500);
    EXPECT_EQ(linesOf([&] { mouse.press(point); }), nested("mousePressEvent", "mousePressEvent"));
    EXPECT_EQ(linesOf([&] { mouse.move(point); }), nested("mouseMoveEvent", "mouseMoveEvent"));
    EXPECT_EQ(linesOf([&] { mouse.release(point); }), nested("mouseReleaseEvent", "OnLMouseRelease"));
    EXPECT_EQ(linesOf([&] {
                  const QPoint scale(797, 300); // no page is shown from there
                  QMouseEvent event(QEvent::MouseButtonDblClick, scale, Qt::LeftButton, Qt::LeftButton,
                                    Qt::NoModifier);
                  QCoreApplication::sendEvent(chart.widget, &event);
              }),
              nested("mouseDoubleClickEvent", "mouseDoubleClickEvent"));
}

TEST_F(InputLog, TheOtherButtonsEndAtTheWindow) {
    Mouse mouse(chart);
    EXPECT_EQ(linesOf([&] { mouse.press(QPoint(300, 300), Qt::RightButton); }), single("mousePressEvent"));
    EXPECT_EQ(linesOf([&] { mouse.release(QPoint(300, 300), Qt::RightButton); }),
              single("mouseReleaseEvent"));
}

TEST_F(InputLog, AKeyGoesDownToTheLayers) {
    EXPECT_EQ(linesOf([&] { pressKey(chart, Qt::Key_B); }), nested("keyPressEvent", "keyPressEvent"));
}

TEST_F(InputLog, WheelEnterLeaveAndToolTip) {
    Mouse mouse(chart);
    EXPECT_EQ(linesOf([&] { mouse.wheel(120); }), single("wheelEvent"));
    EXPECT_EQ(linesOf([&] { mouse.wheel(120, Qt::ControlModifier); }), single("wheelEvent"));
    EXPECT_EQ(linesOf([&] {
                  QEvent enter(QEvent::Enter);
                  QCoreApplication::sendEvent(chart.widget, &enter);
              }),
              single("enterEvent"));
    EXPECT_EQ(linesOf([&] { mouse.leave(); }), single("leaveEvent"));
    EXPECT_EQ(linesOf([&] {
                  const QPoint point(300, 300);
                  QHelpEvent tip(QEvent::ToolTip, point, chart.widget->mapToGlobal(point));
                  QCoreApplication::sendEvent(chart.widget, &tip);
              }),
              single("event"));
}

TEST_F(InputLog, AHandlerEndsInTheLogAlsoWhenItsWindowIsGone) {
    host.setInterruption([&](const Call &call) {
        if (call.message == 3500 && chart.handle)
            host.deleteChart(chart);
    });
    Mouse mouse(chart);
    EXPECT_EQ(linesOf([&] { mouse.press(QPoint(300, 300)); }), single("mousePressEvent"));
    host.setInterruption(nullptr);
}
