// Backup, restore and compact of one user's six logs on the ten-year device, against the physical
// limit: the same job done by hand-written SQLite in one transaction, set-wise, in the same run:
//   backup   a new volume file with the same schema; the object store attached; per log one
//            INSERT ... SELECT of its records in date order (new object ids by row_number) and one of
//            their properties; one commit
//   restore  the backup attached to the object store; per log its properties, records and catalogue
//            row deleted with one DELETE each, the log made anew and filled with two INSERT ... SELECT
//            (the sort key looked up in the same statement); last_oid remembered; one commit
//   compact  one read transaction over every property of the six logs in date order, each value
//            touched (on the ten-year device no day is empty, so compact deletes nothing: it reads)
// Ratios are on CPU time; each must stay at most 1.5.

#include "Backup.h"
#include "BackupFile.h"
#include "BenchMain.h"
#include "Compact.h"
#include "DevicePaths.h"
#include "RatioRunner.h"
#include "Restore.h"
#include "UtilityReport.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>

namespace {
constexpr double kLimit = 1.5;
constexpr qint64 kDayKey = (64 << 16) | 64;

class QuietReport : public UtilityReport {
public:
    void status(const QString&) override {}
    void message(const QString& text) override { std::fprintf(stderr, "%s\n", qPrintable(text)); }
    void progressRange(int, int) override {}
    void progressPosition(int) override {}
    void progressStep(int) override {}
    void stepProgress() override {}
};

// The schema of a volume as the platform makes it, indexes and meta table included.
const char* const kSchema = R"sql(
PRAGMA application_id = 1263490625; PRAGMA user_version = 1;
CREATE TABLE databases (oid INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,
  sort_propid INTEGER, sort_flags INTEGER NOT NULL DEFAULT 0) STRICT;
CREATE TABLE records (oid INTEGER PRIMARY KEY, db INTEGER NOT NULL REFERENCES databases(oid) ON DELETE CASCADE,
  sort_key ANY) STRICT;
CREATE INDEX records_in_order ON records(db, sort_key, oid);
CREATE INDEX records_by_creation ON records(db);
CREATE TABLE props (record INTEGER NOT NULL REFERENCES records(oid) ON DELETE CASCADE, propid INTEGER NOT NULL,
  value ANY, PRIMARY KEY (record, propid)) STRICT, WITHOUT ROWID;
CREATE TABLE meta (name TEXT NOT NULL PRIMARY KEY, value ANY) STRICT;
)sql";

sqlite3* openFile(const QString& path) {
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(path).constData(), &db);
    sqlite3_exec(db, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL; PRAGMA foreign_keys = ON;", nullptr,
                 nullptr, nullptr);
    return db;
}

void exec(sqlite3* db, const QString& sql) {
    char* error = nullptr;
    if (sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::fprintf(stderr, "UtilitiesBench: %s\n", error);
        sqlite3_free(error);
    }
}

QString logName(const BackupCopy& copy, const QString& user) {
    return DatabaseCatalogue::userDatabaseName(copy.log, user);
}

// Copies database `from` of schema `source` into the new database oid `to` of the main schema, in
// from's order (by sort key, or by creation), with object ids after `base`; the target's sort key is
// the record's day key when keyed.
void copyDatabase(sqlite3* db, const QString& source, const QString& from, qint64 to, bool byKey, bool keyed,
                  qint64* base) {
    // A log's records all hold their key: its order is then the index's (db, sort_key, oid).
    const QString order = byKey ? "r.db, r.sort_key, r.oid" : "r.oid";
    // Keyed on the new id, so that the copies below walk it in the new order with no sort.
    exec(db, QStringLiteral("DROP TABLE IF EXISTS temp.map; CREATE TEMP TABLE map (new INTEGER PRIMARY KEY, old "
                            "INTEGER); INSERT INTO map (old, new) SELECT r.oid, %1 + row_number() OVER (ORDER BY %2) FROM "
                            "%3.records r WHERE r.db = (SELECT oid FROM %3.databases WHERE name = '%4')")
                 .arg(*base)
                 .arg(order, source, from));
    exec(db, QStringLiteral("INSERT INTO records (oid, db, sort_key) SELECT m.new, %1, %2 FROM map m ORDER BY m.new")
                 .arg(to)
                 .arg(keyed ? QStringLiteral("(SELECT value FROM %1.props WHERE record = m.old AND propid = %2)")
                                  .arg(source)
                                  .arg(kDayKey)
                            : QStringLiteral("NULL")));
    exec(db, QStringLiteral("INSERT INTO props (record, propid, value) SELECT m.new, p.propid, p.value FROM map m "
                            "JOIN %1.props p ON p.record = m.old ORDER BY m.new, p.propid")
                 .arg(source));
    sqlite3_stmt* count = nullptr;
    sqlite3_prepare_v2(db, "SELECT ifnull(max(new), 0) FROM map", -1, &count, nullptr);
    sqlite3_step(count);
    *base = std::max(*base, sqlite3_column_int64(count, 0));
    sqlite3_finalize(count);
}

void backupByHand(const QString& objectStore, const QString& file, const QString& user) {
    for (const char* suffix : {"", "-wal", "-shm"}) {
        QFile::remove(file + suffix);
    }
    sqlite3* db = openFile(file);
    exec(db, kSchema);
    exec(db, QStringLiteral("ATTACH '%1' AS src").arg(objectStore));
    exec(db, "BEGIN");
    qint64 next = 0;
    for (const BackupCopy& copy : BackupFile::backupOrder()) {
        const qint64 oid = ++next;
        exec(db, QStringLiteral("INSERT INTO databases VALUES (%1, '%2', 0, 64, 0)").arg(oid).arg(copy.copyName));
        copyDatabase(db, "src", logName(copy, user), oid, true, false, &next);
    }
    exec(db, QStringLiteral("INSERT INTO meta VALUES ('last_oid', %1)").arg(next));
    exec(db, "COMMIT");
    sqlite3_close(db);
}

void restoreByHand(const QString& objectStore, const QString& file, const QString& user) {
    sqlite3* db = openFile(objectStore);
    exec(db, QStringLiteral("ATTACH 'file:%1?mode=ro' AS bk").arg(file));
    exec(db, "BEGIN IMMEDIATE");
    sqlite3_stmt* highest = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT max((SELECT max(oid) FROM databases), (SELECT max(oid) FROM records), "
                       "ifnull((SELECT value FROM meta WHERE name = 'last_oid'), 0))",
                       -1, &highest, nullptr);
    sqlite3_step(highest);
    qint64 next = sqlite3_column_int64(highest, 0);
    sqlite3_finalize(highest);
    for (const BackupCopy& copy : BackupFile::restoreOrder()) {
        const QString name = logName(copy, user);
        const QString log = QStringLiteral("(SELECT oid FROM databases WHERE name = '%1')").arg(name);
        exec(db, QStringLiteral("DELETE FROM props WHERE record IN (SELECT oid FROM records WHERE db = %1); "
                                "DELETE FROM records WHERE db = %1; DELETE FROM databases WHERE name = '%2'")
                     .arg(log, name));
        const qint64 oid = ++next;
        exec(db, QStringLiteral("INSERT INTO databases VALUES (%1, '%2', 12345, %3, 0)").arg(oid).arg(name).arg(kDayKey));
        copyDatabase(db, "bk", QString::fromLatin1(copy.copyName), oid, false, true, &next);
    }
    exec(db, QStringLiteral("INSERT INTO meta (name, value) VALUES ('last_oid', %1) ON CONFLICT (name) DO UPDATE SET "
                            "value = excluded.value")
                 .arg(next));
    exec(db, "COMMIT");
    sqlite3_close(db);
}

void compactByHand(const QString& objectStore, const QString& user) {
    sqlite3* db = openFile(objectStore);
    sqlite3_stmt* walk = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT p.propid, p.value FROM records r JOIN props p ON p.record = r.oid WHERE r.db = "
                       "(SELECT oid FROM databases WHERE name = ?) ORDER BY r.db, r.sort_key, r.oid, p.propid",
                       -1, &walk, nullptr);
    exec(db, "BEGIN");
    for (const BackupCopy& copy : BackupFile::backupOrder()) {
        const QByteArray name = logName(copy, user).toUtf8();
        sqlite3_bind_text(walk, 1, name.constData(), -1, SQLITE_STATIC);
        while (sqlite3_step(walk) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_value(walk, 1));
        }
        sqlite3_reset(walk);
    }
    exec(db, "COMMIT");
    sqlite3_finalize(walk);
    sqlite3_close(db);
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
    bench.runner().addPair(
        "compact",
        [&](benchmark::State& state) {
            for (auto _ : state) {
                benchmark::DoNotOptimize(Compact::run(user, report));
            }
        },
        [&](benchmark::State& state) {
            for (auto _ : state) {
                compactByHand(device.objectStorePath(), user);
            }
        },
        kLimit, benchmark::kMillisecond);
    return bench.run();
}
