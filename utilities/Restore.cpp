#include "Restore.h"

#include "BackupFile.h"
#include "DayKey.h"
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

// Every copy opens and every record of each reads: the file can replace the logs.
bool backupIsWhole(const CEGUID& volume, UtilityReport& report) {
    for (const BackupCopy& copy : BackupFile::restoreOrder()) {
        DbHandle source(openCopy(volume, copy));
        if (!source.isOpen()) {
            report.status(kErrorOpeningBackup);
            return false;
        }
        if (!RecordCopier::readAll(source.get(), report)) {
            report.message(RecordCopier::kDataAccessError);
            return false;
        }
    }
    return true;
}

// Replaces the log by the copy: true when every record was copied.
bool restoreLog(const CEGUID& volume, const BackupCopy& copy, const QString& user, UtilityReport& report,
                bool* stopped) {
    DbHandle source(openCopy(volume, copy));
    if (!source.isOpen()) {
        report.status(kErrorOpeningBackup);
        *stopped = true;
        return false;
    }
    const QString name = DatabaseCatalogue::userDatabaseName(copy.log, user);
    if (RecordDatabase::Exists(name)) {
        RecordDatabase old;
        if (old.Open(name)) {
            old.DeleteDatabase();
        }
    }
    CEGUID objectStore;
    CREATE_SYSTEMGUID(&objectStore);
    CEOID oid = 0;
    DbHandle target;
    if (RecordDatabase::Create(name, RecordDatabase::kDatabaseType, DayKey::kPropId)) {
        target.reset(CeOpenDatabaseEx(&objectStore, &oid, name, DayKey::kPropId, CEDB_AUTOINCREMENT));
    }
    if (!target.isOpen()) {
        report.status(QStringLiteral("Error opening object store volume"));
        *stopped = true;
        return false;
    }
    return RecordCopier::copyAll(source.get(), target.get(), report);
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
    CEGUID volume;
    if (!CeMountDBVol(&volume, BackupFile::hostPath(user), OPEN_EXISTING)) {
        report.message(QStringLiteral("Error mounting file volume.  Be sure the '") + BackupFile::userFileName(user) +
                       QStringLiteral(".kov' file is in the My Documents folder of your Pocket PC."));
        report.status(kErrorOpeningBackup);
        return false;
    }
    if (!backupIsWhole(volume, report)) {
        CeUnmountDBVol(&volume);
        return false;
    }
    bool whole = true;
    bool stopped = false;
    for (const BackupCopy& copy : BackupFile::restoreOrder()) {
        whole = restoreLog(volume, copy, user, report, &stopped) && whole;
        if (stopped) {
            break;
        }
        report.stepProgress();
    }
    CeUnmountDBVol(&volume);
    if (stopped) {
        return false;
    }
    report.message(QStringLiteral("Restore successful!"));
    report.status(QString());
    return whole;
}
