#include "objects/DrawTypes.h"

#include <gtest/gtest.h>

namespace {

mvDataPointArray arrayOf(char unit, int length, Word drawKind, int style = 0) {
    auto array = zeroRecord<mvDataPointArray>();
    array.identity.m_periods = namePeriod{unit, length, 0};
    array.typeShow.drawKind = drawKind;
    array.typeShow.lineShowType = style;
    return array;
}

struct KindCase {
    Word drawKind;
    int type;
};

void PrintTo(const KindCase &row, std::ostream *out) {
    *out << "kind " << row.drawKind;
}

class InstrumentType : public testing::TestWithParam<KindCase> {};

TEST_P(InstrumentType, FollowsTheDrawKind) {
    EXPECT_EQ(instrumentDrawType(arrayOf('I', 60, GetParam().drawKind)), GetParam().type);
}

TEST_P(InstrumentType, OfTicksIsTheTickLine) {
    EXPECT_EQ(instrumentDrawType(arrayOf('I', 0, GetParam().drawKind)), 4);
}

INSTANTIATE_TEST_SUITE_P(Kinds, InstrumentType,
                         testing::Values(KindCase{0, -1}, KindCase{1, 5}, KindCase{2, 6}, KindCase{3, 3},
                                         KindCase{4, -1}, KindCase{5, 7}, KindCase{6, -1}, KindCase{7, 1},
                                         KindCase{8, 9}, KindCase{9, -1}, KindCase{10, 10}, KindCase{11, -1},
                                         KindCase{0x80000000u, -1}, KindCase{0xFFFFFFFFu, -1}));

TEST(InstrumentTypes, OnlyUnitIOfLengthZeroIsTicks) {
    EXPECT_EQ(instrumentDrawType(arrayOf('D', 0, 1)), 5);
    EXPECT_EQ(instrumentDrawType(arrayOf('I', 1, 1)), 5);
}

struct StyleCase {
    int style;
    int type;
};

void PrintTo(const StyleCase &row, std::ostream *out) {
    *out << "style " << row.style;
}

class OutputType : public testing::TestWithParam<StyleCase> {};

TEST_P(OutputType, FollowsTheStyle) {
    EXPECT_EQ(outputDrawType(arrayOf('I', 60, 4, GetParam().style)), GetParam().type);
}

TEST_P(OutputType, OfDrawKindSixIsMarks) {
    EXPECT_EQ(outputDrawType(arrayOf('I', 60, 6, GetParam().style)), 8);
}

// A style outside the table falls back to a line.
INSTANTIATE_TEST_SUITE_P(Styles, OutputType,
                         testing::Values(StyleCase{0, 0}, StyleCase{1, 2}, StyleCase{2, 1}, StyleCase{3, 8},
                                         StyleCase{4, 8}, StyleCase{5, 0}, StyleCase{-1, 0}));

TEST(InstrumentTypes, AreCandlesBarsAndLinesOnCloses) {
    const bool expected[] = {false, true, false, true, false, true, true, true, false, false, false};
    for (int type = 0; type <= 10; ++type)
        EXPECT_EQ(isInstrumentType(static_cast<PRIMITIVE_TYPES>(type)), expected[type]) << type;
}

TEST(Periods, AreTheSameByUnitAndLength) {
    EXPECT_TRUE(samePeriod({'I', 5, 0}, {'I', 5, 77}));
    EXPECT_FALSE(samePeriod({'I', 5, 0}, {'I', 6, 0}));
    EXPECT_FALSE(samePeriod({'D', 1, 0}, {'W', 1, 0}));
}

} // namespace
