#pragma once
// The lock that a running Kovalin holds on its device: a file in the device folder held with flock(),
// so that the system lets it go when the process ends however it ends. The window holds it for its
// whole run; the command line holds it while it changes the logs, so that neither runs under the other.

#include "WinTypes.h"

#include <QString>

class DeviceLock {
public:
    explicit DeviceLock(QString path) : m_path(std::move(path)) {}
    ~DeviceLock();
    DeviceLock(const DeviceLock&) = delete;
    DeviceLock& operator=(const DeviceLock&) = delete;

    // Takes the lock: ERROR_SUCCESS, ERROR_SHARING_VIOLATION when another process holds it, or the
    // error of making the file (ERROR_ACCESS_DENIED, ERROR_DISK_FULL). A lock left by a process that
    // died is taken over.
    DWORD acquire();
    bool held() const { return m_fd >= 0; }
    // Writes into the held lock's file who holds it ("kovalin-cli restore"), so that a process
    // refused the lock can say who has it. The window writes nothing.
    void describe(const QString& holder);
    // What the holder of the lock at path wrote there; empty when it wrote nothing.
    static QString holder(const QString& path);
    const QString& path() const { return m_path; }

private:
    QString m_path;
    int m_fd = -1;
};
