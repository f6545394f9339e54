#include "Version1Import.h"

#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "RecordCopier.h"
#include "RecordDatabase.h"
#include "RecordEntries.h"
#include "RecordLimits.h"
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

// The day's key when record is a day to import: keyed, not the marker, holding an entry.
const DbProp* dayKey(const DbRecord& record, LogKind kind) {
    const DbProp* key = record.find(DayKey::kNumber);
    if (key == nullptr || key->type() != CEVT_FILETIME || RecordEntries::isMarker(record) ||
        !RecordEntries::holdsEntry(kind, record)) {
        return nullptr;
    }
    return key;
}

// The records a version 1 day becomes: a strength day is split into its A and B records.
std::vector<Target> targetsOf(const DbRecord& record, const DbProp& key, LogKind kind, const QStringList& names) {
    std::vector<Target> targets;
    if (kind == LogKind::Strength) {
        Target a{names[0], {}};
        Target b{names[1], {}};
        b.record.append(key);
        for (const DbProp& prop : record.props()) {
            const bool inB = prop.number() >= kFirstBNumber && prop.number() <= kLastBNumber;
            (inB ? b : a).record.append(prop);
        }
        targets.push_back(std::move(a));
        targets.push_back(std::move(b));
    } else {
        targets.push_back({names[0], record});
    }
    return targets;
}

// Calls each with every day of a version 1 database and the records it becomes; stops at the first
// false. False when the database cannot be read.
template <typename Each>
bool forEachDay(const QString& source, LogKind kind, const QStringList& names, UtilityReport& report, Each each) {
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
        if (const DbProp* key = dayKey(record, kind)) {
            std::vector<Target> targets = targetsOf(record, *key, kind, names);
            if (!each(targets, *key)) {
                return false;
            }
        }
    }
    return true;
}

// Why a day of the version 1 database breaks the record limits, told before anything is imported;
// empty when every day keeps them (or the database is missing).
QString firstOverLimits(const QString& source, LogKind kind, const QStringList& names, UtilityReport& report) {
    QString reason;
    if (RecordDatabase::Exists(source)) {
        forEachDay(source, kind, names, report, [&reason](const std::vector<Target>& targets, const DbProp&) {
            for (const Target& target : targets) {
                reason = RecordLimits::check(target.record);
                if (!reason.isEmpty()) {
                    return false;
                }
            }
            return true;
        });
    }
    return reason;
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
    return forEachDay(source, kind, targetNames, report, [&](std::vector<Target>& targets, const DbProp& key) {
        switch (importDay(targets, key, kind)) {
        case Outcome::Imported:
            ++*imported;
            break;
        case Outcome::Kept:
            ++*kept;
            break;
        case Outcome::Failed:
            return false;
        }
        return true;
    });
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

bool Version1Import::run(const QString& user, UtilityReport& report) {
    Counts done;
    if (!dataPresent()) {
        report.message(QStringLiteral("No version 1 Kovalin data was found on this device."));
        return false;
    }
    report.status(QStringLiteral("Importing..."));
    // One transaction: the import happens whole or not at all.
    VolumeTransaction transaction;
    const auto names = DatabaseCatalogue::userDatabaseNames(user);
    auto name = [&names](UserDatabase which) { return names[static_cast<int>(which)]; };
    struct Source {
        LogKind kind;
        QStringList targets;
        int* imported;
    };
    const Source sources[] = {
        {LogKind::Strength, {name(UserDatabase::UpperA), name(UserDatabase::UpperB)}, &done.upper},
        {LogKind::Strength, {name(UserDatabase::LowerA), name(UserDatabase::LowerB)}, &done.lower},
        {LogKind::Aerobic, {name(UserDatabase::Aerobic)}, &done.aerobic},
        {LogKind::Food, {name(UserDatabase::Food)}, &done.food}};
    // Every day is checked before any is written: data over the limits is refused whole.
    for (size_t i = 0; i < std::size(sources); ++i) {
        if (const QString reason =
                firstOverLimits(databases()[static_cast<int>(i)], sources[i].kind, sources[i].targets, report);
            !reason.isEmpty()) {
            report.message(RecordCopier::overLimits(QStringLiteral("The version 1 data"), reason));
            report.status(QString());
            return false;
        }
    }
    bool whole = transaction.isActive();
    for (size_t i = 0; i < std::size(sources) && whole; ++i) {
        whole = importDatabase(databases()[static_cast<int>(i)], sources[i].kind, sources[i].targets,
                               sources[i].imported, &done.kept, report);
    }
    whole = whole && transaction.commit();
    if (!whole) {
        report.message(RecordCopier::kDataAccessError);
        report.status(QString());
        return false;
    }
    report.status(QStringLiteral("Done."));
    report.message(summary(done));
    return true;
}
