// The aerobic records against hand-written SQLite on the ten-year device (default user), on days
// that hold the generated two exercises:
//   show_day       what the aerobic page does to show an existing day: ShowDay (found, the
//                  whole record read, the three slots' exercises and the day's count)
//   save_exercise  one change on the page: one slot's thirty properties into the day's record
// Each through the aerobic records (…_store) and through DirectStore (…_sqlite), the same sequence
// of days and exercises for both; the ratio store / sqlite must stay at most 2.

#include "AerobicRecords.h"
#include "BenchDay.h"
#include "BenchMain.h"
#include "DayKey.h"
#include "DirectStore.h"
#include "RatioRunner.h"
#include "SeededRandom.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

namespace {
constexpr double kLimit = 2.0;
constexpr int kDays = 256;
constexpr int kJobs = 1024;
constexpr int kGeneratedExercises = 2;
constexpr std::uint64_t kSequenceSeed = 20240916;

struct SaveJob {
    BenchDay where;
    int slot;
    AerobicExercise exercise;
    DirectRecord directProps;
};

struct Workload {
    QString aerobic;
    std::vector<BenchDay> shows;
    std::vector<SaveJob> saves;
};

// Days to show and saves into their first two slots (so that every day keeps two exercises).
void makeJobs(const DeviceGenerator& generator, Workload& workload) {
    static const char* const kNames[] = {"Run", "Bike", "Swim", "Walk", "Rowing"};
    SeededRandom random(kSequenceSeed);
    workload.shows = BenchDay::distinct(generator, random, kDays);
    for (int i = 0; i < kJobs; ++i) {
        const BenchDay& where = workload.shows[static_cast<size_t>(random.between(0, kDays - 1))];
        AerobicExercise exercise;
        exercise.exercise = QString::fromLatin1(kNames[random.between(0, 4)]);
        exercise.course = QStringLiteral("Course %1").arg(random.between(1, 9));
        exercise.distance = random.between(10, 250) / 10.0;
        exercise.heartRate = random.between(110, 175);
        exercise.start = QDateTime(where.day, QTime(random.between(5, 20), random.between(0, 59)));
        exercise.end = exercise.start.addSecs(60 * random.between(15, 90));
        exercise.elapsedSeconds = random.between(0, 59);
        exercise.completed = random.between(0, 1) == 1;
        exercise.notes = QStringLiteral("Note %1").arg(i);
        for (int& minute : exercise.minutes) {
            minute = random.between(-1, 10);
        }
        const int slot = random.between(1, kGeneratedExercises);
        const std::optional<AerobicSlot> ids = AerobicSlot::of(slot);
        workload.saves.push_back({where, slot, exercise, DirectStore::fromRecord(exercise.toRecord(*ids))});
    }
}

// The exercises a day read by hand holds: the slots whose name is stored.
int exercisesByHand(const DirectRecord& props) {
    return static_cast<int>(std::count_if(props.begin(), props.end(), [](const DirectProp& prop) {
        const WORD number = HIWORD(prop.id);
        return number == 701 || number == 801 || number == 901;
    }));
}

void showDayStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    const AerobicRecords records(workload.aerobic);
    for (auto _ : state) {
        const BenchDay& job = workload.shows[i++ % workload.shows.size()];
        const std::optional<AerobicDay> day = records.ShowDay(job.day);
        if (!day || day->exerciseCount() != kGeneratedExercises) {
            state.SkipWithError("store show failed");
            break;
        }
        benchmark::DoNotOptimize(day);
    }
}

void showDaySqlite(benchmark::State& state, const Workload& workload, DirectStore& direct) {
    size_t i = 0;
    DirectRecord props;
    for (auto _ : state) {
        const BenchDay& job = workload.shows[i++ % workload.shows.size()];
        if (!direct.readDay(workload.aerobic, job.key, props) || exercisesByHand(props) != kGeneratedExercises) {
            state.SkipWithError("sqlite show failed");
            break;
        }
        benchmark::DoNotOptimize(props);
    }
}

void saveExerciseStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    const AerobicRecords records(workload.aerobic);
    for (auto _ : state) {
        const SaveJob& job = workload.saves[i++ % workload.saves.size()];
        if (!records.SaveExercise(job.where.day, job.slot, job.exercise)) {
            state.SkipWithError("store save failed");
            break;
        }
    }
}

void registerCases(RatioRunner& runner, const Workload& workload, DirectStore& direct) {
    using benchmark::State;
    runner.addPair(
        "show_day", [&](State& state) { showDayStore(state, workload); },
        [&](State& state) { showDaySqlite(state, workload, direct); }, kLimit);
    // One durable commit on each side; see StoreBench's write_group.
    runner.addPair(
        "save_exercise", [&](State& state) { saveExerciseStore(state, workload); },
        [&](State& state) { writeDaysSqlite(state, workload.saves, workload.aerobic, direct); }, kLimit);
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    Workload workload;
    workload.aerobic = DatabaseCatalogue::userDatabaseName(UserDatabase::Aerobic, DeviceGenerator::userName(0));
    makeJobs(bench.device().generator(), workload);
    DirectStore& direct = bench.direct();
    // Both ways see the same days: two exercises each.
    const AerobicRecords records(workload.aerobic);
    for (int i = 0; i < 16; ++i) {
        const BenchDay& job = workload.shows[static_cast<size_t>(i)];
        const std::optional<AerobicDay> day = records.ReadDay(job.day);
        DirectRecord props;
        if (!day || !direct.readDay(workload.aerobic, job.key, props) ||
            exercisesByHand(props) != kGeneratedExercises || day->exerciseCount() != kGeneratedExercises) {
            return bench.fail(QStringLiteral("The aerobic records and the baseline read different days."));
        }
    }
    registerCases(bench.runner(), workload, direct);
    return bench.run();
}
