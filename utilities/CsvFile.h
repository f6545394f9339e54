#pragma once
// One export file being written: lines of quoted cells in the device's ANSI code page. Each cell is
// converted as WideCharToMultiByte gives it (CP_ACP, WC_COMPOSITECHECK), enclosed in double quotes
// with nothing inside escaped, the cells separated by commas; a line ends with a lone carriage
// return. No byte-order mark, and nothing after the last line's carriage return.
//
// The lines go into a new file beside the target, which takes the target's place once it is whole:
// a link at the target's name is replaced, never written through, and a file that could not be
// written whole leaves the old one as it was.

#include <QByteArray>
#include <QString>
#include <QTemporaryFile>

class CsvFile {
public:
    explicit CsvFile(const QString& path);

    // Creates the new file (0600) beside the target.
    bool create();
    // Appends a cell to the line being built.
    void addCell(const QString& text);
    // Writes the line being built, ended by its carriage return.
    bool endLine();
    // Writes out what is buffered and puts the file in the target's place: true when the target now
    // holds every line. Otherwise the new file is removed.
    bool close();
    // Why the last create, write or close failed.
    QString errorString() const { return m_error.isEmpty() ? m_file.errorString() : m_error; }

private:
    QString m_path;
    QTemporaryFile m_file;
    QByteArray m_line;
    QString m_error;
};
