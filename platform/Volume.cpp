#include "Volume.h"

#include "CeDatabase.h"
#include "CeDatabaseEx.h"
#include "RegistryStore.h"
#include "VolumeFormat.h"
#include "VolumeHandle.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <cerrno>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
const char* const kBegin = "BEGIN IMMEDIATE";
const char* const kBeginRead = "BEGIN";
const char* const kCommit = "COMMIT";
const char* const kRollback = "ROLLBACK";
const char* const kSavepoint = "SAVEPOINT call";
const char* const kReleaseSavepoint = "RELEASE call";
const char* const kRollbackSavepoint = "ROLLBACK TO call";
// Properties left without their record (a volume edited by hand without foreign keys) count too, so
// that a new record never takes them over.
const char* const kHighestObjectId =
    "SELECT max(ifnull((SELECT max(oid) FROM databases), 0), ifnull((SELECT max(oid) FROM records), 0), "
    "ifnull((SELECT max(record) FROM props), 0), "
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

// The companions that exist now, so that those a failed mount made can be removed again.
std::vector<QString> existingCompanions(const QString& path) {
    std::vector<QString> found;
    for (const char* suffix : kCompanions) {
        if (QFileInfo::exists(path + QLatin1String(suffix))) {
            found.push_back(path + QLatin1String(suffix));
        }
    }
    return found;
}

void removeCompanionsBut(const QString& path, const std::vector<QString>& keep) {
    for (const char* suffix : kCompanions) {
        const QString companion = path + QLatin1String(suffix);
        if (std::find(keep.begin(), keep.end(), companion) == keep.end()) {
            QFile::remove(companion);
        }
    }
}

DWORD errorOfErrno(int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case ENOENT:
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EIO:
        return ERROR_WRITE_FAULT;
    default:
        return ERROR_ACCESS_DENIED;
    }
}

// Makes the new volume file, readable by its owner only whatever the umask: SQLite gives its
// -wal and -shm the mode of the file they belong to.
DWORD createPrivateFile(const QString& path) {
    const int fd = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0) {
        return errorOfErrno(errno);
    }
    const bool privateMode = ::fchmod(fd, 0600) == 0;
    const int error = errno;
    ::close(fd);
    return privateMode ? ERROR_SUCCESS : errorOfErrno(error);
}

sqlite3* openConnection(const QString& path, DWORD* error) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    sqlite3* db = nullptr;
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &db, flags, nullptr);
    *error = result == SQLITE_OK ? VolumeFormat::harden(db) : SqlStatement::errorFor(result, sqlite3_system_errno(db));
    if (*error == ERROR_SUCCESS) {
        *error = VolumeFormat::configure(db);
    }
    if (*error != ERROR_SUCCESS) {
        *error = SqlStatement::refine(*error, sqlite3_system_errno(db));
        sqlite3_close_v2(db);
        return nullptr;
    }
    return db;
}

DWORD checkMode(const QFileInfo& file, DWORD mode, bool readOnly) {
    if (mode < CREATE_NEW || mode > OPEN_ALWAYS || file.filePath().isEmpty() || (readOnly && mode != OPEN_EXISTING)) {
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

// A read-only connection with the URI parameters given, that never checkpoints.
sqlite3* openReadOnly(const QString& path, const char* parameters, DWORD* error) {
    const QByteArray uri =
        "file:" + QUrl::toPercentEncoding(QString::fromLocal8Bit(QFile::encodeName(path)), "/") + parameters;
    sqlite3* db = nullptr;
    const int result =
        sqlite3_open_v2(uri.constData(), &db,
                        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    if (result == SQLITE_OK) {
        sqlite3_db_config(db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        *error = VolumeFormat::harden(db);
    } else {
        *error = SqlStatement::errorFor(result, sqlite3_system_errno(db));
    }
    if (*error != ERROR_SUCCESS) {
        sqlite3_close_v2(db);
        return nullptr;
    }
    return db;
}

// The page size the file's header gives (big-endian at byte 16, 1 meaning 65536), or the smallest
// one when the header cannot be read or makes no sense.
qint64 pageSizeOf(const QString& path) {
    constexpr qint64 kSmallest = 512;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(16)) {
        return kSmallest;
    }
    const QByteArray bytes = file.read(2);
    if (bytes.size() != 2) {
        return kSmallest;
    }
    const qint64 size = (static_cast<uchar>(bytes[0]) << 8) | static_cast<uchar>(bytes[1]);
    if (size == 1) {
        return 65536;
    }
    const bool powerOfTwo = size >= kSmallest && (size & (size - 1)) == 0;
    return powerOfTwo ? size : kSmallest;
}

enum class LogOwner { File, Elsewhere, Unknown };

// Whose log lies beside the file: the volume's identity as the file alone holds it must be the one
// seen through the log. A log from another volume can otherwise form a whole, valid volume of its
// own, and replace this one's pages at the next checkpoint. A file that does not hold its identity
// yet (its first pages are still in the log, or it was made before volumes had one) cannot be told.
LogOwner ownerOfLog(const QString& path, sqlite3* throughLog) {
    DWORD error = ERROR_SUCCESS;
    sqlite3* fileAlone = openReadOnly(path, "?immutable=1", &error);
    const QByteArray own = fileAlone != nullptr ? VolumeFormat::identity(fileAlone) : QByteArray();
    sqlite3_close_v2(fileAlone);
    if (own.isEmpty()) {
        return LogOwner::Unknown;
    }
    return VolumeFormat::identity(throughLog) == own ? LogOwner::File : LogOwner::Elsewhere;
}

// Looks at an existing file without any means of changing it: a read-only connection that never
// checkpoints, with the shared-memory file (when there is one) opened read-only too. Without a
// write-ahead log the file alone is the volume, and it is read as immutable: no lock, and no -wal
// or -shm is made. With a log, SQLite needs a -shm; one it makes is removed again.
//
// A log counts only once it holds a whole frame. A writer killed as it began the log's first frame
// leaves the log's header alone (or a frame cut short), which holds nothing of the volume, beside a
// -shm that a read-only connection cannot take over (SQLite answers SQLITE_PROTOCOL); the next
// writer starts that log afresh.
bool hasWriteAheadLog(const QString& path) {
    constexpr qint64 kLogHeader = 32;
    constexpr qint64 kFrameHeader = 24;
    return QFileInfo(path + QStringLiteral("-wal")).size() >= kLogHeader + kFrameHeader + pageSizeOf(path);
}

// The read-only connection that changes nothing of the file or its companions.
sqlite3* openUnchanging(const QString& path, DWORD* error) {
    const bool hasLog = hasWriteAheadLog(path) || QFileInfo::exists(path + QStringLiteral("-journal"));
    const bool hasShm = QFileInfo::exists(path + QStringLiteral("-shm"));
    return openReadOnly(path,
                        !hasLog  ? "?immutable=1"
                        : hasShm ? "?mode=ro&readonly_shm=1"
                                 : "?mode=ro",
                        error);
}

DWORD inspectReadOnly(const QString& path, Volume::Role role, VolumeFormat::Kind* kind) {
    const bool hasWal = hasWriteAheadLog(path);
    const std::vector<QString> before = existingCompanions(path);
    DWORD error = ERROR_SUCCESS;
    sqlite3* db = openUnchanging(path, &error);
    if (db != nullptr) {
        // A volume file may come from anywhere: it gets SQLite's full check. The object store is
        // mounted at every start and is ours: reading every page of years of logs each time would
        // dominate the start, so its pages are checked (the quick check) only when the last session
        // did not unmount it; otherwise its structure and catalogue are checked, and damage met
        // later is still an error.
        const LogOwner owner = hasWal ? ownerOfLog(path, db) : LogOwner::File;
        VolumeFormat::Depth depth = VolumeFormat::Depth::Full;
        if (role == Volume::Role::ObjectStore) {
            // A log that cannot be told to be the file's own gets the page check too.
            const bool clean = owner == LogOwner::File && VolumeFormat::wasClosedCleanly(db);
            depth = clean ? VolumeFormat::Depth::Structure : VolumeFormat::Depth::Quick;
        }
        error = VolumeFormat::inspect(db, depth, kind);
        if (owner == LogOwner::Elsewhere) {
            *kind = VolumeFormat::Kind::NotAVolume;
        }
    }
    sqlite3_close_v2(db);
    removeCompanionsBut(path, before);
    // Nothing could be read: the file is not readable, whatever the cause.
    return error == ERROR_ACCESS_DENIED ? ERROR_READ_FAULT : error;
}
} // namespace

std::unique_ptr<Volume> Volume::mount(const QString& path, DWORD flags, Role role, DWORD* error) {
    // Counting every allocation of the library takes a global lock per allocation; nothing here reads
    // the counts. (Only possible before the library's first use; later it is simply refused.)
    static const int memoryCounts [[maybe_unused]] = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    const QFileInfo file(path);
    const bool readOnly = (flags & CEDB_MOUNT_READONLY) != 0;
    const DWORD mode = flags & ~CEDB_MOUNT_READONLY;
    *error = checkMode(file, mode, readOnly);
    if (*error != ERROR_SUCCESS) {
        return nullptr;
    }
    const bool existed = file.exists();
    bool blank = !existed || mode == CREATE_ALWAYS || (mode == OPEN_ALWAYS && isEmptyFile(path));
    bool made = blank; // the file is (re)made by this mount, and goes again if the mount fails
    if (!blank) {
        VolumeFormat::Kind kind = VolumeFormat::Kind::NotAVolume;
        *error = inspectReadOnly(path, role, &kind);
        if (*error == ERROR_SUCCESS &&
            (kind == VolumeFormat::Kind::NotAVolume || (kind == VolumeFormat::Kind::Blank && mode == OPEN_EXISTING))) {
            *error = ERROR_BADDB;
        }
        if (*error != ERROR_SUCCESS) {
            return nullptr;
        }
        blank = kind == VolumeFormat::Kind::Blank;
        if (readOnly) {
            return mountReadOnly(path, role, error);
        }
    } else {
        if (existed && !removeVolumeFiles(path)) {
            *error = ERROR_ACCESS_DENIED;
            return nullptr;
        }
        *error = createPrivateFile(path);
        if (*error != ERROR_SUCCESS) {
            return nullptr;
        }
    }
    const std::vector<QString> companions = existingCompanions(path);
    sqlite3* db = openConnection(path, error);
    std::unique_ptr<Volume> volume;
    if (db != nullptr) {
        volume.reset(new Volume(db, QFileInfo(path).canonicalFilePath(), role));
        // A file this mount made has nothing to keep: it goes into WAL mode first, so that a kill
        // during its creation leaves a log that is simply not replayed, never a hot rollback
        // journal that a read-only look could not roll back.
        *error = made ? VolumeFormat::useWriteAheadLog(db) : ERROR_SUCCESS;
        if (*error == ERROR_SUCCESS) {
            *error = volume->accept(blank);
        }
    }
    if (*error != ERROR_SUCCESS) {
        volume.reset();
        if (made) {
            removeVolumeFiles(path);
        } else {
            removeCompanionsBut(path, companions);
        }
        return nullptr;
    }
    return volume;
}

std::unique_ptr<Volume> Volume::mountReadOnly(const QString& path, Role role, DWORD* error) {
    const QString canonical = QFileInfo(path).canonicalFilePath();
    std::vector<QString> companions = existingCompanions(canonical);
    sqlite3* db = openUnchanging(canonical, error);
    if (db == nullptr) {
        removeCompanionsBut(canonical, companions);
        return nullptr;
    }
    std::unique_ptr<Volume> volume(new Volume(db, canonical, role));
    volume->m_readOnly = true;
    volume->m_companionsBefore = std::move(companions);
    return volume;
}

DWORD Volume::accept(bool blank) {
    // One transaction: a volume is taken whole (its schema completed, the registry's keys adopted,
    // the mount recorded) or the file is left as it was.
    const bool objectStore = m_role == Role::ObjectStore;
    const DWORD error = transaction([&] {
        DWORD error = VolumeFormat::complete(m_db, blank, objectStore);
        if (error == ERROR_SUCCESS && objectStore) {
            error = RegistryStore(*this).adoptKeysOfValues();
        }
        if (error == ERROR_SUCCESS && objectStore) {
            error = VolumeFormat::markInUse(m_db, true);
        }
        return error;
    });
    m_accepted = error == ERROR_SUCCESS;
    if (!m_accepted) {
        // Refused after all: closing must not fold a log that was there into the file.
        sqlite3_db_config(m_db, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
        // A full disk shows as an I/O error of the -shm, a folder that cannot be written as a -wal
        // that cannot be opened: errno tells.
        return SqlStatement::refine(error, sqlite3_system_errno(m_db));
    }
    return VolumeFormat::useWriteAheadLog(m_db);
}

Volume::Volume(sqlite3* db, QString path, Role role) : m_db(db), m_path(std::move(path)), m_role(role) {}

Volume::~Volume() {
    // Copy first: a handle detaches itself from the set when told.
    const std::vector<VolumeHandle*> handles(m_handles.begin(), m_handles.end());
    for (VolumeHandle* handle : handles) {
        handle->invalidate();
    }
    if (m_operation) {
        m_operation = false; // unmounted with an operation open: nothing of it is kept
        rollback();
    }
    releaseRead();
    m_statements.clear();
    if (m_accepted && m_role == Role::ObjectStore) {
        VolumeFormat::markInUse(m_db, false);
    }
    sqlite3_close_v2(m_db);
    if (m_readOnly) {
        removeCompanionsBut(m_path, m_companionsBefore); // a -shm the reads needed
    }
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
    // Inside an operation the reads share its transaction; one that SQLite has rolled back must not
    // be replaced by a read transaction that later writes would be taken into.
    if (!m_operation && sqlite3_get_autocommit(m_db) != 0) {
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
    // Only ever called outside a write transaction: an open transaction here is a read one, unless
    // it is the operation's.
    if (!m_operation && sqlite3_get_autocommit(m_db) == 0) {
        execute(kCommit);
    }
}

DWORD Volume::begin(bool bulk) {
    if (m_operation) {
        if (!operationAlive() || m_operationSpoilt) {
            return ERROR_TRANSACTION_ALREADY_ABORTED;
        }
        m_changesBeforeCall = sqlite3_total_changes64(m_db);
        return bulk ? ERROR_SUCCESS : execute(kSavepoint);
    }
    releaseRead();
    ++m_transactions;
    return execute(kBegin);
}

DWORD Volume::end(DWORD error, bool bulk) {
    if (!m_operation) {
        if (error == ERROR_SUCCESS) {
            error = commit();
        }
        if (error != ERROR_SUCCESS) {
            rollback();
        }
        return error;
    }
    if (!operationAlive()) {
        return error != ERROR_SUCCESS ? error : ERROR_TRANSACTION_ALREADY_ABORTED;
    }
    if (!bulk) {
        if (error == ERROR_SUCCESS) {
            error = execute(kReleaseSavepoint);
        }
        if (error != ERROR_SUCCESS && operationAlive()) {
            // Undoes this call only; the savepoint is then released, and the operation goes on.
            execute(kRollbackSavepoint);
            execute(kReleaseSavepoint);
        }
        return error;
    }
    // A bulk call has no savepoint of its own (it would copy every page the call touches, thousands
    // for a log's deletion or copy): one that failed after changing something spoils the operation,
    // which can then only be rolled back.
    if (error != ERROR_SUCCESS && sqlite3_total_changes64(m_db) != m_changesBeforeCall) {
        m_operationSpoilt = true;
    }
    return error;
}

DWORD Volume::beginOperation() {
    if (m_operation) {
        return ERROR_TRANSACTION_REQUEST_NOT_VALID;
    }
    const DWORD error = begin(false);
    m_operation = error == ERROR_SUCCESS;
    m_operationSpoilt = false;
    return error;
}

DWORD Volume::endOperation(bool commit) {
    if (!m_operation) {
        return ERROR_TRANSACTION_NOT_ACTIVE;
    }
    const bool alive = operationAlive() && !m_operationSpoilt;
    m_operation = false;
    DWORD error = alive ? ERROR_SUCCESS : ERROR_TRANSACTION_ALREADY_ABORTED;
    if (commit && alive) {
        error = this->commit();
    }
    if (!commit || error != ERROR_SUCCESS) {
        rollback();
    }
    return error;
}

DWORD Volume::execute(const char* sql) {
    SqlStatement* statement = this->statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    return statement->execute();
}

DWORD Volume::commit() {
    return execute(kCommit);
}

void Volume::rollback() {
    // After some errors SQLite has already rolled back; then there is no transaction to end.
    if (sqlite3_get_autocommit(m_db) == 0) {
        execute(kRollback);
    }
}

DWORD Volume::allocateObjectId(CEOID* oid) {
    return allocateObjectIds(1, oid);
}

DWORD Volume::allocateObjectIds(DWORD count, CEOID* first) {
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
    if (last < 0 || last + count > 0xFFFFFFFFll) {
        return ERROR_DISK_FULL; // the 32-bit id space is spent
    }
    SqlStatement::Scope scope(*remember);
    remember->bindInt(1, last + count);
    const DWORD error = remember->execute();
    *first = error == ERROR_SUCCESS ? static_cast<CEOID>(last + 1) : 0;
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
