#pragma once
// The Windows CE base types, constants and error codes that the program relies on,
// with the platform's own names and numbers.

#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = std::uint32_t;
using BOOL = std::int32_t;
using WCHAR = char16_t;
using CEOID = DWORD;
using CEPROPID = DWORD;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

constexpr WORD LOWORD(DWORD v) {
    return static_cast<WORD>(v & 0xFFFF);
}
constexpr WORD HIWORD(DWORD v) {
    return static_cast<WORD>(v >> 16);
}
constexpr DWORD MAKELONG(WORD low, WORD high) {
    return static_cast<DWORD>(low) | (static_cast<DWORD>(high) << 16);
}

struct FILETIME {
    DWORD dwLowDateTime = 0;
    DWORD dwHighDateTime = 0;
    friend bool operator==(const FILETIME&, const FILETIME&) = default;
};

// The 64-bit count of 100-nanosecond intervals since 1 January 1601 that a FILETIME holds.
constexpr std::uint64_t fileTimeTicks(const FILETIME& ft) {
    return (static_cast<std::uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
}
constexpr FILETIME fileTimeFromTicks(std::uint64_t ticks) {
    return FILETIME{static_cast<DWORD>(ticks & 0xFFFFFFFFu), static_cast<DWORD>(ticks >> 32)};
}

struct SYSTEMTIME {
    WORD wYear = 0;
    WORD wMonth = 0;     // 1-12
    WORD wDayOfWeek = 0; // 0 = Sunday
    WORD wDay = 0;
    WORD wHour = 0;
    WORD wMinute = 0;
    WORD wSecond = 0;
    WORD wMilliseconds = 0;
    friend bool operator==(const SYSTEMTIME&, const SYSTEMTIME&) = default;
};

// Property value types (the low word of a property id).
constexpr WORD CEVT_I2 = 2;
constexpr WORD CEVT_I4 = 3;
constexpr WORD CEVT_R8 = 5;
constexpr WORD CEVT_BOOL = 11;
constexpr WORD CEVT_UI2 = 18;
constexpr WORD CEVT_UI4 = 19;
constexpr WORD CEVT_LPWSTR = 31;
constexpr WORD CEVT_FILETIME = 64;
constexpr WORD CEVT_BLOB = 65;

constexpr CEPROPID PROP_TAG(WORD type, WORD number) {
    return MAKELONG(type, number);
}
constexpr WORD TypeFromPropID(CEPROPID id) {
    return LOWORD(id);
}

// Error codes, as GetLastError reports them.
constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_INVALID_DATA = 13;
constexpr DWORD ERROR_WRITE_FAULT = 29;
constexpr DWORD ERROR_READ_FAULT = 30;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_DUP_NAME = 52;
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_DISK_FULL = 112;
constexpr DWORD ERROR_DIR_NOT_EMPTY = 145;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_BAD_FORMAT = 11;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD ERROR_NO_MORE_ITEMS = 259;
constexpr DWORD ERROR_DIRECTORY = 267;
constexpr DWORD ERROR_BADDB = 1009;

// The calling thread's last error, as the platform keeps it (one value per thread).
DWORD GetLastError();
void SetLastError(DWORD code);
