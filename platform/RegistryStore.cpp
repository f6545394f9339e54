#include "RegistryStore.h"

#include "Registry.h"
#include "Volume.h"

namespace {
const char* const kFindKey = "SELECT key FROM registry_keys WHERE key = ?1 COLLATE WINCASE ORDER BY rowid LIMIT 1";
const char* const kInsertKey = "INSERT INTO registry_keys (key) VALUES (?1)";
const char* const kKeysOfValues = "SELECT DISTINCT key FROM registry";
const char* const kQueryValue = "SELECT type, value FROM registry WHERE key = ?1 COLLATE WINCASE "
                                "AND name = ?2 COLLATE WINCASE ORDER BY rowid LIMIT 1";
const char* const kUpdateValue = "UPDATE registry SET type = ?3, value = ?4 WHERE rowid = (SELECT rowid FROM registry "
                                 "WHERE key = ?1 COLLATE WINCASE AND name = ?2 COLLATE WINCASE ORDER BY rowid LIMIT 1)";
const char* const kInsertValue = "INSERT INTO registry (key, name, type, value) VALUES (?1, ?2, ?3, ?4)";

const QChar kSeparator = QLatin1Char('\\');

void bindText(SqlStatement& statement, int index, const QString& text) {
    statement.bindText16(index, reinterpret_cast<const char16_t*>(text.utf16()), static_cast<int>(text.size()));
}

QString columnText(SqlStatement& statement, int column) {
    return QString::fromUtf16(static_cast<const char16_t*>(sqlite3_column_text16(statement.handle(), column)),
                              sqlite3_column_bytes16(statement.handle(), column) / 2);
}

void bindValue(SqlStatement& statement, int index, const RegistryStore::Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        statement.bindInt(index, *number);
    } else if (const auto* text = std::get_if<QString>(&value)) {
        bindText(statement, index, *text);
    } else {
        const QByteArray& bytes = std::get<QByteArray>(value);
        sqlite3_bind_zeroblob(statement.handle(), index, 0);
        if (!bytes.isEmpty()) {
            sqlite3_bind_blob(statement.handle(), index, bytes.constData(), static_cast<int>(bytes.size()),
                              SQLITE_STATIC);
        }
    }
}

DWORD readValue(SqlStatement& statement, DWORD type, RegistryStore::Value* value) {
    const int stored = statement.columnType(1);
    if (type == REG_DWORD) {
        const std::int64_t number = statement.columnInt(1);
        if (stored != SQLITE_INTEGER || number < 0 || number > 0xFFFFFFFFll) {
            return ERROR_INVALID_DATA;
        }
        *value = number;
    } else if (type == REG_SZ) {
        if (stored != SQLITE_TEXT) {
            return ERROR_INVALID_DATA;
        }
        *value = columnText(statement, 1);
    } else {
        if (stored != SQLITE_BLOB) {
            return ERROR_INVALID_DATA;
        }
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement.handle(), 1));
        *value = QByteArray(bytes, sqlite3_column_bytes(statement.handle(), 1));
    }
    return ERROR_SUCCESS;
}

// Runs a statement that takes the text given and yields no rows.
DWORD run(Volume& volume, const char* sql, const QString& text) {
    SqlStatement* statement = volume.statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    bindText(*statement, 1, text);
    return statement->execute();
}
} // namespace

DWORD RegistryStore::findKey(const QString& path, QString* spelling, bool* found) {
    *found = false;
    SqlStatement* statement = m_volume.statement(kFindKey);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    bindText(*statement, 1, path);
    const int result = statement->step();
    if (result == SQLITE_ROW) {
        *found = true;
        *spelling = columnText(*statement, 0);
    }
    return SqlStatement::errorFor(result);
}

DWORD RegistryStore::ensureKey(const QString& path, QString* spelling, bool* created) {
    bool found = false;
    DWORD error = findKey(path, spelling, &found);
    *created = error == ERROR_SUCCESS && !found;
    if (*created) {
        *spelling = path;
        error = run(m_volume, kInsertKey, path);
    }
    return error;
}

DWORD RegistryStore::adoptKeysOfValues() {
    SqlStatement* statement = m_volume.statement(kKeysOfValues);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    QStringList keys;
    {
        SqlStatement::Scope scope(*statement);
        int result = SQLITE_ROW;
        while ((result = statement->step()) == SQLITE_ROW) {
            keys.append(columnText(*statement, 0));
        }
        if (result != SQLITE_DONE) {
            return SqlStatement::errorFor(result);
        }
    }
    DWORD error = ERROR_SUCCESS;
    for (const QString& key : keys) {
        // Every level below the root: 'HKEY_CURRENT_USER\Software', then '...\Software\Orn', ...
        const QStringList parts = key.split(kSeparator);
        QString spelling;
        bool created = false;
        for (qsizetype level = 2; level <= parts.size() && error == ERROR_SUCCESS; ++level) {
            error = ensureKey(parts.first(level).join(kSeparator), &spelling, &created);
        }
    }
    return error;
}

DWORD RegistryStore::createKey(const QString& parent, const QStringList& components, QString* path, bool* created) {
    *created = false;
    *path = parent;
    return m_volume.transaction([&] {
        DWORD error = ERROR_SUCCESS;
        for (const QString& component : components) {
            // A level that exists keeps its spelling; the next level is made below that spelling.
            error = ensureKey(*path + kSeparator + component, path, created);
            if (error != ERROR_SUCCESS) {
                break;
            }
        }
        return error;
    });
}

DWORD RegistryStore::queryValue(const QString& key, const QString& name, DWORD* type, Value* value) {
    SqlStatement* statement = m_volume.statement(kQueryValue);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    bindText(*statement, 1, key);
    bindText(*statement, 2, name);
    const int result = statement->step();
    if (result != SQLITE_ROW) {
        return result == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : SqlStatement::errorFor(result);
    }
    const std::int64_t storedType = statement->columnInt(0);
    if (storedType < 0 || storedType > 0xFFFFFFFFll) {
        return ERROR_INVALID_DATA;
    }
    *type = static_cast<DWORD>(storedType);
    return readValue(*statement, *type, value);
}

DWORD RegistryStore::setValue(const QString& key, const QString& name, DWORD type, const Value& value) {
    SqlStatement* update = m_volume.statement(kUpdateValue);
    SqlStatement* insert = m_volume.statement(kInsertValue);
    if (update == nullptr || insert == nullptr) {
        return ERROR_BADDB;
    }
    return m_volume.transaction([&] {
        // An existing value keeps the spelling of its name; a new one is written as given.
        SqlStatement& statement = *update;
        {
            SqlStatement::Scope scope(statement);
            bindText(statement, 1, key);
            bindText(statement, 2, name);
            statement.bindInt(3, type);
            bindValue(statement, 4, value);
            const DWORD error = statement.execute();
            if (error != ERROR_SUCCESS || m_volume.changes() > 0) {
                return error;
            }
        }
        SqlStatement::Scope scope(*insert);
        bindText(*insert, 1, key);
        bindText(*insert, 2, name);
        insert->bindInt(3, type);
        bindValue(*insert, 4, value);
        return insert->execute();
    });
}
