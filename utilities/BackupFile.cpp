#include "BackupFile.h"

#include "DevicePaths.h"

QString BackupFile::userFileName(const QString& user) {
    return user.isEmpty() ? QStringLiteral("Default") : user;
}

QString BackupFile::devicePath(const QString& user) {
    return QStringLiteral("\\My Documents\\") + userFileName(user) + QStringLiteral(".kov");
}

QString BackupFile::hostPath(const QString& user) {
    return DevicePaths::current().hostPath(devicePath(user));
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
