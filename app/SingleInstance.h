#pragma once
// One running Kovalin per device: a lock file in the device folder, held with flock() so that the
// system lets it go when the process ends however it ends, and a local server named after the
// device through which a second start asks the running one to come to the front.

#include "DeviceLock.h"

#include <QObject>

class QLocalServer;

class SingleInstance : public QObject {
    Q_OBJECT
public:
    explicit SingleInstance(const QString& deviceFolder, QObject* parent = nullptr);
    ~SingleInstance() override;

    // Takes the device: true when no other Kovalin runs on it. A lock file left by a process that
    // died is taken over. On false, error() tells why.
    bool acquire();
    // ERROR_SHARING_VIOLATION when another Kovalin holds the device; otherwise the error of making
    // the lock file (ERROR_ACCESS_DENIED for a folder that cannot be written, ERROR_DISK_FULL).
    DWORD error() const { return m_error; }
    // Asks the Kovalin that holds the device to come to the front; false when it cannot be reached.
    bool activateRunning();

    static QString lockPath(const QString& deviceFolder);
    static QString serverName(const QString& deviceFolder);

signals:
    // A second start asked this one to come to the front.
    void activationRequested();

private:
    void onConnection();

    QString m_deviceFolder;
    DeviceLock m_lock;
    DWORD m_error = ERROR_SUCCESS;
    QLocalServer* m_server = nullptr;
};
