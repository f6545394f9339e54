#include "DatabaseFind.h"

#include "Catalogue.h"
#include "Volume.h"

DWORD DatabaseFind::next(CEOID* oid) {
    Catalogue catalogue(*volume());
    *oid = 0;
    CEOID found = 0;
    const DWORD error = catalogue.nextDatabase(m_last, m_type, &found);
    if (error != ERROR_SUCCESS) {
        return error;
    }
    if (found == 0) {
        return ERROR_NO_MORE_ITEMS;
    }
    m_last = found;
    *oid = found;
    return ERROR_SUCCESS;
}
