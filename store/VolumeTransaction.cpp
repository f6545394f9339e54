#include "VolumeTransaction.h"

#include "ObjectStoreGuid.h"

VolumeTransaction::VolumeTransaction() : VolumeTransaction(objectStoreGuid()) {}

VolumeTransaction::VolumeTransaction(const CEGUID& volume) : m_volume(volume) {
    m_active = CeBeginTransaction(&m_volume) != FALSE;
}

VolumeTransaction::~VolumeTransaction() {
    rollback();
}

bool VolumeTransaction::commit() {
    if (!m_active) {
        SetLastError(ERROR_TRANSACTION_NOT_ACTIVE);
        return false;
    }
    m_active = false;
    return CeEndTransaction(&m_volume, TRUE) != FALSE;
}

void VolumeTransaction::rollback() {
    if (m_active) {
        // A rollback after a failure keeps the failure's last error for the caller to report.
        const DWORD error = GetLastError();
        m_active = false;
        CeEndTransaction(&m_volume, FALSE);
        SetLastError(error);
    }
}
