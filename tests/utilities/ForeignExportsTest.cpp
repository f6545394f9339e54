// Other programs' exports brought in: the shared samples of FitNotes, Strong (both forms), Hevy and
// openScale, checked in the store by property number and type, and the cases the samples do not show.

#include "ImportTest.h"

#include <gtest/gtest.h>

namespace {
using namespace PropType;

QString sample(const char* name) {
    return QString(IMPORT_SAMPLES) + "/" + name;
}

class ForeignImportTest : public ImportTest {
protected:
    QVariant stored(const QString& db, const QDate& day, int number, int type) const {
        return m_days.value(db, day, number, type);
    }
    // Exercise, reps, weight and intensity of the set at first (its exercise's number).
    QString set(const QString& db, const QDate& day, int first) const {
        return QStringList{stored(db, day, first, kText).toString(), stored(db, day, first + 1, kText).toString(),
                           stored(db, day, first + 2, kR8).toString(), stored(db, day, first + 4, kI2).toString()}
            .join('|');
    }
};
} // namespace

TEST_F(ForeignImportTest, FitNotesSetsGoToTheirGroupsAndCardioToTheAerobicLog) {
    const HistoryImport::Outcome outcome = import("", sample("fitnotes.csv"));
    EXPECT_TRUE(outcome.complete) << outcome.text.toStdString();
    const QDate monday(2024, 1, 8);
    // Category Chest; the list of Chest holds "Incline Dumbbell Press": slots 1-4 in the file's order.
    EXPECT_EQ(set("Kov2AUpperBody", monday, 106), "Flat Barbell Bench Press|8|80|0");
    EXPECT_EQ(set("Kov2AUpperBody", monday, 116), "Flat Barbell Bench Press|5|85|0");
    EXPECT_EQ(set("Kov2AUpperBody", monday, 121), "Incline Dumbbell Press|10|30|0");
    EXPECT_EQ(set("Kov2BUpperBody", monday, 311), "Barbell Row|8|70|0");
    EXPECT_EQ(set("Kov2BLowerBody", monday, 406), "Cable Crunch|15|40|0"); // Abs
    EXPECT_EQ(stored("Kov2AUpperBody", monday, 105, kUI2), QVariant(qint64(1)));
    EXPECT_EQ(stored("Kov2AUpperBody", monday, 1132, kText),
              QVariant("Flat Barbell Bench Press: felt strong, slight elbow pain"));
    EXPECT_FALSE(stored("Kov2AUpperBody", monday, 102, kI2).isValid()); // FitNotes has no times
    // Legs split by the name.
    const QDate wednesday(2024, 1, 10);
    EXPECT_EQ(set("Kov2ALowerBody", wednesday, 111), "Barbell Squat|5|100|0");
    EXPECT_EQ(set("Kov2ALowerBody", wednesday, 206), "Romanian Deadlift|8|90|0");
    EXPECT_EQ(set("Kov2BLowerBody", wednesday, 306), "Standing Calf Raise|12|60|0");
    EXPECT_EQ(stored("Kov2Aerobic", wednesday, 701, kText), QVariant("Treadmill"));
    EXPECT_EQ(stored("Kov2Aerobic", wednesday, 722, kR8), QVariant(5.0));
    EXPECT_EQ(stored("Kov2Aerobic", wednesday, 104, kI2), QVariant(qint64(28)));
    EXPECT_EQ(stored("Kov2Aerobic", wednesday, 1133, kI2), QVariant(qint64(30)));
    const QDate friday(2024, 1, 12);
    EXPECT_EQ(set("Kov2AUpperBody", friday, 206), "Overhead Press|6|45|0");
    EXPECT_EQ(set("Kov2BUpperBody", friday, 406), "Tricep Pushdown|12|25|0");
    EXPECT_EQ(set("Kov2BUpperBody", friday, 506), "Dumbbell Curl|10|14|0");
    EXPECT_EQ(stored("Kov2Aerobic", friday, 1132, kText), QVariant("Easy ride"));
    // Names the chosen lists lacked joined them, after the lists' defaults.
    EXPECT_TRUE(outcome.text.contains("Names added to the lists: 11.")) << outcome.text.toStdString();
}

TEST_F(ForeignImportTest, StrongAndHevyWorkoutsKeepTheirStartDurationNotesAndEffort) {
    for (const char* name : {"strong.csv", "strong-semicolon.csv", "hevy.csv"}) {
        const HistoryImport::Outcome outcome = import("", sample(name));
        EXPECT_TRUE(outcome.complete) << name << outcome.text.toStdString();
    }
    const QDate push(2024, 2, 5);
    EXPECT_EQ(set("Kov2AUpperBody", push, 106), "Bench Press (Barbell)|10|60|0");
    EXPECT_EQ(set("Kov2AUpperBody", push, 116), "Bench Press (Barbell)|6|80|9"); // RPE 8.5
    EXPECT_EQ(set("Kov2AUpperBody", push, 206), "Lateral Raise (Dumbbell)|15|10|0");
    EXPECT_EQ(set("Kov2BUpperBody", push, 406), "Triceps Extension (Cable)|12|30|0");
    EXPECT_EQ(m_days.props("Kov2AUpperBody", push, 102, 105), "102:2,103:2,104:2,105:18");
    EXPECT_EQ(stored("Kov2AUpperBody", push, 102, kI2).toInt() * 100 + stored("Kov2AUpperBody", push, 103, kI2).toInt(),
              731);
    EXPECT_EQ(stored("Kov2AUpperBody", push, 104, kI2), QVariant(qint64(62)));
    EXPECT_EQ(stored("Kov2AUpperBody", push, 1132, kText), QVariant("Morning session"));
    const QDate legs(2024, 2, 7);
    EXPECT_EQ(set("Kov2ALowerBody", legs, 106), "Squat (Barbell)|5|100|9");
    EXPECT_EQ(set("Kov2ALowerBody", legs, 206), "Leg Curl (Machine)|12|45|0");
    EXPECT_EQ(stored("Kov2Aerobic", legs, 701, kText), QVariant("Running"));
    EXPECT_EQ(stored("Kov2Aerobic", legs, 104, kI2), QVariant(qint64(20)));
    EXPECT_EQ(stored("Kov2Aerobic", legs, 102, kI2), QVariant(qint64(18)));
    // The older, semicolon-separated form.
    EXPECT_EQ(set("Kov2BUpperBody", QDate(2023, 11, 20), 311), "Pull Up|7|0|0");
    EXPECT_EQ(set("Kov2BUpperBody", QDate(2023, 11, 20), 506), "Bicep Curl (Barbell)|10|30|0");
    EXPECT_EQ(stored("Kov2AUpperBody", QDate(2023, 11, 22), 104, kI2), QVariant(qint64(70)));
    EXPECT_EQ(stored("Kov2AUpperBody", QDate(2023, 11, 22), 1132, kText), QVariant("Deadlift (Barbell): New PR"));
    // Hevy: elapsed from end minus start; a set without weight weighs 0.
    const QDate chest(2024, 3, 4);
    EXPECT_EQ(set("Kov2AUpperBody", chest, 111), "Chest Fly (Machine)|12|40|8");
    EXPECT_EQ(set("Kov2BUpperBody", chest, 411), "Triceps Dip|9|0|10");
    EXPECT_EQ(stored("Kov2AUpperBody", chest, 104, kI2), QVariant(qint64(65)));
    const QDate legDay(2024, 3, 6);
    EXPECT_EQ(set("Kov2BLowerBody", legDay, 306), "Seated Calf Raise|15|35|0");
    EXPECT_EQ(stored("Kov2ALowerBody", legDay, 1132, kText), QVariant("Tired"));
    EXPECT_EQ(stored("Kov2Aerobic", legDay, 722, kR8), QVariant(2.0));
    EXPECT_EQ(stored("Kov2Aerobic", legDay, 104, kI2), QVariant(qint64(10)));
}

TEST_F(ForeignImportTest, OpenScaleWeighingsFillTheBodyValuesAndTheLastOfADayCounts) {
    const HistoryImport::Outcome outcome = import("", sample("openscale.csv"));
    EXPECT_TRUE(outcome.complete) << outcome.text.toStdString();
    const QDate first(2024, 1, 8);
    EXPECT_EQ(m_days.props("Kov2Food", first), "64:64,1002:2,1003:5,1146:5,1148:5,1150:5,1151:5");
    EXPECT_EQ(stored("Kov2Food", first, 1002, kI2), QVariant(qint64(82)));
    EXPECT_EQ(stored("Kov2Food", first, 1148, kR8), QVariant(58.0)); // thigh
    EXPECT_EQ(m_days.props("Kov2Food", QDate(2024, 1, 10)), "64:64,1002:2,1003:5,1132:31");
    // 06:58 and 21:30: the evening's weighing, whose waist was not measured.
    const QDate twice(2024, 1, 12);
    EXPECT_EQ(stored("Kov2Food", twice, 1002, kI2), QVariant(qint64(83)));
    EXPECT_FALSE(stored("Kov2Food", twice, 1146, kR8).isValid());
    EXPECT_EQ(stored("Kov2Food", twice, 1132, kText), QVariant("evening"));
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
    EXPECT_EQ(stored("Kov2Aerobic", day, 901, kText), QVariant("Bike"));
    EXPECT_EQ(stored("Kov2Aerobic", day, 922, kR8), QVariant(1.5));
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
