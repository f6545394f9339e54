#pragma once
// The header of a day's workout, kept in the A record: start, end, elapsed time, completed flag and
// notes, with the rules that turn them into properties 102-105, 1132 and 1133 and back.
//
// Spans are measured on the wall clock (the device keeps no time zone), so a workout across a
// daylight-saving change lasts what its two clock readings say.

#include "NotesPlaceholder.h"
#include "DbRecord.h"

#include <QDateTime>
#include <QTime>

class WorkoutHeader {
public:
    static constexpr WORD kStartHour = 102;       // I2, 0-23
    static constexpr WORD kStartMinute = 103;     // I2, 0-59
    static constexpr WORD kElapsedMinutes = 104;  // I2, 0-1439
    static constexpr WORD kCompleted = 105;       // UI2, 0 or 1
    static constexpr WORD kNotes = 1132;          // LPWSTR
    static constexpr WORD kElapsedSeconds = 1133; // I2, 0-59, may be absent

    QDateTime start;
    QDateTime end;
    // Hours, minutes and seconds of the elapsed span (a time of day only by its type).
    QTime elapsed = QTime(0, 0);
    int completed = 0;
    QString notes = kNotesPlaceholder;

    // The header of day as record holds it. Without a start hour, start and end are now and the
    // elapsed time 0.
    static WorkoutHeader fromRecord(const QDate& day, const DbRecord& record);
    // The six header properties: start hour and minute, elapsed minutes, completed, notes, and the
    // elapsed display's seconds.
    DbRecord toRecord() const;
    // The properties of a new day's record after its key: start now, nothing elapsed, not
    // completed, the notes placeholder.
    static DbRecord newDayRecord(const QDateTime& now);

    // The elapsed display for a start and end in either order: the span's hours within a day and
    // its minutes, seconds 0.
    static QTime elapsedBetween(const QDateTime& start, const QDateTime& end);
    // The end of a workout that started at start and lasted elapsed.
    static QDateTime endAfter(const QDateTime& start, const QTime& elapsed);
    // Property 104: the span's whole minutes within one day (24 hours are stored as 0).
    static int storedMinutes(const QDateTime& start, const QDateTime& end);
    // |end - start| in seconds, on the wall clock.
    static qint64 spanSeconds(const QDateTime& start, const QDateTime& end);
};
