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

// The databases the store holds whose names start with prefix, sorted by name.
QString storedDatabases(const TestDevice& device, const QString& prefix) {
    return SqlReader(device.paths().objectStore())
        .value("SELECT group_concat(name, '|') FROM (SELECT name FROM databases WHERE substr(name, 1, length(?)) = ? "
               "ORDER BY name)",
               {prefix, prefix})
        .toString();
}

void createLogs(const QString& user) {
    for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
        ASSERT_TRUE(DatabaseCatalogue::ensureDatedLog(name)) << name.toStdString();
    }
}
} // namespace

TEST(UserList, IsCreatedWithItsTwoFixedRowsAndRefilledOnlyWhenFoundEmpty) {
    TestDevice device;
    ASSERT_TRUE(UserList::fill());
    EXPECT_EQ(storedRows(device), "<add new user>|Default");
    SqlReader sql(device.paths().objectStore());
    EXPECT_EQ(sql.value("SELECT type FROM databases WHERE name = 'KovUserList'").toLongLong(), 12345);
    EXPECT_EQ(sql.value("SELECT sort_propid FROM databases WHERE name = 'KovUserList'").toLongLong(), (801 << 16) | 31);
    ASSERT_TRUE(UserList::fill());
    EXPECT_EQ(storedRows(device), "<add new user>|Default");

    // Found empty: both rows are written again.
    ASSERT_EQ(UserList::remove("<add new user>"), UserList::DeleteResult::Deleted);
    ASSERT_EQ(UserList::remove("Default"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(storedRows(device), "");
    EXPECT_EQ(UserList::names(), QStringList({"<add new user>", "Default"}));

    // Found holding rows, even without the fixed ones: nothing is restored.
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::remove("<add new user>"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(UserList::names(), QStringList({"Ann", "Default"}));
    EXPECT_EQ(storedRows(device), "Default|Ann");
}

TEST(UserList, ListsNamesAsTheListBoxSortsAndComparesThemCaseSensitively) {
    TestDevice device;
    for (const char* name : {"bob", "Ann", "ann", "Bob"}) {
        EXPECT_EQ(UserList::add(name), UserList::AddResult::Added) << name;
    }
    EXPECT_EQ(UserList::add("Default"), UserList::AddResult::AlreadyThere);
    EXPECT_EQ(UserList::add("Ann"), UserList::AddResult::AlreadyThere);
    EXPECT_EQ(UserList::names(), QStringList({"<add new user>", "Ann", "ann", "Bob", "bob", "Default"}));
}

TEST(UserList, RefusesNamesThatCannotNameDatabasesBeforeWritingAnything) {
    TestDevice device;
    const QString longest = QStringLiteral("Abcdefghijklmnopq");
    ASSERT_EQ(longest.size(), 17);
    EXPECT_EQ(UserList::refusal(longest), "");
    EXPECT_EQ(UserList::refusal(longest + "r"), "A user's name can be at most 17 characters long.");
    const QString badCharacter =
        QStringLiteral("A user's name cannot contain any of \\ / : * ? \" < > | or control characters.");
    for (const char* name :
         {"A\\B", "A/B", "A:B", "A*B", "A?B", "A\"B", "A<B", "A>B", "A|B", "A\tB", "A\nB", "<add new user>"}) {
        EXPECT_EQ(UserList::refusal(name), badCharacter) << name;
        EXPECT_EQ(UserList::add(name), UserList::AddResult::Refused);
    }
    for (const char* name : {" Ann", "Ann ", " "}) {
        EXPECT_EQ(UserList::refusal(name), "A user's name cannot begin or end with a blank.");
    }
    EXPECT_EQ(UserList::refusal(""), "Please type a name for the new user.");
    EXPECT_EQ(UserList::refusal("Mary Ann"), "");
    EXPECT_FALSE(RecordDatabase::Exists(UserList::kDatabaseName));

    // The longest accepted name gives six databases the store takes.
    ASSERT_EQ(UserList::add(longest), UserList::AddResult::Added);
    createLogs(longest);
    EXPECT_EQ(storedDatabases(device, "Kov2ALowerBody"), "Kov2ALowerBody" + longest);
}

TEST(UserList, DeletingARowDeletesTheSixDatabasesNamedByItsTextAndLeavesOthers) {
    TestDevice device;
    for (const char* user : {"", "Ann", "ann"}) {
        createLogs(user);
    }
    ASSERT_EQ(UserList::add("Ann"), UserList::AddResult::Added);
    ASSERT_EQ(UserList::add("ann"), UserList::AddResult::Added);

    ASSERT_EQ(UserList::remove("Ann"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(storedDatabases(device, "Kov2"),
              "Kov2ALowerBody|Kov2ALowerBodyann|Kov2AUpperBody|Kov2AUpperBodyann|Kov2Aerobic|Kov2Aerobicann|"
              "Kov2BLowerBody|Kov2BLowerBodyann|Kov2BUpperBody|Kov2BUpperBodyann|Kov2Food|Kov2Foodann");
    EXPECT_EQ(storedRows(device), "<add new user>|Default|ann");

    // The row "Default" owns the bare base names.
    ASSERT_EQ(UserList::remove("Default"), UserList::DeleteResult::Deleted);
    EXPECT_EQ(storedDatabases(device, "Kov2"),
              "Kov2ALowerBodyann|Kov2AUpperBodyann|Kov2Aerobicann|Kov2BLowerBodyann|Kov2BUpperBodyann|Kov2Foodann");
    EXPECT_EQ(storedRows(device), "<add new user>|ann");

    // Databases without a row still go; the missing row is reported.
    EXPECT_EQ(UserList::remove("ann"), UserList::DeleteResult::Deleted);
    createLogs("Zed");
    EXPECT_EQ(UserList::remove("Zed"), UserList::DeleteResult::RowMissing);
    EXPECT_EQ(storedDatabases(device, "Kov2"), "");
    EXPECT_EQ(storedRows(device), "<add new user>");
}
