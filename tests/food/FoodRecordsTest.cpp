#include "FoodRecords.h"
#include "RecordDatabase.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include "DayKey.h"
#include "ScriptedMessageBoxes.h"

#include <gtest/gtest.h>

namespace {
const QString kFood = QStringLiteral("Kov2FoodAnn");
const QDate kDay(2024, 3, 9);
constexpr int kI2 = 2, kUI2 = 18, kI4 = 3, kR8 = 5, kText = 31, kFileTime = 64;

// A meal at hour:minute whose items are named after the slot.
Meal mealAt(int hour, int minute, int slot) {
    const QString n = QString::number(slot);
    return {QTime(hour, minute), "Fish " + n, "Rice " + n, "Peas " + n, "Tea " + n};
}

class FoodRecordsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_records.EnsureDatabase());
        ASSERT_NE(m_records.CreateDay(kDay), 0u);
    }
    void putMeals(int count) {
        for (int slot = 0; slot < count; ++slot) {
            ASSERT_TRUE(m_records.PutMeal(kDay, slot, mealAt(6 + slot, 4 * slot, slot)));
        }
    }

    TestDevice m_device;
    ScriptedMessageBoxes m_boxes;
    FoodRecords m_records{kFood};
    StoredDays m_stored{m_device.paths().objectStore()};
};
} // namespace

TEST_F(FoodRecordsTest, ShowingADayMakesAMissingDatabaseAndDayOnceWithTheMarkerAndOnlyTheKeyAndNotes) {
    const QString other = kFood + "Ann";
    const FoodRecords records(other);
    bool created = false;
    ASSERT_TRUE(records.ShowDay(kDay, &created));
    EXPECT_TRUE(created);
    EXPECT_EQ(m_stored.props(other, QDate(1968, 11, 29)), "64:64");
    EXPECT_EQ(m_stored.props(other, kDay), "64:64,1132:31");
    ASSERT_TRUE(records.PutMeal(kDay, 0, mealAt(7, 30, 0)));
    const std::optional<FoodDay> day = records.ShowDay(kDay, &created);
    ASSERT_TRUE(day);
    EXPECT_FALSE(created);
    EXPECT_EQ(day->values().notes, "<Click to add Notes>");
    EXPECT_EQ(day->meals().size(), 1u);
    EXPECT_EQ(m_stored.recordCount(other), 2);
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

// Which control's value goes to which id and type is the food page's own test.
TEST_F(FoodRecordsTest, SavesAllFifteenValuesEveryTimeAndLeavesTheMealsAlone) {
    putMeals(1);
    const QString layout = "64:64,1001:2,1002:2,1003:5,1010:64,1012:31,1013:31,1014:31,1015:31,1132:31,1146:5,1147:5,"
                           "1148:5,1149:5,1150:5,1151:5,1152:2,1153:2,1154:2,1155:2,1156:2";
    // Zeros are written too: saving the defaults keeps every property, at 0.
    FoodDayValues values;
    values.overall = 7;
    ASSERT_TRUE(m_records.SaveDay(kDay, values));
    ASSERT_TRUE(m_records.SaveDay(kDay, FoodDayValues()));
    EXPECT_EQ(m_stored.props(kFood, kDay), layout);
    EXPECT_EQ(m_stored.value(kFood, kDay, 1152, kI2).toLongLong(), 0);
    EXPECT_EQ(m_records.LoadDay(kDay)->meals().size(), 1u);
}

TEST_F(FoodRecordsTest, ASaveWithoutDatabaseOrRecordWritesNothingAndSaysNothing) {
    FoodRecords other("Kov2FoodBob");
    EXPECT_FALSE(other.SaveDay(kDay, FoodDayValues()));
    EXPECT_FALSE(RecordDatabase::Exists("Kov2FoodBob"));
    EXPECT_FALSE(m_records.SaveDay(kDay.addDays(-1), FoodDayValues()));
    EXPECT_EQ(m_stored.recordCount(kFood), 2);
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

// How a deleted meal's hole ends the listed meals is the food page's own test.
TEST_F(FoodRecordsTest, HoldsFifteenMealsAndRefusesASixteenth) {
    putMeals(15);
    EXPECT_EQ(m_stored.props(kFood, kDay, 1094, 1099), "1094:64,1096:31,1097:31,1098:31,1099:31");
    // 20:56 on 29 November 1968, second 12, millisecond 12.
    EXPECT_EQ(m_stored.value(kFood, kDay, 1094, kFileTime).toLongLong(),
              StoredDays::fileTimeOf(QDate(1968, 11, 29), QTime(20, 56, 12, 12)));
    const qint64 props = m_stored.propCount(kFood, kDay);
    EXPECT_EQ(props, 2 + 15 * 5);

    EXPECT_FALSE(m_records.PutMeal(kDay, 15, mealAt(23, 0, 15)));
    EXPECT_FALSE(m_records.DeleteMeal(kDay, 15));
    EXPECT_EQ(m_boxes.texts(), QStringList({"Max meals exceeded for this day", "Max meals exceeded for this day"}));
    EXPECT_EQ(m_stored.propCount(kFood, kDay), props);

    const std::optional<FoodDay> day = m_records.LoadDay(kDay);
    ASSERT_TRUE(day);
    ASSERT_EQ(day->meals().size(), 15u);
    EXPECT_EQ(day->meals()[14].time, QTime(20, 56));
    EXPECT_EQ(day->meals()[0].timeText(), "6:00A");
    EXPECT_EQ(day->meals()[6].timeText(), "12:24P");
    EXPECT_EQ(mealAt(0, 0, 0).timeText(), "12:00A");
    EXPECT_EQ(day->proteinCount(), 15);
}

TEST_F(FoodRecordsTest, ReadsSixteenBitValuesUnsignedWhateverTheirTagAndSavesOverThem) {
    // A record written by other means: sleep quality without an overall feeling, other tags.
    RecordDatabase db;
    ASSERT_TRUE(db.Open(kFood, DayKey::kPropId));
    const CEOID oid = db.SeekFirstEqual(DayKey::prop(kDay));
    DbRecord record;
    record.append(DbProp::ui2(1153, 9));
    record.append(DbProp::i2(1001, -25536));
    record.append(DbProp::ui2(1002, 40000));
    record.append(DbProp::i4(1154, 0x1FFFF));
    record.append(DbProp::i4(1003, 17));
    ASSERT_NE(db.Write(record, oid), 0u);
    db.Close();

    std::optional<FoodDay> day = m_records.LoadDay(kDay);
    ASSERT_TRUE(day);
    EXPECT_EQ(day->values().sleepQuality, 0);
    EXPECT_EQ(day->values().water, 40000);
    EXPECT_EQ(day->values().weight, 40000);
    EXPECT_EQ(day->values().systolic, 65535);
    EXPECT_EQ(day->values().bodyFat, 17.0);

    // A save replaces each value whatever type it was stored with.
    ASSERT_TRUE(m_records.SaveDay(kDay, day->values()));
    EXPECT_EQ(m_stored.props(kFood, kDay, 1001, 1003), "1001:2,1002:2,1003:5");
    EXPECT_EQ(m_stored.value(kFood, kDay, 1002, kI2).toLongLong(), -25536);
    EXPECT_FALSE(m_stored.value(kFood, kDay, 1002, kUI2).isValid());
    EXPECT_FALSE(m_stored.value(kFood, kDay, 1154, kI4).isValid());
}

TEST_F(FoodRecordsTest, EachOperationOnAMissingDayShowsItsTextAndWritesNothing) {
    const QDate missing = kDay.addDays(1);
    EXPECT_FALSE(m_records.LoadDay(missing));
    EXPECT_FALSE(m_records.PutMeal(missing, 15, mealAt(8, 0, 0)));
    EXPECT_FALSE(m_records.DeleteMeal(missing, 0));
    EXPECT_FALSE(m_records.ReadMeal(missing, 0));
    EXPECT_FALSE(m_records.ReadMeal(kDay, 0));
    EXPECT_EQ(m_boxes.texts(),
              QStringList({"Error accessing food database on Add Items", "Record not found",
                           "Error accessing food db on item delete", "Error accessing food database on item Edit",
                           "Error accessing food database on item Edit"}));
    EXPECT_EQ(m_stored.recordCount(kFood), 2);
    EXPECT_EQ(m_stored.propCount(kFood, kDay), 2);
}
