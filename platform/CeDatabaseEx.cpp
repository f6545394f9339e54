#include "CeDatabaseEx.h"

#include "DatabaseHandle.h"
#include "HandleTable.h"
#include "Volume.h"
#include "VolumeTable.h"

namespace {
BOOL finish(DWORD error) {
    SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}

DatabaseHandle* liveDatabase(HANDLE handle) {
    DatabaseHandle* found = HandleTable::instance().find<DatabaseHandle>(handle);
    return found != nullptr && found->volume() != nullptr ? found : nullptr;
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

BOOL CeCopyRecords(HANDLE from, HANDLE to, DWORD count, DWORD* copied, const CeRecordCheck& accept) {
    DatabaseHandle* source = liveDatabase(from);
    DatabaseHandle* target = liveDatabase(to);
    if (source == nullptr || target == nullptr) {
        return finish(ERROR_INVALID_HANDLE);
    }
    DWORD done = 0;
    const DWORD error = copied != nullptr ? source->copyTo(*target, count, &done, accept) : ERROR_INVALID_PARAMETER;
    if (copied != nullptr) {
        *copied = done;
    }
    return finish(error);
}
