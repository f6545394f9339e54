#include "CliRun.h"

#include "Backup.h"
#include "CeDatabase.h"
#include "Compact.h"
#include "ConsoleReport.h"
#include "DeviceLock.h"
#include "DevicePaths.h"
#include "ErrorMessage.h"
#include "ExportRunner.h"
#include "HistoryImport.h"
#include "RegistryHelper.h"
#include "Restore.h"
#include "Settings.h"
#include "TablesExport.h"
#include "UserList.h"

#include <QFile>

#include <memory>

int CliRun::fail(const QString& text) {
    std::fprintf(stderr, "kovalin-cli: %s\n", qPrintable(text));
    return 1;
}

QString CliRun::refusedLock(const QString& holder) const {
    if (holder.startsWith(kHolderPrefix)) {
        return QStringLiteral("Another command (kovalin-cli %1) is running on this device; run %2 when it has "
                              "finished.")
            .arg(holder.mid(kHolderPrefix.size()), m_options.command);
    }
    return QStringLiteral("Kovalin is running on this device; close it before running %1.").arg(m_options.command);
}

int CliRun::exec() {
    const DevicePaths paths(DevicePaths::resolve(m_options.device));
    // The command line works on a device Kovalin has made; it never makes one.
    if (!QFile::exists(paths.objectStore())) {
        return fail(QStringLiteral("There is no Kovalin device in %1 (it has no objectstore.db).").arg(paths.root()));
    }
    std::unique_ptr<DeviceLock> lock;
    // An import writes the logs as restore and compact do; a dry run only reads them.
    const bool importing = m_options.command == QStringLiteral("import") && !m_options.dryRun;
    if (m_options.command == QStringLiteral("restore") || m_options.command == QStringLiteral("compact") || importing) {
        lock = std::make_unique<DeviceLock>(paths.lockFile());
        if (const DWORD error = lock->acquire(); error == ERROR_SHARING_VIOLATION) {
            return fail(refusedLock(DeviceLock::holder(paths.lockFile())));
        } else if (error != ERROR_SUCCESS) {
            return fail(ErrorMessage::forPath(paths.lockFile(), error));
        }
        lock->describe(kHolderPrefix + m_options.command);
    }
    DevicePaths::setCurrent(paths);
    if (!CeMountObjectStore(paths.objectStore())) {
        return fail(ErrorMessage::forPath(paths.objectStore(), GetLastError()));
    }
    QString user = m_options.user;
    if (!m_options.userGiven) {
        user = RegistryHelper::GetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser);
    }
    const int code = runCommand(user == QStringLiteral("Default") ? QString() : user);
    CeUnmountObjectStore();
    return code;
}

int CliRun::runCommand(const QString& user) {
    ConsoleReport report;
    const QString& command = m_options.command;
    if (command == QStringLiteral("users")) {
        const std::optional<QStringList> names = UserList::names();
        if (!names) {
            return fail(QStringLiteral("The user list cannot be read."));
        }
        for (const QString& name : *names) {
            std::printf("%s\n", qPrintable(name));
        }
        return 0;
    }
    // The user list's row for adding a user is in the list, but it is no one.
    if (user == UserList::kAddNewUser) {
        return fail(QStringLiteral("\"%1\" is the row for adding a user, not a user.").arg(user));
    }
    // A user named on the command line must be one of the device's users, so that a mistyped name
    // never creates logs for nobody.
    if (m_options.userGiven && !user.isEmpty()) {
        const std::optional<QStringList> users = UserList::names();
        if (!users || !users->contains(user)) {
            return fail(QStringLiteral("There is no user named \"%1\" on this device.").arg(user));
        }
    }
    bool done = false;
    if (command == QStringLiteral("export") && !m_options.tablesFolder.isEmpty()) {
        done = TablesExport(user, m_options.tablesFolder).run(report);
    } else if (command == QStringLiteral("export")) {
        done = ExportRunner::run(user, report);
    } else if (command == QStringLiteral("import")) {
        const HistoryImport::Outcome outcome =
            HistoryImport(user, m_options.importPath, {m_options.dryRun, m_options.replace}).run();
        if (outcome.refused) {
            return fail(outcome.text);
        }
        std::printf("%s\n", qPrintable(outcome.text));
        done = outcome.complete;
    } else if (command == QStringLiteral("backup")) {
        done = Backup::run(user, report);
    } else if (command == QStringLiteral("restore")) {
        report.status(QStringLiteral("Restoring..."));
        if (!m_options.yes && !confirmRestore(user)) {
            report.status(QStringLiteral("Cancelled."));
            return 1;
        }
        done = Restore::run(user, report);
    } else if (command == QStringLiteral("compact")) {
        done = Compact::run(user, report);
    }
    return done ? 0 : 1;
}

bool CliRun::confirmRestore(const QString& user) {
    std::fprintf(stderr, "%s [y/N] ", qPrintable(Restore::question(user)));
    std::fflush(stderr);
    char line[64] = {};
    if (std::fgets(line, sizeof line, m_answers) == nullptr) {
        std::fprintf(stderr, "\n");
        return false;
    }
    const QString answer = QString::fromLocal8Bit(line).trimmed().toLower();
    return answer == QStringLiteral("y") || answer == QStringLiteral("yes");
}
