#include "CsvLayout.h"

#include "AerobicSlot.h"
#include "CsvCells.h"
#include "DayKey.h"
#include "FoodDayValues.h"
#include "Meal.h"
#include "MuscleGroup.h"
#include "StrengthSet.h"
#include "WorkoutHeader.h"

#include <array>

namespace {
// The exported sets: three slots of twelve rows, at the numbers of the first three muscle groups.
constexpr int kSetSlots = 3;

struct FoodColumn {
    const char* header;
    WORD number;
};
// The day values in the order of their columns.
constexpr std::array<FoodColumn, 15> kFoodColumns = {{
    {"Water", FoodDayValues::kWater},
    {"Weight", FoodDayValues::kWeight},
    {"Body Fat", FoodDayValues::kBodyFat},
    {"Notes", FoodDayValues::kNotes},
    {"Chest", FoodDayValues::kChest},
    {"Biceps", FoodDayValues::kBiceps},
    {"Waist", FoodDayValues::kWaist},
    {"Quads", FoodDayValues::kQuads},
    {"Calves", FoodDayValues::kCalves},
    {"Sleep", FoodDayValues::kSleep},
    {"Sleep Quality", FoodDayValues::kSleepQuality},
    {"Systolid", FoodDayValues::kSystolic}, // spelt so in every file ever written
    {"Diastolic", FoodDayValues::kDiastolic},
    {"Rest HR", FoodDayValues::kRestingHeartRate},
    {"Overall", FoodDayValues::kOverall},
}};

void addDate(const DbRecord& record, CsvFile& file) {
    file.addCell(CsvCells::value(CsvCells::find(record, DayKey::kNumber)));
}

void addValue(const DbRecord& record, WORD number, CsvFile& file) {
    file.addCell(CsvCells::value(CsvCells::find(record, number)));
}
} // namespace

void CsvLayout::addHeader(Log log, CsvFile& file) {
    file.addCell(QStringLiteral("Date"));
    switch (log) {
    case Log::Strength:
        for (const char* cell : {"Start Time", "Elapsed Time", "Completed", "Notes"}) {
            file.addCell(QLatin1String(cell));
        }
        for (int n = 1; n <= kSetSlots * MuscleGroup::kSets; ++n) {
            for (const char* cell : {"Ex %1", "Reps %1", "Weight %1", "Rest %1", "Intensity %1"}) {
                file.addCell(QString::fromLatin1(cell).arg(n));
            }
        }
        break;
    case Log::Aerobic:
        for (const AerobicSlot& slot : AerobicSlot::all()) {
            file.addCell(slot.number() == 1 ? QStringLiteral("Start Time")
                                            : QStringLiteral("Exercise %1 - Start Time").arg(slot.number()));
            for (const char* cell :
                 {"Elapsed Time", "Completed", "Exercise", "Course", "Distance", "Heart Rate", "Notes"}) {
                file.addCell(QLatin1String(cell));
            }
            for (int minute = 1; minute <= AerobicSlot::kMinutes; ++minute) {
                file.addCell(QStringLiteral("Min %1").arg(minute));
            }
        }
        break;
    case Log::Food:
        for (const FoodColumn& column : kFoodColumns) {
            file.addCell(QLatin1String(column.header));
        }
        for (int meal = 1; meal <= Meal::kSlots; ++meal) {
            for (const char* cell : {"Meal %1 Time", "Meal %1 Pro", "Meal %1 Carb", "Meal %1 Veg", "Meal %1 Suppl"}) {
                file.addCell(QString::fromLatin1(cell).arg(meal));
            }
        }
        break;
    }
}

void CsvLayout::addLine(Log log, const DbRecord& record, CsvFile& file) {
    switch (log) {
    case Log::Strength:
        addStrengthLine(record, file);
        break;
    case Log::Aerobic:
        addAerobicLine(record, file);
        break;
    case Log::Food:
        addFoodLine(record, file);
        break;
    }
}

void CsvLayout::addStrengthLine(const DbRecord& record, CsvFile& file) {
    addDate(record, file);
    file.addCell(CsvCells::startTime(record, WorkoutHeader::kStartHour, WorkoutHeader::kStartMinute, kStartSecond));
    addValue(record, WorkoutHeader::kElapsedMinutes, file);
    file.addCell(CsvCells::yesNo(CsvCells::find(record, WorkoutHeader::kCompleted)));
    addValue(record, WorkoutHeader::kNotes, file);
    for (int slot = 0; slot < kSetSlots; ++slot) {
        const MuscleGroup group(BodyRegion::Upper, slot);
        for (int row = 0; row < MuscleGroup::kSets; ++row) {
            const WORD first = group.setNumber(row);
            addValue(record, first, file);
            for (WORD offset : {StrengthSet::kRepsOffset, StrengthSet::kWeightOffset, StrengthSet::kRestOffset,
                                StrengthSet::kIntensityOffset}) {
                addValue(record, static_cast<WORD>(first + offset), file);
            }
        }
    }
}

void CsvLayout::addAerobicLine(const DbRecord& record, CsvFile& file) {
    addDate(record, file);
    for (const AerobicSlot& slot : AerobicSlot::all()) {
        // Only the first exercise shares the workout header's numbers, the start's seconds with them.
        const WORD second = slot.number() == 1 ? kStartSecond : 0;
        file.addCell(CsvCells::startTime(record, slot.startHour(), slot.startMinute(), second));
        addValue(record, slot.elapsedMinutes(), file);
        file.addCell(CsvCells::yesNo(CsvCells::find(record, slot.completed())));
        addValue(record, slot.exercise(), file);
        addValue(record, slot.course(), file);
        addValue(record, slot.distance(), file);
        addValue(record, slot.heartRate(), file);
        addValue(record, slot.notes(), file);
        for (int minute = 1; minute <= AerobicSlot::kMinutes; ++minute) {
            addValue(record, slot.minute(minute), file);
        }
    }
}

void CsvLayout::addFoodLine(const DbRecord& record, CsvFile& file) {
    addDate(record, file);
    for (const FoodColumn& column : kFoodColumns) {
        addValue(record, column.number, file);
    }
    for (int meal = 0; meal < Meal::kSlots; ++meal) {
        file.addCell(CsvCells::timeOfDay(CsvCells::find(record, Meal::timeNumber(meal))));
        for (WORD number : {Meal::proteinNumber(meal), Meal::carbohydrateNumber(meal), Meal::vegetableNumber(meal),
                            Meal::otherNumber(meal)}) {
            addValue(record, number, file);
        }
    }
}
