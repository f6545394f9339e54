#pragma once
// Backup: the user's six logs copied, record by record and verbatim, into the copies of the backup
// file "\My Documents\<user>.kov", a database volume made anew each time.

#include <QString>

class UtilityReport;

class Backup {
public:
    // Backs up the logs of user (the empty name: Default). True when every copy was made whole; the
    // status line and the messages tell what happened.
    static bool run(const QString& user, UtilityReport& report);
};
