#include "support/Log.h"
#include "module/HostMessages.h"
#include "tests/unit/support/UnitHost.h"

#include <gtest/gtest.h>

namespace {

struct WrittenLine {
    QString name;
    int type;
    int level;
    QString text;
};

std::vector<WrittenLine> written;
std::function<void()> duringWrite;

int writeLine(const coreLogRecord *record) {
    const WrittenLine line{readEndedText(record->name), static_cast<int>(record->type),
                           static_cast<int>(record->level), readEndedText(record->text)};
    if (duringWrite) {
        const auto action = duringWrite;
        duringWrite = nullptr;
        action();
    }
    EXPECT_EQ(readEndedText(record->text), line.text); // the line in the host's hands has not moved
    written.push_back(line);
    return 0;
}

class LogTest : public testing::Test {
protected:
    LogTest() {
        written.clear();
        duringWrite = nullptr;
        host.answers[ToHost::LogWriter] = [](int wParam, int) {
            *fromWord<coreLogWriter>(wParam) = writeLine;
            return 0;
        };
    }
    void connect() { log.Create(QString("CRGraphModule"), UnitHost::send, fromWord<void>(77)); }

    UnitHost host;
    Log log;
};

TEST_F(LogTest, ConnectingAsksTheHostForItsWriterOnce) {
    connect();
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].number, 3205u);
    EXPECT_EQ(host.messages[0].target, fromWord<void>(77));
    EXPECT_EQ(host.messages[0].lParam, 0);
}

TEST_F(LogTest, AChainIsOneLineWithItsTag) {
    connect();
    log << coreLogMsgType(1) << coreLogMsgLevel(0) << "Starting Graph module"
        << "|GraphModule|938" << eLogMsgType(5);
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(written[0].name, "CRGraphModule");
    EXPECT_EQ(written[0].type, 1);
    EXPECT_EQ(written[0].level, 0);
    EXPECT_EQ(written[0].text, "Starting Graph module|GraphModule|938");
}

TEST_F(LogTest, LinesBeforeTheConnectionAreDropped) {
    log << "lost" << eLogEndLine;
    connect();
    log << "kept" << eLogEndLine;
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(written[0].text, "kept");
}

TEST_F(LogTest, AHostWithoutWriterGetsNoLines) {
    host.answers.clear();
    connect();
    log << "lost" << eLogEndLine;
    EXPECT_TRUE(written.empty());
}

TEST_F(LogTest, ALongLineReachesTheHostWhole) {
    connect();
    const QString text = QString("0123456789").repeated(700);
    log << text << "end" << eLogEndLine << "next" << eLogEndLine;
    ASSERT_EQ(written.size(), 2u);
    EXPECT_EQ(written[0].text, text + "end");
    EXPECT_EQ(written[1].text, "next");
}

TEST_F(LogTest, AnEmptyLineIsSent) {
    connect();
    log << eLogEndLine;
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(written[0].text, "");
}

TEST_F(LogTest, TypeAndLevelStartAtOneAndThreeAndStayAfterALine) {
    connect();
    log << "a" << eLogEndLine;
    log << coreLogMsgType(0) << coreLogMsgLevel(5) << "b" << eLogEndLine;
    log << "c" << eLogEndLine;
    ASSERT_EQ(written.size(), 3u);
    EXPECT_EQ(written[0].type, 1);
    EXPECT_EQ(written[0].level, 3);
    EXPECT_EQ(written[2].type, 0);
    EXPECT_EQ(written[2].level, 5);
}

TEST_F(LogTest, ControlValuesSetTheLevel) {
    connect();
    const struct {
        int control;
        int level;
    } rows[] = {{0, 0}, {1, 5}, {2, 4}, {3, 3}, {4, 2}};
    for (const auto &row : rows) {
        log << eLogMsgType(row.control) << "x" << eLogEndLine;
        EXPECT_EQ(written.back().level, row.level) << row.control;
    }
    log << coreLogMsgLevel(4) << eLogMsgType(6) << eLogMsgType(99) << "x" << eLogEndLine;
    EXPECT_EQ(written.back().level, 4);
    EXPECT_EQ(written.size(), 6u);
}

TEST_F(LogTest, EveryKindOfItemBecomesText) {
    connect();
    log << QChar(0x20AC) << '+' << short(-3) << ' ' << (unsigned short)65535 << ' ' << -7 << ' '
        << 4000000000u << ' ' << -8L << ' ' << 9UL << ' ' << 1.5f << ' ' << 0.1 << ' ' << 1e10 << ' '
        << "text" << ' ' << QString("Qt") << eLogEndLine;
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(written[0].text, QString(QChar(0x20AC)) + "+-3 65535 -7 4000000000 -8 9 1.5 0.1 1e+10 text Qt");
}

TEST_F(LogTest, NullAndEmptyTextsAddNothing) {
    connect();
    log << static_cast<const char *>(nullptr) << "" << QString() << "x" << eLogEndLine;
    EXPECT_EQ(written.at(0).text, "x");
}

TEST_F(LogTest, ShowLogInfoTakesTypesZeroAndOneOnly) {
    connect();
    log.ShowLogInfo(coreLogMsgType(0), coreLogMsgLevel(4), "zero");
    log.ShowLogInfo(coreLogMsgType(1), coreLogMsgLevel(5), "one");
    log.ShowLogInfo(coreLogMsgType(2), coreLogMsgLevel(5), "two");
    ASSERT_EQ(written.size(), 2u);
    EXPECT_EQ(written[0].text, "zero");
    EXPECT_EQ(written[1].level, 5);
}

TEST_F(LogTest, ALineFromInsideTheWriterLeavesTheFirstOneWhole) {
    connect();
    duringWrite = [this] { log << QString("inner").repeated(50) << eLogEndLine; };
    log << "outer" << eLogEndLine << "after" << eLogEndLine;
    ASSERT_EQ(written.size(), 3u);
    EXPECT_EQ(written[0].text, QString("inner").repeated(50));
    EXPECT_EQ(written[1].text, "outer");
    EXPECT_EQ(written[2].text, "after");
}

TEST_F(LogTest, TheCharFormConnectsToo) {
    char name[] = "Module";
    log.Create(name, UnitHost::send, nullptr);
    log << "x" << eLogEndLine;
    EXPECT_EQ(written.at(0).name, "Module");
}

TEST_F(LogTest, TheHelperWritesIntoTheLogOfTheModule) {
    ASSERT_NE(LogHelper::GetLog(), nullptr);
    LogHelper::Create(QString("CRGraphModule"), UnitHost::send, nullptr);
    trace("drawn", "|GraphWidget|862");
    trace(QString("count %1").arg(3), "|GraphWidget|900");
    logLine(logMsgModule, logError, "refused", nullptr);
    LogHelper::ShowLogInfo(coreLogMsgType(1), coreLogMsgLevel(4), "shown");
    ASSERT_EQ(written.size(), 4u);
    EXPECT_EQ(written[0].text, "drawn|GraphWidget|862");
    EXPECT_EQ(written[0].level, 0);
    EXPECT_EQ(written[1].text, "count 3|GraphWidget|900");
    EXPECT_EQ(written[2].text, "refused");
    EXPECT_EQ(written[2].level, 4);
    EXPECT_EQ(written[3].text, "shown");
    host.answers[ToHost::LogWriter] = [](int wParam, int) {
        *fromWord<coreLogWriter>(wParam) = nullptr;
        return 0;
    };
    LogHelper::Create(QString("CRGraphModule"), UnitHost::send, nullptr);
}

TEST(AtofTest, ReadsTheNumberAtTheStartWithEveryDecimalPoint) {
    const struct {
        const char *text;
        const char *points;
        double value;
    } rows[] = {{"1.25", nullptr, 1.25}, {"1,25", ",", 1.25}, {" -3;5x", ";", -3.5}, {"1e3", ".", 1000},
                {"12abc", ".", 12},      {"abc", ".", 0},     {"", ".", 0}};
    for (const auto &row : rows) {
        QByteArray text(row.text);
        EXPECT_DOUBLE_EQ(my::atof(text.data(), row.points), row.value) << row.text;
    }
    EXPECT_EQ(my::atof(nullptr, "."), 0.0);
}

} // namespace
