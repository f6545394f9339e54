#include "AerobicExercise.h"

#include <QTimeZone>

#include <algorithm>

namespace {
// The same clock reading in a zone without daylight saving, so that differences and sums are those
// of the wall clock.
QDateTime wallClock(const QDateTime& time) {
    return QDateTime(time.date(), time.time(), QTimeZone::utc());
}

int wordAt(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? static_cast<WORD>(prop->toInt()) : 0;
}

QString textAt(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? prop->toText() : QString();
}

DbProp word(WORD number, int value) {
    return DbProp::i2(number, static_cast<std::int16_t>(static_cast<WORD>(value)));
}
} // namespace

int AerobicExercise::elapsedMinutes(const QDateTime& start, const QDateTime& end) {
    const qint64 span = qAbs(wallClock(start).secsTo(wallClock(end)));
    return static_cast<int>(span / 60 - 1440 * (span / 86400));
}

std::optional<AerobicExercise> AerobicExercise::fromRecord(const QDate& day, const DbRecord& record,
                                                           const AerobicSlot& slot) {
    const std::array<WORD, AerobicSlot::kProps> numbers = slot.numbers();
    if (std::none_of(numbers.begin(), numbers.end(), [&](WORD n) { return record.find(n) != nullptr; })) {
        return std::nullopt;
    }
    AerobicExercise exercise;
    exercise.exercise = textAt(record, slot.exercise());
    exercise.course = textAt(record, slot.course());
    if (const DbProp* distance = record.find(slot.distance())) {
        exercise.distance = distance->toDouble();
    }
    exercise.heartRate = wordAt(record, slot.heartRate());
    const QTime startTime(qMin(wordAt(record, slot.startHour()), 23), qMin(wordAt(record, slot.startMinute()), 59));
    // Wall-clock readings, made without the local time zone: the device kept none, and a reading in
    // local time costs a zone lookup each.
    exercise.start = QDateTime(day, startTime, QTimeZone::utc());
    exercise.end = exercise.start.addSecs(60 * qint64(wordAt(record, slot.elapsedMinutes())));
    exercise.elapsedSeconds = wordAt(record, slot.elapsedSeconds());
    exercise.completed = wordAt(record, slot.completed()) != 0;
    if (const DbProp* notes = record.find(slot.notes())) {
        exercise.notes = notes->toText();
    }
    for (int n = 1; n <= AerobicSlot::kMinutes; ++n) {
        exercise.minutes[static_cast<size_t>(n - 1)] = wordAt(record, slot.minute(n));
    }
    return exercise;
}

DbRecord AerobicExercise::toRecord(const AerobicSlot& slot) const {
    DbRecord record;
    for (int n = 1; n <= AerobicSlot::kMinutes; ++n) {
        // A box without a choice and a rating of 0 are stored alike.
        record.append(word(slot.minute(n), qMax(0, minutes[static_cast<size_t>(n - 1)])));
    }
    record.append(DbProp::text(slot.exercise(), exercise));
    record.append(DbProp::ui2(slot.completed(), completed ? 1 : 0));
    record.append(DbProp::r8(slot.distance(), distance));
    const QTime startTime = start.time().isValid() ? start.time() : QTime(0, 0);
    record.append(word(slot.startHour(), startTime.hour()));
    record.append(word(slot.startMinute(), startTime.minute()));
    record.append(word(slot.elapsedMinutes(), elapsedMinutes(start, end)));
    record.append(DbProp::text(slot.notes(), notes));
    record.append(word(slot.elapsedSeconds(), elapsedSeconds));
    record.append(word(slot.heartRate(), heartRate));
    record.append(DbProp::text(slot.course(), course));
    return record;
}
