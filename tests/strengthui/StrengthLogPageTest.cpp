#include "StrengthScreenTest.h"

#include "Clock.h"
#include "RegistryHelper.h"
#include "Settings.h"
#include "resource.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimeEdit>
#include <QToolButton>

namespace {
const QString kLowerA = QStringLiteral("Kov2ALowerBody");

class StrengthLogPageTest : public StrengthScreenTest {
protected:
    QDateTimeEdit* picker(BodyRegion region, int id) const { return control<QDateTimeEdit>(page(region), id); }
    QDateEdit* datePicker(BodyRegion region) const { return control<QDateEdit>(page(region), IDC_STRENGTH_DATE); }
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
                  {set("Dumbbell Bench Press", "10", 135, "2", 7), set("Dumbbell Flyes", "12", 22.5, "1", 5),
                   set("", "8", 40, "1", 3)});
        writeSets(day, MuscleGroup(BodyRegion::Upper, 2), {set("One Arm Rows", "10", 60, "2", 6)});
        writeSets(day, MuscleGroup(BodyRegion::Upper, 4), {set("Hammer Curls", "", 30, "", 10)});
        datePicker(BodyRegion::Upper)->setDate(day);
    }
};
} // namespace

TEST_F(StrengthLogPageTest, AFirstVisitWritesAnEmptyWorkoutStartingNowAndShowsItsHeader) {
    StrengthLogPage& upper = showPage(BodyRegion::Upper);
    EXPECT_EQ(upper.objectName(), "StrengthLogPage");
    EXPECT_EQ(upper.dialogId(), 132);
    EXPECT_EQ(page(BodyRegion::Lower).dialogId(), 135);
    EXPECT_EQ(datePicker(BodyRegion::Upper)->date(), kToday);
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "9:41 AM");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_END), "9:41 AM");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_ELAPSED), "00:00:00");
    EXPECT_EQ(control<QPlainTextEdit>(upper, IDC_STRENGTH_NOTES)->toPlainText(), "<Click to add Notes>");
    EXPECT_FALSE(control<QCheckBox>(upper, IDC_STRENGTH_COMPLETED)->isChecked());
    EXPECT_EQ(control<QCheckBox>(upper, IDC_STRENGTH_COMPLETED)->text(), "Completed");
    EXPECT_FALSE(control<QPushButton>(upper, IDC_STRENGTH_DBG)->isVisible());
    EXPECT_EQ(page(BodyRegion::Lower).findChild<QPushButton*>("c1088"), nullptr);

    // The databases hold their marker and today's records: six properties in A, the key alone in B.
    const StoredDays store = stored();
    EXPECT_EQ(store.recordCount(kUpperA), 2);
    EXPECT_EQ(store.propCount(kUpperA, kToday), 6);
    EXPECT_EQ(store.value(kUpperA, kToday, 102, kI2), 9);
    EXPECT_EQ(store.value(kUpperA, kToday, 103, kI2), 41);
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 0);
    EXPECT_EQ(store.value(kUpperA, kToday, 105, kUI2), 0);
    EXPECT_EQ(store.value(kUpperA, kToday, 1132, kText), "<Click to add Notes>");
    EXPECT_EQ(store.propCount(kUpperB, kToday), 1);
    EXPECT_EQ(store.propCount(kLowerA, kToday), 6) << "the lower-body page loads today at start too";

    QTreeWidget* view = list(BodyRegion::Upper);
    const char* headings[] = {"Exercise", "Rep", "Wt", "Rest", "Int"};
    const int widths[] = {99, 29, 37, 31, 25};
    const Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignRight, Qt::AlignRight, Qt::AlignLeft};
    ASSERT_EQ(view->columnCount(), 5);
    for (int column = 0; column < 5; ++column) {
        EXPECT_EQ(view->headerItem()->text(column), headings[column]);
        EXPECT_EQ(view->header()->sectionSize(column), widths[column]);
        EXPECT_EQ(Qt::Alignment(view->headerItem()->textAlignment(column)) & Qt::AlignHorizontal_Mask,
                  alignments[column]);
    }
    EXPECT_EQ(view->selectionBehavior(), QAbstractItemView::SelectRows);
}

TEST_F(StrengthLogPageTest, ListsEveryRecordedSetOfTheDayInGroupOrderAndCountsThem) {
    StrengthLogPage& upper = showPage(BodyRegion::Upper);
    writeWorkout();
    EXPECT_EQ(rows(BodyRegion::Upper), QStringList({"Dumbbell Bench Press|10|135.0|2|7", "Dumbbell Flyes|12|22.5|1|5",
                                                    "One Arm Rows|10|60.0|2|6", "Hammer Curls||30.0||10"}));
    EXPECT_EQ(list(BodyRegion::Upper)->topLevelItem(0)->textAlignment(2) & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    control<QPushButton>(upper, IDC_STRENGTH_DBG)->click();
    EXPECT_EQ(m_boxes.texts(), QStringList{"1=2,2=0,3=1,4=0,5=1,6=0"});
}

TEST_F(StrengthLogPageTest, TimesSetOnThePageAreSavedAsTheWorkoutHeader) {
    StrengthLogPage& upper = showPage(BodyRegion::Upper);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kAsOne, 1);
    const StoredDays store = stored();

    // An end before the start counts the same span as the reverse.
    picker(BodyRegion::Upper, IDC_STRENGTH_START)->setTime(QTime(10, 0));
    picker(BodyRegion::Upper, IDC_STRENGTH_END)->setTime(QTime(9, 15));
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_ELAPSED), "00:45:00");
    EXPECT_EQ(store.value(kUpperA, kToday, 102, kI2), 10);
    EXPECT_EQ(store.value(kUpperA, kToday, 103, kI2), 0);
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 45);

    // The elapsed time moves the end.
    picker(BodyRegion::Upper, IDC_STRENGTH_ELAPSED)->setTime(QTime(1, 30, 20));
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_END), "11:30 AM");
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 90);
    EXPECT_EQ(store.value(kUpperA, kToday, 1133, kI2), 20);

    // "!" takes the clock's time; a whole day between start and end is stored as 0 minutes.
    Clock::setFixed(QDateTime(QDate(2024, 3, 15), QTime(10, 0)));
    control<QToolButton>(upper, IDC_STRENGTH_ENDNOW)->click();
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_ELAPSED), "00:00:00");
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 0);
    Clock::setFixed(QDateTime(kToday, QTime(8, 5)));
    control<QToolButton>(upper, IDC_STRENGTH_STARTNOW)->click();
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "8:05 AM");
    EXPECT_EQ(store.value(kUpperA, kToday, 102, kI2), 8);
    EXPECT_EQ(store.value(kUpperA, kToday, 103, kI2), 5);

    QTest::mouseClick(control<QCheckBox>(upper, IDC_STRENGTH_COMPLETED), Qt::LeftButton);
    EXPECT_EQ(store.value(kUpperA, kToday, 105, kUI2), 1);

    // The placeholder goes when the notes get the focus; the notes are saved when it leaves.
    auto* notes = control<QPlainTextEdit>(upper, IDC_STRENGTH_NOTES);
    notes->setFocus();
    ASSERT_TRUE(waitUntil([notes] { return notes->hasFocus(); }));
    EXPECT_EQ(notes->toPlainText(), "");
    QTest::keyClicks(notes, "Felt strong");
    list(BodyRegion::Upper)->setFocus();
    ASSERT_TRUE(waitUntil([notes] { return !notes->hasFocus(); }));
    EXPECT_EQ(store.value(kUpperA, kToday, 1132, kText), "Felt strong");
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(StrengthLogPageTest, AsOneHandsTheDateAndTheTimesToTheOtherPageUnlessTurnedOff) {
    showPage(BodyRegion::Lower);
    const StoredDays store = stored();
    picker(BodyRegion::Lower, IDC_STRENGTH_START)->setTime(QTime(8, 0));
    picker(BodyRegion::Lower, IDC_STRENGTH_END)->setTime(QTime(9, 10));
    QTest::mouseClick(control<QCheckBox>(page(BodyRegion::Lower), IDC_STRENGTH_COMPLETED), Qt::LeftButton);
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "8:00 AM");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_END), "9:10 AM");
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_ELAPSED), "01:10:00");
    EXPECT_TRUE(control<QCheckBox>(page(BodyRegion::Upper), IDC_STRENGTH_COMPLETED)->isChecked());
    EXPECT_EQ(store.value(kUpperA, kToday, 102, kI2), 8);
    EXPECT_EQ(store.value(kUpperA, kToday, 104, kI2), 70);
    EXPECT_EQ(store.value(kUpperA, kToday, 105, kUI2), 1);

    const QDate day(2024, 3, 10);
    datePicker(BodyRegion::Upper)->setDate(day);
    EXPECT_EQ(page(BodyRegion::Lower).shownDate(), day);
    EXPECT_EQ(datePicker(BodyRegion::Lower)->date(), day);
    EXPECT_EQ(store.propCount(kLowerA, day), 6);

    // Two workouts: neither page follows the other.
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kAsOne, 1);
    picker(BodyRegion::Lower, IDC_STRENGTH_START)->setTime(QTime(7, 0));
    EXPECT_EQ(store.value(kLowerA, day, 102, kI2), 7);
    EXPECT_EQ(shown(BodyRegion::Upper, IDC_STRENGTH_START), "9:41 AM");
    EXPECT_EQ(store.value(kUpperA, day, 102, kI2), 9);
    datePicker(BodyRegion::Upper)->setDate(QDate(2024, 3, 9));
    EXPECT_EQ(page(BodyRegion::Lower).shownDate(), day);
    EXPECT_EQ(store.propCount(kLowerA, QDate(2024, 3, 9)), 0);
}

TEST_F(StrengthLogPageTest, CkDateMovesTheOtherPagesEvenWhenTheWorkoutsCountAsTwo) {
    showPage(BodyRegion::Upper);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kCkDate, 1);
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kAsOne, 1);
    const QDate day(2024, 2, 29);
    datePicker(BodyRegion::Lower)->setDate(day);
    EXPECT_EQ(page(BodyRegion::Upper).shownDate(), day);
    EXPECT_EQ(datePicker(BodyRegion::Upper)->date(), day);
    EXPECT_EQ(stored().propCount(kUpperA, day), 6);
}

TEST_F(StrengthLogPageTest, TheListsMenusOpenAGroupOrEditOrDeleteTheGroupOfARow) {
    showPage(BodyRegion::Upper);
    writeWorkout();
    QWidget* viewport = list(BodyRegion::Upper)->viewport();

    QStringList items;
    holdAndChoose(viewport, belowRows(BodyRegion::Upper), ID_UPPER_BACK, &items);
    EXPECT_EQ(items, QStringList({"Chest", "Shoulders", "Back", "Triceps", "Biceps", "Misc"}));
    EXPECT_TRUE(grid().isVisible());
    EXPECT_EQ(grid().groupCode(), 1103);
    EXPECT_EQ(grid().date(), QDate(2024, 3, 12));
    trigger(ID_GRID_CANCEL);
    EXPECT_FALSE(grid().isVisible());

    items.clear();
    holdAndChoose(viewport, onRow(BodyRegion::Upper, 3), ID_STRENGTH_EDIT, &items);
    EXPECT_EQ(items, QStringList({"Delete", "Edit"}));
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
    EXPECT_EQ(stored().propCount(kUpperA, QDate(2024, 3, 12), 106, 205), 0);
    EXPECT_EQ(stored().propCount(kUpperB, QDate(2024, 3, 12), 306, 405), 60);

    // The lower body's menu and its tool bar name its own groups.
    showPage(BodyRegion::Lower);
    items.clear();
    holdAndChoose(list(BodyRegion::Lower)->viewport(), belowRows(BodyRegion::Lower), 0, &items);
    EXPECT_EQ(items, QStringList({"Quads", "Hamstrings", "Calves", "Abs", "Misc 1", "Misc 2"}));
    trigger(ID_LOWER_CALVES);
    EXPECT_EQ(grid().groupCode(), 1203);
    trigger(ID_GRID_CANCEL);
    EXPECT_EQ(main().tabControl()->currentIndex(), 2);
}
