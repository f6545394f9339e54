#pragma once
// One set of a muscle group: exercise, reps, weight, rest and intensity, stored as five consecutive
// properties from the set's first number n: n exercise (text), n+1 reps (text), n+2 weight (R8),
// n+3 rest (text), n+4 intensity (I2, the index 0-10 of the intensity list).

#include "DbRecord.h"

#include <QString>

#include <span>

class StrengthSet {
public:
    static constexpr WORD kRepsOffset = 1;
    static constexpr WORD kWeightOffset = 2;
    static constexpr WORD kRestOffset = 3;
    static constexpr WORD kIntensityOffset = 4;

    QString exercise;
    QString reps;
    double weight = 0.0;
    QString rest;
    int intensity = 0;

    // A slot holds a set only when its exercise is not empty, whatever its other fields hold.
    bool isRecorded() const { return !exercise.isEmpty(); }
    // Weight with one decimal, intensity as a whole number, as the day's list shows them.
    QString weightText() const;
    QString intensityText() const;

    // The consecutive sets from number first on, each missing property read as empty or 0. One pass
    // over record: a record holds a few hundred properties and a day or a group needs dozens of sets.
    static void readSets(const DbRecord& record, WORD first, std::span<StrengthSet> sets);
    // Appends all five properties, empty ones included.
    void appendTo(DbRecord& record, WORD first) const;

    friend bool operator==(const StrengthSet&, const StrengthSet&) = default;
};
