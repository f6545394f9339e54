#pragma once
// An open database handle of the property-database service, closed when it goes.

#include "CeDatabase.h"

class DbHandle {
public:
    DbHandle() = default;
    explicit DbHandle(HANDLE handle) : m_handle(handle) {}
    ~DbHandle() { close(); }
    DbHandle(const DbHandle&) = delete;
    DbHandle& operator=(const DbHandle&) = delete;

    bool isOpen() const { return m_handle != INVALID_HANDLE_VALUE && m_handle != nullptr; }
    HANDLE get() const { return m_handle; }
    void reset(HANDLE handle) {
        close();
        m_handle = handle;
    }
    void close() {
        if (isOpen()) {
            CloseHandle(m_handle);
        }
        m_handle = nullptr;
    }

private:
    HANDLE m_handle = nullptr;
};
