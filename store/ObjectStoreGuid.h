#pragma once
// The object store's volume id, for the calls that take a volume (open, delete, transactions).

#include "CeDatabase.h"

inline CEGUID objectStoreGuid() {
    CEGUID guid;
    CREATE_SYSTEMGUID(&guid);
    return guid;
}
