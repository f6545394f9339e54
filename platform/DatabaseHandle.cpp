#include "DatabaseHandle.h"

#include "PropertyCodec.h"
#include "RecordCopy.h"
#include "RecordTable.h"
#include "Volume.h"

#include <algorithm>

DatabaseHandle::DatabaseHandle(Volume* volume, DatabaseInfo info, bool sorted, DWORD flags)
    : VolumeHandle(volume), m_info(std::move(info)), m_sorted(sorted),
      m_autoIncrement((flags & CEDB_AUTOINCREMENT) != 0),
      m_order(*volume, m_info.oid, sorted, (m_info.sortFlags & CEDB_SORT_UNKNOWNFIRST) != 0) {}

DWORD DatabaseHandle::current(std::optional<Position>* position) const {
    position->reset();
    switch (m_state) {
    case State::At:
        *position = m_position;
        return ERROR_SUCCESS;
    case State::AtFirst:
        return m_order.step(nullptr, true, 0, position);
    default:
        return ERROR_SUCCESS;
    }
}

DWORD DatabaseHandle::land(DWORD error, std::optional<Position> found, CEOID* oid, DWORD* index) {
    *oid = 0;
    if (error != ERROR_SUCCESS || !found.has_value()) {
        moveTo(std::nullopt);
        return error != ERROR_SUCCESS ? error : ERROR_NO_MORE_ITEMS;
    }
    // The position costs a count, so it is only worked out when asked for.
    if (index != nullptr) {
        error = m_order.indexOf(*found, index);
        if (error != ERROR_SUCCESS) {
            moveTo(std::nullopt);
            return error;
        }
    }
    *oid = found->oid;
    moveTo(std::move(found));
    return ERROR_SUCCESS;
}

DWORD DatabaseHandle::seekCurrent(LONG offset, std::optional<Position>* found) const {
    std::optional<Position> base;
    const DWORD error = current(&base);
    if (error != ERROR_SUCCESS || !base.has_value()) {
        return error;
    }
    if (offset == 0) {
        return m_order.locate(base->oid, found); // the record may have been deleted meanwhile
    }
    const std::int64_t distance = offset > 0 ? std::int64_t{offset} : -std::int64_t{offset};
    return m_order.step(&*base, offset > 0, static_cast<std::uint64_t>(distance - 1), found);
}

DWORD DatabaseHandle::seek(DWORD seekType, DWORD value, CEOID* found, DWORD* index) {
    volume()->holdRead();
    std::optional<Position> position;
    DWORD error = ERROR_SUCCESS;
    const auto signedValue = static_cast<LONG>(value);
    switch (seekType) {
    case CEDB_SEEK_CEOID:
        error = m_order.locate(value, &position);
        break;
    case CEDB_SEEK_BEGINNING:
        error = m_order.step(nullptr, true, value, &position);
        break;
    case CEDB_SEEK_END:
        // Counted back from the last record; a negative count would lead past the end.
        if (signedValue >= 0) {
            error = m_order.step(nullptr, false, static_cast<std::uint64_t>(signedValue), &position);
        }
        break;
    case CEDB_SEEK_CURRENT:
        error = seekCurrent(signedValue, &position);
        break;
    default:
        error = ERROR_INVALID_PARAMETER;
        break;
    }
    return land(error, std::move(position), found, index);
}

DWORD DatabaseHandle::seekNextEqual(const CEPROPVAL& value, std::optional<Position>* found) const {
    std::optional<Position> base;
    DWORD error = current(&base);
    if (error != ERROR_SUCCESS || !base.has_value()) {
        return error;
    }
    error = m_order.step(&*base, true, 0, found);
    if (error == ERROR_SUCCESS && found->has_value() && !((*found)->key == PropertyCodec::sortKeyOf(value))) {
        found->reset();
    }
    return error;
}

DWORD DatabaseHandle::seek(DWORD seekType, const CEPROPVAL& value, CEOID* found, DWORD* index) {
    volume()->holdRead();
    std::optional<Position> position;
    DWORD error = ERROR_SUCCESS;
    if (!m_sorted || value.propid != m_info.sortPropid || PropertyCodec::check(value) != ERROR_SUCCESS) {
        error = ERROR_INVALID_PARAMETER;
    } else if (seekType == CEDB_SEEK_VALUESMALLER) {
        error = m_order.seek(RecordOrder::Compare::Smaller, PropertyCodec::sortKeyOf(value), &position);
    } else if (seekType == CEDB_SEEK_VALUEFIRSTEQUAL) {
        error = m_order.seek(RecordOrder::Compare::FirstEqual, PropertyCodec::sortKeyOf(value), &position);
    } else if (seekType == CEDB_SEEK_VALUEGREATER) {
        error = m_order.seek(RecordOrder::Compare::GreaterOrEqual, PropertyCodec::sortKeyOf(value), &position);
    } else if (seekType == CEDB_SEEK_VALUENEXTEQUAL) {
        error = seekNextEqual(value, &position);
    } else {
        error = ERROR_INVALID_PARAMETER;
    }
    return land(error, std::move(position), found, index);
}

void DatabaseHandle::moveTo(std::optional<Position> position) {
    if (position.has_value()) {
        m_state = State::At;
        m_position = std::move(*position);
        m_foundAt = volume()->readPoint();
    } else {
        m_state = State::Nowhere;
    }
}

template <typename ReadRecord> DWORD DatabaseHandle::readCurrent(ReadRecord&& readRecord, CEOID* oid) {
    *oid = 0;
    volume()->holdRead();
    // Where the record about to be read was found: the current one when it was sought, any other
    // (the first record, or the one after a deleted one) now.
    Volume::ReadPoint foundAt = m_state == State::At ? m_foundAt : volume()->readPoint();
    std::optional<Position> position;
    DWORD error = current(&position);
    while (error == ERROR_SUCCESS && position.has_value()) {
        int rows = 0;
        error = readRecord(position->oid, &rows);
        if (error != ERROR_SUCCESS) {
            return error;
        }
        // Nothing read: either a record without any of the properties, or one deleted since it
        // became current, in which case the pointer moves on to the record that now follows its
        // place. A record found in the read transaction still in force, with nothing written
        // since, is still there; only otherwise is it looked up again.
        bool there = rows > 0 || volume()->unchangedSince(foundAt);
        if (!there) {
            std::optional<Position> still;
            error = m_order.locate(position->oid, &still);
            there = still.has_value();
        }
        if (error == ERROR_SUCCESS && there) {
            *oid = position->oid;
            if (!m_autoIncrement) {
                moveTo(std::move(position));
                return ERROR_SUCCESS;
            }
            std::optional<Position> next;
            error = m_order.step(&*position, true, 0, &next);
            moveTo(std::move(next));
            return error;
        }
        std::optional<Position> next;
        if (error == ERROR_SUCCESS) {
            foundAt = volume()->readPoint();
            error = m_order.step(&*position, true, 0, &next);
        }
        position = std::move(next);
    }
    moveTo(std::nullopt);
    return error != ERROR_SUCCESS ? error : ERROR_NO_MORE_ITEMS;
}

DWORD DatabaseHandle::read(std::vector<CEPROPVAL>* props, CEOID* oid) {
    props->clear();
    RecordTable records(*volume());
    return readCurrent([&](CEOID record, int* rows) { return records.read(record, props, rows); }, oid);
}

DWORD DatabaseHandle::read(const std::vector<CEPROPID>& wanted, std::vector<CEPROPVAL>* props, CEOID* oid) {
    RecordTable records(*volume());
    return readCurrent([&](CEOID record, int* rows) { return records.read(record, wanted, props, rows); }, oid);
}

DWORD DatabaseHandle::write(CEOID oid, const std::vector<CEPROPVAL>& props, CEOID* written) {
    RecordTable records(*volume());
    const DWORD error = records.write(m_info, oid, props, written);
    // The current record keeps being current; its place in the order follows a new sort key.
    const bool sortKeyWritten = std::any_of(props.begin(), props.end(), [this](const CEPROPVAL& prop) {
        return m_info.sortPropid != 0 && prop.propid == m_info.sortPropid;
    });
    if (error == ERROR_SUCCESS && sortKeyWritten && m_state == State::At && m_position.oid == *written) {
        std::optional<Position> moved;
        if (m_order.locate(*written, &moved) == ERROR_SUCCESS && moved.has_value()) {
            m_position = std::move(*moved);
        }
    }
    return error;
}

DWORD DatabaseHandle::copyTo(DatabaseHandle& to, DWORD count, DWORD* copied, const CeRecordCheck& accept) {
    *copied = 0;
    if (!m_autoIncrement || &to == this) {
        return ERROR_INVALID_PARAMETER; // the pointer would never move on
    }
    // The pointer as it was, for a copy that is not kept.
    const State state = m_state;
    const Position position = m_position;
    const Volume::ReadPoint foundAt = m_foundAt;
    const DWORD error = to.volume()->bulkTransaction([&] {
        RecordCopy copy(*volume(), *to.volume(), to.m_info, accept);
        for (; *copied < count; ++*copied) {
            int rows = 0;
            CEOID oid = 0;
            DWORD error = readCurrent(
                [&](CEOID record, int* read) {
                    const DWORD copyError = copy.copy(record, read);
                    rows = *read;
                    return copyError;
                },
                &oid);
            if (error == ERROR_NO_MORE_ITEMS) {
                return ERROR_SUCCESS;
            }
            if (error == ERROR_SUCCESS && rows == 0) {
                error = copy.addEmpty();
            }
            if (error != ERROR_SUCCESS) {
                return error;
            }
        }
        return ERROR_SUCCESS;
    });
    if (error != ERROR_SUCCESS) {
        *copied = 0;
        m_state = state;
        m_position = position;
        m_foundAt = foundAt;
    }
    return error;
}

DWORD DatabaseHandle::deleteRecord(CEOID oid) {
    RecordTable records(*volume());
    return records.remove(m_info.oid, oid);
}
