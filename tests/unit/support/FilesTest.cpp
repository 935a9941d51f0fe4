#include "support/Files.h"
#include "module/HostMessages.h"
#include "tests/unit/support/UnitHost.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

void touch(const QString &name) {
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
}

TEST(FileNameTest, ForbiddenSymbols) {
    EXPECT_EQ(GetForbiddenFileNameSymbols(), ": / \\ *");
    for (const char *name : {"a:b", "a/b", "a\\b", "a*b", "*"})
        EXPECT_FALSE(IsValidFileName(name)) << name;
    for (const char *name : {"a", "a b.tpl", "a?", ""})
        EXPECT_TRUE(IsValidFileName(name)) << name;
}

TEST(FileNameTest, Check) {
    const QTemporaryDir folder;
    const struct {
        QString path;
        bool valid;
    } rows[] = {{"", false},
                {folder.filePath("a.tpl"), true},
                {folder.filePath("a:b.tpl"), false},
                {folder.filePath("a*b.tpl"), false},
                {folder.filePath("a\\b.tpl"), false},
                {folder.path() + "/", false},
                {folder.path() + "\\", false},
                {folder.filePath("none/a.tpl"), false},
                {":a", false},
                {"a:b", false}, // the place is right, the name is not
                {"plain.tpl", true}};
    for (const auto &row : rows)
        EXPECT_EQ(CheckFileName(row.path), row.valid) << qPrintable(row.path);
}

TEST(TempFileTest, UniqueNames) {
    testApplication();
    const QTemporaryDir folder;
    const QString name = GetTempFileName(folder.path(), "chart");
    EXPECT_TRUE(name.startsWith(folder.path() + "/chart"));
    EXPECT_FALSE(QFile::exists(name));
    EXPECT_EQ(GetTempFileName(folder.path() + "/none", "chart"), "");
}

TEST(TempFileTest, NumbersNamesWithAnExtension) {
    const QTemporaryDir folder;
    const auto next = [&] { return GetTempFileName(folder.path(), "shot", "png"); };
    EXPECT_EQ(next(), folder.filePath("shot.png"));
    touch(next());
    EXPECT_EQ(next(), folder.filePath("shot(1).png"));
    touch(next());
    touch(folder.filePath("shot(9).png"));
    touch(folder.filePath("shot(11).txt"));
    touch(folder.filePath("other(20).png"));
    touch(folder.filePath("shot(x).png"));
    EXPECT_EQ(next(), folder.filePath("shot(10).png"));
    EXPECT_EQ(GetTempFileName(folder.path(), "shot", ".png"), folder.filePath("shot(10).png"));
}

TEST(FolderTest, TheHostTellsThePath) {
    testApplication();
    UnitHost host;
    int asked = 0;
    host.answers[ToHost::FolderPath] = [&asked](int wParam, int) {
        auto *record = fromWord<coreFolderPath>(wParam);
        asked = static_cast<int>(record->folder);
        fillField(record->path, QString("/home/user/templates"));
        return 0;
    };
    EXPECT_EQ(GetPathByFolderType(UnitHost::send, fromWord<void>(9), folderTemplates),
              "/home/user/templates");
    EXPECT_EQ(asked, 154);
    EXPECT_EQ(host.messages.at(0).target, fromWord<void>(9));
    host.answers[ToHost::FolderPath] = [](int, int) { return 1; };
    EXPECT_EQ(GetPathByFolderType(UnitHost::send, nullptr, folderTemplates),
              QApplication::applicationDirPath());
    EXPECT_EQ(GetPathByFolderType(static_cast<HostFunction>(nullptr), nullptr, folderTemplates),
              QApplication::applicationDirPath());
    EXPECT_EQ(GetPathByFolderType(static_cast<CModule *>(nullptr), folderTemplates), "");
}

TEST(FolderTest, TheMainWindowTellsTheWorkFolder) {
    UnitHost host;
    EXPECT_EQ(GetWorkFolderFromMain(GetModule(), fromWord<void>(3)), "");
    EXPECT_TRUE(host.messages.empty());
    host.attach();
    bool zeroed = true;
    host.answers[ToHost::WorkFolder] = [&zeroed](int wParam, int) {
        auto *path = fromWord<unsigned short>(wParam);
        for (int i = 0; i < 6144; ++i)
            zeroed = zeroed && path[i] == 0;
        fillText(path, 6144, "/home/user/work");
        return 0;
    };
    EXPECT_EQ(GetWorkFolderFromMain(GetModule(), fromWord<void>(3)), "/home/user/work");
    EXPECT_TRUE(zeroed);
    EXPECT_EQ(host.messages.at(0).target, fromWord<void>(3));
    EXPECT_EQ(host.messages.at(0).number, 3503u);
    host.answers[ToHost::WorkFolder] = [](int, int) { return 1; };
    EXPECT_EQ(GetWorkFolderFromMain(GetModule(), fromWord<void>(3)), "");
    EXPECT_EQ(GetWorkFolderFromMain(nullptr, fromWord<void>(3)), "");
}

TEST(FolderTest, MakePathCreatesEveryStep) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("a/b/../c/d");
    EXPECT_TRUE(MakePath(path));
    EXPECT_TRUE(QDir(folder.filePath("a/c/d")).exists());
    EXPECT_TRUE(MakePath(path));
    touch(folder.filePath("file"));
    EXPECT_FALSE(MakePath(folder.filePath("file/sub")));
}

} // namespace
