// What a disk can do to a volume: a -wal from elsewhere beside the object store, a folder that
// cannot be written, a full disk, and a write, sync or lock that fails at any point of a save, a
// group write, or the creation of a database or a volume. A refused file is left byte for byte as
// it was; a failed operation says so and leaves the old state or the new, never a mix.
//
// And volume transactions: an operation's writes are seen inside it and kept only when it commits;
// a call that fails inside undoes only itself; a bulk copy that fails half-way keeps nothing; a disk
// that fails at the commit keeps nothing of it. And the read-only mount, which changes nothing of a
// file.

#include "CallOutcome.h"
#include "CeDatabase.h"
#include "CeDatabaseEx.h"
#include "DurabilityRecord.h"
#include "ErrorMessage.h"
#include "FaultyVfs.h"
#include "SqlReader.h"
#include "VolumeFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>

namespace {
const QString kLog = QStringLiteral("Kov2Food");

using VolumeFiles::mount;

CEOID createLog(const CEGUID& guid, const QString& name) {
    return VolumeFiles::createDatabase(guid, name, DurabilityRecord::kSeed, 12345);
}

HANDLE openLog(const CEGUID& guid) {
    CEOID oid = 0;
    return CeOpenDatabaseEx(&guid, &oid, kLog, 0, 0);
}

// Everything a volume holds, as one text; "absent" when there is no file.
QString contentOf(const QString& path) {
    if (!QFile::exists(path)) {
        return QStringLiteral("absent");
    }
    SqlReader sql(path);
    EXPECT_EQ(sql.value("PRAGMA integrity_check").toString(), "ok") << path.toStdString();
    return sql
        .value("SELECT ifnull((SELECT group_concat(name || type, ',') FROM (SELECT * FROM databases ORDER BY oid)), "
               "'') || '|' || "
               "ifnull((SELECT group_concat(record || ':' || propid || '=' || quote(value), ',') "
               "FROM (SELECT * FROM props ORDER BY record, propid)), '')")
        .toString();
}

DWORD recordCount(const CEGUID& guid, CEOID database) {
    CEOIDINFO info;
    return CeOidGetInfoEx(&guid, database, &info) ? info.infDatabase.dwNumRecords : 0xFFFFFFFF;
}

class VolumeFaultTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return m_dir.filePath(name); }

    QTemporaryDir m_dir;
};

class VolumeTransactionTest : public ::testing::Test {
protected:
    VolumeTransactionTest() : m_path(m_dir.filePath("volume.kov")) {
        m_guid = mount(m_path, CREATE_NEW);
        m_log = VolumeFiles::createDatabase(m_guid, "Log", DurabilityRecord::kSeed);
        m_db = CeOpenDatabaseEx(&m_guid, &m_log, QString(), 0, 0);
        m_first = CeWriteRecordProps(m_db, 0, DurabilityRecord::make(1));
    }
    ~VolumeTransactionTest() override {
        CloseHandle(m_db);
        CeUnmountDBVol(&m_guid);
    }
    // The volume's content as another connection sees it: only what is committed.
    QString committed() const { return contentOf(m_path); }

    // First, so that the volume's connection goes through it.
    FaultyVfs m_vfs;
    QTemporaryDir m_dir;
    QString m_path;
    CEGUID m_guid;
    CEOID m_log = 0;
    CEOID m_first = 0;
    HANDLE m_db = nullptr;
};
} // namespace

TEST_F(VolumeFaultTest, AStoreRefusedForALogFromElsewhereIsLeftByteForByte) {
    // The store, unmounted cleanly.
    const QString store = path("objectstore.db");
    ASSERT_TRUE(CeMountObjectStore(store));
    CEGUID system;
    CREATE_SYSTEMGUID(&system);
    for (int i = 0; i < 40; ++i) {
        createLog(system, QStringLiteral("Log%1").arg(i));
    }
    CeUnmountObjectStore();
    // Logs taken from other volumes while they were mounted: one with a history, whose log holds
    // only its last writes (pages that refer to pages of its own file), and a new one, whose log
    // holds the whole of it, a valid volume on its own.
    for (bool history : {true, false}) {
        SCOPED_TRACE(history ? "a log of last writes" : "a log of a whole volume");
        const QString other = path(history ? "old.kov" : "new.kov");
        CEGUID guid = mount(other, CREATE_NEW);
        for (int i = 0; history && i < 40; ++i) {
            createLog(guid, QStringLiteral("Other%1").arg(i));
        }
        if (history) {
            CeUnmountDBVol(&guid);
            guid = mount(other, OPEN_EXISTING);
        }
        for (int i = 0; i < 40; i += 7) {
            createLog(guid, QStringLiteral("More%1").arg(i));
        }
        VolumeFiles::writeFile(store + "-wal", VolumeFiles::readFile(other + "-wal"));
        CeUnmountDBVol(&guid);

        const QList<QByteArray> before = VolumeFiles::withCompanions(store);
        EXPECT_EQ(outcome(CeMountObjectStore(store)), (CallOutcome{0, ERROR_BADDB}));
        EXPECT_EQ(VolumeFiles::withCompanions(store), before);
        // The same file offered as a backup to restore.
        CEGUID restore;
        EXPECT_EQ(outcome(CeMountDBVol(&restore, store, OPEN_EXISTING)), (CallOutcome{0, ERROR_BADDB}));
        EXPECT_EQ(VolumeFiles::withCompanions(store), before);
    }
    EXPECT_EQ(ErrorMessage::forPath(store, ERROR_BADDB),
              store + " is damaged or is not a Kovalin store; it has been left as it was (error 1009).");
}

TEST_F(VolumeFaultTest, AFolderThatCannotBeWrittenAndAFullDiskAreToldAndChangeNothing) {
    const QString store = path("objectstore.db");
    ASSERT_TRUE(CeMountObjectStore(store));
    CeUnmountObjectStore();
    // A registry written by hand: its key rows are added at mount, in the mount's transaction.
    VolumeFiles::runSql(store, "INSERT INTO registry VALUES ('HKEY_CURRENT_USER\\Software\\Orn', 'x', 4, 1)");
    const QList<QByteArray> before = VolumeFiles::withCompanions(store);

    FaultyVfs vfs;
    vfs.failCreation();
    EXPECT_EQ(outcome(CeMountObjectStore(store)), (CallOutcome{0, ERROR_ACCESS_DENIED}));
    EXPECT_EQ(ErrorMessage::forPath(store, GetLastError()),
              "Kovalin cannot write to " + store + ": permission is denied (error 5).");
    EXPECT_EQ(VolumeFiles::withCompanions(store), before);

    for (int n : {1, 2}) {
        vfs.failCall(FaultyVfs::Call::Write, n, true);
        EXPECT_FALSE(CeMountObjectStore(store)) << n;
        EXPECT_EQ(GetLastError(), ERROR_DISK_FULL) << n;
        EXPECT_EQ(VolumeFiles::withCompanions(store), before) << n;
    }
    EXPECT_EQ(ErrorMessage::forPath(store, ERROR_DISK_FULL),
              "Kovalin cannot write to " + store + ": the disk is full (error 112).");
    vfs.failCall(FaultyVfs::Call::Sync, 1, false);
    EXPECT_EQ(outcome(CeMountObjectStore(store)), (CallOutcome{0, ERROR_WRITE_FAULT}));
    EXPECT_EQ(VolumeFiles::withCompanions(store), before);

    vfs.disarm();
    ASSERT_TRUE(CeMountObjectStore(store));
    CeUnmountObjectStore();
    EXPECT_EQ(SqlReader(store).value("SELECT group_concat(key, ',') FROM registry_keys").toString(),
              "HKEY_CURRENT_USER\\Software,HKEY_CURRENT_USER\\Software\\Orn");
}

TEST_F(VolumeFaultTest, AFailedWriteSyncOrLockLeavesTheOldStateOrTheNewNeverAMix) {
    const QString original = path("original.kov");
    {
        const CEGUID guid = mount(original, CREATE_NEW);
        createLog(guid, kLog);
        HANDLE db = openLog(guid);
        ASSERT_EQ(CeWriteRecordProps(db, 0, DurabilityRecord::make(1)), 2u);
        CloseHandle(db);
        CeUnmountDBVol(&guid);
    }
    std::vector<CEPROPVAL> group(60);
    for (WORD i = 0; i < 60; ++i) {
        group[i].propid = PROP_TAG(CEVT_I4, static_cast<WORD>(200 + i));
        group[i].val.lVal = 1000 + i;
    }
    const std::vector<std::pair<const char*, std::function<bool(const CEGUID&, HANDLE)>>> operations = {
        {"save", [](const CEGUID&, HANDLE db) { return CeWriteRecordProps(db, 2, DurabilityRecord::make(2)) == 2; }},
        {"group write", [&group](const CEGUID&, HANDLE db) { return CeWriteRecordProps(db, 2, group) == 2; }},
        {"database creation", [](const CEGUID& guid, HANDLE) { return createLog(guid, "Kov2Aerobic") != 0; }},
    };
    const QString work = path("work.kov");
    // Runs operation on a fresh copy of the original, with the fault armed if n > 0; whether it
    // reported success, and whether the fault happened.
    auto attempt = [&](const auto& operation, FaultyVfs* vfs, FaultyVfs::Call call, int n, bool full) {
        for (const char* suffix : {"", "-wal", "-shm"}) {
            QFile::remove(work + suffix);
        }
        QFile::copy(original, work);
        const CEGUID guid = mount(work, OPEN_EXISTING);
        HANDLE db = openLog(guid);
        if (n > 0) {
            vfs->failCall(call, n, full);
        }
        const bool done = operation(guid, db);
        vfs->disarm();
        CloseHandle(db);
        CeUnmountDBVol(&guid);
        return std::pair{done, n > 0 && vfs->fired()};
    };
    const QString old = contentOf(original);
    FaultyVfs vfs;
    for (const auto& [name, operation] : operations) {
        ASSERT_TRUE(attempt(operation, &vfs, FaultyVfs::Call::Write, 0, false).first) << name;
        const QString updated = contentOf(work);
        ASSERT_NE(updated, old) << name;
        for (const auto& [call, full] : {std::pair{FaultyVfs::Call::Write, true},
                                         {FaultyVfs::Call::Write, false},
                                         {FaultyVfs::Call::Sync, false},
                                         {FaultyVfs::Call::Lock, false}}) {
            bool fired = true;
            for (int n = 1; fired && n < 100; ++n) {
                SCOPED_TRACE(testing::Message() << name << ", call " << static_cast<int>(call) << ", n " << n);
                const auto [done, happened] = attempt(operation, &vfs, call, n, full);
                fired = happened;
                const CEGUID reopened = mount(work, OPEN_EXISTING); // the store still mounts
                CeUnmountDBVol(&reopened);
                const QString now = contentOf(work);
                EXPECT_TRUE(now == (done ? updated : old) || (!done && now == updated));
                EXPECT_TRUE(done || fired);
            }
            EXPECT_FALSE(fired) << name << ": the operation never ended without the fault";
        }
    }

    // Making a volume: a failed creation leaves no file behind.
    const QString made = path("made.kov");
    for (const auto& [call, full] : {std::pair{FaultyVfs::Call::Write, true}, {FaultyVfs::Call::Sync, false}}) {
        bool fired = true;
        for (int n = 1; fired && n < 100; ++n) {
            SCOPED_TRACE(testing::Message() << "volume creation, call " << static_cast<int>(call) << ", n " << n);
            vfs.failCall(call, n, full);
            CEGUID guid;
            const bool done = CeMountDBVol(&guid, made, CREATE_ALWAYS);
            vfs.disarm();
            fired = vfs.fired();
            if (done) {
                CeUnmountDBVol(&guid);
            }
            EXPECT_EQ(VolumeFiles::withCompanions(made).count("missing"), done ? 3 : 4);
            EXPECT_EQ(contentOf(made), done ? "|" : "absent");
        }
        EXPECT_FALSE(fired);
    }
}

TEST_F(VolumeTransactionTest, WritesAreSeenInsideAndKeptOnlyWhenCommitted) {
    const QString before = committed();
    for (BOOL commit : {FALSE, TRUE}) {
        SCOPED_TRACE(commit ? "committed" : "rolled back");
        ASSERT_EQ(outcome(CeBeginTransaction(&m_guid)), (CallOutcome{1, ERROR_SUCCESS}));
        const CEOID added = CeWriteRecordProps(m_db, 0, DurabilityRecord::make(2));
        ASSERT_NE(added, 0u);
        ASSERT_TRUE(CeDeleteRecord(m_db, m_first));
        ASSERT_NE(VolumeFiles::createDatabase(m_guid, "Second", DurabilityRecord::kSeed), 0u);
        // A call that fails inside undoes only itself and sets its last error as ever.
        EXPECT_EQ(outcome(VolumeFiles::createDatabase(m_guid, "Second", DurabilityRecord::kSeed)),
                  (CallOutcome{0, ERROR_DUP_NAME}));
        // Seeks and reads see the transaction's own writes; nothing is committed yet.
        EXPECT_EQ(recordCount(m_guid, m_log), 1u);
        EXPECT_EQ(CeSeekDatabase(m_db, CEDB_SEEK_BEGINNING, 0), added);
        std::vector<CEPROPVAL> props;
        ASSERT_EQ(CeReadRecordProps(m_db, 0, &props), added);
        EXPECT_EQ(props[0].val.ulVal, 2u);
        EXPECT_EQ(committed(), before);

        EXPECT_EQ(outcome(CeEndTransaction(&m_guid, commit)), (CallOutcome{1, ERROR_SUCCESS}));
        EXPECT_EQ(committed() == before, !commit);
    }
    const QString after = committed();
    EXPECT_TRUE(after.startsWith("Log0,Second0|"));
    // Outside a transaction every write is committed on its own, as ever.
    ASSERT_NE(CeWriteRecordProps(m_db, 0, DurabilityRecord::make(3)), 0u);
    EXPECT_NE(committed(), after);
}

TEST_F(VolumeTransactionTest, ADiskThatFailsAtTheCommitKeepsNothingOfTheTransaction) {
    const QString before = committed();
    FaultyVfs& vfs = m_vfs;
    for (const auto& [call, full, error] : {std::tuple{FaultyVfs::Call::Write, true, ERROR_DISK_FULL},
                                            {FaultyVfs::Call::Sync, false, ERROR_WRITE_FAULT}}) {
        SCOPED_TRACE(full ? "a full disk" : "a sync that fails");
        ASSERT_TRUE(CeBeginTransaction(&m_guid));
        for (DWORD seed = 10; seed < 20; ++seed) {
            ASSERT_NE(CeWriteRecordProps(m_db, 0, DurabilityRecord::make(seed)), 0u);
        }
        vfs.failCall(call, 1, full);
        EXPECT_EQ(outcome(CeEndTransaction(&m_guid, TRUE)), (CallOutcome{0, error}));
        vfs.disarm();
        EXPECT_EQ(committed(), before);
        EXPECT_EQ(recordCount(m_guid, m_log), 1u);
        // The volume goes on: the next transaction commits.
        ASSERT_TRUE(CeBeginTransaction(&m_guid));
        EXPECT_TRUE(CeEndTransaction(&m_guid, TRUE));
    }
}

// On its own a copy is one call, whole or not at all; inside an operation the operation rolls back
// (the utilities' failure tests).
TEST_F(VolumeTransactionTest, ACopyThatFailsHalfWayKeepsNothing) {
    // The source: the record of the fixture, then one whose text property holds a number.
    CEOID second = CeWriteRecordProps(m_db, 0, DurabilityRecord::make(2));
    VolumeFiles::runSql(m_path, ("UPDATE props SET value = 5 WHERE propid = " +
                                 std::to_string(PROP_TAG(CEVT_LPWSTR, 30)) + " AND record = " + std::to_string(second))
                                    .c_str());
    CEOID target = VolumeFiles::createDatabase(m_guid, "Target", DurabilityRecord::kSeed);
    HANDLE to = CeOpenDatabaseEx(&m_guid, &target, QString(), 0, 0);
    const QString before = committed();
    CEOID source = m_log;
    HANDLE from = CeOpenDatabaseEx(&m_guid, &source, QString(), 0, CEDB_AUTOINCREMENT);
    DWORD copied = 99;
    EXPECT_EQ(outcome(CeCopyRecords(from, to, 10, &copied)), (CallOutcome{0, ERROR_INVALID_DATA}));
    EXPECT_EQ(copied, 0u);
    EXPECT_EQ(recordCount(m_guid, target), 0u);
    EXPECT_EQ(committed(), before);
    CloseHandle(from);
    CloseHandle(to);
}

TEST_F(VolumeFaultTest, AReadOnlyMountReadsAVolumeAndItsLogAndChangesNothingOfThem) {
    const QString live = path("live.kov");
    const QString copy = path("copy.kov");
    CEGUID guid = mount(live, CREATE_NEW);
    CEOID log = VolumeFiles::createDatabase(guid, "Log", DurabilityRecord::kSeed);
    HANDLE db = CeOpenDatabaseEx(&guid, &log, QString(), 0, 0);
    ASSERT_NE(CeWriteRecordProps(db, 0, DurabilityRecord::make(7)), 0u);
    // Taken while mounted: the last writes are still in the log beside the file.
    for (const char* suffix : {"", "-wal"}) {
        ASSERT_TRUE(QFile::copy(live + suffix, copy + suffix));
    }
    CloseHandle(db);
    CeUnmountDBVol(&guid);
    const QList<QByteArray> before = VolumeFiles::withCompanions(copy);
    ASSERT_TRUE(before[1].size() > 8) << "the copy has a log";

    FaultyVfs vfs;
    vfs.failCreation(); // as in a folder that cannot be written
    ASSERT_TRUE(CeMountDBVol(&guid, copy, OPEN_EXISTING | CEDB_MOUNT_READONLY)) << GetLastError();
    log = 0;
    db = CeOpenDatabaseEx(&guid, &log, "Log", 0, 0);
    std::vector<CEPROPVAL> props;
    ASSERT_NE(CeReadRecordProps(db, 0, &props), 0u);
    EXPECT_TRUE(DurabilityRecord::isWhole(props));
    EXPECT_EQ(outcome(CeWriteRecordProps(db, 0, DurabilityRecord::make(8))), (CallOutcome{0, ERROR_ACCESS_DENIED}));
    CloseHandle(db);
    CeUnmountDBVol(&guid);
    EXPECT_EQ(VolumeFiles::withCompanions(copy), before);
}
