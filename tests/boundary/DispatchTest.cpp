// The message table: who answers, who does not, and what a failure looks like from outside.
#include "tests/support/FakeHost.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

// Messages whose work is not built yet; they are answered like unknown ones.
const unsigned silent[] = {3020, 3021, 3073, 3140, 3184, 3185, 3521, 5012,
                           5014, 5026, 5027, 5028, 5029, 5030, 5031, 5032};

TEST(Dispatch, UnknownMessagesDoNothing) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    host.log.clear();
    for (const unsigned message : {0u, 1u, 3000u, 3003u, 3299u, 4999u, 6000u, 99999u})
        EXPECT_EQ(host.send(message, chart.handle, 0), 0) << message;
    EXPECT_EQ(host.hostCalls(), 0);
    EXPECT_TRUE(host.log.empty());
}

TEST(Dispatch, RowsOfLaterFeaturesAnswerLikeUnknownMessages) {
    FakeHost host;
    Chart chart = host.createChart();
    host.addInstrument(chart, "EURUSD");
    host.clearTraffic();
    host.log.clear();
    for (const unsigned message : silent)
        EXPECT_EQ(host.send(message, chart.handle, 0), 0) << message;
    EXPECT_EQ(host.hostCalls(), 0);
    EXPECT_TRUE(host.log.empty());
    EXPECT_TRUE(host.dialogTexts.isEmpty());
}

// Every row that takes a window refuses one that is not there.
TEST(Dispatch, UnknownWindowsAreRefused) {
    FakeHost host;
    int nothing[4] = {};
    for (const unsigned message :
         {3010u, 3011u, 3076u, 3130u, 5004u, 5005u, 5006u, 5007u, 5009u, 5011u, 12001u}) {
        EXPECT_EQ(host.send(message, 0, nothing), 1) << message;
        EXPECT_EQ(host.send(message, 0x1234, nothing), 1) << message;
    }
}

TEST(Dispatch, NullRecordsAreRefused) {
    FakeHost host;
    for (const unsigned message : {3009u, 3114u, 3115u, 3518u, 5001u, 5003u, 5022u, 5025u, 5034u, 10054u})
        EXPECT_EQ(host.send(message), 1) << message;
}

TEST(Dispatch, AHandlerThatThrowsAnswersOne) {
    FakeHost host;
    Chart chart = host.createChart();
    host.answer(3012, [](void *, int, int) -> int { throw std::runtime_error("host"); });
    mvwcDpaItem item = zeroRecord<mvwcDpaItem>();
    mvwcDpaList list{1, &item};
    EXPECT_EQ(host.send(5007u, chart.handle, &list), 1);
    host.answer(3012, [](void *, int, int) -> int { throw 7; });
    EXPECT_EQ(host.send(5007u, chart.handle, &list), 1);
    host.answer(3012, nullptr);
    EXPECT_TRUE(host.addInstrument(chart, "EURUSD"));
}

TEST(WorkStop, KnownWindowsAnswerZero) {
    FakeHost host;
    Chart chart = host.createChart();
    EXPECT_EQ(host.send(3010u, chart.handle, 5), 0);
    EXPECT_EQ(host.send(3010u, chart.handle, 6), 0);
    EXPECT_EQ(host.send(3011u, chart.handle, 6), 0);
    EXPECT_EQ(host.send(3011u, chart.handle, 5), 0);
}

TEST(Stop, DestroysEverySecondWindow) {
    FakeHost host;
    std::vector<Chart> charts;
    for (int i = 0; i < 3; ++i)
        charts.push_back(host.createChart());
    EXPECT_EQ(host.send(3005u), 0);
    EXPECT_FALSE(charts[0].widget);
    EXPECT_TRUE(charts[1].widget);
    EXPECT_FALSE(charts[2].widget);
    EXPECT_EQ(host.send(5005u, charts[0].handle), 1);
    EXPECT_EQ(host.send(5005u, charts[1].handle), 0);
}

TEST(Stop, OfFourKeepsTheSecondAndTheFourth) {
    FakeHost host;
    std::vector<Chart> charts;
    for (int i = 0; i < 4; ++i)
        charts.push_back(host.createBareChart());
    host.send(3005u);
    EXPECT_FALSE(charts[0].widget);
    EXPECT_TRUE(charts[1].widget);
    EXPECT_FALSE(charts[2].widget);
    EXPECT_TRUE(charts[3].widget);
}

TEST(Clock, TicksOnceASecond) {
    FakeHost host;
    EXPECT_EQ(host.timerInterval(), 1000);
}

TEST(Clock, LogsEachTickAndEachVisibleWindow) {
    FakeHost host;
    Chart shown = host.createChart();
    Chart hidden = host.createChart();
    host.tick();
    hidden.outer->hide();
    host.settle();
    host.log.clear();
    host.tick();
    QStringList lines;
    for (const LogLine &line : host.log)
        lines.append(line.text);
    EXPECT_EQ(lines.count("CRGraphModule::timerEvent start|GraphModule|194"), 1);
    EXPECT_EQ(lines.filter("|GraphModule|203").size(), 1);
    EXPECT_TRUE(lines.contains("m_bUpdatePrimitivePositions = 0|GraphModule|203"))
        << lines.join("\n").toStdString();
}

TEST(Clock, AQuoteIsWorkedOffAtTheNextTick) {
    FakeHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    host.tick();
    const Bar last = euro->array().bar(euro->array().count() - 1);
    host.appendBar(euro, {last.time + 3600, last.close, last.close, last.close, last.close, 1});
    host.update(euro, 0);
    host.log.clear();
    host.tick();
    QStringList lines;
    for (const LogLine &line : host.log)
        lines.append(line.text);
    EXPECT_TRUE(lines.contains("m_bUpdatePrimitivePositions = 1|GraphModule|203"));
    host.log.clear();
    host.tick();
    lines.clear();
    for (const LogLine &line : host.log)
        lines.append(line.text);
    EXPECT_TRUE(lines.contains("m_bUpdatePrimitivePositions = 0|GraphModule|203"));
}

TEST(UpdateData, RefusesAnUnknownWindow) {
    FakeHost host;
    Chart chart = host.createChart();
    FakeObject *euro = host.addInstrument(chart, "EURUSD");
    ASSERT_TRUE(euro);
    bytes::Record record(790);
    bytes::put<Word>(record.data(), 774, euro->handle);
    bytes::put<Word>(record.data(), 782, 0x1234);
    host.log.clear();
    EXPECT_EQ(host.send(3009u, record.data()), 1);
    ASSERT_FALSE(host.log.empty());
    EXPECT_EQ(host.log.front().text, "CRGraphModule::CoreUpdateDpa start|GraphModule|988");
    bytes::put<Word>(record.data(), 782, static_cast<Word>(toWord(chart.handle)));
    EXPECT_EQ(host.send(3009u, record.data()), 0);
}

} // namespace
