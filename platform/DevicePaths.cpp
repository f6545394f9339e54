#include "DevicePaths.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <optional>

namespace {
constexpr QFile::Permissions kOwnerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

std::optional<DevicePaths>& currentPaths() {
    static std::optional<DevicePaths> paths;
    return paths;
}

// Creates folder, readable by its owner only, unless it is there already.
bool ensureFolder(const QString& folder) {
    if (QFileInfo(folder).isDir()) {
        return true;
    }
    const QString parent = QFileInfo(folder).absolutePath();
    return QDir().mkpath(parent) && QDir().mkdir(folder, kOwnerOnly);
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

bool DevicePaths::ensureCreated() const {
    return ensureFolder(m_root) && ensureFolder(myDocuments()) && ensureFolder(windowsFolder()) &&
           ensureFolder(m_root + QStringLiteral("/Program Files")) && ensureFolder(programFolder());
}

QString DevicePaths::objectStore() const {
    return m_root + QStringLiteral("/objectstore.db");
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
