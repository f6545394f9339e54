#pragma once
// The open HANDLEs of the database service. A HANDLE is a number given out once, never an address,
// so a closed or made-up handle is recognised as invalid instead of being followed.

#include "CeDatabase.h"

#include <cstdint>
#include <memory>
#include <unordered_map>

class VolumeHandle;

class HandleTable {
public:
    static HandleTable& instance();

    HANDLE add(std::unique_ptr<VolumeHandle> handle);
    // The object behind handle, or nullptr when it is not an open handle.
    VolumeHandle* find(HANDLE handle) const;
    template <typename T> T* find(HANDLE handle) const { return dynamic_cast<T*>(find(handle)); }
    bool close(HANDLE handle);

private:
    std::unordered_map<std::uintptr_t, std::unique_ptr<VolumeHandle>> m_handles;
    std::uintptr_t m_next = 0x1000;
};
