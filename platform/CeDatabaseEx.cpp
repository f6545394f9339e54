#include "CeDatabaseEx.h"

#include "Volume.h"
#include "VolumeTable.h"

namespace {
BOOL finish(DWORD error) {
    SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}
} // namespace

BOOL CeBeginTransaction(const CEGUID* guid) {
    Volume* volume = VolumeTable::instance().find(guid);
    return finish(volume != nullptr ? volume->beginOperation() : ERROR_INVALID_PARAMETER);
}

BOOL CeEndTransaction(const CEGUID* guid, BOOL commit) {
    Volume* volume = VolumeTable::instance().find(guid);
    return finish(volume != nullptr ? volume->endOperation(commit != FALSE) : ERROR_INVALID_PARAMETER);
}
