#pragma once
// Whether a day's record holds anything the person entered. A record holds an entry when a field
// that a page shows has a value other than its empty one: an exercise name, an elapsed time, the
// Completed mark, notes other than the placeholder, a body value, a rating, a meal. The start time
// that a first visit writes, zeros, "no choice" and the notes placeholder are not entries.

#include "DbRecord.h"

enum class LogKind { Strength, Aerobic, Food };

class RecordEntries {
public:
    static bool holdsEntry(LogKind kind, const DbRecord& record);
    // True when the record is the marker every new log starts with: keyed on the reference day.
    static bool isMarker(const DbRecord& record);
};
