// libFuzzer target: any bytes, mounted as a database volume and as the object store, must be
// refused or read without a crash, a hang or a sanitizer report, and a file that is refused must be
// left byte for byte as it was. The input is a file, optionally followed by the separator line
// below and a write-ahead log to lay beside it. It is mounted with CeMountDBVol(OPEN_EXISTING), and
// every database and record of it is walked: enumerated, described, opened in creation order and
// in its sort order, sought with every seek kind, read, its first record rewritten, written to and
// unmounted. Then the same bytes are mounted as the object store: its registry read and written,
// its databases walked, unmounted, and mounted once more, now as a store that was unmounted cleanly.

#include "CeDatabase.h"
#include "Registry.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {
constexpr std::size_t kMaxDatabases = 64;
constexpr int kMaxReads = 4096;

const QByteArray kWalSeparator = QByteArrayLiteral("\nKOVALIN-WAL\n");

const QString& folder() {
    static QTemporaryDir dir;
    static const QString path = dir.path();
    return path;
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(bytes);
    }
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

// Writes the input as path, and its log as path-wal when it has one.
void writeInput(const QString& path, const QByteArray& input) {
    // A companion left by the last input would be read with this one.
    for (const char* suffix : {"-wal", "-shm", "-journal"}) {
        QFile::remove(path + QLatin1String(suffix));
    }
    const qsizetype separator = input.indexOf(kWalSeparator);
    writeFile(path, separator < 0 ? input : input.left(separator));
    if (separator >= 0) {
        writeFile(path + QStringLiteral("-wal"), input.mid(separator + kWalSeparator.size()));
    }
}

// The files of a volume, to check that a refusal changed none of them.
QByteArray filesOf(const QString& path) {
    return readFile(path) + readFile(path + QStringLiteral("-wal")) + readFile(path + QStringLiteral("-shm"));
}

// Reads on until the end; a record that cannot be read is stepped over.
void readAll(HANDLE db) {
    std::vector<CEPROPVAL> props;
    for (int i = 0; i < kMaxReads; ++i) {
        if (CeReadRecordProps(db, 0, &props) == 0 &&
            (GetLastError() != ERROR_INVALID_DATA || CeSeekDatabase(db, CEDB_SEEK_CURRENT, 1) == 0)) {
            return;
        }
    }
}

// The first record's value of the sort property, as a seek value.
std::optional<CEPROPVAL> firstKey(HANDLE db, CEPROPID sortPropid) {
    std::vector<CEPROPVAL> props;
    if (CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0) != 0 && CeReadRecordProps(db, 0, &props) != 0) {
        for (const CEPROPVAL& prop : props) {
            if (prop.propid == sortPropid) {
                return prop;
            }
        }
    }
    return std::nullopt;
}

void seekEverywhere(HANDLE db, const std::optional<CEPROPVAL>& key) {
    DWORD index = 0;
    const CEOID first = CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0, &index);
    CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 2, &index);
    CeSeekDatabase(db, CEDB_SEEK_CURRENT, static_cast<DWORD>(-1), &index);
    CeSeekDatabase(db, CEDB_SEEK_CURRENT, 3, &index);
    CeSeekDatabase(db, CEDB_SEEK_END, 1, &index);
    CeSeekDatabase(db, CEDB_SEEK_CEOID, first, &index);
    if (key.has_value()) {
        for (DWORD type : {CEDB_SEEK_VALUESMALLER, CEDB_SEEK_VALUEFIRSTEQUAL, CEDB_SEEK_VALUENEXTEQUAL,
                           CEDB_SEEK_VALUEGREATER, CEDB_SEEK_VALUENEXTEQUAL}) {
            CeSeekDatabase(db, type, *key, &index);
        }
    }
}

void walkDatabase(const CEGUID& guid, CEOID oid) {
    CEOIDINFO info;
    if (!CeOidGetInfoEx(&guid, oid, &info)) {
        return;
    }
    const CEPROPID sortPropid = info.infDatabase.wNumSortOrder > 0 ? info.infDatabase.rgSortSpecs[0].propid : 0;
    for (CEPROPID order : {CEPROPID{0}, sortPropid}) {
        CEOID id = oid;
        HANDLE db = CeOpenDatabaseEx(&guid, &id, QString(), order, CEDB_AUTOINCREMENT);
        if (db == INVALID_HANDLE_VALUE) {
            continue;
        }
        readAll(db);
        const std::optional<CEPROPVAL> key = order != 0 ? firstKey(db, order) : std::nullopt;
        seekEverywhere(db, key);
        std::vector<CEPROPVAL> props;
        const CEOID first = CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0);
        if (first != 0 && CeReadRecordProps(db, 0, &props) != 0) {
            CeWriteRecordProps(db, first, props); // a rewrite of a record as it was read
        }
        if (key.has_value()) {
            // A write and a delete among hostile neighbours.
            const CEOID added = CeWriteRecordProps(db, 0, {*key});
            CeOidGetInfoEx(&guid, added, &info);
            CeDeleteRecord(db, added);
        }
        CloseHandle(db);
        if (sortPropid == 0) {
            break;
        }
    }
}

void walkVolume(CEGUID guid) {
    std::vector<CEOID> databases;
    HANDLE find = CeFindFirstDatabaseEx(&guid, 0);
    for (CEOID oid = CeFindNextDatabaseEx(find, &guid); oid != 0 && databases.size() < kMaxDatabases;
         oid = CeFindNextDatabaseEx(find, &guid)) {
        databases.push_back(oid);
    }
    CloseHandle(find);
    for (CEOID oid : databases) {
        walkDatabase(guid, oid);
    }
}

void walkRegistry() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, QStringLiteral("Software\\Orn\\Kovalin"), &key) == ERROR_SUCCESS) {
        for (const char* name : {"PullWt", "LastUser", "DontShow", ""}) {
            BYTE data[260];
            DWORD type = 0;
            DWORD size = sizeof data;
            RegQueryValueExW(key, QString::fromLatin1(name), &type, data, &size);
        }
        RegCloseKey(key);
    }
    if (RegCreateKeyExW(HKEY_CURRENT_USER, QStringLiteral("software\\orn\\kovalin\\Fuzz"), &key) == ERROR_SUCCESS) {
        const BYTE one[4] = {1, 0, 0, 0};
        RegSetValueExW(key, QStringLiteral("pullwt"), REG_DWORD, one, 4);
        RegCloseKey(key);
    }
}

// Mounts the file as the object store; false when it is refused, which must leave it as it was.
bool mountObjectStore(const QString& path) {
    const QByteArray before = filesOf(path);
    if (CeMountObjectStore(path)) {
        return true;
    }
    if (filesOf(path) != before) {
        std::abort();
    }
    return false;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString volume = folder() + QStringLiteral("/input.kov");
    writeInput(volume, input);
    const QByteArray before = filesOf(volume);
    CEGUID guid;
    if (CeMountDBVol(&guid, volume, OPEN_EXISTING)) {
        walkVolume(guid);
        CeUnmountDBVol(&guid);
    } else if (filesOf(volume) != before) {
        std::abort(); // a refused file was changed
    }

    const QString store = folder() + QStringLiteral("/objectstore.db");
    writeInput(store, input);
    if (mountObjectStore(store)) {
        CEGUID system;
        CREATE_SYSTEMGUID(&system);
        walkRegistry();
        walkVolume(system);
        CeUnmountObjectStore();
        if (mountObjectStore(store)) {
            walkRegistry();
            CeUnmountObjectStore();
        }
    }
    return 0;
}
