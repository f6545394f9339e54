#pragma once
// What a HANDLE of the database service stands for: an open database or a database enumeration,
// each on one volume. The handle stays allocated until CloseHandle; once its volume is unmounted
// (or its database deleted) it is invalid and every call on it fails with ERROR_INVALID_HANDLE.

#include "WinTypes.h"

class Volume;

class VolumeHandle {
public:
    explicit VolumeHandle(Volume* volume);
    virtual ~VolumeHandle();
    VolumeHandle(const VolumeHandle&) = delete;
    VolumeHandle& operator=(const VolumeHandle&) = delete;

    // The volume, or nullptr once the handle is invalid.
    Volume* volume() const { return m_volume; }
    void invalidate();
    // The database the handle has open; 0 for an enumeration.
    virtual CEOID database() const { return 0; }

private:
    Volume* m_volume;
};
