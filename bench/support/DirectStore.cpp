#include "DirectStore.h"

#include <sqlite3.h>

namespace {
template <class... Ts> struct Overloaded : Ts... { using Ts::operator()...; };

int bindValue(sqlite3_stmt* statement, int index, const DirectProp& prop) {
    return std::visit(Overloaded{
                          [&](std::monostate) { return sqlite3_bind_null(statement, index); },
                          [&](std::int64_t v) { return sqlite3_bind_int64(statement, index, v); },
                          [&](double v) { return sqlite3_bind_double(statement, index, v); },
                          [&](const QString& v) {
                              return v.isEmpty() ? sqlite3_bind_text(statement, index, "", 0, SQLITE_STATIC)
                                                 : sqlite3_bind_text16(statement, index, v.utf16(),
                                                                       static_cast<int>(v.size() * 2), SQLITE_STATIC);
                          },
                          [&](const QByteArray& v) {
                              return sqlite3_bind_blob(statement, index, v.constData(), static_cast<int>(v.size()),
                                                       SQLITE_STATIC);
                          },
                      },
                      prop.value);
}
} // namespace

DirectStore::DirectStore(QString path) : m_path(std::move(path)) {}

DirectStore::~DirectStore() {
    for (sqlite3_stmt* statement : {m_findDatabase, m_seekEqual, m_readProps, m_beginRead, m_begin, m_checkRecord,
                                    m_upsertProp, m_commit, m_rollback, m_walk, m_readRange, m_walkBack, m_addRecord}) {
        sqlite3_finalize(statement);
    }
    sqlite3_close(m_db);
}

bool DirectStore::fail() {
    m_error = QStringLiteral("%1: %2").arg(m_path, QString::fromUtf8(sqlite3_errmsg(m_db)));
    return false;
}

bool DirectStore::prepare(sqlite3_stmt** statement, const char* sql) {
    return sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, statement, nullptr) == SQLITE_OK || fail();
}

bool DirectStore::exec(sqlite3_stmt* statement) {
    const int rc = sqlite3_step(statement);
    sqlite3_reset(statement);
    return rc == SQLITE_DONE || fail();
}

bool DirectStore::open() {
    const QByteArray path = m_path.toUtf8();
    if (sqlite3_open_v2(path.constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        return fail();
    }
    // The volume is in WAL mode; commits are as durable as the platform's (synchronous NORMAL
    // survives a killed process), and foreign keys are on, as the schema's cascades need.
    return sqlite3_exec(m_db, "PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON; PRAGMA busy_timeout = 5000",
                        nullptr, nullptr, nullptr) == SQLITE_OK &&
           prepare(&m_findDatabase, "SELECT oid FROM databases WHERE name = ?1") &&
           prepare(&m_seekEqual, "SELECT oid FROM records WHERE db = ?1 AND sort_key = ?2 ORDER BY sort_key, oid "
                                 "LIMIT 1") &&
           prepare(&m_readProps, "SELECT propid, value FROM props WHERE record = ?1 ORDER BY propid") &&
           prepare(&m_beginRead, "BEGIN") && prepare(&m_begin, "BEGIN IMMEDIATE") &&
           prepare(&m_checkRecord, "SELECT 1 FROM records WHERE oid = ?1 AND db = ?2") &&
           prepare(&m_upsertProp, "INSERT INTO props(record, propid, value) VALUES (?1, ?2, ?3) "
                                  "ON CONFLICT(record, propid) DO UPDATE SET value = excluded.value") &&
           prepare(&m_commit, "COMMIT") && prepare(&m_rollback, "ROLLBACK") &&
           prepare(&m_addRecord, "INSERT INTO records(db, sort_key) VALUES (?1, ?2)") &&
           prepare(&m_walk, "SELECT oid FROM records WHERE db = ?1 ORDER BY sort_key, oid") &&
           prepare(&m_readRange, "SELECT propid, value FROM props WHERE record = ?1 AND propid BETWEEN ?2 AND ?3 "
                                 "ORDER BY propid") &&
           prepare(&m_walkBack, "SELECT oid FROM records WHERE db = ?1 AND sort_key < ?2 "
                                "ORDER BY sort_key DESC, oid DESC");
}

bool DirectStore::beginRead() {
    return exec(m_beginRead);
}

bool DirectStore::endRead() {
    return exec(m_commit);
}

CEOID DirectStore::databaseId(const QString& name) {
    sqlite3_bind_text16(m_findDatabase, 1, name.utf16(), static_cast<int>(name.size() * 2), SQLITE_STATIC);
    const CEOID oid =
        sqlite3_step(m_findDatabase) == SQLITE_ROW ? static_cast<CEOID>(sqlite3_column_int64(m_findDatabase, 0)) : 0;
    sqlite3_reset(m_findDatabase);
    return oid;
}

CEOID DirectStore::seekFirstEqual(CEOID database, std::int64_t key) {
    sqlite3_bind_int64(m_seekEqual, 1, database);
    sqlite3_bind_int64(m_seekEqual, 2, key);
    const CEOID oid =
        sqlite3_step(m_seekEqual) == SQLITE_ROW ? static_cast<CEOID>(sqlite3_column_int64(m_seekEqual, 0)) : 0;
    sqlite3_reset(m_seekEqual);
    return oid;
}

DirectProp DirectStore::column(sqlite3_stmt* statement, int idColumn) {
    DirectProp prop;
    prop.id = static_cast<CEPROPID>(sqlite3_column_int64(statement, idColumn));
    const int valueColumn = idColumn + 1;
    switch (sqlite3_column_type(statement, valueColumn)) {
    case SQLITE_INTEGER:
        prop.value = static_cast<std::int64_t>(sqlite3_column_int64(statement, valueColumn));
        break;
    case SQLITE_FLOAT:
        prop.value = sqlite3_column_double(statement, valueColumn);
        break;
    case SQLITE_TEXT:
        prop.value = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, valueColumn)),
                                       sqlite3_column_bytes(statement, valueColumn));
        break;
    case SQLITE_BLOB:
        prop.value = QByteArray(static_cast<const char*>(sqlite3_column_blob(statement, valueColumn)),
                                sqlite3_column_bytes(statement, valueColumn));
        break;
    default:
        break;
    }
    return prop;
}

bool DirectStore::readDay(const QString& database, std::int64_t key, DirectRecord& props) {
    if (!beginRead()) {
        return false;
    }
    const CEOID id = databaseId(database);
    const CEOID record = id == 0 ? 0 : seekFirstEqual(id, key);
    const bool read = record != 0 && readRecord(record, props);
    return endRead() && read;
}

bool DirectStore::readRecord(CEOID record, DirectRecord& props) {
    props.clear();
    sqlite3_bind_int64(m_readProps, 1, record);
    int rc;
    while ((rc = sqlite3_step(m_readProps)) == SQLITE_ROW) {
        props.push_back(column(m_readProps, 0));
    }
    sqlite3_reset(m_readProps);
    return rc == SQLITE_DONE || fail();
}

bool DirectStore::readProps(CEOID record, CEPROPID first, CEPROPID last, DirectRecord& props) {
    props.clear();
    sqlite3_bind_int64(m_readRange, 1, record);
    sqlite3_bind_int64(m_readRange, 2, first);
    sqlite3_bind_int64(m_readRange, 3, last);
    int rc;
    while ((rc = sqlite3_step(m_readRange)) == SQLITE_ROW) {
        props.push_back(column(m_readRange, 0));
    }
    sqlite3_reset(m_readRange);
    return rc == SQLITE_DONE || fail();
}

bool DirectStore::walkBack(CEOID database, std::int64_t key, CEPROPID first, CEPROPID last,
                           const std::function<bool(const DirectRecord&)>& accept, DirectRecord& props, CEOID* found) {
    // As walk: one statement steps back through the records and holds the read while each one's
    // properties are read.
    *found = 0;
    sqlite3_bind_int64(m_walkBack, 1, database);
    sqlite3_bind_int64(m_walkBack, 2, key);
    int rc;
    while ((rc = sqlite3_step(m_walkBack)) == SQLITE_ROW) {
        const CEOID oid = static_cast<CEOID>(sqlite3_column_int64(m_walkBack, 0));
        if (!readProps(oid, first, last, props)) {
            sqlite3_reset(m_walkBack);
            return false;
        }
        if (accept(props)) {
            *found = oid;
            sqlite3_reset(m_walkBack);
            return true;
        }
    }
    sqlite3_reset(m_walkBack);
    props.clear();
    return rc == SQLITE_DONE || fail();
}

bool DirectStore::upsertAndCommit(bool ok, CEOID record, const DirectRecord& props) {
    sqlite3_bind_int64(m_upsertProp, 1, record);
    for (auto prop = props.begin(); ok && prop != props.end(); ++prop) {
        sqlite3_bind_int64(m_upsertProp, 2, prop->id);
        ok = bindValue(m_upsertProp, 3, *prop) == SQLITE_OK && exec(m_upsertProp);
    }
    if (ok && exec(m_commit)) {
        return true;
    }
    exec(m_rollback);
    return false;
}

bool DirectStore::writeDayProps(const QString& name, std::int64_t key, const DirectRecord& props) {
    if (!exec(m_begin)) {
        return false;
    }
    const CEOID database = databaseId(name);
    const CEOID record = database == 0 ? 0 : seekFirstEqual(database, key);
    bool ok = record != 0;
    return upsertAndCommit(ok, record, props);
}

bool DirectStore::writeProps(CEOID database, CEOID record, const DirectRecord& props) {
    if (!exec(m_begin)) {
        return false;
    }
    sqlite3_bind_int64(m_checkRecord, 1, record);
    sqlite3_bind_int64(m_checkRecord, 2, database);
    bool ok = sqlite3_step(m_checkRecord) == SQLITE_ROW;
    sqlite3_reset(m_checkRecord);
    return upsertAndCommit(ok, record, props);
}

long DirectStore::walk(CEOID database, const std::function<void(CEOID, const DirectRecord&)>& visit) {
    // One statement steps through the records in order and holds the read transaction, inside which
    // each record's properties are read: measurably quicker than one SELECT joining records and props.
    sqlite3_bind_int64(m_walk, 1, database);
    long records = 0;
    DirectRecord props;
    int rc;
    while ((rc = sqlite3_step(m_walk)) == SQLITE_ROW) {
        const CEOID oid = static_cast<CEOID>(sqlite3_column_int64(m_walk, 0));
        if (!readRecord(oid, props)) {
            sqlite3_reset(m_walk);
            return -1;
        }
        visit(oid, props);
        ++records;
    }
    sqlite3_reset(m_walk);
    return rc == SQLITE_DONE ? records : (fail(), -1);
}

DirectRecord DirectStore::fromRecord(const DbRecord& record) {
    DirectRecord props;
    for (const DbProp& prop : record.props()) {
        DirectProp direct;
        direct.id = prop.id();
        switch (prop.type()) {
        case CEVT_R8:
            direct.value = prop.toDouble();
            break;
        case CEVT_LPWSTR:
            direct.value = prop.toText();
            break;
        case CEVT_BLOB:
            direct.value = prop.toBlob();
            break;
        case CEVT_FILETIME:
            direct.value = static_cast<std::int64_t>(fileTimeTicks(prop.toFileTime()));
            break;
        case CEVT_UI4:
            direct.value = static_cast<std::int64_t>(prop.toUInt());
            break;
        default:
            direct.value = static_cast<std::int64_t>(prop.toInt());
            break;
        }
        props.push_back(direct);
    }
    return props;
}

bool DirectStore::beginWrite() {
    return exec(m_begin);
}

bool DirectStore::commitWrite() {
    return exec(m_commit);
}

CEOID DirectStore::addRecord(CEOID database, std::int64_t key, const DirectRecord& props) {
    sqlite3_bind_int64(m_addRecord, 1, database);
    sqlite3_bind_int64(m_addRecord, 2, key);
    if (!exec(m_addRecord)) {
        return 0;
    }
    const auto record = static_cast<CEOID>(sqlite3_last_insert_rowid(m_db));
    sqlite3_bind_int64(m_upsertProp, 1, record);
    for (const DirectProp& prop : props) {
        sqlite3_bind_int64(m_upsertProp, 2, prop.id);
        if (bindValue(m_upsertProp, 3, prop) != SQLITE_OK || !exec(m_upsertProp)) {
            return 0;
        }
    }
    return record;
}
