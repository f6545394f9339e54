// Writes the fuzz target's seed corpus: a few small volumes made through the platform's own
// functions (so they are exactly what the program writes), shrunk to 512-byte pages, and two
// changed with SQL as no byte-level mutation is likely to change them: a store left marked in use,
// and a log whose values do not match their types. Truncated or flipped bytes, or another
// application's id, are what the fuzzer's own first mutations make of these.
//   make_fuzz_seeds DIR

#include "CeDatabase.h"
#include "PropVals.h"
#include "Registry.h"

#include <QDir>
#include <QFile>

#include <sqlite3.h>

#include <cstdio>
#include <functional>

namespace {
CEPROPVAL prop(WORD type, WORD number) {
    CEPROPVAL value;
    value.propid = PROP_TAG(type, number);
    return value;
}

CEPROPVAL fileTime(WORD number, std::uint64_t ticks) {
    CEPROPVAL p = prop(CEVT_FILETIME, number);
    p.val.filetime = fileTimeFromTicks(ticks);
    return p;
}

HANDLE createAndOpen(const CEGUID& guid, const QString& name, CEPROPID sort, DWORD flags) {
    CEDBASEINFO info;
    info.szDbaseName = name;
    info.dwDbaseType = 12345;
    info.wNumSortOrder = sort != 0 ? 1 : 0;
    info.rgSortSpecs[0] = SORTORDERSPEC{sort, flags};
    CEOID oid = CeCreateDatabaseEx(&guid, &info);
    return CeOpenDatabaseEx(&guid, &oid, QString(), sort, 0);
}

constexpr std::uint64_t kDay = 864000000000; // 100-nanosecond ticks

// A day log: every property type, day keys with a repeat, a record without a key.
void dayLog(const CEGUID& guid) {
    HANDLE db = createAndOpen(guid, "Kov2Food", PROP_TAG(CEVT_FILETIME, 64), 0);
    const std::uint64_t day = 126000000000000000;
    for (std::uint64_t key : {day, day + kDay, day, day - kDay}) {
        std::vector<CEPROPVAL> props{fileTime(64, key),   text(1132, "notes"),  prop(CEVT_I2, 102),
                                     prop(CEVT_UI2, 103), prop(CEVT_I4, 104),   prop(CEVT_UI4, 105),
                                     prop(CEVT_R8, 106),  prop(CEVT_BOOL, 107), prop(CEVT_BLOB, 108)};
        props[2].val.iVal = -7;
        props[5].val.ulVal = 4000000000u;
        props[6].val.dblVal = 72.5;
        props[8].val.blob = QByteArray("\x01\x02\x03", 3);
        CeWriteRecordProps(db, 0, props);
    }
    CeWriteRecordProps(db, 0, {text(1132, "no day")});
    CloseHandle(db);
}

// Name lists: text keys, one unsorted database, one with records that lack the key first.
void nameLists(const CEGUID& guid) {
    HANDLE list = createAndOpen(guid, "KovChestList", PROP_TAG(CEVT_LPWSTR, 801), 0);
    for (const char* item : {"Bench Press", "bench press", "Flyes", "Bench Press"}) {
        CeWriteRecordProps(list, 0, {text(801, item)});
    }
    CloseHandle(list);
    HANDLE first = createAndOpen(guid, "KovUserList", PROP_TAG(CEVT_LPWSTR, 801), CEDB_SORT_UNKNOWNFIRST);
    CeWriteRecordProps(first, 0, {text(801, "Default")});
    CeWriteRecordProps(first, 0, {text(802, "nameless")});
    CloseHandle(first);
    HANDLE unsorted = createAndOpen(guid, "temp", 0, 0);
    const CEOID gone = CeWriteRecordProps(unsorted, 0, {i4(1010, 0)});
    CeWriteRecordProps(unsorted, 0, {i4(1010, 0)});
    CeDeleteRecord(unsorted, gone);
    CloseHandle(unsorted);
}

bool exec(const QString& path, const char* sql) {
    sqlite3* db = nullptr;
    bool done = sqlite3_open(QFile::encodeName(path).constData(), &db) == SQLITE_OK &&
                sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(db);
    return done;
}

// A volume made by fill, rewritten with 512-byte pages so that the fuzzer's inputs stay small.
bool makeVolume(const QString& path, const std::function<void(const CEGUID&)>& fill, bool keepWal) {
    QFile::remove(path);
    CEGUID guid;
    if (!CeMountDBVol(&guid, path, CREATE_NEW)) {
        return false;
    }
    fill(guid);
    CeUnmountDBVol(&guid);
    return exec(path, "PRAGMA journal_mode = DELETE; PRAGMA page_size = 512; VACUUM;") &&
           (!keepWal || exec(path, "PRAGMA journal_mode = WAL;"));
}

bool makeObjectStore(const QString& path) {
    QFile::remove(path);
    if (!CeMountObjectStore(path)) {
        return false;
    }
    CEGUID guid;
    CREATE_SYSTEMGUID(&guid);
    nameLists(guid);
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, "Software\\Orn\\Kovalin", &key);
    const DWORD one = 1;
    RegSetValueExW(key, "PullWt", REG_DWORD, reinterpret_cast<const BYTE*>(&one), 4);
    RegCloseKey(key);
    CeUnmountObjectStore();
    return exec(path, "PRAGMA journal_mode = DELETE; PRAGMA page_size = 512; VACUUM;");
}

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A store caught while mounted, its last writes still in its log: the file, the fuzz target's
// separator line, and the log.
bool makeStoreWithLog(const QString& from, const QString& to) {
    const QString path = to + QStringLiteral(".db");
    QFile::remove(path);
    if (!QFile::copy(from, path) || !CeMountObjectStore(path)) {
        return false;
    }
    CEGUID guid;
    CREATE_SYSTEMGUID(&guid);
    CEOID oid = 0;
    HANDLE list = CeOpenDatabaseEx(&guid, &oid, "KovChestList", 0, 0);
    const CEOID first = CeSeekDatabase(list, CEDB_SEEK_BEGINNING, 0);
    CeWriteRecordProps(list, first, {text(801, "Incline Press")});
    CeWriteRecordProps(list, 0, {text(801, "Dips")});
    CloseHandle(list);
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, "Software\\Orn\\Kovalin", &key);
    RegSetValueExW(key, "LastUser", REG_SZ, reinterpret_cast<const BYTE*>(u"Ann"), 8);
    RegCloseKey(key);
    const QByteArray bytes = readAll(path) + "\nKOVALIN-WAL\n" + readAll(path + "-wal");
    CeUnmountObjectStore();
    QFile::remove(path);
    QFile out(to);
    return out.open(QIODevice::WriteOnly | QIODevice::Truncate) && out.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_fuzz_seeds DIR\n");
        return 2;
    }
    const QDir dir(QString::fromLocal8Bit(argv[1]));
    const QString log = dir.filePath("daylog.kov");
    const QString store = dir.filePath("objectstore.kov");
    const QString unclean = dir.filePath("objectstore-unclean.kov");
    const QString mistyped = dir.filePath("daylog-mistyped.kov");
    for (const QString& copy : {unclean, mistyped}) {
        QFile::remove(copy);
    }
    const bool made = makeVolume(
                          dir.filePath("empty.kov"), [](const CEGUID&) {}, false) &&
                      makeVolume(log, dayLog, false) && makeVolume(dir.filePath("namelists.kov"), nameLists, false) &&
                      makeVolume(dir.filePath("daylog-wal.kov"), dayLog, true) && makeObjectStore(store) &&
                      makeStoreWithLog(store, dir.filePath("objectstore-log.kov")) && QFile::copy(store, unclean) &&
                      exec(unclean, "UPDATE meta SET value = 1 WHERE name = 'in_use'") && QFile::copy(log, mistyped) &&
                      exec(mistyped,
                           "UPDATE props SET value = 'text' WHERE propid = 6815747;"  // I4 104 holding a text
                           "UPDATE props SET value = 70000 WHERE propid = 6684674;"); // I2 102 beyond 16 bits
    if (!made) {
        std::fprintf(stderr, "could not write the seeds\n");
        return 1;
    }
    return 0;
}
