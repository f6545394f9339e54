// Other programs' exports brought in: the shared samples of FitNotes, Strong (both forms), Hevy and
// openScale, checked in the store by property number and type, and the cases the samples do not show.

#include "ImportTest.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {
using namespace PropType;

QString sample(const char* name) {
    return QString(IMPORT_SAMPLES) + "/" + name;
}

class ForeignImportTest : public ImportTest {
protected:
    // Exercise, reps, weight and intensity of the set at first (its exercise's number).
    QString set(const QString& db, const QDate& day, int first) const {
        return QStringList{
            m_days.value(db, day, first, kText).toString(), m_days.value(db, day, first + 1, kText).toString(),
            m_days.value(db, day, first + 2, kR8).toString(), m_days.value(db, day, first + 4, kI2).toString()}
            .join('|');
    }
};
} // namespace

// The samples' days do not meet, so that all of them go into one device.
TEST_F(ForeignImportTest, TheSamplesLandInTheirGroupsSlotsAndLogs) {
    for (const char* name : {"fitnotes.csv", "strong.csv", "strong-semicolon.csv", "hevy.csv", "openscale.csv"}) {
        const HistoryImport::Outcome outcome = import("", sample(name));
        EXPECT_TRUE(outcome.complete) << name << outcome.text.toStdString();
        // Names the chosen lists lacked joined them, after the lists' defaults.
        EXPECT_TRUE(QString(name) != "fitnotes.csv" || outcome.text.contains("Names added to the lists: 11."));
    }
    // Exercise, reps, weight and intensity of a set, by the number of its exercise.
    const std::vector<std::tuple<const char*, QDate, int, QString>> sets = {
        // FitNotes, by category; the list of Chest holds "Incline Dumbbell Press": slots in the file's order.
        {"Kov2AUpperBody", QDate(2024, 1, 8), 106, "Flat Barbell Bench Press|8|80|0"},
        {"Kov2AUpperBody", QDate(2024, 1, 8), 121, "Incline Dumbbell Press|10|30|0"},
        {"Kov2BUpperBody", QDate(2024, 1, 8), 311, "Barbell Row|8|70|0"},
        {"Kov2BLowerBody", QDate(2024, 1, 8), 406, "Cable Crunch|15|40|0"}, // Abs
        // Legs split by the name.
        {"Kov2ALowerBody", QDate(2024, 1, 10), 111, "Barbell Squat|5|100|0"},
        {"Kov2ALowerBody", QDate(2024, 1, 10), 206, "Romanian Deadlift|8|90|0"},
        {"Kov2BLowerBody", QDate(2024, 1, 10), 306, "Standing Calf Raise|12|60|0"},
        {"Kov2AUpperBody", QDate(2024, 1, 12), 206, "Overhead Press|6|45|0"},
        {"Kov2BUpperBody", QDate(2024, 1, 12), 406, "Tricep Pushdown|12|25|0"},
        {"Kov2BUpperBody", QDate(2024, 1, 12), 506, "Dumbbell Curl|10|14|0"},
        // Strong, by the name; RPE 8.5 is an intensity of 9.
        {"Kov2AUpperBody", QDate(2024, 2, 5), 106, "Bench Press (Barbell)|10|60|0"},
        {"Kov2AUpperBody", QDate(2024, 2, 5), 116, "Bench Press (Barbell)|6|80|9"},
        {"Kov2AUpperBody", QDate(2024, 2, 5), 206, "Lateral Raise (Dumbbell)|15|10|0"},
        {"Kov2BUpperBody", QDate(2024, 2, 5), 406, "Triceps Extension (Cable)|12|30|0"},
        {"Kov2ALowerBody", QDate(2024, 2, 7), 106, "Squat (Barbell)|5|100|9"},
        {"Kov2ALowerBody", QDate(2024, 2, 7), 206, "Leg Curl (Machine)|12|45|0"},
        // Strong's older, semicolon-separated form: the same reader, another separator.
        {"Kov2BUpperBody", QDate(2023, 11, 20), 311, "Pull Up|7|0|0"},
        // Hevy: a set without weight weighs 0.
        {"Kov2AUpperBody", QDate(2024, 3, 4), 111, "Chest Fly (Machine)|12|40|8"},
        {"Kov2BUpperBody", QDate(2024, 3, 4), 411, "Triceps Dip|9|0|10"},
        {"Kov2BLowerBody", QDate(2024, 3, 6), 306, "Seated Calf Raise|15|35|0"},
    };
    for (const auto& [db, day, first, expected] : sets) {
        EXPECT_EQ(set(db, day, first), expected) << db << " " << first;
    }
    // The day's values: start, elapsed minutes and seconds, Completed, notes; the aerobic exercises'
    // names and distances; the body values of the food log.
    const std::vector<std::tuple<const char*, QDate, int, int, QVariant>> values = {
        {"Kov2AUpperBody", QDate(2024, 1, 8), 105, kUI2, 1},
        {"Kov2AUpperBody", QDate(2024, 1, 8), 1132, kText, "Flat Barbell Bench Press: felt strong, slight elbow pain"},
        {"Kov2AUpperBody", QDate(2024, 1, 8), 102, kI2, QVariant()}, // FitNotes has no times
        {"Kov2Aerobic", QDate(2024, 1, 10), 701, kText, "Treadmill"},
        {"Kov2Aerobic", QDate(2024, 1, 10), 722, kR8, 5.0},
        {"Kov2Aerobic", QDate(2024, 1, 10), 104, kI2, 28},
        {"Kov2Aerobic", QDate(2024, 1, 10), 1133, kI2, 30},
        {"Kov2Aerobic", QDate(2024, 1, 12), 1132, kText, "Easy ride"},
        {"Kov2AUpperBody", QDate(2024, 2, 5), 102, kI2, 7},
        {"Kov2AUpperBody", QDate(2024, 2, 5), 103, kI2, 31},
        {"Kov2AUpperBody", QDate(2024, 2, 5), 104, kI2, 62},
        {"Kov2AUpperBody", QDate(2024, 2, 5), 1132, kText, "Morning session"},
        {"Kov2Aerobic", QDate(2024, 2, 7), 701, kText, "Running"},
        {"Kov2Aerobic", QDate(2024, 2, 7), 104, kI2, 20},
        {"Kov2AUpperBody", QDate(2023, 11, 22), 1132, kText, "Deadlift (Barbell): New PR"},
        // Hevy: elapsed from end minus start.
        {"Kov2AUpperBody", QDate(2024, 3, 4), 104, kI2, 65},
        {"Kov2ALowerBody", QDate(2024, 3, 6), 1132, kText, "Tired"},
        {"Kov2Aerobic", QDate(2024, 3, 6), 722, kR8, 2.0},
        // openScale; on 2024-01-12, 06:58 and 21:30: the evening's weighing counts, whose waist was not measured.
        {"Kov2Food", QDate(2024, 1, 8), 1002, kI2, 82},
        {"Kov2Food", QDate(2024, 1, 8), 1148, kR8, 58.0}, // thigh
        {"Kov2Food", QDate(2024, 1, 12), 1002, kI2, 83},
        {"Kov2Food", QDate(2024, 1, 12), 1146, kR8, QVariant()},
        {"Kov2Food", QDate(2024, 1, 12), 1132, kText, "evening"},
    };
    for (const auto& [db, day, number, type, expected] : values) {
        EXPECT_EQ(m_days.value(db, day, number, type), expected) << db << " " << number;
    }
    EXPECT_EQ(m_days.props("Kov2Food", QDate(2024, 1, 8)), "64:64,1002:2,1003:5,1146:5,1148:5,1150:5,1151:5");
    EXPECT_EQ(m_days.props("Kov2Food", QDate(2024, 1, 10)), "64:64,1002:2,1003:5,1132:31");
}

TEST_F(ForeignImportTest, RowsBeyondWhatADayHoldsAreReportedAndLeftOut) {
    QByteArray text = "Date,Exercise,Category,Weight (lbs),Reps,Distance,Distance Unit,Time,Comment\n"
                      "2024-05-01,Leg Press,Legs,1000,10,,,,\n"
                      "2024-05-32,Leg Press,Legs,100,10,,,,\n";
    for (int i = 1; i <= 13; ++i) {
        text += "2024-05-01,Leg Press,Legs," + QByteArray::number(100 + i) + ",10,,,,\n";
    }
    for (const char* cardio : {"Walk", "Run", "Bike", "Swim"}) {
        text += QByteArray("2024-05-01,") + cardio + ",Cardio,,,1.5,mi,0:10:00,\n";
    }
    const HistoryImport::Outcome outcome = import("", file("fitnotes.csv", text));
    EXPECT_FALSE(outcome.complete);
    EXPECT_TRUE(outcome.text.contains("fitnotes.csv line 2: Weight (lbs) \"1000\" is not from 0 to 999"));
    EXPECT_TRUE(outcome.text.contains("fitnotes.csv line 3: Date \"2024-05-32\" is not a date and time"));
    EXPECT_TRUE(outcome.text.contains("fitnotes.csv line 16: Reps \"10\" is the 13th or a later set of Quads on "
                                      "2024-05-01: left out"))
        << outcome.text.toStdString();
    EXPECT_TRUE(outcome.text.contains("fitnotes.csv line 20: Distance \"1.5\" is the 4th or a later aerobic exercise"));
    // "Leg Press" is on the Quads list; pounds and miles are kept as written.
    const QDate day(2024, 5, 1);
    EXPECT_EQ(set("Kov2ALowerBody", day, 106), "Leg Press|10|101|0");
    EXPECT_EQ(set("Kov2ALowerBody", day, 161), "Leg Press|10|112|0");
    EXPECT_EQ(m_days.value("Kov2Aerobic", day, 901, kText), QVariant("Bike"));
    EXPECT_EQ(m_days.value("Kov2Aerobic", day, 922, kR8), QVariant(1.5));
}

TEST_F(ForeignImportTest, AHeaderAloneAndADryRunChangeNothingNotEvenTheNameLists) {
    const QString empty = file("hevy.csv", "\"title\",\"start_time\",\"end_time\",\"exercise_title\",\"weight_lbs\","
                                           "\"reps\",\"distance_miles\",\"duration_seconds\"\n");
    HistoryImport::Outcome outcome = import("", empty);
    EXPECT_TRUE(outcome.complete) << outcome.text.toStdString();
    EXPECT_TRUE(outcome.text.contains("Upper body: 0 days added"));

    const QString before = digest();
    outcome = import("", sample("hevy.csv"), {true, false});
    EXPECT_TRUE(outcome.text.contains("Upper body: 1 days added")) << outcome.text.toStdString();
    EXPECT_EQ(digest(), before);
}
