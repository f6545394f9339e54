#pragma once
// Delete all data: the Default user's six logs and every name list but the course list and the user
// list. Other users' logs, KovCourseList and KovUserList stay.

#include <QString>
#include <QStringList>

class UtilityReport;

class DeleteAllData {
public:
    // The typed-confirmation text shown before anything is deleted.
    static QString question();
    // The message shown after the deletion, before the program closes.
    static QString closingMessage();
    // The databases deleted, in the order they are deleted.
    static const QStringList& databases();

    // Deletes them, each only when it exists. "Kovalin database not found" (and nothing deleted) when
    // the Default user's upper-body A log does not exist; "Could not delete <name>." when a database
    // that exists cannot be deleted (the rest are not tried). True when all are gone.
    static bool run(UtilityReport& report);
};
