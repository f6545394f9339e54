#include "TimeConversion.h"

#include <cstdint>

namespace {
constexpr std::int64_t kTicksPerMillisecond = 10'000;
constexpr std::int64_t kTicksPerSecond = 1000 * kTicksPerMillisecond;
constexpr std::int64_t kTicksPerDay = 86'400 * kTicksPerSecond;
constexpr int kFirstYear = 1601;
constexpr int kLastYear = 30827;

// Days from 1 January 1970 to the given proleptic Gregorian date (Howard Hinnant's days_from_civil).
constexpr std::int64_t daysFromCivil(std::int64_t y, unsigned m, unsigned d) {
    y -= m <= 2 ? 1 : 0;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const auto yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

struct CivilDate {
    std::int64_t year;
    unsigned month;
    unsigned day;
};

// The inverse of daysFromCivil.
constexpr CivilDate civilFromDays(std::int64_t z) {
    z += 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const auto doe = static_cast<unsigned>(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp < 10 ? mp + 3 : mp - 9;
    return {static_cast<std::int64_t>(yoe) + era * 400 + (m <= 2 ? 1 : 0), m, d};
}

// 1 January 1601, the day a FILETIME counts from, was 134774 days before 1 January 1970.
constexpr std::int64_t kEpochDays = daysFromCivil(kFirstYear, 1, 1);
static_assert(kEpochDays == -134774);

constexpr bool isLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

constexpr int daysInMonth(int year, int month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : kDays[month - 1];
}

bool isValid(const SYSTEMTIME& st) {
    if (st.wYear < kFirstYear || st.wYear > kLastYear || st.wMonth < 1 || st.wMonth > 12) {
        return false;
    }
    if (st.wDay < 1 || st.wDay > daysInMonth(st.wYear, st.wMonth)) {
        return false;
    }
    return st.wHour < 24 && st.wMinute < 60 && st.wSecond < 60 && st.wMilliseconds < 1000;
}
} // namespace

BOOL SystemTimeToFileTime(const SYSTEMTIME* st, FILETIME* ft) {
    if (st == nullptr || ft == nullptr || !isValid(*st)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::int64_t days = daysFromCivil(st->wYear, st->wMonth, st->wDay) - kEpochDays;
    const std::int64_t seconds = (st->wHour * 60 + st->wMinute) * 60 + st->wSecond;
    const std::int64_t ticks =
        days * kTicksPerDay + seconds * kTicksPerSecond + st->wMilliseconds * kTicksPerMillisecond;
    *ft = fileTimeFromTicks(static_cast<std::uint64_t>(ticks));
    return TRUE;
}

BOOL FileTimeToSystemTime(const FILETIME* ft, SYSTEMTIME* st) {
    if (ft == nullptr || st == nullptr || fileTimeTicks(*ft) >= 0x8000000000000000ull) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const auto ticks = static_cast<std::int64_t>(fileTimeTicks(*ft));
    const std::int64_t days = ticks / kTicksPerDay;
    const std::int64_t ticksOfDay = ticks % kTicksPerDay;
    const CivilDate date = civilFromDays(days + kEpochDays);
    const std::int64_t seconds = ticksOfDay / kTicksPerSecond;

    st->wYear = static_cast<WORD>(date.year);
    st->wMonth = static_cast<WORD>(date.month);
    st->wDay = static_cast<WORD>(date.day);
    // 1 January 1601 was a Monday (day 1 with Sunday 0).
    st->wDayOfWeek = static_cast<WORD>((days + 1) % 7);
    st->wHour = static_cast<WORD>(seconds / 3600);
    st->wMinute = static_cast<WORD>(seconds / 60 % 60);
    st->wSecond = static_cast<WORD>(seconds % 60);
    st->wMilliseconds = static_cast<WORD>(ticksOfDay % kTicksPerSecond / kTicksPerMillisecond);
    return TRUE;
}
