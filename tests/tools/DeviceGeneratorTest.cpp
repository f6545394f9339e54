#include "DeviceGenerator.h"
#include "StoredDays.h"

#include "CeDatabase.h"
#include "DevicePaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
DeviceGenerator::Options twoUsersOneYear(const QString& device) {
    DeviceGenerator::Options options;
    options.device = device;
    options.users = 2;
    options.years = 1;
    options.end = QDate(2024, 3, 14);
    options.seed = 7;
    return options;
}
} // namespace

TEST(DeviceGenerator, FillsEveryDayOfEveryLogWithTheRecordLayouts) {
    QTemporaryDir dir;
    DeviceGenerator generator(twoUsersOneYear(dir.path()));
    ASSERT_TRUE(generator.generate()) << generator.errorText().toStdString();
    EXPECT_EQ(generator.lastDay(), QDate(2024, 3, 14));
    EXPECT_EQ(generator.firstDay(), QDate(2023, 3, 15));

    const StoredDays days(DevicePaths(dir.path()).objectStore());
    for (const QString& log : DatabaseCatalogue::userDatabaseNames(QStringLiteral("Ann"))) {
        // One record a day, and the marker of the reference day first.
        EXPECT_EQ(days.recordCount(log), generator.dayCount() + 1) << log.toStdString();
    }
    // Each property stored as its type's SQLite type (integer, text, real), read back as qint64,
    // QString, double.
    const QDate day(2024, 1, 2);
    const QString upperA = QStringLiteral("Kov2AUpperBodyAnn");
    EXPECT_EQ(days.value(upperA, day, 105, CEVT_UI2).typeId(), QMetaType::LongLong);
    EXPECT_EQ(days.value(upperA, day, 1132, CEVT_LPWSTR).typeId(), QMetaType::QString);
    EXPECT_EQ(days.value(upperA, day, 108, CEVT_R8).typeId(), QMetaType::Double); // set 1's weight
    EXPECT_FALSE(days.value(upperA, day, 306, CEVT_LPWSTR).isValid());            // group 2 lives in B
    EXPECT_EQ(days.value("Kov2BUpperBodyAnn", day, 306, CEVT_LPWSTR).typeId(), QMetaType::QString);
}
