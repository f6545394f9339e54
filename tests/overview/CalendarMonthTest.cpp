// The calendar's 42 cells: their days, places and marks, over logs written with plain SQL.

#include "CalendarMonth.h"

#include "SqlLogWriter.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
const TrainingMarks::Names kAnn{"Kov2AUpperBodyAnn", "Kov2BUpperBodyAnn", "Kov2ALowerBodyAnn", "Kov2BLowerBodyAnn",
                                "Kov2AerobicAnn"};

SqlLogWriter::Prop text(int number, const QString& value) {
    return SqlLogWriter::text(number, value);
}
QDate dayOf(const CalendarCell& cell) {
    return QDate(cell.year, cell.month, cell.day);
}

class CalendarMonthTest : public ::testing::Test {
protected:
    const CalendarMonth& built(int month, int year) {
        m_month.show(month, year);
        m_month.build(kAnn);
        return m_month;
    }
    int inMonth() const {
        return static_cast<int>(std::count_if(m_month.cells().begin(), m_month.cells().end(),
                                              [this](const CalendarCell& c) { return c.month == m_month.month(); }));
    }
    // Upper, lower, aerobic, entry count and shown number of the cell of day.
    std::vector<int> marks(const QDate& day) const {
        const CalendarCell& c = m_month.cells()[static_cast<size_t>(m_month.firstCellDay().daysTo(day))];
        return {c.upperBody, c.lowerBody, c.aerobic, c.entryCount, c.shownNumber};
    }

    TestDevice m_device;
    SqlLogWriter m_sql{m_device.paths().objectStore()};
    CalendarMonth m_month{1, 2000};
};
} // namespace

TEST_F(CalendarMonthTest, FortyTwoDaysFromTheSundayOnOrBeforeTheFirst) {
    // September 2024 begins on a Sunday: its first is the first cell, the last is 12 October, day after day.
    built(9, 2024);
    EXPECT_EQ(dayOf(m_month.cells().front()), QDate(2024, 9, 1));
    for (size_t i = 1; i < m_month.cells().size(); ++i) {
        EXPECT_EQ(dayOf(m_month.cells()[i - 1]).addDays(1), dayOf(m_month.cells()[i]));
    }
    // February of a leap year has 29 cells of its own.
    built(2, 2024);
    EXPECT_EQ(dayOf(m_month.cells().front()), QDate(2024, 1, 28));
    EXPECT_EQ(inMonth(), 29);
    built(2, 2023);
    EXPECT_EQ(inMonth(), 28);

    m_month.show(1, 2024);
    m_month.previous();
    EXPECT_EQ(m_month.title(), "December 2023");
    m_month.next();
    m_month.show(12, 2024);
    m_month.next();
    EXPECT_EQ(m_month.title(), "January 2025");
}

TEST_F(CalendarMonthTest, ATapFindsTheCellHoldingItAndRightAndBottomEdgesBelongToTheNext) {
    built(3, 2024);
    // Right and bottom edges belong to the next cell.
    EXPECT_EQ(m_month.cellAt(34, 66), &m_month.cells()[0]);
    EXPECT_EQ(m_month.cellAt(35, 32), &m_month.cells()[1]);
    EXPECT_EQ(m_month.cellAt(1, 67), &m_month.cells()[7]);
    EXPECT_EQ(m_month.cellAt(238, 241), &m_month.cells()[41]);
    for (const QPoint outside : {QPoint(0, 40), QPoint(239, 40), QPoint(100, 31), QPoint(100, 242)}) {
        EXPECT_EQ(m_month.cellAt(outside.x(), outside.y()), nullptr);
    }
}

TEST_F(CalendarMonthTest, DaysAreMarkedBySetsAndExercisesNotByFirstVisits) {
    const QDate busy(2024, 3, 5), visited(2024, 3, 6), lower(2024, 3, 7), aerobic(2024, 3, 8), leading(2024, 2, 27);
    // Upper body in A and B (the last set of group 5), an Abs set in lower B, exercise 1: four sets.
    m_sql.writeDay(kAnn.upperA, busy, {text(106, "Bench"), text(111, "")});
    m_sql.writeDay(kAnn.upperB, busy, {text(306, "Row"), text(661, "Shrugs")});
    m_sql.writeDay(kAnn.lowerB, busy, {text(406, "Crunch"), text(407, "12")});
    m_sql.writeDay(kAnn.aerobic, busy, {text(701, "Run")});
    // A first visit: the header and notes in A, the key alone in B and in the aerobic log.
    m_sql.writeDay(kAnn.upperA, visited, {{102, SqlLogWriter::kI2, 9}, text(1132, "<Click to add Notes>")});
    m_sql.writeDay(kAnn.upperB, visited, {});
    m_sql.writeDay(kAnn.aerobic, visited, {});
    m_sql.writeDay("Kov2AUpperBody", visited, {text(106, "Press")}); // another user's
    m_sql.writeDay(kAnn.lowerA, lower, {text(206, "Curl")});
    m_sql.writeDay(kAnn.aerobic, aerobic, {text(901, "")}); // exercise 3 alone, saved unnamed
    m_sql.writeDay(kAnn.upperA, leading, {text(106, "Dips")});

    built(3, 2024);
    EXPECT_EQ(marks(busy), std::vector<int>({1, 1, 1, 3, 4}));
    EXPECT_EQ(marks(visited), std::vector<int>({0, 0, 0, 0, 0}));
    EXPECT_EQ(marks(lower), std::vector<int>({0, 1, 0, 1, 1}));
    EXPECT_EQ(marks(aerobic), std::vector<int>({0, 0, 1, 1, 0}));
    EXPECT_EQ(marks(leading), std::vector<int>({1, 0, 0, 1, 1}));
    // Building another month clears the marks: 9 April stands in the cell 5 March had.
    built(4, 2024);
    EXPECT_EQ(marks(QDate(2024, 4, 9)), std::vector<int>({0, 0, 0, 0, 0}));
}
