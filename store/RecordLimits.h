#pragma once
// The largest values Kovalin keeps in a record. A record from outside (a backup being restored,
// version 1 data being imported) is checked against them before anything is changed, every write
// through RecordDatabase is refused when it breaks them, and the pages' text boxes take no more.
// The blob and record limits are the device's own (CEDB_MAXPROPDATASIZE, CEDB_MAXRECORDSIZE); the
// two text limits are ours, so that the notes of three aerobic exercises and every name of a day
// fit one record, and no page ever lays out more text than a person could type on the device.

#include "CeDatabase.h"

#include <QString>

#include <vector>

class DbRecord;

class RecordLimits {
public:
    // The notes of every log: 1132 (the strength and food notes, the first aerobic exercise's),
    // 1142 and 1143 (the second and third aerobic exercise's).
    static constexpr int kMaxNoteLength = 10000;
    // Any other text: a name (an exercise, a course, a food, a list's item, a user) or a set's
    // reps and rest.
    static constexpr int kMaxNameLength = 255;
    static constexpr qint64 kMaxBlobSize = 65471;
    static constexpr qint64 kMaxRecordSize = 131072;

    static bool isNote(CEPROPID id);
    // The most characters a text property of this id may hold.
    static int maxTextLength(CEPROPID id);
    // The bytes the device would take for the properties: each value as it stores it (a text in
    // UTF-16 with its terminator) and four bytes more for each property.
    static qint64 size(const std::vector<CEPROPVAL>& props);

    // Why the properties break the limits, as a clause to show ("property 1132 holds a note of
    // 10001 characters; a note holds at most 10000"); empty when they keep them.
    static QString check(const std::vector<CEPROPVAL>& props);
    static QString check(const DbRecord& record);
};
