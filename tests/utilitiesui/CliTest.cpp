// kovalin-cli run as a process on a device whose logs are written with plain SQL.

#include "DeviceLock.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "SqlLogWriter.h"
#include "TestDevice.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

namespace {
struct CliResult {
    int code;
    QString out;
    QString err;
};

class CliTest : public ::testing::Test {
protected:
    CliTest() : m_store(m_device.paths().objectStore()) {
        m_store.writeList("KovUserList", {"Ann"});
        for (const QString log :
             {"Kov2AUpperBody", "Kov2BUpperBody", "Kov2ALowerBody", "Kov2BLowerBody", "Kov2Aerobic", "Kov2Food"}) {
            for (const QString user : {"", "Ann"}) {
                m_store.writeDay(log + user, QDate(2024, 3, 14), {SqlLogWriter::text(1132, user + " was here")});
            }
        }
    }
    CliResult cli(const QStringList& arguments, const QByteArray& input = {}) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("KOVALIN_DEVICE", m_device.root() + "/device");
        process.setProcessEnvironment(environment);
        process.start(KOVALIN_CLI, arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(60000));
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromLocal8Bit(process.readAllStandardOutput()),
                QString::fromLocal8Bit(process.readAllStandardError())};
    }

    TestDevice m_device;
    SqlLogWriter m_store;
};

TEST_F(CliTest, BackupTakesTheLastUserOrTheUserNamedAndRestoreAsksFirst) {
    RegistryHelper::SetString(HKEY_CURRENT_USER, Settings::kKey, Settings::kLastUser, "Ann");
    CliResult run = cli({"backup"});
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, "Backing up...\n");
    EXPECT_EQ(run.err, "Backup complete!\n");
    EXPECT_TRUE(QFile::exists(m_device.paths().myDocuments() + "/Ann.kov"));

    run = cli({"--device", m_device.root() + "/device", "--user", "Default", "backup"});
    EXPECT_EQ(run.code, 0);
    m_store.run("DELETE FROM records WHERE db IN (SELECT oid FROM databases WHERE name LIKE 'Kov2%')");

    run = cli({"--user", "Default", "restore"}, "n\n");
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.out, "Restoring...\nCancelled.\n");
    EXPECT_EQ(cli({"--user", "Default", "restore"}, "y\n").code, 0);
    EXPECT_EQ(m_store.dump("Kov2Food").count("was here"), 1);
    // Without a terminal to answer, it does not restore (--yes does, as the killed-command tests run it).
    EXPECT_EQ(cli({"--user", "Ann", "restore"}).code, 1);
}

TEST_F(CliTest, RestoreCompactAndImportAreRefusedWhileKovalinOrAnotherCommandRunsButBackupAndADryRunAreNot) {
    DeviceLock running(m_device.paths().lockFile());
    ASSERT_EQ(running.acquire(), DWORD(ERROR_SUCCESS));
    for (const QStringList& command : {QStringList{"restore", "--yes"}, {"compact"}, {"import", m_device.root()}}) {
        const CliResult run = cli(command);
        EXPECT_EQ(run.code, 1) << run.err.toStdString();
        EXPECT_EQ(run.err,
                  "kovalin-cli: Kovalin is running on this device; close it before running " + command.first() + ".\n");
    }
    // Backup and an import's dry run only read.
    EXPECT_EQ(cli({"backup"}).code, 0);
    const CliResult dryRun = cli({"import", "--dry-run", m_device.root()});
    EXPECT_EQ(dryRun.code, 1);
    EXPECT_TRUE(dryRun.err.startsWith("kovalin-cli: ")) << dryRun.err.toStdString();
    EXPECT_TRUE(dryRun.err.contains("holds no file Kovalin can import. Known are:"));
    // The lock as a restore of the command line holds it.
    running.describe("kovalin-cli restore");
    EXPECT_EQ(cli({"compact"}).err, "kovalin-cli: Another command (kovalin-cli restore) is running on this device; "
                                    "run compact when it has finished.\n");
}

TEST_F(CliTest, TablesGoOutAndComeBackAndTheExitStatusSaysWhetherAllWasTaken) {
    const QString tables = m_device.root() + "/tables";
    CliResult run = cli({"--user", "Default", "export", "--tables", tables});
    EXPECT_EQ(run.code, 0) << run.err.toStdString();
    EXPECT_EQ(QDir(tables).entryList({"*.csv"}).size(), 5);
    // Ann's day holds her notes: left as it is, which is no failure.
    EXPECT_EQ(cli({"--user", "Ann", "import", tables}).code, 0);
    EXPECT_EQ(m_store.dump("Kov2FoodAnn").count("Ann was here"), 1);
    EXPECT_EQ(cli({"--user", "Ann", "import", "--replace", tables}).code, 0);
    EXPECT_EQ(m_store.dump("Kov2FoodAnn").count("Ann was here"), 0);

    QFile body(tables + "/body.csv");
    ASSERT_TRUE(body.open(QIODevice::Append));
    body.write("2024-03-15,many,,,,,,,,,,,,,,\r\n");
    body.close();
    run = cli({"--user", "Ann", "import", "--dry-run", tables});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(run.out.contains("body.csv line 3: water \"many\" is not a whole number")) << run.out.toStdString();
}

TEST_F(CliTest, RefusalsAndUsage) {
    CliResult run = cli({"--user", "Bob", "backup"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "kovalin-cli: There is no user named \"Bob\" on this device.\n");
    // The list's row for adding a user is in the list, and no one.
    run = cli({"--user", "<add new user>", "backup"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "kovalin-cli: \"<add new user>\" is the row for adding a user, not a user.\n");

    run = cli({"--device", m_device.root() + "/elsewhere", "backup"});
    EXPECT_EQ(run.code, 1);
    EXPECT_EQ(run.err, "kovalin-cli: There is no Kovalin device in " + m_device.root() +
                           "/elsewhere (it has no objectstore.db).\n");
    EXPECT_FALSE(QFile::exists(m_device.root() + "/elsewhere"));

    run = cli({"compact"});
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(run.out.startsWith("Compacting...\n")) << run.out.toStdString();

    m_store.writeList("KovUserList", {"bob", "Carl"});
    run = cli({"users"});
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(run.out, "Ann\nbob\nCarl\n");

    for (const QStringList& usage :
         {QStringList{"frob"}, {}, {"backup", "restore"}, {"import"}, {"backup", "--tables", "folder"}}) {
        EXPECT_EQ(cli(usage).code, 2) << usage.join(' ').toStdString();
    }
    run = cli({"--help"});
    EXPECT_EQ(run.code, 0);
    EXPECT_TRUE(run.out.contains("users    prints the user list, one name a line"));
}
} // namespace
