#include "chart/TimeStrip.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace {

constexpr long minute = 60;
constexpr long hour = 3600;
constexpr long day = 86400;

long at(int year, int month, int dayOfMonth, int hours = 0, int minutes = 0) {
    return static_cast<long>(
        QDateTime(QDate(year, month, dayOfMonth), QTime(hours, minutes), Qt::UTC).toSecsSinceEpoch());
}

std::vector<long> timesFrom(long first, int count, long step) {
    std::vector<long> times;
    for (int i = 0; i < count; ++i)
        times.push_back(first + i * step);
    return times;
}

// Ten pixels a position, five pixels a character, the format and the time as the text.
class Strip {
public:
    explicit Strip(std::vector<long> times, int pixels = 10, int characterWidth = 5)
        : m_times(std::move(times)), m_pixels(pixels), m_characterWidth(characterWidth) {
        StripInput input;
        input.times = m_times.data();
        input.count = static_cast<int>(m_times.size());
        input.left = 100;
        input.right = 100 + pixels * input.count - 1;
        input.columnOf = [this](int relative) { return 100 + m_pixels / 2 + relative * m_pixels; };
        input.textOf = [](long time, const char *format) {
            const QDateTime date = QDateTime::fromSecsSinceEpoch(time, Qt::UTC);
            const QString id = QString::fromLatin1(format);
            if (id == "yyyy" || id == "MMM" || id == "dd")
                return date.toString(id);
            if (id == "G0hhmm")
                return date.toString("h:mm");
            if (id == "G0ddMMM")
                return date.toString("MMM dd");
            if (id == "G0ddMM")
                return date.toString("M/d");
            if (id == "G0MMMyyyy")
                return date.toString("MMM yyyy");
            if (id == "G0MMMMyyyy")
                return date.toString("MMMM yyyy");
            if (id == "G0ddMMMyyyy")
                return date.toString("dd MMM yyyy");
            return QString("?");
        };
        input.widthOf = [this](const QString &text) { return text.size() * m_characterWidth; };
        layout = layOutStrip(input);
    }

    QStringList texts(bool lower) const {
        QStringList found;
        for (const StripLabel &label : layout.labels) {
            if (label.lower == lower)
                found << label.text;
        }
        return found;
    }
    int ticks(bool lower) const {
        int count = 0;
        for (const StripTick &tick : layout.ticks)
            count += tick.lower == lower;
        return count;
    }
    int columnOf(int relative) const { return 100 + m_pixels / 2 + relative * m_pixels; }

    StripLayout layout;

private:
    std::vector<long> m_times;
    int m_pixels;
    int m_characterWidth;
};

struct RangeCase {
    long seconds;
    StripUnit lower;
    const char *lowerFormat;
    StripUnit upper;
    const char *upperFormat;
};

class StripRanges : public testing::TestWithParam<RangeCase> {};

} // namespace

TEST_P(StripRanges, ChoosesTheRows) {
    const RangeCase &expected = GetParam();
    const StripRows rows = stripRows(at(2014, 1, 1), at(2014, 1, 1) + expected.seconds);
    EXPECT_EQ(rows.lower.unit, expected.lower);
    EXPECT_STREQ(rows.lower.format, expected.lowerFormat);
    EXPECT_EQ(rows.upper.unit, expected.upper);
    EXPECT_STREQ(rows.upper.format, expected.upperFormat);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StripRanges,
    testing::Values(RangeCase{700 * day, StripUnit::Year, "yyyy", StripUnit::None, nullptr},
                    RangeCase{700 * day - 1, StripUnit::Year, "yyyy", StripUnit::Month, "MMM"},
                    RangeCase{200 * day, StripUnit::Year, "yyyy", StripUnit::Month, "MMM"},
                    RangeCase{200 * day - 1, StripUnit::Month, "G0MMMyyyy", StripUnit::None, nullptr},
                    RangeCase{70 * day, StripUnit::Month, "G0MMMyyyy", StripUnit::None, nullptr},
                    RangeCase{70 * day - 1, StripUnit::Month, "G0MMMyyyy", StripUnit::Day, "dd"},
                    RangeCase{40 * day, StripUnit::Month, "G0MMMyyyy", StripUnit::Day, "dd"},
                    RangeCase{40 * day - 1, StripUnit::Month, "G0MMMyyyy", StripUnit::Day, "G0ddMM"},
                    RangeCase{15 * day, StripUnit::Month, "G0MMMyyyy", StripUnit::Day, "G0ddMM"},
                    RangeCase{15 * day - 1, StripUnit::Day, "G0ddMMM", StripUnit::Hours, "G0hhmm"},
                    RangeCase{0, StripUnit::Day, "G0ddMMM", StripUnit::Minutes, "G0hhmm"}));

namespace {

struct HoursCase {
    long seconds;
    StripUnit unit;
    int every;
};

class StripHours : public testing::TestWithParam<HoursCase> {};

} // namespace

TEST_P(StripHours, ChoosesTheBoundaries) {
    const HoursCase &expected = GetParam();
    const StripRows rows = stripRows(0, expected.seconds);
    EXPECT_EQ(rows.upper.unit, expected.unit);
    EXPECT_EQ(rows.upper.every, expected.every);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StripHours,
    testing::Values(HoursCase{259201, StripUnit::Hours, 12}, HoursCase{259200, StripUnit::Hours, 6},
                    HoursCase{129601, StripUnit::Hours, 6}, HoursCase{129600, StripUnit::Hours, 3},
                    HoursCase{43201, StripUnit::Hours, 3}, HoursCase{43200, StripUnit::Hours, 1},
                    HoursCase{21601, StripUnit::Hours, 1}, HoursCase{21600, StripUnit::Minutes, 30},
                    HoursCase{10801, StripUnit::Minutes, 30}, HoursCase{10800, StripUnit::Minutes, 10},
                    HoursCase{3601, StripUnit::Minutes, 10}, HoursCase{3600, StripUnit::Minutes, 5},
                    HoursCase{1801, StripUnit::Minutes, 5}, HoursCase{1800, StripUnit::Minutes, 1},
                    HoursCase{60, StripUnit::Minutes, 1}));

TEST(TimeStrip, YearsStandUnderThemselves) {
    const Strip strip(timesFrom(at(2012, 1, 15), 36, 30 * day)); // 2012 to late 2014
    EXPECT_EQ(strip.texts(true), QStringList({"2012", "2013", "2014"}));
    EXPECT_EQ(strip.ticks(true), 2);
    EXPECT_EQ(strip.ticks(false), 0);
    EXPECT_FALSE(strip.layout.ticks.front().solid);
}

TEST(TimeStrip, OneYearIsCentredAndItsMonthsStillAppear) {
    const std::vector<long> times = timesFrom(at(2014, 2, 1), 32, 10 * day); // to December
    const Strip strip(times);
    ASSERT_EQ(strip.texts(true), QStringList("2014"));
    EXPECT_EQ(strip.layout.labels.front().x, 100 + (320 - 4 * 5) / 2);
    EXPECT_EQ(strip.ticks(true), 0);
    EXPECT_EQ(strip.texts(false),
              QStringList({"Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov"}));
    EXPECT_EQ(strip.ticks(false), 10);
}

TEST(TimeStrip, MonthsShortenWhereTheLongFormHasNoRoom) {
    // Ten days a position: about three positions a month. "Feb 2014" takes 40 pixels, "Feb" 15.
    EXPECT_EQ(Strip(timesFrom(at(2014, 1, 1), 10, 10 * day), 20).texts(true).at(0), "Jan 2014");
    EXPECT_EQ(Strip(timesFrom(at(2014, 1, 1), 10, 10 * day), 8).texts(true).at(0), "Jan");
    EXPECT_TRUE(Strip(timesFrom(at(2014, 1, 1), 10, 10 * day), 4).texts(true).isEmpty());
}

TEST(TimeStrip, OneMonthIsWrittenOutAndCentred) {
    const Strip strip(timesFrom(at(2014, 1, 2), 25, day), 20);
    EXPECT_EQ(strip.texts(true), QStringList("January 2014"));
    EXPECT_EQ(strip.ticks(true), 0);
    EXPECT_EQ(strip.ticks(false), 24);
    EXPECT_EQ(strip.texts(false).first(), "1/2");
}

TEST(TimeStrip, DayNumbersStandAboveLongerRanges) {
    const Strip strip(timesFrom(at(2014, 1, 1), 60, day), 20);
    EXPECT_EQ(strip.texts(false).at(1), "02");
    EXPECT_EQ(strip.ticks(false), 59);
    EXPECT_EQ(strip.ticks(true), 2);
}

TEST(TimeStrip, UpperLabelsThatDoNotFitAreDropped) {
    const Strip strip(timesFrom(at(2014, 1, 1), 60, day), 10); // a gap of 10 for a text of 10
    EXPECT_TRUE(strip.texts(false).size() <= 1);
    EXPECT_EQ(strip.ticks(false), 59);
}

TEST(TimeStrip, OneDateIsCentred) {
    const Strip strip(timesFrom(at(2014, 5, 5, 8), 60, 5 * minute));
    EXPECT_EQ(strip.texts(true), QStringList("05 May 2014"));
    EXPECT_EQ(strip.ticks(true), 0);
}

TEST(TimeStrip, DaysHaveSolidTicksAndHoursDottedOnes) {
    const Strip strip(timesFrom(at(2014, 5, 5, 18), 60, hour)); // into the third day
    EXPECT_EQ(strip.texts(true),
              QStringList({"May 05", "May 06", "May 07", "May 08"}).mid(0, strip.texts(true).size()));
    EXPECT_EQ(strip.ticks(true), 3);
    for (const StripTick &tick : strip.layout.ticks)
        EXPECT_EQ(tick.solid, tick.lower);
}

TEST(TimeStrip, ADayShortensAndThenVanishes) {
    // A day every 24 positions: "May 05" takes 30, "05" 10.
    const std::vector<long> times = timesFrom(at(2014, 5, 5), 72, hour);
    const auto second = [&](int pixels, int character) {
        const QStringList texts = Strip(times, pixels, character).texts(true);
        return texts.size() > 1 ? texts.at(1) : QString();
    };
    EXPECT_EQ(second(2, 5), "May 06"); // gap 48, less 2 above 30
    EXPECT_EQ(second(1, 5), "06");     // gap 24: not above 30, less 3 above 10
    EXPECT_EQ(second(1, 11), QString());
}

TEST(TimeStrip, HoursOfTheUnitOnly) {
    // Two days of hours: every sixth hour is a boundary.
    const Strip strip(timesFrom(at(2014, 5, 5, 3), 42, hour), 20);
    EXPECT_EQ(strip.texts(false),
              QStringList({"3:00", "6:00", "12:00", "18:00", "0:00", "6:00", "12:00", "18:00"}));
    EXPECT_EQ(strip.ticks(false), 7);
}

TEST(TimeStrip, AnHourWithoutItsOwnPositionIsNoBoundary) {
    // Positions at 2, 6, 10, 14, 18, 22 o'clock, over more than three days: only noon and midnight count.
    const Strip strip(timesFrom(at(2014, 5, 5, 2), 30, 4 * hour), 20);
    EXPECT_EQ(strip.ticks(false), 0);
    EXPECT_EQ(strip.texts(false), QStringList("2:00"));
}

TEST(TimeStrip, OneHourOfManyPositionsIsOneBoundary) {
    const Strip strip(timesFrom(at(2014, 5, 5, 5), 120, 10 * minute), 5);
    EXPECT_EQ(strip.ticks(false), 7); // 6, 9, 12, 15, 18, 21 and midnight
}

TEST(TimeStrip, LabelsStandThreePixelsRightOfTheirTick) {
    const Strip strip(timesFrom(at(2014, 5, 5, 20), 30, hour), 20);
    const int midnight = strip.columnOf(4);
    bool tick = false, label = false;
    for (const StripTick &item : strip.layout.ticks)
        tick |= item.lower && item.x == midnight;
    for (const StripLabel &item : strip.layout.labels)
        label |= item.lower && item.x == midnight + 3 && item.text == "May 06";
    EXPECT_TRUE(tick);
    EXPECT_TRUE(label);
    EXPECT_EQ(strip.layout.labels.front().x, 103); // the first unit starts with the span
}

TEST(TimeStrip, WeekendsTakeNoRoom) {
    std::vector<long> times = timesFrom(at(2014, 5, 9, 18), 4, hour); // Friday
    const std::vector<long> monday = timesFrom(at(2014, 5, 12), 4, hour);
    times.insert(times.end(), monday.begin(), monday.end());
    const Strip strip(times, 40);
    EXPECT_EQ(strip.texts(true), QStringList({"May 09", "May 12"}));
    ASSERT_EQ(strip.ticks(true), 1);
}

// Every position of an axis whose times go back and forth is a boundary.
TEST(TimeStrip, WorkFollowsThePixelsAndNotTheBoundaries) {
    const int count = 200000;
    std::vector<long> times;
    for (int i = 0; i < count; ++i)
        times.push_back(i % 2 ? -2000000000L - i * minute : 2000000000L - i * minute);
    int texts = 0;
    StripInput input;
    input.times = times.data();
    input.count = count;
    input.left = 100;
    input.right = 1099;
    input.columnOf = [](int relative) { return 100 + static_cast<int>(1000LL * relative / 200000); };
    input.textOf = [&texts](long, const char *) {
        ++texts;
        return QString("x");
    };
    input.widthOf = [](const QString &text) { return text.size() * 5; };
    const StripLayout layout = layOutStrip(input);
    EXPECT_LE(layout.ticks.size(), 2u * 1000);
    EXPECT_GT(layout.ticks.size(), 900u);
    EXPECT_LE(texts, 1000);
}

TEST(TimeStrip, NothingForNoTimes) {
    EXPECT_TRUE(Strip({}).layout.labels.empty());
    EXPECT_TRUE(Strip({}).layout.ticks.empty());
}

TEST(TimeStrip, OnePosition) {
    const Strip strip({at(2014, 5, 5, 7, 30)}, 200);
    EXPECT_EQ(strip.texts(true), QStringList("05 May 2014"));
    EXPECT_EQ(strip.texts(false), QStringList("7:30"));
}

TEST(TimeStrip, DatesBefore1970) {
    EXPECT_EQ(stripUnitNumber(StripUnit::Year, -1), 1969);
    EXPECT_EQ(stripUnitNumber(StripUnit::Day, -1), -1);
    EXPECT_EQ(stripUnitNumber(StripUnit::Month, 0), 1970 * 12);
}
