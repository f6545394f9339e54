#pragma once
// The property layouts of the six dated logs, as the generator writes them: property numbers and
// types of the strength A/B records, the daily food-and-body record and the aerobic record.
// Kept in one place so that they can move to the strength, food and aerobic libraries unchanged.

#include "WinTypes.h"

#include <array>

namespace StrengthLayout {
// The A record's workout header.
constexpr WORD kStartHour = 102;       // I2, 0-23
constexpr WORD kStartMinute = 103;     // I2, 0-59
constexpr WORD kElapsedMinutes = 104;  // I2, 0-1439
constexpr WORD kCompleted = 105;       // UI2, 0 or 1
constexpr WORD kNotes = 1132;          // LPWSTR
constexpr WORD kElapsedSeconds = 1133; // I2, 0-59

constexpr int kGroupCount = 6;
constexpr int kSetsPerGroup = 12;
constexpr int kPropsPerSet = 5;
constexpr int kPropsPerGroup = kSetsPerGroup * kPropsPerSet;
// Groups 0 and 1 live in the A database, groups 2 to 5 in the B database.
constexpr int kFirstGroupOfB = 2;

// The first property of set (0-11) of group (0-5); the set's five properties follow it.
constexpr WORD setBase(int group, int set) {
    return static_cast<WORD>(106 + 100 * group + kPropsPerSet * set);
}
constexpr WORD kExerciseOffset = 0;  // LPWSTR; empty: no set in this slot
constexpr WORD kRepsOffset = 1;      // LPWSTR
constexpr WORD kWeightOffset = 2;    // R8
constexpr WORD kRestOffset = 3;      // LPWSTR
constexpr WORD kIntensityOffset = 4; // I2, 0-10
} // namespace StrengthLayout

namespace FoodLayout {
constexpr WORD kWater = 1001;            // I2, cups
constexpr WORD kWeight = 1002;           // I2
constexpr WORD kBodyFat = 1003;          // R8, percent
constexpr WORD kNotes = 1132;            // LPWSTR
constexpr WORD kWaist = 1146;            // R8
constexpr WORD kSleep = 1147;            // R8, hours
constexpr WORD kQuads = 1148;            // R8
constexpr WORD kCalves = 1149;           // R8
constexpr WORD kBiceps = 1150;           // R8
constexpr WORD kChest = 1151;            // R8
constexpr WORD kOverall = 1152;          // I2, 0-10
constexpr WORD kSleepQuality = 1153;     // I2, 0-10
constexpr WORD kSystolic = 1154;         // I2
constexpr WORD kDiastolic = 1155;        // I2
constexpr WORD kRestingHeartRate = 1156; // I2

constexpr int kMealSlots = 15;
// Slot k (0-14) starts at mealBase(k): its time (FILETIME on the reference day) at +0, nothing at +1,
// then the protein, carbohydrate, vegetable and other items (LPWSTR) at +2 to +5.
constexpr WORD mealBase(int slot) {
    return static_cast<WORD>(1010 + 6 * slot);
}
constexpr WORD kMealTimeOffset = 0;
constexpr WORD kProteinOffset = 2;
constexpr WORD kCarbOffset = 3;
constexpr WORD kVegOffset = 4;
constexpr WORD kOtherOffset = 5;
} // namespace FoodLayout

namespace AerobicLayout {
constexpr int kSlots = 3;
constexpr int kMinutes = 20;

// The property numbers of one exercise slot; minute n (1-20) is firstMinute + n - 1.
struct SlotIds {
    WORD exercise;       // LPWSTR
    WORD firstMinute;    // I2, 0-10 each
    WORD distance;       // R8
    WORD heartRate;      // I2
    WORD course;         // LPWSTR
    WORD startHour;      // I2
    WORD startMinute;    // I2
    WORD elapsedMinutes; // I2
    WORD completed;      // UI2, 0 or 1
    WORD notes;          // LPWSTR
    WORD elapsedSeconds; // I2
};

constexpr std::array<SlotIds, kSlots> kSlotIds = {{
    {701, 702, 722, 723, 724, 102, 103, 104, 105, 1132, 1133},
    {801, 802, 822, 823, 824, 1136, 1138, 1140, 1144, 1142, 1134},
    {901, 902, 922, 923, 924, 1137, 1139, 1141, 1145, 1143, 1135},
}};
} // namespace AerobicLayout
