#pragma once
// Files of a volume as bytes and as plain SQL, for tests that build or damage volumes by hand and
// check that what the platform refused is left exactly as it was; and the mount and the database
// those tests make.

#include "CeDatabase.h"
#include "SqlLogWriter.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <gtest/gtest.h>

namespace VolumeFiles {
inline QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

// Runs sql on the file with a connection of its own, as anyone with the sqlite3 shell would.
inline void runSql(const QString& path, const char* sql) {
    SqlLogWriter(path).run(QString::fromUtf8(sql));
}

// The file and its companions, each as bytes (empty when missing), to compare before and after.
inline QList<QByteArray> withCompanions(const QString& path) {
    QList<QByteArray> files;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        const QString name = path + QLatin1String(suffix);
        files.append(QFile::exists(name) ? QByteArray("present:") + readFile(name) : QByteArray("missing"));
    }
    return files;
}
// Overwrites 150 bytes of the third page: in a volume of some forty databases, cells of the name index.
inline void damageThirdPage(const QString& path) {
    QByteArray pages = readFile(path);
    ASSERT_GT(pages.size(), 3 * 4096);
    pages.replace(3 * 4096 - 200, 150, QByteArray(150, '\x5A'));
    writeFile(path, pages);
}

// Mounts path, or reports the mount's last error as a failure of the test.
inline CEGUID mount(const QString& path, DWORD mode) {
    CEGUID guid;
    EXPECT_TRUE(CeMountDBVol(&guid, path, mode)) << "last error " << GetLastError();
    return guid;
}

// A database with one sort order on sort.
inline CEOID createDatabase(const CEGUID& guid, const QString& name, CEPROPID sort, DWORD type = 0) {
    CEDBASEINFO info;
    info.szDbaseName = name;
    info.dwDbaseType = type;
    info.wNumSortOrder = 1;
    info.rgSortSpecs[0].propid = sort;
    return CeCreateDatabaseEx(&guid, &info);
}
} // namespace VolumeFiles
