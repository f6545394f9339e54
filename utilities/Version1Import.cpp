#include "Version1Import.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "RecordCopier.h"
#include "RecordDatabase.h"
#include "RecordEntries.h"
#include "UtilityReport.h"
#include "VolumeTransaction.h"

#include <array>
#include <vector>

namespace {
// The first set property of group 2: from here on a strength day's properties belong to the B record.
constexpr WORD kFirstBNumber = 306;
constexpr WORD kLastBNumber = 705;

struct Target {
    QString name;
    DbRecord record;
};

enum class Outcome { Imported, Kept, Failed };

// Writes each target's record into its log for the day, unless a record of that day already holds
// an entry there.
Outcome importDay(std::vector<Target>& targets, const DbProp& key, LogKind kind) {
    std::vector<RecordDatabase> logs(targets.size());
    std::vector<CEOID> existing(targets.size(), 0);
    std::vector<DbRecord> stored(targets.size());
    for (size_t i = 0; i < targets.size(); ++i) {
        if (!logs[i].Open(targets[i].name, DayKey::kPropId)) {
            return Outcome::Failed;
        }
        existing[i] = logs[i].SeekFirstEqual(key);
        if (existing[i] != 0) {
            if (!logs[i].ReadCurrent(stored[i])) {
                return Outcome::Failed;
            }
            if (RecordEntries::holdsEntry(kind, stored[i])) {
                return Outcome::Kept;
            }
        }
    }
    for (size_t i = 0; i < targets.size(); ++i) {
        const DbRecord written = existing[i] != 0 ? targets[i].record.replacing(stored[i]) : targets[i].record;
        if (logs[i].Write(written, existing[i]) == 0) {
            return Outcome::Failed;
        }
    }
    return Outcome::Imported;
}

// Imports one version 1 database into its log or, for strength, its A and B logs.
bool importDatabase(const QString& source, LogKind kind, const QStringList& targetNames, int* imported, int* kept,
                    UtilityReport& report) {
    if (!RecordDatabase::Exists(source)) {
        return true;
    }
    for (const QString& name : targetNames) {
        if (!DatabaseCatalogue::ensureDatedLog(name)) {
            return false;
        }
    }
    RecordDatabase v1;
    if (!v1.Open(source)) {
        return false;
    }
    DbRecord record;
    for (CEOID oid = v1.SeekFirst(); oid != 0; oid = v1.SeekNext()) {
        report.keepResponsive();
        record.clear();
        if (!v1.ReadCurrent(record)) {
            return false;
        }
        const DbProp* key = record.find(DayKey::kNumber);
        if (key == nullptr || key->type() != CEVT_FILETIME || RecordEntries::isMarker(record) ||
            !RecordEntries::holdsEntry(kind, record)) {
            continue;
        }
        std::vector<Target> targets;
        if (kind == LogKind::Strength) {
            Target a{targetNames[0], {}};
            Target b{targetNames[1], {}};
            b.record.append(*key);
            for (const DbProp& prop : record.props()) {
                const bool inB = prop.number() >= kFirstBNumber && prop.number() <= kLastBNumber;
                (inB ? b : a).record.append(prop);
            }
            targets.push_back(std::move(a));
            targets.push_back(std::move(b));
        } else {
            targets.push_back({targetNames[0], record});
        }
        switch (importDay(targets, *key, kind)) {
        case Outcome::Imported:
            ++*imported;
            break;
        case Outcome::Kept:
            ++*kept;
            break;
        case Outcome::Failed:
            return false;
        }
    }
    return true;
}
} // namespace

const QStringList& Version1Import::databases() {
    static const QStringList names = {QStringLiteral("KovUpperBody"), QStringLiteral("KovLowerBody"),
                                      QStringLiteral("KovAerobic"), QStringLiteral("KovFood")};
    return names;
}

bool Version1Import::dataPresent() {
    for (const QString& name : databases()) {
        if (RecordDatabase::Exists(name)) {
            return true;
        }
    }
    return false;
}

QString Version1Import::summary(const Counts& counts) {
    QString text = QStringLiteral("Version 1 data imported: %1 upper body, %2 lower body, %3 aerobic and %4 food days.")
                       .arg(counts.upper)
                       .arg(counts.lower)
                       .arg(counts.aerobic)
                       .arg(counts.food);
    if (counts.kept > 0) {
        text += QStringLiteral("  %1 days that already held data were left as they were.").arg(counts.kept);
    }
    return text;
}

bool Version1Import::run(const QString& user, UtilityReport& report, Counts* counts) {
    Counts local;
    Counts& done = counts != nullptr ? *counts : local;
    if (!dataPresent()) {
        report.message(QStringLiteral("No version 1 Kovalin data was found on this device."));
        return false;
    }
    report.status(QStringLiteral("Importing..."));
    // One transaction: the import happens whole or not at all.
    VolumeTransaction transaction;
    const auto names = DatabaseCatalogue::userDatabaseNames(user);
    auto name = [&names](UserDatabase which) { return names[static_cast<int>(which)]; };
    const bool whole =
        transaction.isActive() &&
        importDatabase(databases()[0], LogKind::Strength, {name(UserDatabase::UpperA), name(UserDatabase::UpperB)},
                       &done.upper, &done.kept, report) &&
        importDatabase(databases()[1], LogKind::Strength, {name(UserDatabase::LowerA), name(UserDatabase::LowerB)},
                       &done.lower, &done.kept, report) &&
        importDatabase(databases()[2], LogKind::Aerobic, {name(UserDatabase::Aerobic)}, &done.aerobic, &done.kept,
                       report) &&
        importDatabase(databases()[3], LogKind::Food, {name(UserDatabase::Food)}, &done.food, &done.kept, report) &&
        transaction.commit();
    if (!whole) {
        done = Counts{}; // rolled back: nothing came in
        report.message(RecordCopier::kDataAccessError);
        report.status(QString());
        return false;
    }
    report.status(QStringLiteral("Done."));
    report.message(summary(done));
    return true;
}
