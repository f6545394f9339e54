// The food page and the meal dialog on the whole program, driven through their controls; what the
// food database holds is read back with plain SQL.

#include "FoodLogPage.h"
#include "CeDatabase.h"
#include "DateControl.h"
#include "FaultyVfs.h"
#include "FoodRecords.h"
#include "MessageBox.h"
#include "NotesEdit.h"
#include "NumberEdit.h"
#include "RatingCombo.h"
#include "Settings.h"
#include "ShellTestSupport.h"
#include "TapAndHold.h"
#include "TimeControl.h"
#include "UpDownControl.h"
#include "VolumeFiles.h"
#include "resource.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <tuple>

namespace {
const QString kFood = QStringLiteral("Kov2Food");

class FoodLogPageTest : public ScreenTest {
protected:
    FoodLogPage& showPage() { return ScreenTest::showPage<FoodLogPage>(4); }
    FoodLogPage& page() const { return pageOf<FoodLogPage>(4); }
    template <typename T> T* control(int id) const { return ShellTest::control<T>(page(), id); }
    QVariant value(int number, int type) const { return storedDays().value(kFood, kToday, number, type); }

    static void typeNumber(QLineEdit* edit, const QString& keys) { typeInto(edit, keys, true); }
    QTreeWidget* list() const { return control<QTreeWidget>(IDC_FOOD_MEALS); }
    QStringList rows() const { return rowTexts(list()); }
    QString counts() const {
        return control<QLineEdit>(IDC_FOOD_PROCOUNT)->text() + ' ' + control<QLineEdit>(IDC_FOOD_CARBCOUNT)->text() +
               ' ' + control<QLineEdit>(IDC_FOOD_VEGCOUNT)->text();
    }

    // Holds the stylus on the list (on row, or below the rows for -1) until its menu is up, records
    // the menu's items in shown and chooses command (nothing when 0).
    void holdAndChoose(int row, int command, QStringList* shown = nullptr) {
        QWidget* viewport = list()->viewport();
        const QPoint at =
            row < 0 ? QPoint(40, viewport->height() - 5) : list()->visualItemRect(list()->topLevelItem(row)).center();
        ShellTest::holdAndChoose(viewport, at, command, shown);
    }
    // Answers the meal dialog once it is up: the time typed (when given), the four texts typed, OK.
    void answerMealDialog(const QString& time, const QStringList& foods) {
        whenShown(QStringLiteral("MealDialog"), [time, foods](QWidget* dialog) {
            if (!time.isEmpty()) {
                typeInto(ShellTest::control<TimeControl>(*dialog, IDC_MEAL_TIME), time);
            }
            const int ids[] = {IDC_MEAL_PROTEIN, IDC_MEAL_CARB, IDC_MEAL_VEG, IDC_MEAL_OTHER};
            for (int i = 0; i < 4; ++i) {
                auto* combo = dialog->findChild<QComboBox*>(QStringLiteral("c%1").arg(ids[i]));
                combo->lineEdit()->selectAll();
                QTest::keyClicks(combo->lineEdit(), foods.value(i));
                if (foods.value(i).isEmpty()) {
                    QTest::keyClick(combo->lineEdit(), Qt::Key_Delete);
                }
            }
            QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDOK)), Qt::LeftButton);
        });
    }

    TapAndHold m_tapAndHold{30};
};
} // namespace

TEST_F(FoodLogPageTest, EachTypedValueIsSavedAtOnceByItsIdAndTypeAndARefusedOneSavesNothing) {
    showPage();

    // Refused values first: a message each, and still nothing but the key and the notes; then each
    // accepted value is saved at once under its own id and type.
    const struct {
        int id;
        const char* typed;
        const char* message; // nullptr: accepted
        int number, type;
        double stored;
        int spin = 0, clicks = 0; // the up-down pressed after typing: up when clicks is positive
    } entries[] = {
        {IDC_FOOD_WATER, "100", "Please enter an integer between 0 and 99."},
        {IDC_FOOD_WEIGHT, "1000", "Please enter an integer between 0 and 999."},
        {IDC_FOOD_BODYFAT, "102.5", "Please enter a number between 0 and 102.4."},
        {IDC_FOOD_SLEEP, "24.1", "Please enter a number between 0 and 24."},
        {IDC_FOOD_CALVES, "1000", "Please enter a number between 0 and 999.9."},
        {IDC_FOOD_RESTHR, "6a", "Please enter an integer."},
        {IDC_FOOD_WATER, "99", nullptr, 1001, kI2, 99},
        {IDC_FOOD_WEIGHT, "999", nullptr, 1002, kI2, 999},
        {IDC_FOOD_BODYFAT, "102.4", nullptr, 1003, kR8, 102.4},
        {IDC_FOOD_SLEEP, "24", nullptr, 1147, kR8, 24},
        {IDC_FOOD_SYSTOLIC, "121", nullptr, 1154, kI2, 121},
        {IDC_FOOD_DIASTOLIC, "79", nullptr, 1155, kI2, 79},
        {IDC_FOOD_RESTHR, "0", nullptr, 1156, kI2, 0},
        {IDC_FOOD_CHEST, "999.9", nullptr, 1151, kR8, 999.9},
        {IDC_FOOD_BICEPS, "15.25", nullptr, 1150, kR8, 15.25},
        {IDC_FOOD_WAIST, "32", nullptr, 1146, kR8, 32},
        {IDC_FOOD_QUADS, "24.5", nullptr, 1148, kR8, 24.5},
        {IDC_FOOD_CALVES, "15", nullptr, 1149, kR8, 15},
        // The spins step water and weight by one and body fat by tenths.
        {IDC_FOOD_BODYFAT, "22.4", nullptr, 1003, kR8, 22.5, IDC_FOOD_BODYFATSPIN, 1},
        {IDC_FOOD_WATER, "98", nullptr, 1001, kI2, 99, IDC_FOOD_WATERSPIN, 1},
        {IDC_FOOD_WEIGHT, "150", nullptr, 1002, kI2, 149, IDC_FOOD_WEIGHTSPIN, -1},
    };
    for (const auto& entry : entries) {
        m_boxes.clear();
        typeNumber(control<NumberEdit>(entry.id), QString::fromLatin1(entry.typed));
        if (entry.spin != 0) {
            UpDownControl* spin = control<UpDownControl>(entry.spin);
            QTest::mouseClick(entry.clicks > 0 ? spin->upButton() : spin->downButton(), Qt::LeftButton);
        }
        if (entry.message != nullptr) {
            EXPECT_EQ(m_boxes.texts(), QStringList{QString::fromLatin1(entry.message)}) << entry.typed;
            EXPECT_EQ(storedDays().propCount(kFood, kToday), 2) << entry.typed;
        } else {
            EXPECT_TRUE(m_boxes.texts().isEmpty()) << entry.typed;
            EXPECT_DOUBLE_EQ(value(entry.number, entry.type).toDouble(), entry.stored) << entry.number;
        }
    }
    // The first save wrote all fifteen values: a drop-down's "no choice" as the all-ones value.
    EXPECT_EQ(value(1153, kI2).toInt(), -1);

    // A drop-down saves when a choice is made, each its own rating; the notes are saved as typed.
    for (const auto& [id, number, downs] : {std::tuple{IDC_FOOD_OVERALL, 1152, 2}, {IDC_FOOD_SLEEPQUALITY, 1153, 4}}) {
        auto* rating = control<RatingCombo>(id);
        rating->setFocus();
        for (int down = 0; down < downs; ++down) {
            QTest::keyClick(rating, Qt::Key_Down);
        }
        EXPECT_EQ(value(number, kI2).toInt(), downs - 1) << number;
    }
    auto* notes = control<NotesEdit>(IDC_FOOD_NOTES);
    notes->setFocus();
    QTest::keyClicks(notes, "Slept well");
    control<NumberEdit>(IDC_FOOD_WATER)->setFocus();
    EXPECT_EQ(value(1132, kText).toString(), "Slept well");
    EXPECT_EQ(storedDays().propCount(kFood, kToday), 16);
}

TEST_F(FoodLogPageTest, ASaveThatFailsOnAFullDiskIsToldAndThePageShowsWhatIsStored) {
    // The store is mounted again through a file system that can be made to fail.
    CeUnmountObjectStore();
    FaultyVfs vfs;
    ASSERT_TRUE(CeMountObjectStore(m_device.paths().objectStore()));
    showPage();
    auto* notes = control<NotesEdit>(IDC_FOOD_NOTES);
    notes->setFocus();
    QTest::keyClicks(notes, "Slept well");
    ASSERT_EQ(value(1132, kText).toString(), "Slept well");

    vfs.failCall(FaultyVfs::Call::Write, 1, true);
    QTest::keyClicks(notes, "!");
    EXPECT_TRUE(vfs.fired());
    EXPECT_EQ(m_boxes.texts(), QStringList{"Your change was not saved. Kovalin cannot write to " +
                                           m_device.paths().objectStore() + ": the disk is full (error 112)."});
    EXPECT_EQ(notes->notes(), "Slept well");
    EXPECT_EQ(value(1132, kText).toString(), "Slept well");
}

TEST_F(FoodLogPageTest, MealsAreAddedEditedAndDeletedThroughTheListMenusAndTheMealDialog) {
    showPage();
    answerMealDialog("7:05a", {"Greek Yogurt", "Oatmeal", "", "Fish Oil"});
    holdAndChoose(-1, ID_FOOD_ADDMEAL);
    // The list is read back from the store: each text reached its own property.
    EXPECT_EQ(rows(), QStringList{"7:05A|Greek Yogurt|Oatmeal||Fish Oil"});

    // The tool bar's "Add Meal": a meal with every text empty is listed at the clock's time.
    answerMealDialog({}, {});
    trigger(ID_FOOD_ADDMEAL);
    EXPECT_EQ(rows().value(1), "9:41A||||");

    // Cancel stores nothing, whatever was typed.
    const QString before = storedDays().props(kFood, kToday);
    whenShown(QStringLiteral("MealDialog"), [](QWidget* dialog) {
        QTest::keyClicks(dialog->findChild<QComboBox*>(QStringLiteral("c%1").arg(IDC_MEAL_PROTEIN))->lineEdit(),
                         "Tuna");
        QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDCANCEL)), Qt::LeftButton);
    });
    trigger(ID_FOOD_ADDMEAL);
    EXPECT_EQ(storedDays().props(kFood, kToday), before);
    EXPECT_EQ(rows().size(), 2);

    answerMealDialog("12:30p", {"Chicken", "Brown Rice", "Broccoli", ""});
    holdAndChoose(1, ID_FOOD_EDITMEAL);
    EXPECT_EQ(rows(), QStringList({"7:05A|Greek Yogurt|Oatmeal||Fish Oil", "12:30P|Chicken|Brown Rice|Broccoli|"}));
    EXPECT_EQ(counts(), "2 2 1");

    // Deleting the first meal leaves a hole (kept by the records): the second is no longer listed.
    holdAndChoose(0, ID_FOOD_DELETEMEAL);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(m_boxes.texts().isEmpty());
}

TEST_F(FoodLogPageTest, TheNowButtonTakesTheClocksTimeAndAListButtonRefillsItsListAfterTheEditor) {
    showPage();
    whenShown(QStringLiteral("MealDialog"), [](QWidget* dialog) {
        typeInto(ShellTest::control<TimeControl>(*dialog, IDC_MEAL_TIME), "6:15p");
        dialog->findChild<QToolButton*>(QStringLiteral("c%1").arg(IDC_MEAL_NOW))->click();

        // The editor adds to the carbohydrate list; the drop-down shows the list as it now stands.
        whenShown(QStringLiteral("ItemListDialog"), [](QWidget* editor) {
            QTest::keyClicks(editor->findChild<QLineEdit*>(QStringLiteral("c%1").arg(IDC_ITEM_EDIT)), "quinoa");
            editor->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDC_ITEM_ADD))->click();
            editor->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDOK))->click();
        });
        dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDC_MEAL_CARBLIST))->click();
        auto* carb = ShellTest::control<QComboBox>(*dialog, IDC_MEAL_CARB);
        carb->setCurrentIndex(carb->findText("quinoa"));
        QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("c%1").arg(IDOK)), Qt::LeftButton);
    });
    trigger(ID_FOOD_ADDMEAL);
    EXPECT_EQ(rows(), QStringList{"9:41A||quinoa||"});
}

TEST_F(FoodLogPageTest, AMealIsNotDeletedFromADayWhoseRecordIsGone) {
    const FoodRecords food(kFood);
    ASSERT_TRUE(food.EnsureDatabase());
    ASSERT_NE(food.CreateDay(kToday), 0u);
    for (int slot = 0; slot < 2; ++slot) {
        ASSERT_TRUE(food.PutMeal(kToday, slot, Meal{QTime(6 + slot, 0), "Egg Whites", "", "", ""}));
    }
    showPage();
    ASSERT_EQ(rows().size(), 2);

    // Deleting from a day whose record is gone says so once, and the list stays as it was.
    VolumeFiles::runSql(m_device.paths().objectStore(),
                        "PRAGMA foreign_keys = ON; DELETE FROM records WHERE db = (SELECT oid FROM databases "
                        "WHERE name = 'Kov2Food')");
    holdAndChoose(0, ID_FOOD_DELETEMEAL);
    EXPECT_EQ(m_boxes.texts(), QStringList{"Error accessing food db on item delete"});
    EXPECT_EQ(rows().size(), 2);
}

TEST_F(FoodLogPageTest, ADateChangedHereMovesTheOtherPagesOnlyWhenCkDateIs1) {
    showPage();
    const auto upperDate = [this] {
        return ShellTest::control<DateControl>(*main().page(1), IDC_STRENGTH_DATE)->date();
    };
    typeInto(control<DateControl>(IDC_FOOD_DATE), "3/10/2024");
    EXPECT_EQ(page().shownDate(), QDate(2024, 3, 10));
    EXPECT_EQ(upperDate(), kToday);

    setNumber(Settings::kCkDate, 1);
    typeInto(control<DateControl>(IDC_FOOD_DATE), "3/9/2024");
    EXPECT_EQ(upperDate(), QDate(2024, 3, 9));
}
