#pragma once
// Reads the typed values of one row of an imported file and collects what cannot be read, each
// problem naming the column and the text found. An empty cell reads as nothing, without a problem.

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>

#include <optional>

class CellReader {
public:
    // How a file writes its dates.
    enum class DateStyle {
        Iso,        // 2024-01-08, optionally followed by a time of day
        MonthFirst, // 1/8/2024, as the device's CSV export writes them
        DayMonth,   // 4 Mar 2024, 08:15
    };

    // cells: the row's cells; names: the column names, for the problems' texts.
    CellReader(const QStringList& cells, const QStringList& names) : m_cells(cells), m_names(names) {}

    bool isEmpty(int column) const { return text(column).isEmpty(); }
    // The cell as it stands; a column past the row's end reads empty.
    QString text(int column) const;
    // A whole number from low to high.
    std::optional<int> integer(int column, int low, int high);
    // A number with an optional dot, from low to high.
    std::optional<double> number(int column, double low, double high);
    // A calendar day after the reference day of 1968; what follows the date (a time) is left for time().
    std::optional<QDate> date(int column, DateStyle style);
    // The time of day written after a date in the same cell, or alone: H:MM or H:MM:SS.
    std::optional<QTime> time(int column);
    // h:mm:ss within a day, as seconds.
    std::optional<int> elapsed(int column);
    // yes or no (True or False in the device's files).
    std::optional<bool> yesNo(int column);

    // The problems found so far; empty when everything read.
    const QStringList& problems() const { return m_problems; }
    bool ok() const { return m_problems.isEmpty(); }
    void problem(int column, const QString& what);

    // The time of day of a text: H:MM or H:MM:SS, 24-hour, with an optional AM or PM.
    static std::optional<QTime> parseTime(const QString& text);
    static std::optional<QDate> parseDate(const QString& text, DateStyle style);

private:
    QStringList m_cells;
    QStringList m_names;
    QStringList m_problems;
};
