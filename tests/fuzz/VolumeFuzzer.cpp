// libFuzzer target: any bytes, mounted as a database volume, must be refused or read without a
// crash, a hang or a sanitizer report. The input is written to a file, mounted with
// CeMountDBVol(OPEN_EXISTING), and every database and record of it is walked: enumerated,
// described, opened in creation order and in its sort order, sought with every seek kind, read,
// written to and unmounted.

#include "CeDatabase.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace {
constexpr std::size_t kMaxDatabases = 64;
constexpr int kMaxReads = 4096;

const QString& inputPath() {
    static QTemporaryDir dir;
    static const QString path = dir.filePath(QStringLiteral("input.kov"));
    return path;
}

void writeInput(const std::uint8_t* data, std::size_t size) {
    const QString& path = inputPath();
    // A write-ahead log left by the last input would be read with this one.
    for (const char* suffix : {"-wal", "-shm", "-journal"}) {
        QFile::remove(path + QLatin1String(suffix));
    }
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
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
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    writeInput(data, size);
    CEGUID guid;
    if (!CeMountDBVol(&guid, inputPath(), OPEN_EXISTING)) {
        return 0;
    }
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
    CeUnmountDBVol(&guid);
    return 0;
}
