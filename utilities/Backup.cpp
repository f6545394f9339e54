#include "Backup.h"

#include "BackupFile.h"
#include "DayKey.h"
#include "ObjectStoreGuid.h"
#include "DbHandle.h"
#include "RecordCopier.h"
#include "UtilityReport.h"

namespace {
// Copies one log into a new copy of the volume: true when every record was copied. A failure has
// been told (a status line, or the "Data access error" message) when it returns false.
bool copyLog(const CEGUID& volume, const BackupCopy& copy, const QString& user, UtilityReport& report) {
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
        return false;
    }
    // The device's program tests the last error even after a creation that returned an identifier;
    // the test is kept.
    if (GetLastError() == ERROR_INVALID_PARAMETER) {
        report.status(QStringLiteral("Invalid parameter"));
        return false;
    }
    DbHandle target(CeOpenDatabaseEx(&volume, &copyOid, QString(), BackupFile::kCopySortProp, CEDB_AUTOINCREMENT));
    if (!target.isOpen()) {
        report.status(QStringLiteral("Error opening backup volume"));
        return false;
    }
    const CEGUID objectStore = objectStoreGuid();
    CEOID logOid = 0;
    DbHandle source(CeOpenDatabaseEx(&objectStore, &logOid, DatabaseCatalogue::userDatabaseName(copy.log, user),
                                     DayKey::kPropId, CEDB_AUTOINCREMENT));
    if (!source.isOpen()) {
        report.status(QStringLiteral("Error opening object store volume"));
        return false;
    }
    return RecordCopier::copyAll(source.get(), target.get(), report);
}

} // namespace

bool Backup::run(const QString& user, UtilityReport& report) {
    report.progressRange(0, 100);
    report.progressPosition(0);
    report.progressStep(20);
    report.status(QStringLiteral("Backing up..."));

    // The backup is made whole beside the file and only then takes its place: until that moment the
    // previous backup stays as it was, and a backup that stops leaves nothing under the real name.
    const QString partial = BackupFile::partialPath(user);
    CEGUID volume;
    if (!CeMountDBVol(&volume, partial, CREATE_ALWAYS)) {
        BackupFile::discard(partial);
        report.status(QStringLiteral("Error mounting database file"));
        return false;
    }
    const bool copied = RecordCopier::eachInOneTransaction(
        volume, BackupFile::backupOrder(),
        [&](const BackupCopy& copy) { return copyLog(volume, copy, user, report); }, report);
    CeUnmountDBVol(&volume);
    if (!copied) {
        BackupFile::discard(partial);
        return false;
    }
    if (BackupFile::putInPlace(partial, BackupFile::hostPath(user)) != ERROR_SUCCESS) {
        BackupFile::discard(partial);
        report.message(RecordCopier::kDataAccessError);
        return false;
    }
    report.message(QStringLiteral("Backup complete!"));
    report.status(QString());
    return true;
}
