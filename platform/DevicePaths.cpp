#include "DevicePaths.h"

#include <QCommandLineOption>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <optional>

#include <sys/stat.h>

namespace {
std::optional<DevicePaths>& currentPaths() {
    static std::optional<DevicePaths> paths;
    return paths;
}

DWORD errorOfErrno(int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case ENOTDIR:
        return ERROR_DIRECTORY;
    case EIO:
        return ERROR_WRITE_FAULT;
    default:
        return ERROR_ACCESS_DENIED;
    }
}

// Creates folder, and any missing folder above it, readable by its owner only whatever the umask,
// unless it is there already.
DWORD ensureFolder(const QString& folder) {
    const QFileInfo info(folder);
    if (info.isDir()) {
        return ERROR_SUCCESS;
    }
    if (info.exists() || info.isSymLink()) {
        return ERROR_DIRECTORY;
    }
    const QString parent = info.absolutePath();
    if (parent != folder) {
        const DWORD error = ensureFolder(parent);
        if (error != ERROR_SUCCESS) {
            return error;
        }
    }
    const QByteArray name = QFile::encodeName(folder);
    if (::mkdir(name.constData(), 0700) != 0 && errno != EEXIST) {
        return errorOfErrno(errno);
    }
    return ::chmod(name.constData(), 0700) == 0 ? ERROR_SUCCESS : errorOfErrno(errno);
}

// The entry of folder named name; the device's file system ignores case, so an entry that differs
// from name only in case is the one meant. Without either, name itself (a file yet to be made).
QString entryName(const QString& folder, const QString& name) {
    if (QFileInfo::exists(folder + u'/' + name)) {
        return name;
    }
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) {
            return entry;
        }
    }
    return name;
}
} // namespace

QCommandLineOption DevicePaths::option() {
    return QCommandLineOption(QStringLiteral("device"),
                              QStringLiteral("The device folder (default: $KOVALIN_DEVICE, else the application data "
                                             "folder's \"device\")."),
                              QStringLiteral("DIR"));
}

QString DevicePaths::resolve(const QString& option) {
    QString folder = option;
    if (folder.isEmpty()) {
        folder = qEnvironmentVariable("KOVALIN_DEVICE");
    }
    if (folder.isEmpty()) {
        folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/device");
    }
    return QDir::cleanPath(QDir(folder).absolutePath());
}

DevicePaths::DevicePaths(QString root) : m_root(std::move(root)) {}

DWORD DevicePaths::claim() const {
    const QFileInfo root(m_root);
    if (!root.exists()) {
        return ensureFolder(m_root);
    }
    if (!root.isDir()) {
        return ERROR_DIRECTORY;
    }
    if (QFileInfo::exists(objectStore())) {
        return ERROR_SUCCESS;
    }
    // A folder holding nothing but what a device holds (its lock, its three folders) is a device
    // whose store is gone or was never made: one whose start failed, or whose store its owner removed.
    const QStringList own = {QFileInfo(lockFile()).fileName(), QFileInfo(myDocuments()).fileName(),
                             QFileInfo(windowsFolder()).fileName(), QStringLiteral("Program Files")};
    const QStringList entries =
        QDir(m_root).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    const bool device =
        std::all_of(entries.begin(), entries.end(), [&own](const QString& entry) { return own.contains(entry); });
    if (!device) {
        return ERROR_DIR_NOT_EMPTY;
    }
    return root.isWritable() ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

DWORD DevicePaths::createFolders(QString* failed) const {
    for (const QString& folder : {myDocuments(), windowsFolder(), programFolder()}) {
        const DWORD error = ensureFolder(folder);
        if (error != ERROR_SUCCESS) {
            if (failed != nullptr) {
                *failed = folder;
            }
            return error;
        }
    }
    return ERROR_SUCCESS;
}

QString DevicePaths::objectStore() const {
    return m_root + QStringLiteral("/objectstore.db");
}

QString DevicePaths::lockFile() const {
    return m_root + QStringLiteral("/kovalin.lock");
}

QString DevicePaths::myDocuments() const {
    return m_root + QStringLiteral("/My Documents");
}

QString DevicePaths::windowsFolder() const {
    return m_root + QStringLiteral("/Windows");
}

QString DevicePaths::programFolder() const {
    return m_root + QStringLiteral("/Program Files/Kovalin");
}

QString DevicePaths::hostPath(const QString& devicePath) const {
    // Every device path is taken from the device's root; ".." stops there, as it does at "\".
    QStringList parts;
    const QStringList components = QString(devicePath).replace(u'/', u'\\').split(u'\\', Qt::SkipEmptyParts);
    for (const QString& component : components) {
        if (component == u"..") {
            if (!parts.isEmpty()) {
                parts.removeLast();
            }
        } else if (component != u".") {
            parts.append(component);
        }
    }
    QString host = m_root;
    for (const QString& part : parts) {
        host += u'/' + entryName(host, part);
    }
    return host;
}

const DevicePaths& DevicePaths::current() {
    auto& paths = currentPaths();
    if (!paths) {
        paths.emplace(resolve({}));
    }
    return *paths;
}

void DevicePaths::setCurrent(const DevicePaths& paths) {
    currentPaths() = paths;
}
