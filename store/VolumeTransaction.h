#pragma once
// One operation's writes to a volume as one transaction: begun when made, rolled back when it goes
// without a commit, so that an operation that stops early (a failure, an early return) leaves the
// volume exactly as it found it.

#include "CeDatabaseEx.h"

class VolumeTransaction {
public:
    // Begins on the object store.
    VolumeTransaction();
    explicit VolumeTransaction(const CEGUID& volume);
    ~VolumeTransaction();
    VolumeTransaction(const VolumeTransaction&) = delete;
    VolumeTransaction& operator=(const VolumeTransaction&) = delete;

    // Begun, and not yet committed or rolled back. False when the begin failed (the last error
    // says why): the caller must then not write.
    bool isActive() const { return m_active; }
    // Makes every write since the begin durable. False, with the last error set, when the commit
    // failed: then nothing of the transaction is kept.
    bool commit();
    void rollback();

private:
    CEGUID m_volume;
    bool m_active = false;
};
