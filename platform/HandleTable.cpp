#include "HandleTable.h"

#include "VolumeHandle.h"

HandleTable& HandleTable::instance() {
    static HandleTable table;
    return table;
}

HANDLE HandleTable::add(std::unique_ptr<VolumeHandle> handle) {
    m_next += 4;
    m_handles.emplace(m_next, std::move(handle));
    return reinterpret_cast<HANDLE>(m_next);
}

VolumeHandle* HandleTable::find(HANDLE handle) const {
    const auto found = m_handles.find(reinterpret_cast<std::uintptr_t>(handle));
    return found != m_handles.end() ? found->second.get() : nullptr;
}

bool HandleTable::close(HANDLE handle) {
    return m_handles.erase(reinterpret_cast<std::uintptr_t>(handle)) == 1;
}
