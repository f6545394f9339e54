#include "SqlStatement.h"

#include <cerrno>

SqlStatement::SqlStatement(sqlite3* db, const char* sql) {
    m_prepareResult = sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_stmt, nullptr);
    if (m_prepareResult != SQLITE_OK) {
        sqlite3_finalize(m_stmt);
        m_stmt = nullptr;
    }
}

SqlStatement::~SqlStatement() {
    sqlite3_finalize(m_stmt);
}

void SqlStatement::bindText16(int index, const char16_t* text, int units) {
    // A null pointer would bind SQL NULL; the empty string must stay text.
    static const char16_t empty = 0;
    sqlite3_bind_text16(m_stmt, index, units > 0 ? text : &empty, units * 2, SQLITE_STATIC);
}

void SqlStatement::reset() {
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
}

DWORD SqlStatement::queryInt(std::int64_t* value, bool* found) {
    const int result = step();
    if (found != nullptr) {
        *found = result == SQLITE_ROW;
    }
    if (result == SQLITE_ROW) {
        *value = columnInt(0);
        return ERROR_SUCCESS;
    }
    return result == SQLITE_DONE ? ERROR_SUCCESS : errorFor(result);
}

DWORD SqlStatement::execute() {
    const int result = step();
    return result == SQLITE_DONE || result == SQLITE_ROW ? ERROR_SUCCESS : errorFor(result);
}

DWORD SqlStatement::errorFor(int sqliteResult) {
    switch (sqliteResult & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return ERROR_SUCCESS;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_SHARING_VIOLATION;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return ERROR_ACCESS_DENIED;
    case SQLITE_CANTOPEN:
        return ERROR_PATH_NOT_FOUND;
    case SQLITE_IOERR:
        return sqliteResult == SQLITE_IOERR_READ || sqliteResult == SQLITE_IOERR_SHORT_READ ? ERROR_READ_FAULT
                                                                                            : ERROR_WRITE_FAULT;
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
    case SQLITE_RANGE:
    case SQLITE_TOOBIG:
        return ERROR_INVALID_PARAMETER;
    default:
        // SQLITE_CORRUPT, SQLITE_NOTADB, SQLITE_SCHEMA, SQLITE_ERROR and the like: the volume is
        // not what it should be.
        return ERROR_BADDB;
    }
}

DWORD SqlStatement::errorFor(int sqliteResult, int systemError) {
    return refine(errorFor(sqliteResult), systemError);
}

DWORD SqlStatement::refine(DWORD error, int systemError) {
    if (error != ERROR_WRITE_FAULT && error != ERROR_READ_FAULT && error != ERROR_PATH_NOT_FOUND &&
        error != ERROR_ACCESS_DENIED && error != ERROR_DISK_FULL) {
        return error;
    }
    switch (systemError) {
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case EACCES:
    case EPERM:
    case EROFS:
        return ERROR_ACCESS_DENIED;
    default:
        return error;
    }
}
