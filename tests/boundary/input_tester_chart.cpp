// What the mouse and the keys may not take from a chart of the system tester.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

namespace {

const QString keepsObjects = "You can only delete manually added in System Tester objects.";
const QString keepsPane = "The area could not be deleted because it contains objects\n"
                          "which were created in System Tester.";

class TesterChart : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart();
        object = host.addInstrument(chart, "EURUSD");
        host.tick();
        pressKey(chart, Qt::Key_N);
        host.grab(chart);
        chart.handle->m_sysTesterChart = true;
        mark(true);
        host.clearTraffic();
        host.log.clear();
    }
    void mark(bool tester) { chart.handle->m_indicators[0]->m_primitives[0]->m_sysTester = tester; }
    QPoint closeBox(std::size_t pane) const { return chart.handle->m_areas[pane]->m_closeRect.center(); }
    QStringList warning(const QString &text) const {
        return QStringList(host.texts.value("C0071Warn") + "|" + text);
    }
    bool stands() const { return object->subscribers.count(chart.handle) > 0; }

    FakeHost host;
    Chart chart;
    FakeObject *object = nullptr;
};

} // namespace

TEST_F(TesterChart, DeleteAndCutWarnAndLetTheSelectionGo) {
    const struct {
        int key;
        Qt::KeyboardModifiers modifiers;
    } cases[] = {{Qt::Key_Delete, Qt::NoModifier}, {Qt::Key_X, Qt::ControlModifier}};
    for (const auto &step : cases) {
        pressKey(chart, Qt::Key_A, Qt::ControlModifier);
        host.dialogTexts.clear();
        host.log.clear();
        pressKey(chart, step.key, step.modifiers);
        EXPECT_EQ(host.dialogTexts, warning(keepsObjects));
        EXPECT_TRUE(logged(host, keepsObjects, 4));
        EXPECT_TRUE(stands());
        EXPECT_FALSE(viewOf(chart).series[0].selected);
    }
}

TEST_F(TesterChart, WhatTheTesterDidNotMakeGoes) {
    mark(false);
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_TRUE(host.dialogTexts.isEmpty());
    EXPECT_FALSE(stands());
}

TEST_F(TesterChart, ItsObjectsCanBeDeletedFromAnyOtherChart) {
    chart.handle->m_sysTesterChart = false;
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_TRUE(host.dialogTexts.isEmpty());
    EXPECT_FALSE(stands());
}

TEST_F(TesterChart, ThePaneOfItsObjectsStays) {
    Mouse(chart).click(closeBox(0));
    EXPECT_EQ(host.dialogTexts, warning(keepsPane));
    EXPECT_EQ(chart.handle->m_areas.size(), 2u);
    for (const CRGraphArea *area : chart.handle->m_areas)
        EXPECT_FALSE(area->m_resizing);
    host.dialogTexts.clear();
    Mouse(chart).click(closeBox(1)); // the empty one
    EXPECT_TRUE(host.dialogTexts.isEmpty());
    EXPECT_EQ(chart.handle->m_areas.size(), 1u);
    EXPECT_TRUE(stands());
}

TEST_F(TesterChart, APressOnItsObjectsMakesNoneCurrent) {
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    Mouse mouse(chart);
    mouse.press(QPoint(300, 200), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(host.count(3092), 0);
    EXPECT_TRUE(chart.handle->m_dragCandidate);
    mark(false);
    mouse.press(QPoint(300, 200), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(host.count(3092), 1);
}

TEST_F(TesterChart, QuotesAndTicksPassUnderAWarning) {
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    for (const bool pane : {false, true}) {
        host.onDialog([&](QDialog *dialog) {
            Bar next = object->array().bar(static_cast<int>(object->array().header()->count) - 1);
            next.time += 3600;
            host.appendBar(object, next);
            host.update(object);
            host.tick();
            dialog->accept();
        });
        if (pane)
            Mouse(chart).click(closeBox(0));
        else
            pressKey(chart, Qt::Key_Delete);
        EXPECT_TRUE(stands());
    }
    EXPECT_FALSE(host.grab(chart).isNull());
}

TEST_F(TesterChart, TheWindowGoesUnderAWarning) {
    for (const bool pane : {false, true}) {
        if (!chart.widget)
            SetUp();
        const QPoint box = closeBox(0);
        pressKey(chart, Qt::Key_A, Qt::ControlModifier);
        host.onDialog([this](QDialog *) { host.deleteChart(chart); });
        if (pane)
            Mouse(chart).click(box, Qt::ControlModifier);
        else
            pressKey(chart, Qt::Key_Delete);
        EXPECT_FALSE(chart.widget);
    }
}

TEST_F(TesterChart, ItsPaneGoesUnderAWarning) {
    const QPoint box = closeBox(0);
    host.onDialog([&](QDialog *dialog) {
        mark(false);
        pressKey(chart, Qt::Key_A, Qt::ControlModifier);
        pressKey(chart, Qt::Key_Delete);
        Mouse(chart).click(box);
        dialog->accept();
    });
    Mouse(chart).click(box);
    EXPECT_EQ(chart.handle->m_areas.size(), 1u);
    EXPECT_FALSE(host.grab(chart).isNull());
}
