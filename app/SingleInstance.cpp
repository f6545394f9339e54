#include "SingleInstance.h"

#include "DevicePaths.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>

namespace {
constexpr int kConnectTimeoutMs = 1000;
const QByteArray kActivate = QByteArrayLiteral("activate\n");
} // namespace

SingleInstance::SingleInstance(const QString& deviceFolder, QObject* parent)
    : QObject(parent), m_deviceFolder(deviceFolder), m_lock(lockPath(deviceFolder)) {}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::lockPath(const QString& deviceFolder) {
    return DevicePaths(deviceFolder).lockFile();
}

QString SingleInstance::serverName(const QString& deviceFolder) {
    const QString canonical = QFileInfo(deviceFolder).canonicalFilePath();
    const QByteArray hash =
        QCryptographicHash::hash((canonical.isEmpty() ? deviceFolder : canonical).toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral("kovalin-") + QString::fromLatin1(hash.toHex().left(16));
}

bool SingleInstance::acquire() {
    m_error = m_lock.acquire();
    if (m_error != ERROR_SUCCESS) {
        return false;
    }
    m_server = new QLocalServer(this);
    const QString name = serverName(m_deviceFolder);
    // Holding the lock, any socket of that name is left over from a process that died.
    QLocalServer::removeServer(name);
    if (m_server->listen(name)) {
        connect(m_server, &QLocalServer::newConnection, this, &SingleInstance::onConnection);
    }
    return true;
}

bool SingleInstance::activateRunning() {
    QLocalSocket socket;
    socket.connectToServer(serverName(m_deviceFolder));
    if (!socket.waitForConnected(kConnectTimeoutMs)) {
        return false;
    }
    socket.write(kActivate);
    const bool written = socket.waitForBytesWritten(kConnectTimeoutMs);
    socket.disconnectFromServer();
    return written;
}

void SingleInstance::onConnection() {
    while (QLocalSocket* socket = m_server->nextPendingConnection()) {
        auto read = [this, socket] {
            if (socket->readAll().contains(kActivate.trimmed())) {
                emit activationRequested();
            }
        };
        connect(socket, &QLocalSocket::readyRead, this, read);
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        // What came with the connection is there already, and signals no readyRead of its own.
        if (socket->bytesAvailable() > 0) {
            read();
        }
    }
}
