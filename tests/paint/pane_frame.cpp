// What stands in a pane beside its series: strip, prompt, titles, close box, last price, border.
#include "tests/support/WindowView.h"

#include <QDialog>
#include <QFontMetrics>
#include <QToolButton>
#include <gtest/gtest.h>

namespace {

constexpr QRgb white = 0xFFFFFFFF;
constexpr QRgb grid = 0xFFECE9D8;
constexpr QRgb fontColor = 0xFF7C7B68;
constexpr QRgb rise = 0xFF00A000;
constexpr QRgb fall = 0xFFC00000;
constexpr int start = 1388534400;
constexpr int hour = 3600;

/// Bars that all look the same, so that the place of a price is known.
std::vector<Bar> levelBars(int count, float open, float high, float low, float close) {
    std::vector<Bar> bars;
    for (int i = 0; i < count; ++i)
        bars.push_back({start + i * hour, open, high, low, close, 1});
    return bars;
}

QFont chartFont(int size, int weight = QFont::Normal) {
    QFont font("Arial", size);
    font.setWeight(weight);
    return font;
}

struct PaneFrame : testing::Test {
    FakeHost host;
    Chart chart = host.createChart(QSize(900, 600));

    WindowView view() { return WindowView(host, chart); }
    PROPERTY *item(int row) { return host.pages.begin()->second->groups[0].items[row]; }
    void setFlag(int row, bool on) { static_cast<propertyBoolean *>(item(row)->value)->value = on; }
    void apply() {
        PROPERTY_CHANGE change{host.moduleInterface(), chart.handle, host.pages.begin()->second};
        host.send(ToModule::PageChanged, &change);
    }
    FakeObject *add(const std::vector<Bar> &bars, const QString &symbol = "EUR", char letter = 'I', int length = 60) {
        host.setHistory(symbol, bars);
        FakeObject *object = host.addInstrument(chart, symbol, letter, length);
        if (object) {
            object->array().header()->typeShow.firstColor = rise & 0xFFFFFF;
            object->array().header()->typeShow.secondColor = fall & 0xFFFFFF;
            host.update(object, 2);
            host.tick();
        }
        return object;
    }
    void addPane() { QTest::keyClick(chart.widget, Qt::Key_N); }
    void showLastPrice() {
        setFlag(14, true);
        apply();
    }
    void placeTitles(int place) {
        static_cast<propertyList *>(item(7)->value)->selected = place;
        apply();
    }
    /// Width of a value scale whose widest text this is.
    static int scaleWidth(const QString &text) {
        const QRect rect = QFontMetrics(chartFont(8, QFont::Bold)).boundingRect(QRect(), 0, text);
        return rect.right() - rect.left() + 11;
    }
};

// ---- frame ----

TEST_F(PaneFrame, TopOfAPaneIsTwoRowsOfGrid) {
    const WindowView empty = view();
    EXPECT_EQ(empty.countColor(QRect(0, 0, 900, 2), grid), 1800);
    EXPECT_EQ(empty.countColor(QRect(0, 2, 880, 60), white), 880 * 60);
}

TEST_F(PaneFrame, PromptAsksForData) {
    const WindowView empty = view();
    const QFontMetrics metrics(chartFont(7));
    const int width = metrics.horizontalAdvance("Add data source");
    const int centreX = 901 / 2;
    const int y = empty.chartHeight() / 2;
    const QRect text = empty.extentOf(QRect(200, y - 40, 500, 80), fontColor);
    ASSERT_FALSE(text.isEmpty());
    EXPECT_GE(text.left(), centreX - width / 2 - 1);
    EXPECT_LE(text.right(), centreX + width / 2 + 2);
    EXPECT_GE(text.top(), y); // below the middle of the pane
    EXPECT_LE(text.bottom(), y + metrics.height());
}

TEST_F(PaneFrame, PromptGoesWithTheFirstSeries) {
    add(makeBars(100, start, hour));
    const WindowView full = view();
    addPane();
    const WindowView split = view();
    const int top = split.paneTops()[1];
    const int middle = top + (split.chartHeight() - top) / 2;
    EXPECT_FALSE(split.extentOf(QRect(300, middle - 15, 300, 40), fontColor).isEmpty()); // in the empty one
    EXPECT_EQ(full.paneTops().size(), 1u);
}

TEST_F(PaneFrame, SeriesWithoutDataShowsItsTitleWithoutAValue) {
    add({});
    const WindowView picture = view();
    EXPECT_GT(picture.countWhere(QRect(0, 2, 880, 12), WindowView::reddish), 20);
}

TEST_F(PaneFrame, CloseBoxIsElevenPixels) {
    addPane();
    const WindowView picture = view();
    const int top = picture.paneTops()[1];
    // The pane ends one column past the window: the box takes the columns 889 to 899.
    const int left = 889;
    for (int x = left; x <= 899; ++x)
        EXPECT_EQ(picture.pixel(x, top + 2), fontColor) << x;
    for (int y = top + 2; y <= top + 12; ++y) {
        EXPECT_EQ(picture.pixel(left, y), fontColor) << y;
        EXPECT_EQ(picture.pixel(899, y), fontColor) << y;
    }
    for (int i = 3; i <= 7; ++i) {
        EXPECT_EQ(picture.pixel(left + i, top + 2 + i), fontColor) << i;
        EXPECT_EQ(picture.pixel(left + i, top + 2 + 10 - i), fontColor) << i;
    }
    EXPECT_EQ(picture.pixel(left + 1, top + 5), white);
    EXPECT_EQ(picture.pixel(left - 1, top + 5), white);
}

TEST_F(PaneFrame, BorderIsDrawnOnRequest) {
    add(makeBars(100, start, hour));
    const WindowView plain = view();
    EXPECT_EQ(plain.countColor(QRect(0, 0, 900, plain.chartHeight()), 0xFF000000), 0);
    setFlag(5, true);
    apply();
    const WindowView bordered = view();
    const QRect frame = bordered.extentOf(QRect(0, 0, 900, bordered.chartHeight()), 0xFF000000);
    const int scale = scaleWidth("1.30400");
    EXPECT_NEAR(frame.left(), scale - 1, 1);
    EXPECT_NEAR(frame.right(), 900 - scale + 2, 1);
    EXPECT_EQ(frame.top(), 1);
    for (int x = frame.left(); x <= frame.right(); ++x)
        EXPECT_EQ(bordered.pixel(x, 1), 0xFF000000) << x;
}

// ---- titles ----

TEST_F(PaneFrame, TitleStandsAtTheLeftTop) {
    add(makeBars(100, start, hour));
    const WindowView picture = view();
    const int left = scaleWidth("1.30400");
    const QRect row(left, 2, 400, QFontMetrics(chartFont(7)).height());
    const QRect ink = picture.extentWhere(row, WindowView::reddish);
    EXPECT_GE(ink.left(), left + 6);
    EXPECT_LE(ink.left(), left + 9);
}

TEST_F(PaneFrame, TitleIsTwoColored) {
    add(makeBars(100, start, hour));
    const int left = scaleWidth("1.30400");
    const int height = QFontMetrics(chartFont(7)).height();
    const QRect upper(left, 1, 30, height / 2);
    const QRect lower(left, 1 + height / 2, 30, height - height / 2);
    const WindowView two = view();
    EXPECT_GT(two.countWhere(upper, WindowView::greenish), 5);
    EXPECT_EQ(two.countWhere(lower, WindowView::greenish), 0);
    EXPECT_GT(two.countWhere(lower, WindowView::reddish), 5);
    setFlag(9, false);
    apply();
    const WindowView one = view();
    EXPECT_EQ(one.countWhere(upper, WindowView::greenish), 0);
    EXPECT_GT(one.countWhere(upper, WindowView::reddish), 5);
}

TEST_F(PaneFrame, TitleStandsAtTheRight) {
    add(makeBars(100, start, hour));
    placeTitles(1);
    const WindowView picture = view();
    const int right = 900 - scaleWidth("1.30400");
    const QRect ink = picture.extentWhere(QRect(right - 300, 2, 320, 10), WindowView::reddish);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_LE(ink.right(), right);
    EXPECT_GE(ink.right(), right - 15);
}

TEST_F(PaneFrame, TitlesOfOnePaneGoDownOrShareARow) {
    host.onDialog([](QDialog *dialog) { dialog->accept(); });
    add(makeBars(100, start, hour));
    FakeIndicator kind;
    kind.name = kind.displayName = "Twin";
    kind.inputs = 1;
    for (const char *output : {"First", "Second"})
        kind.outputs.push_back({output, 4, 0, 1, nullptr}); // same pane
    host.addIndicatorKind(kind);
    host.addIndicator(chart, "Twin");
    for (FakeObject *object : host.objects()) {
        if (object->instrument)
            continue;
        for (auto &output : object->outputs) {
            output->header()->typeShow.secondColor = 0x0000F0;
            output->header()->typeShow.weightPen = 0; // only the titles are to be seen
        }
        host.update(object, 2);
    }
    host.tick();
    const int left = scaleWidth("1.30400");
    const int height = QFontMetrics(chartFont(7)).height();
    const QRect first(left, 1, 300, height), second(left, 1 + height, 300, height);
    const WindowView rows = view();
    EXPECT_GT(rows.countWhere(first, WindowView::reddish), 20);
    EXPECT_EQ(rows.countWhere(first, WindowView::bluish), 0);
    EXPECT_GT(rows.countWhere(second, WindowView::bluish), 20);
    // Two outputs of one indicator give one title.
    EXPECT_EQ(rows.countWhere(QRect(left, 1 + 2 * height, 300, height), WindowView::bluish), 0);
    placeTitles(2);
    const WindowView row = view();
    const QRect line(left, 1, 600, height - 1);
    EXPECT_GT(row.countWhere(line, WindowView::bluish), 10);
    const QRect instrument = row.extentWhere(QRect(left, 1, 100, height - 1), WindowView::greenish);
    EXPECT_GT(row.extentWhere(line, WindowView::bluish).left(), instrument.right());
    EXPECT_EQ(row.countWhere(QRect(left, 1 + height, 600, height), WindowView::bluish), 0);
}

TEST_F(PaneFrame, DayOffIsToldBesideTheTitle) {
    add(makeBars(100, start, hour));
    const auto pureRed = [](QRgb pixel) { return qRed(pixel) > 240 && qGreen(pixel) < 150 && qBlue(pixel) < 150; };
    const QRect titles(0, 1, 900, QFontMetrics(chartFont(7)).height());
    EXPECT_EQ(view().countWhere(titles, pureRed), 0);
    mvdDayOff closed = zeroRecord<mvdDayOff>();
    fillField(closed.symbol, "EUR");
    closed.dayOff = 1;
    constexpr Word account = 77;
    host.dayOff[account] = {closed};
    mvdDealAccount record = zeroRecord<mvdDealAccount>();
    record.interfaceHandle = host.interfaceOf("DEALING");
    record.account = account;
    const QRect before = view().extentWhere(titles, WindowView::reddish);
    host.emitEvent("DealingEvent", EventCode::DayOffChanged, &record, sizeof record);
    const WindowView left = view();
    const QRect remark = left.extentWhere(titles, pureRed);
    EXPECT_GT(left.countWhere(titles, pureRed), 20);
    EXPECT_GT(remark.left(), before.right() - 2);
    placeTitles(1);
    const WindowView right = view();
    const QRect title = right.extentWhere(titles, [](QRgb pixel) { return WindowView::greenish(pixel); });
    EXPECT_LT(right.extentWhere(titles, pureRed).right(), title.left());
}

// ---- last price ----

TEST_F(PaneFrame, LastPriceHasALineAndALabel) {
    add(levelBars(100, 1.30f, 1.32f, 1.28f, 1.31f));
    showLastPrice();
    const WindowView picture = view();
    const int scale = 900 - (900 - scaleWidth("1.32000"));
    const QRect label = picture.extentOf(QRect(900 - scale, 2, scale, picture.chartHeight() - 2), fall);
    ASSERT_FALSE(label.isEmpty());
    const int height = QFontMetrics(chartFont(8)).height();
    EXPECT_EQ(label.height(), height + 2);
    EXPECT_EQ(label.right(), 899);
    const int y = label.top() + 1 + height / 2;
    int inLine = 0;
    for (int x = scale; x < 900 - scale; ++x)
        inLine += picture.pixel(x, y) == fall;
    EXPECT_EQ(inLine, 900 - 2 * scale);
    const int ink = picture.countWhere(label, [](QRgb pixel) { return qGreen(pixel) > 120; });
    EXPECT_GT(ink, 20); // the text, in the pane's background
}

TEST_F(PaneFrame, LastPriceGoesLeftWithoutARightScale) {
    add(levelBars(100, 1.30f, 1.32f, 1.28f, 1.31f));
    setFlag(13, false);
    showLastPrice();
    const WindowView picture = view();
    const int scale = scaleWidth("1.32000");
    const QRect label = picture.extentOf(QRect(0, 20, scale, picture.chartHeight() - 20), fall);
    ASSERT_FALSE(label.isEmpty());
    EXPECT_EQ(label.left(), 0);
    EXPECT_EQ(label.right(), scale - 1);
}

TEST_F(PaneFrame, LastPriceOfAPenThatCannotBeDrawnHasASolidLine) {
    FakeObject *object = add(levelBars(100, 1.30f, 1.32f, 1.28f, 1.31f));
    showLastPrice();
    const WindowView solid = view();
    for (const int style : {6, 99, -1}) { // 6 has no dashes of its own
        object->array().header()->typeShow.penType = static_cast<eCoreTypeShowPen>(style);
        host.update(object, 2);
        host.tick();
        EXPECT_EQ(view().image(), solid.image()) << style;
    }
}

TEST_F(PaneFrame, OnePointHasNoLastPrice) {
    add(levelBars(1, 1.30f, 1.32f, 1.28f, 1.31f));
    showLastPrice();
    const WindowView picture = view();
    EXPECT_EQ(picture.countColor(QRect(850, 20, 50, picture.chartHeight() - 20), fall), 0);
}

// ---- sizes ----

TEST_F(PaneFrame, WindowsOfAnySizeArePainted) {
    add(makeBars(200, start, hour));
    addPane();
    add(makeBars(200, start, hour), "GBP", 'I', 0);
    addPane();
    setFlag(5, true);
    showLastPrice();
    host.emitEvent("Velmar Game Mode", 1001);
    Word cross = 1;
    host.send(ToModule::ShowCrossCursor, 1, &cross);
    for (const int place : {0, 1, 2}) {
        placeTitles(place);
        for (const int width : {1, 2, 60, 104, 110, 130, 4000}) {
            for (const int height : {1, 20, 42, 45, 60, 3000}) {
                chart.widget->resize(width, height);
                EXPECT_EQ(view().image().size(), QSize(width, height));
            }
        }
    }
    host.emitEvent("Velmar Game Mode", 1002);
}

// ---- switches ----

TEST_F(PaneFrame, GameModeHasAWatermark) {
    const QRgb mark = 0xFFF0F0F0;
    const QRect pane(0, 2, 900, 500);
    EXPECT_EQ(view().countColor(pane, mark), 0);
    host.emitEvent("Velmar Game Mode", 1001);
    EXPECT_GT(view().countColor(pane, mark), 10000);
    host.emitEvent("Velmar Game Mode", 1002);
    EXPECT_EQ(view().countColor(pane, mark), 0);
}

TEST_F(PaneFrame, FramesAskTheHostForTitlesEachTime) {
    add(makeBars(100, start, hour));
    host.settle();
    host.clearTraffic();
    chart.widget->repaint();
    EXPECT_EQ(host.count(ToHost::SourcePeriod), 1);
    chart.widget->repaint();
    EXPECT_EQ(host.count(ToHost::SourcePeriod), 2);
}

TEST_F(PaneFrame, PeriodOfTheChartStandsBehindTheName) {
    add(makeBars(100, start, hour));
    const WindowView plain = view();
    host.answer(ToHost::SourcePeriod, [](void *, int, int lParam) {
        auto *period = fromWord<namePeriod>(lParam);
        period->period = 'D';
        period->lenPeriod = 1;
        return 0;
    });
    chart.widget->update();
    const WindowView named = view();
    const QRect titles(0, 1, 700, 11);
    EXPECT_GT(named.extentOf(titles, fall).right(), plain.extentOf(titles, fall).right() + 15);
}

} // namespace
