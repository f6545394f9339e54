#pragma once
// What the import's tests share: the import run on a path, a digest of a device's logs, and a fixture
// of a fresh device whose logs are written and read with plain SQL and whose folder takes the files
// to import.

#include "HistoryImport.h"
#include "SqlLogWriter.h"
#include "SqlReader.h"
#include "TestDevice.h"
#include "VolumeFiles.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

inline HistoryImport::Outcome import(const QString& user, const QString& path, HistoryImport::Options options = {}) {
    return HistoryImport(user, path, options).run();
}

// Every property of every record of the device, for telling whether anything changed.
inline QString storeDigest(const QString& objectStore) {
    return SqlReader(objectStore)
        .value("SELECT count(*) || ':' || total(length(CAST(value AS BLOB))) || ':' || total(propid) || ':' || "
               "(SELECT count(*) FROM records) FROM props")
        .toString();
}

class ImportTest : public ::testing::Test {
protected:
    ImportTest() : m_store(m_device.paths().objectStore()), m_days(m_device.paths().objectStore()) {}

    QString folder(const QString& name) const { return m_device.root() + "/" + name; }
    // Writes bytes into the file of that path in the device's folder (its folders made); the file's path.
    QString file(const QString& path, const QByteArray& bytes) const {
        QDir().mkpath(QFileInfo(folder(path)).path());
        VolumeFiles::writeFile(folder(path), bytes);
        return folder(path);
    }
    QString digest() const { return storeDigest(m_device.paths().objectStore()); }

    TestDevice m_device;
    SqlLogWriter m_store;
    StoredDays m_days;
};
