#pragma once
// Time pictures, formatted as GetTimeFormatW formats them for the device's English (United States)
// locale: h hh (12-hour), m mm, s ss, t (A/P), tt (AM/PM); any other character is copied as it
// stands. "h:mmt" at 13:05 gives "1:05P".

#include "WinTypes.h"

#include <QString>

constexpr DWORD TIME_NOSECONDS = 0x0002;

// format empty: the locale's picture, "h:mm:ss tt". TIME_NOSECONDS leaves the seconds out with the
// separator before them ("h:mm:ss tt" reads "h:mm tt"). The time must be a valid one and the flags
// 0 or TIME_NOSECONDS: the program's callers format only the clock's time and stored times, so
// unlike the device's function this one does not check them.
QString GetTimeFormatW(DWORD flags, const SYSTEMTIME* time, const QString& format = {});
