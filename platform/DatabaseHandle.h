#pragma once
// An open database: its catalogue row, the order it was opened in, and the seek pointer.
//
// The seek pointer is a position in the order (sort key and object id), not a row count, so that
// every move is one keyset query on an index. Right after opening it is at the first record,
// whichever that is when it is first used; after a failed seek, or a read past the last record,
// it is nowhere (nothing is current).

#include "CeDatabase.h"
#include "CeDatabaseEx.h"
#include "DatabaseInfo.h"
#include "RecordOrder.h"
#include "Volume.h"
#include "VolumeHandle.h"

#include <optional>
#include <vector>

class DatabaseHandle : public VolumeHandle {
public:
    // sorted: opened with the database's sort property (else: creation order).
    DatabaseHandle(Volume* volume, DatabaseInfo info, bool sorted, DWORD flags);

    CEOID database() const override { return m_info.oid; }

    // The CeSeekDatabase kinds that take a number (CEOID, BEGINNING, END, CURRENT).
    DWORD seek(DWORD seekType, DWORD value, CEOID* found, DWORD* index);
    // The CeSeekDatabase kinds that take a value of the sort property.
    DWORD seek(DWORD seekType, const CEPROPVAL& value, CEOID* found, DWORD* index);
    DWORD read(std::vector<CEPROPVAL>* props, CEOID* oid);
    // Only the properties wanted, one entry each (CEDB_PROPNOTFOUND for those the record lacks).
    DWORD read(const std::vector<CEPROPID>& wanted, std::vector<CEPROPVAL>* props, CEOID* oid);
    DWORD write(CEOID oid, const std::vector<CEPROPVAL>& props, CEOID* written);
    DWORD deleteRecord(CEOID oid);
    // Up to count records from the current one on, copied as new records of to, moving on as reads
    // with CEDB_AUTOINCREMENT do; one transaction of to's volume. *copied < count: the end came.
    DWORD copyTo(DatabaseHandle& to, DWORD count, DWORD* copied, const CeRecordCheck& accept);

private:
    using Position = RecordOrder::Position;
    enum class State { AtFirst, At, Nowhere };

    // The current record's position; empty when nothing is current.
    DWORD current(std::optional<Position>* position) const;
    DWORD seekCurrent(LONG offset, std::optional<Position>* found) const;
    DWORD seekNextEqual(const CEPROPVAL& value, std::optional<Position>* found) const;
    // Makes the seek's outcome current and reports it.
    DWORD land(DWORD error, std::optional<Position> found, CEOID* oid, DWORD* index);
    void moveTo(std::optional<Position> position);
    // Reads the current record with readRecord(oid, &rows), stepping over records deleted since
    // they became current, and moves on after it when auto-incrementing.
    template <typename ReadRecord> DWORD readCurrent(ReadRecord&& readRecord, CEOID* oid);

    DatabaseInfo m_info;
    bool m_sorted;
    bool m_autoIncrement;
    RecordOrder m_order;
    State m_state = State::AtFirst;
    Position m_position;
    // Where reads stood when the current record was found.
    Volume::ReadPoint m_foundAt;
};
