#include "DayCursor.h"

#include "CeDatabase.h"
#include "DayKey.h"

DayCursor::~DayCursor() {
    close();
}

bool DayCursor::open(const QString& name) {
    close();
    CEGUID store;
    CREATE_SYSTEMGUID(&store);
    CEOID oid = 0;
    HANDLE handle = CeOpenDatabaseEx(&store, &oid, name, DayKey::kPropId, 0);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    m_handle = handle;
    return true;
}

void DayCursor::close() {
    if (m_handle != nullptr) {
        CloseHandle(m_handle);
        m_handle = nullptr;
    }
}

CEOID DayCursor::seekDay(const QDate& day) {
    if (m_handle == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    return CeSeekDatabase(m_handle, CEDB_SEEK_VALUEFIRSTEQUAL, DayKey::prop(day).toPropVal());
}

CEOID DayCursor::seekBefore(const QDate& day) {
    if (m_handle == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    return CeSeekDatabase(m_handle, CEDB_SEEK_VALUESMALLER, DayKey::prop(day).toPropVal());
}

CEOID DayCursor::previous() {
    if (m_handle == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    return CeSeekDatabase(m_handle, CEDB_SEEK_CURRENT, static_cast<DWORD>(-1));
}

bool DayCursor::read(DbRecord& record) {
    record.clear();
    if (m_handle == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    std::vector<CEPROPVAL> values;
    if (CeReadRecordProps(m_handle, 0, &values) == 0) {
        return false;
    }
    record = DbRecord::fromPropVals(values);
    return true;
}
