#include "BulkRecordWriter.h"

#include <sqlite3.h>

namespace {
constexpr int kApplicationId = 1263490625; // 'KOVA'
constexpr int kFormatVersion = 1;

// Binds a property's value as the volume stores it: integers and FILETIME counts as INTEGER,
// R8 as REAL, text as TEXT, blobs as BLOB.
int bindValue(sqlite3_stmt* statement, int index, const DbProp& prop) {
    switch (prop.type()) {
    case CEVT_I2:
    case CEVT_UI2:
    case CEVT_I4:
    case CEVT_BOOL:
        return sqlite3_bind_int64(statement, index, prop.toInt());
    case CEVT_UI4:
        return sqlite3_bind_int64(statement, index, prop.toUInt());
    case CEVT_FILETIME:
        return sqlite3_bind_int64(statement, index, static_cast<sqlite3_int64>(fileTimeTicks(prop.toFileTime())));
    case CEVT_R8:
        return sqlite3_bind_double(statement, index, prop.toDouble());
    case CEVT_LPWSTR: {
        // The text is converted to the volume's encoding while binding, so the temporary may go.
        const QString text = prop.toText();
        if (text.isEmpty()) {
            return sqlite3_bind_text(statement, index, "", 0, SQLITE_STATIC);
        }
        return sqlite3_bind_text16(statement, index, text.utf16(), static_cast<int>(text.size() * 2), SQLITE_STATIC);
    }
    case CEVT_BLOB: {
        const QByteArray blob = prop.toBlob();
        return sqlite3_bind_blob(statement, index, blob.constData(), static_cast<int>(blob.size()), SQLITE_TRANSIENT);
    }
    default:
        return sqlite3_bind_null(statement, index);
    }
}
} // namespace

BulkRecordWriter::BulkRecordWriter(QString volumePath) : m_path(std::move(volumePath)) {}

BulkRecordWriter::~BulkRecordWriter() {
    if (m_inTransaction) {
        exec("ROLLBACK");
    }
    finalize();
    sqlite3_close(m_db);
}

bool BulkRecordWriter::fail(const QString& what) {
    const QString reason = m_db != nullptr ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QStringLiteral("out of memory");
    m_error = QStringLiteral("%1 %2: %3").arg(what, m_path, reason);
    return false;
}

bool BulkRecordWriter::exec(const char* sql) {
    return sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) == SQLITE_OK || fail(QString::fromUtf8(sql));
}

bool BulkRecordWriter::prepare(sqlite3_stmt** statement, const char* sql) {
    return sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, statement, nullptr) == SQLITE_OK ||
           fail(QStringLiteral("Cannot prepare \"%1\" on").arg(QString::fromUtf8(sql)));
}

bool BulkRecordWriter::step(sqlite3_stmt* statement) {
    const int rc = sqlite3_step(statement);
    sqlite3_reset(statement);
    return rc == SQLITE_DONE || fail(QStringLiteral("Cannot write"));
}

bool BulkRecordWriter::open() {
    const QByteArray path = m_path.toUtf8();
    if (sqlite3_open_v2(path.constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        return fail(QStringLiteral("Cannot open"));
    }
    sqlite3_stmt* check = nullptr;
    if (!prepare(&check,
                 "SELECT (SELECT application_id FROM pragma_application_id), "
                 "(SELECT user_version FROM pragma_user_version), "
                 "(SELECT max(ifnull((SELECT max(oid) FROM records), 0), "
                 "ifnull((SELECT max(oid) FROM databases), 0), "
                 "ifnull((SELECT value FROM meta WHERE name = 'last_oid' AND typeof(value) = 'integer'), 0)))")) {
        return false;
    }
    const bool isVolume = sqlite3_step(check) == SQLITE_ROW && sqlite3_column_int(check, 0) == kApplicationId &&
                          sqlite3_column_int(check, 1) == kFormatVersion;
    m_nextOid = static_cast<CEOID>(sqlite3_column_int64(check, 2)) + 1;
    sqlite3_finalize(check);
    if (!isVolume) {
        m_error = QStringLiteral("Not a volume of this format: %1").arg(m_path);
        return false;
    }
    // Nobody else has the file open, and a load that breaks off leaves a device to throw away: write
    // without a disk journal and without waiting for the disk, then return to the volume's WAL journal.
    return exec("PRAGMA journal_mode = MEMORY") && exec("PRAGMA synchronous = OFF") &&
           exec("PRAGMA cache_size = -131072") &&
           prepare(&m_insertRecord, "INSERT INTO records(oid, db, sort_key) VALUES (?1, ?2, ?3)") &&
           prepare(&m_insertProp, "INSERT INTO props(record, propid, value) VALUES (?1, ?2, ?3)") &&
           prepare(&m_findDatabase, "SELECT oid FROM databases WHERE name = ?1") &&
           prepare(&m_rememberOid, "INSERT INTO meta(name, value) VALUES ('last_oid', ?1) "
                                   "ON CONFLICT(name) DO UPDATE SET value = excluded.value");
}

CEOID BulkRecordWriter::databaseId(const QString& name) {
    const QByteArray utf8 = name.toUtf8();
    sqlite3_bind_text(m_findDatabase, 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_STATIC);
    const CEOID oid =
        sqlite3_step(m_findDatabase) == SQLITE_ROW ? static_cast<CEOID>(sqlite3_column_int64(m_findDatabase, 0)) : 0;
    sqlite3_reset(m_findDatabase);
    if (oid == 0) {
        m_error = QStringLiteral("No database %1 in %2").arg(name, m_path);
    }
    return oid;
}

bool BulkRecordWriter::begin() {
    m_inTransaction = exec("BEGIN");
    return m_inTransaction;
}

bool BulkRecordWriter::commit() {
    // The volume remembers the highest object id given out, so that none is ever given twice.
    sqlite3_bind_int64(m_rememberOid, 1, m_nextOid - 1);
    if (!step(m_rememberOid)) {
        return false;
    }
    m_inTransaction = false;
    return exec("COMMIT");
}

bool BulkRecordWriter::addRecord(CEOID database, const DbRecord& record, CEPROPID sortProp) {
    const CEOID oid = m_nextOid++;
    sqlite3_bind_int64(m_insertRecord, 1, oid);
    sqlite3_bind_int64(m_insertRecord, 2, database);
    const DbProp* key = record.find(HIWORD(sortProp));
    if (key != nullptr && key->id() == sortProp) {
        bindValue(m_insertRecord, 3, *key);
    } else {
        sqlite3_bind_null(m_insertRecord, 3);
    }
    if (!step(m_insertRecord)) {
        return false;
    }
    sqlite3_bind_int64(m_insertProp, 1, oid);
    for (const DbProp& prop : record.props()) {
        sqlite3_bind_int64(m_insertProp, 2, prop.id());
        if (bindValue(m_insertProp, 3, prop) != SQLITE_OK || !step(m_insertProp)) {
            return fail(QStringLiteral("Cannot write a property into"));
        }
    }
    return true;
}

void BulkRecordWriter::finalize() {
    sqlite3_finalize(m_insertRecord);
    sqlite3_finalize(m_insertProp);
    sqlite3_finalize(m_findDatabase);
    sqlite3_finalize(m_rememberOid);
    m_insertRecord = m_insertProp = m_findDatabase = m_rememberOid = nullptr;
}

bool BulkRecordWriter::close() {
    finalize();
    if (!exec("PRAGMA journal_mode = WAL")) {
        return false;
    }
    if (sqlite3_close(m_db) != SQLITE_OK) {
        return fail(QStringLiteral("Cannot close"));
    }
    m_db = nullptr;
    return true;
}
