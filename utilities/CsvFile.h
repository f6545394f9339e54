#pragma once
// One export file being written: lines of quoted cells in the device's ANSI code page. Each cell is
// converted as WideCharToMultiByte gives it (CP_ACP, WC_COMPOSITECHECK), enclosed in double quotes
// with nothing inside escaped, the cells separated by commas; a line ends with a lone carriage
// return. No byte-order mark, and nothing after the last line's carriage return.

#include <QByteArray>
#include <QFile>
#include <QString>

class CsvFile {
public:
    explicit CsvFile(const QString& path);

    // Creates the file anew for writing only (0600); an existing file of the name is truncated.
    bool create();
    // Appends a cell to the line being built.
    void addCell(const QString& text);
    // Writes the line being built, ended by its carriage return.
    bool endLine();
    bool close();
    // Why the last create, write or close failed.
    QString errorString() const { return m_file.errorString(); }

private:
    QFile m_file;
    QByteArray m_line;
};
