#include "CsvExport.h"
#include "StoredDays.h"
#include "TestDevice.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace {
constexpr int kI2 = 2, kUI2 = 18, kR8 = 5, kText = 31, kFileTime = 64;
const QDate kReferenceDay(1968, 11, 29);

struct Prop {
    int number;
    int type;
    QVariant value;
};

// Writes logs straight into the object store's tables, as the sqlite3 shell would.
class SqlLogs {
public:
    explicit SqlLogs(const QString& path) { sqlite3_open(QFile::encodeName(path).constData(), &m_db); }
    ~SqlLogs() { sqlite3_close(m_db); }

    qint64 createLog(const QString& name) {
        return insert("INSERT INTO databases (oid, name, type, sort_propid) VALUES (?, ?, 12345, 4194368)", {name});
    }
    // A record keyed on day (none when invalid) holding props.
    void addRecord(qint64 log, const QDate& day, const std::vector<Prop>& props = {}) {
        const QVariant key = day.isValid() ? QVariant(StoredDays::keyOf(day)) : QVariant();
        const qint64 record = insert("INSERT INTO records (oid, db, sort_key) VALUES (?, ?, ?)", {log, key});
        if (day.isValid()) {
            run("INSERT INTO props VALUES (?, ?, ?)", {record, StoredDays::propId(64, kFileTime), key});
        }
        for (const Prop& prop : props) {
            run("INSERT INTO props VALUES (?, ?, ?)", {record, StoredDays::propId(prop.number, prop.type), prop.value});
        }
    }
    // A log holding the reference-day marker and a record keyed on each of days.
    void createLogOf(const QString& name, const QList<QDate>& days) {
        const qint64 log = createLog(name);
        for (const QDate& day : QList<QDate>{kReferenceDay} + days) {
            addRecord(log, day);
        }
    }

private:
    qint64 insert(const char* sql, const QVariantList& args) {
        sqlite3_stmt* next = nullptr;
        sqlite3_prepare_v2(m_db,
                           "SELECT 1 + max((SELECT ifnull(max(oid), 0) FROM databases), "
                           "(SELECT ifnull(max(oid), 0) FROM records))",
                           -1, &next, nullptr);
        sqlite3_step(next);
        const qint64 oid = sqlite3_column_int64(next, 0);
        sqlite3_finalize(next);
        run(sql, QVariantList{oid} + args);
        return oid;
    }
    void run(const char* sql, const QVariantList& args) {
        sqlite3_stmt* stmt = nullptr;
        ASSERT_EQ(sqlite3_prepare_v2(m_db, sql, -1, &stmt, nullptr), SQLITE_OK) << sqlite3_errmsg(m_db);
        for (int i = 0; i < args.size(); ++i) {
            const QVariant& arg = args[i];
            if (arg.typeId() == QMetaType::QString) {
                const QByteArray utf8 = arg.toString().toUtf8();
                sqlite3_bind_text(stmt, i + 1, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
            } else if (arg.typeId() == QMetaType::Double) {
                sqlite3_bind_double(stmt, i + 1, arg.toDouble());
            } else if (arg.isValid()) {
                sqlite3_bind_int64(stmt, i + 1, arg.toLongLong());
            }
        }
        EXPECT_EQ(sqlite3_step(stmt), SQLITE_DONE) << sqlite3_errmsg(m_db);
        sqlite3_finalize(stmt);
    }
    sqlite3* m_db = nullptr;
};

// What the export tells its caller, one entry per call.
class RecordedProgress : public ExportProgress {
public:
    bool answer = true;
    QStringList events;
    QString question;

    bool confirm(const QString& text) override {
        question = text;
        events << "confirm";
        return answer;
    }
    void status(const QString& text) override { events << "status:" + text; }
    void progressRange(int maximum) override { events << "range:" + QString::number(maximum); }
    void progressPosition(int position) override { events << "position:" + QString::number(position); }
    void message(const QString& text, MessageKind) override { events << "message:" + text; }
};

// One line as the file holds it: quoted cells, commas, a carriage return.
QByteArray line(const QList<QByteArray>& cells) {
    QByteArray bytes;
    for (const QByteArray& cell : cells) {
        bytes += (bytes.isEmpty() ? "\"" : ",\"") + cell + '"';
    }
    return bytes + '\r';
}

// The cells of a line without commas inside its cells.
QList<QByteArray> cellsOf(const QByteArray& line) {
    return line.chopped(1).mid(1).chopped(1).replace("\",\"", "\x01").split('\x01');
}

class CsvExportTest : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_device.paths().myDocuments() + '/' + name; }
    QByteArray file(const char* name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }
    // The file's header line's cells, and the rest of it.
    QList<QByteArray> header(const char* name) const { return cellsOf(file(name).left(file(name).indexOf('\r') + 1)); }
    QByteArray records(const char* name) const { return file(name).mid(file(name).indexOf('\r') + 1); }

    TestDevice m_device;
    SqlLogs m_sql{m_device.paths().objectStore()};
    CsvExport m_export{DatabaseCatalogue::userDatabaseNames("Ann"), m_device.paths().myDocuments()};
    RecordedProgress m_progress;
};
} // namespace

TEST_F(CsvExportTest, BodyHalfWritesEachRecordAfterTheMarkerInDateOrderUnderThe185CellHeader) {
    const qint64 a = m_sql.createLog("Kov2AUpperBodyAnn");
    m_sql.addRecord(a, kReferenceDay);
    m_sql.addRecord(a, QDate(2003, 12, 1),
                    {{102, kI2, 7},
                     {103, kI2, 5},
                     {104, kI2, 45},
                     {105, kUI2, 1},
                     {1132, kText, "Hard, \"heavy\" day"},
                     {106, kText, "Bench"},
                     {107, kText, "10"},
                     {108, kR8, 135.5},
                     {109, kText, "2"},
                     {110, kI2, 7},
                     // set 7 of slot 1 without its intensity, then set 8
                     {236, kText, "Press"},
                     {237, kText, "8"},
                     {238, kR8, 60.0},
                     {239, kText, "1"},
                     {241, kText, "Dips"},
                     {242, kText, "12"},
                     {243, kR8, 0.0},
                     {244, kText, "3"},
                     {245, kI2, 10}});
    m_sql.addRecord(a, QDate(2003, 3, 7), {{102, kI2, 18}, {103, kI2, 30}, {1120, kI2, 40}, {105, kUI2, 0}});
    const qint64 b = m_sql.createLog("Kov2BUpperBodyAnn");
    m_sql.addRecord(b, kReferenceDay);
    m_sql.addRecord(b, QDate(2003, 12, 1),
                    {{306, kText, "Rows"},
                     {307, kText, "12"},
                     {308, kR8, 100.25},
                     {309, kText, "1"},
                     {310, kI2, 5},
                     {406, kText, "Curl"}}); // group 3 lies beyond the three exported slots
    m_sql.addRecord(b, QDate(2003, 3, 7));

    EXPECT_TRUE(m_export.ExportStrength(BodyRegion::Upper, m_progress));
    EXPECT_EQ(m_progress.events,
              QStringList({"status:Exporting Strength to csv...", "range:3", "position:0", "position:1", "position:2",
                           "status:Done.", "status:Exporting Strength to csv...", "range:3", "position:0", "position:1",
                           "position:2", "status:Done."}));
    const QList<QByteArray> head = header("kovupper.csv");
    ASSERT_EQ(head.size(), 185);
    EXPECT_EQ(head.mid(0, 10), QList<QByteArray>({"Date", "Start Time", "Elapsed Time", "Completed", "Notes", "Ex 1",
                                                  "Reps 1", "Weight 1", "Rest 1", "Intensity 1"}));
    EXPECT_EQ(head[99], "Intensity 19");
    EXPECT_EQ(head[184], "Intensity 36");
    EXPECT_EQ(header("kovupper2.csv"), head);

    QList<QByteArray> march(185), december(185);
    march.replace(0, "3/7/2003");
    march.replace(1, "18:30:40");
    march.replace(3, "False");
    const QList<QByteArray> front = {"12/1/2003", "7:5:0", "45",     "True", "Hard, \"heavy\" day",
                                     "Bench",     "10",    "135.50", "2",    "7"};
    for (int i = 0; i < front.size(); ++i) {
        december.replace(i, front[i]);
    }
    const QList<QByteArray> sets7and8 = {"Press", "8", "60.00", "1", "", "Dips", "12", "0.00", "3", "10"};
    for (int i = 0; i < sets7and8.size(); ++i) {
        december.replace(95 + i, sets7and8[i]);
    }
    EXPECT_EQ(records("kovupper.csv"), line(march) + line(december));

    QList<QByteArray> bMarch(185), bDecember(185);
    bMarch.replace(0, "3/7/2003");
    bDecember.replace(0, "12/1/2003");
    const QList<QByteArray> set25 = {"Rows", "12", "100.25", "1", "5"};
    for (int i = 0; i < set25.size(); ++i) {
        bDecember.replace(125 + i, set25[i]);
    }
    EXPECT_EQ(records("kovupper2.csv"), line(bMarch) + line(bDecember));
}

TEST_F(CsvExportTest, AHalfWithADatabaseOfFewerThanThreeRecordsWritesNoFile) {
    m_sql.createLogOf("Kov2ALowerBodyAnn", {QDate(2004, 1, 1)});
    m_sql.createLogOf("Kov2BLowerBodyAnn", {QDate(2004, 1, 1), QDate(2004, 1, 2), QDate(2004, 1, 3)});
    QFile old(path("kovlower2.csv"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();

    EXPECT_FALSE(m_export.ExportStrength(BodyRegion::Lower, m_progress));
    EXPECT_EQ(m_progress.events, QStringList({"status:Exporting Strength to csv...",
                                              "message:Not all databases were exported due to insufficient entries."}));
    EXPECT_EQ(file("kovlower.csv"), "missing");
    EXPECT_EQ(file("kovlower2.csv"), "old");
}

TEST_F(CsvExportTest, AerobicLineHoldsThreeBlocksInTheCodePageWithoutAMarkerToSkip) {
    const qint64 log = m_sql.createLog("Kov2AerobicAnn");
    m_sql.addRecord(log, QDate(2004, 2, 29),
                    {{102, kI2, 6},
                     {103, kI2, 45},
                     {104, kI2, 30},
                     {105, kUI2, 1},
                     {1132, kText, QString::fromUtf8("Easy → hard")},
                     {701, kText, QString::fromUtf8("Café run")},
                     {702, kI2, 3},
                     {721, kI2, 10},
                     {722, kR8, 5.25},
                     {723, kI2, 150},
                     {724, kText, QString::fromUtf8("Park 🌲")},
                     // exercise 2 on its own numbers; exercise 3 only named
                     {1136, kI2, 17},
                     {1138, kI2, 0},
                     {1140, kI2, 20},
                     {1144, kUI2, 0},
                     {1142, kText, QString::fromUtf8("Cool down, cafe\u0301")},
                     {801, kText, "Bike"},
                     {822, kR8, 3.0},
                     {901, kText, "Swim"}});

    EXPECT_TRUE(m_export.ExportAerobic(m_progress));
    const QList<QByteArray> head = header("kovaerobic.csv");
    ASSERT_EQ(head.size(), 85);
    EXPECT_EQ(head.mid(0, 10), QList<QByteArray>({"Date", "Start Time", "Elapsed Time", "Completed", "Exercise",
                                                  "Course", "Distance", "Heart Rate", "Notes", "Min 1"}));
    EXPECT_EQ(head[28], "Min 20");
    EXPECT_EQ(head.mid(29, 2), QList<QByteArray>({"Exercise 2 - Start Time", "Elapsed Time"}));
    EXPECT_EQ(head[57], "Exercise 3 - Start Time");
    EXPECT_EQ(head[84], "Min 20");

    QList<QByteArray> day(85);
    const QList<QByteArray> first = {"2/29/2004", "6:45:0", "30",  "True",        "Caf\xE9 run",
                                     "Park ??",   "5.25",   "150", "Easy ? hard", "3"};
    for (int i = 0; i < first.size(); ++i) {
        day.replace(i, first[i]);
    }
    day.replace(28, "10");
    const QList<QByteArray> second = {"17:0:0", "20", "False", "Bike", "", "3.00", "", "Cool down, caf\xE9"};
    for (int i = 0; i < second.size(); ++i) {
        day.replace(29 + i, second[i]);
    }
    day.replace(60, "Swim");
    EXPECT_EQ(records("kovaerobic.csv"), line(day));
}

TEST_F(CsvExportTest, FoodLineHoldsTheDayValuesByTypeAndTheFifteenMealSlots) {
    const qint64 log = m_sql.createLog("Kov2FoodAnn");
    m_sql.addRecord(log, kReferenceDay);
    m_sql.addRecord(log, QDate(2010, 10, 10),
                    {{1001, kI2, 8},
                     {1002, kI2, 181},
                     {1003, kR8, 21.5},
                     {1132, kText, "Tired"},
                     {1151, kR8, 40.0},
                     {1150, kR8, 15.75},
                     {1146, kR8, 32.5},
                     {1148, kR8, 22.0},
                     {1149, kR8, 15.0},
                     {1147, kR8, 7.5},
                     {1154, kI2, 120},
                     {1155, kI2, 80},
                     {1156, kI2, 52},
                     {1152, kI2, -1},
                     {1010, kFileTime, StoredDays::fileTimeOf(kReferenceDay, QTime(7, 5, 12, 12))},
                     {1012, kText, "Eggs"},
                     {1013, kText, "Toast"},
                     {1014, kText, ""},
                     {1015, kText, "Coffee"},
                     {1094, kFileTime, StoredDays::fileTimeOf(kReferenceDay, QTime(23, 59, 12, 12))},
                     {1096, kText, "Fish"}});

    EXPECT_TRUE(m_export.ExportFood(m_progress));
    const QList<QByteArray> head = header("kovfood.csv");
    ASSERT_EQ(head.size(), 91);
    EXPECT_EQ(head.mid(0, 21),
              QList<QByteArray>({"Date",        "Water",      "Weight",      "Body Fat", "Notes",       "Chest",
                                 "Biceps",      "Waist",      "Quads",       "Calves",   "Sleep",       "Sleep Quality",
                                 "Systolid",    "Diastolic",  "Rest HR",     "Overall",  "Meal 1 Time", "Meal 1 Pro",
                                 "Meal 1 Carb", "Meal 1 Veg", "Meal 1 Suppl"}));
    EXPECT_EQ(head[86], "Meal 15 Time");
    EXPECT_EQ(head[90], "Meal 15 Suppl");

    QList<QByteArray> day = {"10/10/2010", "8",     "181",   "21.50", "Tired", "40.00", "15.75",
                             "32.50",      "22.00", "15.00", "7.50",  "",      "120",   "80",
                             "52",         "65535", "7:5",   "Eggs",  "Toast", "",      "Coffee"};
    day.resize(91);
    day.replace(86, "23:59");
    day.replace(87, "Fish");
    EXPECT_EQ(records("kovfood.csv"), line(day));
}

TEST_F(CsvExportTest, ExportTellsEachStepSkipsWhatItCannotExportAndEndsSuccessful) {
    m_sql.createLogOf("Kov2AUpperBodyAnn", {QDate(2005, 5, 5), QDate(2005, 5, 6)});
    m_sql.createLogOf("Kov2BUpperBodyAnn", {QDate(2005, 5, 5), QDate(2005, 5, 6)});
    m_sql.createLog("Kov2FoodAnn"); // no record at all; no lower-body or aerobic database

    EXPECT_FALSE(m_export.run(m_progress));
    const QStringList upper = {
        "status:Exporting Strength to csv...", "range:3", "position:0", "position:1", "position:2", "status:Done."};
    EXPECT_EQ(m_progress.events,
              QStringList({"status:Exporting...", "confirm", "status:Exporting Upper Body"}) + upper + upper +
                  QStringList({"status:Exporting Lower Body", "status:Exporting Strength to csv...",
                               "message:Not all databases were exported due to insufficient entries.",
                               "status:Exporting Aerobic", "status:Exporting Aerobic to csv...",
                               "status:Aerobic db not found.", "status:Exporting Food",
                               "status:Exporting Food to csv...", "status:Food db not found.", "range:100",
                               "position:100", "status:Export succcessful.", "message:Export successful!"}));
    EXPECT_EQ(m_progress.question,
              "Copies your Kovalin data to .csv format files, which can then be copied to your desktop computer and "
              "imported into Excel or Access.  Six files will be created and placed in the My Documents folder on the "
              "Pocket PC.  These are kovupper.csv, kovupper2.csv, kovlower.csv, kovlower2.csv, kovaerobic.csv, and "
              "kovfood.csv.  Your Kovalin data will not be removed from the Pocket PC. It is recommended that you "
              "choose Backup to backup your data prior to performing this operation. OK to proceed?");
    EXPECT_EQ(QDir(m_device.paths().myDocuments()).entryList(QDir::Files),
              QStringList({"kovupper.csv", "kovupper2.csv"}));
    EXPECT_TRUE(records("kovupper.csv").endsWith("\"\"\r")); // the last cell, then the carriage return alone
    EXPECT_FALSE(file("kovupper.csv").contains('\n'));

    RecordedProgress refusing;
    refusing.answer = false;
    ASSERT_TRUE(QFile::remove(path("kovupper.csv")));
    EXPECT_FALSE(m_export.run(refusing));
    EXPECT_EQ(refusing.events, QStringList({"status:Exporting...", "confirm", "status:Cancelled."}));
    EXPECT_EQ(file("kovupper.csv"), "missing");
}

TEST_F(CsvExportTest, ALogOfTheMarkerAloneGivesTheHeaderAndAFileThatCannotBeMadeIsReported) {
    m_sql.createLogOf("Kov2AerobicAnn", {});
    m_sql.createLogOf("Kov2FoodAnn", {});
    ASSERT_TRUE(QDir(m_device.paths().myDocuments()).mkdir("kovfood.csv"));

    EXPECT_TRUE(m_export.ExportAerobic(m_progress));
    EXPECT_EQ(file("kovaerobic.csv").count('\r'), 1);
    EXPECT_TRUE(file("kovaerobic.csv").startsWith("\"Date\",\"Start Time\","));
    EXPECT_TRUE(file("kovaerobic.csv").endsWith("\"Min 20\"\r"));

    m_progress.events.clear();
    EXPECT_FALSE(m_export.ExportFood(m_progress));
    ASSERT_EQ(m_progress.events.size(), 4);
    EXPECT_TRUE(m_progress.events[3].startsWith("message:\\My Documents\\kovfood.csv could not be created: "))
        << m_progress.events[3].toStdString();
}
