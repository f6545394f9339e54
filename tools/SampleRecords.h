#pragma once
// The content of one generated day record of each log, laid out as RecordLayouts.h fixes.

#include "DbRecord.h"
#include "SeededRandom.h"

#include <QDate>

class SampleRecords {
public:
    // The strength A record: key, workout header, and the twelve sets of groups 0 and 1.
    static DbRecord strengthA(bool upper, const QDate& day, SeededRandom& random);
    // The strength B record: key and the twelve sets of groups 2 to 5, or without group 5 (the Misc
    // group of the upper body, Misc 2 of the lower body) when lastGroupRests.
    static DbRecord strengthB(bool upper, const QDate& day, SeededRandom& random, bool lastGroupRests = false);
    // The sixty properties of group 0-5: four exercises of three sets each.
    static void appendGroup(DbRecord& record, bool upper, int group, SeededRandom& random);
    // The food-and-body record: key, the day's values and six meals.
    static DbRecord food(const QDate& day, SeededRandom& random);
    // The aerobic record: key and two exercises.
    static DbRecord aerobic(const QDate& day, SeededRandom& random);
    // The marker record every log starts with: the reference day's key alone.
    static DbRecord marker();
};
