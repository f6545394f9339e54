#pragma once
// Copies records of one volume's database into another database, on the same volume or another, as
// new records with every property verbatim: what a read of the record and a write of what was read
// as a new record do, without converting any value on the way (the stored value is handed from one
// statement to the other). Call inside a transaction of the target volume.

#include "CeDatabaseEx.h"
#include "DatabaseInfo.h"
#include "WinTypes.h"

#include <sqlite3.h>

#include <vector>

class Volume;

class RecordCopy {
public:
    RecordCopy(Volume& from, Volume& to, const DatabaseInfo& target, const CeRecordCheck& accept)
        : m_from(from), m_to(to), m_target(target), m_accept(accept) {}
    ~RecordCopy() { discardPending(); }
    RecordCopy(const RecordCopy&) = delete;
    RecordCopy& operator=(const RecordCopy&) = delete;

    // Copies the properties of record oid of the source as a new record of the target. *rows is the
    // number read: 0 for a record without properties, or one that is gone (then nothing is made).
    // ERROR_INVALID_DATA for a stored value that a read would refuse, or a record the check refuses:
    // the caller's transaction then drops what was made of the record.
    DWORD copy(CEOID oid, int* rows);
    // Makes an empty new record of the target: the copy of a record that has no properties.
    DWORD addEmpty();

private:
    // A new record of the target for the record source of the source (0: an empty one).
    DWORD addRecord(CEOID source, CEOID* oid);
    // Writes the properties read so far into record, in one statement.
    DWORD flush(CEOID record);
    void discardPending();

    // A property read and not yet written: its stored value (copied out of the read statement), or
    // for an R8 the number it reads as.
    struct Pending {
        CEPROPID propid;
        sqlite3_value* value;
        double number;
    };
    std::vector<Pending> m_pending;
    static constexpr DWORD kIdsPerBlock = 256;
    CEOID m_nextId = 0;
    CEOID m_endOfIds = 0;

    Volume& m_from;
    Volume& m_to;
    const DatabaseInfo& m_target;
    const CeRecordCheck& m_accept;
    // The record's properties as a read gives them, for the check.
    std::vector<CEPROPVAL> m_read;
};
