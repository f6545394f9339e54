#include "NameList.h"
#include "RecordDatabase.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

TEST(NameList, IsCreatedWithItsDefaultsOnceListedInTextOrderAndChangedByExactText) {
    TestDevice device;
    const NameList list(QStringLiteral("KovChestList"));
    EXPECT_FALSE(list.exists());
    ASSERT_TRUE(list.ensureExists({"Dumbbell Flyes", "Barbell Bench Press", "Incline Dumbbell Press"}));
    // A second call finds the list and adds nothing. The list is a database of type 12345 sorted on the item.
    ASSERT_TRUE(list.ensureExists({"Dumbbell Flyes"}));
    EXPECT_EQ(SqlReader(device.paths().objectStore()).value("SELECT type || ' ' || sort_propid FROM databases"),
              "12345 52494367");
    EXPECT_EQ(list.items(), QStringList({"Barbell Bench Press", "Dumbbell Flyes", "Incline Dumbbell Press"}));

    EXPECT_EQ(list.add("Lake loop"), NameList::AddResult::Added);
    EXPECT_EQ(list.add("Lake loop"), NameList::AddResult::AlreadyThere);
    EXPECT_EQ(list.add("lake loop"), NameList::AddResult::Added);
    EXPECT_FALSE(list.remove("dumbbell flyes"));
    EXPECT_TRUE(list.remove("Dumbbell Flyes"));
    // Upper case sorts before lower case.
    EXPECT_EQ(list.items(), QStringList({"Barbell Bench Press", "Incline Dumbbell Press", "Lake loop", "lake loop"}));
}

TEST(NameList, AMissingListCannotBeReadOrChanged) {
    TestDevice device;
    const NameList list(QStringLiteral("KovVegList"));
    EXPECT_EQ(list.items(), std::nullopt);
    EXPECT_EQ(list.add("Peas"), NameList::AddResult::Failed);
    EXPECT_FALSE(list.remove("Peas"));
    EXPECT_FALSE(RecordDatabase::Exists(QStringLiteral("KovVegList")));
}
