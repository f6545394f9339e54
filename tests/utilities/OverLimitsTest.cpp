// Data from outside that breaks the record limits: a backup to restore and version 1 data to import
// are refused whole, saying why, and the logs stay as they were.

#include "Backup.h"
#include "RecordingReport.h"
#include "Restore.h"
#include "SqlLogWriter.h"
#include "TestDevice.h"
#include "Version1Import.h"

#include <gtest/gtest.h>

namespace {
using namespace PropType;

const QStringList kLogs = {"Kov2AUpperBody", "Kov2BUpperBody", "Kov2ALowerBody",
                           "Kov2BLowerBody", "Kov2Aerobic",    "Kov2Food"};
const QDate kDay(2024, 3, 14);
const QString kNoteOver = "property 1132 holds a note of 10001 characters; a note holds at most 10000";

class OverLimitsTest : public ::testing::Test {
protected:
    OverLimitsTest() : m_store(m_device.paths().objectStore()) {}

    QString logs() const {
        QStringList all;
        for (const QString& log : kLogs) {
            all << m_store.dump(log);
        }
        return all.join('\n');
    }

    TestDevice m_device;
    SqlLogWriter m_store;
    RecordingReport m_report;
};
} // namespace

TEST_F(OverLimitsTest, ABackupWithANoteOverTheLimitIsNotRestored) {
    for (const QString& log : kLogs) {
        m_store.writeDay(log, kDay, {{1132, kText, "kept"}});
    }
    ASSERT_TRUE(Backup::run(QString(), m_report));
    m_store.writeDay("Kov2Food", kDay.addDays(1), {{1132, kText, "since"}});
    const QString before = logs();
    // Written as anyone could write the file: the last copy restore reads holds the long note.
    SqlLogWriter(m_device.paths().myDocuments() + "/Default.kov")
        .run("UPDATE props SET value = replace(hex(zeroblob(10001)), '00', 'x') WHERE propid = (1132 << 16) | 31 "
             "AND record IN (SELECT r.oid FROM records r JOIN databases d ON r.db = d.oid WHERE d.name = 'BkFood')");

    m_report.log.clear();
    EXPECT_FALSE(Restore::run(QString(), m_report));
    EXPECT_TRUE(m_report.texts().contains("message The backup holds a record larger than Kovalin keeps (" + kNoteOver +
                                          "). Nothing was changed."))
        << m_report.texts().join('\n').toStdString();
    EXPECT_EQ(logs(), before);
}

TEST_F(OverLimitsTest, Version1DataWithANoteOverTheLimitIsNotImported) {
    m_store.writeDay("KovUpperBody", kDay, {{106, kText, "Bench"}});
    m_store.writeDay("KovFood", kDay, {{1001, kI2, 3}});
    m_store.writeDay("KovFood", kDay.addDays(1), {{1132, kText, QString(10001, 'x')}});

    EXPECT_FALSE(Version1Import::run(QString(), m_report));
    EXPECT_EQ(m_report.texts(), QStringList({"status Importing...",
                                             "message The version 1 data holds a record larger than Kovalin keeps (" +
                                                 kNoteOver + "). Nothing was changed.",
                                             "status "}));
    EXPECT_EQ(m_store.dump("Kov2AUpperBody"), "none");
    EXPECT_EQ(m_store.dump("Kov2Food"), "none");
}
