#include "tests/paint/LayerView.h"

namespace {

std::vector<Bar> flatBars(int count, float price) {
    std::vector<Bar> bars;
    for (int i = 0; i < count; ++i)
        bars.push_back({1388534400 + i * 3600, price, price, price, price, 1});
    return bars;
}

constexpr QRgb gridColor = 0xFFECE9D8;
constexpr QRgb textColor = 0xFF7C7B68;

// ---- range ----

TEST(LayerRange, HoldsWhatIsVisibleAndAMargin) {
    std::vector<Bar> bars = makeBars(200);
    bars[5].high = 2.0f; // out of sight
    SeriesChart test(bars);
    test.showFrom(100, 60);
    test.grab();
    float high = -FLT_MAX, low = FLT_MAX;
    for (std::size_t i = 100; i < 160; ++i) {
        high = std::max(high, bars[i].high);
        low = std::min(low, bars[i].low);
    }
    const LayerView view = test.view();
    const float max = high + (high - low) * 0.02f;
    EXPECT_NEAR(view.layer->m_max, max, 1e-6);
    EXPECT_NEAR(view.layer->m_min, low - (max - low) * 0.02f, 1e-6); // of the grown range
    EXPECT_FLOAT_EQ(view.layer->m_yScale,
                    view.layer->m_rect.height() / (view.layer->m_max - view.layer->m_min));
    EXPECT_FLOAT_EQ(view.layer->m_candleStep, view.layer->m_rect.width() / 60.0f);
    EXPECT_EQ(view.layer->m_lastMax, view.layer->m_max);
    EXPECT_EQ(view.layer->m_lastMin, view.layer->m_min);
}

TEST(LayerRange, EqualValuesAreTenTicksFromTheEnds) {
    SeriesChart test(flatBars(60, 1.3f));
    test.grab();
    const LayerView view = test.view();
    EXPECT_NEAR(view.layer->m_max - 1.3f, 10.4e-5f, 1e-6);
    EXPECT_NEAR(1.3f - view.layer->m_min, 10.408e-5f, 1e-6);
    EXPECT_GT(view.layer->m_yScale, 0);
}

TEST(LayerRange, FrozenRangeIgnoresNewDataButNotTheZoom) {
    SeriesChart test(makeBars(200));
    test.grab();
    CRGraphLayer *layer = test.view().layer;
    layer->m_bDataScaleSelfTuning = false;
    const float max = layer->m_max, min = layer->m_min;
    test.host.appendBar(test.instrument, {1388534400 + 200 * 3600, 1.3f, 3.0f, 0.5f, 1.3f, 1});
    test.host.update(test.instrument);
    test.host.tick();
    test.showFrom(100, 37);
    test.grab();
    EXPECT_EQ(layer->m_max, max);
    EXPECT_EQ(layer->m_min, min);
    EXPECT_FLOAT_EQ(layer->m_candleStep, layer->m_rect.width() / 37.0f);
    EXPECT_FLOAT_EQ(layer->m_yScale, layer->m_rect.height() / (max - min));
}

TEST(LayerRange, OnlyHiddenSeriesLeaveTheLastRange) {
    SeriesChart test(makeBars(200));
    test.grab();
    CRGraphLayer *layer = test.view().layer;
    const float max = layer->m_max, min = layer->m_min, scale = layer->m_yScale;
    test.instrument->array().header()->typeShow.penType = eCoreTypeShowPenNone;
    test.host.update(test.instrument, 2);
    test.showFrom(10, 37);
    test.grab();
    EXPECT_EQ(layer->m_max, max);
    EXPECT_EQ(layer->m_min, min);
    EXPECT_EQ(layer->m_yScale, scale);
}

TEST(LayerRange, ALayerThatNeverHadDataHasNoScale) {
    SeriesChart test({});
    test.grab();
    const LayerView view = test.view();
    EXPECT_EQ(view.layer->m_max, -FLT_MAX);
    EXPECT_EQ(view.layer->m_min, FLT_MAX);
    EXPECT_EQ(view.layer->m_yScale, 0);
}

TEST(LayerRange, SmallPaneKeepsSpareRoom) {
    SeriesChart test(makeBars(60), 1, QSize(400, 120));
    test.grab();
    const LayerView view = test.view();
    const int height = view.layer->m_rect.height();
    ASSERT_LT(height, 100);
    const float range = view.layer->m_max - view.layer->m_min;
    EXPECT_FLOAT_EQ(view.layer->m_yScale, static_cast<float>((height * 0.2 / 100 + 0.8) * height / range));
}

FakeOutput constant(const QString &name, Word kind, int style, int placement, float value) {
    return {name, kind, style, placement, [value](const std::vector<float> &, int) { return value; }};
}

TEST(LayerRange, CandlesAloneSteerTheScaleWhenAskedTo) {
    SeriesChart test(makeBars(60));
    test.addOutputs({constant("Far", 4, 0, 0, 5.0f)});
    test.grab();
    CRGraphLayer *layer = test.view().layer;
    EXPECT_GT(layer->m_max, 4.9f);
    test.chart.handle->m_candleInSelfTuning = true;
    test.grab();
    EXPECT_LT(layer->m_max, 1.5f);
}

TEST(LayerRange, WithoutCandlesTheOptionChangesNothing) {
    SeriesChart test(makeBars(60));
    test.addOutputs({constant("Far", 4, 0, 3, 5.0f)});
    test.chart.handle->m_candleInSelfTuning = true;
    test.grab();
    EXPECT_GT(test.view(1).layer->m_max, 4.9f);
}

TEST(LayerRange, MarksGetAWiderMargin) {
    SeriesChart test(makeBars(60));
    FakeObject *object = test.addOutputs({constant("Marks", 6, 3, 3, 1.0f)});
    std::vector<corePointMark> marks;
    for (int i = 0; i < 60; ++i)
        marks.push_back({1388534400 + i * 3600, 110.0f, 10.0f, 3, 0x0000FF});
    object->array().setMarks(marks);
    test.host.update(object, 1);
    test.host.tick();
    test.showFrom(0, 60);
    test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.series()->m_type, PT_MARKS);
    const float max1 = 112.0f, min1 = 10.0f - 102.0f * 0.02f;
    const float max2 = max1 + (max1 - min1) * 0.1f;
    EXPECT_NEAR(view.layer->m_max, max2, 1e-3);
    EXPECT_NEAR(view.layer->m_min, min1 - (max2 - min1) * 0.1f, 1e-3);
}

TEST(LayerRange, TickIsTheLargestPointSize) {
    SeriesChart test(makeBars(60));
    FakeObject *object = test.addOutputs({constant("A", 4, 0, 0, 1.3f)});
    object->array().header()->precision = 2;
    test.host.update(object, 2);
    test.grab();
    EXPECT_FLOAT_EQ(test.view().layer->m_tick, 0.01f);
}

TEST(LayerRange, SeriesAreSortedByTheirOrder) {
    SeriesChart test(makeBars(60));
    test.addOutputs({constant("A", 4, 0, 0, 1.3f), constant("B", 4, 0, 0, 1.31f)});
    const auto &outputs = test.chart.handle->m_indicators.back()->m_primitives;
    ASSERT_EQ(outputs.size(), 2u);
    test.series()->m_nOrder = 5;
    outputs[0]->m_nOrder = 7;
    outputs[1]->m_nOrder = 3;
    test.grab();
    const auto &list = test.view().layer->m_primitives;
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0], outputs[1]);
    EXPECT_EQ(list[1], test.series());
    EXPECT_EQ(list[2], outputs[0]);
}

// ---- the scale ----

TEST(ValueScalePaint, HorizontalGridBelongsToTheRightScale) {
    SeriesChart test(makeBars(200));
    QImage picture = test.grab();
    const LayerView view = test.view();
    const QRect plot = view.layer->m_rect;
    ASSERT_GT(test.chart.handle->m_nLeftScaleWidth, 0);
    const QRect empty(plot.left() + 5, plot.top() + 40, 40, plot.height() - 60);
    test.chart.handle->m_bVerticalGrid = false;
    picture = test.grab();
    EXPECT_GT(colorCount(picture, empty, gridColor), 20);
    test.chart.handle->m_bHorizontalGrid = false;
    picture = test.grab();
    EXPECT_EQ(colorCount(picture, empty, gridColor), 0);
    // Ticks and borders stay on both sides.
    EXPECT_GT(colorCount(picture, QRect(plot.left() - 3, plot.top(), 3, plot.height()), gridColor), 20);
    EXPECT_GT(colorCount(picture, QRect(plot.right() + 1, plot.top(), 3, plot.height()), gridColor), 20);
}

TEST(ValueScalePaint, TextsStandInBothScales) {
    SeriesChart test(makeBars(200));
    const QImage picture = test.grab();
    const QRect plot = test.view().layer->m_rect;
    const CRGraphWidget *widget = test.chart.handle;
    const QRect left(plot.left() - widget->m_nLeftScaleWidth, plot.top(), widget->m_nLeftScaleWidth - 4,
                     plot.height());
    const QRect right(plot.right() + 4, plot.top(), widget->m_nRightScaleWidth - 4, plot.height());
    EXPECT_GT(colorCount(picture, left, textColor), 100);
    EXPECT_GT(colorCount(picture, right, textColor), 100);
}

/// A line in a layer of its own, without a source: beside several series the user would have to name one.
void addInNewLayer(SeriesChart &test, const QString &name, float value) {
    FakeIndicator kind;
    kind.name = kind.displayName = name;
    kind.inputs = 0;
    kind.outputs = {constant("A", 4, 0, 1, value)};
    test.host.addIndicatorKind(kind);
    test.host.onDialog([](QDialog *dialog) { // the last row is a new layer
        auto *tree = dialog->findChild<QTreeWidget *>();
        tree->setCurrentItem(tree->topLevelItem(tree->topLevelItemCount() - 1));
        dialog->accept();
    });
    test.host.addIndicator(test.chart, name);
    std::vector<Value> values;
    for (const Bar &bar : makeBars(200))
        values.push_back({bar.time, value});
    test.host.lastObject()->array().setValues(values);
    test.host.update(test.host.lastObject(), 1);
    test.host.tick();
}

TEST(ValueScalePaint, SecondLayerTakesTheLeftScale) {
    SeriesChart test(makeBars(200));
    addInNewLayer(test, "IND", 500.0f);
    ASSERT_EQ(test.chart.handle->m_areas.front()->m_layers.size(), 2u);
    const QImage picture = test.grab();
    const LayerView first = test.view(0, 0), second = test.view(0, 1);
    EXPECT_LT(first.layer->m_max, 2);
    EXPECT_GT(second.layer->m_max, 400);
    const CRGraphWidget *widget = test.chart.handle;
    const QRect plot = first.layer->m_rect;
    const QRect left(plot.left() - widget->m_nLeftScaleWidth, plot.top(), widget->m_nLeftScaleWidth - 4,
                     plot.height());
    const QImage before = picture.copy(left);
    // The left scale follows the second layer: only its range changes it.
    second.layer->m_bDataScaleSelfTuning = false;
    second.layer->m_max += 300;
    const QImage after = test.grab().copy(left);
    EXPECT_NE(before, after);
}

TEST(ValueScalePaint, FurtherLayersHaveNoScale) {
    SeriesChart test(makeBars(200));
    addInNewLayer(test, "Second", 500.0f);
    addInNewLayer(test, "Third", 9000.0f);
    ASSERT_EQ(test.chart.handle->m_areas.front()->m_layers.size(), 3u);
    const QImage before = test.grab();
    const QRect plot = test.view().layer->m_rect;
    CRGraphLayer *third = test.view(0, 2).layer;
    ASSERT_GT(third->m_max, 8000);
    third->m_bDataScaleSelfTuning = false;
    third->m_max += 3000;
    third->m_min -= 1000;
    const QImage after = test.grab();
    EXPECT_NE(after.copy(plot), before.copy(plot)); // the series itself moves
    for (const QRect &side : {QRect(QPoint(0, 0), QPoint(plot.left() - 1, plot.bottom())),
                              QRect(QPoint(plot.right() + 1, 0), QPoint(799, plot.bottom()))})
        EXPECT_EQ(after.copy(side), before.copy(side));
    EXPECT_TRUE(third->m_rightAutoRect.isEmpty());
    EXPECT_TRUE(third->m_leftAutoRect.isEmpty());
}

TEST(ValueScalePaint, AutoButtonStandsOnAFrozenScaleOnly) {
    SeriesChart test(makeBars(200));
    test.grab();
    CRGraphLayer *layer = test.view().layer;
    const CRGraphWidget *widget = test.chart.handle;
    EXPECT_TRUE(layer->m_rightAutoRect.isEmpty());
    EXPECT_TRUE(layer->m_leftAutoRect.isEmpty());
    layer->m_bDataScaleSelfTuning = false;
    test.grab();
    const QRect right = layer->m_rightAutoRect, left = layer->m_leftAutoRect;
    ASSERT_FALSE(right.isEmpty());
    ASSERT_FALSE(left.isEmpty());
    EXPECT_EQ(right.top(), layer->m_rect.top() + 1);
    EXPECT_EQ(right.left(), layer->m_rect.right() + widget->m_nRightScaleWidth - right.width() - 16);
    EXPECT_EQ(left.topLeft(),
              QPoint(layer->m_rect.left() - widget->m_nLeftScaleWidth + 1, layer->m_rect.top() + 1));
    QMetaObject::invokeMethod(layer, "OnSetAutoScalling");
    EXPECT_TRUE(layer->m_bDataScaleSelfTuning);
    test.grab();
    EXPECT_TRUE(layer->m_rightAutoRect.isEmpty());
    EXPECT_TRUE(layer->m_leftAutoRect.isEmpty());
}

} // namespace
