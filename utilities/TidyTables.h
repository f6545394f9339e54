#pragma once
// The five tidy tables a person's history is written to and read back from, and their columns:
//   workouts.csv  one row per strength workout (a day of a body region)
//   sets.csv      one row per set
//   aerobic.csv   one row per aerobic exercise
//   body.csv      one row per day of the food-and-body log
//   meals.csv     one row per meal
// Every row starts with the date; docs/tables.md describes every column.

#include <QString>
#include <QStringList>

#include <array>

class TidyTables {
public:
    enum class Table { Workouts, Sets, Aerobic, Body, Meals };
    static constexpr int kTables = 5;
    static constexpr std::array<Table, kTables> kAll = {Table::Workouts, Table::Sets, Table::Aerobic, Table::Body,
                                                        Table::Meals};

    static QString fileName(Table table);
    static const QStringList& header(Table table);
    // The table whose header row this is (names compared without regard to case and blanks).
    static bool matches(Table table, const QStringList& header);

    static QString regionName(bool upper) { return upper ? QStringLiteral("upper") : QStringLiteral("lower"); }
};
