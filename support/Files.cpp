#include "support/Files.h"
#include "module/HostMessages.h"
#include "module/Module.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

QString GetForbiddenFileNameSymbols() {
    return QStringLiteral(": / \\ *");
}

bool IsValidFileName(const QString &name) {
    for (QChar character : name)
        if (QStringLiteral(":/\\*").contains(character))
            return false;
    return true;
}

bool CheckFileName(const QString &path) {
    if (path.isEmpty() || path.endsWith('/') || path.endsWith('\\'))
        return false;
    for (int i = 0; i < path.size(); ++i)
        if (path[i] == ':' && i != 1)
            return false;
    const QFileInfo info(path);
    return info.dir().exists() && !info.fileName().isEmpty() && IsValidFileName(info.fileName());
}

// The file that proves the name free is gone when the name is returned.
QString GetTempFileName(const QString &folder, const QString &prefix) {
    QTemporaryFile file(QDir(folder).filePath(prefix + QLatin1String("XXXXXX")));
    return file.open() ? file.fileName() : QString();
}

// "prefix.ext" while that is free, then the number above the highest of "prefix(1).ext", "prefix(2).ext" ...
QString GetTempFileName(const QString &folder, const QString &prefix, const QString &extension) {
    const QDir dir(folder);
    const QString ending = extension.isEmpty() || extension.startsWith('.') ? extension : '.' + extension;
    if (!dir.exists(prefix + ending))
        return dir.filePath(prefix + ending);
    int highest = 0;
    const QStringList names =
        dir.entryList({QStringLiteral("*(*)*")}, QDir::AllEntries | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        if (!name.startsWith(prefix + '(') || !name.endsWith(')' + ending))
            continue;
        const int from = prefix.size() + 1;
        highest = qMax(highest, name.mid(from, name.size() - from - ending.size() - 1).toInt());
    }
    return dir.filePath(prefix + QStringLiteral("(%1)").arg(highest + 1) + ending);
}

QString GetPathByFolderType(HostFunction hostFunction, void *hostHandle, MV_FOLDERS folder) {
    auto record = zeroRecord<coreFolderPath>();
    record.folder = static_cast<Word>(folder);
    if (hostFunction && hostFunction(hostHandle, ToHost::FolderPath, toWord(&record), 0) == 0)
        return fieldText(record.path);
    return QCoreApplication::applicationDirPath();
}

QString GetWorkFolderFromMain(CModule *module, void *target) {
    unsigned short path[6144] = {};
    if (!module || module->Send(target, ToHost::WorkFolder, path, 0, 1) != 0)
        return QString();
    return readText(path, 6144);
}

bool MakePath(const QString &path) {
    const QString clean = QDir::cleanPath(QDir::fromNativeSeparators(path));
    QString made = clean.startsWith('/') ? QStringLiteral("/") : QString();
    const QStringList steps = clean.split('/', Qt::SkipEmptyParts);
    for (const QString &step : steps) {
        made += made.isEmpty() || made.endsWith('/') ? step : '/' + step;
        if (!QFileInfo::exists(made))
            QDir().mkdir(made);
    }
    return QFileInfo(clean).isDir();
}
