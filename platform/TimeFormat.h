#pragma once
// Time and date pictures, formatted as GetTimeFormatW and GetDateFormatW format them for the
// device's English (United States) locale.
//
// Time pictures: h hh (12-hour), H HH (24-hour), m mm, s ss, t (A/P), tt (AM/PM).
// Date pictures: d dd ddd dddd, M MM MMM MMMM, y yy yyyy.
// Text in single quotes is copied as it stands ('' inside quotes is one quote); any other
// character is copied too. "h:mmt" at 13:05 gives "1:05P".

#include "WinTypes.h"

#include <QString>

constexpr DWORD TIME_NOMINUTESORSECONDS = 0x0001;
constexpr DWORD TIME_NOSECONDS = 0x0002;
constexpr DWORD TIME_NOTIMEMARKER = 0x0004;
constexpr DWORD TIME_FORCE24HOURFORMAT = 0x0008;

constexpr DWORD DATE_SHORTDATE = 0x0001; // "M/d/yy"
constexpr DWORD DATE_LONGDATE = 0x0002;  // "dddd, MMMM dd, yyyy"

// format empty: the locale's picture ("h:mm:ss tt" for times). An invalid SYSTEMTIME gives the
// empty string and ERROR_INVALID_PARAMETER.
QString GetTimeFormatW(DWORD flags, const SYSTEMTIME* time, const QString& format = {});
QString GetDateFormatW(DWORD flags, const SYSTEMTIME* date, const QString& format = {});
