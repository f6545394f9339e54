#include "Catalogue.h"

#include "PropertyCodec.h"
#include "Volume.h"

#include <initializer_list>

namespace {
const char* const kByName = "SELECT oid, name, type, sort_propid, sort_flags FROM databases WHERE name = ?1";
const char* const kById = "SELECT oid, name, type, sort_propid, sort_flags FROM databases WHERE oid = ?1";
const char* const kInsert =
    "INSERT INTO databases (oid, name, type, sort_propid, sort_flags) VALUES (?1, ?2, ?3, ?4, ?5)";
const char* const kDelete = "DELETE FROM databases WHERE oid = ?1";
// The rows the cascade would delete, deleted first in one statement each: a cascade deletes the
// properties record by record, nearly twice as slowly for a log of years.
const char* const kDeleteProps = "DELETE FROM props WHERE record IN (SELECT oid FROM records WHERE db = ?1)";
const char* const kDeleteRecords = "DELETE FROM records WHERE db = ?1";
const char* const kCount = "SELECT count(*) FROM records WHERE db = ?1";
const char* const kNext = "SELECT oid FROM databases WHERE oid > ?1 AND (?2 = 0 OR type = ?2) ORDER BY oid LIMIT 1";
const char* const kParent = "SELECT db FROM records WHERE oid = ?1";

DWORD checkNewDatabase(const CEDBASEINFO& info) {
    const QString& name = info.szDbaseName;
    if (name.isEmpty() || name.size() >= CEDB_MAXDBASENAMELEN || name.contains(QChar(0)) || info.wNumSortOrder > 1) {
        return ERROR_INVALID_PARAMETER;
    }
    if (info.wNumSortOrder == 1) {
        const SORTORDERSPEC& sort = info.rgSortSpecs[0];
        // One ascending order, case-sensitive: what the records_in_order index keeps.
        if (!PropertyCodec::isKnownType(TypeFromPropID(sort.propid)) || (sort.dwFlags & ~CEDB_SORT_UNKNOWNFIRST) != 0) {
            return ERROR_INVALID_PARAMETER;
        }
    }
    return ERROR_SUCCESS;
}

void bindName(SqlStatement& statement, int index, const QString& name) {
    statement.bindText16(index, reinterpret_cast<const char16_t*>(name.utf16()), static_cast<int>(name.size()));
}
} // namespace

DWORD Catalogue::find(const char* sql, const QString* name, CEOID oid, DatabaseInfo* info, bool* found) {
    SqlStatement* statement = m_volume.statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    if (name != nullptr) {
        bindName(*statement, 1, *name);
    } else {
        statement->bindInt(1, oid);
    }
    const int result = statement->step();
    *found = result == SQLITE_ROW;
    if (!*found) {
        return SqlStatement::errorFor(result);
    }
    // The rows were checked when the volume was mounted: every number fits its field.
    sqlite3_stmt* row = statement->handle();
    info->oid = static_cast<CEOID>(statement->columnInt(0));
    info->name = QString::fromUtf16(static_cast<const char16_t*>(sqlite3_column_text16(row, 1)),
                                    sqlite3_column_bytes16(row, 1) / 2);
    info->type = static_cast<DWORD>(statement->columnInt(2));
    info->sortPropid = static_cast<CEPROPID>(statement->columnInt(3));
    info->sortFlags = static_cast<DWORD>(statement->columnInt(4));
    return ERROR_SUCCESS;
}

DWORD Catalogue::findByName(const QString& name, DatabaseInfo* info) {
    bool found = false;
    const DWORD error = find(kByName, &name, 0, info, &found);
    return error != ERROR_SUCCESS ? error : (found ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
}

DWORD Catalogue::findById(CEOID oid, DatabaseInfo* info) {
    bool found = false;
    const DWORD error = find(kById, nullptr, oid, info, &found);
    return error != ERROR_SUCCESS ? error : (found ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER);
}

DWORD Catalogue::create(const CEDBASEINFO& info, CEOID* oid) {
    *oid = 0;
    const DWORD invalid = checkNewDatabase(info);
    if (invalid != ERROR_SUCCESS) {
        return invalid;
    }
    SqlStatement* insert = m_volume.statement(kInsert);
    if (insert == nullptr) {
        return ERROR_BADDB;
    }
    CEOID created = 0;
    const DWORD error = m_volume.transaction([&] {
        DWORD result = m_volume.allocateObjectId(&created);
        if (result != ERROR_SUCCESS) {
            return result;
        }
        SqlStatement::Scope scope(*insert);
        insert->bindInt(1, created);
        bindName(*insert, 2, info.szDbaseName);
        insert->bindInt(3, info.dwDbaseType);
        if (info.wNumSortOrder == 1) {
            insert->bindInt(4, info.rgSortSpecs[0].propid);
        }
        insert->bindInt(5, info.wNumSortOrder == 1 ? info.rgSortSpecs[0].dwFlags : 0);
        const int step = insert->step();
        if (step == SQLITE_CONSTRAINT_UNIQUE) {
            return ERROR_DUP_NAME;
        }
        return SqlStatement::errorFor(step);
    });
    if (error == ERROR_SUCCESS) {
        *oid = created;
    }
    return error;
}

DWORD Catalogue::remove(CEOID oid) {
    SqlStatement* statement = m_volume.statement(kDelete);
    SqlStatement* props = m_volume.statement(kDeleteProps);
    SqlStatement* records = m_volume.statement(kDeleteRecords);
    if (statement == nullptr || props == nullptr || records == nullptr) {
        return ERROR_BADDB;
    }
    return m_volume.bulkTransaction([&] {
        DWORD error = ERROR_SUCCESS;
        for (SqlStatement* step : {props, records, statement}) {
            SqlStatement::Scope scope(*step);
            step->bindInt(1, oid);
            error = error == ERROR_SUCCESS ? step->execute() : error;
        }
        if (error == ERROR_SUCCESS && m_volume.changes() == 0) {
            return ERROR_INVALID_PARAMETER;
        }
        return error;
    });
}

namespace {
// Runs the cached query sql with the numbers bound in order, and gives its one number as a DWORD.
DWORD queryNumber(Volume& volume, const char* sql, std::initializer_list<std::int64_t> numbers, DWORD* result) {
    SqlStatement* statement = volume.statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    int index = 1;
    for (const std::int64_t number : numbers) {
        statement->bindInt(index++, number);
    }
    std::int64_t value = 0;
    const DWORD error = statement->queryInt(&value);
    *result = static_cast<DWORD>(value);
    return error;
}
} // namespace

DWORD Catalogue::countRecords(CEOID oid, DWORD* count) {
    return queryNumber(m_volume, kCount, {oid}, count);
}

DWORD Catalogue::nextDatabase(CEOID after, DWORD type, CEOID* next) {
    return queryNumber(m_volume, kNext, {after, type}, next);
}

DWORD Catalogue::recordParent(CEOID oid, CEOID* database) {
    return queryNumber(m_volume, kParent, {oid}, database);
}
