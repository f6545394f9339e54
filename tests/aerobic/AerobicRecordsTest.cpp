#include "AerobicRecords.h"
#include "SqlReader.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include "ScriptedMessageBoxes.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {
const QString kAerobic = QStringLiteral("Kov2AerobicAnn");
const QDate kDay(2024, 3, 9);
constexpr int kI2 = 2, kR8 = 5, kUI2 = 18, kText = 31;

AerobicExercise exerciseAt(QTime start, QTime end, const QString& name) {
    AerobicExercise exercise;
    exercise.exercise = name;
    exercise.start = QDateTime(kDay, start);
    exercise.end = QDateTime(kDay, end);
    return exercise;
}

class AerobicRecordsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_records.EnsureDatabase());
        ASSERT_NE(m_records.CreateDay(kDay), 0u);
    }
    // Every property of the day's record but those numbered in skipped, as "id=value" in id order.
    QString propsBut(const std::array<WORD, 30>& skipped) const {
        QStringList numbers;
        for (WORD n : skipped) {
            numbers << QString::number(n);
        }
        return m_sql
            .value("SELECT group_concat(propid || '=' || value) FROM (SELECT propid, value FROM props WHERE record = ? "
                   "AND (propid >> 16) NOT IN (" +
                       numbers.join(',') + ") ORDER BY propid)",
                   {qint64(m_records.FindDay(kDay))})
            .toString();
    }

    TestDevice m_device;
    ScriptedMessageBoxes m_boxes;
    AerobicRecords m_records{kAerobic};
    StoredDays m_stored{m_device.paths().objectStore()};
    SqlReader m_sql{m_device.paths().objectStore()};
};
} // namespace

TEST_F(AerobicRecordsTest, EachSlotStoresEachValueUnderItsOwnIdAndTypeAndNothingElse) {
    EXPECT_EQ(m_stored.props(kAerobic, QDate(1968, 11, 29)), "64:64");
    EXPECT_EQ(m_sql.value("SELECT type || '/' || sort_propid FROM databases WHERE name = ?", {kAerobic}).toString(),
              "12345/4194368");

    // The header's numbers follow no rule, so each slot's are named: start hour, start minute, elapsed
    // minutes, completed, notes, elapsed seconds.
    const int header[][6] = {
        {102, 103, 104, 105, 1132, 1133}, {1136, 1138, 1140, 1144, 1142, 1134}, {1137, 1139, 1141, 1145, 1143, 1135}};
    AerobicExercise run = exerciseAt(QTime(7, 50), QTime(7, 5), "Run"); // end before start: 45 minutes
    run.course = "Lake";
    run.distance = 2.5;
    run.heartRate = 123;
    run.elapsedSeconds = 37;
    run.completed = true;
    run.notes = "Windy";
    run.minutes[0] = AerobicExercise::kNoChoice; // an empty box is stored as 0
    run.minutes[1] = 3;
    run.minutes[19] = 10;
    for (int slot = 1; slot <= 3; ++slot) {
        const QDate day = kDay.addDays(slot);
        const int name = 601 + 100 * slot;
        const int* h = header[slot - 1];
        ASSERT_NE(m_records.CreateDay(day), 0u);
        ASSERT_TRUE(m_records.SaveExercise(day, slot, run));
        EXPECT_EQ(m_stored.propCount(kAerobic, day), 31) << slot;
        const std::tuple<int, int, QVariant> expected[] = {{name, kText, "Run"},
                                                           {name + 1, kI2, 0},
                                                           {name + 2, kI2, 3},
                                                           {name + 20, kI2, 10},
                                                           {name + 21, kR8, 2.5},
                                                           {name + 22, kI2, 123},
                                                           {name + 23, kText, "Lake"},
                                                           {h[0], kI2, 7},
                                                           {h[1], kI2, 50},
                                                           {h[2], kI2, 45},
                                                           {h[3], kUI2, 1},
                                                           {h[4], kText, "Windy"},
                                                           {h[5], kI2, 37}};
        for (const auto& [number, type, value] : expected) {
            EXPECT_EQ(m_stored.value(kAerobic, day, number, type).toString(), value.toString())
                << "slot " << slot << ", " << number;
        }
    }
    EXPECT_TRUE(m_boxes.texts().isEmpty());

    // The span as the two controls stand, in whole minutes within a day.
    const QDateTime late(kDay, QTime(23, 30));
    EXPECT_EQ(AerobicExercise::elapsedMinutes(late, QDateTime(kDay, QTime(0, 10))), 1400);
    EXPECT_EQ(AerobicExercise::elapsedMinutes(late, QDateTime(kDay.addDays(1), QTime(0, 10))), 40);
    EXPECT_EQ(AerobicExercise::elapsedMinutes(late, late.addSecs(59)), 0);
    EXPECT_EQ(AerobicExercise::elapsedMinutes(late, late.addSecs(60)), 1);
    EXPECT_EQ(AerobicExercise::elapsedMinutes(late, QDateTime(kDay.addDays(1), QTime(23, 34, 59))), 4);
}

TEST_F(AerobicRecordsTest, SavingOneExerciseLeavesTheOtherSlotsAsTheyWere) {
    ASSERT_TRUE(m_records.SaveExercise(kDay, 1, exerciseAt(QTime(7, 5), QTime(7, 50), "Run")));
    ASSERT_TRUE(m_records.SaveExercise(kDay, 3, exerciseAt(QTime(18, 0), QTime(18, 30), "Swim")));
    const QString others = propsBut(AerobicSlot::of(2)->numbers());

    AerobicExercise bike = exerciseAt(QTime(12, 15), QTime(13, 0), "Bike");
    bike.minutes.fill(9);
    ASSERT_TRUE(m_records.SaveExercise(kDay, 2, bike));
    EXPECT_EQ(propsBut(AerobicSlot::of(2)->numbers()), others);
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 801, kText).toString(), "Bike");
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 1140, kI2).toLongLong(), 45);

    // Saving slot 2 again replaces its values without touching the others.
    ASSERT_TRUE(m_records.SaveExercise(kDay, 2, exerciseAt(QTime(12, 15), QTime(12, 20), "Walk")));
    EXPECT_EQ(propsBut(AerobicSlot::of(2)->numbers()), others);
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 1140, kI2).toLongLong(), 5);
}

TEST_F(AerobicRecordsTest, ReadsTheDaysExercisesAndCountsUpToTheHighestStoredSlot) {
    AerobicExercise swim = exerciseAt(QTime(18, 0), QTime(16, 45), "Swim");
    swim.elapsedSeconds = 12;
    swim.minutes[4] = 7;
    ASSERT_TRUE(m_records.SaveExercise(kDay, 3, swim));
    std::optional<AerobicDay> day = m_records.ReadDay(kDay);
    ASSERT_TRUE(day);
    EXPECT_EQ(day->exerciseCount(), 3);
    EXPECT_FALSE(day->exercise(4));
    const std::optional<AerobicExercise> read = day->exercise(3);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->exercise, "Swim");
    EXPECT_EQ(read->start, QDateTime(kDay, QTime(18, 0)));
    EXPECT_EQ(read->end, QDateTime(kDay, QTime(19, 15)));
    EXPECT_EQ(read->elapsedSeconds, 12);
    EXPECT_EQ(read->minutes[4], 7);

    ASSERT_TRUE(m_records.SaveExercise(kDay, 2, AerobicExercise()));
    EXPECT_EQ(m_records.ReadDay(kDay)->exerciseCount(), 3);
}

TEST_F(AerobicRecordsTest, RefusesAnExerciseNumberOutsideOneToThreeAndAMissingDay) {
    EXPECT_FALSE(m_records.SaveExercise(kDay, 0, AerobicExercise()));
    EXPECT_FALSE(m_records.SaveExercise(kDay, 4, AerobicExercise()));
    EXPECT_FALSE(m_records.SaveExercise(kDay.addDays(1), 1, AerobicExercise()));
    EXPECT_FALSE(m_records.ReadDay(kDay.addDays(1)));
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error finding number of exercises", "Error finding number of exercises",
                                            "Record not found error", "Error accessing Aerobic"}));
    EXPECT_EQ(m_stored.props(kAerobic, kDay), "64:64");
    EXPECT_EQ(m_stored.recordCount(kAerobic), 2);
}

TEST_F(AerobicRecordsTest, DeletingAnExerciseMovesTheLaterOnesDownAsStoredAndEmptiesTheLastSlot) {
    // Three exercises of different values.
    for (int slot = 1; slot <= 3; ++slot) {
        AerobicExercise exercise = exerciseAt(QTime(6 + slot, 5), QTime(7 + slot, 0), QString("Run %1").arg(slot));
        exercise.distance = 2.5 * slot;
        exercise.minutes[19] = slot + 4;
        ASSERT_TRUE(m_records.SaveExercise(kDay, slot, exercise));
    }
    ASSERT_TRUE(m_records.DeleteExercise(kDay, 2));
    // Exercise 3 now stands in slot 2, every value as it was; slot 3 keeps nothing; slot 1 unchanged.
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 801, kText), "Run 3");
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 822, 5).toDouble(), 7.5);
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 821, kI2), 7);
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 1136, kI2), 9);
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 1140, kI2), 55);
    EXPECT_EQ(m_stored.propCount(kAerobic, kDay, 901, 924), 0);
    EXPECT_EQ(m_stored.props(kAerobic, kDay, 1134, 1145), "1134:2,1136:2,1138:2,1140:2,1142:31,1144:18");
    EXPECT_EQ(m_stored.value(kAerobic, kDay, 701, kText), "Run 1");

    // Deleting the last exercise of the day leaves the key alone; a slot outside 1-3 writes nothing.
    ASSERT_TRUE(m_records.DeleteExercise(kDay, 2));
    ASSERT_TRUE(m_records.DeleteExercise(kDay, 1));
    EXPECT_EQ(m_stored.props(kAerobic, kDay), "64:64");
    EXPECT_FALSE(m_records.DeleteExercise(kDay, 4));
    EXPECT_FALSE(m_records.DeleteExercise(kDay.addDays(1), 1));
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error finding number of exercises", "Record not found error"}));
}
