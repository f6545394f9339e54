#include "FaultyVfs.h"

#include <cerrno>
#include <cstring>

namespace {
struct Fault {
    bool armed = false;
    FaultyVfs::Call call = FaultyVfs::Call::Write;
    int remaining = 0;
    bool diskFull = false;
    bool creation = false;
    bool fired = false;
    int systemError = 0;
};
Fault g_fault;
sqlite3_vfs* g_real = nullptr;
sqlite3_vfs g_vfs;
sqlite3_io_methods g_methods;

struct File {
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_file* real(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->real;
}

// The failure for this call, or SQLITE_OK when it goes through.
int inject(FaultyVfs::Call call) {
    if (!g_fault.armed || g_fault.creation || g_fault.call != call || --g_fault.remaining > 0) {
        return SQLITE_OK;
    }
    g_fault.armed = false;
    g_fault.fired = true;
    g_fault.systemError = g_fault.diskFull ? ENOSPC : EIO;
    switch (call) {
    case FaultyVfs::Call::Write:
        return g_fault.diskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    case FaultyVfs::Call::Sync:
        return g_fault.diskFull ? SQLITE_FULL : SQLITE_IOERR_FSYNC;
    default:
        return g_fault.diskFull ? SQLITE_FULL : SQLITE_IOERR_LOCK;
    }
}

int close(sqlite3_file* file) {
    const int result = real(file)->pMethods != nullptr ? real(file)->pMethods->xClose(real(file)) : SQLITE_OK;
    sqlite3_free(real(file));
    return result;
}
int read(sqlite3_file* file, void* buffer, int amount, sqlite3_int64 offset) {
    return real(file)->pMethods->xRead(real(file), buffer, amount, offset);
}
int write(sqlite3_file* file, const void* buffer, int amount, sqlite3_int64 offset) {
    const int fault = inject(FaultyVfs::Call::Write);
    return fault != SQLITE_OK ? fault : real(file)->pMethods->xWrite(real(file), buffer, amount, offset);
}
int truncate(sqlite3_file* file, sqlite3_int64 size) {
    return real(file)->pMethods->xTruncate(real(file), size);
}
int sync(sqlite3_file* file, int flags) {
    const int fault = inject(FaultyVfs::Call::Sync);
    return fault != SQLITE_OK ? fault : real(file)->pMethods->xSync(real(file), flags);
}
int fileSize(sqlite3_file* file, sqlite3_int64* size) {
    return real(file)->pMethods->xFileSize(real(file), size);
}
int lock(sqlite3_file* file, int level) {
    const int fault = inject(FaultyVfs::Call::Lock);
    return fault != SQLITE_OK ? fault : real(file)->pMethods->xLock(real(file), level);
}
int unlock(sqlite3_file* file, int level) {
    return real(file)->pMethods->xUnlock(real(file), level);
}
int checkReservedLock(sqlite3_file* file, int* out) {
    return real(file)->pMethods->xCheckReservedLock(real(file), out);
}
int fileControl(sqlite3_file* file, int op, void* arg) {
    return real(file)->pMethods->xFileControl(real(file), op, arg);
}
int sectorSize(sqlite3_file* file) {
    return real(file)->pMethods->xSectorSize(real(file));
}
int deviceCharacteristics(sqlite3_file* file) {
    return real(file)->pMethods->xDeviceCharacteristics(real(file));
}
int shmMap(sqlite3_file* file, int page, int size, int extend, void volatile** out) {
    return real(file)->pMethods->xShmMap(real(file), page, size, extend, out);
}
int shmLock(sqlite3_file* file, int offset, int n, int flags) {
    // Only taking a lock can fail; letting one go cannot.
    const int fault = (flags & SQLITE_SHM_LOCK) != 0 ? inject(FaultyVfs::Call::Lock) : SQLITE_OK;
    return fault != SQLITE_OK ? fault : real(file)->pMethods->xShmLock(real(file), offset, n, flags);
}
void shmBarrier(sqlite3_file* file) {
    real(file)->pMethods->xShmBarrier(real(file));
}
int shmUnmap(sqlite3_file* file, int deleteFlag) {
    return real(file)->pMethods->xShmUnmap(real(file), deleteFlag);
}
int fetch(sqlite3_file* file, sqlite3_int64 offset, int amount, void** out) {
    return real(file)->pMethods->xFetch(real(file), offset, amount, out);
}
int unfetch(sqlite3_file* file, sqlite3_int64 offset, void* pointer) {
    return real(file)->pMethods->xUnfetch(real(file), offset, pointer);
}

int open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    if (g_fault.armed && g_fault.creation && name != nullptr && (flags & SQLITE_OPEN_CREATE) != 0) {
        int exists = 0;
        g_real->xAccess(g_real, name, SQLITE_ACCESS_EXISTS, &exists);
        if (exists == 0) {
            g_fault.fired = true;
            g_fault.systemError = EACCES;
            return SQLITE_CANTOPEN;
        }
    }
    auto* wrapper = reinterpret_cast<File*>(file);
    wrapper->real = static_cast<sqlite3_file*>(sqlite3_malloc(g_real->szOsFile));
    if (wrapper->real == nullptr) {
        return SQLITE_NOMEM;
    }
    std::memset(wrapper->real, 0, g_real->szOsFile);
    const int result = g_real->xOpen(g_real, name, wrapper->real, flags, outFlags);
    // xClose is called even after a failed open, and frees the real file.
    file->pMethods = &g_methods;
    return result;
}
int getLastError(sqlite3_vfs*, int size, char* text) {
    if (g_fault.fired) {
        return g_fault.systemError;
    }
    return g_real->xGetLastError(g_real, size, text);
}
} // namespace

FaultyVfs::FaultyVfs() {
    g_real = sqlite3_vfs_find(nullptr);
    g_fault = Fault{};
    g_methods = sqlite3_io_methods{3,
                                   close,
                                   read,
                                   write,
                                   truncate,
                                   sync,
                                   fileSize,
                                   lock,
                                   unlock,
                                   checkReservedLock,
                                   fileControl,
                                   sectorSize,
                                   deviceCharacteristics,
                                   shmMap,
                                   shmLock,
                                   shmBarrier,
                                   shmUnmap,
                                   fetch,
                                   unfetch};
    g_vfs = *g_real;
    g_vfs.zName = "faulty";
    g_vfs.szOsFile = sizeof(File);
    g_vfs.pNext = nullptr;
    g_vfs.xOpen = open;
    g_vfs.xGetLastError = getLastError;
    sqlite3_vfs_register(&g_vfs, 1);
}

FaultyVfs::~FaultyVfs() {
    sqlite3_vfs_unregister(&g_vfs);
    sqlite3_vfs_register(g_real, 1);
}

void FaultyVfs::failCall(Call call, int n, bool diskFull) {
    g_fault = Fault{true, call, n, diskFull, false, false, 0};
}

void FaultyVfs::failCreation() {
    g_fault = Fault{};
    g_fault.armed = true;
    g_fault.creation = true;
}

void FaultyVfs::disarm() {
    g_fault.armed = false;
}

bool FaultyVfs::fired() const {
    return g_fault.fired;
}
