#include "VolumeTable.h"

#include "Volume.h"

#include <QFileInfo>

#include <algorithm>

namespace {
CEGUID systemGuid() {
    CEGUID guid;
    CREATE_SYSTEMGUID(&guid);
    return guid;
}

QString resolved(const QString& path) {
    const QFileInfo file(path);
    return file.exists() ? file.canonicalFilePath() : file.absoluteFilePath();
}
} // namespace

VolumeTable& VolumeTable::instance() {
    static VolumeTable table;
    return table;
}

Volume* VolumeTable::find(const CEGUID* guid) const {
    if (guid == nullptr) {
        return nullptr;
    }
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [guid](const Entry& entry) { return entry.guid == *guid; });
    return found != m_entries.end() ? found->volume.get() : nullptr;
}

Volume* VolumeTable::objectStore() const {
    const CEGUID guid = systemGuid();
    return find(&guid);
}

Volume* VolumeTable::findByPath(const QString& path) const {
    const QString wanted = resolved(path);
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&wanted](const Entry& entry) { return entry.volume->path() == wanted; });
    return found != m_entries.end() ? found->volume.get() : nullptr;
}

CEGUID VolumeTable::add(std::unique_ptr<Volume> volume) {
    CEGUID guid;
    if (volume->role() == Volume::Role::ObjectStore) {
        guid = systemGuid();
    } else {
        // Data1 counts mounts; Data2 marks the GUID as one of ours, never the system or invalid one.
        guid.Data1 = m_nextId++;
        guid.Data2 = 0x4B4F5641; // 'KOVA'
    }
    m_entries.push_back(Entry{guid, std::move(volume)});
    return guid;
}

bool VolumeTable::remove(const CEGUID& guid) {
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [&guid](const Entry& entry) { return entry.guid == guid; });
    if (found == m_entries.end()) {
        return false;
    }
    m_entries.erase(found);
    return true;
}
