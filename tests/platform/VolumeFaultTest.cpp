// What a disk can do to a volume: a -wal from elsewhere beside the object store, a folder that
// cannot be written, a full disk, and a write, sync or lock that fails at any point of a save, a
// group write, or the creation of a database or a volume. A refused file is left byte for byte as
// it was; a failed operation says so and leaves the old state or the new, never a mix.

#include "CallOutcome.h"
#include "CeDatabase.h"
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

class VolumeFaultTest : public ::testing::Test {
protected:
    QString path(const QString& name) const { return m_dir.filePath(name); }

    QTemporaryDir m_dir;
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
