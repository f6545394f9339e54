// The tidy tables against hand-written SQLite on the ten-year device, for one user (Ann):
// - tables_export: the store side is export --tables itself. The baseline walks the six logs with
//   DirectStore in one read transaction and hands each record to the same row formatting
//   (TablesExport's day functions), writing the same five files. Both must write identical files.
// - tables_import: the store side is the import of those five files into an empty user, merge and
//   transaction included. The baseline parses them with the same reader (TablesReader) and, in one
//   write transaction, seeks each day as the merge does and inserts its records and properties with
//   plain INSERTs. Each side starts from a user without logs (made so outside the timing).
// The ratios store / sqlite must stay at most 2.

#include "BenchMain.h"
#include "DatabaseCatalogue.h"
#include "DayKey.h"
#include "DirectStore.h"
#include "HistoryImport.h"
#include "RatioRunner.h"
#include "TableFile.h"
#include "TablesExport.h"
#include "TablesReader.h"
#include "TimeConversion.h"
#include "UtilityReport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace {
constexpr double kLimit = 2.0;
const QString kImported = QStringLiteral("Imported");
const QString kBaseline = QStringLiteral("Baseline");

class SilentReport : public UtilityReport {
public:
    void status(const QString&) override {}
    void message(const QString& text) override { failure = text; }
    void progressRange(int, int) override {}
    void progressPosition(int) override {}
    void progressStep(int) override {}
    void stepProgress() override {}
    QString failure;
};

DbRecord toRecord(const DirectRecord& props) {
    DbRecord record;
    for (const DirectProp& prop : props) {
        const WORD number = HIWORD(prop.id);
        const auto* integer = std::get_if<std::int64_t>(&prop.value);
        switch (LOWORD(prop.id)) {
        case CEVT_I2:
            record.append(DbProp::i2(number, static_cast<std::int16_t>(*integer)));
            break;
        case CEVT_UI2:
            record.append(DbProp::ui2(number, static_cast<WORD>(*integer)));
            break;
        case CEVT_I4:
            record.append(DbProp::i4(number, static_cast<LONG>(*integer)));
            break;
        case CEVT_R8:
            record.append(DbProp::r8(number, std::get<double>(prop.value)));
            break;
        case CEVT_LPWSTR:
            record.append(DbProp::text(number, std::get<QString>(prop.value)));
            break;
        case CEVT_FILETIME:
            record.append(DbProp::fileTime(number, fileTimeFromTicks(static_cast<std::uint64_t>(*integer))));
            break;
        default:
            break;
        }
    }
    return record;
}

using Days = std::vector<std::pair<QDate, DbRecord>>;

bool walkLog(DirectStore& direct, const QString& name, Days& days) {
    days.clear();
    const FILETIME reference = DayKey::referenceDay();
    return direct.walk(direct.databaseId(name), [&](CEOID, const DirectRecord& props) {
        DbRecord record = toRecord(props);
        const DbProp* key = record.find(DayKey::kNumber);
        if (key != nullptr && key->toFileTime() != reference) {
            days.emplace_back(DayKey::dateOf(key->toFileTime()), std::move(record));
        }
    }) >= 0;
}

// export --tables written by hand over DirectStore, with the same row formatting.
bool exportByHand(DirectStore& direct, const QString& user, const QString& folder) {
    std::vector<std::unique_ptr<TableFile>> files;
    for (TidyTables::Table table : TidyTables::kAll) {
        files.push_back(std::make_unique<TableFile>(QDir(folder).filePath(TidyTables::fileName(table))));
        if (!files.back()->create(TidyTables::header(table))) {
            return false;
        }
    }
    auto file = [&files](TidyTables::Table table) -> TableFile& { return *files[static_cast<size_t>(table)]; };
    if (!direct.beginRead()) {
        return false;
    }
    Days a, b, log;
    bool ok = true;
    for (bool upper : {true, false}) {
        const BodyRegion region = upper ? BodyRegion::Upper : BodyRegion::Lower;
        ok = ok && walkLog(direct, DatabaseCatalogue::userDatabaseName(MuscleGroup::databaseA(region), user), a) &&
             walkLog(direct, DatabaseCatalogue::userDatabaseName(MuscleGroup::databaseB(region), user), b);
        size_t j = 0;
        for (const auto& [day, record] : a) {
            while (j < b.size() && b[j].first < day) {
                ++j;
            }
            TablesExport::addStrengthDay(file(TidyTables::Table::Workouts), file(TidyTables::Table::Sets), day, upper,
                                         record, j < b.size() && b[j].first == day ? &b[j].second : nullptr);
        }
    }
    ok = ok && walkLog(direct, DatabaseCatalogue::userDatabaseName(UserDatabase::Aerobic, user), log);
    for (const auto& [day, record] : log) {
        TablesExport::addAerobicDay(file(TidyTables::Table::Aerobic), day, record);
    }
    ok = ok && walkLog(direct, DatabaseCatalogue::userDatabaseName(UserDatabase::Food, user), log);
    for (const auto& [day, record] : log) {
        TablesExport::addFoodDay(file(TidyTables::Table::Body), file(TidyTables::Table::Meals), day, record);
    }
    for (auto& table : files) {
        ok = table->close() && ok;
    }
    return direct.endRead() && ok;
}

QByteArray readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The user's six logs gone; with markers, the six made again empty.
bool resetUser(const QString& user, bool remake) {
    for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
        if (!DatabaseCatalogue::deleteIfExists(name) || (remake && !DatabaseCatalogue::ensureDatedLog(name))) {
            return false;
        }
    }
    return true;
}

// The import written by hand: the same parsing, then plain INSERTs in one transaction.
bool importByHand(DirectStore& direct, const QString& folder, const QString& user) {
    ImportedHistory history;
    TablesReader reader(history);
    for (TidyTables::Table table : TidyTables::kAll) {
        CsvProblem refusal;
        const auto text =
            CsvText::readUtf8(readAll(QDir(folder).filePath(TidyTables::fileName(table))), QLatin1Char(','), &refusal);
        if (!text) {
            return false;
        }
        reader.read(table, *text, TidyTables::fileName(table));
    }
    reader.finish();
    if (!direct.beginWrite()) {
        return false;
    }
    const std::pair<ImportLog, std::vector<UserDatabase>> logs[] = {
        {ImportLog::Upper, {UserDatabase::UpperA, UserDatabase::UpperB}},
        {ImportLog::Lower, {UserDatabase::LowerA, UserDatabase::LowerB}},
        {ImportLog::Aerobic, {UserDatabase::Aerobic}},
        {ImportLog::Food, {UserDatabase::Food}}};
    bool ok = true;
    for (const auto& [log, databases] : logs) {
        std::vector<CEOID> ids;
        for (UserDatabase which : databases) {
            ids.push_back(direct.databaseId(DatabaseCatalogue::userDatabaseName(which, user)));
        }
        for (const auto& [day, imported] : history.days(log)) {
            const auto key = static_cast<std::int64_t>(fileTimeTicks(DayKey::of(day)));
            for (size_t i = 0; i < ids.size() && ok; ++i) {
                DbRecord record;
                record.append(DayKey::prop(day));
                for (const auto& [number, prop] : i == 0 ? imported.first : imported.second) {
                    record.append(prop);
                }
                ok = direct.seekFirstEqual(ids[i], key) == 0 &&
                     direct.addRecord(ids[i], key, DirectStore::fromRecord(record)) != 0;
            }
        }
    }
    return direct.commitWrite() && ok;
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    const QString user = DeviceGenerator::userName(1);
    QTemporaryDir storeFolder, baselineFolder;
    SilentReport report;
    if (!TablesExport(user, storeFolder.path()).run(report)) {
        return bench.fail(QStringLiteral("The export failed: ") + report.failure);
    }
    DirectStore& direct = bench.direct();
    if (!exportByHand(direct, user, baselineFolder.path())) {
        return bench.fail(QStringLiteral("The baseline export failed: ") + direct.errorText());
    }
    for (TidyTables::Table table : TidyTables::kAll) {
        const QString name = TidyTables::fileName(table);
        const QByteArray written = readAll(QDir(storeFolder.path()).filePath(name));
        if (written != readAll(QDir(baselineFolder.path()).filePath(name)) || written.count('\n') < 3000) {
            return bench.fail(QStringLiteral("The export and the baseline wrote different files: ") + name);
        }
    }
    // Both imports must take every day, and store what the other stores.
    const HistoryImport::Outcome outcome = HistoryImport(kImported, storeFolder.path(), {}).run();
    if (!outcome.complete || !resetUser(kBaseline, true) || !importByHand(direct, storeFolder.path(), kBaseline)) {
        return bench.fail(QStringLiteral("An import failed: ") + outcome.text + direct.errorText());
    }
    QTemporaryDir importedTables, baselineTables;
    TablesExport(kImported, importedTables.path()).run(report);
    TablesExport(kBaseline, baselineTables.path()).run(report);
    for (TidyTables::Table table : TidyTables::kAll) {
        const QString name = TidyTables::fileName(table);
        if (readAll(QDir(importedTables.path()).filePath(name)) != readAll(QDir(storeFolder.path()).filePath(name)) ||
            readAll(QDir(baselineTables.path()).filePath(name)) != readAll(QDir(storeFolder.path()).filePath(name))) {
            return bench.fail(QStringLiteral("The imports stored different days: ") + name);
        }
    }

    bench.runner().addPair(
        "tables_export",
        [&](benchmark::State& state) {
            for (auto _ : state) {
                SilentReport silent;
                if (!TablesExport(user, storeFolder.path()).run(silent)) {
                    state.SkipWithError("export failed");
                    break;
                }
            }
        },
        [&](benchmark::State& state) {
            for (auto _ : state) {
                if (!exportByHand(direct, user, baselineFolder.path())) {
                    state.SkipWithError("baseline failed");
                    break;
                }
            }
        },
        kLimit, benchmark::kMillisecond);
    bench.runner().addPair(
        "tables_import",
        [&](benchmark::State& state) {
            for (auto _ : state) {
                state.PauseTiming();
                const bool reset = resetUser(kImported, false);
                state.ResumeTiming();
                if (!reset || !HistoryImport(kImported, storeFolder.path(), {}).run().complete) {
                    state.SkipWithError("import failed");
                    break;
                }
            }
        },
        [&](benchmark::State& state) {
            for (auto _ : state) {
                state.PauseTiming();
                const bool reset = resetUser(kBaseline, true);
                state.ResumeTiming();
                if (!reset || !importByHand(direct, storeFolder.path(), kBaseline)) {
                    state.SkipWithError("baseline failed");
                    break;
                }
            }
        },
        kLimit, benchmark::kMillisecond);
    return bench.run();
}
