#include "WorkoutHeader.h"

#include "Clock.h"

#include <QTimeZone>

namespace {
constexpr qint64 kMinute = 60;
constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 86400;

// The same clock reading in a zone without daylight saving, so that differences and sums are
// those of the wall clock.
QDateTime wallClock(const QDateTime& time) {
    return QDateTime(time.date(), time.time(), QTimeZone::utc());
}

QDateTime addWallSeconds(const QDateTime& time, qint64 seconds) {
    const QDateTime sum = wallClock(time).addSecs(seconds);
    return QDateTime(sum.date(), sum.time());
}

int intAt(const DbRecord& record, WORD number, int absent) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? static_cast<int>(prop->toInt()) : absent;
}

// The hours-minutes-seconds display of a span in seconds, its hours wrapped within a day.
QTime displayOf(qint64 span, int seconds) {
    const int hours = static_cast<int>(span / kHour - 24 * (span / kDay));
    const int minutes = static_cast<int>(span / kMinute - 60 * (span / kHour));
    return QTime(hours, minutes, qBound(0, seconds, 59));
}
} // namespace

WorkoutHeader WorkoutHeader::fromRecord(const QDate& day, const DbRecord& record) {
    WorkoutHeader header;
    if (record.find(kStartHour) == nullptr) {
        header.start = Clock::now();
        header.end = header.start;
    } else {
        const int hour = qBound(0, intAt(record, kStartHour, 0), 23);
        const int minute = qBound(0, intAt(record, kStartMinute, 0), 59);
        const qint64 span = qMax(0, intAt(record, kElapsedMinutes, 0)) * kMinute;
        header.start = QDateTime(day, QTime(hour, minute));
        header.end = addWallSeconds(header.start, span);
        header.elapsed = displayOf(span, intAt(record, kElapsedSeconds, 0));
    }
    header.completed = intAt(record, kCompleted, 0);
    if (const DbProp* notes = record.find(kNotes)) {
        header.notes = notes->toText();
    }
    return header;
}

DbRecord WorkoutHeader::toRecord() const {
    DbRecord record;
    record.append(DbProp::i2(kStartHour, static_cast<std::int16_t>(start.time().hour())));
    record.append(DbProp::i2(kStartMinute, static_cast<std::int16_t>(start.time().minute())));
    record.append(DbProp::i2(kElapsedMinutes, static_cast<std::int16_t>(storedMinutes(start, end))));
    record.append(DbProp::ui2(kCompleted, static_cast<WORD>(completed)));
    record.append(DbProp::text(kNotes, notes));
    record.append(DbProp::i2(kElapsedSeconds, static_cast<std::int16_t>(elapsed.second())));
    return record;
}

DbRecord WorkoutHeader::newDayRecord(const QDateTime& now) {
    DbRecord record;
    record.append(DbProp::i2(kStartHour, static_cast<std::int16_t>(now.time().hour())));
    record.append(DbProp::i2(kStartMinute, static_cast<std::int16_t>(now.time().minute())));
    record.append(DbProp::i2(kElapsedMinutes, 0));
    record.append(DbProp::ui2(kCompleted, 0));
    record.append(DbProp::text(kNotes, kNotesPlaceholder));
    return record;
}

QTime WorkoutHeader::elapsedBetween(const QDateTime& start, const QDateTime& end) {
    return displayOf(spanSeconds(start, end), 0);
}

QDateTime WorkoutHeader::endAfter(const QDateTime& start, const QTime& elapsed) {
    const qint64 seconds = (elapsed.hour() * 60 + elapsed.minute()) * kMinute + elapsed.second();
    return addWallSeconds(start, seconds);
}

int WorkoutHeader::storedMinutes(const QDateTime& start, const QDateTime& end) {
    const qint64 span = spanSeconds(start, end);
    return static_cast<int>(span / kMinute - 1440 * (span / kDay));
}

qint64 WorkoutHeader::spanSeconds(const QDateTime& start, const QDateTime& end) {
    return qAbs(wallClock(start).secsTo(wallClock(end)));
}
