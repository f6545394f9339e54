#include "Meal.h"

#include "DayKey.h"
#include "TimeConversion.h"
#include "TimeFormat.h"

namespace {
QString textAt(const DbRecord& record, WORD number) {
    const DbProp* prop = record.find(number);
    return prop != nullptr ? prop->toText() : QString();
}
} // namespace

std::array<WORD, 5> Meal::numbers(int slot) {
    return {timeNumber(slot), proteinNumber(slot), carbohydrateNumber(slot), vegetableNumber(slot), otherNumber(slot)};
}

std::optional<Meal> Meal::fromRecord(const DbRecord& record, int slot) {
    const DbProp* time = record.find(timeNumber(slot));
    if (time == nullptr) {
        return std::nullopt;
    }
    Meal meal;
    meal.time = DayKey::timeOf(time->toFileTime());
    meal.protein = textAt(record, proteinNumber(slot));
    meal.carbohydrate = textAt(record, carbohydrateNumber(slot));
    meal.vegetable = textAt(record, vegetableNumber(slot));
    meal.other = textAt(record, otherNumber(slot));
    return meal;
}

DbRecord Meal::toRecord(int slot) const {
    DbRecord record;
    const QTime hourMinute = time.isValid() ? time : QTime(0, 0);
    record.append(DbProp::fileTime(timeNumber(slot), DayKey::referenceTime(hourMinute.hour(), hourMinute.minute())));
    record.append(DbProp::text(proteinNumber(slot), protein));
    record.append(DbProp::text(carbohydrateNumber(slot), carbohydrate));
    record.append(DbProp::text(vegetableNumber(slot), vegetable));
    record.append(DbProp::text(otherNumber(slot), other));
    return record;
}

QString Meal::timeText() const {
    SYSTEMTIME st;
    const FILETIME stored = DayKey::referenceTime(time.hour(), time.minute());
    if (!time.isValid() || !FileTimeToSystemTime(&stored, &st)) {
        return {};
    }
    return GetTimeFormatW(0, &st, QStringLiteral("h:mmt"));
}
