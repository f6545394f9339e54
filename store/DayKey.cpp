#include "DayKey.h"

#include "TimeConversion.h"

namespace {
SYSTEMTIME systemTime(const QDate& day, int hour, int minute, int second, int millisecond) {
    // The day of week is left 0: the conversion never reads it.
    SYSTEMTIME st{};
    st.wYear = static_cast<WORD>(day.year());
    st.wMonth = static_cast<WORD>(day.month());
    st.wDay = static_cast<WORD>(day.day());
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

FILETIME DayKey::of(const QDate& day) {
    if (!day.isValid() || day.year() < 1601) {
        return {};
    }
    return convert(systemTime(day, 12, 12, 12, 12));
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
    return convert(systemTime(referenceDate(), hour, minute, 12, 12));
}

QTime DayKey::timeOf(const FILETIME& time) {
    SYSTEMTIME st;
    if (!FileTimeToSystemTime(&time, &st)) {
        return {};
    }
    return QTime(st.wHour, st.wMinute);
}
