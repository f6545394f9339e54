#include "TimeConversion.h"

#include <QDate>

#include <gtest/gtest.h>

namespace {
constexpr std::uint64_t kTicksPerDay = 864'000'000'000ull;

std::uint64_t ticksOf(SYSTEMTIME st) {
    FILETIME ft;
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

// SYSTEMTIME fields: year, month, day of week, day, hour, minute, second, millisecond.
TEST(TimeConversion, KnownInstantsAndWeekdays) {
    // The days between are checked against QDate below, and the day key's 12:12:12.012 in the store.
    EXPECT_EQ(ticksOf({1601, 1, 0, 1}), 0u);

    EXPECT_EQ(fromTicks(0), (SYSTEMTIME{1601, 1, 1, 1, 0, 0, 0, 0})); // a Monday
    EXPECT_EQ(fromTicks(0x7FFFFFFFFFFFFFFFull), (SYSTEMTIME{30828, 9, 4, 14, 2, 48, 5, 477}));
    EXPECT_EQ(fromTicks(9'999).wMilliseconds, 0);
}

// Every day from 1899 to 2101 against QDate's own calendar: the count, the way back and the weekday.
TEST(TimeConversion, RoundTripsEveryDayAcrossCenturyAndLeapYears) {
    const qint64 epoch = QDate(1601, 1, 1).toJulianDay();
    for (QDate day(1899, 12, 25); day <= QDate(2101, 1, 5); day = day.addDays(1)) {
        const auto field = [](int value) { return static_cast<WORD>(value); };
        const SYSTEMTIME st{
            field(day.year()), field(day.month()), field(day.dayOfWeek() % 7), field(day.day()), 23, 59, 58, 987};
        const std::uint64_t expected =
            static_cast<std::uint64_t>(day.toJulianDay() - epoch) * kTicksPerDay + 86'398'987ull * 10'000;
        ASSERT_EQ(ticksOf(st), expected) << day.toString(Qt::ISODate).toStdString();
        ASSERT_EQ(fromTicks(expected), st) << day.toString(Qt::ISODate).toStdString();
    }
}

TEST(TimeConversion, RefusesWhatDoesNotExist) {
    const SYSTEMTIME invalid[] = {{1900, 2, 0, 29},
                                  {2100, 2, 0, 29},
                                  {2001, 2, 0, 29},
                                  {2000, 2, 0, 30},
                                  {2003, 4, 0, 31},
                                  {2003, 0, 0, 1},
                                  {2003, 13, 0, 1},
                                  {2003, 1, 0, 0},
                                  {1600, 12, 0, 31, 23, 59, 59, 999},
                                  {30828, 1, 0, 1},
                                  {2003, 3, 0, 7, 24},
                                  {2003, 3, 0, 7, 0, 60},
                                  {2003, 3, 0, 7, 0, 0, 60},
                                  {2003, 3, 0, 7, 0, 0, 0, 1000}};
    for (const SYSTEMTIME& st : invalid) {
        SetLastError(0);
        FILETIME ft;
        EXPECT_EQ(SystemTimeToFileTime(&st, &ft), FALSE) << st.wYear << "-" << st.wMonth << "-" << st.wDay;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    const FILETIME tooLate = fileTimeFromTicks(0x8000000000000000ull);
    SYSTEMTIME st;
    SetLastError(0);
    EXPECT_EQ(FileTimeToSystemTime(&tooLate, &st), FALSE);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}
