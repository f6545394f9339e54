#include "AerobicRecords.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "MessageBox.h"
#include "RecordDatabase.h"
#include "SaveFailure.h"

#include <algorithm>

AerobicRecords::AerobicRecords(QString name, QObject* owner) : m_name(std::move(name)), m_owner(owner) {}

bool AerobicRecords::fail(const QString& text) const {
    MessageBoxW(m_owner, text, QStringLiteral("Kovalin"), MB_OK | MB_ICONERROR);
    return false;
}

bool AerobicRecords::EnsureDatabase() const {
    return DatabaseCatalogue::ensureDatedLog(m_name);
}

CEOID AerobicRecords::FindDay(const QDate& day) const {
    RecordDatabase db;
    return db.Open(m_name, DayKey::kPropId) ? db.SeekFirstEqual(DayKey::prop(day)) : 0;
}

CEOID AerobicRecords::CreateDay(const QDate& day) const {
    RecordDatabase db;
    if (!db.Open(m_name, DayKey::kPropId)) {
        fail(kErrorAccessingAerobic);
        return 0;
    }
    // A second record for the day would never be found: the day's first one always is.
    if (const CEOID existing = db.SeekFirstEqual(DayKey::prop(day))) {
        return existing;
    }
    DbRecord record;
    record.append(DayKey::prop(day));
    const CEOID oid = db.Write(record, 0);
    if (oid == 0) {
        fail(kErrorAccessingAerobic);
    }
    return oid;
}

std::optional<AerobicDay> AerobicRecords::ReadDay(const QDate& day) const {
    RecordDatabase db;
    DbRecord record;
    if (!db.Open(m_name, DayKey::kPropId) || db.SeekFirstEqual(DayKey::prop(day)) == 0 || !db.ReadCurrent(record)) {
        fail(kErrorAccessingAerobic);
        return std::nullopt;
    }
    return AerobicDay(day, record);
}

std::optional<AerobicDay> AerobicRecords::ShowDay(const QDate& day) const {
    RecordDatabase db;
    // The database is missing only on a user's first visit: it is made then, and opened again.
    if (!db.Open(m_name, DayKey::kPropId) && !(EnsureDatabase() && db.Open(m_name, DayKey::kPropId))) {
        fail(kErrorAccessingAerobic);
        return std::nullopt;
    }
    DbRecord record;
    bool ready = false;
    if (db.SeekFirstEqual(DayKey::prop(day)) != 0) {
        ready = db.ReadCurrent(record);
    } else {
        record.append(DayKey::prop(day));
        ready = db.Write(record, 0) != 0;
    }
    if (!ready) {
        fail(kErrorAccessingAerobic);
        return std::nullopt;
    }
    return AerobicDay(day, record);
}

bool AerobicRecords::readSlotDay(int slot, const QDate& day, RecordDatabase& db, DbRecord& stored) const {
    if (!AerobicSlot::of(slot)) {
        return fail(kErrorFindingNumber);
    }
    if (!db.Open(m_name, DayKey::kPropId)) {
        return fail(kErrorAccessingAerobic);
    }
    if (db.SeekFirstEqual(DayKey::prop(day)) == 0) {
        return fail(kRecordNotFoundError);
    }
    return db.ReadCurrent(stored) || fail(kErrorAccessingAerobic);
}

bool AerobicRecords::SaveExercise(const QDate& day, int slot, const AerobicExercise& exercise) const {
    RecordDatabase db;
    DbRecord stored;
    if (!readSlotDay(slot, day, db, stored)) {
        return false;
    }
    if (db.Write(exercise.toRecord(*AerobicSlot::of(slot)).replacing(stored), db.CurrentRecordId()) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}

bool AerobicRecords::DeleteExercise(const QDate& day, int slot) const {
    RecordDatabase db;
    DbRecord stored;
    if (!readSlotDay(slot, day, db, stored)) {
        return false;
    }
    // The properties are moved as stored, number for number, so that a moved exercise reads back
    // exactly as it was; whatever else the slot below held is removed.
    DbRecord changes;
    const auto& all = AerobicSlot::all();
    for (int to = slot; to <= AerobicSlot::kSlots; ++to) {
        const std::array<WORD, AerobicSlot::kProps> target = all[static_cast<size_t>(to - 1)].numbers();
        DbRecord moved;
        if (to < AerobicSlot::kSlots) {
            const std::array<WORD, AerobicSlot::kProps> source = all[static_cast<size_t>(to)].numbers();
            for (const DbProp& prop : stored.props()) {
                const auto at = std::find(source.begin(), source.end(), prop.number());
                if (at != source.end()) {
                    moved.append(prop.renumbered(target[static_cast<size_t>(at - source.begin())]));
                }
            }
        }
        for (const DbProp& prop : stored.props()) {
            const bool inTarget = std::find(target.begin(), target.end(), prop.number()) != target.end();
            const bool replaced = std::any_of(moved.props().begin(), moved.props().end(),
                                              [&](const DbProp& m) { return m.id() == prop.id(); });
            if (inTarget && !replaced) {
                changes.append(DbProp::deletion(prop.number(), prop.type()));
            }
        }
        for (const DbProp& prop : moved.props()) {
            changes.append(prop);
        }
    }
    if (!changes.isEmpty() && db.Write(changes, db.CurrentRecordId()) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}
