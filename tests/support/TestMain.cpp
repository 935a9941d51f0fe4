// One main for every test program: an application on the offscreen platform, on the clock of UTC.
#include <QApplication>
#include <QStandardPaths>
#include <dlfcn.h>
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
    const int result = RUN_ALL_TESTS();
#ifdef VELMAR_SANITIZED
    // Stacks of leaks get their names when the program ends: the library comes back to the place it had.
    dlopen(VELMAR_LIBRARY, RTLD_NOW);
#endif
    return result;
}
