#include "support/Links.h"
#include "tests/unit/support/UnitHost.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QThread>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

// A search path with nothing on it but the browsers that a test puts there.
class LinksTest : public testing::Test {
protected:
    LinksTest() : path(qgetenv("PATH")) {
        testApplication();
        qputenv("PATH", folder.path().toLocal8Bit());
    }
    ~LinksTest() override { qputenv("PATH", path); }

    void addBrowser(const QString &name) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nprintf '%s %s' \"${0##*/}\" \"$1\" > " + opened().toLocal8Bit() +
                   ".part\n/bin/mv " + opened().toLocal8Bit() + ".part " + opened().toLocal8Bit() + "\n");
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }
    QString opened() const { return folder.filePath("opened.txt"); }
    QByteArray waitForOpened() const {
        QElapsedTimer timer;
        timer.start();
        while (!QFile::exists(opened()) && timer.elapsed() < 10000)
            QThread::msleep(5);
        QFile file(opened());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QByteArray path;
};

TEST_F(LinksTest, TheDesktopsHandlerComesFirst) {
    QTextBrowser handler;
    QDesktopServices::setUrlHandler("velmar", &handler, "setSource");
    addBrowser("firefox");
    EXPECT_TRUE(OpenBrowser("velmar:page"));
    QDesktopServices::unsetUrlHandler("velmar");
    EXPECT_EQ(handler.source(), QUrl("velmar:page"));
    EXPECT_FALSE(QFile::exists(opened()));
}

TEST_F(LinksTest, ThenTheFirstBrowserThatStarts) {
    for (const char *name : {"safari", "opera", "chromium", "firefox"})
        addBrowser(name);
    EXPECT_TRUE(OpenUrl(QUrl("http://example.org/a")));
    EXPECT_EQ(waitForOpened(), "firefox http://example.org/a");
}

TEST_F(LinksTest, AnAddressGetsItsScheme) {
    addBrowser("netscape");
    EXPECT_TRUE(OpenEmail("user@example.org"));
    EXPECT_EQ(waitForOpened(), "netscape mailto:user@example.org");
}

TEST_F(LinksTest, WithoutABrowserTheLinkStaysClosed) {
    EXPECT_FALSE(OpenBrowser("http://example.org"));
}

} // namespace
