// The property-database service on the object store: databases, records, the sort order, every
// seek kind and the read loop, checked against the numbers of the Windows CE 3.0 service.

#include "CeDatabase.h"
#include "PropVals.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

#include <climits>

namespace {
constexpr WORD kKey = 5; // the sort property's number in these tests
constexpr CEPROPID kIntKey = PROP_TAG(CEVT_I4, kKey);
constexpr CEPROPID kTextKey = PROP_TAG(CEVT_LPWSTR, kKey);

CEPROPVAL deletion(CEPROPID propid) {
    CEPROPVAL prop;
    prop.propid = propid;
    prop.wFlags = CEDB_PROPDELETE;
    return prop;
}

class CeDatabaseTest : public ::testing::Test {
protected:
    CeDatabaseTest() { CREATE_SYSTEMGUID(&m_store); }
    ~CeDatabaseTest() override {
        for (HANDLE handle : m_handles) {
            CloseHandle(handle);
        }
    }

    CEOID create(const QString& name, CEPROPID sort, DWORD sortFlags = 0, DWORD type = 12345) {
        CEDBASEINFO info;
        info.szDbaseName = name;
        info.dwDbaseType = type;
        info.wNumSortOrder = sort != 0 ? 1 : 0;
        info.rgSortSpecs[0] = SORTORDERSPEC{sort, sortFlags};
        return CeCreateDatabaseEx(&m_store, &info);
    }

    HANDLE open(const QString& name, CEPROPID sort, DWORD flags = 0) {
        CEOID oid = 0;
        HANDLE handle = CeOpenDatabaseEx(&m_store, &oid, name, sort, flags);
        if (handle != INVALID_HANDLE_VALUE) {
            m_handles.push_back(handle);
        }
        return handle;
    }

    // Records keyed (sort property kIntKey) by the values given; INT_MIN: a record without the key.
    std::vector<CEOID> addKeyed(HANDLE db, std::initializer_list<LONG> keys) {
        std::vector<CEOID> oids;
        for (LONG key : keys) {
            std::vector<CEPROPVAL> props{i4(1, static_cast<LONG>(oids.size()))};
            if (key != INT_MIN) {
                props.push_back(i4(kKey, key));
            }
            oids.push_back(CeWriteRecordProps(db, 0, props));
        }
        return oids;
    }

    // Every record in the handle's order, walked with positional seeks.
    static std::vector<CEOID> walk(HANDLE db) {
        std::vector<CEOID> order;
        for (CEOID oid = CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0); oid != 0;
             oid = CeSeekDatabase(db, CEDB_SEEK_CURRENT, 1)) {
            order.push_back(oid);
        }
        return order;
    }

    static std::vector<CEPROPVAL> read(HANDLE db, CEOID expected) {
        std::vector<CEPROPVAL> props;
        EXPECT_EQ(CeReadRecordProps(db, 0, &props), expected);
        return props;
    }

    CEGUID m_store;
    TestDevice m_device;
    std::vector<HANDLE> m_handles;
};
} // namespace

TEST_F(CeDatabaseTest, NamesAreCheckedComparedExactlyAndKeptUnique) {
    EXPECT_NE(create("KovChestList", kTextKey), 0u);
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    EXPECT_EQ(create("KovChestList", kTextKey), 0u);
    EXPECT_EQ(GetLastError(), 52u); // ERROR_DUP_NAME
    EXPECT_NE(create("kovchestlist", kTextKey), 0u);
    EXPECT_NE(create(QString(31, 'n'), kTextKey), 0u);
    EXPECT_EQ(create(QString(32, 'n'), kTextKey), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(create("", kTextKey), 0u);
    EXPECT_EQ(GetLastError(), 87u);

    CEDBASEINFO twoOrders;
    twoOrders.szDbaseName = "TwoOrders";
    twoOrders.wNumSortOrder = 2;
    EXPECT_EQ(CeCreateDatabaseEx(&m_store, &twoOrders), 0u);
    EXPECT_EQ(GetLastError(), 87u);

    EXPECT_EQ(open("KovBackList", 0), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), 2u); // ERROR_FILE_NOT_FOUND
}

TEST_F(CeDatabaseTest, EnumeratesAndDescribesDatabasesAndRecords) {
    const CEOID food = create("Kov2Food", PROP_TAG(CEVT_FILETIME, 64));
    const CEOID copy = create("BkFood", PROP_TAG(CEVT_FILETIME, 0), 0, 0);
    const CEOID users = create("KovUserList", kTextKey);
    HANDLE db = open("KovUserList", kTextKey);
    const CEOID ann = CeWriteRecordProps(db, 0, {text(kKey, "Ann")});
    CeWriteRecordProps(db, 0, {text(kKey, "Bob")});

    for (const auto& [type, expected] :
         {std::pair{12345u, std::vector{food, users}}, std::pair{0u, std::vector{food, copy, users}}}) {
        HANDLE find = CeFindFirstDatabaseEx(&m_store, type);
        std::vector<CEOID> found;
        for (CEOID oid = CeFindNextDatabaseEx(find, &m_store); oid != 0; oid = CeFindNextDatabaseEx(find, &m_store)) {
            found.push_back(oid);
        }
        EXPECT_EQ(GetLastError(), 259u);
        EXPECT_EQ(found, expected);
        EXPECT_TRUE(CloseHandle(find));
    }

    CEOIDINFO info;
    ASSERT_TRUE(CeOidGetInfoEx(&m_store, users, &info));
    EXPECT_EQ(info.wObjType, OBJTYPE_DATABASE);
    EXPECT_EQ(info.infDatabase.szDbaseName, "KovUserList");
    EXPECT_EQ(info.infDatabase.dwDbaseType, 12345u);
    EXPECT_EQ(info.infDatabase.wNumRecords, 2);
    EXPECT_EQ(info.infDatabase.wNumSortOrder, 1);
    EXPECT_EQ(info.infDatabase.rgSortSpecs[0].propid, kTextKey);
    ASSERT_TRUE(CeOidGetInfoEx(&m_store, ann, &info));
    EXPECT_EQ(info.wObjType, OBJTYPE_RECORD);
    EXPECT_EQ(info.infRecord.oidParent, users);
    EXPECT_FALSE(CeOidGetInfoEx(&m_store, 0x7FFFFFFF, &info));
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(CeDatabaseTest, DeletingADatabaseTakesItsRecordsAndInvalidatesItsHandles) {
    const CEOID oid = create("temp", kIntKey);
    HANDLE db = open("temp", kIntKey);
    addKeyed(db, {3, 1, 2});
    ASSERT_TRUE(CeDeleteDatabaseEx(&m_store, oid));

    SqlReader sql(m_device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT count(*) FROM records WHERE db = ?", {oid}).toLongLong(), 0);
    EXPECT_EQ(sql.value("SELECT count(*) FROM props").toLongLong(), 0);
    std::vector<CEPROPVAL> props;
    EXPECT_EQ(CeReadRecordProps(db, 0, &props), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_FALSE(CeDeleteDatabaseEx(&m_store, oid));
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(CeDatabaseTest, EveryPropertyTypeRoundTripsAndIsStoredAsItsSqlType) {
    create("Types", 0);
    HANDLE db = open("Types", 0);
    std::vector<CEPROPVAL> props(10);
    props[0].propid = PROP_TAG(CEVT_BLOB, 9);
    props[0].val.blob = QByteArray("\x00\x01\xFF", 3);
    props[1].propid = PROP_TAG(CEVT_I2, 1);
    props[1].val.iVal = -32768;
    props[2].propid = PROP_TAG(CEVT_UI2, 2);
    props[2].val.uiVal = 65535;
    props[3].propid = PROP_TAG(CEVT_I4, 3);
    props[3].val.lVal = INT_MIN;
    props[4].propid = PROP_TAG(CEVT_UI4, 4);
    props[4].val.ulVal = 0xFFFFFFFFu;
    props[5].propid = PROP_TAG(CEVT_BOOL, 5);
    props[5].val.boolVal = TRUE;
    props[6].propid = PROP_TAG(CEVT_R8, 6);
    props[6].val.dblVal = -102.25;
    props[7].propid = PROP_TAG(CEVT_LPWSTR, 7);
    props[7].val.lpwstr = QString::fromUtf8("Übung 10×");
    props[8].propid = PROP_TAG(CEVT_FILETIME, 8);
    props[8].val.filetime = FILETIME{0x12345678, 0x01C0FFEE};
    props[9].propid = PROP_TAG(CEVT_LPWSTR, 0xFFFF); // the highest id: last in unsigned order
    const CEOID oid = CeWriteRecordProps(db, 0, props);
    ASSERT_NE(oid, 0u);

    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_CEOID, oid), oid);
    const std::vector<CEPROPVAL> back = read(db, oid);
    ASSERT_EQ(back.size(), 10u);
    EXPECT_EQ(back[0].val.iVal, -32768);
    EXPECT_EQ(back[1].val.uiVal, 65535);
    EXPECT_EQ(back[2].val.lVal, INT_MIN);
    EXPECT_EQ(back[3].val.ulVal, 0xFFFFFFFFu);
    EXPECT_EQ(back[4].val.boolVal, TRUE);
    EXPECT_EQ(back[5].val.dblVal, -102.25);
    EXPECT_EQ(back[6].val.lpwstr, QString::fromUtf8("Übung 10×"));
    EXPECT_EQ(back[7].val.filetime, (FILETIME{0x12345678, 0x01C0FFEE}));
    EXPECT_EQ(back[8].val.blob, QByteArray("\x00\x01\xFF", 3));
    EXPECT_EQ(back[9].propid, 0xFFFF001Fu);
    EXPECT_TRUE(back[9].val.lpwstr.isEmpty());

    SqlReader sql(m_device.paths().objectStore());
    const QString value = "SELECT %1 FROM props WHERE record = ? AND propid = ?";
    const std::vector<std::tuple<CEPROPID, QString, QVariant>> stored = {
        {PROP_TAG(CEVT_I2, 1), "integer", qint64(-32768)},
        {PROP_TAG(CEVT_UI4, 4), "integer", qint64(4294967295)},
        {PROP_TAG(CEVT_R8, 6), "real", -102.25},
        {PROP_TAG(CEVT_LPWSTR, 7), "text", QString::fromUtf8("Übung 10×")},
        {PROP_TAG(CEVT_FILETIME, 8), "integer", qint64(0x01C0FFEE12345678)},
        {PROP_TAG(CEVT_BLOB, 9), "blob", QByteArray("\x00\x01\xFF", 3)},
        {0xFFFF001Fu, "text", QString("")},
    };
    for (const auto& [propid, type, expected] : stored) {
        EXPECT_EQ(sql.value(value.arg("typeof(value)"), {oid, qint64(propid)}).toString(), type) << propid;
        EXPECT_EQ(sql.value(value.arg("value"), {oid, qint64(propid)}), expected) << propid;
    }
}

TEST_F(CeDatabaseTest, AWriteReplacesOnlyTheNamedPropertiesWholeOrNotAtAll) {
    create("Log", kIntKey);
    create("Other", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const CEOID oid = CeWriteRecordProps(db, 0, {i4(1, 1), i4(2, 2), i4(3, 3)});
    ASSERT_EQ(CeWriteRecordProps(db, oid, {i4(2, 20), i4(4, 4)}), oid);
    ASSERT_EQ(CeWriteRecordProps(db, oid, {deletion(PROP_TAG(CEVT_I4, 3))}), oid);

    CEPROPVAL unknownType;
    unknownType.propid = PROP_TAG(7, 6);
    EXPECT_EQ(CeWriteRecordProps(db, oid, {i4(1, 100), unknownType}), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    HANDLE other = open("Other", kIntKey);
    EXPECT_EQ(CeWriteRecordProps(other, oid, {i4(1, 100)}), 0u);
    EXPECT_EQ(GetLastError(), 87u);

    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_CEOID, oid), oid);
    const std::vector<CEPROPVAL> props = read(db, oid);
    ASSERT_EQ(props.size(), 3u);
    EXPECT_EQ(props[0].val.lVal, 1); // the failed writes changed nothing
    EXPECT_EQ(props[1].val.lVal, 20);
    EXPECT_EQ(props[2].propid, PROP_TAG(CEVT_I4, 4));
}

TEST_F(CeDatabaseTest, RecordsWithoutTheSortPropertyComeLastOrWithUnknownFirstFirst) {
    for (const auto& [name, flags] : {std::pair{"Last", 0u}, std::pair{"First", CEDB_SORT_UNKNOWNFIRST}}) {
        create(name, kIntKey, flags);
        HANDLE db = open(name, kIntKey);
        const std::vector<CEOID> r = addKeyed(db, {30, INT_MIN, 10, INT_MIN, 20});
        const std::vector<CEOID> expected =
            flags == 0 ? std::vector{r[2], r[4], r[0], r[1], r[3]} : std::vector{r[1], r[3], r[2], r[4], r[0]};
        EXPECT_EQ(walk(db), expected) << name;
        // Backwards too: END counts back from the last record.
        for (DWORD back = 0; back < 5; ++back) {
            EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_END, back), expected[4 - back]) << name << back;
        }
        EXPECT_EQ(walk(open(name, 0)), r) << "creation order";
    }
    SqlReader sql(m_device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT count(*) FROM records WHERE sort_key IS NULL").toLongLong(), 4);
    EXPECT_EQ(open("Last", PROP_TAG(CEVT_I4, 6)), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(CeDatabaseTest, StringsSortCaseSensitivelyAndEqualKeysInCreationOrder) {
    create("Names", kTextKey);
    HANDLE db = open("Names", kTextKey);
    std::vector<CEOID> r;
    for (const char* name : {"b", "B", "a", "b", "A"}) {
        r.push_back(CeWriteRecordProps(db, 0, {text(kKey, name)}));
    }
    EXPECT_EQ(walk(db), (std::vector{r[4], r[1], r[2], r[0], r[3]}));
    // Rewriting the key moves the record; removing it moves the record to the end.
    CeWriteRecordProps(db, r[2], {text(kKey, "0")});
    CeWriteRecordProps(db, r[1], {deletion(kTextKey)});
    EXPECT_EQ(walk(db), (std::vector{r[2], r[4], r[0], r[3], r[1]}));
}

TEST_F(CeDatabaseTest, PositionalSeeksFindTheirRecordAndItsIndex) {
    create("Log", kIntKey);
    create("Other", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const std::vector<CEOID> r = addKeyed(db, {10, 20, 30, 40, 50, INT_MIN});
    const CEOID foreign = addKeyed(open("Other", kIntKey), {10})[0];

    DWORD index = 99;
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 2, &index), r[2]);
    EXPECT_EQ(index, 2u);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_END, 0, &index), r[5]);
    EXPECT_EQ(index, 5u);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CEOID, r[3], &index), r[3]);
    EXPECT_EQ(index, 3u);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, static_cast<DWORD>(-2), &index), r[1]);
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 0), r[1]);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 4), r[5]); // across into the records without a key
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, static_cast<DWORD>(-5)), r[0]);

    // Out of range: 0, ERROR_NO_MORE_ITEMS, and nothing current afterwards.
    for (const auto& [type, value] : {std::pair{CEDB_SEEK_BEGINNING, 6u}, std::pair{CEDB_SEEK_END, 6u},
                                      std::pair{CEDB_SEEK_END, static_cast<DWORD>(-1)},
                                      std::pair{CEDB_SEEK_CEOID, foreign}, std::pair{CEDB_SEEK_CURRENT, 1u}}) {
        ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 5), r[5]);
        EXPECT_EQ(CeSeekDatabase(db, type, value), 0u) << type << " " << value;
        EXPECT_EQ(GetLastError(), 259u);
        std::vector<CEPROPVAL> props;
        EXPECT_EQ(CeReadRecordProps(db, 0, &props), 0u);
        EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 0), 0u);
    }
}

TEST_F(CeDatabaseTest, ValueSeeksCompareWithTheSortProperty) {
    create("Log", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const std::vector<CEOID> r = addKeyed(db, {10, 20, 20, 30, INT_MIN});
    const auto seek = [db](DWORD type, LONG value, DWORD* index = nullptr) {
        return CeSeekDatabase(db, type, i4(kKey, value), index);
    };
    DWORD index = 99;
    EXPECT_EQ(seek(CEDB_SEEK_VALUESMALLER, 20), r[0]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUESMALLER, 25, &index), r[2]); // the last of the largest smaller value
    EXPECT_EQ(index, 2u);
    EXPECT_EQ(seek(CEDB_SEEK_VALUESMALLER, 10), 0u);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEGREATER, 21), r[3]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEGREATER, 31), 0u);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEFIRSTEQUAL, 25), 0u);
    EXPECT_EQ(GetLastError(), 259u);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEGREATER, 20, &index), r[1]); // greater than or equal
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEFIRSTEQUAL, 20), r[1]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUENEXTEQUAL, 20), r[2]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUENEXTEQUAL, 20), 0u); // the next one holds 30
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 0), 0u);

    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_VALUEFIRSTEQUAL, i4(kKey + 1, 20)), 0u);
    EXPECT_EQ(GetLastError(), 87u);
    EXPECT_EQ(CeSeekDatabase(open("Log", 0), CEDB_SEEK_VALUEFIRSTEQUAL, i4(kKey, 20)), 0u);
    EXPECT_EQ(GetLastError(), 87u);
}

TEST_F(CeDatabaseTest, AutoIncrementReadsFromTheFirstRecordToNoMoreItems) {
    create("Log", kIntKey);
    const std::vector<CEOID> r = addKeyed(open("Log", kIntKey), {3, 1, 2});
    HANDLE loop = open("Log", kIntKey, CEDB_AUTOINCREMENT);
    std::vector<CEOID> order;
    std::vector<CEPROPVAL> props;
    for (CEOID oid = CeReadRecordProps(loop, 0, &props); oid != 0; oid = CeReadRecordProps(loop, 0, &props)) {
        order.push_back(oid);
        ASSERT_EQ(props.size(), 2u);
        EXPECT_EQ(props[1].val.lVal, static_cast<LONG>(order.size()));
    }
    EXPECT_EQ(GetLastError(), 259u);
    EXPECT_EQ(order, (std::vector{r[1], r[2], r[0]}));

    // Without the flag a read leaves the pointer where it is.
    HANDLE still = open("Log", kIntKey);
    read(still, r[1]);
    read(still, r[1]);
    // A record deleted while current: the next read reads the record that follows its place.
    ASSERT_EQ(CeSeekDatabase(still, CEDB_SEEK_BEGINNING, 1), r[2]);
    ASSERT_TRUE(CeDeleteRecord(still, r[2]));
    read(still, r[0]);
    EXPECT_FALSE(CeDeleteRecord(still, r[2]));
    EXPECT_EQ(GetLastError(), 87u);
}
