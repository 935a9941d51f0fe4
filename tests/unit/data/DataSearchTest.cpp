#include "data/DataLine.h"
#include "data/Time.h"
#include "tests/support/Series.h"

#include <QLocale>
#include <cmath>
#include <gtest/gtest.h>

namespace {

// Ten points at 100, 200 .. 1000; closes 1 to 10, highs one above, lows one below.
class DataSearchTest : public testing::Test {
protected:
    DataSearchTest() {
        std::vector<Bar> bars;
        for (int i = 0; i < 10; ++i) {
            const auto close = static_cast<float>(i + 1);
            bars.push_back({(i + 1) * 100, close, close + 1, close - 1, close, 1000});
        }
        array.setCandles(bars);
        line.Create(array.header());
    }
    FakeArray array;
    CRMDataLine line;
};

TEST_F(DataSearchTest, FindTime) {
    const struct {
        long time;
        int from, to, index;
    } rows[] = {{300, 0, -1, 2},  {350, 0, -1, -1}, {50, 0, -1, -1}, {2000, 0, -1, -1}, {1000, 0, -1, 9},
                {300, -5, 99, 2}, {300, 3, -1, -1}, {300, 2, 2, 2},  {300, 5, 2, -1},   {600, 5, 2, 5},
                {1000, 50, 2, 9}, {500, 0, 3, -1},  {100, 0, 0, 0},  {200, 0, 0, -1}};
    for (const auto &row : rows)
        EXPECT_EQ(line.FindTime(row.time, row.from, row.to), row.index)
            << row.time << " " << row.from << " " << row.to;
}

TEST_F(DataSearchTest, FindTimeStopsAtTheFirstLaterPoint) {
    array.setCandles({{100, 1, 1, 1, 1, 1}, {500, 1, 1, 1, 1, 1}, {300, 1, 1, 1, 1, 1}});
    EXPECT_EQ(line.FindTime(300, 0, -1), -1);
    EXPECT_EQ(line.FindTime(300, 2, -1), 2);
}

TEST_F(DataSearchTest, FindElement) {
    const struct {
        double value;
        int from, to, index;
    } rows[] = {{3, 0, -1, 2}, {3.5, 0, -1, -1}, {3, 3, -1, -1}, {3, -9, 99, 2},
                {6, 5, 2, 5},  {3, 5, 2, -1},    {10, 77, -1, 9}};
    for (const auto &row : rows)
        EXPECT_EQ(line.FindElement("CLOSE", row.value, row.from, row.to), row.index)
            << row.value << " " << row.from;
    EXPECT_EQ(line.FindElement("NONE", 3, 0, -1), -1);
    EXPECT_EQ(line.FindElement("CLOSE", NAN, 0, -1), -1);
    EXPECT_EQ(line.FindElement("TIME", 300, 0, -1), 2);
}

TEST_F(DataSearchTest, NotANumberIsNeverFound) {
    array.setValues({{100, NAN}, {200, 2}});
    line.Create(array.header());
    EXPECT_EQ(line.FindElement("VALUE", NAN, 0, -1), -1);
    EXPECT_EQ(line.FindElement("VALUE", 2, 0, -1), 1);
    EXPECT_EQ(line.FindMinElement("VALUE", 0, -1), 2);
    EXPECT_EQ(line.FindMaxElement("VALUE", 0, -1), 2);
}

TEST_F(DataSearchTest, LowestAndHighest) {
    const struct {
        int from, to;
        double lowest, highest;
    } rows[] = {{0, -1, 1, 10}, {2, 4, 3, 5},     {5, 2, 3, 3},  {-5, 1, 1, 2},
                {8, 99, 9, 10}, {99, 99, 10, 10}, {99, 3, 4, 4}, {0, 0, 1, 1}};
    for (const auto &row : rows) {
        EXPECT_EQ(line.FindMinElement("CLOSE", row.from, row.to), row.lowest) << row.from << " " << row.to;
        EXPECT_EQ(line.FindMaxElement("CLOSE", row.from, row.to), row.highest) << row.from << " " << row.to;
    }
    EXPECT_EQ(line.FindMaxElement("HIGH", 0, -1), 11);
    EXPECT_EQ(line.FindMinElement("LOW", 0, -1), 0);
    EXPECT_EQ(line.FindMinElement("NONE", 0, -1), 0.0);
    EXPECT_EQ(line.FindMaxElement("NONE", 0, -1), 0.0);
}

TEST_F(DataSearchTest, AnEmptyRangeKeepsTheStartValues) {
    EXPECT_EQ(line.FindMaxElement("CLOSE", 0, -7), -1.7e308);
    EXPECT_EQ(line.FindMinElement("CLOSE", 0, -7), 1.7e308);
    array.header()->count = 0; // the room is there, the points are not
    EXPECT_EQ(line.FindMaxElement("CLOSE", 0, -1), -1.7e308);
    EXPECT_EQ(line.FindMinElement("CLOSE", 3, 9), 1.7e308);
    EXPECT_EQ(line.FindTime(100, 0, -1), -1);
    EXPECT_EQ(line.FindElement("CLOSE", 1, 0, -1), -1);
}

TEST_F(DataSearchTest, WithoutDataTheAnswersAreZero) {
    const CRMDataLine none;
    EXPECT_EQ(none.FindTime(100, 0, -1), 0);
    EXPECT_EQ(none.FindElement("CLOSE", 1, 0, -1), 0);
    EXPECT_EQ(none.FindMinElement("CLOSE", 0, -1), 0.0);
    EXPECT_EQ(none.FindMaxElement("CLOSE", 0, -1), 0.0);
    FakeArray values;
    values.setFields({{DPT_FLOAT, "VALUE"}});
    const float value = 3;
    values.append(&value);
    EXPECT_EQ(CRMDataLine(values.header()).FindTime(100, 0, -1), 0);
}

TEST_F(DataSearchTest, OnePoint) {
    array.setCandles(makeBars(1, 100));
    EXPECT_EQ(line.FindTime(100, 0, -1), 0);
    EXPECT_EQ(line.FindMinElement("CLOSE", 5, 9), line.GetClose(0));
    EXPECT_EQ(line.FindMaxElement("CLOSE", 0, 0), line.GetClose(0));
}

TEST(DataDumpTest, ColumnsAndRows) {
    const QLocale before;
    FakeArray array;
    array.setFields({{DPT_LONG, "POSITION"},
                     {DPT_BYTE, "SIGN"},
                     {DPT_LONG, "TIME"},
                     {DPT_FLOAT, "CLOSE"},
                     {DPT_FLOAT, "VOLUME"},
                     {DPT_FLOAT, "OTHER"}});
    array.header()->precision = 2;
#pragma pack(push, 1)
    const struct {
        int position;
        unsigned char sign;
        int time;
        float close, volume, other;
    } points[] = {{7, 3, 1388534400, 1.5f, 1234567, 9}, {-1, 200, -5, 0.25f, 0, 9}};
#pragma pack(pop)
    for (const auto &point : points)
        array.append(&point);
    QString text = "before:";
    CRMDataLine(array.header()).GetStringRepresentation(text);
    const QLocale system = QLocale::system();
    const auto number = [&](double value) { return system.toString(value, 'f', 2); };
    EXPECT_EQ(text, "before:TIME\tCLOSE\tVOLUME\tSIGN\tPOSITION\t\n"
                    "01/01/14 00:00:00\t" +
                        number(1.5) + "\t" + number(1234567).remove(QChar(160)) +
                        "\t3\t7\t\n"
                        "\t" +
                        number(0.25) + "\t" + number(0) + "\t200\t-1\t\n");
    EXPECT_EQ(QLocale(), system);
    QLocale::setDefault(before);
}

TEST(DataDumpTest, WithoutDataThereIsTheHeaderLineOnly) {
    FakeArray array;
    array.setCandles({});
    QString text;
    CRMDataLine(array.header()).GetStringRepresentation(text);
    EXPECT_EQ(text, "TIME\tOPEN\tHIGH\tLOW\tCLOSE\tVOLUME\t\n");
    QString none;
    CRMDataLine().GetStringRepresentation(none);
    EXPECT_EQ(none, "\n");
}

TEST(TimeTextTest, OneResultAtATime) {
    EXPECT_STREQ(CRMTime::Format(0, "%d/%m/%y %H:%M:%S"), "01/01/70 00:00:00");
    const char *first = CRMTime::Format(86400, "%d");
    EXPECT_STREQ(first, "02");
    EXPECT_EQ(CRMTime::Format(0, "%Y"), first);
    EXPECT_STREQ(CRMTime::Format(-1, "%Y"), "");
    EXPECT_STREQ(CRMTime::Format(0, ""), "");
}

} // namespace
