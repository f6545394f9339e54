#pragma once
// A day's aerobic record as the aerobic page reads it: the exercises its three slots hold and how
// many exercises the day has.

#include "AerobicExercise.h"

#include <array>
#include <optional>

class AerobicDay {
public:
    AerobicDay() = default;
    AerobicDay(const QDate& day, const DbRecord& record);

    // 1, 2 or 3: the highest slot that holds any of its properties, and at least 1 (a day's first
    // exercise is shown, empty, before it is first saved). A slot below it may be empty.
    int exerciseCount() const;
    // The exercise in slot number (1-3); std::nullopt when the slot holds nothing or number is out
    // of range.
    std::optional<AerobicExercise> exercise(int number) const;

private:
    std::array<std::optional<AerobicExercise>, AerobicSlot::kSlots> m_exercises;
};
