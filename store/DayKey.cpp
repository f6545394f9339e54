#include "DayKey.h"

#include "TimeConversion.h"

namespace {
SYSTEMTIME systemTime(const QDate& day, int hour, int minute, int second, int millisecond) {
    SYSTEMTIME st;
    st.wYear = static_cast<WORD>(day.year());
    st.wMonth = static_cast<WORD>(day.month());
    st.wDay = static_cast<WORD>(day.day());
    // QDate numbers Monday 1 to Sunday 7; the field is the weekday with Sunday 0, plus one.
    st.wDayOfWeek = static_cast<WORD>(day.dayOfWeek() % 7 + 1);
    st.wHour = static_cast<WORD>(hour);
    st.wMinute = static_cast<WORD>(minute);
    st.wSecond = static_cast<WORD>(second);
    st.wMilliseconds = static_cast<WORD>(millisecond);
    return st;
}

FILETIME convert(const SYSTEMTIME& st) {
    FILETIME ft;
    if (!SystemTimeToFileTime(&st, &ft)) {
        return {};
    }
    return ft;
}
} // namespace

SYSTEMTIME DayKey::systemTimeOf(const QDate& day) {
    return systemTime(day, 12, 12, 12, 12);
}

FILETIME DayKey::of(const QDate& day) {
    if (!day.isValid() || day.year() < 1601) {
        return {};
    }
    return convert(systemTimeOf(day));
}

DbProp DayKey::prop(const QDate& day) {
    return DbProp::fileTime(kNumber, of(day));
}

QDate DayKey::dateOf(const FILETIME& key) {
    SYSTEMTIME st;
    if (!FileTimeToSystemTime(&key, &st)) {
        return {};
    }
    return QDate(st.wYear, st.wMonth, st.wDay);
}

FILETIME DayKey::referenceDay() {
    return of(referenceDate());
}

FILETIME DayKey::referenceTime(int hour, int minute) {
    SYSTEMTIME st = systemTime(referenceDate(), hour, minute, 12, 12);
    // Times of day have always carried the fixed day-of-week field 3; the conversion ignores it.
    st.wDayOfWeek = 3;
    return convert(st);
}

QTime DayKey::timeOf(const FILETIME& time) {
    SYSTEMTIME st;
    if (!FileTimeToSystemTime(&time, &st)) {
        return {};
    }
    return QTime(st.wHour, st.wMinute);
}
