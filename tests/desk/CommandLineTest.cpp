// The desk as a program: options, sentences, exit codes and pictures.
#include "host/window/Options.h"
#include "tests/desk/DeskFixture.h"
#include <QImage>
#include <QProcess>

using namespace desk;
using desk::test::writeBars;

namespace {

struct Outcome {
    int code;
    QString out;
    QString error;
};

class CommandLine : public testing::Test {
protected:
    Outcome run(QStringList arguments, const QByteArray &input = {}) {
        arguments << "--store" << m_folder.path() + "/store";
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("DISPLAY");
        environment.remove("WAYLAND_DISPLAY");
        environment.remove("QT_QPA_PLATFORM");
        // The platform's own leftovers are none of ours; this concerns builds with a leak check only.
        environment.insert("LSAN_OPTIONS",
                           "print_suppressions=0:suppressions=" +
                               QStringLiteral(VELMAR_SOURCE_DIR "/tests/suppressions/leaks.supp"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VELMAR_DESK), arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
                QString::fromLocal8Bit(process.readAllStandardError())};
    }
    // Exit code 2 and one sentence that names what was wrong.
    void expectRefusal(const QStringList &arguments, const QString &part) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments.join(' ').toStdString();
        EXPECT_TRUE(outcome.error.contains(part)) << outcome.error.toStdString();
        EXPECT_EQ(outcome.error.count('\n'), 1) << outcome.error.toStdString();
    }
    QString path(const QString &name) const { return m_folder.path() + '/' + name; }

    QTemporaryDir m_folder;
};

TEST_F(CommandLine, WhatCannotBeShownIsOneSentenceAndCodeTwo) {
    expectRefusal({"--period", "M7"}, "M7");
    expectRefusal({"--type", "Last"}, "Last");
    expectRefusal({"--bars", "-3"}, "-3");
    expectRefusal({"--bars", "many"}, "many");
    expectRefusal({"--size", "10"}, "10");
    expectRefusal({"--speed", "0"}, "0");
    expectRefusal({"--clock", "noon"}, "noon");
    expectRefusal({"--digits", "99"}, "99");
    expectRefusal({"--date", "yesterday"}, "yesterday");
    expectRefusal({"--nonsense"}, "nonsense");
    expectRefusal({"stray"}, "stray");
    expectRefusal({"--library", path("none.so")}, "none.so");
    expectRefusal({"--trace", path("none/trace.txt")}, "trace.txt");
    expectRefusal({"--symbol", "ABC/XYZ", "--screenshot", path("a.png")}, "ABC/XYZ");
    expectRefusal({"--screenshot", path("none/a.png")}, "a.png");
}

TEST_F(CommandLine, AMissingQuoteFileIsSaidAndNothingIsShown) {
    const Outcome outcome = run({"--quotes", path("none.csv"), "--screenshot", path("a.png")});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.error.contains("none.csv")) << outcome.error.toStdString();
    EXPECT_FALSE(QFile::exists(path("a.png")));
}

TEST_F(CommandLine, ATraceOnAFullDiskIsSaidOnceAndThePictureComesAllTheSame) {
    const Outcome outcome = run({"--trace", "/dev/full", "--screenshot", path("a.png")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.error.count("/dev/full"), 1) << outcome.error.toStdString();
    EXPECT_FALSE(QImage(path("a.png")).isNull());
}

TEST_F(CommandLine, TheHelpTellsEveryOption) {
    const Outcome outcome = run({"--help"});
    EXPECT_EQ(outcome.code, 0);
    for (const char *option : {"--quotes", "--clock", "--digits", "--date", "--feed", "--replay", "--speed",
                               "--symbol", "--period", "--type", "--bars", "--size", "--screenshot",
                               "--trace", "--library", "--store", "--help"})
        EXPECT_TRUE(outcome.out.contains(option)) << option;
}

TEST_F(CommandLine, APictureOfAQuoteFileNeedsNoDisplay) {
    const QString bars = writeBars(m_folder, "bars.csv", 400);
    const Outcome outcome = run({"--quotes", bars + "=EUR/USD", "--symbol", "EUR/USD", "--period", "H1",
                                 "--type", "Bid", "--bars", "120", "--size", "1280x720", "--screenshot",
                                 path("out.png"), "--trace", path("trace.txt")});
    EXPECT_EQ(outcome.code, 0) << outcome.error.toStdString();
    EXPECT_EQ(outcome.error, "") << outcome.error.toStdString();
    const QImage picture(path("out.png"));
    EXPECT_EQ(picture.size(), QSize(1280, 720));
    QFile trace(path("trace.txt"));
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    EXPECT_TRUE(trace.readAll().contains("3552 zoom change {0, -120}"));
}

TEST_F(CommandLine, WithoutADisplayThePictureIsNamed) {
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.code, 0) << outcome.error.toStdString();
    EXPECT_TRUE(outcome.out.contains("desk.png")) << outcome.out.toStdString();
    EXPECT_FALSE(QImage(path("store/desk.png")).isNull());
}

TEST_F(CommandLine, AFeedOpensTheChartsOfItsSymbols) {
    QByteArray lines;
    for (int second = 0; second < 120; ++second)
        lines += QStringLiteral("GBP/USD,2024-03-05 10:%1:%2,1.27%3,1.27%4\n")
                     .arg(second / 60, 2, 10, QLatin1Char('0'))
                     .arg(second % 60, 2, 10, QLatin1Char('0'))
                     .arg(100 + second % 7)
                     .arg(110 + second % 7)
                     .toLatin1();
    const Outcome outcome =
        run({"--feed", "-", "--period", "M1", "--screenshot", path("out.png"), "--trace", path("trace.txt")},
            lines);
    EXPECT_EQ(outcome.code, 0) << outcome.error.toStdString();
    QFile trace(path("trace.txt"));
    ASSERT_TRUE(trace.open(QIODevice::ReadOnly));
    EXPECT_TRUE(trace.readAll().contains("5007 add instruments {window"));
    EXPECT_FALSE(QImage(path("out.png")).isNull());
}

TEST_F(CommandLine, AFeedWithoutAQuoteShowsNothing) {
    const Outcome outcome =
        run({"--feed", "-", "--screenshot", path("out.png")}, "garbage\nEUR/USD,now,abc,1\n");
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.error.count("Line 1 of the feed"), 1) << outcome.error.toStdString();
    EXPECT_TRUE(outcome.error.contains("nothing to show")) << outcome.error.toStdString();
    EXPECT_FALSE(QFile::exists(path("out.png")));
}

} // namespace
