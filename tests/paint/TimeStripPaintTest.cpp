// What the time strip puts on the screen, in terms of the data above it.
#include "tests/boundary/InputDriver.h"

#include <gtest/gtest.h>

namespace {

constexpr QRgb gridColor = 0xFFECE9D8;
constexpr QRgb white = 0xFFFFFFFF;
constexpr int stripHeight = 26; // font size 8: 2 * 8 + 10
constexpr int hour = 3600;
constexpr int monday = 1399248000; // 5 May 2014, midnight

class TimeStripPicture : public testing::Test {
protected:
    void show(const std::vector<Bar> &bars, char letter = 'I', int length = 60) {
        host.setHistory("EURUSD", bars);
        chart = host.createChart(QSize(800, 600));
        host.addInstrument(chart, "EURUSD", letter, length);
        host.tick();
        bar = scrollBarOf(chart);
        picture = host.grab(chart);
    }
    int top() const { return picture.height() - bar->height() - stripHeight; }
    int bottom() const { return top() + stripHeight - 1; }
    // Columns whose ticks go through the whole strip without a gap.
    std::vector<int> solidTicks() const {
        std::vector<int> found;
        for (int x = 0; x < picture.width(); ++x) {
            bool whole = true;
            for (int y = top(); y <= bottom() && whole; ++y)
                whole = picture.pixel(x, y) == gridColor;
            if (whole)
                found.push_back(x);
        }
        return found;
    }
    // Ink of labels between two columns in one of the rows.
    bool hasText(int left, int right, int firstRow, int lastRow) const {
        for (int x = left; x <= right; ++x) {
            for (int y = firstRow; y <= lastRow; ++y) {
                const QRgb pixel = picture.pixel(x, y);
                if (pixel != gridColor && pixel != white)
                    return true;
            }
        }
        return false;
    }

    FakeHost host;
    Chart chart;
    QScrollBar *bar = nullptr;
    QImage picture;
};

} // namespace

TEST_F(TimeStripPicture, AnEmptyWindowHasAPlainStrip) {
    chart = host.createChart(QSize(800, 600));
    bar = scrollBarOf(chart);
    picture = host.grab(chart);
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = top(); y <= bottom(); ++y)
            ASSERT_EQ(picture.pixel(x, y), white) << x << ' ' << y;
    }
}

TEST_F(TimeStripPicture, ALineDividesTheRows) {
    show(makeBars(500, monday));
    const int middle = bottom() - stripHeight / 2 + 1;
    int ink = 0;
    for (int x = 0; x < picture.width(); ++x)
        ink += picture.pixel(x, middle) == gridColor;
    EXPECT_GT(ink, 700); // labels may cross it
    EXPECT_EQ(picture.pixel(0, middle), gridColor);
    EXPECT_EQ(picture.pixel(799, middle), gridColor);
}

TEST_F(TimeStripPicture, MidnightsStandADayApart) {
    show(makeBars(490, monday)); // 60 positions: 2 or 3 midnights
    const std::vector<int> ticks = solidTicks();
    ASSERT_GE(ticks.size(), 2u);
    for (std::size_t i = 1; i < ticks.size(); ++i) {
        const double columns = (ticks.back() - ticks.front()) / static_cast<double>(ticks.size() - 1);
        EXPECT_NEAR(ticks[i] - ticks[i - 1], columns, 1);
        EXPECT_NEAR(columns, 24 * 700 / 60.0, 24);
    }
    // The same column goes on through the chart, from its top to its bottom.
    int ink = 0;
    for (int y = 2; y < top(); ++y)
        ink += picture.pixel(ticks.back(), y) == gridColor;
    EXPECT_GT(ink, top() - 30);
}

TEST_F(TimeStripPicture, TheTickStandsOnItsCandle) {
    // One candle is far higher than all others: its column is that of the midnight above the tick.
    std::vector<Bar> bars = makeBars(500, monday);
    Bar &high = bars[480]; // 480 is 20 days: midnight
    high.open = high.low = 1.3f;
    high.close = high.high = 1.4f;
    show(bars);
    bool found = false;
    for (const int tick : solidTicks()) {
        // The candle's outline stands within half a candle left and right of the tick.
        int ink = 0;
        for (int x = tick - 7; x <= tick + 7; ++x)
            ink += qGreen(picture.pixel(x, 60)) - qRed(picture.pixel(x, 60)) > 60;
        found |= ink >= 2;
    }
    EXPECT_TRUE(found);
}

TEST_F(TimeStripPicture, LabelsStandInTheirRows) {
    show(makeBars(490, monday));
    const std::vector<int> ticks = solidTicks();
    ASSERT_GE(ticks.size(), 2u);
    const int middle = bottom() - stripHeight / 2 + 1;
    EXPECT_TRUE(hasText(ticks[0] + 3, ticks[0] + 40, middle + 2, bottom())); // the date
    EXPECT_TRUE(hasText(ticks[0] + 3, ticks[0] + 40, top(), middle - 2));    // midnight's hour
    EXPECT_FALSE(hasText(ticks[0] - 4, ticks[0] - 1, middle + 2, bottom()));
}

TEST_F(TimeStripPicture, OneDateHasNoTickAndStandsInTheMiddle) {
    std::vector<Bar> bars = makeBars(60, monday + hour, 300);
    show(bars, 'I', 5);
    EXPECT_TRUE(solidTicks().empty());
    const int middle = bottom() - stripHeight / 2 + 1;
    EXPECT_TRUE(hasText(370, 430, middle + 2, bottom()));
    EXPECT_FALSE(hasText(60, 300, middle + 2, bottom()));
    EXPECT_FALSE(hasText(500, 740, middle + 2, bottom()));
}

TEST_F(TimeStripPicture, ADailyChartOfAYearHasDottedMonths) {
    show(makeBars(400, monday, 86400), 'D', 1);
    EXPECT_TRUE(solidTicks().empty());
    host.send(3552u, 0, -300);
    picture = host.grab(chart);
    EXPECT_TRUE(solidTicks().empty());
    const int middle = bottom() - stripHeight / 2 + 1;
    EXPECT_TRUE(hasText(60, 740, top(), middle - 2));
    EXPECT_TRUE(hasText(60, 740, middle + 2, bottom()));
}

// ---- which texts the strip asks the host for ----

namespace {

QStringList g_formats; // asked for since it was cleared

void recordFormat(const QDateTime &time, const QString &format, QString &result) {
    if (!g_formats.contains(format))
        g_formats.append(format);
    result = time.toString(format);
}

struct StripPeriod {
    char letter;
    int length;
    int step; // seconds of a bar
    int points;
    QStringList formats;
};

class StripFormats : public testing::TestWithParam<StripPeriod> {};

} // namespace

TEST_P(StripFormats, OfAPeriod) {
    const StripPeriod &period = GetParam();
    FakeHost host(FakeHost::Created);
    host.answer(3207, [](void *, int wParam, int) {
        bytes::put<coreDateTimeFormatter>(fromWord<void>(wParam), 0, &recordFormat);
        return 0;
    });
    host.send(3004u);
    host.send(3066u);
    host.setHistory("EURUSD", makeBars(500, monday, period.step));
    Chart chart = host.createChart(QSize(1200, 600));
    host.addInstrument(chart, "EURUSD", period.letter, period.length);
    host.tick();
    Mouse(chart).leave();
    host.send(3552u, 0, -period.points);
    scrollBarOf(chart)->setValue(450);
    g_formats.clear();
    host.grab(chart);
    QStringList asked = g_formats, expected = period.formats;
    asked.sort();
    expected.sort();
    EXPECT_EQ(asked.join(" | ").toStdString(), expected.join(" | ").toStdString());
}

INSTANTIATE_TEST_SUITE_P(TimeStrip, StripFormats,
                         testing::Values(StripPeriod{'I', 1, 60, 60, {"dd MMM yyyy", "h:mm"}},
                                         StripPeriod{'I', 60, hour, 60, {"MMM dd", "h:mm"}},
                                         StripPeriod{'I', 240, 4 * hour, 80, {"MMM dd", "h:mm"}},
                                         StripPeriod{'I', 240, 4 * hour, 84, {"MMM dd", "h:mm"}},
                                         StripPeriod{'D', 1, 86400, 15, {"MMM dd", "h:mm"}},
                                         StripPeriod{'D', 1, 86400, 16, {"MMMM yyyy", "M/d"}},
                                         StripPeriod{'D', 1, 86400, 40, {"MMM yyyy", "M/d"}},
                                         StripPeriod{'D', 1, 86400, 41, {"MMM yyyy", "dd"}},
                                         StripPeriod{'D', 1, 86400, 70, {"MMM yyyy", "dd"}},
                                         StripPeriod{'D', 1, 86400, 71, {"MMM yyyy"}},
                                         StripPeriod{'D', 1, 86400, 200, {"MMM yyyy"}},
                                         StripPeriod{'D', 1, 86400, 201, {"yyyy", "MMM"}},
                                         StripPeriod{'W', 1, 604800, 100, {"yyyy", "MMM"}},
                                         StripPeriod{'W', 1, 604800, 101, {"yyyy"}},
                                         StripPeriod{'M', 1, 2592000, 60, {"yyyy"}}));
