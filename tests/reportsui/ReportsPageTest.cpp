// The reports page on the whole program, driven through its drop-downs and taps, over logs written
// with plain SQL before the program starts.

#include "ReportsPage.h"
#include "DeviceCombo.h"
#include "Settings.h"
#include "ShellTestSupport.h"
#include "SqlLogWriter.h"
#include "resource.h"

#include <QAbstractItemView>
#include <QTest>

namespace {
constexpr int kReportsTab = 5;

class ReportsPageTest : public ScreenTest {
protected:
    ReportsPage& showPage() { return ScreenTest::showPage<ReportsPage>(kReportsTab); }
    ReportsPage& page() const { return pageOf<ReportsPage>(kReportsTab); }
    DeviceCombo* combo(int id) const { return control<DeviceCombo>(page(), id); }
    QStringList items(int id) const { return itemTexts(combo(id)); }
    // Opens the drop-down, scrolls its list to the item and taps it.
    void choose(int id, const QString& text) {
        DeviceCombo* box = combo(id);
        const int index = box->findText(text);
        ASSERT_GE(index, 0) << text.toStdString();
        box->showPopup();
        QAbstractItemView* view = box->view();
        ASSERT_TRUE(waitUntil([view] { return view->isVisible(); }));
        view->scrollTo(view->model()->index(index, 0));
        const QRect item = view->visualRect(view->model()->index(index, 0));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, item.center());
        ASSERT_TRUE(waitUntil([box, text] { return box->currentText() == text; }));
    }
    void tap(QPoint at) {
        QTest::mousePress(&page(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(&page(), Qt::LeftButton, {}, at);
    }
    // "offset:value" of each point of the page's report.
    QStringList points() const {
        QStringList texts;
        for (const Report::Point& point : page().report().points()) {
            texts << QStringLiteral("%1:%2").arg(point.offset).arg(point.value);
        }
        return texts;
    }

    SqlLogWriter m_sql{m_device.paths().objectStore()};
};
} // namespace

TEST_F(ReportsPageTest, TheDropDownsHoldTheirItemsInOrderAndTheSetChoicesShowOnlyForWeightsPerSet) {
    m_sql.writeList("KovShldrList", {"Side Raises", "Arnold Press"});
    showPage();
    EXPECT_EQ(items(IDC_REPORTS_MEASURE).join('|'),
              "Body Weight|Body Fat|Water Intake|Sleep|Sleep Quality|Overall Feeling|Systolic BP|Diastolic BP|"
              "Resting HR|Measurement - Chest|Measurement - Biceps|Measurement - Waist|Measurement - Quads|"
              "Measurement - Calves|Wt Chest, Set #|Wt Shldrs, Set #|Wt Back, Set #|Wt Triceps, Set #|"
              "Wt Biceps, Set #|Wt Misc, Set #|Wt Quads, Set #|Wt Hamstr, Set #|Wt Calves, Set #|Wt Abs, Set #|"
              "Wt Misc1, Set #|Wt Misc2, Set #|Aerobic Dist Per Day|Aerobic Dist Per Week|Workouts Per Week");
    EXPECT_EQ(items(IDC_REPORTS_PERIOD), QStringList({"Past Week", "Past Four Weeks", "Past 12 Weeks", "Past Year"}));
    const QStringList sets = items(IDC_REPORTS_SET);
    ASSERT_EQ(sets.size(), 12);
    EXPECT_EQ(sets.front(), "Set 1");
    EXPECT_EQ(sets.back(), "Set 12");
    // What the page shows first is the reports picture.

    choose(IDC_REPORTS_MEASURE, "Wt Shldrs, Set #");
    EXPECT_TRUE(combo(IDC_REPORTS_SET)->isVisible());
    EXPECT_TRUE(combo(IDC_REPORTS_EXERCISE)->isVisible());
    EXPECT_EQ(items(IDC_REPORTS_EXERCISE), QStringList({"All Exercises", "Arnold Press", "Side Raises"}));
    // The last measure of the twelve still shows them, the one after hides them.
    choose(IDC_REPORTS_MEASURE, "Wt Misc2, Set #");
    EXPECT_EQ(items(IDC_REPORTS_EXERCISE), QStringList({"All Exercises"}));
    choose(IDC_REPORTS_MEASURE, "Aerobic Dist Per Day");
    EXPECT_FALSE(combo(IDC_REPORTS_SET)->isVisible());
    EXPECT_FALSE(combo(IDC_REPORTS_EXERCISE)->isVisible());
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(ReportsPageTest, ChoicesRecollectAndATapShowsThePointUnderTheStylusUntilTheNextTap) {
    m_sql.writeDay("Kov2Food", kToday.addDays(-5), {{1002, kI2, 180}});
    m_sql.writeDay("Kov2Food", kToday, {{1002, kI2, 190}});
    m_sql.writeDay("Kov2Food", kToday.addDays(-20), {{1002, kI2, 170}});
    m_sql.writeDay("Kov2AUpperBody", kToday.addDays(-1),
                   {{111, kText, "Barbell Bench Press"}, {113, kR8, 135.0}, {106, kText, "Dumbbell Flyes"}});
    m_sql.writeDay("Kov2AUpperBody", kToday, {{111, kText, "Dumbbell Flyes"}, {113, kR8, 30.0}});
    showPage();
    EXPECT_EQ(points(), QStringList({"2:180", "7:190"}));

    // Day 2 of 7 stands at x 34 + 200 * 2 / 7 = 91.1, y 245 - 205 * 180 / 195 = 55.8.
    tap(QPoint(91, 56));
    EXPECT_EQ(page().tappedPoint(), 0);
    tap(QPoint(91, 63));
    EXPECT_EQ(page().tappedPoint(), -1);

    choose(IDC_REPORTS_PERIOD, "Past Four Weeks");
    EXPECT_EQ(points(), QStringList({"8:170", "23:180", "28:190"}));
    choose(IDC_REPORTS_MEASURE, "Wt Chest, Set #");
    choose(IDC_REPORTS_SET, "Set 2");
    EXPECT_EQ(points(), QStringList({"27:135", "28:30"}));
}

TEST_F(ReportsPageTest, WorkoutsFollowTheAsOneSettingAndAnotherUsersLogsReplaceTheChart) {
    m_sql.writeDay("Kov2AUpperBody", kToday, {{106, kText, "Dumbbell Flyes"}});
    m_sql.writeDay("Kov2ALowerBody", kToday, {{106, kText, "Leg Press"}});
    m_sql.writeDay("Kov2FoodAnn", kToday, {{1003, kR8, 14.5}});
    showPage();
    choose(IDC_REPORTS_MEASURE, "Workouts Per Week");
    EXPECT_EQ(points(), QStringList({"7:1"}));
    setNumber(Settings::kAsOne, 1);
    page().reload();
    EXPECT_EQ(points(), QStringList({"7:2"}));

    choose(IDC_REPORTS_MEASURE, "Body Fat");
    EXPECT_TRUE(page().report().isEmpty());
    main().SetCurrentUser("Ann");
    page().repaint();
    ASSERT_TRUE(waitUntil([this] { return !page().report().isEmpty(); }));
    EXPECT_EQ(points(), QStringList({"7:14.5"}));
}

TEST_F(ReportsPageTest, NoPeriodChosenSaysErrorAndDrawsNothing) {
    showPage();
    combo(IDC_REPORTS_PERIOD)->setCurrentIndex(-1);
    EXPECT_EQ(m_boxes.texts(), QStringList({"Error"}));
    EXPECT_EQ(page().report().status(), Report::Status::PeriodOutOfRange);
    tap(QPoint(134, 140));
    EXPECT_EQ(page().tappedPoint(), -1);
}
