#include "CalendarMonth.h"

namespace {
const char* const kMonthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                   "July",    "August",   "September", "October", "November", "December"};
}

void CalendarMonth::previous() {
    if (--m_month < 1) {
        m_month = 12;
        --m_year;
    }
}

void CalendarMonth::next() {
    if (++m_month > 12) {
        m_month = 1;
        ++m_year;
    }
}

QDate CalendarMonth::firstCellDay() const {
    const QDate first(m_year, m_month, 1);
    // QDate numbers Monday 1 to Sunday 7; the step back is the weekday with Sunday 0.
    return first.addDays(-(first.dayOfWeek() % 7));
}

void CalendarMonth::build(const TrainingMarks::Names& names) {
    const QDate first = firstCellDay();
    const std::vector<TrainingMarks::Day> marks = TrainingMarks::read(names, first, kCells);
    for (int i = 0; i < kCells; ++i) {
        CalendarCell& cell = m_cells[static_cast<size_t>(i)];
        cell = CalendarCell();
        const QDate day = first.addDays(i);
        cell.day = day.day();
        cell.month = day.month();
        cell.year = day.year();
        cell.left = kLeft + kCellWidth * (i % kColumns);
        cell.right = cell.left + kCellWidth;
        cell.top = kTop + kCellHeight * (i / kColumns);
        cell.bottom = cell.top + kCellHeight;
        const TrainingMarks::Day& mark = marks[static_cast<size_t>(i)];
        cell.upperBody = mark.upperBody ? 1 : 0;
        cell.lowerBody = mark.lowerBody ? 1 : 0;
        cell.aerobic = mark.aerobic ? 1 : 0;
        cell.entryCount = cell.upperBody + cell.lowerBody + cell.aerobic;
        cell.shownNumber = mark.sets;
    }
}

const CalendarCell* CalendarMonth::cellAt(int x, int y) const {
    for (const CalendarCell& cell : m_cells) {
        if (cell.contains(x, y)) {
            return &cell;
        }
    }
    return nullptr;
}

QString CalendarMonth::title() const {
    return monthName(m_month) + QStringLiteral(" %1").arg(m_year);
}

QString CalendarMonth::monthName(int month) {
    return month >= 1 && month <= 12 ? QString::fromLatin1(kMonthNames[month - 1]) : QString();
}
