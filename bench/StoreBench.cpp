// The record store against hand-written SQLite on the same ten-year device:
//   read_day   open a log, seek a day by its key, read the record whole, close
//   write_group  write the sixty properties of one strength group into an existing record
//   walk_log   read every record of a log in date order
// Each is measured through RecordDatabase (…_store) and through DirectStore (…_sqlite), the same
// sequence of logs, days and values for both; the ratio store / sqlite must stay at most 1.5.

#include "BenchMain.h"
#include "DayKey.h"
#include "DirectStore.h"
#include "RatioRunner.h"
#include "RecordDatabase.h"
#include "SeededRandom.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

namespace {
constexpr double kLimit = 1.5;
constexpr int kJobs = 4096;
constexpr std::uint64_t kSequenceSeed = 20240630;

struct ReadJob {
    QString log;
    DbProp key;
    std::int64_t keyTicks;
};

struct WriteJob {
    int log; // index into Workload::writeLogs
    CEOID database;
    CEOID record;
    DbRecord props;
    DirectRecord directProps;
};

struct Workload {
    std::vector<ReadJob> reads;
    std::array<QString, 4> writeLogs;
    std::vector<WriteJob> writes;
    QString walkLog;
    long walkRecords = 0;
};

QDate randomDay(const DeviceGenerator& generator, SeededRandom& random) {
    return generator.firstDay().addDays(random.between(0, generator.dayCount() - 1));
}

std::vector<ReadJob> readJobs(const BenchDevice& device) {
    SeededRandom random(kSequenceSeed);
    const QStringList logs = device.logNames();
    std::vector<ReadJob> jobs;
    for (int i = 0; i < kJobs; ++i) {
        const QDate day = randomDay(device.generator(), random);
        const QString& log = logs.at(random.between(0, static_cast<int>(logs.size()) - 1));
        jobs.push_back({log, DayKey::prop(day), static_cast<std::int64_t>(fileTimeTicks(DayKey::of(day)))});
    }
    return jobs;
}

// Writes go to the default user's four strength logs: a random day, a random group of the log.
bool addWriteJobs(const BenchDevice& device, DirectStore& direct, Workload& workload) {
    constexpr std::array<UserDatabase, 4> kLogs = {UserDatabase::UpperA, UserDatabase::UpperB, UserDatabase::LowerA,
                                                   UserDatabase::LowerB};
    std::array<CEOID, 4> databases{};
    for (int i = 0; i < 4; ++i) {
        workload.writeLogs[i] = DatabaseCatalogue::userDatabaseName(kLogs[i], DeviceGenerator::userName(0));
        databases[i] = direct.databaseId(workload.writeLogs[i]);
    }
    SeededRandom random(kSequenceSeed + 1);
    for (int i = 0; i < kJobs; ++i) {
        const int log = random.between(0, 3);
        const bool isA = kLogs[log] == UserDatabase::UpperA || kLogs[log] == UserDatabase::LowerA;
        const int group = isA ? random.between(0, 1) : random.between(2, 5);
        const QDate day = randomDay(device.generator(), random);
        const CEOID record = direct.seekFirstEqual(databases[log], fileTimeTicks(DayKey::of(day)));
        if (record == 0) {
            return false;
        }
        DbRecord props = DeviceGenerator::groupSets(kLogs[log], group, random.next());
        DirectRecord directProps = DirectStore::fromRecord(props);
        workload.writes.push_back({log, databases[log], record, std::move(props), std::move(directProps)});
    }
    return true;
}

// Both ways read the same properties with the same values, so both do the same work.
bool sameRead(DirectStore& direct, const ReadJob& job) {
    RecordDatabase db;
    DbRecord stored;
    DirectRecord read;
    if (!db.Open(job.log, DayKey::kPropId) || db.SeekFirstEqual(job.key) == 0 || !db.ReadCurrent(stored)) {
        return false;
    }
    const CEOID record = direct.seekFirstEqual(direct.databaseId(job.log), job.keyTicks);
    return record == db.CurrentRecordId() && direct.readRecord(record, read) && read == DirectStore::fromRecord(stored);
}

void readDayStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    DbRecord record;
    for (auto _ : state) {
        const ReadJob& job = workload.reads[i++ % workload.reads.size()];
        RecordDatabase db;
        if (!db.Open(job.log, DayKey::kPropId) || db.SeekFirstEqual(job.key) == 0 || !db.ReadCurrent(record)) {
            state.SkipWithError("store read failed");
            break;
        }
        db.Close();
        benchmark::DoNotOptimize(record);
    }
}

void readDaySqlite(benchmark::State& state, const Workload& workload, DirectStore& direct) {
    size_t i = 0;
    DirectRecord record;
    for (auto _ : state) {
        const ReadJob& job = workload.reads[i++ % workload.reads.size()];
        if (!direct.beginRead()) {
            state.SkipWithError("sqlite begin failed");
            break;
        }
        const CEOID database = direct.databaseId(job.log);
        const CEOID oid = database == 0 ? 0 : direct.seekFirstEqual(database, job.keyTicks);
        const bool read = oid != 0 && direct.readRecord(oid, record);
        if (!direct.endRead() || !read) {
            state.SkipWithError("sqlite read failed");
            break;
        }
        benchmark::DoNotOptimize(record);
    }
}

void writeGroupStore(benchmark::State& state, const Workload& workload) {
    std::array<RecordDatabase, 4> logs;
    for (size_t log = 0; log < logs.size(); ++log) {
        if (!logs[log].Open(workload.writeLogs[log], DayKey::kPropId)) {
            state.SkipWithError("store open failed");
            return;
        }
    }
    size_t i = 0;
    for (auto _ : state) {
        const WriteJob& job = workload.writes[i++ % workload.writes.size()];
        if (logs[job.log].Write(job.props, job.record) != job.record) {
            state.SkipWithError("store write failed");
            break;
        }
    }
}

void writeGroupSqlite(benchmark::State& state, const Workload& workload, DirectStore& direct) {
    size_t i = 0;
    for (auto _ : state) {
        const WriteJob& job = workload.writes[i++ % workload.writes.size()];
        if (!direct.writeProps(job.database, job.record, job.directProps)) {
            state.SkipWithError("sqlite write failed");
            break;
        }
    }
}

void walkLogStore(benchmark::State& state, const Workload& workload) {
    DbRecord record;
    for (auto _ : state) {
        RecordDatabase db;
        long records = 0;
        if (db.Open(workload.walkLog, DayKey::kPropId)) {
            for (CEOID oid = db.SeekFirst(); oid != 0 && db.ReadCurrent(record); oid = db.SeekNext()) {
                benchmark::DoNotOptimize(record);
                ++records;
            }
        }
        if (records != workload.walkRecords) {
            state.SkipWithError("store walk read a different number of records");
            break;
        }
    }
}

void walkLogSqlite(benchmark::State& state, const Workload& workload, DirectStore& direct) {
    for (auto _ : state) {
        const long records = direct.walk(direct.databaseId(workload.walkLog),
                                         [](CEOID, const DirectRecord& record) { benchmark::DoNotOptimize(record); });
        if (records != workload.walkRecords) {
            state.SkipWithError("sqlite walk read a different number of records");
            break;
        }
    }
}

void registerCases(RatioRunner& runner, const Workload& workload, DirectStore& direct) {
    using benchmark::State;
    runner.addPair(
        "read_day", [&](State& state) { readDayStore(state, workload); },
        [&](State& state) { readDaySqlite(state, workload, direct); }, kLimit);
    // Both sides commit once per write with the same durability, so the disk flush is the same
    // work on both; on real time its jitter on this machine swamps the difference.
    runner.addPair(
        "write_group", [&](State& state) { writeGroupStore(state, workload); },
        [&](State& state) { writeGroupSqlite(state, workload, direct); }, kLimit);
    runner.addPair(
        "walk_log", [&](State& state) { walkLogStore(state, workload); },
        [&](State& state) { walkLogSqlite(state, workload, direct); }, kLimit, benchmark::kMillisecond);
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    BenchDevice& device = bench.device();
    DirectStore& direct = bench.direct();
    Workload workload;
    workload.reads = readJobs(device);
    workload.walkLog = DatabaseCatalogue::userDatabaseName(UserDatabase::UpperA, DeviceGenerator::userName(0));
    workload.walkRecords = device.generator().dayCount() + 1; // and the marker record
    if (!addWriteJobs(device, direct, workload)) {
        return bench.fail(QStringLiteral("A day of the write sequence has no record."));
    }
    if (!std::all_of(workload.reads.begin(), workload.reads.begin() + 16,
                     [&direct](const ReadJob& job) { return sameRead(direct, job); })) {
        return bench.fail(QStringLiteral("The store and the baseline read different records."));
    }
    registerCases(bench.runner(), workload, direct);
    return bench.run();
}
