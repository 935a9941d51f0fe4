#include "host/core/FolderService.h"
#include "module/HostMessages.h"
#include "module/HostRecords.h"
#include <QDir>
#include <QFileInfo>

namespace desk {

namespace {

constexpr int workFolderBytes = 12288;

struct FolderName {
    unsigned number;
    const char *name;
};

// The numbers that the module asks for.
constexpr FolderName folders[] = {{Folder::Configuration, "config"},
                                  {Folder::UserImages, "images"},
                                  {Folder::Templates, "templates"},
                                  {Folder::Skins, "skins"}};

} // namespace

FolderService::FolderService(Host &host, const QString &dataFolder)
    : Service(host), m_dataFolder(dataFolder) {
    take(coreHandle(), {ToHost::FolderPath});
}

void FolderService::takeMainWindow(Handle mainWindow) {
    take(mainWindow, {ToHost::WorkFolder, ToHost::HasWorkFolder});
}

QString FolderService::make(const QString &name) const {
    const QString path = name.isEmpty() ? m_dataFolder : m_dataFolder + QLatin1Char('/') + name;
    return QDir().mkpath(path) && QFileInfo(path).isWritable() ? path : QString();
}

QString FolderService::workFolder() const {
    const QString path = make(QStringLiteral("work"));
    if (path.isEmpty() || make(QStringLiteral("work/etc")).isEmpty() ||
        make(QStringLiteral("work/templates")).isEmpty())
        return QString();
    return path;
}

QString FolderService::folder(unsigned number) const {
    for (const FolderName &folder : folders) {
        if (folder.number == number)
            return make(QString::fromLatin1(folder.name));
    }
    return QString();
}

bool FolderService::handle(Handle, unsigned message, int wParam, int, int &result) {
    if (!wParam)
        return false;
    switch (message) {
    case ToHost::FolderPath: {
        auto &record = *fromWord<coreFolderPath>(wParam);
        const QString path = folder(record.folder);
        result = path.isEmpty() ? 1 : 0;
        if (!path.isEmpty())
            fillField(record.path, path.left(1023));
        return true;
    }
    case ToHost::WorkFolder: {
        const QString path = workFolder();
        result = path.isEmpty() ? 1 : 0;
        if (!path.isEmpty())
            fillText(fromWord<Unit16>(wParam), workFolderBytes / 2, path);
        return true;
    }
    case ToHost::HasWorkFolder:
        *fromWord<Word>(wParam) = workFolder().isEmpty() ? 0 : 1;
        result = 0;
        return true;
    default:
        return false;
    }
}

} // namespace desk
