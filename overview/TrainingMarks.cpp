#include "TrainingMarks.h"

#include "AerobicSlot.h"
#include "DayKey.h"
#include "MuscleGroup.h"
#include "RecordDatabase.h"

#include <algorithm>

namespace {
// The exercise names of the sets of groups first to last (as their type is written).
std::vector<CEPROPID> setNames(int firstGroup, int lastGroup) {
    std::vector<CEPROPID> ids;
    for (int group = firstGroup; group <= lastGroup; ++group) {
        for (int set = 0; set < MuscleGroup::kSets; ++set) {
            const WORD number = static_cast<WORD>(106 + 100 * group + MuscleGroup::kPropsPerSet * set);
            ids.push_back(PROP_TAG(CEVT_LPWSTR, number));
        }
    }
    return ids;
}

// Adds the sets each day's record of the log holds to sets[day]; a log that cannot be opened adds
// nothing.
void countSets(const QString& name, const std::vector<CEPROPID>& wanted, const QDate& first, std::vector<int>& sets) {
    RecordDatabase db;
    if (!db.Open(name, DayKey::kPropId)) {
        return;
    }
    DbRecord record;
    for (size_t i = 0; i < sets.size(); ++i) {
        record.clear();
        if (db.SeekFirstEqual(DayKey::prop(first.addDays(static_cast<qint64>(i)))) == 0 ||
            !db.ReadCurrent(record, wanted)) {
            continue;
        }
        for (const DbProp& prop : record.props()) {
            sets[i] += prop.toText().isEmpty() ? 0 : 1;
        }
    }
}

// The three slots' exercise names: a save writes a slot's thirty properties together, so the name
// is there exactly when the slot holds an exercise, named or not.
std::vector<CEPROPID> aerobicNames() {
    std::vector<CEPROPID> ids;
    for (const AerobicSlot& slot : AerobicSlot::all()) {
        ids.push_back(PROP_TAG(CEVT_LPWSTR, slot.exercise()));
    }
    return ids;
}
} // namespace

std::vector<TrainingMarks::Day> TrainingMarks::read(const Names& names, const QDate& first, int count) {
    std::vector<Day> days(static_cast<size_t>(std::max(0, count)));
    const std::vector<CEPROPID> namesOfA = setNames(0, MuscleGroup::kFirstGroupOfB - 1);
    const std::vector<CEPROPID> namesOfB = setNames(MuscleGroup::kFirstGroupOfB, MuscleGroup::kGroupsPerRegion - 1);
    for (const bool upper : {true, false}) {
        std::vector<int> sets(days.size(), 0);
        countSets(upper ? names.upperA : names.lowerA, namesOfA, first, sets);
        countSets(upper ? names.upperB : names.lowerB, namesOfB, first, sets);
        for (size_t i = 0; i < days.size(); ++i) {
            (upper ? days[i].upperBody : days[i].lowerBody) = sets[i] > 0;
            days[i].sets += sets[i];
        }
    }
    RecordDatabase aerobic;
    if (aerobic.Open(names.aerobic, DayKey::kPropId)) {
        const std::vector<CEPROPID> wanted = aerobicNames();
        DbRecord record;
        for (size_t i = 0; i < days.size(); ++i) {
            record.clear();
            if (aerobic.SeekFirstEqual(DayKey::prop(first.addDays(static_cast<qint64>(i)))) == 0 ||
                !aerobic.ReadCurrent(record, wanted)) {
                continue;
            }
            days[i].aerobic = !record.isEmpty();
        }
    }
    return days;
}
