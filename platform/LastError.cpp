#include "WinTypes.h"

namespace {
// Each thread sees its own last error, as on the device.
thread_local DWORD t_lastError = ERROR_SUCCESS;
} // namespace

DWORD GetLastError() {
    return t_lastError;
}

void SetLastError(DWORD code) {
    t_lastError = code;
}
