#include "chart/LocatorText.h"
#include "tests/support/Series.h"

#include <gtest/gtest.h>

namespace {

class LocatorText : public testing::Test {
protected:
    CRPrimitive primitive{0, nullptr, 0};
    FakeArray array;

    QString text(PRIMITIVE_TYPES type, int index = 0, float point = 0.0001f) {
        primitive.CreatePrimitive(array.header());
        primitive.m_name = "EUR/USD 1 Hour Bid";
        primitive.m_type = type;
        primitive.m_fPoint = point;
        return locatorText(primitive, index);
    }
};

const std::vector<Bar> bars{{3600, 1.1f, 1.4f, 1.0f, 1.2f, 5}, {7200, 1.2f, 1.3f, 1.15f, 1.25f, 5}};

} // namespace

TEST_F(LocatorText, CandlesBarsAndWideCandlesNameFourPrices) {
    array.setCandles(bars);
    for (const PRIMITIVE_TYPES type : {PT_CANDLE, PT_BAR, PT_WIDE_CANDLE})
        EXPECT_EQ(text(type), "EUR/USD 1 Hour Bid:\n OPEN=1.1000\n HIGH=1.4000\n LOW=1.0000\n CLOSE=1.2000");
    EXPECT_EQ(text(PT_CANDLE, 1).section('\n', 4), " CLOSE=1.2500");
}

TEST_F(LocatorText, LinesAndDotsOnTheCloseNameIt) {
    array.setCandles(bars);
    EXPECT_EQ(text(PT_CLOSE_LINE, 1), "EUR/USD 1 Hour Bid:\n CLOSE=1.2500");
    EXPECT_EQ(text(PT_CLOSE_DOTS, 1), "EUR/USD 1 Hour Bid:\n CLOSE=1.2500");
}

TEST_F(LocatorText, SingleValuesNameTheFirstField) {
    array.setValues({{3600, 42.5f}});
    for (const PRIMITIVE_TYPES type : {PT_LINE, PT_HISTOGRAM, PT_DOTS})
        EXPECT_EQ(text(type, 0, 0.01f), "EUR/USD 1 Hour Bid:\n VALUE=42.50");
    array.setTicks({{3600, 1.5f, 2}});
    EXPECT_EQ(text(PT_TICK_LINE), "EUR/USD 1 Hour Bid:\n VALUE=1.5000");
}

TEST_F(LocatorText, MarksAreLabelledOneFieldLower) {
    array.setMarks({{3600, 1.5f, 1.25f, 1, 0}});
    EXPECT_EQ(text(PT_MARKS), "EUR/USD 1 Hour Bid:\n TIME=1.5000\n HIGH=1.2500");
}

TEST_F(LocatorText, PatternsGiveTheirNameAlone) {
    array.setValues({{3600, 42.5f}});
    EXPECT_EQ(text(PT_PATTERN), "EUR/USD 1 Hour Bid");
}

TEST_F(LocatorText, FieldsThatTheArrayLacksAreLeftOut) {
    array.setValues({{3600, 42.5f}});
    EXPECT_EQ(text(PT_CLOSE_LINE), "EUR/USD 1 Hour Bid");
    EXPECT_EQ(text(PT_CANDLE, 0, 0.1f), "EUR/USD 1 Hour Bid:\n VALUE=42.5");
}
