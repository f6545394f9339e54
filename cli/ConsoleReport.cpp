#include "ConsoleReport.h"

#include <cstdio>

void ConsoleReport::status(const QString& text) {
    // The dialog clears its status line after a success; a terminal has nothing to clear.
    if (!text.isEmpty()) {
        std::printf("%s\n", qPrintable(text));
        std::fflush(stdout);
    }
}

void ConsoleReport::message(const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
}
