#include "RecordTable.h"

#include "PropertyCodec.h"
#include "Volume.h"

#include <algorithm>

namespace {
const char* const kReadProps = "SELECT propid, value FROM props WHERE record = ?1 ORDER BY propid";
const char* const kReadRange =
    "SELECT propid, value FROM props WHERE record = ?1 AND propid BETWEEN ?2 AND ?3 ORDER BY propid";
const char* const kRecordDatabase = "SELECT db FROM records WHERE oid = ?1";
const char* const kInsertRecord = "INSERT INTO records (oid, db, sort_key) VALUES (?1, ?2, ?3)";
const char* const kSetSortKey = "UPDATE records SET sort_key = ?2 WHERE oid = ?1";
const char* const kUpsertProp = "INSERT INTO props (record, propid, value) VALUES (?1, ?2, ?3) "
                                "ON CONFLICT (record, propid) DO UPDATE SET value = excluded.value";
const char* const kDeleteProp = "DELETE FROM props WHERE record = ?1 AND propid = ?2";
const char* const kDeleteRecord = "DELETE FROM records WHERE oid = ?1 AND db = ?2";
// Room for a whole day record at once (a strength record holds up to about 130 properties).
constexpr std::size_t kTypicalProperties = 160;

// The value in column 1 of statement's row, as the type of prop's id names; clears CEDB_PROPNOTFOUND.
DWORD readValue(SqlStatement* statement, CEPROPVAL* prop) {
    const DWORD error = PropertyCodec::read(statement->handle(), 1, prop->propid, &prop->val);
    prop->wFlags = 0;
    return error;
}

bool isDeletion(const CEPROPVAL& prop) {
    return (prop.wFlags & CEDB_PROPDELETE) != 0;
}

DWORD checkProps(const std::vector<CEPROPVAL>& props) {
    for (const CEPROPVAL& prop : props) {
        const DWORD error =
            isDeletion(prop)
                ? (PropertyCodec::isKnownType(TypeFromPropID(prop.propid)) ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER)
                : PropertyCodec::check(prop);
        if (error != ERROR_SUCCESS) {
            return error;
        }
    }
    return ERROR_SUCCESS;
}

// The last property that names the database's sort property decides the record's sort key.
const CEPROPVAL* sortProperty(const DatabaseInfo& database, const std::vector<CEPROPVAL>& props) {
    const CEPROPVAL* found = nullptr;
    if (database.sortPropid != 0) {
        for (const CEPROPVAL& prop : props) {
            if (prop.propid == database.sortPropid) {
                found = &prop;
            }
        }
    }
    return found;
}

void bindSortKey(sqlite3_stmt* stmt, int index, const CEPROPVAL* sortValue) {
    if (sortValue != nullptr && !isDeletion(*sortValue)) {
        PropertyCodec::bind(stmt, index, *sortValue);
    } else {
        sqlite3_bind_null(stmt, index);
    }
}
} // namespace

DWORD RecordTable::read(CEOID oid, std::vector<CEPROPVAL>* props, int* rows) {
    props->clear();
    props->reserve(kTypicalProperties);
    *rows = 0;
    SqlStatement* statement = m_volume.statement(kReadProps);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, oid);
    int result = SQLITE_ROW;
    while ((result = statement->step()) == SQLITE_ROW) {
        const std::int64_t propid = statement->columnInt(0);
        if (propid < 0 || propid > 0xFFFFFFFFll || !PropertyCodec::isKnownType(LOWORD(propid))) {
            props->clear();
            return ERROR_INVALID_DATA;
        }
        CEPROPVAL& prop = props->emplace_back();
        prop.propid = static_cast<CEPROPID>(propid);
        const DWORD error = PropertyCodec::read(statement->handle(), 1, prop.propid, &prop.val);
        if (error != ERROR_SUCCESS) {
            props->clear();
            return error;
        }
        ++*rows;
    }
    return SqlStatement::errorFor(result);
}

DWORD RecordTable::read(CEOID oid, const std::vector<CEPROPID>& wanted, std::vector<CEPROPVAL>* props, int* rows) {
    *rows = 0;
    // The entries props already has are used again (a walk reads the same list record after
    // record): only the member that an entry's type names is ever written or read.
    props->resize(wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i) {
        CEPROPVAL& prop = (*props)[i];
        prop.propid = wanted[i];
        prop.wFlags = CEDB_PROPNOTFOUND;
    }
    // Where each stored row goes: wanted itself when it is in ascending order without repeats (as a
    // group's ids are), else its ids sorted with their places.
    const bool ascending = std::adjacent_find(wanted.begin(), wanted.end(), std::greater_equal<>()) == wanted.end();
    std::vector<std::pair<CEPROPID, size_t>> places;
    if (!ascending) {
        places.reserve(wanted.size());
        for (size_t i = 0; i < wanted.size(); ++i) {
            places.emplace_back(wanted[i], i);
        }
        std::sort(places.begin(), places.end());
    }
    if (wanted.empty()) {
        return ERROR_SUCCESS;
    }
    SqlStatement* statement = m_volume.statement(kReadRange);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, oid);
    const auto [lowest, highest] = std::minmax_element(wanted.begin(), wanted.end());
    statement->bindInt(2, *lowest);
    statement->bindInt(3, *highest);
    int result = SQLITE_ROW;
    while ((result = statement->step()) == SQLITE_ROW) {
        ++*rows;
        // The range holds only 32-bit ids, since both its ends are.
        const auto propid = static_cast<CEPROPID>(statement->columnInt(0));
        DWORD error = ERROR_SUCCESS;
        if (ascending) {
            const auto found = std::lower_bound(wanted.begin(), wanted.end(), propid);
            if (found != wanted.end() && *found == propid) {
                error = readValue(statement, &(*props)[static_cast<size_t>(found - wanted.begin())]);
            }
        } else {
            auto place = std::lower_bound(places.begin(), places.end(), std::pair<CEPROPID, size_t>(propid, 0));
            for (; error == ERROR_SUCCESS && place != places.end() && place->first == propid; ++place) {
                error = readValue(statement, &(*props)[place->second]);
            }
        }
        if (error != ERROR_SUCCESS) {
            props->clear();
            return error;
        }
    }
    return SqlStatement::errorFor(result);
}

DWORD RecordTable::write(const DatabaseInfo& database, CEOID oid, const std::vector<CEPROPVAL>& props, CEOID* written) {
    *written = 0;
    DWORD error = checkProps(props);
    if (error != ERROR_SUCCESS) {
        return error;
    }
    const CEPROPVAL* sortValue = sortProperty(database, props);
    CEOID record = oid;
    error = m_volume.transaction([&] {
        DWORD result = oid == 0 ? addRecord(database, sortValue, &record) : updateRecord(database, oid, sortValue);
        for (auto prop = props.begin(); result == ERROR_SUCCESS && prop != props.end(); ++prop) {
            result = writeProperty(record, *prop);
        }
        return result;
    });
    if (error == ERROR_SUCCESS) {
        *written = record;
    }
    return error;
}

DWORD RecordTable::addRecord(const DatabaseInfo& database, const CEPROPVAL* sortValue, CEOID* oid) {
    SqlStatement* insert = m_volume.statement(kInsertRecord);
    if (insert == nullptr) {
        return ERROR_BADDB;
    }
    const DWORD error = m_volume.allocateObjectId(oid);
    if (error != ERROR_SUCCESS) {
        return error;
    }
    SqlStatement::Scope scope(*insert);
    insert->bindInt(1, *oid);
    insert->bindInt(2, database.oid);
    bindSortKey(insert->handle(), 3, sortValue);
    return insert->execute();
}

DWORD RecordTable::updateRecord(const DatabaseInfo& database, CEOID oid, const CEPROPVAL* sortValue) {
    SqlStatement* owner = m_volume.statement(kRecordDatabase);
    SqlStatement* setKey = m_volume.statement(kSetSortKey);
    if (owner == nullptr || setKey == nullptr) {
        return ERROR_BADDB;
    }
    {
        SqlStatement::Scope scope(*owner);
        owner->bindInt(1, oid);
        std::int64_t holder = 0;
        bool found = false;
        const DWORD error = owner->queryInt(&holder, &found);
        if (error != ERROR_SUCCESS || !found || holder != database.oid) {
            return error != ERROR_SUCCESS ? error : ERROR_INVALID_PARAMETER;
        }
    }
    if (sortValue == nullptr) {
        return ERROR_SUCCESS;
    }
    SqlStatement::Scope scope(*setKey);
    setKey->bindInt(1, oid);
    bindSortKey(setKey->handle(), 2, sortValue);
    return setKey->execute();
}

DWORD RecordTable::writeProperty(CEOID oid, const CEPROPVAL& prop) {
    SqlStatement* statement = m_volume.statement(isDeletion(prop) ? kDeleteProp : kUpsertProp);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, oid);
    statement->bindInt(2, prop.propid);
    if (!isDeletion(prop)) {
        PropertyCodec::bind(statement->handle(), 3, prop);
    }
    return statement->execute();
}

DWORD RecordTable::remove(CEOID database, CEOID oid) {
    SqlStatement* statement = m_volume.statement(kDeleteRecord);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, oid);
    statement->bindInt(2, database);
    const DWORD error = statement->execute();
    if (error == ERROR_SUCCESS && m_volume.changes() == 0) {
        return ERROR_INVALID_PARAMETER;
    }
    return error;
}
