// Compact, delete all data and the import of version 1 data on logs written with plain SQL; version 1
// data beyond the record limits is refused whole.

#include "Compact.h"
#include "DeleteAllData.h"
#include "RecordingReport.h"
#include "SqlLogWriter.h"
#include "StoredDays.h"
#include "TestDevice.h"
#include "Version1Import.h"

#include <gtest/gtest.h>

namespace {
using namespace PropType;
using Prop = SqlLogWriter::Prop;

const QDate kFirst(2024, 3, 1);
const QString kPlaceholder = "<Click to add Notes>";

class UtilitiesTest : public ::testing::Test {
protected:
    UtilitiesTest() : m_store(m_device.paths().objectStore()) {}

    // One day per entry of days, from kFirst on; each log starts with its marker.
    void writeDays(const QString& log, const std::vector<std::vector<Prop>>& days) {
        m_store.writeDay(log, QDate(1968, 11, 29));
        for (size_t i = 0; i < days.size(); ++i) {
            m_store.writeDay(log, kFirst.addDays(int(i)), days[i]);
        }
    }
    // The days of log still there, as day numbers from kFirst ("m" for the marker).
    QString daysLeft(const QString& log) const {
        QStringList days;
        const qint64 first = StoredDays::keyOf(kFirst);
        const QString all = m_store.dump(log);
        for (const QString& record : all.split(" | ", Qt::SkipEmptyParts)) {
            const qint64 key = record.section(',', 0, 0).section('=', 1).toLongLong();
            days << (key < first ? "m" : QString::number((key - first) / 864'000'000'000LL));
        }
        return days.join(' ');
    }

    TestDevice m_device;
    SqlLogWriter m_store;
    RecordingReport m_report;
};

// What a first visit writes into the A record: the start time, zeros and the placeholder.
const std::vector<Prop> kFirstVisit = {
    {102, kI2, 9}, {103, kI2, 41}, {104, kI2, 0}, {105, kUI2, 0}, {1132, kText, kPlaceholder}};

// Strength pairs go only when neither record holds an entry; aerobic and food days stay with any value
// their page shows.
TEST_F(UtilitiesTest, CompactRemovesTheDaysThatHoldNoEntry) {
    std::vector<std::vector<Prop>> a = {
        kFirstVisit,                                              // 0: nothing, and nothing in B: removed
        kFirstVisit,                                              // 1: a set in B: kept
        {{1132, kText, "sore"}},                                  // 2: real notes
        {{104, kI2, 1}},                                          // 3: elapsed minutes
        {{1133, kI2, 1}},                                         // 4: elapsed seconds
        {{105, kUI2, 1}},                                         // 5: Completed
        {{161, kText, "Dips"}},                                   // 6: the twelfth set of group 0 named
        {{106, kText, ""}, {107, kText, "10"}, {108, kR8, 50.0}}, // 7: values without a name: removed
        {{1132, kText, "  "}, {166, kText, "x"}},                 // 8: blank notes, a free ident: removed
        kFirstVisit,                                              // 9: removed right after 7 and 8
    };
    std::vector<std::vector<Prop>> b(a.size());
    b[1] = {{661, kText, "Curl"}}; // the twelfth set of group 5
    b[7] = {{306, kText, ""}};
    writeDays("Kov2AUpperBody", a);
    writeDays("Kov2BUpperBody", b);
    m_store.writeDay("Kov2BUpperBody", kFirst.addDays(20));                          // a B record alone, empty
    m_store.writeDay("Kov2BUpperBody", kFirst.addDays(21), {{406, kText, "Press"}}); // a B record alone, with a set
    writeDays("Kov2ALowerBody", {kFirstVisit, {{206, kText, "Squat"}}});
    writeDays("Kov2BLowerBody", {{}, {}});
    writeDays("Kov2Aerobic", {
                                 {{102, kI2, 7}, {1136, kI2, 8}, {1132, kText, kPlaceholder}, {722, kR8, 0.0}}, // 0
                                 {{901, kText, "Row"}},                                                         // 1
                                 {{921, kI2, 3}},        // 2: minute 20 of exercise 3
                                 {{822, kR8, 1.5}},      // 3: distance of exercise 2
                                 {{924, kText, "Park"}}, // 4: course of exercise 3
                                 {{1145, kI2, 1}},       // 5: Completed of exercise 3
                                 {{1143, kText, "ok"}},  // 6: notes of exercise 3
                                 {{925, kI2, 5}},        // 7: not a field: removed
                             });
    writeDays("Kov2Food", {
                              {{1132, kText, kPlaceholder}},
                              {{1001, kI2, 0}, {1003, kR8, 0.0}, {1152, kI2, -1}, {1153, kI2, -1}, {1156, kI2, 0}},
                              {{1152, kI2, 1}},                          // a rating of 1
                              {{1153, kI2, 10}},                         // a rating of 10
                              {{1152, kI2, 0}},                          // a rating of 0: removed
                              {{1094, kFileTime, 1}, {1012, kText, ""}}, // meal 15's time
                              {{1012, kText, "Eggs"}},                   // food without a meal time: removed
                              {{1002, kI2, 180}},
                          });

    ASSERT_TRUE(Compact::run(QString(), m_report));

    EXPECT_EQ(daysLeft("Kov2AUpperBody"), "m 1 2 3 4 5 6");
    EXPECT_EQ(daysLeft("Kov2BUpperBody"), "m 1 2 3 4 5 6 21");
    EXPECT_EQ(daysLeft("Kov2ALowerBody"), "m 1");
    EXPECT_EQ(daysLeft("Kov2BLowerBody"), "m 1");
    EXPECT_EQ(daysLeft("Kov2Aerobic"), "m 1 2 3 4 5 6");
    EXPECT_EQ(daysLeft("Kov2Food"), "m 2 3 5 7");
}

TEST_F(UtilitiesTest, CompactReportsEachPartAndSkipsLogsMissingOrEmpty) {
    ASSERT_TRUE(Compact::run(QString(), m_report));
    EXPECT_EQ(
        m_report.texts(),
        QStringList({"status Compacting...", "status Compacting Upper Body...", "status Strength database not found",
                     "status Strength database not found", "status Done.", "status Compacting Aerobic...",
                     "status Aerobic db not found", "status Done.", "status Compacting Food...",
                     "status Food db not found.", "status Done.", "message Compact complete!"}));

    for (const char* log : {"Kov2AUpperBody", "Kov2BUpperBody", "Kov2Aerobic", "Kov2Food"}) {
        m_store.writeLog(log);
    }
    m_report.log.clear();
    ASSERT_TRUE(Compact::run(QString(), m_report));
    EXPECT_EQ(m_report.texts().mid(2, 3),
              QStringList({"status Strength database empty", "status Strength database not found", "status Done."}));
    EXPECT_TRUE(m_report.texts().contains("status Aerobic db empty"));
    EXPECT_TRUE(m_report.texts().contains("status Food db empty"));
}

TEST_F(UtilitiesTest, DeleteAllDataKeepsTheCourseListTheUserListAndOtherUsersLogs) {
    const QStringList deleted = {
        "Kov2AUpperBody", "Kov2BUpperBody", "Kov2ALowerBody", "Kov2BLowerBody", "Kov2Food",      "Kov2Aerobic",
        "KovAerobicList", "KovCarbList",    "KovProList",     "KovVegList",     "KovSuppList",   "KovChestList",
        "KovShldrList",   "KovBackList",    "KovBicepsList",  "KovTricepsList", "KovQuadsList",  "KovHamstringsList",
        "KovCalvesList",  "KovAbsList",     "MiscUpperList",  "MiscLower1List", "MiscLower2List"};
    for (const QString& name :
         deleted + QStringList{"KovCourseList", "KovUserList", "Kov2AUpperBodyAnn", "Kov2FoodAnn"}) {
        m_store.writeDay(name, kFirst);
    }

    ASSERT_TRUE(DeleteAllData::run(m_report));

    EXPECT_EQ(m_store.catalogue(), "Kov2AUpperBodyAnn:12345:4194368:0 Kov2FoodAnn:12345:4194368:0 "
                                   "KovCourseList:12345:4194368:0 KovUserList:12345:4194368:0");
    EXPECT_EQ(m_store.dump("Kov2FoodAnn"), "4194368=" + QString::number(StoredDays::keyOf(kFirst)));
}

TEST_F(UtilitiesTest, DeleteAllDataNeedsTheDefaultUpperBodyLog) {
    m_store.writeLog("Kov2AUpperBodyAnn");
    m_store.writeLog("KovChestList");
    m_store.writeLog("Kov2Food");
    EXPECT_FALSE(DeleteAllData::run(m_report));
    EXPECT_EQ(m_report.texts(), QStringList({"message Kovalin database not found"}));
    EXPECT_EQ(m_store.catalogue().count(':'), 9);
}

TEST_F(UtilitiesTest, Version1DaysAreSplitIntoTodaysLogsWithoutOverwritingADayWithData) {
    // Version 1: one record a day, sets of all six groups in it.
    writeDays("KovUpperBody",
              {
                  {{102, kI2, 6}, {106, kText, "Bench"}, {305, kI2, 2}, {306, kText, "Row"}, {705, kI2, 1}},
                  {{1132, kText, "mine"}}, // day 1: the log has its own data that day
                  {{1132, kText, "v1"}},   // day 2: the log has a first visit that day
                  kFirstVisit,             // day 3: nothing to bring
              });
    writeDays("KovFood", {{{1001, kI2, 3}}});
    writeDays("KovAerobic", {});
    writeDays("Kov2AUpperBodyAnn", {{}, {{104, kI2, 30}}, kFirstVisit});
    writeDays("Kov2BUpperBodyAnn", {{}, {}, {}});

    ASSERT_TRUE(Version1Import::run("Ann", m_report));

    StoredDays days(m_device.paths().objectStore());
    EXPECT_EQ(days.props("Kov2AUpperBodyAnn", kFirst), "64:64,102:2,106:31,305:2");
    EXPECT_EQ(days.props("Kov2BUpperBodyAnn", kFirst), "64:64,306:31,705:2");
    EXPECT_EQ(days.value("Kov2AUpperBodyAnn", kFirst.addDays(1), 1132, kText), QVariant());
    EXPECT_EQ(days.value("Kov2AUpperBodyAnn", kFirst.addDays(2), 1132, kText), "v1");
    EXPECT_EQ(days.value("Kov2AUpperBodyAnn", kFirst.addDays(2), 102, kI2), 9);
    EXPECT_EQ(daysLeft("Kov2AUpperBodyAnn"), "m 0 1 2");
    EXPECT_EQ(daysLeft("Kov2FoodAnn"), "m 0");
    EXPECT_EQ(m_store.dump("Kov2ALowerBodyAnn"), "none");
    EXPECT_EQ(m_report.texts(),
              QStringList({"status Importing...", "status Done.",
                           "message Version 1 data imported: 2 upper body, 0 lower body, 0 aerobic and 1 food days.  "
                           "1 days that already held data were left as they were."}));
}

TEST_F(UtilitiesTest, Version1DataWithANoteOverTheLimitIsNotImported) {
    writeDays("KovUpperBody", {{{106, kText, "Bench"}}});
    writeDays("KovFood", {{{1001, kI2, 3}}, {{1132, kText, QString(10001, 'x')}}});

    EXPECT_FALSE(Version1Import::run(QString(), m_report));
    EXPECT_EQ(m_report.texts(), QStringList({"status Importing...",
                                             "message The version 1 data holds a record larger than Kovalin keeps "
                                             "(property 1132 holds a note of 10001 characters; a note holds at most "
                                             "10000). Nothing was changed.",
                                             "status "}));
    EXPECT_EQ(m_store.dump("Kov2AUpperBody"), "none");
    EXPECT_EQ(m_store.dump("Kov2Food"), "none");
}
} // namespace
