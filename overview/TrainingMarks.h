#pragma once
// What the current user logged on a run of days, as the calendar marks it: for each day whether it
// has an upper-body, a lower-body and an aerobic entry, and how many strength sets it holds.
//
// A strength region has an entry on a day when its A or B record holds at least one set, i.e. a set
// slot with a non-empty exercise name, as the strength page lists it. The header alone (which the
// first visit of a day writes with the start time) is no entry. The aerobic log has one when one of
// the day's three slots holds an exercise (any of the slot's properties: a save writes all of them);
// a record holding the key alone, as a first visit leaves it, is none.
//
// Each of the five logs is opened once for the whole run of days. A log that does not exist or
// cannot be read marks nothing; no message is shown.

#include <QDate>
#include <QString>

#include <vector>

class TrainingMarks {
public:
    struct Names {
        QString upperA;
        QString upperB;
        QString lowerA;
        QString lowerB;
        QString aerobic;
    };
    struct Day {
        bool upperBody = false;
        bool lowerBody = false;
        bool aerobic = false;
        int sets = 0; // the strength sets of both regions
    };

    // The marks of count days from first on.
    static std::vector<Day> read(const Names& names, const QDate& first, int count);
};
