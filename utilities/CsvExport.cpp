#include "CsvExport.h"

#include "CsvFile.h"
#include "CsvLayout.h"
#include "DayKey.h"
#include "DevicePaths.h"
#include "MuscleGroup.h"
#include "RecordDatabase.h"

#include <QDir>

namespace {
const QString kInsufficientEntries = QStringLiteral("Not all databases were exported due to insufficient entries.");
const QString kDataAccessError = QStringLiteral("Data access error");
const QString kDone = QStringLiteral("Done.");

// A half with fewer records than this in either database (the reference-day marker counts) writes no file.
constexpr DWORD kFewestStrengthRecords = 3;

bool isReferenceDay(const DbRecord& record) {
    const DbProp* key = record.find(DayKey::kNumber);
    return key != nullptr && key->type() == CEVT_FILETIME && key->toFileTime() == DayKey::referenceDay();
}
} // namespace

QString CsvExport::question() {
    return QStringLiteral(
    "Copies your Kovalin data to .csv format files, which can then be copied to your desktop computer and imported "
    "into Excel or Access.  Six files will be created and placed in the My Documents folder on the Pocket PC.  These "
    "are kovupper.csv, kovupper2.csv, kovlower.csv, kovlower2.csv, kovaerobic.csv, and kovfood.csv.  Your Kovalin "
    "data will not be removed from the Pocket PC. It is recommended that you choose Backup to backup your data prior "
    "to performing this operation. OK to proceed?");
}

CsvExport::CsvExport(const ExportSource& databases, const QString& folder) : m_databases(databases), m_folder(folder) {}

QString CsvExport::fileName(UserDatabase which) {
    switch (which) {
    case UserDatabase::UpperA:
        return QStringLiteral("kovupper.csv");
    case UserDatabase::UpperB:
        return QStringLiteral("kovupper2.csv");
    case UserDatabase::LowerA:
        return QStringLiteral("kovlower.csv");
    case UserDatabase::LowerB:
        return QStringLiteral("kovlower2.csv");
    case UserDatabase::Aerobic:
        return QStringLiteral("kovaerobic.csv");
    case UserDatabase::Food:
        return QStringLiteral("kovfood.csv");
    }
    return {};
}

bool CsvExport::run(ExportProgress& progress) {
    progress.status(QStringLiteral("Exporting..."));
    if (!progress.confirm(question())) {
        progress.status(QStringLiteral("Cancelled."));
        return false;
    }
    progress.status(QStringLiteral("Exporting Upper Body"));
    bool complete = ExportStrength(BodyRegion::Upper, progress);
    progress.status(QStringLiteral("Exporting Lower Body"));
    complete = ExportStrength(BodyRegion::Lower, progress) && complete;
    progress.status(QStringLiteral("Exporting Aerobic"));
    complete = ExportAerobic(progress) && complete;
    progress.status(QStringLiteral("Exporting Food"));
    complete = ExportFood(progress) && complete;

    progress.progressRange(100);
    progress.progressPosition(100);
    if (m_failedFiles > 0) {
        // Each file that failed has been told; success is never claimed over them.
        progress.status(QStringLiteral("Export failed."));
        progress.message(
            QStringLiteral("Export incomplete: %1 of the six files could not be written.").arg(m_failedFiles),
            ExportProgress::MessageKind::Error);
        return false;
    }
    progress.status(QStringLiteral("Export succcessful."));
    progress.message(QStringLiteral("Export successful!"), ExportProgress::MessageKind::Information);
    return complete;
}

bool CsvExport::ExportStrength(BodyRegion region, ExportProgress& progress) {
    const QString exporting = QStringLiteral("Exporting Strength to csv...");
    const UserDatabase a = MuscleGroup::databaseA(region);
    const UserDatabase b = MuscleGroup::databaseB(region);
    progress.status(exporting);
    if (recordCount(a) < kFewestStrengthRecords || recordCount(b) < kFewestStrengthRecords) {
        progress.message(kInsufficientEntries, ExportProgress::MessageKind::Warning);
        return false;
    }
    const bool wroteA = exportLog(a, progress);
    progress.status(exporting);
    return exportLog(b, progress) && wroteA;
}

bool CsvExport::ExportAerobic(ExportProgress& progress) {
    progress.status(QStringLiteral("Exporting Aerobic to csv..."));
    return exportLog(UserDatabase::Aerobic, progress);
}

bool CsvExport::ExportFood(ExportProgress& progress) {
    progress.status(QStringLiteral("Exporting Food to csv..."));
    return exportLog(UserDatabase::Food, progress);
}

DWORD CsvExport::recordCount(UserDatabase which) const {
    RecordDatabase database;
    return database.Open(databaseName(which), DayKey::kPropId) ? database.recordCount() : 0;
}

bool CsvExport::exportLog(UserDatabase which, ExportProgress& progress) {
    RecordDatabase database;
    if (!database.Open(databaseName(which), DayKey::kPropId) || database.SeekFirst() == 0) {
        if (which == UserDatabase::Aerobic || which == UserDatabase::Food) {
            progress.status(which == UserDatabase::Aerobic ? QStringLiteral("Aerobic db not found.")
                                                           : QStringLiteral("Food db not found."));
        } else {
            // Counted a moment ago: the database went in between.
            progress.message(kDataAccessError, ExportProgress::MessageKind::Error);
            ++m_failedFiles;
        }
        return false;
    }
    const CsvLayout::Log log = which == UserDatabase::Aerobic ? CsvLayout::Log::Aerobic
                               : which == UserDatabase::Food  ? CsvLayout::Log::Food
                                                              : CsvLayout::Log::Strength;
    // The marker keyed on the reference day is the lowest key; the scan starts after it.
    CEOID oid = database.SeekFirstEqual(DbProp::fileTime(DayKey::kNumber, DayKey::referenceDay())) != 0
                    ? database.SeekNext()
                    : database.SeekFirst();
    progress.progressRange(static_cast<int>(database.recordCount()));
    progress.progressPosition(0);

    CsvFile file(QDir(m_folder).filePath(fileName(which)));
    if (!file.create()) {
        progress.message(QStringLiteral("%1 could not be created: %2.").arg(shownPath(which), file.errorString()),
                         ExportProgress::MessageKind::Error);
        ++m_failedFiles;
        return false;
    }
    CsvLayout::addHeader(log, file);
    bool written = file.endLine();
    DbRecord record;
    int position = 0;
    for (; oid != 0 && written; oid = database.SeekNext()) {
        if (!database.ReadCurrent(record)) {
            progress.message(kDataAccessError, ExportProgress::MessageKind::Error);
            ++m_failedFiles;
            return false;
        }
        progress.progressPosition(++position);
        if (isReferenceDay(record)) {
            continue;
        }
        CsvLayout::addLine(log, record, file);
        written = file.endLine();
    }
    database.Close();
    // A file not written whole never takes the old one's place.
    if (!written || !file.close()) {
        progress.message(QStringLiteral("%1 could not be written: %2.").arg(shownPath(which), file.errorString()),
                         ExportProgress::MessageKind::Error);
        ++m_failedFiles;
        return false;
    }
    progress.status(kDone);
    return true;
}

QString CsvExport::databaseName(UserDatabase which) const {
    return m_databases[static_cast<size_t>(which)];
}

QString CsvExport::shownPath(UserDatabase which) const {
    // The device's own folder is named as the device names it; any other as the host names it.
    if (QDir(m_folder) == QDir(DevicePaths::current().myDocuments())) {
        return QStringLiteral("\\My Documents\\") + fileName(which);
    }
    return QDir::toNativeSeparators(QDir(m_folder).filePath(fileName(which)));
}
