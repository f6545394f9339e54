#pragma once
// The registry as the object store keeps it: the registry table (one row per value) and the
// registry_keys table (one row per key, so that a key without values exists too). Paths and names
// are matched without regard to case (the WINCASE collation) and keep the spelling they were
// first written with.

#include "WinTypes.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <variant>

class Volume;

class RegistryStore {
public:
    // What a value holds: a DWORD (REG_DWORD), a text (REG_SZ), or bytes (any other type).
    using Value = std::variant<std::int64_t, QString, QByteArray>;

    explicit RegistryStore(Volume& volume) : m_volume(volume) {}

    // Adds to registry_keys every key (and parent key) that has values but no row of its own, as
    // a registry written with plain SQL may have.
    DWORD adoptKeysOfValues();

    // The stored spelling of the key at path; *found false when there is no such key.
    DWORD findKey(const QString& path, QString* spelling, bool* found);
    // Creates the key parent\components[0]\..., each missing level in turn, in one transaction.
    // *path is the key's stored spelling; *created tells whether the last level was new.
    DWORD createKey(const QString& parent, const QStringList& components, QString* path, bool* created);

    // ERROR_FILE_NOT_FOUND when the key has no such value; ERROR_INVALID_DATA for a stored value
    // that does not match its type (4 must be an INTEGER of 32 bits, 1 a TEXT).
    DWORD queryValue(const QString& key, const QString& name, DWORD* type, Value* value);
    DWORD setValue(const QString& key, const QString& name, DWORD type, const Value& value);

private:
    DWORD ensureKey(const QString& path, QString* spelling, bool* created);

    Volume& m_volume;
};
