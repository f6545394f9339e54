#pragma once
// The order in which an open database's records are visited, and the keyset queries that move
// through it on the records_in_order and records_by_creation indexes (never an OFFSET from the
// start, except to skip the records a positional seek asks to skip).
//
// A sorted order is two segments: the records that have the sort property, by (sort_key, oid),
// and those that lack it (sort_key NULL), by oid; the second segment comes first with
// CEDB_SORT_UNKNOWNFIRST. The creation order is one segment, by oid.

#include "SortKey.h"
#include "WinTypes.h"

#include <array>
#include <cstdint>
#include <optional>

class Volume;

class RecordOrder {
public:
    enum class Segment { Known, Unknown, All };
    struct Position {
        Segment segment = Segment::All;
        SortKey key;
        CEOID oid = 0;
    };
    enum class Compare { Smaller, FirstEqual, GreaterOrEqual };

    RecordOrder(Volume& volume, CEOID database, bool sorted, bool unknownFirst);

    // The record `skip` places on from `from` in the direction given (skip 0: the next one).
    // from nullptr counts from the first record (forward) or the last (backward), skip 0 being
    // that record itself. *found is empty when the order ends first.
    DWORD step(const Position* from, bool forward, std::uint64_t skip, std::optional<Position>* found) const;
    // Record oid as a position; empty when it is not a record of the database.
    DWORD locate(CEOID oid, std::optional<Position>* found) const;
    // Among the records that have the sort property: the last of the largest value below value,
    // the first equal to it, or the first greater than or equal to it.
    DWORD seek(Compare how, const SortKey& value, std::optional<Position>* found) const;
    // The number of records before position in the order.
    DWORD indexOf(const Position& position, DWORD* index) const;

private:
    DWORD fetch(const char* sql, const Position* from, std::uint64_t skip, std::optional<Position>* found) const;
    DWORD count(const char* sql, const Position* from, std::uint64_t* count) const;
    Segment segmentOf(const SortKey& key) const;

    Volume& m_volume;
    CEOID m_database;
    bool m_sorted;
    std::array<Segment, 2> m_segments;
    int m_segmentCount;
};
