#pragma once
// One tidy table being written: UTF-8 text as RFC 4180 has it, a cell quoted only when it holds a
// comma, a quote or a line break (the quotes inside doubled), cells separated by commas, every line
// ended by CR LF, a header row first. The lines are gathered and written in large pieces.

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>

class TableFile {
public:
    explicit TableFile(const QString& path);

    // Creates the file anew (0600) and writes the header row.
    bool create(const QStringList& header);
    void addCell(const QString& text);
    void addCell(QLatin1StringView text);
    // Ends the row being built.
    bool endRow();
    // Writes what is gathered and closes the file; false when anything could not be written.
    bool close();
    QString errorString() const { return m_file.errorString(); }
    QString path() const { return m_file.fileName(); }

private:
    void startCell();
    bool flush();

    QFile m_file;
    QByteArray m_buffer;
    bool m_rowStarted = false;
    bool m_failed = false;
};
