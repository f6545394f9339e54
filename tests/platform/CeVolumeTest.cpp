// Database volumes: the four mount modes, what survives an unmount, the
// files that are refused, and a volume made with plain SQL by someone else.

#include "CallOutcome.h"
#include "CeDatabase.h"
#include "SqlReader.h"
#include "TestDevice.h"
#include "VolumeFiles.h"

#include <QFile>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace {
// The volume format, written out by hand as anyone with the sqlite3 shell would.
const char* const kHandMadeVolume = R"sql(
PRAGMA application_id = 1263490625;
PRAGMA user_version = 1;
CREATE TABLE databases (oid INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, type INTEGER NOT NULL,
                        sort_propid INTEGER, sort_flags INTEGER NOT NULL DEFAULT 0) STRICT;
CREATE TABLE records (oid INTEGER PRIMARY KEY, db INTEGER NOT NULL REFERENCES databases(oid) ON DELETE CASCADE,
                      sort_key ANY) STRICT;
CREATE INDEX records_in_order ON records(db, sort_key, oid);
CREATE TABLE props (record INTEGER NOT NULL REFERENCES records(oid) ON DELETE CASCADE, propid INTEGER NOT NULL,
                    value ANY, PRIMARY KEY (record, propid)) STRICT, WITHOUT ROWID;
INSERT INTO databases VALUES (7, 'BkFood', 0, 4194368, 0);
INSERT INTO records VALUES (100, 7, 2000), (101, 7, 1000), (102, 7, NULL);
INSERT INTO props VALUES (100, 4194368, 2000), (100, 65567, 'two'),
                         (101, 4194368, 1000), (101, 65567, 'one'), (101, 131075, 'not a number'),
                         (102, 131077, 2.5);
)sql";

using VolumeFiles::mount;
using VolumeFiles::runSql;
using VolumeFiles::writeFile;

class CeVolumeTest : public ::testing::Test {
protected:
    QString file(const QString& name) const { return m_device.paths().myDocuments() + '/' + name; }

    static DWORD mountError(const QString& path, DWORD mode) {
        CEGUID guid;
        if (CeMountDBVol(&guid, path, mode)) {
            CeUnmountDBVol(&guid);
            return ERROR_SUCCESS;
        }
        return GetLastError();
    }

    static bool hasDatabase(const CEGUID& guid, const QString& name) {
        CEOID oid = 0;
        HANDLE db = CeOpenDatabaseEx(&guid, &oid, name, 0, 0);
        return db != INVALID_HANDLE_VALUE && CloseHandle(db);
    }

    static CEGUID objectStore() {
        CEGUID guid;
        CREATE_SYSTEMGUID(&guid);
        return guid;
    }

    static CEOID createCopy(const CEGUID& guid, const QString& name) {
        return VolumeFiles::createDatabase(guid, name, PROP_TAG(CEVT_FILETIME, 0));
    }

    TestDevice m_device;
};
} // namespace

TEST_F(CeVolumeTest, MountModesOpenAndReplaceAsAskedAndAFileIsMountedOnce) {
    const QString path = file("Ann.kov");
    EXPECT_EQ(mountError(path, OPEN_EXISTING), ERROR_FILE_NOT_FOUND);
    CEGUID guid = mount(path, CREATE_ALWAYS);
    EXPECT_NE(createCopy(guid, "BkFood"), 0u);
    // One file, one mount.
    EXPECT_EQ(mountError(path, OPEN_EXISTING), ERROR_SHARING_VIOLATION);
    EXPECT_TRUE(CeUnmountDBVol(&guid));

    guid = mount(path, OPEN_EXISTING);
    EXPECT_TRUE(hasDatabase(guid, "BkFood"));
    EXPECT_TRUE(CeUnmountDBVol(&guid));
    EXPECT_EQ(mountError(path, CREATE_NEW), 183u); // ERROR_ALREADY_EXISTS
    guid = mount(path, OPEN_ALWAYS);
    EXPECT_TRUE(hasDatabase(guid, "BkFood"));
    EXPECT_TRUE(CeUnmountDBVol(&guid));
    guid = mount(path, CREATE_ALWAYS);
    EXPECT_FALSE(hasDatabase(guid, "BkFood"));
    EXPECT_TRUE(CeUnmountDBVol(&guid));
    for (DWORD makes : {CREATE_NEW, OPEN_ALWAYS}) {
        guid = mount(file(QStringLiteral("new%1.kov").arg(makes)), makes);
        EXPECT_FALSE(hasDatabase(guid, "BkFood")) << makes;
        EXPECT_TRUE(CeUnmountDBVol(&guid));
    }

    // The volume's format is pinned by the volume made with plain SQL below; a backup has no registry.
    SqlReader sql(path);
    EXPECT_EQ(sql.value("SELECT count(*) FROM sqlite_schema WHERE name = 'registry'").toLongLong(), 0);
}

TEST_F(CeVolumeTest, FilesThatAreNotVolumesAreRefusedAndLeftAlone) {
    QByteArray noise(8192, '\0');
    for (int i = 0; i < noise.size(); ++i) {
        noise[i] = static_cast<char>((i * 7919) % 251);
    }
    const QString random = file("random.kov");
    writeFile(random, noise);
    const QString otherApp = file("other.kov");
    runSql(otherApp, "PRAGMA application_id = 42; CREATE TABLE databases (oid INTEGER PRIMARY KEY);");
    const QString noProps = file("noprops.kov");
    runSql(noProps, kHandMadeVolume);
    runSql(noProps, "DROP TABLE props");
    // A real volume with a page of its catalogue overwritten.
    const QString damaged = file("damaged.kov");
    CEGUID guid = mount(damaged, CREATE_NEW);
    for (int i = 0; i < 40; ++i) {
        createCopy(guid, QStringLiteral("Copy%1").arg(i));
    }
    CeUnmountDBVol(&guid);
    VolumeFiles::damageThirdPage(damaged);

    // Byte for byte, and without a -wal or -shm left beside them.
    for (const QString& path : {random, otherApp, noProps, damaged}) {
        const QList<QByteArray> before = VolumeFiles::withCompanions(path);
        EXPECT_EQ(mountError(path, OPEN_EXISTING), ERROR_BADDB) << path.toStdString();
        EXPECT_EQ(VolumeFiles::withCompanions(path), before) << path.toStdString();
    }
    // Replacing is what CREATE_ALWAYS is for.
    EXPECT_EQ(mountError(random, CREATE_ALWAYS), ERROR_SUCCESS);
    EXPECT_EQ(mountError(random, OPEN_EXISTING), ERROR_SUCCESS);

    // A file of no bytes is a volume never written: refused as a backup, taken as a new object store.
    const QString empty = file("empty.db");
    writeFile(empty, QByteArray());
    EXPECT_EQ(mountError(empty, OPEN_EXISTING), ERROR_BADDB);
    CeUnmountObjectStore();
    ASSERT_TRUE(CeMountObjectStore(empty));
    EXPECT_NE(createCopy(objectStore(), "BkFood"), 0u);
}

TEST_F(CeVolumeTest, AVolumeMadeWithPlainSqlIsReadAsWritten) {
    const QString path = file("hand.kov");
    runSql(path, kHandMadeVolume);
    const CEGUID guid = mount(path, OPEN_EXISTING);
    CEOID oid = 0;
    HANDLE db = CeOpenDatabaseEx(&guid, &oid, "BkFood", PROP_TAG(CEVT_FILETIME, 64), CEDB_AUTOINCREMENT);
    ASSERT_NE(db, INVALID_HANDLE_VALUE);
    EXPECT_EQ(oid, 7u);

    // 1000 comes first, but its record holds a text where an I4 belongs: that read fails and the
    // pointer stays; the next record reads as written.
    std::vector<CEPROPVAL> props;
    EXPECT_EQ(outcome(CeReadRecordProps(db, 0, &props)), (CallOutcome{0, ERROR_INVALID_DATA}));
    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 1), 100u);
    ASSERT_EQ(CeReadRecordProps(db, 0, &props), 100u);
    ASSERT_EQ(props.size(), 2u);
    EXPECT_EQ(props[0].val.lpwstr, "two");
    EXPECT_EQ(fileTimeTicks(props[1].val.filetime), 2000u);
    ASSERT_EQ(CeReadRecordProps(db, 0, &props), 102u); // no day key: after the others
    ASSERT_EQ(props.size(), 1u);
    EXPECT_EQ(props[0].val.dblVal, 2.5);
    EXPECT_EQ(outcome(CeReadRecordProps(db, 0, &props)), (CallOutcome{0, 259}));

    // New objects never take an id the file already uses.
    const CEOID added = CeWriteRecordProps(db, 0, {});
    EXPECT_GT(added, 102u);
    CloseHandle(db);
    CeUnmountDBVol(&guid);
}

TEST_F(CeVolumeTest, TheObjectStoreIsCheckedPageByPageAfterASessionThatDidNotEndCleanly) {
    const QString store = m_device.paths().objectStore();
    for (int i = 0; i < 40; ++i) {
        createCopy(objectStore(), QStringLiteral("Copy%1").arg(i));
    }
    EXPECT_EQ(SqlReader(store).value("SELECT value FROM meta WHERE name = 'in_use'").toLongLong(), 1);
    CeUnmountObjectStore();
    EXPECT_EQ(SqlReader(store).value("SELECT value FROM meta WHERE name = 'in_use'").toLongLong(), 0);

    // A killed session leaves the mark; the same damage as above is then found at the next start.
    runSql(store, "UPDATE meta SET value = 1 WHERE name = 'in_use'");
    VolumeFiles::damageThirdPage(store);
    EXPECT_EQ(outcome(CeMountObjectStore(store)), (CallOutcome{0, ERROR_BADDB}));
    EXPECT_TRUE(CeMountObjectStore(m_device.paths().myDocuments() + "/other.db")); // for the fixture to unmount
}
