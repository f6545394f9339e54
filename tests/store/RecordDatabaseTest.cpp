#include "RecordDatabase.h"
#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "SqlReader.h"
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
    void SetUp() override { ASSERT_TRUE(RecordDatabase::Create(kLog, RecordDatabase::kDatabaseType, DayKey::kPropId)); }

    QString noteOfDay(const QDate& day) {
        RecordDatabase db;
        EXPECT_TRUE(db.Open(kLog, DayKey::kPropId));
        if (db.SeekFirstEqual(DayKey::prop(day)) == 0) {
            return QStringLiteral("<missing>");
        }
        DbRecord record;
        EXPECT_TRUE(db.ReadCurrent(record));
        const DbProp* note = record.find(1132);
        return note ? note->toText() : QStringLiteral("<no note>");
    }

    TestDevice m_device;
};
} // namespace

TEST_F(RecordDatabaseTest, CreatesADatabaseOfTheProgramsTypeSortedOnItsProperty) {
    EXPECT_TRUE(RecordDatabase::Exists(kLog));
    EXPECT_FALSE(RecordDatabase::Exists(QStringLiteral("Kov2FoodAnn")));
    SqlReader sql(m_device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT type FROM databases WHERE name = ?", {kLog}).toLongLong(), 12345);
    EXPECT_EQ(sql.value("SELECT sort_propid FROM databases WHERE name = ?", {kLog}).toLongLong(), 0x00400040);
    EXPECT_FALSE(RecordDatabase::Create(kLog, RecordDatabase::kDatabaseType, DayKey::kPropId));
}

TEST_F(RecordDatabaseTest, FirstSaveOfADayAddsItsRecordAndTheSecondReplacesIt) {
    const QDate day(2003, 3, 7);
    RecordDatabase db;
    ASSERT_TRUE(db.Open(kLog, DayKey::kPropId));
    EXPECT_EQ(db.SeekFirstEqual(DayKey::prop(day)), 0u);

    const CEOID added = db.Write(dayRecord(day, "first"), 0);
    ASSERT_NE(added, 0u);
    // A key built for the same day at another moment finds the same record.
    EXPECT_EQ(db.SeekFirstEqual(DayKey::prop(QDate::fromString("2003-03-07", Qt::ISODate))), added);
    EXPECT_EQ(db.CurrentRecordId(), added);

    DbRecord change;
    change.append(DbProp::text(1132, "second"));
    EXPECT_EQ(db.Write(change, added), added);
    EXPECT_EQ(db.recordCount(), 1u);
    db.Close();
    EXPECT_EQ(noteOfDay(day), "second");
}

TEST_F(RecordDatabaseTest, SeekNextStartsAtTheFirstRecordAndGoesOnAfterADeletedCurrentOne) {
    RecordDatabase db;
    ASSERT_TRUE(db.Open(kLog, DayKey::kPropId));
    const CEOID d = db.Write(dayRecord(QDate(2001, 1, 4), "d"), 0);
    const CEOID b = db.Write(dayRecord(QDate(2001, 1, 2), "b"), 0);
    const CEOID a = db.Write(dayRecord(QDate(2001, 1, 1), "a"), 0);
    const CEOID c = db.Write(dayRecord(QDate(2001, 1, 3), "c"), 0);
    db.Close();
    ASSERT_TRUE(db.Open(kLog, DayKey::kPropId));
    EXPECT_EQ(db.SeekNext(), a);
    EXPECT_EQ(db.SeekNext(), b);
    EXPECT_EQ(db.SeekNext(), c);
    // A walk that deletes as it goes: the deleted record's place is kept.
    ASSERT_TRUE(db.DeleteRecord(c));
    EXPECT_EQ(db.CurrentRecordId(), 0u);
    EXPECT_EQ(db.SeekNext(), d);
    ASSERT_TRUE(db.DeleteRecord(d));
    EXPECT_EQ(db.SeekNext(), 0u);
    EXPECT_EQ(db.SeekFirst(), a);
}

TEST_F(RecordDatabaseTest, DeletesRecordsAndWholeDatabases) {
    const QDate day(2004, 4, 4);
    RecordDatabase db;
    ASSERT_TRUE(db.Open(kLog, DayKey::kPropId));
    const CEOID oid = db.Write(dayRecord(day, "x"), 0);
    EXPECT_TRUE(db.DeleteRecord(oid));
    EXPECT_EQ(db.SeekFirstEqual(DayKey::prop(day)), 0u);
    EXPECT_FALSE(db.DeleteRecord(oid));

    db.Write(dayRecord(day, "y"), 0);
    EXPECT_TRUE(db.DeleteDatabase());
    EXPECT_FALSE(db.isOpen());
    EXPECT_FALSE(RecordDatabase::Exists(kLog));
    SqlReader sql(m_device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT count(*) FROM records").toLongLong(), 0);
}

TEST_F(RecordDatabaseTest, OperationsOnAClosedOrMissingDatabaseFail) {
    RecordDatabase db;
    EXPECT_FALSE(db.Open(QStringLiteral("NoSuchDatabase"), DayKey::kPropId));
    DbRecord record;
    EXPECT_EQ(db.SeekFirst(), 0u);
    EXPECT_FALSE(db.ReadCurrent(record));
    EXPECT_EQ(db.Write(dayRecord(QDate(2001, 1, 1), "x"), 0), 0u);
    EXPECT_FALSE(db.DeleteDatabase());
}

TEST_F(RecordDatabaseTest, StepsBackRecordByRecordReadingOnlyTheListedProperties) {
    const QDate first(2006, 5, 1);
    RecordDatabase db;
    ASSERT_TRUE(db.Open(kLog, DayKey::kPropId));
    std::vector<CEOID> days;
    for (int i = 0; i < 3; ++i) {
        DbRecord record = dayRecord(first.addDays(i), "note");
        record.append(DbProp::i2(102, static_cast<std::int16_t>(7 + i)));
        if (i == 1) {
            record.append(DbProp::text(106, "Leg Press"));
        }
        days.push_back(db.Write(record, 0));
    }
    db.Close();

    ASSERT_TRUE(db.Open(kLog, DayKey::kPropId));
    EXPECT_EQ(db.SeekPrevious(), 0u); // right after opening the first record is current
    ASSERT_EQ(db.SeekFirstEqual(DayKey::prop(first.addDays(2))), days[2]);
    ASSERT_EQ(db.SeekPrevious(), days[1]);
    // In the order asked; a number stored with another type, or not at all, is left out.
    const std::vector<CEPROPID> wanted = {PROP_TAG(CEVT_LPWSTR, 106), PROP_TAG(CEVT_I2, 102), PROP_TAG(CEVT_I2, 1132),
                                          PROP_TAG(CEVT_R8, 108)};
    DbRecord read;
    ASSERT_TRUE(db.ReadCurrent(read, wanted));
    ASSERT_EQ(read.size(), 2);
    EXPECT_EQ(read.props()[0], DbProp::text(106, "Leg Press"));
    EXPECT_EQ(read.props()[1], DbProp::i2(102, 8));
    EXPECT_EQ(db.CurrentRecordId(), days[1]);

    ASSERT_EQ(db.SeekPrevious(), days[0]);
    ASSERT_TRUE(db.ReadCurrent(read, {PROP_TAG(CEVT_LPWSTR, 106)}));
    EXPECT_TRUE(read.isEmpty());
    EXPECT_EQ(db.SeekPrevious(), 0u);
    EXPECT_FALSE(db.ReadCurrent(read, wanted)); // nothing is current at the start
    EXPECT_EQ(db.SeekNext(), 0u);

    EXPECT_EQ(db.SeekLastSmaller(DayKey::prop(first.addDays(30))), days[2]);
    EXPECT_EQ(db.SeekLastSmaller(DayKey::prop(first.addDays(1))), days[0]);
    EXPECT_EQ(db.SeekLastSmaller(DayKey::prop(first)), 0u);
    db.Close();
    EXPECT_FALSE(db.ReadCurrent(read, wanted));
    EXPECT_EQ(db.SeekPrevious(), 0u);
}
