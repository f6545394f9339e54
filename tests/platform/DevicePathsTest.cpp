#include "DevicePaths.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {
// Sets KOVALIN_DEVICE for one test and puts the old value back.
class DeviceVariable {
public:
    explicit DeviceVariable(const QByteArray& value) : m_old(qgetenv("KOVALIN_DEVICE")) {
        qputenv("KOVALIN_DEVICE", value);
    }
    ~DeviceVariable() { qputenv("KOVALIN_DEVICE", m_old); }

private:
    QByteArray m_old;
};

unsigned modeOf(const QString& path) {
    struct stat info {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &info), 0) << path.toStdString();
    return info.st_mode & 07777;
}
} // namespace

TEST(DevicePaths, ResolvesOptionThenVariableThenAppData) {
    {
        DeviceVariable variable("/tmp/from-variable");
        EXPECT_EQ(DevicePaths::resolve("/tmp/from-option"), "/tmp/from-option");
        EXPECT_EQ(DevicePaths::resolve({}), "/tmp/from-variable");
        EXPECT_EQ(DevicePaths::resolve("relative/dev"), QDir::current().absoluteFilePath("relative/dev"));
    }
    DeviceVariable empty("");
    EXPECT_EQ(DevicePaths::resolve({}),
              QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/device"));
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
    EXPECT_EQ(paths.programFolder(), paths.root() + "/Program Files/Kovalin");
    EXPECT_TRUE(paths.ensureCreated()); // a second time finds everything there

    // A folder that is already there keeps the mode its owner gave it.
    const QString existing = temp.path() + "/existing";
    ASSERT_TRUE(QDir().mkdir(existing));
    ::chmod(QFile::encodeName(existing).constData(), 0750);
    ASSERT_TRUE(DevicePaths(existing).ensureCreated());
    EXPECT_EQ(modeOf(existing), 0750u);

    QFile blocker(temp.path() + "/file");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    EXPECT_FALSE(DevicePaths(blocker.fileName()).ensureCreated());
}

TEST(DevicePaths, MapsDevicePathsIntoTheFolder) {
    QTemporaryDir temp;
    const DevicePaths paths(temp.path());
    ASSERT_TRUE(paths.ensureCreated());
    EXPECT_EQ(paths.hostPath("\\My Documents\\kovupper.csv"), temp.path() + "/My Documents/kovupper.csv");
    EXPECT_EQ(paths.hostPath("\\Windows\\goals.dat"), temp.path() + "/Windows/goals.dat");
    EXPECT_EQ(paths.hostPath("\\My Documents\\"), temp.path() + "/My Documents");
    EXPECT_EQ(paths.hostPath("/Program Files/Kovalin/picture.jpg"),
              temp.path() + "/Program Files/Kovalin/picture.jpg");
    // The device's file system ignores case: an existing entry is found whatever the case asked.
    EXPECT_EQ(paths.hostPath("\\MY DOCUMENTS\\Ann.kov"), temp.path() + "/My Documents/Ann.kov");
}

TEST(DevicePaths, DotDotNeverLeavesTheDevice) {
    QTemporaryDir temp;
    const DevicePaths paths(temp.path() + "/device");
    ASSERT_TRUE(paths.ensureCreated());
    EXPECT_EQ(paths.hostPath("\\..\\..\\etc\\passwd"), paths.root() + "/etc/passwd");
    EXPECT_EQ(paths.hostPath("\\My Documents\\..\\..\\..\\x.csv"), paths.root() + "/x.csv");
    EXPECT_EQ(paths.hostPath("..\\device2\\x"), paths.root() + "/device2/x");
    EXPECT_EQ(paths.hostPath("\\Windows\\.\\..\\Windows\\goals.dat"), paths.root() + "/Windows/goals.dat");
}

TEST(DevicePaths, CurrentIsTheOneSet) {
    DevicePaths::setCurrent(DevicePaths("/tmp/one-device"));
    EXPECT_EQ(DevicePaths::current().root(), "/tmp/one-device");
    DevicePaths::setCurrent(DevicePaths("/tmp/another-device"));
    EXPECT_EQ(DevicePaths::current().windowsFolder(), "/tmp/another-device/Windows");
}
