#include "SetGridRecords.h"

#include "DayKey.h"
#include "RecordDatabase.h"

#include <array>

namespace {
// The ids of the group's 60 properties, typed as a save writes them: a walk back reads only these.
// The numbers depend on the group's index alone, not on its region.
const std::vector<CEPROPID>& groupPropIds(const MuscleGroup& group) {
    static const auto ids = [] {
        std::array<std::vector<CEPROPID>, MuscleGroup::kGroupsPerRegion> all;
        for (const MuscleGroup& each : MuscleGroup::ofRegion(BodyRegion::Upper)) {
            const DbRecord saved = GroupSets().toRecord(each);
            for (const DbProp& prop : saved.props()) {
                all[static_cast<size_t>(each.index())].push_back(prop.id());
            }
        }
        return all;
    }();
    return ids[static_cast<size_t>(group.index())];
}

// Whether record's first set of group qualifies: any recorded exercise, or exactly `exercise`.
bool firstSetMatches(const DbRecord& record, const MuscleGroup& group, const QString& exercise) {
    const DbProp* first = record.find(group.setNumber(0));
    if (first == nullptr || first->type() != CEVT_LPWSTR) {
        return false;
    }
    const QString text = first->toText();
    return exercise.isEmpty() ? !text.isEmpty() : text == exercise;
}
} // namespace

SetGridRecords::SetGridRecords(QString aName, QString bName, QObject* owner)
    : m_records(std::move(aName), std::move(bName), owner), m_owner(owner) {}

std::optional<GroupSets> SetGridRecords::open(const QDate& day, const MuscleGroup& group,
                                              const PullSettings& settings) const {
    RecordDatabase db;
    DbRecord today;
    if (!db.Open(m_records.databaseOf(group), DayKey::kPropId) || db.SeekFirstEqual(DayKey::prop(day)) == 0 ||
        !db.ReadCurrent(today, groupPropIds(group))) {
        StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
        return std::nullopt;
    }
    // A day that already has any of the group's sets is never pulled over.
    if (GroupSets::holdsGroup(today, group) || !settings.pullLast) {
        return GroupSets::fromRecord(today, group);
    }
    // A walk that fails has shown its message; the rows stay empty.
    return searchFrom(db, db.SeekPrevious(), group, QString()).found.value_or(GroupSets());
}

bool SetGridRecords::firstExerciseChanged(const QDate& day, const MuscleGroup& group, GroupSets& sets,
                                          const QString& replaced, const PullSettings& settings) const {
    const QString exercise = sets.at(0).exercise;
    if (!settings.pullWeights || exercise.isEmpty()) {
        return false;
    }
    const Search earlier = lastLedBy(day, group, exercise);
    if (earlier.failed) {
        return false;
    }
    if (earlier.found) {
        sets = *earlier.found;
        return true;
    }
    if (!settings.fillIn) {
        return false;
    }
    const GroupSets before = sets;
    sets.fillIn(exercise, replaced);
    return !(sets == before);
}

bool SetGridRecords::save(const QDate& day, const MuscleGroup& group, const GroupSets& sets) const {
    return m_records.WriteGroup(day, group, sets);
}

SetGridRecords::Search SetGridRecords::lastLedBy(const QDate& day, const MuscleGroup& group,
                                                 const QString& exercise) const {
    RecordDatabase db;
    if (!db.Open(m_records.databaseOf(group), DayKey::kPropId)) {
        StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
        return {std::nullopt, true};
    }
    // From the day's own record when it has one, so that the walk goes record by record from it.
    const DbProp key = DayKey::prop(day);
    const CEOID from = db.SeekFirstEqual(key) != 0 ? db.SeekPrevious() : db.SeekLastSmaller(key);
    return searchFrom(db, from, group, exercise);
}

SetGridRecords::Search SetGridRecords::searchFrom(RecordDatabase& db, CEOID from, const MuscleGroup& group,
                                                  const QString& exercise) const {
    const std::vector<CEPROPID>& wanted = groupPropIds(group);
    DbRecord record;
    for (CEOID oid = from; oid != 0; oid = db.SeekPrevious()) {
        if (!db.ReadCurrent(record, wanted)) {
            StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
            return {std::nullopt, true};
        }
        if (firstSetMatches(record, group, exercise)) {
            return {GroupSets::fromRecord(record, group), false};
        }
    }
    // The walk ends at the first record; any other end is a failure to report.
    if (GetLastError() != ERROR_NO_MORE_ITEMS) {
        StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
        return {std::nullopt, true};
    }
    return {};
}
