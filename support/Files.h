#pragma once
#include "module/HostRecords.h"
#include <QString>

class CModule;

// The host's enumeration of folders; the numbers used here.
enum MV_FOLDERS : int {
    folderConfiguration = 2,
    folderUserImages = 152,
    folderTemplates = 154,
    folderSkins = 156
};

QString GetForbiddenFileNameSymbols(); // for messages
bool IsValidFileName(const QString &name);
bool CheckFileName(const QString &path);

// A name that no file in `folder` has.
QString GetTempFileName(const QString &folder, const QString &prefix);
QString GetTempFileName(const QString &folder, const QString &prefix, const QString &extension);

// The folder as the host tells it, else the folder of the application.
QString GetPathByFolderType(HostFunction hostFunction, void *hostHandle, MV_FOLDERS folder);
template <class T>
QString GetPathByFolderType(T *module, MV_FOLDERS folder) {
    return module ? GetPathByFolderType(module->m_sendMessage, module->m_coreHandle, folder) : QString();
}

// The user's work folder as the main window `target` tells it, or an empty string.
QString GetWorkFolderFromMain(CModule *module, void *target);

// Creates every missing folder of a path; true when the path exists afterwards.
bool MakePath(const QString &path);
