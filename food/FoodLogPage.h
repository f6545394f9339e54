#pragma once
// The food log page (dialog 137, tab 4): one day's food and body values and its meals. Every change
// is saved at once; meals are added, edited and deleted through the meal list's menus and the meal
// dialog. The day values, the notes and the meal list sit in one scroll area under the date, which
// keeps the field being typed into above the input panel.

#include "FoodDay.h"
#include "FoodRecords.h"
#include "Page.h"

class DateControl;
class NotesEdit;
class NumberEdit;
class QLineEdit;
class QScrollArea;
class QTreeWidget;
class RatingCombo;
class UpDownControl;

class FoodLogPage : public Page {
    Q_OBJECT
public:
    static constexpr int kColumnCount = 5;

    FoodLogPage(PageHost& host, QWidget* parent);

    QDate shownDate() const { return m_date; }

    // Page start: today, shown.
    void initDialog() override;
    // SetDate: moves the page to date and shows it.
    void setDate(const QDate& date) override;
    // Shows the date again from the current user's database: after a change of user the day may have
    // no record (or the user no database) yet, which showing the date creates. A day created here
    // starts with a new day's values: those on the page may be another person's.
    void reload() override { showDate(false); }
    void saveCurrent() override { SaveDay(); }
    // "Add Meal" from the food tool bar.
    bool handleCommand(int command) override;

    // Show date: creates the day's record when missing, else loads it. A created day keeps the values
    // on the page apart from the notes.
    void ShowDate() { showDate(true); }
    // Refills the values, the meal list and the counts from the day's record.
    void LoadDay();
    // Writes the day values as the controls hold them; when the write fails, shows the stored day.
    void SaveDay();
    void AddMeal();
    void EditMeal();
    void DeleteMeal();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void showDate(bool keepValues);
    void createControls();
    QWidget* createForm();
    FoodRecords records() const;
    FoodDayValues controlValues() const;
    void showValues(const FoodDayValues& values);
    void showMeals(const FoodDay& day);
    void dateChanged();
    void notesChanged();
    void showListMenu(const QPoint& position);
    int selectedRow() const;
    void runMealDialog(int slot, const std::optional<Meal>& meal);
    // Scrolls the form so that the focused control stands where the input panel cannot cover it.
    void keepInView(QWidget* focused);

    QDate m_date;
    // Set while values are shown, so that showing them is not taken for a change.
    bool m_showing = false;

    DateControl* m_datePicker = nullptr;
    QScrollArea* m_scroll = nullptr;
    QWidget* m_form = nullptr;
    NumberEdit* m_water = nullptr;
    NumberEdit* m_weight = nullptr;
    NumberEdit* m_bodyFat = nullptr;
    UpDownControl* m_waterSpin = nullptr;
    UpDownControl* m_weightSpin = nullptr;
    UpDownControl* m_bodyFatSpin = nullptr;
    NumberEdit* m_sleep = nullptr;
    RatingCombo* m_sleepQuality = nullptr;
    NumberEdit* m_systolic = nullptr;
    NumberEdit* m_diastolic = nullptr;
    NumberEdit* m_restingHeartRate = nullptr;
    RatingCombo* m_overall = nullptr;
    NumberEdit* m_chest = nullptr;
    NumberEdit* m_biceps = nullptr;
    NumberEdit* m_waist = nullptr;
    NumberEdit* m_quads = nullptr;
    NumberEdit* m_calves = nullptr;
    NotesEdit* m_notes = nullptr;
    QTreeWidget* m_list = nullptr;
    QLineEdit* m_proteinCount = nullptr;
    QLineEdit* m_carbohydrateCount = nullptr;
    QLineEdit* m_vegetableCount = nullptr;
};
