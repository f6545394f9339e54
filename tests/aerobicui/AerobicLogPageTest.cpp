// The aerobic page on the whole program, driven through its controls; the store read back with SQL.

#include "AerobicLogPage.h"
#include "AerobicRecords.h"
#include "Clock.h"
#include "DateControl.h"
#include "ItemListDialog.h"
#include "MessageBox.h"
#include "NotesEdit.h"
#include "RatingCombo.h"
#include "Settings.h"
#include "ShellTestSupport.h"
#include "TimeControl.h"
#include "UpDownControl.h"
#include "resource.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {
const QString kAerobic = QStringLiteral("Kov2Aerobic");

class AerobicLogPageTest : public ScreenTest {
protected:
    AerobicLogPage& showPage() { return ScreenTest::showPage<AerobicLogPage>(3); }
    AerobicLogPage& page() const { return pageOf<AerobicLogPage>(3); }
    template <typename T> T* control(int id, const QWidget* on = nullptr) const {
        return ShellTest::control<T>(on ? *on : page(), id);
    }
    QPushButton* button(int id) const { return control<QPushButton>(id); }
    void typeNumber(int id, const QString& keys) { typeInto(control<QLineEdit>(id), keys, true); }
    // Writes count exercises into the day, named "Run 1", "Swim 2", "Bike 3" with distances 1.5 a slot.
    void writeExercises(const QDate& day, int count) {
        const AerobicRecords records(kAerobic);
        ASSERT_TRUE(records.EnsureDatabase());
        ASSERT_NE(records.CreateDay(day), 0u);
        const char* names[] = {"Run 1", "Swim 2", "Bike 3"};
        for (int slot = 1; slot <= count; ++slot) {
            AerobicExercise exercise;
            exercise.exercise = QString::fromLatin1(names[slot - 1]);
            exercise.distance = 1.5 * slot;
            exercise.start = exercise.end = QDateTime(day, QTime(7, 0));
            exercise.minutes[7] = slot;
            exercise.notes = QStringLiteral("Windy %1").arg(slot);
            ASSERT_TRUE(records.SaveExercise(day, slot, exercise));
        }
    }
};
} // namespace

TEST_F(AerobicLogPageTest, TypedValuesAreSavedIntoTheShownExerciseAndRefusedOnesChangeNothing) {
    writeExercises(kToday, 3);
    showPage();
    button(IDC_AEROBIC_FIRSTBUTTON)->click();
    ASSERT_EQ(control<QComboBox>(IDC_AEROBIC_EXERCISE)->currentText(), "Swim 2");
    const StoredDays store = storedDays();

    typeNumber(IDC_AEROBIC_DISTANCE, "999.9");
    typeNumber(IDC_AEROBIC_HEARTRATE, "999");
    typeInto(control<TimeControl>(IDC_AEROBIC_START), "11:30p");
    typeInto(control<TimeControl>(IDC_AEROBIC_END), "12:10a");
    EXPECT_EQ(control<TimeControl>(IDC_AEROBIC_ELAPSED)->text(), "23:20:00");
    EXPECT_EQ(store.value(kAerobic, kToday, 822, kR8).toDouble(), 999.9);
    EXPECT_EQ(store.value(kAerobic, kToday, 823, kI2), 999);
    EXPECT_EQ(store.value(kAerobic, kToday, 1136, kI2), 23);
    EXPECT_EQ(store.value(kAerobic, kToday, 1138, kI2), 30);
    // The elapsed time typed moves the end and keeps its seconds.
    typeInto(control<TimeControl>(IDC_AEROBIC_ELAPSED), "00:45:12");
    EXPECT_EQ(control<TimeControl>(IDC_AEROBIC_END)->text(), "12:15 AM");
    EXPECT_EQ(store.value(kAerobic, kToday, 1140, kI2), 45);
    EXPECT_EQ(store.value(kAerobic, kToday, 1134, kI2), 12);

    // Just out of range: the platform's messages, and nothing changes (what else is refused is the
    // number field's own test).
    typeNumber(IDC_AEROBIC_DISTANCE, "1000");
    typeNumber(IDC_AEROBIC_HEARTRATE, "1000");
    EXPECT_EQ(m_boxes.texts(), QStringList({"Please enter a number between 0 and 999.9.",
                                            "Please enter an integer between 0 and 999."}));
    EXPECT_EQ(store.value(kAerobic, kToday, 822, kR8).toDouble(), 999.9);
    EXPECT_EQ(store.value(kAerobic, kToday, 823, kI2), 999);

    // The spins stop at 100 and 250.
    typeNumber(IDC_AEROBIC_DISTANCE, "100");
    typeNumber(IDC_AEROBIC_HEARTRATE, "250");
    QTest::mouseClick(control<UpDownControl>(IDC_AEROBIC_DISTANCESPIN)->upButton(), Qt::LeftButton);
    QTest::mouseClick(control<UpDownControl>(IDC_AEROBIC_HEARTRATESPIN)->upButton(), Qt::LeftButton);
    EXPECT_EQ(store.value(kAerobic, kToday, 822, kR8).toDouble(), 100);
    EXPECT_EQ(store.value(kAerobic, kToday, 823, kI2), 250);
    QTest::mouseClick(control<UpDownControl>(IDC_AEROBIC_HEARTRATESPIN)->downButton(), Qt::LeftButton);
    EXPECT_EQ(store.value(kAerobic, kToday, 823, kI2), 249);
}

// The first button from the third of three and the second from the first: the aerobic-exercise pictures.
TEST_F(AerobicLogPageTest, TheTwoButtonsMoveBetweenAndAddTheDaysExercises) {
    const QString view = QStringLiteral("Click to view today's exercise: ");
    struct Step {
        int button; // 0: none (the day as loaded), 1 or 2
        int shown;
        QString first, second;
    };
    struct Day {
        int exercises;
        std::vector<Step> steps;
    };
    const Day days[] = {
        {1,
         {{0, 1, "Add another ex. today", "Add third ex. for today"},
          {2, 1, "Add another ex. today", "Add third ex. for today"},
          {1, 2, view + "1", "Click to add a third ex. today"}}},
        {2,
         {{0, 1, view + "2", "Click to add a third ex. today"},
          {1, 2, view + "1", "Click to add a third ex. today"},
          {2, 3, view + "1", view + "2"}}},
        {3,
         {{0, 1, view + "2", view + "3"},
          {1, 2, view + "1", view + "3"},
          {2, 3, view + "1", view + "2"},
          {2, 2, view + "1", view + "3"},
          {1, 1, view + "2", view + "3"}}},
    };
    showPage();
    const QStringList names = {"Run 1", "Swim 2", "Bike 3"};
    for (const Day& day : days) {
        const QDate date = kToday.addDays(-day.exercises);
        writeExercises(date, day.exercises);
        typeInto(control<DateControl>(IDC_AEROBIC_DATE), date.toString("M/d/yyyy"));
        for (const Step& step : day.steps) {
            if (step.button != 0) {
                QTest::mouseClick(button(step.button == 1 ? IDC_AEROBIC_FIRSTBUTTON : IDC_AEROBIC_SECONDBUTTON),
                                  Qt::LeftButton);
            }
            const QString where = QString("day of %1, after button %2").arg(day.exercises).arg(step.button);
            EXPECT_EQ(button(IDC_AEROBIC_FIRSTBUTTON)->text(), step.first) << where.toStdString();
            EXPECT_EQ(button(IDC_AEROBIC_SECONDBUTTON)->text(), step.second) << where.toStdString();
            // An added exercise is shown new and written at once; a stored one shows its values.
            const bool added = step.shown > day.exercises;
            EXPECT_EQ(control<QComboBox>(IDC_AEROBIC_EXERCISE)->currentText(), added ? "" : names[step.shown - 1]);
            EXPECT_EQ(storedDays().propCount(kAerobic, date, 601 + 100 * step.shown, 624 + 100 * step.shown), 24);
        }
    }
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(AerobicLogPageTest, IntensitiesSaveOnEveryChoiceAndHiddenBoxesKeepTheRatings) {
    writeExercises(kToday, 1);
    setNumber(Settings::kShowBox, 1);
    showPage();
    const StoredDays store = storedDays();
    EXPECT_EQ(control<RatingCombo>(IDC_AEROBIC_MINUTES[7])->currentText(), "1");

    // Minute 1 and minute 20, the first and last boxes, the last and first ratings of their lists.
    for (const auto& [minute, rating] : {std::pair{0, 10}, std::pair{19, 0}}) {
        RatingCombo* box = control<RatingCombo>(IDC_AEROBIC_MINUTES[minute]);
        ASSERT_TRUE(box->isVisible());
        box->showPopup();
        QAbstractItemView* list = box->view();
        ASSERT_TRUE(waitUntil([list] { return list->isVisible(); }));
        QTest::keyClick(list, rating == 0 ? Qt::Key_Home : Qt::Key_End);
        QTest::keyClick(list, Qt::Key_Return);
        EXPECT_EQ(store.value(kAerobic, kToday, 702 + minute, kI2), rating) << minute;
    }

    // With the boxes hidden, a save keeps the ratings.
    setNumber(Settings::kShowBox, 0);
    main().SelectPage(0);
    showPage();
    EXPECT_FALSE(control<QWidget>(IDC_AEROBIC_MINUTES[0])->isVisible());
    typeNumber(IDC_AEROBIC_HEARTRATE, "130");
    EXPECT_EQ(store.value(kAerobic, kToday, 702, kI2), 10);
    EXPECT_EQ(store.value(kAerobic, kToday, 709, kI2), 1);
    EXPECT_EQ(store.value(kAerobic, kToday, 723, kI2), 130);
}

TEST_F(AerobicLogPageTest, DelAsksAndMovesTheLaterExerciseIntoTheDeletedOnesPlace) {
    writeExercises(kToday, 3);
    showPage();
    QTest::mouseClick(button(IDC_AEROBIC_FIRSTBUTTON), Qt::LeftButton);
    m_boxes.queueAnswer(IDCANCEL);
    QTest::mouseClick(button(IDC_AEROBIC_DELETE), Qt::LeftButton);
    EXPECT_EQ(storedDays().value(kAerobic, kToday, 801, kText), "Swim 2");

    QTest::mouseClick(button(IDC_AEROBIC_DELETE), Qt::LeftButton);
    EXPECT_EQ(m_boxes.texts(), QStringList(2, "OK to delete this aerobic exercise?"));
    EXPECT_EQ(control<QComboBox>(IDC_AEROBIC_EXERCISE)->currentText(), "Bike 3");

    // Deleting the last exercise shows the one before.
    QTest::mouseClick(button(IDC_AEROBIC_DELETE), Qt::LeftButton);
    EXPECT_EQ(control<QComboBox>(IDC_AEROBIC_EXERCISE)->currentText(), "Run 1");
}

TEST_F(AerobicLogPageTest, ANewDayIsWrittenOnlyOnItsFirstChangeAndCkDateMovesEveryPage) {
    showPage();
    // Today's record holds its key alone until something is entered.
    EXPECT_EQ(storedDays().props(kAerobic, kToday), "64:64");
    EXPECT_EQ(control<TimeControl>(IDC_AEROBIC_START)->text(), "9:41 AM");
    EXPECT_EQ(itemTexts(control<QComboBox>(IDC_AEROBIC_EXERCISE)),
              QStringList({"Bike", "Elliptical", "Rowing", "Run", "Swim", "Walk"}));
    main().SelectPage(0);
    EXPECT_EQ(storedDays().props(kAerobic, kToday), "64:64");

    showPage();
    // "!" takes the clock's time on the shown day.
    Clock::setFixed(QDateTime(kToday, QTime(10, 26)));
    QTest::mouseClick(control<QToolButton>(IDC_AEROBIC_ENDNOW), Qt::LeftButton);
    EXPECT_EQ(control<TimeControl>(IDC_AEROBIC_ELAPSED)->text(), "00:45:00");
    EXPECT_EQ(storedDays().value(kAerobic, kToday, 104, kI2), 45);

    // CkDate off: the other pages keep their date; on: they follow.
    const QDate earlier(2024, 3, 2);
    typeInto(control<DateControl>(IDC_AEROBIC_DATE), "3/2/2024");
    EXPECT_EQ(control<DateControl>(IDC_STRENGTH_DATE, main().page(1))->date(), kToday);
    setNumber(Settings::kCkDate, 1);
    typeInto(control<DateControl>(IDC_AEROBIC_DATE), "3/1/2024");
    EXPECT_EQ(control<DateControl>(IDC_STRENGTH_DATE, main().page(1))->date(), earlier.addDays(-1));
    EXPECT_EQ(storedDays().props(kAerobic, earlier.addDays(-1)), "64:64");
}

TEST_F(AerobicLogPageTest, AListButtonEditsItsListAndANameAddedThereIsSavedAsTheExercisesCourseAndNotesStay) {
    writeExercises(kToday, 1);
    showPage();
    QString edited;
    whenShown(QStringLiteral("ItemListDialog"), [&edited](QWidget* editor) {
        edited = static_cast<ItemListDialog*>(editor)->databaseName();
        QTest::keyClicks(ShellTest::control<QLineEdit>(*editor, IDC_ITEM_EDIT), "Lake Path");
        ShellTest::control<QPushButton>(*editor, IDC_ITEM_ADD)->click();
        ShellTest::control<QPushButton>(*editor, IDOK)->click();
    });
    button(IDC_AEROBIC_COURSELIST)->click();
    EXPECT_EQ(edited, "KovCourseList");
    auto* course = control<QComboBox>(IDC_AEROBIC_COURSE);
    EXPECT_EQ(course->currentText(), "Lake Path");
    EXPECT_NE(course->findText("Lake Path"), -1);
    EXPECT_EQ(storedDays().value(kAerobic, kToday, 724, kText).toString(), "Lake Path");
    EXPECT_EQ(storedDays().value(kAerobic, kToday, 701, kText).toString(), "Run 1");

    // A person's notes stay when the notes get the focus.
    auto* notes = control<NotesEdit>(IDC_AEROBIC_NOTES);
    notes->setFocus();
    ASSERT_TRUE(waitUntil([notes] { return notes->hasFocus(); }));
    EXPECT_EQ(notes->toPlainText(), "Windy 1");
}
