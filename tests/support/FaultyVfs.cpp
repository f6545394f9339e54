#include "FaultyVfs.h"

#include <cerrno>
#include <csignal>
#include <cstring>

namespace {
struct Fault {
    bool armed = false;
    FaultyVfs::Call call = FaultyVfs::Call::Write;
    int remaining = 0;
    bool diskFull = false;
    bool creation = false;
    bool kill = false;
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
    if (g_fault.kill) {
        std::raise(SIGKILL);
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

// A call passed on to the real file as it is.
template <auto method, typename... Args> auto pass(sqlite3_file* file, Args... args) {
    return (real(file)->pMethods->*method)(real(file), args...);
}

// A call passed on unless the armed failure falls on it.
template <auto method, FaultyVfs::Call call, typename... Args> int faulty(sqlite3_file* file, Args... args) {
    const int fault = inject(call);
    return fault != SQLITE_OK ? fault : (real(file)->pMethods->*method)(real(file), args...);
}

int close(sqlite3_file* file) {
    const int result = real(file)->pMethods != nullptr ? real(file)->pMethods->xClose(real(file)) : SQLITE_OK;
    sqlite3_free(real(file));
    return result;
}
int shmLock(sqlite3_file* file, int offset, int n, int flags) {
    // Only taking a lock can fail; letting one go cannot.
    const int fault = (flags & SQLITE_SHM_LOCK) != 0 ? inject(FaultyVfs::Call::Lock) : SQLITE_OK;
    return fault != SQLITE_OK ? fault : real(file)->pMethods->xShmLock(real(file), offset, n, flags);
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
    using M = sqlite3_io_methods;
    g_methods = M{3,
                  close,
                  pass<&M::xRead>,
                  faulty<&M::xWrite, Call::Write>,
                  pass<&M::xTruncate>,
                  faulty<&M::xSync, Call::Sync>,
                  pass<&M::xFileSize>,
                  faulty<&M::xLock, Call::Lock>,
                  pass<&M::xUnlock>,
                  pass<&M::xCheckReservedLock>,
                  pass<&M::xFileControl>,
                  pass<&M::xSectorSize>,
                  pass<&M::xDeviceCharacteristics>,
                  pass<&M::xShmMap>,
                  shmLock,
                  pass<&M::xShmBarrier>,
                  pass<&M::xShmUnmap>,
                  pass<&M::xFetch>,
                  pass<&M::xUnfetch>};
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
    g_fault = Fault{true, call, n, diskFull, false, false, false, 0};
}

void FaultyVfs::killAt(Call call, int n) {
    failCall(call, n, false);
    g_fault.kill = true;
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
