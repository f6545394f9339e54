#include "DeviceGenerator.h"
#include "NameList.h"
#include "SqlReader.h"

#include "CeDatabase.h"
#include "DayKey.h"
#include "DevicePaths.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
constexpr qint64 kPropId(int number, int type) {
    return (static_cast<qint64>(number) << 16) | type;
}

DeviceGenerator::Options twoUsersOneYear(const QString& device) {
    DeviceGenerator::Options options;
    options.device = device;
    options.users = 2;
    options.years = 1;
    options.end = QDate(2024, 3, 14);
    options.seed = 7;
    return options;
}

// The SQLite type of one property of the day's record in a log, read with plain SQL ("absent" when missing).
QString stored(const SqlReader& sql, const QString& log, const QDate& day, qint64 propid) {
    const QVariant type = sql.value(
        "SELECT typeof(p.value) FROM props p JOIN records r ON r.oid = p.record JOIN databases d ON d.oid = r.db "
        "WHERE d.name = ? AND r.sort_key = ? AND p.propid = ?",
        {log, static_cast<qint64>(fileTimeTicks(DayKey::of(day))), propid});
    return type.isValid() ? type.toString() : QStringLiteral("absent");
}
} // namespace

TEST(DeviceGenerator, FillsEveryDayOfEveryLogWithTheRecordLayouts) {
    QTemporaryDir dir;
    DeviceGenerator generator(twoUsersOneYear(dir.path()));
    ASSERT_TRUE(generator.generate()) << generator.errorText().toStdString();
    EXPECT_EQ(generator.lastDay(), QDate(2024, 3, 14));
    EXPECT_EQ(generator.firstDay(), QDate(2023, 3, 15));

    const SqlReader sql(DevicePaths(dir.path()).objectStore());
    for (const QString& log : DatabaseCatalogue::userDatabaseNames(QStringLiteral("Ann"))) {
        // One record a day, and the marker of the reference day first.
        EXPECT_EQ(sql.value("SELECT count(*) FROM records r JOIN databases d ON d.oid = r.db WHERE d.name = ?", {log})
                      .toLongLong(),
                  generator.dayCount() + 1)
            << log.toStdString();
    }
    const QDate day(2024, 1, 2);
    const QString upperA = QStringLiteral("Kov2AUpperBodyAnn");
    EXPECT_EQ(stored(sql, upperA, day, kPropId(105, CEVT_UI2)), "integer");
    EXPECT_EQ(stored(sql, upperA, day, kPropId(1132, CEVT_LPWSTR)), "text");
    EXPECT_EQ(stored(sql, upperA, day, kPropId(108, CEVT_R8)), "real");       // set 1's weight
    EXPECT_EQ(stored(sql, upperA, day, kPropId(306, CEVT_LPWSTR)), "absent"); // group 2 lives in B
    EXPECT_EQ(stored(sql, "Kov2BUpperBodyAnn", day, kPropId(306, CEVT_LPWSTR)), "text");
}

TEST(DeviceGenerator, OneSeedGivesOneDeviceAndListsItsUsers) {
    QTemporaryDir first;
    QTemporaryDir second;
    DeviceGenerator a(twoUsersOneYear(first.path()));
    DeviceGenerator b(twoUsersOneYear(second.path()));
    ASSERT_TRUE(a.generate());
    ASSERT_TRUE(b.generate());
    const QString sum =
        QStringLiteral("SELECT total(length(CAST(value AS BLOB))) + total(propid) + count(*) FROM props");
    EXPECT_EQ(SqlReader(DevicePaths(first.path()).objectStore()).value(sum),
              SqlReader(DevicePaths(second.path()).objectStore()).value(sum));

    // A device is generated once: a second run on it is refused and changes nothing.
    DeviceGenerator again(twoUsersOneYear(first.path()));
    EXPECT_FALSE(again.generate());

    ASSERT_TRUE(CeMountObjectStore(DevicePaths(first.path()).objectStore()));
    EXPECT_EQ(NameList(QStringLiteral("KovUserList")).items(), QStringList({"<add new user>", "Ann", "Default"}));
    CeUnmountObjectStore();
}
