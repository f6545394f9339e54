// A write that has returned survives a kill of the process at any moment: the writer program is
// killed with SIGKILL again and again while it adds, rewrites and deletes records, and every record
// then reads back exactly as the last write it reported left it (or, for the one write a kill cut
// short, as that write would have left it), whole, in a volume that passes SQLite's integrity check.

#include "DurabilityRecord.h"
#include "SqlReader.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

namespace {
constexpr int kKills = 24;

// The seeds a record may read back with (0: deleted), by object id.
using Allowed = std::map<CEOID, std::set<DWORD>>;

// Runs the writer until a random moment, kills it, and takes in the lines it printed in full.
void runAndKill(const QString& volume, std::mt19937& random, bool waitForWrites, Allowed* allowed) {
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
    // A write announced and not reported may or may not have happened.
    std::pair<CEOID, DWORD> pending{0, 0};
    for (const QByteArray& line : output.left(output.lastIndexOf('\n') + 1).split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        if (fields.size() != 3) {
            continue;
        }
        const CEOID oid = fields[1].toUInt();
        const DWORD seed = fields[2].toUInt();
        if (fields[0] == "?") {
            pending = {oid, seed};
        } else {
            (*allowed)[oid] = {seed};
            pending = {0, 0};
        }
    }
    if (pending.first != 0) {
        (*allowed)[pending.first].insert(pending.second);
    }
}
} // namespace

TEST(DurabilityTest, EveryReportedWriteSurvivesAKillAtAnyMoment) {
    QTemporaryDir dir;
    const QString volume = dir.filePath(QStringLiteral("durable.kov"));
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE(testing::Message() << "random seed " << seed);
    std::mt19937 random(seed);
    Allowed allowed;
    for (int kill = 0; kill < kKills; ++kill) {
        runAndKill(volume, random, kill % 4 != 3, &allowed);
        if (HasFatalFailure()) {
            return;
        }
    }
    ASSERT_GT(allowed.size(), static_cast<size_t>(kKills));

    CEGUID guid;
    ASSERT_TRUE(CeMountDBVol(&guid, volume, OPEN_EXISTING)) << GetLastError();
    CEOID oid = 0;
    HANDLE db = CeOpenDatabaseEx(&guid, &oid, DurabilityRecord::kDatabase, 0, CEDB_AUTOINCREMENT);
    ASSERT_NE(db, INVALID_HANDLE_VALUE);
    std::vector<CEPROPVAL> props;
    std::map<CEOID, DWORD> found;
    for (CEOID record = CeReadRecordProps(db, 0, &props); record != 0; record = CeReadRecordProps(db, 0, &props)) {
        EXPECT_TRUE(DurabilityRecord::isWhole(props)) << "record " << record;
        found[record] = props.empty() ? 0 : props[0].val.ulVal;
    }
    EXPECT_EQ(GetLastError(), ERROR_NO_MORE_ITEMS);
    for (const auto& [record, seeds] : allowed) {
        const auto there = found.find(record);
        const DWORD seed = there != found.end() ? there->second : 0;
        EXPECT_EQ(seeds.count(seed), 1u) << "record " << record << " reads as seed " << seed
                                         << " (0: gone), not as its last reported write left it: one of "
                                         << testing::PrintToString(seeds);
    }
    CloseHandle(db);
    CeUnmountDBVol(&guid);
    EXPECT_EQ(SqlReader(volume).value(QStringLiteral("PRAGMA integrity_check")).toString(), "ok");
}

// A kill at each of the writes a run begins with (the volume's creation, then each mount of it and
// its first records) leaves a volume that mounts again: a log the kill cut short is not a damaged
// volume.
TEST(DurabilityTest, AKillAtEachOfTheFirstWritesLeavesAVolumeThatMountsAgain) {
    QTemporaryDir dir;
    const QString volume = dir.filePath(QStringLiteral("durable.kov"));
    for (int write = 1; write <= 30; ++write) {
        QProcess writer;
        writer.start(QStringLiteral(DURABILITY_WRITER), {volume, QString::number(write)});
        ASSERT_TRUE(writer.waitForFinished(30000));
        ASSERT_EQ(writer.exitStatus(), QProcess::CrashExit) << "the writer was not killed at write " << write;
        CEGUID guid;
        ASSERT_TRUE(CeMountDBVol(&guid, volume, OPEN_ALWAYS))
            << "after a kill at write " << write << ": error " << GetLastError();
        EXPECT_TRUE(CeUnmountDBVol(&guid));
    }
}
