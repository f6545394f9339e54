#include "CommandLine.h"

#include "DevicePaths.h"

#include <QCommandLineParser>

CommandLine CommandLine::parse(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Kovalin, a personal fitness log on a Pocket PC screen."));
    CommandLine line;
    const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Shows this help."));
    const QCommandLineOption version(QStringLiteral("version"), QStringLiteral("Shows the version."));
    const QCommandLineOption device = DevicePaths::option();
    const QCommandLineOption scale(
        QStringLiteral("scale"),
        QStringLiteral("Desktop pixels per device pixel, 1 to %1 (default %2).").arg(kMaxScale).arg(kDefaultScale),
        QStringLiteral("N"));
    const QCommandLineOption screenshots(QStringLiteral("screenshots"),
                                         QStringLiteral("Writes PNG screenshots of the screen into DIR and exits."),
                                         QStringLiteral("DIR"));
    const QCommandLineOption quitAfterStart(QStringLiteral("quit-after-start"),
                                            QStringLiteral("Exits once the Today page is painted (for measuring)."));
    parser.addOptions({help, version, device, scale, screenshots, quitAfterStart});
    // The parser names the program from the application object, which does not exist yet.
    line.helpText = parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("kovalin"));

    if (!parser.parse(arguments)) {
        line.error = parser.errorText();
        return line;
    }
    if (!parser.positionalArguments().isEmpty()) {
        line.error = QStringLiteral("Unexpected argument: ") + parser.positionalArguments().constFirst();
        return line;
    }
    line.help = parser.isSet(help);
    line.version = parser.isSet(version);
    line.device = parser.value(device);
    line.screenshotsDir = parser.value(screenshots);
    line.quitAfterStart = parser.isSet(quitAfterStart);
    if (parser.isSet(scale)) {
        bool ok = false;
        line.scale = parser.value(scale).toInt(&ok);
        line.scaleGiven = true;
        if (!ok || line.scale < 1 || line.scale > kMaxScale) {
            line.error = QStringLiteral("--scale takes a whole number from 1 to %1, not \"%2\".")
                             .arg(kMaxScale)
                             .arg(parser.value(scale));
        }
    }
    return line;
}
