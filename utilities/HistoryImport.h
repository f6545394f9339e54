#pragma once
// kovalin-cli import and the Utilities dialog's Import: brings a person's history in from a folder or
// a file. The kind of each file is found from its name and header row: the tidy tables, the six files
// of the device's CSV export, or another program's export (ForeignExports); anything else is refused
// with the shapes that are known. Everything read is merged as ImportMerge says, in one transaction.

#include "ImportMerge.h"

#include <QString>
#include <QStringList>

class UtilityReport;

class HistoryImport {
public:
    struct Options {
        bool dryRun = false;
        bool replace = false;
    };
    struct Outcome {
        // Every row was taken or deliberately left (the exit status 0).
        bool complete = false;
        // Nothing could be imported: no file of a known shape, or the store refused.
        bool refused = false;
        // The report: what was read, the counts, and every row that could not be read.
        QString text;
    };

    // The shapes the import knows, as its refusal names them.
    static QString knownShapes();

    // user: whose logs (the empty name: Default); paths: folders or files, read in the order given;
    // report, when given, keeps a window painted while the import runs.
    HistoryImport(const QString& user, const QStringList& paths, Options options, UtilityReport* report = nullptr);
    HistoryImport(const QString& user, const QString& path, Options options)
        : HistoryImport(user, QStringList{path}, options) {}
    Outcome run();

private:
    // The .csv files of the paths: a file itself, or those of a folder in name order.
    QStringList files() const;
    // Reads one file into the history; false when its shape is not known.
    bool readFile(const QString& path);
    QString reportText(const ImportMerge::Result& result) const;

    QString m_user;
    QStringList m_paths;
    Options m_options;
    UtilityReport* m_report;
    ImportedHistory m_history;
    class TablesReader* m_tables = nullptr;
};
