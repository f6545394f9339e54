#include "AerobicRecords.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "MessageBox.h"
#include "RecordDatabase.h"

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

bool AerobicRecords::SaveExercise(const QDate& day, int slot, const AerobicExercise& exercise) const {
    const std::optional<AerobicSlot> ids = AerobicSlot::of(slot);
    if (!ids) {
        return fail(kErrorFindingNumber);
    }
    RecordDatabase db;
    if (!db.Open(m_name, DayKey::kPropId)) {
        return fail(kErrorAccessingAerobic);
    }
    if (db.SeekFirstEqual(DayKey::prop(day)) == 0) {
        return fail(kRecordNotFoundError);
    }
    DbRecord stored;
    if (!db.ReadCurrent(stored) || db.Write(exercise.toRecord(*ids).replacing(stored), db.CurrentRecordId()) == 0) {
        return fail(kErrorAccessingAerobic);
    }
    return true;
}
