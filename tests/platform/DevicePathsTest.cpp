#include "DevicePaths.h"
#include "ErrorMessage.h"

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

TEST(DevicePaths, CreatesTheDeviceFolderPrivatelyAndNeverFillsAFolderThatIsNotADevice) {
    QTemporaryDir temp;
    const mode_t umask = ::umask(0); // whatever the umask
    const DevicePaths paths(temp.path() + "/missing/parent/device");
    ASSERT_TRUE(paths.ensureCreated());
    for (const char* folder : {"", "/My Documents", "/Windows", "/Program Files", "/Program Files/Kovalin"}) {
        EXPECT_EQ(modeOf(paths.root() + folder), 0700u) << folder;
    }
    EXPECT_EQ(modeOf(temp.path() + "/missing"), 0700u);
    ::umask(umask);

    // A folder that is there already keeps the mode its owner gave it.
    ::chmod(QFile::encodeName(paths.root()).constData(), 0750);
    EXPECT_TRUE(paths.ensureCreated());
    EXPECT_EQ(modeOf(paths.root()), 0750u);

    // An empty folder (or one with only a device's lock and folders) is adopted; one with anything
    // else in it is a device only when it holds the object store.
    const DevicePaths home(temp.path() + "/home");
    ASSERT_TRUE(QDir().mkdir(home.root()));
    EXPECT_EQ(home.claim(), ERROR_SUCCESS);
    QFile(home.lockFile()).open(QIODevice::WriteOnly);
    ASSERT_EQ(home.createFolders(), ERROR_SUCCESS);
    EXPECT_EQ(home.claim(), ERROR_SUCCESS);
    QFile(home.root() + "/notes.txt").open(QIODevice::WriteOnly);
    EXPECT_EQ(home.claim(), ERROR_DIR_NOT_EMPTY);
    EXPECT_FALSE(home.ensureCreated());
    EXPECT_EQ(QDir(home.root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 5);
    EXPECT_EQ(ErrorMessage::forPath(home.root(), ERROR_DIR_NOT_EMPTY),
              home.root() +
                  " is not a Kovalin device: the folder holds other files and no objectstore.db (error 145).");
    QFile(home.objectStore()).open(QIODevice::WriteOnly);
    EXPECT_EQ(home.claim(), ERROR_SUCCESS);

    QFile blocker(temp.path() + "/file");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    EXPECT_EQ(DevicePaths(blocker.fileName()).claim(), ERROR_DIRECTORY);
    EXPECT_EQ(DevicePaths(blocker.fileName() + "/device").claim(), ERROR_DIRECTORY);

    // A device whose My Documents is a file: the folder that cannot be made is the one named.
    const DevicePaths blocked(temp.path() + "/blocked");
    ASSERT_TRUE(QDir().mkpath(blocked.windowsFolder()));
    QFile(blocked.myDocuments()).open(QIODevice::WriteOnly);
    QString failed;
    EXPECT_EQ(blocked.createFolders(&failed), ERROR_DIRECTORY);
    EXPECT_EQ(failed, blocked.myDocuments());
}

TEST(DevicePaths, MapsDevicePathsInsideTheFolderOnly) {
    QTemporaryDir temp;
    const DevicePaths paths(temp.path() + "/device");
    ASSERT_TRUE(paths.ensureCreated());
    const QString root = paths.root();
    EXPECT_EQ(paths.hostPath("\\My Documents\\kovupper.csv"), root + "/My Documents/kovupper.csv");
    EXPECT_EQ(paths.hostPath("/Program Files/Kovalin/picture.jpg"), root + "/Program Files/Kovalin/picture.jpg");
    // The device's file system ignores case: an existing entry is found whatever the case asked.
    EXPECT_EQ(paths.hostPath("\\MY DOCUMENTS\\Ann.kov"), root + "/My Documents/Ann.kov");

    EXPECT_EQ(paths.hostPath("\\..\\..\\etc\\passwd"), root + "/etc/passwd");
    EXPECT_EQ(paths.hostPath("\\My Documents\\..\\..\\..\\x.csv"), root + "/x.csv");
    EXPECT_EQ(paths.hostPath("..\\device2\\x"), root + "/device2/x");
    EXPECT_EQ(paths.hostPath("\\Windows\\.\\..\\Windows\\goals.dat"), root + "/Windows/goals.dat");
}
