#include "BackupFile.h"

#include "DevicePaths.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {
const char* const kCompanions[] = {"-wal", "-shm", "-journal"};

DWORD errorOfErrno(int error) {
    return error == ENOSPC || error == EDQUOT ? ERROR_DISK_FULL : ERROR_WRITE_FAULT;
}

// Flushes a file or a folder to the disk.
DWORD sync(const QString& path, int flags) {
    const int fd = ::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC);
    if (fd < 0) {
        return errorOfErrno(errno);
    }
    const bool synced = ::fsync(fd) == 0;
    const int error = errno;
    ::close(fd);
    return synced ? ERROR_SUCCESS : errorOfErrno(error);
}
} // namespace

QString BackupFile::userFileName(const QString& user) {
    return user.isEmpty() ? QStringLiteral("Default") : user;
}

QString BackupFile::devicePath(const QString& user) {
    return QStringLiteral("\\My Documents\\") + userFileName(user) + QStringLiteral(".kov");
}

QString BackupFile::hostPath(const QString& user) {
    return DevicePaths::current().hostPath(devicePath(user));
}

QString BackupFile::partialPath(const QString& user) {
    return hostPath(user) + QStringLiteral(".partial");
}

DWORD BackupFile::putInPlace(const QString& partial, const QString& target) {
    // A closed volume holds everything in its one file; a log left beside it means it is not whole.
    for (const char* suffix : kCompanions) {
        if (QFileInfo::exists(partial + QLatin1String(suffix))) {
            return ERROR_WRITE_FAULT;
        }
    }
    DWORD error = sync(partial, O_RDONLY);
    if (error != ERROR_SUCCESS) {
        return error;
    }
    // Companions of an earlier file at target would be taken for the new file's own log.
    for (const char* suffix : kCompanions) {
        QFile::remove(target + QLatin1String(suffix));
    }
    if (::rename(QFile::encodeName(partial).constData(), QFile::encodeName(target).constData()) != 0) {
        return errorOfErrno(errno);
    }
    return sync(QFileInfo(target).absolutePath(), O_RDONLY | O_DIRECTORY);
}

void BackupFile::discard(const QString& partial) {
    for (const char* suffix : kCompanions) {
        QFile::remove(partial + QLatin1String(suffix));
    }
    QFile::remove(partial);
}

const std::array<BackupCopy, kUserDatabaseCount>& BackupFile::backupOrder() {
    static const std::array<BackupCopy, kUserDatabaseCount> order = {{
        {"BkUpperA", UserDatabase::UpperA},
        {"BkUpperB", UserDatabase::UpperB},
        {"BkLowerA", UserDatabase::LowerA},
        {"BkLowerB", UserDatabase::LowerB},
        {"BkAerobic", UserDatabase::Aerobic},
        {"BkFood", UserDatabase::Food},
    }};
    return order;
}

const std::array<BackupCopy, kUserDatabaseCount>& BackupFile::restoreOrder() {
    static const std::array<BackupCopy, kUserDatabaseCount> order = {{
        {"BkUpperA", UserDatabase::UpperA},
        {"BkLowerA", UserDatabase::LowerA},
        {"BkUpperB", UserDatabase::UpperB},
        {"BkLowerB", UserDatabase::LowerB},
        {"BkAerobic", UserDatabase::Aerobic},
        {"BkFood", UserDatabase::Food},
    }};
    return order;
}
