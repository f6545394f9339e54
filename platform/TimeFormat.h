#pragma once
// Time pictures, formatted as GetTimeFormatW formats them for the device's English (United States)
// locale: h hh (12-hour), m mm, s ss, t (A/P), tt (AM/PM); any other character is copied as it
// stands. "h:mmt" at 13:05 gives "1:05P".

#include "WinTypes.h"

#include <QString>

constexpr DWORD TIME_NOSECONDS = 0x0002;

// format empty: the locale's picture, "h:mm:ss tt". TIME_NOSECONDS leaves the seconds out with the
// separator before them ("h:mm:ss tt" reads "h:mm tt"). A null or invalid time gives the empty
// string and ERROR_INVALID_PARAMETER; any other flag, ERROR_INVALID_FLAGS (1004).
QString GetTimeFormatW(DWORD flags, const SYSTEMTIME* time, const QString& format = {});
