#include "Compact.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "RecordCopier.h"
#include "RecordDatabase.h"
#include "RecordEntries.h"
#include "UtilityReport.h"
#include "VolumeTransaction.h"

namespace {
const QString kDone = QStringLiteral("Done.");

enum class Walk { Done, Failed };

bool isDay(const DbRecord& record) {
    const DbProp* key = record.find(DayKey::kNumber);
    return key != nullptr && key->type() == CEVT_FILETIME && !RecordEntries::isMarker(record);
}

// The record of the same day in partner, read into record; false when partner has none.
bool readPartner(RecordDatabase& partner, const DbProp& key, DbRecord& record) {
    record.clear();
    return partner.SeekFirstEqual(key) != 0 && partner.ReadCurrent(record);
}

// Walks first in date order and deletes each day whose record, and the same day's record in second
// (when there is one), hold no entries. With firstOnly, a day of first is deleted only when second
// has no record of that day (the walk over B after the walk over A: orphans only).
Walk compactPairs(RecordDatabase& first, RecordDatabase& second, bool firstOnly, UtilityReport& report) {
    DbRecord record;
    DbRecord partnerRecord;
    const std::vector<CEPROPID> keyOnly = {DayKey::kPropId};
    for (CEOID oid = first.SeekFirst(); oid != 0; oid = first.SeekNext()) {
        report.keepResponsive();
        record.clear();
        // The walk over orphans looks at a record's key first: most days have their partner, and
        // then the record, the larger half of the day, need not be read at all.
        if (firstOnly) {
            if (!first.ReadCurrent(record, keyOnly)) {
                return Walk::Failed;
            }
            const DbProp* key = record.find(DayKey::kNumber);
            if (key != nullptr && key->type() == CEVT_FILETIME && second.SeekFirstEqual(*key) != 0) {
                continue;
            }
            record.clear();
        }
        if (!first.ReadCurrent(record)) {
            return Walk::Failed;
        }
        if (!isDay(record) || RecordEntries::holdsEntry(LogKind::Strength, record)) {
            continue;
        }
        const DbProp key = *record.find(DayKey::kNumber);
        const bool hasPartner = readPartner(second, key, partnerRecord);
        if (hasPartner && (firstOnly || RecordEntries::holdsEntry(LogKind::Strength, partnerRecord))) {
            continue;
        }
        if (hasPartner) {
            if (!second.DeleteRecord(second.CurrentRecordId())) {
                return Walk::Failed;
            }
        }
        if (!first.DeleteRecord(oid)) {
            return Walk::Failed;
        }
    }
    return Walk::Done;
}

Walk compactRegion(const QString& aName, const QString& bName, UtilityReport& report) {
    RecordDatabase a;
    RecordDatabase b;
    if (!a.Open(aName, DayKey::kPropId) || !b.Open(bName, DayKey::kPropId)) {
        report.status(QStringLiteral("Strength database not found"));
        return Walk::Done;
    }
    if (a.recordCount() == 0) {
        report.status(QStringLiteral("Strength database empty"));
        return Walk::Done;
    }
    if (compactPairs(a, b, false, report) == Walk::Failed) {
        return Walk::Failed;
    }
    // A B record whose A record is gone holds the sets alone: it goes when it has none.
    return compactPairs(b, a, true, report);
}

Walk compactLog(const QString& name, LogKind kind, const QString& notFound, const QString& empty,
                UtilityReport& report) {
    RecordDatabase db;
    if (!db.Open(name, DayKey::kPropId)) {
        report.status(notFound);
        return Walk::Done;
    }
    if (db.recordCount() == 0) {
        report.status(empty);
        return Walk::Done;
    }
    DbRecord record;
    for (CEOID oid = db.SeekFirst(); oid != 0; oid = db.SeekNext()) {
        report.keepResponsive();
        record.clear();
        if (!db.ReadCurrent(record)) {
            return Walk::Failed;
        }
        if (isDay(record) && !RecordEntries::holdsEntry(kind, record)) {
            if (!db.DeleteRecord(oid)) {
                return Walk::Failed;
            }
        }
    }
    return Walk::Done;
}
} // namespace

bool Compact::run(const QString& user, UtilityReport& report) {
    const auto names = DatabaseCatalogue::userDatabaseNames(user);
    auto name = [&names](UserDatabase which) { return names[static_cast<int>(which)]; };
    auto failed = [&report] {
        report.message(RecordCopier::kDataAccessError);
        return false;
    };

    report.status(QStringLiteral("Compacting..."));
    // One transaction: a compact that fails or is killed deletes nothing.
    VolumeTransaction transaction;
    if (!transaction.isActive()) {
        return failed();
    }
    // Both regions are compacted under the one status line the device shows for strength.
    report.status(QStringLiteral("Compacting Upper Body..."));
    if (compactRegion(name(UserDatabase::UpperA), name(UserDatabase::UpperB), report) == Walk::Failed ||
        compactRegion(name(UserDatabase::LowerA), name(UserDatabase::LowerB), report) == Walk::Failed) {
        return failed();
    }
    report.status(kDone);

    report.status(QStringLiteral("Compacting Aerobic..."));
    if (compactLog(name(UserDatabase::Aerobic), LogKind::Aerobic, QStringLiteral("Aerobic db not found"),
                   QStringLiteral("Aerobic db empty"), report) == Walk::Failed) {
        return failed();
    }
    report.status(kDone);

    report.status(QStringLiteral("Compacting Food..."));
    if (compactLog(name(UserDatabase::Food), LogKind::Food, QStringLiteral("Food db not found."),
                   QStringLiteral("Food db empty"), report) == Walk::Failed) {
        return failed();
    }
    report.status(kDone);
    if (!transaction.commit()) {
        return failed();
    }
    report.message(QStringLiteral("Compact complete!"));
    return true;
}
