#include "RecordOrder.h"

#include "Volume.h"

#include <algorithm>
#include <string>

namespace {
// The SQL of one segment, walked forward (ascending) or backward.
struct SegmentSql {
    std::string first[2]; // from the segment's start, skipping ?2 records
    std::string after[2]; // beyond the position (?3 sort key, ?4 oid), skipping ?2 records
    std::string countAll; // every record of the segment
    std::string countAfter[2];
};

SegmentSql makeSegment(const char* filter, const char* forwardBound, const char* backwardBound,
                       const char* forwardOrder, const char* backwardOrder) {
    const std::string select = "SELECT oid, sort_key FROM records WHERE db = ?1";
    const std::string count = "SELECT count(*) FROM records WHERE db = ?1";
    const std::string where = *filter != '\0' ? std::string(" AND ") + filter : std::string();
    const std::string orders[2] = {backwardOrder, forwardOrder};
    const std::string bounds[2] = {std::string(" AND ") + backwardBound, std::string(" AND ") + forwardBound};
    SegmentSql sql;
    for (int forward = 0; forward < 2; ++forward) {
        const std::string tail = " ORDER BY " + orders[forward] + " LIMIT 1 OFFSET ?2";
        sql.first[forward] = select + where + tail;
        sql.after[forward] = select + bounds[forward] + tail;
        sql.countAfter[forward] = count + bounds[forward];
    }
    sql.countAll = count + where;
    return sql;
}

// Indexed by RecordOrder::Segment. Static storage: the strings' addresses are the statement cache keys.
const SegmentSql kSegments[3] = {
    makeSegment("sort_key IS NOT NULL", "(sort_key, oid) > (?3, ?4)", "(sort_key, oid) < (?3, ?4)", "sort_key, oid",
                "sort_key DESC, oid DESC"),
    makeSegment("sort_key IS NULL", "sort_key IS NULL AND oid > ?4", "sort_key IS NULL AND oid < ?4", "oid",
                "oid DESC"),
    makeSegment("", "oid > ?4", "oid < ?4", "oid", "oid DESC"),
};

const char* const kLocate = "SELECT oid, sort_key FROM records WHERE oid = ?1 AND db = ?2";
const char* const kSmaller =
    "SELECT oid, sort_key FROM records WHERE db = ?1 AND sort_key < ?2 ORDER BY sort_key DESC, oid DESC LIMIT 1";
const char* const kFirstEqual =
    "SELECT oid, sort_key FROM records WHERE db = ?1 AND sort_key = ?2 ORDER BY sort_key, oid LIMIT 1";
const char* const kGreaterOrEqual =
    "SELECT oid, sort_key FROM records WHERE db = ?1 AND sort_key >= ?2 ORDER BY sort_key, oid LIMIT 1";

const SegmentSql& sqlOf(RecordOrder::Segment segment) {
    return kSegments[static_cast<int>(segment)];
}
} // namespace

RecordOrder::RecordOrder(Volume& volume, CEOID database, bool sorted, bool unknownFirst)
    : m_volume(volume), m_database(database), m_sorted(sorted), m_segments{Segment::All, Segment::All},
      m_segmentCount(sorted ? 2 : 1) {
    if (sorted) {
        m_segments =
            unknownFirst ? std::array{Segment::Unknown, Segment::Known} : std::array{Segment::Known, Segment::Unknown};
    }
}

RecordOrder::Segment RecordOrder::segmentOf(const SortKey& key) const {
    if (!m_sorted) {
        return Segment::All;
    }
    return key.isNull() ? Segment::Unknown : Segment::Known;
}

DWORD RecordOrder::fetch(const char* sql, const Position* from, std::uint64_t skip,
                         std::optional<Position>* found) const {
    found->reset();
    SqlStatement* statement = m_volume.statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, m_database);
    statement->bindInt(2, static_cast<std::int64_t>(skip));
    if (from != nullptr) {
        if (from->segment == Segment::Known) {
            from->key.bind(statement->handle(), 3);
        }
        statement->bindInt(4, from->oid);
    }
    const int result = statement->step();
    if (result != SQLITE_ROW) {
        return SqlStatement::errorFor(result);
    }
    const std::int64_t oid = statement->columnInt(0);
    if (oid < 1 || oid > 0xFFFFFFFFll) {
        return ERROR_BADDB;
    }
    SortKey key = SortKey::fromColumn(statement->handle(), 1);
    const Segment segment = segmentOf(key);
    *found = Position{segment, std::move(key), static_cast<CEOID>(oid)};
    return ERROR_SUCCESS;
}

DWORD RecordOrder::count(const char* sql, const Position* from, std::uint64_t* count) const {
    SqlStatement* statement = m_volume.statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, m_database);
    if (from != nullptr) {
        if (from->segment == Segment::Known) {
            from->key.bind(statement->handle(), 3);
        }
        statement->bindInt(4, from->oid);
    }
    std::int64_t value = 0;
    const DWORD error = statement->queryInt(&value);
    *count = static_cast<std::uint64_t>(value);
    return error;
}

DWORD RecordOrder::step(const Position* from, bool forward, std::uint64_t skip, std::optional<Position>* found) const {
    found->reset();
    // The segments in the direction of travel, starting with the one the walk starts in.
    std::array<Segment, 2> segments = m_segments;
    if (!forward && m_segmentCount == 2) {
        std::swap(segments[0], segments[1]);
    }
    int first = 0;
    if (from != nullptr && m_segmentCount == 2 && segments[1] == from->segment) {
        first = 1;
    }
    for (int i = first; i < m_segmentCount; ++i) {
        const SegmentSql& sql = sqlOf(segments[i]);
        const Position* bound = i == first ? from : nullptr;
        const std::string& query = bound != nullptr ? sql.after[forward] : sql.first[forward];
        DWORD error = fetch(query.c_str(), bound, skip, found);
        if (error != ERROR_SUCCESS || found->has_value()) {
            return error;
        }
        if (skip == 0) {
            continue;
        }
        // Not enough records here: skip the ones there are and go on into the next segment.
        std::uint64_t there = 0;
        error = count(bound != nullptr ? sql.countAfter[forward].c_str() : sql.countAll.c_str(), bound, &there);
        if (error != ERROR_SUCCESS) {
            return error;
        }
        skip -= std::min(skip, there);
    }
    return ERROR_SUCCESS;
}

DWORD RecordOrder::locate(CEOID oid, std::optional<Position>* found) const {
    found->reset();
    SqlStatement* statement = m_volume.statement(kLocate);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, oid);
    statement->bindInt(2, m_database);
    const int result = statement->step();
    if (result != SQLITE_ROW) {
        return SqlStatement::errorFor(result);
    }
    SortKey key = SortKey::fromColumn(statement->handle(), 1);
    const Segment segment = segmentOf(key);
    *found = Position{segment, std::move(key), oid};
    return ERROR_SUCCESS;
}

DWORD RecordOrder::seek(Compare how, const SortKey& value, std::optional<Position>* found) const {
    found->reset();
    const char* sql = how == Compare::Smaller ? kSmaller : how == Compare::FirstEqual ? kFirstEqual : kGreaterOrEqual;
    SqlStatement* statement = m_volume.statement(sql);
    if (statement == nullptr) {
        return ERROR_BADDB;
    }
    SqlStatement::Scope scope(*statement);
    statement->bindInt(1, m_database);
    value.bind(statement->handle(), 2);
    const int result = statement->step();
    if (result != SQLITE_ROW) {
        return SqlStatement::errorFor(result);
    }
    const std::int64_t oid = statement->columnInt(0);
    if (oid < 1 || oid > 0xFFFFFFFFll) {
        return ERROR_BADDB;
    }
    *found = Position{Segment::Known, SortKey::fromColumn(statement->handle(), 1), static_cast<CEOID>(oid)};
    return ERROR_SUCCESS;
}

DWORD RecordOrder::indexOf(const Position& position, DWORD* index) const {
    std::uint64_t before = 0;
    for (int i = 0; i < m_segmentCount; ++i) {
        const SegmentSql& sql = sqlOf(m_segments[i]);
        std::uint64_t there = 0;
        const bool own = m_segments[i] == position.segment;
        const DWORD error =
            count(own ? sql.countAfter[0].c_str() : sql.countAll.c_str(), own ? &position : nullptr, &there);
        if (error != ERROR_SUCCESS) {
            return error;
        }
        before += there;
        if (own) {
            break;
        }
    }
    *index = static_cast<DWORD>(before);
    return ERROR_SUCCESS;
}
