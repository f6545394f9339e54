#pragma once
// The calendar's month: its displayed month and year and the 42 cells of its 7 x 6 grid, Sunday
// first, from the Sunday on or before the first of the month; each cell with its day, its marks and
// its place on the page.

#include "CalendarCell.h"
#include "TrainingMarks.h"

#include <QDate>
#include <QString>

#include <array>

class CalendarMonth {
public:
    static constexpr int kColumns = 7;
    static constexpr int kRows = 6;
    static constexpr int kCells = kColumns * kRows;
    // The grid: columns 34 pixels wide from x = 1, under the weekday header (y 17 to 31), rows 35
    // pixels high from y = 32, so that the sixth row ends at 242, above the tab row.
    static constexpr int kLeft = 1;
    static constexpr int kCellWidth = 34;
    static constexpr int kHeaderTop = 17;
    static constexpr int kHeaderBottom = 31;
    static constexpr int kTop = 32;
    static constexpr int kCellHeight = 35;

    CalendarMonth(int month, int year) : m_month(month), m_year(year) {}

    int month() const { return m_month; }
    int year() const { return m_year; }
    // Month - 1, to December of the year before after January.
    void previous();
    // Month + 1, to January of the year after after December.
    void next();
    void show(int month, int year) {
        m_month = month;
        m_year = year;
    }

    // The day of the first cell: the Sunday on or before the first of the month.
    QDate firstCellDay() const;
    // Clears every cell's marks, gives the cells their 42 days and places, and marks them from the
    // current user's logs.
    void build(const TrainingMarks::Names& names);
    const std::array<CalendarCell, kCells>& cells() const { return m_cells; }
    // The first cell whose rectangle holds (x, y); nullptr when none does.
    const CalendarCell* cellAt(int x, int y) const;

    // "March 2024".
    QString title() const;
    static QString monthName(int month);

private:
    int m_month;
    int m_year;
    std::array<CalendarCell, kCells> m_cells{};
};
