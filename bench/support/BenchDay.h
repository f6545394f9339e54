#pragma once
// A day of the generated device as the record benchmarks use it: the date for the records, the day
// key's stored value for the hand-written SQLite; and the baseline's side of a write benchmark.

#include "DayKey.h"
#include "DeviceGenerator.h"
#include "DirectStore.h"
#include "SeededRandom.h"

#include <QDate>
#include <QString>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <vector>

struct BenchDay {
    QDate day;
    std::int64_t key;

    static BenchDay of(const QDate& day) { return {day, static_cast<std::int64_t>(fileTimeTicks(DayKey::of(day)))}; }

    // count different days after the generator's first, in the order drawn.
    static std::vector<BenchDay> distinct(const DeviceGenerator& generator, SeededRandom& random, int count) {
        const int span = static_cast<int>(generator.firstDay().daysTo(generator.lastDay()));
        std::vector<BenchDay> days;
        while (static_cast<int>(days.size()) < count) {
            const BenchDay drawn = of(generator.firstDay().addDays(random.between(1, span)));
            if (std::none_of(days.begin(), days.end(), [&drawn](const BenchDay& d) { return d.day == drawn.day; })) {
                days.push_back(drawn);
            }
        }
        return days;
    }
};

// Each job's prepared properties (directProps) into its day (where) of database, one job an
// iteration, in turn.
template <typename Job>
void writeDaysSqlite(benchmark::State& state, const std::vector<Job>& jobs, const QString& database,
                     DirectStore& direct) {
    size_t i = 0;
    for (auto _ : state) {
        const Job& job = jobs[i++ % jobs.size()];
        if (!direct.writeDayProps(database, job.where.key, job.directProps)) {
            state.SkipWithError("sqlite write failed");
            break;
        }
    }
}
