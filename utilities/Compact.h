#pragma once
// Compact: the user's days that hold no entries are deleted from the logs. A strength day goes as
// its A/B pair, only when neither record holds an entry; the marker records stay, and so does a
// record without a day key.

#include <QString>

class UtilityReport;

class Compact {
public:
    // Compacts the logs of user (the empty name: Default). False when a record could not be read or
    // deleted (the walk stops there, with "Data access error"); a log that is missing or empty is
    // reported and skipped, as the device did.
    static bool run(const QString& user, UtilityReport& report);
};
