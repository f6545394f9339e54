#pragma once
// The set-entry grid (dialog 143): the twelve sets of one muscle group of one day, each row an
// exercise, reps, weight (with an up-down), rest and intensity, under a bar of column heads and
// beside a scroll bar. The main window lays it over the strength pages when a group is opened and
// routes the grid's commands to it: save, cancel, pick an exercise, edit the group's exercise list,
// and the "Clear..." menu.

#include "GroupSets.h"
#include "Page.h"

#include <QDate>

#include <array>
#include <optional>

class DeviceCombo;
class NumberEdit;
class QLabel;
class QScrollBar;
class RatingCombo;
class SetGridRecords;
class UpDownControl;

class SetGrid : public Page {
    Q_OBJECT
public:
    static constexpr int kRows = GroupSets::kRows;
    static constexpr int kRowHeight = 22;
    static constexpr int kVisibleRows = 10;
    // The scroll bar's range is 0 to 100 with a page of 10; its last position is 100 - 10 + 1. The
    // rows move by whole rows: the bar's positions are shared out among the first rows shown.
    static constexpr int kScrollMaximum = 91;
    static constexpr int kScrollPage = 10;
    static constexpr int kHiddenRows = GroupSets::kRows - kVisibleRows;

    struct Row {
        QLabel* label = nullptr;
        DeviceCombo* exercise = nullptr;
        DeviceCombo* reps = nullptr;
        NumberEdit* weight = nullptr;
        UpDownControl* upDown = nullptr;
        DeviceCombo* rest = nullptr;
        RatingCombo* intensity = nullptr;
    };

    SetGrid(PageHost& host, QWidget* parent);
    ~SetGrid() override;

    // Opening for (date, code): the group's exercise list in every row, then the day's sets (or,
    // when the day has none, those pulled in from the last day the group was trained).
    void openGroup(const QDate& date, int groupCode) override;
    // Save, cancel, pick an exercise, edit the exercise list, and the three Clear commands.
    bool handleCommand(int command) override;

    QDate date() const { return m_date; }
    int groupCode() const { return m_groupCode; }
    const Row& row(int index) const { return m_rows[static_cast<size_t>(index)]; }
    // The row that holds (or last held) the focus: what "Current Row" means.
    int currentRow() const { return m_currentRow; }
    QScrollBar* scrollBar() const { return m_scrollBar; }
    // The row shown at the top (0 to kHiddenRows).
    int firstShownRow() const { return m_firstShownRow; }

    // The rows as the controls hold them.
    GroupSets controlValues() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createRows();
    void createRow(int index);
    DeviceCombo* makeCombo(int id, bool editable, int first, int last);
    void showSets(const GroupSets& sets);
    void fillExerciseLists(const QStringList& exercises);
    SetGridRecords gridRecords() const;
    // Takes what is typed into the weights; false when one was refused.
    bool commitWeights();
    void save();
    void cancel();
    void selectExercise();
    void editExerciseList();
    void setExercise(int row, const QString& exercise);
    void firstExerciseEdited();
    void focusChanged(QWidget* now);
    void scrollTo(int position);
    void scrollAction(int action);
    void scrollRows(int rows);
    static int positionOfRow(int firstShown);
    static int rowOfPosition(int position);
    void ensureRowShown(int row);

    QDate m_date;
    int m_groupCode = 0;
    std::optional<MuscleGroup> m_group;
    // Row 1's exercise as last shown or taken, to tell a change and what it replaced.
    QString m_firstExercise;
    int m_currentRow = 0;
    int m_firstShownRow = 0;
    int m_wheelDelta = 0;

    class CompactComboStyle* m_comboStyle = nullptr;
    QLabel* m_bar = nullptr;
    QWidget* m_viewport = nullptr;
    QWidget* m_rowArea = nullptr;
    QScrollBar* m_scrollBar = nullptr;
    std::array<Row, kRows> m_rows;
};
