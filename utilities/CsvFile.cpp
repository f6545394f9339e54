#include "CsvFile.h"

#include "AnsiText.h"

#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

CsvFile::CsvFile(const QString& path) : m_path(path) {
    const QFileInfo target(path);
    m_file.setFileTemplate(target.absolutePath() + QStringLiteral("/.") + target.fileName() +
                           QStringLiteral(".XXXXXX"));
}

bool CsvFile::create() {
    // QTemporaryFile makes a file of its own (O_EXCL, 0600): nothing at that name is followed.
    return m_file.open();
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
    // A full disk may show only when the data reaches it.
    const bool flushed = m_file.flush() && ::fsync(m_file.handle()) == 0;
    if (!flushed && m_file.error() == QFileDevice::NoError) {
        m_error = QString::fromLocal8Bit(std::strerror(errno));
    }
    m_file.close();
    if (!flushed || m_file.error() != QFileDevice::NoError) {
        return false;
    }
    // rename() replaces whatever has the target's name, a link included, and follows nothing.
    if (std::rename(QFile::encodeName(m_file.fileName()).constData(), QFile::encodeName(m_path).constData()) != 0) {
        m_error = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    m_file.setAutoRemove(false);
    return true;
}
