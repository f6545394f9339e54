#include "SetGridRecords.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include "ScriptedMessageBoxes.h"

#include <gtest/gtest.h>

namespace {
const QString kA = QStringLiteral("Kov2ALowerBody");
const QString kB = QStringLiteral("Kov2BLowerBody");
const QDate kToday(2024, 6, 20);
const MuscleGroup kCalves(BodyRegion::Lower, 2);
const MuscleGroup kQuads(BodyRegion::Lower, 0);

GroupSets rows(std::initializer_list<std::pair<QString, QString>> exercisesAndReps) {
    GroupSets sets;
    int row = 0;
    for (const auto& [exercise, reps] : exercisesAndReps) {
        sets.at(row).exercise = exercise;
        sets.at(row).reps = reps;
        sets.at(row).weight = 10.0 * (row + 1);
        ++row;
    }
    return sets;
}

class SetGridRecordsTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_records.EnsureDatabases()); }

    // Adds the day's records, with group's sets when given.
    void addDay(const QDate& day, const MuscleGroup& group, const GroupSets& sets) {
        ASSERT_TRUE(m_records.EnsureDay(day));
        ASSERT_TRUE(m_records.WriteGroup(day, group, sets));
    }

    TestDevice m_device;
    ScriptedMessageBoxes m_boxes;
    StrengthRecords m_records{kA, kB};
    SetGridRecords m_grid{kA, kB};
    const PullSettings m_pullLast = PullSettings::fromStored(0, 0, 0);
};
} // namespace

TEST_F(SetGridRecordsTest, PullsInTheLastDayTheGroupWasTrainedButNeverOverSetsOfTheDay) {
    addDay(kToday.addDays(-9), kCalves, rows({{"Seated Calf Raises", "20"}}));
    addDay(kToday.addDays(-4), kCalves, rows({{"Standing Calf Raises", "15"}, {"Angled Calf Raise", "12"}}));
    addDay(kToday.addDays(-2), kCalves, GroupSets()); // the group saved empty: not trained that day
    addDay(kToday.addDays(-1), kQuads, rows({{"Leg Press", "10"}}));
    addDay(kToday.addDays(3), kCalves, rows({{"One Leg Calf Raise", "9"}}));
    ASSERT_TRUE(m_records.EnsureDay(kToday));

    const std::optional<GroupSets> pulled = m_grid.open(kToday, kCalves, m_pullLast);
    ASSERT_TRUE(pulled);
    EXPECT_EQ(*pulled, rows({{"Standing Calf Raises", "15"}, {"Angled Calf Raise", "12"}}));
    EXPECT_EQ(m_grid.open(kToday, kCalves, PullSettings::fromStored(1, 0, 0)), GroupSets());
    // Pulling in writes nothing until the grid saves.
    StoredDays stored(m_device.paths().objectStore());
    EXPECT_EQ(stored.propCount(kB, kToday), 1);

    // A day that has the group's sets, or the group saved empty, keeps them.
    EXPECT_EQ(m_grid.open(kToday.addDays(3), kCalves, m_pullLast), rows({{"One Leg Calf Raise", "9"}}));
    EXPECT_EQ(m_grid.open(kToday.addDays(-2), kCalves, m_pullLast), GroupSets());
    // Nothing earlier: empty rows.
    EXPECT_EQ(m_grid.open(kToday.addDays(-9), kCalves, m_pullLast), rows({{"Seated Calf Raises", "20"}}));
    addDay(kToday.addDays(-30), kQuads, GroupSets());
    EXPECT_EQ(m_grid.open(kToday.addDays(-30), kCalves, m_pullLast), GroupSets());
    EXPECT_TRUE(m_boxes.texts().isEmpty());

    EXPECT_FALSE(m_grid.open(kToday.addDays(1), kCalves, m_pullLast));
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error accessing database"}));
}

TEST_F(SetGridRecordsTest, ChangingTheFirstExercisePullsTheLastSetsItLedOrFillsIn) {
    const GroupSets flyesLed = rows({{"Dumbbell Flyes", "12"}, {"Dumbbell Flyes", "10"}, {"Leg Press", "8"}});
    addDay(kToday.addDays(-20), kQuads, rows({{"Dumbbell Flyes", "99"}}));
    addDay(kToday.addDays(-10), kQuads, flyesLed);
    addDay(kToday.addDays(-5), kQuads, rows({{"Leg Press", "6"}, {"Dumbbell Flyes", "6"}}));
    addDay(kToday.addDays(2), kQuads, rows({{"Dumbbell Flyes", "1"}}));
    ASSERT_TRUE(m_records.EnsureDay(kToday));
    const PullSettings pullWt = PullSettings::fromStored(0, 1, 1);

    GroupSets sets = rows({{"Barbell Squats", "5"}});
    sets.at(0).exercise = "Dumbbell Flyes";
    EXPECT_FALSE(
        m_grid.firstExerciseChanged(kToday, kQuads, sets, "Barbell Squats", PullSettings::fromStored(0, 0, 1)));
    EXPECT_TRUE(m_grid.firstExerciseChanged(kToday, kQuads, sets, "Barbell Squats", pullWt));
    EXPECT_EQ(sets, flyesLed);

    // Never done first before: rows 2 to 5 that are empty or held the replaced exercise take it.
    sets = rows({{"Leg Press", "5"},
                 {"Leg Press", "5"},
                 {"Knee Extensions", "8"},
                 {"", ""},
                 {"Leg Press", "5"},
                 {"Leg Press", "5"}});
    sets.at(0).exercise = "Hack Squats";
    GroupSets expected = sets;
    for (int row : {1, 3, 4}) {
        expected.at(row).exercise = "Hack Squats";
    }
    EXPECT_TRUE(m_grid.firstExerciseChanged(kToday, kQuads, sets, "Leg Press", pullWt));
    EXPECT_EQ(sets, expected);
    GroupSets unchanged = expected;
    EXPECT_FALSE(
        m_grid.firstExerciseChanged(kToday, kQuads, unchanged, "Leg Press", PullSettings::fromStored(0, 1, 0)));
    EXPECT_EQ(unchanged, expected);
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}
