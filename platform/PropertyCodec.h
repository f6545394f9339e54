#pragma once
// How a property value is kept in the props.value and records.sort_key columns: INTEGER for I2,
// UI2, I4, UI4, BOOL and FILETIME (the 64-bit count, as a signed 64-bit integer of the same bits),
// REAL for R8, TEXT for LPWSTR, BLOB for BLOB.

#include "CeDatabase.h"
#include "SortKey.h"

#include <sqlite3.h>

class PropertyCodec {
public:
    static bool isKnownType(WORD type);
    // ERROR_INVALID_PARAMETER for a type not in the list, or an R8 that is not a number (SQLite
    // would keep it as NULL).
    static DWORD check(const CEPROPVAL& value);
    // Binds the value named by the property's type. Text is bound in place: value must outlive
    // the statement's use.
    static void bind(sqlite3_stmt* stmt, int index, const CEPROPVAL& value);
    static SortKey sortKeyOf(const CEPROPVAL& value);
    // Reads a stored value into out as the type of propid names. ERROR_INVALID_DATA when the
    // stored value is not of that type or does not fit its width (a volume not written by us).
    static DWORD read(sqlite3_stmt* stmt, int column, CEPROPID propid, CEVALUNION* out);
    // Whether read() would take the stored value, without converting it.
    static bool isReadable(sqlite3_stmt* stmt, int column, CEPROPID propid);
};
