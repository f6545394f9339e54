#include "CsvText.h"

#include "AnsiText.h"

#include <QStringDecoder>

namespace {
QString fromWindows1252(const QByteArray& bytes) {
    if (bytes.isEmpty()) {
        return {};
    }
    QString text(bytes.size(), Qt::Uninitialized);
    MultiByteToWideChar(CP_ACP, 0, bytes.constData(), static_cast<int>(bytes.size()),
                        reinterpret_cast<WCHAR*>(text.data()), static_cast<int>(text.size()));
    return text;
}

QByteArray withoutBom(const QByteArray& bytes) {
    return bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
}

QByteArray firstLine(const QByteArray& bytes) {
    qsizetype end = 0;
    while (end < bytes.size() && bytes[end] != '\r' && bytes[end] != '\n') {
        ++end;
    }
    return bytes.left(end);
}

// The line (from 1) of the first byte that is not UTF-8; 0 when all are.
int firstNonUtf8Line(const QByteArray& bytes) {
    int line = 1;
    qsizetype start = 0;
    while (start <= bytes.size()) {
        qsizetype end = bytes.indexOf('\n', start);
        if (end < 0) {
            end = bytes.size();
        }
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString text = decoder.decode(QByteArrayView(bytes).sliced(start, end - start));
        if (decoder.hasError()) {
            return line;
        }
        ++line;
        start = end + 1;
    }
    return 0;
}

// The cells of one line of the device's export, or std::nullopt when it is not quoted cells.
std::optional<QStringList> deviceCells(const QString& line) {
    if (line.size() < 2 || !line.startsWith(QLatin1Char('"')) || !line.endsWith(QLatin1Char('"'))) {
        return std::nullopt;
    }
    return line.mid(1, line.size() - 2).split(QStringLiteral("\",\""));
}
} // namespace

bool CsvText::isWideText(const QByteArray& bytes) {
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF") || bytes.contains('\0');
}

QChar CsvText::separatorOf(const QByteArray& bytes) {
    const QByteArray line = firstLine(withoutBom(bytes));
    return line.contains(';') && !line.contains(',') ? QLatin1Char(';') : QLatin1Char(',');
}

QStringList CsvText::headerOf(const QByteArray& bytes, QChar separator) {
    const QByteArray line = firstLine(withoutBom(bytes));
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(line);
    if (decoder.hasError()) {
        text = fromWindows1252(line);
    }
    CsvText table;
    table.parseRfc4180(text, separator);
    return table.m_header;
}

QStringList CsvText::deviceHeaderOf(const QByteArray& bytes) {
    return deviceCells(fromWindows1252(firstLine(bytes))).value_or(QStringList());
}

std::optional<CsvText> CsvText::readUtf8(const QByteArray& raw, QChar separator, CsvProblem* refusal) {
    const QByteArray bytes = withoutBom(raw);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (isWideText(raw) || decoder.hasError()) {
        *refusal = {isWideText(raw) ? 1 : firstNonUtf8Line(bytes),
                    QStringLiteral("is not UTF-8 text; save it as UTF-8 and import it again")};
        return std::nullopt;
    }
    CsvText table;
    table.parseRfc4180(text, separator);
    return table;
}

void CsvText::addRow(CsvRow row) {
    // A blank line is no row.
    if (row.cells.size() == 1 && row.cells.constFirst().isEmpty()) {
        return;
    }
    if (!m_haveHeader) {
        m_header = row.cells;
        m_haveHeader = true;
        return;
    }
    m_rows.push_back(std::move(row));
}

void CsvText::parseRfc4180(const QString& text, QChar separator) {
    CsvRow row{1, {}};
    QString cell;
    int line = 1;
    bool quoted = false;
    bool cellWasQuoted = false;
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < size && text.at(i + 1) == QLatin1Char('"')) {
                    cell += c;
                    ++i;
                } else {
                    quoted = false;
                }
            } else {
                if (c == QLatin1Char('\n') || (c == QLatin1Char('\r') && !(i + 1 < size && text.at(i + 1) == '\n'))) {
                    ++line;
                }
                cell += c;
            }
        } else if (c == QLatin1Char('"') && cell.isEmpty() && !cellWasQuoted) {
            quoted = true;
            cellWasQuoted = true;
        } else if (c == separator) {
            row.cells << cell;
            cell.clear();
            cellWasQuoted = false;
        } else if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            if (c == QLatin1Char('\r') && i + 1 < size && text.at(i + 1) == QLatin1Char('\n')) {
                ++i;
            }
            row.cells << cell;
            addRow(std::move(row));
            ++line;
            row = CsvRow{line, {}};
            cell.clear();
            cellWasQuoted = false;
        } else {
            cell += c;
        }
    }
    if (quoted) {
        row.cells << cell;
        row.cut = true;
        addRow(std::move(row));
        return;
    }
    if (!cell.isEmpty() || !row.cells.isEmpty() || cellWasQuoted) {
        row.cells << cell;
        addRow(std::move(row));
    }
}

std::optional<CsvText> CsvText::readDevice(const QByteArray& bytes, CsvProblem* refusal) {
    if (isWideText(bytes)) {
        *refusal = {1, QStringLiteral("is not text in the device's code page (1252)")};
        return std::nullopt;
    }
    QStringList lines = fromWindows1252(bytes).split(QLatin1Char('\r'));
    for (QString& line : lines) {
        // A copy saved with CR LF line ends reads the same.
        if (line.startsWith(QLatin1Char('\n'))) {
            line.remove(0, 1);
        }
    }
    while (!lines.isEmpty() && lines.constLast().isEmpty()) {
        lines.removeLast();
    }
    CsvText table;
    if (lines.isEmpty()) {
        return table;
    }
    table.m_header = deviceCells(lines.constFirst()).value_or(QStringList());
    table.m_haveHeader = true;
    const qsizetype expected = table.m_header.size();
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const int line = static_cast<int>(i) + 1;
        QString joined = lines.at(i);
        std::optional<QStringList> cells = deviceCells(joined);
        // A note with a line break in it continues on the next line.
        while ((!cells || cells->size() < expected) && i + 1 < lines.size() &&
               !lines.at(i + 1).startsWith(QLatin1Char('"'))) {
            joined += QLatin1Char('\r') + lines.at(++i);
            cells = deviceCells(joined);
        }
        if (!cells || cells->size() != expected) {
            // Told by the reader, which knows the row's log and can leave its day out.
            table.m_rows.push_back({line, cells.value_or(QStringList{joined.mid(1)}), true});
            continue;
        }
        table.m_rows.push_back({line, *cells});
    }
    return table;
}
