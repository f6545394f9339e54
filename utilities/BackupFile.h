#pragma once
// The backup file of a user: "\My Documents\" + the user's name + ".kov", "Default" standing for the
// empty name, and the six copies it holds with the logs they are copied from.

#include "DatabaseCatalogue.h"
#include "WinTypes.h"

#include <QString>

#include <array>

struct BackupCopy {
    const char* copyName;
    UserDatabase log;
};

class BackupFile {
public:
    // The property the copies are sorted on: number 0 of type FILETIME, the raw value 64. The copies'
    // records hold no such property, so they keep the order they were written in.
    static constexpr CEPROPID kCopySortProp = 64;

    // The user's name as the file names it: "Default" for the empty name.
    static QString userFileName(const QString& user);
    // "\My Documents\" + userFileName + ".kov".
    static QString devicePath(const QString& user);
    // The same file on the host, in the current device.
    static QString hostPath(const QString& user);

    // Where a backup is written until it is whole: beside the file, under a name restore never
    // takes for a backup. A backup that stopped leaves at most this file, which the next removes.
    static QString partialPath(const QString& user);
    // Puts the whole, closed backup at partial in place of target: synced, then renamed over it (a
    // link at target is replaced, never written through), then the folder synced, so that target is
    // at every moment either the previous backup or this one. ERROR_SUCCESS or the disk's error.
    static DWORD putInPlace(const QString& partial, const QString& target);
    // Removes the partial file of a backup that did not finish, with its companions.
    static void discard(const QString& partial);

    // The copies in the order backup writes them.
    static const std::array<BackupCopy, kUserDatabaseCount>& backupOrder();
    // The copies in the order restore reads them: the A pairs before the B pairs.
    static const std::array<BackupCopy, kUserDatabaseCount>& restoreOrder();
};
