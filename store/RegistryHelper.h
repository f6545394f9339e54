#pragma once
// The four registry operations every setting goes through. Settings are never cached: each
// reader calls these at the moment it needs the value. A failed read gives the absent-value default;
// a failed write leaves the old value in place and returns its error, for the caller to tell.

#include "Registry.h"

#include <QString>

class RegistryHelper {
public:
    // The number stored under root\key\name; 0 when the key or the value is missing.
    static DWORD GetDword(HKEY root, const QString& key, const QString& name);
    // Writes number as a DWORD, creating the key when needed: ERROR_SUCCESS, or why it failed.
    static DWORD SetDword(HKEY root, const QString& key, const QString& name, DWORD number);
    // The string stored under root\key\name, read through a 260-byte buffer; the empty string when
    // the key or the value is missing or does not fit.
    static QString GetString(HKEY root, const QString& key, const QString& name);
    // Writes text as a string value (its length counting the terminating zero), creating the key
    // when needed: ERROR_SUCCESS, or why it failed.
    static DWORD SetString(HKEY root, const QString& key, const QString& name, const QString& text);
};
