#include "Restore.h"

#include "BackupFile.h"
#include "CeDatabaseEx.h"
#include "DayKey.h"
#include "ObjectStoreGuid.h"
#include "DbHandle.h"
#include "RecordCopier.h"
#include "RecordDatabase.h"
#include "UtilityReport.h"

namespace {
const QString kErrorOpeningBackup = QStringLiteral("Error opening backup volume");

HANDLE openCopy(const CEGUID& volume, const BackupCopy& copy) {
    CEOID oid = 0;
    return CeOpenDatabaseEx(&volume, &oid, QString::fromLatin1(copy.copyName), BackupFile::kCopySortProp,
                            CEDB_AUTOINCREMENT);
}

// Replaces the log by the copy: true when every record was copied. A failure has been told when it
// returns false.
bool restoreLog(const CEGUID& volume, const BackupCopy& copy, const QString& user, UtilityReport& report) {
    DbHandle source(openCopy(volume, copy));
    if (!source.isOpen()) {
        report.status(kErrorOpeningBackup);
        return false;
    }
    const QString name = DatabaseCatalogue::userDatabaseName(copy.log, user);
    if (RecordDatabase::Exists(name)) {
        RecordDatabase old;
        if (!old.Open(name) || !old.DeleteDatabase()) {
            report.message(RecordCopier::kDataAccessError);
            return false;
        }
    }
    const CEGUID objectStore = objectStoreGuid();
    CEOID oid = 0;
    DbHandle target;
    if (RecordDatabase::Create(name, RecordDatabase::kDatabaseType, DayKey::kPropId)) {
        target.reset(CeOpenDatabaseEx(&objectStore, &oid, name, DayKey::kPropId, CEDB_AUTOINCREMENT));
    }
    if (!target.isOpen()) {
        report.status(QStringLiteral("Error opening object store volume"));
        return false;
    }
    return RecordCopier::copyAll(source.get(), target.get(), report, QStringLiteral("The backup"));
}

// Tells why the file could not be mounted: missing, or there but not a backup that can be read.
void reportMountFailure(const QString& user, DWORD error, UtilityReport& report) {
    const QString file = BackupFile::userFileName(user) + QStringLiteral(".kov");
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) {
        report.message(QStringLiteral("Error mounting file volume.  Be sure the '") + file +
                       QStringLiteral("' file is in the My Documents folder of your Pocket PC."));
    } else if (error == ERROR_BADDB) {
        report.message(QStringLiteral("The file '") + file +
                       QStringLiteral("' in the My Documents folder is not a Kovalin backup, or it is damaged.  "
                                      "Nothing was changed."));
    } else {
        report.message(QStringLiteral("The file '") + file +
                       QStringLiteral("' in the My Documents folder cannot be read.  Nothing was changed."));
    }
    report.status(kErrorOpeningBackup);
}
} // namespace

QString Restore::question(const QString& user) {
    return QStringLiteral("This operation will look for a file called '") + BackupFile::userFileName(user) +
           QStringLiteral(".kov' in your My Documents folder, and if found, it will replace any existing Kovalin data "
                          "with the data in that file.  OK to proceed?");
}

bool Restore::run(const QString& user, UtilityReport& report) {
    report.progressRange(0, 100);
    report.progressPosition(0);
    report.progressStep(20);
    // Read-only: the backup stays byte for byte as it was, whatever lies beside it.
    CEGUID volume;
    if (!CeMountDBVol(&volume, BackupFile::hostPath(user), OPEN_EXISTING | CEDB_MOUNT_READONLY)) {
        reportMountFailure(user, GetLastError(), report);
        return false;
    }
    const CEGUID objectStore = objectStoreGuid();
    // The six logs are replaced in one transaction of the object store: all of them, or none.
    const bool restored = RecordCopier::eachInOneTransaction(
                              objectStore, BackupFile::restoreOrder(),
                              [&](const BackupCopy& copy) { return restoreLog(volume, copy, user, report); }, report);
    CeUnmountDBVol(&volume);
    if (!restored) {
        return false;
    }
    report.message(QStringLiteral("Restore successful!"));
    report.status(QString());
    return true;
}
