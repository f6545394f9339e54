// Backup and restore on logs written with plain SQL; the backup file and the logs read back the same
// way. Each happens whole or not at all: a backup that stops leaves the previous one in place, a
// restore that stops, or meets a record it cannot read or one beyond the record limits, leaves every
// log as it was.

#include "Backup.h"
#include "FaultyVfs.h"
#include "RecordingReport.h"
#include "Restore.h"
#include "SqlLogWriter.h"
#include "StoredDays.h"
#include "TestDevice.h"
#include "VolumeFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <map>

namespace {
using namespace PropType;

const QStringList kLogs = {"Kov2AUpperBody", "Kov2BUpperBody", "Kov2ALowerBody",
                           "Kov2BLowerBody", "Kov2Aerobic",    "Kov2Food"};
const QStringList kCopies = {"BkUpperA", "BkUpperB", "BkLowerA", "BkLowerB", "BkAerobic", "BkFood"};
const QDate kDay(2024, 3, 14);
const QString kMountMessage = "message Error mounting file volume.  Be sure the 'Default.kov' file is in the My "
                              "Documents folder of your Pocket PC.";
const QString kNotABackup = "message The file 'Default.kov' in the My Documents folder is not a Kovalin backup, or it "
                            "is damaged.  Nothing was changed.";

class BackupRestoreTest : public ::testing::Test {
protected:
    BackupRestoreTest() : m_store(m_device.paths().objectStore()) {}

    // The six logs of user: the marker, then days written out of date order, every property type
    // the logs use; the aerobic log is left empty.
    void writeLogs(const QString& user = {}) {
        for (const QString& log : kLogs) {
            m_store.writeLog(log + user);
            if (log == "Kov2Aerobic") {
                continue;
            }
            m_store.writeDay(log + user, QDate(1968, 11, 29));
            m_store.writeDay(log + user, kDay,
                             {{102, kI2, 7}, {105, kUI2, 1}, {1003, kR8, 21.5}, {1132, kText, log + user}});
            m_store.writeDay(log + user, kDay.addDays(-3),
                             {{1010, kFileTime, 123456789}, {900, kI4, -5}, {901, kBlob, QByteArray("\x01\x02")}});
        }
    }
    QString backupPath(const QString& name = "Default") const {
        return m_device.paths().myDocuments() + "/" + name + ".kov";
    }
    QString logs() const { return m_store.dumpAll(kLogs); }

    // The files of My Documents by name, each with its bytes.
    std::map<QString, QByteArray> myDocuments() const {
        std::map<QString, QByteArray> files;
        const QDir folder(m_device.paths().myDocuments());
        for (const QString& name : folder.entryList(QDir::Files | QDir::System | QDir::Hidden)) {
            files[name] = VolumeFiles::readFile(folder.filePath(name));
        }
        return files;
    }
    // Runs operation with the nth write or sync from now failing, for n = 1, 2, ... until the
    // operation no longer meets the fault; check is told each time whether the operation succeeded.
    void failEachCallInTurn(const std::function<bool()>& operation, const std::function<void(bool)>& check) {
        for (const auto& [call, full] : {std::pair{FaultyVfs::Call::Write, true}, {FaultyVfs::Call::Sync, false}}) {
            bool fired = true;
            for (int n = 1; fired && n < 200; ++n) {
                SCOPED_TRACE(testing::Message() << (full ? "a full disk" : "a sync that fails") << " at call " << n);
                m_vfs.failCall(call, n, full);
                const bool done = operation();
                m_vfs.disarm();
                fired = m_vfs.fired();
                EXPECT_TRUE(done || fired);
                check(done);
            }
            EXPECT_FALSE(fired) << "the operation never ended without the fault";
        }
    }

    // First, so that every connection, the object store's too, goes through it.
    FaultyVfs m_vfs;
    TestDevice m_device;
    SqlLogWriter m_store;
    RecordingReport m_report;
};

TEST_F(BackupRestoreTest, BackupCopiesEveryRecordVerbatimInDateOrderIntoSixCopies) {
    writeLogs();
    const QString before = logs();

    ASSERT_TRUE(Backup::run(QString(), m_report));

    SqlLogWriter file(backupPath());
    // The copies keep the records in the order they were written: the logs' date order.
    EXPECT_EQ(file.dumpAll(kCopies, true), before);
    EXPECT_EQ(file.catalogue(),
              "BkAerobic:0:64:0 BkFood:0:64:0 BkLowerA:0:64:0 BkLowerB:0:64:0 BkUpperA:0:64:0 BkUpperB:0:64:0");
    // What the status line and the box tell; the progress bar's steps in between are not kept.
    EXPECT_EQ(m_report.texts(), QStringList({"status Backing up...", "message Backup complete!", "status "}));
}

// A second backup replacing the first is checked where a backup stops.
TEST_F(BackupRestoreTest, BackupIsNamedAfterTheUser) {
    writeLogs("Ann");
    ASSERT_TRUE(Backup::run("Ann", m_report));

    EXPECT_FALSE(QFile::exists(backupPath()));
    EXPECT_EQ(SqlLogWriter(backupPath("Ann")).dump("BkFood").count("'Kov2FoodAnn'"), 1);
}

TEST_F(BackupRestoreTest, ABackupThatStopsLeavesThePreviousBackupAsItWas) {
    writeLogs();
    ASSERT_TRUE(Backup::run(QString(), m_report));
    const std::map<QString, QByteArray> previous = myDocuments();
    ASSERT_EQ(previous.size(), 1u);

    m_store.writeDay("Kov2Food", kDay.addDays(1), {{1001, kI2, 4}});
    failEachCallInTurn([this] { return Backup::run(QString(), m_report); },
                       [&](bool done) {
                           // A sync that fails after the rename may leave the new backup in place.
                           const std::map<QString, QByteArray> now = myDocuments();
                           EXPECT_EQ(now.size(), 1u) << "no partial file is left";
                           EXPECT_TRUE(!done || now != previous);
                           if (now != previous) { // read from a copy: a reader leaves companions
                               const QString copy = m_device.root() + "/copy.kov";
                               QFile::remove(copy);
                               QFile::copy(backupPath(), copy);
                               EXPECT_EQ(SqlLogWriter(copy).dumpAll(kCopies, true), logs());
                           }
                       });

    m_store.run("DELETE FROM databases WHERE name = 'Kov2ALowerBody'");
    const std::map<QString, QByteArray> last = myDocuments();
    m_report.log.clear();
    EXPECT_FALSE(Backup::run(QString(), m_report));
    EXPECT_EQ(m_report.texts(), QStringList({"status Backing up...", "status Error opening object store volume"}));
    EXPECT_EQ(myDocuments(), last);

    m_report.log.clear();
    QDir(m_device.paths().myDocuments()).removeRecursively();
    EXPECT_FALSE(Backup::run(QString(), m_report));
    EXPECT_EQ(m_report.texts(), QStringList({"status Backing up...", "status Error mounting database file"}));
}

TEST_F(BackupRestoreTest, ABackupReplacesALinkAndAStalePartialFileInsteadOfWritingThroughThem) {
    writeLogs();
    QTemporaryDir outside;
    const QString elsewhere = outside.filePath("elsewhere.db");
    VolumeFiles::writeFile(elsewhere, "not the device's");
    ASSERT_TRUE(QFile::link(elsewhere, backupPath()));
    VolumeFiles::writeFile(backupPath() + ".partial", QByteArray(5000, 'x'));

    ASSERT_TRUE(Backup::run(QString(), m_report));

    EXPECT_EQ(VolumeFiles::readFile(elsewhere), "not the device's");
    EXPECT_FALSE(QFileInfo(backupPath()).isSymLink());
    EXPECT_EQ(QDir(m_device.paths().myDocuments()).entryList(QDir::Files | QDir::System), QStringList("Default.kov"));
    EXPECT_EQ(SqlLogWriter(backupPath()).dumpAll(kCopies, true), logs());
}

TEST_F(BackupRestoreTest, ADamagedBackupIsRefusedWithNothingChanged) {
    writeLogs();
    ASSERT_TRUE(Backup::run(QString(), m_report));
    m_store.writeDay("Kov2Food", kDay.addDays(1), {{1001, kI2, 4}});
    const QString before = logs();
    const QByteArray whole = VolumeFiles::readFile(backupPath());

    struct Damage {
        const char* what;
        std::function<void()> apply;
        QStringList texts;
    };
    const std::vector<Damage> damages = {
        {"a copy missing (the last one read)",
         [this] { SqlLogWriter(backupPath()).run("DELETE FROM databases WHERE name = 'BkFood'"); },
         {"status Error opening backup volume"}},
        {"a record that cannot be read (text where a 16-bit number belongs)",
         [this] {
             SqlLogWriter(backupPath())
                 .run("UPDATE props SET value = 'x' WHERE propid = (102 << 16) | 2 AND record = "
                      "(SELECT max(r.oid) FROM records r JOIN databases d ON r.db = d.oid WHERE "
                      "d.name = 'BkLowerB')");
         },
         {"message Data access error"}},
        {"not a volume",
         [this] { VolumeFiles::writeFile(backupPath(), QByteArray(8192, 'k')); },
         {kNotABackup, "status Error opening backup volume"}},
        {"no file", [this] { QFile::remove(backupPath()); }, {kMountMessage, "status Error opening backup volume"}},
        {"a folder in its place",
         [this] {
             QFile::remove(backupPath());
             QDir().mkpath(backupPath());
         },
         {"message The file 'Default.kov' in the My Documents folder cannot be read.  Nothing was changed.",
          "status Error opening backup volume"}},
        {"a note over the limit in the last copy read",
         [this] {
             SqlLogWriter(backupPath())
                 .run("UPDATE props SET value = replace(hex(zeroblob(10001)), '00', 'x') WHERE propid = (1132 << 16) "
                      "| 31 AND record IN (SELECT r.oid FROM records r JOIN databases d ON r.db = d.oid WHERE d.name "
                      "= 'BkFood')");
         },
         {"message The backup holds a record larger than Kovalin keeps (property 1132 holds a note of 10001 "
          "characters; a note holds at most 10000). Nothing was changed."}},
    };
    for (const Damage& damage : damages) {
        SCOPED_TRACE(damage.what);
        QDir(backupPath()).removeRecursively();
        VolumeFiles::writeFile(backupPath(), whole);
        damage.apply();
        m_report.log.clear();
        EXPECT_FALSE(Restore::run(QString(), m_report));
        EXPECT_EQ(m_report.texts(), damage.texts);
        EXPECT_EQ(logs(), before);
    }
}

TEST_F(BackupRestoreTest, ARestoreGivesBackTheBackupsRecordsOrStopsWithEveryLogAsItWasAndTheBackupUntouched) {
    writeLogs();
    ASSERT_TRUE(Backup::run(QString(), m_report));
    const QString backedUp = logs();
    // Changed since: a day added, a log emptied, a log gone. The run that meets no fault gives them back.
    m_store.writeDay("Kov2Food", kDay.addDays(1), {{1001, kI2, 4}});
    m_store.run("DELETE FROM records WHERE db = (SELECT oid FROM databases WHERE name = 'Kov2BLowerBody')");
    m_store.run("DELETE FROM databases WHERE name = 'Kov2ALowerBody'");
    const QString before = logs();
    const QList<QByteArray> file = VolumeFiles::withCompanions(backupPath());

    failEachCallInTurn([this] { return Restore::run(QString(), m_report); },
                       [&](bool done) {
                           // A commit whose sync fails may have been written all the same: the logs
                           // are then wholly restored, never a mix.
                           const QString now = logs();
                           EXPECT_TRUE(now == backedUp || (!done && now == before));
                       });
    // The backup is only read, even where nothing can be made (a folder that cannot be written).
    m_vfs.failCreation();
    m_report.log.clear();
    EXPECT_TRUE(Restore::run(QString(), m_report)) << m_report.log.join('\n').toStdString();
    m_vfs.disarm();
    EXPECT_EQ(m_report.texts(), QStringList({"message Restore successful!", "status "}));
    EXPECT_EQ(logs(), backedUp);
    EXPECT_EQ(VolumeFiles::withCompanions(backupPath()), file);
}

TEST(RestoreQuestion, NamesTheFileOfTheUser) {
    EXPECT_EQ(Restore::question(QString()),
              "This operation will look for a file called 'Default.kov' in your My Documents folder, and if found, it "
              "will replace any existing Kovalin data with the data in that file.  OK to proceed?");
    EXPECT_TRUE(Restore::question("Ann").contains("'Ann.kov'"));
}
} // namespace
