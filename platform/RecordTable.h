#pragma once
// The records and props tables of one volume: reading a record's properties, writing them (each
// write one transaction), deleting a record.

#include "CeDatabase.h"
#include "DatabaseInfo.h"

#include <vector>

class Volume;

class RecordTable {
public:
    explicit RecordTable(Volume& volume) : m_volume(volume) {}

    // Every property of record oid, in ascending property-id order (unsigned). *rows is the
    // number read; 0 also for a record that no longer exists. ERROR_INVALID_DATA for a stored
    // property id or value that is not of this format.
    DWORD read(CEOID oid, std::vector<CEPROPVAL>* props, int* rows);

    // The properties of record oid listed in wanted: one entry per id, in the order of wanted,
    // CEDB_PROPNOTFOUND for an id the record lacks. One query reads the stored rows from the lowest
    // to the highest id wanted (a group's properties are one contiguous range) and keeps those
    // wanted. *rows counts the rows of that range (0 also for a record that no longer exists).
    // ERROR_INVALID_DATA for a stored value of a wanted id that is not of its type.
    DWORD read(CEOID oid, const std::vector<CEPROPID>& wanted, std::vector<CEPROPVAL>* props, int* rows);
    // Writes props into record oid of the database (0: a new record), keeping sort_key in step
    // with the database's sort property. *written is the record's id.
    DWORD write(const DatabaseInfo& database, CEOID oid, const std::vector<CEPROPVAL>& props, CEOID* written);
    // ERROR_INVALID_PARAMETER when oid is not a record of the database.
    DWORD remove(CEOID database, CEOID oid);

private:
    DWORD addRecord(const DatabaseInfo& database, const CEPROPVAL* sortValue, CEOID* oid);
    // sortValue: the written property that sets the sort key, nullptr when the write leaves it.
    DWORD updateRecord(const DatabaseInfo& database, CEOID oid, const CEPROPVAL* sortValue);
    DWORD writeProperty(CEOID oid, const CEPROPVAL& prop);

    Volume& m_volume;
};
