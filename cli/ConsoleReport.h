#pragma once
// What the utilities report, on a terminal: status lines on standard output, messages on standard
// error. The progress bar has nothing to show there.

#include "UtilityReport.h"

class ConsoleReport : public UtilityReport {
public:
    void status(const QString& text) override;
    void message(const QString& text) override;
    void progressRange(int, int) override {}
    void progressPosition(int) override {}
    void progressStep(int) override {}
    void stepProgress() override {}
};
