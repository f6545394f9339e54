#pragma once
// One running Kovalin per device: a lock file in the device folder, and a local server named after
// the device through which a second start asks the running one to come to the front.

#include <QLockFile>
#include <QObject>

class QLocalServer;

class SingleInstance : public QObject {
    Q_OBJECT
public:
    explicit SingleInstance(const QString& deviceFolder, QObject* parent = nullptr);
    ~SingleInstance() override;

    // Takes the device: true when no other Kovalin runs on it. Stale locks of dead processes are
    // taken over.
    bool acquire();
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
    QLockFile m_lock;
    QLocalServer* m_server = nullptr;
};
