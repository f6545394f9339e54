#include "RecordCopy.h"

#include "PropertyCodec.h"
#include "Volume.h"

#include <map>
#include <string>
#include <vector>

namespace {
const char* const kReadProps = "SELECT propid, value FROM props WHERE record = ?1 ORDER BY propid";
const char* const kSortValue = "SELECT value FROM props WHERE record = ?1 AND propid = ?2";
const char* const kAddRecord = "INSERT INTO records (oid, db, sort_key) VALUES (?1, ?2, ?3)";
// Properties go in many rows a statement: one statement a row would cost more than the row.
constexpr int kRowsPerInsert = 64;

// "INSERT INTO props ... VALUES (?1, ?, ?), ..." for n rows, kept for as long as the process runs
// (a volume caches its statements by the text's address).
const char* addPropsSql(int n) {
    static std::map<int, std::string> texts;
    std::string& text = texts[n];
    if (text.empty()) {
        text = "INSERT INTO props (record, propid, value) VALUES (?1, ?, ?)";
        for (int i = 1; i < n; ++i) {
            text += ", (?1, ?, ?)";
        }
    }
    return text.c_str();
}

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
    SqlStatement* read = m_from.statement(kReadProps);
    if (read == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope readScope(*read);
    read->bindInt(1, oid);
    CEOID made = 0;
    DWORD error = ERROR_SUCCESS;
    int result = SQLITE_ROW;
    m_read.clear();
    while (error == ERROR_SUCCESS && (result = read->step()) == SQLITE_ROW) {
        const std::int64_t stored = read->columnInt(0);
        const auto propid = static_cast<CEPROPID>(stored);
        // Copied only as a read would take it; the transaction drops what was made of the record.
        if (!isKnownPropid(stored) || !PropertyCodec::isReadable(read->handle(), 1, propid)) {
            return ERROR_INVALID_DATA;
        }
        if (m_accept) {
            CEPROPVAL& value = m_read.emplace_back();
            value.propid = propid;
            PropertyCodec::read(read->handle(), 1, propid, &value.val);
        }
        if (made == 0) {
            error = addRecord(oid, &made);
        }
        m_pending.push_back({propid, TypeFromPropID(propid) == CEVT_R8
                                         ? nullptr
                                         : sqlite3_value_dup(sqlite3_column_value(read->handle(), 1)),
                             sqlite3_column_double(read->handle(), 1)});
        if (error == ERROR_SUCCESS && m_pending.size() == kRowsPerInsert) {
            error = flush(made);
        }
        ++*rows;
    }
    if (error == ERROR_SUCCESS) {
        error = flush(made);
    }
    discardPending();
    if (error == ERROR_SUCCESS && result == SQLITE_DONE && m_accept && !m_accept(m_read)) {
        return ERROR_INVALID_DATA;
    }
    return error != ERROR_SUCCESS ? error : SqlStatement::errorFor(result);
}

DWORD RecordCopy::flush(CEOID record) {
    if (m_pending.empty()) {
        return ERROR_SUCCESS;
    }
    SqlStatement* add = m_to.statement(addPropsSql(static_cast<int>(m_pending.size())));
    if (add == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*add);
    add->bindInt(1, record);
    int index = 2;
    for (const Pending& row : m_pending) {
        add->bindInt(index++, row.propid);
        if (row.value == nullptr) { // an R8: the REAL it reads as, even when kept as a whole number
            sqlite3_bind_double(add->handle(), index++, row.number);
        } else {
            sqlite3_bind_value(add->handle(), index++, row.value);
        }
    }
    const DWORD error = add->execute();
    discardPending();
    return error;
}

void RecordCopy::discardPending() {
    for (const Pending& row : m_pending) {
        sqlite3_value_free(row.value);
    }
    m_pending.clear();
}

DWORD RecordCopy::addEmpty() {
    CEOID made = 0;
    return addRecord(0, &made);
}

DWORD RecordCopy::addRecord(CEOID source, CEOID* oid) {
    // Ids are taken a block at a time: ids of a block that go unused are never given out.
    DWORD error = ERROR_SUCCESS;
    if (m_nextId == m_endOfIds) {
        error = m_to.allocateObjectIds(kIdsPerBlock, &m_nextId);
        m_endOfIds = error == ERROR_SUCCESS ? m_nextId + kIdsPerBlock : m_nextId;
    }
    *oid = m_nextId++;
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
