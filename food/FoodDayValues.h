#pragma once
// The day values of a food-and-body record: water, weight, body fat, notes, sleep, the five body
// measurements, overall feeling, sleep quality, blood pressure and resting heart rate, with the
// property of each and the rules that read them from a record and write them back.
//
// The 16-bit values are written as CEVT_I2 and read back zero-extended (0-65535) whatever type they
// were stored with, so a drop-down's "no choice" (-1, the all-ones value) comes back as 65535.

#include "NotesPlaceholder.h"
#include "DbRecord.h"

#include <QString>

class FoodDayValues {
public:
    static constexpr WORD kWater = 1001;            // I2, cups
    static constexpr WORD kWeight = 1002;           // I2
    static constexpr WORD kBodyFat = 1003;          // R8, percent
    static constexpr WORD kNotes = 1132;            // LPWSTR
    static constexpr WORD kWaist = 1146;            // R8
    static constexpr WORD kSleep = 1147;            // R8, hours
    static constexpr WORD kQuads = 1148;            // R8
    static constexpr WORD kCalves = 1149;           // R8
    static constexpr WORD kBiceps = 1150;           // R8
    static constexpr WORD kChest = 1151;            // R8
    static constexpr WORD kOverall = 1152;          // I2, index 0-10 or kNoChoice
    static constexpr WORD kSleepQuality = 1153;     // I2, index 0-10 or kNoChoice
    static constexpr WORD kSystolic = 1154;         // I2
    static constexpr WORD kDiastolic = 1155;        // I2
    static constexpr WORD kRestingHeartRate = 1156; // I2
    // A drop-down with nothing chosen, as it reads back.
    static constexpr int kNoChoice = 0xFFFF;

    int water = 0;
    int weight = 0;
    double bodyFat = 0.0;
    QString notes;
    double sleep = 0.0;
    double waist = 0.0;
    double chest = 0.0;
    double biceps = 0.0;
    double quads = 0.0;
    double calves = 0.0;
    int overall = 0;
    int sleepQuality = 0;
    int systolic = 0;
    int diastolic = 0;
    int restingHeartRate = 0;

    // The values record holds, each absent one at its default (0, the notes placeholder). Sleep
    // quality is read only when the record has an overall feeling: the two are saved together.
    static FoodDayValues fromRecord(const DbRecord& record);
    // The fifteen properties a save writes, all of them every time, in the order the day has always
    // been saved in.
    DbRecord toRecord() const;
};
