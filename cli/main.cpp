// kovalin-cli: Kovalin's data utilities from a terminal or cron, without the window.

#include "CliOptions.h"
#include "CliRun.h"

#include <QCoreApplication>

#include <cstdio>

#include <sys/stat.h>

int main(int argc, char* argv[]) {
    // Every file the program makes is its user's alone, as with kovalin itself.
    ::umask(077);
    QCoreApplication application(argc, argv);
    // The same name as the window's, so that the default device folder is the same one.
    QCoreApplication::setApplicationName(QStringLiteral("Kovalin"));
    const CliOptions options = CliOptions::parse(QCoreApplication::arguments());
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "kovalin-cli: %s\n\n%s", qPrintable(options.error), qPrintable(options.helpText));
        return 2;
    }
    if (options.help) {
        std::printf("%s", qPrintable(options.helpText));
        return 0;
    }
    if (options.version) {
        std::printf("kovalin-cli %s\n", KOVALIN_VERSION);
        return 0;
    }
    return CliRun(options).exec();
}
