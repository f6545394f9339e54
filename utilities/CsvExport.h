#pragma once
// The CSV export: copies one user's six logs into six comma-separated files for a desktop
// spreadsheet, kovupper.csv, kovupper2.csv, kovlower.csv, kovlower2.csv, kovaerobic.csv and
// kovfood.csv. It reads the databases and never changes them.
//
// The files are 8-bit text in the device's ANSI code page with no byte-order mark: every cell in
// double quotes with nothing escaped, cells separated by commas, each line ended by a lone carriage
// return. Every record of a log but the reference-day marker gives one line, in date order.

#include "BodyRegion.h"
#include "DatabaseCatalogue.h"
#include "ExportProgress.h"

#include <QString>

#include <array>

// The six database names of the user whose logs are exported, in UserDatabase order, as the main
// window keeps them (DatabaseCatalogue::userDatabaseNames).
using ExportSource = std::array<QString, kUserDatabaseCount>;

class CsvExport {
public:
    // The yes/no question asked before anything is written.
    static QString question();
    // folder: where the files go, the host folder of the device's \My Documents\.
    CsvExport(const ExportSource& databases, const QString& folder);

    // The whole export, as the Export button runs it: the question, then both body halves, the
    // aerobic log and the food log, each reporting its status texts and progress, and the closing
    // "Export successful!". A log that cannot be exported is skipped with its message and the next
    // one is tried; when a file could not be created or written, the closing message says the export
    // is incomplete instead. True when the six files were written; false when the question was
    // refused or any log was skipped.
    bool run(ExportProgress& progress);

    // The two files of a body half, from its A and B databases: neither is written when either
    // database holds fewer than 3 records.
    bool ExportStrength(BodyRegion region, ExportProgress& progress);
    bool ExportAerobic(ExportProgress& progress);
    bool ExportFood(ExportProgress& progress);

    // The file a database is exported to: "kovupper.csv", ..., "kovfood.csv".
    static QString fileName(UserDatabase which);

private:
    // Writes the database's file: every record after the reference-day marker, in date order.
    bool exportLog(UserDatabase which, ExportProgress& progress);
    DWORD recordCount(UserDatabase which) const;
    QString databaseName(UserDatabase which) const;
    // The file as its messages name it.
    QString shownPath(UserDatabase which) const;

    ExportSource m_databases;
    QString m_folder;
    // Files that could not be created or written whole in this run.
    int m_failedFiles = 0;
};
