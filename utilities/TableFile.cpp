#include "TableFile.h"

namespace {
// Gathered bytes are written once they pass this.
constexpr qsizetype kChunk = 1 << 20;

bool needsQuotes(const QByteArray& bytes) {
    for (char c : bytes) {
        if (c == ',' || c == '"' || c == '\r' || c == '\n') {
            return true;
        }
    }
    return false;
}
} // namespace

TableFile::TableFile(const QString& path) : m_file(path) {}

bool TableFile::create(const QStringList& header) {
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate, QFileDevice::ReadOwner | QFileDevice::WriteOwner)) {
        return false;
    }
    for (const QString& name : header) {
        addCell(name);
    }
    return endRow();
}

void TableFile::startCell() {
    if (m_rowStarted) {
        m_buffer += ',';
    }
    m_rowStarted = true;
}

void TableFile::addCell(const QString& text) {
    startCell();
    const QByteArray bytes = text.toUtf8();
    if (!needsQuotes(bytes)) {
        m_buffer += bytes;
        return;
    }
    m_buffer += '"';
    for (char c : bytes) {
        if (c == '"') {
            m_buffer += '"';
        }
        m_buffer += c;
    }
    m_buffer += '"';
}

void TableFile::addCell(QLatin1StringView text) {
    startCell();
    m_buffer.append(text.data(), text.size());
}

bool TableFile::endRow() {
    m_buffer += "\r\n";
    m_rowStarted = false;
    return m_buffer.size() < kChunk || flush();
}

bool TableFile::flush() {
    if (!m_buffer.isEmpty() && m_file.write(m_buffer) != m_buffer.size()) {
        m_failed = true;
    }
    m_buffer.clear();
    return !m_failed;
}

bool TableFile::close() {
    const bool written = flush() && m_file.flush();
    m_file.close();
    return written && m_file.error() == QFileDevice::NoError;
}
