#include "TodaySummary.h"

#include "DayKey.h"
#include "Meal.h"
#include "RecordDatabase.h"

namespace {
constexpr WORD kAerobicNames[] = {701, 801, 901};
// The first Chest set's exercise in the upper-body A record: a non-empty name means a workout.
constexpr WORD kFirstSetNumber = 106;

// The day's record of the dated log name; false when the log or the record cannot be had.
bool readDay(const QString& name, const QDate& day, DbRecord& record) {
    RecordDatabase db;
    return db.Open(name, DayKey::kPropId) && db.SeekFirstEqual(DayKey::prop(day)) != 0 && db.ReadCurrent(record);
}

QString textOf(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop == nullptr ? QString() : prop->toText();
}

// "Upper Body" or ", Upper Body": the part counter decides whether the label joins earlier parts.
void appendPart(QString& text, int& parts, const QString& label) {
    text = parts == 0 ? label : text + QStringLiteral(", ") + label;
    ++parts;
}
} // namespace

QString TodaySummary::workoutText(const QString& aerobicName, const QString& upperAName, const QDate& today) {
    QString text;
    int parts = 0;
    DbRecord record;
    if (readDay(aerobicName, today, record)) {
        for (const WORD number : kAerobicNames) {
            const QString name = textOf(record, number);
            if (name.isEmpty()) {
                continue;
            }
            // Only the first exercise raises the counter: while it stands at 0, a second or third
            // exercise replaces the text instead of joining it.
            text = parts == 0 ? name : text + QStringLiteral(", ") + name;
            if (number == kAerobicNames[0]) {
                parts = 1;
            }
        }
    }
    record.clear();
    const bool upper = readDay(upperAName, today, record) && !textOf(record, kFirstSetNumber).isEmpty();
    if (upper) {
        appendPart(text, parts, QStringLiteral("Upper Body"));
    }
    // The lower-body label asks the same upper-body A record the same question.
    if (upper) {
        appendPart(text, parts, QStringLiteral("Lower Body"));
    }
    return parts == 0 ? kNoWorkout : text;
}

QString TodaySummary::nextMealText(const QString& foodName, const QDateTime& now) {
    DbRecord record;
    if (!readDay(foodName, now.date(), record)) {
        return kNoMealsToday;
    }
    const QTime clock = now.time();
    QString text;
    for (int slot = 0; slot < Meal::kSlots && text.isEmpty(); ++slot) {
        const DbProp* time = record.find(Meal::timeNumber(slot));
        if (time == nullptr || time->type() != CEVT_FILETIME) {
            continue;
        }
        const QTime meal = DayKey::timeOf(time->toFileTime());
        const bool toCome =
            clock.hour() < meal.hour() || (clock.hour() == meal.hour() && clock.minute() < meal.minute());
        if (!toCome) {
            continue;
        }
        for (const WORD number : {Meal::proteinNumber(slot), Meal::carbohydrateNumber(slot),
                                  Meal::vegetableNumber(slot), Meal::otherNumber(slot)}) {
            const QString item = textOf(record, number);
            if (!item.isEmpty()) {
                text = text.isEmpty() ? item : text + QStringLiteral(", ") + item;
            }
        }
    }
    return text.isEmpty() ? kNoRemainingMeals : text;
}
