#include "RatioRunner.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {
bool hasFlag(const std::vector<std::string>& arguments, const std::string& prefix) {
    return std::any_of(arguments.begin(), arguments.end(),
                       [&prefix](const std::string& argument) { return argument.rfind(prefix, 0) == 0; });
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// Collects every repetition's CPU and real time per iteration (seconds) by case name; shows the
// aggregates of repeated cases (mean, median, spread) and single runs as they are.
class CollectingReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate || run.repetitions <= 1) {
                shown.push_back(run);
            }
            if (run.run_type != Run::RT_Iteration) {
                continue;
            }
            if (run.error_occurred) {
                m_failed.push_back(run.run_name.function_name + ": " + run.error_message);
            } else if (run.iterations > 0) {
                const auto iterations = static_cast<double>(run.iterations);
                Times& times = m_times[run.run_name.function_name];
                times.cpu.push_back(run.cpu_accumulated_time / iterations);
                times.real.push_back(run.real_accumulated_time / iterations);
            }
        }
        if (!shown.empty()) {
            ConsoleReporter::ReportRuns(shown);
        }
    }

    struct Times {
        std::vector<double> cpu;
        std::vector<double> real;
    };

    const std::map<std::string, Times>& times() const { return m_times; }
    const std::vector<std::string>& failed() const { return m_failed; }

private:
    std::map<std::string, Times> m_times;
    std::vector<std::string> m_failed;
};
} // namespace

RatioRunner::RatioRunner(int argc, char** argv) {
    for (int i = 0; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--check") {
            m_check = true;
        } else {
            m_arguments.push_back(argument);
        }
    }
    if (!hasFlag(m_arguments, "--benchmark_repetitions")) {
        m_arguments.emplace_back("--benchmark_repetitions=5");
    }
    if (!hasFlag(m_arguments, "--benchmark_enable_random_interleaving")) {
        m_arguments.emplace_back("--benchmark_enable_random_interleaving=true");
    }
}

void RatioRunner::addRatio(const std::string& name, const std::string& storeCase, const std::string& baselineCase,
                           Clock clock, double limit) {
    m_ratios.push_back({name, storeCase, baselineCase, clock, limit});
}

int RatioRunner::run() {
    std::vector<char*> argv;
    for (std::string& argument : m_arguments) {
        argv.push_back(argument.data());
    }
    int argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    benchmark::Initialize(&argc, argv.data());
    if (benchmark::ReportUnrecognizedArguments(argc, argv.data())) {
        return 2;
    }
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    int status = 0;
    for (const std::string& failure : reporter.failed()) {
        std::printf("failed %s\n", failure.c_str());
        status = 1;
    }
    const auto& times = reporter.times();
    for (const Ratio& ratio : m_ratios) {
        const auto store = times.find(ratio.storeCase);
        const auto baseline = times.find(ratio.baselineCase);
        if (store == times.end() || baseline == times.end()) {
            continue; // filtered out, or failed (reported above)
        }
        const double cpu = median(store->second.cpu) / median(baseline->second.cpu);
        const double real = median(store->second.real) / median(baseline->second.real);
        const double value = ratio.clock == Clock::Cpu ? cpu : real;
        std::printf("ratio %s: %.2f (limit %.1f)\n", ratio.name.c_str(), value, ratio.limit);
        std::printf("    on CPU time %.2f, on real time %.2f\n", cpu, real);
        if (m_check && value > ratio.limit) {
            status = 1;
        }
    }
    std::fflush(stdout);
    return status;
}
