#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "RecordDatabase.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

TEST(DatabaseCatalogue, NamesAUsersDatabasesAfterTheUser) {
    const auto names = DatabaseCatalogue::userDatabaseNames(QStringLiteral("Ann"));
    EXPECT_EQ(QStringList(names.begin(), names.end()),
              QStringList({"Kov2AUpperBodyAnn", "Kov2BUpperBodyAnn", "Kov2ALowerBodyAnn", "Kov2BLowerBodyAnn",
                           "Kov2AerobicAnn", "Kov2FoodAnn"}));
}

TEST(DatabaseCatalogue, DefaultAndTheEmptyNameShareTheBareNames) {
    EXPECT_EQ(DatabaseCatalogue::userDatabaseNames(QStringLiteral("Default")),
              DatabaseCatalogue::userDatabaseNames(QString()));
    EXPECT_EQ(DatabaseCatalogue::userDatabaseName(UserDatabase::Food, QStringLiteral("Default")), "Kov2Food");
    // Names are case-sensitive: "default" is a user of its own.
    EXPECT_EQ(DatabaseCatalogue::userDatabaseName(UserDatabase::Food, QStringLiteral("default")), "Kov2Fooddefault");
}

TEST(DatabaseCatalogue, CreatesMissingDatabasesOnceAndDeletesOnlyWhatExists) {
    TestDevice device;
    const QString name = DatabaseCatalogue::userDatabaseName(UserDatabase::Aerobic, QStringLiteral("Bob"));
    EXPECT_TRUE(DatabaseCatalogue::ensureExists(name, DayKey::kPropId));
    {
        RecordDatabase db;
        ASSERT_TRUE(db.Open(name, DayKey::kPropId));
        db.Write([] { DbRecord r; r.append(DayKey::prop(QDate(2020, 5, 5))); return r; }(), 0);
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
    }
    for (const QString& list : DatabaseCatalogue::nameLists()) {
        EXPECT_TRUE(RecordDatabase::Exists(list)) << list.toStdString();
    }
    for (const QString& name : DatabaseCatalogue::userDatabaseNames(QStringLiteral("ann"))) {
        EXPECT_TRUE(RecordDatabase::Exists(name)) << name.toStdString();
    }
}
