#include "AerobicSlot.h"

std::optional<AerobicSlot> AerobicSlot::of(int number) {
    if (number < 1 || number > kSlots) {
        return std::nullopt;
    }
    return all()[static_cast<size_t>(number - 1)];
}

const std::array<AerobicSlot, AerobicSlot::kSlots>& AerobicSlot::all() {
    // The assignment of the time, flag and notes numbers is the stored layout; it follows no rule.
    static const std::array<AerobicSlot, kSlots> slots = {{
        {1, {701, 102, 103, 104, 105, 1132, 1133}},
        {2, {801, 1136, 1138, 1140, 1144, 1142, 1134}},
        {3, {901, 1137, 1139, 1141, 1145, 1143, 1135}},
    }};
    return slots;
}

std::array<WORD, AerobicSlot::kProps> AerobicSlot::numbers() const {
    std::array<WORD, kProps> numbers{};
    for (int i = 0; i <= kMinutes + 3; ++i) {
        numbers[static_cast<size_t>(i)] = static_cast<WORD>(exercise() + i); // name, minutes, distance, HR, course
    }
    const std::array<WORD, 6> header = {startHour(), startMinute(), elapsedMinutes(),
                                        completed(), notes(),       elapsedSeconds()};
    std::copy(header.begin(), header.end(), numbers.begin() + kMinutes + 4);
    return numbers;
}
