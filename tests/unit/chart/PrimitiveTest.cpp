#include "chart/Primitive.h"
#include "chart/PrimitiveTypes.h"
#include "tests/support/Series.h"
#include "tests/unit/support/UnitHost.h"

#include <gtest/gtest.h>

namespace {

class PrimitiveFixture : public testing::Test {
protected:
    CRPrimitive primitive{0, nullptr, 0};
    FakeArray array;

    void candles(char letter, int length, const std::vector<Bar> &bars) {
        array.setCandles(bars);
        array.header()->identity = makeName("EURUSD", "Bid", makePeriod(letter, length));
        primitive.CreatePrimitive(array.header());
    }
};

// ---- draw types ----

struct KindCase {
    Word drawKind;
    int lineShowType;
    char letter;
    int length;
    int expected;
};

class DrawKind : public testing::TestWithParam<KindCase> {};

TEST_P(DrawKind, NamesTheDrawType) {
    FakeArray array;
    array.header()->typeShow.drawKind = GetParam().drawKind;
    array.header()->typeShow.lineShowType = GetParam().lineShowType;
    array.header()->identity.m_periods = makePeriod(GetParam().letter, GetParam().length);
    EXPECT_EQ(drawTypeOf(*array.header(), PT_PATTERN), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Primitive, DrawKind,
    testing::Values(KindCase{1, 0, 'I', 60, PT_CANDLE}, KindCase{2, 0, 'I', 60, PT_BAR},
                    KindCase{3, 0, 'I', 60, PT_CLOSE_LINE}, KindCase{4, 0, 'I', 60, PT_LINE},
                    KindCase{4, 1, 'I', 60, PT_HISTOGRAM}, KindCase{4, 2, 'I', 60, PT_CLOSE_DOTS},
                    KindCase{4, 3, 'I', 60, PT_PATTERN}, // unchanged
                    KindCase{5, 0, 'D', 1, PT_WIDE_CANDLE}, KindCase{6, 0, 'D', 1, PT_MARKS},
                    KindCase{7, 0, 'D', 1, PT_CLOSE_DOTS}, KindCase{8, 0, 'D', 1, PT_DOTS},
                    KindCase{9, 0, 'D', 1, PT_PATTERN}, // unchanged
                    KindCase{10, 0, 'D', 1, PT_PATTERN}, KindCase{0, 0, 'D', 1, PT_PATTERN},
                    KindCase{1, 0, 'I', 0, PT_TICK_LINE}, KindCase{4, 1, 'I', 0, PT_TICK_LINE}));

TEST(PrimitiveTypes, OutsideOfTheTypesThereIsNoRow) {
    EXPECT_EQ(primitiveTypeRow(-1), nullptr);
    EXPECT_EQ(primitiveTypeRow(11), nullptr);
    for (int type = 0; type <= 10; ++type)
        EXPECT_NE(primitiveTypeRow(type), nullptr);
}

TEST_F(PrimitiveFixture, LookComesFromTheArray) {
    array.header()->precision = 3;
    array.header()->typeShow.weightPen = 4;
    array.header()->typeShow.penType = eCoreTypeShowPenDash;
    array.header()->typeShow.firstColor = 0x112233;
    array.header()->typeShow.secondColor = 0x445566;
    candles('I', 60, makeBars(3));
    EXPECT_FLOAT_EQ(primitive.m_fPoint, 0.001f);
    EXPECT_EQ(primitive.m_nPenWidth, 4);
    EXPECT_EQ(primitive.m_nPenStyle, 2);
    EXPECT_EQ(primitive.m_riseColor.rgb() & 0xFFFFFF, 0x112233u);
    EXPECT_EQ(primitive.m_lineColor.rgb() & 0xFFFFFF, 0x445566u);
}

// ---- range ----

struct RangeCase {
    PRIMITIVE_TYPES type;
    float max, min;
};

class Range : public testing::TestWithParam<RangeCase> {};

TEST_P(Range, FollowsTheFieldsOfTheType) {
    FakeArray array;
    array.setFields({{DPT_LONG, "TIME"},
                     {DPT_FLOAT, "VALUE"},
                     {DPT_FLOAT, "HIGH"},
                     {DPT_FLOAT, "LOW"},
                     {DPT_FLOAT, "CLOSE"}});
    const struct Point {
        int time;
        float value, high, low, close;
    } points[] = {{1, 10, 30, 20, 25}, {2, 11, 35, 15, 26}, {3, 12, 31, 21, 27}, {4, 90, 99, 1, 95}};
    for (const Point &point : points)
        array.append(&point);
    CRPrimitive primitive(0, nullptr, 0);
    primitive.CreatePrimitive(array.header());
    primitive.m_type = GetParam().type;
    EXPECT_FLOAT_EQ(primitive.GetMaxOnInterval(0, 2), GetParam().max); // the fourth point is out of sight
    EXPECT_FLOAT_EQ(primitive.GetMinOnInterval(0, 2), GetParam().min);
}

INSTANTIATE_TEST_SUITE_P(Primitive, Range,
                         testing::Values(RangeCase{PT_LINE, 12, 10}, RangeCase{PT_CLOSE_DOTS, 27, 25},
                                         RangeCase{PT_HISTOGRAM, 12, 10}, RangeCase{PT_CLOSE_LINE, 27, 25},
                                         RangeCase{PT_TICK_LINE, 12, 10}, RangeCase{PT_CANDLE, 35, 15},
                                         RangeCase{PT_BAR, 35, 15}, RangeCase{PT_WIDE_CANDLE, 35, 15},
                                         RangeCase{PT_MARKS, 35, 15}, RangeCase{PT_DOTS, 12, 10},
                                         RangeCase{PT_PATTERN, 12, 10},
                                         RangeCase{static_cast<PRIMITIVE_TYPES>(11), -FLT_MAX, FLT_MAX},
                                         RangeCase{static_cast<PRIMITIVE_TYPES>(-1), -FLT_MAX, FLT_MAX}));

TEST_F(PrimitiveFixture, TitleValueIsTheValueOfTheType) {
    candles('I', 60, {{0, 1.0f, 4.0f, 0.5f, 2.0f, 7.0f}});
    bool has = false;
    const float expected[] = {1.0f, 2.0f, 1.0f, 2.0f, 1.0f, 2.0f, 2.0f, 2.0f, 4.0f, 1.0f, 1.0f};
    for (int type = 0; type <= 10; ++type) {
        primitive.m_type = static_cast<PRIMITIVE_TYPES>(type);
        EXPECT_FLOAT_EQ(primitive.TitleValue(0, &has), expected[type]) << type;
        EXPECT_TRUE(has);
    }
    primitive.TitleValue(1, &has);
    EXPECT_FALSE(has);
    primitive.TitleValue(-1, &has);
    EXPECT_FALSE(has);
    primitive.m_type = static_cast<PRIMITIVE_TYPES>(11);
    primitive.TitleValue(0, &has);
    EXPECT_FALSE(has);
}

TEST_F(PrimitiveFixture, FirstValueOfAPointThatIsOnlyATimeIsZero) {
    array.setFields({{DPT_LONG, "TIME"}});
    const int time = 5;
    array.append(&time);
    primitive.CreatePrimitive(array.header());
    EXPECT_EQ(primitive.FirstValue(0), 0.0);
}

// ---- positions ----

TEST_F(PrimitiveFixture, PositionsOutOfRangeAreInvalid) {
    EXPECT_TRUE(primitive.IsPosEmpty());
    EXPECT_EQ(primitive.GetLastSignedTimePos(), -1);
    for (int index : {0, -1, 1, -1, -1})
        primitive.AddPos(index);
    EXPECT_EQ(primitive.GetPosSize(), 5);
    EXPECT_EQ(primitive.GetPos(-1), -1);
    EXPECT_EQ(primitive.GetPos(5), -1);
    EXPECT_EQ(primitive.GetPos(2), 1);
    EXPECT_EQ(primitive.GetLastSignedTimePos(), 2);
    primitive.ClearPos();
    primitive.AddPos(-1);
    EXPECT_EQ(primitive.GetLastSignedTimePos(), -1);
}

TEST_F(PrimitiveFixture, NearestPositions) {
    candles('I', 60, makeBars(10));
    for (int index : {-1, 0, -1, -1, 1, 2, -1, 3})
        primitive.AddPos(index);
    EXPECT_EQ(primitive.GetNearestLowPosition(-3), 0);
    EXPECT_EQ(primitive.GetNearestLowPosition(8), 9); // beyond: the last data index
    EXPECT_EQ(primitive.GetNearestLowPosition(0), 0);
    EXPECT_EQ(primitive.GetNearestLowPosition(5), 2); // valid: the data index
    EXPECT_EQ(primitive.GetNearestLowPosition(2), 1); // invalid: the position below
    EXPECT_EQ(primitive.GetNearestLowPosition(3), 4); // but one place above is looked at first
    EXPECT_EQ(primitive.GetNearestHiPosition(-3), 0);
    EXPECT_EQ(primitive.GetNearestHiPosition(8), 9);
    EXPECT_EQ(primitive.GetNearestHiPosition(4), 1);
    EXPECT_EQ(primitive.GetNearestHiPosition(3), 4); // upward from one place below
    EXPECT_EQ(primitive.GetNearestHiPosition(2), 1);
    EXPECT_EQ(primitive.GetNearestHiPosition(6), 5);
}

TEST_F(PrimitiveFixture, SignedNeighbours) {
    candles('I', 60, makeBars(3));
    for (int i = 0; i < 400; ++i)
        primitive.AddPos(i == 100 ? 0 : i == 300 ? 1 : -1);
    EXPECT_EQ(primitive.NextSignedPos(-5), 100);
    EXPECT_EQ(primitive.NextSignedPos(100), 100);
    EXPECT_EQ(primitive.NextSignedPos(101), 300);
    EXPECT_EQ(primitive.NextSignedPos(301), -1);
    EXPECT_EQ(primitive.NextSignedPos(400), -1);
    EXPECT_EQ(primitive.PreviousSignedPos(99), -1);
    EXPECT_EQ(primitive.PreviousSignedPos(100), 100);
    EXPECT_EQ(primitive.PreviousSignedPos(299), 100);
    EXPECT_EQ(primitive.PreviousSignedPos(1000), 300);
    EXPECT_EQ(primitive.PreviousSignedPos(-1), -1);
}

// ---- time ----

struct StepCase {
    char letter;
    int length;
    int step;
    eDateType type;
    int count;
};

class TimeStep : public testing::TestWithParam<StepCase> {};

TEST_P(TimeStep, OfAPeriod) {
    FakeArray array;
    array.setCandles({});
    array.header()->identity = makeName("A", "Bid", makePeriod(GetParam().letter, GetParam().length));
    CRPrimitive primitive(0, nullptr, 0);
    primitive.CreatePrimitive(array.header());
    int count = -1;
    EXPECT_EQ(primitive.GetTimeStep(), GetParam().step);
    EXPECT_EQ(primitive.GetTimeInterval(count), GetParam().type);
    EXPECT_EQ(count, GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(
    Primitive, TimeStep,
    testing::Values(StepCase{'I', 0, 1, DT_MINUTE, 1}, // ticks: a second, and a minute
                    StepCase{'I', 1, 60, DT_MINUTE, 1}, StepCase{'I', 60, 3600, DT_MINUTE, 60},
                    StepCase{'D', 1, 86400, DT_DAY, 1}, StepCase{'D', 2, 86400, DT_DAY, 2},
                    StepCase{'D', 0, 86400, DT_DAY, 1}, StepCase{'W', 1, 604800, DT_WEEK, 1},
                    StepCase{'M', 1, 2592000, DT_MONTH, 1}, StepCase{'Y', 1, 31536000, DT_YEAR, 1},
                    StepCase{'X', 3, 1, DT_UNKNOWN, 3}, // and lengths that no host should send
                    StepCase{'I', -5, 1, DT_MINUTE, -5},
                    StepCase{'I', 2000000000, 2147483647, DT_MINUTE, 2000000000}));

constexpr int hour = 3600;
constexpr int start = 1000 * hour;

std::vector<Bar> hours(int count) {
    return makeBars(count, start, hour);
}

TEST_F(PrimitiveFixture, NearestIndexIsAtOrAfterTheTime) {
    EXPECT_EQ(primitive.GetTimeNearestIndex(5), 0);
    candles('I', 60, hours(5));
    EXPECT_EQ(primitive.GetTimeNearestIndex(start - 1), 0);
    EXPECT_EQ(primitive.GetTimeNearestIndex(start), 0);
    EXPECT_EQ(primitive.GetTimeNearestIndex(start + 1), 1);
    EXPECT_EQ(primitive.GetTimeNearestIndex(start + 4 * hour), 4);
    EXPECT_EQ(primitive.GetTimeNearestIndex(start + 4 * hour + 1), 4); // none: the last
}

TEST_F(PrimitiveFixture, TimeIndexCoversTheTime) {
    EXPECT_EQ(primitive.GetTimeIndex(5), -1);
    candles('I', 60, hours(3));
    EXPECT_EQ(primitive.GetTimeIndex(start - 1), -1);
    EXPECT_EQ(primitive.GetTimeIndex(start), 0);
    EXPECT_EQ(primitive.GetTimeIndex(start + 10), 0);
    EXPECT_EQ(primitive.GetTimeIndex(start + hour), 1);     // the search begins here
    EXPECT_EQ(primitive.GetTimeIndex(start + 2 * hour), 1); // and meets the one before first
    EXPECT_EQ(primitive.GetTimeIndex(start + 2 * hour + 1), 2);
    EXPECT_EQ(primitive.GetTimeIndex(start + 3 * hour), 2); // up to one step behind the last
    EXPECT_EQ(primitive.GetTimeIndex(start + 3 * hour + 1), -1);
}

TEST_F(PrimitiveFixture, TimeIndexFindsEveryPointOrTheOneBefore) {
    candles('I', 60, hours(100));
    for (int i = 0; i < 100; ++i) {
        const int index = primitive.GetTimeIndex(start + i * hour);
        ASSERT_TRUE(index == i || index == i - 1) << i;
        ASSERT_EQ(primitive.GetTimeIndex(start + i * hour + 7), i);
    }
}

TEST_F(PrimitiveFixture, VirtualIndexGoesOnPastTheData) {
    candles('I', 60, hours(4));
    const int last = start + 3 * hour;
    EXPECT_EQ(primitive.GetTimeVirtualIndex(last - 1), 3);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(last), 3);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(last + 1), 4);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(last + hour), 4);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(last + hour + 1), 5);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(last + 10 * hour), 13);
}

TEST_F(PrimitiveFixture, VirtualTimesOfTicksAreMinutesApart) {
    array.setTicks(makeTicks(3, start, 5));
    array.header()->identity = makeName("EURUSD", "Bid", makePeriod('I', 0));
    primitive.CreatePrimitive(array.header());
    EXPECT_TRUE(primitive.IsTickSeries());
    EXPECT_EQ(primitive.GetTimeStep(), 1);
    EXPECT_EQ(primitive.GetIndexVirtualTime(3), start + 10 + 60);
    EXPECT_EQ(primitive.GetIndexVirtualTime(-2), start - 120);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(start + 10 + 61), 4);
}

TEST_F(PrimitiveFixture, VirtualTimesOfFixedUnits) {
    candles('D', 2, makeBars(3, start, 2 * 86400));
    EXPECT_EQ(primitive.GetIndexVirtualTime(1), start + 2 * 86400);
    EXPECT_EQ(primitive.GetIndexVirtualTime(3), start + 6 * 86400);
    EXPECT_EQ(primitive.GetIndexVirtualTime(-1), start - 2 * 86400);
    candles('W', 1, makeBars(3, start, 604800));
    EXPECT_EQ(primitive.GetIndexVirtualTime(4), start + 4 * 604800);
    candles('X', 1, makeBars(3, start, hour));
    EXPECT_EQ(primitive.GetIndexVirtualTime(3), 0);
    EXPECT_EQ(primitive.GetTimeVirtualIndex(start + 100 * hour), 2); // an interval that cannot be stepped
}

long day(int year, int month, int dayOfMonth) {
    return QDateTime(QDate(year, month, dayOfMonth), QTime(0, 0), Qt::UTC).toSecsSinceEpoch();
}

std::vector<Bar> barsAt(const std::vector<long> &times) {
    std::vector<Bar> bars;
    for (long time : times)
        bars.push_back({static_cast<int>(time), 1, 1, 1, 1, 1});
    return bars;
}

TEST_F(PrimitiveFixture, MonthStepsLandOnFirsts) {
    candles('M', 1, barsAt({day(2018, 1, 31)}));
    EXPECT_EQ(primitive.GetIndexVirtualTime(1), day(2018, 2, 1));
    EXPECT_EQ(primitive.GetIndexVirtualTime(2), day(2018, 3, 1));
    EXPECT_EQ(primitive.GetIndexVirtualTime(12), day(2019, 1, 1));
    EXPECT_EQ(primitive.GetTimeVirtualIndex(day(2018, 2, 1) + 1), 2);
}

TEST_F(PrimitiveFixture, MonthStepBackTakesTheLengthOfTheMonthBeingLeft) {
    candles('M', 1, barsAt({day(2018, 3, 1)}));
    EXPECT_EQ(primitive.GetIndexVirtualTime(-1), day(2018, 3, 1) - 31 * 86400L); // 29 January
    // 29 January: 31 - 29 + 1 days
    EXPECT_EQ(primitive.GetIndexVirtualTime(-2), day(2018, 1, 29) - 3 * 86400L);
}

TEST_F(PrimitiveFixture, YearStepsHaveTheLengthOfTheYearBeingLeft) {
    candles('Y', 1, barsAt({day(2016, 1, 1)}));
    EXPECT_EQ(primitive.GetIndexVirtualTime(1), day(2017, 1, 1)); // 366 days
    EXPECT_EQ(primitive.GetIndexVirtualTime(2), day(2018, 1, 1));
    EXPECT_EQ(primitive.GetIndexVirtualTime(-1), day(2016, 1, 1) - 366 * 86400L);
}

TEST_F(PrimitiveFixture, VirtualTimeOfNoDataOrOfANegativeTimeIsNoAnswer) {
    candles('I', 60, {});
    EXPECT_EQ(primitive.GetIndexVirtualTime(0), 0);
    candles('I', 60, {{-5, 1, 1, 1, 1, 1}});
    EXPECT_EQ(primitive.GetIndexVirtualTime(0), -5);
    EXPECT_EQ(primitive.GetIndexVirtualTime(1), -1);
    candles('I', 60, {{100, 1, 1, 1, 1, 1}});
    EXPECT_EQ(primitive.GetIndexVirtualTime(-5), -1);
    candles('W', 1, {{2000000000, 1, 1, 1, 1, 1}});
    EXPECT_EQ(primitive.GetIndexVirtualTime(1000), -1); // past the range of a time
}

TEST_F(PrimitiveFixture, IndexDifferencesAreTruncated) {
    candles('I', 60, hours(3));
    EXPECT_EQ(primitive.GetIndexDiffByTime(start, start + 2 * hour - 1), 1);
    EXPECT_EQ(primitive.GetIndexDiffByTime(start + 2 * hour - 1, start), -1);
    EXPECT_EQ(primitive.GetIndexDiffByIndex(0, 7), 7);
    EXPECT_EQ(primitive.GetIndexDiffByIndex(2, -2), -4);
}

// ---- names ----

class PrimitiveNames : public PrimitiveFixture {
protected:
    UnitHost host;

    void SetUp() override {
        host.attach();
        array.header()->owner = fromWord<void>(0x51);
        candles('I', 60, makeBars(3));
        primitive.m_hDpa = fromWord<void>(0x51);
    }
    void setEx(int which, const QString &text) { fillText(primitive.m_exName[which], 255, text); }
    void answerNames(const QString &name, const QString &suffix, const QString &alias) {
        host.answers[3135] = [=](int owner, int record) {
            EXPECT_EQ(owner, 0x51);
            auto *names = fromWord<coreDisplayNames>(record);
            EXPECT_EQ(fieldText(names->symbol), QString("EURUSD"));
            fillField(names->name, name);
            fillField(names->suffix, suffix);
            fillField(names->alias, alias);
            return 0;
        };
    }
};

TEST_F(PrimitiveNames, NameOfAnInstrument) {
    setEx(0, "EURUSD");
    setEx(1, "EUR/USD");
    primitive.SyncInternalData();
    EXPECT_EQ(primitive.m_type, PT_CANDLE);
    EXPECT_EQ(primitive.m_name, QString("EUR/USD 1 Hour Bid"));
    EXPECT_EQ(primitive.GetAlias(), QString("EUR/USD"));
    EXPECT_EQ(primitive.m_fullName, QString("EUR/USD/"));
    EXPECT_EQ(host.count(3135), 0);
}

TEST_F(PrimitiveNames, SuffixAndAlias) {
    setEx(1, "EUR/USD");
    setEx(2, "m");
    primitive.SyncInternalData();
    EXPECT_EQ(primitive.m_name, QString("EUR/USD/m 1 Hour Bid"));
    EXPECT_EQ(primitive.GetAlias(), QString("EUR/USD"));
    EXPECT_EQ(primitive.m_fullName, QString("EUR/USD/m"));
    setEx(3, "Euro");
    primitive.SyncInternalData();
    EXPECT_EQ(primitive.m_name, QString("Euro 1 Hour Bid"));
    EXPECT_EQ(primitive.GetAlias(), QString("Euro"));
    EXPECT_EQ(primitive.m_fullName, QString("EUR/USD/m"));
}

TEST_F(PrimitiveNames, AnOutputIsNamedByItsSymbol) {
    array.header()->typeShow.drawKind = 4;
    array.header()->identity.m_periods = makePeriod('D', 1);
    setEx(0, "MA");
    setEx(1, "EUR/USD");
    primitive.SyncInternalData();
    EXPECT_EQ(primitive.m_type, PT_LINE);
    EXPECT_EQ(primitive.m_name, QString("MA Day Bid"));
}

TEST_F(PrimitiveNames, PlaceholderIsAskedAgain) {
    answerNames("EUR/USD", "x", "");
    setEx(1, "\\");
    primitive.SyncInternalData();
    EXPECT_EQ(host.count(3135), 1);
    EXPECT_EQ(primitive.m_name, QString("EUR/USD/x 1 Hour Bid"));
    EXPECT_EQ(primitive.ExName(0), QString("EURUSD"));
    setEx(1, "\\x");
    primitive.SyncInternalData();
    EXPECT_EQ(host.count(3135), 1); // exactly one backslash
}

TEST_F(PrimitiveNames, SyncExNameDataTakesTheAlias) {
    answerNames("EUR/USD", "", "Euro");
    primitive.SyncExNameData();
    EXPECT_EQ(host.count(3135), 1);
    EXPECT_EQ(primitive.GetAlias(), QString("Euro"));
    answerNames("EUR/USD", "", "");
    primitive.SyncExNameData();
    EXPECT_EQ(host.count(3135), 2);
    EXPECT_EQ(primitive.GetAlias(), QString("Euro")); // kept
}

TEST_F(PrimitiveNames, ARefusalKeepsWhatIsThere) {
    setEx(1, "\\");
    host.otherwise = 1;
    primitive.SyncInternalData();
    EXPECT_EQ(primitive.m_name, QString("\\ 1 Hour Bid"));
}

TEST_F(PrimitiveNames, MenuNameJoinsWhatDiffers) {
    setEx(0, "MA");
    QString menu;
    host.answers[3055] = [](int, int record) {
        fillField(fromWord<coreIndicatorIdentity>(record)->sNameInstrument.m_szNameSymbol, QString("EURUSD"));
        return 0;
    };
    host.answers[3193] = [&menu](int, int record) {
        fillText(fromWord<unsigned short>(record), 255, menu);
        return 0;
    };
    EXPECT_EQ(primitive.GetMenuItemName(), QString("EURUSD/MA"));
    menu = "Moving Average (14)";
    EXPECT_EQ(primitive.GetMenuItemName(), QString("EURUSD/MA/Moving Average (14)"));
    setEx(0, "EURUSD");
    EXPECT_EQ(primitive.GetMenuItemName(), QString("EURUSD/Moving Average (14)"));
}

TEST_F(PrimitiveNames, NameIsTheSymbolOfTheArray) {
    const unsigned short same[] = {'E', 'U', 'R', 'U', 'S', 'D', 0};
    const unsigned short shorter[] = {'E', 'U', 'R', 0};
    EXPECT_TRUE(primitive.NameIs(same));
    EXPECT_FALSE(primitive.NameIs(shorter));
    EXPECT_FALSE(primitive.NameIs(nullptr));
}

// ---- the rest ----

TEST_F(PrimitiveFixture, FieldSizes) {
    const int sizes[] = {1, 2, 4, 8, 4, 8, 255};
    for (int type = 0; type < 7; ++type)
        EXPECT_EQ(primitive.GetViewSize(static_cast<DATA_POINT_TYPES>(type)), sizes[type]);
}

TEST_F(PrimitiveFixture, CopySharesTheArrayAndLeavesTheStudies) {
    candles('I', 60, makeBars(3));
    primitive.AddPos(0);
    primitive.AddHLine(1.5f);
    primitive.m_name = "name";
    fillText(primitive.m_exName[3], 255, "alias");
    primitive.SetSelected(true);
    primitive.AddLineStudy(fromWord<CRLineStudy>(0x10), -1);
    const CRPrimitive copy(primitive);
    EXPECT_EQ(copy.GetArray(), array.header());
    EXPECT_EQ(copy.m_pos, primitive.m_pos);
    EXPECT_EQ(copy.m_levels, primitive.m_levels);
    EXPECT_EQ(copy.m_name, QString("name"));
    EXPECT_EQ(copy.ExName(3), QString("alias"));
    EXPECT_TRUE(copy.IsSelected());
    EXPECT_TRUE(copy.m_lineStudies.empty());
    primitive.SafeDeleteLS();
    EXPECT_TRUE(primitive.m_lineStudies.empty());
}

TEST_F(PrimitiveFixture, StudiesStandInTheirOrder) {
    CRLineStudy *studies[] = {fromWord<CRLineStudy>(0x10), fromWord<CRLineStudy>(0x20),
                              fromWord<CRLineStudy>(0x30)};
    primitive.AddLineStudy(studies[0], -1);
    primitive.AddLineStudy(studies[1], -1);
    primitive.AddLineStudy(studies[2], 1);
    EXPECT_EQ(primitive.m_lineStudies, (std::vector<CRLineStudy *>{studies[0], studies[2], studies[1]}));
    primitive.DeleteLineStudy(5);
    primitive.DeleteLineStudy(studies[2]);
    primitive.DeleteLineStudyFromList(0);
    EXPECT_EQ(primitive.m_lineStudies, (std::vector<CRLineStudy *>{studies[1]}));
    primitive.DeleteLineStudyFromList(0);
}

TEST(SortByOrderTest, KnowsOnlyTheNamesOfTheList) {
    FakeArray arrays[3];
    CRPrimitive first(0, nullptr, 0), second(0, nullptr, 0), foreign(0, nullptr, 0);
    CRPrimitive *primitives[] = {&first, &second, &foreign};
    const char *names[] = {"Upper", "Lower", "Other"};
    for (int i = 0; i < 3; ++i) {
        arrays[i].header()->identity = makeName(names[i], "Bid", makePeriod('I', 1));
        primitives[i]->CreatePrimitive(arrays[i].header());
    }
    mvDataPointArray *list[] = {arrays[0].header(), nullptr, arrays[1].header()};
    const SortByOrder order(coreListCreateData{3, list});
    EXPECT_TRUE(order(&first, &second));
    EXPECT_FALSE(order(&second, &first));
    EXPECT_FALSE(order(&first, &first));
    EXPECT_FALSE(order(&first, &foreign));
    EXPECT_FALSE(order(&foreign, &first));
    EXPECT_FALSE(SortByOrder(coreListCreateData{2, nullptr})(&first, &second));
}

} // namespace
