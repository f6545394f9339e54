// The names themselves are checked where the main dialog makes a user current (tests/app).

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "RecordDatabase.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

TEST(DatabaseCatalogue, CreatesMissingDatabasesOnceAndDeletesOnlyWhatExists) {
    TestDevice device;
    const QString name = DatabaseCatalogue::userDatabaseName(UserDatabase::Aerobic, QStringLiteral("Bob"));
    EXPECT_TRUE(DatabaseCatalogue::ensureExists(name, DayKey::kPropId));
    {
        RecordDatabase db;
        ASSERT_TRUE(db.Open(name, DayKey::kPropId));
        db.Write(
            [] {
                DbRecord r;
                r.append(DayKey::prop(QDate(2020, 5, 5)));
                return r;
            }(),
            0);
    }
    // A database that exists is left as it is.
    EXPECT_TRUE(DatabaseCatalogue::ensureExists(name, DayKey::kPropId));
    RecordDatabase db;
    ASSERT_TRUE(db.Open(name, DayKey::kPropId));
    EXPECT_EQ(db.recordCount(), 1u);
    db.Close();

    EXPECT_TRUE(DatabaseCatalogue::deleteIfExists(QStringLiteral("Kov2FoodNobody")));
    EXPECT_TRUE(DatabaseCatalogue::deleteIfExists(name));
    EXPECT_FALSE(RecordDatabase::Exists(name));
}

TEST(DatabaseCatalogue, DeletingAUsersDatabasesLeavesTheSharedListsAndOtherUsers) {
    TestDevice device;
    for (const QString& list : DatabaseCatalogue::nameLists()) {
        ASSERT_TRUE(DatabaseCatalogue::ensureExists(list, DatabaseCatalogue::kItemPropId));
    }
    for (const QString& user : {QStringLiteral("Ann"), QStringLiteral("ann")}) {
        for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
            ASSERT_TRUE(DatabaseCatalogue::ensureExists(name, DayKey::kPropId));
        }
    }
    for (const QString& name : DatabaseCatalogue::userDatabaseNames(QStringLiteral("Ann"))) {
        EXPECT_TRUE(DatabaseCatalogue::deleteIfExists(name));
        EXPECT_FALSE(RecordDatabase::Exists(name)) << name.toStdString();
    }
    for (const QString& list : DatabaseCatalogue::nameLists()) {
        EXPECT_TRUE(RecordDatabase::Exists(list)) << list.toStdString();
    }
    for (const QString& name : DatabaseCatalogue::userDatabaseNames(QStringLiteral("ann"))) {
        EXPECT_TRUE(RecordDatabase::Exists(name)) << name.toStdString();
    }
}
