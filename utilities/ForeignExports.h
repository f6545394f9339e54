#pragma once
// Other fitness programs' CSV exports, recognised by their header rows (columns found by name,
// without regard to case and surrounding blanks; columns not needed are ignored):
//   FitNotes   one row per set or cardio entry: Date, Exercise, Category, Weight (kgs|lbs), Reps, ...
//   Strong     one row per set, comma- or (older) semicolon-separated: Date, Workout Name, Exercise
//              Name, Set Order, Weight, Reps, Distance, Seconds, ...
//   Hevy       one row per set: title, start_time, end_time, exercise_title, weight_kg|weight_lbs, reps, ...
//   openScale  one row per weighing: dateTime, weight, fat, waist, chest, thigh, biceps, comment, ...
// Sets go to the strength logs (the group chosen by ExerciseGroups, one day's sets of a group into its
// slots 1-12 in the file's order), cardio to the day's aerobic exercises 1-3, weighings to the day's
// body values. Numbers are taken as written: Kovalin keeps no unit. A row that cannot be taken (a
// weight over 999, a 13th set of a group, a 4th cardio exercise, a date that cannot be read) is
// reported with its line and left out; the rest of its day is taken.

#include "CsvText.h"
#include "ExerciseGroups.h"
#include "GroupSets.h"
#include "ImportedHistory.h"

#include <QDateTime>

#include <map>
#include <optional>

class CellReader;

class ForeignExports {
public:
    enum class Program { FitNotes, Strong, Hevy, OpenScale };

    explicit ForeignExports(ImportedHistory& history) : m_history(history) {}

    // The program whose export has this header row; std::nullopt for any other.
    static std::optional<Program> recognise(const QStringList& header);
    static QString programName(Program program);
    void read(Program program, const CsvText& text, const QString& file);

private:
    // One row of a workout program's export, in the program's own terms.
    struct Row {
        QDate day;
        std::optional<QTime> start;
        std::optional<int> workoutSeconds;
        QString workoutNotes;
        QString exercise;
        QString category;
        int weight = -1, reps = -1, rpe = -1, distance = -1, seconds = -1, note = -1; // columns, -1 none
        bool cardio = false;
    };
    struct Columns;

    std::optional<Row> readRow(Program program, const Columns& columns, CellReader& cells);
    void takeSet(const Row& row, CellReader& cells);
    void takeCardio(const Row& row, CellReader& cells);
    void takeWeighing(const Columns& columns, CellReader& cells, const QDateTime& when);
    void takeHeader(const Row& row, const MuscleGroup& group, const QString& setNote);
    void finish();
    void carry(Program program);

    ImportedHistory& m_history;
    std::optional<ExerciseGroups> m_groups;
    std::map<std::tuple<ImportLog, QDate, int>, std::pair<GroupSets, int>> m_sets; // the sets and how many
    std::map<std::pair<ImportLog, QDate>, QStringList> m_notes;
    std::map<QDate, int> m_cardio;
    std::map<QDate, QDateTime> m_weighed;
};
