#include "data/DataLine.h"
#include "tests/support/Series.h"

#include <gtest/gtest.h>

namespace {

using Fields = std::vector<std::pair<DATA_POINT_TYPES, QString>>;

// A record of an array, put together field by field.
class Bytes {
public:
    template <class T>
    Bytes &add(T value) {
        const auto *bytes = reinterpret_cast<const unsigned char *>(&value);
        m_bytes.insert(m_bytes.end(), bytes, bytes + sizeof value);
        return *this;
    }
    const unsigned char *data() const { return m_bytes.data(); }

private:
    std::vector<unsigned char> m_bytes;
};

TEST(DataLineTest, WithoutAnArrayEverythingIsNeutral) {
    CRMDataLine line;
    line.Create(nullptr);
    EXPECT_EQ(line.GetDataPointCount(), 0);
    EXPECT_EQ(line.GetDataPoint(0), nullptr);
    char out[100] = {};
    EXPECT_EQ(line.GetDataPoint(0, out), 0);
    EXPECT_EQ(line.GetTime(0), 0);
    EXPECT_EQ(line.GetHigh(0), 0.0);
    EXPECT_EQ(line.GetSign(0), 0);
    EXPECT_FALSE(line.HasField(CRMDataLine::TIME));
    EXPECT_EQ(line.GetFieldType("TIME"), DPT_NONE);
    EXPECT_EQ(line.GetFieldOffset("TIME"), -1);
    EXPECT_EQ(line.ValueByName("TIME", 0), 0.0);
    EXPECT_EQ(line.Update(nullptr), 0);
    line.SetPrecis(4); // no header to write to
    line.AppendData(reinterpret_cast<const unsigned char *>(out));
    EXPECT_EQ(line.GetDataPointCount(), 0);
}

TEST(DataLineTest, OffsetsFollowTheDescriptors) {
    FakeArray array;
    array.setFields({{DPT_LONG, "TIME"}, {DPT_FLOAT, "OPEN"}, {DPT_FLOAT, "CLOSE"}});
    array.append(Bytes().add(1000).add(1.5f).add(1.25f).data());
    const CRMDataLine line(array.header());
    EXPECT_EQ(line.GetTime(0), 1000);
    EXPECT_EQ(line.GetOpen(0), 1.5);
    EXPECT_EQ(line.GetClose(0), 1.25);
    EXPECT_EQ(line.GetFieldOffset("CLOSE"), 8);
    EXPECT_EQ(line.GetHigh(0), 0.0);
    EXPECT_FALSE(line.HasField(CRMDataLine::HIGH));
    EXPECT_EQ(line.GetFieldType("OPEN"), DPT_FLOAT);
}

TEST(DataLineTest, WidthsOfTypes) {
    const int widths[] = {1, 2, 4, 8, 4, 8, 0};
    for (int type = 0; type < 7; ++type)
        EXPECT_EQ(CRMDataLine::GetFieldLen(DATA_POINT_TYPES(type)), widths[type]) << type;
    EXPECT_EQ(CRMDataLine::GetFieldLen(DATA_POINT_TYPES(99)), 0);
}

TEST(DataLineTest, IndexesOutsideTheArrayAnswerZero) {
    FakeArray array;
    array.setCandles(makeBars(3));
    const CRMDataLine line(array.header());
    EXPECT_NE(line.GetClose(2), 0.0);
    for (int index : {-1, 3, 1000000, -2147483647}) {
        EXPECT_EQ(line.GetClose(index), 0.0) << index;
        EXPECT_EQ(line.GetTime(index), 0) << index;
        EXPECT_EQ(line.GetDataPoint(index), nullptr) << index;
    }
}

TEST(DataLineTest, ARecordIsCopiedWhole) {
    FakeArray array;
    const std::vector<Bar> bars = makeBars(2);
    array.setCandles(bars);
    const CRMDataLine line(array.header());
    Bar bar;
    EXPECT_EQ(line.GetDataPoint(1, &bar), 1);
    EXPECT_EQ(bar.time, bars[1].time);
    EXPECT_EQ(bar.volume, bars[1].volume);
    EXPECT_EQ(line.GetDataPoint(2, &bar), 0);
    EXPECT_EQ(line.GetDataPoint(0, nullptr), 0);
}

TEST(DataLineTest, EveryKnownFieldHasItsGetter) {
    Fields fields = {{DPT_LONG, "TIME"},     {DPT_FLOAT, "OPEN"},  {DPT_FLOAT, "HIGH"},   {DPT_FLOAT, "LOW"},
                     {DPT_FLOAT, "CLOSE"},   {DPT_FLOAT, "VALUE"}, {DPT_FLOAT, "VOLUME"}, {DPT_BYTE, "SIGN"},
                     {DPT_LONG, "POSITION"}, {DPT_LONG, "COUNT"},  {DPT_LONG, "ALL"}};
    Bytes record;
    record.add(1)
        .add(2.0f)
        .add(3.0f)
        .add(4.0f)
        .add(5.0f)
        .add(6.0f)
        .add(7.0f)
        .add((unsigned char)200)
        .add(9)
        .add(10)
        .add(11);
    for (int i = 0; i < 5; ++i) {
        const QString digit = QString::number(i);
        fields.push_back({DPT_LONG, "TIME" + digit});
        fields.push_back({DPT_FLOAT, "VALUE" + digit});
        fields.push_back({DPT_LONG, "OPERID" + digit});
        fields.push_back({DPT_LONG, "REASON" + digit});
        record.add(100 + i).add(200.0f + i).add(300 + i).add(400 + i);
    }
    FakeArray array;
    array.setFields(fields);
    array.append(record.data());
    const CRMDataLine line(array.header());
    EXPECT_EQ(line.GetTime(0), 1);
    EXPECT_EQ(line.GetOpen(0), 2);
    EXPECT_EQ(line.GetHigh(0), 3);
    EXPECT_EQ(line.GetLow(0), 4);
    EXPECT_EQ(line.GetClose(0), 5);
    EXPECT_EQ(line.GetValue(0), 6);
    EXPECT_EQ(line.GetVolume(0), 7);
    EXPECT_EQ(line.GetSign(0), 200);
    EXPECT_EQ(line.GetPosition(0), 9);
    EXPECT_EQ(line.GetCount(0), 10);
    EXPECT_EQ(line.GetAll(0), 11);
    const struct {
        int time, operid, reason;
        double value;
    } rows[] = {{line.GetTime0(0), line.GetOperid0(0), line.GetReason0(0), line.GetValue0(0)},
                {line.GetTime1(0), line.GetOperid1(0), line.GetReason1(0), line.GetValue1(0)},
                {line.GetTime2(0), line.GetOperid2(0), line.GetReason2(0), line.GetValue2(0)},
                {line.GetTime3(0), line.GetOperid3(0), line.GetReason3(0), line.GetValue3(0)},
                {line.GetTime4(0), line.GetOperid4(0), line.GetReason4(0), line.GetValue4(0)}};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(rows[i].time, 100 + i);
        EXPECT_EQ(rows[i].value, 200 + i);
        EXPECT_EQ(rows[i].operid, 300 + i);
        EXPECT_EQ(rows[i].reason, 400 + i);
    }
}

TEST(DataLineTest, ValuesByNameAreReadByTheirType) {
    FakeArray array;
    array.setFields({{DPT_BYTE, "B"},
                     {DPT_SHORT, "S"},
                     {DPT_LONG, "L"},
                     {DPT_INT64, "I"},
                     {DPT_FLOAT, "F"},
                     {DPT_DOUBLE, "D"},
                     {DPT_NONE, "N"}});
    array.append(Bytes()
                     .add((unsigned char)250)
                     .add((unsigned short)65000)
                     .add(-5)
                     .add(0x0102030405060708LL)
                     .add(2.5f)
                     .add(0x11LL)
                     .data());
    const CRMDataLine line(array.header());
    const struct {
        const char *field;
        double value;
        int offset;
    } rows[] = {{"B", 250, 0},  {"S", 65000, 1}, {"L", -5, 3}, {"I", 8, 7},
                {"F", 2.5, 15}, {"D", 17, 19},   {"N", 0, 27}};
    for (const auto &row : rows) {
        EXPECT_EQ(line.ValueByName(row.field, 0), row.value) << row.field;
        EXPECT_EQ(line.GetFieldOffset(row.field), row.offset) << row.field;
    }
    EXPECT_EQ(line.ValueByName("X", 0), 0.0);
}

TEST(DataLineTest, ANameSeenTwiceTakesTheLaterPlace) {
    FakeArray array;
    array.setFields({{DPT_LONG, "VALUE"}, {DPT_FLOAT, "VALUE"}});
    array.append(Bytes().add(7).add(1.5f).data());
    const CRMDataLine line(array.header());
    EXPECT_EQ(line.GetFieldOffset("VALUE"), 4);
    EXPECT_EQ(line.GetFieldType("VALUE"), DPT_FLOAT);
    EXPECT_EQ(line.GetValue(0), 1.5);
}

TEST(DataLineTest, UpdateTellsHowManyPointsCame) {
    FakeArray array;
    array.setCandles(makeBars(5));
    CRMDataLine line(array.header());
    EXPECT_EQ(line.Update(nullptr), 5);
    array.setCandles(makeBars(8));
    EXPECT_EQ(line.Update(array.header()), 3);
    EXPECT_EQ(line.Update(nullptr), 0);
    FakeArray shorter;
    shorter.setCandles(makeBars(2));
    EXPECT_EQ(line.Update(shorter.header()), -6);
    EXPECT_EQ(line.GetDataPointCount(), 2);
}

TEST(DataLineTest, DataAreReadThroughTheHeader) {
    FakeArray array;
    array.setCandles(makeBars(3));
    const CRMDataLine line(array.header());
    array.setCandles(makeBars(400, 1000)); // moves the data
    EXPECT_EQ(line.GetDataPointCount(), 400);
    EXPECT_EQ(line.GetTime(0), 1000);
}

TEST(DataLineTest, ACopySharesTheArray) {
    FakeArray array;
    array.setCandles(makeBars(3));
    std::vector<CRMDataLine> lines(2, CRMDataLine(array.header()));
    EXPECT_EQ(lines[0].GetArray(), lines[1].GetArray());
    EXPECT_EQ(lines[1].GetFieldOffset("CLOSE"), 16);
}

TEST(DataLineTest, ADetachedLineKeepsTheNameOnly) {
    FakeArray array;
    array.setCandles(makeBars(3));
    fillField(array.header()->identity.m_szNameSymbol, QString("EURUSD"));
    CRMDataLine line(array.header());
    EXPECT_EQ(CRMDataLine().AttachedName(), "");
    fillField(array.header()->identity.m_szNameSymbol, QString("OTHER"));
    EXPECT_EQ(line.AttachedName(), "EURUSD");
    line.Detach();
    EXPECT_EQ(line.GetArray(), nullptr);
    EXPECT_EQ(line.GetClose(0), 0.0);
    EXPECT_FALSE(line.HasField(CRMDataLine::CLOSE));
    EXPECT_EQ(line.GetFieldOffset("CLOSE"), -1);
    EXPECT_EQ(line.AttachedName(), "EURUSD");
    line.Create(array.header());
    EXPECT_EQ(line.AttachedName(), "OTHER");
    EXPECT_EQ(line.GetDataPointCount(), 3);
}

// ---- arrays of the line's own ----

CRMDataLine ownLine() {
    CRMDataLine line;
    line.Create();
    line.InsertDPV(DPT_LONG, "TIME");
    line.InsertDPV(DPT_FLOAT, "VALUE");
    return line;
}

TEST(OwnArrayTest, FieldsAreFoundByGetterOnly) {
    CRMDataLine line = ownLine();
    EXPECT_EQ(+line.GetArray()->recordSize, 8u);
    EXPECT_EQ(+line.GetArray()->fieldCount, 2);
    line.AppendData(Bytes().add(60).add(1.5f).data());
    EXPECT_EQ(line.GetTime(0), 60);
    EXPECT_EQ(line.GetValue(0), 1.5);
    EXPECT_EQ(line.GetFieldOffset("VALUE"), -1);
    EXPECT_EQ(line.ValueByName("VALUE", 0), 0.0);
}

TEST(OwnArrayTest, GrowsByThreeHundredPoints) {
    CRMDataLine line = ownLine();
    EXPECT_EQ(+line.GetArray()->data, nullptr);
    for (int i = 0; i < 1000; ++i)
        line.AppendData(Bytes().add(i).add(float(i)).data());
    EXPECT_EQ(line.GetDataPointCount(), 1000);
    EXPECT_EQ(line.GetTime(0), 0);
    EXPECT_EQ(line.GetTime(999), 999);
    line.AppendData(nullptr);
    EXPECT_EQ(line.GetDataPointCount(), 1000);
}

TEST(OwnArrayTest, ReplacesAndClears) {
    CRMDataLine line = ownLine();
    line.AppendData(Bytes().add(1).add(1.0f).data());
    line.ReplaceData(0, Bytes().add(2).add(2.0f).data());
    EXPECT_EQ(line.GetTime(0), 2);
    line.ReplaceData(0, nullptr);
    line.ReplaceData(1, Bytes().add(3).add(3.0f).data());
    line.ReplaceData(-1, Bytes().add(3).add(3.0f).data());
    EXPECT_EQ(line.GetTime(0), 2);
    EXPECT_EQ(line.Update(nullptr), 1);
    line.ClearData();
    EXPECT_EQ(line.GetDataPointCount(), 0);
    EXPECT_EQ(+line.GetArray()->data, nullptr);
    line.AppendData(Bytes().add(4).add(4.0f).data());
    EXPECT_EQ(line.Update(nullptr), 1);
    EXPECT_EQ(line.GetTime(0), 4);
}

TEST(OwnArrayTest, TheHundredAndFirstFieldIsDroppedButTheRecordGrows) {
    CRMDataLine line;
    line.Create();
    for (int i = 0; i < 100; ++i)
        line.InsertDPV(DPT_BYTE, QString("F%1").arg(i));
    EXPECT_EQ(+line.GetArray()->recordSize, 100u);
    line.InsertDPV(DPT_FLOAT, "VALUE");
    EXPECT_EQ(+line.GetArray()->recordSize, 104u);
    EXPECT_EQ(+line.GetArray()->fieldCount, 101);
    EXPECT_EQ(fieldText(line.GetArray()->fields[99].name), "F99");
    EXPECT_TRUE(line.HasField(CRMDataLine::VALUE));
}

TEST(OwnArrayTest, TheHeaderIsFilled) {
    CRMDataLine line = ownLine();
    const mvDataPointArray &array = *line.GetArray();
    line.SetName("EUR/USD", "Bid", 'I', 5, 30);
    EXPECT_EQ(fieldText(array.identity.m_szNameSymbol), "EUR/USD");
    EXPECT_EQ(fieldText(array.identity.m_szType), "Bid");
    EXPECT_EQ(array.identity.m_periods.period, 'I');
    EXPECT_EQ(int(array.identity.m_periods.lenPeriod), 5);
    EXPECT_EQ(int(array.identity.m_periods.startTime), 30);
    line.SetAdditionalName("2");
    EXPECT_EQ(fieldText(array.identity.m_szNameSymbol), "EUR/USD 2");
    line.SetOwner(&line);
    EXPECT_EQ(+array.owner, &line);
    line.SetPrecis(5);
    EXPECT_EQ(int(array.precision), 5);
    line.SetLineColor(0x112233);
    EXPECT_EQ(+array.typeShow.firstColor, 0x112233u);
    EXPECT_EQ(+array.typeShow.secondColor, 0x112233u);
    line.SetWeightPen(3);
    line.SetLineShowType(2);
    line.SetBorderValue(0.5f);
    line.SetPenType(eCoreTypeShowPenDash);
    EXPECT_EQ(int(array.typeShow.weightPen), 3);
    EXPECT_EQ(int(array.typeShow.lineShowType), 2);
    EXPECT_EQ(float(array.typeShow.borderValue), 0.5f);
    EXPECT_EQ(+array.typeShow.penType, eCoreTypeShowPenDash);
    const coreSystemCoord coord{1, 2, 3};
    line.SetCoord(&coord);
    EXPECT_EQ(std::memcmp(&array.coord, &coord, sizeof coord), 0);
    auto show = zeroRecord<coreTypeShow>();
    show.drawKind = 5;
    line.SetTypeShow(&show);
    EXPECT_EQ(+array.typeShow.drawKind, 5u);
    EXPECT_EQ(int(array.typeShow.weightPen), 0);
    auto name = makeName("GBP/USD", "Ask", makePeriod('D', 1));
    line.SetName(&name);
    EXPECT_EQ(fieldText(array.identity.m_szNameSymbol), "GBP/USD");
}

TEST(OwnArrayTest, ALongNameLeavesItsNeighboursAlone) {
    CRMDataLine line = ownLine();
    line.SetName(QString(250, 'x'), "Bid", 'D', 1, 0);
    line.SetAdditionalName(QString(50, 'y'));
    EXPECT_EQ(fieldText(line.GetArray()->identity.m_szNameSymbol), QString(250, 'x') + " yyyy");
    EXPECT_EQ(fieldText(line.GetArray()->identity.m_szType), "Bid");
}

TEST(OwnArrayTest, ACopyOutlivesNothingAndFreesNothing) {
    CRMDataLine line = ownLine();
    line.AppendData(Bytes().add(1).add(1.0f).data());
    {
        const CRMDataLine copy(line);
        EXPECT_EQ(copy.GetTime(0), 1);
    }
    EXPECT_EQ(line.GetTime(0), 1);
}

TEST(OwnArrayTest, AttachingAHostArrayLetsTheOwnOneGo) {
    CRMDataLine line = ownLine();
    line.AppendData(Bytes().add(1).add(1.0f).data());
    FakeArray array;
    array.setCandles(makeBars(2));
    line.Create(array.header());
    EXPECT_EQ(line.GetDataPointCount(), 2);
    line.ClearData(); // the host's data stay
    EXPECT_EQ(line.GetDataPointCount(), 2);
}

} // namespace
