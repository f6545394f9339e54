#include "RegistryHelper.h"

#include <QtEndian>

namespace {
// The buffer every string setting is read through.
constexpr DWORD kStringBufferBytes = 260;
} // namespace

DWORD RegistryHelper::GetDword(HKEY root, const QString& key, const QString& name) {
    HKEY handle = nullptr;
    if (RegOpenKeyExW(root, key, &handle) != ERROR_SUCCESS) {
        return 0;
    }
    BYTE bytes[4] = {0, 0, 0, 0};
    DWORD type = 0;
    DWORD size = sizeof bytes;
    const LONG result = RegQueryValueExW(handle, name, &type, bytes, &size);
    RegCloseKey(handle);
    if (result != ERROR_SUCCESS || type != REG_DWORD || size != sizeof bytes) {
        return 0;
    }
    return qFromLittleEndian<quint32>(bytes);
}

DWORD RegistryHelper::SetDword(HKEY root, const QString& key, const QString& name, DWORD number) {
    HKEY handle = nullptr;
    if (const LONG error = RegCreateKeyExW(root, key, &handle); error != ERROR_SUCCESS) {
        return static_cast<DWORD>(error);
    }
    BYTE bytes[4];
    qToLittleEndian<quint32>(number, bytes);
    const LONG error = RegSetValueExW(handle, name, REG_DWORD, bytes, sizeof bytes);
    RegCloseKey(handle);
    return static_cast<DWORD>(error);
}

QString RegistryHelper::GetString(HKEY root, const QString& key, const QString& name) {
    HKEY handle = nullptr;
    if (RegOpenKeyExW(root, key, &handle) != ERROR_SUCCESS) {
        return {};
    }
    BYTE bytes[kStringBufferBytes] = {};
    DWORD type = 0;
    DWORD size = kStringBufferBytes;
    const LONG result = RegQueryValueExW(handle, name, &type, bytes, &size);
    RegCloseKey(handle);
    if (result != ERROR_SUCCESS || type != REG_SZ) {
        return {};
    }
    // The text ends at its terminating zero, or at the end of what was read.
    QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes), size / 2);
    const qsizetype end = text.indexOf(QChar(u'\0'));
    return end < 0 ? text : text.left(end);
}

DWORD RegistryHelper::SetString(HKEY root, const QString& key, const QString& name, const QString& text) {
    HKEY handle = nullptr;
    if (const LONG error = RegCreateKeyExW(root, key, &handle); error != ERROR_SUCCESS) {
        return static_cast<DWORD>(error);
    }
    // UTF-16LE with the terminating zero counted in the length, as the platform stores strings.
    QByteArray bytes(static_cast<qsizetype>((text.size() + 1) * 2), '\0');
    for (qsizetype i = 0; i < text.size(); ++i) {
        qToLittleEndian<quint16>(text.at(i).unicode(), bytes.data() + 2 * i);
    }
    const LONG error = RegSetValueExW(handle, name, REG_SZ, reinterpret_cast<const BYTE*>(bytes.constData()),
                                      static_cast<DWORD>(bytes.size()));
    RegCloseKey(handle);
    return static_cast<DWORD>(error);
}
