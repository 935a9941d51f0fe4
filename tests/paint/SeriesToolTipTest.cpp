// What stands under the mouse, by the text of the tool tip.
#include "tests/paint/LayerView.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

// A tip goes away with a delay of its own: the one before is hidden by hand.
QString tipAt(SeriesChart &test, const QPoint &point) {
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (widget->inherits("QTipLabel"))
            widget->hide();
    QHelpEvent event(QEvent::ToolTip, point, test.chart.widget->mapToGlobal(point));
    QCoreApplication::sendEvent(test.chart.widget, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
}

std::vector<Bar> steps(int count) { // a falling bar, then a rising one
    std::vector<Bar> bars;
    for (int i = 0; i < count; ++i) {
        const float open = i % 2 ? 1.29f : 1.31f;
        bars.push_back({1388534400 + i * 3600, open, 1.32f, 1.28f, 2.6f - open, 1});
    }
    return bars;
}

TEST(ToolTip, NamesTheFourPricesOfACandle) {
    SeriesChart test(steps(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const QString text = tipAt(test, QPoint(view.x(4), view.y(1.30)));
    const QStringList lines = text.split('\n');
    ASSERT_EQ(lines.size(), 7) << text.toStdString();
    EXPECT_EQ(lines[0], test.series()->GetAlias());
    EXPECT_FALSE(lines[1].isEmpty()); // the date
    EXPECT_TRUE(lines[2].contains("4:00")) << lines[2].toStdString();
    EXPECT_EQ(lines[3], QString("Open 1.31000"));
    EXPECT_EQ(lines[4], QString("High 1.32000"));
    EXPECT_EQ(lines[5], QString("Low 1.28000"));
    EXPECT_EQ(lines[6], QString("Close 1.29000"));
    EXPECT_EQ(test.series()->m_nHoverIndex, 4);
    EXPECT_EQ(test.series()->m_nHoverTime, 1388534400 + 4 * 3600);
}

struct TipText {
    Word drawKind;
    char letter;
    int length;
    const char *text; // behind the alias
};

class TipTexts : public testing::TestWithParam<TipText> {};

TEST_P(TipTexts, CharacterByCharacter) {
    std::vector<Bar> bars = steps(10);
    if (GetParam().letter != 'I')
        for (std::size_t i = 0; i < bars.size(); ++i)
            bars[i].time = 1388534400 + static_cast<int>(i) * 86400;
    SeriesChart test(bars, GetParam().drawKind, QSize(800, 600), GetParam().letter, GetParam().length);
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const QString name = test.series()->m_name;
    const QPoint point(view.x(4), view.y(1.29));
    EXPECT_EQ(tipAt(test, point).toStdString(),
              (test.series()->GetAlias() + QString(GetParam().text).replace("NAME", name)).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    ToolTip, TipTexts,
    testing::Values(
        TipText{1, 'I', 60, "\n1/1/2014\n4:00:00\nOpen 1.31000\nHigh 1.32000\nLow 1.28000\nClose 1.29000"},
        TipText{1, 'D', 1, "\n1/5/2014\nOpen 1.31000\nHigh 1.32000\nLow 1.28000\nClose 1.29000"},
        TipText{2, 'I', 60, "\n1/1/2014\n4:00:00\nOpen 1.31000\nHigh 1.32000\nLow 1.28000\nClose 1.29000"},
        TipText{5, 'I', 60, "\n1/1/2014\n4:00:00\nOpen 1.31000\nHigh 1.32000\nLow 1.28000\nClose 1.29000"},
        TipText{3, 'I', 60, "\n1/1/2014\n4:00:00\nNAME 1.29000"},
        TipText{3, 'D', 1, "\n1/5/2014\nNAME 1.29000"},
        TipText{7, 'I', 60, "\n1/1/2014\n4:00:00\nNAME 1.29000"}));

struct OutputTip {
    Word drawKind;
    int style;
    char letter;
    const char *text; // behind the alias
};

class OutputTips : public testing::TestWithParam<OutputTip> {};

TEST_P(OutputTips, CharacterByCharacter) {
    const int step = GetParam().letter == 'I' ? 3600 : 86400;
    std::vector<Bar> bars = steps(10);
    std::vector<corePointMark> marks;
    for (int i = 0; i < 10; ++i) {
        bars[static_cast<std::size_t>(i)].time = 1388534400 + i * step;
        marks.push_back({1388534400 + i * step, 0.5f, 0.25f, 3, 0});
    }
    SeriesChart test(bars, 1, QSize(800, 600), GetParam().letter, GetParam().letter == 'I' ? 60 : 1);
    FakeObject *object = test.addOutputs({FakeOutput{"Out", GetParam().drawKind, GetParam().style, 3,
                                                     [](const std::vector<float> &, int) { return 0.5f; }}});
    if (GetParam().drawKind == 6)
        object->array().setMarks(marks);
    test.host.update(object, 1);
    test.host.tick();
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view(1);
    const QString name = view.series()->m_name;
    EXPECT_EQ(tipAt(test, QPoint(view.x(4), view.y(0.5))).toStdString(),
              (view.series()->GetAlias() + QString(GetParam().text).replace("NAME", name)).toStdString());
}

INSTANTIATE_TEST_SUITE_P(ToolTip, OutputTips,
                         testing::Values(OutputTip{4, 0, 'I', "\n1/1/2014\n4:00:00\nNAME 0.50000"},
                                         OutputTip{4, 1, 'I', "\n1/1/2014\n4:00:00\nNAME 0.50000"},
                                         OutputTip{8, 0, 'I', "\n1/1/2014\n4:00:00\nNAME 0.50000"},
                                         OutputTip{4, 0, 'D', "\n1/5/2014\nNAME 0.50000"},
                                         OutputTip{6, 0, 'I',
                                                   "\n1/1/2014\n4:00:00\nHigh 0.50000\nLow 0.25000"},
                                         OutputTip{6, 0, 'D', "\n1/5/2014\nHigh 0.50000\nLow 0.25000"}));

TEST(ToolTip, TicksHaveTheirTimeAndTheQuote) {
    SeriesChart test(steps(10));
    std::vector<Tick> ticks;
    for (int i = 0; i < 20; ++i)
        ticks.push_back({1388534400 + i * 5, 1.3f, 1});
    test.host.setTickHistory("GBPUSD", ticks);
    Chart other = test.host.createChart(QSize(800, 600));
    test.host.addInstrument(other, "GBPUSD", 'I', 0);
    test.chart = other;
    test.host.tick();
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    ASSERT_EQ(test.series()->m_type, PT_TICK_LINE);
    EXPECT_EQ(tipAt(test, QPoint(view.x(4) + 1, view.y(1.3))),
              test.series()->GetAlias() + "\n1/1/2014\n0:00:20\n" + test.series()->m_name + " 1.30000");
}

TEST(ToolTip, TheLargestPointOfTheLayerGivesTheDecimals) {
    SeriesChart test(steps(10));
    FakeObject *object =
        test.addOutputs({FakeOutput{"Out", 4, 0, 0, [](const std::vector<float> &, int) { return 1.30f; }}});
    object->array().header()->precision = 2;
    test.host.update(object, 1);
    test.host.tick();
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    EXPECT_TRUE(tipAt(test, QPoint(view.x(4), view.y(1.30))).contains("\nOpen 1.31\nHigh 1.32\n"));
}

TEST(ToolTip, DailySeriesHaveNoTime) {
    std::vector<Bar> bars = steps(10);
    for (std::size_t i = 0; i < bars.size(); ++i)
        bars[i].time = 1388534400 + static_cast<int>(i) * 86400;
    SeriesChart test(bars, 1, QSize(800, 600), 'D', 1);
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    EXPECT_EQ(tipAt(test, QPoint(view.x(4), view.y(1.30))).split('\n').size(), 6);
}

struct CandlePoint {
    const char *what;
    double bodyWidths; // from the centre
    double value;
    int rows; // added to the value's row
    bool hit;
};

class CandleHit : public testing::TestWithParam<CandlePoint> {};

TEST_P(CandleHit, BodyExactlyAndWickWithinFivePixels) {
    SeriesChart test(steps(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const int half = static_cast<int>(0.45 * view.step());
    const QPoint point(view.x(4) + static_cast<int>(GetParam().bodyWidths * half),
                       view.y(GetParam().value) + GetParam().rows);
    EXPECT_EQ(!tipAt(test, point).isEmpty(), GetParam().hit) << GetParam().what;
    EXPECT_EQ(test.series()->m_nHoverIndex, GetParam().hit ? 4 : -1) << GetParam().what;
}

INSTANTIATE_TEST_SUITE_P(ToolTip, CandleHit,
                         testing::Values(CandlePoint{"centre", 0, 1.30, 0, true},
                                         CandlePoint{"left part of the body", -0.9, 1.30, 0, true},
                                         CandlePoint{"right part of the body", 0.9, 1.30, 0, true},
                                         CandlePoint{"beside the body", 1.1, 1.30, 0, false},
                                         CandlePoint{"upper wick", 0, 1.315, 0, true},
                                         CandlePoint{"beside the wick", 0.5, 1.315, 0, false},
                                         CandlePoint{"just above the high", 0, 1.32, -4, true},
                                         CandlePoint{"far above the high", 0, 1.32, -9, false}));

TEST(ToolTip, BarIsHitOnItsLineAndItsTicks) {
    SeriesChart test(steps(10), 2);
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const int tick = static_cast<int>(0.5 * view.step());
    EXPECT_FALSE(tipAt(test, QPoint(view.x(4), view.y(1.30))).isEmpty());
    EXPECT_FALSE(tipAt(test, QPoint(view.x(4) - tick + 2, view.y(1.31) + 3)).isEmpty()); // open, on the left
    EXPECT_FALSE(
        tipAt(test, QPoint(view.x(4) + tick - 8, view.y(1.29) - 3)).isEmpty()); // close, on the right
    EXPECT_TRUE(tipAt(test, QPoint(view.x(4) - tick / 2, view.y(1.29))).isEmpty());
    EXPECT_TRUE(tipAt(test, QPoint(view.x(4) - tick / 2, view.y(1.30))).isEmpty());
}

TEST(ToolTip, LineIsHitBetweenItsPoints) {
    SeriesChart test(steps(10), 3); // closes 1.29, 1.31, 1.29, ...
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const QPoint middle((view.x(4) + view.x(5)) / 2, view.y(1.30));
    const QString text = tipAt(test, middle + QPoint(-3, 0));
    EXPECT_TRUE(text.endsWith(" 1.29000")) << text.toStdString(); // the nearer point is the left one
    EXPECT_EQ(test.series()->m_nHoverIndex, 4);
    tipAt(test, middle + QPoint(3, 0));
    EXPECT_EQ(test.series()->m_nHoverIndex, 5);
    EXPECT_EQ(text.split('\n').size(), 4);
    EXPECT_TRUE(text.split('\n').last().startsWith(test.series()->m_name));
    EXPECT_TRUE(tipAt(test, middle + QPoint(0, 60)).isEmpty());
    EXPECT_EQ(test.series()->m_nHoverIndex, -1);
    EXPECT_EQ(test.series()->m_nHoverTime, 0);
}

TEST(ToolTip, LineNeedsAPointOnBothSides) {
    SeriesChart test(steps(10), 3);
    test.showFrom(0, 20);
    test.grab();
    const LayerView view = test.view();
    EXPECT_TRUE(tipAt(test, QPoint(view.x(15), view.y(1.31))).isEmpty());
}

TEST(ToolTip, DotsAreHitInTheirSquare) {
    SeriesChart test(steps(10), 7);
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const int radius = static_cast<int>(0.25 * view.step());
    EXPECT_FALSE(tipAt(test, QPoint(view.x(4), view.y(1.29))).isEmpty());
    EXPECT_FALSE(
        tipAt(test, QPoint(view.x(4) - radius, view.y(1.29) - radius)).isEmpty());    // corner of the square
    EXPECT_TRUE(tipAt(test, QPoint(view.x(4) - radius - 1, view.y(1.29))).isEmpty()); // and no tolerance
}

TEST(ToolTip, WideCandleIsHitFromEdgeToEdge) {
    SeriesChart test(steps(10), 5);
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    for (int position = 0; position < 10; ++position) {
        tipAt(test, QPoint(view.leftX(position) + 3, view.y(1.315)));
        EXPECT_EQ(test.series()->m_nHoverIndex, position);
        tipAt(test, QPoint(view.leftX(position + 1) - 3, view.y(1.285)));
        EXPECT_EQ(test.series()->m_nHoverIndex, position);
    }
    EXPECT_TRUE(tipAt(test, QPoint(view.x(4), view.y(1.32) - 3)).isEmpty());
}

TEST(ToolTip, PatternIsNeverHit) {
    SeriesChart test(steps(10), 10);
    test.showFrom(0, 10);
    test.grab();
    const QRect plot = test.view().layer->m_rect;
    for (int y = plot.top(); y < plot.bottom(); y += 15)
        EXPECT_TRUE(tipAt(test, QPoint(plot.center().x(), y)).isEmpty());
}

TEST(ToolTip, EveryHitSeriesHasItsEntry) {
    SeriesChart test(steps(10));
    FakeOutput output{"Out", 4, 0, 0, [](const std::vector<float> &, int) { return 1.30f; }};
    test.addOutputs({output});
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    ASSERT_EQ(view.layer->m_primitives.size(), 2u);
    const QStringList entries = tipAt(test, QPoint(view.x(4), view.y(1.30))).split("\n\n");
    ASSERT_EQ(entries.size(), 2);
    EXPECT_TRUE(entries[0].contains("Open"));
    EXPECT_TRUE(entries[1].endsWith("1.30000"));
}

TEST(ToolTip, HistogramAndMarksOfAnIndicator) {
    SeriesChart test(steps(10));
    FakeObject *object = test.addOutputs(
        {FakeOutput{"H", 4, 1, 3, [](const std::vector<float> &, int i) { return i % 2 ? 0.5f : 0.25f; }}});
    test.showFrom(0, 10);
    test.grab();
    const LayerView histogram = test.view(1);
    EXPECT_TRUE(tipAt(test, QPoint(histogram.x(3), histogram.y(0.3))).endsWith(" 0.50000"));
    EXPECT_TRUE(tipAt(test, QPoint(histogram.x(3) + 12, histogram.y(0.3))).isEmpty());

    std::vector<corePointMark> marks;
    for (int i = 0; i < 10; ++i)
        marks.push_back({1388534400 + i * 3600, 0.4f, 0.3f, 1, 0});
    object->array().setMarks(marks);
    object->array().header()->typeShow.drawKind = 6;
    test.host.update(object, 1);
    test.host.tick();
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view(1);
    ASSERT_EQ(view.series()->m_type, PT_MARKS);
    const QString text = tipAt(test, QPoint(view.x(3), view.y(0.35)));
    EXPECT_TRUE(text.contains("\nHigh 0.40000\nLow 0.30000")) << text.toStdString();
    const int tip = view.y(0.4) - static_cast<int>(view.step());
    EXPECT_FALSE(tipAt(test, QPoint(view.x(3), tip + 1)).isEmpty()); // the arrow above
    EXPECT_TRUE(tipAt(test, QPoint(view.x(3), view.y(0.3) + static_cast<int>(view.step()))).isEmpty());
}

TEST(ToolTip, NothingOverEmptyPlacesAndInAMouseMode) {
    SeriesChart test(steps(10));
    test.showFrom(0, 10);
    test.grab();
    const LayerView view = test.view();
    const QPoint body(view.x(4), view.y(1.30));
    ASSERT_FALSE(tipAt(test, body).isEmpty());
    EXPECT_TRUE(tipAt(test, QPoint(view.layer->m_rect.right() + 10, body.y())).isEmpty());
    test.chart.handle->m_rangeSelecting = true;
    EXPECT_TRUE(tipAt(test, body).isEmpty());
    test.chart.handle->m_rangeSelecting = false;
    test.chart.handle->m_movingLS = true;
    EXPECT_TRUE(tipAt(test, body).isEmpty());
    test.chart.handle->m_movingLS = false;
    EXPECT_FALSE(tipAt(test, body).isEmpty());
}

TEST(ToolTip, FrozenScaleTellsTheWayBack) {
    SeriesChart test(steps(10));
    test.showFrom(0, 10);
    test.grab();
    CRGraphLayer *layer = test.view().layer;
    const QPoint right(layer->m_rect.right() + 5, layer->m_rect.top() + 100);
    const QPoint left(layer->m_rect.left() - 5, layer->m_rect.top() + 100);
    EXPECT_TRUE(tipAt(test, right).isEmpty());
    layer->m_bDataScaleSelfTuning = false;
    test.grab();
    const QString message = test.host.texts.value("G0112Message");
    ASSERT_FALSE(message.isEmpty());
    EXPECT_EQ(tipAt(test, right), message);
    EXPECT_EQ(tipAt(test, left), message);
    EXPECT_EQ(tipAt(test, layer->m_rightAutoRect.center()), message);
    EXPECT_EQ(tipAt(test, layer->m_leftAutoRect.center()), message);
    // The first 20 rows belong to the button alone.
    const int column = layer->m_rect.right() + 2;
    ASSERT_FALSE(layer->m_rightAutoRect.contains(column, layer->m_rect.top() + 19));
    EXPECT_TRUE(tipAt(test, QPoint(column, layer->m_rect.top() + 19)).isEmpty());
    EXPECT_EQ(tipAt(test, QPoint(column, layer->m_rect.top() + 20)), message);
}

// ---- the operations that menus bind to a series ----

TEST(SeriesMenu, PropertiesSelectAloneAndAskTheHost) {
    SeriesChart test(steps(10));
    test.addOutputs({FakeOutput{"A", 4, 0, 3, nullptr}});
    CRPrimitive *other = test.chart.handle->m_indicators.back()->m_primitives.front();
    other->m_bSelected = 1;
    test.host.clearTraffic();
    QMetaObject::invokeMethod(test.series(), "OnShowProperty");
    EXPECT_TRUE(test.series()->IsSelected());
    EXPECT_FALSE(other->IsSelected());
    ASSERT_EQ(test.host.count(10041), 1);
    ASSERT_EQ(test.host.count(3092), 1);
    const Call raised = test.host.callsOf(10041).front(), shown = test.host.callsOf(3092).front();
    EXPECT_EQ(raised.wParam, 0);
    EXPECT_EQ(raised.lParam, 0);
    EXPECT_EQ(toWord(raised.target), static_cast<int>(test.host.interfaceOf("MAINWINDOW")));
    EXPECT_EQ(shown.wParam, toWord(test.series()->m_hDpa));
    EXPECT_EQ(static_cast<Word>(toWord(shown.target)), test.host.coreHandle());
}

TEST(SeriesMenu, TesterSeriesOpenNoPage) {
    SeriesChart test(steps(10));
    test.series()->m_sysTester = true;
    test.host.clearTraffic();
    QMetaObject::invokeMethod(test.series(), "OnShowProperty");
    EXPECT_EQ(test.host.hostCalls(), 0);
    EXPECT_FALSE(test.series()->IsSelected());
}

TEST(SeriesMenu, SelectionIsToggledAndIsTheOnlyOne) {
    SeriesChart test(steps(10));
    test.addOutputs({FakeOutput{"A", 4, 0, 3, nullptr}});
    CRPrimitive *other = test.chart.handle->m_indicators.back()->m_primitives.front();
    other->m_bSelected = 1;
    test.host.clearTraffic();
    QMetaObject::invokeMethod(test.series(), "OnSelectChange");
    EXPECT_TRUE(test.series()->IsSelected());
    EXPECT_FALSE(other->IsSelected());
    QMetaObject::invokeMethod(test.series(), "OnSelectChange");
    EXPECT_FALSE(test.series()->IsSelected());
    EXPECT_EQ(test.host.hostCalls(), 0);
}

TEST(SeriesMenu, ChangeOfSelectionAsksForTheMakerAndShowsTheProperties) {
    SeriesChart test(steps(10));
    test.host.clearTraffic();
    QMetaObject::invokeMethod(test.series(), "OnChangeSelected");
    EXPECT_EQ(test.host.count(3048), 1);
    EXPECT_EQ(test.host.callsOf(3048).front().wParam, toWord(test.series()->m_hDpa));
    EXPECT_EQ(test.host.count(10041), 1);
    EXPECT_EQ(test.host.count(3092), 1);
    EXPECT_TRUE(test.series()->IsSelected());
}

TEST(SeriesMenu, DeletionIsPutOff) {
    SeriesChart test(steps(10));
    QMetaObject::invokeMethod(test.series(), "OnDeletePrimitive");
    ASSERT_EQ(test.chart.handle->m_indicators.size(), 1u);
    ASSERT_EQ(test.chart.handle->m_indicators.front()->m_primitives.size(), 1u);
    test.host.settle();
    EXPECT_TRUE(test.chart.handle->m_indicators.empty() ||
                test.chart.handle->m_indicators.front()->m_primitives.empty());
}

TEST(SeriesMenu, LayerIsChangedByTheUser) {
    SeriesChart test(steps(10));
    test.addOutputs({FakeOutput{"A", 4, 0, 0, nullptr}});
    CRPrimitive *line = test.chart.handle->m_indicators.back()->m_primitives.front();
    ASSERT_EQ(line->m_pLayer, test.series()->m_pLayer);
    test.host.onDialog([](QDialog *dialog) { dialog->reject(); });
    QMetaObject::invokeMethod(line, "OnChangeLayer");
    EXPECT_EQ(line->m_pLayer, test.series()->m_pLayer);
    test.host.onDialog([](QDialog *dialog) {
        auto *tree = dialog->findChild<QTreeWidget *>();
        tree->setCurrentItem(tree->topLevelItem(tree->topLevelItemCount() - 1));
        dialog->accept();
    });
    QMetaObject::invokeMethod(line, "OnChangeLayer");
    ASSERT_EQ(test.chart.handle->m_areas.front()->m_layers.size(), 2u);
    test.grab();
    EXPECT_EQ(line->m_pLayer, test.view(0, 1).layer);
    EXPECT_EQ(test.view(0, 0).layer->m_primitives.size(), 1u);
    EXPECT_EQ(test.view(0, 1).layer->m_primitives.size(), 1u);
}

} // namespace
