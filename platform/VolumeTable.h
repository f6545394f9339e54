#pragma once
// The mounted volumes of the process, by CEGUID: the object store under the system GUID, every
// other volume under a GUID of its own that is never given twice.

#include "CeDatabase.h"

#include <QString>

#include <memory>
#include <vector>

class Volume;

class VolumeTable {
public:
    static VolumeTable& instance();

    // The volume mounted under guid; nullptr for a null, invalid or unknown GUID.
    Volume* find(const CEGUID* guid) const;
    Volume* objectStore() const;
    // The volume mounted from the file at path, if any (paths are compared once resolved).
    Volume* findByPath(const QString& path) const;
    // Takes the volume; the object store goes under the system GUID.
    CEGUID add(std::unique_ptr<Volume> volume);
    // Unmounts: the connection closes and the volume's handles become invalid.
    bool remove(const CEGUID& guid);

private:
    struct Entry {
        CEGUID guid;
        std::unique_ptr<Volume> volume;
    };
    std::vector<Entry> m_entries;
    DWORD m_nextId = 1;
};
