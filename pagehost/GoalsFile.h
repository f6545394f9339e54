#pragma once
// The user's goals: a free-text note kept in \Windows\goals.dat, written by the goals dialog and
// shown by the Today page. Stored as UTF-16LE text with a byte-order mark, the device's own text
// form; a file without the mark is read as UTF-8.

#include <QString>

class GoalsFile {
public:
    // The device path of the file.
    static QString devicePath() { return QStringLiteral("\\Windows\\goals.dat"); }
    // The goals text; empty when the file does not exist. False in ok when it exists but cannot
    // be read.
    static QString read(bool* ok = nullptr);
    // Replaces the file with text. False when it cannot be written; errorText then says why.
    static bool write(const QString& text, QString* errorText = nullptr);
};
