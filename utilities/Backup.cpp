#include "Backup.h"

#include "BackupFile.h"
#include "DayKey.h"
#include "DbHandle.h"
#include "RecordCopier.h"
#include "UtilityReport.h"

bool Backup::run(const QString& user, UtilityReport& report) {
    report.progressRange(0, 100);
    report.progressPosition(0);
    report.progressStep(20);
    report.status(QStringLiteral("Backing up..."));

    CEGUID volume;
    if (!CeMountDBVol(&volume, BackupFile::hostPath(user), CREATE_ALWAYS)) {
        report.status(QStringLiteral("Error mounting database file"));
        return false;
    }
    CEGUID objectStore;
    CREATE_SYSTEMGUID(&objectStore);
    bool whole = true;
    bool stopped = false;
    for (const BackupCopy& copy : BackupFile::backupOrder()) {
        CEDBASEINFO info;
        info.dwFlags = CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC;
        info.szDbaseName = QString::fromLatin1(copy.copyName);
        info.dwDbaseType = 0;
        info.wNumSortOrder = 1;
        info.rgSortSpecs[0].propid = BackupFile::kCopySortProp;
        info.rgSortSpecs[0].dwFlags = 0;
        CEOID copyOid = CeCreateDatabaseEx(&volume, &info);
        if (copyOid == 0) {
            report.status(QStringLiteral("Error creating file volume"));
            stopped = true;
            break;
        }
        // The device's program tests the last error even after a creation that returned an
        // identifier; the test is kept.
        if (GetLastError() == ERROR_INVALID_PARAMETER) {
            report.status(QStringLiteral("Invalid parameter"));
            stopped = true;
            break;
        }
        DbHandle target(CeOpenDatabaseEx(&volume, &copyOid, QString(), BackupFile::kCopySortProp, CEDB_AUTOINCREMENT));
        if (!target.isOpen()) {
            report.status(QStringLiteral("Error opening backup volume"));
            stopped = true;
            break;
        }
        CEOID logOid = 0;
        DbHandle source(CeOpenDatabaseEx(&objectStore, &logOid, DatabaseCatalogue::userDatabaseName(copy.log, user),
                                         DayKey::kPropId, CEDB_AUTOINCREMENT));
        if (!source.isOpen()) {
            report.status(QStringLiteral("Error opening object store volume"));
            stopped = true;
            break;
        }
        whole = RecordCopier::copyAll(source.get(), target.get(), report) && whole;
        source.close();
        target.close();
        report.stepProgress();
    }
    CeUnmountDBVol(&volume);
    if (stopped) {
        return false;
    }
    report.message(QStringLiteral("Backup complete!"));
    report.status(QString());
    return whole;
}
