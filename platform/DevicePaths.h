#pragma once
// The device folder and the Pocket PC paths mapped into it:
//   object store            <device>/objectstore.db
//   \My Documents\          <device>/My Documents/
//   \Windows\               <device>/Windows/
//   the program's folder    <device>/Program Files/Kovalin/

#include "WinTypes.h"

#include <QString>

class QCommandLineOption;

class DevicePaths {
public:
    // The device folder: option (from --device) when not empty, else $KOVALIN_DEVICE when set and
    // not empty, else QStandardPaths::AppDataLocation + "/device".
    static QString resolve(const QString& option);
    // The --device option, the same for the window and the command-line utilities.
    static QCommandLineOption option();

    explicit DevicePaths(QString root);

    // Makes the folder a device for the program: created (0700, with any missing parent) when
    // missing, adopted when empty (or holding only a device's own lock and folders), used as it is
    // when it holds objectstore.db. ERROR_DIR_NOT_EMPTY for a folder that holds anything else and no
    // object store (it is never filled), ERROR_DIRECTORY when the path is not a folder, else the
    // error met creating it (ERROR_ACCESS_DENIED, ERROR_DISK_FULL).
    DWORD claim() const;
    // Creates the three sub-folders (0700) when missing; done once the object store is mounted, so
    // that a start that fails leaves an empty folder empty. On a failure, failed (when given) names
    // the folder that could not be made.
    DWORD createFolders(QString* failed = nullptr) const;
    // Both: a device ready to use.
    bool ensureCreated() const { return claim() == ERROR_SUCCESS && createFolders() == ERROR_SUCCESS; }

    QString root() const { return m_root; }
    QString objectStore() const;
    // The lock that a running Kovalin holds on the device.
    QString lockFile() const;
    QString myDocuments() const;
    QString windowsFolder() const;
    QString programFolder() const;
    // Maps a device path such as "\My Documents\kovupper.csv" or "\Windows\goals.dat" to the host.
    QString hostPath(const QString& devicePath) const;

    // The device the running program uses, set once at start.
    static const DevicePaths& current();
    static void setCurrent(const DevicePaths& paths);

private:
    QString m_root;
};
