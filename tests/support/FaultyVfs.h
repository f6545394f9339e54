#pragma once
// An SQLite VFS for tests that wraps the default one and makes one chosen call fail: the Nth
// write, sync or lock (file locks and the -wal's shared-memory locks alike) after it is armed, or
// every open of a file that does not exist yet; or that kills the process at the Nth call. The failure comes with the
// error of a full disk (SQLITE_FULL, errno ENOSPC), of a disk fault (SQLITE_IOERR_*, EIO) or of a folder that cannot be
// written (SQLITE_CANTOPEN, EACCES), as sqlite3_system_errno then tells. While it lives it is the
// default VFS, so every connection the platform opens goes through it.

#include <sqlite3.h>

class FaultyVfs {
public:
    enum class Call { Write, Sync, Lock };

    FaultyVfs();
    ~FaultyVfs();
    FaultyVfs(const FaultyVfs&) = delete;
    FaultyVfs& operator=(const FaultyVfs&) = delete;

    // The nth call of that kind from now on fails (n = 1: the next one); diskFull: as a full disk,
    // else as an I/O fault.
    void failCall(Call call, int n, bool diskFull);
    // The process is killed with SIGKILL just before the nth call of that kind from now on.
    void killAt(Call call, int n);
    // Every open that would create a file fails as in a folder that cannot be written.
    void failCreation();
    void disarm();
    // Whether the armed failure has happened.
    bool fired() const;
};
