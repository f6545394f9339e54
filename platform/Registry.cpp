// The registry calls: each checks its key handle, reads or writes through RegistryStore on the
// object store, and returns its error code, which it also sets as the thread's last error.

#include "Registry.h"

#include "RegistryKey.h"
#include "RegistryStore.h"
#include "VolumeTable.h"

#include <QtEndian>

#include <cstring>
#include <memory>
#include <unordered_map>

namespace {
RegistryKey g_currentUser{QStringLiteral("HKEY_CURRENT_USER")};

const QChar kSeparator = QLatin1Char('\\');

// The keys opened and not yet closed.
std::unordered_map<HKEY, std::unique_ptr<RegistryKey>>& openKeys() {
    static std::unordered_map<HKEY, std::unique_ptr<RegistryKey>> keys;
    return keys;
}

LONG result(DWORD error) {
    SetLastError(error);
    return static_cast<LONG>(error);
}

bool isRoot(HKEY key) {
    return key == &g_currentUser;
}

DWORD checkKey(HKEY key) {
    return isRoot(key) || openKeys().count(key) != 0 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

// The registry lives in the object store; without it mounted there is no registry to reach.
std::unique_ptr<RegistryStore> store() {
    Volume* volume = VolumeTable::instance().objectStore();
    return volume != nullptr ? std::make_unique<RegistryStore>(*volume) : nullptr;
}

// The levels of a subkey path; a single trailing backslash is allowed, an empty level is not.
DWORD splitSubKey(const QString& subKey, QStringList* components) {
    QString path = subKey;
    if (path.endsWith(kSeparator)) {
        path.chop(1);
    }
    *components = path.isEmpty() ? QStringList() : path.split(kSeparator);
    return components->contains(QString()) ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
}

HKEY openKey(const QString& path) {
    auto key = std::make_unique<RegistryKey>(RegistryKey{path});
    HKEY handle = key.get();
    openKeys().emplace(handle, std::move(key));
    return handle;
}

DWORD toStoredValue(DWORD type, const BYTE* data, DWORD size, RegistryStore::Value* value) {
    if (type == REG_DWORD) {
        if (size != 4) {
            return ERROR_INVALID_PARAMETER;
        }
        *value = std::int64_t{qFromLittleEndian<quint32>(data)};
    } else if (type == REG_SZ) {
        QString text;
        for (DWORD i = 0; i + 1 < size; i += 2) {
            const auto unit = qFromLittleEndian<quint16>(data + i);
            if (unit == 0) {
                break; // the terminating zero ends the text
            }
            text.append(QChar(unit));
        }
        *value = text;
    } else {
        *value = QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    }
    return ERROR_SUCCESS;
}

QByteArray toBytes(const RegistryStore::Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        QByteArray bytes(4, Qt::Uninitialized);
        qToLittleEndian<quint32>(static_cast<quint32>(*number), bytes.data());
        return bytes;
    }
    if (const auto* text = std::get_if<QString>(&value)) {
        QByteArray bytes((text->size() + 1) * 2, Qt::Uninitialized);
        for (qsizetype i = 0; i <= text->size(); ++i) {
            qToLittleEndian<quint16>(i < text->size() ? text->at(i).unicode() : 0, bytes.data() + i * 2);
        }
        return bytes;
    }
    return std::get<QByteArray>(value);
}
// What opening and creating a key check first: the root, the result pointer, the subkey's levels
// and a mounted object store.
DWORD startKeyCall(HKEY root, const QString& subKey, HKEY* resultKey, QStringList* components,
                   std::unique_ptr<RegistryStore>* registry) {
    DWORD error = resultKey == nullptr ? ERROR_INVALID_PARAMETER : checkKey(root);
    if (error == ERROR_SUCCESS) {
        error = splitSubKey(subKey, components);
    }
    if (error == ERROR_SUCCESS) {
        *registry = store();
        error = *registry == nullptr ? ERROR_INVALID_HANDLE : ERROR_SUCCESS;
    }
    return error;
}
} // namespace

HKEY const HKEY_CURRENT_USER = &g_currentUser;

LONG RegCreateKeyExW(HKEY root, const QString& subKey, HKEY* resultKey) {
    QStringList components;
    std::unique_ptr<RegistryStore> registry;
    DWORD error = startKeyCall(root, subKey, resultKey, &components, &registry);
    QString path;
    bool created = false;
    if (error == ERROR_SUCCESS) {
        error = registry->createKey(root->path, components, &path, &created);
    }
    if (error == ERROR_SUCCESS) {
        *resultKey = openKey(path);
    }
    return result(error);
}

LONG RegOpenKeyExW(HKEY root, const QString& subKey, HKEY* resultKey) {
    QStringList components;
    std::unique_ptr<RegistryStore> registry;
    DWORD error = startKeyCall(root, subKey, resultKey, &components, &registry);
    QString path = root->path;
    if (error == ERROR_SUCCESS && !components.isEmpty()) {
        bool found = false;
        error = registry->findKey(root->path + kSeparator + components.join(kSeparator), &path, &found);
        if (error == ERROR_SUCCESS && !found) {
            error = ERROR_FILE_NOT_FOUND;
        }
    }
    if (error == ERROR_SUCCESS) {
        *resultKey = openKey(path);
    }
    return result(error);
}

LONG RegCloseKey(HKEY key) {
    if (isRoot(key)) {
        return result(ERROR_SUCCESS);
    }
    return result(openKeys().erase(key) == 1 ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
}

LONG RegQueryValueExW(HKEY key, const QString& name, DWORD* type, BYTE* data, DWORD* cbData) {
    DWORD error = data != nullptr && cbData == nullptr ? ERROR_INVALID_PARAMETER : checkKey(key);
    auto registry = store();
    if (error == ERROR_SUCCESS && registry == nullptr) {
        error = ERROR_INVALID_HANDLE;
    }
    DWORD storedType = 0;
    RegistryStore::Value value;
    if (error == ERROR_SUCCESS) {
        error = registry->queryValue(key->path, name, &storedType, &value);
    }
    if (error != ERROR_SUCCESS) {
        return result(error);
    }
    const QByteArray bytes = toBytes(value);
    const auto needed = static_cast<DWORD>(bytes.size());
    if (type != nullptr) {
        *type = storedType;
    }
    if (data != nullptr && *cbData < needed) {
        error = ERROR_MORE_DATA;
    } else if (data != nullptr && needed > 0) {
        std::memcpy(data, bytes.constData(), needed);
    }
    if (cbData != nullptr) {
        *cbData = needed;
    }
    return result(error);
}

LONG RegSetValueExW(HKEY key, const QString& name, DWORD type, const BYTE* data, DWORD cbData) {
    DWORD error = data == nullptr && cbData > 0 ? ERROR_INVALID_PARAMETER : checkKey(key);
    RegistryStore::Value value;
    if (error == ERROR_SUCCESS) {
        error = toStoredValue(type, data, cbData, &value);
    }
    auto registry = store();
    if (error == ERROR_SUCCESS && registry == nullptr) {
        error = ERROR_INVALID_HANDLE;
    }
    if (error == ERROR_SUCCESS) {
        error = registry->setValue(key->path, name, type, value);
    }
    return result(error);
}
