#pragma once
// Reads the tidy tables (TidyTables) into an ImportedHistory. Every cell is checked against the range
// the pages accept; a row that cannot be read is reported with its file and line, and its day of that
// log is spoiled (not written at all) when the row's date could be read.

#include "CsvText.h"
#include "GroupSets.h"
#include "ImportedHistory.h"
#include "TidyTables.h"

#include <map>
#include <set>
#include <tuple>

class CellReader;

class TablesReader {
public:
    explicit TablesReader(ImportedHistory& history) : m_history(history) {}

    // Reads one table; file: its name as the report gives it.
    void read(TidyTables::Table table, const CsvText& text, const QString& file);
    // Writes the gathered sets into their days; call once after the last table.
    void finish();

private:
    bool readWorkout(CellReader& cells, const QDate& day, std::optional<ImportLog>& log);
    bool readSet(CellReader& cells, const QDate& day, std::optional<ImportLog>& log);
    bool readAerobic(CellReader& cells, const QDate& day);
    bool readBody(CellReader& cells, const QDate& day);
    bool readMeal(CellReader& cells, const QDate& day);
    std::optional<ImportLog> region(CellReader& cells, int column);
    // False, with a problem, when the row's thing was read before.
    bool firstOf(CellReader& cells, int column, const QString& thing, const std::tuple<int, QDate, int, int>& key);
    void carry(TidyTables::Table table);
    // Leaves out the day of a row that is cut short, as far as its date and region can be read.
    void spoilCut(TidyTables::Table table, const CellReader& cells);

    ImportedHistory& m_history;
    // The sets read so far, by log, day and group: written whole, as the set-entry grid writes a group.
    std::map<std::tuple<ImportLog, QDate, int>, GroupSets> m_groups;
    std::set<std::tuple<int, QDate, int, int>> m_seen;
};
