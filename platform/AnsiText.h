#pragma once
// Conversion of wide text to the device's ANSI code page (Windows-1252), as WideCharToMultiByte
// does it: one byte per UTF-16 code unit, "?" for what 1252 cannot hold. Nothing is approximated:
// a character outside 1252 ("Ā", "—" is inside, "→" is not) becomes "?", and each half of a
// surrogate pair becomes one. The five bytes 1252 leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) are never produced; U+0081 and the like become "?".

#include "WinTypes.h"

constexpr UINT CP_ACP = 0;

constexpr DWORD WC_COMPOSITECHECK = 0x00000200;

// Converts the cchWide units of wide into at most cbMulti bytes of multi. Returns the number of
// bytes written, 0 on failure: ERROR_INVALID_PARAMETER (a code page other than CP_ACP, cchWide or
// cbMulti below 1, a null wide or multi). A unit never makes more than one byte, so cchWide bytes
// always suffice, and the program's callers give that much; with less, what does not fit is cut off.
//
// WC_COMPOSITECHECK: a letter followed by a combining accent (U+0300..U+036F) whose precomposed
// form 1252 holds ("e" + U+0301 -> "é", 0xE9) becomes that one byte, so the result is then one
// byte SHORTER than the wide text for every such pair; a caller that writes cchWide bytes must use
// the returned count instead. A pair without a precomposed form in 1252 is converted letter and
// accent apart (the accent becomes "?").
int WideCharToMultiByte(UINT codePage, DWORD flags, const WCHAR* wide, int cchWide, char* multi, int cbMulti);

// Converts cbMulti bytes of multi from the ANSI code page (Windows-1252) into at most cchWide units of
// wide: one unit per byte, the five undefined bytes to the control characters of the same value, as
// the platform maps them. Returns the number of units written, 0 on failure: ERROR_INVALID_PARAMETER
// (another code page, cbMulti or cchWide below 1, a null multi or wide). The program's callers give a
// unit for each byte; with less, what does not fit is cut off.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* multi, int cbMulti, WCHAR* wide, int cchWide);
