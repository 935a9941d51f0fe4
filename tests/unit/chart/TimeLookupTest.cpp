#include "chart/TimeLookup.h"
#include "chart/TimeText.h"

#include <QDateTime>
#include <gtest/gtest.h>

namespace {

constexpr long day = 86400;

long at(int year, int month, int dayOfMonth) {
    return static_cast<long>(
        QDateTime(QDate(year, month, dayOfMonth), QTime(0, 0), Qt::UTC).toSecsSinceEpoch());
}

} // namespace

TEST(TimeLookup, PositionOfATime) {
    const std::vector<long> times{100, 200, 300, 400, 500};
    const struct {
        long time;
        int position;
    } cases[] = {{-5, 0},  {0, 0},   {99, 0},  {100, 0}, {150, 0}, {200, 1}, {299, 1},
                 {300, 2}, {399, 2}, {400, 3}, {499, 3}, {500, 4}, {501, 4}, {100000, 4}};
    for (const auto &item : cases)
        EXPECT_EQ(positionOfTime(times, item.time), item.position) << item.time;
}

TEST(TimeLookup, EveryLengthFindsEveryEntry) {
    std::vector<long> times;
    for (int length = 1; length <= 40; ++length) {
        times.push_back(length * 10L);
        for (int i = 0; i < length; ++i) {
            EXPECT_EQ(positionOfTime(times, times[static_cast<std::size_t>(i)]), i);
            EXPECT_EQ(positionOfTime(times, times[static_cast<std::size_t>(i)] + 5), i);
        }
    }
}

TEST(TimeLookup, AnEmptyAxis) {
    EXPECT_EQ(positionOfTime({}, 5), 0);
    EXPECT_EQ(timeOfPosition({}, 3, DT_DAY), 0);
}

TEST(TimeLookup, PastTheEndTheWholePositionCounts) {
    const std::vector<long> times{1000, 2000, 3000};
    EXPECT_EQ(timeOfPosition(times, 2, DT_MINUTE), 3000);
    EXPECT_EQ(timeOfPosition(times, 3, DT_MINUTE), 3000 + 3 * 60);
    EXPECT_EQ(timeOfPosition(times, 10, DT_MINUTE), 3000 + 10 * 60);
    EXPECT_EQ(timeOfPosition(times, 4, DT_DAY), 3000 + 4 * day);
    EXPECT_EQ(timeOfPosition(times, 5, DT_WEEK), 3000 + 35 * day);
    EXPECT_EQ(timeOfPosition(times, 5, DT_TICK), 0);
    EXPECT_EQ(timeOfPosition(times, 5, DT_UNKNOWN), 0);
}

TEST(TimeLookup, MonthAndYearStepsPastTheEnd) {
    const std::vector<long> times{at(2014, 1, 31)};
    EXPECT_EQ(timeOfPosition(times, 1, DT_MONTH), at(2014, 2, 1));
    EXPECT_EQ(timeOfPosition(times, 3, DT_MONTH), at(2014, 4, 1));
    EXPECT_EQ(timeOfPosition(times, 2, DT_YEAR), at(2014, 1, 31) + 2 * 365 * day);
}

TEST(TimeLookup, BeforeTheStart) {
    const std::vector<long> times{at(2014, 3, 1), at(2014, 4, 1)};
    EXPECT_EQ(timeOfPosition(times, -1, DT_MINUTE), times[0] - 60);
    EXPECT_EQ(timeOfPosition(times, -2, DT_WEEK), times[0] - 14 * day);
    EXPECT_EQ(timeOfPosition(times, -1, DT_MONTH), times[0] - 31 * day);
    EXPECT_EQ(timeOfPosition(times, -1, DT_YEAR), times[0] - 365 * day);
}

TEST(TimeLookup, TimesThatStandForNoPlace) {
    EXPECT_FALSE(isAxisTime(0));
    EXPECT_FALSE(isAxisTime(-1));
    EXPECT_TRUE(isAxisTime(1));
    EXPECT_TRUE(isAxisTime(-2));
}
