#include "TimeConversion.h"

#include <QDate>

#include <gtest/gtest.h>

#include <cstdint>

namespace {
constexpr std::uint64_t kTicksPerDay = 864'000'000'000ull;

SYSTEMTIME systemTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0) {
    SYSTEMTIME st;
    st.wYear = static_cast<WORD>(year);
    st.wMonth = static_cast<WORD>(month);
    st.wDay = static_cast<WORD>(day);
    st.wHour = static_cast<WORD>(hour);
    st.wMinute = static_cast<WORD>(minute);
    st.wSecond = static_cast<WORD>(second);
    st.wMilliseconds = static_cast<WORD>(ms);
    return st;
}

std::uint64_t ticksOf(const SYSTEMTIME& st) {
    FILETIME ft{0xDEADBEEF, 0xDEADBEEF};
    EXPECT_TRUE(SystemTimeToFileTime(&st, &ft)) << st.wYear << "-" << st.wMonth << "-" << st.wDay;
    return fileTimeTicks(ft);
}

SYSTEMTIME fromTicks(std::uint64_t ticks) {
    const FILETIME ft = fileTimeFromTicks(ticks);
    SYSTEMTIME st;
    EXPECT_TRUE(FileTimeToSystemTime(&ft, &st));
    return st;
}
} // namespace

TEST(TimeConversion, KnownInstantsGiveTheirCounts) {
    EXPECT_EQ(ticksOf(systemTime(1601, 1, 1)), 0u);
    EXPECT_EQ(ticksOf(systemTime(1970, 1, 1)), 116444736000000000ull);
    EXPECT_EQ(ticksOf(systemTime(2003, 3, 7, 12, 12, 12, 12)), 126915127320120000ull);
    EXPECT_EQ(ticksOf(systemTime(1968, 11, 29, 12, 12, 12, 12)), 116101303320120000ull);
    EXPECT_EQ(ticksOf(systemTime(2000, 2, 29)), 125962560000000000ull);
    EXPECT_EQ(ticksOf(systemTime(2100, 3, 1)), 157520160000000000ull);
    EXPECT_EQ(ticksOf(systemTime(1601, 1, 1, 23, 59, 59, 999)), kTicksPerDay - 10'000);
}

TEST(TimeConversion, DayOfWeekIsIgnoredOnInputAndFilledOnOutput) {
    SYSTEMTIME monday = systemTime(2003, 3, 7, 12, 12, 12, 12);
    monday.wDayOfWeek = 1;
    SYSTEMTIME nonsense = monday;
    nonsense.wDayOfWeek = 999;
    EXPECT_EQ(ticksOf(monday), ticksOf(nonsense));

    const SYSTEMTIME back = fromTicks(126915127320120000ull);
    EXPECT_EQ(back, (SYSTEMTIME{2003, 3, 5, 7, 12, 12, 12, 12})); // a Friday
    EXPECT_EQ(fromTicks(0), (SYSTEMTIME{1601, 1, 1, 1, 0, 0, 0, 0})); // a Monday
    EXPECT_EQ(fromTicks(116101303320120000ull).wDayOfWeek, 5);      // 29 November 1968, a Friday
}

// Every day from 1899 to 2101 against QDate's own calendar: the count, the way back and the weekday.
TEST(TimeConversion, RoundTripsEveryDayAcrossCenturyAndLeapYears) {
    const qint64 epoch = QDate(1601, 1, 1).toJulianDay();
    for (QDate day(1899, 12, 25); day <= QDate(2101, 1, 5); day = day.addDays(1)) {
        const SYSTEMTIME st = systemTime(day.year(), day.month(), day.day(), 23, 59, 58, 987);
        const std::uint64_t expected =
            static_cast<std::uint64_t>(day.toJulianDay() - epoch) * kTicksPerDay + 86'398'987ull * 10'000;
        ASSERT_EQ(ticksOf(st), expected) << day.toString(Qt::ISODate).toStdString();
        SYSTEMTIME withWeekday = st;
        withWeekday.wDayOfWeek = static_cast<WORD>(day.dayOfWeek() % 7);
        ASSERT_EQ(fromTicks(expected), withWeekday) << day.toString(Qt::ISODate).toStdString();
    }
}

TEST(TimeConversion, RefusesDatesAndTimesThatDoNotExist) {
    const SYSTEMTIME invalid[] = {
        systemTime(1900, 2, 29), systemTime(2100, 2, 29),        systemTime(2001, 2, 29),
        systemTime(2000, 2, 30), systemTime(2003, 4, 31),        systemTime(2003, 0, 1),
        systemTime(2003, 13, 1), systemTime(2003, 1, 0),         systemTime(2003, 1, 32),
        systemTime(1600, 12, 31, 23, 59, 59, 999),               systemTime(30828, 1, 1),
        systemTime(2003, 3, 7, 24), systemTime(2003, 3, 7, 0, 60), systemTime(2003, 3, 7, 0, 0, 60),
        systemTime(2003, 3, 7, 0, 0, 0, 1000),
    };
    for (const SYSTEMTIME& st : invalid) {
        SetLastError(0);
        FILETIME ft{7, 7};
        EXPECT_EQ(SystemTimeToFileTime(&st, &ft), FALSE) << st.wYear << "-" << st.wMonth << "-" << st.wDay;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    EXPECT_EQ(ticksOf(systemTime(2000, 2, 29)) + kTicksPerDay, ticksOf(systemTime(2000, 3, 1)));
    EXPECT_EQ(ticksOf(systemTime(1900, 2, 28)) + kTicksPerDay, ticksOf(systemTime(1900, 3, 1)));
}

TEST(TimeConversion, FileTimeLimitsAndSubMillisecondTicks) {
    EXPECT_EQ(fromTicks(0x7FFFFFFFFFFFFFFFull), (SYSTEMTIME{30828, 9, 4, 14, 2, 48, 5, 477}));
    EXPECT_EQ(fromTicks(9'999).wMilliseconds, 0);
    EXPECT_EQ(fromTicks(10'000).wMilliseconds, 1);

    const FILETIME tooLate = fileTimeFromTicks(0x8000000000000000ull);
    SYSTEMTIME st;
    SetLastError(0);
    EXPECT_EQ(FileTimeToSystemTime(&tooLate, &st), FALSE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}
