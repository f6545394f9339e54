#include "StrengthDay.h"

StrengthDay::StrengthDay(const QDate& day, const DbRecord& a, const DbRecord* b)
    : m_header(WorkoutHeader::fromRecord(day, a)) {
    constexpr int kSlotsOfA = (MuscleGroup::kFirstNumberOfB - kFirstSlot) / MuscleGroup::kPropsPerSet;
    constexpr int kSlots = (kLastSlot - kFirstSlot) / MuscleGroup::kPropsPerSet + 1;
    std::array<StrengthSet, kSlots> slotSets;
    const std::span<StrengthSet> all(slotSets);
    StrengthSet::readSets(a, kFirstSlot, all.first(kSlotsOfA));
    if (b != nullptr) {
        StrengthSet::readSets(*b, MuscleGroup::kFirstNumberOfB, all.subspan(kSlotsOfA));
    }
    // A slot holds a set when its exercise is a non-empty text (any other type reads as empty).
    for (int slot = 0; slot < kSlots; ++slot) {
        if (slotSets[static_cast<size_t>(slot)].isRecorded()) {
            addSlot(static_cast<WORD>(kFirstSlot + MuscleGroup::kPropsPerSet * slot),
                    slotSets[static_cast<size_t>(slot)]);
        }
    }
}

void StrengthDay::addSlot(WORD number, const StrengthSet& set) {
    m_sets.push_back({number, set});
    // These overlapping ranges are the day list's long-standing counting rule; with at most twelve
    // sets per group (numbers up to 161 + 100g) each slot falls in exactly one of them.
    const int i = number;
    m_counts[0] += i < 206 ? 1 : 0;
    m_counts[1] += 161 < i && i < 306 ? 1 : 0;
    m_counts[2] += 261 < i && i < 406 ? 1 : 0;
    m_counts[3] += 361 < i && i < 506 ? 1 : 0;
    m_counts[4] += 461 < i && i < 606 ? 1 : 0;
    m_counts[5] += i > 561 ? 1 : 0;
}

std::optional<int> StrengthDay::groupOfRow(int row) const {
    if (row < 0) {
        return std::nullopt;
    }
    int total = 0;
    for (int group = 0; group < MuscleGroup::kGroupsPerRegion; ++group) {
        total += groupCount(group);
        if (row + 1 <= total) {
            return group;
        }
    }
    return std::nullopt;
}

QString StrengthDay::countsText() const {
    return QString::asprintf("1=%d,2=%d,3=%d,4=%d,5=%d,6=%d", m_counts[0], m_counts[1], m_counts[2], m_counts[3],
                             m_counts[4], m_counts[5]);
}
