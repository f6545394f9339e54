#pragma once
// Backup: the user's six logs copied, record by record and verbatim, into the copies of the backup
// file "\My Documents\<user>.kov", a database volume made anew each time: written whole beside the
// file in one transaction, and only then put in its place.

#include <QString>

class UtilityReport;

class Backup {
public:
    // Backs up the logs of user (the empty name: Default). True when the new backup is in place; the
    // status line and the messages tell what happened.
    static bool run(const QString& user, UtilityReport& report);
};
