#pragma once
// SYSTEMTIME <-> FILETIME as the platform converts: 100-nanosecond units since 1 January 1601,
// no time-zone conversion, the day-of-week field ignored on the way in and filled on the way out.

#include "WinTypes.h"

// FALSE (ERROR_INVALID_PARAMETER) for a date or time that does not exist (month 13, 30 February,
// hour 24, millisecond 1000, a year before 1601 or after 30827).
BOOL SystemTimeToFileTime(const SYSTEMTIME* st, FILETIME* ft);
// FALSE (ERROR_INVALID_PARAMETER) for a count at or beyond 0x8000000000000000.
BOOL FileTimeToSystemTime(const FILETIME* ft, SYSTEMTIME* st);
