// The calendar's 42 cells: their days, places and marks, over logs written with plain SQL.

#include "CalendarMonth.h"

#include "SqlDayWriter.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

namespace {
SqlDayWriter::Prop text(int number, const QString& value) {
    return SqlDayWriter::text(number, value);
}
const TrainingMarks::Names kAnn{"Kov2AUpperBodyAnn", "Kov2BUpperBodyAnn", "Kov2ALowerBodyAnn", "Kov2BLowerBodyAnn",
                                "Kov2AerobicAnn"};

QDate dayOf(const CalendarCell& cell) {
    return QDate(cell.year, cell.month, cell.day);
}

// The built month's cells as dates, and how many belong to the month shown.
CalendarMonth built(int month, int year) {
    CalendarMonth calendar(month, year);
    calendar.build(kAnn);
    return calendar;
}
int inMonth(const CalendarMonth& calendar) {
    int count = 0;
    for (const CalendarCell& cell : calendar.cells()) {
        count += cell.month == calendar.month() ? 1 : 0;
    }
    return count;
}
} // namespace

TEST(CalendarMonthTest, FortyTwoDaysFromTheSundayOnOrBeforeTheFirst) {
    TestDevice device;
    // March 2024 begins on a Friday: the grid starts on Sunday 25 February and ends on 6 April.
    const CalendarMonth march = built(3, 2024);
    EXPECT_EQ(dayOf(march.cells().front()), QDate(2024, 2, 25));
    EXPECT_EQ(dayOf(march.cells()[5]), QDate(2024, 3, 1));
    EXPECT_EQ(dayOf(march.cells().back()), QDate(2024, 4, 6));
    for (size_t i = 1; i < march.cells().size(); ++i) {
        EXPECT_EQ(dayOf(march.cells()[i - 1]).addDays(1), dayOf(march.cells()[i]));
    }
    EXPECT_EQ(march.title(), "March 2024");

    // September 2024 begins on a Sunday: the first cell is the first, the last is 12 October.
    const CalendarMonth september = built(9, 2024);
    EXPECT_EQ(dayOf(september.cells().front()), QDate(2024, 9, 1));
    EXPECT_EQ(dayOf(september.cells().back()), QDate(2024, 10, 12));

    // February of a leap year: 29 days of the month, from Sunday 28 January.
    const CalendarMonth february = built(2, 2024);
    EXPECT_EQ(dayOf(february.cells().front()), QDate(2024, 1, 28));
    EXPECT_EQ(inMonth(february), 29);
    EXPECT_EQ(inMonth(built(2, 2023)), 28);
    EXPECT_EQ(february.title(), "February 2024");
}

TEST(CalendarMonthTest, MonthsStepAcrossTheYear) {
    CalendarMonth calendar(1, 2024);
    calendar.previous();
    EXPECT_EQ(std::make_pair(calendar.month(), calendar.year()), std::make_pair(12, 2023));
    calendar.next();
    EXPECT_EQ(std::make_pair(calendar.month(), calendar.year()), std::make_pair(1, 2024));
    calendar.show(12, 2024);
    calendar.next();
    EXPECT_EQ(std::make_pair(calendar.month(), calendar.year()), std::make_pair(1, 2025));
    calendar.previous();
    EXPECT_EQ(std::make_pair(calendar.month(), calendar.year()), std::make_pair(12, 2024));
}

TEST(CalendarMonthTest, CellsTileTheGridAndATapFindsTheFirstCellHoldingIt) {
    TestDevice device;
    const CalendarMonth calendar = built(3, 2024);
    const CalendarCell& first = calendar.cells().front();
    EXPECT_EQ(QRect(first.left, first.top, first.right - first.left, first.bottom - first.top), QRect(1, 32, 34, 35));
    const CalendarCell& last = calendar.cells().back();
    EXPECT_EQ(std::vector<int>({last.left, last.top, last.right, last.bottom}), std::vector<int>({205, 207, 239, 242}));

    EXPECT_EQ(calendar.cellAt(1, 32), &calendar.cells()[0]);
    EXPECT_EQ(calendar.cellAt(34, 66), &calendar.cells()[0]);
    // Right and bottom edges belong to the next cell.
    EXPECT_EQ(calendar.cellAt(35, 32), &calendar.cells()[1]);
    EXPECT_EQ(calendar.cellAt(1, 67), &calendar.cells()[7]);
    EXPECT_EQ(calendar.cellAt(238, 241), &calendar.cells()[41]);
    EXPECT_EQ(calendar.cellAt(0, 40), nullptr);
    EXPECT_EQ(calendar.cellAt(239, 40), nullptr);
    EXPECT_EQ(calendar.cellAt(100, 31), nullptr);
    EXPECT_EQ(calendar.cellAt(100, 242), nullptr);
}

TEST(CalendarMonthTest, DaysAreMarkedBySetsAndExercisesNotByFirstVisits) {
    TestDevice device;
    SqlDayWriter sql(device.paths().objectStore());
    const QDate busy(2024, 3, 5), visited(2024, 3, 6), lower(2024, 3, 7), aerobicOnly(2024, 3, 8), leading(2024, 2, 27);
    // Upper body: a Chest set in A and a Back set in B; lower body: an Abs set in B only; aerobic:
    // exercise 1. Three sets on the day.
    sql.addDay(kAnn.upperA, busy, {{102, SqlDayWriter::kI2, 7}, text(106, "Bench"), text(111, "")});
    sql.addDay(kAnn.upperB, busy, {text(306, "Row"), text(661, "Shrugs")});
    sql.addDay(kAnn.lowerA, busy, {});
    sql.addDay(kAnn.lowerB, busy, {text(406, "Crunch"), {407, SqlDayWriter::kText, "12"}});
    sql.addDay(kAnn.aerobic, busy, {text(701, "Run")});
    // What a first visit leaves: the header and the notes in A, the key alone in B and the aerobic log.
    for (const QString& a : {kAnn.upperA, kAnn.lowerA}) {
        sql.addDay(a, visited,
                   {{102, SqlDayWriter::kI2, 9},
                    {103, SqlDayWriter::kI2, 41},
                    {104, SqlDayWriter::kI2, 0},
                    {105, SqlDayWriter::kUI2, 0},
                    text(1132, "<Click to add Notes>")});
    }
    sql.addDay(kAnn.upperB, visited, {});
    sql.addDay(kAnn.aerobic, visited, {});
    sql.addDay(kAnn.lowerA, lower, {text(206, "Curl")});
    // Exercise 2 alone, unnamed, still counts: it was saved.
    sql.addDay(kAnn.aerobic, aerobicOnly, {text(801, "")});
    sql.addDay(kAnn.upperA, leading, {text(106, "Dips")});
    // Another user's day is not Ann's.
    sql.addDay("Kov2AUpperBody", visited, {text(106, "Press")});

    const CalendarMonth calendar = built(3, 2024);
    const auto cell = [&calendar](const QDate& day) {
        const CalendarCell& found = calendar.cells()[static_cast<size_t>(calendar.firstCellDay().daysTo(day))];
        return std::vector<int>({found.upperBody, found.lowerBody, found.aerobic, found.entryCount, found.shownNumber});
    };
    EXPECT_EQ(cell(busy), std::vector<int>({1, 1, 1, 3, 4}));
    EXPECT_EQ(cell(visited), std::vector<int>({0, 0, 0, 0, 0}));
    EXPECT_EQ(cell(lower), std::vector<int>({0, 1, 0, 1, 1}));
    EXPECT_EQ(cell(aerobicOnly), std::vector<int>({0, 0, 1, 1, 0}));
    EXPECT_EQ(cell(leading), std::vector<int>({1, 0, 0, 1, 1}));
    EXPECT_EQ(cell(QDate(2024, 3, 9)), std::vector<int>({0, 0, 0, 0, 0}));

    // Building again clears what the previous month marked.
    CalendarMonth moved = calendar;
    moved.next();
    moved.build(kAnn);
    for (const CalendarCell& c : moved.cells()) {
        EXPECT_EQ(c.entryCount + c.shownNumber, 0) << c.day << "/" << c.month;
    }
}
