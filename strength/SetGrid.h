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

class QComboBox;
class QLabel;
class QLineEdit;
class QScrollBar;
class SetGridRecords;
class UpDownControl;

class SetGrid : public Page {
    Q_OBJECT
public:
    static constexpr int kRows = GroupSets::kRows;
    static constexpr int kRowHeight = 22;
    static constexpr int kVisibleRows = 10;
    // The scroll bar's range is 0 to 100 with a page of 10; its last position is 100 - 10 + 1.
    static constexpr int kScrollMaximum = 91;
    static constexpr int kScrollPage = 10;

    struct Row {
        QLabel* label = nullptr;
        QComboBox* exercise = nullptr;
        QComboBox* reps = nullptr;
        QLineEdit* weight = nullptr;
        UpDownControl* upDown = nullptr;
        QComboBox* rest = nullptr;
        QComboBox* intensity = nullptr;
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
    // The first row shown at the scroll bar's position.
    QScrollBar* scrollBar() const { return m_scrollBar; }

    // The rows as the controls hold them.
    GroupSets controlValues() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createRows();
    void createRow(int index);
    QComboBox* makeCombo(int id, bool editable, int first, int last);
    void showSets(const GroupSets& sets);
    void fillExerciseLists(const QStringList& exercises);
    SetGridRecords gridRecords() const;
    void save();
    void cancel();
    void selectExercise();
    void editExerciseList();
    void setExercise(int row, const QString& exercise);
    static void showExercise(QComboBox* combo, const QString& exercise);
    void firstExerciseEdited();
    void focusChanged(QWidget* now);
    void scrollTo(int position);
    // How much of the rows' height the viewport cannot show.
    int hiddenHeight() const;
    void ensureRowShown(int row);

    QDate m_date;
    int m_groupCode = 0;
    std::optional<MuscleGroup> m_group;
    // Row 1's exercise as last shown or taken, to tell a change and what it replaced.
    QString m_firstExercise;
    int m_currentRow = 0;

    class CompactComboStyle* m_comboStyle = nullptr;
    QLabel* m_bar = nullptr;
    QWidget* m_viewport = nullptr;
    QWidget* m_rowArea = nullptr;
    QScrollBar* m_scrollBar = nullptr;
    std::array<Row, kRows> m_rows;
};
