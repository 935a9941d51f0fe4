// The desk on a real X server: a server without a screen, and a mouse and keys that the server moves.
#include "tests/desk/DeskFixture.h"
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

using desk::test::writeBars;

namespace {

class ScreenTest : public testing::Test {
protected:
    void SetUp() override {
        for (const char *program : {"Xvfb", "xdotool"})
            ASSERT_FALSE(QStandardPaths::findExecutable(program).isEmpty()) << program << " is not installed";
        m_server.setProcessChannelMode(QProcess::SeparateChannels);
        m_server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1400x900x24", "-nolisten", "tcp"});
        ASSERT_TRUE(m_server.waitForReadyRead(20000)) << "the server does not start";
        m_environment = QProcessEnvironment::systemEnvironment();
        m_environment.insert("DISPLAY",
                             ":" + QString::fromLatin1(m_server.readAllStandardOutput()).trimmed());
        m_environment.remove("QT_QPA_PLATFORM");
        m_environment.remove("WAYLAND_DISPLAY");
        // What the platform's plugins keep cannot be named once they are unloaded.
        m_environment.insert("ASAN_OPTIONS", "detect_leaks=0");
    }
    void TearDown() override {
        for (QProcess *process : {&m_desk, &m_server}) {
            if (process->state() == QProcess::NotRunning)
                continue;
            process->terminate();
            if (!process->waitForFinished(5000)) {
                process->kill();
                process->waitForFinished(5000);
            }
        }
    }
    void startDesk(QStringList arguments) {
        arguments << "--store" << m_folder.path() + "/store"
                  << "--trace" << tracePath() << "--size"
                  << "1280x800";
        m_desk.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_desk.setProcessEnvironment(m_environment);
        m_desk.start(QStringLiteral(VELMAR_DESK), arguments);
        ASSERT_TRUE(m_desk.waitForStarted(10000));
    }
    QString tracePath() const { return m_folder.path() + "/trace.txt"; }
    QString traced() const {
        QFile file(tracePath());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    // Waits until the trace holds the text at or behind a place; answers where it ends.
    int waitFor(const QString &text, int from = 0) {
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < 15000; QTest::qSleep(50)) {
            const int place = traced().indexOf(text, from);
            if (place >= 0)
                return place + text.size();
            if (m_desk.state() == QProcess::NotRunning)
                break;
            m_desk.waitForFinished(1);
        }
        ADD_FAILURE() << "not in the trace: " << text.toStdString();
        return from;
    }
    void act(const QStringList &arguments) {
        QProcess tool;
        tool.setProcessEnvironment(m_environment);
        tool.start("xdotool", arguments);
        EXPECT_TRUE(tool.waitForFinished(10000)) << arguments.join(' ').toStdString();
        EXPECT_EQ(tool.exitCode(), 0) << arguments.join(' ').toStdString();
    }
    void focusDesk() {
        QProcess tool;
        tool.setProcessEnvironment(m_environment);
        tool.start("xdotool", {"search", "--onlyvisible", "--name", "Velmar"});
        ASSERT_TRUE(tool.waitForFinished(10000));
        const QStringList ids =
            QString::fromLatin1(tool.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        ASSERT_FALSE(ids.isEmpty());
        act({"windowfocus", ids.last()});
    }

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_desk;
    QProcessEnvironment m_environment;
};

TEST_F(ScreenTest, MouseAndKeysWorkOnARealServer) {
    startDesk({"--quotes", writeBars(m_folder, "a.csv", 400) + "=EUR/USD", "--quotes",
               writeBars(m_folder, "b.csv", 400, 30) + "=GBP/USD"});
    // Both charts have been painted: they asked for the titles of their series.
    int place = waitFor("3119 source period");
    QTest::qSleep(1500);
    place = traced().size();

    // The right-hand chart, by a press in its middle.
    act({"mousemove", "1000", "400", "click", "1"});
    place = waitFor("5009 take focus", place);
    // The mouse wheel scrolls it back in time: the time under the mouse stands in the status bar's pane.
    act({"mousemove", "1000", "420"});
    act({"click", "4", "click", "4"});
    place = waitFor("3119 source period", place);
    focusDesk();
    // Keys of the desk: charts in tabs, the other chart, tiles again.
    act({"key", "ctrl+2"});
    act({"key", "ctrl+Tab"});
    place = waitFor("5009 take focus", place);
    act({"key", "ctrl+1"});
    place = waitFor("5011 show window", place);
    // A symbol from the list by a double click.
    act({"mousemove", "60", "165"});
    act({"click", "--repeat", "2", "--delay", "60", "1"});
    place = waitFor("5007 add instruments", place);
    // The same symbol twice asks for a layer: the dialog is left by a key.
    QTest::qSleep(500);
    act({"key", "Escape"});
    QTest::qSleep(300);
    focusDesk();
    act({"key", "ctrl+q"});
    EXPECT_TRUE(m_desk.waitForFinished(15000));
    EXPECT_EQ(m_desk.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_desk.exitCode(), 0);
    EXPECT_TRUE(traced().contains("host -> module: 3005"));
}

} // namespace
