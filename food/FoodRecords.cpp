#include "FoodRecords.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "MessageBox.h"
#include "RecordDatabase.h"
#include "SaveFailure.h"

#include <algorithm>

FoodRecords::FoodRecords(QString name, QObject* owner) : m_name(std::move(name)), m_owner(owner) {}

bool FoodRecords::fail(const QString& text) const {
    MessageBoxW(m_owner, text, QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    return false;
}

bool FoodRecords::readDay(RecordDatabase& db, const QDate& day, DbRecord& record) const {
    return db.Open(m_name, DayKey::kPropId) && db.SeekFirstEqual(DayKey::prop(day)) != 0 && db.ReadCurrent(record);
}

bool FoodRecords::EnsureDatabase() const {
    return DatabaseCatalogue::ensureDatedLog(m_name);
}

CEOID FoodRecords::FindDay(const QDate& day) const {
    RecordDatabase db;
    return db.Open(m_name, DayKey::kPropId) ? db.SeekFirstEqual(DayKey::prop(day)) : 0;
}

CEOID FoodRecords::CreateDay(const QDate& day) const {
    RecordDatabase db;
    if (!db.Open(m_name, DayKey::kPropId)) {
        fail(kErrorOnAddItems);
        return 0;
    }
    // A second record for the day would never be found: the day's first one always is.
    if (const CEOID existing = db.SeekFirstEqual(DayKey::prop(day))) {
        return existing;
    }
    const CEOID oid = db.Write(newDay(day), 0);
    if (oid == 0) {
        fail(kErrorOnAddItems);
    }
    return oid;
}

DbRecord FoodRecords::newDay(const QDate& day) {
    DbRecord record;
    record.append(DayKey::prop(day));
    record.append(DbProp::text(FoodDayValues::kNotes, kNotesPlaceholder));
    return record;
}

std::optional<FoodDay> FoodRecords::ShowDay(const QDate& day, bool* created) const {
    *created = false;
    RecordDatabase db;
    // The database is missing only on a user's first visit: it is made then, and opened again.
    if (!db.Open(m_name, DayKey::kPropId) && !(EnsureDatabase() && db.Open(m_name, DayKey::kPropId))) {
        fail(kErrorOnAddItems);
        return std::nullopt;
    }
    DbRecord record;
    if (db.SeekFirstEqual(DayKey::prop(day)) != 0) {
        if (!db.ReadCurrent(record)) {
            fail(kErrorOnAddItems);
            return std::nullopt;
        }
        return FoodDay(record);
    }
    record = newDay(day);
    if (db.Write(record, 0) == 0) {
        fail(kErrorOnAddItems);
        return std::nullopt;
    }
    *created = true;
    return FoodDay(record);
}

std::optional<FoodDay> FoodRecords::LoadDay(const QDate& day) const {
    RecordDatabase db;
    DbRecord record;
    if (!readDay(db, day, record)) {
        fail(kErrorOnAddItems);
        return std::nullopt;
    }
    return FoodDay(record);
}

bool FoodRecords::SaveDay(const QDate& day, const FoodDayValues& values) const {
    if (!RecordDatabase::Exists(m_name)) {
        return false;
    }
    RecordDatabase db;
    DbRecord stored;
    if (!readDay(db, day, stored)) {
        return false;
    }
    if (db.Write(values.toRecord().replacing(stored), db.CurrentRecordId()) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}

bool FoodRecords::PutMeal(const QDate& day, int slot, const Meal& meal) const {
    if (slot < 0) {
        return false;
    }
    // The day's other meals and values are not needed: the slot's five properties go in as they are.
    RecordDatabase db;
    const CEOID oid = db.Open(m_name, DayKey::kPropId) ? db.SeekFirstEqual(DayKey::prop(day)) : 0;
    if (oid == 0) {
        return fail(kRecordNotFound);
    }
    if (!Meal::isSlot(slot)) {
        return fail(kMaxMealsExceeded);
    }
    if (db.Write(meal.toRecord(slot), oid) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}

bool FoodRecords::DeleteMeal(const QDate& day, int slot) const {
    if (slot < 0) {
        return false;
    }
    RecordDatabase db;
    DbRecord stored;
    if (!readDay(db, day, stored)) {
        return fail(kErrorOnItemDelete);
    }
    if (!Meal::isSlot(slot)) {
        return fail(kMaxMealsExceeded);
    }
    // Removed by the number and type each was stored with.
    const std::array<WORD, 5> numbers = Meal::numbers(slot);
    DbRecord removal;
    for (const DbProp& prop : stored.props()) {
        if (std::find(numbers.begin(), numbers.end(), prop.number()) != numbers.end()) {
            removal.append(DbProp::deletion(prop.number(), prop.type()));
        }
    }
    if (!removal.isEmpty() && db.Write(removal, db.CurrentRecordId()) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}

std::optional<Meal> FoodRecords::ReadMeal(const QDate& day, int slot) const {
    RecordDatabase db;
    DbRecord stored;
    std::optional<Meal> meal;
    if (Meal::isSlot(slot) && readDay(db, day, stored)) {
        meal = Meal::fromRecord(stored, slot);
    }
    if (!meal) {
        fail(kErrorOnItemEdit);
    }
    return meal;
}
