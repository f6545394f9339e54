#pragma once
// The registry, kept in the object store's registry table (see docs/storage.md), with the Win32
// calls the program uses. Key paths and value names are looked up without regard to case, as on
// Windows, and keep the spelling they were created with. Every call returns an error code
// (ERROR_SUCCESS on success) and also sets the thread's last error.

#include "WinTypes.h"

#include <QString>

struct RegistryKey;
using HKEY = RegistryKey*;

// The one root the program uses.
extern HKEY const HKEY_CURRENT_USER;

constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_DWORD = 4;

// Opens subKey below root, creating it (and any missing parents) when needed.
LONG RegCreateKeyExW(HKEY root, const QString& subKey, HKEY* result);
// Opens an existing key; ERROR_FILE_NOT_FOUND when it does not exist.
LONG RegOpenKeyExW(HKEY root, const QString& subKey, HKEY* result);
LONG RegCloseKey(HKEY key);
// Reads a value as the platform does: *type receives its type; data (when not null) receives its
// bytes (a DWORD as 4 little-endian bytes, a string as UTF-16LE with its terminating zero) and
// *cbData their count. A buffer too small gives ERROR_MORE_DATA with *cbData the size needed.
// ERROR_FILE_NOT_FOUND for a value that does not exist.
LONG RegQueryValueExW(HKEY key, const QString& name, DWORD* type, BYTE* data, DWORD* cbData);
// Writes a value of type REG_DWORD (cbData 4) or REG_SZ (UTF-16LE bytes; a terminating zero, when
// present, is not part of the stored text).
LONG RegSetValueExW(HKEY key, const QString& name, DWORD type, const BYTE* data, DWORD cbData);
