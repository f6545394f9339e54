#include "ImportMerge.h"

#include "AerobicLists.h"
#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "ExerciseLists.h"
#include "FoodLists.h"
#include "NameList.h"
#include "RecordDatabase.h"
#include "RecordEntries.h"
#include "UtilityReport.h"
#include "VolumeTransaction.h"

#include <optional>

namespace {
std::vector<UserDatabase> databasesOf(ImportLog log) {
    switch (log) {
    case ImportLog::Upper:
        return {UserDatabase::UpperA, UserDatabase::UpperB};
    case ImportLog::Lower:
        return {UserDatabase::LowerA, UserDatabase::LowerB};
    case ImportLog::Aerobic:
        return {UserDatabase::Aerobic};
    case ImportLog::Food:
        return {UserDatabase::Food};
    }
    return {};
}

LogKind kindOf(ImportLog log) {
    return log == ImportLog::Aerobic ? LogKind::Aerobic : log == ImportLog::Food ? LogKind::Food : LogKind::Strength;
}

// The items a list starts with when it is made, as the page that owns it makes it.
QStringList defaultsOf(const QString& list) {
    for (BodyRegion region : {BodyRegion::Upper, BodyRegion::Lower}) {
        for (const MuscleGroup& group : MuscleGroup::ofRegion(region)) {
            if (ExerciseLists::databaseName(group) == list) {
                return ExerciseLists::defaults(group);
            }
        }
    }
    for (FoodKind kind : {FoodKind::Protein, FoodKind::Carbohydrate, FoodKind::Vegetable, FoodKind::Other}) {
        if (FoodLists::databaseName(kind) == list) {
            return FoodLists::defaults(kind);
        }
    }
    return list == AerobicLists::kExercises ? AerobicLists::defaultExercises() : QStringList();
}

// The record a filled or replaced day is written as: the key, what the stored record holds that the
// files do not carry, and the imported values.
DbRecord composed(const DbProp& key, const DbRecord& stored, const std::map<WORD, DbProp>& imported,
                  const ImportedHistory& history, ImportLog log) {
    DbRecord record;
    record.append(key);
    for (const DbProp& prop : stored.props()) {
        if (prop.number() != DayKey::kNumber && !history.carries(log, prop.number()) &&
            imported.count(prop.number()) == 0) {
            record.append(prop);
        }
    }
    for (const auto& [number, prop] : imported) {
        record.append(prop);
    }
    return record;
}
} // namespace

bool ImportMerge::fail(const QString& text) {
    m_error = text;
    return false;
}

ImportMerge::Result ImportMerge::run(const ImportedHistory& history) {
    Result result;
    std::optional<VolumeTransaction> transaction;
    if (!m_dryRun) {
        transaction.emplace();
        if (!transaction->isActive()) {
            result.ok = false;
            result.error =
                QStringLiteral("The import could not begin (error %1); nothing was written.").arg(GetLastError());
            return result;
        }
    }
    bool ok = addNames(history, result.namesAdded);
    for (int log = 0; ok && log < kImportLogs; ++log) {
        ok = mergeLog(static_cast<ImportLog>(log), history, result.logs[static_cast<size_t>(log)]);
    }
    if (ok && transaction && !transaction->commit()) {
        ok = fail(QStringLiteral("The import could not be saved (error %1).").arg(GetLastError()));
    }
    if (!ok) {
        result.ok = false;
        result.error = m_error + QStringLiteral(" Nothing was written.");
    }
    return result;
}

bool ImportMerge::addNames(const ImportedHistory& history, int& added) {
    for (const auto& [name, items] : history.names()) {
        const NameList list(name);
        const bool exists = list.exists();
        if (!exists && !m_dryRun && !list.ensureExists(defaultsOf(name))) {
            return fail(QStringLiteral("The list %1 cannot be created.").arg(name));
        }
        const std::optional<QStringList> present = exists || !m_dryRun ? list.items() : defaultsOf(name);
        if (!present) {
            return fail(QStringLiteral("The list %1 cannot be read.").arg(name));
        }
        for (const QString& item : items) {
            if (present->contains(item)) {
                continue;
            }
            ++added;
            if (!m_dryRun && list.add(item) == NameList::AddResult::Failed) {
                return fail(QStringLiteral("The list %1 cannot be written.").arg(name));
            }
        }
    }
    return true;
}

bool ImportMerge::mergeLog(ImportLog log, const ImportedHistory& history, LogCounts& counts) {
    const auto& days = history.days(log);
    if (days.empty()) {
        return true;
    }
    const std::vector<UserDatabase> which = databasesOf(log);
    std::vector<RecordDatabase> databases(which.size());
    for (size_t i = 0; i < which.size(); ++i) {
        const QString name = DatabaseCatalogue::userDatabaseName(which[i], m_user);
        if (!m_dryRun && !DatabaseCatalogue::ensureDatedLog(name)) {
            return fail(QStringLiteral("The database %1 cannot be created.").arg(name));
        }
        if (!databases[i].Open(name, DayKey::kPropId) && !m_dryRun) {
            return fail(QStringLiteral("Error accessing database %1.").arg(name));
        }
    }
    std::vector<CEOID> existing(which.size());
    std::vector<DbRecord> stored(which.size());
    for (const auto& [day, imported] : days) {
        if (m_report != nullptr) {
            m_report->keepResponsive();
        }
        if (imported.spoiled) {
            ++counts.spoiled;
            continue;
        }
        const DbProp key = DayKey::prop(day);
        bool holdsEntry = false;
        bool found = false;
        for (size_t i = 0; i < databases.size(); ++i) {
            stored[i].clear();
            existing[i] = databases[i].isOpen() ? databases[i].SeekFirstEqual(key) : 0;
            if (existing[i] != 0) {
                if (!databases[i].ReadCurrent(stored[i])) {
                    return fail(QStringLiteral("Error accessing database %1.").arg(databases[i].name()));
                }
                found = true;
                holdsEntry = holdsEntry || RecordEntries::holdsEntry(kindOf(log), stored[i]);
            }
        }
        if (holdsEntry && !m_replace) {
            ++counts.left;
            counts.leftDays.push_back(day);
            continue;
        }
        ++(holdsEntry ? counts.replaced : found ? counts.filled : counts.added);
        if (m_dryRun) {
            continue;
        }
        for (size_t i = 0; i < databases.size(); ++i) {
            const DbRecord record = composed(key, stored[i], i == 0 ? imported.first : imported.second, history, log);
            if ((existing[i] != 0 && !databases[i].DeleteRecord(existing[i])) || databases[i].Write(record, 0) == 0) {
                return fail(QStringLiteral("Error writing new record (error %1).").arg(GetLastError()));
            }
        }
    }
    return true;
}
