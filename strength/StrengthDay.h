#pragma once
// One day's workout of a body region as read from its A and B records: the header, the recorded
// sets in property order, and the six group counters that turn a row of the day's list into a group.

#include "MuscleGroup.h"
#include "StrengthSet.h"
#include "WorkoutHeader.h"

#include <array>
#include <optional>
#include <vector>

class StrengthDay {
public:
    // A recorded set and the property number of its exercise.
    struct ListedSet {
        WORD number = 0;
        StrengthSet set;
    };

    // The slots read: every fifth number from 106 to 661 (112 slots), taken from the A record
    // below 306 and from the B record from there on; without a B record the reading stops at 306.
    static constexpr WORD kFirstSlot = 106;
    static constexpr WORD kLastSlot = 661;

    StrengthDay() = default;
    StrengthDay(const QDate& day, const DbRecord& a, const DbRecord* b);

    const WorkoutHeader& header() const { return m_header; }
    const std::vector<ListedSet>& sets() const { return m_sets; }
    int groupCount(int group) const { return m_counts[static_cast<size_t>(group)]; }
    // The group of list row (0-based): the first g with row + 1 <= count(0) + ... + count(g);
    // std::nullopt for a row past them all.
    std::optional<int> groupOfRow(int row) const;
    // "1=%d,2=%d,3=%d,4=%d,5=%d,6=%d" filled with the six counters.
    QString countsText() const;

private:
    void addSlot(WORD number, const StrengthSet& set);

    WorkoutHeader m_header;
    std::vector<ListedSet> m_sets;
    std::array<int, MuscleGroup::kGroupsPerRegion> m_counts{};
};
