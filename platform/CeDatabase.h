#pragma once
// The Windows CE 3.0 property-database service and its database volumes, provided over SQLite.
//
// A volume is one SQLite file in the format documented in docs/storage.md. The object store
// (the default volume, named by the system CEGUID) is mounted once per process with
// CeMountObjectStore; further volumes (backup files) are mounted with CeMountDBVol.
// Every function sets the thread's last error as the platform does; see WinTypes.h for codes.
// Databases and records are identified by CEOIDs that are unique within their volume and never 0.

#include "WinTypes.h"

#include <QByteArray>
#include <QString>

#include <vector>

// A volume's identifier. The object store is the "system" GUID (all bits set); a mounted volume
// gets a fresh one; the invalid GUID is all zero.
struct CEGUID {
    DWORD Data1 = 0;
    DWORD Data2 = 0;
    DWORD Data3 = 0;
    DWORD Data4 = 0;
    friend bool operator==(const CEGUID&, const CEGUID&) = default;
};
void CREATE_SYSTEMGUID(CEGUID* guid);
void CREATE_INVALIDGUID(CEGUID* guid);

using HANDLE = void*;
inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(-1);

// Maximum length of a database name, terminator included: names hold at most 31 characters.
constexpr int CEDB_MAXDBASENAMELEN = 32;
constexpr int CEDB_MAXSORTORDER = 4;

// Sort flags.
constexpr DWORD CEDB_SORT_DESCENDING = 0x00000001;
constexpr DWORD CEDB_SORT_CASEINSENSITIVE = 0x00000002;
constexpr DWORD CEDB_SORT_UNKNOWNFIRST = 0x00000004;

// CEDBASEINFO::dwFlags: which members of the structure hold a value.
constexpr DWORD CEDB_VALIDNAME = 0x0001;
constexpr DWORD CEDB_VALIDTYPE = 0x0002;
constexpr DWORD CEDB_VALIDSORTSPEC = 0x0004;
constexpr DWORD CEDB_VALIDMODTIME = 0x0008;
constexpr DWORD CEDB_VALIDDBFLAGS = 0x0010;
constexpr DWORD CEDB_VALIDCREATE = CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC | CEDB_VALIDDBFLAGS;

// CeOpenDatabaseEx flags.
constexpr DWORD CEDB_AUTOINCREMENT = 0x00000001;

// Seek types.
constexpr DWORD CEDB_SEEK_CEOID = 0x00000001;
constexpr DWORD CEDB_SEEK_BEGINNING = 0x00000002;
constexpr DWORD CEDB_SEEK_END = 0x00000004;
constexpr DWORD CEDB_SEEK_CURRENT = 0x00000008;
constexpr DWORD CEDB_SEEK_VALUESMALLER = 0x00000010;
constexpr DWORD CEDB_SEEK_VALUEFIRSTEQUAL = 0x00000020;
constexpr DWORD CEDB_SEEK_VALUEGREATER = 0x00000040;
constexpr DWORD CEDB_SEEK_VALUENEXTEQUAL = 0x00000080;

// Property flags (CEPROPVAL::wFlags).
constexpr WORD CEDB_PROPNOTFOUND = 0x0100; // set on read for a requested property the record lacks
constexpr WORD CEDB_PROPDELETE = 0x0200;   // on write: remove this property from the record

// Volume mount modes (CeMountDBVol flags).
constexpr DWORD CREATE_NEW = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD OPEN_ALWAYS = 4;

// One property value. On the device this is a union; here every member exists and the one that
// the property's type (the low word of propid) names is the one that counts.
struct CEVALUNION {
    std::int16_t iVal = 0; // CEVT_I2
    WORD uiVal = 0;        // CEVT_UI2
    LONG lVal = 0;         // CEVT_I4
    DWORD ulVal = 0;       // CEVT_UI4
    FILETIME filetime;     // CEVT_FILETIME
    QString lpwstr;        // CEVT_LPWSTR
    QByteArray blob;       // CEVT_BLOB
    BOOL boolVal = FALSE;  // CEVT_BOOL
    double dblVal = 0.0;   // CEVT_R8
};

struct CEPROPVAL {
    CEPROPID propid = 0;
    WORD wLenData = 0; // unused, kept for fidelity
    WORD wFlags = 0;
    CEVALUNION val;
};

struct SORTORDERSPEC {
    CEPROPID propid = 0;
    DWORD dwFlags = 0;
};

// What CeCreateDatabaseEx takes and CeOidGetInfoEx reports of a database.
// A database has at most one sort order here (wNumSortOrder 0 or 1), ascending, with the flags 0 or
// CEDB_SORT_UNKNOWNFIRST (descending and case-insensitive sorts are refused).
struct CEDBASEINFO {
    QString szDbaseName;
    DWORD dwDbaseType = 0;
    WORD wNumRecords = 0;   // reported by CeOidGetInfoEx; saturates at 65535 as on the device
    DWORD dwNumRecords = 0; // the exact count (our addition: the device's WORD can overflow)
    WORD wNumSortOrder = 0;
    SORTORDERSPEC rgSortSpecs[CEDB_MAXSORTORDER];
    // Which members hold a value. CeCreateDatabaseEx ignores it (name, type and sort order are
    // always taken); CeOidGetInfoEx sets CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC.
    DWORD dwFlags = 0;
};

constexpr WORD OBJTYPE_INVALID = 0;
constexpr WORD OBJTYPE_DATABASE = 3;
constexpr WORD OBJTYPE_RECORD = 4;

struct CERECORDINFO {
    CEOID oidParent = 0; // the database that holds the record
};

struct CEOIDINFO {
    WORD wObjType = OBJTYPE_INVALID;
    CEDBASEINFO infDatabase; // when wObjType is OBJTYPE_DATABASE
    CERECORDINFO infRecord;  // when wObjType is OBJTYPE_RECORD
};

// --- The object store -------------------------------------------------------------------------
// Mounts the object store volume at path (creating it when missing: OPEN_ALWAYS) as the system
// GUID. FALSE, with the last error set, when the file is not a volume of this format.
BOOL CeMountObjectStore(const QString& path);
// Unmounts the object store; every handle on it becomes invalid.
void CeUnmountObjectStore();

// --- Volumes ----------------------------------------------------------------------------------
// Mounts the volume file at path in mode CREATE_NEW, CREATE_ALWAYS, OPEN_EXISTING or OPEN_ALWAYS
// and writes its identifier to *guid. A file that exists but is not a volume of this format, or
// fails SQLite's integrity check, is refused (ERROR_BADDB) and nothing of it is read.
BOOL CeMountDBVol(CEGUID* guid, const QString& path, DWORD flags);
BOOL CeUnmountDBVol(const CEGUID* guid);

// --- Databases --------------------------------------------------------------------------------
// Creates an empty database; returns its identifier, or 0 (ERROR_DUP_NAME for a name in use,
// ERROR_INVALID_PARAMETER for an empty or over-long name or more than one sort order).
CEOID CeCreateDatabaseEx(const CEGUID* guid, const CEDBASEINFO* info);
// Opens a database by identifier (*oid != 0) or else by name, writing its identifier to *oid.
// propid 0 orders by creation; otherwise propid must be the database's sort property
// (ERROR_INVALID_PARAMETER if not). A name that does not exist gives ERROR_FILE_NOT_FOUND.
// As on the device, the seek pointer starts at the first record in the order: a read right after
// opening reads it (so a CEDB_AUTOINCREMENT read loop needs no seek first).
HANDLE CeOpenDatabaseEx(const CEGUID* guid, CEOID* oid, const QString& name, CEPROPID propid, DWORD flags,
                        void* notify = nullptr);
// Deletes the database and all its records. Handles still open on it fail afterwards
// with ERROR_INVALID_HANDLE.
BOOL CeDeleteDatabaseEx(const CEGUID* guid, CEOID oid);
// Enumerates the databases of a volume; dbType 0 enumerates all of them.
HANDLE CeFindFirstDatabaseEx(const CEGUID* guid, DWORD dbType);
// The next database's identifier, or 0 with ERROR_NO_MORE_ITEMS at the end.
CEOID CeFindNextDatabaseEx(HANDLE find, CEGUID* guid);
// Describes a database or a record of a volume.
BOOL CeOidGetInfoEx(const CEGUID* guid, CEOID oid, CEOIDINFO* info);
// Closes a database or enumeration handle.
BOOL CloseHandle(HANDLE handle);

// --- Records ----------------------------------------------------------------------------------
// Seeks by position (CEDB_SEEK_CEOID, _BEGINNING, _END, _CURRENT: value is an object id or a
// record count, signed for _CURRENT and _END). Returns the record found and makes it current,
// or 0 with nothing current (ERROR_NO_MORE_ITEMS when no record is there).
// *index, when given, receives the record's position in the order (0 = first).
CEOID CeSeekDatabase(HANDLE db, DWORD seekType, DWORD value, DWORD* index = nullptr);
// Seeks by the value of the sort property (CEDB_SEEK_VALUE*); value.propid must be the property
// the database was opened with. VALUESMALLER finds the last record of the largest value below
// value, VALUEFIRSTEQUAL the first equal one, VALUEGREATER the first whose value is greater than or
// equal, VALUENEXTEQUAL the record after the current one when its value equals value.
CEOID CeSeekDatabase(HANDLE db, DWORD seekType, const CEPROPVAL& value, DWORD* index = nullptr);
// Reads every property of the current record into props, in ascending property-id order, and
// returns the record's identifier; with CEDB_AUTOINCREMENT the next record becomes current.
// With nothing current, returns 0 and ERROR_NO_MORE_ITEMS. A stored value that does not match its
// property's type fails the read with ERROR_INVALID_DATA (the pointer stays). flags is kept for
// fidelity.
CEOID CeReadRecordProps(HANDLE db, DWORD flags, std::vector<CEPROPVAL>* props);
// Reads only the properties listed in wanted (full ids: number and type), as the device's read with
// a property-id array does: props gets one entry per id of wanted, in the order given, and an id
// the record lacks comes back with CEDB_PROPNOTFOUND in wFlags (its value means nothing). The
// entries props already holds are used again, so a walk that reads the same list from record to
// record allocates nothing; only the value member an entry's type names is ever written. Otherwise
// as the read above: the same return value, CEDB_AUTOINCREMENT step and errors (ERROR_INVALID_DATA
// only for a stored value among those asked for).
CEOID CeReadRecordProps(HANDLE db, DWORD flags, const std::vector<CEPROPID>& wanted, std::vector<CEPROPVAL>* props);
// Writes props into record oid (0: a new record). An existing record keeps the properties not
// named; a property flagged CEDB_PROPDELETE is removed. Happens whole or not at all.
// Returns the record's identifier, or 0. The current record does not change.
CEOID CeWriteRecordProps(HANDLE db, CEOID oid, const std::vector<CEPROPVAL>& props);
BOOL CeDeleteRecord(HANDLE db, CEOID oid);
