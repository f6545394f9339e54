#pragma once
// One meal of a day's food record: its time of day and its protein, carbohydrate, vegetable and
// other items. The day's record has fifteen meal slots; slot k uses the six numbers from 1010 + 6k:
// the time (a FILETIME on the reference day, whose presence marks the slot as used), one number
// that is never written, then the four items (LPWSTR, possibly empty).

#include "DbRecord.h"

#include <QString>
#include <QTime>

#include <array>
#include <optional>

class Meal {
public:
    static constexpr int kSlots = 15;
    static constexpr WORD kFirstNumber = 1010;
    static constexpr WORD kNumbersPerSlot = 6;

    static constexpr WORD timeNumber(int slot) { return static_cast<WORD>(kFirstNumber + kNumbersPerSlot * slot); }
    static constexpr WORD proteinNumber(int slot) { return timeNumber(slot) + 2; }
    static constexpr WORD carbohydrateNumber(int slot) { return timeNumber(slot) + 3; }
    static constexpr WORD vegetableNumber(int slot) { return timeNumber(slot) + 4; }
    static constexpr WORD otherNumber(int slot) { return timeNumber(slot) + 5; }
    // The five numbers slot uses, time first.
    static std::array<WORD, 5> numbers(int slot);
    static bool isSlot(int slot) { return slot >= 0 && slot < kSlots; }

    // Only the hour and minute are kept; an invalid time is stored as midnight.
    QTime time;
    QString protein;
    QString carbohydrate;
    QString vegetable;
    QString other;

    // The meal in slot of record; std::nullopt when the slot has no time. An absent item reads empty.
    static std::optional<Meal> fromRecord(const DbRecord& record, int slot);
    // The slot's five properties: the time on 29 November 1968 at the meal's hour and minute, second
    // 12 and millisecond 12, then the four items as they stand.
    DbRecord toRecord(int slot) const;
    // The time as the meal list shows it, "h:mmt": "7:05A", "12:30P".
    QString timeText() const;
};
