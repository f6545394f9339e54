#pragma once
// What a data utility tells the person while it runs: the status line, message boxes, and the
// progress bar with the device control's range, position and step. The Utilities dialog shows them;
// kovalin-cli writes the status lines to standard output and the messages to standard error.

#include <QString>

class UtilityReport {
public:
    virtual ~UtilityReport() = default;

    virtual void status(const QString& text) = 0;
    virtual void message(const QString& text) = 0;
    virtual void progressRange(int low, int high) = 0;
    virtual void progressPosition(int position) = 0;
    virtual void progressStep(int step) = 0;
    virtual void stepProgress() = 0;
    // Called between records, so that a window can handle its events while a long operation runs on
    // its one thread.
    virtual void keepResponsive() {}
};
