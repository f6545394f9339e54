#pragma once
// Writes an ImportedHistory into one user's logs, as one volume transaction: the whole import happens
// or none of it. Per log and day:
//   added     the log had no record of the day: it gets one (strength: the A/B pair), with the key;
//   filled    the day's record holds no entry (compact's test; strength: A or B): it takes the
//             imported values;
//   left      the day holds an entry: it stays as it is, unless replacing;
//   replaced  with replacing, a day that held an entry takes the imported values.
// A filled or replaced record keeps what the imported files do not carry. Names the lists lack are
// added to them. A dry run counts the same and writes nothing.

#include "ImportedHistory.h"

#include <QDate>
#include <QString>

#include <array>
#include <vector>

class UtilityReport;

class ImportMerge {
public:
    struct LogCounts {
        int added = 0;
        int filled = 0;
        int replaced = 0;
        int left = 0;
        int spoiled = 0;
        std::vector<QDate> leftDays;
    };
    struct Result {
        std::array<LogCounts, kImportLogs> logs;
        int namesAdded = 0;
        bool ok = true;
        QString error; // why nothing was written, when !ok
    };

    // report, when given, is told between days, so that a window stays painted while a long import runs.
    ImportMerge(const QString& user, bool replace, bool dryRun, UtilityReport* report = nullptr)
        : m_user(user), m_replace(replace), m_dryRun(dryRun), m_report(report) {}
    Result run(const ImportedHistory& history);

private:
    bool mergeLog(ImportLog log, const ImportedHistory& history, LogCounts& counts);
    bool addNames(const ImportedHistory& history, int& added);
    bool fail(const QString& text);

    QString m_user;
    bool m_replace;
    bool m_dryRun;
    UtilityReport* m_report;
    QString m_error;
};
