#include "DeviceLock.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

DeviceLock::~DeviceLock() {
    if (m_fd >= 0) {
        // Removed while still held, so that no one takes the lock of a file that is gone.
        ::unlink(QFile::encodeName(m_path).constData());
        ::close(m_fd);
    }
}

void DeviceLock::describe(const QString& holder) {
    if (m_fd < 0) {
        return;
    }
    const QByteArray text = holder.toUtf8();
    if (::ftruncate(m_fd, 0) == 0) {
        // Only a hint for others' messages: a short write costs nothing but a vaguer message.
        [[maybe_unused]] const ssize_t written = ::pwrite(m_fd, text.constData(), static_cast<size_t>(text.size()), 0);
    }
}

QString DeviceLock::holder(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.read(256)).trimmed();
}

DWORD DeviceLock::acquire() {
    if (m_fd >= 0) {
        return ERROR_SUCCESS;
    }
    const QByteArray path = QFile::encodeName(m_path);
    // A holder that lets go removes the file: a lock taken on the file it removed holds nothing, and
    // is taken again on the file now at the path.
    for (int attempt = 0; attempt < 3; ++attempt) {
        const int fd = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd < 0) {
            return errno == ENOSPC || errno == EDQUOT ? ERROR_DISK_FULL : ERROR_ACCESS_DENIED;
        }
        ::fchmod(fd, 0600); // whatever the umask, or the mode a lock left by an older version had
        if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            ::close(fd);
            return error == EWOULDBLOCK ? ERROR_SHARING_VIOLATION : ERROR_ACCESS_DENIED;
        }
        struct stat held {};
        struct stat named {};
        if (::fstat(fd, &held) == 0 && ::stat(path.constData(), &named) == 0 && held.st_dev == named.st_dev &&
            held.st_ino == named.st_ino) {
            m_fd = fd;
            return ERROR_SUCCESS;
        }
        ::close(fd);
    }
    return ERROR_SHARING_VIOLATION;
}
