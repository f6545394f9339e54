#include "AerobicDay.h"

AerobicDay::AerobicDay(const QDate& day, const DbRecord& record) {
    for (const AerobicSlot& slot : AerobicSlot::all()) {
        m_exercises[static_cast<size_t>(slot.number() - 1)] = AerobicExercise::fromRecord(day, record, slot);
    }
}

int AerobicDay::exerciseCount() const {
    for (int number = AerobicSlot::kSlots; number > 1; --number) {
        if (m_exercises[static_cast<size_t>(number - 1)]) {
            return number;
        }
    }
    return 1;
}

std::optional<AerobicExercise> AerobicDay::exercise(int number) const {
    if (number < 1 || number > AerobicSlot::kSlots) {
        return std::nullopt;
    }
    return m_exercises[static_cast<size_t>(number - 1)];
}
