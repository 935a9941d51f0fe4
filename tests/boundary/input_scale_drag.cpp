// Stretching the value scales of a pane by drag, and the ways back.
#include "tests/boundary/InputDriver.h"
#include "tests/boundary/instruments_view.h"

#include <cmath>

namespace {

class ScaleDrag : public testing::Test {
protected:
    void SetUp() override {
        host.setHistory("EURUSD", makeBars(500));
        chart = host.createChart(QSize(800, 600));
        host.addInstrument(chart, "EURUSD");
        host.tick();
        host.grab(chart);
        host.clearTraffic();
    }
    // A second instrument on a layer of its own in the same pane.
    void addLayer() {
        host.setHistory("GBPUSD", makeBars(500, 1388534400, 3600, 1.6f));
        host.onDialog([](QDialog *dialog) {
            QTreeWidget *tree = treeOf(dialog);
            tree->setCurrentItem(tree->topLevelItem(tree->topLevelItemCount() - 1));
            dialog->accept();
        });
        host.addInstrument(chart, "EURUSD", 'I', 240);
        host.tick();
        host.grab(chart);
        host.clearTraffic();
        ASSERT_EQ(viewOf(chart).layers, std::vector<int>{2});
    }
    CRGraphLayer *layer(std::size_t index = 0) { return chart.handle->m_areas[0]->m_layers[index]; }
    int rightX() { return layer()->m_rect.right() + chart.handle->m_nRightScaleWidth / 2; }
    int leftX() { return layer()->m_rect.left() - chart.handle->m_nLeftScaleWidth / 2; }

    FakeHost host;
    Chart chart;
};

} // namespace

TEST_F(ScaleDrag, EachHalfKeepsTheOtherEnd) {
    const struct {
        bool right;
        int press, release;
        bool upper;
    } cases[] = {{true, 100, 180, true},   {true, 100, 40, true},   {true, 450, 380, false},
                 {true, 450, 500, false},  {false, 100, 180, true}, {false, 100, 40, true},
                 {false, 450, 380, false}, {false, 450, 500, false}};
    Mouse mouse(chart);
    for (const auto &step : cases) {
        const int x = step.right ? rightX() : leftX();
        const double max = layer()->m_max, min = layer()->m_min, span = max - min;
        const double top = layer()->m_rect.top(), bottom = layer()->m_rect.bottom();
        mouse.drag(QPoint(x, step.press), QPoint(x, step.release));
        if (step.upper) {
            EXPECT_FLOAT_EQ(layer()->m_max, float(min + (step.press - bottom) * span / (step.release - bottom)));
            EXPECT_FLOAT_EQ(layer()->m_min, float(min));
        } else {
            EXPECT_FLOAT_EQ(layer()->m_max, float(max));
            EXPECT_FLOAT_EQ(layer()->m_min, float(max - (top - step.press) * span / (top - step.release)));
        }
        EXPECT_FALSE(layer()->m_bDataScaleSelfTuning);
        EXPECT_EQ(layer()->m_scaleDrag, 0);
        mouse.doubleClick(QPoint(x, 300));
        host.grab(chart);
    }
}

TEST_F(ScaleDrag, TheHalvesMeetInTheMiddle) {
    const QRect plot = layer()->m_rect;
    const int half = (plot.height() + 1) / 2;
    const struct {
        QPoint point;
        int mode;
    } cases[] = {{QPoint(plot.right(), 100), 1},
                 {QPoint(plot.right() - 1, 100), 0},
                 {QPoint(plot.right() + chart.handle->m_nRightScaleWidth - 1, 100), 1},
                 {QPoint(rightX(), plot.top() + half - 1), 1},
                 {QPoint(rightX(), plot.top() + half), 2},
                 {QPoint(rightX(), plot.bottom() + 1), 0},
                 {QPoint(plot.left() - 1, 100), 3},
                 {QPoint(plot.left(), 100), 0},
                 {QPoint(leftX(), plot.top() + half), 4}};
    for (const auto &step : cases) {
        Mouse mouse(chart);
        mouse.press(step.point);
        EXPECT_EQ(layer()->m_scaleDrag, step.mode) << step.point.x() << ' ' << step.point.y();
        mouse.release(step.point);
        EXPECT_EQ(layer()->m_scaleDrag, 0);
    }
}

TEST_F(ScaleDrag, TakesTheAutoAdjustOptionsAndThePageFollows) {
    chart.handle->m_candleInSelfTuning = true;
    Mouse mouse(chart);
    const QPoint from(rightX(), 100), to(rightX(), 150);
    mouse.drag(from, to);
    EXPECT_TRUE(layer()->m_freeScale);
    EXPECT_FALSE(chart.handle->m_tradeInSelfTuning);
    EXPECT_FALSE(chart.handle->m_candleInSelfTuning);
    EXPECT_EQ(host.count(10057), 2); // whether it is open, and again as it is shown anew
    EXPECT_EQ(host.count(10051) + host.count(10052), 1);
    const PROPERTY_PAGE *page = host.pages.begin()->second;
    EXPECT_EQ(static_cast<propertyBoolean *>(page->groups[0].items[15]->value)->value, 0u);
    EXPECT_EQ(static_cast<propertyBoolean *>(page->groups[0].items[16]->value)->value, 0u);
    mouse.drag(from, to); // free already
    mouse.click(QPoint(rightX(), 300)); // a drag of no rows
    EXPECT_EQ(host.count(10057), 2);
    host.grab(chart);
    ASSERT_TRUE(layer()->m_rightAutoRect.isValid());
    mouse.press(layer()->m_rightAutoRect.center());
    EXPECT_EQ(layer()->m_scaleDrag, 0);
    EXPECT_TRUE(layer()->m_bDataScaleSelfTuning);
    EXPECT_FALSE(layer()->m_freeScale);
    EXPECT_TRUE(chart.handle->m_tradeInSelfTuning);
    EXPECT_TRUE(chart.handle->m_candleInSelfTuning);
    EXPECT_EQ(host.count(10057), 4);
    EXPECT_EQ(static_cast<propertyBoolean *>(page->groups[0].items[15]->value)->value, 1u);
    mouse.release(layer()->m_rightAutoRect.center());
    EXPECT_FALSE(layer()->m_freeScale);
}

TEST_F(ScaleDrag, AClosedPageIsAskedForButNotShown) {
    host.answer(10057, [](void *, int, int lParam) {
        *fromWord<Word>(lParam) = 0;
        return 0;
    });
    Mouse(chart).drag(QPoint(rightX(), 100), QPoint(rightX(), 150));
    EXPECT_EQ(host.count(10057), 1);
    EXPECT_EQ(host.count(10051) + host.count(10052), 0);
}

TEST_F(ScaleDrag, TwoLayersHaveAScaleEach) {
    addLayer();
    const float max0 = layer(0)->m_max, max1 = layer(1)->m_max;
    Mouse mouse(chart);
    mouse.drag(QPoint(leftX(), 100), QPoint(leftX(), 150));
    EXPECT_EQ(layer(0)->m_max, max0);
    EXPECT_TRUE(layer(0)->m_bDataScaleSelfTuning);
    EXPECT_FALSE(layer(0)->m_freeScale);
    EXPECT_GT(layer(1)->m_max, max1);
    EXPECT_FALSE(layer(1)->m_bDataScaleSelfTuning);
    EXPECT_TRUE(layer(1)->m_freeScale);
    mouse.drag(QPoint(rightX(), 100), QPoint(rightX(), 150));
    EXPECT_GT(layer(0)->m_max, max0);
    EXPECT_EQ(layer(0)->m_scaleDrag + layer(1)->m_scaleDrag, 0);
    host.grab(chart);
    mouse.click(layer(1)->m_leftAutoRect.center());
    EXPECT_FALSE(layer(0)->m_bDataScaleSelfTuning);
    EXPECT_TRUE(layer(1)->m_bDataScaleSelfTuning);
}

TEST_F(ScaleDrag, ADoubleClickGivesTheOptionsOfEveryLayerBack) {
    addLayer();
    Mouse mouse(chart);
    mouse.drag(QPoint(rightX(), 100), QPoint(rightX(), 150));
    ASSERT_TRUE(layer(0)->m_freeScale);
    mouse.doubleClick(QPoint(leftX(), 300)); // its first press and release stretch the left scale by nothing
    EXPECT_FALSE(layer(0)->m_bDataScaleSelfTuning);
    EXPECT_TRUE(layer(1)->m_bDataScaleSelfTuning);
    EXPECT_FALSE(layer(0)->m_freeScale);
    EXPECT_FALSE(layer(1)->m_freeScale);
}

TEST_F(ScaleDrag, ARowWithoutARangeLeavesTheScale) {
    const QRect plot = layer()->m_rect;
    for (const int row : {plot.bottom(), plot.bottom() + 1}) {
        const float max = layer()->m_max, min = layer()->m_min;
        Mouse(chart).drag(QPoint(rightX(), 100), QPoint(rightX(), row));
        EXPECT_EQ(layer()->m_max, max);
        EXPECT_EQ(layer()->m_min, min);
        EXPECT_TRUE(std::isfinite(layer()->m_max));
    }
}

TEST_F(ScaleDrag, TheSeriesGoesInTheMiddleOfADrag) {
    Mouse mouse(chart);
    pressKey(chart, Qt::Key_A, Qt::ControlModifier);
    mouse.press(QPoint(rightX(), 100), Qt::LeftButton, Qt::ControlModifier);
    mouse.move(QPoint(rightX(), 150), Qt::ControlModifier);
    pressKey(chart, Qt::Key_Delete);
    EXPECT_TRUE(chart.handle->m_indicators.empty());
    mouse.move(QPoint(rightX(), 160));
    mouse.release(QPoint(rightX(), 160));
    host.grab(chart);
    host.addInstrument(chart, "EURUSD");
    host.tick();
    host.grab(chart);
    EXPECT_TRUE(std::isfinite(layer()->m_max));
    EXPECT_EQ(layer()->m_scaleDrag, 0);
}
