#pragma once
// kovalin-cli export --tables: one user's whole history as the five tidy tables (TidyTables), UTF-8
// text for today's spreadsheets and notebooks. Every day of a log that holds an entry (compact's
// test) gives its rows; the reference-day markers and the days of a first visit alone give none.
// Empty cell: the record lacks the value. The databases are only read.

#include "TidyTables.h"

#include <QString>

class UtilityReport;
class TableFile;
class DbRecord;
class QDate;

class TablesExport {
public:
    // user: whose logs (the empty name: Default); folder: where the files go, created when missing.
    TablesExport(const QString& user, const QString& folder);

    // Writes the five files, a status line each. False, with a message, when a file cannot be
    // written or a database cannot be read.
    bool run(UtilityReport& report);

    // The rows of one day of a log, when it holds an entry; b: the strength B record, if the day has one.
    static void addStrengthDay(TableFile& workouts, TableFile& sets, const QDate& day, bool upper, const DbRecord& a,
                               const DbRecord* b);
    static void addAerobicDay(TableFile& file, const QDate& day, const DbRecord& record);
    static void addFoodDay(TableFile& body, TableFile& meals, const QDate& day, const DbRecord& record);

private:
    bool writeStrength(TableFile& workouts, TableFile& sets, bool upper);
    bool writeAerobic(TableFile& file);
    bool writeFood(TableFile& body, TableFile& meals);
    static void addWorkout(TableFile& file, const QDate& day, bool upper, const DbRecord& a);
    static void addSets(TableFile& file, const QDate& day, bool upper, const DbRecord& a, const DbRecord* b);

    QString m_user;
    QString m_folder;
};
