// Instrument series through the messages of a chart.
#include "host/pages/Page.h"
#include "quotes_desk.h"
#include <QColor>
#include <QElapsedTimer>

using namespace desk;

namespace {

const Period m5{'I', 5};

class Candles : public QuoteDesk {};

TEST_F(Candles, SameQuestionGetsTheSameObject) {
    give("EUR/USD", walk(100));
    const Handle first = instrument("EUR/USD", "Bid", m5);
    ASSERT_NE(first, 0u);
    EXPECT_EQ(instrument("EURUSD", "Bid", m5), first);
    EXPECT_NE(instrument("EUR/USD", "Ask", m5), first);
    EXPECT_NE(instrument("EUR/USD", "Bid", {'I', 10}), first);
    EXPECT_EQ(instrument("EUR/USD", "Bid", {'D', 0}), instrument("EUR/USD", "Bid", {'D', 1}));
}

TEST_F(Candles, WhatIsUnknownIsRefusedInASentence) {
    give("EUR/USD", walk(100));
    EXPECT_EQ(instrument("XYZ", "Bid", m5), 0u);
    EXPECT_EQ(instrument("EUR/USD", "Offer", m5), 0u);
    EXPECT_EQ(instrument("EUR/USD", "Bid", {'Q', 1}), 0u);
    EXPECT_EQ(instrument("EUR/USD", "Bid", {'I', -5}), 0u);
    EXPECT_EQ(front.sentences.size(), 4);
    EXPECT_TRUE(front.sentences.front().contains(QStringLiteral("XYZ")));
}

TEST_F(Candles, ACurrencyAloneIsItsPairWithTheDollar) {
    give("EUR/USD", walk(10));
    give("USD/CHF", walk(10, 2));
    give("EUR/GBP", walk(10, 3));
    EXPECT_EQ(instrument("EUR", "Bid", m5), instrument("EUR/USD", "Bid", m5));
    EXPECT_EQ(instrument("CHF", "Ask", m5), instrument("USD/CHF", "Ask", m5));
    EXPECT_EQ(front.sentences, QStringList());
    EXPECT_EQ(instrument("GBP", "Bid", m5), 0u) << "against the euro only";
    auto names = zeroRecord<coreDisplayNames>();
    fillField(names.symbol, QStringLiteral("CHF"));
    sendTo(candles->interfaceHandle(), ToHost::SymbolDisplayName, toWord(&names));
    EXPECT_EQ(fieldText(names.alias), QStringLiteral("USD/CHF"));
}

TEST_F(Candles, ArrayHoldsTheBarsInTheAgreedRecord) {
    const std::vector<Bar> bars = walk(300);
    give("EUR/USD", bars);
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    EXPECT_EQ(word(ToHost::OutputCount, handle), 1u);
    EXPECT_EQ(word(ToHost::SourceCount, handle, 1), 0u);
    const mvDataPointArray *array = arrays(handle)[0];
    EXPECT_EQ(fieldText(array->identity.m_szNameSymbol), QStringLiteral("EUR/USD"));
    EXPECT_EQ(fieldText(array->identity.m_szType), QStringLiteral("Bid"));
    EXPECT_EQ(+array->identity.m_periods.period, 'I');
    EXPECT_EQ(+array->identity.m_periods.lenPeriod, 5);
    EXPECT_EQ(Handle(toWord(array->owner)), handle);
    EXPECT_EQ(+array->typeShow.drawKind, 1u);
    EXPECT_EQ(+array->typeShow.penType, eCoreTypeShowPenSolid);
    EXPECT_EQ(+array->typeShow.weightPen, 1);
    EXPECT_EQ(+array->precision, 5);
    EXPECT_EQ(+array->recordSize, 24u);
    ASSERT_EQ(+array->fieldCount, 6);
    const char *const names[] = {"TIME", "OPEN", "HIGH", "LOW", "CLOSE", "VOLUME"};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(fieldText(array->fields[i].name), QString::fromLatin1(names[i]));
        EXPECT_EQ(+array->fields[i].type, i == 0 ? DPT_LONG : DPT_FLOAT);
    }
    const std::vector<Bar> held = points<Bar>(array);
    ASSERT_EQ(held.size(), bars.size());
    EXPECT_EQ(std::memcmp(held.data(), bars.data(), bars.size() * sizeof(Bar)), 0);
}

TEST_F(Candles, PricesOfOneSymbolShareAnAxis) {
    give("EUR/USD", walk(10));
    give("GBP/USD", walk(10, 2));
    const coreSystemCoord bid = arrays(instrument("EUR/USD", "Bid", m5))[0]->coord;
    const coreSystemCoord ask = arrays(instrument("EUR/USD", "Ask", m5))[0]->coord;
    const coreSystemCoord other = arrays(instrument("GBP/USD", "Bid", m5))[0]->coord;
    EXPECT_EQ(+bid.axis, +ask.axis);
    EXPECT_NE(+bid.axis, +other.axis);
    EXPECT_EQ(+bid.rank, 0u);
    EXPECT_EQ(+bid.axisPart, 0u);
}

TEST_F(Candles, NamesInThreeParts) {
    give("EUR/USD", walk(10));
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    auto names = zeroRecord<coreDisplayNames>();
    fillField(names.symbol, QStringLiteral("EUR/USD"));
    send(ToHost::DisplayNames, int(handle), toWord(&names));
    EXPECT_EQ(fieldText(names.name), QStringLiteral("EUR"));
    EXPECT_EQ(fieldText(names.suffix), QStringLiteral("USD"));
    EXPECT_EQ(fieldText(names.alias), QStringLiteral("EUR/USD"));
    auto transport = zeroRecord<coreDisplayNames>();
    fillField(transport.symbol, QStringLiteral("EURUSD"));
    sendTo(candles->interfaceHandle(), ToHost::SymbolDisplayName, toWord(&transport));
    EXPECT_EQ(fieldText(transport.alias), QStringLiteral("EUR/USD"));
    auto unknown = zeroRecord<coreDisplayNames>();
    fillField(unknown.symbol, QStringLiteral("XYZ"));
    sendTo(candles->interfaceHandle(), ToHost::SymbolDisplayName, toWord(&unknown));
    EXPECT_EQ(fieldText(unknown.alias), QString());
}

TEST_F(Candles, QuoteMovesTheLastBarAndThenAppends) {
    const std::vector<Bar> bars = walk(50);
    give("EUR/USD", bars);
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    subscribe(handle);
    subscribe(handle, 0x7002);
    const qint32 last = bars.back().time;
    ASSERT_TRUE(quote("EUR/USD", last + 60, 1.5f));
    EXPECT_EQ(+arrays(handle)[0]->count, 50);
    Bar bar = points<Bar>(arrays(handle)[0]).back();
    EXPECT_EQ(bar.high, 1.5f);
    EXPECT_EQ(bar.close, 1.5f);
    EXPECT_EQ(bar.open, bars.back().open);
    ASSERT_TRUE(quote("EUR/USD", last + 301, 1.1f));
    EXPECT_EQ(+arrays(handle)[0]->count, 51);
    bar = points<Bar>(arrays(handle)[0]).back();
    EXPECT_EQ(bar.time, last + 300);
    EXPECT_EQ(bar.open, 1.1f);
    ASSERT_EQ(told.size(), 4u) << "one message a window and quote";
    for (const Update &update : told) {
        EXPECT_EQ(update.message, unsigned(ToModule::UpdateData));
        EXPECT_EQ(update.object, handle);
        EXPECT_EQ(update.kind, 0);
        EXPECT_EQ(update.name, "EUR/USD");
    }
    subscribe(handle, window, false);
    told.clear();
    quote("EUR/USD", last + 302, 1.1f);
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(Candles, HeaderStaysWhileDataGrow) {
    give("EUR/USD", walk(10));
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    const mvDataPointArray *array = arrays(handle)[0];
    qint32 time = points<Bar>(array).back().time;
    for (int i = 0; i < 5000; ++i)
        quote("EUR/USD", time += 300, 1.3f);
    EXPECT_EQ(arrays(handle)[0], array);
    EXPECT_GT(+array->count, 3000);
}

TEST_F(Candles, PeriodAndTypeChangeUnderTheSameHandle) {
    give("EUR/USD", walk(3000));
    give("EUR/USD", walk(3000), m5, Side::Ask);
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    subscribe(handle);
    mvDataPointArray *array = arrays(handle)[0];
    coreNameInstrument wanted = array->identity;
    wanted.m_periods = {'I', 60, 0};
    send(ToHost::ChangeArray, int(handle), toWord(&wanted));
    EXPECT_EQ(arrays(handle)[0], array);
    EXPECT_EQ(+array->identity.m_periods.lenPeriod, 60);
    EXPECT_EQ(+array->count, 250);
    auto asked = zeroRecord<namePeriod>();
    send(ToHost::SourcePeriod, int(handle), toWord(&asked));
    EXPECT_EQ(+asked.lenPeriod, 60);
    wanted = array->identity;
    fillField(wanted.m_szType, "Middle");
    wanted.m_periods = {'D', 0, 0};
    send(ToHost::ChangeArray, int(handle), toWord(&wanted));
    EXPECT_EQ(fieldText(array->identity.m_szType), QStringLiteral("Middle"));
    EXPECT_EQ(+array->identity.m_periods.lenPeriod, 1) << "a day has length 1";
    const std::vector<Update> updates = updatesOf(handle);
    ASSERT_EQ(updates.size(), 2u);
    EXPECT_EQ(updates[0].kind, 1);
    EXPECT_EQ(updates[1].kind, 1);
    wanted.m_periods = {'X', 1, 0};
    EXPECT_EQ(send(ToHost::ChangeArray, int(handle), toWord(&wanted)), 1);
    EXPECT_EQ(+array->identity.m_periods.period, 'D');
}

TEST_F(Candles, TickSeriesHasValues) {
    give("EUR/USD", walk(10));
    qint32 time = walk(10).back().time;
    for (int i = 0; i < 20; ++i)
        quote("EUR/USD", time + i, 1.3f + float(i) * 0.001f);
    const Handle handle = instrument("EUR/USD", "Ask", {'I', 0});
    mvDataPointArray *array = arrays(handle)[0];
    EXPECT_EQ(+array->recordSize, 12u);
    EXPECT_EQ(fieldText(array->fields[1].name), QStringLiteral("VALUE"));
    std::vector<corePointTick> ticks = points<corePointTick>(array);
    ASSERT_EQ(ticks.size(), 20u);
    EXPECT_EQ(ticks[3].value, 1.3f + 3 * 0.001f + 0.0002f);
    quote("EUR/USD", time + 20, 1.4f);
    EXPECT_EQ(+array->count, 21);
    // Back to bars under the same header.
    coreNameInstrument wanted = array->identity;
    wanted.m_periods = {'I', 5, 0};
    send(ToHost::ChangeArray, int(handle), toWord(&wanted));
    EXPECT_EQ(+array->recordSize, 24u);
    EXPECT_EQ(+array->fieldCount, 6);
}

TEST_F(Candles, OlderHistoryComesOnRequest) {
    give("EUR/USD", walk(12000));
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    subscribe(handle);
    const mvDataPointArray *array = arrays(handle)[0];
    EXPECT_EQ(+array->count, 5000);
    const qint32 first = points<Bar>(array).front().time;
    const Bar last = points<Bar>(array).back();
    sendTo(candles->interfaceHandle(), ToHost::OlderData, int(handle), 3 * 86400);
    EXPECT_LE(points<Bar>(array).front().time, first - 3 * 86400);
    EXPECT_EQ(points<Bar>(array).back().time, last.time);
    ASSERT_EQ(updatesOf(handle).size(), 1u);
    EXPECT_EQ(updatesOf(handle)[0].kind, 1);
    for (int i = 0; i < 40; ++i)
        sendTo(candles->interfaceHandle(), ToHost::OlderData, int(handle), 0);
    EXPECT_EQ(+array->count, 12000);
    EXPECT_TRUE(front.sentences.last().contains(QStringLiteral("no older quotes")));
    EXPECT_EQ(sendTo(candles->interfaceHandle(), ToHost::OlderData, 12345, 100), 1);
}

TEST_F(Candles, ReloadTellsAllIsNew) {
    give("EUR/USD", walk(100));
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    subscribe(handle);
    send(ToHost::ReloadArray, int(handle), 4);
    ASSERT_EQ(updatesOf(handle).size(), 1u);
    EXPECT_EQ(updatesOf(handle)[0].kind, 1);
    EXPECT_EQ(+arrays(handle)[0]->count, 100);
}

TEST_F(Candles, NullRecordsAreNoCrash) {
    give("EUR/USD", walk(100));
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    send(ToHost::OutputArrays, int(handle), 0);
    send(ToHost::OutputCount, int(handle), 0);
    send(ToHost::SourceCount, int(handle), 0);
    send(ToHost::ChangeArray, int(handle), 0);
    sendTo(candles->interfaceHandle(), ToHost::SymbolDisplayName, 0);
    coreListCreateData list{0, nullptr};
    send(ToHost::OutputArrays, int(handle), toWord(&list));
    EXPECT_EQ(+list.count, 1);
    list.count = -3;
    send(ToHost::OutputArrays, int(handle), toWord(&list));
    EXPECT_EQ(+list.count, 1);
}

TEST_F(Candles, FinerSeriesThanTheHistoryBeginsWithTheNextQuote) {
    give("EUR/USD", walk(100), {'I', 60});
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    ASSERT_NE(handle, 0u);
    EXPECT_EQ(+arrays(handle)[0]->count, 0);
    EXPECT_TRUE(front.sentences.last().contains(QStringLiteral("no quotes finer than 1 hour")));
    quote("EUR/USD", walk(100).back().time + 3600, 1.3f);
    EXPECT_EQ(+arrays(handle)[0]->count, 1);
}

TEST_F(Candles, PageChangesTheLookOnly) {
    give("EUR/USD", walk(100));
    const Handle handle = instrument("EUR/USD", "Bid", m5);
    subscribe(handle);
    std::unique_ptr<Page> page = object(handle)->page();
    ASSERT_TRUE(page);
    page->find(1, 1)->value = QColor(1, 2, 3);
    page->find(1, 3)->value = 1; // bars
    page->find(1, 4)->value = 3;
    EXPECT_EQ(object(handle)->applyPage(*page), QString());
    const coreTypeShow &show = arrays(handle)[0]->typeShow;
    EXPECT_EQ(+show.firstColor, QColor(1, 2, 3).rgb());
    EXPECT_EQ(+show.drawKind, 2u);
    EXPECT_EQ(+show.weightPen, 3);
    ASSERT_EQ(updatesOf(handle).size(), 1u);
    EXPECT_EQ(updatesOf(handle)[0].kind, 2);
    page->find(1, 4)->value = 99;
    EXPECT_FALSE(object(handle)->applyPage(*page).isEmpty());
    EXPECT_FALSE(object(handle)->applyPage(Page()).isEmpty());
    EXPECT_EQ(+show.weightPen, 3);
}

// A quote on a long series costs what it costs on a short one.
TEST_F(Candles, QuoteCostsTheSameOnALongSeries) {
    const auto nanoseconds = [this](const char *symbol, int count) {
        const std::vector<Bar> bars = walk(count);
        give(symbol, bars);
        const Handle handle = instrument(symbol, "Bid", m5);
        for (int loaded = 0; arrays(handle)[0]->count < count && loaded < 10; ++loaded)
            sendTo(candles->interfaceHandle(), ToHost::OlderData, int(handle), 2000000000);
        EXPECT_EQ(+arrays(handle)[0]->count, count);
        subscribe(handle);
        std::vector<qint64> rounds;
        for (int i = 0; i < 200; ++i) {
            QElapsedTimer clock;
            clock.start();
            quote(symbol, bars.back().time + i, 1.3f);
            rounds.push_back(clock.nsecsElapsed());
        }
        std::nth_element(rounds.begin(), rounds.begin() + 100, rounds.end());
        return rounds[100];
    };
    const qint64 shortSeries = nanoseconds("EUR/USD", 1000);
    const qint64 longSeries = nanoseconds("GBP/USD", 300000);
    EXPECT_LT(longSeries, shortSeries * 5 + 20000);
}

} // namespace
