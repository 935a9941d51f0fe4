#include "data/DataStore.h"
#include "data/DataPoints.h"
#include "data/Exeption.h"
#include "tests/support/Series.h"

#include <gtest/gtest.h>

namespace {

class DataStoreTest : public testing::Test {
protected:
    DataStoreTest() {
        first.setCandles(makeBars(3));
        first.header()->identity = makeName("EUR/USD", "Bid", makePeriod('D', 1));
        second.setCandles(makeBars(5));
        second.header()->identity = makeName("GBP/USD", "Bid", makePeriod('D', 1));
    }
    FakeArray first, second;
    mvDataPointArray *arrays[2] = {first.header(), second.header()};
    coreListCreateData list{2, arrays};
};

TEST_F(DataStoreTest, OneLineForEachArray) {
    CRMDataStore store(&list);
    EXPECT_EQ(store.GetCount(), 2);
    EXPECT_EQ(store.GetArrays(), arrays);
    ASSERT_NE(store[1], nullptr);
    EXPECT_EQ(store[1]->GetDataPointCount(), 5);
    EXPECT_EQ(store[2], nullptr);
    EXPECT_EQ(store[4000000000u], nullptr);
}

TEST_F(DataStoreTest, ANullListLeavesTheStoreEmpty) {
    CRMDataStore store(&list);
    store.Create(nullptr);
    EXPECT_EQ(store[0], nullptr);
    EXPECT_EQ(store.GetCount(), 0);
}

TEST_F(DataStoreTest, LinesAreFoundByTheirSymbol) {
    CRMDataStore store(&list);
    EXPECT_EQ(store.FindLineByName("GBP/USD"), store[1]);
    EXPECT_EQ(store.FindLineByName("GBP"), nullptr);
    EXPECT_EQ(store.FindLineByName("GBP/USD2"), nullptr);
    EXPECT_EQ(store.FindLineByName(""), nullptr);
}

TEST_F(DataStoreTest, UpdateGoesToTheLineAtTheSamePlace) {
    CRMDataStore store(&list);
    FakeArray longer;
    longer.setCandles(makeBars(9));
    mvDataPointArray *changed[] = {longer.header(), nullptr, first.header()};
    coreListCreateData update{3, changed};
    store.Update(&update);
    EXPECT_EQ(store[0]->GetDataPointCount(), 9);
    EXPECT_EQ(store[1]->GetDataPointCount(), 5);
    coreListCreateData nothing{0, changed};
    store.Update(&nothing);
    store.Update(nullptr);
    EXPECT_EQ(store[0]->GetDataPointCount(), 9);
}

TEST_F(DataStoreTest, LinesOfItsOwnKeepTheirDataAsTheStoreGrows) {
    CRMDataStore store;
    for (int i = 0; i < 20; ++i) {
        CRMDataLine *line = store.AddLine();
        line->InsertDPV(DPT_LONG, "TIME");
        line->AppendData(reinterpret_cast<const unsigned char *>(&i));
    }
    EXPECT_EQ(store.GetCount(), 20);
    for (unsigned int i = 0; i < 20; ++i) {
        EXPECT_EQ(store[i]->GetTime(0), long(i));
        EXPECT_EQ(store.GetArrays()[i], store[i]->GetArray());
    }
    store.ClearData();
    EXPECT_EQ(store[3]->GetDataPointCount(), 0);
    store.Clear();
    EXPECT_EQ(store[0], nullptr);
    EXPECT_EQ(store.GetArrays(), nullptr);
}

TEST_F(DataStoreTest, AnOwnLineBesideThoseOfTheHost) {
    CRMDataStore store(&list);
    store.AddLine();
    EXPECT_EQ(store.GetCount(), 3);
    EXPECT_EQ(store.GetArrays()[0], first.header());
    EXPECT_NE(store.GetArrays(), arrays);
    EXPECT_EQ(arrays[0], first.header()); // the host's list stays as it is
}

TEST(ExeptionTest, KeepsItsText) {
    const CRMExeption failure("no data");
    EXPECT_STREQ(failure.what(), "no data");
    EXPECT_STREQ(CRMExeption(nullptr).what(), "");
}

TEST(DataPointsTest, StartAtZeroAndCopyWhole) {
    CCandleDataPoint a;
    EXPECT_EQ(a.time, 0u);
    EXPECT_EQ(a.volume, 0.0f);
    a.time = 5;
    a.open = 1;
    a.volume = 2;
    CCandleDataPoint b;
    b = a;
    EXPECT_EQ(b.time, 5u);
    EXPECT_EQ(b.volume, 2.0f);
    CCandleDataPoint &same = b;
    b = same;
    EXPECT_EQ(b.open, 1.0f);
    EXPECT_EQ(CFractalDataPoint().flag, 0);
    EXPECT_EQ(CPlotDataPointVolume().volume, 0u);
    EXPECT_EQ(CDoublePlotDataPoint().value2, 0.0f);
}

} // namespace
