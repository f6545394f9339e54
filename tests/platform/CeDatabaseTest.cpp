// The property-database service on the object store: databases, records, the sort order, every
// kind of seek, the read loop and reads of a list of ids, checked
// against the numbers of the Windows CE 3.0 service.

#include "CeDatabase.h"
#include "CallOutcome.h"
#include "PropVals.h"
#include "SqlReader.h"
#include "TestDevice.h"
#include "VolumeFiles.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <tuple>

namespace {
constexpr WORD kKey = 5; // the sort property's number in these tests
constexpr CEPROPID kIntKey = PROP_TAG(CEVT_I4, kKey);
constexpr CEPROPID kTextKey = PROP_TAG(CEVT_LPWSTR, kKey);
constexpr CEPROPID kAbsent = PROP_TAG(CEVT_I4, 99);

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
    EXPECT_EQ(outcome(create("KovChestList", kTextKey)), (CallOutcome{0, 52})); // ERROR_DUP_NAME
    EXPECT_NE(create("kovchestlist", kTextKey), 0u);
    EXPECT_NE(create(QString(31, 'n'), kTextKey), 0u);
    EXPECT_EQ(outcome(create(QString(32, 'n'), kTextKey)), (CallOutcome{0, 87}));

    EXPECT_EQ(open("KovBackList", 0), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), 2u); // ERROR_FILE_NOT_FOUND
}

TEST_F(CeDatabaseTest, ADatabaseCountsItsRecordsAndDeletingItTakesThemAndInvalidatesItsHandles) {
    const CEOID oid = create("temp", kIntKey);
    HANDLE db = open("temp", kIntKey);
    addKeyed(db, {3, 1, 2});
    CEOIDINFO info;
    ASSERT_TRUE(CeOidGetInfoEx(&m_store, oid, &info));
    EXPECT_EQ(info.infDatabase.dwNumRecords, 3u);
    ASSERT_TRUE(CeDeleteDatabaseEx(&m_store, oid));

    SqlReader sql(m_device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT count(*) FROM records WHERE db = ?", {oid}).toLongLong(), 0);
    EXPECT_EQ(sql.value("SELECT count(*) FROM props").toLongLong(), 0);
    std::vector<CEPROPVAL> props;
    EXPECT_EQ(outcome(CeReadRecordProps(db, 0, &props)), (CallOutcome{0, ERROR_INVALID_HANDLE}));
}

TEST_F(CeDatabaseTest, EveryPropertyTypeRoundTripsAndIsStoredAsItsSqlType) {
    const auto prop = [](CEPROPID propid, const std::function<void(CEVALUNION&)>& set) {
        CEPROPVAL value;
        value.propid = propid;
        set(value.val);
        return value;
    };
    // In the order they read back: by unsigned id, the highest id (an empty text) last.
    const std::vector<std::tuple<CEPROPVAL, QString, QVariant>> table = {
        {prop(PROP_TAG(CEVT_I2, 1), [](auto& v) { v.iVal = -32768; }), "integer", qint64(-32768)},
        {prop(PROP_TAG(CEVT_UI2, 2), [](auto& v) { v.uiVal = 65535; }), "integer", qint64(65535)},
        {prop(PROP_TAG(CEVT_I4, 3), [](auto& v) { v.lVal = INT_MIN; }), "integer", qint64(INT_MIN)},
        {prop(PROP_TAG(CEVT_UI4, 4), [](auto& v) { v.ulVal = 0xFFFFFFFFu; }), "integer", qint64(4294967295)},
        {prop(PROP_TAG(CEVT_BOOL, 5), [](auto& v) { v.boolVal = TRUE; }), "integer", qint64(1)},
        {prop(PROP_TAG(CEVT_R8, 6), [](auto& v) { v.dblVal = -102.25; }), "real", -102.25},
        {prop(PROP_TAG(CEVT_LPWSTR, 7), [](auto& v) { v.lpwstr = QString::fromUtf8("Übung 10× 🍙"); }), "text",
         QString::fromUtf8("Übung 10× 🍙")},
        {prop(PROP_TAG(CEVT_FILETIME, 8),
              [](auto& v) {
                  v.filetime = FILETIME{0x12345678, 0x01C0FFEE};
              }),
         "integer", qint64(0x01C0FFEE12345678)},
        {prop(PROP_TAG(CEVT_BLOB, 9), [](auto& v) { v.blob = QByteArray("\x00\x01\xFF", 3); }), "blob",
         QByteArray("\x00\x01\xFF", 3)},
        {prop(0xFFFF001Fu, [](auto&) {}), "text", QString("")},
    };
    create("Types", 0);
    HANDLE db = open("Types", 0);
    std::vector<CEPROPVAL> written;
    for (auto row = table.rbegin(); row != table.rend(); ++row) {
        written.push_back(std::get<0>(*row));
    }
    const CEOID oid = CeWriteRecordProps(db, 0, written);
    ASSERT_NE(oid, 0u);
    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0), oid);
    const std::vector<CEPROPVAL> back = read(db, oid);
    ASSERT_EQ(back.size(), table.size());

    const auto fields = [](const CEVALUNION& v) {
        return std::tie(v.iVal, v.uiVal, v.lVal, v.ulVal, v.filetime, v.lpwstr, v.blob, v.boolVal, v.dblVal);
    };
    SqlReader sql(m_device.paths().objectStore());
    const QString value = "SELECT %1 FROM props WHERE record = ? AND propid = ?";
    for (size_t i = 0; i < table.size(); ++i) {
        const auto& [expected, type, stored] = table[i];
        EXPECT_EQ(back[i].propid, expected.propid) << i;
        EXPECT_TRUE(fields(back[i].val) == fields(expected.val)) << i;
        EXPECT_EQ(sql.value(value.arg("typeof(value)"), {oid, qint64(expected.propid)}).toString(), type) << i;
        EXPECT_EQ(sql.value(value.arg("value"), {oid, qint64(expected.propid)}), stored) << i;
    }
}

TEST_F(CeDatabaseTest, AWriteReplacesOnlyTheNamedPropertiesWholeOrNotAtAll) {
    create("Log", kIntKey);
    create("Other", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const CEOID oid = CeWriteRecordProps(db, 0, {i4(1, 1), i4(2, 2), i4(3, 3)});
    ASSERT_EQ(CeWriteRecordProps(db, oid, {i4(2, 20), i4(4, 4)}), oid);
    ASSERT_EQ(CeWriteRecordProps(db, oid, {deletion(PROP_TAG(CEVT_I4, 3))}), oid);

    // A record of another database: refused, and nothing of the write is kept.
    HANDLE other = open("Other", kIntKey);
    EXPECT_EQ(outcome(CeWriteRecordProps(other, oid, {i4(1, 100)})), (CallOutcome{0, 87}));

    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0), oid);
    const std::vector<CEPROPVAL> props = read(db, oid);
    ASSERT_EQ(props.size(), 3u);
    EXPECT_EQ(props[0].val.lVal, 1);
    EXPECT_EQ(props[1].val.lVal, 20);
    EXPECT_EQ(props[2].propid, PROP_TAG(CEVT_I4, 4));
}

TEST_F(CeDatabaseTest, SortsAscendingCaseSensitivelyEqualKeysInCreationOrderAndRecordsWithoutTheKeyLast) {
    create("Log", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const std::vector<CEOID> r = addKeyed(db, {30, INT_MIN, 10, INT_MIN, 20});
    EXPECT_EQ(walk(db), (std::vector{r[2], r[4], r[0], r[1], r[3]}));
    EXPECT_EQ(walk(open("Log", 0)), r) << "creation order";
    create("First", kIntKey, CEDB_SORT_UNKNOWNFIRST);
    HANDLE first = open("First", kIntKey);
    const std::vector<CEOID> f = addKeyed(first, {30, INT_MIN, 10, INT_MIN, 20});
    EXPECT_EQ(walk(first), (std::vector{f[1], f[3], f[2], f[4], f[0]}));

    create("Names", kTextKey);
    HANDLE names = open("Names", kTextKey);
    std::vector<CEOID> n;
    for (const char* name : {"b", "B", "a", "b", "A"}) {
        n.push_back(CeWriteRecordProps(names, 0, {text(kKey, name)}));
    }
    EXPECT_EQ(walk(names), (std::vector{n[4], n[1], n[2], n[0], n[3]}));
    // Rewriting the key moves the record.
    CeWriteRecordProps(names, n[2], {text(kKey, "0")});
    EXPECT_EQ(walk(names), (std::vector{n[2], n[4], n[1], n[0], n[3]}));
}

TEST_F(CeDatabaseTest, SeeksFindTheirRecordOrLeaveNothingCurrent) {
    create("Log", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const std::vector<CEOID> r = addKeyed(db, {10, 20, 20, 30, INT_MIN});
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 2), r[2]);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, static_cast<DWORD>(-2)), r[0]);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 0), r[0]);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 4), r[4]); // across into the records without a key
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_END, 1), r[3]);
    EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CEOID, r[1]), r[1]);

    // By the sort property: the last record of the largest smaller value, the first equal one, the
    // first greater or equal one, the next equal one after the current record.
    const auto seek = [db](DWORD type, LONG value) { return CeSeekDatabase(db, type, i4(kKey, value)); };
    EXPECT_EQ(seek(CEDB_SEEK_VALUESMALLER, 20), r[0]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUESMALLER, 25), r[2]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEGREATER, 21), r[3]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEGREATER, 20), r[1]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUENEXTEQUAL, 20), r[2]);
    EXPECT_EQ(seek(CEDB_SEEK_VALUEFIRSTEQUAL, 20), r[1]);

    // Out of range: 0, ERROR_NO_MORE_ITEMS, and nothing current afterwards.
    const std::vector<std::function<CEOID()>> misses = {
        [db] { return CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 5); },
        [db] { return CeSeekDatabase(db, CEDB_SEEK_CURRENT, 1); },
        [db] { return CeSeekDatabase(db, CEDB_SEEK_CURRENT, static_cast<DWORD>(-5)); },
        [&seek] { return seek(CEDB_SEEK_VALUESMALLER, 10); },
        [&seek] { return seek(CEDB_SEEK_VALUEFIRSTEQUAL, 25); },
        [db] { return CeSeekDatabase(db, CEDB_SEEK_END, 5); },
        [&seek] { return seek(CEDB_SEEK_VALUEGREATER, 31); },
        [&seek] {
            seek(CEDB_SEEK_VALUEFIRSTEQUAL, 30);
            return seek(CEDB_SEEK_VALUENEXTEQUAL, 30); // the one record of 30 is the last
        },
    };
    for (size_t i = 0; i < misses.size(); ++i) {
        ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 4), r[4]);
        EXPECT_EQ(outcome(misses[i]()), (CallOutcome{0, 259})) << i;
        std::vector<CEPROPVAL> props;
        EXPECT_EQ(CeReadRecordProps(db, 0, &props), 0u) << i;
        EXPECT_EQ(CeSeekDatabase(db, CEDB_SEEK_CURRENT, 0), 0u) << i;
    }
}

// Reading a list of property ids: each id asked comes back in the order asked, matched on number
// and type, flagged CEDB_PROPNOTFOUND when the record lacks it.
TEST_F(CeDatabaseTest, AListReadGivesTheIdsAskedInTheirOrderAndFlagsThoseTheRecordLacks) {
    create("Log", kIntKey);
    HANDLE db = open("Log", kIntKey);
    CEPROPVAL weight;
    weight.propid = PROP_TAG(CEVT_R8, 9);
    weight.val.dblVal = 102.5;
    const CEOID oid = CeWriteRecordProps(db, 0, {i4(5, 1), text(7, "Bench Press"), i4(8, 80), weight});
    ASSERT_NE(oid, 0u);

    // Any order, an id twice, a number stored with another type, a missing id.
    const std::vector<CEPROPID> wanted = {PROP_TAG(CEVT_R8, 9), PROP_TAG(CEVT_LPWSTR, 7), PROP_TAG(CEVT_LPWSTR, 8),
                                          kAbsent, PROP_TAG(CEVT_LPWSTR, 7)};
    std::vector<CEPROPVAL> props;
    ASSERT_EQ(CeReadRecordProps(db, 0, wanted, &props), oid);
    ASSERT_EQ(props.size(), 5u);
    for (size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(props[i].propid, wanted[i]) << i;
        EXPECT_EQ(props[i].wFlags, i == 2 || i == 3 ? CEDB_PROPNOTFOUND : 0) << i;
    }
    EXPECT_EQ(props[0].val.dblVal, 102.5);
    EXPECT_EQ(props[1].val.lpwstr, "Bench Press");
    EXPECT_EQ(props[4].val.lpwstr, "Bench Press");
}

TEST_F(CeDatabaseTest, AListReadFailsOnlyForValuesAsked) {
    create("Log", kIntKey);
    HANDLE db = open("Log", kIntKey);
    const std::vector<CEOID> r = addKeyed(db, {1, 2});
    // Record 2 holds a text where an I4 belongs, written behind the platform's back.
    VolumeFiles::runSql(m_device.paths().objectStore(),
                        QStringLiteral("INSERT INTO props VALUES (%1, %2, 'not a number')")
                            .arg(r[1])
                            .arg(PROP_TAG(CEVT_I4, 2))
                            .toUtf8()
                            .constData());

    std::vector<CEPROPVAL> props;
    ASSERT_EQ(CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 1), r[1]);
    EXPECT_EQ(outcome(CeReadRecordProps(db, 0, {PROP_TAG(CEVT_I4, 1), PROP_TAG(CEVT_I4, 2)}, &props)),
              (CallOutcome{0, 13})); // ERROR_INVALID_DATA; the pointer stays
    EXPECT_EQ(CeReadRecordProps(db, 0, {PROP_TAG(CEVT_I4, 1), PROP_TAG(CEVT_I4, 3)}, &props), r[1]);
}
