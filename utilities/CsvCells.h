#pragma once
// The text of each kind of export cell, from the properties of a record read whole. A property the
// record lacks gives an empty cell.

#include "DbRecord.h"

#include <QString>

class CsvCells {
public:
    // The property of that number (of whatever type) in record, whose properties are in ascending id
    // order as a whole read gives them; nullptr when the record lacks it.
    static const DbProp* find(const DbRecord& record, WORD number);

    // A property by its type: a date "%d/%d/%d" (month/day/year), a floating value "%.2f", an integer
    // "%d" (a 16-bit one zero-extended, as the logs read them back), a yes/no value "True" or "False",
    // a text as it stands.
    static QString value(const DbProp* prop);
    // "True" when the value is 1, else "False".
    static QString yesNo(const DbProp* prop);
    // "%d:%d:%d" from the hour, minute and second properties; a start time without an hour is no
    // start time (an empty cell), and an absent minute or second reads as 0. second 0: none stored.
    static QString startTime(const DbRecord& record, WORD hour, WORD minute, WORD second);
    // "%d:%d": the hour and minute of a time of day.
    static QString timeOfDay(const DbProp* prop);
    // "%d/%d/%d": month/day/year, no leading zeros; empty for a count no date can hold.
    static QString date(const FILETIME& time);

private:
    static LONG integer(const DbProp& prop);
};
