#include "support/Text.h"

#include <gtest/gtest.h>

namespace {

TEST(UnicodeStringTest, TakesEverySource) {
    CUnicodeString text;
    EXPECT_TRUE(text.isNull());
    const unsigned short units[] = {'E', 'U', 'R', 0};
    text = units;
    EXPECT_EQ(text.toString(), "EUR");
    EXPECT_FALSE(text.isNull());
    text = QString("USD");
    EXPECT_EQ(text.toString(), "USD");
    CUnicodeString copy(text);
    text = QString("CHF");
    EXPECT_EQ(copy.toString(), "USD");
    copy = text;
    EXPECT_EQ(copy.toString(), "CHF");
}

TEST(UnicodeStringTest, ARecordIsReadToItsLengthOrTheFirstZero) {
    unsigned short units[] = {'a', 'b', 'c', 0, 'd'};
    const struct {
        Word length;
        const char *text;
    } rows[] = {{0, ""}, {2, "ab"}, {3, "abc"}, {5, "abc"}};
    for (const auto &row : rows) {
        CUnicodeString text;
        text = coreUncStringType{row.length, 2, units};
        EXPECT_EQ(text.toString(), row.text);
    }
    CUnicodeString text;
    text = coreUncStringType{3, 1, units}; // whatever size the record tells
    EXPECT_EQ(text.toString(), "abc");
    text = coreUncStringType{3, 2, nullptr};
    EXPECT_EQ(text.toString(), "");
}

TEST(UnicodeStringTest, GivesARecordOfItsText) {
    CUnicodeString text(QString("EUR/USD"));
    const coreUncStringType record = text.toUnicode();
    EXPECT_EQ(Word(record.length), 7u);
    EXPECT_EQ(record.characterSize, 2);
    EXPECT_EQ(readText(static_cast<const Unit16 *>(record.data), 7), "EUR/USD");
    CUnicodeString empty(QString(""));
    EXPECT_EQ(Word(empty.toUnicode().length), 0u);
}

TEST(UnicodeStringTest, CopiesNoMoreThanTheLimit) {
    const CUnicodeString text(QString("abcdef"));
    unsigned short out[10];
    const struct {
        long limit;
        long count;
        const char *copied;
    } rows[] = {{10, 6, "abcdef"}, {7, 6, "abcdef"}, {6, 5, "abcde"}, {1, 0, ""}};
    for (const auto &row : rows) {
        std::fill_n(out, 10, 'x');
        EXPECT_EQ(text.toUnicodeC(out, row.limit), row.count) << row.limit;
        EXPECT_EQ(readEndedText(out), row.copied);
    }
    std::fill_n(out, 10, 'x');
    EXPECT_EQ(text.toUnicodeC(out, 0), 0);
    EXPECT_EQ(out[0], 'x');
    EXPECT_EQ(text.toUnicodeC(nullptr, 10), 0);
    EXPECT_EQ(CUnicodeString().toUnicodeC(out, 10), 0);
    EXPECT_EQ(out[0], 'x');
}

TEST(UnicodeStringTest, TheBufferIsZeroEnded) {
    CUnicodeString text(QString("abc"));
    EXPECT_EQ(readEndedText(text.toUnicodeC()), "abc");
    CUnicodeString empty;
    EXPECT_EQ(*empty.toUnicodeC(), 0);
}

} // namespace
