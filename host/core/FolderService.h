#pragma once
#include "host/core/Service.h"
#include <QString>

namespace desk {

// Folders of the user (3128 at the core; 3503 and 3506 at the main window), all under one data folder.
class FolderService : public Service {
public:
    FolderService(Host &host, const QString &dataFolder);
    bool handle(Handle target, unsigned message, int wParam, int lParam, int &result) override;
    // Takes the main window's folder messages at its handle too.
    void takeMainWindow(Handle mainWindow);

    QString dataFolder() const { return m_dataFolder; }
    QString workFolder() const; // made with its "etc" and "templates"; empty when that is not possible
    QString folder(unsigned number) const;

private:
    QString make(const QString &name) const;
    QString m_dataFolder;
};

} // namespace desk
