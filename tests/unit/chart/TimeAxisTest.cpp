#include "chart/TimeAxis.h"

#include <QDateTime>
#include <gtest/gtest.h>
#include <random>

namespace {

constexpr int stride = 12;

// The times of one series as they lie in a host's array.
struct Series {
    explicit Series(const std::vector<int> &times) : count(static_cast<int>(times.size())) {
        bytes.resize(times.size() * stride + 4);
        for (std::size_t i = 0; i < times.size(); ++i)
            std::memcpy(bytes.data() + i * stride, &times[i], sizeof times[i]);
    }
    TimeRun run() const { return {bytes.data(), stride, count, 0}; }
    std::vector<unsigned char> bytes;
    int count;
};

std::vector<long> merged(const std::vector<Series> &series) {
    std::vector<TimeRun> runs;
    for (const Series &one : series)
        runs.push_back(one.run());
    std::vector<long> axis;
    mergeTimes(runs, axis);
    for (const TimeRun &run : runs)
        EXPECT_EQ(run.next, run.count);
    return axis;
}

std::vector<int> mapped(const Series &series, const std::vector<long> &axis) {
    std::vector<int> positions{7, 7, 7};
    mapPositions(series.run(), axis, positions);
    return positions;
}

// The merge in the plainest words.
std::vector<long> plainMerge(const std::vector<std::vector<int>> &lists) {
    std::vector<std::size_t> next(lists.size(), 0);
    std::vector<long> axis;
    for (;;) {
        bool any = false;
        long smallest = 0;
        for (std::size_t i = 0; i < lists.size(); ++i) {
            if (next[i] < lists[i].size() && (!any || lists[i][next[i]] < smallest)) {
                smallest = lists[i][next[i]];
                any = true;
            }
        }
        if (!any)
            return axis;
        axis.push_back(smallest);
        for (std::size_t i = 0; i < lists.size(); ++i) {
            if (next[i] < lists[i].size() && lists[i][next[i]] == smallest)
                ++next[i];
        }
    }
}

TEST(TimeAxis, OneSeriesIsTheAxis) {
    const Series series({10, 20, 30});
    const std::vector<long> axis = merged({series});
    EXPECT_EQ(axis, (std::vector<long>{10, 20, 30}));
    std::vector<int> positions{5};
    placeAll(3, positions);
    EXPECT_EQ(positions, mapped(series, axis));
}

TEST(TimeAxis, DifferentPeriodsMergeIntoOneAxis) {
    const Series minutes({60, 120, 180, 240});
    const Series threes({60, 240, 420});
    const std::vector<long> axis = merged({minutes, threes});
    EXPECT_EQ(axis, (std::vector<long>{60, 120, 180, 240, 420}));
    EXPECT_EQ(mapped(minutes, axis), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(mapped(threes, axis), (std::vector<int>{0, -1, -1, 1, 2}));
}

TEST(TimeAxis, ShorterSeriesHasShorterPositions) {
    const Series longer({1, 2, 3, 4, 5});
    const Series shorter({2, 3});
    const std::vector<long> axis = merged({longer, shorter});
    EXPECT_EQ(mapped(shorter, axis), (std::vector<int>{-1, 0, 1}));
}

TEST(TimeAxis, SeriesWhoseTimesAreNotOnTheAxisHasNoPoint) {
    const std::vector<long> axis{10, 20, 30};
    EXPECT_EQ(mapped(Series({15, 20}), axis), (std::vector<int>{-1, -1, -1}));
}

TEST(TimeAxis, RepeatedTimesOfOneSeriesStandTwice) {
    EXPECT_EQ(merged({Series({10, 10, 20})}), (std::vector<long>{10, 10, 20}));
    EXPECT_EQ(merged({Series({10, 10, 20}), Series({10, 20})}), (std::vector<long>{10, 10, 20}));
}

TEST(TimeAxis, NothingGivesNothing) {
    EXPECT_TRUE(merged({}).empty());
    EXPECT_TRUE(merged({Series({})}).empty());
    EXPECT_TRUE(mapped(Series({}), {1, 2}).empty());
    EXPECT_TRUE(mapped(Series({1}), {}).empty());
}

TEST(TimeAxis, SeriesWithoutTimesStandsAtZero) {
    std::vector<TimeRun> runs{{nullptr, stride, 3, 0}};
    std::vector<long> axis;
    mergeTimes(runs, axis);
    EXPECT_EQ(axis, (std::vector<long>{0, 0, 0}));
}

TEST(TimeAxis, AnySetOfSeriesMergesAsThePlainWordsSay) {
    std::mt19937 random(4711);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::vector<int>> lists(1 + random() % 5);
        std::vector<Series> series;
        for (std::vector<int> &list : lists) {
            int time = static_cast<int>(random() % 40);
            for (unsigned i = random() % 60; i > 0; --i) {
                list.push_back(time);
                time += static_cast<int>(random() % 4);
                if (random() % 50 == 0)
                    time -= 5; // a host whose times are not in order
            }
            series.emplace_back(list);
        }
        const std::vector<long> expected = plainMerge(lists);
        ASSERT_EQ(merged(series), expected) << "round " << round;
        if (series.size() == 1 && series[0].count > 0) {
            std::vector<int> positions;
            placeAll(series[0].count, positions);
            ASSERT_EQ(mapped(series[0], expected), positions);
        }
    }
}

TEST(TimeAxis, ALongAxisIsHeldWithoutWaste) {
    std::vector<int> times(500000);
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i] = static_cast<int>(i) * 60;
    const Series one(times);
    const Series two(times);
    std::vector<TimeRun> runs{one.run(), two.run()};
    std::vector<long> axis;
    mergeTimes(runs, axis);
    std::vector<int> positions;
    mapPositions(one.run(), axis, positions);
    EXPECT_EQ(axis.size(), times.size());
    EXPECT_LE((axis.capacity() * sizeof(long) + positions.capacity() * sizeof(int)) / double(times.size()), 9.0);
}

long utc(int year, int month, int day, int hour = 0) {
    return static_cast<long>(QDateTime(QDate(year, month, day), QTime(hour, 0), Qt::UTC).toSecsSinceEpoch());
}

struct StepCase {
    const char *what;
    long from;
    eDateType type;
    int count;
    long expected;
};

void PrintTo(const StepCase &row, std::ostream *out) {
    *out << row.what;
}

class FreeTime : public testing::TestWithParam<StepCase> {};

TEST_P(FreeTime, IsOneIntervalOn) {
    const StepCase &row = GetParam();
    EXPECT_EQ(nextFreeTime(row.from, row.type, row.count, 300), row.expected) << row.what;
}

INSTANTIATE_TEST_SUITE_P(
    TimeAxis, FreeTime,
    testing::Values(StepCase{"minutes", 1000, DT_MINUTE, 5, 1300}, StepCase{"days", 1000, DT_DAY, 2, 173800},
                    StepCase{"weeks", 1000, DT_WEEK, 1, 605800},
                    StepCase{"a month goes to the first of the next", utc(2018, 1, 31), DT_MONTH, 1, utc(2018, 2, 1)},
                    StepCase{"and keeps the time of day", utc(2018, 1, 5, 7), DT_MONTH, 1, utc(2018, 2, 1, 7)},
                    StepCase{"two months", utc(2018, 1, 31), DT_MONTH, 2, utc(2018, 3, 1)},
                    StepCase{"a year of 366 days", utc(2016, 1, 1), DT_YEAR, 1, utc(2017, 1, 1)},
                    StepCase{"no known interval: the smallest period", 1000, DT_UNKNOWN, 1, 1300},
                    StepCase{"an interval without a step", 1000, DT_TICK, 1, 0},
                    StepCase{"past the last time", 0x7FFFFFF0, DT_DAY, 1, -1},
                    StepCase{"past the last time, unknown", 0x7FFFFFF0, DT_UNKNOWN, 1, -1}));

struct PeriodCase {
    char letter;
    int length;
    int expected;
};

void PrintTo(const PeriodCase &row, std::ostream *out) {
    *out << row.letter << row.length;
}

class PeriodMinutes : public testing::TestWithParam<PeriodCase> {};

TEST_P(PeriodMinutes, ByLetter) {
    EXPECT_EQ(periodMinutes(GetParam().letter, GetParam().length, 77), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(TimeAxis, PeriodMinutes,
                         testing::Values(PeriodCase{'I', 0, 1}, PeriodCase{'I', 5, 5}, PeriodCase{'I', 180, 180},
                                         PeriodCase{'D', 1, 1440}, PeriodCase{'W', 1, 10080},
                                         PeriodCase{'M', 1, 43200}, PeriodCase{'Y', 1, 525600},
                                         PeriodCase{'Q', 3, 77}));

} // namespace
