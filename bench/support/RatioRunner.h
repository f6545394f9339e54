#pragma once
// Runs a bench program's Google Benchmark cases and turns each pair of (store, baseline) cases into
// one ratio: the median time per iteration of the store case over that of its baseline, both
// measured in the same run, their repetitions randomly interleaved so that load on the machine
// falls on both alike. Prints "ratio <name>: X.XX (limit L)" per pair.
//
// A ratio is taken on the thread's CPU time (user and system) or on real time; both are printed,
// the one chosen is checked. CPU time suits work whose waits are the same on both sides by
// construction (reads of a file in the OS cache, one durable commit each): other processes on a
// shared machine and the disk's whims then stretch neither side. Real time suits work where
// waiting is what differs.
//
// Accepts the usual --benchmark_* flags, and --check: exit 1 when a ratio is over its limit.
// Without --benchmark_repetitions it runs 5 repetitions of every case.

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

class RatioRunner {
public:
    RatioRunner(int argc, char** argv);

    enum class Clock { Cpu, Real };

    // A ratio to report: the store case's time over the baseline case's, named after the cases'
    // registered names.
    void addRatio(const std::string& name, const std::string& storeCase, const std::string& baselineCase, Clock clock,
                  double limit);
    // Registers name + "_store" and name + "_sqlite" (each a callable taking benchmark::State&), both
    // on real time in unit, and the CPU-time ratio of the two under name.
    template <typename Store, typename Baseline>
    void addPair(const std::string& name, Store store, Baseline baseline, double limit,
                 benchmark::TimeUnit unit = benchmark::kMicrosecond) {
        benchmark::RegisterBenchmark((name + "_store").c_str(), std::move(store))->Unit(unit)->UseRealTime();
        benchmark::RegisterBenchmark((name + "_sqlite").c_str(), std::move(baseline))->Unit(unit)->UseRealTime();
        addRatio(name, name + "_store", name + "_sqlite", Clock::Cpu, limit);
    }

    // Runs the registered cases; 0 on success, 1 when a case failed or (with --check) a ratio is
    // over its limit, 2 for an unknown argument.
    int run();

private:
    struct Ratio {
        std::string name;
        std::string storeCase;
        std::string baselineCase;
        Clock clock;
        double limit;
    };

    std::vector<std::string> m_arguments;
    std::vector<Ratio> m_ratios;
    bool m_check = false;
};
