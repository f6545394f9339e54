// The database service's entry points: each finds its volume or handle, does its work through the
// classes behind it, and sets the thread's last error (ERROR_SUCCESS on success).

#include "CeDatabase.h"

#include "Catalogue.h"
#include "DatabaseFind.h"
#include "DatabaseHandle.h"
#include "HandleTable.h"
#include "Volume.h"
#include "VolumeTable.h"

#include <algorithm>

namespace {
// Sets the last error and passes result through.
template <typename T> T finish(DWORD error, T result) {
    SetLastError(error);
    return result;
}

BOOL finish(DWORD error) {
    SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}

// The handle as a T whose volume is still mounted (and, for a database, not deleted).
template <typename T> T* liveHandle(HANDLE handle) {
    T* found = HandleTable::instance().find<T>(handle);
    return found != nullptr && found->volume() != nullptr ? found : nullptr;
}

void describe(const DatabaseInfo& database, DWORD records, CEDBASEINFO* info) {
    *info = CEDBASEINFO{};
    info->szDbaseName = database.name;
    info->dwDbaseType = database.type;
    info->dwNumRecords = records;
    info->wNumRecords = static_cast<WORD>(std::min<DWORD>(records, 0xFFFF));
    info->wNumSortOrder = database.sortPropid != 0 ? 1 : 0;
    info->rgSortSpecs[0].propid = database.sortPropid;
    info->rgSortSpecs[0].dwFlags = database.sortPropid != 0 ? database.sortFlags : 0;
    info->dwFlags = CEDB_VALIDNAME | CEDB_VALIDTYPE | CEDB_VALIDSORTSPEC;
}

DWORD describeObject(Volume& volume, CEOID oid, CEOIDINFO* info) {
    Catalogue catalogue(volume);
    DatabaseInfo database;
    DWORD error = catalogue.findById(oid, &database);
    if (error == ERROR_SUCCESS) {
        DWORD records = 0;
        error = catalogue.countRecords(oid, &records);
        *info = CEOIDINFO{};
        info->wObjType = OBJTYPE_DATABASE;
        describe(database, records, &info->infDatabase);
        return error;
    }
    if (error != ERROR_INVALID_PARAMETER) {
        return error;
    }
    CEOID parent = 0;
    error = catalogue.recordParent(oid, &parent);
    if (error != ERROR_SUCCESS || parent == 0) {
        return error != ERROR_SUCCESS ? error : ERROR_INVALID_PARAMETER;
    }
    *info = CEOIDINFO{};
    info->wObjType = OBJTYPE_RECORD;
    info->infRecord.oidParent = parent;
    return ERROR_SUCCESS;
}
} // namespace

void CREATE_SYSTEMGUID(CEGUID* guid) {
    *guid = CEGUID{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF};
}

void CREATE_INVALIDGUID(CEGUID* guid) {
    *guid = CEGUID{};
}

BOOL CeMountObjectStore(const QString& path) {
    VolumeTable& table = VolumeTable::instance();
    if (Volume* store = table.objectStore()) {
        // Mounting the mounted store again changes nothing; another store cannot replace it.
        return finish(table.findByPath(path) == store ? ERROR_SUCCESS : ERROR_ALREADY_EXISTS);
    }
    if (table.findByPath(path) != nullptr) {
        return finish(ERROR_SHARING_VIOLATION);
    }
    DWORD error = ERROR_SUCCESS;
    std::unique_ptr<Volume> volume = Volume::mount(path, OPEN_ALWAYS, Volume::Role::ObjectStore, &error);
    if (volume != nullptr) {
        table.add(std::move(volume));
    }
    return finish(error);
}

void CeUnmountObjectStore() {
    CEGUID guid;
    CREATE_SYSTEMGUID(&guid);
    finish(VolumeTable::instance().remove(guid) ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER);
}

BOOL CeMountDBVol(CEGUID* guid, const QString& path, DWORD flags) {
    VolumeTable& table = VolumeTable::instance();
    if (guid == nullptr) {
        return finish(ERROR_INVALID_PARAMETER);
    }
    CREATE_INVALIDGUID(guid);
    // One connection per file: a file mounted already (the object store too) is not mounted twice.
    if (table.findByPath(path) != nullptr) {
        return finish(ERROR_SHARING_VIOLATION);
    }
    DWORD error = ERROR_SUCCESS;
    std::unique_ptr<Volume> volume = Volume::mount(path, flags, Volume::Role::File, &error);
    if (volume == nullptr) {
        return finish(error);
    }
    *guid = table.add(std::move(volume));
    return finish(ERROR_SUCCESS);
}

BOOL CeUnmountDBVol(const CEGUID* guid) {
    CEGUID system;
    CREATE_SYSTEMGUID(&system);
    if (guid == nullptr || *guid == system) {
        return finish(ERROR_INVALID_PARAMETER); // the object store goes with CeUnmountObjectStore
    }
    return finish(VolumeTable::instance().remove(*guid) ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER);
}

CEOID CeCreateDatabaseEx(const CEGUID* guid, const CEDBASEINFO* info) {
    Volume* volume = VolumeTable::instance().find(guid);
    if (volume == nullptr || info == nullptr) {
        return finish<CEOID>(ERROR_INVALID_PARAMETER, 0);
    }
    CEOID oid = 0;
    const DWORD error = Catalogue(*volume).create(*info, &oid);
    return finish(error, oid);
}

HANDLE CeOpenDatabaseEx(const CEGUID* guid, CEOID* oid, const QString& name, CEPROPID propid, DWORD flags,
                        void* /*notify*/) {
    Volume* volume = VolumeTable::instance().find(guid);
    if (volume == nullptr || oid == nullptr || (flags & ~CEDB_AUTOINCREMENT) != 0) {
        return finish(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    }
    // The lookup already reads in the transaction the new handle's reads will share.
    volume->holdRead();
    Catalogue catalogue(*volume);
    DatabaseInfo info;
    DWORD error = *oid != 0 ? catalogue.findById(*oid, &info) : catalogue.findByName(name, &info);
    if (error == ERROR_SUCCESS && propid != 0 && propid != info.sortPropid) {
        error = ERROR_INVALID_PARAMETER;
    }
    if (error != ERROR_SUCCESS) {
        volume->releaseReadIfIdle();
        return finish(error, INVALID_HANDLE_VALUE);
    }
    *oid = info.oid;
    auto handle = std::make_unique<DatabaseHandle>(volume, std::move(info), propid != 0, flags);
    return finish(ERROR_SUCCESS, HandleTable::instance().add(std::move(handle)));
}

BOOL CeDeleteDatabaseEx(const CEGUID* guid, CEOID oid) {
    Volume* volume = VolumeTable::instance().find(guid);
    if (volume == nullptr) {
        return finish(ERROR_INVALID_PARAMETER);
    }
    const DWORD error = Catalogue(*volume).remove(oid);
    if (error == ERROR_SUCCESS) {
        volume->invalidateDatabase(oid);
    }
    return finish(error);
}

HANDLE CeFindFirstDatabaseEx(const CEGUID* guid, DWORD dbType) {
    Volume* volume = VolumeTable::instance().find(guid);
    if (volume == nullptr) {
        return finish(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    }
    return finish(ERROR_SUCCESS, HandleTable::instance().add(std::make_unique<DatabaseFind>(volume, dbType)));
}

CEOID CeFindNextDatabaseEx(HANDLE find, CEGUID* guid) {
    DatabaseFind* enumeration = liveHandle<DatabaseFind>(find);
    if (enumeration == nullptr) {
        return finish<CEOID>(ERROR_INVALID_HANDLE, 0);
    }
    if (guid != nullptr && VolumeTable::instance().find(guid) != enumeration->volume()) {
        return finish<CEOID>(ERROR_INVALID_PARAMETER, 0);
    }
    CEOID oid = 0;
    const DWORD error = enumeration->next(&oid);
    return finish(error, oid);
}

BOOL CeOidGetInfoEx(const CEGUID* guid, CEOID oid, CEOIDINFO* info) {
    Volume* volume = VolumeTable::instance().find(guid);
    if (volume == nullptr || info == nullptr || oid == 0) {
        return finish(ERROR_INVALID_PARAMETER);
    }
    return finish(describeObject(*volume, oid, info));
}

BOOL CloseHandle(HANDLE handle) {
    return finish(HandleTable::instance().close(handle) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE);
}

CEOID CeSeekDatabase(HANDLE db, DWORD seekType, DWORD value, DWORD* index) {
    DatabaseHandle* database = liveHandle<DatabaseHandle>(db);
    if (database == nullptr) {
        return finish<CEOID>(ERROR_INVALID_HANDLE, 0);
    }
    CEOID found = 0;
    const DWORD error = database->seek(seekType, value, &found, index);
    return finish(error, found);
}

CEOID CeSeekDatabase(HANDLE db, DWORD seekType, const CEPROPVAL& value, DWORD* index) {
    DatabaseHandle* database = liveHandle<DatabaseHandle>(db);
    if (database == nullptr) {
        return finish<CEOID>(ERROR_INVALID_HANDLE, 0);
    }
    CEOID found = 0;
    const DWORD error = database->seek(seekType, value, &found, index);
    return finish(error, found);
}

CEOID CeReadRecordProps(HANDLE db, DWORD /*flags*/, std::vector<CEPROPVAL>* props) {
    DatabaseHandle* database = liveHandle<DatabaseHandle>(db);
    if (database == nullptr || props == nullptr) {
        return finish<CEOID>(database == nullptr ? ERROR_INVALID_HANDLE : ERROR_INVALID_PARAMETER, 0);
    }
    CEOID oid = 0;
    const DWORD error = database->read(props, &oid);
    return finish(error, error == ERROR_SUCCESS ? oid : 0);
}

CEOID CeReadRecordProps(HANDLE db, DWORD /*flags*/, const std::vector<CEPROPID>& wanted,
                        std::vector<CEPROPVAL>* props) {
    DatabaseHandle* database = liveHandle<DatabaseHandle>(db);
    if (database == nullptr || props == nullptr) {
        return finish<CEOID>(database == nullptr ? ERROR_INVALID_HANDLE : ERROR_INVALID_PARAMETER, 0);
    }
    CEOID oid = 0;
    const DWORD error = database->read(wanted, props, &oid);
    return finish(error, error == ERROR_SUCCESS ? oid : 0);
}

CEOID CeWriteRecordProps(HANDLE db, CEOID oid, const std::vector<CEPROPVAL>& props) {
    DatabaseHandle* database = liveHandle<DatabaseHandle>(db);
    if (database == nullptr) {
        return finish<CEOID>(ERROR_INVALID_HANDLE, 0);
    }
    CEOID written = 0;
    const DWORD error = database->write(oid, props, &written);
    return finish(error, written);
}

BOOL CeDeleteRecord(HANDLE db, CEOID oid) {
    DatabaseHandle* database = liveHandle<DatabaseHandle>(db);
    if (database == nullptr) {
        return finish(ERROR_INVALID_HANDLE);
    }
    return finish(database->deleteRecord(oid));
}
