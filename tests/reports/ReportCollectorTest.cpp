// Reports collected without a window from logs written with plain SQL: which days of a period count,
// what each family of measures reads, and where the chart puts the points.

#include "ReportCollector.h"
#include "RecordDatabase.h"
#include "ReportChart.h"
#include "ReportMeasure.h"
#include "SqlLogWriter.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

namespace {
constexpr int kI2 = 2, kUI2 = 18, kR8 = 5, kText = 31;
constexpr int kBodyWeight = 0, kSleepQuality = 4, kOverallFeeling = 5, kWtChest = 14, kWtCalves = 22,
              kDistancePerDay = 26, kDistancePerWeek = 27, kWorkoutsPerWeek = 28;
constexpr int kWeek = 0, kFourWeeks = 1, kTwelveWeeks = 2, kYear = 3;
const QDate kToday(2024, 3, 14);

class ReportCollectorTest : public ::testing::Test {
protected:
    Report collect(int measure, int period, const QDate& today = kToday, int set = 1, const QString& exercise = {},
                   bool asOne = true) const {
        ReportChoice choice;
        choice.measure = measure;
        choice.period = period;
        choice.set = set;
        choice.exercise = exercise;
        choice.workoutsAsOne = asOne;
        return ReportCollector(m_names).collect(choice, today);
    }
    QString log(UserDatabase which) const { return m_names[static_cast<size_t>(which)]; }
    void weigh(const QDate& day, int pounds) { m_sql.writeDay(log(UserDatabase::Food), day, {{1002, kI2, pounds}}); }

    // "offset:value" of each point, in order.
    static QStringList points(const Report& report) {
        QStringList texts;
        for (const Report::Point& point : report.points()) {
            texts << QStringLiteral("%1:%2").arg(point.offset).arg(point.value);
        }
        return texts;
    }

    TestDevice m_device;
    SqlLogWriter m_sql{m_device.paths().objectStore()};
    std::array<QString, kUserDatabaseCount> m_names = DatabaseCatalogue::userDatabaseNames(QStringLiteral("Ann"));
};
} // namespace

TEST_F(ReportCollectorTest, EachPeriodEndsWithTodayAndReachesBackItsLengthInDays) {
    const struct {
        int period;
        int days;
    } periods[] = {{kWeek, 7}, {kFourWeeks, 28}, {kTwelveWeeks, 84}, {kYear, 365}};
    for (const auto& p : periods) {
        // The first day of the period, and the day before it.
        weigh(kToday.addDays(1 - p.days), 150 + p.days);
        weigh(kToday.addDays(-p.days), 1);
    }
    weigh(kToday, 200);
    for (const auto& p : periods) {
        const Report report = collect(kBodyWeight, p.period);
        ASSERT_EQ(report.status(), Report::Status::Collected);
        EXPECT_EQ(report.periodDays(), p.days);
        EXPECT_EQ(report.points().front().offset, 1) << p.days;
        EXPECT_EQ(report.points().front().value, 150 + p.days);
        EXPECT_EQ(report.points().front().date, kToday.addDays(1 - p.days));
        EXPECT_EQ(report.points().back().offset, p.days);
    }
    for (const int outside : {-1, 4}) {
        EXPECT_EQ(collect(kBodyWeight, outside).status(), Report::Status::PeriodOutOfRange);
    }
}

TEST_F(ReportCollectorTest, ASingleEntryIsOneMarkedPointAtItsPlaceAndTheAverage) {
    m_sql.writeDay(log(UserDatabase::Food), QDate(2024, 2, 29), {{1147, kR8, 20.0}});
    const Report report = collect(3, kFourWeeks); // "Sleep"
    ASSERT_EQ(points(report), QStringList({"14:20"}));
    EXPECT_EQ(report.average(), 20.0);

    const ReportChart chart(report, QPointF(34, 245));
    EXPECT_TRUE(chart.marksPoints());
    // A tap finds the point (14 of 28 days across 200 pixels, 20 of 25 up 205) within six pixels, and
    // nothing beyond.
    EXPECT_EQ(chart.pointAt(QPointF(140, 81)), 0);
    EXPECT_EQ(chart.pointAt(QPointF(134, 87.1)), -1);
}

TEST_F(ReportCollectorTest, PointsAreMarkedOnlyWhereTheyStandApart) {
    // A mark needs six pixels to the next point: over a year points ten days apart (5.5 pixels) run
    // together, eleven days (6.0) do not; a year of weekly points is a line ending at the axis's end.
    const struct {
        int days;
        int apart;
        bool marked;
    } spacings[] = {{365, 7, false}, {365, 10, false}, {365, 11, true}, {84, 2, false}, {84, 3, true}, {28, 1, true}};
    for (const auto& spacing : spacings) {
        std::vector<Report::Point> points;
        for (int n = spacing.days; n >= 1; n -= spacing.apart) {
            points.insert(points.begin(), {kToday.addDays(n - spacing.days), n, 3.0});
        }
        const Report report(kToday, spacing.days, points);
        const ReportChart spaced(report, QPointF(34, 245));
        EXPECT_EQ(spaced.marksPoints(), spacing.marked) << spacing.days << " " << spacing.apart;
        EXPECT_EQ(spaced.polyline().back().x(), 234.0);
    }
}

TEST_F(ReportCollectorTest, FoodValuesOfAnyIntegerTypeCountAndAbsentZeroOrUnchosenOnesGiveNoPoint) {
    const QString food = log(UserDatabase::Food);
    m_sql.writeDay(food, kToday.addDays(-6), {{1002, kUI2, 181}, {1152, kI2, 10}, {1153, kI2, 7}});
    m_sql.writeDay(food, kToday.addDays(-5), {{1002, kI2, 0}, {1152, kI2, -1}, {1153, kI2, 1}});
    m_sql.writeDay(food, kToday.addDays(-4), {{1001, kI2, 8}, {1153, kI2, 9}});
    m_sql.writeDay(food, kToday.addDays(-3), {{1002, kI2, 183}, {1152, kI2, 11}, {1153, kI2, 0}});
    const Report weight = collect(kBodyWeight, kWeek);
    EXPECT_EQ(points(weight), QStringList({"1:181", "4:183"}));
    EXPECT_EQ(weight.average(), 182.0);
    EXPECT_EQ(weight.largest(), 183.0);
    // Ratings run 0-10: "no choice" and 11 give no point. Sleep quality counts only beside a feeling.
    EXPECT_EQ(points(collect(kOverallFeeling, kWeek)), QStringList({"1:10"}));
    EXPECT_EQ(points(collect(kSleepQuality, kWeek)), QStringList({"1:7", "2:1"}));
}

TEST_F(ReportCollectorTest, EachFoodAndWeightPerSetMeasureChartsItsOwnProperty) {
    // Every food measure on one day with a value of its own, in the drop-down's order.
    const std::tuple<int, int, double> food[] = {
        {1002, kI2, 181},   {1003, kR8, 21.5}, {1001, kI2, 8},  {1147, kR8, 7.5}, {1153, kI2, 6},
        {1152, kI2, 9},     {1154, kI2, 120},  {1155, kI2, 80}, {1156, kI2, 52},  {1151, kR8, 40},
        {1150, kR8, 15.75}, {1146, kR8, 32.5}, {1148, kR8, 22}, {1149, kR8, 15}};
    std::vector<SqlLogWriter::Prop> values;
    for (const auto& [number, type, value] : food) {
        values.push_back({number, type, type == kR8 ? QVariant(value) : QVariant(int(value))});
    }
    m_sql.writeDay(log(UserDatabase::Food), kToday, values);
    // Set 1 of each of the twelve groups, weighing 10 more than the group's place among the measures.
    std::map<UserDatabase, std::vector<SqlLogWriter::Prop>> sets;
    for (int group = 0; group < 12; ++group) {
        const int inRegion = group % 6;
        const bool a = inRegion < 2;
        const UserDatabase db = group < 6 ? (a ? UserDatabase::UpperA : UserDatabase::UpperB)
                                          : (a ? UserDatabase::LowerA : UserDatabase::LowerB);
        sets[db].push_back(SqlLogWriter::text(106 + 100 * inRegion, "Press"));
        sets[db].push_back({108 + 100 * inRegion, kR8, 10.0 + group});
    }
    for (const auto& [db, props] : sets) {
        m_sql.writeDay(log(db), kToday, props);
    }
    for (int measure = 0; measure < 26; ++measure) {
        const double expected = measure < 14 ? std::get<2>(food[measure]) : 10.0 + (measure - 14);
        EXPECT_EQ(points(collect(measure, kWeek)), QStringList{QStringLiteral("7:%1").arg(expected)})
            << ReportMeasure::names().at(measure).toStdString();
    }
}

TEST_F(ReportCollectorTest, AWeightPerSetIsTheChosenSetsWeightWhenItHoldsAnExercise) {
    const QString upperA = log(UserDatabase::UpperA);
    // Chest, set 2: the exercise at 111, the weight at 113.
    m_sql.writeDay(upperA, kToday.addDays(-3), {{111, kText, "Barbell Bench Press"}, {113, kR8, 135.0}});
    m_sql.writeDay(upperA, kToday.addDays(-2), {{111, kText, "Dumbbell Flyes"}, {113, kR8, 30.0}});
    m_sql.writeDay(upperA, kToday.addDays(-1), {{111, kText, ""}, {113, kR8, 100.0}});
    m_sql.writeDay(upperA, kToday, {{106, kText, "Barbell Bench Press"}, {108, kR8, 125.0}});
    EXPECT_EQ(points(collect(kWtChest, kWeek, kToday, 2)), QStringList({"4:135", "5:30"}));
    EXPECT_EQ(points(collect(kWtChest, kWeek, kToday, 2, "Barbell Bench Press")), QStringList({"4:135"}));
    EXPECT_EQ(points(collect(kWtChest, kWeek, kToday, 1)), QStringList({"7:125"}));

    // Calves is a lower-body group of the B log; set 12 is its last, at 361 and 363.
    m_sql.writeDay(log(UserDatabase::LowerB), kToday, {{361, kText, "Seated Calf Raises"}, {363, kR8, 90.0}});
    EXPECT_EQ(points(collect(kWtCalves, kWeek, kToday, 12)), QStringList({"7:90"}));
    EXPECT_TRUE(collect(kWtCalves, kWeek, kToday, 11).isEmpty());
}

TEST_F(ReportCollectorTest, AerobicDistancesAddUpPerDayAndPerWholeWeekEndingToday) {
    const QString aerobic = log(UserDatabase::Aerobic);
    m_sql.writeDay(aerobic, kToday.addDays(-20), {{722, kR8, 3.0}, {922, kR8, 1.5}});
    m_sql.writeDay(aerobic, kToday.addDays(-14), {{822, kR8, 2.0}});
    m_sql.writeDay(aerobic, kToday, {{722, kR8, 5.0}});
    EXPECT_EQ(points(collect(kDistancePerDay, kFourWeeks)), QStringList({"8:4.5", "14:2", "28:5"}));
    // Weeks end on days 7, 14, 21 and 28; the week of days 8-14 holds both earlier days.
    const Report weekly = collect(kDistancePerWeek, kFourWeeks);
    EXPECT_EQ(points(weekly), QStringList({"14:6.5", "28:5"}));
    EXPECT_EQ(weekly.average(), 5.75);

    // The year's first day falls outside its 52 whole weeks; its second day starts the first.
    const QDate newYearsEve(2023, 12, 31);
    m_sql.writeDay(aerobic, QDate(2023, 1, 1), {{722, kR8, 9.0}});
    m_sql.writeDay(aerobic, QDate(2023, 1, 2), {{722, kR8, 4.0}});
    EXPECT_EQ(points(collect(kDistancePerWeek, kYear, newYearsEve)), QStringList({"8:4"}));
}

TEST_F(ReportCollectorTest, WorkoutsCountTrainedRegionsOnceOrTwiceAndEachAerobicExercise) {
    const QDate both = kToday.addDays(-2), aerobicDay = kToday.addDays(-1);
    // Upper body in its B log only (Triceps), lower body in its A log (Quads).
    m_sql.writeDay(log(UserDatabase::UpperA), both, {{102, kI2, 6}, {1132, kText, "<Click to add Notes>"}});
    m_sql.writeDay(log(UserDatabase::UpperB), both, {{406, kText, "Bench Dips"}});
    m_sql.writeDay(log(UserDatabase::LowerA), both, {{106, kText, "Barbell Squats"}});
    m_sql.writeDay(log(UserDatabase::Aerobic), aerobicDay, {{701, kText, "Run"}, {801, kText, "Bike"}});
    // A visited day: a header, an emptied set and an aerobic record holding its key alone.
    m_sql.writeDay(log(UserDatabase::UpperA), kToday, {{102, kI2, 7}, {106, kText, ""}, {108, kR8, 50.0}});
    m_sql.writeDay(log(UserDatabase::Aerobic), kToday, {});
    EXPECT_EQ(points(collect(kWorkoutsPerWeek, kWeek)), QStringList({"7:3"}));
    EXPECT_EQ(points(collect(kWorkoutsPerWeek, kWeek, kToday, 1, {}, false)), QStringList({"7:4"}));
    EXPECT_TRUE(collect(kWorkoutsPerWeek, kWeek, kToday.addDays(-3)).isEmpty());
}

TEST_F(ReportCollectorTest, MissingLogsGiveNoEntriesAndAnUnreadableValueFailsTheReport) {
    for (int measure = 0; measure < ReportMeasure::kCount; ++measure) {
        const Report report = collect(measure, kYear);
        EXPECT_EQ(report.status(), Report::Status::Collected);
        EXPECT_TRUE(report.isEmpty()) << measure;
    }
    m_sql.writeDay(log(UserDatabase::UpperA), kToday, {{106, kText, "Barbell Bench Press"}, {108, kR8, "heavy"}});
    EXPECT_EQ(collect(kWtChest, kWeek).status(), Report::Status::ReadFailed);
}

// What the exercise choices hold once the list exists is the reports page's own test.
TEST_F(ReportCollectorTest, TheExerciseChoicesOfAGroupWithoutItsListAreNoneAndTheListIsNotCreated) {
    EXPECT_TRUE(ReportCollector::exercises(MuscleGroup(BodyRegion::Upper, 0)).isEmpty());
    EXPECT_FALSE(RecordDatabase::Exists("KovChestList"));
}
