#pragma once
// The collation WINCASE: text compared without regard to case, as Windows compares registry key
// paths and value names (Unicode case folding, not only ASCII as SQLite's NOCASE). It is installed
// on every volume connection and used in queries only, never in the schema, so that the files stay
// readable by any sqlite3 shell.

#include <sqlite3.h>

class WinCaseCollation {
public:
    static constexpr const char* kName = "WINCASE";
    static int install(sqlite3* db);
};
