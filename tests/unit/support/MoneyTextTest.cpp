#include "support/Text.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace {

constexpr mwiSeparators spaceAndPoint{0, 0};
constexpr mwiSeparators spaceAndComma{0, 1};
constexpr mwiSeparators commaAndPoint{1, 0};

TEST(MoneyStringTest, Separators) {
    const struct {
        Word code;
        char group;
        char point;
    } rows[] = {{0, ' ', '.'}, {1, ',', ','}, {2, ' ', '.'}, {999, ' ', '.'}};
    for (const auto &row : rows) {
        EXPECT_EQ(groupSeparator(mwiSeparators{row.code, 0}), QLatin1Char(row.group));
        EXPECT_EQ(decimalSeparator(mwiSeparators{0, row.code}), QLatin1Char(row.point));
    }
}

TEST(MoneyStringTest, GroupsOfThreeDigits) {
    const MoneyString money(commaAndPoint);
    const struct {
        const char *digits;
        bool negative;
        const char *text;
    } rows[] = {{"", false, ""},
                {"1", false, "1"},
                {"123", false, "123"},
                {"1234", false, "1,234"},
                {"123456", false, "123,456"},
                {"1234567", false, "1,234,567"},
                {"-123456", true, "-123,456"},
                {"-123456", false, "123,456"},
                {"1-2-3-4", false, "1,234"}};
    for (const auto &row : rows)
        EXPECT_EQ(money.GetString(row.digits, row.negative), row.text) << row.digits;
}

TEST(MoneyStringTest, Integers) {
    EXPECT_EQ(MoneyString(spaceAndPoint, short(-1234)).toString(), "-1 234");
    EXPECT_EQ(MoneyString(spaceAndPoint, (unsigned short)65535).toString(), "65 535");
    EXPECT_EQ(MoneyString(spaceAndPoint, 1000000).toString(), "1 000 000");
    EXPECT_EQ(MoneyString(spaceAndPoint, 4000000000u).toString(), "4 000 000 000");
    EXPECT_EQ(MoneyString(spaceAndPoint, -5L).toString(), "-5");
    EXPECT_EQ(MoneyString(spaceAndPoint, 1000UL).toString(), "1 000");
    EXPECT_EQ(MoneyString(spaceAndPoint, -9007199254740993LL).toString(), "-9 007 199 254 740 993");
    EXPECT_EQ(MoneyString(spaceAndPoint, 0).toString(), "0");
}

TEST(MoneyStringTest, Fractions) {
    const struct {
        mwiSeparators separators;
        double value;
        int digits;
        const char *text;
    } rows[] = {{spaceAndComma, 1234567.5, 1, "1 234 567,5"},
                {spaceAndPoint, -1234.567, 2, "-1 234.57"},
                {commaAndPoint, 1234.5, 2, "1,234.50"},
                {spaceAndPoint, 1234.5, 0, "1 235"},
                {spaceAndPoint, 0, 2, "0.00"},
                {spaceAndPoint, -0.001, 2, "-0.00"},
                {spaceAndPoint, 999.999, 2, "1 000.00"},
                {spaceAndPoint, 1e20, 0, "100 000 000 000 000 000 000"}};
    for (const auto &row : rows)
        EXPECT_EQ(MoneyString(row.separators, row.value, row.digits).toString(), row.text) << row.value;
    EXPECT_EQ(MoneyString(spaceAndPoint, 1.5f, 1).toString(), "1.5");
}

TEST(MoneyStringTest, TheReverseReadsTheNumber) {
    MoneyString money(spaceAndComma);
    EXPECT_EQ(money.PrepareFromDigit("-1 234 567,5"), "-1234567.5");
    EXPECT_EQ(money.toInt(), -1234567);
    EXPECT_EQ(money.toLong(), -1234567);
    bool ok = true;
    EXPECT_EQ(money.toUInt(&ok), 0u);
    EXPECT_FALSE(ok);
    EXPECT_EQ(money.toShort(&ok), 0);
    EXPECT_FALSE(ok);
    money.PrepareFromDigit("1 234");
    EXPECT_EQ(money.toShort(&ok), 1234);
    EXPECT_TRUE(ok);
    EXPECT_EQ(money.toUShort(), 1234);
    EXPECT_EQ(money.toULong(), 1234u);
    EXPECT_EQ(MoneyString(commaAndPoint, -7654321).toInt(), -7654321);
    MoneyString empty(spaceAndPoint);
    empty.PrepareFromDigit("none");
    EXPECT_EQ(empty.toInt(&ok), 0);
    EXPECT_FALSE(ok);
}

TEST(NumberTextTest, FromValueToString) {
    const struct {
        double value;
        int digits;
        bool trim;
        const char *text;
    } rows[] = {{1.50, 2, true, "1.5"},       {2.00, 2, true, "2"},  {1.50, 2, false, "1.50"},
                {-1.25, 2, false, "1.25"},    {1.999, 2, true, "2"}, {0.05, 2, true, "0.05"},
                {1234.5, 3, true, "1 234.5"}, {100, 2, true, "100"}};
    for (const auto &row : rows)
        EXPECT_EQ(FromValueToString(row.value, spaceAndPoint, row.digits, row.trim), row.text) << row.value;
    EXPECT_EQ(FromValueToString(1.50, spaceAndComma, 2, true), "1,5");
    EXPECT_EQ(FromValueToString(3.00, spaceAndComma, 2, true), "3");
}

TEST(NumberTextTest, MoneyFormat) {
    const struct {
        const char *text;
        int position;
        bool space;
        const char *mark;
        const char *result;
    } rows[] = {
        {"-10", 0, true, "$", "-$ 10"}, {"-10", 1, true, "$", "-10 $"}, {"+10", 0, false, "$", "+$10"},
        {"10", 0, true, "$", "$ 10"},   {"10", 0, false, "$", "$10"},   {"10", 1, false, "$", "10$"},
        {"10", 7, false, "$", "$10"},   {"", 0, true, "$", ""},         {"10", 0, true, "", "10"}};
    for (const auto &row : rows)
        EXPECT_EQ(ConvertToMoneyFormat(row.text, KaltoMoneyPosition(row.position), row.space, row.mark),
                  row.result)
            << row.text << row.position;
}

TEST(NumberTextTest, DecimalValuesFollowTheLocale) {
    const QLocale before;
    QString text;
    QLocale::setDefault(QLocale(QLocale::German));
    GetDecimalValue(text, 1234.5, 2);
    EXPECT_EQ(text, "1.234,50");
    GetDecimalValue(text, 0.25f, 1);
    EXPECT_EQ(text, QLocale().toString(0.25, 'f', 1));
    GetDecimalValue(text, -12345);
    EXPECT_EQ(text, "-12.345");
    GetDecimalValueMoney(text, -1234.5, 2, moneyMarkAhead, "EUR");
    EXPECT_EQ(text, "-EUR1.234,50");
    GetDecimalValueMoney(text, 5, 0, moneyMarkBehind, "EUR");
    EXPECT_EQ(text, "5EUR");
    QLocale::setDefault(before);
}

TEST(NumberTextTest, CuttingTheEnd) {
    QString text = "1.2300";
    TruncateCh(text, '0');
    EXPECT_EQ(text, "1.23");
    TruncateCh(text, 'x');
    EXPECT_EQ(text, "1.23");
    text = "000";
    TruncateCh(text, '0');
    EXPECT_EQ(text, "");
    const struct {
        const char *text;
        DecimalSeparator separator;
        const char *result;
    } rows[] = {{"1.500", decimalPoint, "1.5"}, {"2.000", decimalPoint, "2"}, {"2,00", decimalComma, "2"},
                {"2,,0", decimalComma, "2"},    {"2.00", decimalComma, "2."}, {"", decimalPoint, ""}};
    for (const auto &row : rows) {
        QString lot = row.text;
        TruncateLot(lot, row.separator);
        EXPECT_EQ(lot, row.result) << row.text;
    }
}

TEST(NumberTextTest, LengthAndCutOfTheFraction) {
    EXPECT_EQ(GetLenPrecis("1.2345", '.'), 4);
    EXPECT_EQ(GetLenPrecis("1.2.3", '.'), 1);
    EXPECT_EQ(GetLenPrecis("1.", '.'), 0);
    EXPECT_EQ(GetLenPrecis("12", '.'), 0);
    EXPECT_EQ(GetLenPrecis("", '.'), 0);
    const struct {
        const char *text;
        int digits;
        const char *result;
    } rows[] = {
        {"1.2345", 2, "1.23"}, {"1.2", 4, "1.2"}, {"12", 2, "12"}, {"1.234.5", 1, "1.2"}, {"1.5", 0, "1."}};
    for (const auto &row : rows) {
        QString text = row.text;
        CutForPrecis(text, row.digits);
        EXPECT_EQ(text, row.result) << row.text;
    }
}

} // namespace
