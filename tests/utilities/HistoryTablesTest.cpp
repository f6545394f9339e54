// The tidy tables export and the import of a person's history: round trips, the merge rules and
// every kind of bad input.

#include "CsvExport.h"
#include "DatabaseCatalogue.h"
#include "DeviceGenerator.h"
#include "FaultyVfs.h"
#include "ImportTest.h"
#include "RecordingReport.h"
#include "TablesExport.h"

#include "CeDatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {
using namespace PropType;
using VolumeFiles::readFile;

const QStringList kTables = {"workouts.csv", "sets.csv", "aerobic.csv", "body.csv", "meals.csv"};
const QStringList kDeviceFiles = {"kovupper.csv",  "kovupper2.csv",  "kovlower.csv",
                                  "kovlower2.csv", "kovaerobic.csv", "kovfood.csv"};

// What the export told, in order; nothing when it failed.
QStringList exportTables(const QString& user, const QString& folder) {
    RecordingReport report;
    return TablesExport(user, folder).run(report) ? report.texts() : QStringList();
}

// Each file of names in folder first holds the same bytes as in folder second.
void expectSameFiles(const QString& first, const QString& second, const QStringList& names) {
    for (const QString& name : names) {
        EXPECT_EQ(readFile(first + "/" + name), readFile(second + "/" + name)) << name.toStdString();
    }
}

bool exportDeviceFiles(const QString& user, const QString& folder) {
    RecordingReport progress;
    QDir().mkpath(folder);
    return CsvExport(DatabaseCatalogue::userDatabaseNames(user), folder).run(progress);
}

} // namespace

// Out to the tables and back in, out to the device's files and back in: nothing lost, byte for byte;
// and a second import of the same files changes nothing.
TEST(HistoryTables, RoundTripsAreByteIdenticalAndASecondImportChangesNothing) {
    QTemporaryDir dir;
    DeviceGenerator::Options options;
    options.device = dir.filePath("device");
    options.users = 1;
    options.years = 1;
    options.end = QDate(2024, 3, 14);
    options.miscRestYears = 0;
    DeviceGenerator generator(options);
    ASSERT_TRUE(generator.generate()) << generator.errorText().toStdString();
    const QString store = DevicePaths(options.device).objectStore();
    ASSERT_TRUE(CeMountObjectStore(store));

    EXPECT_EQ(exportTables("", dir.filePath("first")),
              QStringList({"status Exporting Upper Body", "status Exporting Lower Body", "status Exporting Aerobic",
                           "status Exporting Food", "status Wrote the tables into " + dir.filePath("first") + "."}));
    HistoryImport::Outcome outcome = import("Ann", dir.filePath("first"));
    EXPECT_TRUE(outcome.complete) << outcome.text.toStdString();
    ASSERT_FALSE(exportTables("Ann", dir.filePath("second")).isEmpty());
    expectSameFiles(dir.filePath("first"), dir.filePath("second"), kTables);
    ASSERT_TRUE(exportDeviceFiles("", dir.filePath("device-default")));
    ASSERT_TRUE(exportDeviceFiles("Ann", dir.filePath("device-ann")));
    expectSameFiles(dir.filePath("device-default"), dir.filePath("device-ann"), kDeviceFiles);

    // The device's files into a user that has nothing, and out again.
    outcome = import("Bob", dir.filePath("device-default"));
    EXPECT_TRUE(outcome.complete) << outcome.text.toStdString();
    ASSERT_TRUE(exportDeviceFiles("Bob", dir.filePath("device-bob")));
    expectSameFiles(dir.filePath("device-default"), dir.filePath("device-bob"), kDeviceFiles);

    // Both readers merge through the same rules: the tables again are enough.
    const QString before = storeDigest(store);
    outcome = import("Ann", dir.filePath("first"));
    EXPECT_TRUE(outcome.text.contains("Food and body: 0 days added, 0 filled, 0 replaced, 366 left as they were "
                                      "(they hold entries: 2023-03-15 to 2024-03-14)."))
        << outcome.text.toStdString();
    EXPECT_EQ(storeDigest(store), before);
    CeUnmountObjectStore();
}

namespace {
const QDate kDay1(2024, 3, 1);
const QDate kDay2(2024, 3, 2);
const QDate kDay3(2024, 3, 3);
const QString kPlaceholder = "<Click to add Notes>";

using HistoryImportTest = ImportTest;
} // namespace

// What each kind of stored value becomes in the tables, and back: quoting, CR LF, empty cells for
// what a record lacks, "none" for no choice, no text for the notes placeholder, meals in their slots.
TEST_F(HistoryImportTest, TablesWriteEveryValueAsThePagesShowItAndReadItBack) {
    for (const QString& log : DatabaseCatalogue::userDatabaseNames("")) {
        m_store.writeDay(log, QDate(1968, 11, 29));
    }
    // clang-format off
    m_store.writeDay("Kov2AUpperBody", kDay1,
                     {{102, kI2, 7}, {103, kI2, 5}, {104, kI2, 65}, {1133, kI2, 9}, {105, kUI2, 1},
                      {1132, kText, "Say \"hi\", then go"}, {106, kText, "Bench Press"}, {107, kText, "10"},
                      {108, kR8, 82.5}, {109, kText, "2"}, {110, kI2, 7}, {111, kText, ""}, {112, kText, ""},
                      {113, kR8, 0.0}, {114, kText, ""}, {115, kI2, 0}});
    // clang-format on
    m_store.writeDay(
        "Kov2BUpperBody", kDay1,
        {{306, kText, "Rows"}, {307, kText, "8"}, {308, kR8, 60.0}, {310, kI2, 5}, {661, kText, "Shrugs"}});
    m_store.writeDay("Kov2AUpperBody", kDay2, {{102, kI2, 9}, {103, kI2, 41}, {1132, kText, kPlaceholder}});
    m_store.writeDay("Kov2BUpperBody", kDay2);
    // clang-format off
    m_store.writeDay("Kov2Food", kDay1,
                     {{1001, kI2, 0}, {1003, kR8, 18.25}, {1152, kI2, -1}, {1153, kI2, 3},
                      {1132, kText, kPlaceholder}, SqlLogWriter::mealTime(1010, 7, 5), {1012, kText, "Eggs"},
                      {1013, kText, ""}, {1014, kText, ""}, {1015, kText, ""}, SqlLogWriter::mealTime(1022, 12, 30),
                      {1024, kText, "Tuna, canned"}});
    m_store.writeDay("Kov2Aerobic", kDay1,
                     {{801, kText, "Running"}, {802, kI2, 3}, {822, kR8, 5.5}, {1136, kI2, 6}, {1138, kI2, 30},
                      {1140, kI2, 45}, {1134, kI2, 7}, {1144, kUI2, 1}, {1142, kText, "Easy"}});
    // clang-format on

    ASSERT_FALSE(exportTables("", folder("first")).isEmpty());
    EXPECT_EQ(readFile(folder("first/workouts.csv")),
              "date,region,start,elapsed,completed,notes\r\n"
              "2024-03-01,upper,07:05,1:05:09,yes,\"Say \"\"hi\"\", then go\"\r\n");
    EXPECT_EQ(readFile(folder("first/sets.csv")), "date,region,group,set,exercise,reps,weight,rest,intensity\r\n"
                                                  "2024-03-01,upper,Chest,1,Bench Press,10,82.5,2,7\r\n"
                                                  "2024-03-01,upper,Back,1,Rows,8,60,,5\r\n"
                                                  "2024-03-01,upper,Misc,12,Shrugs,,0,,0\r\n");
    EXPECT_EQ(readFile(folder("first/body.csv")),
              "date,water,weight,body_fat,sleep,sleep_quality,overall_feeling,systolic,diastolic,resting_heart_rate,"
              "chest,biceps,waist,quads,calves,notes\r\n"
              "2024-03-01,0,,18.25,,3,none,,,,,,,,,\r\n");
    EXPECT_EQ(readFile(folder("first/meals.csv")), "date,meal,time,protein,carbohydrate,vegetable,other\r\n"
                                                   "2024-03-01,1,07:05,Eggs,,,\r\n"
                                                   "2024-03-01,3,12:30,\"Tuna, canned\",,,\r\n");
    EXPECT_EQ(readFile(folder("first/aerobic.csv")),
              "date,exercise_number,exercise,course,distance,heart_rate,start,elapsed,completed,notes,"
              "minute_1,minute_2,minute_3,minute_4,minute_5,minute_6,minute_7,minute_8,minute_9,minute_10,minute_11,"
              "minute_12,minute_13,minute_14,minute_15,minute_16,minute_17,minute_18,minute_19,minute_20\r\n"
              "2024-03-01,2,Running,,5.5,,06:30,0:45:07,yes,Easy,3" +
                  QByteArray(19, ',') + "\r\n");

    const HistoryImport::Outcome outcome = import("Ann", folder("first"));
    EXPECT_TRUE(outcome.complete) << outcome.text.toStdString();
    // The byte-for-byte round trip is the generated year's; here, by number and type: the quoted note,
    // no choice as the all-ones 16-bit value, the placeholder back, the empty slots of a group written
    // as the set-entry grid writes them.
    EXPECT_EQ(m_days.value("Kov2AUpperBodyAnn", kDay1, 1132, kText), QVariant("Say \"hi\", then go"));
    EXPECT_EQ(m_days.value("Kov2FoodAnn", kDay1, 1152, kI2), QVariant(qint64(-1)));
    EXPECT_EQ(m_days.value("Kov2FoodAnn", kDay1, 1132, kText), QVariant(kPlaceholder));
    EXPECT_FALSE(m_days.value("Kov2FoodAnn", kDay1, 1002, kI2).isValid());
    EXPECT_EQ(m_days.propCount("Kov2AUpperBodyAnn", kDay1, 106, 165), 60);
    EXPECT_EQ(m_days.propCount("Kov2BUpperBodyAnn", kDay1, 606, 665), 60);
    EXPECT_EQ(m_days.propCount("Kov2BUpperBodyAnn", kDay1, 406, 465), 0);
}

// Added, filled, left and replaced days; the A/B pair of a new day; a dry run counts the same and
// writes nothing.
TEST_F(HistoryImportTest, DaysAreAddedFilledLeftOrReplacedAsTheirLogsHoldEntries) {
    for (const QString log : {"Kov2AUpperBody", "Kov2BUpperBody"}) {
        m_store.writeDay(log, QDate(1968, 11, 29));
    }
    m_store.writeDay("Kov2AUpperBody", kDay1, {{1132, kText, kPlaceholder}});
    m_store.writeDay("Kov2BUpperBody", kDay1, {{306, kText, "Rows"}}); // an entry in B alone: left
    m_store.writeDay("Kov2AUpperBody", kDay2,
                     {{102, kI2, 9}, {103, kI2, 41}, {104, kI2, 0}, {1132, kText, kPlaceholder}});
    m_store.writeDay("Kov2BUpperBody", kDay2); // a first visit: filled
    file("in/workouts.csv", "date,region,start,elapsed,completed,notes\r\n"
                            "2024-03-01,upper,06:00,0:30:00,yes,imported\r\n"
                            "2024-03-02,upper,,0:30:00,yes,imported\r\n"
                            "2024-03-03,upper,06:00,0:30:00,yes,imported\r\n");
    const QString before = digest();

    HistoryImport::Outcome outcome = import("", folder("in"), {true, false});
    EXPECT_TRUE(outcome.complete);
    const QString counts = "Upper body: 1 days added, 1 filled, 0 replaced, 1 left as they were (they hold entries: "
                           "2024-03-01).";
    EXPECT_TRUE(outcome.text.startsWith("Read Kovalin's tables: workouts.csv.\n" + counts))
        << outcome.text.toStdString();
    EXPECT_TRUE(outcome.text.endsWith("Dry run: nothing was written."));
    EXPECT_EQ(digest(), before);

    outcome = import("", folder("in"));
    EXPECT_TRUE(outcome.text.contains(counts)) << outcome.text.toStdString();
    EXPECT_EQ(m_store.dump("Kov2AUpperBody").count("'imported'"), 2);
    // The filled day keeps no trace of its first visit's start time: the table's empty start is the value.
    EXPECT_EQ(m_days.props("Kov2AUpperBody", kDay2), "64:64,104:2,105:18,1132:31,1133:2");
    EXPECT_EQ(m_days.props("Kov2BUpperBody", kDay3), "64:64");

    outcome = import("", folder("in"), {false, true});
    EXPECT_TRUE(outcome.text.contains("Upper body: 0 days added, 0 filled, 3 replaced, 0 left"))
        << outcome.text.toStdString();
    // What the tables do not carry (the B record's sets, as workouts.csv alone is read) stays.
    EXPECT_EQ(m_days.props("Kov2BUpperBody", kDay1), "64:64,306:31");
    EXPECT_EQ(m_store.dump("Kov2AUpperBody").count("'imported'"), 3);
}

TEST_F(HistoryImportTest, AFullDiskAtAnyWriteKeepsNothingAndSaysSo) {
    file("in/workouts.csv", "date,region,start,elapsed,completed,notes\r\n"
                            "2024-03-01,upper,06:00,0:30:00,yes,imported\r\n");
    const QString before = digest();
    // The store is mounted again with the faulty VFS in place, so that its writes go through it.
    CeUnmountObjectStore();
    FaultyVfs vfs;
    ASSERT_TRUE(CeMountObjectStore(m_device.paths().objectStore()));
    bool fired = true;
    for (int n = 1; fired && n < 100; ++n) {
        vfs.failCall(FaultyVfs::Call::Write, n, true);
        const HistoryImport::Outcome outcome = import("", folder("in"));
        vfs.disarm();
        fired = vfs.fired();
        if (fired) {
            EXPECT_EQ(outcome.text, "Read Kovalin's tables: workouts.csv.\nThe import could not be saved (error 112). "
                                    "Nothing was written.")
                << "write " << n;
            EXPECT_EQ(digest(), before) << "write " << n;
        }
    }
    EXPECT_FALSE(fired);
}

// Every kind of bad input is reported with its file and line; the day of a row that cannot be read
// is not written at all, and the other days are. (A number that is not a whole number: the command
// line's import test.)
TEST_F(HistoryImportTest, BadInputIsReportedWithFileAndLineAndNoDayIsHalfWritten) {
    const QByteArray body = "date,water,weight,body_fat,sleep,sleep_quality,overall_feeling,systolic,diastolic,"
                            "resting_heart_rate,chest,biceps,waist,quads,calves,notes\r\n"
                            "2024-03-01,8,170,,,,,,,,,,,,,\r\n";
    const QByteArray sets = "date,region,group,set,exercise,reps,weight,rest,intensity\r\n"
                            "2024-03-01,upper,Chest,1,Press,10,50,,\r\n"
                            "2024-03-02,upper,Chest,1,Press,10,50,,\r\n";
    const QByteArray meals = "date,meal,time,protein,carbohydrate,vegetable,other\r\n"
                             "2024-03-01,1,07:00,Eggs,,,\r\n"
                             "2024-03-02,1,07:00,Eggs,,,\r\n";
    QByteArray aerobic = "date,exercise_number,exercise,course,distance,heart_rate,start,elapsed,completed,notes";
    for (int minute = 1; minute <= 20; ++minute) {
        aerobic += ",minute_" + QByteArray::number(minute);
    }
    const QByteArray rest = QByteArray(27, ',') + "\r\n";
    aerobic += "\r\n2024-03-01,1,Run" + rest + "2024-03-02,1,Run" + rest;
    const QByteArray workouts = "date,region,start,elapsed,completed,notes\r\n"
                                "2024-03-01,upper,,,yes,\r\n";
    struct Case {
        const char* file;
        QByteArray text;
        const char* problem;
        const char* log; // whose day 2024-03-02 must not be written
        bool firstDayTaken;
    };
    const std::vector<Case> cases = {
        {"body.csv", body + "2024-03-02,8,1000,,,,,,,,,,,,,\r\n",
         "body.csv line 3: weight \"1000\" is not from 0 to 999", "Kov2Food", true},
        {"workouts.csv", workouts + "2023-02-29,upper,,,yes,\r\n",
         "workouts.csv line 3: date \"2023-02-29\" is not a date after 1968", "Kov2AUpperBody", true},
        {"meals.csv", meals + "2024-03-02,16,08:00,Eggs,,,\r\n", "meals.csv line 4: meal \"16\" is not from 1 to 15",
         "Kov2Food", true},
        {"aerobic.csv", aerobic + "2024-03-02,4,Swim" + rest,
         "aerobic.csv line 4: exercise_number \"4\" is not from 1 to 3", "Kov2Aerobic", true},
        {"sets.csv", sets + "2024-03-02,upper,Chest,13,Press,10,50,,\r\n",
         "sets.csv line 4: set \"13\" is not from 1 to 12", "Kov2AUpperBody", true},
        {"sets.csv", sets + "2024-03-02,upper,Chest,2,\"Pre", "sets.csv line 4: ends inside a quoted cell",
         "Kov2AUpperBody", true},
        {"sets.csv", sets + "2024-03-02,upper,Ch", "sets.csv line 4: has 3 cells where the header has 9",
         "Kov2AUpperBody", true},
        {"body.csv", body + "2024-03-02,8,170,,,,,,,,,,,,,caf\xe9\r\n",
         "body.csv line 3: is not UTF-8 text; save it as UTF-8", "Kov2Food", false},
        {"body.csv", QByteArray("\xff\xfe", 2) + QByteArray("d\0a\0", 4), "body.csv line 1: is UTF-16 text", "Kov2Food",
         false},
    };
    int n = 0;
    for (const Case& c : cases) {
        const QString name = QString("case%1").arg(++n);
        file(name + "/" + c.file, c.text);
        const QString user = name;
        const HistoryImport::Outcome outcome = import(user, folder(name));
        SCOPED_TRACE(c.problem);
        EXPECT_FALSE(outcome.complete);
        EXPECT_TRUE(outcome.text.contains(c.problem)) << outcome.text.toStdString();
        const QString log = QString(c.log) + user;
        EXPECT_EQ(m_days.propCount(log, kDay2), 0);
        EXPECT_EQ(m_days.propCount(log, kDay1) > 0, c.firstDayTaken);
        if (QString(c.log).contains("Upper")) {
            EXPECT_EQ(m_days.propCount("Kov2BUpperBody" + user, kDay2), 0);
        }
    }
}

// The device's own files: a line cut short is reported and its day left out; a path that is not there
// is refused.
TEST_F(HistoryImportTest, DeviceFilesCutShortLeaveTheirDayOut) {
    for (const QString& log : DatabaseCatalogue::userDatabaseNames("")) {
        m_store.writeDay(log, QDate(1968, 11, 29));
    }
    m_store.writeDay("Kov2Food", kDay1, {{1001, kI2, 4}, {1132, kText, "a, \"quoted\" note"}});
    m_store.writeDay("Kov2Food", kDay2, {{1001, kI2, 5}});
    ASSERT_TRUE(exportDeviceFiles("", folder("device")) || QFile::exists(folder("device/kovfood.csv")));
    QByteArray food = readFile(folder("device/kovfood.csv"));
    VolumeFiles::writeFile(folder("device/kovfood.csv"), food.left(food.size() - 40));

    HistoryImport::Outcome outcome = import("Ann", folder("device/kovfood.csv"));
    EXPECT_FALSE(outcome.complete);
    EXPECT_TRUE(outcome.text.contains("kovfood.csv line 3: has 78 of the header's 91 cells"))
        << outcome.text.toStdString();
    EXPECT_EQ(m_store.dump("Kov2FoodAnn").count("a, \"quoted\" note"), 1);
    EXPECT_EQ(m_days.propCount("Kov2FoodAnn", kDay2), 0);
    EXPECT_TRUE(import("Ann", folder("missing")).refused);
}
