#include "StrengthScreenTest.h"

#include "Clock.h"
#include "Settings.h"
#include "resource.h"

#include "DateControl.h"
#include "NotesEdit.h"
#include "TimeControl.h"

#include <QCheckBox>
#include <QTest>
#include <QToolButton>

namespace {
const QString kLowerA = QStringLiteral("Kov2ALowerBody");

class StrengthLogPageTest : public StrengthScreenTest {
protected:
    TimeControl* picker(BodyRegion region, int id) const { return control<TimeControl>(page(region), id); }
    DateControl* datePicker(BodyRegion region) const { return control<DateControl>(page(region), IDC_STRENGTH_DATE); }
    void typeDate(BodyRegion region, const QString& keys) { typeInto(datePicker(region), keys); }
    void typeTime(BodyRegion region, int id, const QString& keys) { typeInto(picker(region, id), keys); }
    QString shown(BodyRegion region, int id) const { return picker(region, id)->text(); }
    // A point on list row `row`, and one below every row.
    QPoint onRow(BodyRegion region, int row) const {
        return list(region)->visualItemRect(list(region)->topLevelItem(row)).center();
    }
    QPoint belowRows(BodyRegion region) const { return QPoint(40, list(region)->viewport()->height() - 5); }

    // Chest twice, Back once and Biceps once on 12 March; Chest's third slot has no exercise.
    void writeWorkout() {
        const QDate day(2024, 3, 12);
        writeSets(day, MuscleGroup(BodyRegion::Upper, 0),
                  {{"Dumbbell Bench Press", "10", 135, "2", 7},
                   {"Dumbbell Flyes", "12", 22.5, "1", 5},
                   {"", "8", 40, "1", 3}});
        writeSets(day, MuscleGroup(BodyRegion::Upper, 2), {{"One Arm Rows", "10", 60, "2", 6}});
        writeSets(day, MuscleGroup(BodyRegion::Upper, 4), {{"Hammer Curls", "", 30, "", 10}});
        typeDate(BodyRegion::Upper, "3/12/2024");
    }
};
} // namespace

TEST_F(StrengthLogPageTest, TimesSetOnThePageAreSavedAsTheWorkoutHeader) {
    StrengthLogPage& upper = showPage(BodyRegion::Upper);
    setNumber(Settings::kAsOne, 1);
    const StoredDays store = storedDays();

    // An end before the start counts the same span as the reverse.
    typeTime(BodyRegion::Upper, IDC_STRENGTH_START, "10:00a");
    typeTime(BodyRegion::Upper, IDC_STRENGTH_END, "9:15a");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_ELAPSED), "00:45:00");
    EXPECT_EQ(store.value(kUpperA, kToday, 102, kI2), 10);
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 45);

    // The elapsed time moves the end.
    typeTime(BodyRegion::Upper, IDC_STRENGTH_ELAPSED, "01:30:20");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_END), "11:30 AM");
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 90);
    EXPECT_EQ(store.value(kUpperA, kToday, 1133, kI2), 20);

    // "!" takes the clock's time.
    Clock::setFixed(QDateTime(kToday, QTime(8, 5)));
    control<QToolButton>(upper, IDC_STRENGTH_STARTNOW)->click();
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "8:05 AM");
    EXPECT_EQ(store.value(kUpperA, kToday, 103, kI2), 5);

    QTest::mouseClick(control<QCheckBox>(upper, IDC_STRENGTH_COMPLETED), Qt::LeftButton);
    EXPECT_EQ(store.value(kUpperA, kToday, 105, kUI2), 1);

    // The notes are saved on leaving them, without the placeholder.
    auto* notes = control<NotesEdit>(upper, IDC_STRENGTH_NOTES);
    notes->setFocus();
    ASSERT_TRUE(waitUntil([notes] { return notes->hasFocus(); }));
    QTest::keyClicks(notes, "Felt strong");
    list(BodyRegion::Upper)->setFocus();
    ASSERT_TRUE(waitUntil([notes] { return !notes->hasFocus(); }));
    EXPECT_EQ(store.value(kUpperA, kToday, 1132, kText), "Felt strong");
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(StrengthLogPageTest, AsOneHandsTheDateAndTheTimesToTheOtherPageUnlessTurnedOffAndCkDateStillMovesTheDate) {
    showPage(BodyRegion::Lower);
    const StoredDays store = storedDays();
    typeTime(BodyRegion::Lower, IDC_STRENGTH_START, "8:00a");
    typeTime(BodyRegion::Lower, IDC_STRENGTH_END, "9:10a");
    QTest::mouseClick(control<QCheckBox>(page(BodyRegion::Lower), IDC_STRENGTH_COMPLETED), Qt::LeftButton);
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "8:00 AM");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_END), "9:10 AM");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_ELAPSED), "01:10:00");
    EXPECT_TRUE(control<QCheckBox>(page(BodyRegion::Upper), IDC_STRENGTH_COMPLETED)->isChecked());
    EXPECT_EQ(store.value(kUpperA, kToday, 102, kI2), 8);
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 70);
    EXPECT_EQ(store.value(kUpperA, kToday, 105, kUI2), 1);

    const QDate day(2024, 3, 10);
    typeDate(BodyRegion::Upper, "3/10/2024");
    EXPECT_EQ(datePicker(BodyRegion::Lower)->date(), day);
    EXPECT_EQ(store.propCount(kLowerA, day), 6);
    // Today was written on both pages at start; the typed date writes its own day once, no day on the way.
    EXPECT_EQ(store.recordCount(kUpperA), 3);
    EXPECT_EQ(store.recordCount(kLowerA), 3);

    // Two workouts: neither page follows the other.
    setNumber(Settings::kAsOne, 1);
    typeTime(BodyRegion::Lower, IDC_STRENGTH_START, "7:00a");
    EXPECT_EQ(store.value(kLowerA, day, 102, kI2), 7);
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "9:41 AM");
    typeDate(BodyRegion::Upper, "3/9/2024");
    EXPECT_EQ(page(BodyRegion::Lower).shownDate(), day);

    // CkDate moves the other page's date even then.
    setNumber(Settings::kCkDate, 1);
    typeDate(BodyRegion::Lower, "2/29/2024");
    EXPECT_EQ(datePicker(BodyRegion::Upper)->date(), QDate(2024, 2, 29));
    EXPECT_EQ(store.propCount(kUpperA, QDate(2024, 2, 29)), 6);
}

TEST_F(StrengthLogPageTest, TheListShowsTheDaysSetsAndItsMenusOpenAGroupOrEditOrDeleteTheGroupOfARow) {
    showPage(BodyRegion::Upper);
    writeWorkout();
    EXPECT_EQ(rows(BodyRegion::Upper), QStringList({"Dumbbell Bench Press|10|135.0|2|7", "Dumbbell Flyes|12|22.5|1|5",
                                                    "One Arm Rows|10|60.0|2|6", "Hammer Curls||30.0||10"}));
    QWidget* viewport = list(BodyRegion::Upper)->viewport();

    holdAndChoose(viewport, belowRows(BodyRegion::Upper), ID_UPPER_BACK);
    EXPECT_TRUE(grid().isVisible());
    EXPECT_EQ(grid().groupCode(), 1103);
    EXPECT_EQ(grid().date(), QDate(2024, 3, 12));
    trigger(ID_GRID_CANCEL);

    holdAndChoose(viewport, onRow(BodyRegion::Upper, 3), ID_STRENGTH_EDIT);
    EXPECT_EQ(grid().groupCode(), 1105) << "row 4 is the Biceps set";
    trigger(ID_GRID_CANCEL);

    // Delete asks first; it removes the whole group of the row, not only the row.
    m_boxes.queueAnswer(IDCANCEL);
    holdAndChoose(viewport, onRow(BodyRegion::Upper, 1), ID_STRENGTH_DELETE);
    EXPECT_EQ(m_boxes.texts(), QStringList{"This will delete all exercises for the selected group.  Continue?"});
    EXPECT_EQ(rows(BodyRegion::Upper).size(), 4);
    m_boxes.queueAnswer(IDOK);
    holdAndChoose(viewport, onRow(BodyRegion::Upper, 1), ID_STRENGTH_DELETE);
    EXPECT_EQ(rows(BodyRegion::Upper), QStringList({"One Arm Rows|10|60.0|2|6", "Hammer Curls||30.0||10"}));

    // The lower body's menu and its tool bar name its own groups.
    showPage(BodyRegion::Lower);
    QStringList items;
    holdAndChoose(list(BodyRegion::Lower)->viewport(), belowRows(BodyRegion::Lower), 0, &items);
    EXPECT_EQ(items, QStringList({"Quads", "Hamstrings", "Calves", "Abs", "Misc 1", "Misc 2"}));
    trigger(ID_LOWER_CALVES);
    EXPECT_EQ(grid().groupCode(), 1203);
    trigger(ID_GRID_CANCEL);
    EXPECT_EQ(main().tabControl()->currentIndex(), 2);
}
