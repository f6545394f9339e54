#pragma once
// The copy loop of backup and restore: every record of one database, all its properties, read in
// the database's order and written as new records of another.

#include "BackupFile.h"
#include "CeDatabase.h"

#include <functional>

class UtilityReport;

class RecordCopier {
public:
    static const QString kDataAccessError;

    // Copies each record of from (opened with CEDB_AUTOINCREMENT) as a new record of to, until the
    // records run out, a few hundred at a time. A read that fails otherwise than at the end, or a
    // write that fails, shows "Data access error" and ends the loop; false then, with nothing of the
    // last batch kept.
    // With checkedSource (data from outside, "The backup"), every record must keep RecordLimits, else
    // the copy ends with the message of overLimits instead.
    static bool copyAll(HANDLE from, HANDLE to, UtilityReport& report, const QString& checkedSource = {});
    // Runs copyLog for each copy of order in one transaction of volume, stepping the progress bar after
    // each: true when every log was copied and the transaction committed. copyLog tells its own
    // failures; a transaction that cannot begin or commit shows "Data access error". Nothing is kept
    // of a run that stops.
    static bool eachInOneTransaction(const CEGUID& volume, const std::array<BackupCopy, kUserDatabaseCount>& order,
                                     const std::function<bool(const BackupCopy&)>& copyLog, UtilityReport& report);
    // The message for data from outside (source: "The backup") holding a record that breaks the
    // limits; reason as RecordLimits::check gives it.
    static QString overLimits(const QString& source, const QString& reason);
};
