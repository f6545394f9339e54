#pragma once
// The twelve set slots of one muscle group on one day, as the set-entry grid edits them.

#include "MuscleGroup.h"
#include "StrengthSet.h"

#include <array>

class GroupSets {
public:
    static constexpr int kRows = MuscleGroup::kSets;
    // FillIn gives the exercise to rows 2 to 5.
    static constexpr int kFillInRows = 5;

    const StrengthSet& at(int row) const { return m_rows[static_cast<size_t>(row)]; }
    StrengthSet& at(int row) { return m_rows[static_cast<size_t>(row)]; }

    // Emptying a row: exercise, reps and rest empty, weight 0, intensity 0.
    void clearAll();
    void clearRow(int row);
    void clearFrom(int row);

    // Rows 2 to 5 take exercise when they are empty or hold `replaced` (the exercise row 1 had
    // before); a row the user gave another exercise keeps it. Reps, weight, rest and intensity stay.
    void fillIn(const QString& exercise, const QString& replaced);

    // The group's rows as stored in record; missing properties read as empty or 0.
    static GroupSets fromRecord(const DbRecord& record, const MuscleGroup& group);
    // True when record holds any of the group's 60 properties.
    static bool holdsGroup(const DbRecord& record, const MuscleGroup& group);
    // All 60 properties of the group, an emptied row written as blanks.
    DbRecord toRecord(const MuscleGroup& group) const;

    friend bool operator==(const GroupSets&, const GroupSets&) = default;

private:
    std::array<StrengthSet, kRows> m_rows;
};
