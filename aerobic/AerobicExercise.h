#pragma once
// One aerobic exercise as the aerobic page shows and saves it, with the rules that turn it into
// the thirty properties of its slot and back.
//
// Times are counted on the wall clock (the device keeps no time zone): the elapsed minutes of a
// start and end are those their two clock readings differ by.

#include "AerobicSlot.h"
#include "DbRecord.h"
#include "NotesPlaceholder.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <optional>

class AerobicExercise {
public:
    // An intensity drop-down with nothing chosen; stored as 0.
    static constexpr int kNoChoice = -1;

    QString exercise;
    QString course;
    double distance = 0.0;
    int heartRate = 0;
    // The start and end controls; only the start's hour and minute and the span between the two are
    // stored.
    QDateTime start;
    QDateTime end;
    // The seconds field of the elapsed-time control.
    int elapsedSeconds = 0;
    bool completed = false;
    QString notes = kNotesPlaceholder;
    // The ratings of minutes 1 to 20 (index 0 is minute 1): 0-10 or kNoChoice.
    std::array<int, AerobicSlot::kMinutes> minutes{};

    // The exercise in slot of day's record; std::nullopt when the record holds none of the slot's
    // properties. Absent values read as 0 or empty (the notes as the placeholder); the start is the
    // stored hour and minute on day, the end lies the stored minutes after it.
    static std::optional<AerobicExercise> fromRecord(const QDate& day, const DbRecord& record, const AerobicSlot& slot);
    // The slot's thirty properties: the twenty minutes, the name, completed, distance, start hour and
    // minute, elapsed minutes, notes, elapsed seconds, heart rate and course.
    DbRecord toRecord(const AerobicSlot& slot) const;

    // The stored elapsed minutes of a span in either order: its whole minutes less 1440 for each
    // whole day (11:30 PM to 12:10 AM of one date gives 1400).
    static int elapsedMinutes(const QDateTime& start, const QDateTime& end);
};
