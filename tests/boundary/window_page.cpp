// The settings page of a chart window: its rows, and what each of them changes.
#include "tests/support/FakeHost.h"

#include <QDialog>
#include <QFont>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

struct RowText {
    Word type;
    const char *caption;
    const char *hint;
};

const RowText rows[] = {
    {PropertyTypeColor, "Background color", "Sets backcolor of chart window"},
    {PropertyTypeColor, "Grid color", "Sets grid color of chart window"},
    {PropertyTypeFont, "Font", "Sets name and font size of chart window (left and right scales)"},
    {PropertyTypeColor, "Font color", "Sets font color of chart window (left and right scales)"},
    {PropertyTypeInt, "Free space positions",
     "Sets the number of additional data point positions on the right side of chart"},
    {PropertyTypeBoolean, "Area border", "Show area border"},
    {PropertyTypeBoolean, "Show all areas in information box",
     "When on: information is displayed about all areas in window. When off: only information about area under "
     "the cursor"},
    {PropertyTypeList, "Area title alignment", "Set title to the left, right or top side of the chart area"},
    {PropertyTypeFont, "Area font", "Sets name and font size of area titles"},
    {PropertyTypeBoolean, "Two-color titles",
     "When on: OHCL of candles, bars and shadows are shown in two colors"},
    {PropertyTypeBoolean, "Vertical grid", "When on: vertical grid is shown"},
    {PropertyTypeBoolean, "Horizontal grid", "When on: horizontal grid is shown in chart window"},
    {PropertyTypeBoolean, "Left scale", "When on: left scale is shown"},
    {PropertyTypeBoolean, "Right scale", "When on: right scale is shown"},
    {PropertyTypeBoolean, "Last candle indicator", "Last candle indicator"},
    {PropertyTypeBoolean, "Auto-adjust with trade", "The value scale auto-adjust given trading information"},
    {PropertyTypeBoolean, "Auto-adjust with candles", "The value scale auto-adjust given candles"},
    {PropertyTypeBoolean, "Manual test mode", "Manual test mode"},
};

enum Row {
    Background, Grid, Font, FontColor, FreeSpace, Border, AllAreas, TitlePlace, TitleFont, TwoColors,
    VerticalGrid, HorizontalGrid, LeftScale, RightScale, LastCandle, Trade, Candles, ManualTest
};

/// The page of a window, changed in place as a host changes its own copy.
struct Page {
    explicit Page(FakeHost &host, Chart chart) : host(host), chart(chart), page(host.pages.begin()->second) {}

    PROPERTY *item(int row, int group = 0) const { return page->groups[group].items[row]; }
    template <class T>
    T *value(int row, int group = 0) const {
        return static_cast<T *>(item(row, group)->value);
    }
    void setFlag(int row, bool on) { value<propertyBoolean>(row)->value = on; }
    bool flag(int row, int group = 0) const { return value<propertyBoolean>(row, group)->value != 0; }
    int apply() {
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, page};
        return host.send(ToModule::PageChanged, &change);
    }

    FakeHost &host;
    Chart chart;
    PROPERTY_PAGE *page;
};

struct WindowPage : testing::Test {
    FakeHost host;
    Chart chart = host.createChart();
    Page page{host, chart};

    QImage picture() { return host.grab(chart); }
    void addInstrument() { ASSERT_NE(host.addInstrument(chart, "EUR"), nullptr); }
    /// Changes a row's flag, applies, and says whether the picture follows.
    bool changesPicture(int row) {
        const QImage before = picture();
        page.setFlag(row, !page.flag(row));
        EXPECT_EQ(page.apply(), 0);
        return picture() != before;
    }
};

TEST_F(WindowPage, HasItsTitleAndDescription) {
    EXPECT_EQ(fieldText(page.page->title), "Chart window");
    const QString description = "<br><b>Chart window</b><br>Chart window contains one or several chart areas with "
                                "currency charts, indicators, instruments and etc.";
    EXPECT_EQ(fieldText(page.page->firstText), description);
    EXPECT_EQ(+page.page->system.m_if, host.moduleInterface());
    EXPECT_EQ(+page.page->system.m_object, static_cast<Word>(toWord(chart.handle)));
}

TEST_F(WindowPage, HasThreeGroups) {
    ASSERT_EQ(+page.page->groupCount, 3u);
    EXPECT_EQ(fieldText(page.page->groups[0].name), "General");
    EXPECT_EQ(fieldText(page.page->groups[1].name), "Time scale");
    EXPECT_EQ(fieldText(page.page->groups[2].name), "Default parameters");
    ASSERT_EQ(+page.page->groups[2].count, 1u);
    EXPECT_EQ(fieldText(page.item(0, 2)->name), "Save as default");
    EXPECT_FALSE(page.flag(0, 2));
}

TEST_F(WindowPage, HasEighteenGeneralRows) {
    ASSERT_EQ(+page.page->groups[0].count, std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const PROPERTY *item = page.item(static_cast<int>(i));
        EXPECT_EQ(+item->type, rows[i].type) << i;
        EXPECT_EQ(fieldText(item->name), rows[i].caption) << i;
        EXPECT_EQ(fieldText(item->description), rows[i].hint) << i;
        EXPECT_EQ(+item->group, 0u);
        EXPECT_EQ(+item->index, i);
    }
}

TEST_F(WindowPage, HasTheDefaults) {
    EXPECT_EQ(page.value<propertyColor>(Background)->rgb & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(page.value<propertyColor>(Grid)->rgb & 0xFFFFFF, 0xECE9D8u);
    EXPECT_EQ(page.value<propertyColor>(FontColor)->rgb & 0xFFFFFF, 0x7C7B68u);
    EXPECT_EQ(+page.value<propertyFont>(Font)->pointSize, 8);
    EXPECT_EQ(fieldText(page.value<propertyFont>(Font)->family), "Arial");
    EXPECT_EQ(+page.value<propertyFont>(TitleFont)->pointSize, 7);
    const auto *space = page.value<propertyInt>(FreeSpace);
    EXPECT_EQ(+space->value, 30);
    EXPECT_EQ(+space->minimum, 0);
    EXPECT_EQ(+space->maximum, 1000);
    const auto *place = page.value<propertyList>(TitlePlace);
    ASSERT_EQ(+place->count, 3);
    EXPECT_EQ(+place->selected, 0);
    EXPECT_EQ(fieldText(place->entries[0].text), "left");
    EXPECT_EQ(fieldText(place->entries[1].text), "right");
    EXPECT_EQ(fieldText(place->entries[2].text), "top");
    for (int row : {AllAreas, TwoColors, VerticalGrid, HorizontalGrid, LeftScale, RightScale, Trade})
        EXPECT_TRUE(page.flag(row)) << row;
    for (int row : {Border, LastCandle, Candles, ManualTest})
        EXPECT_FALSE(page.flag(row)) << row;
}

TEST_F(WindowPage, IsShownAsNewAndThenAsKnown) {
    EXPECT_EQ(host.count(ToHost::ShowNewPage), 1);
    EXPECT_EQ(host.count(ToHost::ShowKnownPage), 0);
    host.clearTraffic();
    host.send(ToModule::TakeFocus, chart.handle);
    EXPECT_EQ(host.count(ToHost::IsPageKnown), 1);
    EXPECT_EQ(host.count(ToHost::ShowNewPage), 0);
    EXPECT_EQ(host.count(ToHost::ShowKnownPage), 1);
}

TEST_F(WindowPage, ClosingPageBringsNoChange) {
    PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, nullptr};
    EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
}

TEST_F(WindowPage, UnknownOwnersAreRefused) {
    PROPERTY_CHANGE change{host.moduleInterface(), nullptr, page.page};
    EXPECT_EQ(host.send(ToModule::PageChanged, &change), 1);
    change.owner = &change;
    EXPECT_EQ(host.send(ToModule::PageChanged, &change), 1);
    EXPECT_EQ(host.send(ToModule::PageChanged, 0), 1);
}

TEST_F(WindowPage, PageOfAnotherShapeChangesNothing) {
    PROPERTY_PAGE other = *page.page;
    other.groupCount = 1;
    PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, &other};
    EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
    EXPECT_EQ(+page.page->groupCount, 3u);

    const Word type = page.item(FreeSpace)->type;
    PROPERTY wrong = *page.item(FreeSpace);
    wrong.type = PropertyTypeString;
    std::vector<PROPERTY *> items(page.page->groups[0].items, page.page->groups[0].items + std::size(rows));
    items[FreeSpace] = &wrong;
    std::vector<PROPERTY_GROUP> groups(page.page->groups, page.page->groups + 3);
    groups[0].items = items.data();
    other = *page.page;
    other.groups = groups.data();
    EXPECT_EQ(host.send(ToModule::PageChanged, &change), 0);
    EXPECT_EQ(+page.item(FreeSpace)->type, type);
}

TEST_F(WindowPage, ValuesOutsideTheirRangeAreBroughtBack) {
    page.value<propertyInt>(FreeSpace)->value = 5000;
    page.value<propertyList>(TitlePlace)->selected = 17;
    page.apply();
    EXPECT_EQ(+page.value<propertyInt>(FreeSpace)->value, 1000);
    EXPECT_EQ(+page.value<propertyList>(TitlePlace)->selected, 0);
}

TEST_F(WindowPage, SaveAsDefaultGoesBackToOff) {
    page.value<propertyBoolean>(0, 2)->value = 1;
    host.clearTraffic();
    page.apply();
    EXPECT_FALSE(page.flag(0, 2));
    const auto changed = host.callsOf(ToHost::PageItemChanged);
    ASSERT_EQ(changed.size(), 1u);
    EXPECT_EQ(fromWord<PROPERTY>(changed[0].lParam), page.item(0, 2));
}

TEST_F(WindowPage, ApplyingIsTheUsersAction) {
    host.milestones.clear();
    page.apply();
    EXPECT_EQ(host.milestones.size(), 1);
    EXPECT_EQ(host.count(ToHost::PageItemChanged), 0);
}

TEST_F(WindowPage, BackgroundFillsThePane) {
    page.value<propertyColor>(Background)->rgb = 0xFF204060;
    page.apply();
    EXPECT_EQ(picture().pixel(400, 300), 0xFF204060u);
}

TEST_F(WindowPage, GridColorDrawsTheTopOfThePane) {
    page.value<propertyColor>(Grid)->rgb = 0xFF00C000;
    page.apply();
    const QImage image = picture();
    for (int y : {0, 1})
        EXPECT_EQ(image.pixel(400, y), 0xFF00C000u) << y;
}

TEST_F(WindowPage, FontColorPaintsThePrompt) {
    page.value<propertyColor>(FontColor)->rgb = 0xFFFF0000;
    page.apply();
    const QImage image = picture();
    int red = 0;
    for (int y = 260; y < 320; ++y) {
        for (int x = 300; x < 500; ++x)
            red += qRed(image.pixel(x, y)) > 150 && qGreen(image.pixel(x, y)) < 120;
    }
    EXPECT_GT(red, 20);
}

TEST_F(WindowPage, LargerFontMakesATallerTimeStrip) {
    addInstrument();
    auto *bar = childOfClass(chart.widget, "CTimeScrollBar");
    const QImage before = picture();
    page.value<propertyFont>(Font)->pointSize = 16;
    page.apply();
    const QImage after = picture();
    EXPECT_NE(before, after);
    // The pane's background ends where the strip begins, 2 * 16 + 10 rows above the scroll bar's row.
    page.value<propertyColor>(Background)->rgb = 0xFF204060;
    page.apply();
    const QImage colored = picture();
    const int stripTop = 600 - bar->height() - 42;
    EXPECT_EQ(colored.pixel(1, stripTop - 1), 0xFF204060u);
    EXPECT_NE(colored.pixel(1, stripTop + 2), 0xFF204060u);
}

TEST_F(WindowPage, FreeSpaceMovesTheEndOfTheAxis) {
    addInstrument();
    auto *bar = qobject_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar"));
    EXPECT_EQ(bar->maximum(), 230);
    page.value<propertyInt>(FreeSpace)->value = 0;
    page.apply();
    EXPECT_EQ(bar->maximum(), 200);
    page.value<propertyInt>(FreeSpace)->value = 100;
    page.apply();
    EXPECT_EQ(bar->maximum(), 300);
}

TEST_F(WindowPage, TitlePlaceMovesTheTitle) {
    addInstrument();
    const QImage left = picture();
    page.value<propertyList>(TitlePlace)->selected = 1;
    page.apply();
    const QImage right = picture();
    EXPECT_NE(left, right);
    page.value<propertyList>(TitlePlace)->selected = 2;
    page.apply();
    EXPECT_NE(right, picture());
}

TEST_F(WindowPage, TitleFontChangesTheTitle) {
    addInstrument();
    const QImage before = picture();
    page.value<propertyFont>(TitleFont)->pointSize = 14;
    page.apply();
    EXPECT_NE(before, picture());
}

TEST_F(WindowPage, EverySwitchOfTheLookChangesThePicture) {
    addInstrument();
    for (int row : {Border, TwoColors, VerticalGrid, HorizontalGrid, LeftScale, RightScale, LastCandle})
        EXPECT_TRUE(changesPicture(row)) << rows[row].caption;
}

TEST_F(WindowPage, CandlesAloneMakeTheRange) {
    addInstrument();
    FakeIndicator kind;
    kind.name = kind.displayName = "FAR";
    kind.outputs.push_back({"Far", 4, 0, 0, [](const std::vector<float> &closes, int i) {
                                return 3 * closes[static_cast<std::size_t>(i)];
                            }});
    host.addIndicatorKind(kind);
    host.onDialog([](QDialog *dialog) { dialog->accept(); }); // on the layer of the candles
    ASSERT_EQ(host.addIndicator(chart, "FAR"), 0);
    host.tick();
    EXPECT_TRUE(changesPicture(Candles));
    EXPECT_TRUE(changesPicture(Candles));
}

TEST_F(WindowPage, TheInformationBoxShowsOnePaneOrAll) {
    addInstrument();
    ASSERT_NE(host.addInstrument(chart, "GBP"), nullptr); // in a pane of its own
    host.tick();
    picture();
    const auto shown = [this] {
        host.locatorItems.clear();
        QMouseEvent move(QEvent::MouseMove, QPoint(300, 100), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(chart.widget, &move);
        return host.locatorItems.size();
    };
    const std::size_t all = shown();
    page.setFlag(AllAreas, false);
    page.apply();
    picture();
    const std::size_t one = shown();
    EXPECT_GT(one, 0u);
    EXPECT_LT(one, all);
    page.setFlag(AllAreas, true);
    page.apply();
    picture();
    EXPECT_EQ(shown(), all);
}

TEST_F(WindowPage, LastCandleRowChecksTheHostsButton) {
    page.setFlag(LastCandle, true);
    page.apply();
    EXPECT_TRUE(host.lastCandleButton->isChecked());
    page.setFlag(LastCandle, false);
    page.apply();
    EXPECT_FALSE(host.lastCandleButton->isChecked());
}

TEST_F(WindowPage, LastCandleButtonChangesTheRow) {
    addInstrument();
    const QImage before = picture();
    host.clearTraffic();
    host.milestones.clear();
    host.lastCandleButton->setChecked(true);
    host.send(ToModule::LastCandle, 0);
    EXPECT_TRUE(page.flag(LastCandle));
    const auto changed = host.callsOf(ToHost::PageItemChanged);
    ASSERT_EQ(changed.size(), 1u);
    EXPECT_EQ(+fromWord<PROPERTY_PAGE>(changed[0].wParam)->pageId, +page.page->pageId);
    EXPECT_EQ(fromWord<PROPERTY>(changed[0].lParam), page.item(LastCandle));
    EXPECT_EQ(host.milestones, QStringList{"Last candle indicator"});
    EXPECT_NE(before, picture());
}

TEST_F(WindowPage, TwoPagesHaveTheirOwnIds) {
    const Chart other = host.createChart();
    ASSERT_EQ(host.pages.size(), 2u);
    EXPECT_EQ(host.pages.rbegin()->first, host.pages.begin()->first + 1);
}

} // namespace
