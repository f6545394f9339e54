#pragma once
// A UtilityReport and an ExportProgress that write what they are told into one list: "status <text>",
// "message <text>", "range <low> <high>", "position <n>", "step <n>", "stepit" and "confirm" (answered
// with answer, the question kept).

#include "ExportProgress.h"
#include "UtilityReport.h"

#include <QRegularExpression>
#include <QStringList>

class RecordingReport : public UtilityReport, public ExportProgress {
public:
    void status(const QString& text) override { log << "status " + text; }
    void message(const QString& text) override { log << "message " + text; }
    void message(const QString& text, MessageKind) override { message(text); }
    void progressRange(int low, int high) override { log << QStringLiteral("range %1 %2").arg(low).arg(high); }
    void progressRange(int maximum) override { progressRange(0, maximum); }
    void progressPosition(int position) override { log << QStringLiteral("position %1").arg(position); }
    void progressStep(int step) override { log << QStringLiteral("step %1").arg(step); }
    void stepProgress() override { log << QStringLiteral("stepit"); }
    bool confirm(const QString& text) override {
        question = text;
        log << "confirm";
        return answer;
    }
    // The status and message lines alone.
    QStringList texts() const { return log.filter(QRegularExpression("^(status|message) ")); }

    QStringList log;
    bool answer = true;
    QString question;
};
