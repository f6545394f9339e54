#pragma once
// The command line of kovalin-cli:
//   kovalin-cli [--device DIR] [--user NAME] [--yes] COMMAND
// with COMMAND one of export [--tables DIR], import PATH [--dry-run] [--replace], backup, restore,
// compact, users.

#include <QString>
#include <QStringList>

class CliOptions {
public:
    static const QStringList& commands();
    static CliOptions parse(const QStringList& arguments);

    QString device;
    QString user;
    bool userGiven = false;
    bool yes = false;
    QString command;
    QString tablesFolder; // export --tables DIR
    QString importPath;   // import PATH
    bool dryRun = false;
    bool replace = false;
    bool help = false;
    bool version = false;
    QString error; // not empty when the command line cannot be used
    QString helpText;
};
