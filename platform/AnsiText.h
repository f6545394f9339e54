#pragma once
// Conversion of wide text to the device's ANSI code page (Windows-1252), as WideCharToMultiByte
// does it: one byte per UTF-16 code unit, "?" (or the given default) for what 1252 cannot hold.

#include "WinTypes.h"

constexpr UINT CP_ACP = 0;
constexpr UINT CP_1252 = 1252;
constexpr DWORD WC_COMPOSITECHECK = 0x00000200;

// Converts cchWide units of wide (-1: up to and including its terminating zero) into at most
// cbMulti bytes of multi. With cbMulti 0 only counts. Returns the number of bytes written (or
// needed), 0 on failure (ERROR_INSUFFICIENT_BUFFER, ERROR_INVALID_PARAMETER). With
// WC_COMPOSITECHECK a letter followed by a combining accent becomes the precomposed character.
int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* wide, int cchWide, char* multi, int cbMulti,
                        const char* defaultChar = nullptr, BOOL* usedDefault = nullptr);
