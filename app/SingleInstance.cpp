#include "SingleInstance.h"

#include "DevicePaths.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
constexpr int kConnectTimeoutMs = 1000;
const QByteArray kActivate = QByteArrayLiteral("activate\n");
} // namespace

SingleInstance::SingleInstance(const QString& deviceFolder, QObject* parent)
    : QObject(parent), m_deviceFolder(deviceFolder) {}

SingleInstance::~SingleInstance() {
    if (m_lock >= 0) {
        // Removed while still held, so that no one takes the lock of a file that is gone.
        ::unlink(QFile::encodeName(lockPath(m_deviceFolder)).constData());
        ::close(m_lock);
    }
}

QString SingleInstance::lockPath(const QString& deviceFolder) {
    return DevicePaths(deviceFolder).lockFile();
}

DWORD SingleInstance::lock() {
    const QByteArray path = QFile::encodeName(lockPath(m_deviceFolder));
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
            m_lock = fd;
            return ERROR_SUCCESS;
        }
        ::close(fd);
    }
    return ERROR_SHARING_VIOLATION;
}

QString SingleInstance::serverName(const QString& deviceFolder) {
    const QString canonical = QFileInfo(deviceFolder).canonicalFilePath();
    const QByteArray hash =
        QCryptographicHash::hash((canonical.isEmpty() ? deviceFolder : canonical).toUtf8(), QCryptographicHash::Sha1);
    return QStringLiteral("kovalin-") + QString::fromLatin1(hash.toHex().left(16));
}

bool SingleInstance::acquire() {
    m_error = m_lock >= 0 ? ERROR_SUCCESS : lock();
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
