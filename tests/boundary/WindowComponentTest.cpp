// The window component family: a chart window as the host creates, fills, asks and deletes it.
#include "tests/support/FakeHost.h"

#include <QScrollBar>
#include <QSlider>
#include <gtest/gtest.h>

namespace {

bool logged(const FakeHost &host, const QString &text) {
    for (const LogLine &line : host.log) {
        if (line.text == text)
            return true;
    }
    return false;
}

TEST(CreateWindow, GivesAVisibleChartInTheParent) {
    FakeHost host;
    host.log.clear();
    Chart chart = host.createBareChart(QSize(640, 480));
    ASSERT_TRUE(chart.widget);
    EXPECT_TRUE(logged(host, "creating window component|GraphModule|1380"));
    EXPECT_STREQ(chart.widget->metaObject()->className(), "CRGraphWidget");
    EXPECT_EQ(chart.widget->parentWidget(), chart.frame);
    EXPECT_TRUE(chart.widget->isVisible());
}

TEST(CreateWindow, UnknownWindowIdsGiveATopLevelChart) {
    FakeHost host;
    bytes::Record data(16);
    bytes::put<Word>(data.data(), 0, 0x7FFFFFF1);
    bytes::put<Word>(data.data(), 4, 0x7FFFFFF2);
    EXPECT_EQ(host.send(5003u, data.data()), 0);
    const Word handle = bytes::u32(data.data(), 8);
    ASSERT_NE(handle, 0u);
    EXPECT_EQ(reinterpret_cast<QWidget *>(handle)->parentWidget(), nullptr);
    EXPECT_EQ(host.send(5004u, static_cast<int>(handle)), 0);
}

TEST(DeleteWindow, TellsTheHostFirst) {
    FakeHost host;
    Chart chart = host.createChart();
    bool alive = false;
    host.answer(3150, [&](void *, int, int) {
        alive = !chart.widget.isNull();
        return 0;
    });
    host.clearTraffic();
    host.log.clear();
    EXPECT_EQ(host.send(5004u, chart.handle), 0);
    EXPECT_TRUE(alive);
    EXPECT_FALSE(chart.widget);
    EXPECT_TRUE(logged(host, "deleting window component|GraphModule|1431"));
    ASSERT_EQ(host.count(3150), 1);
    const Call call = host.callsOf(3150).front();
    EXPECT_EQ(bytes::u32(call.wRecord.constData(), 0), host.moduleInterface());
    EXPECT_EQ(bytes::u32(call.wRecord.constData(), 4), static_cast<Word>(toWord(chart.handle)));
    EXPECT_EQ(host.send(5004u, chart.handle), 1);
}

TEST(DeleteWindow, FromWithinItsOwnFarewell) {
    FakeHost host;
    Chart chart = host.createChart();
    bool again = true;
    host.answer(3150, [&](void *, int, int) {
        if (again) {
            again = false;
            host.send(5004u, chart.handle);
        }
        return 0;
    });
    EXPECT_EQ(host.send(5004u, chart.handle), 0);
    EXPECT_FALSE(chart.widget);
}

TEST(Resize, TakesTheSizeOfTheParentsParent) {
    FakeHost host;
    Chart chart = host.createBareChart(QSize(640, 480));
    chart.outer->resize(777, 555);
    EXPECT_EQ(host.send(5005u, chart.handle), 0);
    EXPECT_EQ(chart.widget->size(), QSize(777, 555));
}

TEST(Resize, WithoutAParentsParentChangesNothing) {
    FakeHost host;
    QWidget parent;
    parent.resize(300, 200);
    for (const Word id : {Word(0), static_cast<Word>(parent.winId())}) {
        bytes::Record data(16);
        bytes::put<Word>(data.data(), 0, id);
        ASSERT_EQ(host.send(5003u, data.data()), 0);
        auto *chart = fromWord<QWidget>(bytes::u32(data.data(), 8));
        chart->resize(210, 140);
        EXPECT_EQ(host.send(5005u, static_cast<const void *>(chart)), 0);
        EXPECT_EQ(chart->size(), QSize(210, 140));
        EXPECT_EQ(host.send(5004u, static_cast<const void *>(chart)), 0);
    }
}

TEST(Show, LogsAndRepaints) {
    FakeHost host;
    Chart chart = host.createChart();
    host.log.clear();
    EXPECT_EQ(host.send(5011u, chart.handle), 0);
    EXPECT_TRUE(logged(host, "update|GraphModule|1456"));
}

TEST(TakeFocus, ShowsThePageAsNewThenAsKnown) {
    FakeHost host;
    Chart chart = host.createBareChart();
    host.clearTraffic();
    EXPECT_EQ(host.send(5009u, chart.handle), 0);
    EXPECT_EQ(host.count(10057), 1);
    EXPECT_EQ(host.count(10051), 1);
    EXPECT_EQ(host.count(10052), 0);
    host.clearTraffic();
    host.send(5009u, chart.handle);
    EXPECT_EQ(host.count(10057), 1);
    EXPECT_EQ(host.count(10051), 0);
    EXPECT_EQ(host.count(10052), 1);
}

TEST(AddInstruments, AsksTheProviderThenCreates) {
    FakeHost host;
    Chart chart = host.createChart();
    host.clearTraffic();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    std::vector<unsigned> order;
    for (const Call &call : host.calls()) {
        for (const unsigned wanted : {3012u, 4023u, 3008u, 3042u, 3135u, 3013u}) {
            if (call.toHost && call.message == wanted &&
                std::find(order.begin(), order.end(), wanted) == order.end())
                order.push_back(wanted);
        }
    }
    EXPECT_EQ(order, (std::vector<unsigned>{3012, 4023, 3008, 3042, 3135, 3013}));
    const char *create = host.callsOf(3008).front().wRecord.constData();
    EXPECT_EQ(bytes::text16(create, 4, 255), "EURUSD");
    EXPECT_EQ(bytes::text8(create, 4 + 510, 255), "Bid");
    EXPECT_EQ(bytes::u8(create, 4 + 765), 'I');
    EXPECT_EQ(bytes::i32(create, 4 + 766), 60);
    EXPECT_EQ(bytes::u32(create, 778), 0u);
    const Call subscription = host.callsOf(3013).front();
    EXPECT_EQ(static_cast<Word>(subscription.wParam), euro->handle);
    EXPECT_EQ(bytes::u32(subscription.lRecord.constData(), 0), host.moduleInterface());
    EXPECT_EQ(bytes::u32(subscription.lRecord.constData(), 4), static_cast<Word>(toWord(chart.handle)));
}

TEST(AddInstruments, AnEmptyListStillTellsTheDesktop) {
    FakeHost host;
    Chart chart = host.createChart();
    host.clearTraffic();
    host.milestones.clear();
    mvwcDpaList list{0, nullptr};
    EXPECT_EQ(host.send(5007u, chart.handle, &list), 0);
    EXPECT_EQ(host.count(3012), 0);
    EXPECT_TRUE(host.milestones.contains(""));
}

TEST(AddInstruments, RefusalsAreNotTheResult) {
    FakeHost host;
    Chart chart = host.createChart();
    host.troubleMessage(3008);
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    item.handle = fromWord<void>(host.interfaceOf("CANDLE"));
    item.instrument = makeName("EURUSD", "Bid", makePeriod('I', 60));
    mvwcDpaList list{1, &item};
    EXPECT_EQ(host.send(5007u, chart.handle, &list), 0);
    EXPECT_EQ(host.count(3013), 0);
}

TEST(AddInstruments, TheShortAnswerOf3012IsTheProvider) {
    FakeHost host;
    Chart chart = host.createChart();
    host.answer(3012, [](void *, int, int lParam) {
        bytes::putText8(fromWord<void>(lParam), 0, 255, "VELMAR");
        return 0;
    });
    host.clearTraffic();
    EXPECT_TRUE(host.addInstrument(chart, "EURUSD"));
    bool asked = false;
    for (const Call &call : host.callsOf(3001))
        asked |= bytes::text8(call.wRecord.constData(), 0, 255) == "CANDLE" &&
                 bytes::text8(call.wRecord.constData(), 255, 255) == "VELMAR" &&
                 bytes::text8(call.wRecord.constData(), 510, 255).isEmpty();
    EXPECT_TRUE(asked);
}

TEST(AddIndicators, WithoutASeriesNothingIsAdded) {
    FakeHost host;
    Chart chart = host.createChart();
    mvwcDpaItem items[3];
    for (mvwcDpaItem &item : items) {
        item = zeroRecord<mvwcDpaItem>();
        item.handle = fromWord<void>(host.interfaceOf("MVINDICATORS"));
        fillField(item.instrument.m_szNameSymbol, QString("MA"));
    }
    mvwcDpaList list{3, items};
    host.clearTraffic();
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 0);
    EXPECT_EQ(host.count(6502), 1);
    EXPECT_EQ(host.count(3008), 0);
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

TEST(AddIndicators, OneSeriesIsTheSource) {
    FakeHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    host.clearTraffic();
    EXPECT_EQ(host.addIndicator(chart, "MA"), 0);
    ASSERT_EQ(host.count(3008), 1);
    EXPECT_EQ(bytes::u32(host.callsOf(3008).front().wRecord.constData(), 0),
              host.interfaceOf("MVINDICATORS"));
    FakeObject *average = host.lastObject();
    ASSERT_EQ(average->sources.size(), 1u);
    EXPECT_EQ(average->sources.front(), euro->array().header());
    const Call question = host.callsOf(6502).front();
    EXPECT_EQ(bytes::text16(question.wRecord.constData(), 0, 255), "MA");
    EXPECT_EQ(bytes::u32(question.lRecord.constData(), 0), 1u);
}

TEST(AddIndicators, NoSourceNeededAddsAtOnce) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    EXPECT_EQ(host.addIndicator(chart, "CHF+EUR"), 0);
    EXPECT_EQ(host.count(3008), 1);
    EXPECT_EQ(host.count(3046), 0);
}

TEST(AddIndicators, ATemplateOnAnEmptyChartIsRefused) {
    FakeHost host;
    Chart chart = host.createChart();
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    bytes::put<Word>(&item, 1288, 5);
    bytes::putText16(&item, 4, 255, "mine");
    mvwcDpaList list{1, &item};
    host.log.clear();
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 1);
    const QString text = "There must be at least one instrument or indicator to apply template to it";
    EXPECT_EQ(host.dialogTexts, QStringList("Warning|" + text));
    bool found = false;
    for (const LogLine &line : host.log)
        found |= line.text == text && line.type == 0 && line.level == 3;
    EXPECT_TRUE(found);
}

TEST(AddIndicators, AMissingTemplateIsRefused) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    bytes::put<Word>(&item, 1288, 5);
    bytes::putText16(&item, 514, 255, "/nowhere/mine.tpl");
    mvwcDpaList list{1, &item};
    host.log.clear();
    EXPECT_EQ(host.send(5006u, chart.handle, &list), 1);
    EXPECT_EQ(host.dialogTexts, QStringList("Error|File /nowhere/mine.tpl not found"));
    bool found = false;
    for (const LogLine &line : host.log)
        found |= line.text == "Error" && line.type == 0 && line.level == 3;
    EXPECT_TRUE(found);
}

TEST(SelectObject, ClearsTheResultByte) {
    FakeHost host;
    Chart chart = host.createChart();
    bytes::Record record(9);
    bytes::put<unsigned char>(record.data(), 8, 1);
    EXPECT_EQ(host.send(5024u, chart.handle, record.data()), 0);
    EXPECT_EQ(bytes::u8(record.data(), 8), 0);
}

TEST(SelectObject, AnUnknownWindowHasNoStudy) {
    FakeHost host;
    bytes::Record record(9);
    bytes::put<unsigned char>(record.data(), 8, 1);
    EXPECT_EQ(host.send(5024u, 0x1234, record.data()), 0);
    EXPECT_EQ(bytes::u8(record.data(), 8), 0);
}

TEST(OwnerOfObject, IsTheFirstWindowOfSeveral) {
    FakeHost host;
    bytes::Record record(16);
    bytes::put<Word>(record.data(), 0, 0x5A5A5A5A);
    EXPECT_EQ(host.send(5025u, record.data()), 1); // no window at all
    const Chart first = host.createChart();
    const Chart second = host.createChart();
    FakeObject *euro = host.addInstrument(first, "EURUSD");
    ASSERT_EQ(host.addInstrument(second, "EURUSD"), euro);
    for (const void *object :
         {fromWord<const void>(euro->handle), static_cast<const void *>(euro->array().header())}) {
        bytes::put<const void *>(record.data(), 4, object);
        EXPECT_EQ(host.send(5025u, record.data()), 0);
        EXPECT_EQ(bytes::u32(record.data(), 12), static_cast<Word>(toWord(first.handle)));
    }
    bytes::put<Word>(record.data(), 4, 0);
    EXPECT_EQ(host.send(5025u, record.data()), 1);
    EXPECT_EQ(bytes::u32(record.data(), 0), 0x5A5A5A5Au);
}

TEST(OwnerOfObject, IsTheWindowThatHoldsIt) {
    FakeHost host;
    Chart first = host.createChart();
    Chart second = host.createChart();
    host.addInstrument(first, "EURUSD");
    FakeObject *pound = host.addInstrument(second, "GBPUSD");
    ASSERT_TRUE(pound);
    const auto ask = [&](Word object, Word *widget) {
        bytes::Record record(16);
        bytes::put<Word>(record.data(), 4, object);
        const int result = host.send(5025u, record.data());
        EXPECT_EQ(bytes::u32(record.data(), 8), result == 0 ? host.moduleInterface() : 0);
        *widget = bytes::u32(record.data(), 12);
        return result;
    };
    Word widget = 0;
    EXPECT_EQ(ask(pound->handle, &widget), 0);
    EXPECT_EQ(widget, static_cast<Word>(toWord(second.handle)));
    EXPECT_EQ(ask(static_cast<Word>(toWord(first.handle)), &widget), 0);
    EXPECT_EQ(widget, static_cast<Word>(toWord(first.handle)));
    EXPECT_EQ(ask(0x12345, &widget), 1);
}

TEST(Names, EightBitNameAndIcon) {
    FakeHost host;
    std::vector<char> icon(64 * 1024, 0x55);
    bytes::Record record(512);
    bytes::put<char>(record.data(), 500, 'x');
    bytes::put<void *>(record.data(), 504, icon.data());
    EXPECT_EQ(host.send(5001u, record.data()), 0);
    EXPECT_EQ(bytes::text8(record.data(), 0, 500), "Chart window");
    EXPECT_EQ(bytes::u8(record.data(), 500), 0);
    const Word size = bytes::u32(record.data(), 508);
    ASSERT_GT(size, 8u);
    EXPECT_EQ(QByteArray(icon.data() + 1, 3), "PNG");
    EXPECT_TRUE(QImage::fromData(reinterpret_cast<uchar *>(icon.data()), static_cast<int>(size)).width() > 0);
    EXPECT_EQ(icon[size], 0x55);
}

TEST(Names, SixteenBitNameAndIcon) {
    FakeHost host;
    std::vector<char> icon(64 * 1024, 0x55);
    bytes::Record record(1012);
    bytes::put<Word>(record.data(), 1000, 9);
    bytes::put<void *>(record.data(), 1004, icon.data());
    bytes::put<int>(record.data(), 1008, static_cast<int>(icon.size()));
    EXPECT_EQ(host.send(5022u, record.data()), 0);
    EXPECT_EQ(bytes::text16(record.data(), 0, 500), "Chart window");
    EXPECT_EQ(bytes::u32(record.data(), 1000), 0u);
    const int size = bytes::i32(record.data(), 1008);
    EXPECT_EQ(QByteArray(icon.data() + 1, 3), "PNG");
    EXPECT_LT(size, static_cast<int>(icon.size()));

    std::vector<char> small(static_cast<std::size_t>(size - 1), 0x55);
    bytes::Record again(1012);
    bytes::put<void *>(again.data(), 1004, small.data());
    bytes::put<int>(again.data(), 1008, size - 1);
    EXPECT_EQ(host.send(5022u, again.data()), 0);
    EXPECT_EQ(bytes::text16(again.data(), 0, 500), "Chart window");
    EXPECT_EQ(bytes::i32(again.data(), 1008), size - 1);
    EXPECT_EQ(small[0], 0x55);
}

TEST(Names, AreCutToTheirFields) {
    FakeHost host;
    host.translations["G0019"] = QString(600, 'n');
    bytes::Record narrow(512);
    std::vector<char> icon(64 * 1024);
    bytes::put<Word>(narrow.data(), 500, 0x5A5A5A5A);
    bytes::put<void *>(narrow.data(), 504, icon.data());
    EXPECT_EQ(host.send(5001u, narrow.data()), 0);
    EXPECT_EQ(bytes::text8(narrow.data(), 0, 512), QString(500, 'n'));
    EXPECT_EQ(bytes::u32(narrow.data(), 500), 0x5A5A5A00u); // the zero is one byte
    bytes::Record wide(1012);
    EXPECT_EQ(host.send(5022u, wide.data()), 0);
    EXPECT_EQ(bytes::text16(wide.data(), 0, 506), QString(500, 'n'));
}

TEST(Names, AnIconThatJustFitsIsCopied) {
    FakeHost host;
    bytes::Record narrow(512);
    std::vector<char> icon(64 * 1024);
    bytes::put<void *>(narrow.data(), 504, icon.data());
    host.send(5001u, narrow.data());
    const int size = bytes::i32(narrow.data(), 508);
    std::vector<char> room(static_cast<std::size_t>(size), 0x55);
    bytes::Record wide(1012);
    bytes::put<void *>(wide.data(), 1004, room.data());
    bytes::put<int>(wide.data(), 1008, size);
    EXPECT_EQ(host.send(5022u, wide.data()), 0);
    EXPECT_EQ(bytes::i32(wide.data(), 1008), size);
    EXPECT_EQ(std::memcmp(room.data(), icon.data(), room.size()), 0);
}

TEST(Names, DataMessageDoesNothing) {
    FakeHost host;
    host.clearTraffic();
    EXPECT_EQ(host.send(5023u), 0);
    EXPECT_EQ(host.hostCalls(), 0);
}

TEST(Caption, IsCopiedWithItsTerminator) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    const QString caption = host.caption(chart);
    EXPECT_FALSE(caption.isEmpty());
    EXPECT_EQ(host.captions.last(), caption);
    bytes::Record window(8);
    bytes::put<Word>(window.data(), 4, 0x1234);
    bytes::Record text(512);
    EXPECT_EQ(host.send(5034u, window.data(), text.data()), 1);
}

TEST(PanelState, UnknownWindowIsLogged) {
    FakeHost host;
    bytes::Record window(8);
    bytes::put<Word>(window.data(), 4, 0x1234);
    int state[2] = {1, 2};
    host.log.clear();
    EXPECT_EQ(host.send(3518u, window.data(), state), 1);
    ASSERT_FALSE(host.log.empty());
    EXPECT_EQ(host.log.back().text, "MWI_SET_PANEL_STATE: wParam is not a GraphWidget|GraphModule|1751");
    EXPECT_EQ(host.log.back().level, 4u);
}

TEST(PanelState, SetsThePeriodOfTheInstrument) {
    FakeHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    bytes::Record window(8);
    bytes::put<Word>(window.data(), 4, static_cast<Word>(toWord(chart.handle)));
    EXPECT_EQ(host.send(3518u, window.data(), 0), 1);
    int state[2] = {1, 5};
    host.clearTraffic();
    EXPECT_EQ(host.send(3518u, window.data(), state), 0);
    ASSERT_EQ(host.count(3130), 1);
    const Call call = host.callsOf(3130).front();
    EXPECT_EQ(static_cast<Word>(call.wParam), euro->handle);
    EXPECT_EQ(bytes::u8(call.lRecord.constData(), 765), 'D');
    EXPECT_EQ(bytes::i32(call.lRecord.constData(), 766), 1);
    int reload[2] = {0, 3};
    host.clearTraffic();
    EXPECT_EQ(host.send(3518u, window.data(), reload), 0);
    EXPECT_EQ(host.count(3131), 1);
}

TEST(PriceType, ConvertsEveryInstrumentOfEveryWindow) {
    FakeHost host;
    Chart first = host.createChart();
    Chart second = host.createChart();
    host.addInstrument(first, "EURUSD");
    host.addInstrument(second, "GBPUSD");
    const char *types[] = {"Middle", "Bid", "Ask"};
    for (int type : {2, 0, 1}) {
        host.clearTraffic();
        EXPECT_EQ(host.send(3545u, type), 0);
        const std::vector<Call> calls = host.callsOf(3130);
        ASSERT_EQ(calls.size(), 2u) << type;
        for (const Call &call : calls)
            EXPECT_EQ(bytes::text8(call.lRecord.constData(), 510, 255), types[type]);
    }
}

TEST(PriceType, NeedToConvertAppendsOnePair) {
    FakeHost host;
    const auto ask = [&] {
        bytes::Record list(4 + 8 * 2);
        bytes::put<Word>(list.data(), 0, 1); // one answer of another module stands in the list
        bytes::put<Word>(list.data(), 4, 8);
        bytes::put<Word>(list.data(), 8, 9);
        EXPECT_EQ(host.send(3546u, list.data()), 0);
        EXPECT_EQ(bytes::u32(list.data(), 0), 2u);
        EXPECT_EQ(bytes::u32(list.data(), 4), 8u);
        EXPECT_EQ(bytes::u32(list.data(), 8), 9u);
        return std::make_pair(bytes::u32(list.data(), 12), bytes::u32(list.data(), 16));
    };
    using Pair = std::pair<Word, Word>;
    EXPECT_EQ(ask(), Pair(0, 3));
    Chart chart = host.createChart();
    EXPECT_EQ(ask(), Pair(0, 3));
    host.addInstrument(chart, "EURUSD", 'I', 60, "Bid");
    EXPECT_EQ(ask(), Pair(1, 0));
    host.send(3545u, 0);
    EXPECT_EQ(ask(), Pair(1, 1));
}

TEST(Zoom, ActsOnTheCurrentWindowOnly) {
    FakeHost host;
    Chart chart = host.createBareChart();
    host.send(5005u, chart.handle);
    host.addInstrument(chart, "EURUSD");
    host.tick();
    const auto *bar = qobject_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar"));
    ASSERT_TRUE(bar);
    const int before = bar->pageStep();
    EXPECT_EQ(host.send(3550u, 0), 0);
    EXPECT_EQ(bar->pageStep(), before); // no window has the focus yet
    host.send(5009u, chart.handle);
    EXPECT_EQ(host.send(3550u, 1), 0);
    EXPECT_EQ(host.send(3551u, 1), 0);
    EXPECT_EQ(host.send(3552u, 3, -20), 0);
    EXPECT_EQ(bar->pageStep(), before);
    EXPECT_EQ(host.send(3550u, 0), 0);
    EXPECT_LT(bar->pageStep(), before);
    EXPECT_EQ(host.slider->value(), -bar->pageStep());
    EXPECT_EQ(host.send(3551u, 0), 0);
    EXPECT_EQ(host.slider->value(), -bar->pageStep());
}

TEST(Zoom, SliderValueIsMinusTheNumberOfPositions) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.tick();
    const auto *bar = qobject_cast<QScrollBar *>(childOfClass(chart.widget, "CTimeScrollBar"));
    ASSERT_TRUE(bar);
    EXPECT_EQ(host.send(3552u, 8, -40), 0);
    host.slider->setValue(-40);
    EXPECT_EQ(bar->pageStep(), 40);
    EXPECT_EQ(host.send(3552u, 0, -55), 0);
    EXPECT_EQ(bar->pageStep(), 55);
}

TEST(CrossCursor, MessageOtherThanOneIsIgnored) {
    FakeHost host;
    Word mode = 1;
    host.clearTraffic();
    EXPECT_EQ(host.send(3555u, 0, &mode), 0);
    EXPECT_EQ(host.send(3555u, 1, &mode), 0);
    EXPECT_EQ(host.send(3555u, 1, 0), 0);
    EXPECT_EQ(host.hostCalls(), 0);
}

TEST(PageChanged, RefusesOwnersThatAreNotThere) {
    FakeHost host;
    Chart chart = host.createChart();
    bytes::Record change(12);
    EXPECT_EQ(host.send(10054u, change.data()), 1);
    bytes::put<Word>(change.data(), 4, 0x1234);
    EXPECT_EQ(host.send(10054u, change.data()), 1);
    const Word gone = static_cast<Word>(toWord(chart.handle));
    host.deleteChart(chart);
    bytes::put<Word>(change.data(), 4, gone);
    EXPECT_EQ(host.send(10054u, change.data()), 1);
}

TEST(PageChanged, ThePageOfTheTradeModuleIsTaken) {
    FakeHost host;
    bytes::Record change(12);
    bytes::put<void *>(change.data(), 4, host.subscriberOf("DealingEvent"));
    EXPECT_EQ(host.send(10054u, change.data()), 0);
    bytes::put<void *>(change.data(), 4, host.moduleObject);
    EXPECT_EQ(host.send(10054u, change.data()), 1);
}

TEST(PageChanged, AClosingPageOfAWindowIsTaken) {
    FakeHost host;
    Chart chart = host.createChart();
    bytes::Record change(12);
    bytes::put<Word>(change.data(), 0, host.moduleInterface());
    bytes::put<Word>(change.data(), 4, static_cast<Word>(toWord(chart.handle)));
    EXPECT_EQ(host.send(10054u, change.data()), 0);
}

TEST(Rename, AsksTheNamesAgain) {
    FakeHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    euro->alias = "Euro";
    bytes::Record record(778);
    bytes::put<Word>(record.data(), 0, euro->handle);
    std::memcpy(record.data() + 4, &euro->name, 774);
    host.clearTraffic();
    host.log.clear();
    EXPECT_EQ(host.send(3130u, chart.handle, record.data()), 0);
    EXPECT_GE(host.count(3135), 1);
    EXPECT_TRUE(logged(host, "CRGraphModule::CoreRenameDpa start|GraphModule|1127"));
    EXPECT_TRUE(logged(host, "CRGraphModule::CoreRenameDpa finish|GraphModule|1133"));
}

TEST(Rebuild, LogsItsStartAndFinish) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.addIndicator(chart, "Bollinger");
    FakeObject *bands = host.lastObject();
    mvDataPointArray *arrays[] = {bands->array(0).header(), bands->array(1).header()};
    bytes::Record record(16);
    bytes::put<Word>(record.data(), 0, bands->handle);
    bytes::put<int>(record.data(), 8, 2);
    bytes::put<void *>(record.data(), 12, arrays);
    host.log.clear();
    EXPECT_EQ(host.send(3076u, chart.handle, record.data()), 0);
    EXPECT_TRUE(logged(host, "CRGraphModule::CoreRebuildDpa start|GraphModule|1114"));
    EXPECT_TRUE(logged(host, "CRGraphModule::CoreRebuildDpa finish|GraphModule|1121"));
}

} // namespace
