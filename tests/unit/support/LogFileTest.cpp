#include "module/HostMessages.h"
#include "support/Log.h"
#include "tests/unit/support/UnitHost.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class LogFileTest : public testing::Test {
protected:
    QByteArray content(const QString &name) const {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QString &name, int size) const {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(size, 'x'));
    }

    QTemporaryDir folder;
    QString path = folder.filePath("module.log");
    CLogFile log;
};

TEST_F(LogFileTest, ALineHasTimeLabelAndText) {
    log.Create(path, eLogMessage, 100);
    log << eLogMsgType(2) << "broken " << 7 << eLogMsgType(5);
    const QString line = QString::fromLocal8Bit(content(path));
    EXPECT_TRUE(QRegularExpression("^\\d\\d/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d\tERROR   \tbroken 7\r\n$")
                    .match(line)
                    .hasMatch())
        << qPrintable(line);
}

TEST_F(LogFileTest, EveryKindHasALabelOfEightCharacters) {
    log.Create(path, eLogMessage, 100);
    for (int kind = 1; kind <= 4; ++kind)
        log << eLogMsgType(kind) << "t" << eLogMsgType(5);
    const QStringList lines = QString::fromLocal8Bit(content(path)).split("\r\n", Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4);
    const char *const labels[] = {"CRITICAL", "ERROR   ", "WARNING ", "MESSAGE "};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(lines[i].split('\t').at(1), labels[i]);
}

TEST_F(LogFileTest, ALineAboveTheMinimumIsDropped) {
    log.Create(path, eLogWarning, 100);
    log << eLogMsgType(4) << "message" << eLogMsgType(5);
    EXPECT_TRUE(content(path).isEmpty());
    log << eLogMsgType(3) << "warning" << eLogMsgType(5);
    EXPECT_TRUE(content(path).contains("warning"));
    EXPECT_FALSE(content(path).contains("message"));
}

TEST_F(LogFileTest, AfterALineTheKindIsCriticalAgain) {
    log.Create(path, eLogMessage, 100);
    log << eLogMsgType(4) << "a" << eLogMsgType(5) << "b" << eLogMsgType(5);
    EXPECT_TRUE(content(path).contains("CRITICAL\tb"));
}

TEST_F(LogFileTest, ALevelOfTheChainBecomesAKind) {
    const struct {
        int level;
        const char *label;
    } rows[] = {{5, "CRITICAL"}, {4, "ERROR   "}, {3, "WARNING "}, {2, "MESSAGE "}, {0, "MESSAGE "}};
    log.Create(path, eLogMessage, 100);
    for (const auto &row : rows) {
        QFile::remove(path);
        log.ShowLogInfo(coreLogMsgType(1), coreLogMsgLevel(row.level), "text");
        EXPECT_TRUE(content(path).contains(QByteArray(row.label) + "\ttext\r\n")) << row.level;
    }
}

TEST_F(LogFileTest, AFileOfExactlyTheMaximumIsRolledToTheOneOldGeneration) {
    write(path, 2048);
    write(path + ".bak", 10);
    log.Create(path, eLogMessage, 2);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(content(path + ".bak"), QByteArray(2048, 'x'));
    log << "fresh" << eLogMsgType(5);
    EXPECT_TRUE(content(path).contains("fresh"));
}

TEST_F(LogFileTest, AFileBelowTheMaximumGoesOn) {
    write(path, 2047);
    log.Create(path, eLogMessage, 2);
    EXPECT_EQ(content(path).size(), 2047);
    EXPECT_FALSE(QFile::exists(path + ".bak"));
}

TEST_F(LogFileTest, TheSizeIsTestedForEachLine) {
    log.Create(path, eLogMessage, 1);
    log << QString(1100, 'a') << eLogMsgType(5);
    log << "second" << eLogMsgType(5);
    EXPECT_TRUE(content(path + ".bak").contains("aaaa"));
    EXPECT_TRUE(content(path).contains("second"));
    EXPECT_FALSE(content(path).contains("aaaa"));
}

TEST_F(LogFileTest, AMissingFileNeedsNoRollOver) {
    log.Create(path, eLogMessage, 0);
    EXPECT_FALSE(log.mustRecreate());
}

TEST_F(LogFileTest, InHostModeTheLineGoesToTheHost) {
    UnitHost host;
    QString text;
    host.answers[ToHost::LogFileLine] = [&text](int wParam, int) {
        text = readEndedText(fromWord<const unsigned short>(wParam));
        return 0;
    };
    char name[] = "module";
    log.Create(name, UnitHost::send, fromWord<void>(5), eLogMessage);
    log << eLogMsgType(3) << "careful" << eLogMsgType(5);
    ASSERT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(host.messages[0].number, 3129u);
    EXPECT_EQ(host.messages[0].target, fromWord<void>(5));
    EXPECT_TRUE(text.endsWith("\tWARNING \tcareful\r\n"));
}

} // namespace
