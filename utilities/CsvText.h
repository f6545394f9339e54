#pragma once
// The rows of a comma-separated file being imported, each with the line it starts on. Two kinds of
// text are read:
// - RFC 4180 in UTF-8 (the tidy tables and other programs' exports): cells quoted when needed, quotes
//   doubled, any line end; the separator a comma or, for older exports, a semicolon;
// - the device's CSV export: code page 1252, every cell quoted with nothing escaped, lines ended by a
//   lone carriage return (a note holding the separator "," or a line break still reads when the
//   line's cells come out at the header's count).
// The first row is the header. What cannot be read is told with its line.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct CsvRow {
    int line = 0;
    QStringList cells;
    bool cut = false; // the file ends inside the row's quoted cell
};

struct CsvProblem {
    int line = 0;
    QString text;
};

class CsvText {
public:
    // The file's first line, decoded as UTF-8 (1252 where it is not UTF-8): enough to tell its shape.
    static QStringList headerOf(const QByteArray& bytes, QChar separator);
    static QStringList deviceHeaderOf(const QByteArray& bytes);
    // The separator of an export's header line: a semicolon when the line has one and no comma.
    static QChar separatorOf(const QByteArray& bytes);
    // True when the bytes hold zero bytes or a UTF-16 byte-order mark: text of another encoding.
    static bool isWideText(const QByteArray& bytes);

    // Reads an RFC 4180 file. A file that is not UTF-8 text is refused whole: std::nullopt, with the
    // line of the first byte that is not UTF-8 in refusal.
    static std::optional<CsvText> readUtf8(const QByteArray& bytes, QChar separator, CsvProblem* refusal);
    // Reads a file of the device's CSV export; a row whose cells do not come out at the header's
    // count is a problem.
    static std::optional<CsvText> readDevice(const QByteArray& bytes, CsvProblem* refusal);

    const QStringList& header() const { return m_header; }
    const std::vector<CsvRow>& rows() const { return m_rows; }
    const std::vector<CsvProblem>& problems() const { return m_problems; }

private:
    void parseRfc4180(const QString& text, QChar separator);
    void addRow(CsvRow row);

    QStringList m_header;
    std::vector<CsvRow> m_rows;
    std::vector<CsvProblem> m_problems;
    bool m_haveHeader = false;
};
