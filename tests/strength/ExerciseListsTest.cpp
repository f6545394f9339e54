#include "ExerciseLists.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
// The items of a list in the order their records were added, joined by "|".
QString itemsInAddedOrder(const SqlReader& sql, const QString& list) {
    return sql
        .value("SELECT group_concat(value, '|') FROM (SELECT p.value FROM records r JOIN databases d ON r.db = d.oid "
               "JOIN props p ON p.record = r.oid AND p.propid = 52494367 WHERE d.name = ? ORDER BY r.oid)",
               {list})
        .toString();
}
} // namespace

TEST(ExerciseLists, EachGroupHasItsListWithItsDefaultsAddedOnceInOrder) {
    TestDevice device;
    const auto chest = *MuscleGroup::fromCode(1101);
    ASSERT_EQ(ExerciseLists::load(chest),
              QStringList({"Barbell Bench Press", "Dumbbell Bench Press", "Dumbbell Flyes", "Incline Dumbbell Press"}));
    SqlReader sql(device.paths().objectStore());
    EXPECT_EQ(itemsInAddedOrder(sql, "KovChestList"),
              "Dumbbell Bench Press|Incline Dumbbell Press|Dumbbell Flyes|Barbell Bench Press");

    const auto abs = *MuscleGroup::fromCode(1204);
    ASSERT_TRUE(ExerciseLists::load(abs));
    EXPECT_EQ(itemsInAddedOrder(sql, "KovAbsList"),
              "Floor Crunches|Twist Crunches|Decline Sit Ups|Bent Knee Leg Raises");
    for (int code : {1106, 1205, 1206}) {
        EXPECT_EQ(ExerciseLists::load(*MuscleGroup::fromCode(code)), QStringList()) << code;
    }
    EXPECT_EQ(ExerciseLists::databaseNames(),
              QStringList({"KovChestList", "KovShldrList", "KovBackList", "KovTricepsList", "KovBicepsList",
                           "MiscUpperList", "KovQuadsList", "KovHamstringsList", "KovCalvesList", "KovAbsList",
                           "MiscLower1List", "MiscLower2List"}));
    EXPECT_EQ(ExerciseLists::defaults(*MuscleGroup::fromCode(1202)),
              QStringList({"Dumbbell Lunges", "Standing Leg Curls", "Lying Leg Curls", "Straight Leg Deadlifts"}));
}
