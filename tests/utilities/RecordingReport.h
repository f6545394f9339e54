#pragma once
// A UtilityReport that writes what it is told into one list: "status <text>", "message <text>",
// "range <low> <high>", "position <n>", "step <n>" and "stepit".

#include "UtilityReport.h"

#include <QRegularExpression>
#include <QStringList>

class RecordingReport : public UtilityReport {
public:
    void status(const QString& text) override { log << "status " + text; }
    void message(const QString& text) override { log << "message " + text; }
    void progressRange(int low, int high) override { log << QStringLiteral("range %1 %2").arg(low).arg(high); }
    void progressPosition(int position) override { log << QStringLiteral("position %1").arg(position); }
    void progressStep(int step) override { log << QStringLiteral("step %1").arg(step); }
    void stepProgress() override { log << QStringLiteral("stepit"); }
    // The status and message lines alone.
    QStringList texts() const { return log.filter(QRegularExpression("^(status|message) ")); }

    QStringList log;
};
