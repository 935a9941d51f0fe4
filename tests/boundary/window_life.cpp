// A chart window comes, names itself, and goes.
#include "tests/support/FakeHost.h"

#include <QScrollBar>
#include <QSlider>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

const QStringList toolTips{"Add new chart", "Select object in chart window",
                           "Show properties of selected objects"};

TEST(WindowLife, IsMadeWithTheSizeOfItsParent) {
    FakeHost host;
    const Chart chart = host.createBareChart(QSize(640, 480));
    ASSERT_TRUE(chart.widget);
    EXPECT_EQ(chart.widget->size(), QSize(640, 480));
    EXPECT_EQ(chart.widget->parentWidget(), chart.frame.data());
    EXPECT_TRUE(chart.widget->testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_TRUE(chart.widget->hasMouseTracking());
    EXPECT_TRUE(chart.widget->acceptDrops());
    EXPECT_EQ(chart.widget->focusPolicy(), Qt::ClickFocus);
}

TEST(WindowLife, UnknownWindowIdsMakeATopLevelWindow) {
    FakeHost host;
    bytes::Record data(16);
    bytes::put<Word>(data.data(), 0, 0x7FFFFFF1);
    bytes::put<Word>(data.data(), 4, 0x7FFFFFF2);
    EXPECT_EQ(host.send(ToModule::CreateWindow, data.data()), 0);
    auto *widget = fromWord<QWidget>(bytes::u32(data.data(), 8));
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->parentWidget(), nullptr);
    EXPECT_EQ(host.send(ToModule::DeleteWindow, static_cast<const void *>(widget)), 0);
}

TEST(WindowLife, ScrollBarStartsEmpty) {
    FakeHost host;
    const Chart chart = host.createBareChart();
    auto *bar = qobject_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar"));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->minimum(), 0);
    EXPECT_EQ(bar->maximum(), 1);
    EXPECT_TRUE(bar->isHidden()); // there is nothing to scroll
}

TEST(WindowLife, ToolBarHoldsThreeButtons) {
    FakeHost host;
    const Chart chart = host.createBareChart();
    QStringList tips;
    QStringList texts;
    for (QWidget *button : childrenOfClass(chart.toolBar, "CToolButton")) {
        if (!button->toolTip().isEmpty()) {
            tips += button->toolTip();
            texts += qobject_cast<QToolButton *>(button)->text();
        }
    }
    EXPECT_EQ(tips, toolTips);
    EXPECT_EQ(texts, (QStringList{"Add chart", "Select", "Properties"}));
    EXPECT_FALSE(childOfClass(chart.toolBar, "CToolBar")->isHidden());
}

TEST(WindowLife, SelectButtonWorksWithASeries) {
    FakeHost host;
    const Chart chart = host.createChart();
    QWidget *select = nullptr;
    for (QWidget *button : childrenOfClass(chart.toolBar, "CToolButton")) {
        if (button->toolTip() == toolTips[1])
            select = button;
    }
    ASSERT_NE(select, nullptr);
    EXPECT_FALSE(select->isEnabled());
    ASSERT_NE(host.addInstrument(chart, "EUR"), nullptr);
    EXPECT_TRUE(select->isEnabled());
}

TEST(WindowLife, AsksForTheMainWindowAndTheLocator) {
    FakeHost host;
    host.clearTraffic();
    host.createBareChart();
    int mainWindow = 0;
    for (const Call &call : host.callsOf(ToHost::FindInterface))
        mainWindow += bytes::text8(call.wRecord.constData(), 0, 255) == "MAINWINDOW" &&
                      bytes::text8(call.wRecord.constData(), 255, 255) == "VELMAR";
    EXPECT_GE(mainWindow, 2); // the component, then the locator
    const auto locator = host.callsOf(ToHost::LocatorFunction);
    ASSERT_EQ(locator.size(), 1u);
    EXPECT_EQ(locator[0].target, fromWord<void>(host.interfaceOf("MAINWINDOW")));
}

TEST(WindowLife, WorksWithoutAMainWindow) {
    FakeHost host;
    host.removeInterface("MAINWINDOW");
    const Chart chart = host.createChart();
    ASSERT_TRUE(chart.widget);
    EXPECT_EQ(host.count(ToHost::LocatorFunction), 0);
    EXPECT_FALSE(host.grab(chart).isNull());
}

TEST(WindowLife, WorksWithoutWidgetsOfTheHost) {
    FakeHost host;
    host.hasWidgets = false;
    const Chart chart = host.createChart();
    ASSERT_NE(host.addInstrument(chart, "EUR"), nullptr);
    EXPECT_EQ(host.send(ToModule::LastCandle, 0), 0);
    EXPECT_EQ(host.send(ToModule::ZoomIn, 0), 0);
    EXPECT_FALSE(host.grab(chart).isNull());
}

TEST(WindowLife, ZoomControlsNeedASeries) {
    FakeHost host;
    const Chart chart = host.createChart();
    EXPECT_FALSE(host.zoomInButton->isEnabled());
    EXPECT_FALSE(host.zoomOutButton->isEnabled());
    EXPECT_FALSE(host.slider->isEnabled());
    host.addInstrument(chart, "EUR");
    EXPECT_TRUE(host.zoomInButton->isEnabled());
    EXPECT_TRUE(host.zoomOutButton->isEnabled());
    EXPECT_TRUE(host.slider->isEnabled());
    EXPECT_FALSE(childOfClass(chart.widget, "CTimeScrollBar")->isHidden());
}

TEST(WindowLife, FocusBringsTheWindowsZoomToTheSlider) {
    FakeHost host;
    const Chart first = host.createChart();
    host.addInstrument(first, "EUR");
    const Chart second = host.createChart();
    host.addInstrument(second, "GBP");
    host.send(ToModule::TakeFocus, first.handle);
    const int whole = host.slider->value();
    host.send(ToModule::ZoomIn, 0);
    const int zoomed = host.slider->value();
    EXPECT_GT(zoomed, whole);
    host.send(ToModule::TakeFocus, second.handle);
    EXPECT_EQ(host.slider->value(), whole);
    host.send(ToModule::TakeFocus, first.handle);
    EXPECT_EQ(host.slider->value(), zoomed);
}

TEST(WindowLife, DeletionClosesThePage) {
    FakeHost host;
    Chart chart = host.createChart();
    ASSERT_EQ(host.pages.size(), 1u);
    const Word id = host.pages.begin()->first;
    host.clearTraffic();
    host.deleteChart(chart);
    const auto closed = host.callsOf(ToHost::ClosePage);
    ASSERT_EQ(closed.size(), 1u);
    EXPECT_EQ(bytes::u32(closed[0].wRecord.constData(), 2558), id);
}

TEST(WindowLife, DeletionUnsubscribesEverything) {
    FakeHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EUR");
    ASSERT_NE(euro, nullptr);
    EXPECT_FALSE(euro->subscribers.empty());
    host.deleteChart(chart);
    EXPECT_TRUE(euro->subscribers.empty());
}

TEST(WindowLife, SurvivesTheEndOfItsParent) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EUR");
    delete chart.outer.data();
    EXPECT_FALSE(chart.widget);
    host.tick(); // the module has forgotten it
    EXPECT_EQ(host.send(ToModule::Show, chart.handle), 1);
}

TEST(WindowCaption, NamesTheWindowWhenItIsEmpty) {
    FakeHost host;
    const Chart chart = host.createChart();
    EXPECT_EQ(host.caption(chart), "Terminal, Chart window");
    EXPECT_EQ(host.captions.last(), "Terminal, Chart window");
}

TEST(WindowCaption, AsksForTheApplicationOnce) {
    FakeHost host;
    const Chart chart = host.createChart();
    host.caption(chart);
    host.applicationCaption = "Other";
    EXPECT_EQ(host.caption(chart), "Terminal, Chart window");
    EXPECT_EQ(host.count(ToHost::ApplicationCaption), 1);
}

TEST(WindowCaption, InstrumentsComeFirst) {
    FakeHost host;
    FakeIndicator kind;
    kind.name = kind.displayName = "Free";
    kind.inputs = 0;
    kind.outputs.push_back({"Free", 4, 0, 0, nullptr});
    host.addIndicatorKind(kind);
    const Chart chart = host.createChart();
    host.addInstrument(chart, "EUR");
    const QString alone = host.caption(chart);
    EXPECT_TRUE(alone.startsWith("Terminal, ")) << alone.toStdString();
    EXPECT_TRUE(alone.contains("EUR"));
    host.addInstrument(chart, "GBP");
    const QString both = host.caption(chart);
    EXPECT_LT(both.indexOf("EUR"), both.indexOf("GBP"));
}

class CaptionLength : public testing::TestWithParam<int> {};

TEST_P(CaptionLength, IsAtMost254) {
    const QString rest(", Chart window");
    FakeHost host;
    host.applicationCaption = QString(GetParam() - rest.size(), 'a');
    const Chart chart = host.createChart();
    const QString whole = host.applicationCaption + rest;
    const QString caption = host.caption(chart);
    if (whole.size() <= 254)
        EXPECT_EQ(caption, whole);
    else
        EXPECT_EQ(caption, whole.left(251) + "...");
    EXPECT_LE(caption.size(), 254);
}

INSTANTIATE_TEST_SUITE_P(WindowCaption, CaptionLength, testing::Values(253, 254, 255, 300));

} // namespace
