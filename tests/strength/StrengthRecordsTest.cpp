#include "StrengthRecords.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include "Clock.h"
#include "ScriptedMessageBoxes.h"

#include <gtest/gtest.h>

namespace {
const QString kA = QStringLiteral("Kov2AUpperBodyAnn");
const QString kB = QStringLiteral("Kov2BUpperBodyAnn");
const QDate kDay(2024, 3, 9);
constexpr int kI2 = 2, kR8 = 5, kText = 31;

MuscleGroup upper(int index) {
    return MuscleGroup(BodyRegion::Upper, index);
}

class StrengthRecordsTest : public ::testing::Test {
protected:
    void SetUp() override { Clock::setFixed(QDateTime(QDate(2024, 3, 5), QTime(7, 41, 30))); }
    void TearDown() override { Clock::setFixed(std::nullopt); }

    TestDevice m_device;
    ScriptedMessageBoxes m_boxes;
    StrengthRecords m_records{kA, kB};
    StoredDays m_stored{m_device.paths().objectStore()};
};
} // namespace

TEST_F(StrengthRecordsTest, NewDatabasesHoldTheMarkerAndAFirstVisitAddsTheDayRecords) {
    ASSERT_TRUE(m_records.EnsureDatabases());
    ASSERT_TRUE(m_records.EnsureDatabases());
    const QDate reference(1968, 11, 29);
    for (const QString& db : {kA, kB}) {
        EXPECT_EQ(m_stored.recordCount(db), 1);
        EXPECT_EQ(m_stored.propCount(db, reference), 1) << db.toStdString();
    }

    ASSERT_TRUE(m_records.EnsureDay(kDay));
    ASSERT_TRUE(m_records.EnsureDay(kDay));
    EXPECT_EQ(m_stored.recordCount(kA), 2);
    EXPECT_EQ(m_stored.recordCount(kB), 2);
    // The store is read by the day's key, so a record found at all holds the right one.
    EXPECT_EQ(m_stored.props(kA, kDay), "64:64,102:2,103:2,104:2,105:18,1132:31");
    EXPECT_EQ(m_stored.value(kA, kDay, 103, kI2).toLongLong(), 41);
    EXPECT_EQ(m_stored.value(kA, kDay, 1132, kText).toString(), "<Click to add Notes>");
    EXPECT_EQ(m_stored.propCount(kB, kDay), 1);
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(StrengthRecordsTest, AHeaderReadsBackWithItsEndAfterTheStartAndWrapsAWholeDay) {
    ASSERT_TRUE(m_records.LoadDay(kDay));
    WorkoutHeader header;
    header.start = QDateTime(kDay, QTime(10, 30));
    header.end = QDateTime(kDay, QTime(9, 15));
    header.elapsed = QTime(1, 15, 42);
    header.completed = 1;
    ASSERT_TRUE(m_records.WriteHeader(kDay, header));
    // Which id holds which field is the strength page's own test; read back, the end follows the elapsed time.
    const std::optional<StrengthDay> read = m_records.ReadDay(kDay);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->header().start, QDateTime(kDay, QTime(10, 30)));
    EXPECT_EQ(read->header().end, QDateTime(kDay, QTime(11, 45)));
    EXPECT_EQ(read->header().elapsed, QTime(1, 15, 42));
    EXPECT_EQ(read->header().completed, 1);
    EXPECT_EQ(WorkoutHeader::endAfter(QDateTime(kDay, QTime(22, 0)), QTime(2, 30, 5)),
              QDateTime(kDay.addDays(1), QTime(0, 30, 5)));
}

// How a day's sets read in the list (in number order across both records, a slot without an exercise
// left out, the weight and intensity texts) is the strength page's list test.
TEST_F(StrengthRecordsTest, ADayWhoseARecordHasNoSetsListsThoseOfItsBRecordWithTheGroupCounters) {
    ASSERT_TRUE(m_records.LoadDay(kDay));
    GroupSets back;
    back.at(0) = {"One Arm Rows", "8", 30, "2", 8};
    back.at(1) = {"Dumbbell Pullovers", "", 20, "", 5};
    GroupSets misc;
    misc.at(11) = {"Shrugs", "15", 40, "1", 4};
    ASSERT_TRUE(m_records.WriteGroup(kDay, upper(2), back));
    ASSERT_TRUE(m_records.WriteGroup(kDay, upper(5), misc));

    const std::optional<StrengthDay> day = m_records.ReadDay(kDay);
    ASSERT_TRUE(day);
    ASSERT_EQ(day->sets().size(), 3u);
    EXPECT_EQ(day->sets()[0].number, 306);
    EXPECT_EQ(day->sets()[2].number, 661);
    EXPECT_EQ(day->countsText(), "1=0,2=0,3=2,4=0,5=0,6=1");
    EXPECT_EQ(day->groupOfRow(2), 5);
    EXPECT_EQ(day->groupOfRow(3), std::nullopt);
}

TEST_F(StrengthRecordsTest, TheCountersTurnRowsIntoGroupsAtEveryBoundary) {
    // For each pair of neighbouring groups: the first full of twelve sets and the next with its first
    // set; then that first set alone beside the first set of the group after it (206 beside 306).
    GroupSets full;
    GroupSets first;
    for (int k = 0; k < GroupSets::kRows; ++k) {
        full.at(k) = {QStringLiteral("Set %1").arg(k + 1), "10", 20, "1", 5};
    }
    first.at(0) = {"First", "8", 30, "2", 6};
    for (int g = 0; g + 1 < MuscleGroup::kGroupsPerRegion; ++g) {
        const QDate fullDay = kDay.addDays(10 * g);
        ASSERT_TRUE(m_records.LoadDay(fullDay));
        ASSERT_TRUE(m_records.WriteGroup(fullDay, upper(g), full));
        ASSERT_TRUE(m_records.WriteGroup(fullDay, upper(g + 1), first));
        const std::optional<StrengthDay> day = m_records.ReadDay(fullDay);
        ASSERT_TRUE(day);
        for (int group = 0; group < MuscleGroup::kGroupsPerRegion; ++group) {
            EXPECT_EQ(day->groupCount(group), group == g ? 12 : group == g + 1 ? 1 : 0) << g << "/" << group;
        }
        EXPECT_EQ(day->groupOfRow(11), g);
        EXPECT_EQ(day->groupOfRow(12), g + 1);

        if (g + 2 < MuscleGroup::kGroupsPerRegion) {
            const QDate firstsDay = fullDay.addDays(1);
            ASSERT_TRUE(m_records.LoadDay(firstsDay));
            ASSERT_TRUE(m_records.WriteGroup(firstsDay, upper(g + 1), first));
            ASSERT_TRUE(m_records.WriteGroup(firstsDay, upper(g + 2), first));
            const std::optional<StrengthDay> firsts = m_records.ReadDay(firstsDay);
            ASSERT_TRUE(firsts);
            EXPECT_EQ(firsts->groupOfRow(0), g + 1) << g;
            EXPECT_EQ(firsts->groupOfRow(1), g + 2) << g;
            EXPECT_EQ(firsts->groupCount(g), 0) << g;
        }
    }
}

TEST_F(StrengthRecordsTest, WritesAllSixtyPropertiesOfAGroupAndClearsExactlyThem) {
    ASSERT_TRUE(m_records.LoadDay(kDay));
    GroupSets chest;
    chest.at(0) = {"Dumbbell Flyes", "10", 25, "2", 6};
    chest.at(2) = {"Barbell Bench Press", "8", 80, "3", 9};
    ASSERT_TRUE(m_records.WriteGroup(kDay, upper(0), chest));
    GroupSets shoulders;
    shoulders.at(0) = {"Side Raises", "12", 10, "1", 5};
    ASSERT_TRUE(m_records.WriteGroup(kDay, upper(1), shoulders));
    EXPECT_EQ(m_stored.propCount(kA, kDay), 6 + 120);

    // Row 3 cleared and saved again: its five properties stay, as blanks.
    chest.clearRow(2);
    ASSERT_TRUE(m_records.WriteGroup(kDay, upper(0), chest));
    EXPECT_EQ(m_stored.propCount(kA, kDay, 106, 165), 60);
    EXPECT_EQ(m_stored.value(kA, kDay, 116, kText).toString(), "");
    EXPECT_EQ(m_stored.value(kA, kDay, 117, kText).toString(), "");
    EXPECT_EQ(m_stored.value(kA, kDay, 118, kR8).toDouble(), 0.0);
    EXPECT_EQ(m_stored.value(kA, kDay, 119, kText).toString(), "");
    EXPECT_EQ(m_stored.value(kA, kDay, 120, kI2).toLongLong(), 0);
    EXPECT_EQ(m_stored.value(kA, kDay, 108, kR8).toDouble(), 25.0);
    EXPECT_EQ(m_stored.value(kA, kDay, 110, kI2).toLongLong(), 6);

    ASSERT_TRUE(m_records.ClearGroup(kDay, upper(0)));
    EXPECT_EQ(m_stored.propCount(kA, kDay), 6 + 60);
    EXPECT_EQ(m_stored.propCount(kA, kDay, 206, 265), 60);
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(StrengthRecordsTest, EachOperationOnAMissingDayShowsItsTextAndWritesNothing) {
    ASSERT_TRUE(m_records.EnsureDatabases());
    EXPECT_FALSE(m_records.ReadDay(kDay));
    EXPECT_FALSE(m_records.WriteHeader(kDay, WorkoutHeader()));
    EXPECT_FALSE(m_records.WriteGroup(kDay, upper(0), GroupSets()));
    EXPECT_FALSE(m_records.WriteGroup(kDay, upper(3), GroupSets()));
    EXPECT_FALSE(m_records.ClearGroup(kDay, upper(2)));
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error accessing database", "Database access error", "Record not found",
                                            "Record not found", "Error accessing database"}));
    EXPECT_EQ(m_stored.recordCount(kA), 1);
    EXPECT_EQ(m_stored.recordCount(kB), 1);
}
