#include "FoodDayValues.h"

namespace {
int wordAt(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? static_cast<WORD>(prop->toInt()) : 0;
}

double doubleAt(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? prop->toDouble() : 0.0;
}

DbProp word(WORD number, int value) {
    // The low 16 bits, so that -1 and 65535 both store the all-ones value.
    return DbProp::i2(number, static_cast<std::int16_t>(static_cast<WORD>(value)));
}
} // namespace

FoodDayValues FoodDayValues::fromRecord(const DbRecord& record) {
    FoodDayValues values;
    const DbProp* notes = record.find(kNotes);
    values.notes = notes != nullptr ? notes->toText() : kNotesPlaceholder;
    values.water = wordAt(record, kWater);
    values.weight = wordAt(record, kWeight);
    values.bodyFat = doubleAt(record, kBodyFat);
    values.sleep = doubleAt(record, kSleep);
    values.waist = doubleAt(record, kWaist);
    values.chest = doubleAt(record, kChest);
    values.biceps = doubleAt(record, kBiceps);
    values.quads = doubleAt(record, kQuads);
    values.calves = doubleAt(record, kCalves);
    values.overall = wordAt(record, kOverall);
    values.systolic = wordAt(record, kSystolic);
    values.diastolic = wordAt(record, kDiastolic);
    values.restingHeartRate = wordAt(record, kRestingHeartRate);
    values.sleepQuality = record.find(kOverall) != nullptr ? wordAt(record, kSleepQuality) : 0;
    return values;
}

DbRecord FoodDayValues::toRecord() const {
    DbRecord record;
    record.append(word(kWater, water));
    record.append(word(kWeight, weight));
    record.append(DbProp::r8(kBodyFat, bodyFat));
    record.append(DbProp::text(kNotes, notes));
    record.append(DbProp::r8(kSleep, sleep));
    record.append(DbProp::r8(kWaist, waist));
    record.append(DbProp::r8(kChest, chest));
    record.append(DbProp::r8(kBiceps, biceps));
    record.append(DbProp::r8(kQuads, quads));
    record.append(DbProp::r8(kCalves, calves));
    record.append(word(kSystolic, systolic));
    record.append(word(kDiastolic, diastolic));
    record.append(word(kSleepQuality, sleepQuality));
    record.append(word(kOverall, overall));
    record.append(word(kRestingHeartRate, restingHeartRate));
    return record;
}
