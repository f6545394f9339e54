// Reading a list of properties of the current record (CeReadRecordProps with property ids): what comes
// back for each id asked, the auto-increment step, the errors, and records deleted while current.

#include "CeDatabase.h"
#include "PropVals.h"
#include "TestDevice.h"

#include <sqlite3.h>

#include <QFile>

#include <gtest/gtest.h>

namespace {
constexpr CEPROPID kKey = PROP_TAG(CEVT_I4, 5);
constexpr CEPROPID kAbsent = PROP_TAG(CEVT_I4, 99);

class CeReadRecordPropsListTest : public ::testing::Test {
protected:
    CeReadRecordPropsListTest() {
        CREATE_SYSTEMGUID(&m_store);
        CEDBASEINFO info;
        info.szDbaseName = "Log";
        info.wNumSortOrder = 1;
        info.rgSortSpecs[0].propid = kKey;
        EXPECT_NE(CeCreateDatabaseEx(&m_store, &info), 0u);
    }
    ~CeReadRecordPropsListTest() override {
        for (HANDLE handle : m_handles) {
            CloseHandle(handle);
        }
    }

    HANDLE open(DWORD flags = 0) {
        CEOID oid = 0;
        HANDLE handle = CeOpenDatabaseEx(&m_store, &oid, "Log", kKey, flags);
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
        m_handles.push_back(handle);
        return handle;
    }

    // Records keyed 1, 2, 3, each holding its key and property 1 = key * 10.
    std::vector<CEOID> addThree(HANDLE db) {
        std::vector<CEOID> oids;
        for (LONG key : {1, 2, 3}) {
            oids.push_back(CeWriteRecordProps(db, 0, {i4(5, key), i4(1, key * 10)}));
        }
        return oids;
    }

    // Stores a value the way another program could, past the platform's checks.
    void storeRaw(CEOID record, CEPROPID propid, const char* value) {
        sqlite3* db = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(m_device.paths().objectStore()).constData(), &db), SQLITE_OK);
        const QByteArray sql = QStringLiteral("INSERT INTO props VALUES (%1, %2, %3)")
                                   .arg(record)
                                   .arg(propid)
                                   .arg(QString::fromUtf8(value))
                                   .toUtf8();
        EXPECT_EQ(sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(db);
    }

    CEGUID m_store;
    TestDevice m_device;
    std::vector<HANDLE> m_handles;
};
} // namespace

TEST_F(CeReadRecordPropsListTest, ReadsTheIdsAskedInTheirOrderAndFlagsThoseTheRecordLacks) {
    HANDLE db = open();
    CEPROPVAL weight;
    weight.propid = PROP_TAG(CEVT_R8, 9);
    weight.val.dblVal = 102.5;
    const CEOID oid =
        CeWriteRecordProps(db, 0, {i4(5, 1), text(7, "Bench Press"), i4(8, 80), weight, text(300, "far")});
    ASSERT_NE(oid, 0u);

    // Any order, an id twice, a number stored with another type (ids are matched whole), a missing id.
    const std::vector<CEPROPID> wanted = {PROP_TAG(CEVT_R8, 9), PROP_TAG(CEVT_LPWSTR, 7), PROP_TAG(CEVT_LPWSTR, 8),
                                          kAbsent, PROP_TAG(CEVT_LPWSTR, 7)};
    std::vector<CEPROPVAL> props;
    ASSERT_EQ(CeReadRecordProps(db, 0, wanted, &props), oid);
    EXPECT_EQ(GetLastError(), 0u);
    ASSERT_EQ(props.size(), 5u);
    for (size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(props[i].propid, wanted[i]) << i;
    }
    EXPECT_EQ(props[0].wFlags, 0);
    EXPECT_EQ(props[0].val.dblVal, 102.5);
    EXPECT_EQ(props[1].wFlags, 0);
    EXPECT_EQ(props[1].val.lpwstr, "Bench Press");
    EXPECT_EQ(props[2].wFlags, CEDB_PROPNOTFOUND);
    EXPECT_EQ(props[3].wFlags, CEDB_PROPNOTFOUND);
    EXPECT_EQ(props[4].val.lpwstr, "Bench Press");

    // The same vector again: entries found before and missing now come back flagged. Without the
    // auto-increment flag the record stays current.
    ASSERT_EQ(CeReadRecordProps(db, 0, {PROP_TAG(CEVT_LPWSTR, 300), PROP_TAG(CEVT_R8, 10)}, &props), oid);
    ASSERT_EQ(props.size(), 2u);
    EXPECT_EQ(props[0].val.lpwstr, "far");
    EXPECT_EQ(props[0].wFlags, 0);
    EXPECT_EQ(props[1].wFlags, CEDB_PROPNOTFOUND);
    ASSERT_EQ(CeReadRecordProps(db, 0, {}, &props), oid);
    EXPECT_TRUE(props.empty());
}

TEST_F(CeReadRecordPropsListTest, StepsLikeAWholeReadAndFailsOnlyForValuesAsked) {
    const std::vector<CEOID> r = addThree(open());
    // Record 2 holds a text where an I4 belongs, written behind the platform's back.
    storeRaw(r[1], PROP_TAG(CEVT_I4, 2), "'not a number'");

    HANDLE loop = open(CEDB_AUTOINCREMENT);
    std::vector<CEPROPVAL> props;
    std::vector<LONG> values;
    for (CEOID oid = CeReadRecordProps(loop, 0, {PROP_TAG(CEVT_I4, 1)}, &props); oid != 0;
         oid = CeReadRecordProps(loop, 0, {PROP_TAG(CEVT_I4, 1)}, &props)) {
        values.push_back(props.at(0).val.lVal);
    }
    EXPECT_EQ(GetLastError(), 259u);
    EXPECT_EQ(values, (std::vector<LONG>{10, 20, 30}));

    HANDLE db = open();
    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_CEOID, r[1]), r[1]);
    EXPECT_EQ(CeReadRecordProps(db, 0, {PROP_TAG(CEVT_I4, 1), PROP_TAG(CEVT_I4, 2)}, &props), 0u);
    EXPECT_EQ(GetLastError(), 13u); // ERROR_INVALID_DATA; the pointer stays
    EXPECT_EQ(CeReadRecordProps(db, 0, {PROP_TAG(CEVT_I4, 1), PROP_TAG(CEVT_I4, 3)}, &props), r[1]);

    EXPECT_EQ(CeReadRecordProps(INVALID_HANDLE_VALUE, 0, {kKey}, &props), 0u);
    EXPECT_EQ(GetLastError(), 6u);
    EXPECT_EQ(CeReadRecordProps(db, 0, {kKey}, nullptr), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 5), 0u);
    EXPECT_EQ(CeReadRecordProps(db, 0, {kKey}, &props), 0u);
    EXPECT_EQ(GetLastError(), 259u);
}

TEST_F(CeReadRecordPropsListTest, ARecordLackingEveryIdReadsUnlessItWasDeleted) {
    HANDLE db = open();
    const std::vector<CEOID> r = addThree(db);
    std::vector<CEPROPVAL> props;
    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_CEOID, r[0]), r[0]);
    ASSERT_EQ(CeReadRecordProps(db, 0, {kAbsent}, &props), r[0]);
    EXPECT_EQ(props.at(0).wFlags, CEDB_PROPNOTFOUND);

    // Deleted through this handle or another one after it became current: the read reads the
    // record that follows its place.
    ASSERT_TRUE(CeDeleteRecord(db, r[0]));
    EXPECT_EQ(CeReadRecordProps(db, 0, {kAbsent}, &props), r[1]);
    HANDLE other = open();
    ASSERT_TRUE(CeDeleteRecord(other, r[1]));
    EXPECT_EQ(CeReadRecordProps(db, 0, {kAbsent}, &props), r[2]);
    ASSERT_TRUE(CeDeleteRecord(other, r[2]));
    EXPECT_EQ(CeReadRecordProps(db, 0, {kAbsent}, &props), 0u);
    EXPECT_EQ(GetLastError(), 259u);
}
