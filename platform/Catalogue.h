#pragma once
// The catalogue of one volume: its databases by name and object id, and the object-id questions
// that span databases and records.

#include "CeDatabase.h"
#include "DatabaseInfo.h"

class Volume;

class Catalogue {
public:
    explicit Catalogue(Volume& volume) : m_volume(volume) {}

    // ERROR_FILE_NOT_FOUND when no database has that name (compared as the UNIQUE column does:
    // exactly, case-sensitively).
    DWORD findByName(const QString& name, DatabaseInfo* info);
    // ERROR_INVALID_PARAMETER when oid is not a database.
    DWORD findById(CEOID oid, DatabaseInfo* info);
    DWORD create(const CEDBASEINFO& info, CEOID* oid);
    // Deletes the database; its records and their properties go with it (ON DELETE CASCADE).
    DWORD remove(CEOID oid);
    DWORD countRecords(CEOID oid, DWORD* count);
    // The next database after `after` in object-id order, of type `type` (0: any); *next is 0 at the end.
    DWORD nextDatabase(CEOID after, DWORD type, CEOID* next);
    // The database that holds record oid; *database is 0 when oid is not a record.
    DWORD recordParent(CEOID oid, CEOID* database);

private:
    DWORD find(const char* sql, const QString* name, CEOID oid, DatabaseInfo* info, bool* found);

    Volume& m_volume;
};
