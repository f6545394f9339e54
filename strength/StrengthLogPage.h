#pragma once
// A strength log page: one day's workout of one body region, the upper body (dialog 132, tab 1) or
// the lower body (dialog 135, tab 2). It shows the day's date, start and end time, elapsed time,
// Completed mark and notes, and every recorded set of the day in a list; a muscle group chosen from
// the tool bar or the list's menu is edited in the set-entry grid. Every change is saved at once.

#include "Page.h"
#include "StrengthDay.h"
#include "StrengthRecords.h"

class DateControl;
class NotesEdit;
class NowButton;
class QCheckBox;
class QPushButton;
class QTreeWidget;
class TimeControl;

class StrengthLogPage : public Page {
    Q_OBJECT
public:
    static inline const QString kDeleteQuestion =
        QStringLiteral("This will delete all exercises for the selected group.  Continue?");
    // The list's columns: heading, width in pixels, alignment.
    static constexpr int kColumnCount = 5;

    StrengthLogPage(PageHost& host, BodyRegion region, QWidget* parent);

    BodyRegion region() const { return m_region; }
    QDate shownDate() const { return m_date; }
    // The day as last loaded: its sets and group counters.
    const StrengthDay& day() const { return m_day; }

    // Page start: today, loaded.
    void initDialog() override;
    // SetDate: moves the page to date and loads it.
    void setDate(const QDate& date) override;
    void reload() override { Load(); }
    // The region's muscle-group commands from its tool bar open that group in the grid.
    bool handleCommand(int command) override;
    // ApplyTimes: the other region's start, end, elapsed time and Completed mark, saved here too.
    void applyTimes(const WorkoutTimes& times) override;

    // Load: creates the day's records when missing and shows them.
    void Load();
    // SaveHeader: writes the header as the controls show it.
    void SaveHeader();
    // OpenGroup: hands the shown date and the group's code to the set-entry grid.
    void OpenGroup(int groupCode);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void createControls();
    void placeControls();
    StrengthRecords records() const;
    WorkoutHeader controlValues() const;
    void showHeader(const WorkoutHeader& header);
    void showSets();

    void dateChanged();
    void startOrEndChanged();
    void startNow();
    void endNow();
    void elapsedChanged();
    void completedClicked();
    // When both regions of a day count as one workout, the other page takes these times too.
    void passTimesOn(const WorkoutHeader& header);
    void showListMenu(const QPoint& position);
    void editSelectedRow();
    void deleteSelectedRow();
    std::optional<MuscleGroup> groupOfSelectedRow() const;
    void showCounts();

    BodyRegion m_region;
    QDate m_date;
    StrengthDay m_day;

    DateControl* m_datePicker = nullptr;
    TimeControl* m_startPicker = nullptr;
    NowButton* m_startNow = nullptr;
    TimeControl* m_endPicker = nullptr;
    NowButton* m_endNow = nullptr;
    TimeControl* m_elapsedPicker = nullptr;
    NotesEdit* m_notes = nullptr;
    QCheckBox* m_completed = nullptr;
    QTreeWidget* m_list = nullptr;
    QPushButton* m_dbg = nullptr;
};
