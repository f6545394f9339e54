#pragma once
// One prepared SQLite statement, kept by its volume for as long as the volume is mounted.
// A statement is used inside a Scope, which resets it when the scope ends, so that no statement
// keeps a read transaction open between two calls.

#include "WinTypes.h"

#include <sqlite3.h>

#include <cstdint>

class SqlStatement {
public:
    SqlStatement(sqlite3* db, const char* sql);
    ~SqlStatement();
    SqlStatement(const SqlStatement&) = delete;
    SqlStatement& operator=(const SqlStatement&) = delete;

    bool isValid() const { return m_stmt != nullptr; }
    int prepareResult() const { return m_prepareResult; }
    sqlite3_stmt* handle() const { return m_stmt; }

    void bindInt(int index, std::int64_t value) { sqlite3_bind_int64(m_stmt, index, value); }
    void bindNull(int index) { sqlite3_bind_null(m_stmt, index); }
    // Binds the UTF-16 text of a string that outlives the statement's use.
    void bindText16(int index, const char16_t* text, int units);

    // SQLITE_ROW, SQLITE_DONE or an error code.
    int step() { return sqlite3_step(m_stmt); }
    void reset();

    std::int64_t columnInt(int column) const { return sqlite3_column_int64(m_stmt, column); }
    int columnType(int column) const { return sqlite3_column_type(m_stmt, column); }

    // Steps a statement that yields one integer (a count, an id); *value is left alone when it
    // yields no row. Returns ERROR_SUCCESS or the error the step met.
    DWORD queryInt(std::int64_t* value, bool* found = nullptr);
    // Steps a statement that yields no rows. Returns ERROR_SUCCESS or the error it met.
    DWORD execute();

    // The platform's error code for an SQLite result code.
    static DWORD errorFor(int sqliteResult);
    // The same, told more exactly by the system's errno of the failure (sqlite3_system_errno): a
    // full disk shows as an I/O error of the shared-memory file, a read-only folder as one that
    // cannot be opened.
    static DWORD errorFor(int sqliteResult, int systemError);
    // An error of the disk (a fault, no permission, no room) told more exactly by errno.
    static DWORD refine(DWORD error, int systemError);

    class Scope {
    public:
        explicit Scope(SqlStatement& statement) : m_statement(statement) {}
        ~Scope() { m_statement.reset(); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        SqlStatement& m_statement;
    };

private:
    sqlite3_stmt* m_stmt = nullptr;
    int m_prepareResult = SQLITE_OK;
};
