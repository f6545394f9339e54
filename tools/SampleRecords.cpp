#include "SampleRecords.h"

#include "DayKey.h"
#include "RecordLayouts.h"
#include "SampleVocabulary.h"

namespace {
const QString& pick(const QStringList& items, SeededRandom& random) {
    return items.at(random.between(0, static_cast<int>(items.size()) - 1));
}

// A measurement with one decimal between low and high.
double tenths(SeededRandom& random, int low, int high) {
    return random.between(low * 10, high * 10) / 10.0;
}

std::int16_t small(SeededRandom& random, int low, int high) {
    return static_cast<std::int16_t>(random.between(low, high));
}

void appendAerobicSlot(DbRecord& record, const AerobicLayout::SlotIds& ids, int startHour, SeededRandom& random) {
    record.append(DbProp::text(ids.exercise, pick(SampleVocabulary::aerobicExercises(), random)));
    for (int minute = 0; minute < AerobicLayout::kMinutes; ++minute) {
        record.append(DbProp::i2(static_cast<WORD>(ids.firstMinute + minute), small(random, 3, 10)));
    }
    record.append(DbProp::r8(ids.distance, tenths(random, 1, 15)));
    record.append(DbProp::i2(ids.heartRate, small(random, 110, 175)));
    record.append(DbProp::text(ids.course, pick(SampleVocabulary::courses(), random)));
    record.append(DbProp::i2(ids.startHour, static_cast<std::int16_t>(startHour)));
    record.append(DbProp::i2(ids.startMinute, small(random, 0, 59)));
    record.append(DbProp::i2(ids.elapsedMinutes, small(random, 15, 75)));
    record.append(DbProp::ui2(ids.completed, random.percent(90) ? 1 : 0));
    record.append(DbProp::text(ids.notes, pick(SampleVocabulary::notes(), random)));
    record.append(DbProp::i2(ids.elapsedSeconds, small(random, 0, 59)));
}
} // namespace

DbRecord SampleRecords::strengthA(bool upper, const QDate& day, SeededRandom& random) {
    DbRecord record;
    record.append(DayKey::prop(day));
    record.append(DbProp::i2(StrengthLayout::kStartHour, small(random, 6, 20)));
    record.append(DbProp::i2(StrengthLayout::kStartMinute, small(random, 0, 59)));
    record.append(DbProp::i2(StrengthLayout::kElapsedMinutes, small(random, 35, 110)));
    record.append(DbProp::ui2(StrengthLayout::kCompleted, random.percent(90) ? 1 : 0));
    record.append(DbProp::text(StrengthLayout::kNotes, pick(SampleVocabulary::notes(), random)));
    record.append(DbProp::i2(StrengthLayout::kElapsedSeconds, small(random, 0, 59)));
    for (int group = 0; group < StrengthLayout::kFirstGroupOfB; ++group) {
        appendGroup(record, upper, group, random);
    }
    return record;
}

DbRecord SampleRecords::strengthB(bool upper, const QDate& day, SeededRandom& random, bool lastGroupRests) {
    DbRecord record;
    record.append(DayKey::prop(day));
    // The last group is drawn last, so leaving it out changes nothing of the others.
    const int groups = lastGroupRests ? StrengthLayout::kGroupCount - 1 : StrengthLayout::kGroupCount;
    for (int group = StrengthLayout::kFirstGroupOfB; group < groups; ++group) {
        appendGroup(record, upper, group, random);
    }
    return record;
}

void SampleRecords::appendGroup(DbRecord& record, bool upper, int group, SeededRandom& random) {
    const QStringList& exercises = SampleVocabulary::exercises(upper, group);
    const QStringList& numbers = SampleVocabulary::numbers();
    constexpr int kSetsPerExercise = 3;
    for (int set = 0; set < StrengthLayout::kSetsPerGroup; ++set) {
        const int exercise = set / kSetsPerExercise;
        const WORD base = StrengthLayout::setBase(group, set);
        // Each exercise has its own working weight, in steps of 2.5.
        const int baseSteps = 12 + 6 * ((group * 4 + exercise) % 9);
        const double weight = 2.5 * (baseSteps + random.between(-2, 4));
        record.append(DbProp::text(base + StrengthLayout::kExerciseOffset, exercises.at(exercise)));
        record.append(DbProp::text(base + StrengthLayout::kRepsOffset, numbers.at(random.between(6, 15))));
        record.append(DbProp::r8(base + StrengthLayout::kWeightOffset, weight));
        record.append(DbProp::text(base + StrengthLayout::kRestOffset, numbers.at(random.between(1, 3))));
        record.append(DbProp::i2(base + StrengthLayout::kIntensityOffset, small(random, 5, 10)));
    }
}

DbRecord SampleRecords::food(const QDate& day, SeededRandom& random) {
    using namespace FoodLayout;
    DbRecord record;
    record.append(DayKey::prop(day));
    record.append(DbProp::i2(kWater, small(random, 4, 12)));
    record.append(DbProp::i2(kWeight, small(random, 165, 185)));
    record.append(DbProp::r8(kBodyFat, tenths(random, 12, 20)));
    record.append(DbProp::text(kNotes, pick(SampleVocabulary::notes(), random)));
    record.append(DbProp::r8(kSleep, tenths(random, 5, 9)));
    record.append(DbProp::r8(kWaist, tenths(random, 30, 34)));
    record.append(DbProp::r8(kChest, tenths(random, 40, 46)));
    record.append(DbProp::r8(kBiceps, tenths(random, 14, 17)));
    record.append(DbProp::r8(kQuads, tenths(random, 22, 26)));
    record.append(DbProp::r8(kCalves, tenths(random, 14, 17)));
    record.append(DbProp::i2(kSystolic, small(random, 105, 140)));
    record.append(DbProp::i2(kDiastolic, small(random, 65, 90)));
    record.append(DbProp::i2(kSleepQuality, small(random, 0, 10)));
    record.append(DbProp::i2(kOverall, small(random, 0, 10)));
    record.append(DbProp::i2(kRestingHeartRate, small(random, 50, 75)));
    static constexpr int kMealHours[] = {7, 10, 12, 15, 18, 21};
    int slot = 0;
    for (int hour : kMealHours) {
        const WORD base = mealBase(slot++);
        record.append(DbProp::fileTime(base + kMealTimeOffset, DayKey::referenceTime(hour, random.between(0, 59))));
        record.append(DbProp::text(base + kProteinOffset, pick(SampleVocabulary::proteins(), random)));
        record.append(DbProp::text(base + kCarbOffset, pick(SampleVocabulary::carbohydrates(), random)));
        record.append(DbProp::text(base + kVegOffset, pick(SampleVocabulary::vegetables(), random)));
        record.append(DbProp::text(base + kOtherOffset, pick(SampleVocabulary::supplements(), random)));
    }
    return record;
}

DbRecord SampleRecords::aerobic(const QDate& day, SeededRandom& random) {
    DbRecord record;
    record.append(DayKey::prop(day));
    appendAerobicSlot(record, AerobicLayout::kSlotIds[0], random.between(6, 9), random);
    appendAerobicSlot(record, AerobicLayout::kSlotIds[1], random.between(17, 20), random);
    return record;
}

DbRecord SampleRecords::marker() {
    DbRecord record;
    record.append(DbProp::fileTime(DayKey::kNumber, DayKey::referenceDay()));
    return record;
}
