// kovalin-devicegen: builds a device folder holding years of daily records for several users.
//   kovalin-devicegen --device DIR [--users 3] [--years 10] [--end YYYY-MM-DD] [--seed N]
//                     [--misc-rest-years N]

#include "DeviceGenerator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace {
int usageError(const QCommandLineParser& parser, const QString& text) {
    std::fprintf(stderr, "%s\n\n%s", qPrintable(text), qPrintable(parser.helpText()));
    return 2;
}

bool positive(const QString& text, int* value) {
    bool ok = false;
    *value = text.toInt(&ok);
    return ok && *value > 0;
}
} // namespace

int main(int argc, char* argv[]) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kovalin-devicegen"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Builds a Kovalin device whose users have a record on every day of the period in all six logs."));
    parser.addHelpOption();
    parser.addOptions({
        {"device", "The device folder to build (it must not hold an object store yet).", "DIR"},
        {"users", "How many users: Default, Ann, Bob, ... (default 3).", "N", "3"},
        {"years", "How many years of days (default 10).", "N", "10"},
        {"end", "The last day of the period (default today).", "YYYY-MM-DD"},
        {"seed", "The seed of the content; the same seed builds the same device (default 1).", "N", "1"},
        {"misc-rest-years",
         "The Misc groups (upper Misc, lower Misc 2) are not trained in the last N years (default 0).", "N", "0"},
    });
    parser.process(app);

    DeviceGenerator::Options options;
    options.device = parser.value("device");
    if (options.device.isEmpty()) {
        return usageError(parser, QStringLiteral("--device DIR is required."));
    }
    if (!positive(parser.value("users"), &options.users) || !positive(parser.value("years"), &options.years)) {
        return usageError(parser, QStringLiteral("--users and --years take a whole number above 0."));
    }
    if (parser.isSet("end")) {
        options.end = QDate::fromString(parser.value("end"), Qt::ISODate);
        if (!options.end.isValid()) {
            return usageError(parser, QStringLiteral("--end takes a date written YYYY-MM-DD."));
        }
    }
    bool restOk = false;
    options.miscRestYears = parser.value("misc-rest-years").toInt(&restOk);
    if (!restOk || options.miscRestYears < 0 || options.miscRestYears >= options.years) {
        return usageError(parser, QStringLiteral("--misc-rest-years takes a whole number from 0 to below --years."));
    }
    bool seedOk = false;
    options.seed = parser.value("seed").toULongLong(&seedOk);
    if (!seedOk) {
        return usageError(parser, QStringLiteral("--seed takes a whole number."));
    }

    QElapsedTimer timer;
    timer.start();
    DeviceGenerator generator(options);
    if (!generator.generate()) {
        std::fprintf(stderr, "kovalin-devicegen: %s\n", qPrintable(generator.errorText()));
        return 1;
    }
    std::printf("%s: users %s, %s to %s, %lld records, %lld properties, %.1f s\n", qPrintable(options.device),
                qPrintable(generator.userNames().join(", ")), qPrintable(generator.firstDay().toString(Qt::ISODate)),
                qPrintable(generator.lastDay().toString(Qt::ISODate)),
                static_cast<long long>(generator.recordsWritten()),
                static_cast<long long>(generator.propertiesWritten()), timer.elapsed() / 1000.0);
    return 0;
}
