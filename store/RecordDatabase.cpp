#include "RecordDatabase.h"

#include "ObjectStoreGuid.h"
#include "RecordLimits.h"

RecordDatabase::~RecordDatabase() {
    Close();
}

bool RecordDatabase::Exists(const QString& name) {
    const CEGUID guid = objectStoreGuid();
    CEOID oid = 0;
    HANDLE handle = CeOpenDatabaseEx(&guid, &oid, name, 0, 0);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    CloseHandle(handle);
    return true;
}

bool RecordDatabase::Create(const QString& name, DWORD type, CEPROPID sortProp) {
    const CEGUID guid = objectStoreGuid();
    CEDBASEINFO info;
    info.szDbaseName = name;
    info.dwDbaseType = type;
    info.wNumSortOrder = 1;
    info.rgSortSpecs[0].propid = sortProp;
    return CeCreateDatabaseEx(&guid, &info) != 0;
}

bool RecordDatabase::Open(const QString& name, CEPROPID sortProp) {
    Close();
    const CEGUID guid = objectStoreGuid();
    CEOID oid = 0;
    HANDLE handle = CeOpenDatabaseEx(&guid, &oid, name, sortProp, 0);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    m_handle = handle;
    m_name = name;
    m_oid = oid;
    m_sortProp = sortProp;
    return true;
}

void RecordDatabase::Close() {
    if (m_handle != nullptr) {
        CloseHandle(m_handle);
    }
    m_handle = nullptr;
    m_name.clear();
    m_oid = 0;
    m_sortProp = 0;
    m_current = 0;
    m_sought = false;
    m_pastEnd = false;
}

bool RecordDatabase::DeleteDatabase() {
    if (!isOpen()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    const CEGUID guid = objectStoreGuid();
    const CEOID oid = m_oid;
    Close();
    return CeDeleteDatabaseEx(&guid, oid) != FALSE;
}

CEOID RecordDatabase::SeekFirstEqual(const DbProp& value) {
    return seekValue(CEDB_SEEK_VALUEFIRSTEQUAL, value);
}

CEOID RecordDatabase::SeekLastSmaller(const DbProp& value) {
    return seekValue(CEDB_SEEK_VALUESMALLER, value);
}

CEOID RecordDatabase::seekValue(DWORD seekType, const DbProp& value) {
    if (!isOpen()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    m_current = CeSeekDatabase(m_handle, seekType, value.toPropVal());
    m_sought = true;
    m_pastEnd = m_current == 0;
    return m_current;
}

CEOID RecordDatabase::SeekFirst() {
    return seek(CEDB_SEEK_BEGINNING, 0);
}

CEOID RecordDatabase::SeekNext() {
    if (m_pastEnd) {
        return 0;
    }
    // Nothing sought since opening: the next record is the first one.
    return m_sought ? seek(CEDB_SEEK_CURRENT, 1) : SeekFirst();
}

CEOID RecordDatabase::SeekPrevious() {
    return seek(CEDB_SEEK_CURRENT, static_cast<DWORD>(-1));
}

CEOID RecordDatabase::seek(DWORD seekType, DWORD value) {
    if (!isOpen()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    m_current = CeSeekDatabase(m_handle, seekType, value);
    m_sought = true;
    m_pastEnd = m_current == 0;
    return m_current;
}

bool RecordDatabase::ReadCurrent(DbRecord& record) {
    record.clear();
    if (!isOpen()) {
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

bool RecordDatabase::ReadCurrent(DbRecord& record, const std::vector<CEPROPID>& wanted) {
    record.clear();
    if (!isOpen()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    if (CeReadRecordProps(m_handle, 0, wanted, &m_wantedValues) == 0) {
        return false;
    }
    for (const CEPROPVAL& value : m_wantedValues) {
        if ((value.wFlags & CEDB_PROPNOTFOUND) == 0) {
            record.append(DbProp::fromPropVal(value));
        }
    }
    return true;
}

CEOID RecordDatabase::Write(const DbRecord& record, CEOID oid) {
    if (!isOpen()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    // A record over the limits is refused as the device refuses a property too large, and nothing is
    // written.
    const std::vector<CEPROPVAL> props = record.toPropVals();
    if (!RecordLimits::check(props).isEmpty()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return CeWriteRecordProps(m_handle, oid, props);
}

bool RecordDatabase::DeleteRecord(CEOID oid) {
    if (!isOpen()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    if (oid == m_current) {
        m_current = 0;
    }
    return CeDeleteRecord(m_handle, oid) != FALSE;
}

DWORD RecordDatabase::recordCount() const {
    if (!isOpen()) {
        return 0;
    }
    const CEGUID guid = objectStoreGuid();
    CEOIDINFO info;
    if (!CeOidGetInfoEx(&guid, m_oid, &info) || info.wObjType != OBJTYPE_DATABASE) {
        return 0;
    }
    return info.infDatabase.dwNumRecords;
}
