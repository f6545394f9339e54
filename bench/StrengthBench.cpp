// The strength records against hand-written SQLite on the ten-year device, whose Misc groups (upper
// Misc, lower Misc 2) were last trained eight years before its last day:
//   load_day     what a strength page does to show a day: EnsureDay and ReadDay of one region (the
//                day's records exist; both are read whole)
//   pull_recent  opening the set-entry grid on a day whose group holds no sets: the walk steps back
//                one day and pulls in that day's sets
//   pull_years   opening the grid for a Misc group on a day of the last year: the walk steps back
//                over seven to eight years of days to the last one the group was trained
//   save_group   saving a group from the grid: its 60 properties into the day's record
// Each through the strength records (…_store) and through DirectStore (…_sqlite), the same sequence
// of regions, days, groups and values for both; the ratio store / sqlite must stay at most 2.

#include "BenchMain.h"
#include "DayKey.h"
#include "DirectStore.h"
#include "RatioRunner.h"
#include "SeededRandom.h"
#include "SetGridRecords.h"
#include "StrengthRecords.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <utility>

namespace {
constexpr double kLimit = 2.0;
constexpr int kMiscRestYears = 8;
constexpr int kJobs = 1024;
constexpr int kPullJobs = 256;
constexpr int kLongPullJobs = 32;
constexpr std::uint64_t kSequenceSeed = 20240701;
constexpr int kMiscGroup = 5;

// One region of the default user: its A and B database names.
struct Region {
    BodyRegion region;
    QString a;
    QString b;
};

struct DayJob {
    int region; // index into Workload::regions
    QDate day;
    std::int64_t key;
};

struct GroupJob {
    int region;
    QDate day;
    std::int64_t key;
    MuscleGroup group;
    QString database;
    CEPROPID first; // the group's lowest and highest property ids
    CEPROPID last;
};

struct SaveJob {
    GroupJob where;
    GroupSets sets;
    DirectRecord directProps;
};

struct Workload {
    std::vector<Region> regions;
    std::vector<DayJob> loads;
    std::vector<GroupJob> recentPulls;
    std::vector<GroupJob> longPulls;
    std::vector<SaveJob> saves;
};

std::int64_t keyOf(const QDate& day) {
    return static_cast<std::int64_t>(fileTimeTicks(DayKey::of(day)));
}

QDate randomDay(const QDate& first, const QDate& last, SeededRandom& random) {
    return first.addDays(random.between(0, static_cast<int>(first.daysTo(last))));
}

std::vector<Region> defaultRegions() {
    const QString user = DeviceGenerator::userName(0);
    return {{BodyRegion::Upper, DatabaseCatalogue::userDatabaseName(UserDatabase::UpperA, user),
             DatabaseCatalogue::userDatabaseName(UserDatabase::UpperB, user)},
            {BodyRegion::Lower, DatabaseCatalogue::userDatabaseName(UserDatabase::LowerA, user),
             DatabaseCatalogue::userDatabaseName(UserDatabase::LowerB, user)}};
}

GroupJob groupJob(const Workload& workload, int region, const QDate& day, int group) {
    const MuscleGroup muscles(workload.regions[static_cast<size_t>(region)].region, group);
    const Region& names = workload.regions[static_cast<size_t>(region)];
    const WORD firstNumber = muscles.setNumber(0);
    const WORD lastNumber = muscles.setNumber(MuscleGroup::kSets - 1) + StrengthSet::kIntensityOffset;
    return {region,
            day,
            keyOf(day),
            muscles,
            muscles.inDatabaseA() ? names.a : names.b,
            PROP_TAG(CEVT_LPWSTR, firstNumber),
            PROP_TAG(CEVT_I2, lastNumber)};
}

// The grid's day records: loads anywhere in the ten years; recent pulls on days whose group (not a
// Misc group) the set-up clears; long pulls of a Misc group in the last year; saves of any group
// on other days, a Misc group only while it was still trained, so that no save fills a gap a pull
// walks over.
void makeJobs(const DeviceGenerator& generator, Workload& workload) {
    SeededRandom random(kSequenceSeed);
    const QDate first = generator.firstDay().addDays(1);
    const QDate last = generator.lastDay();
    for (int i = 0; i < kJobs; ++i) {
        const QDate day = randomDay(first, last, random);
        workload.loads.push_back({random.between(0, 1), day, keyOf(day)});
    }
    std::set<std::pair<QDate, int>> cleared;
    for (int i = 0; i < kPullJobs; ++i) {
        const int region = random.between(0, 1);
        const QDate day = randomDay(first, last, random);
        workload.recentPulls.push_back(groupJob(workload, region, day, random.between(0, kMiscGroup - 1)));
        cleared.insert({day, region});
    }
    for (int i = 0; i < kLongPullJobs; ++i) {
        const QDate day = randomDay(last.addYears(-1).addDays(1), last, random);
        workload.longPulls.push_back(groupJob(workload, random.between(0, 1), day, kMiscGroup));
    }
    while (static_cast<int>(workload.saves.size()) < kJobs) {
        const int region = random.between(0, 1);
        const int group = random.between(0, kMiscGroup);
        const QDate day = randomDay(first, group == kMiscGroup ? generator.lastMiscDay() : last, random);
        const std::uint64_t variant = random.next();
        if (cleared.count({day, region}) != 0) {
            continue;
        }
        GroupJob where = groupJob(workload, region, day, group);
        const GroupSets sets =
            GroupSets::fromRecord(DeviceGenerator::groupSets(where.group.database(), group, variant), where.group);
        DirectRecord directProps = DirectStore::fromRecord(sets.toRecord(where.group));
        workload.saves.push_back({std::move(where), sets, std::move(directProps)});
    }
}

// Clears the groups the recent pulls open, as the page's delete-a-group does.
bool clearRecentGroups(const Workload& workload) {
    return std::all_of(workload.recentPulls.begin(), workload.recentPulls.end(), [&workload](const GroupJob& job) {
        const Region& names = workload.regions[static_cast<size_t>(job.region)];
        return StrengthRecords(names.a, names.b).ClearGroup(job.day, job.group);
    });
}

// --- The baseline: what a careful programmer writes against the tables --------------------------

// The page's load of a day in one read transaction: both day records sought (they exist, so
// nothing is added) and read whole.
bool loadDayByHand(DirectStore& direct, const Region& names, std::int64_t key, DirectRecord& a, DirectRecord& b) {
    if (!direct.beginRead()) {
        return false;
    }
    const CEOID aDb = direct.databaseId(names.a);
    const CEOID bDb = direct.databaseId(names.b);
    const CEOID aRecord = aDb == 0 ? 0 : direct.seekFirstEqual(aDb, key);
    const CEOID bRecord = bDb == 0 ? 0 : direct.seekFirstEqual(bDb, key);
    const bool read = aRecord != 0 && bRecord != 0 && direct.readRecord(aRecord, a) && direct.readRecord(bRecord, b);
    return direct.endRead() && read;
}

bool firstSetRecorded(const DirectRecord& props, CEPROPID first) {
    if (props.empty() || props.front().id != first) {
        return false;
    }
    const QString* exercise = std::get_if<QString>(&props.front().value);
    return exercise != nullptr && !exercise->isEmpty();
}

// Opening the grid in one read transaction: the day's record and its group properties; when it
// has none, the same properties of each earlier record until one's first set holds an exercise.
bool openGridByHand(DirectStore& direct, const GroupJob& job, DirectRecord& props) {
    if (!direct.beginRead()) {
        return false;
    }
    const CEOID database = direct.databaseId(job.database);
    const CEOID today = database == 0 ? 0 : direct.seekFirstEqual(database, job.key);
    bool ok = today != 0 && direct.readProps(today, job.first, job.last, props);
    if (ok && props.empty()) {
        CEOID found = 0;
        ok = direct.walkBack(
            database, job.key, job.first, job.last,
            [&job](const DirectRecord& candidate) { return firstSetRecorded(candidate, job.first); }, props, &found);
    }
    return direct.endRead() && ok;
}

// --- The cases --------------------------------------------------------------------------------

void loadDayStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    for (auto _ : state) {
        const DayJob& job = workload.loads[i++ % workload.loads.size()];
        const Region& names = workload.regions[static_cast<size_t>(job.region)];
        const StrengthRecords records(names.a, names.b);
        const std::optional<StrengthDay> day = records.EnsureDay(job.day) ? records.ReadDay(job.day) : std::nullopt;
        if (!day) {
            state.SkipWithError("store load failed");
            break;
        }
        benchmark::DoNotOptimize(day);
    }
}

void loadDaySqlite(benchmark::State& state, const Workload& workload, DirectStore& direct) {
    size_t i = 0;
    DirectRecord a;
    DirectRecord b;
    for (auto _ : state) {
        const DayJob& job = workload.loads[i++ % workload.loads.size()];
        if (!loadDayByHand(direct, workload.regions[static_cast<size_t>(job.region)], job.key, a, b)) {
            state.SkipWithError("sqlite load failed");
            break;
        }
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(b);
    }
}

void openGridStore(benchmark::State& state, const std::vector<GroupJob>& jobs, const Workload& workload) {
    const PullSettings pullLast = PullSettings::fromStored(0, 0, 0);
    size_t i = 0;
    for (auto _ : state) {
        const GroupJob& job = jobs[i++ % jobs.size()];
        const Region& names = workload.regions[static_cast<size_t>(job.region)];
        const std::optional<GroupSets> sets = SetGridRecords(names.a, names.b).open(job.day, job.group, pullLast);
        if (!sets || !sets->at(0).isRecorded()) {
            state.SkipWithError("store pull-in found nothing");
            break;
        }
        benchmark::DoNotOptimize(sets);
    }
}

void openGridSqlite(benchmark::State& state, const std::vector<GroupJob>& jobs, DirectStore& direct) {
    size_t i = 0;
    DirectRecord props;
    for (auto _ : state) {
        const GroupJob& job = jobs[i++ % jobs.size()];
        if (!openGridByHand(direct, job, props) || !firstSetRecorded(props, job.first)) {
            state.SkipWithError("sqlite pull-in found nothing");
            break;
        }
        benchmark::DoNotOptimize(props);
    }
}

void saveGroupStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    for (auto _ : state) {
        const SaveJob& job = workload.saves[i++ % workload.saves.size()];
        const Region& names = workload.regions[static_cast<size_t>(job.where.region)];
        if (!StrengthRecords(names.a, names.b).WriteGroup(job.where.day, job.where.group, job.sets)) {
            state.SkipWithError("store save failed");
            break;
        }
    }
}

void saveGroupSqlite(benchmark::State& state, const Workload& workload, DirectStore& direct) {
    size_t i = 0;
    for (auto _ : state) {
        const SaveJob& job = workload.saves[i++ % workload.saves.size()];
        if (!direct.writeDayProps(job.where.database, job.where.key, job.directProps)) {
            state.SkipWithError("sqlite save failed");
            break;
        }
    }
}

// --- Before measuring: both ways read the same ----------------------------------------------------

int recordedExercises(const DirectRecord& props) {
    return static_cast<int>(std::count_if(props.begin(), props.end(), [](const DirectProp& prop) {
        const WORD number = HIWORD(prop.id);
        const QString* text = std::get_if<QString>(&prop.value);
        return number >= StrengthDay::kFirstSlot && number <= StrengthDay::kLastSlot &&
               (number - StrengthDay::kFirstSlot) % MuscleGroup::kPropsPerSet == 0 && text != nullptr &&
               !text->isEmpty();
    }));
}

bool sameLoad(DirectStore& direct, const Workload& workload, const DayJob& job) {
    const Region& names = workload.regions[static_cast<size_t>(job.region)];
    const std::optional<StrengthDay> day = StrengthRecords(names.a, names.b).LoadDay(job.day);
    DirectRecord a;
    DirectRecord b;
    return day && loadDayByHand(direct, names, job.key, a, b) &&
           static_cast<int>(day->sets().size()) == recordedExercises(a) + recordedExercises(b);
}

bool samePull(DirectStore& direct, const Workload& workload, const GroupJob& job) {
    const Region& names = workload.regions[static_cast<size_t>(job.region)];
    const std::optional<GroupSets> sets =
        SetGridRecords(names.a, names.b).open(job.day, job.group, PullSettings::fromStored(0, 0, 0));
    DirectRecord props;
    return sets && openGridByHand(direct, job, props) && firstSetRecorded(props, job.first) &&
           DirectStore::fromRecord(sets->toRecord(job.group)) == props;
}

void registerCases(RatioRunner& runner, const Workload& workload, DirectStore& direct) {
    using benchmark::State;
    runner.addPair(
        "load_day", [&](State& state) { loadDayStore(state, workload); },
        [&](State& state) { loadDaySqlite(state, workload, direct); }, kLimit);
    runner.addPair(
        "pull_recent", [&](State& state) { openGridStore(state, workload.recentPulls, workload); },
        [&](State& state) { openGridSqlite(state, workload.recentPulls, direct); }, kLimit);
    runner.addPair(
        "pull_years", [&](State& state) { openGridStore(state, workload.longPulls, workload); },
        [&](State& state) { openGridSqlite(state, workload.longPulls, direct); }, kLimit, benchmark::kMillisecond);
    // One durable commit on each side; see StoreBench's write_group.
    runner.addPair(
        "save_group", [&](State& state) { saveGroupStore(state, workload); },
        [&](State& state) { saveGroupSqlite(state, workload, direct); }, kLimit);
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv, kMiscRestYears);
    if (!bench.start()) {
        return 1;
    }
    Workload workload;
    workload.regions = defaultRegions();
    makeJobs(bench.device().generator(), workload);
    if (!clearRecentGroups(workload)) {
        return bench.fail(QStringLiteral("The groups of the recent pulls could not be cleared."));
    }
    DirectStore& direct = bench.direct();
    const auto sameLoads = [&](const DayJob& job) { return sameLoad(direct, workload, job); };
    const auto samePulls = [&](const GroupJob& job) { return samePull(direct, workload, job); };
    if (!std::all_of(workload.loads.begin(), workload.loads.begin() + 16, sameLoads) ||
        !std::all_of(workload.recentPulls.begin(), workload.recentPulls.begin() + 16, samePulls) ||
        !std::all_of(workload.longPulls.begin(), workload.longPulls.begin() + 4, samePulls)) {
        return bench.fail(QStringLiteral("The strength records and the baseline read different sets."));
    }
    registerCases(bench.runner(), workload, direct);
    return bench.run();
}
