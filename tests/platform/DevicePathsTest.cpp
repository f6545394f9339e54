#include "DevicePaths.h"

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {
unsigned modeOf(const QString& path) {
    struct stat info {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &info), 0) << path.toStdString();
    return info.st_mode & 07777;
}
} // namespace

TEST(DevicePaths, ResolvesOptionThenVariableThenAppData) {
    const QByteArray old = qgetenv("KOVALIN_DEVICE");
    qputenv("KOVALIN_DEVICE", "/tmp/from-variable");
    EXPECT_EQ(DevicePaths::resolve("/tmp/from-option"), "/tmp/from-option");
    EXPECT_EQ(DevicePaths::resolve({}), "/tmp/from-variable");
    EXPECT_EQ(DevicePaths::resolve("relative/dev"), QDir::current().absoluteFilePath("relative/dev"));
    qputenv("KOVALIN_DEVICE", "");
    EXPECT_EQ(DevicePaths::resolve({}), QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/device");
    qputenv("KOVALIN_DEVICE", old);
}

TEST(DevicePaths, CreatesTheDeviceFolderPrivately) {
    QTemporaryDir temp;
    const DevicePaths paths(temp.path() + "/missing/parent/device");
    ASSERT_TRUE(paths.ensureCreated());
    EXPECT_EQ(modeOf(paths.root()), 0700u);
    for (const char* folder : {"My Documents", "Windows", "Program Files/Kovalin"}) {
        EXPECT_TRUE(QFileInfo(paths.root() + '/' + folder).isDir()) << folder;
    }
    EXPECT_EQ(paths.objectStore(), paths.root() + "/objectstore.db");

    // A folder that is there already keeps the mode its owner gave it.
    ::chmod(QFile::encodeName(paths.root()).constData(), 0750);
    EXPECT_TRUE(paths.ensureCreated());
    EXPECT_EQ(modeOf(paths.root()), 0750u);

    QFile blocker(temp.path() + "/file");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    EXPECT_FALSE(DevicePaths(blocker.fileName()).ensureCreated());
}

TEST(DevicePaths, MapsDevicePathsInsideTheFolderOnly) {
    QTemporaryDir temp;
    const DevicePaths paths(temp.path() + "/device");
    ASSERT_TRUE(paths.ensureCreated());
    const QString root = paths.root();
    EXPECT_EQ(paths.hostPath("\\My Documents\\kovupper.csv"), root + "/My Documents/kovupper.csv");
    EXPECT_EQ(paths.hostPath("\\Windows\\goals.dat"), root + "/Windows/goals.dat");
    EXPECT_EQ(paths.hostPath("/Program Files/Kovalin/picture.jpg"), root + "/Program Files/Kovalin/picture.jpg");
    // The device's file system ignores case: an existing entry is found whatever the case asked.
    EXPECT_EQ(paths.hostPath("\\MY DOCUMENTS\\Ann.kov"), root + "/My Documents/Ann.kov");

    EXPECT_EQ(paths.hostPath("\\..\\..\\etc\\passwd"), root + "/etc/passwd");
    EXPECT_EQ(paths.hostPath("\\My Documents\\..\\..\\..\\x.csv"), root + "/x.csv");
    EXPECT_EQ(paths.hostPath("..\\device2\\x"), root + "/device2/x");
    EXPECT_EQ(paths.hostPath("\\Windows\\.\\..\\Windows\\goals.dat"), root + "/Windows/goals.dat");
}

TEST(DevicePaths, CurrentIsTheOneSet) {
    DevicePaths::setCurrent(DevicePaths("/tmp/one-device"));
    EXPECT_EQ(DevicePaths::current().windowsFolder(), "/tmp/one-device/Windows");
}
