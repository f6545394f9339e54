// A write that has returned survives a kill of the process at any moment: the writer program is
// killed with SIGKILL again and again while it writes, and every record it reported is then there,
// whole, in a volume that passes SQLite's integrity check.

#include "DurabilityRecord.h"
#include "SqlReader.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {
constexpr int kKills = 24;

// Runs the writer until a random moment, kills it, and adds the ids it printed in full lines.
void runAndKill(const QString& volume, std::mt19937& random, bool waitForWrites, std::set<CEOID>* printed) {
    QProcess writer;
    writer.start(QStringLiteral(DURABILITY_WRITER), {volume});
    ASSERT_TRUE(writer.waitForStarted());
    QByteArray output;
    // Most runs are killed among the writes, some while the writer is still starting or mounting.
    const qsizetype lines = waitForWrites ? 1 + random() % 12 : 0;
    while (output.count('\n') < lines) {
        ASSERT_TRUE(writer.waitForReadyRead(30000)) << writer.readAllStandardError().toStdString();
        output += writer.readAllStandardOutput();
    }
    const QDeadlineTimer moment(static_cast<qint64>(2 + random() % 40));
    while (!moment.hasExpired() && writer.state() == QProcess::Running) {
        writer.waitForReadyRead(static_cast<int>(std::max<qint64>(1, moment.remainingTime())));
    }
    ASSERT_EQ(writer.state(), QProcess::Running) << writer.readAllStandardError().toStdString();
    writer.kill();
    ASSERT_TRUE(writer.waitForFinished());
    output += writer.readAllStandardOutput();
    for (const QByteArray& line : output.left(output.lastIndexOf('\n') + 1).split('\n')) {
        if (!line.isEmpty()) {
            printed->insert(line.toUInt());
        }
    }
}
} // namespace

TEST(DurabilityTest, EveryReportedWriteSurvivesAKillAtAnyMoment) {
    QTemporaryDir dir;
    const QString volume = dir.filePath(QStringLiteral("durable.kov"));
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "random seed " << seed);
    std::mt19937 random(seed);
    std::set<CEOID> printed;
    for (int kill = 0; kill < kKills; ++kill) {
        runAndKill(volume, random, kill % 4 != 3, &printed);
        if (HasFatalFailure()) {
            return;
        }
    }
    ASSERT_GT(printed.size(), static_cast<size_t>(kKills));

    CEGUID guid;
    ASSERT_TRUE(CeMountDBVol(&guid, volume, OPEN_EXISTING)) << GetLastError();
    CEOID oid = 0;
    HANDLE db = CeOpenDatabaseEx(&guid, &oid, DurabilityRecord::kDatabase, 0, CEDB_AUTOINCREMENT);
    ASSERT_NE(db, INVALID_HANDLE_VALUE);
    std::vector<CEPROPVAL> props;
    std::set<CEOID> found;
    for (CEOID record = CeReadRecordProps(db, 0, &props); record != 0; record = CeReadRecordProps(db, 0, &props)) {
        EXPECT_TRUE(DurabilityRecord::isWhole(props)) << "record " << record;
        found.insert(record);
    }
    EXPECT_EQ(GetLastError(), ERROR_NO_MORE_ITEMS);
    for (CEOID record : printed) {
        EXPECT_EQ(found.count(record), 1u) << "record " << record << " was reported written and is gone";
    }
    CloseHandle(db);
    CeUnmountDBVol(&guid);
    EXPECT_EQ(SqlReader(volume).value(QStringLiteral("PRAGMA integrity_check")).toString(), "ok");
}
