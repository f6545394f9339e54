#include "CliOptions.h"

#include "DevicePaths.h"

#include <QCommandLineParser>

const QStringList& CliOptions::commands() {
    static const QStringList names = {QStringLiteral("export"),  QStringLiteral("import"),  QStringLiteral("backup"),
                                      QStringLiteral("restore"), QStringLiteral("compact"), QStringLiteral("users")};
    return names;
}

CliOptions CliOptions::parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Kovalin's data utilities without the window.\n\n"
        "Commands:\n"
        "  export   writes the six CSV files of the user's logs into the device's My Documents;\n"
        "           with --tables DIR, the user's whole history as five tidy UTF-8 tables in DIR\n"
        "  import PATH\n"
        "           brings in a folder or file: Kovalin's tables, the device's CSV files, or the\n"
        "           exports of FitNotes, Strong, Hevy and openScale; days that hold entries are\n"
        "           left as they are unless --replace; --dry-run writes nothing\n"
        "  backup   writes My Documents/<user>.kov\n"
        "  restore  replaces the user's logs with those of My Documents/<user>.kov\n"
        "  compact  deletes the user's days that hold no entries\n"
        "  users    prints the user list, one name a line\n\n"
        "Export and backup may run while Kovalin is open on the device; import, restore and compact may not."));
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Shows the version."));
    const QCommandLineOption device = DevicePaths::option();
    const QCommandLineOption user(QStringLiteral("user"),
                                  QStringLiteral("The user whose logs are used (default: the last user of Kovalin)."),
                                  QStringLiteral("NAME"));
    const QCommandLineOption yes(QStringList{QStringLiteral("y"), QStringLiteral("yes")},
                                 QStringLiteral("Restores without asking."));
    const QCommandLineOption tables(QStringLiteral("tables"),
                                    QStringLiteral("export: writes the tidy tables into DIR instead."),
                                    QStringLiteral("DIR"));
    const QCommandLineOption dryRun(QStringLiteral("dry-run"),
                                    QStringLiteral("import: reports what would be imported and writes nothing."));
    const QCommandLineOption replace(
        QStringLiteral("replace"), QStringLiteral("import: days that already hold entries take the imported values."));
    parser.addOptions({help, version, device, user, yes, tables, dryRun, replace});
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("export, import, backup, restore, compact or users"));
    CliOptions options;
    options.helpText = parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("kovalin-cli"));
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    options.help = parser.isSet(help);
    options.version = parser.isSet(version);
    if (options.help || options.version) {
        return options;
    }
    options.device = parser.value(device);
    options.userGiven = parser.isSet(user);
    options.user = parser.value(user);
    options.yes = parser.isSet(yes);
    options.tablesFolder = parser.value(tables);
    options.dryRun = parser.isSet(dryRun);
    options.replace = parser.isSet(replace);
    const QStringList positional = parser.positionalArguments();
    const bool importing = !positional.isEmpty() && positional.constFirst() == QStringLiteral("import");
    if (positional.isEmpty()) {
        options.error = QStringLiteral("No command given.");
    } else if (importing && positional.size() != 2) {
        options.error = QStringLiteral("import needs the folder or file to import, and only that.");
    } else if (!importing && positional.size() > 1) {
        options.error = QStringLiteral("Unexpected argument: ") + positional.at(1);
    } else if (parser.isSet(tables) && positional.constFirst() != QStringLiteral("export")) {
        options.error = QStringLiteral("--tables belongs to export.");
    } else if ((options.dryRun || options.replace) && !importing) {
        options.error = QStringLiteral("--dry-run and --replace belong to import.");
    } else if (!commands().contains(positional.constFirst())) {
        options.error = QStringLiteral("Unknown command: ") + positional.constFirst();
    } else {
        options.command = positional.constFirst();
        options.importPath = importing ? positional.at(1) : QString();
    }
    return options;
}
