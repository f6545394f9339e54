#include "DeviceCsvReader.h"

#include "AerobicLists.h"
#include "AerobicSlot.h"
#include "CellReader.h"
#include "CsvLayout.h"
#include "DayKey.h"
#include "ExerciseLists.h"
#include "FoodDayValues.h"
#include "FoodLists.h"
#include "Meal.h"
#include "MuscleGroup.h"
#include "StrengthSet.h"
#include "WorkoutHeader.h"

#include <QRegularExpression>

namespace {
constexpr int kStrengthCells = 185;
constexpr int kAerobicCells = 85;
constexpr int kFoodCells = 91;
// The exported sets: three slots of twelve rows.
constexpr int kSetSlots = 3;

struct FoodColumn {
    WORD number;
    bool real;
};
// The day values in the order of their columns, after the date.
constexpr FoodColumn kFoodColumns[] = {
    {FoodDayValues::kWater, false},  {FoodDayValues::kWeight, false},       {FoodDayValues::kBodyFat, true},
    {FoodDayValues::kNotes, false},  {FoodDayValues::kChest, true},         {FoodDayValues::kBiceps, true},
    {FoodDayValues::kWaist, true},   {FoodDayValues::kQuads, true},         {FoodDayValues::kCalves, true},
    {FoodDayValues::kSleep, true},   {FoodDayValues::kSleepQuality, false}, {FoodDayValues::kSystolic, false},
    {FoodDayValues::kDiastolic, false}, {FoodDayValues::kRestingHeartRate, false}, {FoodDayValues::kOverall, false},
};

ImportLog logOf(DeviceCsvReader::File kind) {
    switch (kind) {
    case DeviceCsvReader::File::UpperA:
    case DeviceCsvReader::File::UpperB:
        return ImportLog::Upper;
    case DeviceCsvReader::File::LowerA:
    case DeviceCsvReader::File::LowerB:
        return ImportLog::Lower;
    case DeviceCsvReader::File::Aerobic:
        return ImportLog::Aerobic;
    case DeviceCsvReader::File::Food:
        return ImportLog::Food;
    }
    return ImportLog::Food;
}

// The first property of exported set n - 1 = 12k + j: 106 + 100k + 5j.
WORD setNumber(int index) {
    return static_cast<WORD>(106 + 100 * (index / MuscleGroup::kSets) + 5 * (index % MuscleGroup::kSets));
}
} // namespace

std::optional<DeviceCsvReader::File> DeviceCsvReader::recognise(const QString& fileName, const QStringList& header) {
    const QString name = fileName.toLower();
    if (header.size() == kStrengthCells && header.at(1) == QStringLiteral("Start Time") &&
        header.at(5) == QStringLiteral("Ex 1")) {
        static const std::pair<const char*, File> strength[] = {{"kovupper.csv", File::UpperA},
                                                                {"kovupper2.csv", File::UpperB},
                                                                {"kovlower.csv", File::LowerA},
                                                                {"kovlower2.csv", File::LowerB}};
        for (const auto& [known, kind] : strength) {
            if (name == QLatin1String(known)) {
                return kind;
            }
        }
        return std::nullopt;
    }
    if (header.size() == kAerobicCells && header.at(4) == QStringLiteral("Exercise")) {
        return File::Aerobic;
    }
    if (header.size() == kFoodCells && header.at(1) == QStringLiteral("Water")) {
        return File::Food;
    }
    return std::nullopt;
}

void DeviceCsvReader::read(File kind, const CsvText& text, const QString& file) {
    carry(kind);
    for (const CsvProblem& problem : text.problems()) {
        m_history.problem(file, problem.line, problem.text);
    }
    const ImportLog log = logOf(kind);
    m_second = kind == File::UpperB || kind == File::LowerB;
    m_region = log == ImportLog::Upper ? BodyRegion::Upper : BodyRegion::Lower;
    for (const CsvRow& row : text.rows()) {
        CellReader cells(row.cells, text.header());
        const std::optional<QDate> day = cells.date(0, CellReader::DateStyle::MonthFirst);
        if (row.cut) {
            m_history.problem(file, row.line,
                              QStringLiteral("has %1 of the header's %2 cells: the line is cut short, or a note holds "
                                             "the separator \",\"")
                                  .arg(row.cells.size())
                                  .arg(text.header().size()));
            if (day) {
                m_history.spoil(log, *day);
            }
            continue;
        }
        m_rowNames.clear();
        if (day) {
            // Read into a day of its own first: a row that cannot be read leaves nothing behind.
            ImportedDay read;
            switch (log) {
            case ImportLog::Upper:
            case ImportLog::Lower:
                readStrength(cells, read, m_second);
                break;
            case ImportLog::Aerobic:
                readAerobic(cells, read);
                break;
            case ImportLog::Food:
                readFood(cells, read);
                break;
            }
            if (cells.ok()) {
                ImportedDay& imported = m_history.day(log, *day);
                for (const auto& [number, prop] : read.first) {
                    m_second ? imported.setSecond(prop) : imported.set(prop);
                }
                for (const auto& [list, name] : m_rowNames) {
                    m_history.addName(list, name);
                }
                continue;
            }
            m_history.spoil(log, *day);
        }
        for (const QString& problem : cells.problems()) {
            m_history.problem(file, row.line, problem);
        }
    }
}

void DeviceCsvReader::carry(File kind) {
    const ImportLog log = logOf(kind);
    switch (log) {
    case ImportLog::Upper:
    case ImportLog::Lower:
        for (WORD number : {WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute, CsvLayout::kStartSecond,
                            WorkoutHeader::kElapsedMinutes, WorkoutHeader::kCompleted, WorkoutHeader::kNotes}) {
            m_history.carry(log, number);
        }
        for (int set = 0; set < kSetSlots * MuscleGroup::kSets; ++set) {
            for (WORD field = 0; field < MuscleGroup::kPropsPerSet; ++field) {
                m_history.carry(log, static_cast<WORD>(setNumber(set) + field));
            }
        }
        break;
    case ImportLog::Aerobic:
        for (const AerobicSlot& slot : AerobicSlot::all()) {
            for (WORD number : slot.numbers()) {
                if (number != slot.elapsedSeconds()) {
                    m_history.carry(log, number);
                }
            }
        }
        m_history.carry(log, CsvLayout::kStartSecond);
        break;
    case ImportLog::Food:
        m_history.carryAll(log);
        break;
    }
}

void DeviceCsvReader::setInteger(CellReader& cells, int column, ImportedDay& day, WORD number, bool flag) {
    if (const auto value = cells.integer(column, -32768, 65535)) {
        day.set(flag ? DbProp::ui2(number, static_cast<WORD>(*value))
                     : DbProp::i2(number, static_cast<std::int16_t>(*value)));
    }
}

void DeviceCsvReader::setReal(CellReader& cells, int column, ImportedDay& day, WORD number) {
    if (const auto value = cells.number(column, -1e300, 1e300)) {
        day.set(DbProp::r8(number, *value));
    }
}

void DeviceCsvReader::setText(CellReader& cells, int column, ImportedDay& day, WORD number) {
    if (!cells.isEmpty(column)) {
        day.set(DbProp::text(number, cells.text(column)));
    }
}

void DeviceCsvReader::setStart(CellReader& cells, int column, ImportedDay& day, WORD hour, WORD minute,
                               WORD second) {
    if (cells.isEmpty(column)) {
        return;
    }
    static const QRegularExpression start(QStringLiteral("^(-?\\d+):(-?\\d+):(-?\\d+)$"));
    const QRegularExpressionMatch match = start.match(cells.text(column));
    if (!match.hasMatch()) {
        cells.problem(column, QStringLiteral("is not a start time (hour:minute:second)"));
        return;
    }
    day.set(DbProp::i2(hour, static_cast<std::int16_t>(match.captured(1).toInt())));
    day.set(DbProp::i2(minute, static_cast<std::int16_t>(match.captured(2).toInt())));
    if (const int seconds = match.captured(3).toInt(); seconds != 0 && second != 0) {
        day.set(DbProp::i2(second, static_cast<std::int16_t>(seconds)));
    }
}

void DeviceCsvReader::readStrength(CellReader& cells, ImportedDay& day, bool b) {
    setStart(cells, 1, day, WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute, CsvLayout::kStartSecond);
    setInteger(cells, 2, day, WorkoutHeader::kElapsedMinutes);
    if (const auto completed = cells.yesNo(3)) {
        day.set(DbProp::ui2(WorkoutHeader::kCompleted, *completed ? 1 : 0));
    }
    setText(cells, 4, day, WorkoutHeader::kNotes);
    for (int set = 0; set < kSetSlots * MuscleGroup::kSets; ++set) {
        const int column = 5 + MuscleGroup::kPropsPerSet * set;
        const WORD first = setNumber(set);
        setText(cells, column, day, first);
        setText(cells, column + 1, day, first + StrengthSet::kRepsOffset);
        setReal(cells, column + 2, day, first + StrengthSet::kWeightOffset);
        setText(cells, column + 3, day, first + StrengthSet::kRestOffset);
        setInteger(cells, column + 4, day, first + StrengthSet::kIntensityOffset);
        // A name joins the list of the group whose numbers it lies at in this file's record.
        const int group = set / MuscleGroup::kSets;
        if ((group < MuscleGroup::kFirstGroupOfB) != b) {
            m_rowNames.push_back({ExerciseLists::databaseName(MuscleGroup(m_region, group)), cells.text(column)});
        }
    }
}

void DeviceCsvReader::readAerobic(CellReader& cells, ImportedDay& day) {
    for (const AerobicSlot& slot : AerobicSlot::all()) {
        const int column = 1 + (slot.number() - 1) * (AerobicSlot::kMinutes + 8);
        // Only the first exercise's start carries seconds: those of the workout header's numbers.
        setStart(cells, column, day, slot.startHour(), slot.startMinute(),
                 slot.number() == 1 ? CsvLayout::kStartSecond : 0);
        setInteger(cells, column + 1, day, slot.elapsedMinutes());
        if (const auto completed = cells.yesNo(column + 2)) {
            day.set(DbProp::ui2(slot.completed(), *completed ? 1 : 0));
        }
        setText(cells, column + 3, day, slot.exercise());
        setText(cells, column + 4, day, slot.course());
        setReal(cells, column + 5, day, slot.distance());
        setInteger(cells, column + 6, day, slot.heartRate());
        setText(cells, column + 7, day, slot.notes());
        for (int minute = 1; minute <= AerobicSlot::kMinutes; ++minute) {
            setInteger(cells, column + 7 + minute, day, slot.minute(minute));
        }
        m_rowNames.push_back({AerobicLists::kExercises, cells.text(column + 3)});
        m_rowNames.push_back({AerobicLists::kCourses, cells.text(column + 4)});
    }
}

void DeviceCsvReader::readFood(CellReader& cells, ImportedDay& day) {
    int column = 1;
    for (const FoodColumn& value : kFoodColumns) {
        if (value.number == FoodDayValues::kNotes) {
            setText(cells, column, day, value.number);
        } else if (value.real) {
            setReal(cells, column, day, value.number);
        } else {
            setInteger(cells, column, day, value.number);
        }
        ++column;
    }
    for (int slot = 0; slot < Meal::kSlots; ++slot, column += 5) {
        if (!cells.isEmpty(column)) {
            static const QRegularExpression clock(QStringLiteral("^(\\d{1,2}):(\\d{1,2})$"));
            const QRegularExpressionMatch match = clock.match(cells.text(column));
            const QTime time(match.captured(1).toInt(), match.captured(2).toInt());
            if (!match.hasMatch() || !time.isValid()) {
                cells.problem(column, QStringLiteral("is not a time of day (hour:minute)"));
            } else {
                day.set(DbProp::fileTime(Meal::timeNumber(slot), DayKey::referenceTime(time.hour(), time.minute())));
            }
        }
        const std::array<WORD, 4> items = {Meal::proteinNumber(slot), Meal::carbohydrateNumber(slot),
                                           Meal::vegetableNumber(slot), Meal::otherNumber(slot)};
        const std::array<FoodKind, 4> kinds = {FoodKind::Protein, FoodKind::Carbohydrate, FoodKind::Vegetable,
                                               FoodKind::Other};
        for (size_t item = 0; item < items.size(); ++item) {
            setText(cells, column + 1 + static_cast<int>(item), day, items[item]);
            m_rowNames.push_back({FoodLists::databaseName(kinds[item]), cells.text(column + 1 + static_cast<int>(item))});
        }
    }
}
