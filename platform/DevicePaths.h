#pragma once
// The device folder and the Pocket PC paths mapped into it:
//   object store            <device>/objectstore.db
//   \My Documents\          <device>/My Documents/
//   \Windows\               <device>/Windows/
//   the program's folder    <device>/Program Files/Kovalin/

#include <QString>

class DevicePaths {
public:
    // The device folder: option (from --device) when not empty, else $KOVALIN_DEVICE when set and
    // not empty, else QStandardPaths::AppDataLocation + "/device".
    static QString resolve(const QString& option);

    explicit DevicePaths(QString root);

    // Creates the device folder (mode 0700) and its three sub-folders when missing.
    bool ensureCreated() const;

    QString root() const { return m_root; }
    QString objectStore() const;
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
