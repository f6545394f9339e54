#include "VolumeFormat.h"

#include "CeDatabase.h"
#include "PropertyCodec.h"
#include "SqlStatement.h"
#include "WinCaseCollation.h"

#include <QString>

#include <array>
#include <cstring>
#include <string>

namespace {
// The format's tables, as every volume has them.
const char* const kSchema = R"sql(
CREATE TABLE databases (
  oid         INTEGER PRIMARY KEY,
  name        TEXT NOT NULL UNIQUE,
  type        INTEGER NOT NULL,
  sort_propid INTEGER,
  sort_flags  INTEGER NOT NULL DEFAULT 0
) STRICT;
CREATE TABLE records (
  oid      INTEGER PRIMARY KEY,
  db       INTEGER NOT NULL REFERENCES databases(oid) ON DELETE CASCADE,
  sort_key ANY
) STRICT;
CREATE INDEX records_in_order ON records(db, sort_key, oid);
CREATE TABLE props (
  record INTEGER NOT NULL REFERENCES records(oid) ON DELETE CASCADE,
  propid INTEGER NOT NULL,
  value  ANY,
  PRIMARY KEY (record, propid)
) STRICT, WITHOUT ROWID;
)sql";

// Only in the object store.
const char* const kRegistrySchema = R"sql(
CREATE TABLE IF NOT EXISTS registry (
  key   TEXT NOT NULL,
  name  TEXT NOT NULL,
  type  INTEGER NOT NULL,
  value ANY,
  PRIMARY KEY (key, name)
) STRICT;
CREATE TABLE IF NOT EXISTS registry_keys (
  key TEXT NOT NULL PRIMARY KEY
) STRICT;
)sql";

// What this code adds to the format; created when a volume lacks it. records_by_creation gives
// the creation order of one database (an index entry ends with the rowid, the oid); meta keeps
// the highest object id ever given out, so that an id is never given twice, and whether the
// volume is mounted now ('in_use'), so that a session that ended without unmounting is noticed.
const char* const kAdditions = R"sql(
CREATE INDEX IF NOT EXISTS records_in_order ON records(db, sort_key, oid);
CREATE INDEX IF NOT EXISTS records_by_creation ON records(db);
CREATE TABLE IF NOT EXISTS meta (
  name  TEXT NOT NULL PRIMARY KEY,
  value ANY
) STRICT;
)sql";

struct Column {
    const char* name;
    const char* type;
    bool notNull;
    bool primaryKey;
};

struct Table {
    const char* name;
    std::array<Column, 5> columns;
    int count;
};

const std::array<Table, 3> kTables = {{
    {"databases",
     {{{"oid", "INTEGER", false, true},
       {"name", "TEXT", true, false},
       {"type", "INTEGER", true, false},
       {"sort_propid", "INTEGER", false, false},
       {"sort_flags", "INTEGER", true, false}}},
     5},
    {"records",
     {{{"oid", "INTEGER", false, true}, {"db", "INTEGER", true, false}, {"sort_key", "ANY", false, false}}},
     3},
    {"props",
     {{{"record", "INTEGER", true, true}, {"propid", "INTEGER", true, true}, {"value", "ANY", false, false}}},
     3},
}};

DWORD exec(sqlite3* db, const char* sql) {
    return SqlStatement::errorFor(sqlite3_exec(db, sql, nullptr, nullptr, nullptr));
}

bool queryInt(sqlite3* db, const char* sql, std::int64_t* value) {
    SqlStatement statement(db, sql);
    return statement.isValid() && statement.queryInt(value) == ERROR_SUCCESS;
}

bool sameText(const char* a, const char* b) {
    return a != nullptr && sqlite3_stricmp(a, b) == 0;
}

bool isStrictTable(sqlite3* db, const char* name) {
    SqlStatement statement(db, "SELECT strict FROM pragma_table_list WHERE schema = 'main' AND type = 'table' "
                               "AND name = ?1");
    if (!statement.isValid()) {
        return false;
    }
    sqlite3_bind_text(statement.handle(), 1, name, -1, SQLITE_STATIC);
    std::int64_t strict = 0;
    return statement.queryInt(&strict) == ERROR_SUCCESS && strict == 1;
}

bool hasColumns(sqlite3* db, const Table& table) {
    for (int i = 0; i < table.count; ++i) {
        const Column& column = table.columns[i];
        const char* type = nullptr;
        const char* collation = nullptr;
        int notNull = 0;
        int primaryKey = 0;
        int autoIncrement = 0;
        if (sqlite3_table_column_metadata(db, "main", table.name, column.name, &type, &collation, &notNull, &primaryKey,
                                          &autoIncrement) != SQLITE_OK ||
            !sameText(type, column.type) || !sameText(collation, "BINARY") || (notNull != 0) != column.notNull ||
            (primaryKey != 0) != column.primaryKey) {
            return false;
        }
    }
    return true;
}

bool hasTables(sqlite3* db) {
    for (const Table& table : kTables) {
        if (!isStrictTable(db, table.name) || !hasColumns(db, table)) {
            return false;
        }
    }
    // Nothing of ours runs code on a write; a trigger would make a write do more than it says.
    std::int64_t triggers = 1;
    return queryInt(db, "SELECT count(*) FROM sqlite_schema WHERE type = 'trigger'", &triggers) && triggers == 0;
}

bool isDword(std::int64_t value) {
    return value >= 0 && value <= 0xFFFFFFFFll;
}

bool isValidObjectId(std::int64_t value) {
    return value >= 1 && value <= 0xFFFFFFFFll;
}

// The catalogue is small: every row is checked, so that an open never meets a row it cannot take.
bool hasValidCatalogue(sqlite3* db) {
    SqlStatement statement(db, "SELECT oid, name, type, sort_propid, sort_flags FROM databases");
    if (!statement.isValid()) {
        return false;
    }
    int result = SQLITE_ROW;
    while ((result = statement.step()) == SQLITE_ROW) {
        const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(statement.handle(), 1));
        const QString text = QString::fromUtf8(name, sqlite3_column_bytes(statement.handle(), 1));
        const bool sorted = statement.columnType(3) != SQLITE_NULL;
        const std::int64_t sortPropid = statement.columnInt(3);
        const std::int64_t sortFlags = statement.columnInt(4);
        const bool valid = isValidObjectId(statement.columnInt(0)) && !text.isEmpty() &&
                           text.size() < CEDB_MAXDBASENAMELEN && !text.contains(QChar(0)) &&
                           isDword(statement.columnInt(2)) &&
                           (!sorted || (isDword(sortPropid) && PropertyCodec::isKnownType(LOWORD(sortPropid)))) &&
                           (sortFlags == 0 || sortFlags == CEDB_SORT_UNKNOWNFIRST);
        if (!valid) {
            return false;
        }
    }
    return result == SQLITE_DONE;
}

// Object ids are 32-bit: a row outside that range could not be named by a caller.
bool hasValidObjectIds(sqlite3* db) {
    std::int64_t outside = 1;
    return queryInt(db,
                    "SELECT EXISTS (SELECT 1 FROM records WHERE oid < 1) OR "
                    "EXISTS (SELECT 1 FROM records WHERE oid > 4294967295) OR "
                    "EXISTS (SELECT 1 FROM databases WHERE oid < 1) OR "
                    "EXISTS (SELECT 1 FROM databases WHERE oid > 4294967295)",
                    &outside) &&
           outside == 0;
}

bool passesCheck(sqlite3* db, VolumeFormat::Depth depth) {
    if (depth == VolumeFormat::Depth::Structure) {
        return true;
    }
    SqlStatement statement(db,
                           depth == VolumeFormat::Depth::Full ? "PRAGMA integrity_check(1)" : "PRAGMA quick_check(1)");
    if (!statement.isValid() || statement.step() != SQLITE_ROW) {
        return false;
    }
    const auto* verdict = reinterpret_cast<const char*>(sqlite3_column_text(statement.handle(), 0));
    return verdict != nullptr && std::strcmp(verdict, "ok") == 0;
}

VolumeFormat::Kind judge(sqlite3* db, VolumeFormat::Depth depth) {
    using Kind = VolumeFormat::Kind;
    std::int64_t applicationId = 0;
    std::int64_t userVersion = 0;
    std::int64_t objects = 0;
    if (!queryInt(db, "PRAGMA application_id", &applicationId) || !queryInt(db, "PRAGMA user_version", &userVersion) ||
        !queryInt(db, "SELECT count(*) FROM sqlite_schema", &objects)) {
        return Kind::NotAVolume;
    }
    if (applicationId == 0 && userVersion == 0 && objects == 0) {
        return passesCheck(db, VolumeFormat::Depth::Full) ? Kind::Blank : Kind::NotAVolume;
    }
    if (applicationId != VolumeFormat::kApplicationId || userVersion != VolumeFormat::kUserVersion ||
        !passesCheck(db, depth) || !hasTables(db) || !hasValidCatalogue(db) || !hasValidObjectIds(db)) {
        return Kind::NotAVolume;
    }
    return Kind::Volume;
}
} // namespace

DWORD VolumeFormat::harden(sqlite3* db) {
    // A volume may come from anywhere: its schema runs nothing that has side effects, and pages
    // are checked as they are read.
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_busy_timeout(db, 2000);
    const int result = WinCaseCollation::install(db);
    return result != SQLITE_OK ? SqlStatement::errorFor(result) : exec(db, "PRAGMA cell_size_check = ON");
}

DWORD VolumeFormat::configure(sqlite3* db) {
    return exec(db, "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON;");
}

DWORD VolumeFormat::useWriteAheadLog(sqlite3* db) {
    SqlStatement journal(db, "PRAGMA journal_mode = WAL");
    if (!journal.isValid()) {
        return SqlStatement::errorFor(journal.prepareResult(), sqlite3_system_errno(db));
    }
    const int result = journal.step();
    if (result != SQLITE_ROW) {
        return SqlStatement::errorFor(result, sqlite3_system_errno(db));
    }
    const auto* mode = reinterpret_cast<const char*>(sqlite3_column_text(journal.handle(), 0));
    return mode != nullptr && sqlite3_stricmp(mode, "wal") == 0 ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

DWORD VolumeFormat::complete(sqlite3* db, bool blank, bool withRegistry) {
    std::string script;
    if (blank) {
        script = "PRAGMA application_id = " + std::to_string(kApplicationId) + ";" +
                 "PRAGMA user_version = " + std::to_string(kUserVersion) + ";" + kSchema;
    }
    script += kAdditions;
    // The identity tells the volume's own write-ahead log from one that comes from elsewhere.
    script += "INSERT INTO meta (name, value) VALUES ('volume_id', randomblob(16)) ON CONFLICT (name) DO NOTHING;";
    if (withRegistry) {
        script += kRegistrySchema;
    }
    return exec(db, script.c_str());
}

DWORD VolumeFormat::inspect(sqlite3* db, Depth depth, Kind* kind) {
    *kind = judge(db, depth);
    if (*kind != Kind::NotAVolume) {
        return ERROR_SUCCESS;
    }
    // Every check stops at its first failed statement, so the connection's error is that statement's
    // (SQLITE_OK when the file was read and found wanting). Only damage and a foreign format are a
    // verdict on the file; a read that failed says nothing about it.
    const int result = sqlite3_extended_errcode(db);
    switch (result & 0xFF) {
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_FULL:
    case SQLITE_NOMEM:
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return SqlStatement::errorFor(result, sqlite3_system_errno(db));
    default:
        return ERROR_SUCCESS;
    }
}

QByteArray VolumeFormat::identity(sqlite3* db) {
    SqlStatement statement(db, "SELECT value FROM meta WHERE name = 'volume_id' AND typeof(value) = 'blob'");
    if (!statement.isValid() || statement.step() != SQLITE_ROW) {
        return {};
    }
    return QByteArray(static_cast<const char*>(sqlite3_column_blob(statement.handle(), 0)),
                      sqlite3_column_bytes(statement.handle(), 0));
}

bool VolumeFormat::wasClosedCleanly(sqlite3* db) {
    std::int64_t inUse = 1;
    return queryInt(db, "SELECT ifnull((SELECT value FROM meta WHERE name = 'in_use'), 1)", &inUse) && inUse == 0;
}

DWORD VolumeFormat::markInUse(sqlite3* db, bool inUse) {
    return exec(db, inUse ? "INSERT INTO meta (name, value) VALUES ('in_use', 1) "
                            "ON CONFLICT (name) DO UPDATE SET value = excluded.value"
                          : "UPDATE meta SET value = 0 WHERE name = 'in_use'");
}
