#include "StrengthScreenTest.h"

#include "DeviceCombo.h"
#include "ExerciseLists.h"
#include "ExerciseNameEdit.h"
#include "ItemListDialog.h"
#include "NumberEdit.h"
#include "RatingCombo.h"
#include "Settings.h"
#include "UpDownControl.h"
#include "resource.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

namespace {
const QDate kEarlier(2024, 3, 10);
const MuscleGroup kChest(BodyRegion::Upper, 0);
const QStringList kChestSorted = {"Barbell Bench Press", "Dumbbell Bench Press", "Dumbbell Flyes",
                                  "Incline Dumbbell Press"};

class SetGridTest : public StrengthScreenTest {
protected:
    // Starts on the upper-body page and opens the group through its tool-bar button.
    SetGrid& open(int command) {
        if (!m_screen) {
            showPage(BodyRegion::Upper);
        }
        trigger(command);
        EXPECT_TRUE(grid().isVisible());
        return grid();
    }
    const SetGrid::Row& row(int index) const { return grid().row(index); }
    // A row as shown: exercise|reps|weight|rest|intensity.
    QString shownRow(int index) const {
        const SetGrid::Row& r = row(index);
        return QStringList{r.exercise->currentText(), r.reps->currentText(), r.weight->text(), r.rest->currentText(),
                           r.intensity->currentText()}
            .join('|');
    }
    void focus(QWidget* widget) {
        widget->setFocus();
        ASSERT_TRUE(waitUntil([widget] { return widget->hasFocus(); }));
    }
    void type(QLineEdit* edit, const QString& text) {
        edit->clear();
        QTest::keyClicks(edit, text);
    }
};
} // namespace

TEST_F(SetGridTest, OpensWithTheGroupsListAndPullsTheLastDayUnlessTurnedOff) {
    showPage(BodyRegion::Upper);
    writeSets(kEarlier, kChest, {{"Dumbbell Flyes", "12", 30, "1", 6}, {"Dumbbell Flyes", "10", 35, "1", 7}});
    open(ID_UPPER_CHEST);

    // Exercise, reps and rest take typing; the intensity is only chosen.
    EXPECT_TRUE(row(11).exercise->isEditable() && row(11).reps->isEditable() && row(11).rest->isEditable());
    EXPECT_FALSE(row(11).intensity->isEditable());
    QScrollBar* bar = control<QScrollBar>(grid(), IDC_GRID_SCROLL);
    EXPECT_EQ(bar->maximum() + bar->pageStep() - 1, 100);
    EXPECT_EQ(bar->pageStep(), 10);
    EXPECT_EQ(itemTexts(row(1).reps).size(), 21);
    EXPECT_EQ(itemTexts(row(1).reps).last(), "20");
    EXPECT_EQ(itemTexts(row(1).rest).last(), "10");
    EXPECT_EQ(itemTexts(row(0).exercise), kChestSorted);

    // Today has no chest sets: the last chest day's are shown but not written until saved.
    EXPECT_EQ(shownRow(0), "Dumbbell Flyes|12|30|1|6");
    trigger(ID_GRID_CANCEL);

    setNumber(Settings::kPullLast, 1);
    open(ID_UPPER_CHEST);
    EXPECT_EQ(shownRow(0), "||0||0");
    trigger(ID_GRID_CANCEL);

    main().ShowSetGrid(kToday, 1107);
    EXPECT_EQ(m_boxes.texts(), QStringList{"Error finding exercise type"});
}

TEST_F(SetGridTest, TypedSetsAreSavedEachValueToItsOwnProperty) {
    open(ID_UPPER_BACK);
    type(row(0).exercise->lineEdit(), "One Arm Rows");
    type(row(0).reps->lineEdit(), "10");
    type(row(0).weight, "62.5");
    row(0).rest->setCurrentIndex(2);
    QTest::keyClicks(row(0).intensity, "7");
    type(row(1).exercise->lineEdit(), "Cable Rows");
    // The up-down steps the whole weight and stops at 0 and 999.
    const struct {
        const char* typed;
        int clicks; // up when positive
        const char* shown;
    } steps[] = {{"998", 2, "999"}, {"1", -2, "0"}, {"", 3, "3"}};
    for (const auto& step : steps) {
        type(row(1).weight, QString::fromLatin1(step.typed));
        for (int click = 0; click < std::abs(step.clicks); ++click) {
            QToolButton* button = step.clicks > 0 ? row(1).upDown->upButton() : row(1).upDown->downButton();
            QTest::mouseClick(button, Qt::LeftButton);
        }
        EXPECT_EQ(row(1).weight->text(), step.shown) << step.typed;
    }
    trigger(ID_GRID_SAVE);

    EXPECT_FALSE(grid().isVisible());
    EXPECT_EQ(main().tabControl()->currentIndex(), 1);
    // The page reads the group back from the store: each typed value reached its own property.
    EXPECT_EQ(rows(BodyRegion::Upper), QStringList({"One Arm Rows|10|62.5|2|7", "Cable Rows||3.0||0"}));
}

TEST_F(SetGridTest, ClearedRowsAreSavedAsBlanksAndCancelWritesNothing) {
    showPage(BodyRegion::Upper);
    writeSets(kToday, kChest,
              {{"Dumbbell Bench Press", "10", 60, "2", 8},
               {"Dumbbell Flyes", "12", 30, "1", 6},
               {"Dumbbell Flyes", "10", 35, "1", 7}});
    open(ID_UPPER_CHEST);
    focus(row(1).reps);
    trigger(ID_CLEAR_CURRENTROW);
    EXPECT_EQ(shownRow(1), "||0||0");
    EXPECT_EQ(shownRow(2), "Dumbbell Flyes|10|35|1|7");
    trigger(ID_CLEAR_ROWANDBELOW);
    EXPECT_EQ(shownRow(0), "Dumbbell Bench Press|10|60|2|8");
    EXPECT_EQ(shownRow(2), "||0||0");
    trigger(ID_GRID_SAVE);
    EXPECT_EQ(rows(BodyRegion::Upper), QStringList{"Dumbbell Bench Press|10|60.0|2|8"});

    open(ID_UPPER_CHEST);
    trigger(ID_CLEAR_ALLROWS);
    EXPECT_EQ(shownRow(0), "||0||0");
    trigger(ID_GRID_CANCEL);
    EXPECT_EQ(storedDays().value(kUpperA, kToday, 106, kText), "Dumbbell Bench Press");
}

TEST_F(SetGridTest, PickingTheFirstExercisePullsTheSetsItLastLedOrFillsTheNextRows) {
    showPage(BodyRegion::Upper);
    setNumber(Settings::kPullLast, 1);
    setNumber(Settings::kPullWt, 1);
    setNumber(Settings::kFillIn, 1);
    writeSets(kEarlier, kChest, {{"Dumbbell Flyes", "12", 30, "1", 6}, {"Dumbbell Flyes", "10", 35, "1", 7}});
    open(ID_UPPER_CHEST);
    focus(row(0).reps);

    whenShown(QStringLiteral("SelectExerciseDialog"), [](QWidget* dialog) {
        auto* list = dialog->findChild<QListWidget*>(QStringLiteral("c1330"));
        list->setCurrentItem(list->findItems("Dumbbell Flyes", Qt::MatchExactly).value(0));
        dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    });
    trigger(ID_GRID_SELECTEXERCISE);
    EXPECT_EQ(shownRow(0), "Dumbbell Flyes|12|30|1|6");

    // A name typed into row 1 counts once it is entered: nothing was led by this one, so rows 2 to 5
    // follow it.
    type(row(0).exercise->lineEdit(), "Barbell Bench Press");
    QTest::keyClick(row(0).exercise->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(shownRow(4), "Barbell Bench Press||0||0");
}

TEST_F(SetGridTest, EveryDefaultExerciseReadsApartInItsBox) {
    open(ID_UPPER_CHEST);
    auto* box = static_cast<ExerciseNameEdit*>(row(9).exercise->lineEdit());
    const QFont small = ExerciseNameEdit::twoLineFont(box->font(), box->height());
    const int width = box->width() - 2;
    for (const BodyRegion region : {BodyRegion::Upper, BodyRegion::Lower}) {
        for (const MuscleGroup& group : MuscleGroup::ofRegion(region)) {
            QSet<QString> shown;
            for (const QString& name : ExerciseLists::defaults(group)) {
                const QStringList lines = ExerciseNameEdit::shownLines(name, box->font(), small, width);
                EXPECT_TRUE(name.startsWith(lines.front())) << name.toStdString();
                shown.insert(lines.join('|'));
            }
            EXPECT_EQ(shown.size(), ExerciseLists::defaults(group).size()) << group.name().toStdString();
        }
    }
}

TEST_F(SetGridTest, TheListButtonEditsTheGroupsListAndTheRowTakesTheNewExercise) {
    open(ID_UPPER_BACK);
    focus(row(2).reps);
    QString edited;
    whenShown(QStringLiteral("ItemListDialog"), [&](QWidget* dialog) {
        edited = static_cast<ItemListDialog*>(dialog)->databaseName();
        QTest::keyClicks(dialog->findChild<QLineEdit*>(QStringLiteral("c1008")), "cable Rows");
        dialog->findChild<QPushButton*>(QStringLiteral("c1002"))->click();
        dialog->findChild<QPushButton*>(QStringLiteral("c1"))->click();
    });
    trigger(ID_GRID_EDITLIST);
    EXPECT_EQ(edited, "KovBackList");
    EXPECT_EQ(row(2).exercise->currentText(), "cable Rows");
    EXPECT_EQ(itemTexts(row(0).exercise), QStringList({"cable Rows", "Dumbbell Pullovers", "One Arm Rows",
                                                       "Reverse Grip Pulldowns", "Wide Grip Pulldowns"}));
}

TEST_F(SetGridTest, TheRowsScrollByWholeRowsAndTheFocusBringsARowIntoView) {
    open(ID_UPPER_CHEST);
    QScrollBar* bar = grid().scrollBar();
    auto shownHeight = [](QWidget* widget) { return widget->visibleRegion().boundingRect().height(); };
    const int full = row(0).exercise->height();

    // An arrow moves one row, the trough a page (as far as the rows go).
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(grid().firstShownRow(), 1);
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(grid().firstShownRow(), 2);
    EXPECT_EQ(bar->value(), SetGrid::kScrollMaximum);
    bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    EXPECT_EQ(grid().firstShownRow(), 0);
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(grid().firstShownRow(), 2);

    // A wheel notch over a row's control moves one row; it never changes the control's value.
    row(3).reps->setCurrentIndex(5);
    QWheelEvent notch(QPointF(5, 5), QPointF(), {}, QPoint(0, 120), Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(row(3).reps, &notch);
    EXPECT_EQ(grid().firstShownRow(), 1);
    EXPECT_EQ(row(3).reps->currentText(), "5");

    focus(row(0).rest);
    EXPECT_EQ(shownHeight(row(0).rest), full);
    focus(row(11).weight);
    EXPECT_EQ(grid().firstShownRow(), 2);
    EXPECT_EQ(grid().currentRow(), 11);
}

TEST_F(SetGridTest, WeightsShowAsStoredAndARefusedWeightSavesNothing) {
    showPage(BodyRegion::Upper);
    writeSets(kToday, kChest,
              {{"Dumbbell Bench Press", "10", 157.5, "2", 8},
               {"Dumbbell Flyes", "12", 999.9, "1", 6},
               {"Dumbbell Flyes", "10", 102.25, "1", 7}});
    open(ID_UPPER_CHEST);
    EXPECT_EQ(row(2).weight->text(), "102.25");

    type(row(1).weight, "1500");
    trigger(ID_GRID_SAVE);
    EXPECT_EQ(m_boxes.texts(), QStringList{"Please enter a number between 0 and 999."});
    EXPECT_TRUE(grid().isVisible()) << "the grid stays for the weight to be put right";
    EXPECT_EQ(storedDays().value(kUpperA, kToday, 113, kR8), 999.9);
    // Left with Tab: the last accepted weight comes back and keeps the focus to be put right.
    focus(row(1).weight);
    type(row(1).weight, "1500");
    QTest::keyClick(row(1).weight, Qt::Key_Tab);
    EXPECT_EQ(m_boxes.texts().size(), 2);
    EXPECT_EQ(row(1).weight->text(), "999.9");
    EXPECT_TRUE(row(1).weight->hasFocus());
    type(row(1).weight, "120");
    trigger(ID_GRID_SAVE);
    EXPECT_FALSE(grid().isVisible());
    EXPECT_EQ(storedDays().value(kUpperA, kToday, 113, kR8), 120.0);
}
