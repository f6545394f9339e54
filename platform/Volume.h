#pragma once
// One mounted database volume: a SQLite file in the format of docs/storage.md, with its one
// connection kept open for the whole mount and the statements prepared on it cached here.
// The handles opened on the volume are known to it, so that unmounting the volume or deleting a
// database can make them invalid.

#include "SqlStatement.h"
#include "WinTypes.h"

#include <QString>

#include <cstdint>

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class VolumeHandle;

class Volume {
public:
    enum class Role { ObjectStore, File };

    // Mounts the file at path in a CeMountDBVol mode (CREATE_NEW ... OPEN_ALWAYS, or OPEN_EXISTING with
    // CEDB_MOUNT_READONLY: then nothing of the file or its companions changes). On refusal
    // returns nullptr with *error set: ERROR_BADDB for a file that is not a volume or is damaged,
    // the error of the disk for one that could not be read or written. A file that is refused is
    // left byte for byte as it was, with its companions; a file the mount made is removed again.
    static std::unique_ptr<Volume> mount(const QString& path, DWORD flags, Role role, DWORD* error);
    ~Volume();
    Volume(const Volume&) = delete;
    Volume& operator=(const Volume&) = delete;

    // The file's canonical path.
    const QString& path() const { return m_path; }
    Role role() const { return m_role; }

    // The statement for sql, prepared on first use and kept. sql must have static storage: its
    // address is the cache key. nullptr when it cannot be prepared.
    SqlStatement* statement(const char* sql);

    // Runs work inside one write transaction: committed when work returns ERROR_SUCCESS, rolled
    // back otherwise. Returns work's error or the commit's. Inside an operation's transaction (below)
    // it is a savepoint of that transaction: work still happens whole or not at all, and becomes
    // durable when the operation commits.
    template <typename Work> DWORD transaction(Work&& work) {
        DWORD error = begin(false);
        if (error != ERROR_SUCCESS) {
            return error;
        }
        return end(work(), false);
    }
    // The same for work that changes many pages (a database's deletion, a batch of copied records):
    // inside an operation it takes no savepoint, and when it fails after changing something the
    // operation is spoilt: its commit is refused and everything is rolled back.
    template <typename Work> DWORD bulkTransaction(Work&& work) {
        DWORD error = begin(true);
        if (error != ERROR_SUCCESS) {
            return error;
        }
        return end(work(), true);
    }

    // The operation's transaction, begun and ended by the caller: every write until the end is one
    // transaction. Beginning while one is open, or ending none, is refused (nothing nests).
    DWORD beginOperation();
    DWORD endOperation(bool commit);

    // The number of rows the last INSERT, UPDATE or DELETE changed.
    int changes() const { return sqlite3_changes(m_db); }

    // While a handle is open on the volume, its reads share one read transaction, begun by the
    // first of them (or by the open itself) and ended by the next write or when the last handle
    // goes: a walk through a database then costs no lock and no snapshot check per record.
    // (Writes made meanwhile by another process are seen from the next write or close on.)
    void holdRead();
    // Ends the read transaction when no handle is open any more (an open that failed).
    void releaseReadIfIdle();

    // Where reads stand: the read transaction in force (0: none is held, each statement reads on
    // its own) and the number of rows changed on the connection so far.
    struct ReadPoint {
        std::uint64_t transaction = 0;
        std::int64_t changes = 0;
        friend bool operator==(const ReadPoint&, const ReadPoint&) = default;
    };
    ReadPoint readPoint() const;
    // True when a record found at `found` still exists: it was found in the read transaction that
    // is still in force, and nothing was changed on the connection since.
    bool unchangedSince(const ReadPoint& found) const { return found.transaction != 0 && readPoint() == found; }

    // A new object id, never given out before on this volume; call inside a transaction.
    DWORD allocateObjectId(CEOID* oid);
    // count new object ids, first ... first + count - 1, given out at once; call inside a transaction.
    DWORD allocateObjectIds(DWORD count, CEOID* first);

    void attach(VolumeHandle* handle);
    void detach(VolumeHandle* handle);
    // Makes every handle open on the database oid invalid (the database was deleted).
    void invalidateDatabase(CEOID oid);

private:
    Volume(sqlite3* db, QString path, Role role);
    static std::unique_ptr<Volume> mountReadOnly(const QString& path, Role role, DWORD* error);
    // Completes a volume that passed inspection (blank: writes its schema) and takes it in use.
    DWORD accept(bool blank);
    DWORD begin(bool bulk);
    // Ends what begin() began: commits when error is ERROR_SUCCESS, rolls back otherwise, and returns
    // error or the commit's.
    DWORD end(DWORD error, bool bulk);
    DWORD execute(const char* sql);
    DWORD commit();
    void rollback();
    // Whether the operation's transaction is still open in SQLite: some disk failures (a full disk,
    // an I/O error) make SQLite roll the whole transaction back by itself.
    bool operationAlive() const { return sqlite3_get_autocommit(m_db) == 0; }
    void releaseRead();

    sqlite3* m_db;
    QString m_path;
    Role m_role;
    // Set once accept() committed: only an accepted volume is ever written to, even at unmount.
    bool m_accepted = false;
    // Mounted read-only: the companions that were there before, so that those the reads made go.
    bool m_readOnly = false;
    std::vector<QString> m_companionsBefore;
    std::unordered_map<const char*, std::unique_ptr<SqlStatement>> m_statements;
    std::unordered_set<VolumeHandle*> m_handles;
    // An operation's transaction is open (beginOperation): writes are savepoints of it, and no read
    // transaction of the handles' is begun or ended meanwhile.
    bool m_operation = false;
    // A bulk call inside the operation failed half-way: the operation's commit is refused.
    bool m_operationSpoilt = false;
    std::int64_t m_changesBeforeCall = 0;
    // Counts the transactions begun, so that each is told from the one before.
    std::uint64_t m_transactions = 0;
};
