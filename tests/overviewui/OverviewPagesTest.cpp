// The Today and calendar pages on the whole program, driven through taps, over logs written with
// plain SQL before the program starts.

#include "CalendarPage.h"
#include "TodayPage.h"

#include "AerobicLogPage.h"
#include "Clock.h"
#include "Settings.h"
#include "ShellTestSupport.h"
#include "SqlLogWriter.h"
#include "StrengthLogPage.h"
#include "resource.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

namespace {
SqlLogWriter::Prop text(int number, const QString& value) {
    return SqlLogWriter::text(number, value);
}

class OverviewPagesTest : public ScreenTest {
protected:
    void startProgram() { start(false, &m_pages); }
    int tab() const { return m_screen->mainDialog().tabControl()->currentIndex(); }
    TodayPage& today() const { return pageOf<TodayPage>(0); }
    CalendarPage& calendar() const { return pageOf<CalendarPage>(6); }
    QDate dateOf(int tab) const {
        return tab == 3 ? pageOf<AerobicLogPage>(tab).shownDate() : pageOf<StrengthLogPage>(tab).shownDate();
    }
    void tapToday(const QPoint& point) {
        main().SelectPage(0);
        QTest::mouseClick(&today(), Qt::LeftButton, {}, point);
    }
    // The middle of the calendar cell that shows day.
    QPoint cellOf(const QDate& day) const {
        const int i = static_cast<int>(calendar().month().firstCellDay().daysTo(day));
        return {1 + 34 * (i % 7) + 17, 32 + 35 * (i / 7) + 17};
    }
    void showCalendar() {
        main().SelectPage(6);
        calendar().repaint();
    }

    SqlLogWriter m_sql{m_device.paths().objectStore()};
};
} // namespace

TEST_F(OverviewPagesTest, TodayShowsTheWorkoutAndTapsOpenThePagesOfTheirBoxes) {
    m_sql.writeDay("Kov2Aerobic", kToday, {text(701, "Rowing")});
    m_sql.writeDay("Kov2AUpperBody", kToday, {text(106, "Bench")});
    startProgram();
    ASSERT_TRUE(waitUntil([this] { return today().workoutText() == "Rowing, Upper Body, Lower Body"; }));

    tapToday({100, 70});
    EXPECT_EQ(tab(), 3);
    tapToday({100, 120});
    EXPECT_EQ(tab(), 4);
    bool goalsShown = false;
    whenShown("GoalsDialog", [&goalsShown](QWidget* dialog) {
        goalsShown = true;
        static_cast<QDialog*>(dialog)->reject();
    });
    tapToday({100, 180});
    EXPECT_TRUE(goalsShown);
    EXPECT_EQ(tab(), 0);
}

TEST_F(OverviewPagesTest, TodayConvertsTheEarlierLogAtStartAndRedrawsOnItsButton) {
    m_sql.writeDay("Kov2UpperBody", QDate(2003, 5, 6), {text(106, "Bench"), text(306, "Row")});
    m_sql.writeDay("Kov2Food", kToday, {SqlLogWriter::mealTime(1010, 10, 1), text(1012, "Tuna")});
    startProgram();
    // Converted before the page is first used (what a conversion writes is the conversion's own test).
    EXPECT_EQ(stored("UpConv").toInt(), 1);

    ASSERT_TRUE(waitUntil([this] { return today().nextMealText() == "Tuna"; }));
    QApplication::processEvents(); // the redraws the start left waiting
    // At the meal's minute it is past; the page shows it once the tool-bar button redraws it.
    Clock::setFixed(QDateTime(kToday, QTime(10, 1)));
    QApplication::processEvents();
    EXPECT_EQ(today().nextMealText(), "Tuna");
    trigger(ID_TODAY_REFRESH);
    EXPECT_TRUE(waitUntil([this] { return today().nextMealText() == "No remaining meals scheduled"; }));
}

TEST_F(OverviewPagesTest, CalendarJumpsToTheDayOnThePageOfItsEntry) {
    const QDate both(2024, 3, 5), lower(2024, 3, 7), leading(2024, 2, 27);
    m_sql.writeDay("Kov2AUpperBody", both, {text(106, "Bench")});
    m_sql.writeDay("Kov2Aerobic", both, {text(701, "Run")});
    m_sql.writeDay("Kov2BLowerBody", both, {text(306, "Calf Raises")});
    m_sql.writeDay("Kov2ALowerBody", lower, {text(106, "Squat")});
    m_sql.writeDay("Kov2AUpperBody", leading, {text(106, "Dips")});
    startProgram();

    // One entry, CkDate off: straight to the page, and only the target page moves to the day.
    showCalendar();
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, cellOf(lower));
    EXPECT_EQ(tab(), 2);
    EXPECT_EQ(std::make_pair(dateOf(2), dateOf(1)), std::make_pair(lower, kToday));
    // A leading cell jumps to its own month's day.
    showCalendar();
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, cellOf(leading));
    EXPECT_EQ(std::make_pair(tab(), dateOf(1)), std::make_pair(1, leading));
    // A day without entries leads nowhere.
    showCalendar();
    QTest::mouseClick(&calendar(), Qt::LeftButton, {}, cellOf(QDate(2024, 3, 9)));
    EXPECT_EQ(tab(), 6);

    // More entries: the pop-up offers them in order; dismissed, nothing happens.
    QStringList shown;
    holdAndChoose(&calendar(), cellOf(both), 0, &shown);
    EXPECT_EQ(shown, QStringList({"Upper Body", "Lower Body", "Aerobic"}));
    EXPECT_EQ(tab(), 6);
    // With CkDate on every page moves to the day.
    setNumber(Settings::kCkDate, 1);
    holdAndChoose(&calendar(), cellOf(both), ID_CAL_AEROBIC);
    EXPECT_EQ(tab(), 3);
    EXPECT_EQ(std::vector<QDate>({dateOf(1), dateOf(2), dateOf(3)}), std::vector<QDate>({both, both, both}));
}

TEST_F(OverviewPagesTest, CalendarButtonsMoveTheMonth) {
    startProgram();
    showCalendar();
    const auto shown = [this] { return std::make_pair(calendar().month().month(), calendar().month().year()); };
    auto* previous = calendar().findChild<QPushButton*>("c1002");
    auto* current = calendar().findChild<QPushButton*>("c1004");
    auto* next = calendar().findChild<QPushButton*>("c1003");
    ASSERT_TRUE(previous && current && next);
    QTest::mouseClick(previous, Qt::LeftButton);
    EXPECT_EQ(shown(), std::make_pair(2, 2024));
    QTest::mouseClick(next, Qt::LeftButton);
    QTest::mouseClick(next, Qt::LeftButton);
    EXPECT_EQ(shown(), std::make_pair(4, 2024));
    QTest::mouseClick(current, Qt::LeftButton);
    EXPECT_EQ(shown(), std::make_pair(3, 2024));
}
