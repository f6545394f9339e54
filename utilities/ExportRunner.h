#pragma once
// The CSV export as the Utilities dialog's Export button and `kovalin-cli export` run it, after the
// question: the six files of the user's logs in My Documents.

#include <QString>

class UtilityReport;

class ExportRunner {
public:
    // The yes/no question asked before an export.
    static QString question();
    // Writes the six files of user's logs (the empty name: Default). True when all were written.
    static bool run(const QString& user, UtilityReport& report);
};
