// Backup and restore of one user's six logs on the ten-year device, against hand-written SQLite doing
// the same reads and writes in the same run:
//   backup   every record of the six logs, in date order, written one by one (one durable commit each)
//            as new records of six copies in a new volume file
//   restore  every record of the six copies read (the check before anything changes), then each log
//            deleted, made anew and filled from its copy, one durable commit per record
// The ratio utilities / sqlite must stay at most 2.

#include "Backup.h"
#include "BackupFile.h"
#include "BenchMain.h"
#include "DevicePaths.h"
#include "RatioRunner.h"
#include "Restore.h"
#include "UtilityReport.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <vector>

namespace {
constexpr double kLimit = 2.0;

class QuietReport : public UtilityReport {
public:
    void status(const QString&) override {}
    void message(const QString& text) override { std::fprintf(stderr, "%s\n", qPrintable(text)); }
    void progressRange(int, int) override {}
    void progressPosition(int) override {}
    void progressStep(int) override {}
    void stepProgress() override {}
};

const char* const kSchema = R"sql(
PRAGMA application_id = 1263490625; PRAGMA user_version = 1;
CREATE TABLE databases (oid INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,
  sort_propid INTEGER, sort_flags INTEGER NOT NULL DEFAULT 0) STRICT;
CREATE TABLE records (oid INTEGER PRIMARY KEY, db INTEGER NOT NULL REFERENCES databases(oid) ON DELETE CASCADE,
  sort_key ANY) STRICT;
CREATE INDEX records_in_order ON records(db, sort_key, oid);
CREATE TABLE props (record INTEGER NOT NULL REFERENCES records(oid) ON DELETE CASCADE, propid INTEGER NOT NULL,
  value ANY, PRIMARY KEY (record, propid)) STRICT, WITHOUT ROWID;
)sql";

sqlite3* openFile(const QString& path) {
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &db);
    sqlite3_exec(db, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON;", nullptr,
                 nullptr, nullptr);
    return db;
}

sqlite3_stmt* prepare(sqlite3* db, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
    return statement;
}

// Copies the records of database `from` (in from's file, in order) into a new database `to` of the
// file `into`: one transaction per record, as the service's writes are.
void copyDatabase(sqlite3* source, const QString& from, sqlite3* into, const QString& to, int type, qint64 sort,
                  bool byKey, qint64* nextOid) {
    const QByteArray fromName = from.toUtf8();
    const QByteArray toName = to.toUtf8();
    sqlite3_stmt* create = prepare(into, "INSERT INTO databases (oid, name, type, sort_propid) VALUES (?, ?, ?, ?)");
    const qint64 dbOid = ++*nextOid;
    sqlite3_bind_int64(create, 1, dbOid);
    sqlite3_bind_text(create, 2, toName.constData(), -1, SQLITE_STATIC);
    sqlite3_bind_int(create, 3, type);
    sqlite3_bind_int64(create, 4, sort);
    sqlite3_step(create);
    sqlite3_finalize(create);
    sqlite3_stmt* records = prepare(
        source, byKey ? "SELECT r.oid FROM records r JOIN databases d ON r.db = d.oid WHERE d.name = ? "
                        "ORDER BY r.sort_key IS NULL, r.sort_key, r.oid"
                      : "SELECT r.oid FROM records r JOIN databases d ON r.db = d.oid WHERE d.name = ? ORDER BY r.oid");
    sqlite3_stmt* props = prepare(source, "SELECT propid, value FROM props WHERE record = ? ORDER BY propid");
    sqlite3_stmt* addRecord = prepare(into, "INSERT INTO records (oid, db, sort_key) VALUES (?, ?, ?)");
    sqlite3_stmt* addProp = prepare(into, "INSERT INTO props (record, propid, value) VALUES (?, ?, ?)");
    sqlite3_bind_text(records, 1, fromName.constData(), -1, SQLITE_STATIC);
    while (sqlite3_step(records) == SQLITE_ROW) {
        const qint64 oid = ++*nextOid;
        sqlite3_exec(into, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_int64(addRecord, 1, oid);
        sqlite3_bind_int64(addRecord, 2, dbOid);
        sqlite3_bind_null(addRecord, 3);
        sqlite3_bind_int64(props, 1, sqlite3_column_int64(records, 0));
        while (sqlite3_step(props) == SQLITE_ROW) {
            // A copy's records lack its sort property (no key); a log's key is its day key.
            if (!byKey && sqlite3_column_int64(props, 0) == ((64 << 16) | 64)) {
                sqlite3_bind_value(addRecord, 3, sqlite3_column_value(props, 1));
            }
            sqlite3_bind_int64(addProp, 1, oid);
            sqlite3_bind_int64(addProp, 2, sqlite3_column_int64(props, 0));
            sqlite3_bind_value(addProp, 3, sqlite3_column_value(props, 1));
            sqlite3_step(addProp);
            sqlite3_reset(addProp);
        }
        sqlite3_reset(props);
        sqlite3_step(addRecord);
        sqlite3_reset(addRecord);
        sqlite3_exec(into, "COMMIT", nullptr, nullptr, nullptr);
    }
    for (sqlite3_stmt* statement : {records, props, addRecord, addProp}) {
        sqlite3_finalize(statement);
    }
}

QString logName(const BackupCopy& copy, const QString& user) {
    return DatabaseCatalogue::userDatabaseName(copy.log, user);
}

void backupByHand(const QString& objectStore, const QString& file, const QString& user) {
    QFile::remove(file);
    QFile::remove(file + "-wal");
    QFile::remove(file + "-shm");
    sqlite3* into = openFile(file);
    sqlite3_exec(into, kSchema, nullptr, nullptr, nullptr);
    sqlite3* source = openFile(objectStore);
    qint64 nextOid = 0;
    sqlite3_exec(source, "BEGIN", nullptr, nullptr, nullptr);
    for (const BackupCopy& copy : BackupFile::backupOrder()) {
        copyDatabase(source, logName(copy, user), into, QString::fromLatin1(copy.copyName), 0, 64, true, &nextOid);
    }
    sqlite3_exec(source, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(source);
    sqlite3_close(into);
}

void restoreByHand(const QString& objectStore, const QString& file, const QString& user) {
    sqlite3* source = openFile(file);
    sqlite3* into = openFile(objectStore);
    sqlite3_exec(source, "BEGIN", nullptr, nullptr, nullptr);
    // The check: every record of every copy read.
    sqlite3_stmt* all = prepare(source, "SELECT p.propid, p.value FROM props p JOIN records r ON p.record = r.oid "
                                        "JOIN databases d ON r.db = d.oid WHERE d.name = ? ORDER BY r.oid, p.propid");
    for (const BackupCopy& copy : BackupFile::restoreOrder()) {
        sqlite3_bind_text(all, 1, copy.copyName, -1, SQLITE_STATIC);
        while (sqlite3_step(all) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int64(all, 0));
        }
        sqlite3_reset(all);
    }
    sqlite3_finalize(all);
    qint64 nextOid = 0;
    sqlite3_stmt* highest =
        prepare(into, "SELECT max((SELECT max(oid) FROM databases), (SELECT max(oid) FROM records), "
                      "ifnull((SELECT value FROM meta WHERE name = 'last_oid'), 0))");
    sqlite3_step(highest);
    nextOid = sqlite3_column_int64(highest, 0);
    sqlite3_finalize(highest);
    sqlite3_stmt* drop = prepare(into, "DELETE FROM databases WHERE name = ?");
    for (const BackupCopy& copy : BackupFile::restoreOrder()) {
        const QByteArray name = logName(copy, user).toUtf8();
        sqlite3_bind_text(drop, 1, name.constData(), -1, SQLITE_STATIC);
        sqlite3_step(drop);
        sqlite3_reset(drop);
        copyDatabase(source, QString::fromLatin1(copy.copyName), into, logName(copy, user), 12345, (64 << 16) | 64,
                     false, &nextOid);
    }
    sqlite3_finalize(drop);
    sqlite3_exec(into,
                 "INSERT INTO meta (name, value) VALUES ('last_oid', " + QByteArray::number(nextOid) +
                     ") ON CONFLICT (name) DO UPDATE SET value = excluded.value",
                 nullptr, nullptr, nullptr);
    sqlite3_exec(source, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(source);
    sqlite3_close(into);
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    BenchDevice& device = bench.device();
    const QString root = QFileInfo(device.objectStorePath()).absolutePath();
    DevicePaths::setCurrent(DevicePaths(root));
    QDir(root).mkpath(QStringLiteral("My Documents"));
    const QString user = DeviceGenerator::userName(0);
    const QString file = BackupFile::hostPath(user);
    const QString handFile = root + QStringLiteral("/My Documents/by-hand.kov");
    QuietReport report;
    if (!Backup::run(user, report)) {
        return bench.fail(QStringLiteral("The backup failed."));
    }
    bench.runner().addPair(
        "backup",
        [&](benchmark::State& state) {
            for (auto _ : state) {
                benchmark::DoNotOptimize(Backup::run(user, report));
            }
        },
        [&](benchmark::State& state) {
            for (auto _ : state) {
                backupByHand(device.objectStorePath(), handFile, user);
            }
        },
        kLimit, benchmark::kMillisecond);
    bench.runner().addPair(
        "restore",
        [&](benchmark::State& state) {
            for (auto _ : state) {
                benchmark::DoNotOptimize(Restore::run(user, report));
            }
        },
        [&](benchmark::State& state) {
            for (auto _ : state) {
                restoreByHand(device.objectStorePath(), file, user);
            }
        },
        kLimit, benchmark::kMillisecond);
    return bench.run();
}
