#include "TimeFormat.h"

#include "Clock.h"

#include <gtest/gtest.h>

namespace {
constexpr DWORD kErrorInvalidFlags = 1004;

SYSTEMTIME at(int hour, int minute, int second = 0, int ms = 0) {
    SYSTEMTIME st{2003, 3, 5, 7};
    st.wHour = static_cast<WORD>(hour);
    st.wMinute = static_cast<WORD>(minute);
    st.wSecond = static_cast<WORD>(second);
    st.wMilliseconds = static_cast<WORD>(ms);
    return st;
}

SYSTEMTIME on(int year, int month, int day) {
    SYSTEMTIME st;
    st.wYear = static_cast<WORD>(year);
    st.wMonth = static_cast<WORD>(month);
    st.wDay = static_cast<WORD>(day);
    return st;
}

QString time(const SYSTEMTIME& st, const QString& picture, DWORD flags = 0) {
    return GetTimeFormatW(flags, &st, picture);
}

QString date(const SYSTEMTIME& st, const QString& picture = {}, DWORD flags = 0) {
    return GetDateFormatW(flags, &st, picture);
}
} // namespace

TEST(TimeFormat, TimePictures) {
    EXPECT_EQ(time(at(13, 5), "h:mmt"), "1:05P");
    EXPECT_EQ(time(at(14, 5, 3), "h hh H HH m mm s ss t tt"), "2 02 14 14 5 05 3 03 P PM");
    EXPECT_EQ(time(at(8, 56, 13), "hhh:HHH:mmm:sss ttt"), "08:08:56:13 AM");
    EXPECT_EQ(time(at(8, 56, 13), {}), "8:56:13 AM");
    // The 12-hour clock shows 12 at midnight and at noon.
    EXPECT_EQ(time(at(0, 0), "h/hh/H/HH t"), "12/12/0/00 A");
    EXPECT_EQ(time(at(12, 0), "h/hh/H/HH t"), "12/12/12/12 P");
    EXPECT_EQ(time(at(11, 59), "h tt"), "11 AM");
    EXPECT_EQ(time(at(23, 59), "h tt"), "11 PM");
    // Date letters are text in a time picture.
    EXPECT_EQ(time(at(9, 7), "H.mm dMy"), "9.07 dMy");
}

TEST(TimeFormat, QuotedTextIsCopiedAsItStands) {
    const SYSTEMTIME t = at(8, 56, 13);
    EXPECT_EQ(time(t, "h 'h' H 'H' HH 'HH' m 'm' s 's' t 't' tt 'tt'"), "8 h 8 H 08 HH 56 m 13 s A t AM tt");
    EXPECT_EQ(time(t, "h 'o''clock'"), "8 o'clock");
    EXPECT_EQ(time(t, "''''"), "'");
    EXPECT_EQ(time(t, "''HH"), "08");
    EXPECT_EQ(time(t, "'''HH'"), "'HH");
    EXPECT_EQ(time(t, "HH 'unclosed"), "08 unclosed");
}

TEST(TimeFormat, FlagsLeaveFieldsOutWithTheirSeparators) {
    const SYSTEMTIME morning = at(8, 56, 13);
    EXPECT_EQ(time(morning, "h:mm:ss tt", TIME_NOSECONDS), "8:56 AM");
    EXPECT_EQ(time(morning, {}, TIME_NOSECONDS), "8:56 AM");
    EXPECT_EQ(time(morning, {}, TIME_NOMINUTESORSECONDS), "8 AM");
    EXPECT_EQ(time(morning, "h.@:m.@:s.@:tt", TIME_NOSECONDS), "8.@:56AM");
    EXPECT_EQ(time(morning, "m1s2m3s4", TIME_NOMINUTESORSECONDS), "");

    const SYSTEMTIME afternoon = at(13, 5, 9);
    EXPECT_EQ(time(afternoon, "hh:mm:ss tt", TIME_NOTIMEMARKER), "01:05:09");
    EXPECT_EQ(time(afternoon, "tt hh:mm", TIME_NOTIMEMARKER), " 01:05"); // spaces stay
    EXPECT_EQ(time(afternoon, "h1t2tt3m", TIME_NOTIMEMARKER), "15");
    EXPECT_EQ(time(afternoon, "'at 'tt", TIME_NOTIMEMARKER), "");
    EXPECT_EQ(time(afternoon, "hh:mm:ss tt", TIME_FORCE24HOURFORMAT), "13:05:09 PM");
    EXPECT_EQ(time(afternoon, "h:mm", TIME_FORCE24HOURFORMAT | TIME_NOSECONDS), "13:05");
}

TEST(TimeFormat, InvalidTimeFailsWhateverTheDate) {
    const SYSTEMTIME invalid[] = {at(24, 0), at(12, 60), at(12, 0, 60), at(12, 0, 0, 1000)};
    for (const SYSTEMTIME& st : invalid) {
        SetLastError(0);
        EXPECT_EQ(time(st, "HH:mm:ss"), "");
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    SYSTEMTIME noDate = at(12, 56, 13);
    noDate.wMonth = 60;
    EXPECT_EQ(time(noDate, "h:m:s"), "12:56:13");
    SetLastError(0);
    EXPECT_EQ(GetTimeFormatW(0x10, &noDate, {}), "");
    EXPECT_EQ(GetLastError(), kErrorInvalidFlags);
}

TEST(TimeFormat, DatePictures) {
    const SYSTEMTIME friday = on(2003, 3, 7);
    EXPECT_EQ(date(friday, "d dd ddd dddd M MM MMM MMMM y yy yyyy"), "7 07 Fri Friday 3 03 Mar March 3 03 2003");
    EXPECT_EQ(date(friday, "ddddd MMMMM yyyyy yyy"), "Friday March 2003 03");
    EXPECT_EQ(date(on(2002, 5, 4), "ddd',' MMM dd ''''yy"), "Sat, May 04 '02");
    EXPECT_EQ(date(friday, "d 'de' MMMM, h:mm"), "7 de March, h:mm");
    EXPECT_EQ(date(on(1968, 11, 29), "M/d/yyyy"), "11/29/1968");

    const char* days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    for (int i = 0; i < 7; ++i) {
        const QString full = QString::fromLatin1(days[i]);
        EXPECT_EQ(date(on(2003, 3, 2 + i), "dddd ddd"), full + u' ' + full.left(3));
    }
    const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};
    for (int i = 0; i < 12; ++i) {
        const QString full = QString::fromLatin1(months[i]);
        EXPECT_EQ(date(on(2003, i + 1, 1), "MMMM MMM"), full + u' ' + full.left(3));
    }
}

TEST(TimeFormat, DateFlagsAndDefaults) {
    SYSTEMTIME friday = on(2003, 3, 7);
    friday.wDayOfWeek = 1; // ignored: the weekday comes from the date
    friday.wHour = 36;     // ignored: a date picture has no time
    EXPECT_EQ(date(friday), "3/7/03");
    EXPECT_EQ(date(friday, {}, DATE_SHORTDATE), "3/7/03");
    EXPECT_EQ(date(friday, {}, DATE_LONGDATE), "Friday, March 07, 2003");
    EXPECT_EQ(date(on(2000, 2, 29), {}, DATE_LONGDATE), "Tuesday, February 29, 2000");

    const DWORD badFlags[] = {DATE_SHORTDATE | DATE_LONGDATE, 0x10};
    for (DWORD flags : badFlags) {
        SetLastError(0);
        EXPECT_EQ(date(friday, {}, flags), "");
        EXPECT_EQ(GetLastError(), kErrorInvalidFlags);
    }
    SetLastError(0);
    EXPECT_EQ(date(friday, "d", DATE_SHORTDATE), "");
    EXPECT_EQ(GetLastError(), kErrorInvalidFlags);
}

TEST(TimeFormat, InvalidDateFails) {
    const SYSTEMTIME invalid[] = {on(1900, 2, 29), on(2100, 2, 29), on(2003, 13, 1), on(2003, 4, 31), on(1600, 1, 1)};
    for (const SYSTEMTIME& st : invalid) {
        SetLastError(0);
        EXPECT_EQ(date(st, "d/M/yyyy"), "");
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
}

TEST(TimeFormat, NoTimeGivenMeansNow) {
    Clock::setFixed(QDateTime(QDate(2004, 2, 29), QTime(0, 7, 9)));
    EXPECT_EQ(GetTimeFormatW(0, nullptr, "h:mm:ss tt"), "12:07:09 AM");
    EXPECT_EQ(GetDateFormatW(DATE_LONGDATE, nullptr), "Sunday, February 29, 2004");
    Clock::setFixed(std::nullopt);
}
