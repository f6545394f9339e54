#pragma once
// The day key: a calendar day at 12:12:12.012 as a FILETIME, the value of property 64 under which
// every dated record is stored. Times of day are stored on the reference day, 29 November 1968.

#include "DbProp.h"

#include <QDate>
#include <QTime>

class DayKey {
public:
    static constexpr WORD kNumber = 64;
    static constexpr CEPROPID kPropId = PROP_TAG(CEVT_FILETIME, kNumber);

    // The key of day; an invalid or out-of-range date gives the zero FILETIME.
    static FILETIME of(const QDate& day);
    // Property 64 holding the key of day.
    static DbProp prop(const QDate& day);
    // The calendar day a key stands for.
    static QDate dateOf(const FILETIME& key);

    // The reference day 29 November 1968 at 12:12:12.012: the lowest key any record can have.
    static FILETIME referenceDay();
    static QDate referenceDate() { return QDate(1968, 11, 29); }
    // A time of day on the reference day: hour and minute as given, second 12, millisecond 12.
    static FILETIME referenceTime(int hour, int minute);
    // The hour and minute of a stored time of day (of any day).
    static QTime timeOf(const FILETIME& time);
};
