#include "support/Texts.h"
#include "module/HostRecords.h"
#include "support/Checksum.h"
#include "support/TimeZone.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

template <class Table>
std::string find(const Table &table, const std::string &id) {
    for (const DefaultText &text : table)
        if (id == text.id)
            return text.text;
    return "(none)";
}

TEST(TextsTest, TablesAreCompleteAndInOrder) {
    const auto &graph = graphDefaultTexts();
    const auto &trade = tradeDefaultTexts();
    EXPECT_EQ(graph.size(), 196u);
    EXPECT_EQ(trade.size(), 40u);
    EXPECT_STREQ(graph.front().id, "#");
    EXPECT_STREQ(graph.front().text, "#");
    EXPECT_STREQ(graph.back().id, "G0ddMMyyyyhhmmss");
    EXPECT_STREQ(trade.front().id, "C0068StandBy");
    EXPECT_STREQ(trade.back().id, "Tr0144OrdrLimit");
    std::set<std::string> ids;
    for (const DefaultText &text : graph) {
        EXPECT_TRUE(ids.insert(text.id).second) << text.id;
        EXPECT_LT(std::string(text.text).size(), 1024u);
        EXPECT_FALSE(std::string(text.text).empty()) << text.id;
    }
    EXPECT_EQ(find(graph, "C0073General"), find(trade, "C0073General"));
}

TEST(TextsTest, TextsStandAsTheyAre) {
    const auto &graph = graphDefaultTexts();
    EXPECT_EQ(find(graph, "G0067Message"), "Sets backcolor of  time scale");
    EXPECT_EQ(find(graph, "G0159"), "It is not possible to cat/copy created by System Tester objects");
    EXPECT_EQ(
        find(graph, "G0144"),
        "The layer could not be deleted because it contains objects\nwhich were created in System Tester.");
    EXPECT_EQ(find(graph, "G0203"), "File %1 not found");
    EXPECT_EQ(find(tradeDefaultTexts(), "G0097Message"), "Show open position on chat");
}

TEST(ChecksumTest, StandardTableWithoutTheLastInversion) {
    unsigned int crc = 0;
    EXPECT_EQ(getCRC32Code(crc, "123456789", 9), 0);
    EXPECT_EQ(~crc, 0xCBF43926u);
    EXPECT_EQ(getCRC32Code(crc, "123456789", 100), 0); // up to the first zero byte
    EXPECT_EQ(~crc, 0xCBF43926u);
    unsigned int part = 0;
    getCRC32Code(part, "123456789", 3);
    unsigned int same = 0;
    getCRC32Code(same, "123", 3);
    EXPECT_EQ(part, same);
}

TEST(ChecksumTest, NothingToSum) {
    unsigned int crc = 5;
    EXPECT_EQ(getCRC32Code(crc, nullptr, 3), 1);
    EXPECT_EQ(crc, 5u);
    EXPECT_EQ(getCRC32Code(crc, "", 3), 0);
    EXPECT_EQ(crc, 0xFFFFFFFFu);
    EXPECT_EQ(getCRC32Code(crc, "abc", 0), 0);
    EXPECT_EQ(crc, 0xFFFFFFFFu);
    EXPECT_EQ(getCRC32Code(crc, "abc", -1), 0);
    EXPECT_EQ(crc, 0xFFFFFFFFu);
}

TEST(TimeZoneTest, TheClockOfTheData) {
    const char *before = std::getenv("TZ");
    const std::string kept = before ? before : "";
    unsetenv("TZ");
    EXPECT_FALSE(CheckTimeZone());
    setenv("TZ", "UTC", 1);
    EXPECT_FALSE(CheckTimeZone());
    setenv("TZ", "GST0", 1);
    EXPECT_TRUE(CheckTimeZone());
    if (before)
        setenv("TZ", kept.c_str(), 1);
    else
        unsetenv("TZ");
}

TEST(DayOffTest, IntervalKinds) {
    const struct {
        char period;
        int lenPeriod;
        int lengthBefore;
        int kind;
        int length;
    } rows[] = {{'I', 5, 0, 2, 5}, {'I', 0, 9, 2, 1}, {'D', 7, 3, 3, 3}, {'W', 7, 0, 4, 1},
                {'M', 1, 2, 5, 2}, {'Y', 1, 0, 6, 1}, {'x', 1, 0, 0, 1}, {'x', 1, 4, 0, 4}};
    for (const auto &row : rows) {
        auto instrument = zeroRecord<coreNameInstrument>();
        instrument.m_periods.period = row.period;
        instrument.m_periods.lenPeriod = row.lenPeriod;
        int length = row.lengthBefore;
        EXPECT_EQ(DayOff::TimeInterval(instrument, length), row.kind) << row.period;
        EXPECT_EQ(length, row.length) << row.period << row.lenPeriod;
    }
}

} // namespace
