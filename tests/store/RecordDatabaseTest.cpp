// The store's view of one database: what it adds to the property-database service (a pointer that
// walks on past a deleted record, stepping back, reading a list of ids without the ones a record
// lacks). The service itself is checked in tests/platform; the type and sort order a database is
// created with, where the user list is made.

#include "RecordDatabase.h"
#include "DayKey.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
const QString kLog = QStringLiteral("Kov2Food");

DbRecord dayRecord(const QDate& day, const QString& note) {
    DbRecord record;
    record.append(DayKey::prop(day));
    record.append(DbProp::text(1132, note));
    return record;
}

class RecordDatabaseTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(RecordDatabase::Create(kLog, RecordDatabase::kDatabaseType, DayKey::kPropId));
        ASSERT_TRUE(m_db.Open(kLog, DayKey::kPropId));
    }

    TestDevice m_device;
    RecordDatabase m_db;
};
} // namespace

TEST_F(RecordDatabaseTest, ADaysRecordIsFoundByItsKeyReplacedAndDeletedWithItsDatabase) {
    const QDate day(2003, 3, 7);
    EXPECT_EQ(m_db.SeekFirstEqual(DayKey::prop(day)), 0u);
    const CEOID added = m_db.Write(dayRecord(day, "first"), 0);
    ASSERT_NE(added, 0u);
    EXPECT_EQ(m_db.SeekFirstEqual(DayKey::prop(day)), added);
    EXPECT_EQ(m_db.CurrentRecordId(), added);
    DbRecord change;
    change.append(DbProp::text(1132, "second"));
    EXPECT_EQ(m_db.Write(change, added), added);
    EXPECT_EQ(m_db.recordCount(), 1u);
    DbRecord read;
    ASSERT_TRUE(m_db.ReadCurrent(read));
    EXPECT_EQ(read.find(1132)->toText(), "second");

    EXPECT_TRUE(m_db.DeleteRecord(added));
    EXPECT_EQ(m_db.SeekFirstEqual(DayKey::prop(day)), 0u);
    EXPECT_TRUE(m_db.DeleteDatabase());
    EXPECT_FALSE(m_db.isOpen());
    EXPECT_FALSE(RecordDatabase::Exists(kLog));
}

TEST_F(RecordDatabaseTest, SeekNextStartsAtTheFirstRecordAndGoesOnAfterADeletedCurrentOne) {
    const CEOID d = m_db.Write(dayRecord(QDate(2001, 1, 4), "d"), 0);
    const CEOID b = m_db.Write(dayRecord(QDate(2001, 1, 2), "b"), 0);
    const CEOID a = m_db.Write(dayRecord(QDate(2001, 1, 1), "a"), 0);
    const CEOID c = m_db.Write(dayRecord(QDate(2001, 1, 3), "c"), 0);
    ASSERT_TRUE(m_db.Open(kLog, DayKey::kPropId));
    EXPECT_EQ(m_db.SeekNext(), a);
    EXPECT_EQ(m_db.SeekNext(), b);
    EXPECT_EQ(m_db.SeekNext(), c);
    // A walk that deletes as it goes: the deleted record's place is kept.
    ASSERT_TRUE(m_db.DeleteRecord(c));
    EXPECT_EQ(m_db.CurrentRecordId(), 0u);
    EXPECT_EQ(m_db.SeekNext(), d);
    ASSERT_TRUE(m_db.DeleteRecord(d));
    EXPECT_EQ(m_db.SeekNext(), 0u);
    EXPECT_EQ(m_db.SeekFirst(), a);
}

TEST_F(RecordDatabaseTest, StepsBackRecordByRecordReadingOnlyTheListedPropertiesItHas) {
    const QDate first(2006, 5, 1);
    std::vector<CEOID> days;
    for (int i = 0; i < 3; ++i) {
        DbRecord record = dayRecord(first.addDays(i), "note");
        record.append(DbProp::i2(102, static_cast<std::int16_t>(7 + i)));
        if (i == 1) {
            record.append(DbProp::text(106, "Leg Press"));
        }
        days.push_back(m_db.Write(record, 0));
    }
    ASSERT_TRUE(m_db.Open(kLog, DayKey::kPropId));
    EXPECT_EQ(m_db.SeekPrevious(), 0u); // right after opening the first record is current
    ASSERT_EQ(m_db.SeekFirstEqual(DayKey::prop(first.addDays(2))), days[2]);
    ASSERT_EQ(m_db.SeekPrevious(), days[1]);
    // In the order asked; a number stored with another type, or not at all, is left out.
    const std::vector<CEPROPID> wanted = {PROP_TAG(CEVT_LPWSTR, 106), PROP_TAG(CEVT_I2, 102), PROP_TAG(CEVT_I2, 1132),
                                          PROP_TAG(CEVT_R8, 108)};
    DbRecord read;
    ASSERT_TRUE(m_db.ReadCurrent(read, wanted));
    EXPECT_EQ(read.props(), (std::vector{DbProp::text(106, "Leg Press"), DbProp::i2(102, 8)}));
    EXPECT_EQ(m_db.CurrentRecordId(), days[1]);

    ASSERT_EQ(m_db.SeekPrevious(), days[0]);
    ASSERT_TRUE(m_db.ReadCurrent(read, {PROP_TAG(CEVT_LPWSTR, 106)}));
    EXPECT_TRUE(read.isEmpty());
    EXPECT_EQ(m_db.SeekPrevious(), 0u);
    EXPECT_FALSE(m_db.ReadCurrent(read, wanted)); // nothing is current at the start
    EXPECT_EQ(m_db.SeekNext(), 0u);

    EXPECT_EQ(m_db.SeekLastSmaller(DayKey::prop(first.addDays(30))), days[2]);
    EXPECT_EQ(m_db.SeekLastSmaller(DayKey::prop(first.addDays(1))), days[0]);
    EXPECT_EQ(m_db.SeekLastSmaller(DayKey::prop(first)), 0u);
}

TEST_F(RecordDatabaseTest, AWriteOverTheRecordLimitsIsRefusedAndWritesNothing) {
    const QDate day(2024, 3, 14);
    const CEOID oid = m_db.Write(dayRecord(day, QString(10000, u'x')), 0);
    ASSERT_NE(oid, 0u);
    DbRecord over;
    over.append(DbProp::text(1132, QString(10001, u'x')));
    over.append(DbProp::i2(1001, 3));
    EXPECT_EQ(m_db.Write(over, oid), 0u);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
    const StoredDays days(m_device.paths().objectStore());
    EXPECT_EQ(days.recordCount(kLog), 1);
    EXPECT_EQ(days.props(kLog, day), "64:64,1132:31");
    EXPECT_EQ(days.value(kLog, day, 1132, CEVT_LPWSTR).toString().size(), 10000);
}
