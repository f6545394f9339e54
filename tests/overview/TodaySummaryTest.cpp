// The Today page's texts and tap targets, over logs written with plain SQL.

#include "TodaySummary.h"
#include "TodayPage.h"
#include "TodayTaps.h"

#include "DeviceFonts.h"
#include "SqlLogWriter.h"
#include "TestDevice.h"

#include <QFontMetrics>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace {
using Prop = SqlLogWriter::Prop;
using Target = TodayTaps::Target;
const QDate kToday(2024, 3, 14);
const QString kAerobic = QStringLiteral("Kov2AerobicAnn");
const QString kUpperA = QStringLiteral("Kov2AUpperBodyAnn");
const QString kFood = QStringLiteral("Kov2FoodAnn");

Prop text(int number, const QString& value) {
    return SqlLogWriter::text(number, value);
}

class TodaySummaryTest : public ::testing::Test {
protected:
    QString workout(const QDate& day = kToday) const { return TodaySummary::workoutText(kAerobic, kUpperA, day); }
    QString nextMeal(int hour, int minute) const {
        return TodaySummary::nextMealText(kFood, QDateTime(kToday, QTime(hour, minute)));
    }
    // Appends a meal in slot at hour:minute with up to four items to props.
    static void meal(std::vector<Prop>& props, int slot, int hour, int minute, const QStringList& items) {
        const int time = 1010 + 6 * slot;
        props.push_back(SqlLogWriter::mealTime(time, hour, minute));
        for (int i = 0; i < items.size(); ++i) {
            props.push_back(text(time + 2 + i, items[i]));
        }
    }

    TestDevice m_device;
    SqlLogWriter m_sql{m_device.paths().objectStore()};
};
} // namespace

TEST_F(TodaySummaryTest, NothingLoggedTodayAnywhere) {
    // Records of other days do not count.
    m_sql.writeDay(kAerobic, kToday.addDays(-1), {text(701, "Run")});
    std::vector<Prop> tomorrow;
    meal(tomorrow, 0, 18, 0, {"Steak"});
    m_sql.writeDay(kFood, kToday.addDays(1), tomorrow);
    EXPECT_EQ(workout(), "No workout scheduled");
    EXPECT_EQ(nextMeal(10, 0), "No meals planned today");
}

TEST_F(TodaySummaryTest, WorkoutTextFollowsThePartCounter) {
    m_sql.writeDay(kAerobic, kToday, {text(701, "Run"), text(801, ""), text(901, "Swim")});
    m_sql.writeDay(kUpperA, kToday, {text(106, "Bench Press")});
    // Both strength labels come from the upper-body A record; a lower-body record is not asked.
    EXPECT_EQ(workout(), "Run, Swim, Upper Body, Lower Body");

    // Without exercise 1 the counter stays 0: exercise 3 replaces exercise 2, the upper body replaces
    // both, and the aerobic exercises alone make no workout.
    const QDate noFirst = kToday.addDays(1);
    m_sql.writeDay(kAerobic, noFirst, {text(801, "Swim"), text(901, "Row")});
    EXPECT_EQ(workout(noFirst), "No workout scheduled");
    m_sql.writeDay(kUpperA, noFirst, {text(106, "Dips")});
    EXPECT_EQ(workout(noFirst), "Upper Body, Lower Body");

    // Only the first Chest set counts: a first visit's header, a later set, a Shoulders set do not.
    const QDate header = kToday.addDays(2);
    m_sql.writeDay(kUpperA, header,
                   {{102, SqlLogWriter::kI2, 9}, text(106, ""), text(111, "Flyes"), text(206, "Press")});
    m_sql.writeDay("Kov2ALowerBodyAnn", header, {text(106, "Squat")});
    EXPECT_EQ(workout(header), "No workout scheduled");
}

TEST_F(TodaySummaryTest, NextMealIsTheFirstSlotInSlotOrderWithAnItemToCome) {
    std::vector<Prop> props;
    meal(props, 0, 18, 0, {"Steak", "", "Salad", ""});
    meal(props, 1, 12, 0, {"Tuna", "Bread"});
    meal(props, 2, 20, 0, {"", "", "", ""}); // to come, but nothing in it
    props.push_back(text(1030, "Cake"));     // slot 3: an item without a time
    meal(props, 4, 20, 30, {"", "", "", "Protein shake"});
    meal(props, 14, 21, 0, {"Tea"});    // the last slot
    meal(props, 15, 22, 0, {"Cookie"}); // no slot
    m_sql.writeDay(kFood, kToday, props);
    // At 10:00 the 18:00 meal of slot 0 comes before the 12:00 one of slot 1.
    EXPECT_EQ(nextMeal(10, 0), "Steak, Salad");
    // A meal at the current minute is past; a minute before, it is to come.
    EXPECT_EQ(nextMeal(17, 59), "Steak, Salad");
    EXPECT_EQ(nextMeal(18, 0), "Protein shake");
    EXPECT_EQ(nextMeal(20, 29), "Protein shake");
    EXPECT_EQ(nextMeal(20, 30), "Tea");
    EXPECT_EQ(nextMeal(21, 0), "No remaining meals scheduled");
}

TEST(TodayTapsTest, BoxesEndBeforeTheirRightAndBottomEdgesAndTheFirstLetterChoosesThePage) {
    const QString upper = QStringLiteral("Upper Body, Lower Body");
    // Workout box (2, 56, 229, 90), meal box (4, 109, 217, 141), goals box (3, 149, 217, 211).
    const std::pair<QPoint, Target> taps[] = {
        {{2, 56}, Target::UpperBody}, {{228, 89}, Target::UpperBody}, {{1, 60}, Target::None},
        {{229, 60}, Target::None},    {{100, 55}, Target::None},      {{100, 90}, Target::None},
        {{4, 109}, Target::Food},     {{216, 140}, Target::Food},     {{3, 120}, Target::None},
        {{217, 120}, Target::None},   {{100, 141}, Target::None},     {{3, 149}, Target::Goals},
        {{216, 210}, Target::Goals},  {{2, 180}, Target::None},       {{217, 180}, Target::None},
        {{100, 211}, Target::None}};
    for (const auto& [point, target] : taps) {
        EXPECT_EQ(TodayTaps::at(point, upper), target) << point.x() << "," << point.y();
    }
    const QPoint box(100, 70);
    EXPECT_EQ(TodayTaps::at(box, "Lunges, Upper Body, Lower Body"), Target::LowerBody);
    EXPECT_EQ(TodayTaps::at(box, "Run, Upper Body"), Target::Aerobic);
    EXPECT_EQ(TodayTaps::at(box, "upper body"), Target::Aerobic);
    EXPECT_EQ(TodayTaps::at(box, "No workout scheduled"), Target::None);
    EXPECT_EQ(TodayTaps::at(box, ""), Target::None);
}

TEST(TodayGoalsTest, GoalsAreCutToTheLinesOfTheirBox) {
    static int argc = 1;
    static char name[] = "overview_tests";
    static char* argv[] = {name, nullptr};
    QGuiApplication app(argc, argv);
    const QFont font = DeviceFonts::tahoma(13);
    EXPECT_TRUE(TodayPage::wrappedLines("", font, 160, 3).isEmpty());
    // As many lines as the box holds are shown whole; one more cuts the last shown.
    EXPECT_EQ(TodayPage::wrappedLines("One\nTwo\nThree", font, 160, 3), QStringList({"One", "Two", "Three"}));
    EXPECT_EQ(TodayPage::wrappedLines("One\nTwo\nThree.\nFour", font, 160, 3), QStringList({"One", "Two", "Three..."}));
    // A long paragraph wraps at whole words and ends in "..." within the width.
    const QStringList wrapped = TodayPage::wrappedLines(
        "Lose five pounds by summer, run three times a week, stretch every morning and sleep eight hours", font, 100,
        3);
    ASSERT_EQ(wrapped.size(), 3);
    EXPECT_TRUE(wrapped[0].startsWith("Lose five"));
    EXPECT_TRUE(wrapped[2].endsWith("..."));
    EXPECT_LE(QFontMetrics(font).horizontalAdvance(wrapped[2]), 100);
}
