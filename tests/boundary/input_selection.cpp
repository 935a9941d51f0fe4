// Selecting lines of indicators, the locator over several panes, and the cross cursor's labels.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

#include <QMenu>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

constexpr QRgb gridColor = 0xFFECE9D8;

class Selection : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        FakeIndicator two;
        two.name = two.displayName = "TWO";
        FakeOutput upper, lower;
        upper.name = "upper";
        upper.value = [](const std::vector<float> &, int) { return 70.0f; };
        lower.name = "lower";
        lower.value = [](const std::vector<float> &, int) { return 30.0f; };
        upper.placement = lower.placement = 3; // a pane of its own
        two.outputs = {upper, lower};
        host.addIndicatorKind(two);
        chart = host.createChart();
        host.addInstrument(chart, "EURUSD");
        host.addIndicator(chart, "TWO");
        indicator = host.lastObject();
        host.tick();
        host.settle();
        bar = scrollBarOf(chart);
        bar->setValue(500); // no free space: the lines reach the right edge
        host.clearTraffic();
    }
    // Rows that one colour fills from the left to the right third of the plot.
    std::vector<int> lineRows() {
        const QImage picture = host.grab(chart);
        std::vector<int> rows;
        for (int y = 20; y < picture.height() - bar->height() - 30; ++y) {
            const QRgb ink = picture.pixel(200, y);
            if (ink == 0xFFFFFFFF || ink == gridColor)
                continue;
            bool whole = true;
            for (int x = 200; x < 500 && whole; ++x)
                whole = picture.pixel(x, y) == ink;
            if (whole)
                rows.push_back(y);
        }
        return rows;
    }
    // Whether the host still has a line of the object on the chart.
    bool stands() const { return indicator->subscribers.count(chart.handle) > 0; }

    FakeHost host;
    Chart chart;
    FakeObject *indicator = nullptr;
    QScrollBar *bar = nullptr;
};

} // namespace

TEST_F(Selection, WithoutAltAllLinesOfAnIndicatorGo) {
    const std::vector<int> rows = lineRows();
    ASSERT_EQ(rows.size(), 2u);
    Mouse(chart).click(QPoint(300, rows[0]));
    pressKey(chart, Qt::Key_Delete);
    EXPECT_FALSE(stands());
}

TEST_F(Selection, WithAltOneLineGoes) {
    const std::vector<int> rows = lineRows();
    ASSERT_EQ(rows.size(), 2u);
    Mouse(chart).click(QPoint(300, rows[0]), Qt::AltModifier);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_TRUE(stands());
    host.tick();
    EXPECT_EQ(lineRows().size(), 1u);
}

TEST_F(Selection, AClickInAnotherPaneLetsTheFirstGo) {
    const std::vector<int> rows = lineRows();
    ASSERT_EQ(rows.size(), 2u);
    Mouse mouse(chart);
    mouse.click(QPoint(300, rows[0]));
    mouse.click(QPoint(300, 20), Qt::ControlModifier); // in the upper pane, keeping what is selected there
    pressKey(chart, Qt::Key_Delete);
    EXPECT_TRUE(stands());
}

TEST_F(Selection, ASelectedLineBlinksWithTheFramesOnly) {
    const std::vector<int> rows = lineRows();
    ASSERT_EQ(rows.size(), 2u);
    Mouse mouse(chart);
    mouse.click(QPoint(300, rows[0]));
    mouse.press(QPoint(300, 50), Qt::MiddleButton, Qt::ControlModifier);
    mouse.release(QPoint(300, 50), Qt::MiddleButton, Qt::ControlModifier);
    host.settle();
    host.log.clear();
    for (int x = 300; x < 360; x += 10)
        mouse.move(QPoint(x, 60));
    for (const LogLine &line : host.log)
        EXPECT_FALSE(line.text.startsWith("DrawAll")) << line.text.toStdString();
}

TEST_F(Selection, TheLocatorListsAllPanesOrOne) {
    Mouse mouse(chart);
    mouse.move(QPoint(300, 20));
    int blanks = 0;
    for (const LocatorItem &item : host.locatorItems)
        blanks += item.text == " ";
    EXPECT_EQ(blanks, 2);
    PROPERTY_PAGE *page = host.pages.begin()->second;
    static_cast<propertyBoolean *>(page->groups[0].items[6]->value)->value = 0; // all panes
    PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, page};
    host.send(10054u, &change);
    host.grab(chart);
    mouse.move(QPoint(301, 20));
    blanks = 0;
    for (const LocatorItem &item : host.locatorItems)
        blanks += item.text == " ";
    EXPECT_EQ(blanks, 1);
}

TEST_F(Selection, TheLocatorNamesTheLineUnderTheMouse) {
    const std::vector<int> rows = lineRows();
    ASSERT_EQ(rows.size(), 2u);
    Mouse(chart).move(QPoint(300, rows[1]));
    ASSERT_FALSE(host.locatorItems.empty());
    EXPECT_TRUE(host.locatorItems.back().text.contains(":\n VALUE=30"));
}

TEST_F(Selection, TheCrossLabelTakesTheRiseColourOfAnInstrument) {
    Mouse mouse(chart);
    mouse.press(QPoint(300, 120), Qt::MiddleButton);
    mouse.release(QPoint(300, 120), Qt::MiddleButton);
    mouse.move(QPoint(300, 121));
    const QImage picture = host.grab(chart);
    const QRgb label = picture.pixel(picture.width() - 2, 121);
    const coreTypeShow &look = host.objects().front()->array().header()->typeShow;
    EXPECT_EQ(label & 0xFFFFFF, look.firstColor & 0xFFFFFF);
    EXPECT_NE(picture.pixel(2, 121), label);
}

TEST_F(Selection, WithoutARightScaleThePriceStandsOnTheLeft) {
    PROPERTY_PAGE *page = host.pages.begin()->second;
    static_cast<propertyBoolean *>(page->groups[0].items[13]->value)->value = 0; // the right scale
    PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, page};
    host.send(10054u, &change);
    host.grab(chart);
    Mouse mouse(chart);
    mouse.press(QPoint(300, 120), Qt::MiddleButton);
    mouse.release(QPoint(300, 120), Qt::MiddleButton);
    mouse.move(QPoint(300, 121));
    const QImage picture = host.grab(chart);
    const coreTypeShow &look = host.objects().front()->array().header()->typeShow;
    EXPECT_EQ(picture.pixel(1, 121) & 0xFFFFFF, look.firstColor & 0xFFFFFF);
}

TEST_F(Selection, TheSelectMenuListsTheSeriesAndDeselect) {
    for (QWidget *widget : chart.toolBar->findChildren<QWidget *>()) {
        auto *button = qobject_cast<QToolButton *>(widget);
        if (!button || button->text() != "Select")
            continue;
        button->click();
        QMenu *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        const QList<QAction *> actions = menu->actions();
        ASSERT_EQ(actions.size(), 1 + 2 + 1 + 1);
        EXPECT_TRUE(actions[3]->isSeparator());
        EXPECT_EQ(actions[4]->text(), "Deselect");
        actions[1]->trigger();
        menu->close();
        pressKey(chart, Qt::Key_Delete);
        host.tick();
        EXPECT_EQ(lineRows().size(), 1u);
        return;
    }
    FAIL() << "no select button";
}

TEST_F(Selection, LinesOfOneNameStayTogether) {
    FakeIndicator twins = indicatorKind("TWINS", 3, 1, {"same", "same"});
    twins.outputs[0].value = [](const std::vector<float> &, int) { return 70.0f; };
    twins.outputs[1].value = [](const std::vector<float> &, int) { return 30.0f; };
    host.addIndicatorKind(twins);
    Chart other = host.createChart();
    host.addInstrument(other, "EURUSD");
    host.addIndicator(other, "TWINS");
    host.tick();
    host.grab(other);
    scrollBarOf(other)->setValue(500);
    host.grab(other);
    const CRGraphLayer *layer = other.handle->m_areas.back()->m_layers[0];
    const QRect plot = layer->m_rect;
    const int row = plot.bottom() - static_cast<int>((70.0f - layer->m_min) * layer->m_yScale);
    Mouse(other).click(QPoint(plot.center().x(), row));
    const ChartView view = viewOf(other);
    ASSERT_EQ(view.series.size(), 3u);
    EXPECT_FALSE(view.series[0].selected);
    EXPECT_TRUE(view.series[1].selected);
    EXPECT_TRUE(view.series[2].selected);
}

TEST(SelectionOfDuplicates, TheOneFurtherBackIsLetGo) {
    for (const bool sameLayer : {false, true}) {
        FakeHost host;
        Chart chart = host.createChart();
        FakeObject *first = host.addInstrument(chart, "EURUSD");
        host.onDialog([sameLayer](QDialog *dialog) {
            QTreeWidget *tree = treeOf(dialog);
            tree->setCurrentItem(tree->topLevelItem(sameLayer ? 0 : tree->topLevelItemCount() - 1));
            dialog->accept();
        });
        FakeObject *second = host.addInstrument(chart, "EURUSD");
        ASSERT_TRUE(second);
        host.tick();
        host.grab(chart);
        ASSERT_EQ(viewOf(chart).series[1].layer, sameLayer ? 0 : 1);
        pressKey(chart, Qt::Key_A, Qt::ControlModifier);
        host.clearTraffic();
        Mouse(chart).press(QPoint(300, 500), Qt::LeftButton, Qt::ControlModifier);
        const std::vector<Call> calls = host.callsOf(3092);
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(static_cast<Word>(calls[0].wParam), (sameLayer ? first : second)->handle);
    }
}

TEST(SelectionOfDuplicates, AnotherPeriodOrTypeIsNone) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    host.addInstrument(chart, "EURUSD", 'I', 240);
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    host.addInstrument(chart, "EURUSD", 'I', 60, "Ask");
    host.tick();
    host.grab(chart);
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    host.clearTraffic();
    Mouse(chart).press(QPoint(300, 500), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(host.count(3092), 3);
}
