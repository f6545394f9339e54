#include "CsvExport.h"
#include "../utilities/RecordingReport.h"
#include "SqlLogWriter.h"
#include "StoredDays.h"
#include "TestDevice.h"
#include "VolumeFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
using namespace PropType;
const QDate kReferenceDay(1968, 11, 29);

// One line as the file holds it: count quoted cells, empty but for the runs of cells given from their
// first index on, separated by commas and ended by a carriage return.
QByteArray line(int count, const std::vector<std::pair<int, QList<QByteArray>>>& runs) {
    QList<QByteArray> cells(count);
    for (const auto& [first, run] : runs) {
        std::copy(run.begin(), run.end(), cells.begin() + first);
    }
    return '"' + cells.join("\",\"") + "\"\r";
}

class CsvExportTest : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_device.paths().myDocuments() + '/' + name; }
    QByteArray file(const char* name) const { return VolumeFiles::readFile(path(name)); }
    // The cells of the file's header line (no cell of a header holds a comma), and the lines after it.
    QList<QByteArray> header(const char* name) const {
        return file(name).left(file(name).indexOf("\"\r")).mid(1).replace("\",\"", "|").split('|');
    }
    QByteArray records(const char* name) const { return file(name).mid(file(name).indexOf('\r') + 1); }

    // A log holding the reference-day marker and a record keyed on each of days.
    void createLog(const QString& name, const QList<QDate>& days = {}) {
        for (const QDate& day : QList<QDate>{kReferenceDay} + days) {
            m_sql.writeDay(name, day);
        }
    }

    TestDevice m_device;
    SqlLogWriter m_sql{m_device.paths().objectStore()};
    CsvExport m_export{DatabaseCatalogue::userDatabaseNames("Ann"), m_device.paths().myDocuments()};
    RecordingReport m_progress;
};
} // namespace

TEST_F(CsvExportTest, BodyHalfWritesEachRecordAfterTheMarkerInDateOrderUnderThe185CellHeader) {
    // Set 7 of slot 1 lacks its intensity; group 3 (406) lies beyond the three exported slots.
    createLog("Kov2AUpperBodyAnn", {});
    // clang-format off
    m_sql.writeDay("Kov2AUpperBodyAnn", QDate(2003, 12, 1),
                   {{102, kI2, 7}, {103, kI2, 5}, {104, kI2, 45}, {105, kUI2, 1},
                    {1132, kText, "Hard, \"heavy\" day"}, {106, kText, "Bench"}, {107, kText, "10"},
                    {108, kR8, 135.5}, {109, kText, "2"}, {110, kI2, 7}, {236, kText, "Press"}, {238, kR8, 60.0},
                    {241, kText, "Dips"}});
    // clang-format on
    m_sql.writeDay("Kov2AUpperBodyAnn", QDate(2003, 3, 7),
                   {{102, kI2, 18}, {103, kI2, 30}, {1120, kI2, 40}, {105, kUI2, 0}});
    createLog("Kov2BUpperBodyAnn", {QDate(2003, 3, 7)});
    m_sql.writeDay("Kov2BUpperBodyAnn", QDate(2003, 12, 1),
                   {{306, kText, "Rows"}, {308, kR8, 100.25}, {406, kText, "Curl"}});

    EXPECT_TRUE(m_export.ExportStrength(BodyRegion::Upper, m_progress));
    // The day's columns, then five for each of the 36 sets: 185 cells.
    QList<QByteArray> head = {"Date", "Start Time", "Elapsed Time", "Completed", "Notes"};
    for (int set = 1; set <= 36; ++set) {
        for (const char* cell : {"Ex ", "Reps ", "Weight ", "Rest ", "Intensity "}) {
            head << cell + QByteArray::number(set);
        }
    }
    EXPECT_EQ(header("kovupper.csv"), head);
    EXPECT_EQ(header("kovupper2.csv"), head);
    EXPECT_EQ(
        records("kovupper.csv"),
        line(185, {{0, {"3/7/2003", "18:30:40", "", "False"}}}) +
            line(185,
                 {{0, {"12/1/2003", "7:5:0", "45", "True", "Hard, \"heavy\" day", "Bench", "10", "135.50", "2", "7"}},
                  {95, {"Press", "", "60.00", "", "", "Dips"}}}));
    EXPECT_EQ(records("kovupper2.csv"),
              line(185, {{0, {"3/7/2003"}}}) + line(185, {{0, {"12/1/2003"}}, {125, {"Rows", "", "100.25"}}}));
}

TEST_F(CsvExportTest, AerobicLineHoldsThreeBlocksInTheCodePageWithoutAMarkerToSkip) {
    // Exercise 2 on its own numbers, exercise 3 only named.
    m_sql.writeLog("Kov2AerobicAnn");
    // clang-format off
    m_sql.writeDay("Kov2AerobicAnn", QDate(2004, 2, 29),
                   {{102, kI2, 6}, {103, kI2, 45}, {104, kI2, 30}, {105, kUI2, 1}, {1132, kText, "Easy \u2192 hard"},
                    {701, kText, "Caf\u00e9 run"}, {702, kI2, 3}, {721, kI2, 10}, {722, kR8, 5.25}, {723, kI2, 150},
                    {724, kText, "Park \U0001F332"}, {1136, kI2, 17}, {1140, kI2, 20}, {1144, kUI2, 0},
                    {1142, kText, "Cool down, cafe\u0301"}, {801, kText, "Bike"}, {822, kR8, 3.0},
                    {901, kText, "Swim"}});
    // clang-format on

    EXPECT_TRUE(m_export.ExportAerobic(m_progress));
    const QList<QByteArray> head = header("kovaerobic.csv");
    ASSERT_EQ(head.size(), 85);
    EXPECT_EQ(head.mid(0, 10), QList<QByteArray>({"Date", "Start Time", "Elapsed Time", "Completed", "Exercise",
                                                  "Course", "Distance", "Heart Rate", "Notes", "Min 1"}));
    EXPECT_EQ(head.mid(28, 3), QList<QByteArray>({"Min 20", "Exercise 2 - Start Time", "Elapsed Time"}));
    EXPECT_EQ(head.mid(56, 2), QList<QByteArray>({"Min 20", "Exercise 3 - Start Time"}));
    EXPECT_EQ(
        records("kovaerobic.csv"),
        line(85,
             {{0, {"2/29/2004", "6:45:0", "30", "True", "Caf\xE9 run", "Park ??", "5.25", "150", "Easy ? hard", "3"}},
              {28, {"10", "17:0:0", "20", "False", "Bike", "", "3.00", "", "Cool down, caf\xE9"}},
              {60, {"Swim"}}}));
}

TEST_F(CsvExportTest, FoodLineHoldsTheDayValuesByTypeAndTheFifteenMealSlots) {
    createLog("Kov2FoodAnn", {});
    // clang-format off
    m_sql.writeDay("Kov2FoodAnn", QDate(2010, 10, 10),
                   {{1001, kI2, 8}, {1002, kI2, 181}, {1003, kR8, 21.5}, {1132, kText, "Tired"}, {1151, kR8, 40.0},
                    {1150, kR8, 15.75}, {1146, kR8, 32.5}, {1148, kR8, 22.0}, {1149, kR8, 15.0}, {1147, kR8, 7.5},
                    {1154, kI2, 120}, {1155, kI2, 80}, {1156, kI2, 52}, {1152, kI2, -1},
                    {1010, kFileTime, StoredDays::fileTimeOf(kReferenceDay, QTime(7, 5, 12, 12))},
                    {1012, kText, "Eggs"}, {1014, kText, ""}, {1015, kText, "Coffee"},
                    {1094, kFileTime, StoredDays::fileTimeOf(kReferenceDay, QTime(23, 59, 12, 12))},
                    {1096, kText, "Fish"}});
    // clang-format on

    EXPECT_TRUE(m_export.ExportFood(m_progress));
    const QList<QByteArray> head = header("kovfood.csv");
    ASSERT_EQ(head.size(), 91);
    EXPECT_EQ(head.mid(0, 21),
              QList<QByteArray>({"Date",        "Water",      "Weight",      "Body Fat", "Notes",       "Chest",
                                 "Biceps",      "Waist",      "Quads",       "Calves",   "Sleep",       "Sleep Quality",
                                 "Systolid",    "Diastolic",  "Rest HR",     "Overall",  "Meal 1 Time", "Meal 1 Pro",
                                 "Meal 1 Carb", "Meal 1 Veg", "Meal 1 Suppl"}));
    EXPECT_EQ(head.mid(89), QList<QByteArray>({"Meal 15 Veg", "Meal 15 Suppl"}));
    EXPECT_EQ(records("kovfood.csv"),
              line(91, {{0, {"10/10/2010", "8",     "181",   "21.50", "Tired", "40.00", "15.75",
                             "32.50",      "22.00", "15.00", "7.50",  "",      "120",   "80",
                             "52",         "65535", "7:5",   "Eggs",  "",      "",      "Coffee"}},
                        {86, {"23:59", "Fish"}}}));
}

TEST_F(CsvExportTest, ExportTellsEachStepSkipsWhatItCannotExportAndEndsSuccessful) {
    // The lower half's A database holds 2 records; no aerobic database; a food database without records.
    for (const char* log : {"Kov2AUpperBodyAnn", "Kov2BUpperBodyAnn", "Kov2BLowerBodyAnn"}) {
        createLog(log, {QDate(2005, 5, 5), QDate(2005, 5, 6)});
    }
    createLog("Kov2ALowerBodyAnn", {QDate(2005, 5, 5)});
    m_sql.writeLog("Kov2FoodAnn");
    VolumeFiles::writeFile(path("kovlower2.csv"), "old");

    EXPECT_FALSE(m_export.run(m_progress));
    // What the status line and the boxes tell; the progress bar's steps in between are not kept.
    const QStringList upper = {"status Exporting Strength to csv...", "status Done."};
    EXPECT_EQ(
        m_progress.texts(),
        QStringList({"status Exporting...", "status Exporting Upper Body"}) + upper + upper +
            QStringList({"status Exporting Lower Body", "status Exporting Strength to csv...",
                         "message Not all databases were exported due to insufficient entries.",
                         "status Exporting Aerobic", "status Exporting Aerobic to csv...",
                         "status Aerobic db not found.", "status Exporting Food", "status Exporting Food to csv...",
                         "status Food db not found.", "status Export succcessful.", "message Export successful!"}));
    EXPECT_EQ(m_progress.question,
              "Copies your Kovalin data to .csv format files, which can then be copied to your desktop computer and "
              "imported into Excel or Access.  Six files will be created and placed in the My Documents folder on the "
              "Pocket PC.  These are kovupper.csv, kovupper2.csv, kovlower.csv, kovlower2.csv, kovaerobic.csv, and "
              "kovfood.csv.  Your Kovalin data will not be removed from the Pocket PC. It is recommended that you "
              "choose Backup to backup your data prior to performing this operation. OK to proceed?");
    EXPECT_EQ(QDir(m_device.paths().myDocuments()).entryList(QDir::Files),
              QStringList({"kovlower2.csv", "kovupper.csv", "kovupper2.csv"}));
    EXPECT_EQ(file("kovlower2.csv"), "old");

    RecordingReport refusing;
    refusing.answer = false;
    ASSERT_TRUE(QFile::remove(path("kovupper.csv")));
    EXPECT_FALSE(m_export.run(refusing));
    EXPECT_EQ(refusing.log, QStringList({"status Exporting...", "confirm", "status Cancelled."}));
    EXPECT_FALSE(QFile::exists(path("kovupper.csv")));
}

TEST_F(CsvExportTest, AFileTakesTheLinksPlaceNeverItsTarget) {
    createLog("Kov2AerobicAnn", {});
    QTemporaryDir outside;
    const QString target = outside.filePath("target.txt");
    VolumeFiles::writeFile(target, "keep");
    ASSERT_TRUE(QFile::link(target, path("kovaerobic.csv")));

    EXPECT_TRUE(m_export.ExportAerobic(m_progress));
    EXPECT_EQ(VolumeFiles::readFile(target), "keep");
    EXPECT_FALSE(QFileInfo(path("kovaerobic.csv")).isSymLink());
    // A log of the marker alone gives the header line alone.
    EXPECT_EQ(file("kovaerobic.csv").count('\r'), 1);
    EXPECT_EQ(QDir(m_device.paths().myDocuments()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList({"kovaerobic.csv"}));
}

TEST_F(CsvExportTest, AnExportWithFilesThatCannotBeWrittenIsNotCalledSuccessful) {
    // No strength logs: the halves are skipped as the export always skips them. My Documents is a file.
    createLog("Kov2AerobicAnn", {});
    createLog("Kov2FoodAnn", {});
    ASSERT_TRUE(QDir(m_device.paths().myDocuments()).removeRecursively());
    VolumeFiles::writeFile(m_device.paths().myDocuments(), "not a folder");

    EXPECT_FALSE(m_export.run(m_progress));
    const QStringList messages = m_progress.log.filter(QRegularExpression("^message "));
    ASSERT_EQ(messages.size(), 5);
    EXPECT_TRUE(messages[2].startsWith("message \\My Documents\\kovaerobic.csv could not be created: "));
    EXPECT_TRUE(messages[3].startsWith("message \\My Documents\\kovfood.csv could not be created: "));
    EXPECT_EQ(messages[4], "message Export incomplete: 2 of the six files could not be written.");
    EXPECT_EQ(m_progress.log.filter("Export succ"), QStringList());
}

// Three records (the marker and two days) are enough, as the export that tells each step shows; so is
// an A database as short as this B one refused there.
TEST_F(CsvExportTest, AHalfWritesNoFileWhenItsBDatabaseHoldsFewerThanThreeRecords) {
    createLog("Kov2AUpperBodyAnn", {QDate(2005, 5, 5), QDate(2005, 5, 6)});
    createLog("Kov2BUpperBodyAnn", {QDate(2005, 5, 5)});

    EXPECT_FALSE(m_export.ExportStrength(BodyRegion::Upper, m_progress));
    EXPECT_FALSE(QFile::exists(path("kovupper.csv")));
    EXPECT_FALSE(QFile::exists(path("kovupper2.csv")));
}
