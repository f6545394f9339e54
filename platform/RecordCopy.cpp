#include "RecordCopy.h"

#include "PropertyCodec.h"
#include "Volume.h"

namespace {
const char* const kReadProps = "SELECT propid, value FROM props WHERE record = ?1 ORDER BY propid";
const char* const kSortValue = "SELECT value FROM props WHERE record = ?1 AND propid = ?2";
const char* const kAddRecord = "INSERT INTO records (oid, db, sort_key) VALUES (?1, ?2, ?3)";
const char* const kAddProp = "INSERT INTO props (record, propid, value) VALUES (?1, ?2, ?3)";

bool isKnownPropid(std::int64_t propid) {
    return propid >= 0 && propid <= 0xFFFFFFFFll && PropertyCodec::isKnownType(LOWORD(propid));
}

// Binds the stored value at column of from as the write of what a read gave would store it: as it
// is, but a whole number kept for an R8 becomes the REAL it reads as.
void bindStored(sqlite3_stmt* to, int index, sqlite3_stmt* from, int column, CEPROPID propid) {
    if (TypeFromPropID(propid) == CEVT_R8) {
        sqlite3_bind_double(to, index, sqlite3_column_double(from, column));
    } else {
        sqlite3_bind_value(to, index, sqlite3_column_value(from, column));
    }
}
} // namespace

DWORD RecordCopy::copy(CEOID oid, int* rows) {
    *rows = 0;
    DWORD error = ERROR_SUCCESS;
    SqlStatement* read = m_from.statement(kReadProps);
    SqlStatement* add = m_to.statement(kAddProp);
    if (read == nullptr || add == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope readScope(*read);
    read->bindInt(1, oid);
    CEOID made = 0;
    int result = SQLITE_ROW;
    while (error == ERROR_SUCCESS && (result = read->step()) == SQLITE_ROW) {
        const std::int64_t stored = read->columnInt(0);
        const auto propid = static_cast<CEPROPID>(stored);
        // Copied only as a read would take it; the transaction drops what was made of the record.
        if (!isKnownPropid(stored) || !PropertyCodec::isReadable(read->handle(), 1, propid)) {
            return ERROR_INVALID_DATA;
        }
        if (made == 0) {
            error = addRecord(oid, &made);
        }
        SqlStatement::Scope addScope(*add);
        add->bindInt(1, made);
        add->bindInt(2, propid);
        bindStored(add->handle(), 3, read->handle(), 1, propid);
        if (error == ERROR_SUCCESS) {
            error = add->execute();
        }
        ++*rows;
    }
    return error != ERROR_SUCCESS ? error : SqlStatement::errorFor(result);
}

DWORD RecordCopy::addEmpty() {
    CEOID made = 0;
    return addRecord(0, &made);
}

DWORD RecordCopy::addRecord(CEOID source, CEOID* oid) {
    DWORD error = m_to.allocateObjectId(oid);
    SqlStatement* add = m_to.statement(kAddRecord);
    SqlStatement* sortValue = m_from.statement(kSortValue);
    if (error != ERROR_SUCCESS || add == nullptr || sortValue == nullptr) {
        return error != ERROR_SUCCESS ? error : ERROR_BADDB;
    }
    SqlStatement::Scope scope(*add);
    add->bindInt(1, *oid);
    add->bindInt(2, m_target.oid);
    // The new record's sort key: its value of the target's sort property, looked up before its
    // properties are written, so that the record is placed in the order once.
    SqlStatement::Scope valueScope(*sortValue);
    if (m_target.sortPropid != 0 && source != 0) {
        sortValue->bindInt(1, source);
        sortValue->bindInt(2, m_target.sortPropid);
        const int found = sortValue->step();
        if (found == SQLITE_ROW) {
            bindStored(add->handle(), 3, sortValue->handle(), 0, m_target.sortPropid);
        } else if (found != SQLITE_DONE) {
            return SqlStatement::errorFor(found);
        }
    }
    return add->execute();
}
