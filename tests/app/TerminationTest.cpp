// The program ended by SIGTERM, SIGINT or SIGHUP ends as Exit ends it: exit status 0, the object
// store unmounted (its log folded in, marked as ended cleanly) and the device's lock gone. Each
// signal comes while the first start's release notes wait for an answer in a modal box.

#include "SqlReader.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

#include <sys/types.h>

TEST(TerminationTest, ASignalToEndUnmountsTheStoreAndReleasesTheDevice) {
    for (int signal : {SIGTERM, SIGINT, SIGHUP}) {
        SCOPED_TRACE(signal);
        QTemporaryDir temp;
        const QString device = temp.filePath("device");
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program.start(QStringLiteral(KOVALIN_PROGRAM), {"--device", device});
        ASSERT_TRUE(program.waitForStarted());
        // The lock is taken once the handlers are in place; the folders once the store is mounted.
        QDeadlineTimer deadline(30000);
        while (!QFile::exists(device + "/Windows") && !deadline.hasExpired()) {
            program.waitForFinished(10);
        }
        ASSERT_TRUE(QFile::exists(device + "/kovalin.lock"));
        ::kill(static_cast<pid_t>(program.processId()), signal);
        ASSERT_TRUE(program.waitForFinished(30000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_FALSE(QFile::exists(device + "/kovalin.lock"));
        EXPECT_FALSE(QFile::exists(device + "/objectstore.db-wal"));
        EXPECT_EQ(
            SqlReader(device + "/objectstore.db").value("SELECT value FROM meta WHERE name = 'in_use'").toLongLong(),
            0);
    }
}
