#include "Volume.h"

#include "CeDatabase.h"
#include "VolumeFormat.h"
#include "VolumeHandle.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

namespace {
const char* const kBegin = "BEGIN IMMEDIATE";
const char* const kBeginRead = "BEGIN";
const char* const kCommit = "COMMIT";
const char* const kRollback = "ROLLBACK";
const char* const kHighestObjectId =
    "SELECT max(ifnull((SELECT max(oid) FROM databases), 0), ifnull((SELECT max(oid) FROM records), 0), "
    "ifnull((SELECT value FROM meta WHERE name = 'last_oid' AND typeof(value) = 'integer'), 0))";
const char* const kRememberObjectId =
    "INSERT INTO meta (name, value) VALUES ('last_oid', ?1) ON CONFLICT (name) DO UPDATE SET value = excluded.value";

const char* const kCompanions[] = {"-wal", "-shm", "-journal"};

// A file of no bytes (and no write-ahead log holding its first pages) is a volume never written.
bool isEmptyFile(const QString& path) {
    const QFileInfo wal(path + QStringLiteral("-wal"));
    return QFileInfo(path).size() == 0 && (!wal.exists() || wal.size() == 0);
}

bool removeVolumeFiles(const QString& path) {
    for (const char* suffix : kCompanions) {
        QFile::remove(path + QLatin1String(suffix));
    }
    return !QFileInfo::exists(path) || QFile::remove(path);
}

sqlite3* openConnection(const QString& path, bool create, DWORD* error) {
    const int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE | (create ? SQLITE_OPEN_CREATE : 0);
    sqlite3* db = nullptr;
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr);
    *error = result == SQLITE_OK ? VolumeFormat::harden(db) : SqlStatement::errorFor(result);
    if (*error != ERROR_SUCCESS) {
        sqlite3_close_v2(db);
        return nullptr;
    }
    return db;
}

DWORD checkMode(const QFileInfo& file, DWORD mode) {
    if (mode < CREATE_NEW || mode > OPEN_ALWAYS || file.filePath().isEmpty()) {
        return ERROR_INVALID_PARAMETER;
    }
    if (file.exists() && !file.isFile()) {
        return ERROR_ACCESS_DENIED;
    }
    if (mode == CREATE_NEW && file.exists()) {
        return ERROR_ALREADY_EXISTS;
    }
    if (mode == OPEN_EXISTING && !file.exists()) {
        return ERROR_FILE_NOT_FOUND;
    }
    return ERROR_SUCCESS;
}

// Opens an existing file and tells whether it is a volume (false: blank, to be formatted).
// nullptr with *error set when it is neither.
sqlite3* openExisting(const QString& path, DWORD mode, Volume::Role role, bool* blank, DWORD* error) {
    sqlite3* db = openConnection(path, false, error);
    if (db == nullptr) {
        return nullptr;
    }
    // A volume file may come from anywhere: it gets SQLite's full check. The object store is mounted
    // at every start and is ours: reading every page of years of logs each time would dominate the
    // start, so its pages are checked (the quick check) only when the last session did not unmount
    // it; otherwise its structure and catalogue are checked, and damage met later is still an error.
    VolumeFormat::Depth depth = VolumeFormat::Depth::Full;
    if (role == Volume::Role::ObjectStore) {
        depth = VolumeFormat::wasClosedCleanly(db) ? VolumeFormat::Depth::Structure : VolumeFormat::Depth::Quick;
    }
    const VolumeFormat::Kind kind = VolumeFormat::inspect(db, depth);
    *blank = kind == VolumeFormat::Kind::Blank;
    if (kind == VolumeFormat::Kind::NotAVolume || (*blank && mode == OPEN_EXISTING)) {
        sqlite3_close_v2(db);
        *error = ERROR_BADDB;
        return nullptr;
    }
    return db;
}
} // namespace

std::unique_ptr<Volume> Volume::mount(const QString& path, DWORD mode, Role role, DWORD* error) {
    const QFileInfo file(path);
    *error = checkMode(file, mode);
    if (*error != ERROR_SUCCESS) {
        return nullptr;
    }
    const bool existed = file.exists();
    bool fresh = !existed || mode == CREATE_ALWAYS || (mode == OPEN_ALWAYS && isEmptyFile(path));
    if (fresh && existed && !removeVolumeFiles(path)) {
        *error = ERROR_ACCESS_DENIED;
        return nullptr;
    }
    sqlite3* db = fresh ? openConnection(path, true, error) : openExisting(path, mode, role, &fresh, error);
    if (db == nullptr) {
        return nullptr;
    }
    const bool withRegistry = role == Role::ObjectStore;
    *error = fresh ? VolumeFormat::create(db, withRegistry) : VolumeFormat::prepare(db, withRegistry);
    if (*error == ERROR_SUCCESS && role == Role::ObjectStore) {
        *error = VolumeFormat::markInUse(db, true);
    }
    if (*error != ERROR_SUCCESS) {
        sqlite3_close_v2(db);
        if (!existed) {
            removeVolumeFiles(path);
        }
        return nullptr;
    }
    return std::unique_ptr<Volume>(new Volume(db, QFileInfo(path).canonicalFilePath(), role));
}

Volume::Volume(sqlite3* db, QString path, Role role) : m_db(db), m_path(std::move(path)), m_role(role) {}

Volume::~Volume() {
    // Copy first: a handle detaches itself from the set when told.
    const std::vector<VolumeHandle*> handles(m_handles.begin(), m_handles.end());
    for (VolumeHandle* handle : handles) {
        handle->invalidate();
    }
    releaseRead();
    m_statements.clear();
    if (m_role == Role::ObjectStore) {
        VolumeFormat::markInUse(m_db, false);
    }
    sqlite3_close_v2(m_db);
}

SqlStatement* Volume::statement(const char* sql) {
    auto found = m_statements.find(sql);
    if (found == m_statements.end()) {
        auto statement = std::make_unique<SqlStatement>(m_db, sql);
        if (!statement->isValid()) {
            return nullptr;
        }
        found = m_statements.emplace(sql, std::move(statement)).first;
    }
    return found->second.get();
}

void Volume::holdRead() {
    if (sqlite3_get_autocommit(m_db) != 0) {
        if (SqlStatement* statement = this->statement(kBeginRead)) {
            SqlStatement::Scope scope(*statement);
            statement->execute(); // if it fails, each read is its own transaction: slower, still right
            ++m_transactions;
        }
    }
}

Volume::ReadPoint Volume::readPoint() const {
    // Outside a transaction (autocommit) no snapshot holds from one statement to the next.
    const bool held = sqlite3_get_autocommit(m_db) == 0;
    return {held ? m_transactions : 0, sqlite3_total_changes64(m_db)};
}

void Volume::releaseRead() {
    // Only ever called outside a write transaction: an open transaction here is a read one.
    if (sqlite3_get_autocommit(m_db) == 0) {
        if (SqlStatement* statement = this->statement(kCommit)) {
            SqlStatement::Scope scope(*statement);
            statement->execute();
        }
    }
}

DWORD Volume::begin() {
    releaseRead();
    ++m_transactions;
    SqlStatement* statement = this->statement(kBegin);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    return statement->execute();
}

DWORD Volume::commit() {
    SqlStatement* statement = this->statement(kCommit);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    return statement->execute();
}

void Volume::rollback() {
    // After some errors SQLite has already rolled back; then there is no transaction to end.
    if (sqlite3_get_autocommit(m_db) == 0) {
        if (SqlStatement* statement = this->statement(kRollback)) {
            SqlStatement::Scope scope(*statement);
            statement->execute();
        }
    }
}

DWORD Volume::allocateObjectId(CEOID* oid) {
    SqlStatement* highest = statement(kHighestObjectId);
    SqlStatement* remember = statement(kRememberObjectId);
    if (highest == nullptr || remember == nullptr) {
        return ERROR_BADDB;
    }
    std::int64_t last = 0;
    {
        SqlStatement::Scope scope(*highest);
        const DWORD error = highest->queryInt(&last);
        if (error != ERROR_SUCCESS) {
            return error;
        }
    }
    if (last < 0 || last >= 0xFFFFFFFFll) {
        return ERROR_DISK_FULL; // the 32-bit id space is spent
    }
    SqlStatement::Scope scope(*remember);
    remember->bindInt(1, last + 1);
    const DWORD error = remember->execute();
    *oid = error == ERROR_SUCCESS ? static_cast<CEOID>(last + 1) : 0;
    return error;
}

void Volume::attach(VolumeHandle* handle) {
    m_handles.insert(handle);
}

void Volume::detach(VolumeHandle* handle) {
    m_handles.erase(handle);
    releaseReadIfIdle();
}

void Volume::releaseReadIfIdle() {
    if (m_handles.empty()) {
        releaseRead();
    }
}

void Volume::invalidateDatabase(CEOID oid) {
    const std::vector<VolumeHandle*> handles(m_handles.begin(), m_handles.end());
    for (VolumeHandle* handle : handles) {
        if (handle->database() == oid) {
            handle->invalidate();
        }
    }
}
