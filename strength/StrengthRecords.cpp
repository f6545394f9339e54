#include "StrengthRecords.h"

#include "Clock.h"
#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "MessageBox.h"
#include "RecordDatabase.h"
#include "SaveFailure.h"

namespace {
const QString kCaption = QStringLiteral("Kovalin");

DbRecord keyRecord(const FILETIME& key) {
    DbRecord record;
    record.append(DbProp::fileTime(DayKey::kNumber, key));
    return record;
}
} // namespace

StrengthRecords::StrengthRecords(QString aName, QString bName, QObject* owner)
    : m_aName(std::move(aName)), m_bName(std::move(bName)), m_owner(owner) {}

void StrengthRecords::report(QObject* owner, const QString& text) {
    MessageBoxW(owner, text, kCaption, MB_OK | MB_ICONERROR);
}

bool StrengthRecords::fail(const QString& text) const {
    report(m_owner, text);
    return false;
}

bool StrengthRecords::EnsureDatabases() const {
    return DatabaseCatalogue::ensureDatedLog(m_aName) && DatabaseCatalogue::ensureDatedLog(m_bName);
}

bool StrengthRecords::EnsureDay(const QDate& day) const {
    return ensureRecord(m_aName, WorkoutHeader::newDayRecord(Clock::now()), day) &&
           ensureRecord(m_bName, DbRecord(), day);
}

bool StrengthRecords::ensureRecord(const QString& name, const DbRecord& extra, const QDate& day) const {
    RecordDatabase db;
    if (!db.Open(name, DayKey::kPropId)) {
        return false;
    }
    if (db.SeekFirstEqual(DayKey::prop(day)) != 0) {
        return true;
    }
    DbRecord record = keyRecord(DayKey::of(day));
    for (const DbProp& prop : extra.props()) {
        record.append(prop);
    }
    return db.Write(record, 0) != 0;
}

CEOID StrengthRecords::FindDayA(const QDate& day) const {
    RecordDatabase db;
    return db.Open(m_aName, DayKey::kPropId) ? db.SeekFirstEqual(DayKey::prop(day)) : 0;
}

std::optional<StrengthDay> StrengthRecords::LoadDay(const QDate& day) const {
    if (!EnsureDatabases() || !EnsureDay(day)) {
        fail(kErrorAccessingDatabase);
        return std::nullopt;
    }
    return ReadDay(day);
}

std::optional<StrengthDay> StrengthRecords::ReadDay(const QDate& day) const {
    // A stays open until B is read too: reads through open databases share one read transaction.
    RecordDatabase aDb;
    DbRecord a;
    if (!aDb.Open(m_aName, DayKey::kPropId) || aDb.SeekFirstEqual(DayKey::prop(day)) == 0 || !aDb.ReadCurrent(a)) {
        fail(kErrorAccessingDatabase);
        return std::nullopt;
    }
    RecordDatabase db;
    if (!db.Open(m_bName, DayKey::kPropId) || db.SeekFirstEqual(DayKey::prop(day)) == 0) {
        return StrengthDay(day, a, nullptr);
    }
    DbRecord b;
    if (!db.ReadCurrent(b)) {
        // The B record is there but unreadable: show the groups of the A record and say so.
        fail(kErrorAccessingDatabase);
        return StrengthDay(day, a, nullptr);
    }
    return StrengthDay(day, a, &b);
}

bool StrengthRecords::WriteHeader(const QDate& day, const WorkoutHeader& header) const {
    RecordDatabase db;
    if (!db.Open(m_aName, DayKey::kPropId)) {
        return fail(kDatabaseAccessError);
    }
    const CEOID oid = db.SeekFirstEqual(DayKey::prop(day));
    if (oid == 0) {
        return fail(kDatabaseAccessError);
    }
    if (db.Write(header.toRecord(), oid) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}

bool StrengthRecords::WriteGroup(const QDate& day, const MuscleGroup& group, const GroupSets& sets) const {
    RecordDatabase db;
    if (!db.Open(databaseOf(group), DayKey::kPropId)) {
        return fail(kErrorAccessingDatabase);
    }
    const CEOID oid = db.SeekFirstEqual(DayKey::prop(day));
    if (oid == 0) {
        return fail(kRecordNotFound);
    }
    if (db.Write(sets.toRecord(group), oid) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}

bool StrengthRecords::ClearGroup(const QDate& day, const MuscleGroup& group) const {
    RecordDatabase db;
    DbRecord record;
    if (!db.Open(databaseOf(group), DayKey::kPropId) || db.SeekFirstEqual(DayKey::prop(day)) == 0 ||
        !db.ReadCurrent(record)) {
        return fail(kErrorAccessingDatabase);
    }
    // The properties are removed by the number and type they were stored with.
    DbRecord removal;
    for (const DbProp& prop : record.props()) {
        if (group.ownsNumber(prop.number())) {
            removal.append(DbProp::deletion(prop.number(), prop.type()));
        }
    }
    if (!removal.isEmpty() && db.Write(removal, db.CurrentRecordId()) == 0) {
        return fail(SaveFailure::text(GetLastError()));
    }
    return true;
}
