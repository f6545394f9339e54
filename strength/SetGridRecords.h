#pragma once
// The record side of the set-entry grid for one body region: the twelve set slots of a group on a
// day, what is pulled in from earlier days, and saving them. Messages are shown over owner.

#include "GroupSets.h"
#include "PullSettings.h"
#include "StrengthRecords.h"

#include <QDate>

#include <optional>

class RecordDatabase;

class SetGridRecords {
public:
    // The region's A and B database names for the current user.
    SetGridRecords(QString aName, QString bName, QObject* owner = nullptr);

    // The slots of group on day. When the day's record holds none of the group's properties and
    // pullLast is on, the sets of the last earlier day on which the group's first set was recorded
    // (empty rows when there is none). Without a record for the day: "Error accessing database".
    std::optional<GroupSets> open(const QDate& day, const MuscleGroup& group, const PullSettings& settings) const;

    // Row 1's exercise of sets has changed from `replaced`. With pullWeights on, the rows become the
    // sets of the last day before `day` whose row 1 held the same exercise in this group; when there
    // is none and fillIn is on, rows 2 to 5 take the exercise (see GroupSets::fillIn). True when
    // sets changed.
    bool firstExerciseChanged(const QDate& day, const MuscleGroup& group, GroupSets& sets, const QString& replaced,
                              const PullSettings& settings) const;

    // Writes all 60 properties of the group into the day's record ("Record not found" without one).
    bool save(const QDate& day, const MuscleGroup& group, const GroupSets& sets) const;

private:
    // What a search of earlier days found; failed when a record could not be read (already shown).
    struct Search {
        std::optional<GroupSets> found;
        bool failed = false;
    };
    // The last day before `day` whose first set of group holds exercise.
    Search lastLedBy(const QDate& day, const MuscleGroup& group, const QString& exercise) const;
    // Walks from record `from` (current in db) toward earlier days until a record's first set of
    // group holds exercise, or any exercise when that is empty. Reads only the group's properties.
    Search searchFrom(RecordDatabase& db, CEOID from, const MuscleGroup& group, const QString& exercise) const;

    StrengthRecords m_records;
    QObject* m_owner = nullptr;
};
