#pragma once
// An enumeration of a volume's databases (CeFindFirstDatabaseEx): in object-id order, of one type
// or of all. It remembers the last id it returned, so databases created or deleted meanwhile are
// seen or skipped as they are when the enumeration reaches their place.

#include "VolumeHandle.h"

class DatabaseFind : public VolumeHandle {
public:
    DatabaseFind(Volume* volume, DWORD type) : VolumeHandle(volume), m_type(type) {}

    // The next database's id; ERROR_NO_MORE_ITEMS at the end.
    DWORD next(CEOID* oid);

private:
    DWORD m_type;
    CEOID m_last = 0;
};
