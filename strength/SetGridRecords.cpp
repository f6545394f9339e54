#include "SetGridRecords.h"

#include "DayCursor.h"

namespace {
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
    DayCursor cursor;
    DbRecord today;
    if (!cursor.open(m_records.databaseOf(group)) || cursor.seekDay(day) == 0 || !cursor.read(today)) {
        StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
        return std::nullopt;
    }
    // A day that already has any of the group's sets is never pulled over.
    if (GroupSets::holdsGroup(today, group) || !settings.pullLast) {
        return GroupSets::fromRecord(today, group);
    }
    return searchFrom(cursor, cursor.previous(), group, QString()).found.value_or(GroupSets());
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
    DayCursor cursor;
    if (!cursor.open(m_records.databaseOf(group))) {
        StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
        return {std::nullopt, true};
    }
    // From the day's own record when it has one, so that the walk goes record by record from it.
    const CEOID from = cursor.seekDay(day) != 0 ? cursor.previous() : cursor.seekBefore(day);
    return searchFrom(cursor, from, group, exercise);
}

SetGridRecords::Search SetGridRecords::searchFrom(DayCursor& cursor, CEOID from, const MuscleGroup& group,
                                                  const QString& exercise) const {
    DbRecord record;
    for (CEOID oid = from; oid != 0; oid = cursor.previous()) {
        if (!cursor.read(record)) {
            StrengthRecords::report(m_owner, StrengthRecords::kErrorAccessingDatabase);
            return {std::nullopt, true};
        }
        if (firstSetMatches(record, group, exercise)) {
            return {GroupSets::fromRecord(record, group), false};
        }
    }
    return {};
}
