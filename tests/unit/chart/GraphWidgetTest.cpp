// A chart window from inside: what no message shows.
#include "chart/GraphWidget.h"

#include "chart/GraphArea.h"
#include "chart/GraphEvents.h"
#include "chart/GraphLayer.h"
#include "chart/TimeScale.h"
#include "chart/TimeScrollBar.h"
#include "module/GraphModule.h"
#include "module/HostMessages.h"
#include "objects/Indicator.h"
#include "support/FontMetrics.h"
#include "tests/support/Series.h"
#include "tests/unit/support/UnitHost.h"

#include <QCoreApplication>
#include <QHideEvent>
#include <QPainter>
#include <QShowEvent>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {

constexpr int start = 1388534400;
constexpr int hour = 3600;

struct GraphWidget : testing::Test {
    GraphWidget() {
        host.attach();
        widget = std::make_unique<CRGraphWidget>(GetModule<CRGraphModule>(), nullptr, nullptr, nullptr, "chart",
                                                 Qt::WindowFlags());
        widget->resize(800, 600);
        widget->RecomputeChartRect();
    }

    FakeArray &make() {
        arrays.push_back(std::make_unique<FakeArray>());
        return *arrays.back();
    }
    CRPrimitive *add(FakeArray &array, CRGraphLayer *layer = nullptr, PRIMITIVE_TYPES type = PT_CANDLE) {
        auto *indicator = new CRIndicator(widget.get(), &array);
        widget->m_indicators.push_back(indicator);
        CRGraphLayer *place = layer ? layer : widget->GetArea(0)->m_layers.front();
        CRPrimitive *primitive = indicator->AddPrimitive(place, 0, 0, type);
        primitive->CRMDataLine::Create(array.header());
        return primitive;
    }
    void name(FakeArray &array, char letter = 'I', int length = 60, const QString &symbol = "EUR") {
        array.header()->identity = makeName(symbol, "Bid", makePeriod(letter, length));
        array.header()->precision = 5;
        array.header()->owner = &array;
        array.header()->typeShow.penType = eCoreTypeShowPenSolid;
        array.header()->typeShow.weightPen = 1;
    }
    void rebuild() { widget->UpdatePrimitivePositions(ScreenDataPointsUpdate(), false); }
    std::vector<float> shares() const {
        std::vector<float> list;
        for (const CRGraphArea *area : widget->m_areas)
            list.push_back(area->m_heightShare);
        return list;
    }
    QImage paint(bool forced = true) {
        QImage image(widget->size(), QImage::Format_RGB32);
        image.fill(0x123456);
        QPainter painter(&image);
        widget->DrawAll(painter, forced);
        return image;
    }

    UnitHost host;
    std::vector<std::unique_ptr<FakeArray>> arrays; // a host keeps them as long as a window shows them
    std::unique_ptr<CRGraphWidget> widget;
};

// ---- members ----

TEST_F(GraphWidget, StartsWithItsDefaults) {
    EXPECT_EQ(widget->m_nFreeSpacePositions, 30);
    EXPECT_EQ(widget->m_nSelectedArea, -1);
    EXPECT_EQ(widget->m_rangeStart, -1);
    EXPECT_EQ(widget->m_rangeEnd, -1);
    EXPECT_EQ(widget->m_backgroundColor & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(widget->m_gridColor & 0xFFFFFF, 0xECE9D8u);
    EXPECT_EQ(widget->m_fontColor & 0xFFFFFF, 0x7C7B68u);
    EXPECT_EQ(widget->m_areaFont.pointSize(), 8);
    EXPECT_EQ(widget->m_titleFont.pointSize(), 7);
    EXPECT_TRUE(widget->m_bNeedUpdate);
    EXPECT_FALSE(widget->m_bDrawn);
    EXPECT_TRUE(widget->m_bZoomEcho);
    EXPECT_EQ(widget->m_pTimeScale->height(), 26);
    EXPECT_EQ(widget->m_pTimeScale->m_nAutoScrollPositions, 3);
    EXPECT_TRUE(widget->m_pTimeScale->m_bAutoScroll);
    EXPECT_EQ(widget->m_pScrollBar->m_nScreenDataPoints, 1);
    ASSERT_EQ(widget->GetAreaCount(), 1);
    EXPECT_FLOAT_EQ(widget->GetArea(0)->m_heightShare, 1.0f);
    EXPECT_EQ(widget->GetArea(0)->m_title, "G0017 1"); // without a translation the id
    ASSERT_EQ(widget->GetArea(0)->m_layers.size(), 1u);
    EXPECT_EQ(widget->GetArea(0)->m_layers[0]->m_name, "G0034 1");
}

TEST_F(GraphWidget, ChartRectangleLeavesRoomForStripAndScrollBar) {
    const int below = widget->m_pScrollBar->height() + 26;
    EXPECT_EQ(widget->m_chartRect, QRect(QPoint(0, 0), QPoint(799, 600 - below - 1)));
}

TEST_F(GraphWidget, SideWidgetStandsAtTheRightEdge) {
    widget->m_pSideWidget = new QWidget(widget.get());
    widget->RecomputeChartRect();
    EXPECT_EQ(widget->m_pSideWidget->geometry(), QRect(800 - 18, 0, 19, widget->m_chartRect.height()));
}

TEST_F(GraphWidget, TerminatedWindowLeavesTheModulesList) {
    CRGraphModule *module = GetModule<CRGraphModule>();
    auto *doomed = new CRGraphWidget(module, nullptr, nullptr, nullptr, "chart", Qt::WindowFlags());
    const QPointer<CRGraphWidget> watch(doomed);
    module->m_widgets.push_back(doomed);
    doomed->Terminate();
    EXPECT_EQ(module->GetGraphWidgetIndex(doomed), -1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(watch);
}

// ---- panes ----

TEST_F(GraphWidget, NewPaneStandsUnderTheHalvedOne) {
    EXPECT_EQ(widget->CreateArea(-1), 1);
    EXPECT_EQ(widget->CreateArea(0), 1);
    EXPECT_EQ(shares(), (std::vector<float>{0.25f, 0.25f, 0.5f}));
    EXPECT_EQ(widget->GetArea(1)->m_title, "G0017 3");
}

TEST_F(GraphWidget, ResizeMovesTheSplitterAbove) {
    widget->CreateArea(-1);
    widget->ResizeArea(widget->GetArea(1), 0.2f);
    EXPECT_EQ(shares(), (std::vector<float>{0.8f, 0.2f}));
    widget->ResizeArea(widget->GetArea(1), 0.0f);
    EXPECT_FLOAT_EQ(shares()[1], 0.03f);
    widget->ResizeArea(widget->GetArea(1), 2.0f);
    EXPECT_NEAR(shares()[0], 0.03f, 1e-6);
}

TEST_F(GraphWidget, FirstPaneIsNotResized) {
    widget->ResizeArea(widget->GetArea(0), 0.5f);
    EXPECT_EQ(shares(), std::vector<float>{1.0f});
    widget->CreateArea(-1);
    widget->ResizeArea(widget->GetArea(0), 0.9f);
    EXPECT_EQ(shares(), (std::vector<float>{0.5f, 0.5f}));
    widget->m_loading = true;
    widget->ResizeArea(widget->GetArea(1), 0.9f);
    widget->m_loading = false;
    EXPECT_EQ(shares(), (std::vector<float>{0.5f, 0.5f}));
}

TEST_F(GraphWidget, OnlyPaneCanBeDeleted) {
    widget->DeleteGraphArea(0);
    EXPECT_EQ(widget->GetAreaCount(), 0);
    EXPECT_EQ(widget->GetAnyPrimitiveLayer(), nullptr);
    paint(); // with nothing to paint
    widget->ClearAll();
    EXPECT_EQ(shares(), std::vector<float>{1.0f});
}

TEST_F(GraphWidget, DeletingOutOfRangeDoesNothing) {
    host.messages.clear();
    widget->DeleteGraphArea(-1);
    widget->DeleteGraphArea(1);
    EXPECT_EQ(widget->GetAreaCount(), 1);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(GraphWidget, DeletionWithoutSeriesRebuildsNothing) {
    widget->CreateArea(-1);
    widget->m_nSelectedArea = 1;
    const int before = widget->m_nUpdateCount;
    widget->DeleteGraphArea(1);
    EXPECT_EQ(widget->m_nUpdateCount, before);
    EXPECT_EQ(widget->m_nSelectedArea, -1);
    EXPECT_EQ(shares(), std::vector<float>{1.0f});
}

TEST_F(GraphWidget, PaneAsksForItsEndLater) {
    widget->CreateArea(-1);
    widget->GetArea(1)->OnDeleteArea();
    EXPECT_EQ(widget->GetAreaCount(), 2);
    QCoreApplication::sendPostedEvents(widget.get(), CGraphEvent::DeleteArea);
    EXPECT_EQ(widget->GetAreaCount(), 1);
}

TEST_F(GraphWidget, SeriesAsksForItsEndLater) {
    FakeArray &array = make();
    array.setCandles(makeBars(50, start, hour));
    name(array);
    CRPrimitive *primitive = add(array);
    QCoreApplication::postEvent(widget.get(), new CGraphEvent(CGraphEvent::DeletePrimitive, primitive));
    QCoreApplication::sendPostedEvents(widget.get(), CGraphEvent::DeletePrimitive);
    EXPECT_FALSE(widget->FindWidgetPrimitive(primitive));
    // A second wish for the same series finds nothing.
    QCoreApplication::postEvent(widget.get(), new CGraphEvent(CGraphEvent::DeletePrimitive, primitive));
    QCoreApplication::sendPostedEvents(widget.get(), CGraphEvent::DeletePrimitive);
}

TEST_F(GraphWidget, PaneRectanglesReachOneColumnFurther) {
    widget->CreateArea(-1);
    widget->SetAreasRects(widget->m_chartRect);
    const QRect first = widget->GetArea(0)->m_rect;
    const QRect second = widget->GetArea(1)->m_rect;
    EXPECT_EQ(first.left(), 0);
    EXPECT_EQ(first.right(), 800);
    EXPECT_EQ(first.top(), 0);
    EXPECT_EQ(second.top(), first.bottom() + 1);
}

// ---- layers ----

TEST_F(GraphWidget, LayersAreNumbered) {
    EXPECT_EQ(widget->CreateLayer(7), -1);
    EXPECT_EQ(widget->CreateLayer(-1), -1);
    host.messages.clear();
    EXPECT_EQ(widget->CreateLayer(0), 1);
    EXPECT_EQ(widget->GetArea(0)->m_layers[1]->m_name, "G0034 2");
    EXPECT_EQ(host.count(ToHost::Milestone), 1);
}

TEST_F(GraphWidget, LayersSwapPlaces) {
    CRGraphArea *area = widget->GetArea(0);
    widget->CreateLayer(0);
    widget->CreateLayer(0);
    const std::vector<CRGraphLayer *> layers = area->m_layers;
    area->BringLayerToFront(0);
    EXPECT_EQ(area->m_layers, (std::vector<CRGraphLayer *>{layers[2], layers[1], layers[0]}));
    area->SendLayerToBack(1);
    EXPECT_EQ(area->m_layers, (std::vector<CRGraphLayer *>{layers[1], layers[2], layers[0]}));
    area->BringLayerToFront(9);
    EXPECT_EQ(area->m_layers.size(), 3u);
}

TEST_F(GraphWidget, UnusedLayersGoButTheLast) {
    CRGraphArea *area = widget->GetArea(0);
    widget->CreateLayer(0);
    widget->CreateLayer(0);
    FakeArray &array = make();
    array.setCandles(makeBars(50, start, hour));
    name(array);
    add(array, area->m_layers[1]);
    CRGraphLayer *used = area->m_layers[1];
    area->DeleteUnusedLayers();
    EXPECT_EQ(area->m_layers, std::vector<CRGraphLayer *>{used});
    used->SetDataScaleSelfTuning(false);
    area->DeleteUnusedLayers();
    EXPECT_FALSE(used->m_bDataScaleSelfTuning); // it is in use
    area->DeleteGraphLayer(0, false);
    EXPECT_TRUE(area->m_layers.empty());
    EXPECT_TRUE(widget->m_indicators.empty());
}

TEST_F(GraphWidget, DeletedLayerIsAnnouncedWithTheRefreshAndAfterIt) {
    CRGraphArea *area = widget->GetArea(0);
    widget->CreateLayer(0);
    CRGraphLayer *first = area->m_layers[0];
    const int rebuilds = widget->m_nUpdateCount;
    host.messages.clear();
    area->DeleteGraphLayer(first);
    EXPECT_EQ(area->m_layers.size(), 1u);
    EXPECT_EQ(host.count(ToHost::CaptionChanged), 2);
    EXPECT_EQ(host.count(ToHost::Milestone), 2);
    EXPECT_EQ(widget->m_nUpdateCount, rebuilds + 1);
    area->DeleteGraphLayer(first); // which is gone
    EXPECT_EQ(area->m_layers.size(), 1u);
    EXPECT_EQ(host.count(ToHost::CaptionChanged), 3);
    EXPECT_EQ(host.count(ToHost::Milestone), 3);
    area->DeleteGraphLayer(7, true);
    EXPECT_EQ(host.count(ToHost::Milestone), 3);
}

TEST_F(GraphWidget, HiddenSeriesOutlivesItsLayer) {
    CRGraphArea *area = widget->GetArea(0);
    widget->CreateLayer(0);
    FakeArray &shown = make();
    FakeArray &hidden = make();
    for (FakeArray *array : {&shown, &hidden}) {
        array->setCandles(makeBars(5, start, hour));
        name(*array);
    }
    add(shown, area->m_layers[0]);
    CRPrimitive *waiting = add(hidden, area->m_layers[1]);
    waiting->m_bVisible = 0;
    area->DeleteUnusedLayers();
    EXPECT_EQ(area->m_layers.size(), 1u);
    EXPECT_TRUE(widget->FindWidgetPrimitive(waiting));
    EXPECT_EQ(waiting->m_pLayer, nullptr);
    EXPECT_EQ(widget->GetPrimitiveArea(waiting), nullptr);
    paint();
}

TEST_F(GraphWidget, LastEmptyLayerGetsItsSelfTuningBack) {
    CRGraphArea *area = widget->GetArea(0);
    area->m_layers[0]->SetDataScaleSelfTuning(false);
    area->DeleteUnusedLayers();
    EXPECT_EQ(area->m_layers.size(), 1u);
    EXPECT_TRUE(area->m_layers[0]->m_bDataScaleSelfTuning);
}

TEST_F(GraphWidget, OnlyEmptyLayerIsTakenWithoutAsking) {
    CRGraphArea *area = widget->GetArea(0);
    EXPECT_EQ(area->GetLayer(-1, "name"), area->m_layers[0]);
}

TEST_F(GraphWidget, BaseSeriesIsTheFinest) {
    FakeArray &day = make();
    FakeArray &half = make();
    FakeArray &hourly = make();
    FakeArray &ranked = make();
    FakeArray &tick = make();
    const std::pair<FakeArray *, namePeriod> arrays[] = {{&day, makePeriod('D', 1)},
                                                         {&tick, makePeriod('I', 0)},
                                                         {&hourly, makePeriod('I', 60)},
                                                         {&half, makePeriod('I', 30)},
                                                         {&ranked, makePeriod('I', 30)}};
    CRGraphArea *area = widget->GetArea(0);
    EXPECT_EQ(area->GetBasePrimitive(), nullptr);
    std::vector<CRPrimitive *> list;
    for (const auto &entry : arrays) {
        entry.first->setCandles(makeBars(5, start, hour));
        name(*entry.first, entry.second.period, entry.second.lenPeriod);
        entry.first->header()->coord.rank = 5;
        list.push_back(add(*entry.first));
    }
    area->UpdateData();
    EXPECT_EQ(area->GetBasePrimitive(), list[3]); // half an hour, the first of two
    ranked.header()->coord.rank = 1;
    EXPECT_EQ(area->GetBasePrimitive(), list[4]);
    list[0]->m_bSelected = 1;
    EXPECT_EQ(area->GetBasePrimitive(), list[0]); // selected ones go first
    list[1]->m_bSelected = 1;
    EXPECT_EQ(area->GetBasePrimitive(), list[1]); // ticks are intraday
}

// ---- loading ----

TEST_F(GraphWidget, LoadingWindowDoesNothing) {
    widget->m_loading = true;
    const int frames = widget->m_nFrameCount;
    paint();
    EXPECT_EQ(widget->m_nFrameCount, frames);
    QHideEvent hide;
    QCoreApplication::sendEvent(widget.get(), &hide);
    EXPECT_FALSE(widget->m_bHidden);
    const int updates = widget->m_nUpdateCount;
    rebuild();
    EXPECT_EQ(widget->m_nUpdateCount, updates);
    const int value = widget->m_pScrollBar->value();
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(widget.get(), &wheel);
    EXPECT_EQ(widget->m_pScrollBar->value(), value);
    widget->m_loading = false;
    QCoreApplication::sendEvent(widget.get(), &hide);
    EXPECT_TRUE(widget->m_bHidden);
}

TEST_F(GraphWidget, PaneOfALoadingWindowHasNoLayer) {
    widget->m_loading = true;
    CRGraphArea area(widget.get(), 0.5f, "pane");
    EXPECT_TRUE(area.m_layers.empty());
    widget->m_loading = false;
}

TEST_F(GraphWidget, EndOfALoadRestoresTheView) {
    FakeArray &array = make();
    array.setCandles(makeBars(300, start, hour));
    name(array);
    add(array);
    widget->m_loading = true;
    widget->m_nSavedScreenPoints = 80;
    widget->m_nSavedScrollValue = 120;
    widget->m_pTimeScale->m_bAutoScroll = false;
    widget->OnLoaded();
    EXPECT_FALSE(widget->m_loading);
    EXPECT_TRUE(widget->m_bSkipZoomEcho);
    EXPECT_EQ(widget->m_pScrollBar->m_nScreenDataPoints, 80);
    EXPECT_EQ(widget->m_pScrollBar->pageStep(), 80);
    EXPECT_EQ(widget->m_pScrollBar->m_nValue, 120);
    EXPECT_EQ(widget->m_pTimeScale->GetTimeCount(), 330);
}

// ---- positions ----

TEST_F(GraphWidget, EverySeriesIsMappedToTheAxis) {
    FakeArray &hourly = make();
    FakeArray &halves = make();
    hourly.setCandles(makeBars(10, start, hour));
    halves.setCandles(makeBars(20, start, hour / 2));
    name(hourly);
    name(halves, 'I', 30);
    CRPrimitive *first = add(hourly);
    CRPrimitive *second = add(halves);
    rebuild();
    EXPECT_EQ(widget->m_pTimeScale->GetTimeCount(), 20 + 30);
    EXPECT_EQ(widget->m_nMinPeriodSeconds, 1800);
    for (int p = 0; p < 19; ++p) {
        EXPECT_EQ(first->GetPos(p), p % 2 == 0 ? p / 2 : -1) << p;
        EXPECT_EQ(second->GetPos(p), p) << p;
    }
    EXPECT_EQ(first->GetPos(19), -1); // its positions end with its last point
    EXPECT_EQ(first->GetPosSize(), 19);
    EXPECT_EQ(first->m_nNextPos, 10);
    EXPECT_FALSE(widget->m_bUpdatePrimitivePositions);
    EXPECT_FALSE(widget->m_bDrawn);
    // The free positions go on by the smaller interval.
    EXPECT_EQ(widget->m_pTimeScale->GetPosTime(20), start + 20 * 1800);
}

TEST_F(GraphWidget, HiddenSeriesTakesNoPlaceOnTheAxis) {
    FakeArray &shown = make();
    FakeArray &hidden = make();
    shown.setCandles(makeBars(10, start, hour));
    hidden.setCandles(makeBars(30, start, hour));
    name(shown);
    name(hidden);
    CRPrimitive *first = add(shown);
    CRPrimitive *second = add(hidden);
    second->m_bVisible = 0;
    widget->m_nFreeSpacePositions = 0;
    rebuild();
    EXPECT_EQ(widget->m_pTimeScale->GetTimeCount(), 10);
    EXPECT_EQ(first->GetPosSize(), 10);
    EXPECT_EQ(second->GetPosSize(), 10); // mapped as far as the axis goes
    rebuild();
    EXPECT_EQ(second->GetPosSize(), 10);
}

TEST_F(GraphWidget, UnknownPeriodStepsByADay) {
    FakeArray &array = make();
    array.setCandles(makeBars(10, start, hour));
    name(array, 'Q', 3);
    add(array);
    rebuild();
    EXPECT_EQ(widget->m_nMinPeriodSeconds, 86400);
    EXPECT_EQ(widget->m_pTimeScale->GetPosTime(11) - widget->m_pTimeScale->GetPosTime(10), 86400);
}

TEST_F(GraphWidget, MonthsGoToTheirFirstDays) {
    FakeArray &array = make();
    array.setCandles(makeBars(1, start + 30 * 86400, hour)); // 31 January 2014
    name(array, 'M', 1);
    add(array);
    rebuild();
    EXPECT_EQ(widget->m_pTimeScale->GetPosTime(1), 1391212800); // 1 February
    EXPECT_EQ(widget->m_pTimeScale->GetPosTime(2), 1393632000); // 1 March
}

TEST_F(GraphWidget, WindowWithoutSeriesKeepsItsFlag) {
    widget->m_bUpdatePrimitivePositions = true;
    rebuild();
    EXPECT_TRUE(widget->m_bUpdatePrimitivePositions);
    EXPECT_EQ(widget->m_pTimeScale->GetTimeCount(), 0);
}

TEST_F(GraphWidget, MemoryOfABarIsSmall) {
    FakeArray &array = make();
    array.setCandles(makeBars(200000, start, 60));
    name(array, 'I', 1);
    CRPrimitive *primitive = add(array);
    rebuild();
    const std::size_t bytes = widget->m_pTimeScale->m_times.capacity() * sizeof(long) +
                              primitive->m_pos.capacity() * sizeof(int);
    EXPECT_LE(static_cast<double>(bytes) / 200000, 12.0);
}

// ---- scale widths ----

int measure(const QFont &font, const QString &text) {
    const QRect rect = textRect(font, text);
    return rect.right() - rect.left();
}

TEST_F(GraphWidget, ScalesFitTheWidestText) {
    FakeArray &array = make();
    std::vector<Bar> bars = makeBars(100, start, hour);
    bars[3].high = 12345.5f; // far from the visible part
    array.setCandles(bars);
    name(array);
    add(array)->SyncInternalData();
    rebuild();
    QFont bold = widget->GetArea(0)->m_properties.font;
    bold.setWeight(75);
    const int expected = measure(bold, "12345.50000") + 11;
    EXPECT_EQ(widget->m_nRightScaleWidth, expected);
    EXPECT_EQ(widget->m_nLeftScaleWidth, expected);
    widget->m_bLeftScale = false;
    widget->UpdateScaleWidth();
    EXPECT_EQ(widget->m_nLeftScaleWidth, 0);
    EXPECT_EQ(widget->m_nRightScaleWidth, expected);
    widget->m_bRightScale = false;
    widget->UpdateScaleWidth();
    EXPECT_EQ(widget->m_nRightScaleWidth, 0);
}

TEST_F(GraphWidget, LastPriceWidensTheScale) {
    FakeArray &array = make();
    std::vector<Bar> bars = makeBars(100, start, hour);
    bars[0].open = 1234567.0f; // wider than any high
    array.setCandles(bars);
    name(array);
    add(array)->SyncInternalData();
    rebuild();
    const int without = widget->m_nRightScaleWidth;
    widget->m_bLastCandleIndicator = true;
    widget->UpdateScaleWidth();
    const int label = measure(widget->GetArea(0)->m_properties.font, "1234567.00000") + 11;
    EXPECT_GT(label, without);
    EXPECT_EQ(widget->m_nRightScaleWidth, label);
    EXPECT_EQ(widget->m_nLeftScaleWidth, without);
    widget->m_bRightScale = false;
    widget->UpdateScaleWidth();
    EXPECT_EQ(widget->m_nLeftScaleWidth, label);
}

TEST_F(GraphWidget, WindowWithoutSeriesHasNoScales) {
    widget->UpdateScaleWidth();
    EXPECT_EQ(widget->m_nLeftScaleWidth, 0);
    EXPECT_EQ(widget->m_nRightScaleWidth, 0);
}

TEST_F(GraphWidget, ScaleWidthMeasuresOneTextASeries) {
    FakeArray &array = make();
    array.setCandles(makeBars(5000, start, hour));
    name(array);
    add(array)->SyncInternalData();
    rebuild();
    clearFontCache();
    const unsigned before = textsMeasured();
    widget->UpdateScaleWidth();
    EXPECT_EQ(textsMeasured() - before, 1u);
}

// ---- frames ----

TEST_F(GraphWidget, UnforcedFrameIsPaintedOnceARebuild) {
    FakeArray &array = make();
    array.setCandles(makeBars(100, start, hour));
    name(array);
    add(array)->SyncInternalData();
    rebuild();
    EXPECT_EQ(widget->m_nFrameCount, 0);
    paint(false);
    EXPECT_EQ(widget->m_nFrameCount, 1);
    EXPECT_TRUE(widget->m_bDrawn);
    paint(false); // drawn, and nothing forces it
    EXPECT_EQ(widget->m_nFrameCount, 1);
    widget->m_bForceDraw = true;
    paint(false);
    EXPECT_EQ(widget->m_nFrameCount, 2);
    widget->m_bHidden = true;
    paint(false);
    EXPECT_EQ(widget->m_nFrameCount, 2);
    rebuild();
    paint(false);
    EXPECT_EQ(widget->m_nFrameCount, 2); // hidden
    widget->m_bHidden = false;
    widget->m_rangeSelecting = true;
    paint(false);
    EXPECT_EQ(widget->m_nFrameCount, 2); // a mouse mode
    paint(true);
    EXPECT_EQ(widget->m_nFrameCount, 3);
}

TEST_F(GraphWidget, ScaleDragKeepsTheLastPicture) {
    widget->GetArea(0)->m_layers[0]->m_scaleDrag = 1;
    const QImage image = paint(true);
    EXPECT_EQ(widget->m_nFrameCount, 0);
    EXPECT_EQ(image.pixel(400, 300), 0xFF123456u);
    widget->GetArea(0)->m_layers[0]->m_scaleDrag = 0;
}

TEST_F(GraphWidget, FrameCoversTheWholeWindow) {
    const QImage image = paint();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ASSERT_NE(image.pixel(x, y), 0xFF123456u) << x << ", " << y;
    }
}

TEST_F(GraphWidget, RowsThatNoPaneCoversAreErased) {
    widget->GetArea(0)->m_heightShare = 0.5f;
    const QImage image = paint();
    EXPECT_EQ(image.pixel(400, widget->m_chartRect.height() * 3 / 4), 0xFFFFFFFFu);
}

TEST_F(GraphWidget, ScrollBarRowHasItsStrip) {
    const QImage image = paint();
    const int barHeight = widget->m_pScrollBar->height();
    ASSERT_GT(barHeight, 0);
    for (int y = 600 - barHeight; y < 600; ++y)
        EXPECT_EQ(image.pixel(400, y), 0xFFFAFAF7u);
    EXPECT_NE(image.pixel(400, 600 - barHeight - 1), 0xFFFAFAF7u);
}

TEST_F(GraphWidget, RubberBandInvertsTwoColumns) {
    FakeArray &array = make();
    array.setCandles(makeBars(100, start, hour));
    name(array);
    add(array)->SyncInternalData();
    rebuild();
    const QImage plain = paint();
    const CRGraphLayer *layer = widget->GetAnyPrimitiveLayer();
    ASSERT_NE(layer, nullptr);
    widget->m_rangeSelecting = true;
    widget->m_rangeStart = layer->m_nFirstPos + 10;
    widget->m_rangeEnd = layer->m_nFirstPos + 20;
    const QImage band = paint();
    for (int relative : {10, 20}) {
        const int x = layer->CenterX(relative);
        for (int y = 0; y < 600; ++y)
            ASSERT_EQ(band.pixel(x, y), (plain.pixel(x, y) ^ 0x999999) | 0xFF000000) << y;
    }
    widget->m_rangeEnd = widget->m_rangeStart;
    EXPECT_EQ(paint(), plain);
    widget->m_rangeSelecting = false;
}

TEST_F(GraphWidget, CountingAndMeasuringPaintNoFrame) {
    paint();
    const int frames = widget->m_nFrameCount;
    widget->UpdateScaleWidth();
    widget->UpdatePrimitiveCount();
    EXPECT_EQ(widget->m_nFrameCount, frames);
}

// ---- game mode ----

TEST_F(GraphWidget, GameModeShowsTenPositions) {
    widget->SwitchToGameMode(true);
    EXPECT_EQ(widget->m_pScrollBar->m_nScreenDataPoints, 10);
    EXPECT_EQ(widget->m_pScrollBar->minimum(), 0);
    EXPECT_EQ(widget->m_pScrollBar->maximum(), 10);
    EXPECT_EQ(widget->m_pScrollBar->m_nValue, 0);
    widget->SwitchToGameMode(false);
    EXPECT_EQ(widget->m_pScrollBar->m_nScreenDataPoints, 60);
    EXPECT_EQ(widget->m_pScrollBar->maximum(), 60);
}

TEST_F(GraphWidget, GameModeGoesToTheHostInTurns) {
    widget->OnSwitchGameMode();
    EXPECT_EQ(host.count(ToHost::GameModeOn), 1);
    EXPECT_EQ(host.count(ToHost::GameModeOff), 0);
    widget->OnSwitchGameMode();
    EXPECT_EQ(host.count(ToHost::GameModeOff), 1);
}

} // namespace
