#pragma once
// The aerobic log page (dialog 136, tab 3): up to three aerobic exercises a day, one shown at a
// time. The form shows the shown exercise's times, Completed, exercise, course, distance, average
// heart rate, notes and twenty per-minute intensities; every change saves that exercise at once.
// The two buttons under the form move between the day's exercises and add a second and a third;
// "del" removes the shown one. The one page the main window saves when it is left.

#include "AerobicDay.h"
#include "AerobicRecords.h"
#include "Page.h"

#include <array>

class DateControl;
class DeviceCombo;
class ListButton;
class NotesEdit;
class NowButton;
class NumberEdit;
class QCheckBox;
class QLabel;
class QPushButton;
class RatingCombo;
class TimeControl;

class AerobicLogPage : public Page {
    Q_OBJECT
public:
    static inline const QString kDeleteQuestion = QStringLiteral("OK to delete this aerobic exercise?");
    static inline const QString kError = QStringLiteral("Error");
    // The buttons' captions. A "view" caption is followed by the number of the exercise it shows.
    static inline const QString kAddAnother = QStringLiteral("Add another ex. today");
    static inline const QString kAddThirdDisabled = QStringLiteral("Add third ex. for today");
    static inline const QString kAddThird = QStringLiteral("Click to add a third ex. today");
    static inline const QString kView = QStringLiteral("Click to view today's exercise:");

    AerobicLogPage(PageHost& host, QWidget* parent);

    QDate shownDate() const { return m_date; }
    // The day's number of exercises and the exercise shown, 1 to 3 each.
    int exerciseCount() const { return m_count; }
    int shownExercise() const { return m_shown; }

    // Page start: today, loaded.
    void initDialog() override;
    // SetDate: moves the page to date and loads it.
    void setDate(const QDate& date) override;
    void reload() override { Load(); }
    // Leaving the page: what is typed but not yet taken is saved.
    void saveCurrent() override;

    // Load: creates the day's record when missing and shows its first exercise.
    void Load();
    // SaveExercise: writes the shown exercise as the controls show it.
    void SaveExercise();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createControls();
    void placeControls();
    AerobicRecords records() const;
    AerobicExercise controlValues() const;
    AerobicExercise newExercise() const;
    // Reads the day again and shows exercise number (its stored values, or a new one's).
    void showExercise(int number);
    // Shows exercise number of day (a new exercise when day lacks it, or when day could not be read).
    void showExercise(int number, const std::optional<AerobicDay>& day);
    void showValues(const AerobicExercise& exercise);
    void showCaptions();
    void showIntensityBoxes();
    // Adds exercise number to the day, written at once with a new exercise's values, and shows it.
    void addExercise(int number);

    void dateChanged();
    void startOrEndChanged();
    void startNow();
    void endNow();
    void elapsedChanged();
    void nameEdited(DeviceCombo* combo, QString& lastSaved);
    void editList(const QString& databaseName, DeviceCombo* combo, QString& lastSaved);
    void firstButtonClicked();
    void secondButtonClicked();
    void deleteClicked();

    QDate m_date;
    int m_count = 1;
    int m_shown = 1;
    // The shown exercise is in the store (so leaving the page saves it).
    bool m_shownStored = false;
    // The names last shown or saved, so that leaving an unchanged drop-down saves nothing.
    QString m_savedExercise;
    QString m_savedCourse;

    DateControl* m_datePicker = nullptr;
    TimeControl* m_startPicker = nullptr;
    NowButton* m_startNow = nullptr;
    TimeControl* m_endPicker = nullptr;
    NowButton* m_endNow = nullptr;
    TimeControl* m_elapsedPicker = nullptr;
    QCheckBox* m_completed = nullptr;
    DeviceCombo* m_exercise = nullptr;
    ListButton* m_exerciseList = nullptr;
    DeviceCombo* m_course = nullptr;
    ListButton* m_courseList = nullptr;
    NumberEdit* m_distance = nullptr;
    NumberEdit* m_heartRate = nullptr;
    NotesEdit* m_notes = nullptr;
    QPushButton* m_firstButton = nullptr;
    QPushButton* m_secondButton = nullptr;
    QPushButton* m_delete = nullptr;
    std::array<QLabel*, 3> m_minuteLabels{};
    std::array<RatingCombo*, AerobicSlot::kMinutes> m_minutes{};
};
