#include "CsvFile.h"

#include "AnsiText.h"

CsvFile::CsvFile(const QString& path) : m_file(path) {}

bool CsvFile::create() {
    return m_file.open(QIODevice::WriteOnly | QIODevice::Truncate, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

void CsvFile::addCell(const QString& text) {
    if (!m_line.isEmpty()) {
        m_line += ',';
    }
    m_line += '"';
    if (!text.isEmpty()) {
        // A letter and a combining accent that the code page holds precomposed become one byte, so
        // the count the conversion returns is what is written, not the text's length.
        const int start = static_cast<int>(m_line.size());
        m_line.resize(start + text.size());
        const int written =
            WideCharToMultiByte(CP_ACP, WC_COMPOSITECHECK, reinterpret_cast<const WCHAR*>(text.utf16()),
                                static_cast<int>(text.size()), m_line.data() + start, static_cast<int>(text.size()));
        m_line.resize(start + written);
    }
    m_line += '"';
}

bool CsvFile::endLine() {
    m_line += '\r';
    const bool written = m_file.write(m_line) == m_line.size();
    m_line.clear();
    return written;
}

bool CsvFile::close() {
    const bool flushed = m_file.flush();
    m_file.close();
    return flushed && m_file.error() == QFileDevice::NoError;
}
