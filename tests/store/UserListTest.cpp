#include "UserList.h"
#include "RecordDatabase.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
// The user list's rows as stored, in the order they were written.
QString storedRows(const TestDevice& device) {
    return SqlReader(device.paths().objectStore())
        .value("SELECT group_concat(value, '|') FROM (SELECT p.value FROM props p JOIN records r ON p.record = r.oid "
               "JOIN databases d ON r.db = d.oid WHERE d.name = 'KovUserList' AND p.propid = ? ORDER BY r.oid)",
               {qint64(DatabaseCatalogue::kItemPropId)})
        .toString();
}

// The names of the stored databases that start with "Kov2", in name order.
QString storedLogs(const TestDevice& device) {
    return SqlReader(device.paths().objectStore())
        .value("SELECT group_concat(name, '|') FROM (SELECT name FROM databases WHERE name LIKE 'Kov2%' ORDER BY name)")
        .toString();
}
} // namespace

TEST(UserList, IsCreatedWithItsTwoFixedRowsRefilledOnlyWhenFoundEmptyAndListedAsTheListBoxSorts) {
    TestDevice device;
    ASSERT_TRUE(UserList::fill());
    ASSERT_TRUE(UserList::fill());
    EXPECT_EQ(storedRows(device), "<add new user>|Default");
    SqlReader sql(device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT type || ' ' || sort_propid FROM databases WHERE name = 'KovUserList'").toString(),
              QString("12345 %1").arg((801 << 16) | 31));

    // "<add new user>" names no databases that exist: deleting what is missing succeeds.
    ASSERT_EQ(UserList::remove("<add new user>"), UserList::DeleteResult::Deleted);
    ASSERT_EQ(UserList::remove("Default"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(UserList::names(), QStringList({"<add new user>", "Default"}));

    // Found holding rows, even without the fixed ones: nothing is restored.
    for (const char* name : {"bob", "Ann", "ann", "Bob"}) {
        EXPECT_EQ(UserList::add(name), UserList::AddResult::Added) << name;
    }
    EXPECT_EQ(UserList::add("Default"), UserList::AddResult::AlreadyThere);
    EXPECT_EQ(UserList::add("Ann"), UserList::AddResult::AlreadyThere);
    ASSERT_EQ(UserList::remove("<add new user>"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(UserList::names(), QStringList({"Ann", "ann", "Bob", "bob", "Default"}));
    EXPECT_EQ(storedRows(device), "Default|bob|Ann|ann|Bob");
}

TEST(UserList, RefusesNamesThatCannotNameDatabasesBeforeWritingAnything) {
    TestDevice device;
    const QString longest = QStringLiteral("Abcdefghijklmnopq");
    EXPECT_EQ(UserList::refusal(longest + "r"), "A user's name can be at most 17 characters long.");
    for (const char* name :
         {"A\\B", "A/B", "A:B", "A*B", "A?B", "A\"B", "A<B", "A>B", "A|B", "A\tB", "<add new user>"}) {
        EXPECT_EQ(UserList::refusal(name),
                  "A user's name cannot contain any of \\ / : * ? \" < > | or control characters.")
            << name;
        EXPECT_EQ(UserList::add(name), UserList::AddResult::Refused);
    }
    for (const char* name : {" Ann", "Ann ", " "}) {
        EXPECT_EQ(UserList::refusal(name), "A user's name cannot begin or end with a blank.") << name;
    }
    EXPECT_EQ(UserList::refusal(""), "Please type a name for the new user.");
    EXPECT_FALSE(RecordDatabase::Exists(UserList::kDatabaseName));

    // The longest name accepted gives six databases the store takes.
    EXPECT_EQ(UserList::refusal("Mary Ann"), "");
    ASSERT_EQ(UserList::add(longest), UserList::AddResult::Added);
    for (const QString& name : DatabaseCatalogue::userDatabaseNames(longest)) {
        EXPECT_TRUE(DatabaseCatalogue::ensureDatedLog(name)) << name.toStdString();
    }
}

TEST(UserList, DeletingARowDeletesTheSixDatabasesNamedByItsTextAndLeavesOthers) {
    TestDevice device;
    for (const char* user : {"", "Ann", "ann", "Zed"}) {
        for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
            ASSERT_TRUE(DatabaseCatalogue::ensureDatedLog(name));
        }
    }
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::add("ann"), UserList::AddResult::Added);

    ASSERT_EQ(UserList::remove("Ann"), UserList::DeleteResult::Deleted);
    // The row "Default" owns the bare base names.
    ASSERT_EQ(UserList::remove("Default"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(storedLogs(device), "Kov2ALowerBodyZed|Kov2ALowerBodyann|Kov2AUpperBodyZed|Kov2AUpperBodyann|"
                                  "Kov2AerobicZed|Kov2Aerobicann|Kov2BLowerBodyZed|Kov2BLowerBodyann|"
                                  "Kov2BUpperBodyZed|Kov2BUpperBodyann|Kov2FoodZed|Kov2Foodann");
    EXPECT_EQ(storedRows(device), "<add new user>|ann");

    // Databases without a row still go; the missing row is reported.
    EXPECT_EQ(UserList::remove("Zed"), UserList::DeleteResult::RowMissing);
    EXPECT_EQ(storedLogs(device), "Kov2ALowerBodyann|Kov2AUpperBodyann|Kov2Aerobicann|Kov2BLowerBodyann|"
                                  "Kov2BUpperBodyann|Kov2Foodann");
}
