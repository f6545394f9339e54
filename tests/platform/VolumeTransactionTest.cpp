// Volume transactions: an operation's writes are seen inside it and kept only when it commits; a
// call that fails inside undoes only itself, but a bulk copy that fails half-way leaves only a
// rollback; out-of-turn use is refused; a disk that fails at the commit keeps nothing of it. And the
// read-only mount, which changes nothing of a file.

#include "CallOutcome.h"
#include "CeDatabaseEx.h"
#include "DurabilityRecord.h"
#include "FaultyVfs.h"
#include "SqlReader.h"
#include "VolumeFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
using VolumeFiles::mount;

// The databases and every property of a volume, as one text.
QString contentOf(const QString& path) {
    SqlReader sql(path);
    return sql
        .value("SELECT ifnull((SELECT group_concat(name, ',') FROM (SELECT name FROM databases ORDER BY oid)), '') "
               "|| '|' || ifnull((SELECT group_concat(record || ':' || propid || '=' || quote(value), ',') "
               "FROM (SELECT * FROM props ORDER BY record, propid)), '')")
        .toString();
}

DWORD recordCount(const CEGUID& guid, CEOID database) {
    CEOIDINFO info;
    return CeOidGetInfoEx(&guid, database, &info) ? info.infDatabase.dwNumRecords : 0xFFFFFFFF;
}

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
        EXPECT_EQ(outcome(VolumeFiles::createDatabase(m_guid, "Second", DurabilityRecord::kSeed)), (CallOutcome{0, ERROR_DUP_NAME}));
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
    EXPECT_TRUE(after.startsWith("Log,Second|"));
    // Outside a transaction every write is committed on its own, as ever.
    ASSERT_NE(CeWriteRecordProps(m_db, 0, DurabilityRecord::make(3)), 0u);
    EXPECT_NE(committed(), after);
}

TEST_F(VolumeTransactionTest, OutOfTurnUseIsRefusedAndCommitsNothing) {
    const QString before = committed();
    EXPECT_EQ(outcome(CeEndTransaction(&m_guid, TRUE)), (CallOutcome{0, ERROR_TRANSACTION_NOT_ACTIVE}));
    CEGUID unknown;
    CREATE_INVALIDGUID(&unknown);
    EXPECT_EQ(outcome(CeBeginTransaction(&unknown)), (CallOutcome{0, ERROR_INVALID_PARAMETER}));

    ASSERT_TRUE(CeBeginTransaction(&m_guid));
    ASSERT_NE(CeWriteRecordProps(m_db, 0, DurabilityRecord::make(2)), 0u);
    // A nested begin is refused; it neither commits the open transaction nor ends it.
    EXPECT_EQ(outcome(CeBeginTransaction(&m_guid)), (CallOutcome{0, ERROR_TRANSACTION_REQUEST_NOT_VALID}));
    EXPECT_EQ(committed(), before);
    EXPECT_TRUE(CeEndTransaction(&m_guid, FALSE));
    EXPECT_EQ(committed(), before);
    EXPECT_EQ(outcome(CeEndTransaction(&m_guid, FALSE)), (CallOutcome{0, ERROR_TRANSACTION_NOT_ACTIVE}));

    // Unmounted with a transaction open: nothing of it is kept.
    ASSERT_TRUE(CeBeginTransaction(&m_guid));
    ASSERT_NE(CeWriteRecordProps(m_db, 0, DurabilityRecord::make(4)), 0u);
    CloseHandle(m_db);
    m_db = nullptr;
    CeUnmountDBVol(&m_guid);
    EXPECT_EQ(committed(), before);
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

TEST_F(VolumeTransactionTest, ACopyThatFailsHalfWayKeepsNothingAndSpoilsTheOperation) {
    // The source: the record of the fixture, then one whose text property holds a number.
    CEOID second = CeWriteRecordProps(m_db, 0, DurabilityRecord::make(2));
    VolumeFiles::runSql(m_path, ("UPDATE props SET value = 5 WHERE propid = " +
                                 std::to_string(PROP_TAG(CEVT_LPWSTR, 30)) + " AND record = " + std::to_string(second))
                                    .c_str());
    CEOID target = VolumeFiles::createDatabase(m_guid, "Target", DurabilityRecord::kSeed);
    HANDLE to = CeOpenDatabaseEx(&m_guid, &target, QString(), 0, 0);
    const QString before = committed();
    for (bool inOperation : {false, true}) {
        SCOPED_TRACE(inOperation ? "inside an operation" : "on its own");
        CEOID source = m_log;
        HANDLE from = CeOpenDatabaseEx(&m_guid, &source, QString(), 0, CEDB_AUTOINCREMENT);
        if (inOperation) {
            ASSERT_TRUE(CeBeginTransaction(&m_guid));
        }
        DWORD copied = 99;
        EXPECT_EQ(outcome(CeCopyRecords(from, to, 10, &copied)), (CallOutcome{0, ERROR_INVALID_DATA}));
        EXPECT_EQ(copied, 0u);
        if (inOperation) {
            // The first record was copied before the second was refused: only a rollback is left.
            EXPECT_EQ(outcome(CeWriteRecordProps(m_db, 0, DurabilityRecord::make(3))),
                      (CallOutcome{0, ERROR_TRANSACTION_ALREADY_ABORTED}));
            EXPECT_EQ(outcome(CeEndTransaction(&m_guid, TRUE)), (CallOutcome{0, ERROR_TRANSACTION_ALREADY_ABORTED}));
        }
        EXPECT_EQ(recordCount(m_guid, target), 0u);
        EXPECT_EQ(committed(), before);
        CloseHandle(from);
    }
    CloseHandle(to);
}

TEST(ReadOnlyMount, ReadsAVolumeAndItsLogAndChangesNothingOfThem) {
    QTemporaryDir dir;
    const QString live = dir.filePath("live.kov");
    const QString copy = dir.filePath("copy.kov");
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

    EXPECT_EQ(outcome(CeMountDBVol(&guid, copy, CREATE_ALWAYS | CEDB_MOUNT_READONLY)),
              (CallOutcome{0, ERROR_INVALID_PARAMETER}));
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
} // namespace
