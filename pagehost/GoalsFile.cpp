#include "GoalsFile.h"

#include "DevicePaths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>

QString GoalsFile::read(bool* ok) {
    if (ok != nullptr) {
        *ok = true;
    }
    QFile file(DevicePaths::current().hostPath(devicePath()));
    if (!file.exists()) {
        return {};
    }
    if (!file.open(QIODevice::ReadOnly)) {
        if (ok != nullptr) {
            *ok = false;
        }
        return {};
    }
    const QByteArray bytes = file.readAll();
    // The decoder honours a byte-order mark and drops it; without one the text is UTF-8.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Default);
    if (bytes.startsWith("\xFF\xFE")) {
        decoder = QStringDecoder(QStringDecoder::Utf16LE, QStringDecoder::Flag::Default);
    }
    return decoder.decode(bytes);
}

bool GoalsFile::write(const QString& text, QString* errorText) {
    const QString path = DevicePaths::current().hostPath(devicePath());
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    QStringEncoder encoder(QStringEncoder::Utf16LE, QStringEncoder::Flag::WriteBom);
    const QByteArray bytes = encoder.encode(text);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        if (errorText != nullptr) {
            *errorText = file.errorString();
        }
        return false;
    }
    return true;
}
