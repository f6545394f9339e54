#include "CliOptions.h"

#include <QCommandLineParser>

const QStringList& CliOptions::commands() {
    static const QStringList names = {QStringLiteral("export"), QStringLiteral("backup"), QStringLiteral("restore"),
                                      QStringLiteral("compact"), QStringLiteral("users")};
    return names;
}

CliOptions CliOptions::parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Kovalin's data utilities without the window.\n\n"
                       "Commands:\n"
                       "  export   writes the six CSV files of the user's logs into the device's My Documents\n"
                       "  backup   writes My Documents/<user>.kov\n"
                       "  restore  replaces the user's logs with those of My Documents/<user>.kov\n"
                       "  compact  deletes the user's days that hold no entries\n"
                       "  users    prints the user list, one name a line\n\n"
                       "Export and backup may run while Kovalin is open on the device; restore and compact may not."));
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Shows the version."));
    const QCommandLineOption device(QStringLiteral("device"),
                                    QStringLiteral("The device folder (default: $KOVALIN_DEVICE, else the "
                                                   "application data folder's \"device\")."),
                                    QStringLiteral("DIR"));
    const QCommandLineOption user(QStringLiteral("user"),
                                  QStringLiteral("The user whose logs are used (default: the last user of Kovalin)."),
                                  QStringLiteral("NAME"));
    const QCommandLineOption yes(QStringList{QStringLiteral("y"), QStringLiteral("yes")},
                                 QStringLiteral("Restores without asking."));
    parser.addOptions({help, version, device, user, yes});
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("export, backup, restore, compact or users"));
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
    const QStringList positional = parser.positionalArguments();
    if (positional.isEmpty()) {
        options.error = QStringLiteral("No command given.");
    } else if (positional.size() > 1) {
        options.error = QStringLiteral("Unexpected argument: ") + positional.at(1);
    } else if (!commands().contains(positional.constFirst())) {
        options.error = QStringLiteral("Unknown command: ") + positional.constFirst();
    } else {
        options.command = positional.constFirst();
    }
    return options;
}
