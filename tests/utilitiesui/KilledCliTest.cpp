// kovalin-cli killed with SIGKILL at random moments during backup, restore and compact, on a device of
// a year of generated days: afterwards the logs (and the backup file) hold, by content, either the
// state before the command or the state its full run gives, never a mix, and the next command works.

#include "DeviceGenerator.h"
#include "SqlLogWriter.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <random>
#include <set>

namespace {
constexpr int kKills = 5;
const QStringList kLogs = {"Kov2AUpperBody", "Kov2BUpperBody", "Kov2ALowerBody",
                           "Kov2BLowerBody", "Kov2Aerobic",    "Kov2Food"};
const QStringList kCopies = {"BkUpperA", "BkUpperB", "BkLowerA", "BkLowerB", "BkAerobic", "BkFood"};

class KilledCliTest : public ::testing::Test {
protected:
    void SetUp() override {
        DeviceGenerator::Options options;
        options.device = device();
        options.users = 1;
        options.years = 1;
        options.end = QDate(2024, 6, 30);
        DeviceGenerator generator(options);
        ASSERT_TRUE(generator.generate()) << generator.errorText().toStdString();
        QDir(device()).mkpath("My Documents");
        const unsigned seed = std::random_device{}();
        m_random.seed(seed);
        std::cout << "random seed " << seed << "\n";
    }

    QString device() const { return m_dir.path() + "/device"; }
    QString store() const { return device() + "/objectstore.db"; }
    QString backup() const { return device() + "/My Documents/Default.kov"; }

    // Runs kovalin-cli to its end, which must be a success; how long it took, in milliseconds.
    qint64 run(const QStringList& arguments) {
        QElapsedTimer clock;
        clock.start();
        QProcess process;
        start(process, arguments);
        EXPECT_TRUE(process.waitForFinished(120000));
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return clock.elapsed();
    }
    // Runs kovalin-cli and kills it at a random moment within its usual time.
    void runAndKill(const QStringList& arguments, qint64 usualMs) {
        QProcess process;
        start(process, arguments);
        const QDeadlineTimer moment(static_cast<qint64>(m_random() % std::max<qint64>(1, usualMs)));
        while (!moment.hasExpired() && process.state() == QProcess::Running) {
            process.waitForFinished(static_cast<int>(std::max<qint64>(1, moment.remainingTime())));
        }
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            ASSERT_TRUE(process.waitForFinished(30000));
        }
    }

    // Every record of the six logs, by content and in order (object ids left out).
    QString logs() const { return SqlLogWriter(store()).dumpAll(kLogs); }
    // The same of the backup file, read from a copy (a reader leaves companions beside a file).
    QString backupContent() const {
        if (!QFile::exists(backup())) {
            return "no backup";
        }
        const QString copy = m_dir.path() + "/read.kov";
        QFile::remove(copy);
        QFile::copy(backup(), copy);
        return SqlLogWriter(copy).dumpAll(kCopies, true);
    }
    QStringList myDocuments() const { return QDir(device() + "/My Documents").entryList(QDir::Files); }

    void start(QProcess& process, const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("KOVALIN_DEVICE", device());
        process.setProcessEnvironment(environment);
        process.start(KOVALIN_CLI, arguments);
        ASSERT_TRUE(process.waitForStarted());
    }
    // A change of the logs made by hand: the last 60 days of food gone, and every aerobic day.
    void changeLogs() const {
        SqlLogWriter(store()).run(
            "DELETE FROM props WHERE record IN (SELECT oid FROM records WHERE db = (SELECT oid FROM databases WHERE "
            "name = 'Kov2Aerobic') OR (db = (SELECT oid FROM databases WHERE name = 'Kov2Food') AND sort_key > " +
            QString::number(StoredDays::keyOf(QDate(2024, 5, 1))) +
            ")); DELETE FROM records WHERE oid NOT IN (SELECT record FROM props)");
    }

    // Kills command kKills times at random moments within usualMs, then runs it whole: state, read
    // after each kill, is each time as before the first or as after the whole run, which differs.
    // The state after the whole run.
    QString killedThenWhole(const QStringList& command, qint64 usualMs, const std::function<QString()>& state) {
        const QString before = state();
        std::set<QString> seen;
        for (int kill = 0; kill < kKills; ++kill) {
            runAndKill(command, usualMs);
            seen.insert(state());
        }
        run(command);
        const QString after = state();
        EXPECT_NE(after, before);
        for (const QString& content : seen) {
            EXPECT_TRUE(content == before || content == after) << "a state that is neither, after a kill";
        }
        return after;
    }

    QTemporaryDir m_dir;
    std::mt19937 m_random;
};

TEST_F(KilledCliTest, AKilledBackupLeavesThePreviousBackupWhole) {
    const qint64 usual = run({"backup"});
    changeLogs();
    // The whole backup holds the changed logs, in date order as they are read.
    EXPECT_EQ(killedThenWhole({"backup"}, usual, [this] { return backupContent(); }), logs());
    EXPECT_EQ(myDocuments(), QStringList("Default.kov")) << "the next backup removed what a killed one left";
}

TEST_F(KilledCliTest, AKilledRestoreLeavesTheLogsAsTheyWereOrWhollyRestored) {
    const qint64 usual = run({"backup"}) * 2;
    const QString backedUp = logs();
    changeLogs();
    EXPECT_EQ(killedThenWhole({"--yes", "restore"}, usual, [this] { return logs(); }), backedUp);
}

TEST_F(KilledCliTest, AKilledCompactDeletesAllTheEmptyDaysOrNone) {
    // Empty days: a key and the notes placeholder, before the generated year.
    SqlLogWriter logsByHand(store());
    for (int day = 0; day < 200; ++day) {
        for (const char* log : {"Kov2Food", "Kov2Aerobic"}) {
            logsByHand.writeDay(log, QDate(2020, 1, 1).addDays(day),
                                {SqlLogWriter::text(1132, "<Click to add Notes>")});
        }
    }
    const qint64 usual = run({"backup"}) * 2;
    killedThenWhole({"compact"}, usual, [this] { return logs(); });
}
} // namespace
