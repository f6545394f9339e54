#pragma once
// What an export tells its caller as it runs. The Utilities dialog shows the status texts in its
// status line, moves its progress bar and shows the messages in message boxes; the command line
// prints the status texts on standard output and the messages on standard error.

#include <QString>

class ExportProgress {
public:
    enum class MessageKind { Information, Warning, Error };

    virtual ~ExportProgress() = default;

    // The yes/no question asked before anything is written; false cancels the export.
    virtual bool confirm(const QString& question) = 0;
    // The status line's new text.
    virtual void status(const QString& text) = 0;
    // The progress bar's range becomes 0..maximum.
    virtual void progressRange(int maximum) = 0;
    virtual void progressPosition(int position) = 0;
    // A message box with an OK button.
    virtual void message(const QString& text, MessageKind kind) = 0;
};
