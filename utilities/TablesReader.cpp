#include "TablesReader.h"

#include "AerobicLists.h"
#include "AerobicSlot.h"
#include "CellReader.h"
#include "ExerciseLists.h"
#include "FoodDayValues.h"
#include "FoodLists.h"
#include "Meal.h"
#include "NotesPlaceholder.h"
#include "TableCells.h"
#include "WorkoutHeader.h"

namespace {
std::int16_t i2(int value) {
    return static_cast<std::int16_t>(value);
}

QString notesOf(const CellReader& cells, int column) {
    const QString notes = cells.text(column);
    return notes.isEmpty() ? kNotesPlaceholder : notes;
}

// The start and elapsed time of a workout or an aerobic exercise.
void setTimes(ImportedDay& day, const std::optional<QTime>& start, const std::optional<int>& elapsed, WORD hour,
              WORD minute, WORD minutes, WORD seconds) {
    if (start) {
        day.set(DbProp::i2(hour, i2(start->hour())));
        day.set(DbProp::i2(minute, i2(start->minute())));
    }
    if (elapsed) {
        day.set(DbProp::i2(minutes, i2(*elapsed / 60)));
        day.set(DbProp::i2(seconds, i2(*elapsed % 60)));
    }
}

struct BodyColumn {
    int column;
    WORD number;
    bool real;
    double high;
};
// body.csv: date, water, weight, body_fat, sleep, sleep_quality, overall_feeling, systolic, diastolic,
// resting_heart_rate, chest, biceps, waist, quads, calves, notes. The ranges are the food page's.
constexpr BodyColumn kBodyColumns[] = {
    {1, FoodDayValues::kWater, false, 99},
    {2, FoodDayValues::kWeight, false, 999},
    {3, FoodDayValues::kBodyFat, true, 102.4},
    {4, FoodDayValues::kSleep, true, 24},
    {7, FoodDayValues::kSystolic, false, 999},
    {8, FoodDayValues::kDiastolic, false, 999},
    {9, FoodDayValues::kRestingHeartRate, false, 999},
    {10, FoodDayValues::kChest, true, 999.9},
    {11, FoodDayValues::kBiceps, true, 999.9},
    {12, FoodDayValues::kWaist, true, 999.9},
    {13, FoodDayValues::kQuads, true, 999.9},
    {14, FoodDayValues::kCalves, true, 999.9},
};
constexpr int kBodyNotes = 15;
} // namespace

void TablesReader::read(TidyTables::Table table, const CsvText& text, const QString& file) {
    carry(table);
    for (const CsvProblem& problem : text.problems()) {
        m_history.problem(file, problem.line, problem.text);
    }
    const QStringList& names = TidyTables::header(table);
    for (const CsvRow& row : text.rows()) {
        CellReader cells(row.cells, names);
        if (row.cut || row.cells.size() != names.size()) {
            m_history.problem(file, row.line,
                              row.cut ? QStringLiteral("ends inside a quoted cell: the file is cut short")
                                      : QStringLiteral("has %1 cells where the header has %2: the line is cut short")
                                            .arg(row.cells.size())
                                            .arg(names.size()));
            spoilCut(table, cells);
            continue;
        }
        const std::optional<QDate> day = cells.date(0, CellReader::DateStyle::Iso);
        std::optional<ImportLog> log;
        bool read = false;
        if (day) {
            switch (table) {
            case TidyTables::Table::Workouts:
                read = readWorkout(cells, *day, log);
                break;
            case TidyTables::Table::Sets:
                read = readSet(cells, *day, log);
                break;
            case TidyTables::Table::Aerobic:
                log = ImportLog::Aerobic;
                read = readAerobic(cells, *day);
                break;
            case TidyTables::Table::Body:
                log = ImportLog::Food;
                read = readBody(cells, *day);
                break;
            case TidyTables::Table::Meals:
                log = ImportLog::Food;
                read = readMeal(cells, *day);
                break;
            }
        }
        if (!read || !cells.ok()) {
            for (const QString& problem : cells.problems()) {
                m_history.problem(file, row.line, problem);
            }
            if (day && log) {
                m_history.spoil(*log, *day);
            }
        }
    }
}

void TablesReader::carry(TidyTables::Table table) {
    auto carryStrength = [this](WORD number) {
        m_history.carry(ImportLog::Upper, number);
        m_history.carry(ImportLog::Lower, number);
    };
    switch (table) {
    case TidyTables::Table::Workouts:
        for (WORD number : {WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute, WorkoutHeader::kElapsedMinutes,
                            WorkoutHeader::kCompleted, WorkoutHeader::kNotes, WorkoutHeader::kElapsedSeconds}) {
            carryStrength(number);
        }
        break;
    case TidyTables::Table::Sets:
        for (int group = 0; group < MuscleGroup::kGroupsPerRegion; ++group) {
            const MuscleGroup muscles(BodyRegion::Upper, group);
            for (int i = 0; i < MuscleGroup::kPropsPerGroup; ++i) {
                carryStrength(static_cast<WORD>(muscles.firstNumber() + i));
            }
        }
        break;
    case TidyTables::Table::Aerobic:
        for (const AerobicSlot& slot : AerobicSlot::all()) {
            for (WORD number : slot.numbers()) {
                m_history.carry(ImportLog::Aerobic, number);
            }
        }
        break;
    case TidyTables::Table::Body:
        for (const BodyColumn& column : kBodyColumns) {
            m_history.carry(ImportLog::Food, column.number);
        }
        for (WORD number : {FoodDayValues::kOverall, FoodDayValues::kSleepQuality, FoodDayValues::kNotes}) {
            m_history.carry(ImportLog::Food, number);
        }
        break;
    case TidyTables::Table::Meals:
        for (int slot = 0; slot < Meal::kSlots; ++slot) {
            for (WORD number : Meal::numbers(slot)) {
                m_history.carry(ImportLog::Food, number);
            }
        }
        break;
    }
}

void TablesReader::spoilCut(TidyTables::Table table, const CellReader& cells) {
    const std::optional<QDate> day = CellReader::parseDate(cells.text(0), CellReader::DateStyle::Iso);
    if (!day) {
        return;
    }
    switch (table) {
    case TidyTables::Table::Workouts:
    case TidyTables::Table::Sets:
        // The region may be what was cut: both regions' days are left out.
        for (ImportLog log : {ImportLog::Upper, ImportLog::Lower}) {
            if (cells.text(1).trimmed().toLower() != TidyTables::regionName(log != ImportLog::Upper)) {
                m_history.spoil(log, *day);
            }
        }
        break;
    case TidyTables::Table::Aerobic:
        m_history.spoil(ImportLog::Aerobic, *day);
        break;
    case TidyTables::Table::Body:
    case TidyTables::Table::Meals:
        m_history.spoil(ImportLog::Food, *day);
        break;
    }
}

std::optional<ImportLog> TablesReader::region(CellReader& cells, int column) {
    const QString text = cells.text(column).trimmed().toLower();
    if (text == TidyTables::regionName(true)) {
        return ImportLog::Upper;
    }
    if (text == TidyTables::regionName(false)) {
        return ImportLog::Lower;
    }
    cells.problem(column, QStringLiteral("is neither upper nor lower"));
    return std::nullopt;
}

bool TablesReader::firstOf(CellReader& cells, int column, const QString& thing,
                           const std::tuple<int, QDate, int, int>& key) {
    if (!m_seen.insert(key).second) {
        cells.problem(column, QStringLiteral("is the second %1 of the day").arg(thing));
        return false;
    }
    return true;
}

bool TablesReader::readWorkout(CellReader& cells, const QDate& day, std::optional<ImportLog>& log) {
    const std::optional<ImportLog> found = region(cells, 1);
    if (!found) {
        return false;
    }
    log = found;
    const std::optional<QTime> start = cells.time(2);
    const std::optional<int> elapsed = cells.elapsed(3);
    const std::optional<bool> completed = cells.yesNo(4);
    if (!cells.ok() || !firstOf(cells, 1, QStringLiteral("workout"), {0, day, static_cast<int>(*found), 0})) {
        return false;
    }
    ImportedDay& imported = m_history.day(*found, day);
    setTimes(imported, start, elapsed, WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute,
             WorkoutHeader::kElapsedMinutes, WorkoutHeader::kElapsedSeconds);
    if (completed) {
        imported.set(DbProp::ui2(WorkoutHeader::kCompleted, *completed ? 1 : 0));
    }
    imported.set(DbProp::text(WorkoutHeader::kNotes, notesOf(cells, 5)));
    return true;
}

bool TablesReader::readSet(CellReader& cells, const QDate& day, std::optional<ImportLog>& log) {
    const std::optional<ImportLog> found = region(cells, 1);
    if (!found) {
        return false;
    }
    log = found;
    const BodyRegion bodyRegion = *found == ImportLog::Upper ? BodyRegion::Upper : BodyRegion::Lower;
    std::optional<MuscleGroup> group;
    for (const MuscleGroup& candidate : MuscleGroup::ofRegion(bodyRegion)) {
        if (candidate.name().compare(cells.text(2).trimmed(), Qt::CaseInsensitive) == 0) {
            group = candidate;
        }
    }
    if (!group) {
        cells.problem(2, QStringLiteral("is not a muscle group of the %1 body").arg(TidyTables::regionName(
                                                                                    bodyRegion == BodyRegion::Upper)));
    }
    const std::optional<int> set = cells.integer(3, 1, MuscleGroup::kSets);
    if (cells.isEmpty(3)) {
        cells.problem(3, QStringLiteral("is not a set number"));
    }
    if (cells.isEmpty(4)) {
        cells.problem(4, QStringLiteral("is no exercise: a set is recorded by its exercise"));
    }
    StrengthSet read;
    read.exercise = cells.text(4);
    read.reps = cells.text(5);
    read.weight = cells.number(6, 0, 999).value_or(0.0);
    read.rest = cells.text(7);
    read.intensity = cells.integer(8, 0, 10).value_or(0);
    if (!cells.ok() || !group || !set ||
        !firstOf(cells, 3, QStringLiteral("set %1 of %2").arg(*set).arg(group->name()),
                 {1, day, static_cast<int>(*found) * 10 + group->index(), *set})) {
        return false;
    }
    m_groups[{*found, day, group->index()}].at(*set - 1) = read;
    m_history.addName(ExerciseLists::databaseName(*group), read.exercise);
    return true;
}

void TablesReader::finish() {
    for (const auto& [key, sets] : m_groups) {
        const auto& [log, day, index] = key;
        const MuscleGroup group(log == ImportLog::Upper ? BodyRegion::Upper : BodyRegion::Lower, index);
        ImportedDay& imported = m_history.day(log, day);
        const DbRecord props = sets.toRecord(group);
        group.inDatabaseA() ? imported.set(props) : imported.setSecond(props);
    }
    m_groups.clear();
}

bool TablesReader::readAerobic(CellReader& cells, const QDate& day) {
    const std::optional<int> number = cells.integer(1, 1, AerobicSlot::kSlots);
    if (cells.isEmpty(1)) {
        cells.problem(1, QStringLiteral("is not an exercise number"));
    }
    const std::optional<double> distance = cells.number(4, 0, 999.9);
    const std::optional<int> heartRate = cells.integer(5, 0, 999);
    const std::optional<QTime> start = cells.time(6);
    const std::optional<int> elapsed = cells.elapsed(7);
    const std::optional<bool> completed = cells.yesNo(8);
    std::array<std::optional<int>, AerobicSlot::kMinutes> minutes;
    for (int minute = 0; minute < AerobicSlot::kMinutes; ++minute) {
        minutes[static_cast<size_t>(minute)] = cells.integer(10 + minute, 0, 10);
    }
    if (!cells.ok() || !number ||
        !firstOf(cells, 1, QStringLiteral("aerobic exercise %1").arg(*number), {2, day, *number, 0})) {
        return false;
    }
    const AerobicSlot slot = *AerobicSlot::of(*number);
    ImportedDay& imported = m_history.day(ImportLog::Aerobic, day);
    if (!cells.isEmpty(2)) {
        imported.set(DbProp::text(slot.exercise(), cells.text(2)));
        m_history.addName(AerobicLists::kExercises, cells.text(2));
    }
    if (!cells.isEmpty(3)) {
        imported.set(DbProp::text(slot.course(), cells.text(3)));
        m_history.addName(AerobicLists::kCourses, cells.text(3));
    }
    if (distance) {
        imported.set(DbProp::r8(slot.distance(), *distance));
    }
    if (heartRate) {
        imported.set(DbProp::i2(slot.heartRate(), i2(*heartRate)));
    }
    setTimes(imported, start, elapsed, slot.startHour(), slot.startMinute(), slot.elapsedMinutes(),
             slot.elapsedSeconds());
    if (completed) {
        imported.set(DbProp::ui2(slot.completed(), *completed ? 1 : 0));
    }
    imported.set(DbProp::text(slot.notes(), notesOf(cells, 9)));
    for (int minute = 1; minute <= AerobicSlot::kMinutes; ++minute) {
        if (const auto rating = minutes[static_cast<size_t>(minute - 1)]) {
            imported.set(DbProp::i2(slot.minute(minute), i2(*rating)));
        }
    }
    return true;
}

bool TablesReader::readBody(CellReader& cells, const QDate& day) {
    DbRecord props;
    for (const BodyColumn& column : kBodyColumns) {
        if (column.real) {
            if (const auto value = cells.number(column.column, 0, column.high)) {
                props.append(DbProp::r8(column.number, *value));
            }
        } else if (const auto value = cells.integer(column.column, 0, static_cast<int>(column.high))) {
            props.append(DbProp::i2(column.number, i2(*value)));
        }
    }
    const std::pair<int, WORD> ratings[] = {{5, FoodDayValues::kSleepQuality}, {6, FoodDayValues::kOverall}};
    for (const auto& [column, number] : ratings) {
        if (cells.text(column).trimmed().compare(TableCells::kNoChoice, Qt::CaseInsensitive) == 0) {
            props.append(DbProp::i2(number, i2(FoodDayValues::kNoChoice)));
        } else if (const auto rating = cells.integer(column, 0, 10)) {
            props.append(DbProp::i2(number, i2(*rating)));
        }
    }
    props.append(DbProp::text(FoodDayValues::kNotes, notesOf(cells, kBodyNotes)));
    if (!cells.ok() || !firstOf(cells, 0, QStringLiteral("body row"), {3, day, 0, 0})) {
        return false;
    }
    m_history.day(ImportLog::Food, day).set(props);
    return true;
}

bool TablesReader::readMeal(CellReader& cells, const QDate& day) {
    const std::optional<int> number = cells.integer(1, 1, Meal::kSlots);
    if (cells.isEmpty(1)) {
        cells.problem(1, QStringLiteral("is not a meal number"));
    }
    const std::optional<QTime> time = cells.time(2);
    if (cells.isEmpty(2)) {
        cells.problem(2, QStringLiteral("is no time: a meal is recorded by its time"));
    }
    if (!cells.ok() || !number || !time ||
        !firstOf(cells, 1, QStringLiteral("meal %1").arg(*number), {4, day, *number, 0})) {
        return false;
    }
    Meal meal;
    meal.time = *time;
    meal.protein = cells.text(3);
    meal.carbohydrate = cells.text(4);
    meal.vegetable = cells.text(5);
    meal.other = cells.text(6);
    m_history.day(ImportLog::Food, day).set(meal.toRecord(*number - 1));
    const std::pair<FoodKind, QString> items[] = {{FoodKind::Protein, meal.protein},
                                                  {FoodKind::Carbohydrate, meal.carbohydrate},
                                                  {FoodKind::Vegetable, meal.vegetable},
                                                  {FoodKind::Other, meal.other}};
    for (const auto& [kind, item] : items) {
        m_history.addName(FoodLists::databaseName(kind), item);
    }
    return true;
}
