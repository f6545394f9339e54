#include "DayKey.h"

#include <gtest/gtest.h>

TEST(DayKey, IsTheDayAtTwelveTwelveTwelveAsAFileTimeInProperty64) {
    EXPECT_EQ(fileTimeTicks(DayKey::of(QDate(2003, 3, 7))), 126915127320120000ull);
    EXPECT_EQ(fileTimeTicks(DayKey::referenceDay()), 116101303320120000ull);
    EXPECT_EQ(fileTimeTicks(DayKey::of(QDate(2003, 3, 8))), 126915127320120000ull + 864000000000ull);
    EXPECT_EQ(fileTimeTicks(DayKey::of(QDate())), 0u);
    const DbProp prop = DayKey::prop(QDate(2003, 3, 7));
    EXPECT_EQ(prop.id(), 0x00400040u);
    EXPECT_EQ(fileTimeTicks(prop.toFileTime()), 126915127320120000ull);
    for (const QDate day : {QDate(1968, 11, 29), QDate(2000, 2, 29), QDate(2026, 12, 31)}) {
        EXPECT_EQ(DayKey::dateOf(DayKey::of(day)), day);
    }
}

TEST(DayKey, TimesOfDayLieOnTheReferenceDay) {
    // 14:30:12.012 is 2 hours 18 minutes after the reference day's 12:12:12.012.
    EXPECT_EQ(fileTimeTicks(DayKey::referenceTime(14, 30)), 116101303320120000ull + 8280ull * 10000000ull);
    EXPECT_EQ(fileTimeTicks(DayKey::referenceTime(12, 12)), 116101303320120000ull);
    EXPECT_EQ(DayKey::timeOf(DayKey::referenceTime(0, 5)), QTime(0, 5));
    EXPECT_EQ(DayKey::dateOf(DayKey::referenceTime(23, 59)), DayKey::referenceDate());
}
