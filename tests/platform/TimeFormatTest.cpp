#include "TimeFormat.h"

#include "Clock.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace {
constexpr DWORD kErrorInvalidFlags = 1004;

QString time(int hour, int minute, int second, const QString& picture, DWORD flags = 0) {
    const SYSTEMTIME st{2003, 3, 5, 7, static_cast<WORD>(hour), static_cast<WORD>(minute), static_cast<WORD>(second)};
    return GetTimeFormatW(flags, &st, picture);
}

QString date(int year, int month, int day, const QString& picture = {}, DWORD flags = 0) {
    // The weekday and the time fields are nonsense on purpose: a date picture ignores them.
    const SYSTEMTIME st{static_cast<WORD>(year), static_cast<WORD>(month), 6, static_cast<WORD>(day), 36};
    return GetDateFormatW(flags, &st, picture);
}

void expectFailure(const QString& result, DWORD error) {
    EXPECT_EQ(result, "");
    EXPECT_EQ(GetLastError(), error);
    SetLastError(0);
}
} // namespace

TEST(TimeFormat, TimePicturesAndQuotes) {
    EXPECT_EQ(time(14, 5, 3, "h hh H HH m mm s ss t tt"), "2 02 14 14 5 05 3 03 P PM");
    EXPECT_EQ(time(8, 56, 13, "hhh:HHH:mmm:sss ttt dMy"), "08:08:56:13 AM dMy");
    EXPECT_EQ(time(8, 56, 13, {}), "8:56:13 AM");
    EXPECT_EQ(time(0, 0, 0, "h/hh/H/HH t"), "12/12/0/00 A");
    EXPECT_EQ(time(12, 0, 0, "h/hh/H/HH t"), "12/12/12/12 P");
    EXPECT_EQ(time(23, 59, 0, "h tt"), "11 PM");

    EXPECT_EQ(time(8, 56, 13, "h 'h' H 'H' m 'm' s 's' t 't' tt 'tt'"), "8 h 8 H 56 m 13 s A t AM tt");
    EXPECT_EQ(time(8, 0, 0, "h 'o''clock'"), "8 o'clock");
    EXPECT_EQ(time(8, 0, 0, "''''"), "'");
    EXPECT_EQ(time(8, 0, 0, "''HH'''HH'"), "08'HH");
    EXPECT_EQ(time(8, 0, 0, "HH 'unclosed"), "08 unclosed");
}

TEST(TimeFormat, FlagsLeaveFieldsOutWithTheirSeparators) {
    EXPECT_EQ(time(8, 56, 13, "h:mm:ss tt", TIME_NOSECONDS), "8:56 AM");
    EXPECT_EQ(time(8, 56, 13, {}, TIME_NOMINUTESORSECONDS), "8 AM");
    EXPECT_EQ(time(8, 56, 13, "h.@:m.@:s.@:tt", TIME_NOSECONDS), "8.@:56AM");
    EXPECT_EQ(time(8, 56, 13, "m1s2m3s4", TIME_NOMINUTESORSECONDS), "");
    EXPECT_EQ(time(13, 5, 9, "hh:mm:ss tt", TIME_NOTIMEMARKER), "01:05:09");
    EXPECT_EQ(time(13, 5, 9, "tt hh:mm", TIME_NOTIMEMARKER), " 01:05"); // spaces stay
    EXPECT_EQ(time(13, 5, 9, "h1t2tt3m", TIME_NOTIMEMARKER), "15");
    EXPECT_EQ(time(13, 5, 9, "'at 'tt", TIME_NOTIMEMARKER), "");
    EXPECT_EQ(time(13, 5, 9, "hh:mm:ss tt", TIME_FORCE24HOURFORMAT), "13:05:09 PM");
}

TEST(TimeFormat, InvalidTimesAndFlagsFail) {
    expectFailure(time(24, 0, 0, "HH:mm"), ERROR_INVALID_PARAMETER);
    expectFailure(time(12, 60, 0, "HH:mm"), ERROR_INVALID_PARAMETER);
    expectFailure(time(12, 0, 60, "HH:mm"), ERROR_INVALID_PARAMETER);
    SYSTEMTIME st{2003, 60, 0, 7, 12, 56, 13, 1000};
    expectFailure(GetTimeFormatW(0, &st, "h:m:s"), ERROR_INVALID_PARAMETER);
    st.wMilliseconds = 999;
    EXPECT_EQ(GetTimeFormatW(0, &st, "h:m:s"), "12:56:13"); // the date does not matter
    expectFailure(GetTimeFormatW(0x10, &st, {}), kErrorInvalidFlags);
}

TEST(TimeFormat, DatePictures) {
    EXPECT_EQ(date(2003, 3, 7, "d dd ddd dddd M MM MMM MMMM y yy yyyy"), "7 07 Fri Friday 3 03 Mar March 3 03 2003");
    EXPECT_EQ(date(2003, 3, 7, "ddddd MMMMM yyyyy yyy"), "Friday March 2003 03");
    EXPECT_EQ(date(2002, 5, 4, "ddd',' MMM dd ''''yy"), "Sat, May 04 '02");
    EXPECT_EQ(date(2003, 3, 7, "d 'de' MMMM, h:mm"), "7 de March, h:mm");

    // Every name, long and short, as Qt's C locale spells it.
    const QLocale c = QLocale::c();
    for (int day = 2; day <= 8; ++day) {
        const int weekday = QDate(2003, 3, day).dayOfWeek();
        EXPECT_EQ(date(2003, 3, day, "dddd/ddd"),
                  c.dayName(weekday, QLocale::LongFormat) + '/' + c.dayName(weekday, QLocale::ShortFormat));
    }
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(date(2003, month, 1, "MMMM/MMM"),
                  c.monthName(month, QLocale::LongFormat) + '/' + c.monthName(month, QLocale::ShortFormat));
    }
}

TEST(TimeFormat, DateFlagsAndFailures) {
    EXPECT_EQ(date(2003, 3, 7), "3/7/03");
    EXPECT_EQ(date(2003, 3, 7, {}, DATE_SHORTDATE), "3/7/03");
    EXPECT_EQ(date(2003, 3, 7, {}, DATE_LONGDATE), "Friday, March 07, 2003");
    EXPECT_EQ(date(2000, 2, 29, {}, DATE_LONGDATE), "Tuesday, February 29, 2000");

    expectFailure(date(1900, 2, 29), ERROR_INVALID_PARAMETER);
    expectFailure(date(2100, 2, 29), ERROR_INVALID_PARAMETER);
    expectFailure(date(2003, 13, 1), ERROR_INVALID_PARAMETER);
    expectFailure(date(1600, 1, 1), ERROR_INVALID_PARAMETER);
    expectFailure(date(2003, 3, 7, {}, DATE_SHORTDATE | DATE_LONGDATE), kErrorInvalidFlags);
    expectFailure(date(2003, 3, 7, "d", DATE_SHORTDATE), kErrorInvalidFlags);
}

TEST(TimeFormat, NoTimeGivenMeansNowTheClocksFixedLocalAndSystemTime) {
    Clock::setFixed(QDateTime(QDate(2004, 2, 29), QTime(0, 7, 9, 123)));
    SYSTEMTIME local;
    SYSTEMTIME system;
    GetLocalTime(&local);
    GetSystemTime(&system);
    EXPECT_EQ(local, (SYSTEMTIME{2004, 2, 0, 29, 0, 7, 9, 123})); // a Sunday
    EXPECT_EQ(system, local);
    EXPECT_EQ(GetTimeFormatW(0, nullptr, "h:mm:ss tt"), "12:07:09 AM");
    EXPECT_EQ(GetDateFormatW(DATE_LONGDATE, nullptr), "Sunday, February 29, 2004");
    Clock::setFixed(std::nullopt);
}
