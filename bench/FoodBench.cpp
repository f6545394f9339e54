// The food records against hand-written SQLite on the ten-year device (default user), on days
// that hold fifteen meals (the set-up fills slots 6 to 14 of 256 random days):
//   show_day   what the food page does to show an existing day: ShowDay (found, the whole
//              record read, the fifteen meals listed)
//   save_day   saving the day values: the fifteen properties into the day's record
//   put_meal   the meal dialog's OK: one slot's five properties into the day's record
// Each through the food records (…_store) and through DirectStore (…_sqlite), the same sequence of
// days, values and meals for both; the ratio store / sqlite must stay at most 2.

#include "BenchDay.h"
#include "BenchMain.h"
#include "DayKey.h"
#include "DirectStore.h"
#include "FoodRecords.h"
#include "RatioRunner.h"
#include "SeededRandom.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>

namespace {
constexpr double kLimit = 2.0;
constexpr int kDays = 256;
constexpr int kJobs = 1024;
constexpr int kGeneratedMeals = 6;
constexpr std::uint64_t kSequenceSeed = 20240915;

struct SaveJob {
    BenchDay where;
    FoodDayValues values;
    DirectRecord directProps;
};

struct MealJob {
    BenchDay where;
    int slot;
    Meal meal;
    DirectRecord directProps;
};

struct Workload {
    QString food;
    std::vector<BenchDay> shows;
    std::vector<SaveJob> saves;
    std::vector<MealJob> meals;
};

Meal randomMeal(SeededRandom& random) {
    static const char* const kFoods[] = {"Chicken", "Brown Rice", "Broccoli", "Yogurt", "Salmon", "Apple", ""};
    const auto food = [&random] { return QString::fromLatin1(kFoods[random.between(0, 6)]); };
    return {QTime(random.between(5, 22), random.between(0, 59)), food(), food(), food(), food()};
}

// Fifteen-meal days to show, saves and meals on those days (replacing values and slots, so every
// one of them keeps its fifteen meals).
void makeJobs(const DeviceGenerator& generator, Workload& workload) {
    SeededRandom random(kSequenceSeed);
    const std::vector<BenchDay> days = BenchDay::distinct(generator, random, kDays);
    workload.shows = days;
    for (int i = 0; i < kJobs; ++i) {
        FoodDayValues values;
        values.water = random.between(0, 12);
        values.weight = random.between(150, 200);
        values.bodyFat = random.between(100, 250) / 10.0;
        values.notes = QStringLiteral("Note %1").arg(i);
        values.sleep = random.between(50, 90) / 10.0;
        values.waist = values.chest = values.biceps = values.quads = values.calves = random.between(100, 450) / 10.0;
        values.overall = random.between(0, 10);
        values.sleepQuality = random.between(0, 10);
        values.systolic = random.between(100, 140);
        values.diastolic = random.between(60, 90);
        values.restingHeartRate = random.between(45, 70);
        const BenchDay& where = days[static_cast<size_t>(random.between(0, kDays - 1))];
        workload.saves.push_back({where, values, DirectStore::fromRecord(values.toRecord())});
        const int slot = random.between(0, Meal::kSlots - 1);
        const Meal meal = randomMeal(random);
        workload.meals.push_back({days[static_cast<size_t>(random.between(0, kDays - 1))], slot, meal,
                                  DirectStore::fromRecord(meal.toRecord(slot))});
    }
}

// Fills slots 6 to 14 of every day shown, so that each holds fifteen meals.
bool fillMeals(const Workload& workload) {
    const FoodRecords records(workload.food);
    SeededRandom random(kSequenceSeed + 1);
    for (const BenchDay& job : workload.shows) {
        for (int slot = kGeneratedMeals; slot < Meal::kSlots; ++slot) {
            if (!records.PutMeal(job.day, slot, randomMeal(random))) {
                return false;
            }
        }
    }
    return true;
}

int mealTimes(const DirectRecord& props) {
    return static_cast<int>(std::count_if(props.begin(), props.end(), [](const DirectProp& prop) {
        const WORD number = HIWORD(prop.id);
        return number >= Meal::timeNumber(0) && number <= Meal::timeNumber(Meal::kSlots - 1) &&
               (number - Meal::kFirstNumber) % Meal::kNumbersPerSlot == 0;
    }));
}

void showDayStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    const FoodRecords records(workload.food);
    for (auto _ : state) {
        const BenchDay& job = workload.shows[i++ % workload.shows.size()];
        bool created = false;
        const std::optional<FoodDay> day = records.ShowDay(job.day, &created);
        if (!day || created || day->meals().size() != Meal::kSlots) {
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
        if (!direct.readDay(workload.food, job.key, props) || mealTimes(props) != Meal::kSlots) {
            state.SkipWithError("sqlite show failed");
            break;
        }
        benchmark::DoNotOptimize(props);
    }
}

void saveDayStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    const FoodRecords records(workload.food);
    for (auto _ : state) {
        const SaveJob& job = workload.saves[i++ % workload.saves.size()];
        if (!records.SaveDay(job.where.day, job.values)) {
            state.SkipWithError("store save failed");
            break;
        }
    }
}

void putMealStore(benchmark::State& state, const Workload& workload) {
    size_t i = 0;
    const FoodRecords records(workload.food);
    for (auto _ : state) {
        const MealJob& job = workload.meals[i++ % workload.meals.size()];
        if (!records.PutMeal(job.where.day, job.slot, job.meal)) {
            state.SkipWithError("store put failed");
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
        "save_day", [&](State& state) { saveDayStore(state, workload); },
        [&](State& state) { writeDaysSqlite(state, workload.saves, workload.food, direct); }, kLimit);
    runner.addPair(
        "put_meal", [&](State& state) { putMealStore(state, workload); },
        [&](State& state) { writeDaysSqlite(state, workload.meals, workload.food, direct); }, kLimit);
}
} // namespace

int main(int argc, char** argv) {
    BenchMain bench(argc, argv);
    if (!bench.start()) {
        return 1;
    }
    Workload workload;
    workload.food = DatabaseCatalogue::userDatabaseName(UserDatabase::Food, DeviceGenerator::userName(0));
    makeJobs(bench.device().generator(), workload);
    if (!fillMeals(workload)) {
        return bench.fail(QStringLiteral("The fifteen meals of the days shown could not be put."));
    }
    DirectStore& direct = bench.direct();
    // Both ways see the same day: as many properties read, fifteen meals.
    const FoodRecords records(workload.food);
    for (int i = 0; i < 16; ++i) {
        const BenchDay& job = workload.shows[static_cast<size_t>(i)];
        const std::optional<FoodDay> day = records.LoadDay(job.day);
        DirectRecord props;
        if (!day || !direct.readDay(workload.food, job.key, props) || mealTimes(props) != Meal::kSlots ||
            day->meals().size() != Meal::kSlots) {
            return bench.fail(QStringLiteral("The food records and the baseline read different days."));
        }
    }
    registerCases(bench.runner(), workload, direct);
    return bench.run();
}
