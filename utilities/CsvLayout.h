#pragma once
// The columns of the three kinds of export file: the header line and the line of one record.
//
// Strength (the four files of the A and B databases, one layout): "Date", "Start Time", "Elapsed
// Time", "Completed", "Notes", then Ex, Reps, Weight, Rest and Intensity of sets 1 to 36: 185 cells.
// Set n - 1 = 12k + j reads the five properties from 106 + 100k + 5j, k-major.
// Aerobic: "Date", then the three exercise blocks of 28 cells: 85 cells.
// Food: "Date", the fifteen day values, then the fifteen meals' time and four items: 91 cells.

#include "CsvFile.h"
#include "DbRecord.h"

class CsvLayout {
public:
    enum class Log { Strength, Aerobic, Food };

    // The seconds of a workout's start time: read with the hour and minute, though no page stores it.
    static constexpr WORD kStartSecond = 1120;

    static void addHeader(Log log, CsvFile& file);
    // The record's cells; record holds the properties of a whole read, in ascending id order.
    static void addLine(Log log, const DbRecord& record, CsvFile& file);

private:
    static void addStrengthLine(const DbRecord& record, CsvFile& file);
    static void addAerobicLine(const DbRecord& record, CsvFile& file);
    static void addFoodLine(const DbRecord& record, CsvFile& file);
};
