#include "ForeignExports.h"

#include "AerobicLists.h"
#include "AerobicSlot.h"
#include "CellReader.h"
#include "ExerciseLists.h"
#include "FoodDayValues.h"
#include "NotesPlaceholder.h"
#include "WorkoutHeader.h"

#include <QRegularExpression>

#include <cmath>

namespace {
constexpr int kMaxWeight = 999;
constexpr int kDaySeconds = 24 * 60 * 60;

int columnOf(const QStringList& header, std::initializer_list<const char*> names) {
    for (const char* name : names) {
        for (qsizetype i = 0; i < header.size(); ++i) {
            if (header.at(i).trimmed().compare(QLatin1String(name), Qt::CaseInsensitive) == 0) {
                return static_cast<int>(i);
            }
        }
    }
    return -1;
}

// "1h 2m", "55m", "45m 30s": a duration as Strong writes it.
std::optional<int> durationSeconds(const QString& text) {
    static const QRegularExpression part(QStringLiteral("(\\d+)\\s*([hms])"));
    int seconds = 0;
    bool any = false;
    for (auto it = part.globalMatch(text.toLower()); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const int value = match.captured(1).toInt();
        seconds += match.captured(2) == QStringLiteral("h") ? value * 3600
                   : match.captured(2) == QStringLiteral("m") ? value * 60
                                                              : value;
        any = true;
    }
    return any ? std::optional<int>(seconds) : std::nullopt;
}

// A date with its time of day, as the programs write them: ISO with or without seconds, "4 Mar 2024,
// 08:15", or a date alone.
std::optional<QDateTime> dateTimeOf(const QString& text) {
    const QString cell = text.trimmed();
    std::optional<QDate> day = CellReader::parseDate(cell, CellReader::DateStyle::Iso);
    if (!day) {
        day = CellReader::parseDate(cell, CellReader::DateStyle::DayMonth);
    }
    if (!day) {
        return std::nullopt;
    }
    const qsizetype split = cell.indexOf(QRegularExpression(QStringLiteral("[ ,T]\\s*\\d{1,2}:")));
    if (split < 0) {
        return QDateTime(*day, QTime());
    }
    const std::optional<QTime> time = CellReader::parseTime(cell.mid(split + 1));
    return time ? std::optional<QDateTime>(QDateTime(*day, *time)) : std::nullopt;
}

double numberOr(const CellReader& cells, int column, double fallback) {
    bool ok = false;
    const double value = cells.text(column).trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? value : fallback;
}
} // namespace

struct ForeignExports::Columns {
    int date = -1, end = -1, duration = -1, workoutNotes = -1, workoutName = -1;
    int exercise = -1, category = -1, weight = -1, reps = -1, rpe = -1, distance = -1, seconds = -1, note = -1;
    int fat = -1, waist = -1, chest = -1, thigh = -1, biceps = -1;

    Columns(Program program, const QStringList& h) {
        switch (program) {
        case Program::FitNotes:
            date = columnOf(h, {"Date"});
            exercise = columnOf(h, {"Exercise"});
            category = columnOf(h, {"Category"});
            weight = columnOf(h, {"Weight (kgs)", "Weight (lbs)", "Weight"});
            reps = columnOf(h, {"Reps"});
            distance = columnOf(h, {"Distance"});
            seconds = columnOf(h, {"Time"});
            note = columnOf(h, {"Comment"});
            break;
        case Program::Strong:
            date = columnOf(h, {"Date"});
            workoutName = columnOf(h, {"Workout Name"});
            duration = columnOf(h, {"Duration", "Workout Duration"});
            exercise = columnOf(h, {"Exercise Name"});
            weight = columnOf(h, {"Weight"});
            reps = columnOf(h, {"Reps"});
            rpe = columnOf(h, {"RPE"});
            distance = columnOf(h, {"Distance"});
            seconds = columnOf(h, {"Seconds"});
            note = columnOf(h, {"Notes"});
            workoutNotes = columnOf(h, {"Workout Notes"});
            break;
        case Program::Hevy:
            date = columnOf(h, {"start_time"});
            end = columnOf(h, {"end_time"});
            workoutName = columnOf(h, {"title"});
            workoutNotes = columnOf(h, {"description"});
            exercise = columnOf(h, {"exercise_title"});
            weight = columnOf(h, {"weight_kg", "weight_lbs"});
            reps = columnOf(h, {"reps"});
            rpe = columnOf(h, {"rpe"});
            distance = columnOf(h, {"distance_km", "distance_miles"});
            seconds = columnOf(h, {"duration_seconds"});
            note = columnOf(h, {"exercise_notes"});
            break;
        case Program::OpenScale:
            date = columnOf(h, {"dateTime"});
            weight = columnOf(h, {"weight"});
            fat = columnOf(h, {"fat"});
            waist = columnOf(h, {"waist"});
            chest = columnOf(h, {"chest"});
            thigh = columnOf(h, {"thigh"});
            biceps = columnOf(h, {"biceps"});
            note = columnOf(h, {"comment"});
            break;
        }
    }
};

std::optional<ForeignExports::Program> ForeignExports::recognise(const QStringList& h) {
    auto has = [&h](std::initializer_list<const char*> names) {
        return std::all_of(names.begin(), names.end(), [&h](const char* name) { return columnOf(h, {name}) >= 0; });
    };
    if (has({"Date", "Exercise", "Category", "Reps"}) && columnOf(h, {"Weight (kgs)", "Weight (lbs)"}) >= 0) {
        return Program::FitNotes;
    }
    if (has({"Date", "Workout Name", "Exercise Name", "Set Order", "Weight", "Reps"})) {
        return Program::Strong;
    }
    if (has({"title", "start_time", "end_time", "exercise_title", "reps"})) {
        return Program::Hevy;
    }
    if (has({"dateTime", "weight"})) {
        return Program::OpenScale;
    }
    return std::nullopt;
}

QString ForeignExports::programName(Program program) {
    switch (program) {
    case Program::FitNotes:
        return QStringLiteral("FitNotes");
    case Program::Strong:
        return QStringLiteral("Strong");
    case Program::Hevy:
        return QStringLiteral("Hevy");
    case Program::OpenScale:
        return QStringLiteral("openScale");
    }
    return {};
}

void ForeignExports::carry(Program program) {
    if (program == Program::OpenScale) {
        for (WORD number : {FoodDayValues::kWeight, FoodDayValues::kBodyFat, FoodDayValues::kWaist, FoodDayValues::kChest,
                            FoodDayValues::kBiceps, FoodDayValues::kQuads}) {
            m_history.carry(ImportLog::Food, number);
        }
        return;
    }
    // A workout program's day is its whole workout: header and sets, and the aerobic exercises.
    for (ImportLog log : {ImportLog::Upper, ImportLog::Lower}) {
        for (WORD number : {WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute, WorkoutHeader::kElapsedMinutes,
                            WorkoutHeader::kCompleted, WorkoutHeader::kNotes, WorkoutHeader::kElapsedSeconds}) {
            m_history.carry(log, number);
        }
        for (int group = 0; group < MuscleGroup::kGroupsPerRegion; ++group) {
            for (int i = 0; i < MuscleGroup::kPropsPerGroup; ++i) {
                m_history.carry(log, static_cast<WORD>(MuscleGroup(BodyRegion::Upper, group).firstNumber() + i));
            }
        }
    }
    for (const AerobicSlot& slot : AerobicSlot::all()) {
        for (WORD number : slot.numbers()) {
            m_history.carry(ImportLog::Aerobic, number);
        }
    }
}

void ForeignExports::read(Program program, const CsvText& text, const QString& file) {
    carry(program);
    if (!m_groups) {
        m_groups.emplace();
    }
    for (const CsvProblem& problem : text.problems()) {
        m_history.problem(file, problem.line, problem.text);
    }
    const Columns columns(program, text.header());
    for (const CsvRow& line : text.rows()) {
        CellReader cells(line.cells, text.header());
        const std::optional<QDateTime> when = dateTimeOf(cells.text(columns.date));
        if (!when) {
            cells.problem(columns.date, QStringLiteral("is not a date and time that Kovalin can read"));
        } else if (program == Program::OpenScale) {
            takeWeighing(columns, cells, *when);
        } else if (const std::optional<Row> row = readRow(program, columns, cells)) {
            Row taken = *row;
            taken.day = when->date();
            taken.start = when->time().isValid() && program != Program::FitNotes ? std::optional<QTime>(when->time())
                                                                                  : std::nullopt;
            if (program == Program::Hevy) {
                if (const std::optional<QDateTime> end = dateTimeOf(cells.text(columns.end))) {
                    taken.workoutSeconds = static_cast<int>(when->secsTo(*end));
                }
            }
            taken.cardio ? takeCardio(taken, cells) : takeSet(taken, cells);
        }
        for (const QString& problem : cells.problems()) {
            m_history.problem(file, line.line, problem);
        }
    }
    finish();
}

std::optional<ForeignExports::Row> ForeignExports::readRow(Program program, const Columns& columns, CellReader& cells) {
    Row row;
    row.exercise = cells.text(columns.exercise).trimmed();
    row.category = cells.text(columns.category).trimmed();
    row.weight = columns.weight;
    row.reps = columns.reps;
    row.rpe = columns.rpe;
    row.distance = columns.distance;
    row.seconds = columns.seconds;
    row.note = columns.note;
    row.workoutNotes = cells.text(columns.workoutNotes).trimmed();
    if (columns.duration >= 0) {
        row.workoutSeconds = durationSeconds(cells.text(columns.duration));
    }
    if (row.exercise.isEmpty()) {
        cells.problem(columns.exercise, QStringLiteral("names no exercise"));
        return std::nullopt;
    }
    const bool moved = numberOr(cells, columns.distance, 0) > 0 || numberOr(cells, columns.seconds, 0) > 0 ||
                       CellReader::parseTime(cells.text(columns.seconds)).has_value();
    const bool lifted = numberOr(cells, columns.weight, 0) > 0 || numberOr(cells, columns.reps, 0) > 0;
    if (program == Program::FitNotes) {
        row.cardio = row.category.compare(QStringLiteral("Cardio"), Qt::CaseInsensitive) == 0;
    } else {
        row.cardio = moved && !lifted;
    }
    return row;
}

void ForeignExports::takeSet(const Row& row, CellReader& cells) {
    const std::optional<double> weight = cells.number(row.weight, 0, kMaxWeight);
    const std::optional<double> reps = cells.number(row.reps, 0, 9999);
    if (!cells.ok()) {
        return;
    }
    const MuscleGroup group = m_groups->groupOf(row.exercise, row.category);
    const ImportLog log = group.region() == BodyRegion::Upper ? ImportLog::Upper : ImportLog::Lower;
    auto& [sets, count] = m_sets[{log, row.day, group.index()}];
    if (count == MuscleGroup::kSets) {
        cells.problem(row.reps, QStringLiteral("is the 13th or a later set of %1 on %2: left out")
                                    .arg(group.name(), row.day.toString(Qt::ISODate)));
        return;
    }
    StrengthSet& set = sets.at(count++);
    set.exercise = row.exercise;
    set.reps = reps ? QString::number(std::lround(*reps)) : QString();
    set.weight = weight.value_or(0.0);
    const long rpe = std::lround(numberOr(cells, row.rpe, 0));
    set.intensity = rpe >= 0 && rpe <= 10 ? static_cast<int>(rpe) : 0;
    m_history.addName(ExerciseLists::databaseName(group), row.exercise);
    takeHeader(row, group, cells.text(row.note).trimmed());
}

void ForeignExports::takeHeader(const Row& row, const MuscleGroup& group, const QString& setNote) {
    const ImportLog log = group.region() == BodyRegion::Upper ? ImportLog::Upper : ImportLog::Lower;
    ImportedDay& day = m_history.day(log, row.day);
    QStringList& notes = m_notes[{log, row.day}];
    // The day's first workout gives the start and the elapsed time.
    if (day.first.count(WorkoutHeader::kCompleted) == 0) {
        day.set(DbProp::ui2(WorkoutHeader::kCompleted, 1));
        if (row.start) {
            day.set(DbProp::i2(WorkoutHeader::kStartHour, static_cast<std::int16_t>(row.start->hour())));
            day.set(DbProp::i2(WorkoutHeader::kStartMinute, static_cast<std::int16_t>(row.start->minute())));
        }
        if (row.workoutSeconds && *row.workoutSeconds >= 0 && *row.workoutSeconds < kDaySeconds) {
            day.set(DbProp::i2(WorkoutHeader::kElapsedMinutes, static_cast<std::int16_t>(*row.workoutSeconds / 60)));
            day.set(DbProp::i2(WorkoutHeader::kElapsedSeconds, static_cast<std::int16_t>(*row.workoutSeconds % 60)));
        }
    }
    if (!row.workoutNotes.isEmpty() && !notes.contains(row.workoutNotes)) {
        notes << row.workoutNotes;
    }
    if (!setNote.isEmpty()) {
        notes << QStringLiteral("%1: %2").arg(row.exercise, setNote);
    }
}

void ForeignExports::takeCardio(const Row& row, CellReader& cells) {
    const std::optional<double> distance = cells.number(row.distance, 0, 999.9);
    std::optional<int> seconds;
    if (!cells.isEmpty(row.seconds)) {
        const std::optional<QTime> clock = CellReader::parseTime(cells.text(row.seconds));
        seconds = clock ? std::optional<int>(clock.value().msecsSinceStartOfDay() / 1000)
                        : cells.integer(row.seconds, 0, kDaySeconds - 1);
    }
    if (!cells.ok()) {
        return;
    }
    int& count = m_cardio[row.day];
    if (count == AerobicSlot::kSlots) {
        cells.problem(row.distance, QStringLiteral("is the 4th or a later aerobic exercise on %1: left out")
                                        .arg(row.day.toString(Qt::ISODate)));
        return;
    }
    const AerobicSlot slot = AerobicSlot::all()[static_cast<size_t>(count++)];
    ImportedDay& day = m_history.day(ImportLog::Aerobic, row.day);
    day.set(DbProp::text(slot.exercise(), row.exercise));
    if (distance) {
        day.set(DbProp::r8(slot.distance(), *distance));
    }
    if (seconds) {
        day.set(DbProp::i2(slot.elapsedMinutes(), static_cast<std::int16_t>(*seconds / 60)));
        day.set(DbProp::i2(slot.elapsedSeconds(), static_cast<std::int16_t>(*seconds % 60)));
    }
    if (row.start) {
        day.set(DbProp::i2(slot.startHour(), static_cast<std::int16_t>(row.start->hour())));
        day.set(DbProp::i2(slot.startMinute(), static_cast<std::int16_t>(row.start->minute())));
    }
    const QString note = cells.text(row.note).trimmed();
    day.set(DbProp::text(slot.notes(), note.isEmpty() ? kNotesPlaceholder : note));
    m_history.addName(AerobicLists::kExercises, row.exercise);
}

void ForeignExports::takeWeighing(const Columns& columns, CellReader& cells, const QDateTime& when) {
    const std::optional<double> weight = cells.number(columns.weight, 0, kMaxWeight);
    const std::optional<double> fat = cells.number(columns.fat, 0, 102.4);
    std::array<std::pair<int, WORD>, 4> measures = {{{columns.waist, FoodDayValues::kWaist},
                                                     {columns.chest, FoodDayValues::kChest},
                                                     {columns.biceps, FoodDayValues::kBiceps},
                                                     {columns.thigh, FoodDayValues::kQuads}}};
    std::array<std::optional<double>, 4> values;
    for (size_t i = 0; i < measures.size(); ++i) {
        values[i] = cells.number(measures[i].first, 0, 999.9);
    }
    QDateTime& last = m_weighed[when.date()];
    if (!cells.ok() || (last.isValid() && when < last)) {
        return;
    }
    last = when;
    // Of several weighings on a day the last counts, whole: its zeros are not measured.
    ImportedDay& day = m_history.day(ImportLog::Food, when.date());
    day.first.clear();
    if (weight && std::lround(*weight) != 0) {
        day.set(DbProp::i2(FoodDayValues::kWeight, static_cast<std::int16_t>(std::lround(*weight))));
    }
    if (fat && *fat != 0) {
        day.set(DbProp::r8(FoodDayValues::kBodyFat, *fat));
    }
    for (size_t i = 0; i < measures.size(); ++i) {
        if (values[i] && *values[i] != 0) {
            day.set(DbProp::r8(measures[i].second, *values[i]));
        }
    }
    const QString comment = cells.text(columns.note).trimmed();
    if (!comment.isEmpty()) {
        day.set(DbProp::text(FoodDayValues::kNotes, comment));
    }
}

void ForeignExports::finish() {
    for (const auto& [key, sets] : m_sets) {
        const auto& [log, day, index] = key;
        const MuscleGroup group(log == ImportLog::Upper ? BodyRegion::Upper : BodyRegion::Lower, index);
        const DbRecord props = sets.first.toRecord(group);
        ImportedDay& imported = m_history.day(log, day);
        group.inDatabaseA() ? imported.set(props) : imported.setSecond(props);
    }
    for (const auto& [key, notes] : m_notes) {
        m_history.day(key.first, key.second)
            .set(DbProp::text(WorkoutHeader::kNotes,
                              notes.isEmpty() ? kNotesPlaceholder : notes.join(QStringLiteral("; "))));
    }
    m_sets.clear();
    m_notes.clear();
}
