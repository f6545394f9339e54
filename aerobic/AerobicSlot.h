#pragma once
// The property numbers of one of the three exercise slots of a day's aerobic record. The name,
// the twenty minutes, distance, heart rate and course of slot s lie at 701, 801, 901 onwards; the
// time, flag and notes fields of slot 1 are the workout header's numbers, and those of slots 2 and 3
// interleave from 1134 (slot 2 on the even numbers, slot 3 on the odd ones).

#include "WinTypes.h"

#include <array>
#include <optional>

class AerobicSlot {
public:
    static constexpr int kSlots = 3;
    static constexpr int kMinutes = 20;
    static constexpr int kProps = kMinutes + 10;

    // Slot 1, 2 or 3; std::nullopt for any other number.
    static std::optional<AerobicSlot> of(int number);
    static const std::array<AerobicSlot, kSlots>& all();

    int number() const { return m_number; }
    WORD exercise() const { return m_ids.exercise; }             // LPWSTR
    WORD minute(int n) const { return m_ids.exercise + n; }      // I2, minute n = 1..20, rating 0-10
    WORD distance() const { return m_ids.exercise + 21; }        // R8
    WORD heartRate() const { return m_ids.exercise + 22; }       // I2
    WORD course() const { return m_ids.exercise + 23; }          // LPWSTR
    WORD startHour() const { return m_ids.startHour; }           // I2, 0-23
    WORD startMinute() const { return m_ids.startMinute; }       // I2, 0-59
    WORD elapsedMinutes() const { return m_ids.elapsedMinutes; } // I2
    WORD completed() const { return m_ids.completed; }           // UI2, 0 or 1
    WORD notes() const { return m_ids.notes; }                   // LPWSTR
    WORD elapsedSeconds() const { return m_ids.elapsedSeconds; } // I2, 0-59
    // The slot's thirty numbers.
    std::array<WORD, kProps> numbers() const;

private:
    struct Ids {
        WORD exercise;
        WORD startHour;
        WORD startMinute;
        WORD elapsedMinutes;
        WORD completed;
        WORD notes;
        WORD elapsedSeconds;
    };
    constexpr AerobicSlot(int number, Ids ids) : m_number(number), m_ids(ids) {}

    int m_number;
    Ids m_ids;
};
