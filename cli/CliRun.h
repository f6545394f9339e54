#pragma once
// One run of kovalin-cli on a device: opens the device, takes the lock when the command changes the
// logs, chooses the user and runs the command. The exit status: 0 on success, 1 when the operation
// failed or was refused.

#include "CliOptions.h"

#include <cstdio>

class CliRun {
public:
    explicit CliRun(const CliOptions& options, std::FILE* answers = stdin) : m_options(options), m_answers(answers) {}
    int exec();

private:
    // What a command that holds the device's lock writes into it, before the command's name.
    static inline const QString kHolderPrefix = QStringLiteral("kovalin-cli ");

    int runCommand(const QString& user);
    // Why the lock was refused, naming its holder: another command, or the window (which writes nothing).
    QString refusedLock(const QString& holder) const;
    bool confirmRestore(const QString& user);
    static int fail(const QString& text);

    const CliOptions& m_options;
    std::FILE* m_answers;
};
