// One main for every test program: an application on the offscreen platform, on the clock of UTC.
#include <QApplication>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace {

QtMessageHandler g_next = nullptr;

// The offscreen platform says this at every window that is shown.
void filterMessages(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (!text.contains("does not support propagateSizeHints"))
        g_next(type, context, text);
}

} // namespace

int main(int argc, char **argv) {
    if (qgetenv("QT_QPA_PLATFORM").isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    testing::InitGoogleTest(&argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    g_next = qInstallMessageHandler(filterMessages);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
