// The Today page's texts and tap targets, over logs written with plain SQL.

#include "TodaySummary.h"
#include "TodayPage.h"
#include "TodayTaps.h"

#include "DeviceFonts.h"
#include "SqlDayWriter.h"
#include "TestDevice.h"

#include <QFontMetrics>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {
using Prop = SqlDayWriter::Prop;
using Target = TodayTaps::Target;
const QDate kToday(2024, 3, 14);
const QString kAerobic = QStringLiteral("Kov2AerobicAnn");
const QString kUpperA = QStringLiteral("Kov2AUpperBodyAnn");
const QString kFood = QStringLiteral("Kov2FoodAnn");

class TodaySummaryTest : public ::testing::Test {
protected:
    QString workout() const { return TodaySummary::workoutText(kAerobic, kUpperA, kToday); }
    QString nextMeal(int hour, int minute) const {
        return TodaySummary::nextMealText(kFood, QDateTime(kToday, QTime(hour, minute)));
    }
    // A meal in slot at hour:minute with the four items.
    static std::vector<Prop> meal(int slot, int hour, int minute, const QStringList& items) {
        const int time = 1010 + 6 * slot;
        std::vector<Prop> props{SqlDayWriter::mealTime(time, hour, minute)};
        for (int i = 0; i < items.size(); ++i) {
            props.push_back(SqlDayWriter::text(time + 2 + i, items[i]));
        }
        return props;
    }
    static std::vector<Prop> join(std::vector<Prop> a, const std::vector<Prop>& b) {
        a.insert(a.end(), b.begin(), b.end());
        return a;
    }

    TestDevice m_device;
    SqlDayWriter m_sql{m_device.paths().objectStore()};
};
} // namespace

TEST_F(TodaySummaryTest, NothingLoggedTodayAnywhere) {
    EXPECT_EQ(workout(), "No workout scheduled");
    EXPECT_EQ(nextMeal(10, 0), "No meals planned today");
    // Records of other days do not count.
    m_sql.addDay(kAerobic, kToday.addDays(-1), {SqlDayWriter::text(701, "Run")});
    m_sql.addDay(kFood, kToday.addDays(1), meal(0, 18, 0, {"Steak"}));
    EXPECT_EQ(workout(), "No workout scheduled");
    EXPECT_EQ(nextMeal(10, 0), "No meals planned today");
}

TEST_F(TodaySummaryTest, WorkoutTextFollowsThePartCounter) {
    m_sql.addDay(kAerobic, kToday,
                 {SqlDayWriter::text(701, "Run"), SqlDayWriter::text(801, ""), SqlDayWriter::text(901, "Swim")});
    m_sql.addDay(kUpperA, kToday, {SqlDayWriter::text(106, "Bench Press")});
    // Both strength labels come from the upper-body A record.
    EXPECT_EQ(workout(), "Run, Swim, Upper Body, Lower Body");

    // Without exercise 1 the counter stays 0: exercise 3 replaces exercise 2, and the upper body
    // replaces both.
    m_sql.addDay(kAerobic, kToday.addDays(1), {SqlDayWriter::text(801, "Swim"), SqlDayWriter::text(901, "Row")});
    EXPECT_EQ(TodaySummary::workoutText(kAerobic, kUpperA, kToday.addDays(1)), "No workout scheduled");
    m_sql.addDay(kUpperA, kToday.addDays(1), {SqlDayWriter::text(106, "Dips")});
    EXPECT_EQ(TodaySummary::workoutText(kAerobic, kUpperA, kToday.addDays(1)), "Upper Body, Lower Body");
}

TEST_F(TodaySummaryTest, OnlyTheFirstChestSetMakesAStrengthWorkout) {
    // A first visit's header, a later Chest set and a Shoulders set: property 106 is empty or absent.
    m_sql.addDay(kUpperA, kToday,
                 {{102, SqlDayWriter::kI2, 9},
                  {105, SqlDayWriter::kUI2, 1},
                  SqlDayWriter::text(106, ""),
                  SqlDayWriter::text(111, "Flyes"),
                  SqlDayWriter::text(206, "Press")});
    m_sql.addDay(QStringLiteral("Kov2ALowerBodyAnn"), kToday, {SqlDayWriter::text(106, "Squat")});
    EXPECT_EQ(workout(), "No workout scheduled");
}

TEST_F(TodaySummaryTest, NextMealIsTheFirstSlotWithAnItemToCome) {
    // Slot order, not time order: at 10:00 the 18:00 meal of slot 0 comes before the 12:00 one.
    m_sql.addDay(kFood, kToday,
                 join(join(meal(0, 18, 0, {"Steak", "", "Salad", ""}), meal(1, 12, 0, {"Tuna", "Bread", "", ""})),
                      meal(2, 7, 0, {"Eggs", "Toast", "", "Coffee"})));
    EXPECT_EQ(nextMeal(10, 0), "Steak, Salad");
    // A meal at the current minute is past; a minute before, it is to come.
    EXPECT_EQ(nextMeal(18, 0), "No remaining meals scheduled");
    EXPECT_EQ(nextMeal(17, 59), "Steak, Salad");
    EXPECT_EQ(nextMeal(12, 0), "Steak, Salad");
    EXPECT_EQ(nextMeal(6, 59), "Steak, Salad");
}

TEST_F(TodaySummaryTest, SlotsWithoutItemsOrTimeAreSkipped) {
    // Slot 0 is to come but holds no item; slot 1 has items but no time; slot 2 counts; the
    // same-hour boundary: 10:30 is past at 10:30 and to come at 10:29.
    std::vector<Prop> props = meal(0, 20, 0, {"", "", "", ""});
    props.push_back(SqlDayWriter::text(1018, "Cake"));
    props = join(props, meal(2, 10, 30, {"", "", "", "Protein shake"}));
    props = join(props, meal(3, 11, 0, {"Chicken", "Rice", "Peas", "Water"}));
    m_sql.addDay(kFood, kToday, props);
    EXPECT_EQ(nextMeal(10, 29), "Protein shake");
    EXPECT_EQ(nextMeal(10, 30), "Chicken, Rice, Peas, Water");
    EXPECT_EQ(nextMeal(11, 0), "No remaining meals scheduled");
    EXPECT_EQ(nextMeal(23, 59), "No remaining meals scheduled");
}

TEST(TodayTapsTest, BoxesEndBeforeTheirRightAndBottomEdges) {
    const QString workout = QStringLiteral("Upper Body, Lower Body");
    EXPECT_EQ(TodayTaps::at({2, 56}, workout), Target::UpperBody);
    EXPECT_EQ(TodayTaps::at({228, 89}, workout), Target::UpperBody);
    EXPECT_EQ(TodayTaps::at({229, 60}, workout), Target::None);
    EXPECT_EQ(TodayTaps::at({1, 60}, workout), Target::None);
    EXPECT_EQ(TodayTaps::at({100, 90}, workout), Target::None);
    EXPECT_EQ(TodayTaps::at({4, 109}, workout), Target::Food);
    EXPECT_EQ(TodayTaps::at({216, 140}, workout), Target::Food);
    EXPECT_EQ(TodayTaps::at({217, 120}, workout), Target::None);
    EXPECT_EQ(TodayTaps::at({100, 141}, workout), Target::None);
    EXPECT_EQ(TodayTaps::at({3, 149}, workout), Target::Goals);
    EXPECT_EQ(TodayTaps::at({216, 210}, workout), Target::Goals);
    EXPECT_EQ(TodayTaps::at({100, 211}, workout), Target::None);
    EXPECT_EQ(TodayTaps::at({100, 148}, workout), Target::None);
}

TEST(TodayTapsTest, TheFirstLetterOfTheWorkoutChoosesThePage) {
    const QPoint box(100, 70);
    EXPECT_EQ(TodayTaps::at(box, "Lower Body"), Target::LowerBody);
    EXPECT_EQ(TodayTaps::at(box, "Lunges, Upper Body, Lower Body"), Target::LowerBody);
    EXPECT_EQ(TodayTaps::at(box, "Uphill walk"), Target::UpperBody);
    EXPECT_EQ(TodayTaps::at(box, "Run, Upper Body"), Target::Aerobic);
    EXPECT_EQ(TodayTaps::at(box, "upper body"), Target::Aerobic);
    EXPECT_EQ(TodayTaps::at(box, "No workout scheduled"), Target::None);
    EXPECT_EQ(TodayTaps::at(box, ""), Target::None);
    EXPECT_EQ(TodayTaps::tabOf(Target::UpperBody), 1);
    EXPECT_EQ(TodayTaps::tabOf(Target::LowerBody), 2);
    EXPECT_EQ(TodayTaps::tabOf(Target::Aerobic), 3);
    EXPECT_EQ(TodayTaps::tabOf(Target::Food), 4);
    EXPECT_EQ(TodayTaps::tabOf(Target::Goals), -1);
}

TEST(TodayGoalsTest, GoalsAreCutToTheLinesOfTheirBox) {
    static int argc = 1;
    static char name[] = "overview_tests";
    static char* argv[] = {name, nullptr};
    QGuiApplication app(argc, argv);
    const QFont font = DeviceFonts::tahoma(13);
    const QFontMetrics metrics(font);
    EXPECT_EQ(TodayPage::goalsLines("Run a 10k\nBench 200", font, 160, 3), QStringList({"Run a 10k", "Bench 200"}));
    EXPECT_TRUE(TodayPage::goalsLines("", font, 160, 3).isEmpty());
    // Exactly as many lines as the box holds: nothing is cut.
    EXPECT_EQ(TodayPage::goalsLines("One\nTwo\nThree", font, 160, 3), QStringList({"One", "Two", "Three"}));
    const QStringList cut = TodayPage::goalsLines("One\nTwo\nThree\nFour", font, 160, 3);
    EXPECT_EQ(cut, QStringList({"One", "Two", "Three..."}));
    // A long paragraph wraps at whole words and ends in "..." within the width.
    const QStringList wrapped = TodayPage::goalsLines(
        "Lose five pounds by summer, run three times a week, stretch every morning and sleep eight hours", font, 100,
        3);
    ASSERT_EQ(wrapped.size(), 3);
    EXPECT_TRUE(wrapped[2].endsWith("..."));
    for (const QString& line : wrapped) {
        EXPECT_LE(metrics.horizontalAdvance(line), 100) << line.toStdString();
    }
    EXPECT_TRUE(wrapped[0].startsWith("Lose five"));
}
